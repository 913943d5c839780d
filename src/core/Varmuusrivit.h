// The row marks that keep the AutoNumber counters up across a reorganisation.
#pragma once

#include "platform/database.h"

// The forms without a database open DatabasePath; both run as one transaction.
void LisaaVarmuusrivit();
void PoistaVarmuusrivit();
void LisaaVarmuusrivit(db::Database &db);
void PoistaVarmuusrivit(db::Database &db);
