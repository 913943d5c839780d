#include "reports/Kaava.h"

#include "reports/RaporttiVirhe.h"

namespace {

struct Merkki {
    enum class Laji { Loppu, Luku, Teksti, Kentta, Kaava, Nimi, Operaattori, Vasen, Oikea, Pilkku };
    Laji laji = Laji::Loppu;
    QString teksti; // name, operator, text; for Kentta "table.field"
    double luku = 0;
    bool kokonainen = true;
    int alku = 0, loppu = 0;
};

class Jasennin {
public:
    Jasennin(const QString &teksti, const QString &missa) : m_t(teksti), m_missa(missa) {}

    SolmuPtr koko()
    {
        lue();
        if (m_m.laji == Merkki::Laji::Loppu)
            virhe(QStringLiteral("kaava on tyhjä"), 0);
        auto s = tai();
        if (m_m.laji != Merkki::Laji::Loppu)
            virhe(QStringLiteral("ylimääräistä tekstiä"), m_m.alku);
        return s;
    }

private:
    [[noreturn]] void virhe(const QString &mika, int kohta) const
    {
        QString ote = m_t.mid(kohta, 30);
        if (kohta + 30 < m_t.size())
            ote += QStringLiteral("…");
        QString viesti = m_missa + QStringLiteral(": kaavaa \"") + m_t + QStringLiteral("\" ei voi lukea: ") + mika;
        if (kohta < m_t.size())
            viesti += QStringLiteral(" kohdassa %1 (\"%2\")").arg(kohta + 1).arg(ote);
        throw RaporttiVirhe(viesti + QLatin1Char('.'));
    }

    // --- lexer ---
    void lue()
    {
        int i = m_pos;
        while (i < m_t.size() && m_t[i].isSpace())
            ++i;
        Merkki m;
        m.alku = i;
        if (i >= m_t.size()) {
            m.laji = Merkki::Laji::Loppu;
            m.loppu = i;
            m_m = m;
            m_pos = i;
            return;
        }
        const QChar c = m_t[i];
        if (c.isDigit() || (c == QLatin1Char('.') && i + 1 < m_t.size() && m_t[i + 1].isDigit())) {
            int j = i;
            while (j < m_t.size() && m_t[j].isDigit())
                ++j;
            if (j < m_t.size() && m_t[j] == QLatin1Char('.') && j + 1 < m_t.size() && m_t[j + 1].isDigit()) {
                m.kokonainen = false;
                ++j;
                while (j < m_t.size() && m_t[j].isDigit())
                    ++j;
            }
            m.laji = Merkki::Laji::Luku;
            m.teksti = m_t.mid(i, j - i);
            m.luku = m.teksti.toDouble();
            i = j;
        } else if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
            // A quote inside is written twice, as in the formula language of old.
            QString s;
            int j = i + 1;
            for (;;) {
                if (j >= m_t.size())
                    virhe(QStringLiteral("lainausmerkki jäi sulkematta"), i);
                if (m_t[j] == c) {
                    if (j + 1 < m_t.size() && m_t[j + 1] == c) {
                        s += c;
                        j += 2;
                        continue;
                    }
                    break;
                }
                s += m_t[j++];
            }
            m.laji = Merkki::Laji::Teksti;
            m.teksti = s;
            i = j + 1;
        } else if (c == QLatin1Char('{')) {
            const int sulku = int(m_t.indexOf(QLatin1Char('}'), i));
            if (sulku < 0)
                virhe(QStringLiteral("aaltosulje jäi sulkematta"), i);
            const QString sisus = m_t.mid(i + 1, sulku - i - 1).trimmed();
            if (sisus.startsWith(QLatin1Char('@'))) {
                m.laji = Merkki::Laji::Kaava;
                m.teksti = sisus.mid(1).trimmed();
                if (m.teksti.isEmpty())
                    virhe(QStringLiteral("kaavan nimi puuttuu"), i);
            } else {
                const int piste = int(sisus.indexOf(QLatin1Char('.')));
                if (piste <= 0 || piste == sisus.size() - 1)
                    virhe(QStringLiteral("kentän pitää olla muotoa {taulu.kenttä}"), i);
                m.laji = Merkki::Laji::Kentta;
                m.teksti = sisus.left(piste).trimmed() + QLatin1Char('.') + sisus.mid(piste + 1).trimmed();
            }
            i = sulku + 1;
        } else if (c.isLetter() || c == QLatin1Char('_')) {
            int j = i;
            while (j < m_t.size() && (m_t[j].isLetterOrNumber() || m_t[j] == QLatin1Char('_')))
                ++j;
            m.teksti = m_t.mid(i, j - i);
            const QString pieni = m.teksti.toLower();
            if (pieni == QLatin1String("and") || pieni == QLatin1String("or") || pieni == QLatin1String("not")
                || pieni == QLatin1String("like"))
                m.laji = Merkki::Laji::Operaattori, m.teksti = pieni;
            else
                m.laji = Merkki::Laji::Nimi;
            i = j;
        } else if (c == QLatin1Char('(')) {
            m.laji = Merkki::Laji::Vasen, ++i;
        } else if (c == QLatin1Char(')')) {
            m.laji = Merkki::Laji::Oikea, ++i;
        } else if (c == QLatin1Char(',')) {
            m.laji = Merkki::Laji::Pilkku, ++i;
        } else {
            static const char *const kaksi[] = {"<>", "<=", ">=", "!="};
            m.laji = Merkki::Laji::Operaattori;
            for (const char *k : kaksi)
                if (m_t.mid(i, 2) == QLatin1String(k)) {
                    m.teksti = QString::fromLatin1(k);
                    break;
                }
            if (m.teksti == QLatin1String("!="))
                m.teksti = QStringLiteral("<>");
            if (m.teksti.isEmpty()) {
                if (!QStringLiteral("=<>+-*/&").contains(c))
                    virhe(QStringLiteral("tuntematon merkki"), i);
                m.teksti = c;
                i += 1;
            } else {
                i += 2;
            }
        }
        m.loppu = i;
        m_pos = i;
        m_m = m;
    }

    bool onOp(const char *op) const
    {
        return m_m.laji == Merkki::Laji::Operaattori && m_m.teksti == QLatin1String(op);
    }

    SolmuPtr operaatio(Operaattori op, SolmuPtr a, SolmuPtr b, int kohta)
    {
        auto s = std::make_unique<Solmu>();
        s->laji = Solmu::Laji::Operaatio;
        s->op = op;
        s->kohta = kohta;
        s->lapset.push_back(std::move(a));
        if (b)
            s->lapset.push_back(std::move(b));
        return s;
    }

    // Each parenthesis, argument, "not" and sign goes a level deeper; a formula deeper than the
    // limit is refused before it could exhaust the stack.
    static constexpr int SuurinSyvyys = 200;
    class Taso {
    public:
        explicit Taso(Jasennin &j) : m_j(j)
        {
            if (++m_j.m_tasoja > SuurinSyvyys)
                m_j.virhe(QStringLiteral("kaava on sisäkkäin yli %1 tasoa").arg(SuurinSyvyys), m_j.m_m.alku);
        }
        ~Taso() { --m_j.m_tasoja; }

    private:
        Jasennin &m_j;
    };

    // A chain of operators builds a tree as deep as the chain is long: it has a limit too.
    static constexpr int PisinKetju = 1000;
    void ketju(int n) const
    {
        if (n > PisinKetju)
            virhe(QStringLiteral("kaavassa on yli %1 peräkkäistä laskutoimitusta").arg(PisinKetju), m_m.alku);
    }

    // --- grammar, loosest first ---
    SolmuPtr tai()
    {
        const Taso taso(*this);
        auto s = ja();
        int n = 0;
        while (onOp("or")) {
            ketju(++n);
            const int k = m_m.alku;
            lue();
            s = operaatio(Operaattori::Tai, std::move(s), ja(), k);
        }
        return s;
    }

    SolmuPtr ja()
    {
        auto s = ei();
        int n = 0;
        while (onOp("and")) {
            ketju(++n);
            const int k = m_m.alku;
            lue();
            s = operaatio(Operaattori::Ja, std::move(s), ei(), k);
        }
        return s;
    }

    SolmuPtr ei()
    {
        if (onOp("not")) {
            const Taso taso(*this);
            const int k = m_m.alku;
            lue();
            return operaatio(Operaattori::Ei, ei(), nullptr, k);
        }
        return vertailu();
    }

    SolmuPtr vertailu()
    {
        auto s = summa();
        static const std::pair<const char *, Operaattori> ops[] = {
            {"=", Operaattori::Yhtasuuri},       {"<>", Operaattori::Erisuuri}, {"<", Operaattori::Pienempi},
            {"<=", Operaattori::PienempiTaiYhta}, {">", Operaattori::Suurempi}, {">=", Operaattori::SuurempiTaiYhta},
            {"like", Operaattori::Like}};
        for (const auto &[nimi, op] : ops)
            if (onOp(nimi)) {
                const int k = m_m.alku;
                lue();
                return operaatio(op, std::move(s), summa(), k);
            }
        return s;
    }

    SolmuPtr summa()
    {
        auto s = tulo();
        int n = 0;
        while (onOp("+") || onOp("-") || onOp("&")) {
            ketju(++n);
            const Operaattori op = onOp("-") ? Operaattori::Miinus : Operaattori::Plus;
            const int k = m_m.alku;
            lue();
            s = operaatio(op, std::move(s), tulo(), k);
        }
        return s;
    }

    SolmuPtr tulo()
    {
        auto s = etumerkki();
        int n = 0;
        while (onOp("*") || onOp("/")) {
            ketju(++n);
            const Operaattori op = onOp("*") ? Operaattori::Kerto : Operaattori::Jako;
            const int k = m_m.alku;
            lue();
            s = operaatio(op, std::move(s), etumerkki(), k);
        }
        return s;
    }

    SolmuPtr etumerkki()
    {
        if (onOp("-")) {
            const Taso taso(*this);
            const int k = m_m.alku;
            lue();
            return operaatio(Operaattori::Vastaluku, etumerkki(), nullptr, k);
        }
        if (onOp("+")) {
            const Taso taso(*this);
            lue();
            return etumerkki();
        }
        return perus();
    }

    SolmuPtr perus()
    {
        auto s = std::make_unique<Solmu>();
        s->kohta = m_m.alku;
        switch (m_m.laji) {
        case Merkki::Laji::Luku: {
            s->laji = Solmu::Laji::Luku;
            s->luku = m_m.luku;
            s->kokonainen = m_m.kokonainen;
            const int loppu = m_m.loppu;
            lue();
            // "12,50" outside an argument list is a number with a decimal comma, as a
            // Finnish user types it into a search box.
            if (m_syvyys == 0 && s->kokonainen && m_m.laji == Merkki::Laji::Pilkku && m_m.alku == loppu) {
                const int pilkku = m_m.loppu;
                lue();
                if (m_m.laji != Merkki::Laji::Luku || m_m.alku != pilkku || !m_m.kokonainen)
                    virhe(QStringLiteral("desimaaliluku on väärin kirjoitettu"), pilkku - 1);
                s->luku = (m_t.mid(s->kohta, loppu - s->kohta) + QLatin1Char('.') + m_m.teksti).toDouble();
                s->kokonainen = false;
                lue();
            }
            return s;
        }
        case Merkki::Laji::Teksti:
            s->laji = Solmu::Laji::Teksti;
            s->teksti = m_m.teksti;
            lue();
            return s;
        case Merkki::Laji::Kentta: {
            s->laji = Solmu::Laji::Kentta;
            const int piste = int(m_m.teksti.indexOf(QLatin1Char('.')));
            s->taulu = m_m.teksti.left(piste);
            s->kentta = m_m.teksti.mid(piste + 1);
            lue();
            return s;
        }
        case Merkki::Laji::Kaava:
            s->laji = Solmu::Laji::Kaava;
            s->teksti = m_m.teksti;
            lue();
            return s;
        case Merkki::Laji::Vasen: {
            lue();
            ++m_syvyys; // a comma inside parentheses is never a decimal comma
            auto sisus = tai();
            --m_syvyys;
            if (m_m.laji != Merkki::Laji::Oikea)
                virhe(QStringLiteral("odotettiin sulkevaa sulkua"), m_m.alku);
            lue();
            return sisus;
        }
        case Merkki::Laji::Nimi: {
            const QString nimi = m_m.teksti;
            const QString pieni = nimi.toLower();
            lue();
            if (pieni == QLatin1String("true") || pieni == QLatin1String("false")) {
                s->laji = Solmu::Laji::Totuus;
                s->totuus = pieni == QLatin1String("true");
                return s;
            }
            s->laji = Solmu::Laji::Funktio;
            s->teksti = nimi;
            if (m_m.laji != Merkki::Laji::Vasen)
                return s; // PageNumber, TotalPages, CurrentDate
            lue();
            ++m_syvyys;
            if (m_m.laji != Merkki::Laji::Oikea) {
                for (;;) {
                    s->lapset.push_back(tai());
                    if (m_m.laji != Merkki::Laji::Pilkku)
                        break;
                    lue();
                }
            }
            --m_syvyys;
            if (m_m.laji != Merkki::Laji::Oikea)
                virhe(QStringLiteral("odotettiin sulkevaa sulkua tai pilkkua"), m_m.alku);
            lue();
            return s;
        }
        case Merkki::Laji::Loppu:
            virhe(QStringLiteral("kaava loppuu kesken"), int(m_t.size()));
        default:
            virhe(QStringLiteral("odotettiin arvoa"), m_m.alku);
        }
    }

    const QString &m_t;
    QString m_missa;
    int m_pos = 0;
    int m_tasoja = 0;
    int m_syvyys = 0;
    Merkki m_m;
};

} // namespace

SolmuPtr JasennaKaava(const QString &teksti, const QString &missa)
{
    return Jasennin(teksti, missa).koko();
}

NimettyKaava JasennaNimettyKaava(const QString &teksti)
{
    const int yhtasuuri = int(teksti.indexOf(QLatin1Char('=')));
    const QString nimi = yhtasuuri > 0 ? teksti.left(yhtasuuri).trimmed() : QString();
    bool nimiKelpaa = !nimi.isEmpty();
    for (QChar c : nimi)
        nimiKelpaa = nimiKelpaa && (c.isLetterOrNumber() || c == QLatin1Char('_'));
    if (!nimiKelpaa)
        throw RaporttiVirhe(QStringLiteral("Kaava \"%1\" ei ole muotoa Nimi= 'teksti'.").arg(teksti));
    const QString arvo = teksti.mid(yhtasuuri + 1).trimmed();
    NimettyKaava k;
    k.nimi = nimi;
    if (arvo.size() >= 2 && (arvo.front() == QLatin1Char('\'') || arvo.front() == QLatin1Char('"'))
        && arvo.back() == arvo.front()) {
        auto s = std::make_shared<Solmu>();
        s->laji = Solmu::Laji::Teksti;
        s->teksti = arvo.mid(1, arvo.size() - 2);
        k.lauseke = std::move(s);
    } else {
        k.lauseke = JasennaKaava(arvo, QStringLiteral("Kaava %1").arg(nimi));
    }
    return k;
}

Lajittelu JasennaLajittelu(const QString &teksti)
{
    QString t = teksti.trimmed();
    Lajittelu l;
    if (t.startsWith(QLatin1Char('+')) || t.startsWith(QLatin1Char('-'))) {
        l.laskeva = t.front() == QLatin1Char('-');
        t = t.mid(1);
    }
    const QString missa = QStringLiteral("Lajittelu");
    l.kentta = JasennaKaava(t, missa);
    if (l.kentta->laji != Solmu::Laji::Kentta)
        throw RaporttiVirhe(QStringLiteral("Lajittelu \"%1\": lajitella voi vain kentän mukaan, muodossa +{taulu.kenttä}.")
                                .arg(teksti));
    return l;
}

void KeraaViittaukset(Solmu &s, std::vector<Solmu *> &kentat, QStringList &kaavat)
{
    if (s.laji == Solmu::Laji::Kentta)
        kentat.push_back(&s);
    else if (s.laji == Solmu::Laji::Kaava)
        kaavat << s.teksti;
    for (auto &l : s.lapset)
        KeraaViittaukset(*l, kentat, kaavat);
}
