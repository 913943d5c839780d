// The program tab of frmAsetukset: the workstation's files and folders, numbers, backups, password
// and the e-mail templates, with their file choosers.
#include "core/AsetustenTallennus.h"
#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "core/ui/frmAsetukset.h"
#include "platform/dialogs.h"
#include "platform/files.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace M = MainModule;

namespace {
// A number field with a check box after it on the same row.
QWidget *rinnakkain(QWidget *a, QWidget *b)
{
    auto *w = new QWidget;
    auto *h = new QHBoxLayout(w);
    h->setContentsMargins(0, 0, 0, 0);
    h->addWidget(a);
    h->addSpacing(12);
    h->addWidget(b);
    h->addStretch();
    return w;
}
} // namespace

QWidget *frmAsetukset::teeOhjelmaSivu()
{
    auto *sivu = new QWidget;
    auto *kehys = new QGroupBox(QStringLiteral("Ohjelma-asetukset"), sivu);
    auto *grid = new QGridLayout(kehys);

    // The two paths live in the workstation's INI file, which has no width limit.
    tTietokanta = tekstikentta(QStringLiteral("tTietokanta"), 32767);
    tTietokanta->setToolTip(QStringLiteral("Käytössä olevan tietokannan koko polku"));
    cTietokantavalita = valintanappi(QStringLiteral("cTietokantavalita"));
    connect(cTietokantavalita, &QPushButton::clicked, this, &frmAsetukset::cTietokantavalita_Click);
    tVarmistus = tekstikentta(QStringLiteral("tVarmistus"), 32767);
    tVarmistus->setToolTip(QStringLiteral("Hakemisto, johon varmuuskopiot tehdään"));
    chkMoniseuratuki = new QCheckBox(QStringLiteral("Moniseuratuki"), this);
    chkMoniseuratuki->setObjectName(QStringLiteral("chkMoniseuratuki"));
    chkMoniseuratuki->setToolTip(QStringLiteral("Käynnistettäessä kysytään, minkä seuran tietokanta avataan"));

    tLaskunumero = numerokentta(QStringLiteral("tLaskunumero"),
                                QStringLiteral("Syötä laskunumeroksi ainoastaan numeroita."));
    tLaskunumero->setToolTip(QStringLiteral("Seuraavan laskun laskunumero"));
    tJasennumero = numerokentta(QStringLiteral("tJasennumero"),
                                QStringLiteral("Syötä jäsennumeroksi ainoastaan numeroita."));
    tJasennumero->setToolTip(QStringLiteral("Seuraava ehdotettu jäsennumero"));
    chkJasennumero = new QCheckBox(QStringLiteral("Automaattinen jäsennumero"), this);
    chkJasennumero->setObjectName(QStringLiteral("chkJasennumero"));
    tVarmuuskopioPv = numerokentta(QStringLiteral("tVarmuuskopioPv"),
                                   QStringLiteral("Syötä Varmuuskopiot -kenttään ainoastaan numeroita."));
    tVarmuuskopioPv->setToolTip(QStringLiteral("Varmuuskopio ehdotetaan tehtäväksi x pv välein"));
    chkMuistutaVarmistuksesta = new QCheckBox(QStringLiteral("Muistuta varmistuksesta"), this);
    chkMuistutaVarmistuksesta->setObjectName(QStringLiteral("chkMuistutaVarmistuksesta"));
    tSalasana = tekstikentta(QStringLiteral("tSalasana"));
    tSalasana->setEchoMode(QLineEdit::PasswordEchoOnEdit);
    tSalasana->setToolTip(QStringLiteral("Ohjelman käynnistyksessä kysyttävä salasana, tyhjä = ei kysytä"));

    tEmailLaskupohja = tekstikentta(QStringLiteral("tEmailLaskupohja"));
    cLaskupohjavalinta = valintanappi(QStringLiteral("cLaskupohjavalinta"));
    tEmailKarhupohja = tekstikentta(QStringLiteral("tEmailKarhupohja"));
    cKarhupohjavalinta = valintanappi(QStringLiteral("cKarhupohjavalinta"));
    const QString teksti = QStringLiteral("Teksti (*.txt)|*.txt");
    connect(cLaskupohjavalinta, &QPushButton::clicked, this, [this, teksti] {
        tEmailLaskupohja->setText(
            valitseTiedosto(QStringLiteral(" - email-laskupohjatiedosto"), teksti, tEmailLaskupohja->text()));
    });
    connect(cKarhupohjavalinta, &QPushButton::clicked, this, [this, teksti] {
        tEmailKarhupohja->setText(
            valitseTiedosto(QStringLiteral(" - email-karhulaskupohjatiedosto"), teksti, tEmailKarhupohja->text()));
    });

    int rivi = 0;
    lisaaRivi(grid, rivi++, QStringLiteral("Tietokanta:"), tTietokanta, cTietokantavalita);
    lisaaRivi(grid, rivi++, QStringLiteral("Varmistushakemisto:"), tVarmistus);
    grid->addWidget(chkMoniseuratuki, rivi++, 1, 1, 2);
    lisaaRivi(grid, rivi++, QStringLiteral("Laskunumero:"), tLaskunumero);
    lisaaRivi(grid, rivi++, QStringLiteral("Jäsennumero:"), rinnakkain(tJasennumero, chkJasennumero));
    lisaaRivi(grid, rivi++, QStringLiteral("Varmuuskopiot:"), rinnakkain(tVarmuuskopioPv, chkMuistutaVarmistuksesta));
    lisaaRivi(grid, rivi++, QStringLiteral("Salasana:"), tSalasana);
    lisaaRivi(grid, rivi++, QStringLiteral("Email laskupohja:"), tEmailLaskupohja, cLaskupohjavalinta);
    lisaaRivi(grid, rivi++, QStringLiteral("Email muistutuspohj:"), tEmailKarhupohja, cKarhupohjavalinta);
    grid->setColumnStretch(1, 1);

    auto *v = new QVBoxLayout(sivu);
    v->addWidget(kehys);
    v->addStretch();
    return sivu;
}

void frmAsetukset::taytaOhjelma()
{
    tTietokanta->setText(M::DatabasePath);
    tVarmistus->setText(M::BackupPath);
    chkMoniseuratuki->setChecked(M::MultiDb);
    tLaskunumero->setText(QString::number(M::Laskunro));
    tJasennumero->setText(QString::number(M::Jasennro));
    chkJasennumero->setChecked(M::AutoJasennumero);
    tVarmuuskopioPv->setText(QString::number(M::VarmuuskopioPv));
    chkMuistutaVarmistuksesta->setChecked(M::MuistutaVarm);
    tSalasana->setText(M::Salasana);
    tEmailLaskupohja->setText(M::EmailPohja);
    tEmailKarhupohja->setText(M::EmailKarhupohja);
}

void frmAsetukset::lueOhjelma(AsetuksetSyote &s) const
{
    s.tTietokanta = tTietokanta->text();
    s.tVarmistus = tVarmistus->text();
    s.chkMoniseuratuki = chkMoniseuratuki->isChecked();
    s.tLaskunumero = tLaskunumero->text();
    s.tJasennumero = tJasennumero->text();
    s.chkJasennumero = chkJasennumero->isChecked();
    s.tVarmuuskopioPv = tVarmuuskopioPv->text();
    s.chkMuistutaVarmistuksesta = chkMuistutaVarmistuksesta->isChecked();
    s.tSalasana = tSalasana->text();
    s.tEmailLaskupohja = tEmailLaskupohja->text();
    s.tEmailKarhupohja = tEmailKarhupohja->text();
}

// The chosen file, or the current one when the dialog was cancelled.
QString frmAsetukset::valitseTiedosto(const QString &otsikonLoppu, const QString &suodatin, const QString &nykyinen)
{
    dlg::FileRequest pyynto;
    pyynto.title = M::AppName + otsikonLoppu;
    pyynto.filter = suodatin;
    pyynto.startPath = nykyinen.isEmpty() ? files::programFolder() : nykyinen;
    const QString valittu = dlg::current().openFile(pyynto);
    return valittu.isEmpty() ? nykyinen : valittu;
}

void frmAsetukset::cTietokantavalita_Click()
{
    dlg::FileRequest pyynto;
    pyynto.title = M::AppName + QStringLiteral(" - tietokantahakemisto");
    pyynto.filter = QStringLiteral("Database (*.mdb)|*.mdb");
    pyynto.defaultExt = QStringLiteral("mdb");
    pyynto.startPath = tTietokanta->text().isEmpty() ? files::programFolder() : tTietokanta->text();
    const QString valittu = dlg::current().openFile(pyynto);
    if (valittu.isEmpty() || valittu == tTietokanta->text())
        return;
    tTietokanta->setText(valittu);
    // The choice is the workstation's and holds even if the rest is never saved.
    TallennaIniAsetukset(tTietokanta->text(), tVarmistus->text(), chkMoniseuratuki->isChecked());
    tVarmistus->setText(M::BackupPath);
    Ilmoita(QStringLiteral("Tietokantaa on vaihdettu. ") + M::AppName + QStringLiteral(" tulee käynnistää nyt uudestaan."));
}
