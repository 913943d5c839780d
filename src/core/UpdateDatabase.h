// Brings a database of any older release forward to the present structure. Safe at every start.
#pragma once

#include "platform/database.h"

// Runs the guarded steps in order. The first step that fails throws, and the steps after it are
// left for the next start.
void UpdateDatabase(db::Database &db);

// Exact-name existence tests (case-sensitive).
bool TauluOnOlemassa(db::Database &db, const QString &name);
bool KenttaOnOlemassa(db::Database &db, const QString &table, const QString &field);
bool IndeksiOnOlemassa(db::Database &db, const QString &table, const QString &index);
bool KyselyOnOlemassa(db::Database &db, const QString &name);

// Whether UpdateDatabase would change nothing: every step is done or waits for the user.
bool TietokantaOnAjantasalla(db::Database &db);

// Member numbers that more than one member holds. Until there are none, the member-number index
// stays as it was and the upgrade leaves it for the next start.
QStringList KaksoisJasennumerot(db::Database &db);
