#include "reports/Koodit.h"

#include <QPainter>
#include <memory>
#include <zint.h>

namespace {
struct Poistaja {
    void operator()(zint_symbol *s) const { ZBarcode_Delete(s); }
};
} // namespace

bool PiirraKoodi(QPainter &p, const Tulostekohde &k)
{
    const bool qr = k.laji == KohdeLaji::QrKoodi;
    if ((!qr && k.laji != KohdeLaji::Viivakoodi) || k.teksti.isEmpty() || k.alue.isEmpty())
        return false;
    std::unique_ptr<zint_symbol, Poistaja> s(ZBarcode_Create());
    if (!s)
        return false;
    s->symbology = qr ? BARCODE_QRCODE : BARCODE_CODE128;
    s->output_options |= BARCODE_QUIET_ZONES;
    s->show_hrt = 0; // the report prints the readable text where it wants it
    if (qr) {
        // The text's UTF-8 bytes as they are, without an ECI header: the payment QR names its
        // character set on its own second line, and some banking apps stop at an ECI header.
        s->input_mode = DATA_MODE;
        s->option_1 = 2; // error correction M
    } else {
        s->input_mode = UNICODE_MODE; // Code 128 carries Latin-1: a text outside it is refused
    }
    const QByteArray utf8 = k.teksti.toUtf8();
    if (ZBarcode_Encode(s.get(), reinterpret_cast<const unsigned char *>(utf8.constData()), int(utf8.size())) >= ZINT_ERROR)
        return false;
    if (ZBarcode_Buffer_Vector(s.get(), 0) >= ZINT_ERROR || !s->vector || s->vector->width <= 0 || s->vector->height <= 0)
        return false;

    const zint_vector &v = *s->vector;
    double sx = k.alue.width() / v.width, sy = k.alue.height() / v.height;
    QPointF alku = k.alue.topLeft();
    if (qr) {
        sx = sy = qMin(sx, sy);
        alku += QPointF((k.alue.width() - v.width * sx) / 2, (k.alue.height() - v.height * sy) / 2);
    }
    p.save();
    p.fillRect(QRectF(alku, QSizeF(v.width * sx, v.height * sy)), Qt::white);
    const QColor vari = QColor::fromRgba(k.vari);
    for (const zint_vector_rect *r = v.rectangles; r; r = r->next)
        if (r->colour != 8) // 8 is white: the background is already there
            p.fillRect(QRectF(alku.x() + r->x * sx, alku.y() + r->y * sy, r->width * sx, r->height * sy), vari);
    p.restore();
    return true;
}
