#include "invoicing/Viite.h"

#include <QtTest>

class TestViite : public QObject {
    Q_OBJECT

private slots:
    // The check digit of a number, the reference made from it, and whether that reads back as a
    // valid reference; the same reference with its last digit changed never does.
    void viite_data()
    {
        QTest::addColumn<QString>("numero");
        QTest::addColumn<QString>("tarkiste");
        QTest::addColumn<bool>("kelvollinen");
        QTest::newRow("1234") << "1234" << " 4" << true;
        QTest::newRow("sum ending in 0") << "55" << "0" << true;
        QTest::newRow("bank example") << "55958224329467" << " 1" << true;
        QTest::newRow("nineteen digits") << "1234567890123456789" << " 4" << true;
        // The weights restart every three places: a long number must not overflow.
        QTest::newRow("63 digits") << QString(QStringLiteral("123456789")).repeated(7) << " 9" << true;
        QTest::newRow("surrounding blanks") << " 999 " << " 1" << true;
        QTest::newRow("empty: one digit is no reference") << "" << "0" << false;
        // A character that is not a digit counts 0 but still takes its weight; no valid reference.
        QTest::newRow("blank inside") << "12 34" << " 6" << false;
        QTest::newRow("letter") << "1A" << " 7" << false;
    }

    void viite()
    {
        QFETCH(QString, numero);
        QFETCH(QString, tarkiste);
        QFETCH(bool, kelvollinen);
        QCOMPARE(LaskeViitetarkiste(numero), tarkiste);
        const QString viite = ViiteNumerosta(numero);
        QCOMPARE(viite, numero.trimmed() + tarkiste.trimmed());
        bool numeerinen = false;
        if (const qint64 n = numero.trimmed().toLongLong(&numeerinen); numeerinen)
            QCOMPARE(ViiteNumerosta(n), viite);
        QCOMPARE(ViiteOnKelvollinen(viite), kelvollinen);
        const QChar toinen = QChar(u'0' + (viite.back().digitValue() + 1) % 10);
        QVERIFY(!ViiteOnKelvollinen(viite.chopped(1) + toinen));
    }
};

QTEST_GUILESS_MAIN(TestViite)
#include "tst_viite.moc"
