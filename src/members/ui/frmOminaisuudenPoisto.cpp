#include "members/ui/frmOminaisuudenPoisto.h"
#include "core/ui/Tietueikkuna.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "core/ui/uihelpers.h"
#include "members/PiirreJoukko.h"
#include "platform/ui/Edistymispalkki.h"
#include "members/ui/Ikkunaapu.h"

#include <QComboBox>
#include <QPushButton>

frmOminaisuudenPoisto::frmOminaisuudenPoisto(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmOminaisuudenPoisto"));
    setWindowTitle(MainModule::AppName + QStringLiteral(" - Ominaisuuden poisto"));
    const auto l = ikkuna::RakennaKahdenOminaisuudenLomake(this, {"cmbPoistettava", QStringLiteral("Poistettava ominaisuus:")},
                                                           {"cmbPoistoEhto", QStringLiteral("Poistetaan, jos jäsenellä on ominaisuus:")},
                                                           {"cDelete", QStringLiteral("Poista")});
    cmbPoistettava = l.eka;
    cmbPoistoEhto = l.toka;
    cDelete = l.toiminto;
    cUndo = l.peru;
    connect(cDelete, &QPushButton::clicked, this, [this] { tietue::Suojattu([this] { poista(); }); });
}

void frmOminaisuudenPoisto::poista()
{
    if (cmbPoistettava->currentIndex() < 1 || cmbPoistoEhto->currentIndex() < 1) {
        Ilmoita(QStringLiteral("Valitse poistettava ominaisuus ja ehto poistolle. Toiminto keskeytetty."));
        return;
    }
    int jasenia = 0;
    {
        cMouseCursor osoitin;
        osoitin.SetCursor(this, Qt::WaitCursor);
        auto d = tietue::AvaaKanta();
        if (!AjaEdistyen(this, QStringLiteral("Ominaisuutta poistetaan"), [&](Edistyminen *e) {
                jasenia = PoistaOminaisuus(Ajo(*d, e), cmbPoistettava->currentData().toLongLong(),
                                           cmbPoistoEhto->currentData().toLongLong());
            }))
            return;
    }
    Ilmoita(QStringLiteral("Valmis: poistettu %1 jäseneltä.").arg(jasenia));
}

void AvaaOminaisuudenPoisto(QWidget *parent)
{
    if (!tietue::TietokantaAsetettu())
        return;
    frmOminaisuudenPoisto f(parent);
    f.exec();
}
