// A run's progress on screen. Edistymispalkki drives a window's own progress bar and "Keskeytä"
// button and keeps the window's run buttons off while the run is open; Edistymisikkuna is the
// same in a small window of its own, for runs whose window has no bar.
#pragma once

#include "platform/ajo.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QVector>
#include <functional>
#include <memory>

class QDialog;
class QProgressBar;
class QPushButton;
class QWidget;

class Edistymispalkki : public Edistyminen {
public:
    // `ajonAikanaPois`: the buttons that would start another run or leave the window.
    Edistymispalkki(QProgressBar *palkki, QPushButton *keskeyta, QVector<QWidget *> ajonAikanaPois = {});
    ~Edistymispalkki() override;
    Edistymispalkki(const Edistymispalkki &) = delete;
    Edistymispalkki &operator=(const Edistymispalkki &) = delete;

    void vaihe(qint64 tehty, qint64 yhteensa) override;
    bool keskeytetaanko() override;

private:
    QPointer<QProgressBar> m_palkki;
    QPointer<QPushButton> m_keskeyta;
    QVector<QPointer<QWidget>> m_pois;
    QElapsedTimer m_kello;
    bool m_keskeytetty = false;
};

class Edistymisikkuna;

// Runs `tyo(edistyminen)` with a progress window. A stop tells the user that nothing was saved
// and returns false; the run's transaction has rolled back by then.
bool AjaEdistyen(QWidget *omistaja, const QString &otsikko, const std::function<void(Edistyminen *)> &tyo);

class Edistymisikkuna : public Edistyminen {
public:
    Edistymisikkuna(QWidget *omistaja, const QString &otsikko);
    ~Edistymisikkuna() override;

    void vaihe(qint64 tehty, qint64 yhteensa) override;
    bool keskeytetaanko() override;

private:
    std::unique_ptr<QDialog> m_ikkuna;
    std::unique_ptr<Edistymispalkki> m_palkki;
    QElapsedTimer m_alusta;
};
