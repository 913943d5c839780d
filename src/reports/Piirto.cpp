#include "reports/Piirto.h"

#include "reports/Koodit.h"
#include "reports/RaporttiVirhe.h"

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
    if (sivu < 0 || sivu >= int(d.sivut.size()))
        return;
    std::vector<std::optional<QFontMetricsF>> mitat(d.fontit.size());
    int fontti = -1;
    p.setPen(Qt::black);
    for (const Tulostekohde &k : d.sivut[size_t(sivu)].kohteet) {
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

void KirjoitaPdf(const Asiakirja &d, const QString &polku)
{
    QSaveFile tiedosto(polku);
    if (!tiedosto.open(QIODevice::WriteOnly))
        throw RaporttiVirhe(QStringLiteral("PDF-tiedostoa %1 ei voi kirjoittaa: %2.").arg(polku, tiedosto.errorString()));
    {
        QPdfWriter pdf(&tiedosto);
        pdf.setResolution(1440);
        pdf.setTitle(d.nimi);
        pdf.setCreator(QStringLiteral("Vonari"));
        pdf.setPageLayout(QPageLayout(d.sivukoko, d.suunta, QMarginsF(0, 0, 0, 0)));
        QPainter p;
        if (!p.begin(&pdf))
            throw RaporttiVirhe(QStringLiteral("PDF-tiedostoa %1 ei voi kirjoittaa.").arg(polku));
        const int sivuja = qMax(1, int(d.sivut.size()));
        for (int i = 0; i < sivuja; ++i) {
            if (i > 0)
                pdf.newPage();
            PiirraSivu(p, d, i);
        }
        p.end();
    }
    if (!tiedosto.commit())
        throw RaporttiVirhe(QStringLiteral("PDF-tiedostoa %1 ei voi kirjoittaa: %2.").arg(polku, tiedosto.errorString()));
}
