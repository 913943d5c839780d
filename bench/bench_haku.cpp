// Finding a member in the largest register: the name search of the name-search dialog, a typed
// member number, and the drop-down lists of the basic search. The name
// search has a bare SQLite lower bound beside it (the built-in ASCII LIKE over the same rows).
#include "members/Jasenhaku.h"
#include "seurat.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace {

constexpr int Suuri = 100000;

struct Seura {
    QTemporaryDir dir;
    QString polku;
    Seura() : polku(seurat::Kopio(Suuri, dir.filePath(QStringLiteral("seura.mdb")))) {}
};

Seura &seura()
{
    static Seura s;
    return s;
}

// A part of a common surname, as a user types it: some 9,000 members match.
void BM_Nimihaku(benchmark::State &state)
{
    auto db = db::Database::open(seura().polku);
    qsizetype loydetty = 0;
    for (auto _ : state)
        loydetty = Jasenhaku::Nimella(*db, QStringLiteral("virta"), {}).size();
    state.counters["löytyi"] = double(loydetty);
}
BENCHMARK(BM_Nimihaku)->Unit(benchmark::kMillisecond);

// Both names, one with Finnish letters.
void BM_Nimihaku_molemmat(benchmark::State &state)
{
    auto db = db::Database::open(seura().polku);
    qsizetype loydetty = 0;
    for (auto _ : state)
        loydetty = Jasenhaku::Nimella(*db, QStringLiteral("nen"), QStringLiteral("mä")).size();
    state.counters["löytyi"] = double(loydetty);
}
BENCHMARK(BM_Nimihaku_molemmat)->Unit(benchmark::kMillisecond);

// One letter: a large part of the register comes back and is made into list rows.
void BM_Nimihaku_laaja(benchmark::State &state)
{
    auto db = db::Database::open(seura().polku);
    qsizetype loydetty = 0;
    for (auto _ : state)
        loydetty = Jasenhaku::Nimella(*db, QStringLiteral("a"), {}).size();
    state.counters["löytyi"] = double(loydetty);
}
BENCHMARK(BM_Nimihaku_laaja)->Unit(benchmark::kMillisecond);

// Bare SQLite, its own ASCII LIKE, the same scan of the surnames: no search can do less.
void BM_Nimihaku_alaraja(benchmark::State &state)
{
    const QByteArray polku = seura().polku.toUtf8();
    sqlite3 *h = nullptr;
    sqlite3_open_v2(polku.constData(), &h, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt *st = nullptr;
    sqlite3_prepare_v2(h, "SELECT jrID, jrSukunimi, jrEtunimi, jrPostitoimipaikka FROM jr WHERE jrSukunimi LIKE '%virta%'", -1,
                       &st, nullptr);
    int rivit = 0;
    for (auto _ : state) {
        rivit = 0;
        while (sqlite3_step(st) == SQLITE_ROW)
            rivit += sqlite3_column_bytes(st, 1) > 0;
        sqlite3_reset(st);
    }
    sqlite3_finalize(st);
    sqlite3_close_v2(h);
    state.counters["löytyi"] = double(rivit);
}
BENCHMARK(BM_Nimihaku_alaraja)->Unit(benchmark::kMillisecond);

void BM_Jasennumerolla(benchmark::State &state)
{
    auto db = db::Database::open(seura().polku);
    for (auto _ : state)
        benchmark::DoNotOptimize(Jasenhaku::Jasennumerolla(*db, QStringLiteral("54321")));
}
BENCHMARK(BM_Jasennumerolla)->Unit(benchmark::kMicrosecond);

// The basic search reads each drop-down list at its first use (popup or first letter typed):
// the delay of that first use, list by list.
void BM_PerushaunLista(benchmark::State &state)
{
    static const char *const sarakkeet[] = {"jrJasennumero", "jrOsoite", "jrPuhelin", "jrMatkapuhelin", "jrEmail", nullptr};
    const char *sarake = sarakkeet[state.range(0)];
    auto db = db::Database::open(seura().polku);
    qsizetype rivit = 0;
    for (auto _ : state)
        rivit = sarake ? Jasenhaku::Arvot(*db, QLatin1String(sarake)).size() : Jasenhaku::MuistioAlut(*db).size();
    state.SetLabel(sarake ? sarake : "muistion alut");
    state.counters["riviä"] = double(rivit);
}
BENCHMARK(BM_PerushaunLista)->DenseRange(0, 5)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
