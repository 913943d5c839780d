// Applying an invoice template to the fields of an invoice window. The window reads its controls
// into its form, applies, and writes the form back to its controls; the invoice run is then
// started by the user as usual.
//
// The header: the heading, the invoice date by its kind (-1 empties it, 0 writes today), the due
// date as the invoice date plus the template's days (emptied when there is no valid date to count
// from; -1 days leaves it alone), the transfer text, the additional text, the five ticks, and
// the account chosen by its exact text among cmbTilinumerot, falling back to the first entry with
// a message when the template's account is not there. The rows by the window's kind. Amounts are
// written as plain money texts ("12,50", "1,2345") that the run reads back as typed amounts.
#pragma once

#include "invoicing/Laskulomake.h"

#include <QString>
#include <QVector>

class cLaskupohja;
class Currency;

void KaytaLaskupohjaa(const cLaskupohja &pohja, MaksujenLuontiLomake &lomake);
void KaytaLaskupohjaa(const cLaskupohja &pohja, PerheLomake &lomake);
// `piIdt` are the item data of the entries of cmbOminaisuus (the attributes the window lists); a
// row whose attribute is not among them shows the first entry "---" (item data 0).
void KaytaLaskupohjaa(const cLaskupohja &pohja, OminaisuusLomake &lomake, const QVector<qint64> &piIdt);

// The choice of a template menu entry: the templates of the window's kind are read again from
// the database at `tietokanta`, and the one at `indeksi` (0-based, in the menu's order) is
// applied. False after "Laskupohjaa ei löydy." when there is no template at that index (one was
// deleted meanwhile); the form is then untouched. Database failures throw db::DbError.
bool KaytaValittuaLaskupohjaa(const QString &tietokanta, int indeksi, MaksujenLuontiLomake &lomake);
bool KaytaValittuaLaskupohjaa(const QString &tietokanta, int indeksi, PerheLomake &lomake);
bool KaytaValittuaLaskupohjaa(const QString &tietokanta, int indeksi, OminaisuusLomake &lomake, const QVector<qint64> &piIdt);

