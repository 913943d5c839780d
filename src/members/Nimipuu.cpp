#include "members/Nimipuu.h"

#include <QCollator>
#include <QHash>
#include <QLocale>
#include <algorithm>

namespace {

// The Finnish order (the rules of COLLATE FI) as a rank for each distinct name: the names are
// few beside the members, so they are sorted once by their collation keys, and the members then
// by plain numbers. Many times faster than comparing texts 100,000 times over.
class Arvojarjestys {
public:
    int lisaa(const QString &nimi)
    {
        const auto it = m_paikat.constFind(nimi);
        if (it != m_paikat.constEnd())
            return *it;
        const int i = int(m_nimet.size());
        m_nimet.append(nimi);
        m_paikat.insert(nimi, i);
        return i;
    }

    // Rank of each name added, in the order added; equal names in the collation share a rank.
    QVector<int> jarjesta() const
    {
        QCollator col(QLocale(QLocale::Finnish, QLocale::Finland));
        col.setCaseSensitivity(Qt::CaseInsensitive);
        col.setNumericMode(false);
        std::vector<QCollatorSortKey> avaimet;
        avaimet.reserve(size_t(m_nimet.size()));
        for (const QString &n : m_nimet)
            avaimet.push_back(col.sortKey(n));
        std::vector<int> jarjestys(size_t(m_nimet.size()));
        for (size_t i = 0; i < jarjestys.size(); ++i)
            jarjestys[i] = int(i);
        std::sort(jarjestys.begin(), jarjestys.end(),
                  [&](int a, int b) { return avaimet[size_t(a)].compare(avaimet[size_t(b)]) < 0; });
        QVector<int> arvo(m_nimet.size());
        int taso = 0;
        for (size_t k = 0; k < jarjestys.size(); ++k) {
            if (k > 0 && avaimet[size_t(jarjestys[k - 1])].compare(avaimet[size_t(jarjestys[k])]) != 0)
                ++taso;
            arvo[jarjestys[k]] = taso;
        }
        return arvo;
    }

private:
    QVector<QString> m_nimet;
    QHash<QString, int> m_paikat;
};

struct Lajiteltava {
    int rivi;
    int suku; // rank, -1 for Null: a missing name comes first
    int etu;
};

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

    Arvojarjestys nimet;
    std::vector<Lajiteltava> jarjestys;
    jarjestys.reserve(size_t(rivit.size()));
    for (int i = 0; i < rivit.size(); ++i) {
        const NimiRivi &r = rivit[i];
        jarjestys.push_back({i, r.onSukunimi ? nimet.lisaa(r.sukunimi) : -1, r.onEtunimi ? nimet.lisaa(r.etunimi) : -1});
    }
    const QVector<int> arvo = nimet.jarjesta();
    for (Lajiteltava &j : jarjestys) {
        j.suku = j.suku < 0 ? -1 : arvo[j.suku];
        j.etu = j.etu < 0 ? -1 : arvo[j.etu];
    }
    std::sort(jarjestys.begin(), jarjestys.end(), [&](const Lajiteltava &a, const Lajiteltava &b) {
        if (a.suku != b.suku)
            return a.suku < b.suku;
        if (a.etu != b.etu)
            return a.etu < b.etu;
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
