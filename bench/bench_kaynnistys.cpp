// Start-up with the largest registers: opening a current database, the upgrade check and reading
// the settings; and generating the 100,000-member club that the benchmarks use. Each has a bare
// SQLite lower bound beside it ("..._alaraja"), so the figures read as ratios.
#include "core/Asetukset.h"
#include "esittely/Esittelyseura.h"
#include "core/Malli.h"
#include "core/UpdateDatabase.h"
#include "seurat.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <variant>

namespace {

constexpr int Suuri = 100000;

void poista(const QString &polku)
{
    for (const char *liite : {"", "-wal", "-shm"})
        QFile::remove(polku + QLatin1String(liite));
}

// Opening at start: open, the upgrade on a current database, the settings, close.
void BM_Kaynnistys(benchmark::State &state)
{
    QTemporaryDir dir;
    const QString polku = seurat::Kopio(Suuri, dir.filePath(QStringLiteral("seura.mdb")));
    for (auto _ : state) {
        auto db = db::Database::open(polku);
        UpdateDatabase(*db);
        LueAsetukset(*db);
    }
    state.SetLabel("100 000 jäsentä");
}
BENCHMARK(BM_Kaynnistys)->Unit(benchmark::kMillisecond);

// The least any start can do: open the file with bare SQLite, read the schema and every setting.
void BM_Kaynnistys_alaraja(benchmark::State &state)
{
    QTemporaryDir dir;
    const QByteArray polku = seurat::Kopio(Suuri, dir.filePath(QStringLiteral("seura.mdb"))).toUtf8();
    for (auto _ : state) {
        sqlite3 *h = nullptr;
        sqlite3_open_v2(polku.constData(), &h, SQLITE_OPEN_READWRITE, nullptr);
        sqlite3_stmt *st = nullptr;
        sqlite3_prepare_v2(h, "SELECT setKey, setString FROM Settings WHERE setSection = 'VONARI'", -1, &st, nullptr);
        int rivit = 0;
        while (sqlite3_step(st) == SQLITE_ROW)
            rivit += sqlite3_column_bytes(st, 1) >= 0;
        benchmark::DoNotOptimize(rivit);
        sqlite3_finalize(st);
        sqlite3_close_v2(h);
    }
}
BENCHMARK(BM_Kaynnistys_alaraja)->Unit(benchmark::kMillisecond);

// The generator's whole road for 100,000 members: template, upgrade, the club in one transaction.
void BM_LuoSeura(benchmark::State &state)
{
    QTemporaryDir dir;
    const QString polku = dir.filePath(QStringLiteral("uusi.mdb"));
    for (auto _ : state) {
        seurat::Rakenna(polku, int(state.range(0)));
        state.PauseTiming();
        poista(polku);
        state.ResumeTiming();
    }
    state.counters["jäsentä/s"] = benchmark::Counter(double(state.range(0)), benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(BM_LuoSeura)->Arg(Suuri)->Iterations(2)->Unit(benchmark::kMillisecond);

// The same rows of every table written by bare SQLite in one transaction into the same schema.
using Arvo = std::variant<std::monostate, qint64, double, QByteArray>;
struct Taulu {
    QByteArray insert;
    int sarakkeita = 0;
    std::vector<std::vector<Arvo>> rivit;
};

struct Valmiit {
    QList<QByteArray> rakenne;
    std::vector<Taulu> taulut;
};

Valmiit lueRivit(const QString &polku)
{
    Valmiit v;
    auto db = db::Database::open(polku, db::OpenMode::ReadOnly);
    db::Statement skeema(*db, QStringLiteral("SELECT sql FROM sqlite_master WHERE sql IS NOT NULL AND name NOT LIKE 'sqlite%' "
                                             "ORDER BY type = 'index', rowid"));
    while (skeema.next())
        v.rakenne << skeema.value(0).toString().toUtf8();
    for (const QString &nimi : db->tableNames()) {
        Taulu t;
        db::Statement st(*db, QStringLiteral("SELECT * FROM \"%1\"").arg(nimi));
        t.sarakkeita = st.columnCount();
        QStringList merkit;
        for (int i = 0; i < t.sarakkeita; ++i)
            merkit << QStringLiteral("?");
        t.insert = QStringLiteral("INSERT INTO \"%1\" VALUES (%2)").arg(nimi, merkit.join(QLatin1Char(','))).toUtf8();
        while (st.next()) {
            std::vector<Arvo> r;
            for (int i = 0; i < t.sarakkeita; ++i) {
                const QVariant x = st.value(i);
                if (!x.isValid())
                    r.emplace_back(std::monostate{});
                else if (x.metaType().id() == QMetaType::LongLong)
                    r.emplace_back(x.toLongLong());
                else if (x.metaType().id() == QMetaType::Double)
                    r.emplace_back(x.toDouble());
                else
                    r.emplace_back(x.toString().toUtf8());
            }
            t.rivit.push_back(std::move(r));
        }
        v.taulut.push_back(std::move(t));
    }
    return v;
}

void BM_LuoSeura_alaraja(benchmark::State &state)
{
    const Valmiit v = lueRivit(seurat::Valmis(int(state.range(0))));
    QTemporaryDir dir;
    const QByteArray polku = dir.filePath(QStringLiteral("paljas.mdb")).toUtf8();
    for (auto _ : state) {
        sqlite3 *h = nullptr;
        sqlite3_open_v2(polku.constData(), &h, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
        sqlite3_exec(h, "PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL", nullptr, nullptr, nullptr);
        for (const QByteArray &sql : v.rakenne)
            sqlite3_exec(h, sql.constData(), nullptr, nullptr, nullptr);
        sqlite3_exec(h, "BEGIN", nullptr, nullptr, nullptr);
        for (const Taulu &t : v.taulut) {
            sqlite3_stmt *st = nullptr;
            sqlite3_prepare_v2(h, t.insert.constData(), -1, &st, nullptr);
            for (const auto &r : t.rivit) {
                for (int i = 0; i < t.sarakkeita; ++i) {
                    const Arvo &a = r[std::size_t(i)];
                    if (const auto *n = std::get_if<qint64>(&a))
                        sqlite3_bind_int64(st, i + 1, *n);
                    else if (const auto *d = std::get_if<double>(&a))
                        sqlite3_bind_double(st, i + 1, *d);
                    else if (const auto *s = std::get_if<QByteArray>(&a))
                        sqlite3_bind_text(st, i + 1, s->constData(), int(s->size()), SQLITE_STATIC);
                    else
                        sqlite3_bind_null(st, i + 1);
                }
                sqlite3_step(st);
                sqlite3_reset(st);
            }
            sqlite3_finalize(st);
        }
        sqlite3_exec(h, "COMMIT", nullptr, nullptr, nullptr);
        sqlite3_close_v2(h);
        state.PauseTiming();
        poista(QString::fromUtf8(polku));
        state.ResumeTiming();
    }
}
BENCHMARK(BM_LuoSeura_alaraja)->Arg(Suuri)->Iterations(2)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
