// The payment book over the invoice history: fetching an invoice by its reference, marking it paid
// (the one sequence every payment route uses), completing a reference with its check digit, and
// the four deletions of history rows. The window asks and shows; this reads and writes.
#pragma once

#include "platform/ajo.h"

#include "platform/currency.h"

#include <QDate>
#include <QString>
#include <QVector>
#include <optional>

// An invoice of the history as the payment book shows it: every label's text.
struct HistorianLasku {
    qint64 jmhID = 0;
    qint64 jrID = 0;
    QString nimi, otsake, erapaiva, laskupaiva, laskunumero, viitenumero, hinta, teksti;
    QString maksettu;                         // "Kyllä" / "Ei"
    QString perhemaksu, ominaisuusmaksu, jasenmaksu; // "Kyllä" / "Ei" / "-" for Null
};

// The invoice of the reference (trimmed; the first of several). Nothing, after the message, when
// no invoice has it or its member is gone.
std::optional<HistorianLasku> HaeLasku(db::Database &db, const QString &viitenumero);

// The payments the ledger holds for a history invoice, by date, and what is still open of it.
struct Suoritusrivi {
    QDate paiva;
    Currency summa;
    QString arkistointitunnus;
};
struct LaskunSuoritukset {
    QVector<Suoritusrivi> rivit;
    Currency maksettu; // the sum of the rows
    Currency avoinna;  // the invoice's total less what was paid; negative when overpaid
};
LaskunSuoritukset HaeSuoritukset(db::Database &db, qint64 jmhID);

// Marks the history invoice paid: the membership fee of the member (of the payer and every family
// member found, on a family invoice), the invoice and its rows; with `poista` the rows and the
// invoice are deleted after. One transaction. No date, no amount: the user's word that it is paid.
void MerkitseMaksetuksi(db::Database &db, qint64 jmhID, bool poista);

// The text with its check digit after it, left-trimmed, as the reference box completes it.
QString TaydennaViitteeksi(const QString &teksti);

// The deletions of history rows, each after its question; messages through the dialogs. The rows
// of jmRivi and the ledger stay. Return the number of rows deleted.
int PoistaKaikkiHistoriasta(db::Database &db);
int PoistaMaksetutHistoriasta(db::Database &db);
int PoistaHistoriastaLaskunumerolla(db::Database &db);
int PoistaYksittainenHistoriasta(db::Database &db);
