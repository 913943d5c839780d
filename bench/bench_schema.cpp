// The upgrade runs at every start: on a current file of the largest club it must cost next to
// nothing. The lower bound beside it is one bare read of the schema table.
#include "core/Malli.h"
#include "core/UpdateDatabase.h"
#include "platform/database.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

struct Kerho {
    QTemporaryDir kansio;
    std::unique_ptr<db::Database> d;

    explicit Kerho(int jasenia)
    {
        const QString polku = kansio.path() + QStringLiteral("/kerho.mdb");
        LuoMalliTietokanta(polku);
        d = db::Database::open(polku);
        UpdateDatabase(*d);
        db::Transaction tx(*d);
        db::Statement lisays(*d, QStringLiteral("INSERT INTO jr (jrSukunimi, jrEtunimi, jrJasennumero, jrJasenmaksu) "
                                                "VALUES (?, ?, ?, 1)"),
                             {QString(), QString(), QString()});
        for (int i = 1; i <= jasenia; ++i) {
            lisays.reset({QStringLiteral("Sukunimi%1").arg(i % 997), QStringLiteral("Etunimi%1").arg(i % 89), QString::number(i)});
            lisays.next();
        }
        tx.commit();
    }
};

void BM_UpdateDatabase_ajantasainen(benchmark::State &state)
{
    Kerho k(int(state.range(0)));
    for (auto _ : state)
        UpdateDatabase(*k.d);
}
BENCHMARK(BM_UpdateDatabase_ajantasainen)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

void BM_TietokantaOnAjantasalla(benchmark::State &state)
{
    Kerho k(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(TietokantaOnAjantasalla(*k.d));
}
BENCHMARK(BM_TietokantaOnAjantasalla)->Arg(100000)->Unit(benchmark::kMicrosecond);

void BM_alaraja_skeemanLuku(benchmark::State &state)
{
    Kerho k(int(state.range(0)));
    for (auto _ : state) {
        db::Statement st(*k.d, QStringLiteral("SELECT type, name, tbl_name, sql FROM sqlite_master"));
        while (st.next())
            benchmark::DoNotOptimize(st.value(3));
    }
}
BENCHMARK(BM_alaraja_skeemanLuku)->Arg(100000)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
