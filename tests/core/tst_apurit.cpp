// The shared helpers other windows lean on: the pointer guard, window
// placement and file filters.
#include "core/ui/uihelpers.h"
#include "platform/ui/QtDialogs.h"
#include "ydinapu.h"

class TestApurit : public QObject {
    Q_OBJECT

private slots:
    // The pointer of the first call comes back; a guard outliving its window does no harm.
    void mouseCursor()
    {
        QWidget w;
        w.setCursor(Qt::IBeamCursor);
        auto *kuollut = new QWidget;
        {
            cMouseCursor c, toinen;
            c.SetCursor(&w, Qt::WaitCursor);
            c.SetCursor(&w, Qt::BusyCursor);
            toinen.SetCursor(kuollut, Qt::WaitCursor);
            delete kuollut;
        }
        QCOMPARE(w.cursor().shape(), Qt::IBeamCursor);
    }

    // A stored place off every screen, or unreadable, leaves the window where it is.
    void lostPlacesAreIgnored()
    {
        TestEnv env;
        const QString avain = u"FORMS/frmTesti%1%2"_s.arg(MainModule::versionMajor()).arg(MainModule::versionMinor());
        for (const QString &tallennettu : {u"-5000,-5000,300,200"_s, u"roskaa"_s}) {
            QSettings(env.iniPath(), QSettings::IniFormat).setValue(avain, tallennettu);
            MainModule::releaseIniAsetukset();
            QWidget kadonnut;
            kadonnut.setObjectName(u"frmTesti"_s);
            kadonnut.setGeometry(10, 10, 100, 100);
            LataaIkkunanPaikka(&kadonnut);
            QVERIFY2(kadonnut.geometry() == QRect(10, 10, 100, 100), qPrintable(tallennettu));
        }
    }

    void fileFilters()
    {
        QCOMPARE(dlg::qtFilter(u"Database (*.mdb)|*.mdb"_s), u"Database (*.mdb)"_s);
        QCOMPARE(dlg::qtFilter(u"Aineisto|*.txt;*.dat|Kaikki tiedostot (*.*)|*.*"_s),
                 u"Aineisto (*.txt *.dat);;Kaikki tiedostot (*)"_s);
    }
};

QTEST_MAIN(TestApurit)
#include "tst_apurit.moc"
