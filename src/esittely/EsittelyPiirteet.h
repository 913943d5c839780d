// Attributes of the demonstration club and their values on members.
#pragma once

#include "esittely/EsittelyMalli.h"

namespace esittely {

void LuoPiirteet(Seura &s, Arpa &a);

} // namespace esittely
