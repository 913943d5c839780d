#include "reports/KaavaSql.h"

#include "reports/Arvo.h"
#include "reports/RaporttiVirhe.h"

#include <cmath>
#include <tuple>

namespace {

enum class Tyyppi { Totuus, Luku, Raha, Pvm, Teksti };

QString tyypinNimi(Tyyppi t)
{
    switch (t) {
    case Tyyppi::Totuus: return QStringLiteral("totuusarvo");
    case Tyyppi::Luku: return QStringLiteral("luku");
    case Tyyppi::Raha: return QStringLiteral("rahamäärä");
    case Tyyppi::Pvm: return QStringLiteral("päivämäärä");
    case Tyyppi::Teksti: return QStringLiteral("teksti");
    }
    return {};
}

struct Tulos {
    QString sql;
    db::Params arvot;
    Tyyppi tyyppi = Tyyppi::Totuus;
    bool ehto = false;         // the SQL is a condition already (a comparison, and, or, not)
    std::optional<Arvo> vakio; // a constant, bound only once its use is known
};

bool onNumeerinen(Tyyppi t) { return t == Tyyppi::Luku || t == Tyyppi::Raha; }

class Kaantaja {
public:
    Kaantaja(SqlNimet &nimet, const QString &missa) : m_nimet(nimet), m_missa(missa) {}

    Tulos kaanna(const Solmu &s)
    {
        switch (s.laji) {
        case Solmu::Laji::Luku:
            return vakio(Tyyppi::Luku, s.kokonainen && std::fabs(s.luku) < 9e15 ? Arvo(qint64(s.luku)) : Arvo(s.luku));
        case Solmu::Laji::Teksti:
            return vakio(Tyyppi::Teksti, Arvo(s.teksti));
        case Solmu::Laji::Totuus:
            return vakio(Tyyppi::Totuus, Arvo(s.totuus));
        case Solmu::Laji::Kentta:
            return kentta(s);
        case Solmu::Laji::Kaava: {
            if (++m_syvyys > 20)
                virhe(QStringLiteral("kaava {@%1} viittaa itseensä").arg(s.teksti));
            Tulos t = kaanna(m_nimet.kaava(s.teksti));
            --m_syvyys;
            return t;
        }
        case Solmu::Laji::Funktio:
            return funktio(s);
        case Solmu::Laji::Operaatio:
            return operaatio(s);
        }
        virhe(QStringLiteral("tuntematon osa"));
    }

    Tulos ehdoksi(Tulos t)
    {
        if (t.tyyppi != Tyyppi::Totuus)
            virhe(QStringLiteral("odotettiin ehtoa, mutta arvo on %1").arg(tyypinNimi(t.tyyppi)));
        if (t.vakio) {
            t.sql = std::get<bool>(*t.vakio) ? QStringLiteral("1") : QStringLiteral("0");
            t.vakio.reset();
        } else if (!t.ehto) {
            t.sql = QStringLiteral("(%1 <> 0)").arg(t.sql);
        }
        t.ehto = true;
        return t;
    }

    // A value as it stands, for ORDER BY: the SQL, its values and whether it is text.
    std::tuple<QString, db::Params, bool> arvoksi(Tulos t)
    {
        sido(t, t.tyyppi);
        return {t.sql, t.arvot, t.tyyppi == Tyyppi::Teksti};
    }

    [[noreturn]] void virhe(const QString &mika) const
    {
        throw RaporttiVirhe(m_missa + QStringLiteral(": ") + mika + QLatin1Char('.'));
    }

private:
    static Tulos vakio(Tyyppi tyyppi, Arvo arvo)
    {
        return Tulos{QString(), db::Params(), tyyppi, false, std::optional<Arvo>(std::move(arvo))};
    }

    Tulos kentta(const Solmu &s)
    {
        KenttaLaji laji = KenttaLaji::Text;
        const QString nimi = m_nimet.kentanSql(s, &laji);
        Tulos t;
        t.sql = nimi;
        switch (laji) {
        case KenttaLaji::Boolean:
            t.tyyppi = Tyyppi::Totuus;
            t.sql = QStringLiteral("IFNULL(%1, 0)").arg(nimi);
            break;
        case KenttaLaji::Currency:
            t.tyyppi = Tyyppi::Raha;
            break;
        case KenttaLaji::Date:
            t.tyyppi = Tyyppi::Pvm;
            t.sql = QStringLiteral("substr(%1, 1, 10)").arg(nimi);
            break;
        case KenttaLaji::Text:
        case KenttaLaji::Memo:
            t.tyyppi = Tyyppi::Teksti;
            break;
        default:
            t.tyyppi = Tyyppi::Luku;
        }
        return t;
    }

    // Writes a constant out as a bound value of the kind its use asks for.
    void sido(Tulos &t, Tyyppi kohde)
    {
        if (!t.vakio)
            return;
        const Arvo &a = *t.vakio;
        QVariant v;
        switch (kohde) {
        case Tyyppi::Totuus:
            v = std::get<bool>(a) ? 1 : 0;
            break;
        case Tyyppi::Raha:
            v = qlonglong(std::llround(ArvoLukuna(a).value_or(0) * Currency::Scale));
            break;
        case Tyyppi::Luku:
            if (auto n = std::get_if<qint64>(&a))
                v = qlonglong(*n);
            else
                v = ArvoLukuna(a).value_or(0);
            break;
        case Tyyppi::Pvm:
            v = std::get<QDate>(a).toString(Qt::ISODate);
            break;
        case Tyyppi::Teksti:
            v = std::get<QString>(a);
            break;
        }
        t.sql = QStringLiteral("?");
        t.arvot = {v};
        t.tyyppi = kohde;
        t.vakio.reset();
    }

    // Money is kept in ten-thousandths: a plain number beside money is scaled to match.
    void rahaksi(Tulos &t)
    {
        if (t.tyyppi != Tyyppi::Luku)
            return;
        if (t.vakio)
            sido(t, Tyyppi::Raha);
        else
            t.sql = QStringLiteral("(%1 * %2)").arg(t.sql).arg(Currency::Scale);
        t.tyyppi = Tyyppi::Raha;
    }

    void yhteensopiviksi(Tulos &a, Tulos &b, const QString &mita)
    {
        if (onNumeerinen(a.tyyppi) && onNumeerinen(b.tyyppi)) {
            if (a.tyyppi == Tyyppi::Raha || b.tyyppi == Tyyppi::Raha) {
                rahaksi(a);
                rahaksi(b);
            }
        } else if (a.tyyppi != b.tyyppi) {
            virhe(QStringLiteral("%1 %2 ja %3 ei onnistu").arg(mita, tyypinNimi(a.tyyppi), tyypinNimi(b.tyyppi)));
        }
        sido(a, a.tyyppi);
        sido(b, b.tyyppi);
    }

    static Tulos yhdista(const QString &sql, Tulos &a, Tulos &b, Tyyppi tyyppi, bool ehto)
    {
        Tulos t;
        t.sql = sql;
        t.arvot = a.arvot + b.arvot;
        t.tyyppi = tyyppi;
        t.ehto = ehto;
        return t;
    }

    Tulos operaatio(const Solmu &s)
    {
        if (s.op == Operaattori::Ei) {
            Tulos a = ehdoksi(kaanna(*s.lapset[0]));
            a.sql = QStringLiteral("(NOT %1)").arg(a.sql);
            return a;
        }
        if (s.op == Operaattori::Vastaluku) {
            Tulos a = kaanna(*s.lapset[0]);
            if (!onNumeerinen(a.tyyppi))
                virhe(QStringLiteral("miinusmerkki ennen arvoa, joka on %1").arg(tyypinNimi(a.tyyppi)));
            if (a.vakio)
                a.vakio = std::holds_alternative<qint64>(*a.vakio) ? Arvo(-std::get<qint64>(*a.vakio))
                                                                   : Arvo(-ArvoLukuna(*a.vakio).value_or(0));
            else
                a.sql = QStringLiteral("(-%1)").arg(a.sql);
            return a;
        }
        Tulos a = kaanna(*s.lapset[0]);
        Tulos b = kaanna(*s.lapset[1]);
        switch (s.op) {
        case Operaattori::Ja:
        case Operaattori::Tai: {
            a = ehdoksi(std::move(a));
            b = ehdoksi(std::move(b));
            const char *sana = s.op == Operaattori::Ja ? "AND" : "OR";
            return yhdista(QStringLiteral("(%1 %2 %3)").arg(a.sql, QLatin1String(sana), b.sql), a, b, Tyyppi::Totuus, true);
        }
        case Operaattori::Like:
            return like(a, b);
        case Operaattori::Plus:
        case Operaattori::Miinus:
        case Operaattori::Kerto:
        case Operaattori::Jako:
            return laskutoimitus(s.op, a, b);
        default:
            return vertailu(s.op, a, b);
        }
    }

    Tulos vertailu(Operaattori op, Tulos &a, Tulos &b)
    {
        yhteensopiviksi(a, b, QStringLiteral("vertailu"));
        QString merkki;
        switch (op) {
        case Operaattori::Yhtasuuri: merkki = QStringLiteral("="); break;
        case Operaattori::Erisuuri: merkki = QStringLiteral("<>"); break;
        case Operaattori::Pienempi: merkki = QStringLiteral("<"); break;
        case Operaattori::PienempiTaiYhta: merkki = QStringLiteral("<="); break;
        case Operaattori::Suurempi: merkki = QStringLiteral(">"); break;
        default: merkki = QStringLiteral(">="); break;
        }
        const QString kollaatio = a.tyyppi == Tyyppi::Teksti ? QStringLiteral(" COLLATE FI") : QString();
        return yhdista(QStringLiteral("(%1 %2 %3%4)").arg(a.sql, merkki, b.sql, kollaatio), a, b, Tyyppi::Totuus, true);
    }

    Tulos like(Tulos &a, Tulos &b)
    {
        if (!b.vakio || b.tyyppi != Tyyppi::Teksti)
            virhe(QStringLiteral("like-vertailun oikealla puolella pitää olla teksti lainausmerkeissä"));
        if (a.tyyppi == Tyyppi::Luku && !a.vakio)
            a.sql = QStringLiteral("CAST(%1 AS TEXT)").arg(a.sql);
        else if (a.tyyppi != Tyyppi::Teksti || a.vakio)
            virhe(QStringLiteral("like-vertailun vasemmalla puolella pitää olla tekstikenttä"));
        b.vakio = Arvo(LikeKuvio(std::get<QString>(*b.vakio)));
        sido(b, Tyyppi::Teksti);
        return yhdista(QStringLiteral("(%1 LIKE %2 ESCAPE '\\')").arg(a.sql, b.sql), a, b, Tyyppi::Totuus, true);
    }

    Tulos laskutoimitus(Operaattori op, Tulos &a, Tulos &b)
    {
        if (op == Operaattori::Plus && a.tyyppi == Tyyppi::Teksti && b.tyyppi == Tyyppi::Teksti) {
            sido(a, Tyyppi::Teksti);
            sido(b, Tyyppi::Teksti);
            return yhdista(QStringLiteral("(IFNULL(%1, '') || IFNULL(%2, ''))").arg(a.sql, b.sql), a, b, Tyyppi::Teksti, false);
        }
        if (!onNumeerinen(a.tyyppi) || !onNumeerinen(b.tyyppi))
            virhe(QStringLiteral("laskutoimitus arvoilla %1 ja %2 ei onnistu").arg(tyypinNimi(a.tyyppi), tyypinNimi(b.tyyppi)));
        Tyyppi tyyppi = Tyyppi::Luku;
        if (op == Operaattori::Plus || op == Operaattori::Miinus) {
            yhteensopiviksi(a, b, QStringLiteral("laskutoimitus"));
            tyyppi = a.tyyppi;
        } else {
            if (b.tyyppi == Tyyppi::Raha && (op == Operaattori::Jako || a.tyyppi == Tyyppi::Raha))
                virhe(QStringLiteral("rahamääriä voi vain kertoa tai jakaa luvulla"));
            tyyppi = a.tyyppi == Tyyppi::Raha || b.tyyppi == Tyyppi::Raha ? Tyyppi::Raha : Tyyppi::Luku;
            sido(a, a.tyyppi);
            sido(b, b.tyyppi);
        }
        const char *merkki = op == Operaattori::Plus ? "+" : op == Operaattori::Miinus ? "-" : op == Operaattori::Kerto ? "*" : "/";
        // Division in floating point: 7 / 2 is 3,5 as a user expects, not 3.
        const QString oikea = op == Operaattori::Jako ? QStringLiteral("CAST(%1 AS REAL)").arg(b.sql) : b.sql;
        return yhdista(QStringLiteral("(%1 %2 %3)").arg(a.sql, QLatin1String(merkki), oikea), a, b, tyyppi, false);
    }

    qint64 vakioKokonaisluku(const Solmu &s)
    {
        Tulos t = kaanna(s);
        if (!t.vakio || t.tyyppi != Tyyppi::Luku)
            virhe(QStringLiteral("odotettiin lukua"));
        return qint64(ArvoLukuna(*t.vakio).value_or(0));
    }

    void argumentteja(const Solmu &s, int min, int max)
    {
        const int n = int(s.lapset.size());
        if (n < min || n > max)
            virhe(QStringLiteral("funktiolle %1 annettiin %2 argumenttia").arg(s.teksti).arg(n));
    }

    Tulos funktio(const Solmu &s)
    {
        const QString nimi = s.teksti.toLower();
        if (nimi == QLatin1String("date")) {
            argumentteja(s, 3, 3);
            const QDate d(int(vakioKokonaisluku(*s.lapset[0])), int(vakioKokonaisluku(*s.lapset[1])),
                          int(vakioKokonaisluku(*s.lapset[2])));
            if (!d.isValid())
                virhe(QStringLiteral("päivämäärää ei ole olemassa"));
            return vakio(Tyyppi::Pvm, Arvo(d));
        }
        if (nimi == QLatin1String("year") || nimi == QLatin1String("month") || nimi == QLatin1String("day")) {
            argumentteja(s, 1, 1);
            Tulos a = kaanna(*s.lapset[0]);
            if (a.tyyppi != Tyyppi::Pvm)
                virhe(QStringLiteral("funktio %1 tarvitsee päivämäärän").arg(s.teksti));
            sido(a, Tyyppi::Pvm);
            if (nimi == QLatin1String("year"))
                a.sql = QStringLiteral("year(%1)").arg(a.sql);
            else
                a.sql = QStringLiteral("CAST(substr(%1, %2, 2) AS INTEGER)").arg(a.sql, nimi == QLatin1String("month") ? QStringLiteral("6") : QStringLiteral("9"));
            a.tyyppi = Tyyppi::Luku;
            return a;
        }
        if (nimi == QLatin1String("totext")) {
            argumentteja(s, 1, 2);
            Tulos a = kaanna(*s.lapset[0]);
            const qint64 desimaalit = s.lapset.size() > 1 ? vakioKokonaisluku(*s.lapset[1]) : 0;
            if (a.tyyppi == Tyyppi::Teksti)
                return a;
            if (a.tyyppi != Tyyppi::Luku)
                virhe(QStringLiteral("ToText valintakaavassa toimii vain luvuille ja teksteille"));
            sido(a, Tyyppi::Luku);
            if (desimaalit <= 0)
                a.sql = QStringLiteral("CAST(CAST(round(%1) AS INTEGER) AS TEXT)").arg(a.sql);
            else
                a.sql = QStringLiteral("replace(printf('%.%1f', %2), '.', ',')").arg(desimaalit).arg(a.sql);
            a.tyyppi = Tyyppi::Teksti;
            return a;
        }
        if (nimi == QLatin1String("uppercase") || nimi == QLatin1String("lowercase") || nimi == QLatin1String("trim")) {
            argumentteja(s, 1, 1);
            Tulos a = kaanna(*s.lapset[0]);
            if (a.tyyppi != Tyyppi::Teksti)
                virhe(QStringLiteral("funktio %1 tarvitsee tekstin").arg(s.teksti));
            sido(a, Tyyppi::Teksti);
            const QString f = nimi == QLatin1String("uppercase") ? QStringLiteral("upper")
                              : nimi == QLatin1String("lowercase") ? QStringLiteral("lower") : QStringLiteral("trim");
            a.sql = QStringLiteral("%1(%2)").arg(f, a.sql);
            return a;
        }
        if (nimi == QLatin1String("isnull")) {
            argumentteja(s, 1, 1);
            if (s.lapset[0]->laji != Solmu::Laji::Kentta)
                virhe(QStringLiteral("IsNull tarvitsee kentän"));
            KenttaLaji laji;
            Tulos t;
            t.sql = QStringLiteral("(%1 IS NULL)").arg(m_nimet.kentanSql(*s.lapset[0], &laji));
            t.tyyppi = Tyyppi::Totuus;
            t.ehto = true;
            return t;
        }
        virhe(QStringLiteral("funktiota %1 ei voi käyttää valintakaavassa").arg(s.teksti));
    }

    SqlNimet &m_nimet;
    QString m_missa;
    int m_syvyys = 0;
};

} // namespace

QString LikeKuvio(const QString &kuvio)
{
    QString t;
    for (QChar c : kuvio) {
        if (c == QLatin1Char('*'))
            t += QLatin1Char('%');
        else if (c == QLatin1Char('?'))
            t += QLatin1Char('_');
        else if (c == QLatin1Char('%') || c == QLatin1Char('_') || c == QLatin1Char('\\'))
            t += QLatin1Char('\\') + QString(c);
        else
            t += c;
    }
    return t;
}

SqlEhto KaannaEhdoksi(const Solmu &kaava, SqlNimet &nimet, const QString &missa)
{
    Kaantaja k(nimet, missa);
    Tulos t = k.ehdoksi(k.kaanna(kaava));
    return {t.sql, t.arvot};
}

SqlEhto KaannaJarjestykseksi(const Solmu &lauseke, bool laskeva, SqlNimet &nimet, const QString &missa)
{
    Kaantaja k(nimet, missa);
    const auto [sql, arvot, tekstia] = k.arvoksi(k.kaanna(lauseke));
    return {sql + (tekstia ? QStringLiteral(" COLLATE FI") : QString()) + (laskeva ? QStringLiteral(" DESC") : QStringLiteral(" ASC")),
            arvot};
}
