// The search conditions: which members a list, a label run, an editable report or the address
// export is for. The answer goes to the block `Haku` (members/Hakuehdot.h); the callers then
// translate it with AsetaMukaan, KoostaValintakaava, KoostaValintaSql or KoostaRajausteksti.
#pragma once

#include <QDialog>
#include <QVector>

class QButtonGroup;
class QCheckBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

// Shows the window modally and writes the answers to `Haku`. False when the window could not
// open (no database; the user has been told) or was closed without "Seuraava >>": the block is
// then as it was.
bool NaytaHakuehdot(QWidget *parent = nullptr);

class frmHakuehdot : public QDialog {
    Q_OBJECT
public:
    explicit frmHakuehdot(QWidget *parent = nullptr);

    // Fills the list of attributes and shows the block's present answers. False, with the
    // message shown, when the database is not there to read.
    bool Lataa();

    QListWidget *lstOminaisuudet;
    QCheckBox *chkPiirre;
    QRadioButton *optJA;
    QRadioButton *optTAI;

    QGroupBox *frameTarkennukset;
    QLineEdit *tDate;
    QLineEdit *tLong;
    QLineEdit *tCurrency;
    // Index 0 smaller, 1 equal, 2 greater, as the operator codes.
    QVector<QRadioButton *> optDate;
    QVector<QRadioButton *> optLong;
    QVector<QRadioButton *> optCurrency;

    QVector<QRadioButton *> optKaikkiVaiPerhe;
    QVector<QRadioButton *> optJasenmaksu;
    QLineEdit *tSyntAika;
    QLineEdit *tLiit;
    QVector<QRadioButton *> optSyntAika;
    QVector<QRadioButton *> optLiit;
    QLineEdit *tPostiNumeroAlku;
    QLineEdit *tPostiNumeroLoppu;

    QPushButton *cSeuraava;

protected:
    bool eventFilter(QObject *kohde, QEvent *tapahtuma) override;

private:
    QWidget *luoOminaisuudet();
    QWidget *luoRajoitukset();
    QLineEdit *ehtoRivi(QGridLayout *ruudukko, int rivi, const QString &otsikko, const char *nimi,
                        QVector<QRadioButton *> &vaihtoehdot, const char *vaihtoehtoNimi);
    void naytaLohko();
    void AsetaTarkennukset();
    void tarkistaPoistuttaessa(QLineEdit *t);
    void cSeuraava_Click();

    QVector<QLineEdit *> m_tarkistettavat;
};
