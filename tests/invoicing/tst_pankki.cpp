// The banking helpers of the printed invoice: IBANs read from the settings' free text, references
// in both forms, the bank barcode and the EPC QR payload, checked against the banks' own examples.
#include "invoicing/EpcQr.h"
#include "invoicing/Iban.h"
#include "invoicing/Maksuviite.h"
#include "invoicing/Mod97.h"
#include "invoicing/Pankkiviivakoodi.h"
#include "invoicing/Viite.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>
#include <memory>
#include <zint.h>

namespace {

Currency euroa(const char *teksti) { return *Currency::parse(QString::fromUtf8(teksti)); }

// A Finnish IBAN whose check digits are right for the account number, whatever its Luhn digit.
QString ibanTilista(const QString &bban)
{
    const int tarkiste = 98 - Mod97(QString(bban + QLatin1String("FI00")));
    return QStringLiteral("FI%1").arg(tarkiste, 2, 10, QLatin1Char('0')) + bban;
}

struct ZintPoistaja {
    void operator()(zint_symbol *s) const { ZBarcode_Delete(s); }
};
using Symboli = std::unique_ptr<zint_symbol, ZintPoistaja>;

// The symbol as the invoice prints it, written to a PNG file.
Symboli kirjoitaKoodi(int laji, const QByteArray &sisalto, const QString &tiedosto)
{
    Symboli s(ZBarcode_Create());
    s->symbology = laji;
    s->input_mode = DATA_MODE;
    s->scale = 4;
    s->output_options |= BARCODE_QUIET_ZONES;
    if (laji == BARCODE_QRCODE)
        s->option_1 = 2; // error correction M
    qstrncpy(s->outfile, QFile::encodeName(tiedosto).constData(), sizeof s->outfile);
    if (ZBarcode_Encode_and_Print(s.get(), reinterpret_cast<const unsigned char *>(sisalto.constData()), int(sisalto.size()), 0) >= ZINT_ERROR)
        return nullptr;
    return s;
}

QByteArray luePng(const QString &tiedosto)
{
    QProcess p;
    p.start(QStringLiteral("zbarimg"), {QStringLiteral("--raw"), QStringLiteral("-q"), QStringLiteral("-Sbinary"), tiedosto});
    if (!p.waitForFinished(60000) || p.exitCode() != 0)
        return {};
    return p.readAllStandardOutput();
}

} // namespace

class TestPankki : public QObject {
    Q_OBJECT

private slots:
    // --- national references ---

    void nationalReference_data()
    {
        QTest::addColumn<QString>("perus");
        QTest::addColumn<QString>("viite");
        QTest::addColumn<bool>("kelvollinen");
        QTest::addColumn<QString>("tuloste");
        QTest::newRow("123456") << "123456" << "1234561" << true << "12 34561";
        QTest::newRow("1301") << "1301" << "13013" << true << "13013";
        QTest::newRow("999") << "999" << "9991" << true << "9991";
        QTest::newRow("1234") << "1234" << "12344" << true << "12344";
        QTest::newRow("55: three digits are too few") << "55" << "550" << false << "550";
        QTest::newRow("1: too short") << "1" << "13" << false << "13";
        QTest::newRow("barcode example 1") << "55958224329467" << "559582243294671" << true << "55958 22432 94671";
        QTest::newRow("nineteen-digit base") << "1234567890123456789" << "12345678901234567894" << true
                                              << "12345 67890 12345 67894";
        QTest::newRow("twenty-digit base: too long") << "12345678901234567890" << "123456789012345678908" << false
                                                      << "1 23456 78901 23456 78908";
    }

    void nationalReference()
    {
        QFETCH(QString, perus);
        QFETCH(QString, viite);
        QFETCH(bool, kelvollinen);
        QFETCH(QString, tuloste);
        QCOMPARE(ViiteNumerosta(perus), viite);
        QCOMPARE(KansallinenViiteOnKelvollinen(viite), kelvollinen);
        QCOMPARE(KansallinenViiteOnKelvollinen(tuloste), kelvollinen);
        QCOMPARE(KansallinenViiteTulosteeseen(viite), tuloste);
        QCOMPARE(MaksuviiteTulosteeseen(viite), tuloste);
    }

    void nationalReferenceForms_data()
    {
        QTest::addColumn<QString>("syote");
        QTest::addColumn<bool>("kelvollinen");
        QTest::addColumn<QString>("kone");
        QTest::addColumn<QString>("tuloste");
        QTest::newRow("printed with blanks") << "55958 22432 94671" << true << "559582243294671" << "55958 22432 94671";
        QTest::newRow("zero-padded machine form") << "00000000000000001232" << true << "1232" << "1232";
        QTest::newRow("leading zeros leave too few") << "0013" << false << "13" << "13";
        QTest::newRow("wrong check digit") << "12345" << false << "12345" << "12345";
        QTest::newRow("letter inside") << "12A44" << false << "12A44" << "12A44";
        QTest::newRow("RF is not national") << "RF341234561" << false << "RF341234561" << "RF341234561";
        QTest::newRow("empty") << "" << false << "" << "";
    }

    void nationalReferenceForms()
    {
        QFETCH(QString, syote);
        QFETCH(bool, kelvollinen);
        QFETCH(QString, kone);
        QFETCH(QString, tuloste);
        QCOMPARE(KansallinenViiteOnKelvollinen(syote), kelvollinen);
        QCOMPARE(KansallinenViiteKoneelle(syote), kone);
        QCOMPARE(KansallinenViiteTulosteeseen(syote), tuloste);
    }

    // --- RF references ---

    void rfReference_data()
    {
        QTest::addColumn<QString>("runko");
        QTest::addColumn<QString>("rf");
        QTest::addColumn<QString>("tuloste");
        QTest::addColumn<QString>("kansallinen");
        QTest::newRow("1234561") << "1234561" << "RF341234561" << "RF34 1234 561" << "1234561";
        QTest::newRow("9991") << "9991" << "RF049991" << "RF04 9991" << "9991";
        QTest::newRow("13013") << "13013" << "RF8413013" << "RF84 1301 3" << "13013";
        QTest::newRow("barcode v5 example") << "559582243294671" << "RF06559582243294671" << "RF06 5595 8224 3294 671"
                                            << "559582243294671";
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
        QVERIFY(RfViiteOnKelvollinen(rf));
        QVERIFY(RfViiteOnKelvollinen(tuloste));
        QVERIFY(MaksuviiteOnKelvollinen(tuloste));
        QCOMPARE(RfViiteTulosteeseen(rf), tuloste);
        QCOMPARE(MaksuviiteTulosteeseen(rf), tuloste);
        QCOMPARE(RfViiteKoneelle(tuloste.toLower()), rf);
        QCOMPARE(KansallinenViiteRfViitteesta(tuloste), kansallinen);
        if (!kansallinen.isEmpty())
            QCOMPARE(RfViiteKansallisesta(kansallinen), rf);
    }

    void rfValidity_data()
    {
        QTest::addColumn<QString>("rf");
        QTest::addColumn<bool>("kelvollinen");
        QTest::newRow("lower case") << "rf34 1234 561" << true;
        QTest::newRow("wrong check digits") << "RF35 1234 561" << false;
        QTest::newRow("no body") << "RF34" << false;
        QTest::newRow("check digits not digits") << "RFA41234561" << false;
        QTest::newRow("other character") << "RF34 1234-561" << false;
        QTest::newRow("21-character body") << RfViiteRungosta(QStringLiteral("123456789012345678901")) << true;
        QTest::newRow("22-character body")
            << QString(RfViiteRungosta(QStringLiteral("1")).left(4) + QStringLiteral("1234567890123456789012")) << false;
    }

    void rfValidity()
    {
        QFETCH(QString, rf);
        QFETCH(bool, kelvollinen);
        QCOMPARE(RfViiteOnKelvollinen(rf), kelvollinen);
    }

    void rfFromBadInput()
    {
        QCOMPARE(RfViiteKansallisesta(QStringLiteral("12345")), QString()); // wrong check digit
        QCOMPARE(RfViiteKansallisesta(QStringLiteral("550")), QString());   // too short
        QCOMPARE(RfViiteRungosta(QStringLiteral("1234567890123456789012")), QString());
        QCOMPARE(RfViiteRungosta(QStringLiteral("12-34")), QString());
        QCOMPARE(RfViiteRungosta(QString()), QString());
        QCOMPARE(KansallinenViiteRfViitteesta(QStringLiteral("RF35 1234 561")), QString());
    }

    // --- IBAN ---

    void ibanValidity_data()
    {
        QTest::addColumn<QString>("iban");
        QTest::addColumn<QString>("virhe");
        QTest::newRow("FI21 printed") << "FI21 1234 5600 0007 85" << "";
        QTest::newRow("FI21 machine, lower case") << "fi2112345600000785" << "";
        QTest::newRow("German") << "DE89 3704 0044 0532 0130 00" << "";
        QTest::newRow("British, letters in the account") << "GB82 WEST 1234 5698 7654 32" << "";
        QTest::newRow("Norwegian, the shortest") << "NO93 8601 1117 947" << "";
        QTest::newRow("wrong check digits") << "FI22 1234 5600 0007 85" << "Tilinumeron FI22 1234 5600 0007 85 tarkiste ei täsmää.";
        QTest::newRow("right check digits, wrong Luhn digit")
            << ibanTilista(QStringLiteral("12345600000786")) << QString(QStringLiteral("Tilinumeron ")
                   + IbanTulosteeseen(ibanTilista(QStringLiteral("12345600000786"))) + QStringLiteral(" tarkiste ei täsmää."));
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

    void ibanForms_data()
    {
        QTest::addColumn<QString>("syote");
        QTest::addColumn<QString>("kone");
        QTest::addColumn<QString>("tuloste");
        QTest::newRow("machine") << "FI2112345600000785" << "FI2112345600000785" << "FI21 1234 5600 0007 85";
        QTest::newRow("odd blanks, lower case") << " fi21 12345600 0007 85 " << "FI2112345600000785" << "FI21 1234 5600 0007 85";
        QTest::newRow("length not a multiple of four") << "NO9386011117947" << "NO9386011117947" << "NO93 8601 1117 947";
    }

    void ibanForms()
    {
        QFETCH(QString, syote);
        QFETCH(QString, kone);
        QFETCH(QString, tuloste);
        QCOMPARE(IbanKoneelle(syote), kone);
        QCOMPARE(IbanTulosteeseen(syote), tuloste);
    }

    void oldAccountNumber_data()
    {
        QTest::addColumn<QString>("tilinumero");
        QTest::addColumn<QString>("iban");
        QTest::newRow("Nordea") << "123456-785" << "FI2112345600000785";
        QTest::newRow("savings bank keeps a digit") << "440520-2036082" << "FI7944052020036082";
        QTest::newRow("Danske Bank") << "800014-50267" << "FI1680001400050267";
        QTest::newRow("blanks around the dash") << " 123456 - 785 " << "FI2112345600000785";
        QTest::newRow("wrong Luhn digit") << "123456-786" << "";
        QTest::newRow("five-digit bank part") << "12345-785" << "";
    }

    void oldAccountNumber()
    {
        QFETCH(QString, tilinumero);
        QFETCH(QString, iban);
        QCOMPARE(IbanVanhastaTilinumerosta(tilinumero), iban);
        if (!iban.isEmpty())
            QVERIFY(IbanOnKelvollinen(iban));
    }

    void finnishBank_data()
    {
        QTest::addColumn<QString>("tilinalku"); // a Finnish account's first digits, or a whole foreign IBAN
        QTest::addColumn<QString>("nimi");
        QTest::addColumn<QString>("bic");
        QTest::newRow("1") << "123456" << "Nordea" << "NDEAFIHH";
        QTest::newRow("34") << "340000" << "Danske Bank" << "DABAFIHX";
        QTest::newRow("405") << "405500" << "Aktia" << "HELSFIHH";
        QTest::newRow("497") << "497000" << "Aktia" << "HELSFIHH";
        QTest::newRow("47") << "470000" << "POP Pankit" << "POPFFI22";
        QTest::newRow("other 4xx") << "440520" << "Säästöpankit" << "ITELFIHH";
        QTest::newRow("799") << "799000" << "Holvi" << "HOLVFIHH";
        QTest::newRow("unknown 3x") << "300000" << "" << "";
        QTest::newRow("7 other than Holvi") << "710000" << "" << "";
        QTest::newRow("foreign") << "DE89370400440532013000" << "" << "";
    }

    void finnishBank()
    {
        QFETCH(QString, tilinalku);
        QFETCH(QString, nimi);
        QFETCH(QString, bic);
        const QString iban = tilinalku.startsWith(u'D') ? tilinalku : ibanTilista(tilinalku + QStringLiteral("00000000"));
        const SuomalainenPankki p = SuomalainenPankkiIbanista(iban);
        QCOMPARE(p.nimi, nimi);
        QCOMPARE(p.bic, bic);
    }

    void bicValidity_data()
    {
        QTest::addColumn<QString>("bic");
        QTest::addColumn<bool>("kelvollinen");
        QTest::newRow("eight") << "NDEAFIHH" << true;
        QTest::newRow("with branch") << "COBADEFFXXX" << true;
        QTest::newRow("digits in the location") << "POPFFI22" << true;
        QTest::newRow("too short") << "NDEAFI" << false;
        QTest::newRow("unknown country") << "NDEAXXHH" << false;
        QTest::newRow("digit in the bank part") << "ND3AFIHH" << false;
    }

    void bicValidity()
    {
        QFETCH(QString, bic);
        QFETCH(bool, kelvollinen);
        QCOMPARE(BicOnKelvollinen(bic), kelvollinen);
    }

    // --- the account the user typed in the settings ---

    void accountFromText_data()
    {
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<QString>("iban");
        QTest::addColumn<QString>("bic");
        QTest::addColumn<QString>("pankki");
        QTest::addColumn<QString>("virhe");
        QTest::newRow("printed with the bank") << "FI21 1234 5600 0007 85 Nordea" << "FI2112345600000785" << "NDEAFIHH" << "Nordea" << "";
        QTest::newRow("machine form alone") << "FI2112345600000785" << "FI2112345600000785" << "NDEAFIHH" << "Nordea" << "";
        QTest::newRow("printed alone") << "FI21 1234 5600 0007 85" << "FI2112345600000785" << "NDEAFIHH" << "Nordea" << "";
        QTest::newRow("bank before") << "Osuuspankki FI38 5720 0080 0473 66" << "FI3857200080047366" << "OKOYFIHH" << "Osuuspankki" << "";
        QTest::newRow("short bank name after") << "FI38 5720 0080 0473 66 OP" << "FI3857200080047366" << "OKOYFIHH" << "OP" << "";
        QTest::newRow("labels only") << "IBAN: FI21 1234 5600 0007 85, BIC: NDEAFIHH" << "FI2112345600000785" << "NDEAFIHH" << "Nordea" << "";
        QTest::newRow("BIC in brackets") << "Nordea (NDEAFIHH) FI21 1234 5600 0007 85" << "FI2112345600000785" << "NDEAFIHH" << "Nordea" << "";
        QTest::newRow("the user's BIC wins") << "Aktia FI21 1234 5600 0007 85 HELSFIHH" << "FI2112345600000785" << "HELSFIHH" << "Aktia" << "";
        QTest::newRow("lower case") << "fi21 1234 5600 0007 85 nordea" << "FI2112345600000785" << "NDEAFIHH" << "nordea" << "";
        QTest::newRow("old national number") << "Nordea 123456-785" << "FI2112345600000785" << "NDEAFIHH" << "Nordea" << "";
        QTest::newRow("foreign with BIC") << "DE89 3704 0044 0532 0130 00 Commerzbank COBADEFFXXX" << "DE89370400440532013000"
                                          << "COBADEFFXXX" << "Commerzbank" << "";
        QTest::newRow("foreign, letters in the account") << "GB82 WEST 1234 5698 7654 32" << "GB82WEST12345698765432" << "" << "" << "";
        QTest::newRow("second account after a bad one") << "FI22 1234 5600 0007 85 / FI21 1234 5600 0007 85"
                                                        << "FI2112345600000785" << "NDEAFIHH" << "FI22 1234 5600 0007 85" << "";
        QTest::newRow("wrong check digits") << "FI22 1234 5600 0007 85 Nordea" << "" << "" << ""
                                            << "Tilinumeron FI22 1234 5600 0007 85 tarkiste ei täsmää.";
        QTest::newRow("a digit missing") << "FI21 1234 5600 0007 8 Nordea" << "" << "" << ""
                                         << "Tilinumerossa FI21 1234 5600 0007 8 on 17 merkkiä; maatunnuksella FI niitä pitää olla 18.";
        QTest::newRow("old number, wrong Luhn digit") << "123456-786 Nordea" << "" << "" << ""
                                                      << "Tilinumeron 123456-786 tarkiste ei täsmää.";
        QTest::newRow("bank name only") << "Nordea" << "" << "" << "" << "Tekstissä \"Nordea\" ei ole tilinumeroa.";
        QTest::newRow("empty") << " " << "" << "" << "" << "Tilinumero puuttuu.";
    }

    void accountFromText()
    {
        QFETCH(QString, teksti);
        QFETCH(QString, iban);
        QFETCH(QString, bic);
        QFETCH(QString, pankki);
        QFETCH(QString, virhe);
        const PankkitiliTulos t = PankkitiliTekstista(teksti);
        QCOMPARE(t.virhe, virhe);
        QCOMPARE(t.onnistui(), virhe.isEmpty());
        if (!t.onnistui())
            return;
        QCOMPARE(t.tili.iban, iban);
        QCOMPARE(t.tili.bic, bic);
        QCOMPARE(t.tili.pankki, pankki);
    }

    void everyMistypedDigitIsCaught()
    {
        // A typo in the settings must never turn into another account that looks valid.
        const QString oikea = QStringLiteral("FI21 1234 5600 0007 85 Nordea");
        for (qsizetype i = 2; i < 22; ++i) {
            if (!oikea[i].isDigit())
                continue;
            for (char16_t d = u'0'; d <= u'9'; ++d) {
                if (d == oikea[i].unicode())
                    continue;
                QString vaara = oikea;
                vaara[i] = QChar(d);
                const PankkitiliTulos t = PankkitiliTekstista(vaara);
                QVERIFY2(!t.onnistui(), qPrintable(vaara));
                QVERIFY(t.virhe.endsWith(QStringLiteral("tarkiste ei täsmää.")));
            }
        }
    }

    // --- the bank barcode ---

    void barcode_data()
    {
        QTest::addColumn<QString>("iban");
        QTest::addColumn<QString>("summa");
        QTest::addColumn<QString>("viite");
        QTest::addColumn<QDate>("erapaiva");
        QTest::addColumn<QString>("numerot");
        QTest::newRow("v4 example 1") << "FI58 1017 1000 0001 22" << "482,99" << "55958 22432 94671" << QDate(2012, 1, 31)
                                      << "458101710000001220004829900000000559582243294671120131";
        QTest::newRow("v4 example 2") << "FI79 4405 2020 0360 82" << "4 883,15" << "86851 62596 19897" << QDate(2010, 6, 12)
                                      << "479440520200360820048831500000000868516259619897100612";
        QTest::newRow("v4 example 3, no due date") << "FI16 8000 1400 0502 67" << "935,85" << "78777679656628687" << QDate()
                                                   << "416800014000502670009358500000078777679656628687000000";
        QTest::newRow("v5 example") << "FI58 1017 1000 0001 22" << "482,99" << "RF06 5595 8224 3294 671" << QDate(2010, 1, 31)
                                    << "558101710000001220004829906000000559582243294671100131";
        QTest::newRow("largest amount") << "FI2112345600000785" << "999999,99" << "1232" << QDate(2025, 2, 28)
                                        << "421123456000007859999999900000000000000000001232250228";
        QTest::newRow("no amount") << "FI2112345600000785" << "0" << "1232" << QDate(2025, 2, 28)
                                   << "421123456000007850000000000000000000000000001232250228";
        QTest::newRow("zero-padded reference") << "FI2112345600000785" << "25" << "00000000000000001232" << QDate(2025, 2, 28)
                                               << "421123456000007850000250000000000000000000001232250228";
        QTest::newRow("sub-cent rounded half to even") << "FI2112345600000785" << "25,005" << "1232" << QDate(2025, 2, 28)
                                                       << "421123456000007850000250000000000000000000001232250228";
    }

    void barcode()
    {
        QFETCH(QString, iban);
        QFETCH(QString, summa);
        QFETCH(QString, viite);
        QFETCH(QDate, erapaiva);
        QFETCH(QString, numerot);
        const PankkiviivakoodiTulos t = Pankkiviivakoodi(iban, euroa(summa.toUtf8().constData()), viite, erapaiva);
        QCOMPARE(t.syy, QString());
        QCOMPARE(t.numerot, numerot);
        QCOMPARE(t.numerot.size(), 54);
    }

    void noBarcode_data()
    {
        QTest::addColumn<QString>("iban");
        QTest::addColumn<QString>("summa");
        QTest::addColumn<QString>("viite");
        QTest::addColumn<QString>("syy");
        QTest::newRow("foreign IBAN") << "DE89 3704 0044 0532 0130 00" << "10" << "1232"
                                      << "Viivakoodia ei voi tehdä: tilinumero DE89 3704 0044 0532 0130 00 ei ole suomalainen.";
        QTest::newRow("wrong IBAN check") << "FI22 1234 5600 0007 85" << "10" << "1232"
                                          << "Viivakoodia ei voi tehdä: tilinumero FI22 1234 5600 0007 85 ei ole kelvollinen IBAN.";
        QTest::newRow("no account") << "" << "10" << "1232" << "Viivakoodia ei voi tehdä: tilinumero puuttuu.";
        QTest::newRow("amount over the field") << "FI2112345600000785" << "1000000" << "1232"
                                               << "Viivakoodia ei voi tehdä: summa on yli 999 999,99 euroa.";
        QTest::newRow("a cent over, after rounding") << "FI2112345600000785" << "999999,9951" << "1232"
                                                     << "Viivakoodia ei voi tehdä: summa on yli 999 999,99 euroa.";
        QTest::newRow("credit note") << "FI2112345600000785" << "-5" << "1232" << "Viivakoodia ei voi tehdä: summa on negatiivinen.";
        QTest::newRow("no reference") << "FI2112345600000785" << "10" << " " << "Viivakoodia ei voi tehdä: viitenumero puuttuu.";
        QTest::newRow("letter in a national reference") << "FI2112345600000785" << "10" << "12A44"
                                                        << "Viivakoodia ei voi tehdä: viitenumero 12A44 ei ole kelvollinen.";
        QTest::newRow("wrong check digit") << "FI2112345600000785" << "10" << "12345"
                                           << "Viivakoodia ei voi tehdä: viitenumero 12345 ei ole kelvollinen.";
        QTest::newRow("RF body with letters") << "FI2112345600000785" << "10" << "RF47ABC123"
                                              << "Viivakoodia ei voi tehdä: RF-viitteessä RF47 ABC1 23 on kirjaimia.";
        QTest::newRow("wrong RF check") << "FI2112345600000785" << "10" << "RF35 1234 561"
                                        << "Viivakoodia ei voi tehdä: RF-viite RF35 1234 561 ei ole kelvollinen.";
    }

    void noBarcode()
    {
        QFETCH(QString, iban);
        QFETCH(QString, summa);
        QFETCH(QString, viite);
        QFETCH(QString, syy);
        const PankkiviivakoodiTulos t = Pankkiviivakoodi(iban, euroa(summa.toUtf8().constData()), viite, QDate(2025, 2, 28));
        QVERIFY(!t.onnistui());
        QCOMPARE(t.numerot, QString());
        QCOMPARE(t.syy, syy);
    }

    // --- the EPC QR payload ---

    void epcQr_data()
    {
        QTest::addColumn<QString>("bic");
        QTest::addColumn<QString>("saaja");
        QTest::addColumn<QString>("iban");
        QTest::addColumn<QString>("summa"); // empty: none
        QTest::addColumn<QString>("viite");
        QTest::addColumn<QString>("viesti");
        QTest::addColumn<QDate>("erapaiva");
        QTest::addColumn<QString>("sisalto");
        const QDate era(2025, 2, 28);
        QTest::newRow("worked example") << "NDEAFIHH" << "Esimerkkiseura ry" << "FI3715903000000776" << "25,00" << "1234561" << ""
                                        << era
                                        << "BCD\n001\n1\nSCT\nNDEAFIHH\nEsimerkkiseura ry\nFI3715903000000776\nEUR25.00\n\nRF341234561\n\n"
                                           "ReqdExctnDt/2025-02-28";
        QTest::newRow("printed forms in, machine forms out")
            << "ndeafihh" << "  Esimerkkiseura ry " << "FI37 1590 3000 0007 76" << "1 234,5" << "12 34561" << "" << era
            << "BCD\n001\n1\nSCT\nNDEAFIHH\nEsimerkkiseura ry\nFI3715903000000776\nEUR1234.50\n\nRF341234561\n\n"
               "ReqdExctnDt/2025-02-28";
        QTest::newRow("no BIC: version 002") << "" << "Seura ry" << "FI3715903000000776" << "0,5" << "RF18 5390 0754 7034" << ""
                                             << era
                                             << "BCD\n002\n1\nSCT\n\nSeura ry\nFI3715903000000776\nEUR0.50\n\nRF18539007547034\n\n"
                                                "ReqdExctnDt/2025-02-28";
        QTest::newRow("no amount, no due date") << "NDEAFIHH" << "Seura ry" << "FI3715903000000776" << "" << "13013" << ""
                                                << QDate() << "BCD\n001\n1\nSCT\nNDEAFIHH\nSeura ry\nFI3715903000000776\n\n\nRF8413013";
        QTest::newRow("zero amount is none") << "NDEAFIHH" << "Seura ry" << "FI3715903000000776" << "0" << "13013" << ""
                                             << era
                                             << "BCD\n001\n1\nSCT\nNDEAFIHH\nSeura ry\nFI3715903000000776\n\n\nRF8413013\n\n"
                                                "ReqdExctnDt/2025-02-28";
        QTest::newRow("message when no reference") << "NDEAFIHH" << "Seura ry" << "FI3715903000000776" << "30" << ""
                                                   << "Jäsenmaksu 2025,\nkiitos!" << QDate()
                                                   << "BCD\n001\n1\nSCT\nNDEAFIHH\nSeura ry\nFI3715903000000776\nEUR30.00\n\n\n"
                                                      "Jäsenmaksu 2025, kiitos!";
        QTest::newRow("reference excludes the message") << "NDEAFIHH" << "Seura ry" << "FI3715903000000776" << "30" << "13013"
                                                        << "Jäsenmaksu" << QDate()
                                                        << "BCD\n001\n1\nSCT\nNDEAFIHH\nSeura ry\nFI3715903000000776\nEUR30.00\n\n"
                                                           "RF8413013";
        QTest::newRow("foreign IBAN") << "COBADEFFXXX" << "Verein e.V." << "DE89 3704 0044 0532 0130 00" << "12" << "" << ""
                                      << era
                                      << "BCD\n001\n1\nSCT\nCOBADEFFXXX\nVerein e.V.\nDE89370400440532013000\nEUR12.00\n\n\n\n"
                                         "ReqdExctnDt/2025-02-28";
        QTest::newRow("long club name with & and '")
            << "NDEAFIHH"
            << "Tampereen Kävely- & Pyöräilyseura 'Polkijat' ry, Ylöjärven ja Nokian osasto"
            << "FI3715903000000776" << "25" << "1234561" << "" << era
            << "BCD\n001\n1\nSCT\nNDEAFIHH\nTampereen Kävely- & Pyöräilyseura 'Polkijat' ry, Ylöjärven ja Nokian o\n"
               "FI3715903000000776\nEUR25.00\n\nRF341234561\n\nReqdExctnDt/2025-02-28";
        QTest::newRow("largest amount") << "NDEAFIHH" << "Seura ry" << "FI3715903000000776" << "999999999,99" << "13013" << ""
                                        << QDate() << "BCD\n001\n1\nSCT\nNDEAFIHH\nSeura ry\nFI3715903000000776\nEUR999999999.99\n\n"
                                                      "RF8413013";
    }

    void epcQr()
    {
        QFETCH(QString, bic);
        QFETCH(QString, saaja);
        QFETCH(QString, iban);
        QFETCH(QString, summa);
        QFETCH(QString, viite);
        QFETCH(QString, viesti);
        QFETCH(QDate, erapaiva);
        QFETCH(QString, sisalto);
        EpcQrTiedot t;
        t.bic = bic;
        t.saaja = saaja;
        t.iban = iban;
        if (!summa.isEmpty())
            t.summa = euroa(summa.toUtf8().constData());
        t.viite = viite;
        t.viesti = viesti;
        t.erapaiva = erapaiva;
        const EpcQrTulos q = EpcQrSisalto(t);
        QCOMPARE(q.syy, QString());
        QCOMPARE(QString::fromUtf8(q.sisalto), sisalto);
        QVERIFY(q.sisalto.size() <= 331);
        QVERIFY(!q.sisalto.endsWith('\n'));
    }

    void noEpcQr_data()
    {
        QTest::addColumn<QString>("kentta");
        QTest::addColumn<QString>("arvo");
        QTest::addColumn<QString>("syy");
        QTest::newRow("no name") << "saaja" << " " << "QR-koodia ei voi tehdä: saajan nimi puuttuu.";
        QTest::newRow("no account") << "iban" << "" << "QR-koodia ei voi tehdä: Tilinumero puuttuu.";
        QTest::newRow("wrong IBAN check") << "iban" << "FI22 1234 5600 0007 85"
                                          << "QR-koodia ei voi tehdä: Tilinumeron FI22 1234 5600 0007 85 tarkiste ei täsmää.";
        QTest::newRow("bad BIC") << "bic" << "NDEAFI" << "QR-koodia ei voi tehdä: BIC-tunnus NDEAFI ei ole kelvollinen.";
        QTest::newRow("bad purpose") << "tarkoitus" << "JÄSEN" << "QR-koodia ei voi tehdä: maksun tarkoituskoodi JÄSEN ei ole neljä kirjainta.";
        QTest::newRow("bad reference") << "viite" << "12345" << "QR-koodia ei voi tehdä: viitenumero 12345 ei ole kelvollinen.";
        QTest::newRow("bad RF") << "viite" << "RF35 1234 561" << "QR-koodia ei voi tehdä: viitenumero RF35 1234 561 ei ole kelvollinen.";
        QTest::newRow("amount too large") << "summa" << "1000000000" << "QR-koodia ei voi tehdä: summa on yli 999 999 999,99 euroa.";
        QTest::newRow("negative amount") << "summa" << "-1" << "QR-koodia ei voi tehdä: summa on negatiivinen.";
        QTest::newRow("over 331 bytes") << "pitkat" << "" << "QR-koodia ei voi tehdä: sisältö on 474 tavua, enintään 331 mahtuu.";
    }

    void noEpcQr()
    {
        QFETCH(QString, kentta);
        QFETCH(QString, arvo);
        QFETCH(QString, syy);
        EpcQrTiedot t;
        t.bic = QStringLiteral("NDEAFIHH");
        t.saaja = QStringLiteral("Seura ry");
        t.iban = QStringLiteral("FI3715903000000776");
        t.summa = Currency::fromUnits(10);
        t.viite = QStringLiteral("13013");
        if (kentta == QLatin1String("saaja"))
            t.saaja = arvo;
        else if (kentta == QLatin1String("iban"))
            t.iban = arvo;
        else if (kentta == QLatin1String("bic"))
            t.bic = arvo;
        else if (kentta == QLatin1String("tarkoitus"))
            t.tarkoitus = arvo;
        else if (kentta == QLatin1String("viite"))
            t.viite = arvo;
        else if (kentta == QLatin1String("summa"))
            t.summa = euroa(arvo.toUtf8().constData());
        else if (kentta == QLatin1String("pitkat")) {
            // Seventy two-byte letters in the name and 140 in the message, with no reference.
            t.saaja = QString(80, QChar(0x00C4));
            t.viite.clear();
            t.viesti = QString(150, QChar(0x00E4));
        }
        const EpcQrTulos q = EpcQrSisalto(t);
        QVERIFY(!q.onnistui());
        QCOMPARE(q.sisalto, QByteArray());
        QCOMPARE(q.syy, syy);
    }

    void epcQrNameCutBetweenCharacters()
    {
        // A character outside the BMP at the cut must not be split into half a surrogate pair.
        EpcQrTiedot t;
        t.saaja = QString(69, u'a') + QString::fromUtf8("\xF0\x9F\x8E\xBE") + QStringLiteral("b");
        t.iban = QStringLiteral("FI3715903000000776");
        const EpcQrTulos q = EpcQrSisalto(t);
        QVERIFY(q.onnistui());
        const QList<QByteArray> rivit = q.sisalto.split('\n');
        QCOMPARE(rivit.size(), 7);
        QCOMPARE(rivit[5], QByteArray(69, 'a'));
        QVERIFY(QString::fromUtf8(q.sisalto).toUtf8() == q.sisalto);
    }

    // --- the printed symbols read back ---

    void printedSymbolsReadBack_data()
    {
        QTest::addColumn<int>("laji");
        QTest::addColumn<QByteArray>("sisalto");
        EpcQrTiedot t;
        t.bic = QStringLiteral("NDEAFIHH");
        t.saaja = QStringLiteral("Tampereen Kävely- & Pyöräilyseura 'Polkijat' ry, Ylöjärven ja Nokian osasto");
        t.iban = QStringLiteral("FI3715903000000776");
        t.summa = euroa("1 234,50");
        t.viite = QStringLiteral("1234561");
        t.erapaiva = QDate(2025, 2, 28);
        QTest::newRow("EPC QR with Finnish letters") << int(BARCODE_QRCODE) << EpcQrSisalto(t).sisalto;
        t.viite.clear();
        t.viesti = QStringLiteral("Jäsenmaksu 2025 ja kausikortti – kiitos tuestanne!");
        QTest::newRow("EPC QR with a message") << int(BARCODE_QRCODE) << EpcQrSisalto(t).sisalto;
        QTest::newRow("bank barcode")
            << int(BARCODE_CODE128)
            << Pankkiviivakoodi(QStringLiteral("FI58 1017 1000 0001 22"), euroa("482,99"), QStringLiteral("RF06 5595 8224 3294 671"),
                                QDate(2010, 1, 31))
                   .numerot.toLatin1();
    }

    void printedSymbolsReadBack()
    {
        QFETCH(int, laji);
        QFETCH(QByteArray, sisalto);
        QVERIFY(!sisalto.isEmpty());
        if (QStandardPaths::findExecutable(QStringLiteral("zbarimg")).isEmpty())
            QSKIP("zbarimg (zbar-tools) is not installed, so the printed symbol cannot be read back");
        QTemporaryDir kansio;
        QVERIFY(kansio.isValid());
        const QString png = kansio.filePath(QStringLiteral("koodi.png"));
        const Symboli s = kirjoitaKoodi(laji, sisalto, png);
        QVERIFY(s);
        if (laji == BARCODE_CODE128) {
            // Character set C all through: start, 27 digit pairs and the check character at 11
            // modules each, and the 13-module stop.
            QCOMPARE(s->width, 11 + 27 * 11 + 11 + 13);
        }
        QCOMPARE(luePng(png), sisalto);
    }
};

QTEST_GUILESS_MAIN(TestPankki)
#include "tst_pankki.moc"
