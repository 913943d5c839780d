// Payment reminders: the open amount from the ledger, the fee and the penalty interest from the
// due date to today stored on the history invoice, and the run that computes a range of unpaid
// invoices and prints a reminder for each.
#pragma once

#include "invoicing/Laskujentulostus.h"
#include "platform/currency.h"

#include <QDate>
#include <optional>

// The penalty interest of `avoin` for `paivat` days at `korko` per cent a year: the product of
// days and amount exact, then in floating point times the rate, / 100, / 365, back to money with
// a tie to the even ten-thousandth. Negative days give negative interest.
Currency Viivastyskorko(Currency avoin, qint16 paivat, double korko);

// The day count of a reminder: from the due date to today as a signed 16-bit number; nothing when
// it does not fit (or a date is missing).
std::optional<qint16> Muistutuspaivat(const QDate &erapaiva, const QDate &tanaan);

// Computes and stores the reminder of one history invoice (fee and rate from the settings, today
// from the run). Returns the message of an invoice that could not be computed, empty otherwise;
// an invoice that is not there is passed over.
QString LaskeMuistutus(const Ajo &ajo, qint64 jmhID);

// The extra formulas of the reminder report.
QStringList MuistutusKaavat();

// The print run: the question, the range, the print settings; every unpaid invoice of the range
// computed in one transaction (those that could not be, told after it), then a report each to a
// printer with the tray pause, or one document. Returns the number of reminders printed.
int TulostaMuistutukset(const Ajo &ajo, const Tulostuskysymykset &k, const Laskujentulostajat &tulosta);

// The e-mail reminder of the history invoice `jmhID` (0: none fetched): the reminder template
// merged with the invoice's own figures, sent by the mail route of the settings. Computes and
// stores nothing. The message to show: sent, failed with the reason, or why it was not sent.
QString LahetaMuistutus(db::Database &db, qint64 jmhID);
