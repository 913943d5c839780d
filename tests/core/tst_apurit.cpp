// The shared helpers other windows lean on: Null-safe readers, date literals, number fields,
// combo and list helpers, the pointer guard, window placement, special folders and sorting.
#include "core/Kaynnistys.h"
#include "core/Kansiot.h"
#include "core/MainModule.h"
#include "core/Misc.h"
#include "core/ShellSort.h"
#include "core/ui/uihelpers.h"
#include "platform/ui/QtDialogs.h"
#include "scripteddialogs.h"
#include "testenv.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QRandomGenerator>
#include <QSettings>
#include <QtTest>
#include <algorithm>

class TestApurit : public QObject {
    Q_OBJECT

private slots:
    void nullSafeReadersAndDateLiterals()
    {
        QCOMPARE(SqlPaiva(QDate(2007, 1, 5)), QStringLiteral("#1/5/2007#"));
        QCOMPARE(SqlPaiva(QDate(2007, 12, 31)), QStringLiteral("#12/31/2007#"));
        QCOMPARE(SqlPaiva(QVariant()), QString());
        QCOMPARE(SqlPaiva(QStringLiteral("ei päivä")), QString());
        QCOMPARE(NullText(QVariant(), QStringLiteral("x")), QStringLiteral("x"));
        QCOMPARE(NullText(QStringLiteral("Virtanen"), QStringLiteral("x")), QStringLiteral("Virtanen"));
    }

    void numberFields_data()
    {
        QTest::addColumn<bool>("kokonaisluku");
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<int>("kursori");
        QTest::addColumn<QString>("odotettu");
        QTest::newRow("tyhjä") << false << "" << 0 << "";
        QTest::newRow("kirjain lopussa") << false << "12a" << 3 << "12";
        QTest::newRow("desimaalipilkku kelpaa") << false << "12,5" << 4 << "12,5";
        QTest::newRow("pilkku kesken") << false << "12," << 3 << "12,";
        QTest::newRow("kirjain keskellä") << false << "1a2" << 2 << "12";
        QTest::newRow("pelkkiä kirjaimia") << false << "abc" << 3 << "";
        QTest::newRow("kokonaisluku ilman pilkkua") << true << "12," << 3 << "12";
        QTest::newRow("kokonaisluku desimaaleilla") << true << "3,25" << 4 << "3";
        QTest::newRow("kokonaisluku kelpaa") << true << "250" << 3 << "250";
    }

    void numberFields()
    {
        QFETCH(bool, kokonaisluku);
        QFETCH(QString, teksti);
        QFETCH(int, kursori);
        QFETCH(QString, odotettu);
        QLineEdit t;
        t.setText(teksti);
        t.setCursorPosition(kursori);
        kokonaisluku ? VainKokonaisluku(&t) : VainNumeroita(&t);
        QCOMPARE(t.text(), odotettu);
        if (odotettu != teksti)
            QCOMPARE(t.cursorPosition(), int(odotettu.size()));
    }

    void numberFieldLeavesCaretOfAcceptedText()
    {
        QLineEdit t;
        t.setText(QStringLiteral("1234"));
        t.setCursorPosition(2);
        VainNumeroita(&t);
        QCOMPARE(t.cursorPosition(), 2);
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

    void comboByItemData()
    {
        QComboBox c;
        c.addItem(QStringLiteral("Varsinainen"), qint64(7));
        c.addItem(QStringLiteral("Kannatus"), qint64(5000000000LL));
        c.addItem(QStringLiteral("ei tietoa"));
        ComboValitseItemData(&c, 5000000000LL);
        QCOMPARE(c.currentIndex(), 1);
        ComboValitseItemData(&c, 0); // the entry without data is no match for 0
        QCOMPARE(c.currentIndex(), -1);
        ComboValitseItemData(&c, 8);
        QCOMPARE(c.currentIndex(), -1);
    }

    void comboByText()
    {
        TestEnv env;
        ScriptedDialogs d;
        QComboBox c;
        c.addItems({QStringLiteral("Helsinki"), QStringLiteral("Espoo"), QStringLiteral("Vantaa")});
        ComboValitseTeksti(&c, QStringLiteral("Vantaa"), QStringLiteral("Ei löydy"), 0);
        QCOMPARE(c.currentIndex(), 2);
        ComboValitseTeksti(&c, QStringLiteral("espoo"), QStringLiteral("Kuntaa ei löydy."), 0);
        QCOMPARE(c.currentIndex(), 0);
        QCOMPARE(d.messages(), QStringList{QStringLiteral("Kuntaa ei löydy.")});
        ComboValitseTeksti(&c, QStringLiteral("Turku"), QString(), 1);
        QCOMPARE(c.currentIndex(), 1);
        QCOMPARE(d.messages().size(), 1);
    }

    void comboTypedText()
    {
        QComboBox c;
        c.setEditable(true);
        c.addItems({QStringLiteral("Äänekoski"), QStringLiteral("Oulu")});
        c.setCurrentIndex(1);
        c.setEditText(QStringLiteral("äänekoski"));
        ComboTarkistaTeksti(&c);
        QCOMPARE(c.currentIndex(), 0);
        QCOMPARE(c.currentText(), QStringLiteral("Äänekoski"));

        c.setEditText(QStringLiteral("Ouluu"));
        ComboTarkistaTeksti(&c);
        QCOMPARE(c.currentIndex(), 0);
        QCOMPARE(c.currentText(), QStringLiteral("Äänekoski"));
    }

    void comboCompletesTheTypedStart()
    {
        QComboBox c;
        c.setEditable(true);
        c.addItems({QStringLiteral("Kallio"), QStringLiteral("Kalliola"), QStringLiteral("Käpylä")});
        c.lineEdit()->setText(QStringLiteral("kal"));
        ComboAutoComplete(&c, Qt::Key_L);
        QCOMPARE(c.lineEdit()->text(), QStringLiteral("kallio"));
        QCOMPARE(c.lineEdit()->selectedText(), QStringLiteral("lio"));

        c.lineEdit()->setText(QStringLiteral("kal"));
        ComboAutoComplete(&c, Qt::Key_Backspace);
        QCOMPARE(c.lineEdit()->text(), QStringLiteral("kal"));
    }

    void listRemovesByItemData()
    {
        QListWidget l;
        for (qint64 id : {3, 9, 12}) {
            auto *item = new QListWidgetItem(QString::number(id), &l);
            item->setData(Qt::UserRole, id);
        }
        ListPoistaItemData(&l, 9);
        QCOMPARE(l.count(), 2);
        QCOMPARE(l.item(1)->text(), QStringLiteral("12"));
        ListPoistaItemData(&l, 99);
        QCOMPARE(l.count(), 2);
    }

    void formLoadedComparesNamesExactly()
    {
        QWidget w;
        w.setObjectName(QStringLiteral("frmJasen"));
        QVERIFY(IsFormLoaded(QStringLiteral("frmJasen")));
        QVERIFY(!IsFormLoaded(QStringLiteral("frmjasen")));
        QVERIFY(!IsFormLoaded(QStringLiteral("frmJase")));
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
        QTest::newRow("kymmenen merkkiä") << "/DEMO1.MDB" << true;
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

    void specialFolders()
    {
        TestEnv env;
        QCOMPARE(KansioKoodi(KansioKoodit::OmatTiedostot), env.path(QStringLiteral("home/Documents")));
        QCOMPARE(KansioKoodi(28), ErikoisKansio(5));
        QVERIFY(TilapaisKansio().endsWith(QLatin1Char('/')));
        QCOMPARE(KansioKoodi(KansioKoodit::Tilapainen), TilapaisKansio());
        QVERIFY(!KansioKoodi(KansioKoodit::Tyopoyta).isEmpty());
        QCOMPARE(KansioKoodi(5), QString());
        QCOMPARE(KansioKoodi(43), QString());
        QCOMPARE(KansioKoodi(-1), QString());
    }

    void shellSortOrdersTheIndexOnly()
    {
        const QVector<QString> nimet{QStringLiteral("Virtanen"), QStringLiteral("Aalto"), QStringLiteral("Mäkelä"),
                                     QStringLiteral("Aalto"), QStringLiteral("Korhonen")};
        QVector<int> index{0, 1, 2, 3, 4};
        ShellSort(nimet, index);
        QStringList jarjestyksessa;
        for (int i : index)
            jarjestyksessa << nimet[i];
        QCOMPARE(jarjestyksessa, (QStringList{QStringLiteral("Aalto"), QStringLiteral("Aalto"), QStringLiteral("Korhonen"),
                                              QStringLiteral("Mäkelä"), QStringLiteral("Virtanen")}));

        // Only the part up to the upper bound is sorted.
        QVector<int> osa{0, 2, 4, 1, 3};
        ShellSort(nimet, osa, 2);
        QCOMPARE(osa, (QVector<int>{4, 2, 0, 1, 3}));
    }

    void shellSortAgreesWithStdSortOnLargeInput()
    {
        QRandomGenerator gen(42);
        QVector<int> arvot(5000);
        for (int &a : arvot)
            a = int(gen.bounded(1000));
        QVector<int> index(arvot.size());
        std::iota(index.begin(), index.end(), 0);
        ShellSort(arvot, index);
        QVector<int> tulos;
        for (int i : index)
            tulos << arvot[i];
        QVector<int> odotettu = arvot;
        std::sort(odotettu.begin(), odotettu.end());
        QCOMPARE(tulos, odotettu);
        QVector<int> kaikki = index;
        std::sort(kaikki.begin(), kaikki.end());
        for (int i = 0; i < kaikki.size(); ++i)
            QCOMPARE(kaikki[i], i); // a permutation: nothing lost, nothing doubled
    }

    void fileFilters_data()
    {
        QTest::addColumn<QString>("suodatin");
        QTest::addColumn<QString>("qt");
        QTest::newRow("kanta") << "Database (*.mdb)|*.mdb" << "Database (*.mdb)";
        QTest::newRow("ilman sulkuja") << "Tekstitiedostot|*.txt" << "Tekstitiedostot (*.txt)";
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
