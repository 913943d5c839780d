// Writing the demonstration club built in memory into an upgraded database.
#pragma once

#include "esittely/EsittelyMalli.h"
#include "platform/database.h"

namespace esittely {

void KirjoitaSeura(db::Database &db, Seura &s);

} // namespace esittely
