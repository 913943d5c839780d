// The club data tab of frmAsetukset.
#include "core/AsetustenTallennus.h"
#include "core/MainModule.h"
#include "core/ui/frmAsetukset.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace M = MainModule;

QWidget *frmAsetukset::teeSeuraSivu()
{
    auto *sivu = new QWidget;
    auto *kehys = new QGroupBox(QStringLiteral("Seuran tiedot"), sivu);
    auto *grid = new QGridLayout(kehys);

    tNimi = tekstikentta(QStringLiteral("tNimi"));
    tHenkilo = tekstikentta(QStringLiteral("tHenkilo"));
    tOsoite = tekstikentta(QStringLiteral("tOsoite"));
    tPostinumero = tekstikentta(QStringLiteral("tPostinumero"));
    tPostitoimipaikka = tekstikentta(QStringLiteral("tPostitoimipaikka"));
    tPuhelin = tekstikentta(QStringLiteral("tPuhelin"));
    tFax = tekstikentta(QStringLiteral("tFax"));
    tSeuranEmail = tekstikentta(QStringLiteral("tSeuranEmail"));
    tWWW = tekstikentta(QStringLiteral("tWWW"));
    tPankkiyhteys1 = tekstikentta(QStringLiteral("tPankkiyhteys1"));
    tPankkiyhteys2 = tekstikentta(QStringLiteral("tPankkiyhteys2"));
    tYTunnus = tekstikentta(QStringLiteral("tYTunnus"));

    tNimi->setToolTip(QStringLiteral("Seuran nimi ikkunoiden otsikoissa ja laskuttajana laskuilla"));
    tSeuranEmail->setToolTip(QStringLiteral("Laskuille tulostettava seuran sähköpostiosoite"));
    tPankkiyhteys1->setToolTip(QStringLiteral("Laskuille tulostettava tilinumero"));

    int rivi = 0;
    lisaaRivi(grid, rivi++, QStringLiteral("Nimi:"), tNimi);
    lisaaRivi(grid, rivi++, QStringLiteral("Yhteyshenkilö:"), tHenkilo);
    lisaaRivi(grid, rivi++, QStringLiteral("Osoite:"), tOsoite);
    lisaaRivi(grid, rivi++, QStringLiteral("Postinumero:"), tPostinumero);
    lisaaRivi(grid, rivi++, QStringLiteral("Postitoimipaikka:"), tPostitoimipaikka);
    lisaaRivi(grid, rivi++, QStringLiteral("Puhelin:"), tPuhelin);
    lisaaRivi(grid, rivi++, QStringLiteral("Fax:"), tFax);
    lisaaRivi(grid, rivi++, QStringLiteral("Seuran sähköposti:"), tSeuranEmail);
    lisaaRivi(grid, rivi++, QStringLiteral("WWW-osoite:"), tWWW);
    lisaaRivi(grid, rivi++, QStringLiteral("Pankkiyhteys 1:"), tPankkiyhteys1);
    lisaaRivi(grid, rivi++, QStringLiteral("Pankkiyhteys 2:"), tPankkiyhteys2);
    lisaaRivi(grid, rivi++, QStringLiteral("Y-tunnus:"), tYTunnus);
    grid->setColumnStretch(1, 1);

    auto *v = new QVBoxLayout(sivu);
    v->addWidget(kehys);
    v->addStretch();
    return sivu;
}

void frmAsetukset::taytaSeura()
{
    tNimi->setText(M::RegName);
    tHenkilo->setText(M::Henkilo);
    tOsoite->setText(M::RegOsoite);
    tPostinumero->setText(M::RegPostinumero);
    tPostitoimipaikka->setText(M::RegPostitoimipaikka);
    tPuhelin->setText(M::RegPuhelin);
    tFax->setText(M::RegFax);
    tSeuranEmail->setText(M::RegSeuranEmail);
    tWWW->setText(M::RegWWW);
    tPankkiyhteys1->setText(M::RegPankkiyhteys1);
    tPankkiyhteys2->setText(M::RegPankkiyhteys2);
    tYTunnus->setText(M::YTunnus);
}

void frmAsetukset::lueSeura(AsetuksetSyote &s) const
{
    s.tNimi = tNimi->text();
    s.tHenkilo = tHenkilo->text();
    s.tOsoite = tOsoite->text();
    s.tPostinumero = tPostinumero->text();
    s.tPostitoimipaikka = tPostitoimipaikka->text();
    s.tPuhelin = tPuhelin->text();
    s.tFax = tFax->text();
    s.tSeuranEmail = tSeuranEmail->text();
    s.tWWW = tWWW->text();
    s.tPankkiyhteys1 = tPankkiyhteys1->text();
    s.tPankkiyhteys2 = tPankkiyhteys2->text();
    s.tYTunnus = tYTunnus->text();
}
