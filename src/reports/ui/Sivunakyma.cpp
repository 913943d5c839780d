#include "reports/ui/Sivunakyma.h"

#include "reports/Piirto.h"
#include "reports/Sivusto.h"

#include <QPaintEvent>
#include <QResizeEvent>
#include <QPainter>
#include <QScrollBar>
#include <cmath>

Sivunakyma::Sivunakyma(const Sivusto &sivut, QWidget *parent)
    : QAbstractScrollArea(parent), m_sivut(sivut), m_pohja(sivut.pohja()), m_sivuja(qMax(1, sivut.sivuja()))
{
    setBackgroundRole(QPalette::Dark);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { emit sivuVaihtui(nakyvaSivu()); });
}

void Sivunakyma::asetaMittakaava(double pikseliaTwipille)
{
    const int arvo = verticalScrollBar()->value();
    m_mitta = pikseliaTwipille;
    paivitaPalkit();
    verticalScrollBar()->setValue(arvo); // counted in pages: the same page stays in view
    viewport()->update();
}

int Sivunakyma::nakyvaSivu() const
{
    return qBound(0, verticalScrollBar()->value() / Askeleita, m_sivuja - 1);
}

void Sivunakyma::naytaSivu(int sivu)
{
    verticalScrollBar()->setValue(qBound(0, sivu, m_sivuja - 1) * Askeleita);
}

void Sivunakyma::paivitaPalkit()
{
    const QSizeF koko = sivunKoko();
    // The last page may come up to the top of the view, the desk grey below it.
    QScrollBar *pysty = verticalScrollBar();
    pysty->setRange(0, (m_sivuja - 1) * Askeleita);
    pysty->setPageStep(qMax(1, int(viewport()->height() / askelenKorkeus())));
    pysty->setSingleStep(qMax(1, int(40 / askelenKorkeus())));
    QScrollBar *vaaka = horizontalScrollBar();
    vaaka->setRange(0, qMax(0, int(koko.width()) + 2 * Reuna - viewport()->width()));
    vaaka->setPageStep(viewport()->width());
    vaaka->setSingleStep(40);
}

void Sivunakyma::resizeEvent(QResizeEvent *e)
{
    QAbstractScrollArea::resizeEvent(e);
    paivitaPalkit();
    if (e->size().width() != e->oldSize().width())
        emit leveysMuuttui();
}

const Sivu &Sivunakyma::sivu(int i)
{
    auto it = m_luetut.find(i);
    if (it != m_luetut.end())
        return it->second;
    while (m_luetutJarjestys.size() >= 8) {
        m_luetut.erase(m_luetutJarjestys.front());
        m_luetutJarjestys.pop_front();
    }
    m_luetutJarjestys.push_back(i);
    return m_luetut.emplace(i, m_sivut.sivu(i)).first->second;
}

void Sivunakyma::paintEvent(QPaintEvent *e)
{
    QPainter p(viewport());
    p.fillRect(e->rect(), QColor(0x80, 0x80, 0x80));
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    const QSizeF koko = sivunKoko();
    const double vali = koko.height() + Reuna;
    const int arvo = verticalScrollBar()->value();
    const int ensimmainen = arvo / Askeleita;
    double y = Reuna - (arvo % Askeleita) * askelenKorkeus();
    const double x = koko.width() + 2 * Reuna <= viewport()->width() ? (viewport()->width() - koko.width()) / 2
                                                                      : Reuna - horizontalScrollBar()->value();
    for (int i = ensimmainen; i < m_sivuja && y < viewport()->height(); ++i, y += vali) {
        const QRectF paperi(x, y, koko.width(), koko.height());
        if (!paperi.intersects(e->rect()))
            continue;
        p.fillRect(paperi, Qt::white);
        p.save();
        p.setClipRect(paperi);
        p.translate(paperi.topLeft());
        p.scale(m_mitta, m_mitta);
        PiirraSivu(p, m_pohja, sivu(i));
        p.restore();
    }
}
