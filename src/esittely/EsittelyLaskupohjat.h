// The demonstration club's invoice templates: one of each kind, ready to run.
#pragma once

#include "platform/database.h"

namespace esittely {

void KirjoitaLaskupohjat(db::Database &db);

} // namespace esittely
