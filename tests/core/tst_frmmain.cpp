// The main window as the user meets it: its buttons and menus, what is usable yet, its fixed
// size, the club's menu entry and the placement kept between runs.
#include "core/MainModule.h"
#include "core/ui/frmAboutNorvik.h"
#include "core/ui/frmMain.h"
#include "core/ui/frmSplash.h"
#include "scripteddialogs.h"
#include "testenv.h"

#include <QAction>
#include <QElapsedTimer>
#include <QFrame>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QTimer>
#include <QToolButton>
#include <QtTest>

using namespace MainModule;

class TestFrmMain : public QObject {
    Q_OBJECT

private slots:
    void buttons_data()
    {
        QTest::addColumn<QString>("nimi");
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<bool>("kaytossa");
        QTest::newRow("rekisteri") << "cJasenrekisteri" << "Jäsenrekisteri" << false;
        QTest::newRow("maksukirja") << "cJasenmaksut" << "Maksukirja" << false;
        QTest::newRow("laskutus") << "cLuoJasenmaksut" << "Laskutus" << false;
        QTest::newRow("ominaisuudet") << "cOminaisuudet" << "Ominaisuudet" << false;
        QTest::newRow("tietoja") << "cAboutNorvik" << "" << true;
        QTest::newRow("sulje") << "cSulje" << "Sulje" << true;
    }

    void buttons()
    {
        QFETCH(QString, nimi);
        QFETCH(QString, teksti);
        QFETCH(bool, kaytossa);
        TestEnv env;
        frmMain w;
        auto *b = w.findChild<QToolButton *>(nimi);
        QVERIFY(b);
        QCOMPARE(b->text(), teksti);
        QCOMPARE(b->isEnabled(), kaytossa);
        if (nimi == QLatin1String("cAboutNorvik"))
            QVERIFY(!b->icon().isNull());
        if (nimi == QLatin1String("cSulje"))
            QCOMPARE(b->toolTip(), QStringLiteral("Sulje Vonari [Alt+F4]"));
    }

    void menus_data()
    {
        QTest::addColumn<QString>("valikko");
        QTest::addColumn<QString>("nimi");
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<bool>("kaytossa");
        auto rivi = [](const char *v, const char *n, const char *t, bool k) {
            QTest::newRow(n) << QString::fromUtf8(v) << QString::fromUtf8(n) << QString::fromUtf8(t) << k;
        };
        rivi("mTiedosto", "mJasenrekisteri", "Jäsenrekisteri", false);
        rivi("mTiedosto", "mJasenmaksut", "Maksukirja", false);
        rivi("mTiedosto", "mJasenmaksujenluonti", "Laskutus", false);
        rivi("mTiedosto", "mPiirteet", "Ominaisuudet", false);
        rivi("mTiedosto", "mIkajakauma", "Ikäjakauma", false);
        rivi("mTiedosto", "mAsetukset", "&Asetukset", true);
        rivi("mTiedosto", "mEuroMuunnos", "Tee Euro muunnos", false);
        rivi("mTiedosto", "mPalautaEuroMuunnos", "Palauta Euro muunnos", false);
        rivi("mTiedosto", "mVarmistus", "Tietokannan &varmuuskopio", true);
        rivi("mTiedosto", "mPalautus", "Tietokannan palautus", true);
        rivi("mTiedosto", "mLopetus", "&Sulje", true);
        rivi("mTietokanta", "mPerustaTietokanta", "Perusta yhdistyksen tietokanta", true);
        rivi("mTietokanta", "mMuokkaaTietokantaa", "Muokkaa tietokantaa", false);
        rivi("mTietokanta", "mSuoritaSQLLause", "Suorita SQL-lause", false);
        rivi("mTietokanta", "mImportData", "Tuo jäsentiedot csv-tiedostosta", false);
        rivi("mTietokanta", "mService", "Huoltotiedoston lähetys", false);
        rivi("mTietokanta", "mTietoja", "Tietoja", true);
    }

    void menus()
    {
        QFETCH(QString, valikko);
        QFETCH(QString, nimi);
        QFETCH(QString, teksti);
        QFETCH(bool, kaytossa);
        TestEnv env;
        DatabasePath = QStringLiteral("/home/u/.local/share/Vonari/demo1.mdb");
        frmMain w;
        auto *menu = w.menuBar()->findChild<QMenu *>(valikko);
        QVERIFY(menu);
        QAction *entry = nullptr;
        for (QAction *a : menu->actions())
            if (a->objectName() == nimi)
                entry = a;
        QVERIFY2(entry, qPrintable(nimi + QStringLiteral(" puuttuu valikosta ") + valikko));
        QCOMPARE(entry->text(), teksti);
        QCOMPARE(entry->isEnabled(), kaytossa);
    }

    void menuTitlesAndSeparators()
    {
        TestEnv env;
        frmMain w;
        QCOMPARE(w.mTiedosto->title(), QStringLiteral("&Tiedosto"));
        QCOMPARE(w.mTietokanta->title(), QStringLiteral("Tietokanta"));
        QStringList erottimet;
        for (QMenu *m : {w.mTiedosto, w.mTietokanta})
            for (QAction *a : m->actions())
                if (a->isSeparator())
                    erottimet << a->objectName();
        QCOMPARE(erottimet, (QStringList{QStringLiteral("m2"), QStringLiteral("m3"), QStringLiteral("m4"),
                                         QStringLiteral("m5"), QStringLiteral("m6")}));
    }

    void sizeIsFixed()
    {
        TestEnv env;
        frmMain w;
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        const QSize koko = w.size();
        w.resize(koko.width() + 300, koko.height() + 200);
        QCOMPARE(w.size(), koko);
        w.resize(100, 40);
        QCOMPARE(w.size(), koko);
        // Every button fits whole inside the window.
        for (QToolButton *b : w.findChildren<QToolButton *>())
            QVERIFY(w.rect().contains(QRect(b->mapTo(&w, QPoint(0, 0)), b->size())));
    }

    void createDatabaseOnlyOnTheDemonstration_data()
    {
        QTest::addColumn<QString>("polku");
        QTest::addColumn<bool>("nakyy");
        QTest::newRow("demo windows-polussa") << "c:\\x\\demo1.mdb" << true;
        QTest::newRow("demo ohjelmakansiossa") << "/home/u/.local/share/Vonari/demo1.mdb" << true;
        QTest::newRow("yhdeksän merkkiä") << "DEMO1.MDB" << false;
        QTest::newRow("seuran kanta") << "/home/u/Documents/Vonari/seura.mdb" << false;
    }

    void createDatabaseOnlyOnTheDemonstration()
    {
        QFETCH(QString, polku);
        QFETCH(bool, nakyy);
        TestEnv env;
        DatabasePath = polku;
        frmMain w;
        QCOMPARE(w.mPerustaTietokanta->isVisible(), nakyy);
    }

    void closingKeepsPlacementAndEnds()
    {
        TestEnv env;
        auto *w = new frmMain;
        w->show();
        QVERIFY(QTest::qWaitForWindowExposed(w));
        w->move(60, 70);
        QSignalSpy loppu(w, &frmMain::ohjelmaLoppuu);
        QTest::mouseClick(w->cSulje, Qt::LeftButton);
        QCOMPARE(loppu.count(), 1);
        QVERIFY(!w->isVisible());
        const QRect paikka = w->geometry();
        delete w;

        const QString avain = QStringLiteral("FORMS/frmMain%1%2").arg(versionMajor()).arg(versionMinor());
        QVERIFY(QSettings(env.iniPath(), QSettings::IniFormat).contains(avain));
        frmMain uusi;
        QCOMPARE(uusi.geometry().topLeft(), paikka.topLeft());
    }

    void aboutShowsTheClub()
    {
        TestEnv env;
        RegName = QStringLiteral("Kalastajat ry");
        frmMain w;
        QString nahty;
        QTimer::singleShot(0, [&] {
            if (auto *tietoja = qobject_cast<frmAboutNorvik *>(QApplication::activeModalWidget())) {
                nahty = tietoja->lblRegName->text() + QLatin1Char('|') + tietoja->lblVersion->text();
                QTest::mouseClick(tietoja->cSulje, Qt::LeftButton);
            }
        });
        QTest::mouseClick(w.cAboutNorvik, Qt::LeftButton);
        QVERIFY(nahty.contains(QStringLiteral("Kalastajat ry")));
        QVERIFY(nahty.contains(QStringLiteral("Versio ") + versionText()));
    }

    void settingsOpenFromTheMenu()
    {
        TestEnv env;
        ScriptedDialogs d;
        frmMain w;
        QString avattu;
        Qt::CursorShape osoitinAvattaessa = Qt::BlankCursor;
        QTimer::singleShot(0, [&] {
            if (QWidget *ikkuna = QApplication::activeModalWidget()) {
                avattu = ikkuna->objectName();
                osoitinAvattaessa = w.cursor().shape();
                ikkuna->close();
            }
        });
        w.mAsetukset->trigger();
        QCOMPARE(avattu, QStringLiteral("frmAsetukset"));
        QCOMPARE(osoitinAvattaessa, Qt::ArrowCursor); // the hourglass ended with the loading
        QVERIFY(d.unexpected.isEmpty());
    }

    void splashEndsEarlyOnKeyOrClick_data()
    {
        QTest::addColumn<bool>("napsautus");
        QTest::newRow("näppäin") << false;
        QTest::newRow("napsautus") << true;
    }

    void splashEndsEarlyOnKeyOrClick()
    {
        QFETCH(bool, napsautus);
        TestEnv env;
        ScriptedDialogs d;
        frmSplash splash(60000);
        QTimer::singleShot(100, &splash, [&] {
            if (napsautus)
                QTest::mouseClick(splash.Frame1, Qt::LeftButton);
            else
                QTest::keyClick(&splash, Qt::Key_Space);
        });
        QElapsedTimer kello;
        kello.start();
        splash.Form_Load();
        QVERIFY(kello.elapsed() < 30000);
        QCOMPARE(splash.lblVersion->text(), QStringLiteral("Versio ") + versionText());
        QCOMPARE(splash.lblProductName->text(), QStringLiteral("Vonari"));
        QVERIFY(!splash.isVisible());
    }

    void splashAsksForTheClubOnlyInSeveralClubsMode_data()
    {
        QTest::addColumn<bool>("monta");
        QTest::newRow("yksi seura") << false;
        QTest::newRow("monta seuraa") << true;
    }

    void splashAsksForTheClubOnlyInSeveralClubsMode()
    {
        QFETCH(bool, monta);
        TestEnv env;
        ScriptedDialogs d;
        MultiDb = monta;
        if (monta)
            d.choosePath(QString());
        frmSplash splash(0);
        splash.Form_Load();
        bool kysyttiin = false;
        for (const auto &n : d.shown)
            kysyttiin = kysyttiin || (n.kind == QLatin1String("open") && n.title == QLatin1String("Seuran valinta"));
        QCOMPARE(kysyttiin, monta);
    }
};

QTEST_MAIN(TestFrmMain)
#include "tst_frmmain.moc"
