// Every input the template fuzzer was seeded with or found a fault with, merged through the same
// entry as the fuzz target: each keeps the merge's promises.
#include "../fuzz/sahkopohja_syote.h"

#include <QDir>
#include <QtTest>

class TestSahkopohjaKorpus : public QObject {
    Q_OBJECT

    static QFileInfoList Syotteet()
    {
        return QDir(QFINDTESTDATA("fuzz/sahkopohja")).entryInfoList(QDir::Files, QDir::Name);
    }

private slots:
    // The seeds alone are seven: an empty or missing folder is a broken checkout.
    void korpusLoytyy() { QVERIFY(Syotteet().size() >= 7); }

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
        const QString vika = KokeileSahkopohja(f.readAll());
        QVERIFY2(vika.isEmpty(), qPrintable(vika));
    }
};

QTEST_GUILESS_MAIN(TestSahkopohjaKorpus)
#include "tst_sahkopohja_korpus.moc"
