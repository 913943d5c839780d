// Family labels: one label for each selected family whose head is selected, with the names of
// its selected members on the first line, and a label of his own for every other selected member.
// The selection is the jrMukaan flag that AsetaMukaan wrote.
#pragma once

#include "platform/database.h"

// Empties the label sheet table Tarra and fills it in the order the labels print. Members put on
// a label are taken out of the selection (jrMukaan false). One transaction; returns the number of
// labels. Throws db::DbError.
int TeePerhetarrat(db::Database &d);
