#include "payments/Camt054Lukija.h"
#include "payments/ViiteaineistoLukija.h"
#include "testiapu.h"
#include "viitetiedostot.h"

#include <QTemporaryDir>
#include <QtTest>

using viitetiedostot::Maksu;
using viitetiedostot::Muoto;

namespace {

QList<ViiteEra> Lue(const QByteArray &tavut)
{
    return ViiteaineistoLukija().LueTavut(tavut);
}

QString Kentat(const ViiteTapahtuma &t)
{
    return QStringList{t.Tunnus,     t.Tilinumero, t.Kirjauspaiva, t.Maksupaiva,    t.Arkistointitunnus,
                       t.Viitenumero, t.Nimi,      t.Rahayksikko,  t.NimenLahde,    t.Rahamaara,
                       t.Oikaisutunnus, t.Valitystapa, t.Palautekoodi}
        .join(u'|');
}

QString Kentat(const ViiteSummat &s)
{
    return QStringList{s.TapahtumatKpl, s.TapahtumatSumma,   s.OikaisutKpl,
                       s.OikaisutSumma, s.EpaonnistuneetKpl, s.EpaonnistuneetSumma}
        .join(u'|');
}

// What both formats carry of a batch: the payer's name, the bank group and the biller code, the
// name source and the delivery channel are the fixed-width file's alone.
QStringList Yhteiset(const QList<ViiteEra> &erat)
{
    QStringList rivit;
    for (const ViiteEra &e : erat) {
        rivit << QStringList{e.Tunnus, e.Paivamaara, e.Aika, e.Rahayksikko, Kentat(e.Summat)}.join(u'|');
        for (const ViiteTapahtuma &t : e.Tapahtumat)
            rivit << QStringList{t.Tunnus,        t.Tilinumero,  t.Kirjauspaiva, t.Maksupaiva, t.Arkistointitunnus,
                                 t.Viitenumero,   t.Rahayksikko, t.Rahamaara,    t.Oikaisutunnus}
                         .join(u'|');
    }
    return rivit;
}

QByteArray Tiedosto(const QString &nimi)
{
    QFile f(QFINDTESTDATA(QStringLiteral("payments/data/") + nimi));
    if (!f.open(QIODevice::ReadOnly))
        qFatal("testiaineisto puuttuu: %s", qPrintable(nimi));
    return f.readAll();
}

const QList<Maksu> &Maksut()
{
    static const QList<Maksu> m{
        {QStringLiteral("250114593ABCD001"), QStringLiteral("1232"), QStringLiteral("VIRTANEN MAT"), 2500},
        {QStringLiteral("250114593ABCD002"), QStringLiteral("13013"), QStringLiteral("KORHONEN ANN"), 4000, false,
         QStringLiteral("2025-01-14"), QStringLiteral("2025-01-14"), true},
        {QStringLiteral("250114593ABCD004"), QStringLiteral("1234561"), QStringLiteral("NIEMI LIISA"), 123456},
        {QStringLiteral("250114593ABCD003"), QStringLiteral("1232"), QStringLiteral("VIRTANEN MAT"), 2500, true},
    };
    return m;
}

const QString KtlRivi3 = QStringLiteral(
    "315903000000776250114250113250114593ABCD00100000000000000001232VIRTANEN MAT1J00000025000A");
const QString KtlRivi0 = QStringLiteral("02501150704151234567891");
const QString KtlRivi9 = QStringLiteral("9000001000000025000000000000000000000000000000000000");

} // namespace

class TestViiteaineisto : public QObject {
    Q_OBJECT

private slots:
    // The fixed-width example: every field as it stands in the file, the totals from record 9.
    void ktlEsimerkki()
    {
        const QList<ViiteEra> erat = Lue(Tiedosto(QStringLiteral("esimerkki.ktl")));
        QCOMPARE(erat.size(), 1);
        const ViiteEra &e = erat[0];
        QCOMPARE(QStringList({e.Tunnus, e.Paivamaara, e.Aika, e.Pankkiryhma, e.Laskuttaja, e.Rahayksikko}).join(u'|'),
                 QStringLiteral("0|250115|0704|15|123456789|1"));
        QCOMPARE(e.Tapahtumat.size(), 3);
        QCOMPARE(Kentat(e.Tapahtumat[0]),
                 QStringLiteral("3|15903000000776|250114|250113|250114593ABCD001|00000000000000001232|VIRTANEN MAT|1|J|"
                                "0000002500|0|A| "));
        QCOMPARE(Kentat(e.Tapahtumat[1]),
                 QStringLiteral("3|15903000000776|250114|250114|250114593ABCD002|00000000000000013013|KORHONEN ANN|1|A|"
                                "0000004000|0|K| "));
        QCOMPARE(Kentat(e.Tapahtumat[2]),
                 QStringLiteral("3|15903000000776|250114|250110|250114593ABCD003|00000000000000001232|VIRTANEN MAT|1|J|"
                                "0000002500|1|J| "));
        QCOMPARE(Kentat(e.Summat), QStringLiteral("000002|00000006500|000001|00000002500|000000|00000000000"));
        QVERIFY(e.SummatTiedostosta);
    }

    // The camt.054 example holds the same payments: an RF reference comes out national, the
    // reversed debit as a correction, the totals counted.
    void camtEsimerkki()
    {
        const QList<ViiteEra> erat = Lue(Tiedosto(QStringLiteral("esimerkki_camt054.xml")));
        QCOMPARE(erat.size(), 1);
        const ViiteEra &e = erat[0];
        QCOMPARE(QStringList({e.Tunnus, e.Paivamaara, e.Aika, e.Pankkiryhma, e.Laskuttaja, e.Rahayksikko}).join(u'|'),
                 QStringLiteral("0|250115|0704|||1"));
        QCOMPARE(e.Tapahtumat.size(), 3);
        QCOMPARE(Kentat(e.Tapahtumat[0]),
                 QStringLiteral("3|15903000000776|250114|250113|250114593ABCD001|00000000000000001232|Matti Virtanen|1||"
                                "0000002500|0||"));
        QCOMPARE(Kentat(e.Tapahtumat[1]),
                 QStringLiteral("3|15903000000776|250114|250114|250114593ABCD002|00000000000000013013|Anna Korhonen|1||"
                                "0000004000|0||"));
        QCOMPARE(Kentat(e.Tapahtumat[2]),
                 QStringLiteral("3|15903000000776|250114|250114|250114593ABCD003|00000000000000001232||1||"
                                "0000002500|1||"));
        QCOMPARE(Kentat(e.Summat), Kentat(Lue(Tiedosto(QStringLiteral("esimerkki.ktl")))[0].Summat));
    }

    // The same payments in either format, in each shape a bank writes camt.054, give the same
    // batches.
    void samatMaksutKummastakin_data()
    {
        QTest::addColumn<int>("muoto");
        QTest::newRow("one entry for the batch") << int(Muoto::Eraittain);
        QTest::newRow("one entry per payment") << int(Muoto::Yksittain);
        QTest::newRow("version 08 layout") << int(Muoto::Versio08);
    }

    void samatMaksutKummastakin()
    {
        QFETCH(int, muoto);
        const QList<ViiteEra> ktl = Lue(viitetiedostot::Ktl(Maksut()));
        const QList<ViiteEra> camt = Lue(viitetiedostot::Camt(Maksut(), Muoto(muoto)));
        QCOMPARE(Yhteiset(camt), Yhteiset(ktl));
        QCOMPARE(ktl[0].Tapahtumat.size(), 4);
        QCOMPARE(camt[0].Tapahtumat[2].Nimi, QStringLiteral("NIEMI LIISA"));
    }

    // Line ends, blank lines, short lines and the DOS end mark change nothing.
    void ktlRivit_data()
    {
        QTest::addColumn<QByteArray>("tiedosto");
        const QByteArray lf = QStringList{KtlRivi0, KtlRivi3, KtlRivi9}.join(u'\n').toLatin1();
        QTest::newRow("LF, last line without end") << lf;
        QTest::newRow("CRLF") << QByteArray(lf).replace("\n", "\r\n") + "\r\n";
        QTest::newRow("CR") << QByteArray(lf).replace("\n", "\r") + "\r";
        QTest::newRow("blank lines") << "\r\n" + QByteArray(lf).replace("\n", "\n   \n\n") + "\n\n";
        QTest::newRow("padded to 90") << QStringList{KtlRivi0.leftJustified(90), KtlRivi3.leftJustified(90),
                                                     KtlRivi9.leftJustified(95)}
                                             .join(u'\n')
                                             .toLatin1();
        QTest::newRow("DOS end mark") << lf + "\r\n\x1A";
        QTest::newRow("UTF-8 byte-order mark") << "\xEF\xBB\xBF" + lf;
    }

    void ktlRivit()
    {
        QFETCH(QByteArray, tiedosto);
        const QList<ViiteEra> erat = Lue(tiedosto);
        QCOMPARE(erat.size(), 1);
        QCOMPARE(erat[0].Tapahtumat.size(), 1);
        QCOMPARE(erat[0].Tapahtumat[0].Viitenumero, QStringLiteral("00000000000000001232"));
        QCOMPARE(erat[0].Tapahtumat[0].Palautekoodi, QStringLiteral(" "));
        QCOMPARE(erat[0].Summat.TapahtumatSumma, QStringLiteral("00000002500"));
    }

    // Names in the 7-bit national letters, in ISO-8859-1 and in UTF-8 read the same.
    void kansallisetKirjaimet_data()
    {
        QTest::addColumn<QByteArray>("nimi");
        QTest::addColumn<QString>("odotettu");
        QTest::newRow("7-bit upper case") << QByteArray("[KKIL] \\ST\\") << QStringLiteral("ÄKKILÅ ÖSTÖ");
        QTest::newRow("7-bit lower case") << QByteArray("P{|}KK\\ M  ") << QStringLiteral("PäöåKKÖ M  ");
        QTest::newRow("ISO-8859-1") << QByteArray("\xC4KKIL\xC5 \xD6ST") << QStringLiteral("ÄKKILÅ ÖST");
        QTest::newRow("UTF-8") << QStringLiteral("ÄKKILÅ ÖSTÖ").toUtf8() << QStringLiteral("ÄKKILÅ ÖSTÖ");
    }

    void kansallisetKirjaimet()
    {
        QFETCH(QByteArray, nimi);
        QFETCH(QString, odotettu);
        const QByteArray rivi = KtlRivi3.left(63).toLatin1() + nimi
                                + QByteArray(12 - odotettu.size(), ' ') + KtlRivi3.mid(75).toLatin1();
        const QList<ViiteEra> erat = Lue(KtlRivi0.toLatin1() + "\r\n" + rivi + "\r\n" + KtlRivi9.toLatin1());
        QCOMPARE(erat[0].Tapahtumat[0].Nimi, odotettu.leftJustified(12));
        // The columns after the name did not move.
        QCOMPARE(erat[0].Tapahtumat[0].Rahamaara, QStringLiteral("0000002500"));
    }

    // A batch that ends without its record 9 gets totals counted from its payments; the next
    // batch is read as usual.
    void eraIlmanLoppusummia()
    {
        const QList<Maksu> toinen{{QStringLiteral("A2"), QStringLiteral("12344"), QStringLiteral("B"), 700}};
        const QList<ViiteEra> erat = Lue(viitetiedostot::Ktl(Maksut(), false) + viitetiedostot::Ktl(toinen)
                                         + viitetiedostot::Ktl(toinen, false));
        QCOMPARE(erat.size(), 3);
        QCOMPARE(Kentat(erat[0].Summat), QStringLiteral("000003|00000129956|000001|00000002500|000000|00000000000"));
        QVERIFY(!erat[0].SummatTiedostosta);
        QCOMPARE(erat[0].Tapahtumat.size(), 4);
        QVERIFY(erat[1].SummatTiedostosta);
        QCOMPARE(erat[1].Tapahtumat.size(), 1);
        QCOMPARE(erat[2].Summat.TapahtumatSumma, QStringLiteral("00000000700"));
        QVERIFY(!erat[2].SummatTiedostosta);
    }

    // Entries that are not reference payments are left out; a notification with nothing else
    // gives no batch at all.
    void camtKirjaukset_data()
    {
        QTest::addColumn<QString>("lisa");
        const QString debit = QStringLiteral(
            "<Ntry><Amt Ccy=\"EUR\">%1</Amt><CdtDbtInd>%2</CdtDbtInd>%3<Sts>%4</Sts>"
            "<BookgDt><Dt>2025-01-14</Dt></BookgDt><AcctSvcrRef>X</AcctSvcrRef><NtryDtls><TxDtls>"
            "<AmtDtls><TxAmt><Amt Ccy=\"USD\">%1</Amt></TxAmt></AmtDtls></TxDtls></NtryDtls></Ntry>");
        QTest::newRow("debit") << debit.arg(QStringLiteral("99.00"), QStringLiteral("DBIT"), QString(),
                                            QStringLiteral("BOOK"));
        QTest::newRow("credit reversing a debit")
            << debit.arg(QStringLiteral("99.00"), QStringLiteral("CRDT"), QStringLiteral("<RvslInd>true</RvslInd>"),
                         QStringLiteral("BOOK"));
        QTest::newRow("pending credit") << debit.arg(QStringLiteral("99.00"), QStringLiteral("CRDT"), QString(),
                                                     QStringLiteral("PDNG"));
    }

    void camtKirjaukset()
    {
        QFETCH(QString, lisa);
        QCOMPARE(Yhteiset(Lue(viitetiedostot::Camt(Maksut(), Muoto::Yksittain, lisa))),
                 Yhteiset(Lue(viitetiedostot::Ktl(Maksut()))));
        const QByteArray vainLisa = viitetiedostot::Camt({}, Muoto::Yksittain, lisa);
        QCOMPARE(Lue(vainLisa).size(), 0);
    }

    // An entry booked as a payment of its own without transaction details is still a payment;
    // a single transaction may leave its amount to the entry.
    void camtIlmanErittelya()
    {
        const QString lisa = QStringLiteral(
            "<Ntry><Amt Ccy=\"EUR\">12.5</Amt><CdtDbtInd>CRDT</CdtDbtInd><BookgDt><DtTm>2025-01-16T10:00:00+02:00"
            "</DtTm></BookgDt><AcctSvcrRef>YKSIN</AcctSvcrRef></Ntry>"
            "<Ntry><Amt Ccy=\"EUR\">3.00000</Amt><CdtDbtInd>CRDT</CdtDbtInd><BookgDt><Dt>2025-01-16</Dt></BookgDt>"
            "<NtryDtls><TxDtls><RmtInf><Strd><CdtrRefInf><Ref> 123 4561 </Ref></CdtrRefInf></Strd></RmtInf>"
            "<RltdPties><Dbtr><Nm>Maksaja</Nm></Dbtr><UltmtDbtr><Nm>Oikea Maksaja</Nm></UltmtDbtr></RltdPties>"
            "</TxDtls></NtryDtls></Ntry>");
        const QList<ViiteEra> erat = Lue(viitetiedostot::Camt({}, Muoto::Yksittain, lisa));
        QCOMPARE(erat.size(), 1);
        QCOMPARE(erat[0].Tapahtumat.size(), 2);
        QCOMPARE(Kentat(erat[0].Tapahtumat[0]),
                 QStringLiteral("3|15903000000776|250116|250116|YKSIN|||1||0000001250|0||"));
        QCOMPARE(Kentat(erat[0].Tapahtumat[1]),
                 QStringLiteral("3|15903000000776|250116|250116||00000000000001234561|Oikea Maksaja|1||0000000300|0||"));
        QCOMPARE(erat[0].Summat.TapahtumatSumma, QStringLiteral("00000001550"));
    }

    void viiteKoneelle_data()
    {
        QTest::addColumn<QString>("viite");
        QTest::addColumn<QString>("odotettu");
        QTest::newRow("national") << "1232" << "00000000000000001232";
        QTest::newRow("national with blanks and zeros") << " 00012 34561 " << "00000000000001234561";
        QTest::newRow("national with a wrong check digit") << "12345" << "00000000000000012345";
        QTest::newRow("RF of a national") << "RF8413013" << "00000000000000013013";
        QTest::newRow("RF printed form, lower case") << "rf34 1234 561" << "00000000000001234561";
        QTest::newRow("RF with a wrong check") << "RF8513013" << "RF8513013";
        QTest::newRow("RF of a body that is no national reference") << "RF18539007547034" << "RF18539007547034";
        QTest::newRow("RF with letters") << " RF71ABC123 " << "RF71ABC123";
        QTest::newRow("21 digits") << "123456789012345678901" << "123456789012345678901";
        QTest::newRow("empty") << "" << "";
    }

    void viiteKoneelle()
    {
        QFETCH(QString, viite);
        QFETCH(QString, odotettu);
        QCOMPARE(camt054::ViiteKoneelle(viite), odotettu);
    }

    // A file that cannot be read gives a Finnish message and no batches.
    void virheet_data()
    {
        QTest::addColumn<QByteArray>("tiedosto");
        QTest::addColumn<int>("numero");
        QTest::addColumn<QString>("viesti");
        const int muoto = ViiteaineistoVirhe::VaaraMuoto;
        const QByteArray r0 = KtlRivi0.toLatin1() + "\r\n";
        const QByteArray r3 = KtlRivi3.toLatin1() + "\r\n";
        const QByteArray r9 = KtlRivi9.toLatin1() + "\r\n";
        QTest::newRow("empty") << QByteArray() << muoto << "Tiedosto on tyhjä.";
        QTest::newRow("blank lines only") << QByteArray("  \r\n\r\n") << muoto << "Tiedosto on tyhjä.";
        QTest::newRow("binary") << QByteArray("0\x89PNG\r\n\x1a\n\0\0", 11) << muoto
                                << "Tiedosto ei ole viitesiirtoaineisto eikä camt.054-viiteilmoitus.";
        QTest::newRow("some text") << QByteArray("Hei!\n") << muoto
                                   << "Tiedosto ei ole viitesiirtoaineisto eikä camt.054-viiteilmoitus.";
        QTest::newRow("unknown record") << r0 + r3 + "4xx\r\n" + r9 << muoto
                                        << "Viitesiirtoaineiston rivi 3: tuntematon tietuetyyppi \"4\".";
        QTest::newRow("payment before header") << r3 + r9 << muoto
                                               << "Viitesiirtoaineiston rivi 1: maksutietue ennen erän alkutietuetta (tietue 0).";
        QTest::newRow("totals twice") << r0 + r3 + r9 + r9 << muoto
                                      << "Viitesiirtoaineiston rivi 4: erän loppusummat (tietue 9) ilman erän alkutietuetta.";
        QTest::newRow("line cut in the amount")
            << r0 + KtlRivi3.left(80).toLatin1() << muoto
            << "Viitesiirtoaineiston rivi 2: rahamäärä \"000       \" ei ole numero.";
        QTest::newRow("amount with a blank")
            << r0 + KtlRivi3.left(77).toLatin1() + "00000 2500" + KtlRivi3.mid(87).toLatin1() + "\r\n" + r9 << muoto
            << "Viitesiirtoaineiston rivi 2: rahamäärä \"00000 2500\" ei ole numero.";
        QTest::newRow("no such date")
            << r0 + KtlRivi3.left(15).toLatin1() + "250230" + KtlRivi3.mid(21).toLatin1() << muoto
            << "Viitesiirtoaineiston rivi 2: kirjauspäivä \"250230\" ei ole päivämäärä (VVKKPP).";
        QTest::newRow("reference with a letter")
            << r0 + KtlRivi3.left(55).toLatin1() + "A" + KtlRivi3.mid(56).toLatin1() << muoto
            << "Viitesiirtoaineiston rivi 2: viitenumero \"000000000000A0001232\" ei ole numero.";
        QTest::newRow("text past 90") << r0 + KtlRivi3.toLatin1() + "  X" << muoto
                                      << "Viitesiirtoaineiston rivi 2: rivillä on 92 merkkiä, tietueessa 90.";
        QTest::newRow("broken total") << r0 + r3 + "9000001000000026000000000000000000000000000000000000" << muoto
                                      << "Viitesiirtoaineiston rivi 3: erän loppusummissa on maksuja 1 (26,00 €), "
                                         "erässä 1 (25,00 €).";
        QTest::newRow("broken correction count")
            << r0 + r3 + "9000001000000025000000010000000000000000000000000000" << muoto
            << "Viitesiirtoaineiston rivi 3: erän loppusummissa on oikaisuja 1 (0,00 €), erässä 0 (0,00 €).";

        const QByteArray camt = viitetiedostot::Camt(Maksut());
        QTest::newRow("camt cut short") << camt.left(camt.size() / 2) << int(ViiteaineistoVirhe::Katkennut)
                                        << "camt.054-ilmoitus: tiedosto on katkennut kesken (rivi 5).";
        QTest::newRow("camt broken entry total")
            << QByteArray(camt).replace("<Amt Ccy=\"EUR\">1299.56</Amt>", "<Amt Ccy=\"EUR\">1299.55</Amt>") << muoto
            << "camt.054-ilmoitus: kirjaus 250114593ABCD001E: kirjauksen summa on 1\u00a0299,55 €, mutta sen maksut ovat "
               "yhteensä 1\u00a0299,56 €.";
        QTest::newRow("camt broken batch total")
            << QByteArray(camt).replace("<TtlAmt Ccy=\"EUR\">1299.56", "<TtlAmt Ccy=\"EUR\">1299.66") << muoto
            << "camt.054-ilmoitus: kirjaus 250114593ABCD001E: erän summa on 1\u00a0299,66 €, mutta sen maksut ovat "
               "yhteensä 1\u00a0299,56 €.";
        QTest::newRow("camt batch missing a payment")
            << QByteArray(camt).replace("<NbOfTxs>3</NbOfTxs>", "<NbOfTxs>4</NbOfTxs>") << muoto
            << "camt.054-ilmoitus: kirjaus 250114593ABCD001E ilmoittaa 4 maksua, mutta erittelyssä on 3.";
        QTest::newRow("camt amount with a comma") << QByteArray(camt).replace(">25.00<", ">25,00<") << muoto
                                                  << "camt.054-ilmoitus: maksun summa \"25,00\" ei ole rahamäärä.";
        QTest::newRow("camt fractions of a cent") << QByteArray(camt).replace(">25.00<", ">25.001<") << muoto
                                                  << "camt.054-ilmoitus: maksun summa \"25.001\" ei ole rahamäärä.";
        QTest::newRow("camt dollars") << QByteArray(camt).replace("Ccy=\"EUR\">25.00<", "Ccy=\"USD\">25.00<") << muoto
                                      << "camt.054-ilmoitus: tiedostossa on suoritus valuutassa USD; vain "
                                         "euromääräiset suoritukset luetaan.";
        QTest::newRow("camt bad date") << QByteArray(camt).replace("<Dt>2025-01-14</Dt></BookgDt>", "<Dt>14.1.2025</Dt></BookgDt>")
                                       << muoto
                                       << "camt.054-ilmoitus: kirjauspäivä \"14.1.2025\" ei ole vuosien 2000–2099 päivämäärä.";
        QTest::newRow("camt statement") << QByteArray(camt).replace("camt.054.001.02", "camt.053.001.02") << muoto
                                        << "camt.054-ilmoitus: tiedosto on urn:iso:std:iso:20022:tech:xsd:camt.053.001.02, "
                                           "ei viiteilmoitus (camt.054).";
        QTest::newRow("camt without namespace") << QByteArray("<Document><x/></Document>") << muoto
                                                << "camt.054-ilmoitus: tiedostosta puuttuu ISO 20022 -nimiavaruus.";
        QTest::newRow("other XML") << QByteArray("<html><body/></html>") << muoto
                                   << "camt.054-ilmoitus: tiedoston juurielementti on html, ei Document.";
        QTest::newRow("camt broken XML") << QByteArray(camt).replace("</Ntfctn>", "</Ntfctm>") << muoto
                                         << "camt.054-ilmoitus: XML-rakenne on rikki rivillä 10, sarakkeessa 9.";
        QTest::newRow("camt without a time")
            << QByteArray(camt).replace("<CreDtTm>2025-01-15T07:04:01</CreDtTm>", "") << muoto
            << "camt.054-ilmoitus: ilmoituksen luontiaika (CreDtTm) puuttuu.";
        QTest::newRow("too large") << QByteArray(ViiteaineistoLukija::SuurinKoko + 1, '0') << muoto
                                   << "Tiedosto on liian suuri viitesiirtoaineistoksi (enintään 50,0 Mt).";
    }

    void virheet()
    {
        QFETCH(QByteArray, tiedosto);
        QFETCH(int, numero);
        QFETCH(QString, viesti);
        try {
            const QList<ViiteEra> erat = Lue(tiedosto);
            QFAIL(qPrintable(QStringLiteral("luettiin %1 erää").arg(erat.size())));
        } catch (const ViiteaineistoVirhe &v) {
            QCOMPARE(v.viesti(), viesti);
            QCOMPARE(v.numero(), numero);
        }
    }

    // The file on disk: read as its bytes, and the failures of the file itself.
    void tiedostosta()
    {
        const QString esimerkki = QFINDTESTDATA("payments/data/esimerkki.ktl");
        QCOMPARE(Yhteiset(ViiteaineistoLukija().LueTiedosto(esimerkki)),
                 Yhteiset(Lue(Tiedosto(QStringLiteral("esimerkki.ktl")))));
        QTemporaryDir kansio;
        const QList<std::pair<QString, int>> huonot{
            {kansio.filePath(QStringLiteral("puuttuu.ktl")), ViiteaineistoVirhe::EiLoydy},
            {kansio.path(), ViiteaineistoVirhe::LukuVirhe},
        };
        for (const auto &[polku, numero] : huonot) {
            try {
                ViiteaineistoLukija().LueTiedosto(polku);
                QFAIL(qPrintable(polku));
            } catch (const ViiteaineistoVirhe &v) {
                QCOMPARE(v.numero(), numero);
                QVERIFY2(v.viesti().contains(polku), qPrintable(v.viesti()));
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestViiteaineisto)
#include "tst_viiteaineisto.moc"
