#include "members/JasenenPiirteet.h"

#include "platform/arvot.h"
#include "core/Schema.h"

#include <QStringList>

QVector<ListaRivi> JasenenPiirteet(db::Database &db, qint64 jrID)
{
    // The stored join leaves out the attachments whose definition is gone.
    QVector<ListaRivi> rivit;
    db::Statement st(db,
                     QStringLiteral("SELECT ptID, piNimi FROM %1 WHERE ptjrID = ? ORDER BY ptID").arg(QLatin1String(Schema::PiirteetNimi)),
                     {jrID});
    while (st.next())
        rivit.append({st.value(0).toLongLong(), NullText(st.value(1))});
    return rivit;
}

qint64 LiitaPiirre(db::Database &db, qint64 jrID, qint64 piID)
{
    const auto m = LueMaaritys(db, piID);
    if (!m)
        return 0;
    QStringList sarakkeet{QStringLiteral("ptpiID"), QStringLiteral("ptjrID")};
    db::Params arvot{piID, jrID};
    for (ArvoTyyppi t : KaikkiTyypit) {
        const auto i = size_t(t);
        if (m->kaytossa[i] && m->oletus[i].isValid() && !m->oletus[i].isNull()) {
            sarakkeet << ArvoSarake(t);
            arvot << m->oletus[i];
        }
    }
    db.execute(QStringLiteral("INSERT INTO pt (%1) VALUES (%2)")
                   .arg(sarakkeet.join(QLatin1Char(',')), QStringList(sarakkeet.size(), QStringLiteral("?")).join(QLatin1Char(','))),
               arvot);
    return db.lastInsertId();
}

PiirreNakyma LuePiirre(db::Database &db, qint64 ptID)
{
    PiirreNakyma n;
    db::Statement st(db, QStringLiteral("SELECT * FROM pt WHERE ptID = ?"), {ptID});
    if (!st.next())
        return n;
    n.loytyi = true;
    const auto m = LueMaaritys(db, NullLong(st.value(QStringLiteral("ptpiID"))));
    if (!m)
        return n;
    n.maaritys = true;
    n.kuvaus = m->kuvaus;
    for (ArvoTyyppi t : KaikkiTyypit) {
        const auto i = size_t(t);
        n.arvot.kaytossa[i] = m->kaytossa[i];
        if (m->kaytossa[i])
            n.arvot.teksti[i] = ArvoTekstiksi(t, st.value(ArvoSarake(t)));
    }
    return n;
}

TallennettavatArvot TallennaPiirreArvo(db::Database &db, qint64 ptID, const ArvoSyote &syote)
{
    const TallennettavatArvot a = Tallennettaviksi(syote);
    QStringList asetukset;
    db::Params arvot;
    for (ArvoTyyppi t : KaikkiTyypit) {
        if (a.kaytossa[size_t(t)]) {
            asetukset << ArvoSarake(t) + QStringLiteral(" = ?");
            arvot << a.arvo[size_t(t)];
        }
    }
    if (!asetukset.isEmpty()) {
        arvot << ptID;
        db.execute(QStringLiteral("UPDATE pt SET %1 WHERE ptID = ?").arg(asetukset.join(QStringLiteral(", "))), arvot);
    }
    return a;
}

void PoistaLiitos(db::Database &db, qint64 ptID) { db.execute(QStringLiteral("DELETE FROM pt WHERE ptID = ?"), {ptID}); }
