// The Internet tab of frmAsetukset: how mail is sent, and the SMTP server with its connection test.
#include "core/AsetustenTallennus.h"
#include "core/Ilmoitukset.h"
#include "core/MainModule.h"
#include "core/Postiasetukset.h"
#include "core/Postisalasana.h"
#include "core/ui/frmAsetukset.h"
#include "core/ui/uihelpers.h"
#include "platform/mxlookup.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace M = MainModule;

QWidget *frmAsetukset::teeInternetSivu()
{
    auto *sivu = new QWidget;

    // How messages leave, from whom and how fast.
    auto *lahetys = new QGroupBox(QStringLiteral("Internet asetukset"), sivu);
    auto *grid = new QGridLayout(lahetys);
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
    optEmailSystem[0]->setToolTip(QStringLiteral("Viestit lähetetään koneen oman postiohjelman (sendmail) kautta"));
    optEmailSystem[1]->setToolTip(QStringLiteral("Viestit lähetetään suoraan alla annetulle SMTP-palvelimelle"));
    tapaRivi->addStretch();

    tEmail = tekstikentta(QStringLiteral("tEmail"));
    tEmail->setToolTip(QStringLiteral("Lähettäjän sähköpostiosoite"));
    tEmailPerMin = numerokentta(QStringLiteral("tEmailPerMin"),
                                QStringLiteral("Syötä viestiä / minuutti rajoitukseksi ainoastaan numeroita."));
    tEmailPerMin->setToolTip(QStringLiteral("Lähetettävien viestien enimmäismäärä minuutissa, 0 = ei rajoitusta"));

    int rivi = 0;
    lisaaRivi(grid, rivi++, QStringLiteral("Lähetystapa:"), tapa);
    lisaaRivi(grid, rivi++, QStringLiteral("Sähköpostiosoite:"), tEmail);
    lisaaRivi(grid, rivi++, QStringLiteral("Viestejä / min:"), tEmailPerMin);
    grid->setColumnStretch(1, 1);

    // The server of direct SMTP.
    auto *palvelin = new QGroupBox(QStringLiteral("SMTP-palvelin"), sivu);
    auto *sgrid = new QGridLayout(palvelin);
    tSMTP = tekstikentta(QStringLiteral("tSMTP"));
    cMXQuery = new QPushButton(QStringLiteral("Etsi palvelin"), this);
    cMXQuery->setObjectName(QStringLiteral("cMXQuery"));
    cMXQuery->setAutoDefault(false);
    cMXQuery->setToolTip(QStringLiteral("Etsii sähköpostiosoitteen verkkotunnuksen postipalvelimen"));
    connect(cMXQuery, &QPushButton::clicked, this, &frmAsetukset::cMXQuery_Click);

    tSMTPPortti = numerokentta(QStringLiteral("tSMTPPortti"),
                               QStringLiteral("Syötä SMTP-palvelimen portiksi ainoastaan numeroita (1–65535)."), 5);
    tSMTPPortti->setToolTip(QStringLiteral("Tyhjä = salauksen tavallinen portti"));
    cmbSMTPSuojaus = new QComboBox(this);
    cmbSMTPSuojaus->setObjectName(QStringLiteral("cmbSMTPSuojaus"));
    cmbSMTPSuojaus->addItems({QStringLiteral("Ei salausta"), QStringLiteral("STARTTLS"), QStringLiteral("SMTPS")});
    cmbSMTPSuojaus->setToolTip(QStringLiteral("STARTTLS: portti 587, SMTPS: portti 465, ilman salausta: portti 25"));
    connect(cmbSMTPSuojaus, &QComboBox::currentIndexChanged, this, &frmAsetukset::naytaOletusportti);
    auto *porttiJaSuojaus = new QWidget;
    auto *ps = new QHBoxLayout(porttiJaSuojaus);
    ps->setContentsMargins(0, 0, 0, 0);
    ps->addWidget(tSMTPPortti);
    auto *suojausOtsikko = new QLabel(QStringLiteral("Salaus:"));
    suojausOtsikko->setBuddy(cmbSMTPSuojaus);
    ps->addSpacing(12);
    ps->addWidget(suojausOtsikko);
    ps->addWidget(cmbSMTPSuojaus);
    ps->addStretch();

    tSMTPKayttaja = tekstikentta(QStringLiteral("tSMTPKayttaja"));
    tSMTPKayttaja->setToolTip(QStringLiteral("Tyhjä = palvelimelle ei kirjauduta"));
    tSMTPSalasana = tekstikentta(QStringLiteral("tSMTPSalasana"));
    tSMTPSalasana->setEchoMode(QLineEdit::Password);
    tSMTPSalasana->setToolTip(QStringLiteral("Tallennetaan työpöydän avainnippuun, ei seuran tietokantaan"));
    tSMTPVarmenne = tekstikentta(QStringLiteral("tSMTPVarmenne"), 1024);
    tSMTPVarmenne->setToolTip(QStringLiteral("Palvelimen oman varmenteen tiedosto, jos palvelimen varmennetta "
                                             "ei ole myöntänyt tunnettu varmentaja"));
    cSMTPVarmennevalinta = valintanappi(QStringLiteral("cSMTPVarmennevalinta"));
    connect(cSMTPVarmennevalinta, &QPushButton::clicked, this, [this] {
        tSMTPVarmenne->setText(valitseTiedosto(QStringLiteral(" - palvelimen varmenne"),
                                               QStringLiteral("Varmenne (*.pem;*.crt;*.cer)|*.pem;*.crt;*.cer"),
                                               tSMTPVarmenne->text()));
    });

    rivi = 0;
    lisaaRivi(sgrid, rivi++, QStringLiteral("SMTP palvelin:"), tSMTP, cMXQuery);
    lisaaRivi(sgrid, rivi++, QStringLiteral("Portti:"), porttiJaSuojaus);
    lisaaRivi(sgrid, rivi++, QStringLiteral("Käyttäjätunnus:"), tSMTPKayttaja);
    lisaaRivi(sgrid, rivi++, QStringLiteral("Salasana:"), tSMTPSalasana);
    lisaaRivi(sgrid, rivi++, QStringLiteral("Varmenne:"), tSMTPVarmenne, cSMTPVarmennevalinta);
    sgrid->setColumnStretch(1, 1);
    // The two frames' fields start at the same place.
    int otsikot = 0;
    for (QGridLayout *g : {grid, sgrid})
        for (int r = 0; r < g->rowCount(); ++r)
            if (QLayoutItem *i = g->itemAtPosition(r, 0); i && i->widget())
                otsikot = qMax(otsikot, i->widget()->sizeHint().width());
    grid->setColumnMinimumWidth(0, otsikot);
    sgrid->setColumnMinimumWidth(0, otsikot);

    cTestaaYhteys = new QPushButton(QStringLiteral("Testaa yhteys"), this);
    cTestaaYhteys->setObjectName(QStringLiteral("cTestaaYhteys"));
    cTestaaYhteys->setAutoDefault(false);
    cTestaaYhteys->setToolTip(QStringLiteral("Ottaa yhteyden valitulla lähetystavalla ja kirjautuu palvelimelle "
                                             "lähettämättä viestiä"));
    connect(cTestaaYhteys, &QPushButton::clicked, this, &frmAsetukset::cTestaaYhteys_Click);
    auto *testiRivi = new QHBoxLayout;
    testiRivi->addStretch();
    testiRivi->addWidget(cTestaaYhteys);

    auto *v = new QVBoxLayout(sivu);
    v->addWidget(lahetys);
    v->addWidget(palvelin);
    v->addLayout(testiRivi);
    v->addStretch();
    return sivu;
}

void frmAsetukset::taytaInternet()
{
    optEmailSystem[M::EmailSystem ? 1 : 0]->setChecked(true);
    tEmail->setText(M::Email);
    tSMTP->setText(M::SMTP);
    tEmailPerMin->setText(QString::number(M::EmailPerMin));
    tSMTPPortti->setText(M::SMTPPortti > 0 ? QString::number(M::SMTPPortti) : QString());
    cmbSMTPSuojaus->setCurrentIndex(qBound(0, M::SMTPSuojaus, 2));
    naytaOletusportti();
    tSMTPKayttaja->setText(M::SMTPKayttaja);
    tSMTPSalasana->setText(LuePostisalasana(M::SMTPKayttaja, M::SMTP));
    tSMTPVarmenne->setText(M::SMTPVarmenne);
}

void frmAsetukset::lueInternet(AsetuksetSyote &s) const
{
    s.optEmailSystem = optEmailSystem[1]->isChecked() ? 1 : 0;
    s.tEmail = tEmail->text();
    s.tSMTP = tSMTP->text();
    s.tEmailPerMin = tEmailPerMin->text();
    s.tSMTPPortti = tSMTPPortti->text();
    s.cmbSMTPSuojaus = cmbSMTPSuojaus->currentIndex();
    s.tSMTPKayttaja = tSMTPKayttaja->text();
    s.tSMTPSalasana = tSMTPSalasana->text();
    s.tSMTPVarmenne = tSMTPVarmenne->text();
}

void frmAsetukset::naytaOletusportti()
{
    mail::SmtpSettings s;
    s.security = mail::Security(qBound(0, cmbSMTPSuojaus->currentIndex(), 2));
    tSMTPPortti->setPlaceholderText(QString::number(s.effectivePort()));
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

void frmAsetukset::cTestaaYhteys_Click()
{
    // The fields as they stand, saved or not: the user tests before saving.
    AsetuksetSyote s;
    lueInternet(s);
    mail::Settings asetukset;
    asetukset.route = s.optEmailSystem == 1 ? mail::Route::Smtp : mail::Route::System;
    asetukset.smtp = SmtpAsetukset({s.tSMTP, s.tSMTPPortti, s.cmbSMTPSuojaus, s.tSMTPKayttaja, s.tSMTPSalasana,
                                    s.tSMTPVarmenne});
    bool onnistui = false;
    QString tulos;
    {
        cMouseCursor kursori;
        kursori.SetCursor(this, Qt::WaitCursor);
        tulos = TestaaPostiyhteys(asetukset, &onnistui);
    }
    if (onnistui)
        Ilmoita(tulos);
    else
        IlmoitaVirhe(tulos);
}
