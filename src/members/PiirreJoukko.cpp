#include "members/PiirreJoukko.h"

#include "members/TyhjatRivit.h"
#include "platform/arvot.h"

namespace {

const QString lisaysSarakkeet =
    QStringLiteral("INSERT INTO pt (ptpiID, ptjrID, ptValDate, ptValLong, ptValCurrency, ptValMemo) ");
// The repeat guard: ?1 is the attribute, and the member is `jasen` (an SQL expression). The
// member's own rows are few and the attribute's may be a whole register, so the look-up goes by
// member ("+" keeps the attribute's index out of it).
QString toistoEhto(const QString &jasen)
{
    return QStringLiteral("NOT EXISTS (SELECT 1 FROM jr j2, pt p2 WHERE j2.jrID = %1 AND p2.ptjrID = j2.jrID AND +p2.ptpiID = ?1)")
        .arg(jasen);
}

db::Params arvoParametrit(qint64 piID, const TallennettavatArvot &a)
{
    db::Params p{piID};
    for (const QVariant &v : a.arvo)
        p << v;
    return p;
}

qint64 riveja(db::Database &db) { return NullLong(db.scalar(QStringLiteral("SELECT count(*) FROM pt"))); }

LiitosTulos tulos(int lisatty, const TallennettavatArvot &a)
{
    LiitosTulos t;
    t.lisatty = lisatty;
    // A box is emptied when the first attachment is written with it; with none written it stays.
    if (lisatty > 0)
        t.tyhjenna = a.tyhjenna;
    return t;
}

} // namespace

QVector<ListaRivi> JasenLista(db::Database &db)
{
    PoistaTyhjatJasenet(db);
    QVector<ListaRivi> rivit;
    db::Statement st(db, QStringLiteral("SELECT jrID, jrSukunimi, jrEtunimi FROM jr "
                                        "ORDER BY jrSukunimi COLLATE FI, jrEtunimi COLLATE FI, jrID"));
    while (st.next())
        rivit.append({st.value(0).toLongLong(), NullText(st.value(1)) + QLatin1Char(' ') + NullText(st.value(2))});
    return rivit;
}

LiitosTulos Moniliitos(const Ajo &ajo, qint64 piID, const QVector<qint64> &jasenet, const ArvoSyote &arvot,
                       bool vainUusille)
{
    db::Database &db = ajo.kanta;
    const TallennettavatArvot a = Tallennettaviksi(arvot);
    // ?1 attribute, ?2–?5 the values, ?6 the member.
    QString sql = lisaysSarakkeet + QStringLiteral("SELECT ?1, ?6, ?2, ?3, ?4, ?5");
    if (vainUusille)
        sql += QStringLiteral(" WHERE ") + toistoEhto(QStringLiteral("?6"));
    db::Params p = arvoParametrit(piID, a);
    p << QVariant(qlonglong(0));
    db::Transaction tx(db);
    const qint64 ennen = riveja(db);
    db::Statement lisays(db, sql, p);
    for (qsizetype i = 0; i < jasenet.size(); ++i) {
        ajo.askel(i, jasenet.size());
        p[5] = qlonglong(jasenet[i]);
        lisays.reset(p);
        lisays.next();
    }
    const int lisatty = int(riveja(db) - ennen);
    tx.commit();
    return tulos(lisatty, a);
}

LiitosTulos LisaaSyntymapaivanPerusteella(const Ajo &ajo, qint64 piID, const QDate &vanhin, const QDate &nuorin,
                                          const ArvoSyote &arvot, bool vainUusille)
{
    db::Database &db = ajo.kanta;
    const TallennettavatArvot a = Tallennettaviksi(arvot);
    db::Params p = arvoParametrit(piID, a);
    // Whole days: a birth date is a day, whatever time of day a file may carry with it.
    QStringList ehdot;
    if (vanhin.isValid()) {
        p << DbPaiva(vanhin);
        ehdot << QStringLiteral("date(jrSyntyma) >= ?%1").arg(p.size());
    }
    if (nuorin.isValid()) {
        p << DbPaiva(nuorin);
        ehdot << QStringLiteral("date(jrSyntyma) <= ?%1").arg(p.size());
    }
    if (ehdot.isEmpty())
        return {};
    if (vainUusille)
        ehdot << toistoEhto(QStringLiteral("jr.jrID"));
    KantaVahti vahti(db, ajo.edistyminen);
    db::Transaction tx(db);
    const int lisatty = db.execute(lisaysSarakkeet + QStringLiteral("SELECT ?1, jrID, ?2, ?3, ?4, ?5 FROM jr WHERE ")
                                       + ehdot.join(QStringLiteral(" AND ")) + QStringLiteral(" ORDER BY jrID"),
                                   p);
    tx.commit();
    return tulos(lisatty, a);
}

int PoistaOminaisuus(const Ajo &ajo, qint64 poistettava, qint64 ehto)
{
    db::Database &db = ajo.kanta;
    KantaVahti vahti(db, ajo.edistyminen);
    db::Transaction tx(db);
    const int jasenia = int(NullLong(db.scalar(
        QStringLiteral("SELECT count(*) FROM jr, pt WHERE pt.ptjrID = jr.jrID AND pt.ptpiID = ?"), {ehto})));
    db.execute(QStringLiteral("DELETE FROM pt WHERE ptpiID = ?1 AND ptjrID IN "
                              "(SELECT p2.ptjrID FROM jr, pt p2 WHERE p2.ptjrID = jr.jrID AND p2.ptpiID = ?2)"),
               {poistettava, ehto});
    tx.commit();
    return jasenia;
}

void YhdistaOminaisuus(const Ajo &ajo, qint64 yhdistettava, qint64 kohde)
{
    db::Database &db = ajo.kanta;
    KantaVahti vahti(db, ajo.edistyminen);
    db::Transaction tx(db);
    db.execute(QStringLiteral("UPDATE pt SET ptpiID = ? WHERE ptpiID = ?"), {kohde, yhdistettava});
    tx.commit();
}
