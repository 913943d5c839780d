// Members of the demonstration club, households and families.
#pragma once

#include "esittely/EsittelyMalli.h"

namespace esittely {

void LuoJasenet(Seura &s, int jasenia, Arpa &a);

} // namespace esittely
