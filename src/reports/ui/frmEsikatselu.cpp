#include "reports/ui/frmEsikatselu.h"

#include "core/Ilmoitukset.h"
#include "platform/ajo.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "reports/Piirto.h"
#include "reports/RaporttiVirhe.h"
#include "reports/Sivusto.h"
#include "reports/ui/Raporttitulostus.h"
#include "reports/ui/Sivunakyma.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

frmEsikatselu::frmEsikatselu(const Sivusto &sivut, bool tulostusnappi, QWidget *parent) : QDialog(parent), m_sivut(sivut)
{
    setObjectName(QStringLiteral("frmEsikatselu"));
    setWindowTitle(QStringLiteral("Vonari - ") + sivut.pohja().nimi);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    cTulosta = new QPushButton(QStringLiteral("Tulosta..."), this);
    cTulosta->setObjectName(QStringLiteral("cTulosta"));
    cTulosta->setVisible(tulostusnappi);
    cPdf = new QPushButton(QStringLiteral("Tallenna PDF..."), this);
    cPdf->setObjectName(QStringLiteral("cPdf"));
    cmbZoom = new QComboBox(this);
    cmbZoom->setObjectName(QStringLiteral("cmbZoom"));
    cmbZoom->addItem(QStringLiteral("Sivun leveys"), 0);
    for (int pros : {50, 75, 100, 150, 200})
        cmbZoom->addItem(QStringLiteral("%1 %").arg(pros), pros);
    lblSivut = new QLabel(this);
    lblSivut->setObjectName(QStringLiteral("lblSivut"));
    cSulje = new QPushButton(QStringLiteral("Sulje"), this);
    cSulje->setObjectName(QStringLiteral("cSulje"));

    m_nakyma = new Sivunakyma(sivut, this);

    auto *napit = new QHBoxLayout;
    napit->addWidget(cTulosta);
    napit->addWidget(cPdf);
    napit->addWidget(cmbZoom);
    napit->addWidget(lblSivut);
    napit->addStretch();
    napit->addWidget(cSulje);
    auto *asettelu = new QVBoxLayout(this);
    asettelu->addLayout(napit);
    asettelu->addWidget(m_nakyma, 1);
    resize(900, 1000);

    connect(cTulosta, &QPushButton::clicked, this, &frmEsikatselu::tulosta);
    connect(cPdf, &QPushButton::clicked, this, &frmEsikatselu::tallennaPdf);
    connect(cSulje, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmbZoom, &QComboBox::currentIndexChanged, this, &frmEsikatselu::zoomaa);
    connect(m_nakyma, &Sivunakyma::sivuVaihtui, this, &frmEsikatselu::naytaSivu);
    connect(m_nakyma, &Sivunakyma::leveysMuuttui, this, [this] {
        if (cmbZoom->currentData().toInt() == 0) // "Sivun leveys" follows the width of the view
            zoomaa();
    });
    zoomaa();
}

int frmEsikatselu::nakyvaSivu() const
{
    return m_nakyma->nakyvaSivu();
}

void frmEsikatselu::zoomaa()
{
    const int pros = cmbZoom->currentData().toInt();
    double mitta;
    if (pros == 0)
        mitta = (m_nakyma->viewport()->width() - 40) / m_sivut.pohja().koko.width();
    else
        mitta = pros / 100.0 * logicalDpiX() / yksikko::TwipsiaTuumalla;
    m_nakyma->asetaMittakaava(qMax(0.01, mitta));
    naytaSivu();
}

void frmEsikatselu::naytaSivu()
{
    lblSivut->setText(QStringLiteral("sivu %1 / %2").arg(nakyvaSivu() + 1).arg(qMax(1, m_sivut.sivuja())));
}

bool frmEsikatselu::tallennaPdf()
{
    dlg::FileRequest pyynto;
    pyynto.title = QStringLiteral("Tallenna PDF-tiedostona");
    pyynto.filter = QStringLiteral("PDF-tiedostot (*.pdf)|*.pdf");
    pyynto.defaultExt = QStringLiteral("pdf");
    pyynto.startPath = files::joinPath(files::documentsFolder(), m_sivut.pohja().nimi + QStringLiteral(".pdf"));
    const QString polku = dlg::current().saveFile(pyynto);
    if (polku.isEmpty())
        return false;
    try {
        const std::unique_ptr<Edistyminen> edistyminen = UusiEdistyminen(QStringLiteral("PDF-tiedostoa tallennetaan"));
        KirjoitaPdf(m_sivut, polku, edistyminen.get());
        return true;
    } catch (const Keskeytetty &) {
        return false;
    } catch (const RaporttiVirhe &e) {
        IlmoitaVirhe(e.viesti());
        return false;
    }
}

void frmEsikatselu::tulosta()
{
    try {
        TulostaValinnalla(m_sivut, this);
    } catch (const RaporttiVirhe &e) {
        IlmoitaVirhe(e.viesti());
    }
}
