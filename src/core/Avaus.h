// Opening the club's database at start.
#pragma once

#include "platform/database.h"

#include <memory>

// Opening at start (in the splash): the read-only question, the error loop with the offer of
// the demonstration database, the stop on a locked file, the repair of a damaged one, and on a
// clean open a copy beside the file before a real upgrade, UpdateDatabase, the INI write-back
// of a taken default and LueAsetukset.
// Returns the open database on success (the caller reads RegName and closes it), or null when
// the routine ended without one. Sets `lopeta` when the program must end at once.
std::unique_ptr<db::Database> AvaaTietokantaKaynnistyksessa(bool &lopeta);
// Opening for the command-line tool: the same checks and upgrade, but a file that cannot be opened
// as it is (missing, read-only, damaged, foreign) is only reported, never repaired or changed, and
// no other database is offered. Null after the message.
std::unique_ptr<db::Database> AvaaKomennolle(const QString &polku);
