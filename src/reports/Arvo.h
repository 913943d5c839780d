// A value inside the report engine: what a field, a literal or an expression yields.
#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QString>
#include <variant>

using Arvo = std::variant<std::monostate, bool, qint64, double, Currency, QDate, QString>;

inline bool onTyhja(const Arvo &a) { return std::holds_alternative<std::monostate>(a); }

// The plain printed form: money with two decimals and a decimal comma, dates d.M.yyyy,
// booleans "Kyllä"/"Ei", Null as nothing.
QString ArvoTekstina(const Arvo &a);
// The value as a number, for arithmetic; nothing for text, dates and Null.
std::optional<double> ArvoLukuna(const Arvo &a);
