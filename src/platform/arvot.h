// Values as the database and the user give them: Null-safe readers, dates and numbers as text.
#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QString>
#include <QVariant>

// Null-safe readers: the value, or the substitute when it is Null or cannot be converted.
QString NullText(const QVariant &v, const QString &substitute = {});
Currency NullCurrency(const QVariant &v, Currency substitute = {});
bool NullBoolean(const QVariant &v, bool substitute = false);
qint64 NullLong(const QVariant &v, qint64 substitute = 0);
QDate NullDate(const QVariant &v, const QDate &substitute = {});

// A date as stored in the database ("yyyy-MM-dd"), Null for an invalid date.
QVariant DbPaiva(const QDate &d);

// A number as typed, in the form C and SQL read: blanks between thousands gone, the decimal
// comma a point. Not checked: see OnNumeerinen.
QString LukuKoneenMuotoon(const QString &text);
// Whether the text is a number as the regional settings read it ("12", "12,5", "-3", "1 000").
bool OnNumeerinen(const QString &text);
// The numeric value of such a text; 0 when it is no number.
double NumeroArvo(const QString &text);
// Parses a Finnish date "d.M.yyyy" (also "d.M.yy", ISO); invalid QDate when it is none.
QDate ParsePaiva(const QString &text);
QString PaivaTekstina(const QDate &d); // "d.M.yyyy"

// Money into a field the user edits: a decimal comma, two decimals and more only where the amount
// has them (up to four), no grouping: "12,50", "-3,00", "1,2345". Read back exactly as typed.
QString RahaKenttaan(const Currency &summa);
// A number the same way: "2", "1,5", "7,25".
QString LukuKenttaan(double luku);
