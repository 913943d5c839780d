// The main window as the user meets it: its buttons and menus, what is usable yet, its fixed
// size, the club's menu entry and the placement kept between runs.
#include "core/MainModule.h"
#include "core/ui/frmAboutNorvik.h"
#include "app/frmMain.h"
#include "app/frmSplash.h"
#include "testipohja.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QTimer>
#include <QToolButton>
#include <QtTest>

using namespace MainModule;
using namespace Qt::Literals::StringLiterals;

class TestFrmMain : public Testipohja {
    Q_OBJECT

private slots:
    // Every command is there, and what is usable yet: the parts still to come are shown disabled.
    void kaytettavyys()
    {
        DatabasePath = QStringLiteral("/home/u/.local/share/Vonari/demo1.mdb");
        frmMain w;
        QStringList kaytossa, poissa;
        for (QToolButton *b : w.findChildren<QToolButton *>(QRegularExpression(u"^c"_s)))
            (b->isEnabled() ? kaytossa : poissa) << b->objectName();
        for (QMenu *m : {w.mTiedosto, w.mTietokanta})
            for (QAction *a : m->actions())
                if (!a->isSeparator())
                    (a->isEnabled() ? kaytossa : poissa) << a->objectName();
        kaytossa.sort();
        poissa.sort();
        QCOMPARE(kaytossa.join(u' '), QStringLiteral("cAboutNorvik cJasenrekisteri cLuoJasenmaksut cOminaisuudet cSulje mAsetukset "
                                                     "mJasenmaksujenluonti mJasenrekisteri mLopetus mPalautus mPerustaTietokanta "
                                                     "mPiirteet mTietoja mVarmistus"));
        QCOMPARE(poissa.join(u' '), QStringLiteral("cJasenmaksut mEuroMuunnos mIkajakauma mImportData "
                                                   "mJasenmaksut mMuokkaaTietokantaa mPalautaEuroMuunnos "
                                                   "mService mSuoritaSQLLause"));
    }

    void sizeIsFixed()
    {
        frmMain w;
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        const QSize koko = w.size();
        w.resize(100, 40);
        QCOMPARE(w.size(), koko);
        // Every button fits whole inside the window.
        for (QToolButton *b : w.findChildren<QToolButton *>())
            QVERIFY(w.rect().contains(QRect(b->mapTo(&w, QPoint(0, 0)), b->size())));
    }

    void createDatabaseOnlyOnTheDemonstration()
    {
        DatabasePath = QStringLiteral("/home/u/.local/share/Vonari/demo1.mdb");
        QVERIFY(frmMain().mPerustaTietokanta->isVisible());
        DatabasePath = QStringLiteral("/home/u/Documents/Vonari/seura.mdb");
        QVERIFY(!frmMain().mPerustaTietokanta->isVisible());
    }

    void closingKeepsPlacementAndEnds()
    {
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
        QVERIFY(QSettings(env->iniPath(), QSettings::IniFormat).contains(avain));
        frmMain uusi;
        QCOMPARE(uusi.geometry().topLeft(), paikka.topLeft());
    }

    void aboutShowsTheClub()
    {
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
        dlg->no(); // no club's database here: the default is not wanted
        // Shown for a day unless the key or the click ends it: a splash that ignores them never
        // returns, and the run is stopped as failed.
        frmSplash splash(24 * 3600 * 1000);
        QTimer::singleShot(100, &splash, [&] {
            if (napsautus)
                QTest::mouseClick(splash.Frame1, Qt::LeftButton);
            else
                QTest::keyClick(&splash, Qt::Key_Space);
        });
        splash.Form_Load();
        QCOMPARE(splash.lblVersion->text(), QStringLiteral("Versio ") + versionText());
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
        MultiDb = monta;
        if (monta)
            dlg->choosePath(QString());
        dlg->no(); // no club's database here: the default is not wanted
        frmSplash splash(0);
        splash.Form_Load();
        bool kysyttiin = false;
        for (const auto &n : dlg->shown)
            kysyttiin = kysyttiin || (n.kind == QLatin1String("open") && n.title == QLatin1String("Seuran valinta"));
        QCOMPARE(kysyttiin, monta);
    }
};

QTEST_MAIN(TestFrmMain)
#include "tst_frmmain.moc"
