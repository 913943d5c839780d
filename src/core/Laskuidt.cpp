#include "core/Laskuidt.h"

#include "core/MainModule.h"
#include "platform/arvot.h"

long SuurinLaskunumero(db::Database &db)
{
    long suurin = 0;
    const QVariant historia = db.scalar(QStringLiteral("SELECT MAX(jmhjmLaskunumero) AS IsoNo FROM jmhist"));
    if (historia.isValid())
        suurin = long(NullLong(historia));
    const QVariant avoimet = db.scalar(QStringLiteral("SELECT MAX(jmLaskunumero) AS IsoNo FROM jm"));
    if (avoimet.isValid() && NullLong(avoimet) > suurin)
        suurin = long(NullLong(avoimet));
    return suurin;
}

long SuurinLaskunumero()
{
    auto db = db::Database::open(MainModule::DatabasePath);
    return SuurinLaskunumero(*db);
}

void VarmistaLaskuIdt(db::Database &db)
{
    // jmID doubles as the key of the invoice's rows, also after the move to history.
    const qint64 rivit = NullLong(db.scalar(QStringLiteral("SELECT MAX(jmRjmID) AS MAXjmRjmID FROM jmRivi")));
    const qint64 historia = NullLong(db.scalar(QStringLiteral("SELECT MAX(jmhjmID) FROM jmhist")));
    db.raiseSequence(QStringLiteral("jm"), std::max(rivit, historia));
}

void VarmistaLaskuIdt()
{
    auto db = db::Database::open(MainModule::DatabasePath);
    VarmistaLaskuIdt(*db);
}
