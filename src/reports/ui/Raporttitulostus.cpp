#include "reports/ui/Raporttitulostus.h"

#include "reports/Piirto.h"
#include "reports/RaporttiVirhe.h"
#include "reports/Raporttiajo.h"
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
    void esikatsele(const Asiakirja &d, bool maksimoitu, bool tulostusnappi) override
    {
        frmEsikatselu w(d, tulostusnappi, QApplication::activeWindow());
        w.move(Raportti().WindowLeft, Raportti().WindowTop);
        if (maksimoitu)
            w.setWindowState(w.windowState() | Qt::WindowMaximized);
        w.exec();
    }

    void tulosta(const Asiakirja &d, const QString &nimi, int kopioita) override
    {
        const QStringList tulostimet = QPrinterInfo::availablePrinterNames();
        if (tulostimet.isEmpty())
            throw RaporttiVirhe(EiTulostimia);
        QPrinter tulostin(QPrinter::HighResolution);
        if (!nimi.isEmpty()) {
            if (!tulostimet.contains(nimi))
                throw RaporttiVirhe(QStringLiteral("Tulostinta %1 ei löydy. Valitse tulostin uudelleen.").arg(nimi));
            tulostin.setPrinterName(nimi);
        }
        tulostin.setCopyCount(qMax(1, kopioita));
        TulostaAsiakirja(d, tulostin);
    }
};

} // namespace

void AsennaTulostuskohde()
{
    static QtTulostuskohde kohde;
    AsetaTulostuskohde(&kohde);

}

void TulostaAsiakirja(const Asiakirja &d, QPrinter &tulostin)
{
    tulostin.setFullPage(true);
    tulostin.setPageLayout(QPageLayout(d.sivukoko, d.suunta, QMarginsF()));
    tulostin.setDocName(d.nimi);
    QPainter p;
    if (!p.begin(&tulostin))
        throw RaporttiVirhe(QStringLiteral("Tulostus tulostimelle %1 ei onnistu.").arg(tulostin.printerName()));
    const double mitta = tulostin.resolution() / yksikko::TwipsiaTuumalla;
    for (int i = 0; i < qMax(1, int(d.sivut.size())); ++i) {
        if (i > 0)
            tulostin.newPage();
        p.save();
        p.scale(mitta, mitta);
        PiirraSivu(p, d, i);
        p.restore();
    }
    p.end();
}

void TulostaValinnalla(const Asiakirja &d, QWidget *parent)
{
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        throw RaporttiVirhe(EiTulostimia);
    QPrinter tulostin(QPrinter::HighResolution);
    if (!Raportti().PrinterName.isEmpty())
        tulostin.setPrinterName(Raportti().PrinterName);
    tulostin.setCopyCount(qMax<int>(1, Raportti().CopiesToPrinter));
    QPrintDialog valinta(&tulostin, parent);
    valinta.setWindowTitle(QStringLiteral("Tulosta"));
    if (valinta.exec() != QDialog::Accepted)
        return;
    TulostaAsiakirja(d, tulostin);
}

void PrintRaport(const QString &tiedosto, QWidget *parent)
{
    if (!NaytaTulostusasetukset(false, parent))
        return;
    AjaRaportti(tiedosto);
}
