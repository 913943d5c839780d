// An open batch of invoices of the largest club laid out with an invoice layout (a group per
// invoice with its own page numbers, a giro slip at the foot with a QR code and a bank barcode)
// and written to one PDF. Goals: 10,000 invoices within 60 s, and 100,000 without memory growing
// with the batch. Memory is the process's peak resident size (getrusage ru_maxrss, so run one
// size per process: see README.md) and the run's own peak, with the setting up left out. Beside it the same 10,000 collected in memory first, as the
// engine did before it streamed, to show what streaming saves, and the layout alone.
#include "platform/database.h"
#include "invoicing/Viite.h"
#include "reports/Piirto.h"
#include "reports/Raporttiajo.h"
#include "reports/Sivusto.h"
#include "seurat.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sys/resource.h>

namespace {

// The invoice layout: the club, the payer's address and the invoice's details at the top, the
// rows, and the giro slip kept at the foot of the invoice's last page.
const char *const Laskupohja = R"xml(<raportti nimi="Laskuerä">
  <sivu koko="A4" vasen="20" oikea="15" yla="15" ala="10" lukittu="kyllä"/>
  <lahde taulu="jm">
    <liitos taulu="jr" ehto="{jr.jrID} = {jm.jmjrID}" tapa="sisa"/>
    <liitos taulu="jmRivi" ehto="{jmRivi.jmRjmID} = {jm.jmID}" tapa="sisa"/>
  </lahde>
  <jarjestys>+{jmRivi.jmRID}</jarjestys>
  <kaava nimi="Seurannimi">Suuri seura ry</kaava>
  <kaava nimi="Tili">FI4950009420028730</kaava>
  <ryhma lauseke="{jm.jmID}" sivutus="oma">
    <otsikko korkeus="70">
      <teksti x="0" y="0" leveys="90" korkeus="6" lihava="kyllä" lauseke="{@Seurannimi}"/>
      <teksti x="110" y="0" leveys="60" korkeus="6" lihava="kyllä">LASKU</teksti>
      <teksti x="0" y="30" leveys="90" korkeus="15" kasvaa="kyllä"
              lauseke="Rivit({jr.jrEtunimi} + ' ' + {jr.jrSukunimi}, {jr.jrOsoite}, {jr.jrPostinumero} + ' ' + {jr.jrPostitoimipaikka})"/>
      <teksti x="110" y="10" leveys="60" korkeus="5" lauseke="'Laskun numero ' + ToText({jm.jmLaskunumero})"/>
      <teksti x="110" y="15" leveys="60" korkeus="5" lauseke="'Päiväys ' + Pvm({jm.jmLaskupaiva})"/>
      <teksti x="110" y="20" leveys="60" korkeus="5" lauseke="'Eräpäivä ' + Pvm({jm.jmErapaiva})"/>
      <teksti x="0" y="60" leveys="175" korkeus="6" lauseke="{jm.jmTeksti}"/>
    </otsikko>
    <alatunniste korkeus="100" alaosaan="kyllä">
      <viiva x1="0" y1="0" x2="175" y2="0"/>
      <teksti x="0" y="5" leveys="100" korkeus="5" lauseke="'Saajan tilinumero ' + Iban({@Tili})"/>
      <teksti x="0" y="12" leveys="100" korkeus="5" lauseke="'Saaja ' + {@Seurannimi}"/>
      <teksti x="0" y="19" leveys="100" korkeus="15" kasvaa="kyllä"
              lauseke="Rivit('Maksaja', {jr.jrEtunimi} + ' ' + {jr.jrSukunimi}, {jr.jrOsoite}, {jr.jrPostinumero} + ' ' + {jr.jrPostitoimipaikka})"/>
      <teksti x="0" y="45" leveys="100" korkeus="5" lauseke="'Viitenumero ' + Viite({jm.jmViitenumero})"/>
      <teksti x="0" y="52" leveys="100" korkeus="5" lauseke="'Eräpäivä ' + Pvm({jm.jmErapaiva})"/>
      <teksti x="0" y="59" leveys="100" korkeus="5" lauseke="'Euro ' + Raha(Sum({jmRivi.jmRHinta}))"/>
      <qr x="140" y="5" leveys="30" korkeus="30"
          lauseke="Rivit('BCD', '002', '1', 'SCT', {@Seurannimi}, {@Tili}, 'EUR' + ToText(Sum({jmRivi.jmRHinta}), 2), {jm.jmViitenumero})"/>
      <viivakoodi x="0" y="75" leveys="105" korkeus="13"
                  lauseke="'44950009420028730' + Right('00000000' + ToText(Sum({jmRivi.jmRHinta}) * 100, 0), 8) + '000' + Right('00000000000000000000' + {jm.jmViitenumero}, 20) + '261209'"/>
    </alatunniste>
  </ryhma>
  <rivi korkeus="6">
    <teksti x="0" y="0" leveys="120" korkeus="5" lauseke="{jmRivi.jmRTeksti}"/>
    <teksti x="140" y="0" leveys="35" korkeus="5" tasaus="oikea" muoto="raha" lauseke="{jmRivi.jmRHinta}"/>
  </rivi>
  <sivualatunniste korkeus="6">
    <teksti x="140" y="0" leveys="35" korkeus="5" tasaus="oikea" lauseke="'Sivu ' + ToText(PageNumber) + '/' + ToText(TotalPages)"/>
  </sivualatunniste>
</raportti>)xml";

// The process's peak resident size so far (getrusage ru_maxrss), megabytes.
double huippumuistiMt()
{
    rusage r{};
    getrusage(RUSAGE_SELF, &r);
    return double(r.ru_maxrss) / 1024.0; // kilobytes on Linux
}

// The peak since the last nollaaHuippu (Linux's VmHWM, which ru_maxrss cannot reset), megabytes:
// the run's own peak, not the setting up of the club before it.
double ajonHuippuMt()
{
    QFile f(QStringLiteral("/proc/self/status"));
    if (!f.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray &rivi : f.readAll().split('\n'))
        if (rivi.startsWith("VmHWM:"))
            return rivi.mid(6).trimmed().split(' ').value(0).toDouble() / 1024.0;
    return -1;
}

void nollaaHuippu()
{
    QFile f(QStringLiteral("/proc/self/clear_refs"));
    if (f.open(QIODevice::WriteOnly))
        f.write("5");
}

// A private copy of the 100,000-member club with an open batch of `laskuja` invoices: two rows
// each, and every 50th invoice 60 rows, over two or three pages.
struct Era {
    QTemporaryDir kansio;
    QString kanta, pohja, pdf;

    explicit Era(int laskuja)
    {
        kanta = seurat::Kopio(100000, kansio.filePath(QStringLiteral("seura.mdb")));
        pdf = kansio.filePath(QStringLiteral("laskut.pdf"));
        pohja = kansio.filePath(QStringLiteral("laskuera.rpt"));
        QFile f(pohja);
        if (!f.open(QIODevice::WriteOnly) || f.write(Laskupohja) < 0)
            qFatal("laskupohjaa ei voi kirjoittaa");
        auto d = db::Database::open(kanta);
        db::Transaction t(*d);
        d->execute(QStringLiteral("DELETE FROM jmRivi"));
        d->execute(QStringLiteral("DELETE FROM jm"));
        d->execute(QStringLiteral("INSERT INTO jm (jmjrID, jmmeID, jmLaskunumero, jmLaskupaiva, jmErapaiva, jmViitenumero, jmHinta, "
                                  "jmTeksti, jmOtsake, jmMaksettu) SELECT jrID, 0, 100000 + jrID, '2026-11-25', '2026-12-09', "
                                  "CAST(100000 + jrID AS TEXT) || '3', 0, 'Jäsenmaksu vuodelle 2027', 'Lasku', 0 FROM jr "
                                  "ORDER BY jrID LIMIT ?"),
                   {laskuja});
        for (const auto &[teksti, hinta] : {std::pair{"Jäsenmaksu 2027", 250000}, std::pair{"Kausimaksu", 150000}})
            d->execute(QStringLiteral("INSERT INTO jmRivi (jmRjmID, jmRjrID, jmRPaiva, jmRHinta, jmRTeksti, jmRMaksettu) "
                                      "SELECT jmID, jmjrID, jmLaskupaiva, ?, ?, 0 FROM jm"),
                       {hinta, QString::fromUtf8(teksti)});
        d->execute(QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 58) "
                                  "INSERT INTO jmRivi (jmRjmID, jmRjrID, jmRPaiva, jmRHinta, jmRTeksti, jmRMaksettu) "
                                  "SELECT jmID, jmjrID, jmLaskupaiva, 10000, 'Talkoopäivä ' || i, 0 FROM jm, n WHERE jmID % 50 = 0"));
        t.commit();
    }

    Raporttiajo ajo() const
    {
        Raporttiajo r;
        r.ResetReportFormulas(kanta);
        r.ReportFileName = pohja;
        r.Destination = Raporttiajo::PdfTiedosto;
        r.PrintFileName = pdf;
        return r;
    }
};

void BM_laskuera_pdf(benchmark::State &state)
{
    const Era era(int(state.range(0)));
    const Raporttiajo r = era.ajo();
    nollaaHuippu();
    const double ennen = ajonHuippuMt();
    for (auto _ : state) {
        Raporttiajo ajo = r;
        ajo.setAction(1);
    }
    state.counters["muisti_ennen_Mt"] = ennen;
    state.counters["ajon_huippu_Mt"] = ajonHuippuMt();
    state.counters["maxrss_Mt"] = huippumuistiMt();
    state.counters["pdf_Mt"] = double(QFileInfo(era.pdf).size()) / (1024.0 * 1024.0);
}
BENCHMARK(BM_laskuera_pdf)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(1);

// The program's own invoice with the giro slip as the print button sends a batch to a PDF: the
// club's accounts, the invoices chosen and ordered by their keys.
void BM_jrotile_pdf(benchmark::State &state)
{
    const Era era(int(state.range(0)));
    Raporttiajo r = era.ajo();
    r.ReportFileName = QStringLiteral("jrotile.rpt");
    r.Formulas[0] = QStringLiteral("Seurannimi= 'Vanhankylän Urheiluseura ry'");
    r.Formulas[1] = QStringLiteral("Pankkiyhteys1= 'FI21 1234 5600 0007 85 Nordea'");
    r.Rajauskentta = QStringLiteral("{jm.jmID}");
    {
        // Valid references, so that every slip carries its barcode and QR code.
        auto d = db::Database::open(era.kanta);
        db::Transaction t(*d);
        db::Statement st(*d, QStringLiteral("SELECT jmID, jmLaskunumero FROM jm ORDER BY jmLaskunumero DESC"));
        while (st.next()) {
            r.Rajausavaimet << st.value(0).toLongLong();
            d->execute(QStringLiteral("UPDATE jm SET jmViitenumero = ? WHERE jmID = ?"),
                       {ViiteNumerosta(st.value(1).toLongLong()), st.value(0)});
        }
        t.commit();
    }
    nollaaHuippu();
    const double ennen = ajonHuippuMt();
    for (auto _ : state) {
        Raporttiajo ajo = r;
        ajo.setAction(1);
    }
    state.counters["muisti_ennen_Mt"] = ennen;
    state.counters["ajon_huippu_Mt"] = ajonHuippuMt();
    state.counters["pdf_Mt"] = double(QFileInfo(era.pdf).size()) / (1024.0 * 1024.0);
}
BENCHMARK(BM_jrotile_pdf)->Arg(10000)->Unit(benchmark::kMillisecond)->Iterations(1);

// Reading the rows and the layout alone: the pages are counted and let go unpainted.
void BM_laskuera_asettelu(benchmark::State &state)
{
    struct Laskuri : Sivuvirta {
        qint64 sivuja = 0;
        void alku(const Asiakirja &) override {}
        void sivu(Sivu &&) override { ++sivuja; }
        void loppu(int) override {}
    };
    const Era era(int(state.range(0)));
    const Raporttiajo r = era.ajo();
    nollaaHuippu();
    Laskuri laskuri;
    for (auto _ : state)
        r.Laadi(laskuri);
    state.counters["sivuja"] = double(laskuri.sivuja);
    state.counters["ajon_huippu_Mt"] = ajonHuippuMt();
}
BENCHMARK(BM_laskuera_asettelu)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(1);

// The preview's share: the pages laid out into its temporary file, the last one read back.
void BM_laskuera_esikatselu(benchmark::State &state)
{
    const Era era(int(state.range(0)));
    const Raporttiajo r = era.ajo();
    nollaaHuippu();
    for (auto _ : state) {
        Sivutiedosto sivut;
        r.Laadi(sivut);
        benchmark::DoNotOptimize(sivut.sivu(sivut.sivuja() - 1));
        state.counters["sivuja"] = sivut.sivuja();
    }
    state.counters["ajon_huippu_Mt"] = ajonHuippuMt();
}
BENCHMARK(BM_laskuera_esikatselu)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(1);

// The batch laid out whole into memory, then painted: the engine before streaming.
void BM_laskuera_muistissa(benchmark::State &state)
{
    const Era era(int(state.range(0)));
    const Raporttiajo r = era.ajo();
    nollaaHuippu();
    const double ennen = ajonHuippuMt();
    for (auto _ : state) {
        const Asiakirja d = r.Laadi();
        KirjoitaPdf(d, era.pdf);
    }
    state.counters["muisti_ennen_Mt"] = ennen;
    state.counters["ajon_huippu_Mt"] = ajonHuippuMt();
    state.counters["maxrss_Mt"] = huippumuistiMt();
}
BENCHMARK(BM_laskuera_muistissa)->Arg(10000)->Unit(benchmark::kMillisecond)->Iterations(1);

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
