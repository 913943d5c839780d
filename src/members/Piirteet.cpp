#include "members/Piirteet.h"

#include "members/TyhjatRivit.h"
#include "platform/arvot.h"
#include "platform/recordset.h"

namespace {

const QString kirjaimet = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZÅÄÖ");

QVariant tekstiTaiNull(const QString &s) { return s.isEmpty() ? QVariant() : QVariant(s); }

} // namespace

QVector<ListaRivi> Maaritykset(db::Database &db, bool poistaTyhjat)
{
    if (poistaTyhjat)
        PoistaTyhjatPiirteet(db);
    QVector<ListaRivi> rivit;
    db::Statement st(db, QStringLiteral("SELECT piID, piNimi FROM pi ORDER BY piNimi COLLATE FI, piID"));
    while (st.next())
        rivit.append({st.value(0).toLongLong(), NullText(st.value(1))});
    return rivit;
}

int PiirteidenMaara(db::Database &db) { return int(NullLong(db.scalar(QStringLiteral("SELECT count(*) FROM pi")))); }

QVector<PuunKirjain> PiirrePuu(db::Database &db)
{
    QVector<PuunKirjain> puu;
    db::Statement st(db, QStringLiteral("SELECT piID, piNimi FROM pi ORDER BY piNimi COLLATE FI, piID"));
    while (st.next()) {
        if (st.value(1).isNull())
            break;
        const QString nimi = st.value(1).toString();
        const QString alku = nimi.left(1).toUpper();
        if (alku.isEmpty() || !kirjaimet.contains(alku))
            continue;
        if (puu.isEmpty() || puu.last().kirjain != alku)
            puu.append({alku, {}});
        puu.last().rivit.append({st.value(0).toLongLong(), nimi});
    }
    return puu;
}

bool NimiKelpaaPuuhun(const QString &nimi) { return nimi.isEmpty() || nimi.left(1).toUpper().at(0).unicode() >= 65; }

void PoistaPiirre(db::Database &db, qint64 piID)
{
    db::Transaction tx(db);
    db.execute(QStringLiteral("DELETE FROM pi WHERE piID = ?"), {piID});
    db.execute(QStringLiteral("DELETE FROM pt WHERE ptpiID = ?"), {piID});
    db.execute(QStringLiteral("DELETE FROM mt WHERE mtpiID = ?"), {piID});
    tx.commit();
}

int SiivoaVanhatOminaisuudet(db::Database &db)
{
    return db.execute(QStringLiteral("DELETE FROM pt WHERE NOT EXISTS (SELECT 1 FROM pi WHERE piID = pt.ptpiID)"));
}

std::optional<PiirreMaaritys> LueMaaritys(db::Database &db, qint64 piID)
{
    db::Statement st(db, QStringLiteral("SELECT * FROM pi WHERE piID = ?"), {piID});
    if (!st.next())
        return std::nullopt;
    PiirreMaaritys m;
    m.piID = piID;
    m.nimi = NullText(st.value(QStringLiteral("piNimi")));
    m.kuvaus = NullText(st.value(QStringLiteral("piKuvaus")));
    for (ArvoTyyppi t : KaikkiTyypit) {
        m.kaytossa[size_t(t)] = NullBoolean(st.value(KaytossaSarake(t)));
        m.oletus[size_t(t)] = st.value(OletusSarake(t));
    }
    return m;
}

MaaritysNakyma LueMaaritysRivi(const db::Recordset &rs)
{
    MaaritysNakyma n;
    n.lomake.tNimi = NullText(rs.value(QStringLiteral("piNimi")));
    n.lomake.tKuvaus = NullText(rs.value(QStringLiteral("piKuvaus")));
    n.lomake.tDate = ArvoTekstiksi(ArvoTyyppi::Paiva, rs.value(QStringLiteral("piDate")));
    n.lomake.tLong = ArvoTekstiksi(ArvoTyyppi::Luku, rs.value(QStringLiteral("piLong")));
    n.lomake.tCurrency = ArvoTekstiksi(ArvoTyyppi::Raha, rs.value(QStringLiteral("piCurrency")));
    n.lomake.tMemo = NullText(rs.value(QStringLiteral("piMemo")));
    for (ArvoTyyppi t : KaikkiTyypit) {
        const QVariant v = rs.value(KaytossaSarake(t));
        if (v.isValid() && !v.isNull())
            n.kaytossa[size_t(t)] = NullBoolean(v);
    }
    return n;
}

void KirjoitaMaaritysRivi(db::Recordset &rs, const MaaritysLomake &l)
{
    rs.setValue(QStringLiteral("piNimi"), tekstiTaiNull(l.tNimi));
    rs.setValue(QStringLiteral("piKuvaus"), tekstiTaiNull(l.tKuvaus));
    rs.setValue(QStringLiteral("piDate"), TekstiArvoksi(ArvoTyyppi::Paiva, l.tDate));
    rs.setValue(QStringLiteral("piLong"), TekstiArvoksi(ArvoTyyppi::Luku, l.tLong));
    rs.setValue(QStringLiteral("piCurrency"), TekstiArvoksi(ArvoTyyppi::Raha, l.tCurrency));
    rs.setValue(QStringLiteral("piMemo"), TekstiArvoksi(ArvoTyyppi::Muistio, l.tMemo));
}
