// Every input the fuzzer was seeded with or found a fault with, read through the same entry as
// the fuzz target: each gives batches or the reader's own error, never anything else.
#include "payments/ViiteaineistoLukija.h"

#include <QDir>
#include <QtTest>

class TestViiteaineistoKorpus : public QObject {
    Q_OBJECT

    static QFileInfoList Syotteet()
    {
        return QDir(QFINDTESTDATA("fuzz/viiteaineisto")).entryInfoList(QDir::Files, QDir::Name);
    }

private slots:
    // The seeds alone are a dozen: an empty or missing folder is a broken checkout.
    void korpusLoytyy() { QVERIFY(Syotteet().size() >= 10); }

    void syote_data()
    {
        QTest::addColumn<QString>("polku");
        for (const QFileInfo &f : Syotteet())
            QTest::newRow(qPrintable(f.fileName())) << f.filePath();
    }

    void syote()
    {
        QFETCH(QString, polku);
        QFile f(polku);
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QByteArray tavut = f.readAll();
        try {
            const QList<ViiteEra> erat = ViiteaineistoLukija().LueTavut(tavut);
            for (const ViiteEra &e : erat)
                QVERIFY(!e.Paivamaara.isEmpty());
        } catch (const ViiteaineistoVirhe &v) {
            QVERIFY(!v.viesti().isEmpty());
        }
    }
};

QTEST_GUILESS_MAIN(TestViiteaineistoKorpus)
#include "tst_viiteaineisto_korpus.moc"
