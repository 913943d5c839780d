// An invoice's rows on their way into an e-mail invoice: date, text and amount already as the
// e-mail shows them.
#pragma once

#include "platform/database.h"

#include <QString>
#include <QVector>

struct cInvoiceRow {
    QString Paiva;  // d.M.yyyy; empty when the row has no date
    QString Teksti;
    QString Summa;  // two decimals, "12,50"; empty for a row without an amount
};

// The rows of invoice `jmID` in the order they were written.
QVector<cInvoiceRow> LaskunRivit(db::Database &db, qint64 jmID);
