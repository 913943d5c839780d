// Salvage of a damaged database: everything that can still be read goes into a new file.
#pragma once

#include "core/Kantatiedosto.h"

#include <QStringList>

namespace kanta {

struct Pelastus {
    // Tables of which some rows could not be read.
    QStringList vajaatTaulut;
};

// Builds `uusi` from the schema and the readable rows of `vioittunut`, which is only read.
// False when not even the schema can be read or the new file cannot be written. A stop throws
// Keskeytetty; the caller removes the half-written `uusi`.
bool pelastaTietokanta(const QString &vioittunut, const QString &uusi, Pelastus *tulos, Virhe *virhe,
                       Edistyminen *edistyminen = nullptr);

} // namespace kanta
