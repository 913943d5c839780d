// The shared helpers other windows lean on: Null-safe readers, the pointer guard, window
// placement, the demonstration club's name and file filters.
#include "core/Kaynnistys.h"
#include "core/MainModule.h"
#include "platform/arvot.h"
#include "core/ui/uihelpers.h"
#include "platform/ui/QtDialogs.h"
#include "testenv.h"

#include <QSettings>
#include <QtTest>

class TestApurit : public QObject {
    Q_OBJECT

private slots:
    void nullSafeReaders()
    {
        QCOMPARE(NullText(QVariant(), QStringLiteral("x")), QStringLiteral("x"));
        QCOMPARE(NullText(QStringLiteral("Virtanen"), QStringLiteral("x")), QStringLiteral("Virtanen"));
    }

    void mouseCursorRestoresThePointerOfTheFirstCall()
    {
        QWidget w;
        w.setCursor(Qt::IBeamCursor);
        {
            cMouseCursor c;
            c.SetCursor(&w, Qt::WaitCursor);
            c.SetCursor(&w, Qt::BusyCursor);
            QCOMPARE(w.cursor().shape(), Qt::BusyCursor);
        }
        QCOMPARE(w.cursor().shape(), Qt::IBeamCursor);

        QWidget ilman;
        {
            cMouseCursor c;
            c.SetCursor(&ilman, Qt::WaitCursor);
        }
        QCOMPARE(ilman.cursor().shape(), Qt::ArrowCursor);
    }

    void mouseCursorOutlivingItsWindowIsHarmless()
    {
        cMouseCursor c;
        auto *w = new QWidget;
        c.SetCursor(w, Qt::WaitCursor);
        delete w;
    }

    void placementRoundTripsAndIgnoresLostPlaces()
    {
        TestEnv env;
        QWidget w;
        w.setObjectName(QStringLiteral("frmTesti"));
        w.setGeometry(40, 50, 300, 200);
        TallennaIkkunanPaikka(&w);
        MainModule::releaseIniAsetukset();
        const QString avain = QStringLiteral("FORMS/frmTesti%1%2").arg(MainModule::versionMajor()).arg(MainModule::versionMinor());
        QVERIFY(QSettings(env.iniPath(), QSettings::IniFormat).contains(avain));

        QWidget uusi;
        uusi.setObjectName(QStringLiteral("frmTesti"));
        LataaIkkunanPaikka(&uusi);
        QCOMPARE(uusi.geometry(), QRect(40, 50, 300, 200));

        QSettings(env.iniPath(), QSettings::IniFormat).setValue(avain, QStringLiteral("-5000,-5000,300,200"));
        MainModule::releaseIniAsetukset();
        QWidget kadonnut;
        kadonnut.setObjectName(QStringLiteral("frmTesti"));
        kadonnut.setGeometry(10, 10, 100, 100);
        LataaIkkunanPaikka(&kadonnut);
        QCOMPARE(kadonnut.geometry(), QRect(10, 10, 100, 100));

        QSettings(env.iniPath(), QSettings::IniFormat).setValue(avain, QStringLiteral("roskaa"));
        MainModule::releaseIniAsetukset();
        LataaIkkunanPaikka(&kadonnut);
        QCOMPARE(kadonnut.geometry(), QRect(10, 10, 100, 100));
    }

    void demonstrationDatabase_data()
    {
        QTest::addColumn<QString>("polku");
        QTest::addColumn<bool>("demo");
        QTest::newRow("windows-polku") << "c:\\x\\demo1.mdb" << true;
        QTest::newRow("tasan yhdeksän merkkiä") << "DEMO1.MDB" << false;
        QTest::newRow("sekakirjaimet") << "/home/a/Demo1.Mdb" << true;
        QTest::newRow("muu kanta") << "/home/a/demo2.mdb" << false;
        QTest::newRow("tyhjä") << "" << false;
    }

    void demonstrationDatabase()
    {
        QFETCH(QString, polku);
        QFETCH(bool, demo);
        QCOMPARE(IsDemoDatabase(polku), demo);
    }

    void fileFilters_data()
    {
        QTest::addColumn<QString>("suodatin");
        QTest::addColumn<QString>("qt");
        QTest::newRow("kanta") << "Database (*.mdb)|*.mdb" << "Database (*.mdb)";
        QTest::newRow("useita") << "Aineisto|*.txt;*.dat|Kaikki tiedostot (*.*)|*.*"
                                << "Aineisto (*.txt *.dat);;Kaikki tiedostot (*)";
    }

    void fileFilters()
    {
        QFETCH(QString, suodatin);
        QFETCH(QString, qt);
        QCOMPARE(dlg::qtFilter(suodatin), qt);
    }
};

QTEST_MAIN(TestApurit)
#include "tst_apurit.moc"
