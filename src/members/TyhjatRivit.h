// The clean-up of opening a list of members or attributes: rows that hold nothing anybody typed
// (left by an add that was saved empty) are removed. A row with any data at all stays, a member
// without a surname among them: he is listed under "Muut".
#pragma once

#include "platform/database.h"

// Members whose every typed field and tick is Null or empty and who hold no attribute.
void PoistaTyhjatJasenet(db::Database &db);
// Attribute definitions with no name, description, default or enabled value type, and no holder.
void PoistaTyhjatPiirteet(db::Database &db);
// Both, as the member window does when it opens.
void PoistaTyhjatRivit(db::Database &db);
