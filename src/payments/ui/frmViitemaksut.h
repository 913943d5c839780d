// "Vonari - Viitemaksut": a batch of the bank's file at a time, its payments sorted against the
// invoice history into the received, the ones to check and the wrong sums; the chosen received
// payments, or the chosen wrong sums with the overpayment log, are marked paid.
#pragma once

#include "payments/Viiteaineisto.h"

#include <QMainWindow>

class Eratiedot;
class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QTabWidget;
struct ViitemaksuRivi;

class frmViitemaksut : public QMainWindow {
    Q_OBJECT
public:
    explicit frmViitemaksut(QWidget *parent = nullptr);

    QLabel *lblTiedosto;
    QComboBox *cmbErat;
    QTabWidget *TabStr1;
    QListWidget *lstSaapuneet, *lstTarkistettavat, *lstVirheet;
    QPushButton *cValitseKaikki, *cPoistaValinnat, *cMaksetuksi;
    QPushButton *cValitseKaikkiVirheelliset, *cPoistaValinnatVirheelliset, *cValitseSuuremmatVirheelliset,
        *cMaksetuksiLiikaaMaksetut;
    QCheckBox *chkPoistamaksettu, *chkPoistaMaksettuLiikaa;
    Eratiedot *eratiedot;

    void mAvaa_Click();
    // The file read and its first batch shown, as the open command does after its dialog.
    void avaa(const QString &polku, const QList<ViiteEra> &erat);
    void NaytaEra(int era);
    void cMaksetuksi_Click();
    void cMaksetuksiLiikaaMaksetut_Click();
    void cValitseSuuremmatVirheelliset_Click();

private:
    QWidget *saapuneetSivu();
    QWidget *virheetSivu();
    QList<ViitemaksuRivi> valitut(QListWidget *lista) const;
    void poistaValitut(QListWidget *lista);

    QList<ViiteEra> m_erat;
};

void AvaaViitemaksut(QWidget *parent);
