#include "members/Nimipuu.h"

#include <QCollator>
#include <QHash>
#include <QLocale>
#include <algorithm>

namespace {

// The sort keys of the Finnish collation (the same rules as COLLATE FI), made once for each
// distinct name: sorting 100,000 members by keys is many times faster than by comparisons.
class Lajittelija {
public:
    Lajittelija() : m_col(QLocale(QLocale::Finnish, QLocale::Finland))
    {
        m_col.setCaseSensitivity(Qt::CaseInsensitive);
        m_col.setNumericMode(false);
    }

    int avain(const QString &nimi)
    {
        const auto it = m_paikat.constFind(nimi);
        if (it != m_paikat.constEnd())
            return *it;
        m_avaimet.push_back(m_col.sortKey(nimi));
        const int i = int(m_avaimet.size()) - 1;
        m_paikat.insert(nimi, i);
        return i;
    }

    const QCollatorSortKey &operator[](int i) const { return m_avaimet[size_t(i)]; }

private:
    QCollator m_col;
    QHash<QString, int> m_paikat;
    std::vector<QCollatorSortKey> m_avaimet;
};

struct Lajiteltava {
    int rivi;
    int suku; // key index, -1 for Null
    int etu;
};

int vertaa(const Lajittelija &l, int a, int b)
{
    if (a == b)
        return 0;
    if (a < 0 || b < 0)
        return a < 0 ? -1 : 1;
    return l[a].compare(l[b]);
}

} // namespace

QVector<NimiRivi> NimetJarjestyksessa(db::Database &db, qint64 piId)
{
    QVector<NimiRivi> rivit;
    {
        std::unique_ptr<db::Statement> st;
        if (piId > 0)
            st = std::make_unique<db::Statement>(
                db, QStringLiteral("SELECT jrID, jrSukunimi, jrEtunimi FROM jr WHERE jrID IN (SELECT ptjrID FROM pt WHERE ptpiID = ?)"),
                db::Params{piId});
        else
            st = std::make_unique<db::Statement>(db, QStringLiteral("SELECT jrID, jrSukunimi, jrEtunimi FROM jr"));
        while (st->next()) {
            NimiRivi r;
            r.jrId = st->value(0).toLongLong();
            const QVariant s = st->value(1), e = st->value(2);
            r.onSukunimi = s.isValid();
            r.onEtunimi = e.isValid();
            r.sukunimi = s.toString();
            r.etunimi = e.toString();
            rivit.append(r);
        }
    }

    Lajittelija l;
    std::vector<Lajiteltava> jarjestys;
    jarjestys.reserve(size_t(rivit.size()));
    for (int i = 0; i < rivit.size(); ++i) {
        const NimiRivi &r = rivit[i];
        jarjestys.push_back({i, r.onSukunimi ? l.avain(r.sukunimi) : -1, r.onEtunimi ? l.avain(r.etunimi) : -1});
    }
    std::sort(jarjestys.begin(), jarjestys.end(), [&](const Lajiteltava &a, const Lajiteltava &b) {
        if (const int c = vertaa(l, a.suku, b.suku))
            return c < 0;
        if (const int c = vertaa(l, a.etu, b.etu))
            return c < 0;
        return rivit[a.rivi].jrId < rivit[b.rivi].jrId;
    });

    QVector<NimiRivi> tulos;
    tulos.reserve(rivit.size());
    for (const Lajiteltava &j : jarjestys)
        tulos.append(std::move(rivit[j.rivi]));
    return tulos;
}

int NimipuunJuuri(const NimiRivi &r)
{
    if (!r.onSukunimi || r.sukunimi.isEmpty())
        return 29;
    const QString alku = r.sukunimi.left(1).toUpper();
    const QChar c = alku.isEmpty() ? QChar() : alku[0];
    if (c >= QLatin1Char('A') && c <= QLatin1Char('Z'))
        return c.unicode() - 'A';
    if (c == QChar(0x00C5))
        return 26;
    if (c == QChar(0x00C4))
        return 27;
    if (c == QChar(0x00D6))
        return 28;
    return 29;
}

QString NimipuunAvain(int juuri)
{
    if (juuri < 26)
        return QString(QChar('A' + juuri));
    switch (juuri) {
    case 26: return QStringLiteral("Å");
    case 27: return QStringLiteral("Ä");
    case 28: return QStringLiteral("Ö");
    default: return QStringLiteral("Muut");
    }
}

QString NimipuunJuurenTeksti(int juuri, int maara)
{
    const QString avain = NimipuunAvain(juuri);
    const QString teksti = juuri < 29 ? QLatin1Char(' ') + avain + QStringLiteral("  ") : avain;
    return teksti.left(4) + QStringLiteral(" (") + QString::number(maara) + QLatin1Char(')');
}

Nimipuu RakennaNimipuu(db::Database &db, qint64 piId)
{
    Nimipuu p;
    p.nimet = NimetJarjestyksessa(db, piId);
    p.juuret.resize(NimipuunJuuria);
    for (int i = 0; i < p.nimet.size(); ++i)
        p.juuret[NimipuunJuuri(p.nimet[i])].append(i);
    return p;
}

QVector<PiirreNimi> PiirteetNimijarjestyksessa(db::Database &db)
{
    QVector<PiirreNimi> piirteet;
    db::Statement st(db, QStringLiteral("SELECT piID, piNimi FROM pi ORDER BY piNimi COLLATE FI, piID"));
    while (st.next())
        piirteet.append({st.value(0).toLongLong(), st.value(1).toString()});
    return piirteet;
}
