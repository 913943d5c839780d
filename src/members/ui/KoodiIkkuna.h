// The list window of a code list of codes and names (member kinds, member groups).
#pragma once

#include "members/ui/KoodilistaIkkuna.h"

class cKoodi;

class KoodiIkkuna : public KoodilistaIkkuna {
    Q_OBJECT
public:
    QLineEdit *tKoodi, *tNimi;

protected:
    // `taulu` gives the widths of the boxes.
    KoodiIkkuna(QWidget *parent, const char *nimi, const Tekstit &tekstit, cKoodi *olio, const QString &taulu);
    void naytaKentat() override;

private:
    cKoodi *m_olio;
};
