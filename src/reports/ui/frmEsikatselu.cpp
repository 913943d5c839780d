#include "reports/ui/frmEsikatselu.h"

#include "core/Ilmoitukset.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "reports/Piirto.h"
#include "reports/RaporttiVirhe.h"
#include "reports/ui/Raporttitulostus.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPaintEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

// The pages as paper on a grey desk; only the pages in sight are painted.
class Sivunakyma : public QWidget {
public:
    Sivunakyma(const Asiakirja &d, QWidget *parent) : QWidget(parent), m_d(d) {}

    void asetaMittakaava(double pikseliaTwipille)
    {
        m_mitta = pikseliaTwipille;
        const QSizeF sivu = m_d.koko * m_mitta;
        const int sivuja = qMax(1, int(m_d.sivut.size()));
        setFixedSize(int(sivu.width()) + 2 * Reuna, sivuja * (int(sivu.height()) + Reuna) + Reuna);
        update();
    }
    double mittakaava() const { return m_mitta; }
    int sivunKorkeus() const { return int(m_d.koko.height() * m_mitta) + Reuna; }

protected:
    void paintEvent(QPaintEvent *e) override
    {
        QPainter p(this);
        p.fillRect(e->rect(), QColor(0x80, 0x80, 0x80));
        p.setRenderHint(QPainter::Antialiasing);
        p.setRenderHint(QPainter::TextAntialiasing);
        const QSizeF koko = m_d.koko * m_mitta;
        for (int i = 0; i < qMax(1, int(m_d.sivut.size())); ++i) {
            const QRectF paperi(Reuna, Reuna + i * sivunKorkeus(), koko.width(), koko.height());
            if (!paperi.intersects(e->rect()))
                continue;
            p.fillRect(paperi, Qt::white);
            p.save();
            p.setClipRect(paperi);
            p.translate(paperi.topLeft());
            p.scale(m_mitta, m_mitta);
            PiirraSivu(p, m_d, i);
            p.restore();
        }
    }

private:
    static constexpr int Reuna = 16;
    const Asiakirja &m_d;
    double m_mitta = 0.05;
};

frmEsikatselu::frmEsikatselu(Asiakirja asiakirja, bool tulostusnappi, QWidget *parent)
    : QDialog(parent), m_asiakirja(std::move(asiakirja))
{
    setObjectName(QStringLiteral("frmEsikatselu"));
    setWindowTitle(QStringLiteral("Vonari - ") + m_asiakirja.nimi);
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
    cSulje = new QPushButton(QStringLiteral("Sulje"), this);
    cSulje->setObjectName(QStringLiteral("cSulje"));

    m_sivut = new Sivunakyma(m_asiakirja, this);
    m_alue = new QScrollArea(this);
    m_alue->setWidget(m_sivut);
    m_alue->setAlignment(Qt::AlignHCenter);
    m_alue->setBackgroundRole(QPalette::Dark);

    auto *napit = new QHBoxLayout;
    napit->addWidget(cTulosta);
    napit->addWidget(cPdf);
    napit->addWidget(cmbZoom);
    napit->addWidget(lblSivut);
    napit->addStretch();
    napit->addWidget(cSulje);
    auto *asettelu = new QVBoxLayout(this);
    asettelu->addLayout(napit);
    asettelu->addWidget(m_alue, 1);
    resize(900, 1000);

    connect(cTulosta, &QPushButton::clicked, this, &frmEsikatselu::tulosta);
    connect(cPdf, &QPushButton::clicked, this, &frmEsikatselu::tallennaPdf);
    connect(cSulje, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmbZoom, &QComboBox::currentIndexChanged, this, &frmEsikatselu::zoomaa);
    connect(m_alue->verticalScrollBar(), &QScrollBar::valueChanged, this, &frmEsikatselu::naytaSivu);
    m_alue->viewport()->installEventFilter(this);
    zoomaa();
}

// "Sivun leveys" follows the width of the view as the window is laid out and resized.
bool frmEsikatselu::eventFilter(QObject *o, QEvent *e)
{
    if (o == m_alue->viewport() && e->type() == QEvent::Resize && cmbZoom->currentData().toInt() == 0)
        zoomaa();
    return QDialog::eventFilter(o, e);
}

void frmEsikatselu::zoomaa()
{
    const int pros = cmbZoom->currentData().toInt();
    double mitta;
    if (pros == 0)
        mitta = (m_alue->viewport()->width() - 40) / m_asiakirja.koko.width();
    else
        mitta = pros / 100.0 * logicalDpiX() / yksikko::TwipsiaTuumalla;
    m_sivut->asetaMittakaava(qMax(0.01, mitta));
    naytaSivu();
}

void frmEsikatselu::naytaSivu()
{
    const int sivuja = qMax(1, int(m_asiakirja.sivut.size()));
    const int sivu = qBound(1, m_alue->verticalScrollBar()->value() / qMax(1, m_sivut->sivunKorkeus()) + 1, sivuja);
    lblSivut->setText(QStringLiteral("sivu %1 / %2").arg(sivu).arg(sivuja));
}

bool frmEsikatselu::tallennaPdf()
{
    dlg::FileRequest pyynto;
    pyynto.title = QStringLiteral("Tallenna PDF-tiedostona");
    pyynto.filter = QStringLiteral("PDF-tiedostot (*.pdf)|*.pdf");
    pyynto.defaultExt = QStringLiteral("pdf");
    pyynto.startPath = files::joinPath(files::documentsFolder(), m_asiakirja.nimi + QStringLiteral(".pdf"));
    const QString polku = dlg::current().saveFile(pyynto);
    if (polku.isEmpty())
        return false;
    try {
        KirjoitaPdf(m_asiakirja, polku);
        return true;
    } catch (const RaporttiVirhe &e) {
        IlmoitaVirhe(e.viesti());
        return false;
    }
}

void frmEsikatselu::tulosta()
{
    try {
        TulostaValinnalla(m_asiakirja, this);
    } catch (const RaporttiVirhe &e) {
        IlmoitaVirhe(e.viesti());
    }
}
