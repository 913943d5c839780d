// The bank's file of incoming reference payments as the payment windows see it: batches of
// payments with their totals, every field a string as it stands in the file. Whether the file
// was the fixed-width one or a camt.054 notification is told by the reader alone; both come out
// in the fixed-width file's field forms (dates YYMMDD, amounts in zero-padded cents).
#pragma once

#include <QList>
#include <QString>
#include <stdexcept>

struct ViiteTapahtuma {
    QString Tunnus;            // record type, "3" or "5"
    QString Tilinumero;        // creditor account, machine-form BBAN
    QString Kirjauspaiva;      // booking date YYMMDD
    QString Maksupaiva;        // payment date YYMMDD
    QString Arkistointitunnus; // the bank's archive id of the payment
    QString Viitenumero;       // reference number, zero-padded to 20
    QString Nimi;              // payer's name
    QString Rahayksikko;       // currency code, "1" euro
    QString NimenLahde;        // where the bank took the name from
    QString Rahamaara;         // amount in cents, digits only
    QString Oikaisutunnus;     // "1" for a correction
    QString Valitystapa;       // delivery channel
    QString Palautekoodi;      // feedback code (direct debit only)
};

// The batch's counts and sums in cents, as its closing record gives them.
struct ViiteSummat {
    QString TapahtumatKpl;
    QString TapahtumatSumma;
    QString OikaisutKpl;
    QString OikaisutSumma;
    QString EpaonnistuneetKpl;
    QString EpaonnistuneetSumma;
};

struct ViiteEra {
    QString Tunnus;      // record type of the header, "0"
    QString Paivamaara;  // creation date YYMMDD
    QString Aika;        // creation time HHMM
    QString Pankkiryhma; // bank group code
    QString Laskuttaja;  // biller's service code
    QString Rahayksikko; // currency code, "1" euro, a blank for markka
    QList<ViiteTapahtuma> Tapahtumat;
    ViiteSummat Summat;
    // False when nothing in the file vouched for the totals: a fixed-width batch that ends
    // without its record 9. (A camt.054 batch's totals are counted too, but every entry of it was
    // checked against the amounts the bank gave.)
    bool SummatTiedostosta = true;
};

// A file that cannot be read as a payment file: a number in the old runtime's style and a
// Finnish sentence fit to show as it stands. Nothing of the file is handed on.
class ViiteaineistoVirhe : public std::runtime_error {
public:
    ViiteaineistoVirhe(int numero, const QString &viesti)
        : std::runtime_error(viesti.toStdString()), m_numero(numero), m_viesti(viesti) {}
    int numero() const { return m_numero; }
    QString viesti() const { return m_viesti; }

    // The numbers: file missing, no permission, cannot be read, not a payment file, cut short.
    static constexpr int EiLoydy = 53;
    static constexpr int EiOikeutta = 70;
    static constexpr int LukuVirhe = 75;
    static constexpr int VaaraMuoto = 321;
    static constexpr int Katkennut = 62;

private:
    int m_numero;
    QString m_viesti;
};
