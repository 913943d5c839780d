// The member's invoice history on the member window's payment tab, and the marking of one
// invoice paid by hand.
#pragma once

#include "platform/database.h"

#include <QString>
#include <QVector>

// The membership fee mark as every selection reads it: Null is unpaid, as with the Null-safe
// readers, so the search conditions and the removal of non-payers agree on every member.
inline const QString JasenmaksuMaksettu = QStringLiteral("IFNULL(jrJasenmaksu, 0) <> 0");
inline const QString JasenmaksuMaksamatta = QStringLiteral("IFNULL(jrJasenmaksu, 0) = 0");

struct LaskuRivi {
    qint64 jmhID = 0;
    QString teksti; // amount - text
};
// The member's invoices in the history, by invoice date.
QVector<LaskuRivi> JasenenLaskut(db::Database &db, qint64 jrId);

// One invoice as the tab's labels show it; all empty when the row is gone.
struct LaskunTiedot {
    QString jmhjmID, otsake, erapaiva, laskupaiva, laskunumero, viitenumero, hinta, teksti;
    QString maksettu;        // "Kyllä" / "Ei"
    QString perhemaksu;      // "Kyllä" / "Ei" / "-" for Null
    QString ominaisuusmaksu;
    QString jasenmaksu;
};
LaskunTiedot LueLasku(db::Database &db, qint64 jmhID);

struct MaksetuksiTulos {
    bool loytyi = false;
    bool jasenmaksu = false; // the invoice was a membership fee: the window ticks its box
};
// Marks the history invoice `jmhjmID` paid with its rows, and the membership fee of its payer,
// or of the payer's whole family for a family invoice. Members that are gone are skipped.
MaksetuksiTulos MerkitseLaskuMaksetuksi(db::Database &db, qint64 jmhjmID);
QString LaskuaEiLoydyViesti(const QString &viitenumero);
