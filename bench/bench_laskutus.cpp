// The invoice run on the largest register: "Kaikki" with four rows, beside bare SQLite inserting
// the same jm and jmRivi rows in one transaction; the move of the batch to history; its delete;
// and the invoice window opening with its lists.
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "invoicing/Jasenmaksuajo.h"
#include "invoicing/Laskuera.h"
#include "invoicing/Laskut.h"
#include "invoicing/Ominaisuuslaskuajo.h"
#include "invoicing/Perhelaskuajo.h"
#include "invoicing/ui/frmMaksujenLuonti.h"
#include "platform/arvot.h"
#include "platform/database.h"
#include "platform/dialogs.h"
#include "seurat.h"

#include <QApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace {

constexpr int Suuri = 100000;

// No message may stop a benchmark; a question is answered Yes (the delete's).
struct HiljaisetDialogit : dlg::Dialogs {
    void message(const QString &, dlg::Icon, const QString &) override {}
    dlg::Answer question(const QString &, const QString &, bool, dlg::Icon) override { return dlg::Answer::Yes; }
    std::optional<QString> input(const QString &, const QString &, const QString &, bool) override { return {}; }
    QString openFile(const dlg::FileRequest &) override { return {}; }
    QString saveFile(const dlg::FileRequest &) override { return {}; }
    QString chooseFolder(const QString &, const QString &) override { return {}; }
    QString choosePrinter(const QString &, const QStringList &) override { return {}; }
};

MaksujenLuontiLomake neljaRivia()
{
    MaksujenLuontiLomake l;
    l.cmbMaksunOtsake = QStringLiteral("Jäsenmaksu 2027");
    l.tLaskunPaiva = QStringLiteral("1.3.2027");
    l.tLaskunErapaiva = QStringLiteral("31.3.2027");
    l.tAiheTeksti = QStringLiteral("Jäsenmaksu");
    l.tLisatietoja = QStringLiteral("Tervetuloa kevätkokoukseen!");
    for (int i = 0; i < 4; ++i)
        l.rivit[i] = {true, QStringLiteral("Rivi %1").arg(i + 1), QStringLiteral("10,00")};
    l.tSumma = QStringLiteral("40,00 €");
    l.chkJasenmaksu = true;
    l.saajat = {true, 0, QStringLiteral("Kaikki"), false, false};
    return l;
}

// A fresh copy of the largest club for each round, its settings read.
struct Kerho {
    QTemporaryDir kansio;
    HiljaisetDialogit dialogit;
    std::unique_ptr<db::Database> d;
    Kerho()
    {
        dlg::install(&dialogit);
        MainModule::DatabasePath = seurat::Kopio(Suuri, kansio.filePath(QStringLiteral("seura.mdb")));
        d = db::Database::open(MainModule::DatabasePath);
        LueAsetukset(*d);
    }
    ~Kerho() { dlg::install(nullptr); }
    void laskuta() { LisaaJasenmaksut(Ajo(*d), neljaRivia(), false); }
};

void BM_Laskutus_Kaikki(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Kerho k;
        state.ResumeTiming();
        k.laskuta();
        state.PauseTiming();
        state.counters["laskuja"] = double(LaskujenMaara(*k.d));
        k.d.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Laskutus_Kaikki)->Unit(benchmark::kMillisecond)->Iterations(3);

// The family run for every payer: four classes priced, names in the rows, one price per family.
void BM_Perhelaskut_Kaikki(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Kerho k;
        PerheLomake l;
        static_cast<LaskunYlatiedot &>(l) = neljaRivia();
        l.saajat = neljaRivia().saajat;
        l.luokat[0] = {true, QStringLiteral("20"), QStringLiteral("Aikuinen"), true, false};
        l.luokat[2] = {true, QStringLiteral("10"), QStringLiteral("Lapsi"), true, false};
        l.luokat[3] = {true, QStringLiteral("5"), QStringLiteral("Sisarus"), false, false};
        l.luokat[8] = {true, QStringLiteral("30"), QStringLiteral("Perhe"), true, false};
        state.ResumeTiming();
        LisaaPerhelaskut(Ajo(*k.d), l, false);
        state.PauseTiming();
        state.counters["laskuja"] = double(LaskujenMaara(*k.d));
        state.counters["riveja"] = double(NullLong(k.d->scalar(QStringLiteral("SELECT COUNT(*) FROM jmRivi JOIN jm ON jmID = jmRjmID"))));
        k.d.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Perhelaskut_Kaikki)->Unit(benchmark::kMillisecond)->Iterations(3);

// The attribute run for "Kaikki" with four rows, each over one of the club's attributes.
void BM_Ominaisuuslaskut_Kaikki(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Kerho k;
        OminaisuusAjo l;
        static_cast<LaskunYlatiedot &>(l) = neljaRivia();
        l.saajat = neljaRivia().saajat;
        db::Statement pi(*k.d, QStringLiteral("SELECT piID FROM pi ORDER BY piID LIMIT 4"));
        for (int i = 0; i < 4 && pi.next(); ++i)
            l.rivit[size_t(i)] = {NullLong(pi.value(0)), true, false, false, QStringLiteral("2,5"), QString(), QString(),
                                  QStringLiteral("Rivi <OM.LKM:0> kpl")};
        state.ResumeTiming();
        LisaaOminaisuuslaskut(Ajo(*k.d), l, false);
        state.PauseTiming();
        state.counters["laskuja"] = double(LaskujenMaara(*k.d));
        state.counters["riveja"] = double(NullLong(k.d->scalar(QStringLiteral("SELECT COUNT(*) FROM jmRivi JOIN jm ON jmID = jmRjmID"))));
        k.d.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Ominaisuuslaskut_Kaikki)->Unit(benchmark::kMillisecond)->Iterations(1);

// The lower bound: the same rows by bare SQLite, prepared once, in one transaction.
void BM_alaraja_laskurivit(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        QTemporaryDir kansio;
        const QByteArray polku = seurat::Kopio(Suuri, kansio.filePath(QStringLiteral("seura.mdb"))).toUtf8();
        sqlite3 *h = nullptr;
        sqlite3_open_v2(polku.constData(), &h, SQLITE_OPEN_READWRITE, nullptr);
        sqlite3_exec(h, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr);
        state.ResumeTiming();
        sqlite3_exec(h, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        sqlite3_stmt *jasenet = nullptr, *lasku = nullptr, *rivi = nullptr;
        sqlite3_prepare_v2(h, "SELECT jrID FROM jr ORDER BY jrSukunimi, jrEtunimi", -1, &jasenet, nullptr);
        sqlite3_prepare_v2(h, "INSERT INTO jm (jmjrID, jmErapaiva, jmLaskupaiva, jmLaskunumero, jmViitenumero, jmHinta, "
                              "jmTeksti, jmMaksettu, jmOtsake, jmmeID) VALUES (?, '2027-03-31', '2027-03-01', ?, ?, 400000, "
                              "'Jäsenmaksu', 0, 'Jäsenmaksu 2027', 1)", -1, &lasku, nullptr);
        sqlite3_prepare_v2(h, "INSERT INTO jmRivi (jmRjmID, jmRjrID, jmRmeId, jmRPaiva, jmRHinta, jmRTeksti, jmRMaksettu) "
                              "VALUES (?, ?, 1, '2027-03-01', 100000, 'Rivi', 0)", -1, &rivi, nullptr);
        qint64 numero = 5000000;
        while (sqlite3_step(jasenet) == SQLITE_ROW) {
            const qint64 jrID = sqlite3_column_int64(jasenet, 0);
            sqlite3_bind_int64(lasku, 1, jrID);
            sqlite3_bind_int64(lasku, 2, numero);
            sqlite3_bind_text(lasku, 3, "50000003", -1, SQLITE_STATIC);
            sqlite3_step(lasku);
            sqlite3_reset(lasku);
            const qint64 jmID = sqlite3_last_insert_rowid(h);
            for (int i = 0; i < 4; ++i) {
                sqlite3_bind_int64(rivi, 1, jmID);
                sqlite3_bind_int64(rivi, 2, jrID);
                sqlite3_step(rivi);
                sqlite3_reset(rivi);
            }
            ++numero;
        }
        sqlite3_finalize(jasenet);
        sqlite3_finalize(lasku);
        sqlite3_finalize(rivi);
        sqlite3_exec(h, "COMMIT", nullptr, nullptr, nullptr);
        state.PauseTiming();
        sqlite3_close_v2(h);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_alaraja_laskurivit)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_Historiaan(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Kerho k;
        k.laskuta();
        state.ResumeTiming();
        SiirraHistoriaan(Ajo(*k.d), Laskuikkuna::Perus);
        state.PauseTiming();
        k.d.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Historiaan)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_Poisto(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Kerho k;
        k.laskuta();
        state.ResumeTiming();
        PoistaLisatytLaskut(Ajo(*k.d), Laskuikkuna::Perus, false);
        state.PauseTiming();
        k.d.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Poisto)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_IkkunaAvautuu(benchmark::State &state)
{
    Kerho k;
    for (auto _ : state) {
        auto w = std::make_unique<frmMaksujenLuonti>();
        w->setAttribute(Qt::WA_DeleteOnClose, false);
        w->Lataa();
        w->show();
        QApplication::processEvents();
    }
}
BENCHMARK(BM_IkkunaAvautuu)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QLocale::setDefault(QLocale(QLocale::Finnish, QLocale::Finland));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
