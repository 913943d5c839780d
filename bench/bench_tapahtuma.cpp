// A write unit inside a run: 100,000 rows written each in its own nested transaction (a
// savepoint inside the run's transaction) beside the same rows written plainly in one.
#include "platform/database.h"
#include "testenv.h"

#include <benchmark/benchmark.h>

namespace {

std::unique_ptr<db::Database> uusiKanta(TestEnv &env)
{
    QFile::remove(env.path(QStringLiteral("t.db")));
    auto d = db::Database::create(env.path(QStringLiteral("t.db")));
    d->execute(QStringLiteral("CREATE TABLE rivi (id INTEGER PRIMARY KEY, nimi TEXT, summa INTEGER)"));
    return d;
}

void kirjoita(benchmark::State &state, bool sisakkain)
{
    TestEnv env;
    const int n = int(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto d = uusiKanta(env);
        state.ResumeTiming();
        db::Transaction ajo(*d);
        for (int i = 0; i < n; ++i) {
            if (sisakkain) {
                db::Transaction yksikko(*d);
                d->execute(QStringLiteral("INSERT INTO rivi (nimi, summa) VALUES (?, ?)"), {QStringLiteral("Aalto"), i});
                yksikko.commit();
            } else {
                d->execute(QStringLiteral("INSERT INTO rivi (nimi, summa) VALUES (?, ?)"), {QStringLiteral("Aalto"), i});
            }
        }
        ajo.commit();
    }
    state.SetItemsProcessed(state.iterations() * n);
}

void BM_Lisaykset(benchmark::State &state) { kirjoita(state, false); }
void BM_SisakkaisetYksikot(benchmark::State &state) { kirjoita(state, true); }

} // namespace

BENCHMARK(BM_Lisaykset)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_SisakkaisetYksikot)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(3);

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
