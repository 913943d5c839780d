#include "invoicing/Viite.h"

#include <QtTest>

class TestViite : public QObject {
    Q_OBJECT

private slots:
    void checkDigit_data()
    {
        QTest::addColumn<QString>("numero");
        QTest::addColumn<QString>("tarkiste");
        QTest::newRow("1234") << "1234" << " 4";
        QTest::newRow("sum ending in 0") << "55" << "0";
        QTest::newRow("bank example") << "55958224329467" << " 1";
        QTest::newRow("nineteen digits") << "1234567890123456789" << " 4";
        // The weights restart every three places: a long number must not overflow.
        QTest::newRow("63 digits") << QString(QStringLiteral("123456789")).repeated(7) << " 9";
        QTest::newRow("empty") << "" << "0";
        // A character that is not a digit counts 0 but still takes its weight.
        QTest::newRow("blank inside") << "12 34" << " 6";
        QTest::newRow("letter") << "1A" << " 7";
    }

    void checkDigit()
    {
        QFETCH(QString, numero);
        QFETCH(QString, tarkiste);
        QCOMPARE(LaskeViitetarkiste(numero), tarkiste);
    }

    void reference_data()
    {
        QTest::addColumn<QString>("perus");
        QTest::addColumn<QString>("viite"); // empty: the text itself is no valid reference
        QTest::newRow("1234") << "1234" << "12344";
        QTest::newRow("55") << "55" << "550";
        QTest::newRow("surrounding blanks") << " 999 " << "9991";
        QTest::newRow("wrong digit") << "12345" << "";
        QTest::newRow("blank") << "1234 4" << "";
        QTest::newRow("single digit") << "0" << "";
        QTest::newRow("empty") << "" << "";
        QTest::newRow("letters") << "RF341234561" << "";
    }

    void reference()
    {
        QFETCH(QString, perus);
        QFETCH(QString, viite);
        if (viite.isEmpty()) {
            QVERIFY(!ViiteOnKelvollinen(perus));
            return;
        }
        QCOMPARE(ViiteNumerosta(perus), viite);
        QCOMPARE(ViiteNumerosta(perus.trimmed().toLongLong()), viite);
        QVERIFY(ViiteOnKelvollinen(viite));
    }
};

QTEST_GUILESS_MAIN(TestViite)
#include "tst_viite.moc"
