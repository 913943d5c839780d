#include "email/Tunnisteet.h"

namespace {

// A width beyond any line of text is a mistake in the template, read as no width: padding to it
// would only fill the memory.
constexpr int SuurinLeveys = 9999;

// The rest of a token whose "<name:" ends just before `avattu`.
Tunnisteosuma sulje(QStringView teksti, qsizetype alku, qsizetype avattu)
{
    const qsizetype sulku = teksti.indexOf(QLatin1Char('>'), avattu);
    if (sulku < 0)
        return {};
    bool ok = false;
    const int leveys = teksti.mid(avattu, sulku - avattu).trimmed().toInt(&ok);
    return {alku, sulku + 1, ok && leveys > 0 && leveys <= SuurinLeveys ? leveys : 0};
}

Tunnisteosuma etsi(const QString &teksti, const QString &tunniste, qsizetype mista)
{
    const QString avaus = QLatin1Char('<') + tunniste + QLatin1Char(':');
    const qsizetype alku = teksti.indexOf(avaus, mista, Qt::CaseInsensitive);
    if (alku < 0)
        return {};
    return sulje(teksti, alku, alku + avaus.size());
}

} // namespace

Tunnisteosuma TunnisteKohdassa(QStringView teksti, qsizetype kohta, QStringView tunniste)
{
    const qsizetype nimi = kohta + 1, kaksoispiste = nimi + tunniste.size();
    if (kohta < 0 || kaksoispiste >= teksti.size() || teksti[kohta] != QLatin1Char('<')
        || teksti[kaksoispiste] != QLatin1Char(':')
        || teksti.mid(nimi, tunniste.size()).compare(tunniste, Qt::CaseInsensitive) != 0)
        return {};
    return sulje(teksti, kohta, kaksoispiste + 1);
}

QString LeveyteenSovitettu(const QString &arvo, int leveys)
{
    if (leveys <= 0)
        return arvo;
    return arvo.size() >= leveys ? arvo.left(leveys) : arvo + QString(leveys - arvo.size(), QLatin1Char(' '));
}

QString KorvaaTunniste(const QString &teksti, const QString &tunniste, const QString &arvo)
{
    QString tulos = teksti;
    qsizetype mista = 0;
    for (;;) {
        const Tunnisteosuma o = etsi(tulos, tunniste, mista);
        if (!o.loytyi())
            return tulos;
        const QString korvaava = LeveyteenSovitettu(arvo, o.leveys);
        tulos.replace(o.alku, o.loppu - o.alku, korvaava);
        mista = o.alku + korvaava.size();
    }
}

int TunnisteenLeveys(const QString &teksti, const QString &tunniste)
{
    return etsi(teksti, tunniste, 0).leveys;
}

QString KorvaaTunnisteet(QStringView teksti, const Tunnistearvot &arvot)
{
    QString tulos;
    tulos.reserve(teksti.size());
    qsizetype kohta = 0;
    for (;;) {
        qsizetype avaus = teksti.indexOf(QLatin1Char('<'), kohta);
        if (avaus < 0)
            break;
        Tunnisteosuma o;
        const QString *arvo = nullptr;
        for (const auto &[nimi, a] : arvot) {
            o = TunnisteKohdassa(teksti, avaus, nimi);
            if (o.loytyi()) {
                arvo = &a;
                break;
            }
        }
        if (!arvo) {
            tulos += teksti.mid(kohta, avaus + 1 - kohta);
            kohta = avaus + 1;
            continue;
        }
        tulos += teksti.mid(kohta, avaus - kohta);
        tulos += LeveyteenSovitettu(*arvo, o.leveys);
        kohta = o.loppu;
    }
    tulos += teksti.mid(kohta);
    return tulos;
}
