#include "reports/ui/Raporttitulostus.h"

#include "platform/ajo.h"
#include "reports/Piirto.h"
#include "reports/RaporttiVirhe.h"
#include "reports/Raporttiajo.h"
#include "reports/Sivusto.h"
#include "reports/Tulostus.h"
#include "reports/ui/frmEsikatselu.h"
#include "reports/ui/frmTulostus.h"

#include <QApplication>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

namespace {

const QString EiTulostimia = QStringLiteral(
    "Tulostimia ei ole asennettu. Raportin voi katsoa ikkunassa ja tallentaa sieltä PDF-tiedostoksi.");

class QtTulostuskohde : public Tulostuskohde {
public:
    void esikatsele(const Sivusto &s, bool maksimoitu, bool tulostusnappi) override
    {
        frmEsikatselu w(s, tulostusnappi, QApplication::activeWindow());
        w.move(Raportti().WindowLeft, Raportti().WindowTop);
        if (maksimoitu)
            w.setWindowState(w.windowState() | Qt::WindowMaximized);
        w.exec();
    }

    std::unique_ptr<Sivuvirta> tulostus(const QString &nimi, int kopioita) override
    {
        const QStringList tulostimet = QPrinterInfo::availablePrinterNames();
        if (tulostimet.isEmpty())
            throw RaporttiVirhe(EiTulostimia);
        auto tulostin = std::make_unique<QPrinter>(QPrinter::HighResolution);
        if (!nimi.isEmpty()) {
            if (!tulostimet.contains(nimi))
                throw RaporttiVirhe(QStringLiteral("Tulostinta %1 ei löydy. Valitse tulostin uudelleen.").arg(nimi));
            tulostin->setPrinterName(nimi);
        }
        tulostin->setCopyCount(qMax(1, kopioita));
        return std::make_unique<Tulostinvirta>(std::move(tulostin));
    }
};

} // namespace

struct Tulostinvirta::Tila {
    std::unique_ptr<QPrinter> tulostin;
    QPainter p;
    Asiakirja pohja;
    int sivuja = 0;
};

Tulostinvirta::Tulostinvirta(std::unique_ptr<QPrinter> tulostin) : m(std::make_unique<Tila>())
{
    m->tulostin = std::move(tulostin);
}

Tulostinvirta::~Tulostinvirta()
{
    if (m->p.isActive()) { // not finished: the job goes nowhere
        m->tulostin->abort();
        m->p.end();
    }
}

void Tulostinvirta::alku(const Asiakirja &pohja)
{
    m->pohja = pohja;
    m->pohja.sivut.clear();
    QPrinter &t = *m->tulostin;
    t.setFullPage(true);
    t.setPageLayout(QPageLayout(pohja.sivukoko, pohja.suunta, QMarginsF()));
    t.setDocName(pohja.nimi);
    if (!m->p.begin(&t))
        throw RaporttiVirhe(QStringLiteral("Tulostus tulostimelle %1 ei onnistu.").arg(t.printerName()));
}

void Tulostinvirta::sivu(Sivu &&sivu)
{
    if (m->sivuja++ > 0)
        m->tulostin->newPage();
    const double mitta = m->tulostin->resolution() / yksikko::TwipsiaTuumalla;
    m->p.save();
    m->p.scale(mitta, mitta);
    PiirraSivu(m->p, m->pohja, sivu);
    m->p.restore();
}

void Tulostinvirta::loppu(int)
{
    m->p.end();
}

void AsennaTulostuskohde()
{
    static QtTulostuskohde kohde;
    AsetaTulostuskohde(&kohde);
}

void TulostaValinnalla(const Sivusto &s, QWidget *parent)
{
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        throw RaporttiVirhe(EiTulostimia);
    auto tulostin = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (!Raportti().PrinterName.isEmpty())
        tulostin->setPrinterName(Raportti().PrinterName);
    tulostin->setCopyCount(qMax<int>(1, Raportti().CopiesToPrinter));
    const int sivuja = qMax(1, s.sivuja());
    tulostin->setFromTo(1, sivuja);
    QPrintDialog valinta(tulostin.get(), parent);
    valinta.setWindowTitle(QStringLiteral("Tulosta"));
    valinta.setMinMax(1, sivuja);
    valinta.setOption(QAbstractPrintDialog::PrintPageRange);
    valinta.setOption(QAbstractPrintDialog::PrintCollateCopies);
    if (valinta.exec() != QDialog::Accepted)
        return;
    int ensimmainen = 1, viimeinen = sivuja;
    if (tulostin->printRange() == QPrinter::PageRange && tulostin->fromPage() > 0) {
        ensimmainen = qBound(1, tulostin->fromPage(), sivuja);
        viimeinen = qBound(ensimmainen, tulostin->toPage(), sivuja);
    }
    const std::unique_ptr<Edistyminen> edistyminen = UusiEdistyminen(QStringLiteral("Raporttia tulostetaan"));
    Tulostinvirta virta(std::move(tulostin));
    virta.alku(s.pohja());
    for (int i = ensimmainen; i <= viimeinen; ++i) {
        if (edistyminen) {
            edistyminen->vaihe(i - ensimmainen, viimeinen - ensimmainen + 1);
            if (edistyminen->keskeytetaanko())
                return; // the job is cancelled as it goes
        }
        virta.sivu(s.sivu(i - 1));
    }
    virta.loppu(s.pohja().riveja);
}

void PrintRaport(const QString &tiedosto, QWidget *parent)
{
    if (!NaytaTulostusasetukset(false, parent))
        return;
    AjaRaportti(tiedosto);
}
