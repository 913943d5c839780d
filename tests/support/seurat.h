// Generated clubs for tests and benchmarks. A club of a given size and seed is built once into
// a cache folder under the temporary folder and copied for each use, so a test or benchmark that
// needs 100,000 members pays for the generation only the first time.
#pragma once

#include "platform/database.h"

#include <QString>

namespace seurat {

// Builds a club at `polku` (which must not exist): template, upgrade and the generator.
void Rakenna(const QString &polku, int jasenia, quint32 siemen = 1);

// The cached club of this size and seed, built when missing. The cache is keyed by the present
// generator and schema, so a changed build never reads an old club. Do not write to it.
QString Valmis(int jasenia, quint32 siemen = 1);

// A private copy of the cached club at `kohde`; returns `kohde`.
QString Kopio(int jasenia, const QString &kohde, quint32 siemen = 1);

// Every row of every table in key order, one line per row: equal texts mean equal content.
QString Sisalto(db::Database &db);

} // namespace seurat
