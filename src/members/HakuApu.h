// Pieces shared by the translations of the search conditions. Not for other callers.
#pragma once

#include "members/Hakuehdot.h"

#include <QDate>
#include <QVector>

namespace haku {

// Throws HakuehtoVirhe for a value no translation can use.
void tarkista(const HakuParametrit &p);

bool onTahti(const QString &arvo);      // holds the year wild card "*"
QDate paiva(const QString &arvo);        // a checked date value
QVector<qint32> valitut(const HakuParametrit &p); // the non-zero elements of index 0 to 30

// Values as the statements bind them.
QVariant sqlPaiva(const QString &arvo);   // ISO text, as dates are stored
QVariant sqlLuku(const QString &arvo);    // a whole number or a decimal
QVariant sqlRaha(const QString &arvo);    // Currency raw ten-thousandths
// A year pattern with * and ? made into the LIKE pattern of the connection (escape '\').
QString likeKuvio(const QString &arvo);

// Values as the formula language writes them.
QString kaavaPaiva(const QDate &d);            // " Date(2000,1,31)"
QString kaavaLuku(const QString &arvo);        // "12.5" for "12,5"; a plain number as typed
QString kaavaMerkkijono(const QString &arvo);  // "\"19*\"", an inner quote doubled
QString kaavaPostinumero(const QString &arvo); // digits as typed, else the twin column's value

} // namespace haku
