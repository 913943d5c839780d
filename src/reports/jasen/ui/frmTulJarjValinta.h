// "Vonari - Tulostusjärjestyksen valinta": the print order of a list (surname, postal code or
// birth date). The caller hands the answer on to the search conditions.
#pragma once

#include <QDialog>
#include <QVector>

class QGroupBox;
class QPushButton;
class QRadioButton;

class frmTulJarjValinta : public QDialog {
    Q_OBJECT
public:
    explicit frmTulJarjValinta(int iTulJarj = 0, QWidget *parent = nullptr);

    QGroupBox *frameTulJarj;
    QVector<QRadioButton *> optTulJarj; // 0 "Aakkostettu", 1 "Postinumero", 2 "Syntymäpäivä"
    QPushButton *cSeuraava;

    int iTulJarj = 0; // the answer, after "Seuraava >>"
    bool Cancelled = true;

private:
    void cSeuraava_Click();
};

// The frame of the three orders, shared with the print type window.
QGroupBox *TulostusjarjestysKehys(QWidget *parent, QVector<QRadioButton *> &napit, int valittu);
