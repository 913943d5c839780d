// The printouts of the member window: for each command the report file, the named formulas, the
// selection and the sort order. The window asks the user; these decide what the engine gets.
#pragma once

#include "platform/database.h"

#include <QString>
#include <QStringList>

struct JasenRaportti {
    QString tiedosto;      // report file name, looked up in the program's folder
    QString valinta;       // selection formula; empty: every row
    QStringList kaavat;    // "Name= 'text'", in the order the engine gets them
    QStringList lajittelu; // "+{table.field}"; empty: the report's own order
};

// "Luettelot ja tarrat": the report of print type 0…8 for the order 0 surname, 1 postal code,
// 2 birth date. `valinta` is the selection formula of the search conditions, `rajaus` their
// Finnish sentence.
JasenRaportti ListaRaportti(int iPrintType, int iTulJarj, const QString &valinta, const QString &rajaus);

// A member's payment history, and a group's (piID 0: no attribute chosen, every member).
JasenRaportti MaksuhistoriaJasenelle(qint64 jrId);
JasenRaportti MaksuhistoriaRyhmalle(qint64 piId);

// The family list, and the lists and labels of families that have or have not paid.
JasenRaportti PerheLuettelo();
JasenRaportti MaksamattomatPerheet(bool tarrat);
JasenRaportti MaksaneetPerheet(bool tarrat);

// The label sheet of table Tarra (the family labels), in the order the labels were made.
JasenRaportti Perhetarrat();

// The street name of an address: words up to the first word after the first that holds a digit.
QString KadunNimi(const QString &osoite);

// Every member's jrKatu from his address, for the list by street.
void PaivitaKadut(db::Database &db);

// Reset, file, section fonts, destination and copies from the print state, formulas, selection
// and sort, in the order the engine takes them; the caller runs it.
void ValmisteleJasenRaportti(const JasenRaportti &r);
