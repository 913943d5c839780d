// The club data and Internet tabs of frmAsetukset.
#include "core/AsetustenTallennus.h"
#include "core/MainModule.h"
#include "core/ui/frmAsetukset.h"
#include "core/ui/uihelpers.h"
#include "platform/mxlookup.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
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

QWidget *frmAsetukset::teeInternetSivu()
{
    auto *sivu = new QWidget;
    auto *kehys = new QGroupBox(QStringLiteral("Internet asetukset"), sivu);
    auto *grid = new QGridLayout(kehys);

    auto *tapa = new QWidget;
    auto *tapaRivi = new QHBoxLayout(tapa);
    tapaRivi->setContentsMargins(0, 0, 0, 0);
    auto *ryhma = new QButtonGroup(this);
    const QStringList tavat = {QStringLiteral("Sähköpostiohjelma"), QStringLiteral("Suora SMTP")};
    for (int i = 0; i < tavat.size(); ++i) {
        auto *o = new QRadioButton(tavat[i], tapa);
        o->setObjectName(QStringLiteral("optEmailSystem_%1").arg(i));
        ryhma->addButton(o, i);
        tapaRivi->addWidget(o);
        optEmailSystem.append(o);
    }
    optEmailSystem[0]->setToolTip(QStringLiteral("Viestit lähetetään koneen oman postiohjelman kautta"));
    optEmailSystem[1]->setToolTip(QStringLiteral("Viestit lähetetään suoraan alla annetulle SMTP-palvelimelle"));
    tapaRivi->addStretch();

    tEmail = tekstikentta(QStringLiteral("tEmail"));
    tEmail->setToolTip(QStringLiteral("Lähettäjän sähköpostiosoite"));
    tSMTP = tekstikentta(QStringLiteral("tSMTP"));
    cMXQuery = new QPushButton(QStringLiteral("Etsi palvelin"), this);
    cMXQuery->setObjectName(QStringLiteral("cMXQuery"));
    cMXQuery->setAutoDefault(false);
    cMXQuery->setToolTip(QStringLiteral("Etsii sähköpostiosoitteen verkkotunnuksen postipalvelimen"));
    connect(cMXQuery, &QPushButton::clicked, this, &frmAsetukset::cMXQuery_Click);
    tEmailPerMin = numerokentta(QStringLiteral("tEmailPerMin"),
                                QStringLiteral("Syötä viestiä / minuutti rajoitukseksi ainoastaan numeroita."));
    tEmailPerMin->setToolTip(QStringLiteral("Lähetettävien viestien enimmäismäärä minuutissa, 0 = ei rajoitusta"));

    int rivi = 0;
    lisaaRivi(grid, rivi++, QStringLiteral("Lähetystapa:"), tapa);
    lisaaRivi(grid, rivi++, QStringLiteral("Sähköpostiosoite:"), tEmail);
    lisaaRivi(grid, rivi++, QStringLiteral("SMTP palvelin:"), tSMTP, cMXQuery);
    lisaaRivi(grid, rivi++, QStringLiteral("Viestejä / min:"), tEmailPerMin);
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
    optEmailSystem[M::EmailSystem ? 1 : 0]->setChecked(true);
    tEmail->setText(M::Email);
    tSMTP->setText(M::SMTP);
    tEmailPerMin->setText(QString::number(M::EmailPerMin));
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
    s.optEmailSystem = optEmailSystem[1]->isChecked() ? 1 : 0;
    s.tEmail = tEmail->text();
    s.tSMTP = tSMTP->text();
    s.tEmailPerMin = tEmailPerMin->text();
}

void frmAsetukset::cMXQuery_Click()
{
    // The address being edited is the one the user means, saved or not.
    const QString osoite = tEmail->text().trimmed().isEmpty() ? M::Email : tEmail->text();
    QString vastaus;
    {
        cMouseCursor kursori;
        kursori.SetCursor(this, Qt::WaitCursor);
        vastaus = mx::mailServerFor(osoite);
    }
    const QString uusi = MxVastauksenKasittely(vastaus, tSMTP->text());
    if (uusi != tSMTP->text())
        tSMTP->setText(uusi);
}
