// The list window of the postal codes. The code is the key: "00100" and "100" are two rows.
#pragma once

#include "members/ui/KoodilistaIkkuna.h"

class cPostinumero;

class frmPostinumerot : public KoodilistaIkkuna {
    Q_OBJECT
public:
    explicit frmPostinumerot(QWidget *parent = nullptr);
    QLineEdit *tPostinumero, *tPostitoimipaikka;

protected:
    void naytaKentat() override;

private:
    cPostinumero *m_olio;
};

// Opens the window, or brings it forward when it is open already.
void AvaaPostinumerot(QWidget *parent);
