#include "app/frmMain.h"

#include "core/Kaynnistys.h"
#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "core/Varmuuskopio.h"
#include "core/Palautus.h"
#include "core/Perustus.h"
#include "core/ui/Kuvakkeet.h"
#include "core/ui/Tietueikkuna.h"
#include "core/ui/frmAboutNorvik.h"
#include "core/ui/frmAsetukset.h"
#include "core/ui/uihelpers.h"
#include "invoicing/ui/frmMaksujenLuonti.h"
#include "payments/ui/frmMaksut.h"
#include "members/ui/frmJasen.h"
#include "members/ui/frmPiirre.h"
#include "reports/Tulostus.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QSessionManager>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QToolButton>

using namespace MainModule;

namespace {

QToolButton *iso(QWidget *parent, const char *nimi, const QString &teksti, const QIcon &kuva, int leveys)
{
    auto *b = new QToolButton(parent);
    b->setObjectName(QLatin1String(nimi));
    b->setText(teksti);
    b->setIcon(kuva);
    b->setIconSize(QSize(32, 32));
    b->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    b->setAutoRaise(false);
    b->setFixedSize(leveys, 66);
    return b;
}

} // namespace

frmMain::frmMain(QWidget *parent) : QMainWindow(parent)
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(AppName);
    setWindowIcon(QIcon(Kuvakkeet::tunnus(64)));
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint
                   | Qt::WindowCloseButtonHint);
    luoNapit();
    luoValikot();
    // The desktop's logout closes the program as Sulje does; a window that cannot close (a row
    // that cannot be stored) keeps the session from ending, where the desktop lets us ask.
    connect(qApp, &QGuiApplication::commitDataRequest, this, [this](QSessionManager &istunto) {
        if (!close() && istunto.allowsInteraction()) {
            istunto.cancel();
            istunto.release();
        }
    });

    // The bar is as large as its buttons, and stays so.
    setFixedSize(sizeHint());
    // The preview opens in the top-left corner and offers printing.
    Raportti().WindowLeft = 0;
    Raportti().WindowTop = 0;
    Raportti().WindowShowPrintBtn = true;
    mPerustaTietokanta->setVisible(IsDemoDatabase(DatabasePath));
    LataaIkkunanPaikka(this);
}

void frmMain::luoNapit()
{
    auto *keskus = new QWidget(this);
    const int leveys = qMax(96, fontMetrics().horizontalAdvance(QStringLiteral("Jäsenrekisteri")) + 18);
    cJasenrekisteri = iso(keskus, "cJasenrekisteri", QStringLiteral("Jäsenrekisteri"), Kuvakkeet::jasenrekisteri(), leveys);
    cJasenmaksut = iso(keskus, "cJasenmaksut", QStringLiteral("Maksukirja"), Kuvakkeet::maksukirja(), leveys);
    cLuoJasenmaksut = iso(keskus, "cLuoJasenmaksut", QStringLiteral("Laskutus"), Kuvakkeet::laskutus(), leveys);
    cOminaisuudet = iso(keskus, "cOminaisuudet", QStringLiteral("Ominaisuudet"), Kuvakkeet::ominaisuudet(), leveys);
    cAboutNorvik = iso(keskus, "cAboutNorvik", QString(), QIcon(Kuvakkeet::tunnus(64)), 66);
    cAboutNorvik->setIconSize(QSize(44, 44));
    cAboutNorvik->setToolButtonStyle(Qt::ToolButtonIconOnly);
    cAboutNorvik->setToolTip(QStringLiteral("Tietoja Vonarista"));
    cAboutNorvik->setAccessibleName(QStringLiteral("Tietoja"));
    cSulje = iso(keskus, "cSulje", QStringLiteral("Sulje"), Kuvakkeet::sulje(), 80);
    cSulje->setToolTip(QStringLiteral("Sulje Vonari [Alt+F4]"));

    connect(cJasenrekisteri, &QToolButton::clicked, this, [this] { tietue::Suojattu([this] { AvaaJasenrekisteri(this); }); });
    connect(cOminaisuudet, &QToolButton::clicked, this, [this] { tietue::Suojattu([this] { AvaaOminaisuudet(this); }); });
    connect(cLuoJasenmaksut, &QToolButton::clicked, this, [this] { tietue::Suojattu([this] { AvaaLaskutus(this); }); });
    connect(cJasenmaksut, &QToolButton::clicked, this, [this] { tietue::Suojattu([this] { AvaaMaksukirja(this); }); });
    connect(cAboutNorvik, &QToolButton::clicked, this, &frmMain::avaaTietoja);
    connect(cSulje, &QToolButton::clicked, this, &frmMain::close);

    auto *rivi = new QHBoxLayout(keskus);
    rivi->setContentsMargins(8, 8, 8, 8);
    rivi->setSpacing(6);
    for (QToolButton *b : {cJasenrekisteri, cJasenmaksut, cLuoJasenmaksut, cOminaisuudet})
        rivi->addWidget(b);
    rivi->addSpacing(14);
    rivi->addStretch();
    rivi->addWidget(cAboutNorvik);
    rivi->addWidget(cSulje);
    setCentralWidget(keskus);
}

QAction *frmMain::lisaa(QMenu *valikko, const char *nimi, const QString &teksti, bool kaytossa)
{
    QAction *a = valikko->addAction(teksti);
    a->setObjectName(QLatin1String(nimi));
    a->setEnabled(kaytossa);
    return a;
}

void frmMain::erotin(QMenu *valikko, const char *nimi) { valikko->addSeparator()->setObjectName(QLatin1String(nimi)); }

void frmMain::luoValikot()
{
    mTiedosto = menuBar()->addMenu(QStringLiteral("&Tiedosto"));
    mTiedosto->setObjectName(QStringLiteral("mTiedosto"));
    mJasenrekisteri = lisaa(mTiedosto, "mJasenrekisteri", QStringLiteral("Jäsenrekisteri"));
    mJasenmaksut = lisaa(mTiedosto, "mJasenmaksut", QStringLiteral("Maksukirja"));
    mJasenmaksujenluonti = lisaa(mTiedosto, "mJasenmaksujenluonti", QStringLiteral("Laskutus"));
    mPiirteet = lisaa(mTiedosto, "mPiirteet", QStringLiteral("Ominaisuudet"));
    mIkajakauma = lisaa(mTiedosto, "mIkajakauma", QStringLiteral("Ikäjakauma"), false);
    erotin(mTiedosto, "m2");
    mAsetukset = lisaa(mTiedosto, "mAsetukset", QStringLiteral("&Asetukset"));
    erotin(mTiedosto, "m3");
    mEuroMuunnos = lisaa(mTiedosto, "mEuroMuunnos", QStringLiteral("Tee Euro muunnos"), false);
    mPalautaEuroMuunnos = lisaa(mTiedosto, "mPalautaEuroMuunnos", QStringLiteral("Palauta Euro muunnos"), false);
    erotin(mTiedosto, "m4");
    mVarmistus = lisaa(mTiedosto, "mVarmistus", QStringLiteral("Tietokannan &varmuuskopio"));
    mPalautus = lisaa(mTiedosto, "mPalautus", QStringLiteral("Tietokannan palautus"));
    erotin(mTiedosto, "m5");
    mLopetus = lisaa(mTiedosto, "mLopetus", QStringLiteral("&Sulje"));

    mTietokanta = menuBar()->addMenu(QStringLiteral("Tietokanta"));
    mTietokanta->setObjectName(QStringLiteral("mTietokanta"));
    mPerustaTietokanta = lisaa(mTietokanta, "mPerustaTietokanta", QStringLiteral("Perusta yhdistyksen tietokanta"));
    mMuokkaaTietokantaa = lisaa(mTietokanta, "mMuokkaaTietokantaa", QStringLiteral("Muokkaa tietokantaa"), false);
    mSuoritaSQLLause = lisaa(mTietokanta, "mSuoritaSQLLause", QStringLiteral("Suorita SQL-lause"), false);
    mImportData = lisaa(mTietokanta, "mImportData", QStringLiteral("Tuo jäsentiedot csv-tiedostosta"), false);
    mService = lisaa(mTietokanta, "mService", QStringLiteral("Huoltotiedoston lähetys"), false);
    erotin(mTietokanta, "m6");
    mTietoja = lisaa(mTietokanta, "mTietoja", QStringLiteral("Tietoja"));

    connect(mJasenrekisteri, &QAction::triggered, cJasenrekisteri, &QToolButton::click);
    connect(mPiirteet, &QAction::triggered, cOminaisuudet, &QToolButton::click);
    connect(mJasenmaksujenluonti, &QAction::triggered, cLuoJasenmaksut, &QToolButton::click);
    connect(mJasenmaksut, &QAction::triggered, cJasenmaksut, &QToolButton::click);
    connect(mAsetukset, &QAction::triggered, this, &frmMain::avaaAsetukset);
    connect(mVarmistus, &QAction::triggered, this, &frmMain::teeVarmuuskopio);
    connect(mPalautus, &QAction::triggered, this, &frmMain::palauta);
    connect(mLopetus, &QAction::triggered, this, &frmMain::close);
    connect(mPerustaTietokanta, &QAction::triggered, this, &frmMain::perustaTietokanta);
    connect(mTietoja, &QAction::triggered, this, &frmMain::avaaTietoja);
}

void frmMain::ResetReportFormulas() { ::ResetReportFormulas(); }

void frmMain::avaaAsetukset()
{
    tietue::Suojattu([this] {
        std::unique_ptr<frmAsetukset> asetukset;
        {
            // The hourglass while the window loads, not while the user works in it.
            cMouseCursor osoitin;
            osoitin.SetCursor(this, Qt::WaitCursor);
            asetukset = std::make_unique<frmAsetukset>(this);
        }
        asetukset->exec();
    });
}

void frmMain::avaaTietoja()
{
    tietue::Suojattu([this] {
        frmAboutNorvik tietoja(this);
        tietoja.exec();
    });
}

void frmMain::teeVarmuuskopio()
{
    tietue::Suojattu([this] {
        cMouseCursor osoitin;
        osoitin.SetCursor(this, Qt::WaitCursor);
        TeeVarmuuskopio();
    });
}

void frmMain::palauta()
{
    tietue::Suojattu([] { Palautus(); });
}

void frmMain::perustaTietokanta()
{
    tietue::Suojattu([this] {
        if (PerustaTietokanta(QStringLiteral("Tämä toiminto luo uuden tietokannan yhdistyksen jäsenrekisterin pohjaksi."),
                              QStringLiteral("malli.mdb")))
            close();
    });
}

void frmMain::closeEvent(QCloseEvent *event)
{
    // The other windows close by their own rules first (the member window stores its row, the
    // settings windows ask about their changes); one that stays open keeps the program open.
    if (!tietue::SuljeMuut(this)) {
        event->ignore();
        return;
    }
    TallennaIkkunanPaikka(this);
    releaseIniAsetukset();
    event->accept();
    emit ohjelmaLoppuu();
    QCoreApplication::quit();
}
