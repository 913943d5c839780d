// A member's attributes (table pt): the list of the member window, attaching one with the
// definition's defaults, the value panel's read and store, and removing one.
#pragma once

#include "members/Piirteet.h"

// The member's attachments in the order they were made, with the definition's name; an
// attachment whose definition is gone is left out.
QVector<ListaRivi> JasenenPiirteet(db::Database &db, qint64 jrID);

// Attaches the definition to the member. Each type in use takes the definition's default, and
// stays Null when the default is Null or the type is not in use. Nothing stops a second
// attachment of the same attribute. Returns the new ptID, or 0 when the definition is gone.
qint64 LiitaPiirre(db::Database &db, qint64 jrID, qint64 piID);

// What the value panel shows for an attachment: the description and, for each type in use,
// the value as text. Without a definition (`maaritys` false) no type is in use.
struct PiirreNakyma {
    bool loytyi = false;
    bool maaritys = false;
    QString kuvaus;
    ArvoSyote arvot;
};
PiirreNakyma LuePiirre(db::Database &db, qint64 ptID);

// Stores the panel into the attachment. Only the types in use are written, so a value of a
// type that the definition no longer has is kept. A text that does not parse is stored as
// Null, and the result says which boxes to empty. An attachment removed meanwhile takes nothing.
TallennettavatArvot TallennaPiirreArvo(db::Database &db, qint64 ptID, const ArvoSyote &syote);

void PoistaLiitos(db::Database &db, qint64 ptID);
