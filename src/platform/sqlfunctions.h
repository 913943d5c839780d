// The program's own SQL collation and functions, registered on every connection.
//   COLLATE FI  Finnish order, case-insensitive (Å, Ä, Ö after Z)
//   UPPER/LOWER Unicode-aware, like(): case-insensitive for every letter, with % and _
//   YEAR(date)  the year of an ISO date text
#pragma once

struct sqlite3;

namespace db {
void registerSqlFunctions(sqlite3 *db);
int finnishCompare(const char *a, int alen, const char *b, int blen);
}
