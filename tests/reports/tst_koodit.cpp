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
    // What a code can carry reads back as it was; what no symbol can carry is not painted, so that
    // the engine shows it as text instead.
    void luettavissa_data()
    {
        QTest::addColumn<int>("laji");
        QTest::addColumn<QString>("sisalto");
        QTest::addColumn<bool>("koodattavissa");
        const int viiva = int(KohdeLaji::Viivakoodi), qr = int(KohdeLaji::QrKoodi);
        QTest::newRow("viivakoodi, pienet ja välit") << viiva << u"Jasen 123 / 2026"_s << true;
        QTest::newRow("qr, ääkköset") << qr << u"Jäsenmaksu 2026 – Åke Öhman"_s << true;
        QTest::newRow("qr, pitkä") << qr << u"BCD\n002\n1\nSCT\n\nKylän Kipinä ry\nFI2112345600000785\nEUR25.00"_s << true;
        QTest::newRow("viivakoodi, euromerkki") << viiva << u"Hinta 25 €"_s << false;
        QTest::newRow("viivakoodi, tyhjä") << viiva << QString() << false;
        QTest::newRow("tekstikohde") << int(KohdeLaji::Teksti) << u"12345"_s << false;
    }

    void luettavissa()
    {
        QFETCH(int, laji);
        QFETCH(QString, sisalto);
        QFETCH(bool, koodattavissa);
        Tulostekohde k;
        k.laji = KohdeLaji(laji);
        k.teksti = sisalto;
        // twips as in a laid-out page: a 30 × 30 mm QR code, an 80 × 15 mm barcode
        k.alue = k.laji == KohdeLaji::QrKoodi ? QRectF(300, 300, 1700, 1700) : QRectF(300, 300, 4535, 850);
        QImage kuva(560, 250, QImage::Format_RGB32);
        kuva.fill(Qt::white);
        {
            QPainter p(&kuva);
            p.scale(150.0 / 1440, 150.0 / 1440); // 150 dpi
            QCOMPARE(PiirraKoodi(p, k), koodattavissa);
        }
        if (!koodattavissa)
            return;
        const QString zbarimg = QStandardPaths::findExecutable(u"zbarimg"_s);
        if (zbarimg.isEmpty())
            QSKIP("zbarimg is not installed");
        TestEnv env;
        const QString png = env.path(u"koodi.png"_s);
        QVERIFY(kuva.save(png));
        QProcess z;
        z.start(zbarimg, {u"--quiet"_s, u"--raw"_s, u"-Sbinary"_s, png});
        QVERIFY(z.waitForFinished(30000) && z.exitCode() == 0);
        QCOMPARE(QString::fromUtf8(z.readAllStandardOutput()).trimmed(), sisalto);
    }
};

QTEST_MAIN(TestKoodit)
#include "tst_koodit.moc"
