#include "members/ui/frmJasenryhmat.h"

#include "members/Koodilistat.h"

#include <QPointer>

frmJasenryhmat::frmJasenryhmat(QWidget *parent)
    : KoodiIkkuna(parent, "frmJasenryhmat",
                  Tekstit{QStringLiteral("Jäsenryhmät"), QStringLiteral("Haluatko varmasti poistaa valitun jäsenryhmän?")},
                  new cJasenryhma, QStringLiteral("Jasenryhma"))
{
}

void AvaaJasenryhmat(QWidget *parent)
{
    static QPointer<frmJasenryhmat> ikkuna;
    if (!ikkuna) {
        auto *w = new frmJasenryhmat(parent);
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
