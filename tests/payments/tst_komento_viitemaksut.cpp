// vonari-komento over the bank's file on the demonstration club: the batch sorted as the window
// lists it, its received payments marked paid, the file posted once and then posting nothing, and
// a file that is none refused with the window's message.
#include "esittely/Esittelyseura.h"
#include "platform/database.h"
#include "testenv.h"
#include "testiapu.h"

#include <QProcess>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

class TestKomentoViitemaksut : public QObject {
    Q_OBJECT

    struct Tulos {
        int koodi;
        QStringList ulos;
        QString virhe;
    };

    Tulos aja(const QStringList &argumentit)
    {
        QProcess p;
        p.start(QCoreApplication::applicationDirPath() + u"/../src/vonari-komento"_s, argumentit);
        if (!p.waitForFinished(60000))
            return {-1, {}, u"aikakatkaisu"_s};
        return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts),
                QString::fromUtf8(p.readAllStandardError())};
    }

private slots:
    void koko_kulku_data()
    {
        QTest::addColumn<QString>("nimi");
        QTest::addColumn<QString>("ensimmainen"); // the first received row's text after the tag
        QTest::newRow("KTL") << u"esittely.ktl"_s << u"240.00 - 11510 - HAKALA ANNA-"_s;
        QTest::newRow("camt.054") << u"esittely_camt054.xml"_s << u"240.00 - 11510 - Anna-Liisa Venla Hakala"_s;
    }

    // Either format of the example file: sorted, marked, posted twice.
    void koko_kulku()
    {
        QFETCH(QString, nimi);
        QFETCH(QString, ensimmainen);
        TestEnv env;
        const QString kanta = env.path(u"demo1.mdb"_s);
        LuoDemoTietokanta(kanta);
        const QString tiedosto = QFINDTESTDATA(u"payments/data/"_s + nimi);

        Tulos t = aja({kanta, u"viitemaksut"_s, tiedosto});
        QCOMPARE(t.koodi, 0);
        QCOMPARE(t.ulos.mid(0, 3), (QStringList{u"erä 1/1"_s, u"lblPvm: 261125"_s, u"lblAika: 0704"_s}));
        QCOMPARE(t.ulos.mid(5, 7), (QStringList{u"lblRahayksikko: Euro"_s, u"lblTapKPL: 8"_s, u"lblTapSUM: 1300.00"_s,
                                               u"lblOikKPL: 0"_s, u"lblOikSUM: 0.00"_s, u"lblEpaKPL: 0"_s, u"lblEpaSUM: 0.00"_s}));
        const QStringList rivit = t.ulos.mid(12);
        QCOMPARE(rivit.size(), 8);
        QCOMPARE(rivit.filter(QRegularExpression(u"^saapuneet\t\\d+\t"_s)).size(), 6);
        QCOMPARE(rivit.filter(QRegularExpression(u"^tarkistettavat\t-1\tViitettä ei löydy: "_s)).size(), 1);
        QCOMPARE(rivit.filter(QRegularExpression(u"^virheelliset\t\\d+\tSumma: "_s)).size(), 1);
        QCOMPARE(rivit.value(0), u"saapuneet\t%1\t"_s.arg(testi::rivi(*db::Database::open(kanta),
                                                                      u"SELECT jmhID FROM jmhist WHERE jmhjmViitenumero = '11510'"_s))
                                     + ensimmainen);

        t = aja({kanta, u"merkitse-maksetuiksi"_s, tiedosto});
        QCOMPARE(t.koodi, 0);
        QCOMPARE(t.ulos, QStringList{u"6"_s});
        t = aja({kanta, u"viitemaksut"_s, tiedosto});
        QCOMPARE(t.ulos.filter(QRegularExpression(u"^saapuneet\t"_s)).size(), 6); // paid invoices still sort as received

        t = aja({kanta, u"kirjaa"_s, tiedosto});
        QCOMPARE(t.koodi, 0);
        QCOMPARE(t.ulos.value(0), u"Kirjattu 7 / 8"_s);
        QVERIFY(t.virhe.contains(u"Näitä maksuja ei kirjattu:"_s));
        t = aja({kanta, u"kirjaa"_s, tiedosto});
        QCOMPARE(t.ulos.value(0), u"Kirjattu 0 / 8"_s);
        QCOMPARE(testi::maara(*db::Database::open(kanta), u"Suoritukset WHERE Arkistointitunnus LIKE '261124593VON%'"_s), 7);
    }

    void virheet_data()
    {
        QTest::addColumn<QStringList>("argumentit"); // after the database; %1 is a file of rubbish, %2 the example
        QTest::addColumn<int>("koodi");
        QTest::addColumn<QString>("virhe");
        QTest::newRow("not a payment file") << QStringList{u"kirjaa"_s, u"%1"_s} << 1 << u"Avauksessa tapahtui virhe: "_s;
        QTest::newRow("no such batch") << QStringList{u"viitemaksut"_s, u"%2"_s, u"--era"_s, u"2"_s} << 1
                                       << u"Tiedostossa on 1 erää."_s;
        QTest::newRow("batch 0") << QStringList{u"merkitse-maksetuiksi"_s, u"%2"_s, u"--era"_s, u"0"_s} << 2
                                 << u"Erän numero on 1 tai suurempi."_s;
        QTest::newRow("no file") << QStringList{u"kirjaa"_s} << 2 << u"Anna viitemaksutiedosto."_s;
    }

    void virheet()
    {
        QFETCH(QStringList, argumentit);
        QFETCH(int, koodi);
        QFETCH(QString, virhe);
        TestEnv env;
        const QString kanta = env.path(u"demo1.mdb"_s);
        LuoDemoTietokanta(kanta);
        const QString roska = testi::tiedosto(env.path(u"roska.txt"_s), "ei maksuja\n");
        for (QString &a : argumentit)
            a = a.replace(u"%1"_s, roska).replace(u"%2"_s, QFINDTESTDATA(u"payments/data/esittely.ktl"_s));
        const QString ennen = testi::rivi(*db::Database::open(kanta), u"SELECT (SELECT COUNT(*) FROM Suoritukset),"
                                                                      " (SELECT SUM(jmhjmMaksettu) FROM jmhist)"_s);
        const Tulos t = aja(QStringList{kanta} + argumentit);
        QCOMPARE(t.koodi, koodi);
        QVERIFY2(t.virhe.contains(virhe), qPrintable(t.virhe));
        QCOMPARE(testi::rivi(*db::Database::open(kanta), u"SELECT (SELECT COUNT(*) FROM Suoritukset),"
                                                         " (SELECT SUM(jmhjmMaksettu) FROM jmhist)"_s), ennen);
    }
};

QTEST_GUILESS_MAIN(TestKomentoViitemaksut)
#include "tst_komento_viitemaksut.moc"
