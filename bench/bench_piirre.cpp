// Attributes for the whole register at once: attaching an attribute by birth date to every member
// of the 100,000-member club (goal 2 s), with and without the repeat guard, and to 100,000
// hand-picked members, and the member list of the hand-picking dialog. Beside them the bare SQLite lower bound: the same rows written by one
// INSERT … SELECT in one transaction.
#include "members/PiirreJoukko.h"
#include "seurat.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace {

constexpr int Suuri = 100000;

struct Kerho {
    QTemporaryDir kansio;
    std::unique_ptr<db::Database> d;
    qint64 piID = 0;

    Kerho()
    {
        d = db::Database::open(seurat::Kopio(Suuri, kansio.filePath(QStringLiteral("seura.mdb"))));
        d->execute(QStringLiteral("INSERT INTO pi (piNimi, piEnbldDate, piEnbldLong, piEnbldCurrency, piEnbldMemo) "
                                  "VALUES ('Kausi 2027', 1, 1, 1, 1)"));
        piID = d->lastInsertId();
    }
    // Takes the run's rows away again, outside the timing.
    void siivoa() { d->execute(QStringLiteral("DELETE FROM pt WHERE ptpiID = ?"), {piID}); }
};

ArvoSyote arvot()
{
    ArvoSyote s;
    s.kaytossa = {true, true, true, true};
    s.teksti = {QStringLiteral("31.12.2027"), QStringLiteral("1"), QStringLiteral("45,00"), QStringLiteral("Kausi")};
    return s;
}

void BM_LisaaSyntymapaivanPerusteella(benchmark::State &state)
{
    Kerho k;
    const bool vainUusille = state.range(0) != 0;
    int lisatty = 0;
    for (auto _ : state) {
        lisatty = LisaaSyntymapaivanPerusteella(*k.d, k.piID, QDate(1900, 1, 1), QDate(2100, 12, 31), arvot(), vainUusille).lisatty;
        state.PauseTiming();
        k.siivoa();
        state.ResumeTiming();
    }
    state.counters["liitoksia"] = lisatty;
    state.SetLabel(vainUusille ? "vain uusille" : "kaikille");
}
BENCHMARK(BM_LisaaSyntymapaivanPerusteella)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_Moniliitos(benchmark::State &state)
{
    Kerho k;
    QVector<qint64> jasenet;
    for (const ListaRivi &r : JasenLista(*k.d))
        jasenet.append(r.id);
    int lisatty = 0;
    for (auto _ : state) {
        lisatty = Moniliitos(*k.d, k.piID, jasenet, arvot(), true).lisatty;
        state.PauseTiming();
        k.siivoa();
        state.ResumeTiming();
    }
    state.counters["liitoksia"] = lisatty;
}
BENCHMARK(BM_Moniliitos)->Unit(benchmark::kMillisecond)->UseRealTime();

// Opening the hand-picking dialog reads every member by name for its list.
void BM_JasenLista(benchmark::State &state)
{
    Kerho k;
    qsizetype rivit = 0;
    for (auto _ : state)
        rivit = JasenLista(*k.d).size();
    state.counters["jasenia"] = double(rivit);
}
BENCHMARK(BM_JasenLista)->Unit(benchmark::kMillisecond)->UseRealTime();

// The same rows by bare SQLite: one INSERT … SELECT over the members with a birth date.
void BM_LisaaSyntymapaivanPerusteella_alaraja(benchmark::State &state)
{
    Kerho k;
    sqlite3 *h = k.d->handle();
    int lisatty = 0;
    for (auto _ : state) {
        sqlite3_exec(h, "BEGIN", nullptr, nullptr, nullptr);
        sqlite3_stmt *st = nullptr;
        sqlite3_prepare_v2(h,
                           "INSERT INTO pt (ptpiID, ptjrID, ptValDate, ptValLong, ptValCurrency, ptValMemo) "
                           "SELECT ?, jrID, '2027-12-31', 1, 450000, 'Kausi' FROM jr "
                           "WHERE jrSyntyma >= '1900-01-01' AND jrSyntyma <= '2100-12-31'",
                           -1, &st, nullptr);
        sqlite3_bind_int64(st, 1, k.piID);
        sqlite3_step(st);
        sqlite3_finalize(st);
        lisatty = sqlite3_changes(h);
        sqlite3_exec(h, "COMMIT", nullptr, nullptr, nullptr);
        state.PauseTiming();
        k.siivoa();
        state.ResumeTiming();
    }
    state.counters["liitoksia"] = lisatty;
}
BENCHMARK(BM_LisaaSyntymapaivanPerusteella_alaraja)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
