// The invoice-identity guards: the largest invoice number, and the AutoNumber of jm kept above
// every identity that rows and history still refer to.
#pragma once

#include "platform/database.h"

// The largest invoice number in use in jm and jmhist; 0 when both are empty.
long SuurinLaskunumero();
long SuurinLaskunumero(db::Database &db);
// After this, a new jm row takes an identity above every jmRjmID and jmhjmID. A run that has
// its own connection open passes it.
void VarmistaLaskuIdt();
void VarmistaLaskuIdt(db::Database &db);
