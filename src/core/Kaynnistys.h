// The start of the program that needs no window: the password, the backup reminder, the
// currency check, the choice of club and the opening of the database.
#pragma once

#include "core/Varmuuskopio.h"
#include "platform/kello.h"

#include <QDate>
#include <QString>
#include <functional>

// Whether the path names the demonstration database: longer than nine characters, and its last
// nine are "DEMO1.MDB" in any case.
bool IsDemoDatabase(const QString &path);

// Asks for the start-up password when one is set. The answer must match exactly, case and
// blanks included; cancel counts as a wrong answer. False when the program must end.
bool TarkistaSalasana();

// Whether a backup is due: the days between today and the last backup, in either direction,
// exceed the interval. A missing backup date is always due.
bool VarmuuskopioErapaivana(const QDate &tanaan, const QDate &viimeisin, long paivia);

// Offers a backup at start when the reminder is on and one is due; Yes runs `teeVarmuuskopio`.
void MuistutaVarmuuskopiosta(const QDate &tanaan = kello::tanaan(),
                             const std::function<void()> &teeVarmuuskopio = TeeVarmuuskopio);

// The desktop's own currency symbol.
QString JarjestelmanValuuttatunnus();
// Tells the user when the symbol is still the markka. Returns whether it was told.
bool TarkistaValuuttatunnus(const QString &tunnus);

// Where the club choice starts: the database file when the path ends like one, otherwise the
// program's folder.
QString SeuranValinnanAloitus(const QString &databasePath);
// In several-clubs mode, asks which club's file to use for this run only.
void ValitseSeura();

// Opens the club's database at start (read-only question, error loop, repair, upgrade, settings)
// and reads the club's name. False when the program must end at once.
bool AvaaTietokantaJaLueSeura();
