// Who an invoice run invoices, from the entry chosen in the window's name box: everybody, the
// holders of an attribute (or, with "Muille…", everybody else), or one person. The family box
// leaves out the families' payers and members. The runs use jrMukaan as scratch on the way.
#pragma once

#include "invoicing/Laskulomake.h"
#include "platform/database.h"

#include <QVector>

struct Laskutettava {
    qint64 jrID = 0;
    QString jrViitenumero;
};

// In the order of surname and first name. A holder of an attribute through several rows comes
// once for each of them, and gets as many invoices: the runs have always done so.
QVector<Laskutettava> Laskutettavat(db::Database &db, const LaskunSaajat &saajat);

// jrMukaan true for everybody, then false for the families' payers and their members.
void RajaaPerheellisetPois(db::Database &db);
