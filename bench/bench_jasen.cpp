// The member window on the largest register: opening it with its tree and lists, moving to the
// next member (plainly and within an attribute's holders), saving a member, and going to a
// member chosen by name in the tree. The lower bound beside them is bare SQLite reading one
// member row by its key.
#include "core/MainModule.h"
#include "core/ui/Tietueikkuna.h"
#include "members/Jasen.h"
#include "members/Nimipuu.h"
#include "members/ui/frmJasen.h"
#include "platform/dialogs.h"
#include "seurat.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTreeView>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace {

constexpr int Suuri = 100000;

// No message may stop a benchmark: they are counted instead.
struct HiljaisetDialogit : dlg::Dialogs {
    int viesteja = 0;
    void message(const QString &, dlg::Icon, const QString &) override { ++viesteja; }
    dlg::Answer question(const QString &, const QString &, bool, dlg::Icon) override { return dlg::Answer::No; }
    std::optional<QString> input(const QString &, const QString &, const QString &, bool) override { return {}; }
    QString openFile(const dlg::FileRequest &) override { return {}; }
    QString saveFile(const dlg::FileRequest &) override { return {}; }
    QString chooseFolder(const QString &, const QString &) override { return {}; }
    QString choosePrinter(const QString &, const QStringList &) override { return {}; }
};

struct Kerho {
    QTemporaryDir kansio;
    HiljaisetDialogit dialogit;
    Kerho()
    {
        dlg::install(&dialogit);
        MainModule::DatabasePath = seurat::Kopio(Suuri, kansio.filePath(QStringLiteral("seura.mdb")));
    }
    ~Kerho() { dlg::install(nullptr); }

    std::unique_ptr<frmJasen> avaa()
    {
        auto w = std::make_unique<frmJasen>();
        w->setAttribute(Qt::WA_DeleteOnClose, false);
        w->Lataa();
        w->show();
        QApplication::processEvents();
        return w;
    }
};

void BM_IkkunaAvautuu(benchmark::State &state)
{
    Kerho k;
    for (auto _ : state) {
        auto w = k.avaa();
        state.PauseTiming();
        w.reset();
        state.ResumeTiming();
    }
    state.SetLabel("100 000 jäsentä");
}
BENCHMARK(BM_IkkunaAvautuu)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_SeuraavaJasen(benchmark::State &state)
{
    Kerho k;
    auto w = k.avaa();
    for (auto _ : state)
        w->Siirry(tietue::Siirto::Seuraava);
}
BENCHMARK(BM_SeuraavaJasen)->Unit(benchmark::kMillisecond);

// Within the holders of the club's most common attribute, in name order.
void BM_SeuraavaListaehdolla(benchmark::State &state)
{
    Kerho k;
    auto w = k.avaa();
    auto d = db::Database::open(MainModule::DatabasePath);
    const qint64 pi = d->scalar(QStringLiteral("SELECT ptpiID FROM pt GROUP BY ptpiID ORDER BY COUNT(*) DESC LIMIT 1")).toLongLong();
    w->cmbListaEhto->setCurrentIndex(w->cmbListaEhto->findData(pi));
    w->cmbListaEhto_LostFocus();
    for (auto _ : state)
        w->Siirry(tietue::Siirto::Seuraava);
    state.SetLabel(QStringLiteral("%1 haltijaa").arg(JasenMaara(*d, pi)).toStdString());
}
BENCHMARK(BM_SeuraavaListaehdolla)->Unit(benchmark::kMillisecond);

void BM_TallennaJasen(benchmark::State &state)
{
    Kerho k;
    auto w = k.avaa();
    int n = 0;
    for (auto _ : state) {
        w->tYhteystiedot[iLisatieto1]->setText(QStringLiteral("Muutos %1").arg(++n));
        w->cTallenna_Click();
    }
}
BENCHMARK(BM_TallennaJasen)->Unit(benchmark::kMillisecond);

// A name chosen in the tree: the window moves to that member.
void BM_NimiPuusta(benchmark::State &state)
{
    Kerho k;
    auto w = k.avaa();
    QAbstractItemModel *m = w->tvwNimet->model();
    const QModelIndex kirjain = m->index(10, 0); // K, one of the largest letters
    const int nimia = m->rowCount(kirjain);
    int i = 0;
    for (auto _ : state) {
        w->tvwNimet->setCurrentIndex(m->index(i, 0, kirjain));
        i = (i + 997) % nimia;
    }
    state.SetLabel(QStringLiteral("%1 nimeä kirjaimella").arg(nimia).toStdString());
}
BENCHMARK(BM_NimiPuusta)->Unit(benchmark::kMillisecond);

// The members of an attribute in name order, as the list condition and its tree read them.
void BM_NimetJarjestyksessa(benchmark::State &state)
{
    Kerho k;
    auto d = db::Database::open(MainModule::DatabasePath);
    for (auto _ : state)
        benchmark::DoNotOptimize(NimetJarjestyksessa(*d).size());
}
BENCHMARK(BM_NimetJarjestyksessa)->Unit(benchmark::kMillisecond);

void BM_alaraja_jasenrivi(benchmark::State &state)
{
    Kerho k;
    const QByteArray polku = MainModule::DatabasePath.toUtf8();
    sqlite3 *h = nullptr;
    sqlite3_open_v2(polku.constData(), &h, SQLITE_OPEN_READWRITE, nullptr);
    sqlite3_stmt *st = nullptr;
    sqlite3_prepare_v2(h, "SELECT * FROM jr WHERE jrID = ?", -1, &st, nullptr);
    qint64 id = 1;
    for (auto _ : state) {
        sqlite3_bind_int64(st, 1, id);
        while (sqlite3_step(st) == SQLITE_ROW)
            benchmark::DoNotOptimize(sqlite3_column_text(st, 1));
        sqlite3_reset(st);
        id = id % Suuri + 1;
    }
    sqlite3_finalize(st);
    sqlite3_close_v2(h);
}
BENCHMARK(BM_alaraja_jasenrivi)->Unit(benchmark::kMicrosecond);

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
