// A new club's database, made from the template.
#pragma once

#include <QString>

// Returns true when the program must end (a new database was made).
bool PerustaTietokanta(const QString &teksti, const QString &pohja);
