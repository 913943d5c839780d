// The demonstration club as it is built in memory before one transaction writes it: members,
// families, attribute values and the invoice history. Internal to the generator.
#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>
#include <vector>

namespace esittely {

// A small generator of its own, so that the same seed gives the same club with every compiler
// and library (the standard distributions are not the same everywhere).
class Arpa {
public:
    explicit Arpa(quint64 siemen) : m_tila(siemen * 0x9E3779B97F4A7C15ull + 0x632BE59BD9B4E019ull) {}
    quint64 seuraava();
    int vali(int alin, int ylin);                  // both ends included
    bool tod(double p) { return osuus() < p; }     // true with probability p
    double osuus();                                // [0, 1)
    QDate paiva(const QDate &alku, const QDate &loppu);
    // An entry of a list, the front more often than the back.
    const QString &yleinen(const QStringList &lista);
    const QString &mika(const QStringList &lista) { return lista.at(vali(0, int(lista.size()) - 1)); }

private:
    quint64 m_tila;
};

enum class Ikaluokka { Aikuinen, Nuori, Lapsi };

// The year whose season the club's figures belong to; every date of the club is fixed from it,
// so that the same seed gives the same file whatever day it is made.
constexpr int Kausi = 2026;

struct Jasen {
    QString sukunimi, etunimi, osoite, katu, postinumero, toimipaikka, kotipaikka, maa;
    QString puhelin, matkapuhelin, email, jasennumero, viitenumero, titteli, yritys;
    QString lisatieto1, lisatieto2, muistio;
    QDate syntyma, liittyma;
    Ikaluokka luokka = Ikaluokka::Aikuinen;
    bool mies = false;
    bool emailLasku = false;
    bool perheenLaskutettava = false;
    bool jasenmaksu = false;
    int perhe = -1;   // index of the family, -1 for none
    qint64 jrID = 0;  // known once written
};

// Class flags of a family row in the order of the family tab: adult, young, child, siblings 1-5.
struct PerheRivi {
    int jasen = -1;
    bool luokat[8] = {};
};

struct Perhe {
    int paa = -1;
    std::vector<PerheRivi> rivit; // the head's own row first
};

struct Piirre {
    QString nimi, kuvaus;
    bool pvm = false, luku = false, muistio = false, raha = false;
    QVariant oletusPvm, oletusLuku, oletusMuistio, oletusRaha;
    qint64 piID = 0;
};

struct Kiinnitys {
    int jasen = -1;
    int piirre = -1;
    QVariant pvm, luku, muistio, raha;
};

struct Laskurivi {
    QString teksti;
    std::optional<Currency> hinta; // none: a row of text alone
    int myyntilaji = -1;           // index into Seura::myyntilajit, -1 for none
};

struct Suoritus {
    QDate paiva;
    Currency summa;
    QString arkistointitunnus;
};

struct Muistutus {
    QString otsake;
    QDate paiva;
    int numero = 0;
    Currency kulut, avoin, korkoSumma, yhteensa;
    double korko = 0;
};

struct Era {
    QDate laskupaiva, erapaiva;
    QString otsake, teksti;
    int viesti = -1; // index into Seura::viestit, -1 for no additional text
    bool jasenmaksu = false, omin = false, vainTili2 = false;
};

struct Lasku {
    int era = 0;
    int maksaja = -1;
    qint64 numero = 0;
    QString viite;
    Currency hinta;
    bool perhe = false, maksettu = false, emailed = false;
    QDate maksuPaiva; // only when payments posted in the ledger closed it
    std::vector<Laskurivi> rivit;
    std::vector<Suoritus> suoritukset;
    std::optional<Muistutus> muistutus;
};

struct Myyntilaji {
    QString numero, nimi;
    qint64 mlID = 0;
};

struct Seura {
    std::vector<Jasen> jasenet;
    std::vector<Perhe> perheet;
    std::vector<Piirre> piirteet;
    std::vector<Kiinnitys> kiinnitykset;
    std::vector<Era> erat;
    std::vector<Lasku> laskut;
    std::vector<Myyntilaji> myyntilajit;
    QStringList viestit;
    QStringList otsakkeet;
    qint64 suurinLaskunumero = 0;
    qint64 suurinJasennumero = 0;
};

// The club's reminder terms, stored in its settings and used for the reminders of its history.
inline Currency Muistutuskulut() { return Currency::fromUnits(5); }
constexpr double Viivastyskorko = 8.0;
inline QString MuistutusOtsake() { return QStringLiteral("MAKSUMUISTUTUS"); }
QString SeuranTili(int n); // the club's two bank accounts, IBAN grouped by four

} // namespace esittely
