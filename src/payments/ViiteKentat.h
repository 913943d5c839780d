// What both readers of the payment file share: the batch totals counted from the payments, and
// the fixed-width file's forms of numbers that the camt.054 reader writes its fields in.
#pragma once

#include "payments/Viiteaineisto.h"

#include <QList>
#include <QString>

namespace viitekentat {

// `n` as digits, zero-padded to `leveys`: (2500, 10) → "0000002500".
QString Nollilla(qint64 n, int leveys);

// Whether the payment reverses an earlier one: the correction mark is "1".
bool OnOikaisu(const ViiteTapahtuma &t);

// The counts and sums of a batch's payments in the closing record's widths (counts 6, sums 11
// digits); failed transactions none.
ViiteSummat LaskeSummat(const QList<ViiteTapahtuma> &tapahtumat);

// Cents for a message: 650012 → "6 500,12 €".
QString EuroinaViestiin(qint64 sentit);

} // namespace viitekentat
