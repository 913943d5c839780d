#include "invoicing/ui/Laskutusikkuna.h"

#include "invoicing/Laskupohja.h"
#include "invoicing/ui/LaskupohjaValikko.h"

#include "core/MainModule.h"
#include "email/ui/frmEmailPreview.h"
#include "core/ui/Tietueikkuna.h"
#include "core/ui/uihelpers.h"
#include "platform/arvot.h"
#include "platform/kello.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

QCheckBox *valinta(QWidget *parent, const char *nimi, const QString &teksti)
{
    auto *c = new QCheckBox(teksti, parent);
    c->setObjectName(QString::fromUtf8(nimi));
    return c;
}

QLineEdit *kentta(QWidget *parent, const QString &nimi, int pituus = 0)
{
    auto *t = new QLineEdit(parent);
    t->setObjectName(nimi);
    if (pituus > 0)
        t->setMaxLength(pituus);
    return t;
}

} // namespace

Laskutusikkuna::Laskutusikkuna(QWidget *parent, Asetelma asetelma) : QMainWindow(parent), m_asetelma(std::move(asetelma))
{
    setObjectName(QString::fromUtf8(m_asetelma.nimi));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlag(Qt::Window);
    setWindowTitle(MainModule::AppName + QStringLiteral(" - ") + m_asetelma.otsikko);
}

void Laskutusikkuna::rakenna()
{
    auto *keskus = new QWidget(this);
    auto *g = new QGridLayout(keskus);
    auto *lisatiedot = new QGroupBox(QStringLiteral("Lisätietoja:"), keskus);
    tLisatietoja = new QPlainTextEdit(lisatiedot);
    tLisatietoja->setObjectName(QStringLiteral("tLisatietoja"));
    tLisatietoja->setTabChangesFocus(true);
    (new QVBoxLayout(lisatiedot))->addWidget(tLisatietoja);
    int rivi = 0;
    if (m_asetelma.rivitAlle) {
        g->addWidget(rakennaYlatiedot(), 0, 0);
        g->addWidget(lisatiedot, 0, 1);
        g->addWidget(rakennaRivit(), 1, 0, 1, 2);
        g->setRowStretch(0, 1);
        rivi = 2;
    } else {
        g->addWidget(rakennaYlatiedot(), 0, 0, 2, 1);
        g->addWidget(rakennaRivit(), 0, 1);
        g->addWidget(lisatiedot, 1, 1);
        g->setRowStretch(1, 1);
        rivi = 2;
    }

    ProgressBar1 = new QProgressBar(keskus);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setTextVisible(false);
    cKeskeyta = new QPushButton(QStringLiteral("Keskeytä"), keskus);
    cKeskeyta->setObjectName(QStringLiteral("cKeskeyta"));
    cKeskeyta->setEnabled(false);
    auto *edistys = new QHBoxLayout;
    edistys->addWidget(ProgressBar1, 1);
    edistys->addWidget(cKeskeyta);
    g->addLayout(edistys, rivi, 0, 1, 2);
    g->addWidget(rakennaPainikkeet(), rivi + 1, 0, 1, 2);
    g->setColumnStretch(0, 1);
    g->setColumnStretch(1, 1);
    setCentralWidget(keskus);
    rakennaValikot();
    yhdista();
}

QWidget *Laskutusikkuna::rakennaYlatiedot()
{
    auto *ryhma = new QGroupBox(QStringLiteral("Laskun tiedot"), this);
    auto *f = new QFormLayout(ryhma);

    cmbNimet = new QComboBox(ryhma);
    cmbNimet->setObjectName(QStringLiteral("cmbNimet"));
    cmbNimet->setEditable(true);
    cmbNimet->setInsertPolicy(QComboBox::NoInsert);
    cmbNimet->setMaxVisibleItems(20);
    // A hundred thousand names: no width measured over the whole list, rows of one height.
    cmbNimet->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cmbNimet->setMinimumContentsLength(28);
    if (auto *nakyma = qobject_cast<QListView *>(cmbNimet->view()))
        nakyma->setUniformItemSizes(true);
    cmbNimet->setToolTip(QStringLiteral("Kaikki, ominaisuuden haltijat (Om - ) tai yksi henkilö"));
    f->addRow(m_asetelma.nimiOtsikko, cmbNimet);
    if (m_asetelma.perheruutu) {
        chkEiPerheellisille = valinta(ryhma, "chkEiPerheellisille", QStringLiteral("Ei perheeseen kuuluville"));
        f->addRow(QString(), chkEiPerheellisille);
    }
    chkMuille = valinta(ryhma, "chkMuille", QStringLiteral("Muille kuin valitulla ominaisuudella rajatuille"));
    f->addRow(QString(), chkMuille);

    tLaskunPaiva = kentta(ryhma, QStringLiteral("tLaskunPaiva"), 10);
    tLaskunErapaiva = kentta(ryhma, QStringLiteral("tLaskunErapaiva"), 10);
    f->addRow(QStringLiteral("Laskun päivämäärä:"), tLaskunPaiva);
    f->addRow(QStringLiteral("Eräpäivä:"), tLaskunErapaiva);

    cmbMaksunOtsake = new QComboBox(ryhma);
    cmbMaksunOtsake->setObjectName(QStringLiteral("cmbMaksunOtsake"));
    cmbMaksunOtsake->setEditable(true);
    cmbMaksunOtsake->setInsertPolicy(QComboBox::NoInsert);
    cmbMaksunOtsake->lineEdit()->setMaxLength(50);
    cmbMaksunOtsake->setToolTip(QStringLiteral("Laskun otsake, korkeintaan 30 merkkiä. Alt+D poistaa valitun otsakkeen."));
    f->addRow(QStringLiteral("Laskun otsake:"), cmbMaksunOtsake);
    tTilisiirronTeksti = kentta(ryhma, QString::fromUtf8(m_asetelma.tilisiirtoKentta), 255);
    f->addRow(QStringLiteral("Tilisiirron teksti:"), tTilisiirronTeksti);

    chkJasenmaksu = valinta(ryhma, "chkJasenmaksu", QStringLiteral("Tee jäsenmaksuna"));
    chkJasenmaksu->setToolTip(QStringLiteral("Merkitsee jäsenkorttiin jäsenmaksun maksamattomaksi ja merkittäessä "
                                             "maksetuksi automaattisesti maksetuksi"));
    chkHenkKohtViite = valinta(ryhma, "chkHenkKohtViite", QStringLiteral("Käytä henkilökohtaista viitettä"));
    chkEiViitetta = valinta(ryhma, "chkEiViitetta", QStringLiteral("Tulosta ilman viitettä"));
    chkEiLoppusummaa = valinta(ryhma, "chkEiLoppusummaa", QStringLiteral("Tulosta ilman loppusummaa"));
    for (QCheckBox *c : {chkJasenmaksu, chkHenkKohtViite, chkEiViitetta, chkEiLoppusummaa})
        f->addRow(QString(), c);

    chkVainValittuTilinumero = valinta(ryhma, "chkVainValittuTilinumero", QStringLiteral("Vain valittu tilinumero"));
    cmbTilinumerot = new QComboBox(ryhma);
    cmbTilinumerot->setObjectName(QStringLiteral("cmbTilinumerot"));
    cmbTilinumerot->addItems({QString(), MainModule::RegPankkiyhteys1, MainModule::RegPankkiyhteys2});
    f->addRow(chkVainValittuTilinumero, cmbTilinumerot);
    return ryhma;
}

QWidget *Laskutusikkuna::rakennaPainikkeet()
{
    auto *rivi = new QWidget(this);
    auto *h = new QHBoxLayout(rivi);
    h->setContentsMargins(0, 0, 0, 0);
    using tietue::KomentoPainike;
    cYksittain = KomentoPainike(this, m_komennot, "cYksittain", QStringLiteral("Lisää"),
                                QStringLiteral("Lisää laskut valituille [F2]"), Qt::Key_F2, [this] { lisaa(); });
    cHistoriaan = KomentoPainike(this, m_komennot, "cHistoriaan", QStringLiteral("Siirrä historiaan"),
                                 QStringLiteral("Siirrä lisätyt laskut historiaan [F4]"), Qt::Key_F4, [this] { historiaan(); });
    cPoista = KomentoPainike(this, m_komennot, "cPoista", QStringLiteral("Poista laskut"),
                             QStringLiteral("Poista tehdyt laskut (ei siirretä historiaan)"), {}, [this] { poista(); });
    // The runs of the other kinds, printing and e-mail open their own windows and flows.
    cPerheille = KomentoPainike(this, m_komennot, "cPerheille", QStringLiteral("Perhelaskut"),
                                QStringLiteral("Perhelaskut [F5]"), Qt::Key_F5, [this] { avaaToinen(Laskuikkuna::Perhe); });
    cOminaisuudella = KomentoPainike(this, m_komennot, "cOminaisuudella", QStringLiteral("Ominaisuuslaskut"),
                                     QStringLiteral("Ominaisuuslaskut [F6]"), Qt::Key_F6,
                                     [this] { avaaToinen(Laskuikkuna::Ominaisuus); });
    cTulosta = KomentoPainike(this, m_komennot, "cTulosta", QStringLiteral("Tulosta"),
                              QStringLiteral("Tulosta lisätyt laskut [F7]"), Qt::Key_F7, [this] { tulosta(false); });
    cEmail = KomentoPainike(this, m_komennot, "cEmail", QStringLiteral("Sähköposti"),
                            QStringLiteral("Lähetä laskut sähköpostilla [F8]"), Qt::Key_F8, [this] { lahetaSahkopostilla(); });
    cEmailPreview = KomentoPainike(this, m_komennot, "cEmailPreview", QStringLiteral("Esikats."),
                                   QStringLiteral("Sähköpostilaskujen esikatselu"), {},
                                   [this] { frmEmailPreview::AvaaLaskut(this); });
    // A window does not open itself.
    cPerheille->defaultAction()->setEnabled(m_asetelma.laji != Laskuikkuna::Perhe);
    cOminaisuudella->defaultAction()->setEnabled(m_asetelma.laji != Laskuikkuna::Ominaisuus);
    cSulje = KomentoPainike(this, m_komennot, "cSulje", QStringLiteral("Sulje"), QStringLiteral("Sulje ikkuna"), {},
                            [this] { close(); });
    for (QToolButton *b : {cYksittain, cPerheille, cOminaisuudella, cTulosta, cEmail, cEmailPreview, cHistoriaan, cPoista})
        h->addWidget(b);
    h->addStretch(1);
    h->addWidget(cSulje);
    for (QToolButton *b : {cYksittain, cTulosta, cEmail, cEmailPreview, cHistoriaan, cPoista, cSulje})
        m_ajonAikanaPois << b;
    return rivi;
}

void Laskutusikkuna::rakennaValikot()
{
    mLaskut = menuBar()->addMenu(QStringLiteral("&Laskut"));
    mLaskut->setObjectName(QStringLiteral("mLaskut"));
    // A menu entry does what its button does, and is off when the button is.
    const auto lisaa = [this](const char *nimi, QToolButton *painike, const QString &teksti) {
        QAction *a = mLaskut->addAction(teksti);
        a->setObjectName(QString::fromUtf8(nimi));
        QAction *komento = painike->defaultAction();
        a->setEnabled(komento->isEnabled());
        connect(komento, &QAction::changed, a, [a, komento] { a->setEnabled(komento->isEnabled()); });
        connect(a, &QAction::triggered, komento, &QAction::trigger);
    };
    lisaa("mTulosta", cTulosta, QStringLiteral("Tulosta laskut"));
    if (m_asetelma.listat) {
        lisaa("mTulostaLaskunumerosta", cTulosta, QStringLiteral("Tulosta laskut laskunumerosta"));
        // The same button, asking where to go on from.
        QAction *numerosta = mLaskut->actions().constLast();
        disconnect(numerosta, &QAction::triggered, cTulosta->defaultAction(), &QAction::trigger);
        connect(numerosta, &QAction::triggered, this, [this] { tulosta(true); });
        const auto lista = [this](const char *nimi, const QString &teksti, const QString &tiedosto, const QString &otsikko) {
            QAction *a = mLaskut->addAction(teksti);
            a->setObjectName(QString::fromUtf8(nimi));
            connect(a, &QAction::triggered, this, [this, tiedosto, otsikko] { tulostaLista(tiedosto, otsikko); });
        };
        lista("mLisattyjenLaskujenLista", QStringLiteral("Lisättyjen laskujen lista"), QStringLiteral("jmulista.rpt"),
              QStringLiteral("LISÄTYT LASKUT"));
        lista("mLisattyjenLaskujenViiteLista", QStringLiteral("Lisättyjen laskujen viitelista"),
              QStringLiteral("jmuvlist.rpt"), QStringLiteral("LISÄTYT LASKUT VIITELISTA"));
    }
    mLaskut->addSeparator();
    lisaa("mHistoriaan", cHistoriaan, QStringLiteral("Siirrä laskut historiaan"));
    lisaa("mPoista", cPoista, QStringLiteral("Poista tehdyt laskut (ei siirretä historiaan)"));
    mLaskut->addSeparator();
    lisaa("mPerhemaksut", cPerheille, QStringLiteral("Perhelaskut"));
    lisaa("mOminaisuusmaksut", cOminaisuudella, QStringLiteral("Ominaisuuslaskut"));
    mLaskut->addSeparator();
    lisaa("mSulje", cSulje, QStringLiteral("Sulje"));

}

bool Laskutusikkuna::Lataa()
{
    if (!tietue::TietokantaAsetettu())
        return false;
    return tietue::Suojattu([this] {
        auto d = tietue::AvaaKanta();
        taytaNimet(*d);
        taytaOtsakkeet();
        if (m_asetelma.laskupohjat) {
            const int tyyppi = m_asetelma.laji == Laskuikkuna::Perhe ? laskupohja::Perhe
                : m_asetelma.laji == Laskuikkuna::Ominaisuus       ? laskupohja::Ominaisuus
                                                                     : laskupohja::Perus;
            mLaskupohjat = LaskupohjaValikko::rakenna(menuBar(), tyyppi, [this](int indeksi) {
                tietue::Suojattu([this, indeksi] { kaytaPohjaa(indeksi); });
            });
        }
        tLaskunPaiva->setText(PaivaTekstina(kello::tanaan()));
        lataaRivit(*d);
    });
}
