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

// Whether every step's test passes already, so that UpdateDatabase would change nothing.
bool TietokantaOnAjantasalla(db::Database &db);
