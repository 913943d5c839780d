#include "members/TyhjatRivit.h"

#include "members/Jasen.h"

#include <QStringList>

namespace {

QString tyhjaEhto(const QStringList &tekstit, const QStringList &liput)
{
    QStringList ehdot;
    for (const QString &k : tekstit)
        ehdot << QStringLiteral("IFNULL(%1, '') = ''").arg(k);
    for (const QString &k : liput)
        ehdot << QStringLiteral("IFNULL(%1, 0) = 0").arg(k);
    return ehdot.join(QStringLiteral(" AND "));
}

} // namespace

void PoistaTyhjatJasenet(db::Database &db)
{
    QStringList tekstit;
    for (int i = 0; i < YhteystietoMaara; ++i)
        tekstit << YhteystietoKentta(i);
    tekstit << QStringLiteral("jrMuistio");
    static const QString sql = QStringLiteral("DELETE FROM jr WHERE ")
        + tyhjaEhto(tekstit, {QStringLiteral("jrJasenmaksu"), QStringLiteral("jrEmailLasku"),
                              QStringLiteral("jrPerheenLaskutettava")})
        + QStringLiteral(" AND NOT EXISTS (SELECT 1 FROM pt WHERE ptjrID = jrID)");
    db.execute(sql);
}

void PoistaTyhjatPiirteet(db::Database &db)
{
    static const QString sql = QStringLiteral("DELETE FROM pi WHERE ")
        + tyhjaEhto({QStringLiteral("piNimi"), QStringLiteral("piKuvaus"), QStringLiteral("piMemo"),
                     QStringLiteral("piCurrency"), QStringLiteral("piDate"), QStringLiteral("piLong")},
                    {QStringLiteral("piEnbldCurrency"), QStringLiteral("piEnbldDate"), QStringLiteral("piEnbldLong"),
                     QStringLiteral("piEnbldMemo")})
        + QStringLiteral(" AND NOT EXISTS (SELECT 1 FROM pt WHERE ptpiID = piID)");
    db.execute(sql);
}

void PoistaTyhjatRivit(db::Database &db)
{
    PoistaTyhjatJasenet(db);
    PoistaTyhjatPiirteet(db);
}
