// The register-information printout fills the table Rekisteritiedot for every member before it
// prints, and the family labels fill Tarra from the selection: both on the largest club. Each
// run works on its own copy of the generated club, since both write.
#include "members/Perhetarrat.h"
#include "members/Rekisteritiedot.h"
#include "platform/database.h"
#include "seurat.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

void BM_rekisteritiedot_kaikille(benchmark::State &state)
{
    QTemporaryDir kansio;
    const QString polku = seurat::Kopio(int(state.range(0)), kansio.filePath(QStringLiteral("seura.mdb")));
    auto d = db::Database::open(polku);
    const cRekisteritietovalinta kaikki{true, true, true, true};
    for (auto _ : state)
        TaytaRekisteritiedot(*d, kaikki);
    state.counters["jasenia"] = d->scalar(QStringLiteral("SELECT count(*) FROM Rekisteritiedot")).toDouble();
}
BENCHMARK(BM_rekisteritiedot_kaikille)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(1);

void BM_perhetarrat_kaikille(benchmark::State &state)
{
    QTemporaryDir kansio;
    const QString polku = seurat::Kopio(int(state.range(0)), kansio.filePath(QStringLiteral("seura.mdb")));
    auto d = db::Database::open(polku);
    int tarroja = 0;
    for (auto _ : state) {
        state.PauseTiming();
        d->execute(QStringLiteral("UPDATE jr SET jrMukaan = 1"));
        state.ResumeTiming();
        tarroja = TeePerhetarrat(*d);
    }
    state.counters["tarroja"] = tarroja;
}
BENCHMARK(BM_perhetarrat_kaikille)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
