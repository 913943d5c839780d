// "Vonari - Rekisteritiedot": which sections a member's register information holds.
#pragma once

#include "members/Rekisteritiedot.h"

#include <QDialog>

class QCheckBox;
class QPushButton;

class frmRekisteritiedot : public QDialog {
    Q_OBJECT
public:
    explicit frmRekisteritiedot(QWidget *parent = nullptr);

    QCheckBox *chkYhteystiedot;
    QCheckBox *chkOminaisuustiedot;
    QCheckBox *chkPerhetiedot;
    QCheckBox *chkMaksutiedot;
    QPushButton *cSeuraava;

    cRekisteritietovalinta Valinta; // the four values, stored by "Seuraava >>"
    bool Cancelled = true;          // closed without "Seuraava >>"

private:
    void cSeuraava_Click();
};

// Asks the sections; false when the window was closed without "Seuraava >>".
bool KysyRekisteritietovalinta(QWidget *parent, cRekisteritietovalinta &valinta);

// The register information of one member into the clipboard, after the choice of sections.
void AvaaRekisteritiedot(QWidget *parent, qint64 jrID);
