// Invoices of the history printed again: the one fetched in the payment book, and copies of the
// unpaid ones of an invoice-number range. The payment book asks; this decides and walks.
#pragma once

#include "invoicing/Laskujentulostus.h"

// The history layout of the chosen model: jrphtile / jrphti2e for the giro form, jrphmak /
// jrphmak2 for the others; the club's own history layout whenever it is in use.
QString HistorianRaportti(const Laskumallivalinta &valinta);

// The formula a copy carries, so that the layout marks it.
QString KopioKaava();

// Reprints the history invoice `jmhID` (0: none fetched, which is told). The report selects
// "{jmhist.jmhID}=" + jmhID. Returns the number of invoices printed.
int TulostaLaskuUudestaan(const Ajo &ajo, qint64 jmhID, const Tulostuskysymykset &k, const Laskujentulostajat &tulosta);

// The range of the copies and the reminders: the question, then from and to as typed. Nothing
// when the answer was not Yes.
struct Laskunumerovali {
    QString alku, loppu;
};
std::optional<Laskunumerovali> KysyMaksamattomienVali();

// The unpaid history invoices (jmhID) of the range, by number. A number that is no number finds
// nothing.
QVector<qint64> MaksamattomatValilta(db::Database &db, const Laskunumerovali &vali);

// Prints the history invoices `laskut` with `raportti`: to a printer one report each with the
// tray pause, otherwise one document.
void TulostaHistoriasta(const Ajo &ajo, Tulostuspaikka minne, const QString &raportti, const QVector<qint64> &laskut,
                        const Laskujentulostajat &tulosta);

// Copies of the unpaid invoices whose numbers lie in the range the user gives (either end may be
// left empty), after the question. To a printer one report per invoice with the tray pause, else
// one document in invoice-number order. Returns the number printed.
int TulostaLaskukopiot(const Ajo &ajo, const Tulostuskysymykset &k, const Laskujentulostajat &tulosta);
