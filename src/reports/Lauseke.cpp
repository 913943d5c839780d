#include "reports/Lauseke.h"
#include "platform/kello.h"

#include "reports/Lisafunktiot.h"
#include "reports/Muotoilu.h"
#include "reports/RaporttiVirhe.h"

#include <QCollator>
#include <QLocale>
#include <cmath>

namespace {

const QCollator &suomalainenJarjestys()
{
    thread_local const QCollator c = [] {
        QCollator k(QLocale(QLocale::Finnish, QLocale::Finland));
        k.setCaseSensitivity(Qt::CaseInsensitive);
        return k;
    }();
    return c;
}

struct Funktio {
    int min, max;
    bool kooste = false;
};

const QHash<QString, Funktio> &funktiot()
{
    static const QHash<QString, Funktio> f = [] {
        QHash<QString, Funktio> f = {
            {QStringLiteral("iif"), {3, 3}},        {QStringLiteral("totext"), {1, 2}},
            {QStringLiteral("year"), {1, 1}},       {QStringLiteral("month"), {1, 1}},
            {QStringLiteral("day"), {1, 1}},        {QStringLiteral("date"), {3, 3}},
            {QStringLiteral("currentdate"), {0, 0}}, {QStringLiteral("pagenumber"), {0, 0}},
            {QStringLiteral("totalpages"), {0, 0}}, {QStringLiteral("recordnumber"), {0, 0}},
            {QStringLiteral("uppercase"), {1, 1}},  {QStringLiteral("lowercase"), {1, 1}},
            {QStringLiteral("trim"), {1, 1}},       {QStringLiteral("left"), {2, 2}},
            {QStringLiteral("right"), {2, 2}},      {QStringLiteral("len"), {1, 1}},
            {QStringLiteral("isnull"), {1, 1}},     {QStringLiteral("raha"), {1, 1}},
            {QStringLiteral("euro"), {1, 1}},       {QStringLiteral("pvm"), {1, 1}},
            {QStringLiteral("viite"), {1, 1}},      {QStringLiteral("iban"), {1, 1}},
            {QStringLiteral("rivit"), {1, 20}},     {QStringLiteral("sum"), {1, 1, true}},
            {QStringLiteral("count"), {0, 1, true}}};
        for (auto it = Lisafunktiot().cbegin(); it != Lisafunktiot().cend(); ++it)
            f.insert(it.key(), {it->min, it->max});
        return f;
    }();
    return f;
}

QString teksti(const Arvo &a) { return ArvoTekstina(a); }

Arvo luvuksi(double d)
{
    if (std::isfinite(d) && d == std::floor(d) && std::fabs(d) < 9e15)
        return qint64(d);
    return d;
}

Arvo summa(Operaattori op, const Arvo &a, const Arvo &b)
{
    if (op == Operaattori::Plus && (std::holds_alternative<QString>(a) || std::holds_alternative<QString>(b)))
        return teksti(a) + teksti(b);
    if (onTyhja(a) || onTyhja(b))
        return {};
    if (auto d = std::get_if<QDate>(&a)) {
        if (auto e = std::get_if<QDate>(&b); e && op == Operaattori::Miinus)
            return qint64(e->daysTo(*d));
        if (auto n = std::get_if<qint64>(&b))
            return d->addDays(op == Operaattori::Plus ? *n : -*n);
        return {};
    }
    const auto x = ArvoLukuna(a), y = ArvoLukuna(b);
    if (!x || !y)
        return {};
    const bool rahaa = std::holds_alternative<Currency>(a) || std::holds_alternative<Currency>(b);
    auto raha = [](const Arvo &v) {
        if (auto c = std::get_if<Currency>(&v))
            return *c;
        return Currency::fromDouble(ArvoLukuna(v).value_or(0));
    };
    switch (op) {
    case Operaattori::Plus:
        if (rahaa)
            return raha(a) + raha(b);
        if (std::holds_alternative<qint64>(a) && std::holds_alternative<qint64>(b))
            return std::get<qint64>(a) + std::get<qint64>(b);
        return *x + *y;
    case Operaattori::Miinus:
        if (rahaa)
            return raha(a) - raha(b);
        if (std::holds_alternative<qint64>(a) && std::holds_alternative<qint64>(b))
            return std::get<qint64>(a) - std::get<qint64>(b);
        return *x - *y;
    case Operaattori::Kerto:
        if (rahaa && !(std::holds_alternative<Currency>(a) && std::holds_alternative<Currency>(b)))
            return Currency::fromDouble(*x * *y);
        return luvuksi(*x * *y);
    default:
        if (*y == 0)
            return {};
        if (std::holds_alternative<Currency>(a) && !std::holds_alternative<Currency>(b))
            return Currency::fromDouble(*x / *y);
        return *x / *y;
    }
}

bool kuvioSopii(const QString &kuvio, int k, const QString &t, int i)
{
    while (k < kuvio.size()) {
        const QChar c = kuvio[k];
        if (c == QLatin1Char('*')) {
            for (int j = i; j <= t.size(); ++j)
                if (kuvioSopii(kuvio, k + 1, t, j))
                    return true;
            return false;
        }
        if (i >= t.size())
            return false;
        if (c != QLatin1Char('?') && c.toCaseFolded() != t[i].toCaseFolded())
            return false;
        ++k;
        ++i;
    }
    return i == t.size();
}

class Arvioija {
public:
    explicit Arvioija(const Arviointi &a) : m_a(a) {}

    Arvo arvo(const Solmu &s)
    {
        switch (s.laji) {
        case Solmu::Laji::Luku:
            return s.kokonainen ? luvuksi(s.luku) : Arvo(s.luku);
        case Solmu::Laji::Teksti:
            return s.teksti;
        case Solmu::Laji::Totuus:
            return s.totuus;
        case Solmu::Laji::Kentta:
            if (m_a.rivi < 0 || !m_a.rivit || s.sarake < 0)
                return {};
            return m_a.rivit->rivi(m_a.rivi)[s.sarake];
        case Solmu::Laji::Kaava: {
            const auto it = m_a.kaavat ? m_a.kaavat->constFind(s.teksti.toLower()) : Kaavat::const_iterator();
            if (!m_a.kaavat || it == m_a.kaavat->constEnd())
                return {};
            return arvo(**it);
        }
        case Solmu::Laji::Funktio:
            return funktio(s);
        case Solmu::Laji::Operaatio:
            return operaatio(s);
        }
        return {};
    }

    bool ehto(const Solmu &s)
    {
        const Arvo a = arvo(s);
        auto b = std::get_if<bool>(&a);
        return b && *b;
    }

private:
    Arvo operaatio(const Solmu &s)
    {
        switch (s.op) {
        case Operaattori::Ja:
            return ehto(*s.lapset[0]) && ehto(*s.lapset[1]);
        case Operaattori::Tai:
            return ehto(*s.lapset[0]) || ehto(*s.lapset[1]);
        case Operaattori::Ei: {
            const Arvo a = arvo(*s.lapset[0]);
            if (auto b = std::get_if<bool>(&a))
                return !*b;
            return {};
        }
        case Operaattori::Vastaluku: {
            const Arvo a = arvo(*s.lapset[0]);
            if (auto c = std::get_if<Currency>(&a))
                return -*c;
            if (auto n = std::get_if<qint64>(&a))
                return -*n;
            if (auto d = std::get_if<double>(&a))
                return -*d;
            return {};
        }
        case Operaattori::Plus:
        case Operaattori::Miinus:
        case Operaattori::Kerto:
        case Operaattori::Jako:
            return summa(s.op, arvo(*s.lapset[0]), arvo(*s.lapset[1]));
        case Operaattori::Like: {
            const Arvo a = arvo(*s.lapset[0]), b = arvo(*s.lapset[1]);
            if (onTyhja(a) || onTyhja(b))
                return false;
            return kuvioSopii(teksti(b), 0, teksti(a), 0);
        }
        default:
            break;
        }
        const auto v = VertaaArvoja(arvo(*s.lapset[0]), arvo(*s.lapset[1]));
        if (!v)
            return false;
        switch (s.op) {
        case Operaattori::Yhtasuuri: return *v == 0;
        case Operaattori::Erisuuri: return *v != 0;
        case Operaattori::Pienempi: return *v < 0;
        case Operaattori::PienempiTaiYhta: return *v <= 0;
        case Operaattori::Suurempi: return *v > 0;
        default: return *v >= 0;
        }
    }

    Arvo kooste(const Solmu &s, bool summaus)
    {
        qint64 maara = 0;
        Arvo tulos;
        Arviointi a = m_a;
        for (int r = m_a.koosteAlku; r < m_a.koosteLoppu; ++r) {
            a.rivi = r;
            if (s.lapset.empty()) {
                ++maara;
                continue;
            }
            const Arvo v = Arvioija(a).arvo(*s.lapset[0]);
            if (onTyhja(v))
                continue;
            ++maara;
            if (summaus)
                tulos = onTyhja(tulos) ? v : summa(Operaattori::Plus, tulos, v);
        }
        if (!summaus)
            return maara;
        return onTyhja(tulos) ? Arvo(qint64(0)) : tulos;
    }

    Arvo funktio(const Solmu &s)
    {
        const QString n = s.teksti.toLower();
        auto arg = [&](int i) { return arvo(*s.lapset[size_t(i)]); };
        if (n == QLatin1String("iif"))
            return ehto(*s.lapset[0]) ? arg(1) : arg(2);
        if (n == QLatin1String("pagenumber"))
            return qint64(m_a.sivu);
        if (n == QLatin1String("totalpages"))
            return QString(KokonaissivutMerkki);
        if (n == QLatin1String("recordnumber"))
            return qint64(m_a.edellisetRivit + m_a.rivi + 1);
        if (n == QLatin1String("currentdate"))
            return m_a.tanaan.isValid() ? m_a.tanaan : kello::tanaan();
        if (n == QLatin1String("sum"))
            return kooste(s, true);
        if (n == QLatin1String("count"))
            return kooste(s, false);
        if (n == QLatin1String("rivit")) {
            QStringList rivit;
            for (size_t i = 0; i < s.lapset.size(); ++i) {
                const QString t = teksti(arg(int(i))).trimmed();
                if (!t.isEmpty())
                    rivit << t;
            }
            return rivit.join(QLatin1Char('\n'));
        }
        if (n == QLatin1String("date")) {
            const auto y = ArvoLukuna(arg(0)), m = ArvoLukuna(arg(1)), d = ArvoLukuna(arg(2));
            if (!y || !m || !d)
                return {};
            const QDate p{int(*y), int(*m), int(*d)};
            return p.isValid() ? Arvo(p) : Arvo();
        }
        if (Lisafunktiot().contains(n)) {
            std::vector<Arvo> arvot;
            for (size_t i = 0; i < s.lapset.size(); ++i)
                arvot.push_back(arg(int(i)));
            return *LaskeLisafunktio(n, arvot);
        }
        const Arvo a = arg(0);
        if (n == QLatin1String("isnull"))
            return onTyhja(a);
        if (onTyhja(a))
            return {};
        if (n == QLatin1String("year") || n == QLatin1String("month") || n == QLatin1String("day")) {
            auto d = std::get_if<QDate>(&a);
            if (!d)
                return {};
            return qint64(n == QLatin1String("year") ? d->year() : n == QLatin1String("month") ? d->month() : d->day());
        }
        if (n == QLatin1String("totext")) {
            if (s.lapset.size() == 2) {
                const auto x = ArvoLukuna(a);
                const auto des = ArvoLukuna(arg(1));
                if (x && des && !std::holds_alternative<bool>(a))
                    return QLocale(QLocale::Finnish, QLocale::Finland).toString(*x, 'f', qBound(0, int(*des), 10)).remove(QChar(0x00A0));
            }
            return teksti(a);
        }
        if (n == QLatin1String("uppercase"))
            return teksti(a).toUpper();
        if (n == QLatin1String("lowercase"))
            return teksti(a).toLower();
        if (n == QLatin1String("trim"))
            return teksti(a).trimmed();
        if (n == QLatin1String("len"))
            return qint64(teksti(a).size());
        if (n == QLatin1String("left") || n == QLatin1String("right")) {
            const int k = int(ArvoLukuna(arg(1)).value_or(0));
            return n == QLatin1String("left") ? teksti(a).left(qMax(0, k)) : teksti(a).right(qMax(0, k));
        }
        static const QHash<QString, Muoto> muodot = {{QStringLiteral("raha"), Muoto::Raha}, {QStringLiteral("euro"), Muoto::Euro},
                                                     {QStringLiteral("pvm"), Muoto::Pvm},   {QStringLiteral("viite"), Muoto::Viite},
                                                     {QStringLiteral("iban"), Muoto::Iban}};
        return Muotoile(a, muodot.value(n, Muoto::Oletus));
    }

    const Arviointi &m_a;
};

class Tarkistaja {
public:
    Tarkistaja(const Kaavat &kaavat, const QString &missa) : m_kaavat(kaavat), m_missa(missa) {}

    void tarkista(const Solmu &s, bool koosteessa)
    {
        if (s.laji == Solmu::Laji::Kaava) {
            const QString nimi = s.teksti.toLower();
            const auto it = m_kaavat.constFind(nimi);
            if (it == m_kaavat.constEnd())
                virhe(QStringLiteral("kaavaa {@%1} ei ole").arg(s.teksti));
            if (m_polku.contains(nimi))
                virhe(QStringLiteral("kaava {@%1} viittaa itseensä").arg(s.teksti));
            m_polku << nimi;
            tarkista(**it, koosteessa);
            m_polku.removeLast();
        } else if (s.laji == Solmu::Laji::Funktio) {
            const auto it = funktiot().constFind(s.teksti.toLower());
            if (it == funktiot().constEnd())
                virhe(QStringLiteral("funktiota %1 ei ole").arg(s.teksti));
            const int n = int(s.lapset.size());
            if (n < it->min || n > it->max)
                virhe(QStringLiteral("funktiolle %1 annettiin %2 argumenttia").arg(s.teksti).arg(n));
            if (it->kooste && koosteessa)
                virhe(QStringLiteral("funktiota %1 ei voi käyttää toisen summan sisällä").arg(s.teksti));
            koosteessa = koosteessa || it->kooste;
        }
        for (const auto &l : s.lapset)
            tarkista(*l, koosteessa);
    }

private:
    [[noreturn]] void virhe(const QString &mika) const
    {
        throw RaporttiVirhe(m_missa + QStringLiteral(": ") + mika + QLatin1Char('.'));
    }

    const Kaavat &m_kaavat;
    QString m_missa;
    QStringList m_polku;
};

} // namespace

std::optional<int> VertaaArvoja(const Arvo &a, const Arvo &b)
{
    if (onTyhja(a) || onTyhja(b))
        return std::nullopt;
    auto merkki = [](auto x, auto y) { return x < y ? -1 : (y < x ? 1 : 0); };
    if (auto x = std::get_if<QString>(&a)) {
        if (auto y = std::get_if<QString>(&b))
            return merkki(suomalainenJarjestys().compare(*x, *y), 0);
        return std::nullopt;
    }
    if (auto x = std::get_if<QDate>(&a)) {
        if (auto y = std::get_if<QDate>(&b))
            return merkki(*x, *y);
        return std::nullopt;
    }
    if (std::holds_alternative<QString>(b) || std::holds_alternative<QDate>(b))
        return std::nullopt;
    if (auto x = std::get_if<Currency>(&a))
        if (auto y = std::get_if<Currency>(&b))
            return merkki(x->raw(), y->raw());
    if (auto x = std::get_if<qint64>(&a))
        if (auto y = std::get_if<qint64>(&b))
            return merkki(*x, *y);
    return merkki(*ArvoLukuna(a), *ArvoLukuna(b));
}

Arvo Arvioi(const Solmu &s, const Arviointi &a)
{
    return Arvioija(a).arvo(s);
}

bool ArvioiEhto(const Solmu &s, const Arviointi &a)
{
    return Arvioija(a).ehto(s);
}

void TarkistaLauseke(const Solmu &s, const Kaavat &kaavat, const QString &missa)
{
    Tarkistaja(kaavat, missa).tarkista(s, false);
}

bool KayttaaKokonaissivuja(const Solmu &s, const Kaavat &kaavat)
{
    if (s.laji == Solmu::Laji::Funktio && s.teksti.compare(QLatin1String("TotalPages"), Qt::CaseInsensitive) == 0)
        return true;
    if (s.laji == Solmu::Laji::Kaava) {
        const auto it = kaavat.constFind(s.teksti.toLower());
        // A formula that refers to itself was refused by TarkistaLauseke before this is asked.
        if (it != kaavat.constEnd() && KayttaaKokonaissivuja(**it, kaavat))
            return true;
    }
    for (const auto &l : s.lapset)
        if (KayttaaKokonaissivuja(*l, kaavat))
            return true;
    return false;
}
