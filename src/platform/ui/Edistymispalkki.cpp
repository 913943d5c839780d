#include "platform/ui/Edistymispalkki.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {
// The interface answers between steps this often; more often only slows the run.
constexpr int kVali = 40;
// A run shorter than this never shows its window.
constexpr int kViive = 400;
}

Edistymispalkki::Edistymispalkki(QProgressBar *palkki, QPushButton *keskeyta, QVector<QWidget *> ajonAikanaPois)
    : m_palkki(palkki), m_keskeyta(keskeyta)
{
    for (QWidget *w : ajonAikanaPois) {
        if (w && w->isEnabled()) {
            w->setEnabled(false);
            m_pois << w;
        }
    }
    if (m_palkki) {
        m_palkki->setRange(0, 0);
        m_palkki->setValue(0);
        m_palkki->setVisible(true);
    }
    if (m_keskeyta) {
        m_keskeyta->setEnabled(true);
        m_keskeyta->setVisible(true);
        QObject::connect(m_keskeyta, &QPushButton::clicked, m_keskeyta, [this] { m_keskeytetty = true; });
    }
    m_kello.start();
}

Edistymispalkki::~Edistymispalkki()
{
    if (m_keskeyta) {
        QObject::disconnect(m_keskeyta, &QPushButton::clicked, m_keskeyta, nullptr);
        m_keskeyta->setEnabled(false); // nothing left to stop
    }
    if (m_palkki) {
        m_palkki->setRange(0, 1); // a bar left busy would look like a run still going
        m_palkki->reset();
    }
    for (const auto &w : m_pois)
        if (w)
            w->setEnabled(true);
}

void Edistymispalkki::vaihe(qint64 tehty, qint64 yhteensa)
{
    if (m_kello.isValid() && m_kello.elapsed() < kVali && tehty < yhteensa)
        return;
    m_kello.restart();
    if (m_palkki) {
        // A bar counts in int: large totals are shown in thousandths.
        if (yhteensa <= 0) {
            m_palkki->setRange(0, 0);
        } else {
            m_palkki->setRange(0, 1000);
            m_palkki->setValue(int(std::clamp<qint64>(tehty * 1000 / yhteensa, 0, 1000)));
        }
    }
    QApplication::processEvents();
}

bool Edistymispalkki::keskeytetaanko() { return m_keskeytetty; }

Edistymisikkuna::Edistymisikkuna(QWidget *omistaja, const QString &otsikko) : m_ikkuna(std::make_unique<QDialog>(omistaja))
{
    m_ikkuna->setWindowTitle(otsikko);
    // The rest of the program waits for the run: nothing else may write meanwhile.
    m_ikkuna->setWindowModality(Qt::ApplicationModal);
    m_ikkuna->setWindowFlags(m_ikkuna->windowFlags() & ~Qt::WindowCloseButtonHint);
    auto *asettelu = new QVBoxLayout(m_ikkuna.get());
    auto *teksti = new QLabel(otsikko, m_ikkuna.get());
    auto *palkki = new QProgressBar(m_ikkuna.get());
    palkki->setMinimumWidth(360);
    palkki->setTextVisible(false);
    auto *nappi = new QPushButton(QStringLiteral("Keskeytä"), m_ikkuna.get());
    asettelu->addWidget(teksti);
    asettelu->addWidget(palkki);
    asettelu->addWidget(nappi, 0, Qt::AlignRight);
    // Esc and the window's close are a cancel too.
    QObject::connect(m_ikkuna.get(), &QDialog::rejected, nappi, &QPushButton::click);
    m_palkki = std::make_unique<Edistymispalkki>(palkki, nappi);
    m_alusta.start();
}

Edistymisikkuna::~Edistymisikkuna() = default;

void Edistymisikkuna::vaihe(qint64 tehty, qint64 yhteensa)
{
    if (!m_ikkuna->isVisible() && m_alusta.elapsed() >= kViive)
        m_ikkuna->show();
    m_palkki->vaihe(tehty, yhteensa);
}

bool Edistymisikkuna::keskeytetaanko() { return m_palkki->keskeytetaanko(); }

bool AjaEdistyen(QWidget *omistaja, const QString &otsikko, const std::function<void(Edistyminen *)> &tyo)
{
    try {
        Edistymisikkuna ikkuna(omistaja, otsikko);
        tyo(&ikkuna);
        return true;
    } catch (const Keskeytetty &) {
        dlg::current().message(QStringLiteral("Keskeytetty. Mitään ei tallennettu."), dlg::Icon::Information, otsikko);
        return false;
    }
}
