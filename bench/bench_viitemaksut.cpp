// The bank's file on the largest register: a file of 10,000 payments on the club's history read
// and sorted into the window's lists, its received payments marked paid, the file posted into the
// payment ledger, and one invoice fetched by its reference. Beside them bare SQLite does the same
// lookups (one prepared SELECT by reference per payment), the lower bound of every run here.
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "payments/Maksukirja.h"
#include "payments/ViiteaineistoLukija.h"
#include "payments/Viitemaksulajittelu.h"
#include "payments/Viitemaksut.h"
#include "payments/Viitesuoritukset.h"
#include "platform/arvot.h"
#include "platform/database.h"
#include "seurat.h"
#include "viitetiedostot.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace {

constexpr int Suuri = 100000;
constexpr int Maksuja = 10000;

// The club and a file paying the first 10,000 invoices of its history to the cent, made once.
struct Aineisto {
    QTemporaryDir kansio;
    QString seura, tiedosto;
    QStringList viitteet;
    Aineisto()
    {
        seura = seurat::Kopio(Suuri, kansio.filePath(QStringLiteral("malli.mdb")));
        auto d = db::Database::open(seura);
        QList<viitetiedostot::Maksu> maksut;
        db::Statement st(*d, QStringLiteral("SELECT jmhjmViitenumero, jmhjmHinta FROM jmhist WHERE jmhjmViitenumero <> ''"
                                            " ORDER BY jmhID LIMIT ?"), {Maksuja});
        while (st.next()) {
            const QString viite = NullText(st.value(0));
            viitteet << viite;
            maksut.append({QStringLiteral("B%1").arg(maksut.size(), 8, 10, QLatin1Char('0')), viite, QStringLiteral("MAKSAJA"),
                           NullCurrency(st.value(1)).raw() / (Currency::Scale / 100)});
        }
        tiedosto = kansio.filePath(QStringLiteral("pankki.ktl"));
        QFile f(tiedosto);
        if (!f.open(QIODevice::WriteOnly) || f.write(viitetiedostot::Ktl(maksut)) < 0)
            qFatal("the bank file could not be written");
    }
    // A fresh copy of the club for a run that writes.
    QString kopio(const QString &nimi) const
    {
        const QString p = kansio.filePath(nimi);
        QFile::remove(p);
        QFile::copy(seura, p);
        return p;
    }
};

Aineisto &aineisto()
{
    static Aineisto a;
    return a;
}

void BM_LueJaLajittele(benchmark::State &state)
{
    auto d = db::Database::open(aineisto().seura, db::OpenMode::ReadOnly);
    qsizetype saapuneet = 0;
    for (auto _ : state) {
        const QList<ViiteEra> erat = ViiteaineistoLukija().LueTiedosto(aineisto().tiedosto);
        saapuneet = LajitteleEra(*d, erat.at(0), false).Saapuneet.size();
    }
    state.counters["saapuneet"] = double(saapuneet);
}
BENCHMARK(BM_LueJaLajittele)->Unit(benchmark::kMillisecond);

// The lower bound: 10,000 lookups by reference and of the member, prepared once, by bare SQLite.
void BM_alaraja_haut(benchmark::State &state)
{
    const QByteArray polku = aineisto().seura.toUtf8();
    sqlite3 *h = nullptr;
    sqlite3_open_v2(polku.constData(), &h, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt *lasku = nullptr, *jasen = nullptr;
    sqlite3_prepare_v2(h, "SELECT jmhID, jmhjmjrID, jmhjmHinta FROM jmhist WHERE jmhjmViitenumero = ? ORDER BY jmhID LIMIT 1",
                       -1, &lasku, nullptr);
    sqlite3_prepare_v2(h, "SELECT 1 FROM jr WHERE jrID = ?", -1, &jasen, nullptr);
    QList<QByteArray> viitteet;
    for (const QString &v : aineisto().viitteet)
        viitteet << v.toUtf8();
    int loydetty = 0;
    for (auto _ : state) {
        loydetty = 0;
        for (const QByteArray &v : viitteet) {
            sqlite3_bind_text(lasku, 1, v.constData(), int(v.size()), SQLITE_STATIC);
            if (sqlite3_step(lasku) == SQLITE_ROW) {
                sqlite3_bind_int64(jasen, 1, sqlite3_column_int64(lasku, 1));
                loydetty += sqlite3_step(jasen) == SQLITE_ROW;
                sqlite3_reset(jasen);
            }
            sqlite3_reset(lasku);
        }
    }
    sqlite3_finalize(lasku);
    sqlite3_finalize(jasen);
    sqlite3_close_v2(h);
    state.counters["löytyi"] = loydetty;
}
BENCHMARK(BM_alaraja_haut)->Unit(benchmark::kMillisecond);

void BM_MerkitseMaksetuiksi(benchmark::State &state)
{
    int merkitty = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto d = db::Database::open(aineisto().kopio(QStringLiteral("merkinta.mdb")));
        const QList<ViiteEra> erat = ViiteaineistoLukija().LueTiedosto(aineisto().tiedosto);
        const QList<ViitemaksuRivi> rivit = LajitteleEra(*d, erat.at(0), false).Saapuneet;
        state.ResumeTiming();
        merkitty = MerkitseMaksetuiksi(*d, rivit, false).merkitty;
    }
    state.counters["merkitty"] = merkitty;
}
BENCHMARK(BM_MerkitseMaksetuiksi)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_Kirjaa(benchmark::State &state)
{
    int kirjattu = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto d = db::Database::open(aineisto().kopio(QStringLiteral("kirjaus.mdb")));
        const QList<ViiteEra> erat = ViiteaineistoLukija().LueTiedosto(aineisto().tiedosto);
        state.ResumeTiming();
        kirjattu = KirjaaSuoritukset(*d, erat).kirjattu;
    }
    state.counters["kirjattu"] = kirjattu;
}
BENCHMARK(BM_Kirjaa)->Unit(benchmark::kMillisecond)->Iterations(3);

// The payment book's fetch of one invoice by its reference, member and labels included.
void BM_HaeViitteella(benchmark::State &state)
{
    auto d = db::Database::open(aineisto().seura, db::OpenMode::ReadOnly);
    const QString viite = aineisto().viitteet.at(aineisto().viitteet.size() / 2);
    for (auto _ : state)
        benchmark::DoNotOptimize(HaeLasku(*d, viite));
}
BENCHMARK(BM_HaeViitteella)->Unit(benchmark::kMicrosecond);

// The lower bound of the fetch: the one SELECT by reference by bare SQLite, prepared each time.
void BM_alaraja_haku(benchmark::State &state)
{
    const QByteArray polku = aineisto().seura.toUtf8();
    const QByteArray viite = aineisto().viitteet.at(aineisto().viitteet.size() / 2).toUtf8();
    sqlite3 *h = nullptr;
    sqlite3_open_v2(polku.constData(), &h, SQLITE_OPEN_READONLY, nullptr);
    for (auto _ : state) {
        sqlite3_stmt *st = nullptr;
        sqlite3_prepare_v2(h, "SELECT * FROM jmhist WHERE jmhjmViitenumero = ? ORDER BY jmhID LIMIT 1", -1, &st, nullptr);
        sqlite3_bind_text(st, 1, viite.constData(), int(viite.size()), SQLITE_STATIC);
        benchmark::DoNotOptimize(sqlite3_step(st));
        sqlite3_finalize(st);
    }
    sqlite3_close_v2(h);
}
BENCHMARK(BM_alaraja_haku)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
