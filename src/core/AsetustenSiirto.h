// Moving the settings of an older release from the INI file into the club's database.
#pragma once

#include <functional>

// The start-up check that moves older settings from the file into the database. Returns true
// when the program must end (the user was sent to the settings windows).
// `avaaAsetukset` opens the two settings windows modally.
bool TarkistaAsetustenSiirto(const std::function<void()> &avaaAsetukset);
