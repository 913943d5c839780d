// Whom a verb's run is for, from --kenelle kaikki|ominaisuus:NIMI|jasen:JRID (everybody when
// not given), --ei-perheellisille and --muille, as the windows' name box and boxes give it.
#pragma once

#include "invoicing/Laskulomake.h"
#include "komento/Komento.h"

#include <optional>

namespace db { class Database; }

namespace komento {

// The name box's entry; an error text (and status) when the option names nothing.
std::optional<LaskunSaajat> LueSaajat(db::Database &db, const Valitsimet &v, QString *virhe, int *tila);

} // namespace komento
