// The invoice history of the demonstration club: last year's and this year's membership fees,
// a sales batch and the autumn season fees, each invoice paid, partly paid or unpaid, and the
// unpaid ones reminded as the reminder run computes it.
#include "esittely/EsittelyLaskut.h"
#include "invoicing/Viite.h"

#include <QLocale>

namespace esittely {

namespace {

enum EraNro { Jasenmaksu1, Jasenmaksu2, Myynti, Kausimaksut };

struct Hinnasto {
    Currency luokka[3]; // adult, young, child
};

const Hinnasto &hinnasto(int era)
{
    static const Hinnasto edellinen{{Currency::fromUnits(35), Currency::fromUnits(20), Currency::fromUnits(15)}};
    static const Hinnasto kuluva{{Currency::fromUnits(40), Currency::fromUnits(25), Currency::fromUnits(15)}};
    return era == Jasenmaksu1 ? edellinen : kuluva;
}

const Currency Sisaralennus = Currency::fromUnits(-5);

void luoErat(Seura &s)
{
    s.viestit = QStringList{
        QStringLiteral("Jäsenmaksu kattaa seuran vakuutuksen ja jäsenedut vuodelle %1. Maksathan viitenumerolla.").arg(Kausi - 1),
        QStringLiteral("Jäsenmaksu %1. Perhelaskulla maksat koko perheen jäsenmaksut. Maksathan viitenumerolla – kiitos tuestasi!").arg(Kausi),
        QStringLiteral("Syyskauden %1 kausimaksu.\nKysy tarvittaessa erittelyä rahastonhoitajalta.").arg(Kausi),
        QStringLiteral("Muistathan syyskokouksen 20.11.%1 klo 18 seuran majalla.").arg(Kausi),
    };
    s.otsakkeet = QStringList{
        QStringLiteral("Jäsenmaksu %1").arg(Kausi - 1), QStringLiteral("Jäsenmaksu %1").arg(Kausi),
        QStringLiteral("Kausimaksu %1").arg(Kausi), QStringLiteral("Lasku"), QStringLiteral("Perhelasku"),
        QStringLiteral("Lisenssimaksu"), QStringLiteral("Talkoomaksu"),
    };
    s.myyntilajit = {
        {QStringLiteral("3010"), QStringLiteral("Jäsenmaksut")},   {QStringLiteral("3020"), QStringLiteral("Kausimaksut")},
        {QStringLiteral("3030"), QStringLiteral("Seuratuotteet")}, {QStringLiteral("3040"), QStringLiteral("Talkootuotot")},
        {QStringLiteral("3050"), QStringLiteral("Vuokratuotot")},  {QString(), QStringLiteral("Muut tuotot")},
    };
    s.erat.resize(4);
    s.erat[Jasenmaksu1] = {QDate(Kausi - 1, 2, 10), QDate(Kausi - 1, 3, 10), s.otsakkeet[0],
                           QStringLiteral("Jäsenmaksu %1").arg(Kausi - 1), 0, true, false, false};
    s.erat[Jasenmaksu2] = {QDate(Kausi, 2, 9), QDate(Kausi, 3, 9), s.otsakkeet[1],
                           QStringLiteral("Jäsenmaksu %1").arg(Kausi), 1, true, false, false};
    s.erat[Myynti] = {QDate(Kausi, 5, 4), QDate(Kausi, 5, 25), s.otsakkeet[3], QStringLiteral("Seuratuotteet"),
                      -1, false, false, false};
    s.erat[Kausimaksut] = {QDate(Kausi, 8, 17), QDate(Kausi, 9, 14), s.otsakkeet[2],
                           QStringLiteral("Kausimaksu syksy %1").arg(Kausi), 2, false, true, true};
}

QString nimi(const Jasen &j) { return j.sukunimi + QLatin1Char(' ') + j.etunimi; }

// Rows of a family invoice: for each class in use the count times the price, with the names.
std::vector<Laskurivi> perheenRivit(const Seura &s, const Perhe &p, int era)
{
    static const char *const otsikot[3] = {"aikuiset", "nuoret", "lapset"};
    std::vector<Laskurivi> rivit;
    for (int l = 0; l < 4; ++l) {
        QStringList nimet;
        for (const PerheRivi &r : p.rivit) {
            const bool mukana = l < 3 ? r.luokat[l] : (r.luokat[4] || r.luokat[5] || r.luokat[6] || r.luokat[7]);
            if (mukana)
                nimet << nimi(s.jasenet[std::size_t(r.jasen)]);
        }
        if (nimet.isEmpty())
            continue;
        const Currency hinta = l < 3 ? hinnasto(era).luokka[l] : Sisaralennus;
        const QString otsikko = l < 3 ? s.erat[std::size_t(era)].teksti + QStringLiteral(", ") + QLatin1String(otsikot[l])
                                      : QStringLiteral("Sisaralennus");
        rivit.push_back({(otsikko + QStringLiteral(" : ") + nimet.join(QStringLiteral(", "))).left(255),
                         hinta * nimet.size(), -1});
    }
    return rivit;
}

Currency summa(const std::vector<Laskurivi> &rivit)
{
    Currency c;
    for (const Laskurivi &r : rivit)
        if (r.hinta)
            c += *r.hinta;
    return c;
}

class Laskuttaja {
public:
    Laskuttaja(Seura &s, Arpa &a) : m_s(s), m_a(a) {}

    void lisaa(int era, int maksaja, std::vector<Laskurivi> rivit, bool perhe)
    {
        Lasku l;
        l.era = era;
        l.maksaja = maksaja;
        l.numero = m_numero++;
        l.viite = ViiteNumerosta(l.numero);
        l.rivit = std::move(rivit);
        l.hinta = summa(l.rivit);
        l.perhe = perhe;
        l.emailed = m_s.jasenet[std::size_t(maksaja)].emailLasku;
        m_s.laskut.push_back(std::move(l));
    }

    qint64 suurin() const { return m_numero - 1; }

    // What became of the invoice: shares for paid, paid after a reminder, partly paid and
    // reminded, unpaid and reminded once, twice; the rest is unpaid and not yet reminded.
    void kohtalo(Lasku &l, const double osuudet[5], const QDate &muistutus1, const QDate &muistutus2)
    {
        const Era &e = m_s.erat[std::size_t(l.era)];
        const double r = m_a.osuus();
        if (r < osuudet[0]) {
            maksa(l, m_a.paiva(e.laskupaiva.addDays(2), e.erapaiva.addDays(12)));
        } else if (r < osuudet[1]) {
            muistuta(l, muistutus1, 1);
            maksa(l, m_a.paiva(muistutus1.addDays(3), muistutus1.addDays(25)));
        } else if (r < osuudet[2]) {
            const Currency osa = Currency::fromUnits(std::max<qint64>(5, l.hinta.raw() / Currency::Scale / 2));
            if (osa < l.hinta)
                posta(l, m_a.paiva(e.erapaiva.addDays(-5), e.erapaiva.addDays(20)), osa);
            muistuta(l, muistutus1, 1);
        } else if (r < osuudet[3]) {
            muistuta(l, muistutus1, 1);
        } else if (r < osuudet[4]) {
            muistuta(l, muistutus1, 1);
            muistuta(l, muistutus2, 2);
        }
    }

private:
    // Posted in the ledger: a row in the payments with the bank's archive id.
    void posta(Lasku &l, const QDate &paiva, Currency summa)
    {
        const QString tunnus = paiva.toString(QStringLiteral("yyMMdd")) + QStringLiteral("593")
                               + QStringLiteral("%1").arg(++m_arkisto, 9, 10, QLatin1Char('0'));
        l.suoritukset.push_back({paiva, summa, tunnus});
    }

    // Paid in full: marked paid from the bank's file, and for some also posted in the ledger.
    void maksa(Lasku &l, const QDate &paiva)
    {
        l.maksettu = true;
        if (m_a.tod(0.4)) {
            Currency jo;
            for (const Suoritus &x : l.suoritukset)
                jo += x.summa;
            posta(l, paiva, l.hinta - jo);
            l.maksuPaiva = paiva;
        }
    }

    // The figures of a printed reminder on its day, as the reminder run works them out.
    void muistuta(Lasku &l, const QDate &paiva, int numero)
    {
        Muistutus m;
        m.otsake = MuistutusOtsake();
        m.paiva = paiva;
        m.numero = numero;
        m.kulut = Muistutuskulut();
        m.korko = Viivastyskorko;
        Currency maksettu;
        for (const Suoritus &x : l.suoritukset)
            if (x.paiva <= paiva)
                maksettu += x.summa;
        m.avoin = l.hinta - maksettu;
        const qint64 paivat = m_s.erat[std::size_t(l.era)].erapaiva.daysTo(paiva);
        m.korkoSumma = Currency::fromDouble((m.avoin * paivat).toDouble() * m.korko / 100.0 / 365.0);
        m.yhteensa = m.avoin + m.kulut + m.korkoSumma;
        l.muistutus = m;
    }

    Seura &m_s;
    Arpa &m_a;
    qint64 m_numero = 1001;
    qint64 m_arkisto = 0;
};

bool liittynyt(const Jasen &j, const QDate &ennen) { return !j.liittyma.isValid() || j.liittyma < ennen; }

// A membership run: a family invoice to each family's head, a personal one to the rest.
void jasenmaksut(Seura &s, Laskuttaja &l, int era)
{
    const QDate raja = s.erat[std::size_t(era)].laskupaiva.addDays(-10);
    for (int i = 0; i < int(s.jasenet.size()); ++i) {
        const Jasen &j = s.jasenet[std::size_t(i)];
        if (!liittynyt(j, raja))
            continue;
        if (j.perheenLaskutettava) {
            l.lisaa(era, i, perheenRivit(s, s.perheet[std::size_t(j.perhe)], era), true);
        } else if (j.perhe < 0) {
            const Currency hinta = hinnasto(era).luokka[int(j.luokka)];
            l.lisaa(era, i, {{s.erat[std::size_t(era)].teksti, hinta, -1}}, false);
        }
    }
}

void myyntilaskut(Seura &s, Laskuttaja &l, Arpa &a)
{
    struct Tuote { const char *nimi; qint64 euroa; int laji; };
    static const Tuote tuotteet[] = {
        {"Seurapaita", 25, 2}, {"Pipo", 15, 2}, {"Kannatusviiri", 20, 2},
        {"Kenttävuoro, kevät", 60, 4}, {"Talkoomaksu (vuoro tekemättä)", 30, 3}, {"Kuntosalikortti", 45, 5},
    };
    for (int i = 0; i < int(s.jasenet.size()); ++i) {
        if (s.jasenet[std::size_t(i)].luokka != Ikaluokka::Aikuinen || !a.tod(0.03))
            continue;
        std::vector<Laskurivi> rivit;
        const int kpl = a.vali(1, 3);
        for (int k = 0; k < kpl; ++k) {
            const Tuote &t = tuotteet[a.vali(0, 5)];
            rivit.push_back({QString::fromUtf8(t.nimi), Currency::fromUnits(t.euroa), t.laji});
        }
        rivit.push_back({QStringLiteral("Tuotteet noudettavissa seuran toimistolta."), std::nullopt, -1});
        l.lisaa(Myynti, i, std::move(rivit), false);
    }
}

void kausimaksut(Seura &s, Laskuttaja &l)
{
    for (const Kiinnitys &k : s.kiinnitykset) {
        if (s.piirteet[std::size_t(k.piirre)].nimi != QStringLiteral("Kausimaksu %1").arg(Kausi) || !k.raha.isValid())
            continue;
        const Currency hinta = Currency::fromRaw(k.raha.toLongLong());
        l.lisaa(Kausimaksut, k.jasen, {{s.erat[Kausimaksut].teksti, hinta, -1}}, false);
    }
}

} // namespace

void LuoLaskuhistoria(Seura &s, Arpa &a)
{
    luoErat(s);
    Laskuttaja l(s, a);
    std::size_t alku = s.laskut.size();
    const auto kohtalot = [&](const double osuudet[5], const QDate &m1, const QDate &m2) {
        for (std::size_t i = alku; i < s.laskut.size(); ++i)
            l.kohtalo(s.laskut[i], osuudet, m1, m2);
        alku = s.laskut.size();
    };

    jasenmaksut(s, l, Jasenmaksu1);
    static const double edellinen[5] = {0.93, 0.96, 0.96, 1.0, 1.0};
    kohtalot(edellinen, QDate(Kausi - 1, 4, 14), QDate(Kausi - 1, 5, 19));

    jasenmaksut(s, l, Jasenmaksu2);
    static const double kuluva[5] = {0.78, 0.84, 0.87, 0.93, 0.96};
    kohtalot(kuluva, QDate(Kausi, 4, 13), QDate(Kausi, 5, 18));

    myyntilaskut(s, l, a);
    static const double myynti[5] = {0.85, 0.85, 0.85, 0.85, 0.85};
    kohtalot(myynti, QDate(Kausi, 6, 15), QDate(Kausi, 7, 15));

    kausimaksut(s, l);
    static const double kausi[5] = {0.7, 0.7, 0.76, 0.9, 0.9};
    kohtalot(kausi, QDate(Kausi, 10, 12), QDate(Kausi, 11, 9));

    s.suurinLaskunumero = l.suurin();

    // The membership fee flag follows this year's invoice; those who joined after the run paid
    // at joining, or not yet.
    const QDate raja = s.erat[Jasenmaksu2].laskupaiva.addDays(-10);
    for (Jasen &j : s.jasenet)
        j.jasenmaksu = !liittynyt(j, raja) && a.tod(0.6);
    for (const Lasku &x : s.laskut) {
        if (x.era != Jasenmaksu2 || !x.maksettu)
            continue;
        if (!x.perhe) {
            s.jasenet[std::size_t(x.maksaja)].jasenmaksu = true;
            continue;
        }
        for (const PerheRivi &r : s.perheet[std::size_t(s.jasenet[std::size_t(x.maksaja)].perhe)].rivit)
            s.jasenet[std::size_t(r.jasen)].jasenmaksu = true;
    }
}

} // namespace esittely
