#include "core/ui/Kuvakkeet.h"

#include <QPainter>
#include <QPainterPath>
#include <functional>

namespace Kuvakkeet {
namespace {

const QColor kSininen(0x1f, 0x5f, 0xa8);
const QColor kVihrea(0x2e, 0x8b, 0x57);
const QColor kPunainen(0xc0, 0x39, 0x2b);
const QColor kPaperi(0xfb, 0xfb, 0xf6);
const QColor kViiva(0x44, 0x44, 0x44);

// Icons are drawn on a 32 × 32 grid and scaled to the size asked.
QIcon piirra(const std::function<void(QPainter &)> &kuva)
{
    QIcon icon;
    for (int koko : {16, 24, 32, 48, 64}) {
        QPixmap pm(koko, koko);
        pm.fill(Qt::transparent);
        QPainter p(&pm);
        p.setRenderHint(QPainter::Antialiasing);
        p.scale(koko / 32.0, koko / 32.0);
        kuva(p);
        p.end();
        icon.addPixmap(pm);
    }
    return icon;
}

void henkilo(QPainter &p, const QPointF &keskus, double koko, const QColor &vari)
{
    p.setPen(QPen(vari.darker(130), 1));
    p.setBrush(vari);
    p.drawEllipse(QPointF(keskus.x(), keskus.y() - koko * 0.55), koko * 0.32, koko * 0.32);
    QPainterPath vartalo;
    vartalo.moveTo(keskus.x() - koko * 0.55, keskus.y() + koko * 0.6);
    vartalo.quadTo(keskus.x() - koko * 0.55, keskus.y() - koko * 0.15, keskus.x(), keskus.y() - koko * 0.15);
    vartalo.quadTo(keskus.x() + koko * 0.55, keskus.y() - koko * 0.15, keskus.x() + koko * 0.55, keskus.y() + koko * 0.6);
    vartalo.closeSubpath();
    p.drawPath(vartalo);
}

} // namespace

QPixmap tunnus(int koko)
{
    QPixmap pm(koko, koko);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(koko / 32.0, koko / 32.0);
    QLinearGradient liuku(0, 0, 0, 32);
    liuku.setColorAt(0, kSininen.lighter(125));
    liuku.setColorAt(1, kSininen.darker(115));
    p.setPen(Qt::NoPen);
    p.setBrush(liuku);
    p.drawRoundedRect(QRectF(1, 1, 30, 30), 7, 7);
    p.setPen(QPen(Qt::white, 4.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPolyline(QPolygonF({QPointF(8.5, 8.5), QPointF(16, 24), QPointF(23.5, 8.5)}));
    return pm;
}

QIcon jasenrekisteri()
{
    return piirra([](QPainter &p) {
        henkilo(p, QPointF(21, 17), 12, kVihrea.lighter(120));
        henkilo(p, QPointF(12, 19), 14, kSininen);
    });
}

QIcon maksukirja()
{
    return piirra([](QPainter &p) {
        p.setPen(QPen(kSininen.darker(140), 1.2));
        p.setBrush(kSininen);
        p.drawRoundedRect(QRectF(6, 4, 21, 25), 2, 2);
        p.setBrush(kPaperi);
        p.drawRect(QRectF(9, 7, 15, 19));
        p.setPen(QPen(kViiva, 1.2));
        for (double y : {11.0, 14.5, 18.0, 21.5})
            p.drawLine(QPointF(11, y), QPointF(22, y));
        p.setPen(QPen(kSininen.darker(140), 2));
        p.drawLine(QPointF(8, 4.5), QPointF(8, 28.5));
    });
}

QIcon laskutus()
{
    return piirra([](QPainter &p) {
        p.setPen(QPen(kViiva, 1.2));
        p.setBrush(kPaperi);
        QPolygonF arkki({QPointF(7, 3), QPointF(20, 3), QPointF(26, 9), QPointF(26, 29), QPointF(7, 29)});
        p.drawPolygon(arkki);
        p.drawPolyline(QPolygonF({QPointF(20, 3), QPointF(20, 9), QPointF(26, 9)}));
        for (double y : {9.0, 12.5})
            p.drawLine(QPointF(10, y), QPointF(17, y));
        QFont fontti(QStringLiteral("DejaVu Sans"));
        fontti.setPixelSize(13);
        fontti.setBold(true);
        p.setFont(fontti);
        p.setPen(kVihrea);
        p.drawText(QRectF(7, 14, 19, 14), Qt::AlignCenter, QStringLiteral("€"));
    });
}

QIcon ominaisuudet()
{
    return piirra([](QPainter &p) {
        p.setPen(QPen(QColor(0xb0, 0x7d, 0x12), 1.2));
        p.setBrush(QColor(0xf2, 0xc1, 0x4e));
        QPolygonF lappu({QPointF(4, 14), QPointF(14, 4), QPointF(27, 4), QPointF(27, 17), QPointF(17, 27)});
        p.drawPolygon(lappu);
        p.setBrush(Qt::white);
        p.drawEllipse(QPointF(21.5, 9.5), 2.5, 2.5);
        p.setPen(QPen(kViiva, 1.4));
        p.drawLine(QPointF(10, 17), QPointF(16, 11));
        p.drawLine(QPointF(13, 20), QPointF(19, 14));
    });
}

QIcon sulje()
{
    return piirra([](QPainter &p) {
        p.setPen(QPen(kPunainen.darker(130), 1.2));
        p.setBrush(kPunainen);
        p.drawEllipse(QPointF(16, 16), 12.5, 12.5);
        p.setPen(QPen(Qt::white, 3.2, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(11, 11), QPointF(21, 21));
        p.drawLine(QPointF(21, 11), QPointF(11, 21));
    });
}

} // namespace Kuvakkeet
