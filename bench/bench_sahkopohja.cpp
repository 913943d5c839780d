// E-mail invoices of the largest register: 100,000 invoices merged into the shipped invoice
// template in memory; the same read from the open batch of the 100,000-member club and merged,
// as the preview and the sending do; and, as the lower bound of the latter, the reading alone.
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "email/Sahkopostilaskut.h"
#include "invoicing/Jasenmaksuajo.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "seurat.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int Suuri = 100000;

struct HiljaisetDialogit : dlg::Dialogs {
    void message(const QString &, dlg::Icon, const QString &) override {}
    dlg::Answer question(const QString &, const QString &, bool, dlg::Icon) override { return dlg::Answer::Yes; }
    std::optional<QString> input(const QString &, const QString &, const QString &, bool) override { return {}; }
    QString openFile(const dlg::FileRequest &) override { return {}; }
    QString saveFile(const dlg::FileRequest &) override { return {}; }
    QString chooseFolder(const QString &, const QString &) override { return {}; }
    QString choosePrinter(const QString &, const QStringList &) override { return {}; }
};

// The shipped invoice template, as a new installation has it.
QString toimitettuPohja(const QTemporaryDir &kansio)
{
    VarmistaSahkopohjat(kansio.path());
    return *LuePohjatiedosto(kansio.filePath(QStringLiteral("lasku.txt")));
}

Laskuttaja seura()
{
    return {QStringLiteral("Urheiluseura Pallo ry"), QStringLiteral("Kenttätie 1"), QStringLiteral("00100"), QStringLiteral("Helsinki"),
            QStringLiteral("09 123 456"), QString(), QStringLiteral("pallo@example.fi"), QStringLiteral("www.example.fi"),
            QStringLiteral("1234567-8")};
}

// Invoices of one to four rows, one row text in three long enough to wrap.
QVector<Sahkopostilasku> laskut(int maara)
{
    QVector<Sahkopostilasku> v(maara);
    for (int i = 0; i < maara; ++i) {
        Sahkopostilasku &l = v[i];
        l.maksaja = {QStringLiteral("Virtanen-%1").arg(i), QStringLiteral("Äijä"), QStringLiteral("Kuja %1").arg(i % 90),
                     QStringLiteral("33100"), QStringLiteral("Tampere")};
        l.tilit = {QStringLiteral("FI21 1234 5600 0007 85"), QStringLiteral("FI79 4006 1020 0001 12")};
        l.lasku = {QStringLiteral("Jäsenmaksu 2027"), QStringLiteral("40,00"), QStringLiteral("1.3.2027"), QStringLiteral("31.3.2027"),
                   QString::number(100000 + i), QString::number(i + 1)};
        for (int r = 0; r <= i % 4; ++r)
            l.rivit.append({QStringLiteral("1.3.2027"),
                            r % 3 == 0 ? QStringLiteral("Kausimaksu kevät ja syksy 2027, sisältää salivuorot ja lisenssin")
                                       : QStringLiteral("Rivi %1").arg(r + 1),
                            QStringLiteral("10,00")});
        l.lisatieto = QStringLiteral("Maksuehto 14 päivää netto.");
    }
    return v;
}

void BM_YhdistaLasku(benchmark::State &state)
{
    QTemporaryDir kansio;
    const QString pohja = toimitettuPohja(kansio);
    const QVector<Sahkopostilasku> v = laskut(int(state.range(0)));
    const Laskuttaja s = seura();
    qint64 merkkeja = 0;
    for (auto _ : state) {
        merkkeja = 0;
        for (const Sahkopostilasku &l : v)
            merkkeja += YhdistaLasku(pohja, s, l).size();
    }
    state.counters["merkkeja"] = double(merkkeja);
}
BENCHMARK(BM_YhdistaLasku)->Arg(Suuri)->Unit(benchmark::kMillisecond)->Iterations(3);

// The open batch of the largest club: "Kaikki" invoiced with one row, as the preview browses it.
struct Erakerho {
    QTemporaryDir kansio;
    HiljaisetDialogit dialogit;
    std::unique_ptr<db::Database> d;
    QString pohja;
    QList<qint64> idt;
    Erakerho()
    {
        dlg::install(&dialogit);
        MainModule::DatabasePath = seurat::Kopio(Suuri, kansio.filePath(QStringLiteral("seura.mdb")));
        d = db::Database::open(MainModule::DatabasePath);
        LueAsetukset(*d);
        MaksujenLuontiLomake l;
        l.cmbMaksunOtsake = QStringLiteral("Jäsenmaksu 2027");
        l.tLaskunPaiva = QStringLiteral("1.3.2027");
        l.tLaskunErapaiva = QStringLiteral("31.3.2027");
        l.tAiheTeksti = QStringLiteral("Jäsenmaksu");
        l.rivit[0] = {true, QStringLiteral("Vuosimaksu"), QStringLiteral("25,00")};
        l.tSumma = QStringLiteral("25,00 €");
        l.saajat = {true, 0, QStringLiteral("Kaikki"), false, false};
        LisaaJasenmaksut(Ajo(*d), l, false);
        pohja = toimitettuPohja(kansio);
        idt = AvoimetLaskut(*d);
    }
    ~Erakerho() { dlg::install(nullptr); }
};

Erakerho &erakerho()
{
    static Erakerho k;
    return k;
}

void BM_AvoimetLaskut(benchmark::State &state)
{
    Erakerho &k = erakerho();
    qint64 merkkeja = 0;
    for (auto _ : state) {
        merkkeja = 0;
        for (const qint64 id : k.idt)
            merkkeja += AvoimenLaskunTeksti(*k.d, k.pohja, id).size();
    }
    state.counters["laskuja"] = double(k.idt.size());
    state.counters["merkkeja"] = double(merkkeja);
}
BENCHMARK(BM_AvoimetLaskut)->Unit(benchmark::kMillisecond)->Iterations(2);

// The lower bound: every invoice, member, row and payment terms read, nothing merged.
void BM_AvoimetLaskut_alaraja(benchmark::State &state)
{
    Erakerho &k = erakerho();
    qint64 riveja = 0;
    for (auto _ : state) {
        riveja = 0;
        for (const qint64 id : k.idt)
            riveja += AvoinLasku(*k.d, id).rivit.size();
    }
    state.counters["riveja"] = double(riveja);
}
BENCHMARK(BM_AvoimetLaskut_alaraja)->Unit(benchmark::kMillisecond)->Iterations(2);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QLocale::setDefault(QLocale(QLocale::Finnish, QLocale::Finland));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
