// The life of the club's database file: opening at start, repair, backup and reorganisation,
// restore, a new club, and the invoice-identity guards.
#pragma once

#include "platform/database.h"

#include <functional>
#include <memory>

// Opening at start (in the splash): the read-only question, the error loop with the offer of
// the demonstration database, the stop on a locked file, the repair of a damaged one, and on a
// clean open UpdateDatabase, the INI write-back of a taken default and LueAsetukset.
// Returns the open database on success (the caller reads RegName and closes it), or null when
// the routine ended without one. Sets `lopeta` when the program must end at once.
std::unique_ptr<db::Database> AvaaTietokantaKaynnistyksessa(bool &lopeta);

// The repair sequence with its messages; `asetuksista` picks the wording of the settings window.
void KorjaaTietokanta(bool asetuksista);

void TeeVarmuuskopio();
void LisaaVarmuusrivit();
void PoistaVarmuusrivit();
void Palautus();
// Returns true when the program must end (a new database was made).
bool PerustaTietokanta(const QString &teksti, const QString &pohja);
long SuurinLaskunumero();
void VarmistaLaskuIdt();
