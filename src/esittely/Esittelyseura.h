// The demonstration club: a believable Finnish club made from a seed, for the demonstration
// database of a new installation and for the clubs of tests and benchmarks.
#pragma once

#include "platform/database.h"

#include <QString>

// Fills an upgraded database that has no members yet with a club of `jasenia` members: families,
// attributes with values, code lists, an invoice history with paid, partly paid, unpaid and
// reminded invoices, and the club's settings. One transaction: on failure nothing is written.
// The same size and seed give the same content.
void TaytaSeura(db::Database &db, int jasenia, quint32 siemen = 1);

// The demonstration database of 150 members at `path`: the template, the upgrade and the club.
// Fails when the file exists.
void LuoDemoTietokanta(const QString &path);
