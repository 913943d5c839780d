// The reminder, printing and invoice layout tabs of frmAsetukset.
#include "core/AsetustenTallennus.h"
#include "core/MainModule.h"
#include "core/ui/frmAsetukset.h"
#include "platform/arvot.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace M = MainModule;

namespace {

// A field followed by its unit.
QWidget *yksikolla(QWidget *field, const QString &unit)
{
    auto *w = new QWidget;
    auto *h = new QHBoxLayout(w);
    h->setContentsMargins(0, 0, 0, 0);
    h->addWidget(field);
    h->addWidget(new QLabel(unit));
    h->addStretch();
    return w;
}

void valitseTaiLisaa(QComboBox *c, const QString &text)
{
    int i = c->findText(text);
    if (i < 0) {
        // A setting that this machine's list lacks is kept as it is.
        c->insertItem(0, text);
        i = 0;
    }
    c->setCurrentIndex(i);
}

} // namespace

QWidget *frmAsetukset::teeMuistutusSivu()
{
    auto *sivu = new QWidget;

    auto *asetukset = new QGroupBox(QStringLiteral("Maksumuistutuksen asetukset"), sivu);
    auto *g1 = new QGridLayout(asetukset);
    tMuistutuskulut = numerokentta(QStringLiteral("tMuistutuskulut"),
                                   QStringLiteral("Syötä Muistutuskulut -kenttään ainoastaan numeroita."), 15);
    tMuistutuskulut->setToolTip(QStringLiteral("Muistutukseen lisättävä maksu"));
    tViivastysKorko = tekstikentta(QStringLiteral("tViivastysKorko"), 10);
    tViivastysKorko->setMaximumWidth(tMuistutuskulut->maximumWidth());
    tViivastysKorko->setToolTip(QStringLiteral("Viivästyskorko prosentteina vuodessa"));
    lisaaRivi(g1, 0, QStringLiteral("Muistutuskulut:"), yksikolla(tMuistutuskulut, QStringLiteral("€")));
    lisaaRivi(g1, 1, QStringLiteral("Viivästyskorko:"), yksikolla(tViivastysKorko, QStringLiteral("%")));
    g1->setColumnStretch(1, 1);

    auto *tekstit = new QGroupBox(QStringLiteral("Maksumuistutuskirjeen tekstit"), sivu);
    auto *g2 = new QGridLayout(tekstit);
    tMuistutusOtsake = tekstikentta(QStringLiteral("tMuistutusOtsake"));
    tMuistutusAlkuteksti = muistutusteksti(QStringLiteral("tMuistutusAlkuteksti"));
    tMuistutusAlkuteksti->setToolTip(QStringLiteral("Muistutuskirjeen alkuun tulostettava teksti, yksi kappale"));
    tMuistutusLopputeksti = muistutusteksti(QStringLiteral("tMuistutusLopputeksti"));
    tMuistutusLopputeksti->setToolTip(QStringLiteral("Muistutuskirjeen loppuun tulostettava teksti, yksi kappale"));
    lisaaRivi(g2, 0, QStringLiteral("Otsake"), tMuistutusOtsake);
    lisaaRivi(g2, 1, QStringLiteral("Alkuteksti:"), tMuistutusAlkuteksti);
    lisaaRivi(g2, 2, QStringLiteral("Lopputeksti:"), tMuistutusLopputeksti);
    for (int r = 1; r <= 2; ++r)
        g2->itemAtPosition(r, 0)->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    g2->setColumnStretch(1, 1);

    auto *v = new QVBoxLayout(sivu);
    v->addWidget(asetukset);
    v->addWidget(tekstit);
    v->addStretch();
    return sivu;
}

QWidget *frmAsetukset::teeTulostusSivu()
{
    auto *sivu = new QWidget;

    auto *rajoitus = new QGroupBox(QStringLiteral("Laskutulostuksen rajoitus"), sivu);
    auto *g1 = new QGridLayout(rajoitus);
    tTulostusEra = numerokentta(QStringLiteral("tTulostusEra"),
                                QStringLiteral("Syötä tulostuseräksi ainoastaan numeroita."), 5);
    tTulostusEra->setToolTip(QStringLiteral("Kerralla tulostettavien laskujen määrä, 0 = kaikki kerralla"));
    lisaaRivi(g1, 0, QStringLiteral("Erän koko:"), tTulostusEra);
    g1->setColumnStretch(1, 1);

    auto *fontit = new QGroupBox(QStringLiteral("Fonttiasetukset"), sivu);
    auto *g2 = new QGridLayout(fontit);
    cmbFonts = new QComboBox(this);
    cmbFonts->setObjectName(QStringLiteral("cmbFonts"));
    cmbFonts->setToolTip(QStringLiteral("Kirjasinlaji tulosteilla"));
    cmbFonts->addItems(QFontDatabase::families());
    cmbFonttiKoko = new QComboBox(this);
    cmbFonttiKoko->setObjectName(QStringLiteral("cmbFonttiKoko"));
    cmbFonttiKoko->setToolTip(QStringLiteral("Kirjasinlajin koko tulosteilla"));
    for (int koko : QFontDatabase::standardSizes())
        cmbFonttiKoko->addItem(QString::number(koko));
    cmbFonts->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('x')) * 32);
    cmbFonttiKoko->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * 8);
    g2->addWidget(new QLabel(QStringLiteral("Fontti:")), 0, 0);
    g2->addWidget(cmbFonts, 0, 1);
    g2->addWidget(new QLabel(QStringLiteral("Koko:")), 1, 0);
    g2->addWidget(cmbFonttiKoko, 1, 1, Qt::AlignLeft);
    g2->setColumnStretch(2, 1);

    auto *marginaalit = new QGroupBox(QStringLiteral("Tulostusmarginaalit"), sivu);
    auto *g3 = new QGridLayout(marginaalit);
    const QString viesti = QStringLiteral("Syötä marginaaliksi ainoastaan numeroita.");
    tMargVas = numerokentta(QStringLiteral("tMargVas"), viesti, 3);
    tMargOik = numerokentta(QStringLiteral("tMargOik"), viesti, 3);
    tMargYla = numerokentta(QStringLiteral("tMargYla"), viesti, 3);
    tMargAla = numerokentta(QStringLiteral("tMargAla"), viesti, 3);
    lisaaRivi(g3, 0, QStringLiteral("Vasen:"), tMargVas);
    lisaaRivi(g3, 1, QStringLiteral("Oikea:"), tMargOik);
    lisaaRivi(g3, 2, QStringLiteral("Ylä:"), tMargYla);
    lisaaRivi(g3, 3, QStringLiteral("Ala:"), tMargAla);
    g3->setColumnStretch(1, 1);

    auto *v = new QVBoxLayout(sivu);
    v->addWidget(rajoitus);
    v->addWidget(fontit);
    v->addWidget(marginaalit);
    v->addStretch();
    return sivu;
}

QWidget *frmAsetukset::teeLaskupohjaSivu()
{
    auto *sivu = new QWidget;
    auto *kehys = new QGroupBox(QStringLiteral("Omat laskupohjat"), sivu);
    auto *grid = new QGridLayout(kehys);

    chkLaskupohjaKaytossa = new QCheckBox(QStringLiteral("Oma laskupohja käytössä"), this);
    chkLaskupohjaKaytossa->setObjectName(QStringLiteral("chkLaskupohjaKaytossa"));
    tLaskupohjaTiedosto = tekstikentta(QStringLiteral("tLaskupohjaTiedosto"));
    tLaskupohjaTiedosto->setToolTip(QStringLiteral("Laskujen tulostuksessa käytettävä oma laskupohja"));
    cValitseLaskupohjatiedosto = valintanappi(QStringLiteral("cValitseLaskupohjatiedosto"));
    chkLaskupohjaHKaytossa = new QCheckBox(QStringLiteral("Oma laskupohja käytössä laskuhistoriassa"), this);
    chkLaskupohjaHKaytossa->setObjectName(QStringLiteral("chkLaskupohjaHKaytossa"));
    tLaskupohjaHTiedosto = tekstikentta(QStringLiteral("tLaskupohjaHTiedosto"));
    tLaskupohjaHTiedosto->setToolTip(QStringLiteral("Laskuhistorian tulostuksessa käytettävä oma laskupohja"));
    cValitseLaskupohjatiedostoH = valintanappi(QStringLiteral("cValitseLaskupohjatiedostoH"));
    const QString raportti = QStringLiteral("Report (*.rpt)|*.rpt");
    connect(cValitseLaskupohjatiedosto, &QPushButton::clicked, this, [this, raportti] {
        tLaskupohjaTiedosto->setText(
            valitseTiedosto(QStringLiteral(" - Laskupohjatiedosto"), raportti, tLaskupohjaTiedosto->text()));
    });
    connect(cValitseLaskupohjatiedostoH, &QPushButton::clicked, this, [this, raportti] {
        tLaskupohjaHTiedosto->setText(
            valitseTiedosto(QStringLiteral(" - LaskupohjatiedostoH"), raportti, tLaskupohjaHTiedosto->text()));
    });

    grid->addWidget(chkLaskupohjaKaytossa, 0, 0, 1, 3);
    lisaaRivi(grid, 1, QStringLiteral("Laskupohja:"), tLaskupohjaTiedosto, cValitseLaskupohjatiedosto);
    grid->setRowMinimumHeight(2, 12);
    grid->addWidget(chkLaskupohjaHKaytossa, 3, 0, 1, 3);
    lisaaRivi(grid, 4, QStringLiteral("Laskupohja H:"), tLaskupohjaHTiedosto, cValitseLaskupohjatiedostoH);
    grid->setColumnStretch(1, 1);

    auto *v = new QVBoxLayout(sivu);
    v->addWidget(kehys);
    v->addStretch();
    return sivu;
}

void frmAsetukset::taytaTulostus()
{
    tMuistutuskulut->setText(RahaKenttaan(M::Muistutuskulut));
    tViivastysKorko->setText(LukuKenttaan(M::Viivastyskorko));
    tMuistutusOtsake->setText(M::MuistutusOtsake);
    tMuistutusAlkuteksti->setPlainText(M::MuistutusAlku);
    tMuistutusLopputeksti->setPlainText(M::MuistutusLoppu);
    tTulostusEra->setText(QString::number(M::TulostusEra));
    valitseTaiLisaa(cmbFonts, M::Fontti);
    valitseTaiLisaa(cmbFonttiKoko, QString::number(M::FonttiKoko));
    tMargVas->setText(QString::number(M::MargVas));
    tMargOik->setText(QString::number(M::MargOik));
    tMargYla->setText(QString::number(M::MargYla));
    tMargAla->setText(QString::number(M::MargAla));
    chkLaskupohjaKaytossa->setChecked(M::LaskupohjaKaytossa);
    tLaskupohjaTiedosto->setText(M::LaskupohjaTiedosto);
    chkLaskupohjaHKaytossa->setChecked(M::LaskupohjaHKaytossa);
    tLaskupohjaHTiedosto->setText(M::LaskupohjaHTiedosto);
}

void frmAsetukset::lueTulostus(AsetuksetSyote &s) const
{
    s.tMuistutuskulut = tMuistutuskulut->text();
    s.tViivastysKorko = tViivastysKorko->text();
    s.tMuistutusOtsake = tMuistutusOtsake->text();
    s.tMuistutusAlkuteksti = tMuistutusAlkuteksti->toPlainText();
    s.tMuistutusLopputeksti = tMuistutusLopputeksti->toPlainText();
    s.tTulostusEra = tTulostusEra->text();
    s.cmbFonts = cmbFonts->currentText();
    s.cmbFonttiKoko = cmbFonttiKoko->currentText();
    s.tMargVas = tMargVas->text();
    s.tMargOik = tMargOik->text();
    s.tMargYla = tMargYla->text();
    s.tMargAla = tMargAla->text();
    s.chkLaskupohjaKaytossa = chkLaskupohjaKaytossa->isChecked();
    s.tLaskupohjaTiedosto = tLaskupohjaTiedosto->text();
    s.chkLaskupohjaHKaytossa = chkLaskupohjaHKaytossa->isChecked();
    s.tLaskupohjaHTiedosto = tLaskupohjaHTiedosto->text();
}
