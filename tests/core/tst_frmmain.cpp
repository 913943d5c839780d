// The main window as the user meets it: the club's menu entry, the close that keeps its place,
// and the splash before it.
#include "app/frmMain.h"
#include "app/frmSplash.h"
#include "ydinapu.h"

#include <QToolButton>

using namespace MainModule;

class TestFrmMain : public Testipohja {
    Q_OBJECT

private slots:
    // A new club can be made only from the demonstration club; closing ends the program and
    // the next window opens where this one was.
    void createDatabaseAndClosing()
    {
        DatabasePath = u"/home/u/Documents/Vonari/seura.mdb"_s;
        QVERIFY(!frmMain().mPerustaTietokanta->isVisible());
        DatabasePath = u"/home/u/.local/share/Vonari/demo1.mdb"_s;
        auto *w = new frmMain;
        QVERIFY(w->mPerustaTietokanta->isVisible());
        w->show();
        QVERIFY(QTest::qWaitForWindowExposed(w));
        w->move(60, 70);
        QSignalSpy loppu(w, &frmMain::ohjelmaLoppuu);
        QTest::mouseClick(w->cSulje, Qt::LeftButton);
        QCOMPARE(loppu.count(), 1);
        QVERIFY(!w->isVisible());
        const QPoint paikka = w->geometry().topLeft();
        delete w;
        QCOMPARE(frmMain().geometry().topLeft(), paikka);
    }

    // Shown for a day unless a key or a click ends it: a splash that ignores them never returns,
    // and the run is stopped as failed. With several clubs the club is asked for after it.
    void splash()
    {
        MultiDb = true;
        dlg->choosePath(QString());
        dlg->no(); // no club's database here: the default is not wanted
        frmSplash splash(24 * 3600 * 1000);
        QTimer::singleShot(100, &splash, [&] { QTest::mouseClick(splash.Frame1, Qt::LeftButton); });
        splash.Form_Load();
        QVERIFY(!splash.isVisible());
        QVERIFY(std::any_of(dlg->shown.begin(), dlg->shown.end(),
                            [](const auto &n) { return n.kind == u"open"_s && n.title == u"Seuran valinta"_s; }));
    }
};

QTEST_MAIN(TestFrmMain)
#include "tst_frmmain.moc"
