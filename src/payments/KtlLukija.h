// The fixed-width file of incoming reference payments (KTL): 90-character records, type in the
// first position. 0 opens a batch, 3 and 5 are payments, 9 closes the batch with its totals.
//
// What is forgiven, as the banks' files differ: CRLF, LF or CR line ends, blank lines, a DOS
// end-of-file mark, lines shorter than 90 (padded with blanks; the header often stops after the
// currency code), a batch that ends without its record 9 (its totals are counted), a file in
// ISO-8859-1 or UTF-8, and the 7-bit national letters [ \ ] { | } for Ä Ö Å ä ö å in names.
// What is refused, naming the line: an unknown record type, a payment or total outside a batch,
// a date or amount that is not digits, text past position 90, and a record 9 whose counts or
// sums disagree with the batch's payments.
#pragma once

#include "payments/Viiteaineisto.h"

#include <QByteArray>
#include <QList>

namespace ktl {

// Whether the bytes look like the fixed-width file: the first line that is not blank starts with
// a record type. Only a guess for choosing the reader; Lue tells the rest.
bool Tunnista(const QByteArray &tavut);

// Throws ViiteaineistoVirhe.
QList<ViiteEra> Lue(const QByteArray &tavut);

} // namespace ktl
