// Finnish bank reference numbers: the 7-3-1 check digit and references made from a number.
#pragma once

#include <QString>

// The check digit of a string of digits. Weights 7, 3, 1, 7 … from the rightmost character; a
// character that is not a digit counts as 0. A check digit other than "0" comes after one
// leading blank, as the callers have always trimmed it: " 4" for "1234", "0" for "55".
QString LaskeViitetarkiste(const QString &numero);

// The reference made from a base number (an invoice number, a member's base): the base as it
// stands followed by its trimmed check digit, with no separator. "1234" gives "12344".
QString ViiteNumerosta(const QString &perusnumero);
QString ViiteNumerosta(qint64 perusnumero);

// Whether the text is a whole reference whose last digit checks the digits before it.
// Only digits, at least two of them; no length rule beyond that.
bool ViiteOnKelvollinen(const QString &viite);
