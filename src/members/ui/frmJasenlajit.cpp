#include "members/ui/frmJasenlajit.h"

#include "members/Koodilistat.h"

#include <QPointer>

frmJasenlajit::frmJasenlajit(QWidget *parent)
    : KoodiIkkuna(parent, "frmJasenlajit",
                  Tekstit{QStringLiteral("Jäsenlajit"), QStringLiteral("Haluatko varmasti poistaa valitun jäsenlajin?")},
                  new cJasenlaji, QStringLiteral("Jasenlaji"))
{
}

void AvaaJasenlajit(QWidget *parent)
{
    static QPointer<frmJasenlajit> ikkuna;
    if (!ikkuna) {
        auto *w = new frmJasenlajit(parent);
        w->setAttribute(Qt::WA_DeleteOnClose);
        if (!w->lataa()) {
            delete w;
            return;
        }
        ikkuna = w;
    }
    ikkuna->show();
    ikkuna->raise();
    ikkuna->activateWindow();
}
