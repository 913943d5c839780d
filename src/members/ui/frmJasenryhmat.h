// The list window of the member groups.
#pragma once

#include "members/ui/KoodiIkkuna.h"

class frmJasenryhmat : public KoodiIkkuna {
    Q_OBJECT
public:
    explicit frmJasenryhmat(QWidget *parent = nullptr);
};

// Opens the window, or brings it forward when it is open already.
void AvaaJasenryhmat(QWidget *parent);
