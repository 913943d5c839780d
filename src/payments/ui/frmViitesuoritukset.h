// "Vonari - Viitesuoritukset": the bank's file posted whole into the payment ledger. The window
// shows the batches of the file (a batch's payments, header and totals, and the totals of every
// batch together) and "Kirjaa" posts every payment with its date, amount and archive id.
#pragma once

#include "payments/Viiteaineisto.h"

#include <QDialog>
#include <QHash>

class Eratiedot;
class QComboBox;
class QLabel;
class QPushButton;
class QTreeWidget;

class frmViitesuoritukset : public QDialog {
    Q_OBJECT
public:
    explicit frmViitesuoritukset(QWidget *parent = nullptr);

    QLabel *lblTiedosto;
    QComboBox *cmbErat;
    QTreeWidget *lstMaksut; // the payments of the batch on screen, to read
    Eratiedot *eratiedot;
    QPushButton *cAvaa, *cKirjaaSuoritukset, *cSulje;

    void cAvaa_Click();
    void avaa(const QString &polku, const QList<ViiteEra> &erat);
    void NaytaEra(int era);
    void cKirjaaSuoritukset_Click();
    QLabel *summa(const QString &nimi) const { return m_summat.value(nimi); }

private:
    QList<ViiteEra> m_erat;
    QHash<QString, QLabel *> m_summat;
};

void AvaaViitesuoritukset(QWidget *parent);
