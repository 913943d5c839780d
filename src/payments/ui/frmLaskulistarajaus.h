// "Vonari - Laskulistan rajaus": which invoices a billing or reference list holds — all, the
// membership invoices alone, or the others.
#pragma once

#include "payments/Laskulistat.h"

#include <QDialog>
#include <QVector>

class QRadioButton;
class QPushButton;

class frmLaskulistarajaus : public QDialog {
    Q_OBJECT
public:
    explicit frmLaskulistarajaus(QWidget *parent = nullptr);

    QVector<QRadioButton *> optRajaus; // "Kaikki laskut", "Vain jäsenlaskut", "Muut kuin jäsenlaskut"
    QPushButton *cSeuraava;

    Laskurajaus valinta() const;
};
