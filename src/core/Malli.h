// The template database of a new club. It holds only the base tables and a few headings; the
// upgrade adds everything else at the first start, as it does for any older database.
#pragma once

#include <QString>

// Creates the file at `path` from the schema's declaration. The file appears whole or not at all.
// Throws db::DbError when the file exists already or cannot be written.
void LuoMalliTietokanta(const QString &path);

// programFolder + "/mallit/malli.mdb"
QString MalliPolku();

// Creates the template when it is missing; an existing one is never touched.
void VarmistaMalli();
