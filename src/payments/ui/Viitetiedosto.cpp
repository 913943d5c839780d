#include "payments/ui/Viitetiedosto.h"

#include "core/Asetukset.h"
#include "core/Ilmoitukset.h"
#include "core/MainModule.h"
#include "core/ui/Tietueikkuna.h"
#include "payments/Eratiedot.h"
#include "platform/dialogs.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>

std::optional<QList<ViiteEra>> ValitseViitetiedosto(QWidget *, QString *polku)
{
    dlg::FileRequest pyynto;
    pyynto.title = QStringLiteral("Vonari - viitemaksutiedosto");
    pyynto.filter = QStringLiteral("Viitemaksutiedostot (*.txt *.dat *.ktl *.xml)|*.txt;*.dat;*.ktl;*.xml|Kaikki tiedostot (*.*)|*.*");
    pyynto.startPath = MainModule::ViiteHakemisto;
    const QString valittu = dlg::current().openFile(pyynto);
    if (valittu.isEmpty())
        return std::nullopt;
    *polku = valittu;
    MainModule::ViiteHakemisto = valittu;
    tietue::Suojattu([&] {
        auto d = tietue::AvaaKanta();
        KantaStore(*d).writeString(QStringLiteral("ViiteHakemisto"), valittu);
    });
    return LueViitetiedosto(valittu);
}

QGroupBox *Arvokehys(const QString &otsikko, const QList<std::pair<const char *, QString>> &rivit,
                     QHash<QString, QLabel *> &arvot, QWidget *parent)
{
    auto *kehys = new QGroupBox(otsikko, parent);
    auto *lomake = new QFormLayout(kehys);
    lomake->setHorizontalSpacing(16);
    for (const auto &[nimi, teksti] : rivit) {
        auto *l = new QLabel(kehys);
        l->setObjectName(QString::fromUtf8(nimi));
        l->setTextInteractionFlags(Qt::TextSelectableByMouse);
        l->setMinimumWidth(110);
        lomake->addRow(teksti, l);
        arvot.insert(l->objectName(), l);
    }
    return kehys;
}

Eratiedot::Eratiedot(QWidget *parent) : QWidget(parent)
{
    auto *rivi = new QHBoxLayout(this);
    rivi->addWidget(Arvokehys(QStringLiteral("Erätiedot"),
                              {{"lblPvm", QStringLiteral("Päivämäärä:")},
                               {"lblAika", QStringLiteral("Aika:")},
                               {"lblPankki", QStringLiteral("Pankkiryhmän tunnus")},
                               {"lblLaskuttaja", QStringLiteral("Laskuttajan tunnus:")},
                               {"lblRahayksikko", QStringLiteral("Rahayksikkö:")}},
                              m_arvot, this),
                    1, Qt::AlignTop);
    rivi->addWidget(Arvokehys(QStringLiteral("Summatiedot"),
                              {{"lblTapKPL", QStringLiteral("Tapahtumat kpl:")},
                               {"lblTapSUM", QStringLiteral("Tapahtumat summa:")},
                               {"lblOikKPL", QStringLiteral("Oikaisut kpl:")},
                               {"lblOikSUM", QStringLiteral("Oikaisut summa:")},
                               {"lblEpaKPL", QStringLiteral("Epäonn. kpl:")},
                               {"lblEpaSUM", QStringLiteral("Epäonn. summa:")}},
                              m_arvot, this),
                    1, Qt::AlignTop);
}

void Eratiedot::nayta(const ViiteEra &era)
{
    for (const auto &[nimi, arvo] : EranTiedot(era))
        if (QLabel *l = m_arvot.value(nimi))
            l->setText(arvo);
}

void Eratiedot::tyhjenna()
{
    for (QLabel *l : std::as_const(m_arvot))
        l->clear();
}

QFormLayout *TiedostoJaEra(QWidget *parent, QLabel *&lblTiedosto, QComboBox *&cmbErat)
{
    auto *yla = new QFormLayout;
    lblTiedosto = new QLabel(parent);
    lblTiedosto->setObjectName(QStringLiteral("lblTiedosto"));
    lblTiedosto->setTextInteractionFlags(Qt::TextSelectableByMouse);
    cmbErat = new QComboBox(parent);
    cmbErat->setObjectName(QStringLiteral("cmbErat"));
    cmbErat->setMinimumWidth(140);
    cmbErat->setEnabled(false);
    auto *eraRivi = new QHBoxLayout;
    eraRivi->addWidget(cmbErat);
    eraRivi->addStretch(1);
    yla->addRow(QStringLiteral("Avattu tiedosto:"), lblTiedosto);
    yla->addRow(QStringLiteral("Avattu erä:"), eraRivi);
    return yla;
}
