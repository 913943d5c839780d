// Reminders on the largest register: 20,000 unpaid invoices of the history, a quarter of them
// partly paid in the ledger. The first pass (every reminder computed and stored in one
// transaction) beside bare SQLite doing the same arithmetic in one UPDATE; and the whole run with
// the reminders printed to one PDF.
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "payments/Muistutukset.h"
#include "platform/dialogs.h"
#include "reports/Raporttiajo.h"
#include "seurat.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int Laskuja = 20000;

// The run's question is answered Yes, both ends of the range left empty: every unpaid invoice.
struct Kylla : dlg::Dialogs {
    void message(const QString &, dlg::Icon, const QString &) override {}
    dlg::Answer question(const QString &, const QString &, bool, dlg::Icon) override { return dlg::Answer::Yes; }
    std::optional<QString> input(const QString &, const QString &, const QString &, bool) override { return QString(); }
    QString openFile(const dlg::FileRequest &) override { return {}; }
    QString saveFile(const dlg::FileRequest &) override { return {}; }
    QString chooseFolder(const QString &, const QString &) override { return {}; }
    QString choosePrinter(const QString &, const QStringList &) override { return {}; }
};

struct Historia {
    QTemporaryDir kansio;
    Kylla dialogit;
    std::unique_ptr<db::Database> d;
    QString pdf;
    Historia()
    {
        dlg::install(&dialogit);
        MainModule::DatabasePath = seurat::Kopio(100000, kansio.filePath(QStringLiteral("seura.mdb")));
        pdf = kansio.filePath(QStringLiteral("muistutukset.pdf"));
        d = db::Database::open(MainModule::DatabasePath);
        LueAsetukset(*d);
        MainModule::Muistutuskulut = Currency::fromUnits(5);
        MainModule::Viivastyskorko = 7.5;
        db::Transaction t(*d);
        d->execute(QStringLiteral("UPDATE jmhist SET jmhjmMaksettu = 1"));
        d->execute(QStringLiteral("INSERT INTO jmhist (jmhjmID, jmhjmjrID, jmhjmLaskunumero, jmhjmLaskupaiva, jmhjmErapaiva,"
                                  " jmhjmViitenumero, jmhjmHinta, jmhjmOtsake, jmhjmMaksettu, jmhjmJasMak)"
                                  " SELECT 500000 + jrID, jrID, 500000 + jrID, '2026-09-01', date('2026-09-15', '+' || (jrID % 60) || ' days'),"
                                  " CAST(500000 + jrID AS TEXT), 350000, 'Jäsenmaksu 2026', 0, 1 FROM jr ORDER BY jrID LIMIT ?"),
                   {Laskuja});
        d->execute(QStringLiteral("INSERT INTO Suoritukset (Paiva, jmhID, Summa, Arkistointitunnus) SELECT '2026-10-01', jmhID, 100000,"
                                  " 'A' || jmhID FROM jmhist WHERE jmhjmMaksettu = 0 AND jmhID % 4 = 0"));
        t.commit();
    }
};

void BM_muistutusten_laskenta(benchmark::State &state)
{
    Historia h;
    Ajo ajo(*h.d);
    ajo.tanaan = QDate(2027, 1, 15);
    Laskujentulostajat eiTulostusta;
    eiTulostusta.eran = [](const QString &, const QVector<qint64> &) {};
    for (auto _ : state)
        benchmark::DoNotOptimize(TulostaMuistutukset(ajo, Tulostuskysymykset{}, eiTulostusta));
    state.counters["muistutuksia"] = Laskuja;
}
BENCHMARK(BM_muistutusten_laskenta)->Unit(benchmark::kMillisecond)->Iterations(3);

// The same stores by one UPDATE: the floor of what the first pass can cost.
void BM_paljas_sqlite_laskenta(benchmark::State &state)
{
    Historia h;
    for (auto _ : state) {
        db::Transaction t(*h.d);
        h.d->execute(QStringLiteral(
            "UPDATE jmhist SET jmhjmAvoinSumma = jmhjmHinta - IFNULL((SELECT SUM(Summa) FROM Suoritukset s WHERE s.jmhID = jmhist.jmhID), 0),"
            " jmhjmMuistutusKulut = 50000, jmhjmMuistutusKorko = 7.5, jmhjmMuistutusPaiva = '2027-01-15',"
            " jmhjmMuistutusNumero = IFNULL(jmhjmMuistutusNumero, 0) + 1 WHERE jmhjmMaksettu = 0"));
        h.d->execute(QStringLiteral(
            "UPDATE jmhist SET jmhjmMuistutusKorkoSumma = CAST(ROUND((julianday('2027-01-15') - julianday(jmhjmErapaiva))"
            " * jmhjmAvoinSumma * 7.5 / 36500) AS INTEGER), jmhjmMuistutusYhteensa = jmhjmAvoinSumma + 50000 WHERE jmhjmMaksettu = 0"));
        t.commit();
    }
}
BENCHMARK(BM_paljas_sqlite_laskenta)->Unit(benchmark::kMillisecond)->Iterations(3);

// The whole run: computed, then every reminder with its giro slip into one PDF.
void BM_muistutukset_pdf(benchmark::State &state)
{
    Historia h;
    Ajo ajo(*h.d);
    ajo.tanaan = QDate(2027, 1, 15);
    Raporttiajo r;
    const QString avain = QStringLiteral("{jmhist.jmhID}");
    const auto kohde = [&](Raporttiajo &a) {
        a.Destination = Raporttiajo::PdfTiedosto;
        a.PrintFileName = h.pdf;
    };
    for (auto _ : state)
        TulostaMuistutukset(ajo, Tulostuskysymykset{}, LaskuraportinTulostajat(r, ajo, kohde, avain, avain, MuistutusKaavat()));
    state.counters["pdf_Mt"] = double(QFileInfo(h.pdf).size()) / (1024.0 * 1024.0);
}
BENCHMARK(BM_muistutukset_pdf)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
