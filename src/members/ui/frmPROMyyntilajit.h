// The list window of the sales types that the sales-type invoice run puts on its rows.
#pragma once

#include "members/ui/KoodilistaIkkuna.h"

class cMyyntilaji;

class frmPROMyyntilajit : public KoodilistaIkkuna {
    Q_OBJECT
public:
    explicit frmPROMyyntilajit(QWidget *parent = nullptr);
    QLineEdit *tNumero, *tNimi;

protected:
    void naytaKentat() override;

private:
    cMyyntilaji *m_olio;
};

void AvaaMyyntilajit(QWidget *parent);
