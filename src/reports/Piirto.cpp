#include "reports/Piirto.h"

#include "reports/Koodit.h"
#include "platform/ajo.h"
#include "reports/RaporttiVirhe.h"
#include "reports/Sivusto.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace {

void piirraTeksti(QPainter &p, const Asiakirja &d, const Tulostekohde &k, std::vector<std::optional<QFontMetricsF>> &mitat,
                  int &nykyinen)
{
    if (k.fontti < 0 || k.fontti >= int(d.fontit.size()))
        return;
    if (nykyinen != k.fontti) {
        p.setFont(d.fontit[size_t(k.fontti)]);
        nykyinen = k.fontti;
    }
    auto &fm = mitat[size_t(k.fontti)];
    if (!fm)
        fm.emplace(d.fontit[size_t(k.fontti)]);
    if (p.pen().color().rgba() != k.vari)
        p.setPen(QColor::fromRgba(k.vari));
    // A turned text runs along the box's height; its alignment is along that length.
    const double pituus = k.kierto ? k.alue.height() : k.alue.width();
    double x = 0;
    if (k.tasaus & (Qt::AlignRight | Qt::AlignHCenter)) {
        const double vapaa = pituus - fm->horizontalAdvance(k.teksti);
        x += (k.tasaus & Qt::AlignRight) ? vapaa : vapaa / 2;
    }
    if (k.kierto == 0) {
        p.drawText(QPointF(k.alue.left() + x, k.alue.top() + fm->ascent()), k.teksti);
        return;
    }
    p.save();
    if (k.kierto == 90) {
        p.translate(k.alue.bottomLeft());
        p.rotate(-90);
    } else {
        p.translate(k.alue.topRight());
        p.rotate(90);
    }
    p.drawText(QPointF(x, fm->ascent()), k.teksti);
    p.restore();
}

// Content that no symbol can carry is drawn as text in a frame: it is never left out of the print.
void piirraKoodinPaikka(QPainter &p, const Tulostekohde &k)
{
    p.save();
    p.setPen(QPen(QColor::fromRgba(k.vari), 10));
    p.setBrush(Qt::NoBrush);
    p.drawRect(k.alue);
    QFont f(QStringLiteral("DejaVu Sans Mono"));
    f.setPixelSize(140);
    p.setFont(f);
    p.drawText(k.alue.adjusted(40, 0, -40, 0), Qt::AlignCenter | Qt::TextWrapAnywhere, k.teksti);
    p.restore();
}

} // namespace

void PiirraSivu(QPainter &p, const Asiakirja &d, int sivu)
{
    if (sivu >= 0 && sivu < int(d.sivut.size()))
        PiirraSivu(p, d, d.sivut[size_t(sivu)]);
}

void PiirraSivu(QPainter &p, const Asiakirja &d, const Sivu &sivu)
{
    std::vector<std::optional<QFontMetricsF>> mitat(d.fontit.size());
    int fontti = -1;
    p.setPen(Qt::black);
    for (const Tulostekohde &k : sivu.kohteet) {
        switch (k.laji) {
        case KohdeLaji::Teksti:
            piirraTeksti(p, d, k, mitat, fontti);
            break;
        case KohdeLaji::Viiva:
            p.save();
            p.setPen(QPen(QColor::fromRgba(k.vari), k.paksuus, Qt::SolidLine, Qt::FlatCap));
            p.drawLine(k.alue.topLeft(), k.alue.bottomRight());
            p.restore();
            break;
        case KohdeLaji::Laatikko:
            p.save();
            if (qAlpha(k.tausta) > 0)
                p.fillRect(k.alue, QColor::fromRgba(k.tausta));
            if (k.paksuus > 0) {
                p.setPen(QPen(QColor::fromRgba(k.vari), k.paksuus));
                p.setBrush(Qt::NoBrush);
                p.drawRect(k.alue);
            }
            p.restore();
            break;
        case KohdeLaji::Kuva: {
            const QImage kuva(k.teksti);
            if (!kuva.isNull())
                p.drawImage(k.alue, kuva);
            break;
        }
        case KohdeLaji::Viivakoodi:
        case KohdeLaji::QrKoodi:
            if (!PiirraKoodi(p, k))
                piirraKoodinPaikka(p, k);
            break;
        }
    }
}

PdfVirta::PdfVirta(const QString &polku) : m_polku(polku) {}

PdfVirta::~PdfVirta()
{
    // Not finished: the painter lets go of the writer, and the temporary file goes unsaved.
    if (m_p.isActive())
        m_p.end();
    m_pdf.reset();
    if (m_tiedosto)
        m_tiedosto->cancelWriting();
}

void PdfVirta::alku(const Asiakirja &pohja)
{
    m_pohja = pohja;
    m_pohja.sivut.clear();
    m_tiedosto = std::make_unique<QSaveFile>(m_polku);
    if (!m_tiedosto->open(QIODevice::WriteOnly))
        throw RaporttiVirhe(QStringLiteral("PDF-tiedostoa %1 ei voi kirjoittaa: %2.").arg(m_polku, m_tiedosto->errorString()));
    m_pdf = std::make_unique<QPdfWriter>(m_tiedosto.get());
    m_pdf->setResolution(1440);
    m_pdf->setTitle(pohja.nimi);
    m_pdf->setCreator(QStringLiteral("Vonari"));
    m_pdf->setPageLayout(QPageLayout(pohja.sivukoko, pohja.suunta, QMarginsF(0, 0, 0, 0)));
    if (!m_p.begin(m_pdf.get()))
        throw RaporttiVirhe(QStringLiteral("PDF-tiedostoa %1 ei voi kirjoittaa.").arg(m_polku));
}

void PdfVirta::sivu(Sivu &&sivu)
{
    if (m_sivuja++ > 0)
        m_pdf->newPage();
    PiirraSivu(m_p, m_pohja, sivu);
}

void PdfVirta::loppu(int)
{
    m_p.end();
    m_pdf.reset();
    if (!m_tiedosto->commit())
        throw RaporttiVirhe(QStringLiteral("PDF-tiedostoa %1 ei voi kirjoittaa: %2.").arg(m_polku, m_tiedosto->errorString()));
    m_tiedosto.reset();
}

void KirjoitaPdf(const Asiakirja &d, const QString &polku)
{
    KirjoitaPdf(Muistisivusto(d), polku, nullptr);
}

void KirjoitaPdf(const Sivusto &s, const QString &polku, Edistyminen *edistyminen)
{
    PdfVirta pdf(polku);
    pdf.alku(s.pohja());
    const int sivuja = s.sivuja();
    for (int i = 0; i < sivuja; ++i) {
        if (edistyminen) {
            edistyminen->vaihe(i, sivuja);
            if (edistyminen->keskeytetaanko())
                throw Keskeytetty();
        }
        pdf.sivu(s.sivu(i));
    }
    pdf.loppu(s.pohja().riveja);
}
