// The functions of report expressions beyond the engine's own: the payment details of an invoice
// (the bank barcode, the payment QR code and the parts of an account typed in the settings) and
// a few text functions. Each is a thin layer over the banking helpers, so a slip, its barcode and
// its QR code print the same account, amount, reference and due date.
#pragma once

#include "reports/Arvo.h"

#include <QHash>
#include <optional>
#include <vector>

struct Funktionargumentit {
    int min, max;
};

// The names (in lower case) and argument counts of the functions below.
const QHash<QString, Funktionargumentit> &Lisafunktiot();

// Evaluates one of them with its arguments already evaluated; nothing when `nimi` (lower case) is
// not one of them. Never fails: an argument of the wrong kind gives an empty text.
std::optional<Arvo> LaskeLisafunktio(const QString &nimi, const std::vector<Arvo> &arvot);
