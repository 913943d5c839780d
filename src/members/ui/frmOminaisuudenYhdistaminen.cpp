#include "members/ui/frmOminaisuudenYhdistaminen.h"

#include "core/MainModule.h"
#include "core/Misc.h"
#include "members/PiirreJoukko.h"
#include "members/ui/Ikkunaapu.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

frmOminaisuudenYhdistaminen::frmOminaisuudenYhdistaminen(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmOminaisuudenYhdistäminen"));
    setWindowTitle(MainModule::AppName + QStringLiteral(" - Ominaisuuden yhdistäminen"));
    cmbYhdistettava = new QComboBox(this);
    cmbYhdistettava->setObjectName(QStringLiteral("cmbYhdistettava"));
    cmbYhdistetaan = new QComboBox(this);
    cmbYhdistetaan->setObjectName(QStringLiteral("cmbYhdistetaan"));
    for (QComboBox *c : {cmbYhdistettava, cmbYhdistetaan})
        c->setMinimumWidth(260);
    cCombine = new QPushButton(QStringLiteral("Yhdistä"), this);
    cCombine->setObjectName(QStringLiteral("cCombine"));
    cUndo = new QPushButton(QStringLiteral("Peru"), this);
    cUndo->setObjectName(QStringLiteral("cUndo"));

    auto *f = new QFormLayout;
    f->addRow(QStringLiteral("Yhdistettävä ominaisuus:"), cmbYhdistettava);
    f->addRow(QStringLiteral("Yhdistetään ominaisuuteen :"), cmbYhdistetaan);
    auto *napit = new QHBoxLayout;
    napit->addStretch(1);
    napit->addWidget(cCombine);
    napit->addWidget(cUndo);
    auto *v = new QVBoxLayout(this);
    v->setContentsMargins(16, 16, 16, 12);
    f->setVerticalSpacing(10);
    v->addLayout(f);
    v->addStretch(1);
    v->addSpacing(16);
    v->addLayout(napit);
    resize(sizeHint().width() + 40, sizeHint().height() + 24);

    connect(cCombine, &QPushButton::clicked, this, [this] { ikkuna::Suojattu([this] { yhdista(); }); });
    connect(cUndo, &QPushButton::clicked, this, &QDialog::reject);
    ikkuna::Suojattu([this] {
        auto d = ikkuna::AvaaKanta();
        ikkuna::TaytaOminaisuusValinta(cmbYhdistettava, *d);
        ikkuna::TaytaOminaisuusValinta(cmbYhdistetaan, *d);
    });
}

void frmOminaisuudenYhdistaminen::yhdista()
{
    if (cmbYhdistettava->currentIndex() < 1 || cmbYhdistetaan->currentIndex() < 1) {
        Ilmoita(QStringLiteral("Valitse yhdistettävä ominaisuus ja ominaisuus johon yhdistetään. Toiminto keskeytetty."));
        return;
    }
    auto d = ikkuna::AvaaKanta();
    YhdistaOminaisuus(*d, cmbYhdistettava->currentData().toLongLong(), cmbYhdistetaan->currentData().toLongLong());
    Ilmoita(QStringLiteral("Valmis."));
}

void AvaaOminaisuudenYhdistaminen(QWidget *parent)
{
    if (!ikkuna::TietokantaAsetettu())
        return;
    frmOminaisuudenYhdistaminen f(parent);
    f.exec();
}
