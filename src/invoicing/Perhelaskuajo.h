// The family run: one invoice to each family's payer, priced by the members of each class of the
// family, one price per family and two free rows. The batch commits as one transaction.
#pragma once

#include "invoicing/Jasenmaksuajo.h"

Laskutustulos LisaaPerhelaskut(const Ajo &ajo, const PerheLomake &lomake, bool jasenikkunaAuki);

// The family's members as the run names them: "surname first name", ", " between, in the order
// of the family's rows; only the members of one class (0 adult … 7 fifth sibling) when asked.
QString PerheenNimet(db::Database &db, qint64 maksaja, int luokka = -1);
