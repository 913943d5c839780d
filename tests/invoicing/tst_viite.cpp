#include "invoicing/Viite.h"

#include <QtTest>

class TestViite : public QObject {
    Q_OBJECT

private slots:
    void checkDigit_data()
    {
        QTest::addColumn<QString>("numero");
        QTest::addColumn<QString>("tarkiste");
        // Known references from the banks' own examples and the classic edge cases.
        QTest::newRow("1234") << "1234" << " 4";
        QTest::newRow("sum ending in 0") << "55" << "0";
        QTest::newRow("123456") << "123456" << " 1";
        QTest::newRow("bank example 1") << "55958224329467" << " 1";
        QTest::newRow("bank example 2") << "7877767965662868" << " 7";
        QTest::newRow("nineteen digits") << "1234567890123456789" << " 4";
        QTest::newRow("empty") << "" << "0";
        QTest::newRow("zeros") << "0000" << "0";
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

    void checkDigitIsAlwaysOneDigitAfterTrim()
    {
        // The weights restart every three places: a long number must not overflow or change kind.
        QString n;
        for (int i = 0; i < 60; ++i) {
            n += QChar(u'0' + (i * 7 + 3) % 10);
            const QString t = LaskeViitetarkiste(n);
            QVERIFY2(t == QLatin1String("0") || (t.size() == 2 && t[0] == u' ' && t[1].isDigit() && t[1] != u'0'),
                     qPrintable(n + QStringLiteral(" -> '") + t + u'\''));
        }
    }

    void referenceFromNumber_data()
    {
        QTest::addColumn<QString>("perus");
        QTest::addColumn<QString>("viite");
        QTest::newRow("1234") << "1234" << "12344";
        QTest::newRow("55") << "55" << "550";
        QTest::newRow("123456") << "123456" << "1234561";
        QTest::newRow("surrounding blanks") << " 999 " << "9991";
    }

    void referenceFromNumber()
    {
        QFETCH(QString, perus);
        QFETCH(QString, viite);
        QCOMPARE(ViiteNumerosta(perus), viite);
        bool numeerinen = false;
        const qint64 n = perus.trimmed().toLongLong(&numeerinen);
        if (numeerinen)
            QCOMPARE(ViiteNumerosta(n), viite);
        QVERIFY(ViiteOnKelvollinen(viite));
    }

    void validity_data()
    {
        QTest::addColumn<QString>("viite");
        QTest::addColumn<bool>("kelvollinen");
        QTest::newRow("wrong digit") << "12345" << false;
        QTest::newRow("blank") << "1234 4" << false;
        QTest::newRow("grouped for print") << "12 34561" << false;
        QTest::newRow("single digit") << "0" << false;
        QTest::newRow("empty") << "" << false;
        QTest::newRow("letters") << "RF341234561" << false;
    }

    void validity()
    {
        QFETCH(QString, viite);
        QFETCH(bool, kelvollinen);
        QCOMPARE(ViiteOnKelvollinen(viite), kelvollinen);
    }
};

QTEST_GUILESS_MAIN(TestViite)
#include "tst_viite.moc"
