// Code 128 and QR items painted as the report engine paints them, read back by a real scanner
// program from a rendered picture.
#include "reports/Koodit.h"
#include "testenv.h"

#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

class TestKoodit : public QObject {
    Q_OBJECT

private slots:
    void luettavissa_data()
    {
        QTest::addColumn<bool>("qr");
        QTest::addColumn<QString>("sisalto");
        QTest::newRow("viivakoodi, pienet ja välit") << false << u"Jasen 123 / 2026"_s;
        QTest::newRow("qr, ääkköset") << true << u"Jäsenmaksu 2026 – Åke Öhman"_s;
        QTest::newRow("qr, pitkä") << true << u"BCD\n002\n1\nSCT\n\nKylän Kipinä ry\nFI2112345600000785\nEUR25.00"_s;
    }

    void luettavissa()
    {
        QFETCH(bool, qr);
        QFETCH(QString, sisalto);
        const QString zbarimg = QStandardPaths::findExecutable(u"zbarimg"_s);
        if (zbarimg.isEmpty())
            QSKIP("zbarimg is not installed");
        TestEnv env;
        Tulostekohde k;
        k.laji = qr ? KohdeLaji::QrKoodi : KohdeLaji::Viivakoodi;
        k.teksti = sisalto;
        // twips as in a laid-out page: a 30 × 30 mm QR code, an 80 × 15 mm barcode
        k.alue = qr ? QRectF(300, 300, 1700, 1700) : QRectF(300, 300, 4535, 850);
        QImage kuva(560, 250, QImage::Format_RGB32);
        kuva.fill(Qt::white);
        {
            QPainter p(&kuva);
            p.scale(150.0 / 1440, 150.0 / 1440); // 150 dpi
            QVERIFY(PiirraKoodi(p, k));
        }
        const QString png = env.path(u"koodi.png"_s);
        QVERIFY(kuva.save(png));
        QProcess z;
        z.start(zbarimg, {u"--quiet"_s, u"--raw"_s, u"-Sbinary"_s, png});
        QVERIFY(z.waitForFinished(30000) && z.exitCode() == 0);
        QCOMPARE(QString::fromUtf8(z.readAllStandardOutput()).trimmed(), sisalto);
    }

    // What no symbol can carry is not painted, so that the engine shows it as text instead.
    void eiKoodattavissa()
    {
        QImage kuva(100, 100, QImage::Format_RGB32);
        QPainter p(&kuva);
        for (const auto &[laji, teksti] : {std::pair{KohdeLaji::Viivakoodi, u"Hinta 25 €"_s},
                                           {KohdeLaji::Viivakoodi, QString()}, {KohdeLaji::Teksti, u"12345"_s}}) {
            Tulostekohde k;
            k.laji = laji;
            k.alue = QRectF(0, 0, 1000, 300);
            k.teksti = teksti;
            QVERIFY2(!PiirraKoodi(p, k), qPrintable(teksti));
        }
    }
};

QTEST_MAIN(TestKoodit)
#include "tst_koodit.moc"
