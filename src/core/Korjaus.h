// Repairing a damaged database file.
#pragma once

// The repair sequence with its messages; `asetuksista` picks the wording of the settings window.
// True when the repaired file took the database's place (it is used from the next start).
bool KorjaaTietokanta(bool asetuksista);
