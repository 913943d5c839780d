// What the template window stores from a typed number: a text that is a number goes in as that
// number, anything else as 0 (the due days as -1, "leave the due date alone"). No message: the
// window is tolerant by design.
#pragma once

#include "platform/currency.h"

#include <QString>

Currency RahaSyotteesta(const QString &teksti);
double LukuSyotteesta(const QString &teksti);
// Whole days; a number outside the column's range counts as no number.
int ErapaivaSyotteesta(const QString &teksti);
// The days as the window shows them: -1 as an empty box.
QString ErapaivaTekstina(int paivia);
