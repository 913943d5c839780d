#include "malliseura.h"
#include "payments/Viitemaksulajittelu.h"
#include "platform/currency.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

ViiteTapahtuma Maksu(const QString &viite, qint64 sentit, const QString &nimi = QStringLiteral("VIRTANEN MAT"))
{
    ViiteTapahtuma t;
    t.Tunnus = QStringLiteral("3");
    t.Viitenumero = viite.rightJustified(20, u'0');
    t.Rahamaara = QStringLiteral("%1").arg(sentit, 10, 10, QLatin1Char('0'));
    t.Nimi = nimi.leftJustified(12);
    t.Oikaisutunnus = QStringLiteral("0");
    return t;
}

// The rows of all three lists as "list|text|tag".
QStringList Rivit(const ViitemaksujenLajittelu &l)
{
    QStringList rivit;
    const QList<std::pair<QString, const QList<ViitemaksuRivi> *>> listat{
        {QStringLiteral("saapuneet"), &l.Saapuneet},
        {QStringLiteral("tarkistettavat"), &l.Tarkistettavat},
        {QStringLiteral("virheet"), &l.Virheet}};
    for (const auto &[nimi, lista] : listat)
        for (const ViitemaksuRivi &r : *lista)
            rivit << QStringLiteral("%1|%2|%3").arg(nimi, r.teksti).arg(r.jmhID);
    return rivit;
}

} // namespace

class TestViitemaksulajittelu : public QObject {
    Q_OBJECT

    QTemporaryDir m_kansio;
    std::unique_ptr<db::Database> m_db;
    qint64 m_jasen = 0;

    qint64 Lasku(const QString &viite, const QVariant &hinta, bool eiLoppusummaa = false, qint64 jrID = -1)
    {
        m_db->execute(QStringLiteral("INSERT INTO jmhist (jmhjmID, jmhjmjrID, jmhjmViitenumero, jmhjmHinta, "
                                     "jmhjmEiLoppusummaa, jmhjmMaksettu) VALUES (1, ?, ?, ?, ?, 0)"),
                      {jrID < 0 ? m_jasen : jrID, viite, hinta, eiLoppusummaa});
        return m_db->lastInsertId();
    }

private slots:
    void init()
    {
        m_db = malliseura::kopio(m_kansio.filePath(QStringLiteral("seura.mdb")));
        m_db->execute(QStringLiteral("INSERT INTO jr (jrSukunimi, jrEtunimi) VALUES ('Virtanen', 'Matti')"));
        m_jasen = m_db->lastInsertId();
    }

    void cleanup()
    {
        m_db.reset();
        QFile::remove(m_kansio.filePath(QStringLiteral("seura.mdb")));
    }

    // One payment against one invoice of 25,00 (or of no total): which list, with which text.
    void lajittelu_data()
    {
        QTest::addColumn<qint64>("sentit");
        QTest::addColumn<QString>("viite");
        QTest::addColumn<QVariant>("hinta");
        QTest::addColumn<bool>("eiLoppusummaa");
        QTest::addColumn<bool>("asetus");
        QTest::addColumn<QString>("odotettu"); // list|text, the tag checked apart
        const QVariant hinta = QVariant::fromValue(Currency::fromUnits(25).raw());
        QTest::newRow("exact") << qint64(2500) << "1232" << hinta << false << false
                               << "saapuneet|25.00 - 1232 - VIRTANEN MAT";
        QTest::newRow("one cent over") << qint64(2501) << "1232" << hinta << false << true
                                       << "virheet|Summa: 25.01 - 1232 - VIRTANEN MAT";
        QTest::newRow("one cent under") << qint64(2499) << "1232" << hinta << false << false
                                        << "virheet|Summa: 24.99 - 1232 - VIRTANEN MAT";
        QTest::newRow("unknown reference") << qint64(5) << "12344" << hinta << false << false
                                           << "tarkistettavat|Viitettä ei löydy: 0.05 - 12344 - VIRTANEN MAT";
        QTest::newRow("no total, setting on") << qint64(50) << "1232" << hinta << true << true
                                              << "saapuneet|0.50 - 1232 - VIRTANEN MAT";
        QTest::newRow("no total, setting off") << qint64(50) << "1232" << hinta << true << false
                                               << "virheet|Summa: 0.50 - 1232 - VIRTANEN MAT";
        QTest::newRow("invoice without a price") << qint64(0) << "1232" << QVariant() << false << false
                                                 << "virheet|Summa: 0.00 - 1232 - VIRTANEN MAT";
        QTest::newRow("price with fractions of a cent")
            << qint64(2500) << "1232" << QVariant::fromValue(Currency::fromUnits(25).raw() + 1) << false << false
            << "virheet|Summa: 25.00 - 1232 - VIRTANEN MAT";
    }

    void lajittelu()
    {
        QFETCH(qint64, sentit);
        QFETCH(QString, viite);
        QFETCH(QVariant, hinta);
        QFETCH(bool, eiLoppusummaa);
        QFETCH(bool, asetus);
        QFETCH(QString, odotettu);
        const qint64 jmhID = Lasku(QStringLiteral("1232"), hinta, eiLoppusummaa);
        ViiteEra era;
        era.Tapahtumat = {Maksu(viite, sentit)};
        const QStringList rivit = Rivit(LajitteleEra(*m_db, era, asetus));
        const qint64 tunniste = odotettu.startsWith(QLatin1String("tarkistettavat")) ? -1 : jmhID;
        QCOMPARE(rivit, QStringList{odotettu + QStringLiteral("|%1").arg(tunniste)});
    }

    // An invoice whose member is gone; the first of two invoices with one reference; the same
    // payment twice; a correction sorted as a payment; an all-zero reference searched as "".
    void erikoistapaukset()
    {
        const QVariant hinta = QVariant::fromValue(Currency::fromUnits(25).raw());
        const qint64 ilmanJasenta = Lasku(QStringLiteral("13013"), hinta, false, 999);
        const qint64 ensimmainen = Lasku(QStringLiteral("1232"), hinta);
        Lasku(QStringLiteral("1232"), QVariant::fromValue(Currency::fromUnits(40).raw()));
        const qint64 tyhja = Lasku(QStringLiteral(""), hinta);
        ViiteEra era;
        ViiteTapahtuma oikaisu = Maksu(QStringLiteral("1232"), 2500);
        oikaisu.Oikaisutunnus = QStringLiteral("1");
        era.Tapahtumat = {Maksu(QStringLiteral("13013"), 2500, QStringLiteral("KORHONEN ANN")),
                          Maksu(QStringLiteral("1232"), 2500), oikaisu, Maksu(QStringLiteral("0"), 2500)};
        const QStringList odotettu{
            QStringLiteral("saapuneet|25.00 - 1232 - VIRTANEN MAT|%1").arg(ensimmainen),
            QStringLiteral("saapuneet|25.00 - 1232 - VIRTANEN MAT|%1").arg(ensimmainen),
            QStringLiteral("saapuneet|25.00 - 0 - VIRTANEN MAT|%1").arg(tyhja),
            QStringLiteral("tarkistettavat|Henkilö: 25.00 - 13013 - KORHONEN ANN|%1").arg(ilmanJasenta),
        };
        QCOMPARE(Rivit(LajitteleEra(*m_db, era, false)), odotettu);
    }

    void muotoileSentit_data()
    {
        QTest::addColumn<qint64>("sentit");
        QTest::addColumn<QString>("teksti");
        QTest::newRow("0") << qint64(0) << "0.00";
        QTest::newRow("5") << qint64(5) << "0.05";
        QTest::newRow("50") << qint64(50) << "0.50";
        QTest::newRow("100") << qint64(100) << "1.00";
        QTest::newRow("1234") << qint64(1234) << "12.34";
        QTest::newRow("9999999999") << qint64(9999999999) << "99999999.99";
    }

    void muotoileSentit()
    {
        QFETCH(qint64, sentit);
        QFETCH(QString, teksti);
        QCOMPARE(MuotoileSentit(sentit), teksti);
    }

    void viitteet_data()
    {
        QTest::addColumn<QString>("kentta");
        QTest::addColumn<QString>("haettava");
        QTest::addColumn<QString>("naytetty");
        QTest::newRow("padded") << "00000000000000001232" << "1232" << "1232";
        QTest::newRow("all zeros") << "00000000000000000000" << "" << "0";
        QTest::newRow("blank") << "" << "" << "0";
        QTest::newRow("15 digits") << "00000123456789012345" << "123456789012345" << "123456789012345";
        QTest::newRow("16 digits") << "00005595822432946714" << "5595822432946714" << "5.59582243294671E+15";
        QTest::newRow("20 digits") << "12345678901234567890" << "12345678901234567890" << "1.23456789012346E+19";
        QTest::newRow("round mantissa") << "10000000000000000000" << "10000000000000000000" << "1E+19";
        QTest::newRow("RF handed on") << "RF71ABC123" << "RF71ABC123" << "0";
    }

    void viitteet()
    {
        QFETCH(QString, kentta);
        QFETCH(QString, haettava);
        QFETCH(QString, naytetty);
        QCOMPARE(PoistaEtunollat(kentta), haettava);
        QCOMPARE(ViitenumeroLukuna(kentta), naytetty);
    }
};

QTEST_GUILESS_MAIN(TestViitemaksulajittelu)
#include "tst_viitemaksulajittelu.moc"
