#include "members/Perhetarrat.h"

#include "reports/jasen/Tarrat.h"

#include <QStringList>

namespace {

struct Osoite {
    qint64 id = 0;
    QString nimi, osoite, postiosoite;
};

QString teksti(const QVariant &v) { return v.isNull() ? QString() : v.toString(); }

QVector<Osoite> valitut(db::Database &d, bool perheenLaskutettava)
{
    QVector<Osoite> v;
    db::Statement s(d, QStringLiteral("SELECT jrID, jrEtunimi, jrSukunimi, jrOsoite, jrPostinumero, jrPostitoimipaikka "
                                      "FROM jr WHERE jrMukaan = 1 AND coalesce(jrPerheenLaskutettava, 0) = ? ORDER BY jrID"),
                    {perheenLaskutettava ? 1 : 0});
    while (s.next())
        v.append({s.value(0).toLongLong(), (teksti(s.value(1)) + QLatin1Char(' ') + teksti(s.value(2))).trimmed(), teksti(s.value(3)),
                  teksti(s.value(4)) + QLatin1Char(' ') + teksti(s.value(5))});
    return v;
}

void otaPois(db::Database &d, qint64 id) { d.execute(QStringLiteral("UPDATE jr SET jrMukaan = 0 WHERE jrID = ?"), {id}); }

void lisaa(db::Database &d, const QString &nimi, const Osoite &o)
{
    cTarra t(d);
    t.setRivi(1, nimi);
    t.setRivi(2, o.osoite);
    t.setRivi(3, o.postiosoite);
    t.Save();
}

} // namespace

int TeePerhetarrat(db::Database &d)
{
    db::Transaction tx(d);
    cTarrat(d).Tyhjenna();
    int tarroja = 0;
    for (const Osoite &paa : valitut(d, true)) {
        // A head who is selected no longer is when an earlier family listed him as its member.
        if (!d.scalar(QStringLiteral("SELECT jrMukaan FROM jr WHERE jrID = ?"), {paa.id}).toBool())
            continue;
        QStringList nimet;
        QVector<qint64> jasenet;
        {
            db::Statement s(d, QStringLiteral("SELECT jr.jrID, jr.jrEtunimi, jr.jrSukunimi FROM jr, jrPerhe "
                                              "WHERE jr.jrMukaan = 1 AND jr.jrID = jrPerhe.jrPSubID AND jrPerhe.jrPMID = ? "
                                              "ORDER BY jrPerhe.jrPID"),
                            {paa.id});
            while (s.next()) {
                jasenet << s.value(0).toLongLong();
                nimet << (teksti(s.value(1)) + QLatin1Char(' ') + teksti(s.value(2))).trimmed();
            }
        }
        for (qint64 id : jasenet)
            otaPois(d, id);
        otaPois(d, paa.id);
        // A head not linked to his own family still gets his name on the label.
        lisaa(d, nimet.isEmpty() ? paa.nimi : nimet.join(QStringLiteral(", ")), paa);
        ++tarroja;
    }
    for (const Osoite &o : valitut(d, false)) {
        otaPois(d, o.id);
        lisaa(d, o.nimi, o);
        ++tarroja;
    }
    tx.commit();
    return tarroja;
}
