// "Vonari - Jäsenkorttien tulostus": member cards for everyone, one member, the holders of an
// attribute or those without it, with the card's title and two lines at the bottom.
#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;

class frmJasenkortit : public QDialog {
    Q_OBJECT
public:
    explicit frmJasenkortit(QWidget *parent = nullptr);

    QComboBox *cmbNimet;
    QLineEdit *tOtsake;
    QLineEdit *tAlateksti1;
    QLineEdit *tAlateksti2;
    QCheckBox *chkMuille;
    QPushButton *cTulosta;
    QPushButton *cSulje;

    void cTulosta_Click();

private:
    void lataaNimet();
};

// Opens the member card window modally.
void AvaaJasenkortit(QWidget *parent);
