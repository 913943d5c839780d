// The life of the club's database file: opening at start, repair, backup and reorganisation,
// restore, a new club, and the invoice-identity guards.
#pragma once

#include "platform/database.h"

#include <QDate>
#include <QString>
#include <memory>

// Names derived from the database's path ("club.mdb" → "club.mdb2", "club.mdbOLD", "club.md2",
// "club.md3"). The two naming schemes are deliberately different.
QString KorjauksenTulos(const QString &kanta);
QString KorjauksenJaannos(const QString &kanta);
QString JarjestelynTulos(const QString &kanta);
QString JarjestelynJaannos(const QString &kanta);
// The backup folder followed by the file-name part of the database's path.
QString VarmuuskopionNimi(const QString &kansio, const QString &kanta);
// The copy taken beside the file before an upgrade changes it ("club-ennen-paivitysta-20240131.mdb").
QString PaivitystaEdeltavaKopio(const QString &kanta, const QDate &paiva);

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

// The repair sequence with its messages; `asetuksista` picks the wording of the settings window.
// True when the repaired file took the database's place (it is used from the next start).
bool KorjaaTietokanta(bool asetuksista);

// Backup and reorganisation of DatabasePath. True when both succeeded and BackupDate was written.
bool TeeVarmuuskopio();
// The row marks that keep the AutoNumber counters up across a reorganisation. The forms without
// a database open DatabasePath; both run as one transaction.
void LisaaVarmuusrivit();
void PoistaVarmuusrivit();
void LisaaVarmuusrivit(db::Database &db);
void PoistaVarmuusrivit(db::Database &db);

void Palautus();
// Returns true when the program must end (a new database was made).
bool PerustaTietokanta(const QString &teksti, const QString &pohja);

// The largest invoice number in use in jm and jmhist; 0 when both are empty.
long SuurinLaskunumero();
long SuurinLaskunumero(db::Database &db);
// After this, a new jm row takes an identity above every jmRjmID and jmhjmID. A run that has
// its own connection open passes it.
void VarmistaLaskuIdt();
void VarmistaLaskuIdt(db::Database &db);
