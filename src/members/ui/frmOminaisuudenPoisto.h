// Removes one attribute from the members who hold another.
#pragma once

#include <QDialog>

class QComboBox;
class QPushButton;

class frmOminaisuudenPoisto : public QDialog {
    Q_OBJECT
public:
    explicit frmOminaisuudenPoisto(QWidget *parent = nullptr);

    QComboBox *cmbPoistettava, *cmbPoistoEhto;
    QPushButton *cDelete, *cUndo;

private:
    void poista();
};

void AvaaOminaisuudenPoisto(QWidget *parent);
