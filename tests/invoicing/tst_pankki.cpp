// The banking helpers of the printed invoice: IBANs read from the settings' free text, references
// in both forms, the bank barcode and the EPC QR payload, checked against the banks' own examples.
#include "invoicing/EpcQr.h"
#include "invoicing/Iban.h"
#include "invoicing/Maksuviite.h"
#include "invoicing/Mod97.h"
#include "invoicing/Pankkiviivakoodi.h"
#include "reports/Koodit.h"

#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

namespace {

Currency euroa(const char *teksti) { return *Currency::parse(QString::fromUtf8(teksti)); }

// A Finnish IBAN whose check digits are right for the account number, whatever its Luhn digit.
QString ibanTilista(const QString &bban)
{
    const int tarkiste = 98 - Mod97(QString(bban + QLatin1String("FI00")));
    return QStringLiteral("FI%1").arg(tarkiste, 2, 10, QLatin1Char('0')) + bban;
}

// What a scanner reads from the symbol as the invoice paints it, at 300 dpi.
QString luettu(KohdeLaji laji, const QString &sisalto, const QString &png)
{
    Tulostekohde k;
    k.laji = laji;
    k.teksti = sisalto;
    // twips: a 30 × 30 mm QR code, a 105 × 13 mm barcode
    k.alue = laji == KohdeLaji::QrKoodi ? QRectF(300, 300, 1700, 1700) : QRectF(300, 300, 5953, 737);
    QImage kuva(1400, 500, QImage::Format_RGB32);
    kuva.fill(Qt::white);
    {
        QPainter p(&kuva);
        p.scale(300.0 / 1440, 300.0 / 1440);
        if (!PiirraKoodi(p, k))
            return QStringLiteral("(not painted)");
    }
    QProcess z;
    if (kuva.save(png))
        z.start(QStringLiteral("zbarimg"), {QStringLiteral("--raw"), QStringLiteral("-q"), QStringLiteral("-Sbinary"), png});
    if (!z.waitForFinished(60000) || z.exitCode() != 0)
        return QStringLiteral("(not read)");
    return QString::fromUtf8(z.readAllStandardOutput()).trimmed();
}

// A payment for the QR code; what is left out is that of a plain membership fee.
EpcQrTiedot qr(const QString &bic, const QString &saaja = QStringLiteral("Seura ry"),
               const QString &iban = QStringLiteral("FI3715903000000776"), const QString &summa = QStringLiteral("10"),
               const QString &viite = QStringLiteral("13013"), const QString &viesti = {}, const QDate &erapaiva = {},
               const QString &tarkoitus = {})
{
    return {bic, saaja, iban, summa.isEmpty() ? std::nullopt : Currency::parse(summa), tarkoitus, viite, viesti, erapaiva};
}

} // namespace

Q_DECLARE_METATYPE(EpcQrTiedot)

class TestPankki : public QObject {
    Q_OBJECT

private slots:
    // --- national references ---

    void nationalReferenceForms_data()
    {
        QTest::addColumn<QString>("syote");
        QTest::addColumn<bool>("kelvollinen");
        QTest::addColumn<QString>("kone");
        QTest::addColumn<QString>("tuloste");
        QTest::newRow("three digits are too few") << "550" << false << "550" << "550";
        QTest::newRow("twenty-one digits") << "123456789012345678908" << false << "123456789012345678908" << "1 23456 78901 23456 78908";
        QTest::newRow("printed with blanks") << "55958 22432 94671" << true << "559582243294671" << "55958 22432 94671";
        QTest::newRow("zero-padded machine form") << "00000000000000001232" << true << "1232" << "1232";
        QTest::newRow("leading zeros leave too few") << "0013" << false << "13" << "13";
        QTest::newRow("wrong check digit") << "12345" << false << "12345" << "12345";
        QTest::newRow("RF is not national") << "RF341234561" << false << "RF341234561" << "RF341234561";
        QTest::newRow("empty") << "" << false << "" << "";
    }

    void nationalReferenceForms()
    {
        QFETCH(QString, syote);
        QFETCH(bool, kelvollinen);
        QCOMPARE(KansallinenViiteOnKelvollinen(syote), kelvollinen);
        QTEST(KansallinenViiteKoneelle(syote), "kone");
        QTEST(KansallinenViiteTulosteeseen(syote), "tuloste");
        if (kelvollinen)
            QTEST(MaksuviiteTulosteeseen(syote), "tuloste");
    }

    // --- RF references ---

    void rfReference_data()
    {
        QTest::addColumn<QString>("runko");
        QTest::addColumn<QString>("rf");
        QTest::addColumn<QString>("tuloste");
        QTest::addColumn<QString>("kansallinen");
        QTest::newRow("1234561") << "1234561" << "RF341234561" << "RF34 1234 561" << "1234561";
        // Its body does not end in a 7-3-1 check digit, so it has no national form.
        QTest::newRow("539007547034") << "539007547034" << "RF18539007547034" << "RF18 5390 0754 7034" << "";
        QTest::newRow("letters in the body") << "ABC123" << "RF47ABC123" << "RF47 ABC1 23" << "";
    }

    void rfReference()
    {
        QFETCH(QString, runko);
        QFETCH(QString, rf);
        QFETCH(QString, tuloste);
        QFETCH(QString, kansallinen);
        QCOMPARE(RfViiteRungosta(runko), rf);
        QVERIFY(RfViiteOnKelvollinen(rf) && RfViiteOnKelvollinen(tuloste) && MaksuviiteOnKelvollinen(tuloste));
        QCOMPARE(RfViiteTulosteeseen(rf), tuloste);
        QCOMPARE(MaksuviiteTulosteeseen(rf), tuloste);
        QCOMPARE(RfViiteKoneelle(tuloste.toLower()), rf);
        QCOMPARE(KansallinenViiteRfViitteesta(tuloste), kansallinen);
        if (!kansallinen.isEmpty())
            QCOMPARE(RfViiteKansallisesta(kansallinen), rf);
    }

    void rfBadInput()
    {
        QVERIFY(RfViiteOnKelvollinen(QStringLiteral("rf34 1234 561")));
        QVERIFY(!RfViiteOnKelvollinen(QStringLiteral("RF35 1234 561")));
        QVERIFY(!RfViiteOnKelvollinen(QStringLiteral("RF34")));
        QVERIFY(!RfViiteOnKelvollinen(QStringLiteral("RFA41234561")));
        QVERIFY(!RfViiteOnKelvollinen(QStringLiteral("RF34 1234-561")));
        QVERIFY(RfViiteOnKelvollinen(RfViiteRungosta(QStringLiteral("123456789012345678901")))); // the longest body
        QVERIFY(!RfViiteOnKelvollinen(RfViiteRungosta(QStringLiteral("1")).left(4) + QStringLiteral("1234567890123456789012")));
        QCOMPARE(RfViiteKansallisesta(QStringLiteral("12345")), QString()); // wrong check digit
        QCOMPARE(RfViiteKansallisesta(QStringLiteral("550")), QString());   // too short
        QCOMPARE(RfViiteRungosta(QStringLiteral("1234567890123456789012")), QString());
        QCOMPARE(RfViiteRungosta(QStringLiteral("12-34")), QString());
        QCOMPARE(KansallinenViiteRfViitteesta(QStringLiteral("RF35 1234 561")), QString());
    }

    // --- IBAN and BIC ---

    void ibanValidity_data()
    {
        QTest::addColumn<QString>("iban");
        QTest::addColumn<QString>("virhe");
        const QString vaaraLuhn = ibanTilista(QStringLiteral("12345600000786"));
        QTest::newRow("FI21 printed") << "FI21 1234 5600 0007 85" << "";
        QTest::newRow("British, letters in the account") << "GB82 WEST 1234 5698 7654 32" << "";
        QTest::newRow("wrong check digits") << "FI22 1234 5600 0007 85" << "Tilinumeron FI22 1234 5600 0007 85 tarkiste ei täsmää.";
        QTest::newRow("right check digits, wrong Luhn digit")
            << vaaraLuhn << QString(QStringLiteral("Tilinumeron ") + IbanTulosteeseen(vaaraLuhn) + QStringLiteral(" tarkiste ei täsmää."));
        QTest::newRow("a digit missing") << "FI21 1234 5600 0007 8"
                                         << "Tilinumerossa FI21 1234 5600 0007 8 on 17 merkkiä; maatunnuksella FI niitä pitää olla 18.";
        QTest::newRow("unknown country") << "XX21 1234 5600 0007 85" << "Tilinumero XX21 1234 5600 0007 85 ei ala tunnetulla IBAN-maatunnuksella.";
        QTest::newRow("old national form") << "123456-785" << "Tilinumerossa 1234 56-7 85 on merkkejä, joita IBAN-tilinumerossa ei voi olla.";
        QTest::newRow("letter in a Finnish account") << "FI21 1234 5600 0007 8A" << "Tilinumero FI21 1234 5600 0007 8A ei ole IBAN-muotoinen.";
        QTest::newRow("empty") << "  " << "Tilinumero puuttuu.";
    }

    void ibanValidity()
    {
        QFETCH(QString, iban);
        QFETCH(QString, virhe);
        QCOMPARE(IbanVirhe(iban), virhe);
        QCOMPARE(IbanOnKelvollinen(iban), virhe.isEmpty());
    }

    void ibanForms()
    {
        QCOMPARE(IbanVanhastaTilinumerosta(QStringLiteral(" 123456 - 785 ")), QStringLiteral("FI2112345600000785"));
        QCOMPARE(IbanVanhastaTilinumerosta(QStringLiteral("440520-2036082")), QStringLiteral("FI7944052020036082")); // savings bank
        QCOMPARE(IbanVanhastaTilinumerosta(QStringLiteral("123456-786")), QString());                              // wrong Luhn digit
        QCOMPARE(IbanVanhastaTilinumerosta(QStringLiteral("12345-785")), QString());
        QCOMPARE(IbanKoneelle(QStringLiteral(" fi21 12345600 0007 85 ")), QStringLiteral("FI2112345600000785"));
        QCOMPARE(IbanTulosteeseen(QStringLiteral(" fi21 12345600 0007 85 ")), QStringLiteral("FI21 1234 5600 0007 85"));
        QCOMPARE(IbanTulosteeseen(QStringLiteral("NO9386011117947")), QStringLiteral("NO93 8601 1117 947"));
    }

    void finnishBankAndBic()
    {
        const auto pankki = [](const char *alku) {
            const QString iban = ibanTilista(QLatin1String(alku) + QStringLiteral("00000000"));
            const SuomalainenPankki p = SuomalainenPankkiIbanista(iban);
            return p.nimi + u'/' + p.bic;
        };
        QCOMPARE(pankki("405500"), QStringLiteral("Aktia/HELSFIHH"));
        QCOMPARE(pankki("470000"), QStringLiteral("POP Pankit/POPFFI22"));
        QCOMPARE(pankki("440520"), QStringLiteral("Säästöpankit/ITELFIHH"));
        QCOMPARE(pankki("799000"), QStringLiteral("Holvi/HOLVFIHH"));
        QCOMPARE(pankki("710000"), QStringLiteral("/"));
        QVERIFY(BicOnKelvollinen(QStringLiteral("COBADEFFXXX")) && BicOnKelvollinen(QStringLiteral("POPFFI22")));
        QVERIFY(!BicOnKelvollinen(QStringLiteral("NDEAFI")));
        QVERIFY(!BicOnKelvollinen(QStringLiteral("NDEAXXHH"))); // unknown country
        QVERIFY(!BicOnKelvollinen(QStringLiteral("ND3AFIHH")));
        QCOMPARE(SuomalainenPankkiIbanista(QStringLiteral("DE89370400440532013000")).bic, QString());
    }

    // --- the account the user typed in the settings ---

    void accountFromText_data()
    {
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<QString>("tulos"); // IBAN/BIC/bank, or why there is none
        QTest::newRow("printed with the bank") << "FI21 1234 5600 0007 85 Nordea" << "FI2112345600000785/NDEAFIHH/Nordea";
        QTest::newRow("bank before") << "Osuuspankki FI38 5720 0080 0473 66" << "FI3857200080047366/OKOYFIHH/Osuuspankki";
        QTest::newRow("BIC in brackets") << "Nordea (NDEAFIHH) FI21 1234 5600 0007 85" << "FI2112345600000785/NDEAFIHH/Nordea";
        QTest::newRow("the user's BIC wins") << "Aktia FI21 1234 5600 0007 85 HELSFIHH" << "FI2112345600000785/HELSFIHH/Aktia";
        QTest::newRow("old national number") << "Nordea 123456-785" << "FI2112345600000785/NDEAFIHH/Nordea";
        QTest::newRow("foreign with BIC") << "DE89 3704 0044 0532 0130 00 Commerzbank COBADEFFXXX" << "DE89370400440532013000/COBADEFFXXX/Commerzbank";
        QTest::newRow("second account after a bad one") << "FI22 1234 5600 0007 85 / FI21 1234 5600 0007 85"
                                                        << "FI2112345600000785/NDEAFIHH/FI22 1234 5600 0007 85";
        QTest::newRow("wrong check digits") << "FI22 1234 5600 0007 85 Nordea" << "Tilinumeron FI22 1234 5600 0007 85 tarkiste ei täsmää.";
        QTest::newRow("old number, wrong Luhn digit") << "123456-786 Nordea" << "Tilinumeron 123456-786 tarkiste ei täsmää.";
        QTest::newRow("bank name only") << "Nordea" << "Tekstissä \"Nordea\" ei ole tilinumeroa.";
        QTest::newRow("empty") << " " << "Tilinumero puuttuu.";
    }

    void accountFromText()
    {
        QFETCH(QString, teksti);
        const PankkitiliTulos t = PankkitiliTekstista(teksti);
        QTEST(t.onnistui() ? QStringList({t.tili.iban, t.tili.bic, t.tili.pankki}).join(u'/') : t.virhe, "tulos");
    }

    // --- the bank barcode ---

    void barcode_data()
    {
        QTest::addColumn<QString>("iban");
        QTest::addColumn<QString>("summa");
        QTest::addColumn<QString>("viite");
        QTest::addColumn<QDate>("erapaiva");
        QTest::addColumn<QString>("numerot");
        QTest::addColumn<QString>("syy"); // why there is none
        const QString fi21 = QStringLiteral("FI2112345600000785");
        const QDate era(2025, 2, 28);
        QTest::newRow("v4 example 1") << "FI58 1017 1000 0001 22" << "482,99" << "55958 22432 94671" << QDate(2012, 1, 31)
                                      << "458101710000001220004829900000000559582243294671120131" << "";
        QTest::newRow("v4 example 3, no due date") << "FI16 8000 1400 0502 67" << "935,85" << "78777679656628687" << QDate()
                                                   << "416800014000502670009358500000078777679656628687000000" << "";
        QTest::newRow("v5 example") << "FI58 1017 1000 0001 22" << "482,99" << "RF06 5595 8224 3294 671" << QDate(2010, 1, 31)
                                    << "558101710000001220004829906000000559582243294671100131" << "";
        QTest::newRow("largest amount") << fi21 << "999999,99" << "1232" << era << "421123456000007859999999900000000000000000001232250228" << "";
        QTest::newRow("sub-cent rounded half to even") << fi21 << "25,005" << "1232" << era
                                                       << "421123456000007850000250000000000000000000001232250228" << "";
        QTest::newRow("foreign IBAN") << "DE89 3704 0044 0532 0130 00" << "10" << "1232" << era << ""
                                      << "Viivakoodia ei voi tehdä: tilinumero DE89 3704 0044 0532 0130 00 ei ole suomalainen.";
        QTest::newRow("wrong IBAN check") << "FI22 1234 5600 0007 85" << "10" << "1232" << era << ""
                                          << "Viivakoodia ei voi tehdä: tilinumero FI22 1234 5600 0007 85 ei ole kelvollinen IBAN.";
        QTest::newRow("no account") << "" << "10" << "1232" << era << "" << "Viivakoodia ei voi tehdä: tilinumero puuttuu.";
        QTest::newRow("a cent over, after rounding") << fi21 << "999999,9951" << "1232" << era << ""
                                                     << "Viivakoodia ei voi tehdä: summa on yli 999 999,99 euroa.";
        QTest::newRow("credit note") << fi21 << "-5" << "1232" << era << "" << "Viivakoodia ei voi tehdä: summa on negatiivinen.";
        QTest::newRow("no reference") << fi21 << "10" << " " << era << "" << "Viivakoodia ei voi tehdä: viitenumero puuttuu.";
        QTest::newRow("letter in a national reference") << fi21 << "10" << "12A44" << era << ""
                                                        << "Viivakoodia ei voi tehdä: viitenumero 12A44 ei ole kelvollinen.";
        QTest::newRow("RF body with letters") << fi21 << "10" << "RF47ABC123" << era << ""
                                              << "Viivakoodia ei voi tehdä: RF-viitteessä RF47 ABC1 23 on kirjaimia.";
        QTest::newRow("wrong RF check") << fi21 << "10" << "RF35 1234 561" << era << ""
                                        << "Viivakoodia ei voi tehdä: RF-viite RF35 1234 561 ei ole kelvollinen.";
    }

    void barcode()
    {
        QFETCH(QString, iban);
        QFETCH(QString, summa);
        QFETCH(QString, viite);
        QFETCH(QDate, erapaiva);
        QFETCH(QString, syy);
        const PankkiviivakoodiTulos t = Pankkiviivakoodi(iban, euroa(summa.toUtf8().constData()), viite, erapaiva);
        QCOMPARE(t.syy, syy);
        QTEST(t.numerot, "numerot");
        QVERIFY(t.numerot.isEmpty() || t.numerot.size() == 54);
    }

    // --- the EPC QR payload ---

    void epcQr_data()
    {
        QTest::addColumn<EpcQrTiedot>("tiedot");
        QTest::addColumn<QString>("sisalto");
        QTest::addColumn<QString>("syy"); // why there is none
        const QDate era(2025, 2, 28);
        const QString fi37 = QStringLiteral("FI3715903000000776");
        QTest::newRow("worked example, the reference wins over the message")
            << qr("NDEAFIHH", "Esimerkkiseura ry", fi37, "25,00", "1234561", "Jäsenmaksu", era)
            << "BCD\n001\n1\nSCT\nNDEAFIHH\nEsimerkkiseura ry\nFI3715903000000776\nEUR25.00\n\nRF341234561\n\nReqdExctnDt/2025-02-28" << "";
        QTest::newRow("printed forms in, machine forms out")
            << qr("ndeafihh", "  Esimerkkiseura ry ", "FI37 1590 3000 0007 76", "1 234,5", "12 34561", "", era)
            << "BCD\n001\n1\nSCT\nNDEAFIHH\nEsimerkkiseura ry\nFI3715903000000776\nEUR1234.50\n\nRF341234561\n\nReqdExctnDt/2025-02-28" << "";
        QTest::newRow("no BIC: version 002") << qr("", "Seura ry", fi37, "0,5", "RF18 5390 0754 7034", "", era)
                                             << "BCD\n002\n1\nSCT\n\nSeura ry\nFI3715903000000776\nEUR0.50\n\nRF18539007547034\n\n"
                                                "ReqdExctnDt/2025-02-28" << "";
        QTest::newRow("zero amount, no due date") << qr("NDEAFIHH", "Seura ry", fi37, "0")
                                                  << "BCD\n001\n1\nSCT\nNDEAFIHH\nSeura ry\nFI3715903000000776\n\n\nRF8413013" << "";
        QTest::newRow("message when no reference") << qr("NDEAFIHH", "Seura ry", fi37, "30", "", "Jäsenmaksu 2025,\nkiitos!")
                                                   << "BCD\n001\n1\nSCT\nNDEAFIHH\nSeura ry\nFI3715903000000776\nEUR30.00\n\n\n"
                                                      "Jäsenmaksu 2025, kiitos!" << "";
        QTest::newRow("long club name with & and '")
            << qr("NDEAFIHH", "Tampereen Kävely- & Pyöräilyseura 'Polkijat' ry, Ylöjärven ja Nokian osasto", fi37, "25", "1234561", "", era)
            << "BCD\n001\n1\nSCT\nNDEAFIHH\nTampereen Kävely- & Pyöräilyseura 'Polkijat' ry, Ylöjärven ja Nokian o\n"
               "FI3715903000000776\nEUR25.00\n\nRF341234561\n\nReqdExctnDt/2025-02-28" << "";
        // A character outside the BMP at the cut must not be split into half a surrogate pair.
        QTest::newRow("name cut before an emoji") << qr("", QString(69, u'a') + QString::fromUtf8("\xF0\x9F\x8E\xBE") + u'b', fi37, "", "")
                                                  << QString(QStringLiteral("BCD\n002\n1\nSCT\n\n") + QString(69, u'a') + QStringLiteral("\nFI3715903000000776"))
                                                  << "";
        const auto ei = [](const char *syy) { return QStringLiteral("QR-koodia ei voi tehdä: ") + QString::fromUtf8(syy); };
        QTest::newRow("no name") << qr("NDEAFIHH", " ") << "" << ei("saajan nimi puuttuu.");
        QTest::newRow("wrong IBAN check") << qr("NDEAFIHH", "Seura ry", "FI22 1234 5600 0007 85") << ""
                                          << ei("Tilinumeron FI22 1234 5600 0007 85 tarkiste ei täsmää.");
        QTest::newRow("bad BIC") << qr("NDEAFI") << "" << ei("BIC-tunnus NDEAFI ei ole kelvollinen.");
        QTest::newRow("bad purpose") << qr("NDEAFIHH", "Seura ry", fi37, "10", "13013", "", {}, "JÄSEN") << ""
                                     << ei("maksun tarkoituskoodi JÄSEN ei ole neljä kirjainta.");
        QTest::newRow("bad reference") << qr("NDEAFIHH", "Seura ry", fi37, "10", "12345") << "" << ei("viitenumero 12345 ei ole kelvollinen.");
        QTest::newRow("amount too large") << qr("NDEAFIHH", "Seura ry", fi37, "1000000000") << "" << ei("summa on yli 999 999 999,99 euroa.");
        QTest::newRow("negative amount") << qr("NDEAFIHH", "Seura ry", fi37, "-1") << "" << ei("summa on negatiivinen.");
        // Seventy two-byte letters in the name and 140 in the message, with no reference.
        QTest::newRow("over 331 bytes") << qr("NDEAFIHH", QString(80, QChar(0x00C4)), fi37, "10", "", QString(150, QChar(0x00E4))) << ""
                                        << ei("sisältö on 474 tavua, enintään 331 mahtuu.");
    }

    void epcQr()
    {
        QFETCH(EpcQrTiedot, tiedot);
        QFETCH(QString, syy);
        const EpcQrTulos q = EpcQrSisalto(tiedot);
        QCOMPARE(q.syy, syy);
        QTEST(QString::fromUtf8(q.sisalto), "sisalto");
        QVERIFY(q.sisalto.size() <= 331);
    }

    // --- the printed symbols read back ---

    void printedSymbolsReadBack_data()
    {
        QTest::addColumn<int>("laji");
        QTest::addColumn<QString>("sisalto");
        const EpcQrTiedot t = qr("NDEAFIHH", "Tampereen Kävely- & Pyöräilyseura 'Polkijat' ry, Ylöjärven ja Nokian osasto",
                                 "FI3715903000000776", "1 234,50", "1234561", "", QDate(2025, 2, 28));
        QTest::newRow("EPC QR with Finnish letters") << int(KohdeLaji::QrKoodi) << QString::fromUtf8(EpcQrSisalto(t).sisalto);
        QTest::newRow("bank barcode") << int(KohdeLaji::Viivakoodi)
                                      << Pankkiviivakoodi(QStringLiteral("FI58 1017 1000 0001 22"), euroa("482,99"),
                                                          QStringLiteral("RF06 5595 8224 3294 671"), QDate(2010, 1, 31))
                                             .numerot;
    }

    void printedSymbolsReadBack()
    {
        QFETCH(int, laji);
        QFETCH(QString, sisalto);
        QVERIFY(!sisalto.isEmpty());
        if (QStandardPaths::findExecutable(QStringLiteral("zbarimg")).isEmpty())
            QSKIP("zbarimg (zbar-tools) is not installed, so the printed symbol cannot be read back");
        QTemporaryDir kansio;
        QVERIFY(kansio.isValid());
        QCOMPARE(luettu(KohdeLaji(laji), sisalto, kansio.filePath(QStringLiteral("koodi.png"))), sisalto);
    }
};

QTEST_GUILESS_MAIN(TestPankki)
#include "tst_pankki.moc"
