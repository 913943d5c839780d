// The list window of the member kinds.
#pragma once

#include "members/ui/KoodiIkkuna.h"

class frmJasenlajit : public KoodiIkkuna {
    Q_OBJECT
public:
    explicit frmJasenlajit(QWidget *parent = nullptr);
};

// Opens the window, or brings it forward when it is open already.
void AvaaJasenlajit(QWidget *parent);
