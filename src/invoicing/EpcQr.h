// The payload of the EPC QR code ("SEPA credit transfer") printed on an invoice, which a banking
// app reads to fill in the payment.
#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QString>
#include <optional>

struct EpcQrTiedot {
    QString bic;                   // empty: version 002, which leaves the BIC out
    QString saaja;                 // the beneficiary's name; cut to 70 characters
    QString iban;                  // any SEPA IBAN, in machine or print form
    std::optional<Currency> summa; // none or 0: the payer types the amount
    QString tarkoitus;             // a four-letter purpose code, usually empty
    QString viite;                 // national or RF; goes in as RF
    QString viesti;                // used only when there is no reference; cut to 140 characters
    QDate erapaiva;                // the requested execution date, when valid
};

struct EpcQrTulos {
    QByteArray sisalto; // the UTF-8 bytes to encode; empty when no QR code can be made
    QString syy;        // the Finnish reason why not; empty on success
    bool onnistui() const { return !sisalto.isEmpty(); }
};

// The largest amount the payload carries.
inline constexpr Currency EpcQrSuurinSumma = Currency::fromRaw(999999999'9900);

// Builds the payload: lines "BCD", "001" (with a BIC) or "002" (without), "1" (UTF-8), "SCT",
// the BIC, the name, the IBAN, "EUR" and the amount with a point and two decimals, the purpose,
// the reference in RF form, the message, and "ReqdExctnDt/YYYY-MM-DD" for the due date; lines
// separated by LF, with the empty lines after the last filled one left out, at most 331 bytes.
// A message and a reference exclude each other: with a reference the message is left out.
// Line breaks inside a field become blanks. For example NDEAFIHH, "Esimerkkiseura ry",
// FI3715903000000776, 25,00 €, reference 1234561, due 28.2.2025 →
// "BCD\n001\n1\nSCT\nNDEAFIHH\nEsimerkkiseura ry\nFI3715903000000776\nEUR25.00\n\nRF341234561\n\nReqdExctnDt/2025-02-28".
// No payload, with the reason, for a missing name, an invalid IBAN, BIC, purpose or reference, a
// negative amount or one over 999 999 999,99 €, or when the whole would not fit in 331 bytes.
EpcQrTulos EpcQrSisalto(const EpcQrTiedot &tiedot);
