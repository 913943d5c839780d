#include "email/Tunnisteet.h"

namespace {

struct Osuma {
    qsizetype alku = -1;  // "<"
    qsizetype loppu = -1; // one past ">"
    int leveys = 0;
};

Osuma etsi(const QString &teksti, const QString &tunniste, qsizetype mista)
{
    const QString avaus = QLatin1Char('<') + tunniste + QLatin1Char(':');
    const qsizetype alku = teksti.indexOf(avaus, mista, Qt::CaseInsensitive);
    if (alku < 0)
        return {};
    const qsizetype sulku = teksti.indexOf(QLatin1Char('>'), alku + avaus.size());
    if (sulku < 0)
        return {};
    bool ok = false;
    const int leveys = teksti.mid(alku + avaus.size(), sulku - alku - avaus.size()).trimmed().toInt(&ok);
    return {alku, sulku + 1, ok && leveys > 0 ? leveys : 0};
}

QString leveyteen(const QString &arvo, int leveys)
{
    if (leveys <= 0)
        return arvo;
    return arvo.size() >= leveys ? arvo.left(leveys) : arvo + QString(leveys - arvo.size(), QLatin1Char(' '));
}

} // namespace

QString KorvaaTunniste(const QString &teksti, const QString &tunniste, const QString &arvo)
{
    QString tulos = teksti;
    qsizetype mista = 0;
    for (;;) {
        const Osuma o = etsi(tulos, tunniste, mista);
        if (o.alku < 0)
            return tulos;
        const QString korvaava = leveyteen(arvo, o.leveys);
        tulos.replace(o.alku, o.loppu - o.alku, korvaava);
        mista = o.alku + korvaava.size();
    }
}

int TunnisteenLeveys(const QString &teksti, const QString &tunniste)
{
    return etsi(teksti, tunniste, 0).leveys;
}
