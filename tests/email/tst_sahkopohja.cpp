// The template language of the e-mail invoices: tokens by width and case, the row block with its
// wrapped texts, broken tags and widths left as text, values never merged twice, and the template
// file read as UTF-8 or as the Windows text of the older templates.
#include "email/Sahkopohja.h"

#include <QtTest>

namespace {

Laskuttaja seura()
{
    return {QStringLiteral("Pallo \"Kerho\" ry"), QStringLiteral("Kenttätie 1"), QStringLiteral("00100"), QStringLiteral("Helsinki"),
            QStringLiteral("09 123 456"), QStringLiteral("09 123 457"), QStringLiteral("kerho@example.fi"),
            QStringLiteral("www.example.fi"), QStringLiteral("1234567-8")};
}

Sahkopostilasku lasku()
{
    Sahkopostilasku l;
    l.maksaja = {QStringLiteral("Öhman"), QStringLiteral("Äijä"), QStringLiteral("Kuja 2"), QStringLiteral("33100"),
                 QStringLiteral("Tampere")};
    l.tilit = {QStringLiteral("FI21 1234 5600 0007 85"), QStringLiteral("FI79 4006 1020 0001 12")};
    l.lasku = {QStringLiteral("Jäsenmaksu"), QStringLiteral("37,50"), QStringLiteral("1.3.2027"), QStringLiteral("31.3.2027"),
               QStringLiteral("1232"), QStringLiteral("1001")};
    l.rivit = {{QStringLiteral("1.3.2027"), QStringLiteral("Vuosimaksu"), QStringLiteral("25,00")},
               {QString(), QStringLiteral("Lisenssi"), QStringLiteral("12,50")}};
    l.lisatieto = QStringLiteral("Maksuehto 14 pv netto");
    return l;
}

} // namespace

class TestSahkopohja : public QObject {
    Q_OBJECT

private slots:
    void yhdistaminen_data()
    {
        QTest::addColumn<QString>("pohja");
        QTest::addColumn<QString>("tulos");
        const QString crlf = QStringLiteral("\r\n");
        QTest::newRow("row token outside the rows stays") << "[<SUMMA:10>]" << "[<SUMMA:10>]";
        QTest::newRow("width 0, full name") << "<MAKSAJANNIMI:0>" << "Öhman Äijä";
        QTest::newRow("lower case name") << "<maksajannimi:0>" << "Öhman Äijä";
        QTest::newRow("no colon, no token") << "<SUMMA> <MAKSAJANNIMI>" << "<SUMMA> <MAKSAJANNIMI>";
        QTest::newRow("cut to width") << "<MAKSAJANNIMI:5>|" << "Öhman|";
        QTest::newRow("padded name") << "<MAKSAJANOSOITE:8>|" << "Kuja 2  |";
        QTest::newRow("bad width as it stands") << "<LASKUNUMERO:x>|<LASKUNUMERO:-3>|<LASKUNUMERO:>" << "1001|1001|1001";
        QTest::newRow("huge width as it stands") << "<LASKUNUMERO:2147483647>|<LASKUNUMERO:99999999999>" << "1001|1001";
        QTest::newRow("no closing bracket") << "Nro <LASKUNUMERO:5" << "Nro <LASKUNUMERO:5";
        QTest::newRow("unknown token stays") << "<PANKKI:0> <VIITENUMERO:0>" << "<PANKKI:0> 1232";
        QTest::newRow("quotes in a value") << "<LASKUTTAJANNIMI:0>" << "Pallo \"Kerho\" ry";
        QTest::newRow("every club token")
            << "<LASKUTTAJANOSOITE:0>;<LASKUTTAJANPOSTINRO:0>;<LASKUTTAJANPOSTITOIMI:0>;<LASKUTTAJANPUH:0>;<LASKUTTAJANFAX:0>;"
               "<LASKUTTAJANEMAIL:0>;<LASKUTTAJANINTERNET:0>;<LASKUTTAJANYTUNNUS:0>"
            << "Kenttätie 1;00100;Helsinki;09 123 456;09 123 457;kerho@example.fi;www.example.fi;1234567-8";
        QTest::newRow("payer, accounts, invoice, terms")
            << "<MAKSAJANPOSTINRO:0> <MAKSAJANPOSTITOIMI:0>|<LASKUTTAJANTILI1:0>|<LASKUTTAJANTILI2:0>|<LASKUOTSAKE:0>|"
               "<LOPPUSUMMA:0>|<LASKUPAIVA:0>|<ERAPAIVA:0>|<LISATIETOTEKSTI:0>"
            << "33100 Tampere|FI21 1234 5600 0007 85|FI79 4006 1020 0001 12|Jäsenmaksu|37,50|1.3.2027|31.3.2027|Maksuehto 14 pv netto";
        QTest::newRow("rows") << "A\n<LASKURIVIT><RIVIPVM:10>|<RIVIAIHE:0>|<SUMMA:10>|</LASKURIVIT>B"
                              << "A\n1.3.2027  |Vuosimaksu|25,00     |" + crlf + "          |Lisenssi|12,50     |" + crlf + "B";
        QTest::newRow("tags in any case") << "<laskurivit><RIVIAIHE:0></LaskuRivit>" << "Vuosimaksu" + crlf + "Lisenssi" + crlf;
        QTest::newRow("other tokens in the row pattern") << "<LASKURIVIT><LASKUNUMERO:0>:<RIVIAIHE:0></LASKURIVIT>"
                                                         << "1001:Vuosimaksu" + crlf + "1001:Lisenssi" + crlf;
        QTest::newRow("no row block") << "<VIITENUMERO:0> <RIVIAIHE:0>" << "1232 <RIVIAIHE:0>";
        QTest::newRow("end tag first: no rows, rest merged") << "</LASKURIVIT><RIVIAIHE:0><LASKURIVIT> <VIITENUMERO:0>"
                                                              << "</LASKURIVIT><RIVIAIHE:0><LASKURIVIT> 1232";
        QTest::newRow("start tag alone") << "<LASKURIVIT><RIVIAIHE:0> <VIITENUMERO:0>" << "<LASKURIVIT><RIVIAIHE:0> 1232";
        QTest::newRow("empty template") << "" << "";
    }

    void yhdistaminen()
    {
        QFETCH(QString, pohja);
        QFETCH(QString, tulos);
        QCOMPARE(YhdistaLasku(pohja, seura(), lasku()), tulos);
    }

    // A member, a row or the club whose value holds a token gets it as typed: nothing is merged
    // twice, neither by its own token nor by a later one.
    void arvoaEiYhdistetaUudestaan_data()
    {
        QTest::addColumn<QString>("pohja");
        QTest::addColumn<QString>("tulos");
        QTest::newRow("own token") << "<MAKSAJANOSOITE:0>" << "<MAKSAJANOSOITE:0>";
        QTest::newRow("later step's token") << "<MAKSAJANNIMI:0>" << "<LASKUNUMERO:0> <LISATIETOTEKSTI:0>";
        QTest::newRow("club value") << "<LASKUTTAJANNIMI:0>" << "<MAKSAJANNIMI:0>";
        QTest::newRow("row text") << "<LASKURIVIT><RIVIAIHE:0></LASKURIVIT>" << "<LISATIETOTEKSTI:0><SUMMA:0>\r\n";
    }

    void arvoaEiYhdistetaUudestaan()
    {
        QFETCH(QString, pohja);
        QFETCH(QString, tulos);
        Laskuttaja s = seura();
        s.nimi = QStringLiteral("<MAKSAJANNIMI:0>");
        Sahkopostilasku l = lasku();
        l.maksaja.sukunimi = QStringLiteral("<LASKUNUMERO:0>");
        l.maksaja.etunimi = QStringLiteral("<LISATIETOTEKSTI:0>");
        l.maksaja.osoite = QStringLiteral("<MAKSAJANOSOITE:0>");
        l.rivit = {{QString(), QStringLiteral("<LISATIETOTEKSTI:0><SUMMA:0>"), QString()}};
        QCOMPARE(YhdistaLasku(pohja, s, l), tulos);
    }

    void rivitys_data()
    {
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<int>("leveys");
        QTest::addColumn<QStringList>("rivit");
        QTest::newRow("fits") << "Vuosimaksu 2027" << 20 << QStringList{"Vuosimaksu 2027"};
        QTest::newRow("exactly the width") << "abc def" << 7 << QStringList{"abc def"};
        QTest::newRow("word by word") << "aa bb cc dd ee" << 5 << QStringList{"aa bb", "cc dd", "ee"};
        QTest::newRow("long word alone") << "a pitkäsanainen b" << 5 << QStringList{"a", "pitkäsanainen", "b"};
        QTest::newRow("line breaks kept") << "eka\r\ntoka rivi\nkolmas" << 40 << QStringList{"eka", "toka rivi", "kolmas"};
        QTest::newRow("trimmed, blanks between words one") << "  a    b  " << 10 << QStringList{"a b"};
        QTest::newRow("empty") << "" << 10 << QStringList{""};
        QTest::newRow("no width: only the lines") << "a  b\nc" << 0 << QStringList{"a  b", "c"};
    }

    void rivitys()
    {
        QFETCH(QString, teksti);
        QFETCH(int, leveys);
        QFETCH(QStringList, rivit);
        QCOMPARE(RivitaTeksti(teksti, leveys), rivit.join(QStringLiteral("\r\n")));
    }

    // A wrapped row text: one date and one amount, and the columns kept by blanks on the lines
    // that carry the text on. A Null amount is an empty SUMMA padded to its width.
    void rivitettyLaskurivi()
    {
        const QString kuvio = QStringLiteral("<LASKURIVIT><RIVIPVM:9>|<RIVIAIHE:10>|<SUMMA:6>|</LASKURIVIT>");
        const QList<cInvoiceRow> rivit{{QStringLiteral("1.3.2027"), QStringLiteral("Kausimaksu kesä ja syksy 2027"), QStringLiteral("40,00")},
                                       {QString(), QStringLiteral("Tarra"), QString()}};
        QCOMPARE(KorvaaLaskurivit(kuvio, rivit).split(QStringLiteral("\r\n")),
                 (QStringList{"1.3.2027 |Kausimaksu|40,00 |", "         |kesä ja   |      |", "         |syksy 2027|      |",
                              "         |Tarra     |      |", ""}));
        QCOMPARE(KorvaaLaskurivit(kuvio, {}), QString());
    }

    // An invoice without a total: LOPPUSUMMA is empty, the rows keep their amounts.
    void eiLoppusummaa()
    {
        Sahkopostilasku l = lasku();
        l.lasku.loppusumma.clear();
        QCOMPARE(YhdistaLasku(QStringLiteral("[<LOPPUSUMMA:6>]<LASKURIVIT><SUMMA:0>;</LASKURIVIT>"), seura(), l),
                 QStringLiteral("[      ]25,00;\r\n12,50;\r\n"));
    }

    // The steps one by one replace only their own tokens.
    void vaiheet()
    {
        const QString pohja = QStringLiteral("<LASKUTTAJANNIMI:0>|<MAKSAJANNIMI:0>|<LASKUTTAJANTILI2:0>|<VIITENUMERO:0>|<LISATIETOTEKSTI:0>");
        const Sahkopostilasku l = lasku();
        QString t = KorvaaLaskuttaja(pohja, seura());
        QVERIFY(t.startsWith(QStringLiteral("Pallo \"Kerho\" ry|<MAKSAJANNIMI:0>|")));
        t = KorvaaLisatieto(KorvaaLasku(KorvaaTilit(KorvaaMaksaja(t, l.maksaja), l.tilit), l.lasku), l.lisatieto);
        QCOMPARE(t, YhdistaLasku(pohja, seura(), l));
    }

    void merkisto_data()
    {
        QTest::addColumn<QByteArray>("tavut");
        QTest::addColumn<QString>("teksti");
        QTest::newRow("UTF-8") << QByteArray("H\xc3\xa4m\xc3\xa4l\xc3\xa4inen \xe2\x82\xac") << "Hämäläinen €";
        QTest::newRow("UTF-8 with byte order mark") << QByteArray("\xef\xbb\xbf\xc3\x84") << "Ä";
        QTest::newRow("Windows-1252") << QByteArray("H\xe4m\xe4l\xe4inen \x80 \x96 \x84lainaus\x93") << "Hämäläinen € – „lainaus“";
        QTest::newRow("unassigned byte kept") << QByteArray("a\x81z") << "a\u0081z";
        QTest::newRow("plain ASCII") << QByteArray("<LASKUNUMERO:0>\r\n") << "<LASKUNUMERO:0>\r\n";
    }

    void merkisto()
    {
        QFETCH(QByteArray, tavut);
        QFETCH(QString, teksti);
        QCOMPARE(PohjaTekstiksi(tavut), teksti);
    }
};

QTEST_GUILESS_MAIN(TestSahkopohja)
#include "tst_sahkopohja.moc"
