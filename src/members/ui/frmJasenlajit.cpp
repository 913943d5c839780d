#include "members/ui/frmJasenlajit.h"

#include "members/Koodilistat.h"


frmJasenlajit::frmJasenlajit(QWidget *parent)
    : KoodiIkkuna(parent, "frmJasenlajit",
                  Tekstit{QStringLiteral("Jäsenlajit"), QStringLiteral("Haluatko varmasti poistaa valitun jäsenlajin?")},
                  new cJasenlaji, QStringLiteral("Jasenlaji"))
{
}

void AvaaJasenlajit(QWidget *parent) { AvaaKoodilista<frmJasenlajit>(parent); }
