// "Vonari - Tulostusmuodon valinta": the print order and the type of list for "Luettelot ja
// tarrat". The options stand in the order the users know; each hands on the number of its
// report (0 list, 1 list with attributes, 2 wide list, 3 labels, 4 labels with titles,
// 5 address sheet, 6 member list, 7 register information, 8 list by street).
#pragma once

#include <QDialog>
#include <QVector>

class QGroupBox;
class QPushButton;
class QRadioButton;

class frmTulostusmuodonvalinta : public QDialog {
    Q_OBJECT
public:
    explicit frmTulostusmuodonvalinta(int iTulJarj = 0, int iPrintType = 0, QWidget *parent = nullptr);

    QGroupBox *frameTulJarj;
    QVector<QRadioButton *> optTulJarj;
    QGroupBox *frameTulostevalinnat;
    QVector<QRadioButton *> optPrintType; // in the order shown
    QPushButton *cSeuraava;

    // The report number of each option of optPrintType.
    static const int Raportti[9];

    int iTulJarj = 0;
    int iPrintType = 0;
    bool Cancelled = true;

private:
    void cSeuraava_Click();
};
