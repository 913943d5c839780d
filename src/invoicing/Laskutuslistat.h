// The lists of an invoice window: whom to invoice, and the remembered invoice headings (lt).
#pragma once

#include "members/Piirteet.h"
#include "platform/database.h"

#include <optional>

// "Kaikki" (0), then "Om - " and each attribute (its piID negated), then each person as
// "surname first name" (jrID), in Finnish order. Blank rows are cleared first, as every list of
// members does on opening.
QVector<ListaRivi> LaskutusNimet(db::Database &db);

// The family run's box: "Kaikki", the attributes, then the families' payers.
QVector<ListaRivi> PerhelaskuNimet(db::Database &db);
// The attribute rows' boxes: "---" (0), then every attribute by name (piID).
QVector<ListaRivi> OminaisuusValinnat(db::Database &db);

// The sales types of a row: "-Ei myyntilajia-" (0), then "number/name" (only the name when the
// number is empty) by name (mlID).
QVector<ListaRivi> MyyntilajiValinnat(db::Database &db);

// The headings by name; those that are only blanks are left out.
QVector<ListaRivi> LaskuOtsakkeet(db::Database &db);
// Remembers a heading not yet stored (the same letters in another case count as stored) and
// gives its new entry; nothing for a stored or blank one.
std::optional<ListaRivi> MuistaOtsake(db::Database &db, const QString &otsake);
void PoistaOtsake(db::Database &db, qint64 ltID);
