#include "members/ui/frmOminaisuudenYhdistaminen.h"
#include "core/ui/Tietueikkuna.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "members/PiirreJoukko.h"
#include "platform/ui/Edistymispalkki.h"
#include "members/ui/Ikkunaapu.h"

#include <QComboBox>
#include <QPushButton>

frmOminaisuudenYhdistaminen::frmOminaisuudenYhdistaminen(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmOminaisuudenYhdistäminen"));
    setWindowTitle(MainModule::AppName + QStringLiteral(" - Ominaisuuden yhdistäminen"));
    const auto l = ikkuna::RakennaKahdenOminaisuudenLomake(this, {"cmbYhdistettava", QStringLiteral("Yhdistettävä ominaisuus:")},
                                                           {"cmbYhdistetaan", QStringLiteral("Yhdistetään ominaisuuteen :")},
                                                           {"cCombine", QStringLiteral("Yhdistä")});
    cmbYhdistettava = l.eka;
    cmbYhdistetaan = l.toka;
    cCombine = l.toiminto;
    cUndo = l.peru;
    connect(cCombine, &QPushButton::clicked, this, [this] { tietue::Suojattu([this] { yhdista(); }); });
}

void frmOminaisuudenYhdistaminen::yhdista()
{
    if (cmbYhdistettava->currentIndex() < 1 || cmbYhdistetaan->currentIndex() < 1) {
        Ilmoita(QStringLiteral("Valitse yhdistettävä ominaisuus ja ominaisuus johon yhdistetään. Toiminto keskeytetty."));
        return;
    }
    auto d = tietue::AvaaKanta();
    if (!AjaEdistyen(this, QStringLiteral("Ominaisuuksia yhdistetään"), [&](Edistyminen *e) {
            YhdistaOminaisuus(Ajo(*d, e), cmbYhdistettava->currentData().toLongLong(),
                              cmbYhdistetaan->currentData().toLongLong());
        }))
        return;
    Ilmoita(QStringLiteral("Valmis."));
}

void AvaaOminaisuudenYhdistaminen(QWidget *parent)
{
    if (!tietue::TietokantaAsetettu())
        return;
    frmOminaisuudenYhdistaminen f(parent);
    f.exec();
}
