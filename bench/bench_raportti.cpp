// A member list of the largest club laid out and written as PDF (goal: 100,000 members within
// 15 s). Beside it the parts on their own: fetching the rows in Finnish order, the layout
// alone, and the lower bound of bare SQLite reading the same columns unsorted.
#include "platform/database.h"
#include "reports/Raporttiajo.h"
#include "seurat.h"

#include <QGuiApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

// The generated club of this size, built once and cached; only read here.
struct Kerho {
    QString polku;
    QTemporaryDir kansio; // for the PDF
};

Kerho &kerho(int jasenia)
{
    static std::map<int, std::unique_ptr<Kerho>> kerhot;
    auto &k = kerhot[jasenia];
    if (!k) {
        k = std::make_unique<Kerho>();
        k->polku = seurat::Valmis(jasenia);
    }
    return *k;
}

Raporttiajo luettelo(const Kerho &k)
{
    Raporttiajo r;
    r.ResetReportFormulas(k.polku);
    r.ReportFileName = QStringLiteral("jrluetlo.rpt");
    r.Formulas[0] = QStringLiteral("Seurannimi= 'Suuri seura ry'");
    r.Formulas[1] = QStringLiteral("Otsake= 'Jäsenluettelo'");
    r.SortFields[0] = QStringLiteral("+{jr.jrSukunimi}");
    r.SortFields[1] = QStringLiteral("+{jr.jrEtunimi}");
    return r;
}

void BM_jasenluettelo_pdf(benchmark::State &state)
{
    Kerho &k = kerho(int(state.range(0)));
    Raporttiajo r = luettelo(k);
    r.Destination = Raporttiajo::PdfTiedosto;
    r.PrintFileName = k.kansio.path() + QStringLiteral("/luettelo.pdf");
    for (auto _ : state)
        r.setAction(1);
    state.counters["sivuja"] = double(r.Laadi().sivut.size());
}
BENCHMARK(BM_jasenluettelo_pdf)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(1);

void BM_jasenluettelo_asettelu(benchmark::State &state)
{
    Kerho &k = kerho(int(state.range(0)));
    const Raporttiajo r = luettelo(k);
    for (auto _ : state)
        benchmark::DoNotOptimize(r.Laadi());
}
BENCHMARK(BM_jasenluettelo_asettelu)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(1);

void BM_alaraja_sarakkeidenLuku(benchmark::State &state)
{
    Kerho &k = kerho(int(state.range(0)));
    auto d = db::Database::open(k.polku, db::OpenMode::ReadOnly);
    for (auto _ : state) {
        db::Statement st(*d, QStringLiteral("SELECT jrSukunimi, jrEtunimi, jrOsoite, jrPostinumero, jrPostitoimipaikka, "
                                            "jrPuhelin, jrMatkapuhelin, jrJasennumero FROM jr"));
        while (st.next())
            for (int i = 0; i < 8; ++i)
                benchmark::DoNotOptimize(st.value(i));
    }
}
BENCHMARK(BM_alaraja_sarakkeidenLuku)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    // Fonts need a GUI application, never a screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
