// What a verb of the command-line tool gets: the club's open database, the run, and its own
// arguments; and how it answers (the exit statuses of the tool).
#pragma once

#include "komento/Komentodialogit.h"
#include "platform/ajo.h"

#include <QStringList>
#include <functional>

namespace komento {

enum Tila { Onnistui = 0, Epaonnistui = 1, VaaraKaytto = 2 };

struct Yhteys {
    Ajo &ajo;                  // the club's connection, today, progress
    Komentodialogit &dialogit; // a verb that must answer Yes sets it here
    QStringList argumentit;    // what follows the verb
};

// The options of a verb: each name takes one value; a repeatable one may come several times.
// Positional arguments are kept in order. Parsing fails with the usage message and status 2.
class Valitsimet {
public:
    Valitsimet(QStringList arvolliset, QStringList liput = {}) : m_arvolliset(std::move(arvolliset)), m_liput(std::move(liput)) {}
    // False (with `virhe` set) on an unknown option or a missing value.
    bool lue(const QStringList &argumentit, QString *virhe);

    QStringList paikalliset;
    QString arvo(const QString &nimi) const { return m_arvot.value(nimi).value(0); }
    QStringList arvot(const QString &nimi) const { return m_arvot.value(nimi); }
    bool onko(const QString &nimi) const { return m_arvot.contains(nimi); }

private:
    QStringList m_arvolliset, m_liput;
    QHash<QString, QStringList> m_arvot;
};

// A date as an option gives it: ISO VVVV-KK-PP or Finnish p.k.vvvv. Invalid when it is neither.
QDate LuePaiva(const QString &teksti);

struct Verbi {
    QString nimi;
    QString kaytto; // the verb's usage line without the tool's name
    std::function<int(Yhteys &)> aja;
};

// Every verb the tool knows, in the order the usage lists them.
const std::vector<Verbi> &Verbit();

// Prints a failure or usage message on standard error and gives the status back.
int Virhe(const QString &teksti, int tila);

} // namespace komento

// The verbs.
namespace komento {
int Raportti(Yhteys &y);
int Laskutus(Yhteys &y);
int Historiaan(Yhteys &y);
int PoistaLaskut(Yhteys &y);
int TulostaLaskuera(Yhteys &y);
int Maksettu(Yhteys &y);
int Muistutukset(Yhteys &y);
int Sahkopostilaskut(Yhteys &y);
int Viitemaksut(Yhteys &y);
int MerkitseMaksetuiksi(Yhteys &y);
int Kirjaa(Yhteys &y);
}
