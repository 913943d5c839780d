// Backup with reorganisation, and the opening at start with its damage check, on a club of
// 100,000 members. The bare engine operations beside them give the floor.
#include "core/MainModule.h"
#include "core/Malli.h"
#include "core/Tietokanta.h"
#include "core/UpdateDatabase.h"
#include "platform/database.h"
#include "scripteddialogs.h"
#include "testenv.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <benchmark/benchmark.h>

namespace {

// Members with three years of invoices, their rows, attribute values and families.
const char *const kRivit = R"(
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 100000)
INSERT INTO jr (jrSukunimi, jrEtunimi, jrOsoite, jrPostinumero, jrPostitoimipaikka, jrPuhelin, jrMatkapuhelin, jrEmail,
  jrJasennumero, jrJasenmaksu, jrSyntyma, jrLiittyma, jrKatu, jrMuistio)
SELECT 'Sukunimi' || (i % 5000), 'Etunimi' || (i % 700), 'Mäkikatu ' || (i % 300) || ' B ' || (i % 40),
  printf('%05d', i % 99999), 'Jyväskylä', '014-' || i, '040-' || i, 'jasen' || i || '@esimerkki.fi', i, i % 2,
  '1970-01-01', '2000-01-01', 'Mäkikatu', CASE WHEN i % 10 = 0 THEN 'Muistiinpano jäsenestä ' || i END FROM n;
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 300000)
INSERT INTO jmhist (jmhjmID, jmhjmjrID, jmhjmLaskunumero, jmhjmLaskupaiva, jmhjmErapaiva, jmhjmViitenumero,
  jmhjmHinta, jmhjmTeksti, jmhjmOtsake, jmhjmMaksettu)
SELECT i, i % 100000 + 1, 1000 + i, '2023-01-15', '2023-02-15', '1000' || i, 250000, 'Jäsenmaksu', 'LASKU', i % 3 > 0 FROM n;
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 400000)
INSERT INTO jmRivi (jmRjmID, jmRPaiva, jmRHinta, jmRTeksti, jmRMaksettu, jmRjrID)
SELECT i * 3 / 4 + 1, '2023-01-15', 250000, 'Jäsenmaksu', 0, i % 100000 + 1 FROM n;
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 200000)
INSERT INTO pt (ptjrID, ptpiID, ptValLong) SELECT i % 100000 + 1, i % 20 + 1, i FROM n;
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20000)
INSERT INTO jrPerhe (jrPMID, jrPSubID) SELECT i * 5, i * 5 + 1 FROM n;
)";

struct Kerho {
    TestEnv env;
    ScriptedDialogs dialogit;
    QString kanta;

    Kerho()
    {
        QDir(env.root()).mkpath(QStringLiteral("varmuus"));
        kanta = env.path(QStringLiteral("kerho.mdb"));
        LuoMalliTietokanta(kanta);
        auto d = db::Database::open(kanta);
        UpdateDatabase(*d);
        db::Transaction t(*d);
        d->executeScript(QString::fromUtf8(kRivit));
        t.commit();
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
