// The camt.054 document walked into plain structs: the elements the payment reader uses, matched
// on their local names, everything else skipped. No meaning is given to the values here; the
// reader (Camt054Lukija) checks and converts them.
#pragma once

#include "payments/Viiteaineisto.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace camt054 {

// What one transaction (TxDtls) says.
struct Maksu {
    QString arkistointitunnus, summa, valuutta, maksaja, lopullinenMaksaja, viite, maksupaiva;
};

// One NtryDtls: the transactions with the batch count and total the bank may give for them.
struct Erittely {
    QString kpl, kokonaissumma, kokonaisValuutta;
    QList<Maksu> maksut;
};

struct Kirjaus {
    QString tunniste, summa, valuutta, suunta, peruutus, tila, kirjauspaiva, arvopaiva, arkistointitunnus;
    QList<Erittely> erittelyt;
};

struct Ilmoitus {
    QString luontiaika, iban, muuTili;
    QList<Kirjaus> kirjaukset;
};

// The notifications of the document in file order. A document that is not well-formed, is cut
// short or is no camt.054 throws ViiteaineistoVirhe.
QList<Ilmoitus> Jasenna(const QByteArray &tavut);

// Every failure of the camt.054 reader: the message starts "camt.054-ilmoitus: ".
[[noreturn]] void Virhe(const QString &mika, int numero = ViiteaineistoVirhe::VaaraMuoto);

} // namespace camt054
