// The formula language: section fonts, the expressions of items, and selections, named formulas
// and sort fields run on a real club file, with their errors.
#include "raporttiseura.h"
#include "reports/Asettelu.h"
#include "reports/Lauseke.h"
#include "reports/Raporttiajo.h"
#include "reports/RaporttiVirhe.h"
#include "testenv.h"
#include "testiapu.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

QString nbsp(QString s) { return s.replace(u' ', QChar(0x00A0)); }

} // namespace

class TestKaava : public QObject {
    Q_OBJECT

private slots:
    // Section fonts: the X of a section font is left to the report; a broken one is refused.
    void osiofontit()
    {
        auto f = JasennaOsiofontti(u"HEADER;Times New Roman;X;X;X;X;X"_s);
        QVERIFY(f && f->osio == u"HEADER"_s && f->nimi == u"Times New Roman"_s && f->koko == 0.0 && !f->lihava && !f->kursiivi);
        f = JasennaOsiofontti(u"TITLE;Arial;12;0;X;1"_s);
        QVERIFY(f->koko == 12.0 && f->kursiivi == std::optional<bool>(false) && f->lihava == std::optional<bool>(true));
        QVERIFY(!JasennaOsiofontti(QString()));
        QVERIFY_THROWS_EXCEPTION(RaporttiVirhe, JasennaOsiofontti(u";Arial;10"_s));
        QVERIFY_THROWS_EXCEPTION(RaporttiVirhe, JasennaOsiofontti(u"ALL;Arial;iso"_s));
    }

    void lausekkeet_data()
    {
        QTest::addColumn<QString>("lauseke");
        QTest::addColumn<QString>("tulos");
        QTest::newRow("tekstien yhdistäminen, tyhjä ohitetaan") << u"{t.a} + ' ' + {t.b} + '!'"_s << u"Mäki !"_s;
        QTest::newRow("IIf") << u"IIf({t.n} > 10, 'iso', 'pieni')"_s << u"iso"_s;
        QTest::newRow("raha") << u"Raha({t.raha})"_s << nbsp(u"1 234,50"_s);
        QTest::newRow("euro laskettuna") << u"Euro({t.raha} * 2)"_s << nbsp(u"2 469,00"_s) + u" €"_s;
        QTest::newRow("viite") << u"Viite('1234561')"_s << u"12 34561"_s;
        QTest::newRow("tilinumero") << u"Iban('fi21 1234 5600 0007 85')"_s << u"FI21 1234 5600 0007 85"_s;
        QTest::newRow("päivä lisää") << u"{t.pvm} + 1"_s << u"4.7.1985"_s;
        QTest::newRow("päivien erotus") << u"Date(1985,8,2) - {t.pvm}"_s << u"30"_s;
        QTest::newRow("rivit") << u"Rivit({t.a}, {t.b}, '  ', 'Helsinki')"_s << u"Mäki\nHelsinki"_s;
        QTest::newRow("summa") << u"Sum({t.raha})"_s << u"1244,50"_s;
        QTest::newRow("lukumäärä kentästä, Null ei lasketa") << u"Count({t.b})"_s << u"2"_s;
        QTest::newRow("lukumäärä riveistä") << u"Count()"_s << u"3"_s;
        QTest::newRow("suomalainen järjestys") << u"'Ä' > 'Z' and 'Å' < 'Ä'"_s << u"Kyllä"_s;
        QTest::newRow("nollalla jako") << u"{t.n} / 0"_s << QString();
        QTest::newRow("tyhjä ja luku") << u"{t.b} + 1"_s << QString();
        QTest::newRow("tekstifunktiot") << u"Left({t.a}, 2) + UpperCase('ö') + ToText(Len(Trim('  ab ')))"_s << u"MäÖ2"_s;
        QTest::newRow("Mid, Replace, täyttö") << u"Mid('Jäsenmaksu', 3, 4) + Mid({t.a}, 2) + Replace('a-b-c', '-', '') + PadLeft('42', 5, '0') + PadRight('x', 3) + '|'"_s
                                              << u"senmäkiabc00042x  |"_s;
        QTest::newRow("Mid ohi, tyhjä korvattava, leveys pienempi") << u"Mid('abc', 9) + Replace('abc', '', 'x') + PadLeft('abc', 2, '0')"_s
                                                                     << u"abcabc"_s;
        QTest::newRow("Chr") << u"'a' + Chr(10) + 'b' + Chr(0)"_s << u"a\nb"_s;
        // The payment functions read the account out of the settings' free text as it is typed.
        QTest::newRow("tilin osat") << u"TiliIban('FI21 1234 5600 0007 85 Nordea') + '|' + TiliPankki('FI2112345600000785') + '|' + TiliBic('fi21 1234 5600 0007 85')"_s
                                    << u"FI21 1234 5600 0007 85|Nordea|NDEAFIHH"_s;
        QTest::newRow("viallinen tili tulostuu kirjoitettuna") << u"TiliIban(' FI22 1234 5600 0007 85 ') + '|' + TiliPankki('FI22 1234 5600 0007 85') + TiliBic('')"_s
                                                               << u"FI22 1234 5600 0007 85|"_s;
        QTest::newRow("pankkiviivakoodi") << u"Pankkiviivakoodi('FI58 1017 1000 0001 22 Nordea', 482.99, '55958 22432 94671', Date(2012, 1, 31))"_s
                                          << u"458101710000001220004829900000000559582243294671120131"_s;
        QTest::newRow("pankkiviivakoodi, maksaja kirjoittaa summan") << u"Pankkiviivakoodi('FI16 8000 1400 0502 67', {t.b}, '78777679656628687', {t.b})"_s
                                                                      << u"416800014000502670000000000000078777679656628687000000"_s;
        QTest::newRow("ei viivakoodia: tarkiste") << u"Pankkiviivakoodi('FI59 1017 1000 0001 22', 10, '1232', Date(2012, 1, 31))"_s << QString();
        QTest::newRow("ei viivakoodia: ulkomainen") << u"Pankkiviivakoodi('DE89 3704 0044 0532 0130 00', 10, '1232', Date(2012, 1, 31))"_s << QString();
        QTest::newRow("ei viivakoodia: miljoona") << u"Pankkiviivakoodi('FI58 1017 1000 0001 22', 1000000, '1232', Date(2012, 1, 31))"_s << QString();
        QTest::newRow("ei viivakoodia: viitteetön") << u"Pankkiviivakoodi('FI58 1017 1000 0001 22', 10, '', Date(2012, 1, 31))"_s << QString();
        QTest::newRow("EPC QR") << u"EpcQr('Esimerkkiseura ry', 'FI37 1590 3000 0007 76', 25, '1234561', Date(2025, 2, 28), 'Lasku 7')"_s
                                << u"BCD\n001\n1\nSCT\nNDEAFIHH\nEsimerkkiseura ry\nFI3715903000000776\nEUR25.00\n\nRF341234561\n\nReqdExctnDt/2025-02-28"_s;
        QTest::newRow("EPC QR viestillä, ulkomainen tili") << u"EpcQr('Seura', 'DE89 3704 0044 0532 0130 00', {t.raha}, '', {t.b}, 'Lasku 7')"_s
                                                           << u"BCD\n002\n1\nSCT\n\nSeura\nDE89370400440532013000\nEUR1234.50\n\n\nLasku 7"_s;
        QTest::newRow("ei QR-koodia ilman tiliä") << u"EpcQr('Seura', '', 25, '1234561', Date(2025, 2, 28))"_s << QString();
    }

    void lausekkeet()
    {
        QFETCH(QString, lauseke);
        QFETCH(QString, tulos);
        const QStringList sarakkeet = {u"a"_s, u"b"_s, u"n"_s, u"raha"_s, u"pvm"_s, u"tosi"_s};
        Rivisto r;
        r.leveys = int(sarakkeet.size());
        r.riveja = 3;
        r.solut = {Arvo(u"Mäki"_s), Arvo(), Arvo(qint64(12)), Arvo(Currency::fromRaw(12345000)), Arvo(QDate(1985, 7, 3)), Arvo(true),
                   Arvo(u"x"_s), Arvo(u"x"_s), Arvo(), Arvo(Currency::fromUnits(10)), Arvo(), Arvo(false),
                   Arvo(u"y"_s), Arvo(u"y"_s), Arvo(), Arvo(), Arvo(), Arvo()};
        auto puu = JasennaKaava(lauseke, u"Testi"_s);
        std::vector<Solmu *> kentat;
        QStringList kaavat;
        KeraaViittaukset(*puu, kentat, kaavat);
        for (Solmu *k : kentat)
            k->sarake = int(sarakkeet.indexOf(k->kentta));
        TarkistaLauseke(*puu, {}, u"Testi"_s);
        Arviointi a;
        a.rivit = &r;
        a.rivi = 0;
        a.koosteLoppu = 3;
        QCOMPARE(ArvoTekstina(Arvioi(*puu, a)), tulos);
    }

    // Formulas on a club file: Null booleans read as False, an apostrophe is a value, text compares
    // in Finnish order, LIKE keeps its own wild cards apart from SQL's, the year pattern matches,
    // money compares exactly and against whole numbers, a named formula is a value. Rows come in
    // member order unless a sort field is given.
    void valinnatTietokannassa_data()
    {
        QTest::addColumn<QString>("valinta");
        QTest::addColumn<QString>("lajittelu");
        QTest::addColumn<QStringList>("nimet");
        QTest::addColumn<QString>("virhe"); // part of the message of a formula refused
        QTest::addColumn<QString>("kaava"); // the named formula Nimi
        const QString Aalto = u"Aalto"_s, OBrien = u"O'Brien"_s, Aberg = u"Åberg"_s, Ohman = u"Öhman"_s,
                      Sadas = u"1%_x"_s, Tuhat = u"1000"_s;
        auto rivi = [](const char *nimi, const QString &valinta, const QStringList &nimet, const QString &lajittelu = {}) {
            QTest::newRow(nimi) << valinta << lajittelu << nimet << QString() << u"Nimi= 'Åberg'"_s;
        };
        auto virhe = [](const char *nimi, const QString &valinta, const QString &osa, const QString &lajittelu = {}) {
            QTest::newRow(nimi) << valinta << lajittelu << QStringList() << osa << u"Nimi= 'Åberg'"_s;
        };
        auto nimetty = [](const char *nimi, const QString &kaava, const QStringList &nimet, const QString &osa = {}) {
            QTest::newRow(nimi) << u"{jr.jrSukunimi} = {@Nimi}"_s << QString() << nimet << osa << kaava;
        };
        rivi("heittomerkki pysyy arvona", u"{jr.jrSukunimi} = 'O''Brien; DROP TABLE jr'"_s, {});
        rivi("tyhjä on epätosi", u"{jr.jrJasenmaksu} = False"_s, {Aalto, Ohman});
        rivi("not ja or, suomalainen järjestys", u"not {jr.jrJasenmaksu} or {jr.jrSukunimi} >= 'Ä'"_s, {Aalto, Ohman});
        rivi("like suojaa SQL:n merkit", u"{jr.jrSukunimi} like '1%_?*'"_s, {Sadas});
        rivi("syntymävuosi", u"ToText(Year({jr.jrSyntyma}),0) like \"19*\""_s, {Aalto, Aberg, Ohman});
        rivi("ominaisuuden arvo", u"{pt.ptjrID} = {jr.jrID} and {pt.ptpiID} = 1 and {pt.ptValCurrency} >= 12,5"_s, {Ohman});
        rivi("raha ja luku", u"{pt.ptjrID} = {jr.jrID} and {pt.ptValCurrency} <= {pt.ptValLong} - 1"_s, {Ohman});
        nimetty("nimetty kaava arvona", u"Nimi= 'Åberg'"_s, {Aberg});
        nimetty("heittomerkki kaavassa", u"Nimi= 'O'Brien'"_s, {OBrien});
        nimetty("kaava välilyönnein ja lainausmerkein", u"  Nimi =  \"Öhman\"  "_s, {Ohman});
        QTest::newRow("kaava lausekkeena") << u"{jr.jrID} = {@Nimi}"_s << QString() << QStringList{Aberg} << QString() << u"Nimi= 1 + 2"_s;
        nimetty("tyhjä kaava", u"Nimi= ''"_s, {});
        nimetty("kaavan nimi puuttuu", u"= 'x'"_s, {}, u"ei ole muotoa Nimi= 'teksti'"_s);
        nimetty("kaavan lainaus auki", u"Nimi= 'x"_s, {}, u"lainausmerkki jäi sulkematta"_s);
        rivi("ei ketään", u"{jr.jrID} < 0"_s, {});
        rivi("päivä laskevasti", u"{jr.jrID} < 5"_s, {OBrien, Ohman, Aberg, Aalto}, u"-{jr.jrSyntyma}"_s);
        rivi("ilman merkkiä nousevasti", u"{jr.jrID} > 4"_s, {Sadas, Tuhat}, u" {jr.jrID} "_s);
        virhe("kesken", u"{jr.jrID} >"_s, u"kaava loppuu kesken"_s);
        virhe("ylimääräinen sulku", u"{jr.jrID} = 1 )"_s, u"ylimääräistä tekstiä kohdassa 15"_s);
        virhe("tuntematon merkki", u"{jr.jrID} = 1 # 2"_s, u"tuntematon merkki kohdassa 15"_s);
        virhe("lainaus auki", u"{jr.jrSukunimi} = 'Virtanen"_s, u"lainausmerkki jäi sulkematta"_s);
        virhe("tyyppi ei sovi", u"{jr.jrID} = 'a'"_s, u"vertailu luku ja teksti ei onnistu"_s);
        virhe("funktio", u"Foo({jr.jrID}) = 1"_s, u"funktiota Foo ei voi käyttää valintakaavassa"_s);
        virhe("tuntematon kaava", u"{@Puuttuva} = 1"_s, u"{@Puuttuva} ei ole"_s);
        virhe("tuntematon kenttä", u"{jr.jrEiOle} = 1"_s, u"kenttää {jr.jrEiOle} ei ole"_s);
        virhe("mahdoton päivä", u"{jr.jrSyntyma} = Date(2020,2,30)"_s, u"päivämäärää ei ole olemassa"_s);
        virhe("kaava viittaa itseensä", u"{@Kehä} = 'x'"_s, u"viittaa itseensä"_s);
        virhe("lajittelu ilman kenttää", u"True"_s, u"lajitella voi vain kentän mukaan"_s, u"+jrSukunimi"_s);
        virhe("lajittelu rikki", u"True"_s, u"aaltosulje jäi sulkematta"_s, u"+{jr.jrSukunimi"_s);
    }

    void valinnatTietokannassa()
    {
        QFETCH(QString, valinta);
        QFETCH(QString, lajittelu);
        QFETCH(QStringList, nimet);
        QFETCH(QString, virhe);
        QFETCH(QString, kaava);
        TestEnv env;
        const QString kanta = env.path(u"seura.mdb"_s);
        auto d = LuoTyhjaSeura(kanta);
        const qint64 aalto = LisaaJasen(*d, {u"Aalto"_s, u"Aino"_s, {}, {}, {}, {}, u"1"_s, QVariant(), QDate(1950, 5, 1)});
        LisaaJasen(*d, {u"O'Brien"_s, u"Sean"_s, {}, {}, {}, {}, u"2"_s, true, QDate(2001, 1, 1)});
        LisaaJasen(*d, {u"Åberg"_s, u"Eva"_s, {}, {}, {}, {}, u"3"_s, true, QDate(1980, 1, 1)});
        const qint64 ohman = LisaaJasen(*d, {u"Öhman"_s, u"Olli"_s, {}, {}, {}, {}, u"4"_s, false, QDate(1999, 12, 31)});
        // With SQL's own wild cards let loose, '1%_?*' would take "1000" too.
        LisaaJasen(*d, {u"1%_x"_s, {}, {}, {}, {}, {}, u"5"_s, true});
        LisaaJasen(*d, {u"1000"_s, {}, {}, {}, {}, {}, u"6"_s, true});
        d->execute(u"INSERT INTO pi (piNimi) VALUES ('Kannatusjäsen')"_s);
        d->execute(u"INSERT INTO pt (ptjrID, ptpiID, ptValCurrency, ptValLong) VALUES (?, 1, 125000, 14), (?, 1, 124999, 13)"_s,
                   {ohman, aalto});
        const QString polku = testi::tiedosto(env.path(u"nimet.rpt"_s), R"xml(<raportti><lahde taulu="jr">
            <liitos taulu="pt" ehto="{pt.ptjrID} = {jr.jrID}"/></lahde>
            <jarjestys>+{jr.jrID}</jarjestys>
            <rivi korkeus="5"><teksti x="0" y="0" leveys="50" korkeus="5" lauseke="{jr.jrSukunimi}"/></rivi></raportti>)xml");
        Raporttiajo r;
        r.ResetReportFormulas(kanta);
        r.ReportFileName = polku;
        r.SelectionFormula = valinta;
        r.Formulas[0] = kaava;
        r.Formulas[1] = u"Kehä= {@Kehä}"_s;
        r.SortFields[0] = lajittelu;
        if (!virhe.isEmpty()) {
            try {
                r.Laadi();
                QFAIL("the formula was accepted");
            } catch (const RaporttiVirhe &e) {
                QVERIFY2(e.viesti().contains(virhe), qPrintable(e.viesti()));
            }
            return;
        }
        const Asiakirja doc = r.Laadi();
        QCOMPARE(doc.riveja, int(nimet.size()));
        QCOMPARE(nimet.isEmpty() ? QStringList() : doc.tekstit(0), nimet);
    }
};

QTEST_MAIN(TestKaava)
#include "tst_kaava.moc"
