// The invoice history of the demonstration club, paid, unpaid and reminded.
#pragma once

#include "esittely/EsittelyMalli.h"

namespace esittely {

void LuoLaskuhistoria(Seura &s, Arpa &a);

} // namespace esittely
