#include "members/ui/frmJasenryhmat.h"

#include "members/Koodilistat.h"


frmJasenryhmat::frmJasenryhmat(QWidget *parent)
    : KoodiIkkuna(parent, "frmJasenryhmat",
                  Tekstit{QStringLiteral("Jäsenryhmät"), QStringLiteral("Haluatko varmasti poistaa valitun jäsenryhmän?")},
                  new cJasenryhma, QStringLiteral("Jasenryhma"))
{
}

void AvaaJasenryhmat(QWidget *parent) { AvaaKoodilista<frmJasenryhmat>(parent); }
