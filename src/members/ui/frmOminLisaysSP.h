// Attaches an attribute to the members born within a range of dates.
#pragma once

#include <QDialog>

class LiitosPohja;
class QLineEdit;
class QPushButton;

class frmOminLisaysSP : public QDialog {
    Q_OBJECT
public:
    explicit frmOminLisaysSP(QWidget *parent = nullptr);

    QLineEdit *tVanhin, *tNuorin;
    QPushButton *cLisaa, *cSulje;
    LiitosPohja *pohja;

private:
    void lisaa();
};

void AvaaOminLisaysSP(QWidget *parent);
