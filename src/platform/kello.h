// The program's one clock. Nothing else asks the system for the date: a test or the command-line
// tool's --tanaan sets today, and every date the program works out follows it.
#pragma once

#include <QDate>
#include <QDateTime>

namespace kello {

QDate tanaan();
QDateTime nyt(); // today's date as set, with the system's time of day

// Sets today for the rest of the process; an invalid date returns to the system's date.
void asetaTanaan(const QDate &paiva);

} // namespace kello
