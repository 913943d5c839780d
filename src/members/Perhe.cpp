#include "members/Perhe.h"

#include "platform/arvot.h"

namespace {

const std::array<const char *, PerheLuokkia> Kentat = {"jrPAik",  "jrPNuor", "jrPLapsi", "jrPSis1",
                                                       "jrPSis2", "jrPSis3", "jrPSis4",  "jrPSis5"};
const std::array<const char *, PerheLuokkia> Otsikot = {"Aikuinen",  "Nuoriso",   "Lapsi",     "Sisarus 1",
                                                        "Sisarus 2", "Sisarus 3", "Sisarus 4", "Sisarus 5"};

QVariant tekstiTaiNull(const QString &t) { return t.isEmpty() ? QVariant() : QVariant(t); }

} // namespace

QString PerheLuokkaKentta(int i) { return QString::fromLatin1(Kentat.at(i)); }

QString PerheLuokkaOtsikko(int i) { return QString::fromLatin1(Otsikot.at(i)); }

PerhePaneeli LataaPerhe(db::Database &db, qint64 jrId, bool paa)
{
    PerhePaneeli p;
    if (paa) {
        db::Statement st(db,
                         QStringLiteral("SELECT p.jrPID, j.jrSukunimi, j.jrEtunimi FROM jrPerhe p JOIN jr j ON j.jrID = p.jrPSubID "
                                        "WHERE p.jrPMID = ? ORDER BY p.jrPID"),
                         {jrId});
        while (st.next())
            p.jasenet.append({st.value(0).toLongLong(), NullText(st.value(1)) + QLatin1Char(' ') + NullText(st.value(2))});
        return p;
    }
    db::Statement linkki(db, QStringLiteral("SELECT jrPID, jrPMID FROM jrPerhe WHERE jrPSubID = ? ORDER BY jrPID LIMIT 1"), {jrId});
    if (!linkki.next())
        return p;
    const qint64 jrPID = linkki.value(0).toLongLong();
    const QVariant paaId = linkki.value(1);
    linkki.next();
    db::Statement paaRivi(db, QStringLiteral("SELECT jrEtunimi, jrSukunimi FROM jr WHERE jrID = ?"), {paaId});
    if (paaRivi.next()) {
        p.perheenPaa = NullText(paaRivi.value(0)) + QLatin1Char(' ') + NullText(paaRivi.value(1));
        paaRivi.next();
    } else {
        db.execute(QStringLiteral("DELETE FROM jrPerhe WHERE jrPID = ?"), {jrPID});
    }
    return p;
}

PerheLuokat LueLuokat(db::Database &db, qint64 jrPID)
{
    PerheLuokat l{};
    QStringList sarakkeet;
    for (int i = 0; i < PerheLuokkia; ++i)
        sarakkeet << PerheLuokkaKentta(i);
    db::Statement st(db, QStringLiteral("SELECT %1 FROM jrPerhe WHERE jrPID = ?").arg(sarakkeet.join(QStringLiteral(", "))), {jrPID});
    if (st.next())
        for (int i = 0; i < PerheLuokkia; ++i)
            l[size_t(i)] = NullBoolean(st.value(i));
    return l;
}

void TallennaLuokat(db::Database &db, qint64 jrPID, const PerheLuokat &luokat)
{
    QStringList asetukset;
    db::Params arvot;
    for (int i = 0; i < PerheLuokkia; ++i) {
        asetukset << PerheLuokkaKentta(i) + QStringLiteral(" = ?");
        arvot << int(luokat[size_t(i)]);
    }
    arvot << jrPID;
    db.execute(QStringLiteral("UPDATE jrPerhe SET %1 WHERE jrPID = ?").arg(asetukset.join(QStringLiteral(", "))), arvot);
}

void LiitaPaaPerheeseen(db::Database &db, qint64 jrId)
{
    if (!db.scalar(QStringLiteral("SELECT 1 FROM jrPerhe WHERE jrPMID = ? AND jrPSubID = ?"), {jrId, jrId}).isValid())
        LisaaPerheeseen(db, jrId, jrId);
}

void PuraPerhe(db::Database &db, qint64 jrId) { db.execute(QStringLiteral("DELETE FROM jrPerhe WHERE jrPMID = ?"), {jrId}); }

qint64 LisaaPerheeseen(db::Database &db, qint64 paaId, qint64 jasenId)
{
    db.execute(QStringLiteral("INSERT INTO jrPerhe (jrPMID, jrPSubID, jrPAik, jrPNuor, jrPLapsi, jrPSis1, jrPSis2, jrPSis3, "
                              "jrPSis4, jrPSis5) VALUES (?, ?, 0, 0, 0, 0, 0, 0, 0, 0)"),
               {paaId, jasenId});
    return db.lastInsertId();
}

void PoistaPerheesta(db::Database &db, qint64 jrPID) { db.execute(QStringLiteral("DELETE FROM jrPerhe WHERE jrPID = ?"), {jrPID}); }

int MuutaPerheenOsoitteet(db::Database &db, qint64 jrId, bool paa, const PerheenOsoite &o)
{
    QVariant paaId = jrId;
    if (!paa) {
        paaId = db.scalar(QStringLiteral("SELECT jrPMID FROM jrPerhe WHERE jrPSubID = ? ORDER BY jrPID LIMIT 1"), {jrId});
        if (!paaId.isValid())
            return 0;
    }
    db::Transaction tx(db);
    const int n = db.execute(QStringLiteral("UPDATE jr SET jrOsoite = ?, jrPostinumero = ?, jrPostitoimipaikka = ?, jrMaa = ? "
                                            "WHERE jrID IN (SELECT jrPSubID FROM jrPerhe WHERE jrPMID = ?)"),
                             {tekstiTaiNull(o.osoite), tekstiTaiNull(o.postinumero), tekstiTaiNull(o.postitoimipaikka),
                              tekstiTaiNull(o.maa), paaId});
    tx.commit();
    return n;
}
