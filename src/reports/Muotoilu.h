// Printed forms of values: money, dates, reference numbers and account numbers as a Finnish
// reader expects to see them on paper.
#pragma once

#include "reports/Arvo.h"

#include <QString>

enum class Muoto {
    Oletus,       // as ArvoTekstina gives it
    Raha,         // "1 234,50"
    Euro,         // "1 234,50 €"
    Pvm,          // "5.3.2024"
    Viite,        // "12345 67890 12" (an RF reference: "RF12 3456 7890")
    Iban,         // "FI21 1234 5600 0007 85"
    Kokonaisluku  // "1235"
};

// Reads a format name of a definition file ("raha", "euro", "pvm", "viite", "iban",
// "kokonaisluku"); nothing when the name is unknown.
std::optional<Muoto> MuotoNimesta(const QString &nimi);

QString Muotoile(const Arvo &arvo, Muoto muoto);

QString RahaTekstina(const Currency &c);
