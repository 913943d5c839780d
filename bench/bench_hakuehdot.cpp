// The selection flags of the largest register: thirty attributes with JA and the usual filters
// within a second. The lower bound beside it is one bare pass that sets the flag of every member.
#include "core/Malli.h"
#include "core/UpdateDatabase.h"
#include "members/Hakuehdot.h"
#include "platform/database.h"

#include <QDate>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int Ominaisuuksia = 30;

// Members with postal codes, birth dates and fee flags; each holds a few of thirty attributes,
// and every fiftieth holds them all, so the JA finds someone.
struct Kerho {
    QTemporaryDir kansio;
    std::unique_ptr<db::Database> d;

    explicit Kerho(int jasenia)
    {
        const QString polku = kansio.path() + QStringLiteral("/kerho.mdb");
        LuoMalliTietokanta(polku);
        d = db::Database::open(polku);
        UpdateDatabase(*d);
        QRandomGenerator r(7);
        db::Transaction tx(*d);
        for (int pi = 1; pi <= Ominaisuuksia; ++pi)
            d->execute(QStringLiteral("INSERT INTO pi (piID, piNimi) VALUES (?, ?)"), {pi, QStringLiteral("Ominaisuus %1").arg(pi)});
        db::Statement jasen(*d, QStringLiteral("INSERT INTO jr (jrID, jrSukunimi, jrPostinumero, jrSyntyma, "
                                               "jrJasenmaksu, jrPerheenLaskutettava) VALUES (?, ?, ?, ?, ?, ?)"),
                            {0, QString(), QString(), QString(), 0, 0});
        db::Statement piirre(*d, QStringLiteral("INSERT INTO pt (ptjrID, ptpiID, ptValLong) VALUES (?, ?, ?)"), {0, 0, 0});
        for (int id = 1; id <= jasenia; ++id) {
            const QDate synt = QDate(1930, 1, 1).addDays(r.bounded(30000));
            jasen.reset({id, QStringLiteral("Sukunimi%1").arg(id % 997), QStringLiteral("%1").arg(r.bounded(100000), 5, 10, QLatin1Char('0')),
                         synt.toString(Qt::ISODate), int(r.bounded(4) != 0), int(r.bounded(3) == 0)});
            jasen.next();
            const int maara = id % 50 == 0 ? Ominaisuuksia : int(r.bounded(6));
            for (int k = 0; k < maara; ++k) {
                piirre.reset({id, id % 50 == 0 ? k + 1 : 1 + int(r.bounded(Ominaisuuksia)), int(r.bounded(100))});
                piirre.next();
            }
        }
        tx.commit();
    }
};

void BM_AsetaMukaan_JA30(benchmark::State &state)
{
    Kerho k(int(state.range(0)));
    HakuParametrit p;
    for (int i = 0; i < Ominaisuuksia; ++i)
        p.ValitutOminaisuudet[i] = i + 1;
    p.bOminAnd = true;
    p.lJasenmaksunTila = 0;
    p.dateSynt = QStringLiteral("1.1.1990");
    p.eqSynt = 0;
    p.lPostinumeroAlku = QStringLiteral("10000");
    p.lPostinumeroLoppu = QStringLiteral("89999");
    for (auto _ : state)
        AsetaMukaan(*k.d, p);
    state.counters["valitut"] = k.d->scalar(QStringLiteral("SELECT COUNT(*) FROM jr WHERE jrMukaan = 1")).toDouble();
}
BENCHMARK(BM_AsetaMukaan_JA30)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_alaraja_yksiKierros(benchmark::State &state)
{
    Kerho k(int(state.range(0)));
    for (auto _ : state) {
        db::Transaction tx(*k.d);
        k.d->execute(QStringLiteral("UPDATE jr SET jrMukaan = 1"));
        tx.commit();
    }
}
BENCHMARK(BM_alaraja_yksiKierros)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
