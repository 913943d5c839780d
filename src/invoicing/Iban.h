// Bank accounts as IBANs: validity, the machine and print forms, the Finnish banks' names and BICs
// by bank code, and reading an account out of the free text a user typed in the settings
// ("FI21 1234 5600 0007 85 Nordea", "FI2112345600000785", "Nordea 123456-785", …).
#pragma once

#include <QString>

// The length of an IBAN of the country ("FI" → 18, "DE" → 22); 0 for a country the table does
// not know. The table holds the SEPA countries and a few of their neighbours.
int IbanPituus(const QString &maakoodi);

// An IBAN in machine form: blanks gone, upper case. "fi21 1234 5600 0007 85" → "FI2112345600000785".
// No check: use IbanOnKelvollinen for that.
QString IbanKoneelle(const QString &iban);

// An IBAN grouped in fours from the left for print: "FI2112345600000785" → "FI21 1234 5600 0007 85".
QString IbanTulosteeseen(const QString &iban);

// Whether the text (blanks and lower case allowed) is an IBAN: a known country, its length, two
// check digits, letters and digits only, 1 mod 97 once the first four characters are moved to the
// end. A Finnish one must also be all digits with the Luhn check digit of its 14-digit account
// number last. "FI21 1234 5600 0007 85" is valid, "FI22 1234 5600 0007 85" is not.
bool IbanOnKelvollinen(const QString &iban);

// Why the text is not a valid IBAN, as a Finnish sentence for the user; empty when it is valid.
QString IbanVirhe(const QString &iban);

// The IBAN of an old Finnish account number "123456-785": the six-digit bank part, zeros after
// it (after its seventh digit for the savings and co-operative banks, whose numbers start with
// 4 or 5) to 14 digits, and the check digits. "123456-785" → "FI2112345600000785",
// "440520-2036082" → "FI7944052020036082". Empty when the text is not such a number or its
// Luhn check digit is wrong.
QString IbanVanhastaTilinumerosta(const QString &tilinumero);

// A Finnish bank as its bank code (the first digits of the account) names it.
struct SuomalainenPankki {
    QString nimi; // "Nordea"
    QString bic;  // "NDEAFIHH"
};

// The bank of a Finnish IBAN by its bank code: "FI21 1234 …" → Nordea, NDEAFIHH; "FI79 4405 …" →
// Säästöpankit, ITELFIHH. Both empty for a foreign IBAN or a code the table does not know.
SuomalainenPankki SuomalainenPankkiIbanista(const QString &iban);

// Whether the text is a BIC: four letters, a known country, two letters or digits, and perhaps a
// branch of three more. "NDEAFIHH" and "NDEAFIHHXXX" are BICs, "NDEAFI" is not.
bool BicOnKelvollinen(const QString &bic);

// One account read out of the settings' free text.
struct Pankkitili {
    QString iban;   // machine form: "FI2112345600000785"
    QString bic;    // the BIC written in the text, else the one of a Finnish bank code, else empty
    QString pankki; // the rest of the text ("Nordea"), else the name of a Finnish bank code
};

struct PankkitiliTulos {
    Pankkitili tili;
    QString virhe; // the Finnish message when no valid account was found; empty on success
    bool onnistui() const { return virhe.isEmpty(); }
};

// Finds the account in the text a user typed: an IBAN in machine or print form anywhere in it, or
// failing that an old Finnish account number "123456-785"; a BIC written beside it; the words left
// over (labels "IBAN", "BIC" and "SWIFT" dropped) as the bank name to print.
// "FI21 1234 5600 0007 85 Nordea" → FI2112345600000785, NDEAFIHH, "Nordea";
// "FI2112345600000785" → the same with the name from the bank code;
// "FI22 1234 5600 0007 85" → "Tilinumeron FI22 1234 5600 0007 85 tarkiste ei täsmää."
PankkitiliTulos PankkitiliTekstista(const QString &teksti);
