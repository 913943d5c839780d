// The merge tokens: found in any case, cut or padded to their width, every occurrence replaced,
// and a value holding the token itself never makes the merge go round for ever.
#include "email/Tunnisteet.h"

#include <QtTest>

class TestTunnisteet : public QObject {
    Q_OBJECT

private slots:
    void korvaa_data()
    {
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<QString>("arvo");
        QTest::addColumn<QString>("tulos");
        QTest::newRow("as it stands") << "Määrä <OM.LKM:0> kpl" << "12" << "Määrä 12 kpl";
        QTest::newRow("any case") << "<om.lkm:0>/<Om.Lkm:0>" << "3" << "3/3";
        QTest::newRow("padded") << "[<OM.LKM:5>]" << "12" << "[12   ]";
        QTest::newRow("cut") << "[<OM.LKM:3>]" << "Äänekoski" << "[Ään]";
        QTest::newRow("width no number") << "[<OM.LKM:x>]" << "12" << "[12]";
        QTest::newRow("no colon, no token") << "[<OM.LKM>]" << "12" << "[<OM.LKM>]";
        QTest::newRow("no closing") << "[<OM.LKM:4" << "12" << "[<OM.LKM:4";
        QTest::newRow("Null value") << "a<OM.LKM:0>b" << "" << "ab";
        QTest::newRow("value holds the token") << "<OM.LKM:0>!" << "<OM.LKM:0>" << "<OM.LKM:0>!";
        QTest::newRow("other token left") << "<OM.ARVO:0> <OM.LKM:0>" << "1" << "<OM.ARVO:0> 1";
    }

    void korvaa()
    {
        QFETCH(QString, teksti);
        QFETCH(QString, arvo);
        QFETCH(QString, tulos);
        QCOMPARE(KorvaaTunniste(teksti, QStringLiteral("OM.LKM"), arvo), tulos);
    }

    void leveys()
    {
        QCOMPARE(TunnisteenLeveys(QStringLiteral("x <RIVIAIHE:30> <riviaihe:5>"), QStringLiteral("RIVIAIHE")), 30);
        QCOMPARE(TunnisteenLeveys(QStringLiteral("<RIVIAIHE:abc>"), QStringLiteral("RIVIAIHE")), 0);
        QCOMPARE(TunnisteenLeveys(QStringLiteral("nothing"), QStringLiteral("RIVIAIHE")), 0);
    }
};

QTEST_GUILESS_MAIN(TestTunnisteet)
#include "tst_tunnisteet.moc"
