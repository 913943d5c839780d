#include "members/ui/frmOminLisaysSP.h"
#include "core/ui/Tietueikkuna.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "platform/arvot.h"
#include "core/ui/uihelpers.h"
#include "members/PiirreJoukko.h"
#include "platform/ui/Edistymispalkki.h"
#include "members/ui/Ikkunaapu.h"
#include "members/ui/LiitosPohja.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

frmOminLisaysSP::frmOminLisaysSP(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmOminLisaysSP"));
    setWindowTitle(MainModule::AppName + QStringLiteral(" - Ominaisuuden lisäys syntymäpäivän perusteella"));

    auto *ehdot = new QGroupBox(QStringLiteral("Ehdot ominaisuuden lisäämiselle"), this);
    tVanhin = new QLineEdit(ehdot);
    tVanhin->setObjectName(QStringLiteral("tVanhin"));
    tNuorin = new QLineEdit(ehdot);
    tNuorin->setObjectName(QStringLiteral("tNuorin"));
    auto *ef = new QFormLayout(ehdot);
    ef->addRow(QStringLiteral("Syntymäpäivä (vanhin):"), tVanhin);
    ef->addRow(QStringLiteral("Syntymäpäivä (nuorin):"), tNuorin);

    auto *maarittely = new QGroupBox(QStringLiteral("Liitettävän ominaisuuden määrittely"), this);
    pohja = new LiitosPohja(maarittely);
    (new QHBoxLayout(maarittely))->addWidget(pohja);

    cLisaa = new QPushButton(QStringLiteral("&Lisää valituille"), this);
    cLisaa->setObjectName(QStringLiteral("cLisaa"));
    cSulje = new QPushButton(QStringLiteral("&Sulje"), this);
    cSulje->setObjectName(QStringLiteral("cSulje"));
    auto *napit = new QHBoxLayout;
    napit->addStretch(1);
    napit->addWidget(cLisaa);
    napit->addWidget(cSulje);

    auto *g = new QGridLayout(this);
    g->addWidget(ehdot, 0, 0, Qt::AlignTop);
    g->addWidget(maarittely, 0, 1);
    g->addLayout(napit, 1, 0, 1, 2);
    g->setColumnStretch(1, 1);
    resize(820, 420);

    for (QLineEdit *t : {tVanhin, tNuorin})
        connect(t, &QLineEdit::editingFinished, this, [t] {
            bool hylatty = false;
            const QString uusi = TekstiLahtiessa(ArvoTyyppi::Paiva, t->text(), &hylatty);
            if (uusi != t->text())
                t->setText(uusi);
            if (hylatty)
                ikkuna::Piippaa();
        });
    connect(cLisaa, &QPushButton::clicked, this, [this] { tietue::Suojattu([this] { lisaa(); }); });
    connect(cSulje, &QPushButton::clicked, this, &QDialog::accept);
    pohja->tayta(false);
}

void frmOminLisaysSP::lisaa()
{
    const qint64 piID = pohja->valittu();
    if (piID == 0) {
        Ilmoita(QStringLiteral("Ominaisuutta ei ole valittuna luettelosta - ominaisuuksia ei lisätä."));
        return;
    }
    const QDate vanhin = ParsePaiva(tVanhin->text());
    const QDate nuorin = ParsePaiva(tNuorin->text());
    if (!vanhin.isValid() && !nuorin.isValid()) {
        Ilmoita(QStringLiteral("Päivämäärärajoja ei ole asetettu - ominaisuuksia ei lisätä."));
        return;
    }
    LiitosTulos t;
    {
        cMouseCursor osoitin;
        osoitin.SetCursor(this, Qt::WaitCursor);
        auto d = tietue::AvaaKanta();
        if (!AjaEdistyen(this, QStringLiteral("Ominaisuutta lisätään"), [&](Edistyminen *e) {
                t = LisaaSyntymapaivanPerusteella(Ajo(*d, e), piID, vanhin, nuorin, pohja->syote(), pohja->vainUusille());
            }))
            return;
    }
    pohja->tyhjenna(t.tyhjenna);
    if (t.lisatty == 0)
        Ilmoita(QStringLiteral("Ominaisuutta ei yhdellekään jäsenelle."));
    else if (t.lisatty == 1)
        Ilmoita(QStringLiteral("Ominaisuus lisättiin yhdelle jäsenelle."));
    else
        Ilmoita(QStringLiteral("Ominaisuus lisättiin %1 jäsenelle.").arg(t.lisatty));
}

void AvaaOminLisaysSP(QWidget *parent)
{
    if (!tietue::TietokantaAsetettu())
        return;
    frmOminLisaysSP f(parent);
    f.exec();
}
