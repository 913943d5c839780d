// Merges one attribute into another: every attachment of the first moves to the second.
#pragma once

#include <QDialog>

class QComboBox;
class QPushButton;

class frmOminaisuudenYhdistaminen : public QDialog {
    Q_OBJECT
public:
    explicit frmOminaisuudenYhdistaminen(QWidget *parent = nullptr);

    QComboBox *cmbYhdistettava, *cmbYhdistetaan;
    QPushButton *cCombine, *cUndo;

private:
    void yhdista();
};

void AvaaOminaisuudenYhdistaminen(QWidget *parent);
