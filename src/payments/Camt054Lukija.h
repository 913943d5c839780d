// The ISO 20022 camt.054 notification (BkToCstmrDbtCdtNtfctn) read into the same batches as the
// fixed-width file. Any camt.054.001 version is read: elements are matched on their local names,
// so the element layouts of the older and newer versions both work.
//
// One batch per notification (Ntfctn): it stands where the fixed-width file's record 0 stood, one
// account and one creation time; its date and time come from the notification's CreDtTm. The
// bank group and biller code have no counterpart and stay empty.
//
// Within a batch, one payment per transaction (TxDtls) of a booked entry, in file order, whether
// the bank writes one entry per batch of payments or one entry per payment; an entry without
// transaction details is one payment of its own. Credit entries are payments. A debit entry with
// the reversal mark is a correction of an earlier payment (correction mark "1"); other debit
// entries, credits that reverse a debit, and entries not booked are left out, and so is a
// notification with nothing left. Only euros are read.
//
// Fields are given in the fixed-width file's forms: dates YYMMDD, amounts zero-padded cents, the
// account as the 14-digit BBAN of a Finnish IBAN, a national reference zero-padded to 20. An RF
// reference whose body is a valid national reference is handed on as that national reference,
// since the invoices are found by it; any other RF reference is handed on as it stands.
// The batch totals are counted from the payments, and every entry must add up: the transactions
// to the entry's amount, and to the batch total and count where the bank gives them.
#pragma once

#include "payments/Viiteaineisto.h"

#include <QByteArray>
#include <QList>

namespace camt054 {

// Whether the bytes look like XML: the first thing after a byte-order mark and blanks is "<".
bool Tunnista(const QByteArray &tavut);

// Throws ViiteaineistoVirhe.
QList<ViiteEra> Lue(const QByteArray &tavut);

// The reference as the fixed-width file would carry it: "13013", "130 13" and "RF84 13013" (an RF
// whose body is a valid national reference) give "00000000000000013013"; other text comes back
// trimmed.
QString ViiteKoneelle(const QString &viite);

} // namespace camt054
