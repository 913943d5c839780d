// Members of the demonstration club: households with a shared address, families with classes,
// member numbers in the order of joining.
#include "esittely/EsittelyJasenet.h"
#include "esittely/EsittelyNimet.h"
#include "invoicing/Viite.h"

#include <algorithm>
#include <numeric>

namespace esittely {

quint64 Arpa::seuraava()
{
    // splitmix64
    quint64 z = (m_tila += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

double Arpa::osuus() { return double(seuraava() >> 11) * (1.0 / 9007199254740992.0); }

int Arpa::vali(int alin, int ylin) { return alin + int(seuraava() % quint64(ylin - alin + 1)); }

QDate Arpa::paiva(const QDate &alku, const QDate &loppu)
{
    if (loppu <= alku)
        return alku;
    return alku.addDays(vali(0, int(alku.daysTo(loppu))));
}

const QString &Arpa::yleinen(const QStringList &lista)
{
    const double u = osuus();
    return lista.at(qsizetype(u * u * double(lista.size())));
}

namespace {

const QDate Tanaan(Kausi, 10, 31); // the last day the club's register was kept

Ikaluokka luokkaVuodesta(int syntymavuosi)
{
    const int ika = Kausi - syntymavuosi;
    if (ika < 13)
        return Ikaluokka::Lapsi;
    if (ika < 20)
        return Ikaluokka::Nuori;
    return Ikaluokka::Aikuinen;
}

QString ascii(const QString &nimi)
{
    QString out;
    for (QChar c : nimi.toLower()) {
        switch (c.unicode()) {
        case u'ä': case u'å': out += QLatin1Char('a'); break;
        case u'ö': out += QLatin1Char('o'); break;
        case u'é': out += QLatin1Char('e'); break;
        case u'ü': out += QLatin1Char('u'); break;
        case u'\'': case u' ': break;
        default: out += c;
        }
    }
    return out;
}

// The street name without the house number: words from the left up to the first word after
// the first that holds a digit, as the register's street list is built.
QString katuOsoitteesta(const QString &osoite)
{
    const QStringList sanat = osoite.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QStringList katu;
    for (qsizetype i = 0; i < sanat.size(); ++i) {
        if (i > 0 && std::any_of(sanat[i].begin(), sanat[i].end(), [](QChar c) { return c.isDigit(); }))
            break;
        katu << sanat[i];
    }
    return katu.join(QLatin1Char(' ')).trimmed();
}

QString numerot(Arpa &a, int kpl)
{
    QString s;
    for (int i = 0; i < kpl; ++i)
        s += QChar(u'0' + a.vali(0, 9));
    return s;
}

QString matkapuhelin(Arpa &a)
{
    static const char *const suunnat[] = {"040", "050", "044", "045", "041", "046", "050", "040"};
    // One draw per statement: the order of arguments' evaluation is not fixed.
    const QLatin1String suunta(suunnat[a.vali(0, 7)]);
    const QString alku = numerot(a, 3);
    return QStringLiteral("%1 %2 %3").arg(suunta, alku, numerot(a, 4));
}

QString lankapuhelin(Arpa &a, const Postitoimipaikka &p)
{
    const QString alku = p.suunta.isEmpty() ? numerot(a, 3) : QString::number(a.vali(2, 8)) + numerot(a, 2);
    const QString loppu = numerot(a, 3);
    if (p.suunta.isEmpty())
        return QStringLiteral("+46 8 %1 %2").arg(alku, loppu);
    return QStringLiteral("%1 %2 %3").arg(p.suunta, alku, loppu);
}

const Postitoimipaikka &postitoimipaikka(Arpa &a)
{
    const double r = a.osuus();
    const QVector<Postitoimipaikka> &v = r < 0.62   ? KotiseudunPostitoimipaikat()
                                         : r < 0.85 ? NaapurikuntienPostitoimipaikat()
                                         : r < 0.99 ? MuunSuomenPostitoimipaikat()
                                                    : UlkomaisetPostitoimipaikat();
    return v.at(a.vali(0, int(v.size()) - 1));
}

QString katuosoite(Arpa &a)
{
    QString s = a.mika(Kadut());
    s += QLatin1Char(' ') + QString::number(a.vali(1, 60));
    const double r = a.osuus();
    if (r < 0.35) {
        const QChar porras(u'A' + a.vali(0, 3));
        s += QStringLiteral(" %1 %2").arg(porras).arg(a.vali(1, 40));
    } else if (r < 0.42) {
        s += QStringLiteral(" as. %1").arg(a.vali(1, 12));
    } else if (r < 0.47) {
        s += QChar(u'a' + a.vali(0, 2));
    }
    return s;
}

QString sukunimi(Arpa &a)
{
    if (a.tod(0.006))
        return a.mika(HeittomerkkiSukunimet());
    return a.yleinen(Sukunimet());
}

QString etunimet(Arpa &a, bool mies)
{
    const QStringList &nimet = mies ? MiestenNimet() : NaistenNimet();
    QString n = a.yleinen(nimet);
    if (a.tod(0.35)) {
        const QString toinen = a.mika(nimet);
        if (toinen != n)
            n += QLatin1Char(' ') + toinen;
    }
    return n;
}

QString sahkoposti(Arpa &a, const Jasen &j)
{
    QString paikallinen = ascii(j.etunimi.section(QLatin1Char(' '), 0, 0)) + QLatin1Char('.') + ascii(j.sukunimi);
    if (a.tod(0.3))
        paikallinen += QString::number(a.vali(1, 99));
    return paikallinen.left(30) + QLatin1Char('@') + a.mika(Sahkopostipalvelut());
}

struct Talous {
    QString sukunimi, osoite, puhelin;
    const Postitoimipaikka *paikka = nullptr;
};

Jasen uusiJasen(Arpa &a, const Talous &t, int syntymavuosi, bool mies)
{
    Jasen j;
    j.mies = mies;
    j.sukunimi = t.sukunimi;
    j.etunimi = etunimet(a, mies);
    j.osoite = t.osoite;
    j.katu = katuOsoitteesta(t.osoite);
    j.postinumero = t.paikka->postinumero;
    j.toimipaikka = t.paikka->toimipaikka;
    j.kotipaikka = t.paikka->kunta;
    j.maa = t.paikka->maa;
    j.puhelin = t.puhelin;
    j.luokka = luokkaVuodesta(syntymavuosi);
    const QDate syntyma(syntymavuosi, a.vali(1, 12), a.vali(1, 28));
    if (a.tod(0.97))
        j.syntyma = syntyma;
    const bool aikuinen = j.luokka == Ikaluokka::Aikuinen;
    if (a.tod(0.95)) {
        const QDate alku = std::max(syntyma.addYears(aikuinen ? 16 : 3), QDate(1978, 1, 1));
        j.liittyma = a.paiva(alku, Tanaan);
    }
    if (j.luokka != Ikaluokka::Lapsi && a.tod(aikuinen ? 0.9 : 0.7))
        j.matkapuhelin = matkapuhelin(a);
    if (a.tod(aikuinen ? 0.8 : j.luokka == Ikaluokka::Nuori ? 0.5 : 0.0))
        j.email = sahkoposti(a, j);
    j.emailLasku = aikuinen && !j.email.isEmpty() && a.tod(0.4);
    if (aikuinen) {
        if (a.tod(0.12))
            j.titteli = a.mika(Tittelit());
        if (a.tod(0.03))
            j.yritys = a.mika(Yritykset());
    }
    if (a.tod(0.07))
        j.lisatieto1 = a.mika(Lisatiedot());
    if (a.tod(0.02))
        j.lisatieto2 = a.mika(Lisatiedot());
    if (a.tod(0.04))
        j.muistio = a.mika(Muistiot());
    return j;
}

// A household: one or two adults, perhaps children, sharing a surname and an address.
void luoTalous(Seura &s, int tilaa, Arpa &a)
{
    Talous t;
    t.paikka = &postitoimipaikka(a);
    t.sukunimi = sukunimi(a);
    t.osoite = katuosoite(a);
    if (a.tod(0.25))
        t.puhelin = lankapuhelin(a, *t.paikka);

    const double r = a.osuus();
    int aikuisia = 1, lapsia = 0;
    if (r < 0.45) {
    } else if (r < 0.62) {
        aikuisia = 2;
    } else if (r < 0.88) {
        aikuisia = 2;
        lapsia = a.vali(1, 4);
    } else if (r < 0.95) {
        lapsia = a.vali(1, 3);
    } else {
        aikuisia = 0; // a junior whose parents are not members
        lapsia = 1;
    }

    // Parents of children still at home are of an age to have them.
    const int vanhempi = lapsia > 0 && aikuisia > 0 ? a.vali(1972, 1996) : a.vali(1940, 2003);
    const std::size_t ensimmainen = s.jasenet.size();
    const bool ensinMies = a.tod(0.5);
    for (int i = 0; i < aikuisia && tilaa > 0; ++i, --tilaa) {
        Jasen j = uusiJasen(a, t, i == 0 ? vanhempi : std::clamp(vanhempi + a.vali(-4, 4), 1940, 2004),
                            i == 0 ? ensinMies : !ensinMies);
        if (i == 1 && a.tod(0.2))
            j.sukunimi = a.tod(0.3) ? sukunimi(a) + QLatin1Char('-') + t.sukunimi : sukunimi(a);
        s.jasenet.push_back(std::move(j));
    }
    std::vector<int> vuodet;
    for (int i = 0; i < lapsia; ++i)
        vuodet.push_back(aikuisia == 0 ? a.vali(2008, 2021) : std::clamp(vanhempi + a.vali(24, 40), 2007, 2022));
    std::sort(vuodet.begin(), vuodet.end());
    for (int v : vuodet) {
        if (tilaa-- <= 0)
            break;
        Jasen j = uusiJasen(a, t, v, a.tod(0.5));
        if (j.puhelin.isEmpty() && aikuisia == 0)
            j.puhelin = matkapuhelin(a); // a guardian's number
        s.jasenet.push_back(std::move(j));
    }

    const std::size_t koko = s.jasenet.size() - ensimmainen;
    if (koko < 2 || !a.tod(0.85))
        return;
    Perhe p;
    p.paa = int(ensimmainen);
    int sisarus = 0;
    const int lapsiaTaloudessa = int(std::count_if(s.jasenet.begin() + qsizetype(ensimmainen), s.jasenet.end(),
                                                   [](const Jasen &j) { return j.luokka != Ikaluokka::Aikuinen; }));
    for (std::size_t i = ensimmainen; i < s.jasenet.size(); ++i) {
        Jasen &j = s.jasenet[i];
        j.perhe = int(s.perheet.size());
        PerheRivi rivi;
        rivi.jasen = int(i);
        rivi.luokat[int(j.luokka)] = true;
        if (j.luokka != Ikaluokka::Aikuinen && lapsiaTaloudessa > 1 && sisarus < 5)
            rivi.luokat[3 + sisarus++] = true;
        p.rivit.push_back(rivi);
    }
    s.jasenet[ensimmainen].perheenLaskutettava = true;
    s.perheet.push_back(std::move(p));
}

// Member numbers run in the order of joining, with a gap where someone resigned; those with no
// joining date were entered first, from the old card index.
void numeroi(Seura &s, Arpa &a)
{
    std::vector<int> jarjestys(s.jasenet.size());
    std::iota(jarjestys.begin(), jarjestys.end(), 0);
    std::stable_sort(jarjestys.begin(), jarjestys.end(), [&](int x, int y) {
        return s.jasenet[std::size_t(x)].liittyma < s.jasenet[std::size_t(y)].liittyma;
    });
    qint64 n = 0;
    for (int i : jarjestys) {
        n += a.tod(0.05) ? a.vali(2, 4) : 1;
        Jasen &j = s.jasenet[std::size_t(i)];
        j.jasennumero = QString::number(n);
        if (j.luokka == Ikaluokka::Aikuinen && a.tod(0.04))
            j.viitenumero = ViiteNumerosta(QStringLiteral("7") + j.jasennumero.rightJustified(6, QLatin1Char('0')));
    }
    s.suurinJasennumero = n;
}

} // namespace

void LuoJasenet(Seura &s, int jasenia, Arpa &a)
{
    s.jasenet.reserve(std::size_t(std::max(jasenia, 0)));
    while (int(s.jasenet.size()) < jasenia)
        luoTalous(s, jasenia - int(s.jasenet.size()), a);
    numeroi(s, a);
}

} // namespace esittely
