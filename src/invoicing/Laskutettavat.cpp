#include "invoicing/Laskutettavat.h"

#include "platform/arvot.h"

namespace {

const QString kJarjestys = QStringLiteral(" ORDER BY jr.jrSukunimi COLLATE FI, jr.jrEtunimi COLLATE FI, jr.jrID");

QVector<Laskutettava> lue(db::Database &db, const QString &sql, const db::Params &arvot = {})
{
    QVector<Laskutettava> tulos;
    db::Statement st(db, QStringLiteral("SELECT jr.jrID, jr.jrViitenumero FROM ") + sql + kJarjestys, arvot);
    while (st.next())
        tulos.append({NullLong(st.value(0)), NullText(st.value(1))});
    return tulos;
}

} // namespace

void RajaaPerheellisetPois(db::Database &db)
{
    db.execute(QStringLiteral("UPDATE jr SET jrMukaan = 1"));
    db.execute(QStringLiteral("UPDATE jr SET jrMukaan = 0 WHERE jrPerheenLaskutettava = 1"));
    db.execute(QStringLiteral("UPDATE jr SET jrMukaan = 0 WHERE jrID IN (SELECT jrPSubID FROM jrPerhe)"));
}

QVector<Laskutettava> Laskutettavat(db::Database &db, const LaskunSaajat &s)
{
    if (s.tunniste > 0)
        return lue(db, QStringLiteral("jr WHERE jr.jrID = ?"), {s.tunniste});

    if (s.tunniste == 0) {
        if (!s.chkEiPerheellisille)
            return lue(db, QStringLiteral("jr"));
        RajaaPerheellisetPois(db);
        return lue(db, QStringLiteral("jr WHERE jr.jrMukaan = 1"));
    }

    const qint64 piID = -s.tunniste;
    if (s.chkMuille) {
        if (s.chkEiPerheellisille)
            RajaaPerheellisetPois(db);
        else
            db.execute(QStringLiteral("UPDATE jr SET jrMukaan = 1"));
        db.execute(QStringLiteral("UPDATE jr SET jrMukaan = 0 WHERE jrID IN (SELECT ptjrID FROM pt WHERE ptpiID = ?)"),
                   {piID});
        return lue(db, QStringLiteral("jr WHERE jr.jrMukaan = 1"));
    }
    if (!s.chkEiPerheellisille)
        return lue(db, QStringLiteral("jr JOIN pt ON jr.jrID = pt.ptjrID WHERE pt.ptpiID = ?"), {piID});
    RajaaPerheellisetPois(db);
    return lue(db, QStringLiteral("jr JOIN pt ON jr.jrID = pt.ptjrID WHERE jr.jrMukaan = 1 AND pt.ptpiID = ?"), {piID});
}
