// The bank barcode of a Finnish giro slip: 54 digits that a payer's bank reads for the account,
// the amount, the reference and the due date. The slip prints them as Code 128 with no readable
// text beside it; an even count of digits and nothing else encodes in character set C all through
// (start C, 27 digit pairs, the check character, stop), as the banks' readers expect.
#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QString>

struct PankkiviivakoodiTulos {
    QString numerot; // the 54 digits; empty when no barcode can be made
    QString syy;     // the Finnish reason why not; empty on success
    bool onnistui() const { return !numerot.isEmpty(); }
};

// The largest amount the barcode's euro field (six digits) carries.
inline constexpr Currency PankkiviivakoodinSuurinSumma = Currency::fromRaw(999999'9900);

// The barcode's digits: version 4 for a national reference, 5 for an RF reference; the IBAN's 16
// digits without "FI"; euros in six digits and cents in two (all zeros when the amount is 0, for
// the payer to fill in); the reference (v4: "000" and the national reference zero-padded to 20;
// v5: the RF check digits and the body zero-padded to 21); the due date YYMMDD or "000000" when
// the date is not valid. The amount is rounded to cents.
//   FI58 1017 1000 0001 22, 482,99 €, "55958 22432 94671", 31.1.2012 →
//   "458101710000001220004829900000000559582243294671120131".
// No barcode, with the reason, for an IBAN that is not a valid Finnish one, a missing or invalid
// reference, an RF reference whose body has letters, or an amount that is negative or over
// 999 999,99 €.
PankkiviivakoodiTulos Pankkiviivakoodi(const QString &iban, Currency summa, const QString &viite, const QDate &erapaiva);
