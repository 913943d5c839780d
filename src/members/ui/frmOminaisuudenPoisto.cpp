#include "members/ui/frmOminaisuudenPoisto.h"

#include "core/MainModule.h"
#include "core/Misc.h"
#include "core/ui/uihelpers.h"
#include "members/PiirreJoukko.h"
#include "members/ui/Ikkunaapu.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

frmOminaisuudenPoisto::frmOminaisuudenPoisto(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmOminaisuudenPoisto"));
    setWindowTitle(MainModule::AppName + QStringLiteral(" - Ominaisuuden poisto"));
    cmbPoistettava = new QComboBox(this);
    cmbPoistettava->setObjectName(QStringLiteral("cmbPoistettava"));
    cmbPoistoEhto = new QComboBox(this);
    cmbPoistoEhto->setObjectName(QStringLiteral("cmbPoistoEhto"));
    for (QComboBox *c : {cmbPoistettava, cmbPoistoEhto})
        c->setMinimumWidth(260);
    cDelete = new QPushButton(QStringLiteral("Poista"), this);
    cDelete->setObjectName(QStringLiteral("cDelete"));
    cUndo = new QPushButton(QStringLiteral("Peru"), this);
    cUndo->setObjectName(QStringLiteral("cUndo"));

    auto *f = new QFormLayout;
    f->addRow(QStringLiteral("Poistettava ominaisuus:"), cmbPoistettava);
    f->addRow(QStringLiteral("Poistetaan, jos jäsenellä on ominaisuus:"), cmbPoistoEhto);
    auto *napit = new QHBoxLayout;
    napit->addStretch(1);
    napit->addWidget(cDelete);
    napit->addWidget(cUndo);
    auto *v = new QVBoxLayout(this);
    v->setContentsMargins(16, 16, 16, 12);
    f->setVerticalSpacing(10);
    v->addLayout(f);
    v->addStretch(1);
    v->addSpacing(16);
    v->addLayout(napit);
    resize(sizeHint().width() + 40, sizeHint().height() + 24);

    connect(cDelete, &QPushButton::clicked, this, [this] { ikkuna::Suojattu([this] { poista(); }); });
    connect(cUndo, &QPushButton::clicked, this, &QDialog::reject);
    ikkuna::Suojattu([this] {
        auto d = ikkuna::AvaaKanta();
        ikkuna::TaytaOminaisuusValinta(cmbPoistettava, *d);
        ikkuna::TaytaOminaisuusValinta(cmbPoistoEhto, *d);
    });
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
        auto d = ikkuna::AvaaKanta();
        jasenia = PoistaOminaisuus(*d, cmbPoistettava->currentData().toLongLong(), cmbPoistoEhto->currentData().toLongLong());
    }
    Ilmoita(QStringLiteral("Valmis: poistettu %1 jäseneltä.").arg(jasenia));
}

void AvaaOminaisuudenPoisto(QWidget *parent)
{
    if (!ikkuna::TietokantaAsetettu())
        return;
    frmOminaisuudenPoisto f(parent);
    f.exec();
}
