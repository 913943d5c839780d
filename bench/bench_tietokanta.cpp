// Backup with reorganisation, and the opening at start with its damage check, on a club of
// 100,000 members. The bare engine operations beside them give the floor.
#include "core/MainModule.h"
#include "core/Avaus.h"
#include "core/Varmuuskopio.h"
#include "platform/database.h"
#include "scripteddialogs.h"
#include "seurat.h"
#include "testenv.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <benchmark/benchmark.h>

namespace {

struct Kerho {
    TestEnv env;
    ScriptedDialogs dialogit;
    QString kanta;

    Kerho()
    {
        QDir(env.root()).mkpath(QStringLiteral("varmuus"));
        kanta = seurat::Kopio(100000, env.path(QStringLiteral("kerho.mdb")));
        MainModule::DatabasePath = kanta;
        MainModule::BackupPath = env.path(QStringLiteral("varmuus/"));
    }
};

Kerho &kerho()
{
    static Kerho k;
    return k;
}

void BM_VarmuuskopioJaUudelleenjarjestely(benchmark::State &state)
{
    Kerho &k = kerho();
    for (auto _ : state) {
        if (!TeeVarmuuskopio())
            state.SkipWithError("backup failed");
        k.dialogit.shown.clear();
    }
    state.counters["MB"] = double(QFileInfo(k.kanta).size()) / 1e6;
}
BENCHMARK(BM_VarmuuskopioJaUudelleenjarjestely)->Unit(benchmark::kMillisecond)->Iterations(3);

// The floor: one snapshot of the file by the engine, of which the backup takes two.
void BM_PelkkaVacuumInto(benchmark::State &state)
{
    Kerho &k = kerho();
    const QString kohde = k.env.path(QStringLiteral("pelkka.mdb"));
    for (auto _ : state) {
        QFile::remove(kohde);
        auto d = db::Database::open(k.kanta);
        d->execute(QStringLiteral("VACUUM INTO ?"), {kohde});
    }
}
BENCHMARK(BM_PelkkaVacuumInto)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_AvausKaynnistyksessa(benchmark::State &state)
{
    kerho();
    for (auto _ : state) {
        bool lopeta = false;
        auto d = AvaaTietokantaKaynnistyksessa(lopeta);
        if (!d)
            state.SkipWithError("open failed");
    }
}
BENCHMARK(BM_AvausKaynnistyksessa)->Unit(benchmark::kMillisecond)->Iterations(5);

// The floor: an open and the schema read without the damage check.
void BM_PelkkaAvaus(benchmark::State &state)
{
    Kerho &k = kerho();
    for (auto _ : state)
        benchmark::DoNotOptimize(db::Database::open(k.kanta));
}
BENCHMARK(BM_PelkkaAvaus)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
