// The e-mail invoices of the demonstration club: an open invoice and a reminder from the history
// merged with their member, rows, accounts and payment terms; the refusals of the reminder in the
// preview's words and in the sender's; the shipped templates carrying every token; and the
// command-line preview of the whole open batch.
#include "sahkopostiseura.h"

#include "email/Laskujenlahetys.h"
#include "postipalvelin.h"

#include <QJsonObject>
#include <QProcess>

namespace {

const QStringList Tunnisteet{
    "MAKSAJANNIMI", "MAKSAJANOSOITE", "MAKSAJANPOSTINRO", "MAKSAJANPOSTITOIMI", "LASKUTTAJANNIMI", "LASKUTTAJANOSOITE",
    "LASKUTTAJANPOSTINRO", "LASKUTTAJANPOSTITOIMI", "LASKUTTAJANPUH", "LASKUTTAJANFAX", "LASKUTTAJANEMAIL",
    "LASKUTTAJANINTERNET", "LASKUTTAJANYTUNNUS", "LASKUTTAJANTILI1", "LASKUTTAJANTILI2", "LASKUOTSAKE", "LOPPUSUMMA",
    "LASKUPAIVA", "ERAPAIVA", "VIITENUMERO", "LASKUNUMERO", "LISATIETOTEKSTI", "RIVIPVM", "RIVIAIHE", "SUMMA"};

const QByteArray Testipohja = "<MAKSAJANNIMI:0>|<MAKSAJANOSOITE:0>|<LASKUTTAJANTILI1:0>|<LASKUTTAJANTILI2:0>|<LOPPUSUMMA:0>|"
                              "<LASKUPAIVA:0>|<ERAPAIVA:0>|<LISATIETOTEKSTI:0>\n"
                              "<LASKURIVIT><RIVIPVM:9>|<RIVIAIHE:10>|<SUMMA:6>|</LASKURIVIT>";

} // namespace

class TestSahkopostilaskut : public QObject {
    Q_OBJECT

    struct Tulos {
        int koodi;
        QString ulos, virhe;
    };

    Tulos aja(const QStringList &argumentit)
    {
        QProcess p;
        p.start(QCoreApplication::applicationDirPath() + QStringLiteral("/../src/vonari-komento"), argumentit);
        if (!p.waitForFinished(60000))
            return {-1, {}, QStringLiteral("aikakatkaisu")};
        return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()), QString::fromUtf8(p.readAllStandardError())};
    }

private slots:
    // One invoice changed every way the merge must notice: its own account, no total, the payment
    // terms, a second row of 12.5 with a long text and a row with no amount.
    void avoinLasku()
    {
        Sahkopostiseura s;
        s.pohja(QStringLiteral("lasku.txt"), Testipohja);
        MainModule::RegPankkiyhteys1 = QStringLiteral("FI21 1234 5600 0007 85");
        MainModule::RegPankkiyhteys2 = QStringLiteral("FI79 4006 1020 0001 12");
        const QList<qint64> laskut = AvoimetLaskut(*s.d);
        QVERIFY(laskut.size() > 100);
        const qint64 jm = laskut[0], muu = laskut[1];
        const qint64 jr = s.luku(QStringLiteral("SELECT jmjrID FROM jm WHERE jmID = ?"), {jm});
        s.d->execute(QStringLiteral("UPDATE jr SET jrSukunimi = 'O''Brien', jrEtunimi = 'Äijä \"Ä\"', jrOsoite = 'Kuja 2' WHERE jrID = ?"),
                     {jr});

        const Sahkopostiteksti pohja = LueLaskupohja();
        QVERIFY(pohja.onnistui());
        QCOMPARE(AvoimenLaskunTeksti(*s.d, pohja.teksti, jm),
                 QStringLiteral("O'Brien Äijä \"Ä\"|Kuja 2|FI21 1234 5600 0007 85|FI79 4006 1020 0001 12|25,00|1.3.2027|31.3.2027|\n"
                                "1.3.2027 |Vuosimaksu|25,00 |\r\n"));

        s.d->execute(QStringLiteral("INSERT INTO me (meTeksti) VALUES ('14 pv netto')"));
        s.d->execute(QStringLiteral("UPDATE jm SET jmKaytaPankkitili1 = 1, jmPankkitili1 = 'FI55 0000 1111 2222 33', jmEiLoppusummaa = 1,"
                                    " jmmeID = ? WHERE jmID = ?"),
                     {s.d->lastInsertId(), jm});
        s.d->execute(QStringLiteral("INSERT INTO jmRivi (jmRjmID, jmRPaiva, jmRHinta, jmRTeksti) VALUES (?, NULL, ?, 'Kausimaksu kesä ja syksy')"),
                     {jm, Currency::fromRaw(125000).toVariant()});
        s.d->execute(QStringLiteral("INSERT INTO jmRivi (jmRjmID, jmRPaiva, jmRHinta, jmRTeksti) VALUES (?, '2027-04-02', NULL, 'Tarra')"), {jm});
        QCOMPARE(AvoimenLaskunTeksti(*s.d, pohja.teksti, jm).split(QStringLiteral("\r\n")),
                 (QStringList{"O'Brien Äijä \"Ä\"|Kuja 2|FI55 0000 1111 2222 33|||1.3.2027|31.3.2027|14 pv netto\n"
                              "1.3.2027 |Vuosimaksu|25,00 |",
                              "         |Kausimaksu|12,50 |", "         |kesä ja   |      |", "         |syksy     |      |",
                              "2.4.2027 |Tarra     |      |", ""}));
        // The neighbour keeps the club's accounts and its own total.
        QVERIFY(AvoimenLaskunTeksti(*s.d, pohja.teksti, muu).contains(QStringLiteral("|FI21 1234 5600 0007 85|FI79 4006 1020 0001 12|25,00|")));
    }

    void laskupohjaPuuttuu()
    {
        Sahkopostiseura s;
        QFile::remove(MainModule::EmailPohja);
        QCOMPARE(LueLaskupohja().viesti, QStringLiteral("Laskupohjaa ei voida avata. Tarkista asetukista Email laskupohja."));
    }

    // The reminder merges the history invoice's own figures into the reminder template.
    void muistutus()
    {
        Sahkopostiseura s;
        s.pohja(QStringLiteral("karhu.txt"), "MUISTUTUS <LASKUOTSAKE:0> <LASKUNUMERO:0> <VIITENUMERO:0> <LOPPUSUMMA:0> <ERAPAIVA:0> "
                                             "<MAKSAJANNIMI:0><LASKURIVIT>|<RIVIAIHE:0>=<SUMMA:0></LASKURIVIT>");
        const qint64 jmh = s.luku(QStringLiteral("SELECT MIN(jmhID) FROM jmhist WHERE jmhjmMaksettu = 0 AND COALESCE(jmhjmEiLoppusummaa, 0) = 0 AND"
                                                 " EXISTS (SELECT 1 FROM jmRivi WHERE jmRjmID = jmhjmID AND jmRHinta IS NOT NULL)"));
        QVERIFY(jmh > 0);
        db::Statement st(*s.d, QStringLiteral("SELECT jmhjmOtsake, jmhjmLaskunumero, jmhjmViitenumero, jmhjmHinta, jmhjmErapaiva,"
                                              " jrSukunimi || ' ' || jrEtunimi, jrEmail FROM jmhist JOIN jr ON jrID = jmhjmjrID WHERE jmhID = ?"),
                         {jmh});
        QVERIFY(st.next());
        const Sahkopostiteksti t = MuistutuksenTeksti(*s.d, jmh, true);
        QVERIFY2(t.onnistui(), qPrintable(t.viesti));
        const QString alku = QStringLiteral("MUISTUTUS %1 %2 %3 %4 %5 %6|")
                                 .arg(NullText(st.value(0)), NullText(st.value(1)), NullText(st.value(2)),
                                      NullCurrency(st.value(3)).toString(2), PaivaTekstina(NullDate(st.value(4))), NullText(st.value(5)));
        QVERIFY2(t.teksti.startsWith(alku), qPrintable(t.teksti));
        QVERIFY(t.teksti.contains(QLatin1Char('=')) && t.teksti.endsWith(QStringLiteral("\r\n")));
        QCOMPARE(t.nimi, NullText(st.value(5)));
        QCOMPARE(t.otsake, NullText(st.value(0)));
        // Sending asks whether the member takes e-mail invoices; the preview does not.
        s.d->execute(QStringLiteral("UPDATE jr SET jrEmailLasku = 1 WHERE jrID = (SELECT jmhjmjrID FROM jmhist WHERE jmhID = ?)"), {jmh});
        const Sahkopostiteksti lahetettava = MuistutuksenTeksti(*s.d, jmh, false);
        QCOMPARE(lahetettava.teksti, t.teksti);
        QCOMPARE(lahetettava.email, NullText(st.value(6)));
    }

    void muistutuksenEsteet_data()
    {
        QTest::addColumn<QString>("este");
        QTest::addColumn<bool>("esikatselu");
        QTest::addColumn<QString>("viesti");
        const QString eiPohjaa = QStringLiteral("Muistutuspohjaa ei voida avata, tiedostoa ei löydy.\n\nTarkista asetukista Email muistutuspohja.");
        const QString eiPohjaaLahetys = QStringLiteral("Muistutuspohjaa ei voida avata. Tarkista asetukista Email muistutuspohja.");
        // The file test looks at the invoice template, though the reminder template is read.
        QTest::newRow("no invoice template, preview") << "lasku.txt" << true << eiPohjaa;
        QTest::newRow("no invoice template, send") << "lasku.txt" << false << eiPohjaaLahetys;
        QTest::newRow("no reminder template") << "karhu.txt" << true << eiPohjaa;
        QTest::newRow("nothing fetched, preview") << "lasku" << true << "Laskua ei ole haettu näyttöön.";
        QTest::newRow("nothing fetched, send") << "lasku" << false << "Laskua ei löydy tietokannasta.";
        QTest::newRow("member gone, preview") << "jasen" << true << "Ei löydy lisättyjä laskuja. Luo ensin laskut.";
        QTest::newRow("member gone, send") << "jasen" << false << "Virhe jäsentietojen haussa. Käynnistä Vonari uudestaan.";
        QTest::newRow("no e-mail invoices, send") << "lupa" << false
                                                   << "Jäsenelle ei ole sallittu sähköpostilaskutusta jäsenrekisterissä.";
    }

    void muistutuksenEsteet()
    {
        QFETCH(QString, este);
        QFETCH(bool, esikatselu);
        QFETCH(QString, viesti);
        Sahkopostiseura s;
        qint64 jmh = s.luku(QStringLiteral("SELECT MIN(jmhID) FROM jmhist"));
        const qint64 jr = s.luku(QStringLiteral("SELECT jmhjmjrID FROM jmhist WHERE jmhID = ?"), {jmh});
        if (este.endsWith(QStringLiteral(".txt")))
            QVERIFY(QFile::remove(s.ohjelmanTiedosto(este)));
        else if (este == QStringLiteral("lasku"))
            jmh = 0;
        else if (este == QStringLiteral("jasen"))
            s.d->execute(QStringLiteral("DELETE FROM jr WHERE jrID = ?"), {jr});
        else
            s.d->execute(QStringLiteral("UPDATE jr SET jrEmailLasku = 0 WHERE jrID = ?"), {jr});
        const Sahkopostiteksti t = MuistutuksenTeksti(*s.d, jmh, esikatselu);
        QCOMPARE(t.viesti, viesti);
        QVERIFY(t.teksti.isEmpty());
    }

    // The shipped templates carry every token, and a merge leaves none of them behind.
    void toimitetutPohjat_data()
    {
        QTest::addColumn<QString>("nimi");
        QTest::newRow("invoice") << "lasku.txt";
        QTest::newRow("reminder") << "karhu.txt";
    }

    void toimitetutPohjat()
    {
        QFETCH(QString, nimi);
        Sahkopostiseura s;
        const std::optional<QString> pohja = LuePohjatiedosto(s.ohjelmanTiedosto(nimi));
        QVERIFY(pohja);
        for (const QString &t : Tunnisteet)
            QVERIFY2(pohja->contains(QLatin1Char('<') + t + QLatin1Char(':')), qPrintable(t));
        QVERIFY(pohja->contains(QStringLiteral("<LASKURIVIT>")) && pohja->contains(QStringLiteral("</LASKURIVIT>")));
        const QString teksti = AvoimenLaskunTeksti(*s.d, *pohja, AvoimetLaskut(*s.d).constFirst());
        for (const QString &t : Tunnisteet)
            QVERIFY2(!teksti.contains(QLatin1Char('<') + t + QLatin1Char(':')), qPrintable(t));
        QVERIFY(!teksti.contains(QStringLiteral("LASKURIVIT")));
        QVERIFY(teksti.contains(QStringLiteral("Vuosimaksu")));
    }

    // The tool prints the same texts as the preview, in its order, between form feed lines.
    void komentorivi()
    {
        Sahkopostiseura s;
        QCOMPARE(MainModule::EmailPohja, s.ohjelmanTiedosto(QStringLiteral("lasku.txt")));
        const QList<qint64> laskut = AvoimetLaskut(*s.d);
        const QString pohja = LueLaskupohja().teksti;
        s.d.reset();

        Tulos t = aja({s.kanta, QStringLiteral("sahkopostilaskut"), QStringLiteral("--esikatselu")});
        QCOMPARE(t.koodi, 0);
        const QStringList postit = t.ulos.split(QStringLiteral("\f\n"));
        QCOMPARE(postit.size(), laskut.size());
        s.d = db::Database::open(s.kanta);
        for (const int i : {0, int(laskut.size()) - 1}) {
            QString odotettu = AvoimenLaskunTeksti(*s.d, pohja, laskut[i]).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
            if (!odotettu.endsWith(QLatin1Char('\n')))
                odotettu += QLatin1Char('\n');
            QCOMPARE(postit[i], odotettu);
        }

        t = aja({s.kanta, QStringLiteral("sahkopostilaskut"), QStringLiteral("--kayttaja"), QStringLiteral("x")});
        QCOMPARE(t.koodi, 2);
        QVERIFY(t.virhe.contains(QStringLiteral("--smtp")));
        QVERIFY(t.ulos.isEmpty());

        QFile::remove(s.ohjelmanTiedosto(QStringLiteral("lasku.txt")));
        t = aja({s.kanta, QStringLiteral("sahkopostilaskut"), QStringLiteral("--esikatselu")});
        QCOMPARE(t.koodi, 1);
        QVERIFY(t.virhe.contains(QStringLiteral("Laskupohjaa ei voida avata. Tarkista asetukista Email laskupohja.")));
        QVERIFY(t.ulos.isEmpty());
    }

    // Sending from the command line to a server of this run only: the window's closing message,
    // a second run with nothing left, and options that do not make a server refused.
    void komentoriviLahettaa()
    {
        Sahkopostiseura s;
        testi::Postipalvelin p;
        QVERIFY2(p.kaynnissa(), qPrintable(p.virhe()));
        s.d->execute(QStringLiteral("UPDATE jr SET jrEmailLasku = 0"));
        s.d->execute(QStringLiteral("UPDATE jr SET jrEmailLasku = 1, jrEmail = 'a@example.fi'"
                                    " WHERE jrID = (SELECT jmjrID FROM jm ORDER BY jmID LIMIT 1)"));
        s.d.reset();
        const QString palvelin = QStringLiteral("127.0.0.1:%1").arg(p.portti());
        Tulos t = aja({s.kanta, QStringLiteral("sahkopostilaskut"), QStringLiteral("--smtp"), palvelin});
        QCOMPARE(t.koodi, 0);
        QCOMPARE(t.ulos.trimmed(), LahetyksenYhteenveto(1, 0));
        QCOMPARE(p.viestit().size(), 1);
        QCOMPARE(p.viestit()[0].kirjekuori[QStringLiteral("mail_from")].toString(),
                 QStringLiteral("jasensihteeri@vanhankylanus.example"));
        t = aja({s.kanta, QStringLiteral("sahkopostilaskut"), QStringLiteral("--smtp"), palvelin});
        QCOMPARE(t.ulos.trimmed(), LahetyksenYhteenveto(0, 0));
        QCOMPARE(p.viestit().size(), 1);

        for (const QStringList &vaarin : {QStringList{QStringLiteral("--smtp"), QStringLiteral("127.0.0.1:0")},
                                          QStringList{QStringLiteral("--smtp"), QStringLiteral(":25")},
                                          QStringList{QStringLiteral("--smtp"), palvelin, QStringLiteral("--suojaus"), QStringLiteral("tls")},
                                          QStringList{QStringLiteral("--smtp"), palvelin, QStringLiteral("--kenelle"), QStringLiteral("joku")}}) {
            t = aja(QStringList{s.kanta, QStringLiteral("sahkopostilaskut")} + vaarin);
            QCOMPARE(t.koodi, 2);
            QVERIFY(!t.virhe.isEmpty());
        }
        QCOMPARE(p.viestit().size(), 1);
    }
};

QTEST_GUILESS_MAIN(TestSahkopostilaskut)
#include "tst_sahkopostilaskut.moc"
