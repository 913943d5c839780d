// Laid-out reports: which rows land on which page, in which order, with which headings and
// sums; label sheets; section fonts; definition faults told by file and item; one PDF read back.
#include "raporttiseura.h"
#include "reports/Asettelu.h"
#include "reports/Piirto.h"
#include "reports/Raporttiajo.h"
#include "reports/RaporttiVirhe.h"
#include "testiapu.h"
#include "testipohja.h"

#include <QCollator>
#include <QImage>
#include <QPainter>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

double mm(double x) { return x * yksikko::TwipsiaMillilla; }

QString nimi(const TestiJasen &j) { return j.sukunimi + u' ' + j.etunimi; }

// The report laid out with a club-name formula (first) and section fonts.
Asiakirja laadi(const QString &kanta, const QString &raportti, const QString &kaava = {}, const QStringList &fontit = {})
{
    Raporttiajo r;
    r.ResetReportFormulas(kanta);
    r.ReportFileName = raportti;
    r.Formulas[0] = kaava;
    for (int i = 0; i < fontit.size(); ++i)
        r.SectionFont[i] = fontit[i];
    return r.Laadi();
}

using testi::tiedosto;

} // namespace

class TestAsettelu : public Testipohja {
    Q_OBJECT
    QString kanta;
    std::unique_ptr<db::Database> d;

private slots:
    // An empty upgraded club for every case.
    void init()
    {
        Testipohja::init();
        kanta = env->path(u"seura.mdb"_s);
        d = LuoTyhjaSeura(kanta);
    }
    void cleanup()
    {
        d.reset();
        Testipohja::cleanup();
    }

    // The member list over pages in Finnish order (Å, Ä, Ö after Z), the club on the first page,
    // column headings and page numbers on every page, the total on the last, the section fonts
    // applied; every page in the PDF.
    void jasenluetteloJakautuuSivuille()
    {
        LisaaGeneroidut(*d, 120);
        QStringList odotetut; // in Finnish order
        for (int i = 0; i < 120; ++i)
            odotetut << nimi(GeneroituJasen(i));
        const QCollator fi(QLocale(QLocale::Finnish, QLocale::Finland));
        std::sort(odotetut.begin(), odotetut.end(), [&](const QString &a, const QString &b) { return fi.compare(a, b) < 0; });
        auto ix = [&](const QString &suku) { return odotetut.indexOf(QRegularExpression(suku + u" .*"_s)); };
        QVERIFY(ix(u"Zetterberg"_s) < ix(u"Åberg"_s) && ix(u"Åberg"_s) < ix(u"Ääritalo"_s) && ix(u"Ääritalo"_s) < ix(u"Öhman"_s));
        const Asiakirja doc = laadi(kanta, u"jrluetlo"_s, u"Seurannimi= 'Kyläseura'"_s,
                                    {u"ALL;Liberation Sans;9;X;X;X;X"_s, u"TITLE;Liberation Serif;12;X;X;X;X"_s});
        QCOMPARE(doc.riveja, 120);
        QCOMPARE(int(doc.sivut.size()), 3);
        QStringList kaikki;
        for (int s = 0; s < 3; ++s) {
            const QStringList t = doc.tekstit(s);
            QVERIFY2(t.contains(u"sivu %1 / 3"_s.arg(s + 1)) && t.contains(u"Nimi"_s), qPrintable(t.join(u'|')));
            QCOMPARE(t.contains(u"Kyläseura"_s), s == 0);
            QCOMPARE(t.contains(u"Jäseniä yhteensä: 120"_s), s == 2);
            for (const QString &x : t)
                if (odotetut.contains(x))
                    kaikki << x;
            // The section fonts replace the definition's, but for the items marked to keep their own.
            for (const Tulostekohde *k : doc.tekstikohteet(s)) {
                const QFont &f = doc.fontit[size_t(k->fontti)];
                const QString fontti = u"%1 %2"_s.arg(f.family()).arg(f.pixelSize() / 20);
                if (k->teksti.contains(QRegularExpression(u"^(Jäseniä yhteensä|sivu|Tulostettu)"_s)))
                    QVERIFY2(fontti.startsWith(u"Times New Roman"_s), qPrintable(fontti));
                else
                    QCOMPARE(fontti, (k->teksti == u"Kyläseura"_s || k->teksti == u"Jäsenluettelo"_s) ? u"Liberation Serif 12"_s
                                                                                                       : u"Liberation Sans 9"_s);
                QVERIFY(k->teksti != u"Jäsenluettelo"_s || f.bold());
            }
        }
        QCOMPARE(kaikki, odotetut);
        const QString pdf = env->path(u"luettelo.pdf"_s);
        KirjoitaPdf(doc, pdf);
        const QString teksti = PdfTeksti(pdf);
        QVERIFY2(teksti.contains(u"Kyläseura"_s) && teksti.contains(u"Jäseniä yhteensä: 120"_s), qPrintable(teksti.left(500)));
        QCOMPARE(teksti.count(u'\f'), 3);
    }

    // A batch the program chose: the rows of the keys alone, in the keys' order before the
    // report's own sort, the selection still applied; a key without a row is passed over; no keys,
    // no report. The report reads a read-only connection, where the keys still find their place.
    void rajausAvaimiin()
    {
        LisaaGeneroidut(*d, 20);
        d->execute(u"UPDATE jr SET jrJasenmaksu = (jrID = 7)"_s);
        Raporttiajo r;
        r.ResetReportFormulas(kanta);
        r.ReportFileName = u"jrluetlo"_s;
        r.Formulas[0] = u"Seurannimi= 'Kyläseura'"_s;
        r.Rajauskentta = u"{jr.jrID}"_s;
        r.Rajausavaimet = {5, 3, 99999, 7, 1};
        r.SelectionFormula = u"{jr.jrJasenmaksu} = False"_s;
        auto jasen = [&](qint64 id) {
            return d->scalar(u"SELECT jrSukunimi || ' ' || jrEtunimi FROM jr WHERE jrID = ?"_s, {id}).toString();
        };
        QStringList nimet;
        const QStringList tekstit = r.Laadi().tekstit(0);
        for (const QString &t : tekstit)
            if (t == jasen(5) || t == jasen(3) || t == jasen(1) || t == jasen(7) || t == jasen(2))
                nimet << t;
        QCOMPARE(nimet, (QStringList{jasen(5), jasen(3), jasen(1)}));
        r.Rajausavaimet.clear();
        QCOMPARE(r.Laadi().riveja, 0);
        r.Rajauskentta = u"{jr.eiOle}"_s;
        QVERIFY_THROWS_EXCEPTION(RaporttiVirhe, r.Laadi());
    }

    // Labels 3 × 8 to a sheet in name order, every line inside its 70 × 37 mm label; a member
    // abroad gets the country on the last line.
    void tarratArkille()
    {
        LisaaGeneroidut(*d, 50);
        TestiJasen ulkomainen = GeneroituJasen(50);
        ulkomainen.sukunimi = u"Zyskowski"_s;
        ulkomainen.maa = u"Puola"_s;
        LisaaJasen(*d, ulkomainen);
        const Asiakirja doc = laadi(kanta, u"jrosoite"_s);
        QCOMPARE(int(doc.sivut.size()), 3);
        auto solu = [](const Tulostekohde *k) {
            return QRectF(mm(70) * int(k->alue.left() / mm(70)), mm(0.5) + mm(37) * int((k->alue.top() - mm(0.5)) / mm(37)),
                          mm(70), mm(37));
        };
        const QString ulkoNimi = ulkomainen.etunimi + u" Zyskowski"_s;
        QStringList tarra;
        for (int s = 0; s < 3; ++s) {
            QSet<QPair<int, int>> solut;
            QRectF ulko;
            for (const Tulostekohde *k : doc.tekstikohteet(s)) {
                QVERIFY2(solu(k).adjusted(-1, -1, 1, 1).contains(k->alue), qPrintable(k->teksti));
                solut << qMakePair(qRound(solu(k).left()), qRound(solu(k).top()));
                if (k->teksti == ulkoNimi)
                    ulko = solu(k);
            }
            QCOMPARE(solut.size(), s < 2 ? 24 : 3);
            for (const Tulostekohde *k : doc.tekstikohteet(s))
                if (ulko.contains(k->alue))
                    tarra << k->teksti;
        }
        QCOMPARE(doc.tekstit(0).value(0), u"Kaisa Ahonen"_s);
        QCOMPARE(tarra, (QStringList{ulkoNimi, ulkomainen.osoite, ulkomainen.postinumero + u' ' + ulkomainen.toimipaikka, u"PUOLA"_s}));
        // The sheet keeps its labels where the label stock has them, whatever the margin settings say.
        Raporttiajo r;
        r.ResetReportFormulas(kanta);
        r.ReportFileName = u"jrosoite"_s;
        r.MarginLeft = r.MarginTop = 10 * 48;
        QCOMPARE(r.Laadi().tekstikohteet(0)[0]->alue, doc.tekstikohteet(0)[0]->alue);
    }

    // Invoices by member: one group per member with the member's name and count in its header
    // and the sum in its footer, the footer kept at the foot of each member's page.
    void ryhmat_summat_ja_sivunvaihdot()
    {
        TestiJasen a = GeneroituJasen(0), b = GeneroituJasen(1);
        a.sukunimi = u"Aalto"_s;
        b.sukunimi = u"Björk"_s;
        const qint64 ia = LisaaJasen(*d, a), ib = LisaaJasen(*d, b);
        const QList<db::Params> laskut = {{ib, 1001, 100000}, {ia, 1002, 205000}, {ib, 1003, 52500}, {ia, 1004, 150000}, {ib, 1005, 500}};
        for (const db::Params &lasku : laskut) // invoice number and price in 1/10,000 euro
            d->execute(u"INSERT INTO jmhist (jmhjmjrID, jmhjmLaskunumero, jmhjmHinta, jmhjmMaksettu) VALUES (?, ?, ?, 0)"_s, lasku);
        const QString maaritys = tiedosto(env->path(u"laskut.rpt"_s), R"xml(<raportti>
  <sivu koko="A4" vasen="20" oikea="20" yla="20" ala="20"/>
  <lahde taulu="jmhist"><liitos taulu="jr" ehto="{jr.jrID} = {jmhist.jmhjmjrID}" tapa="sisa"/></lahde>
  <jarjestys>+{jmhist.jmhjmLaskunumero}</jarjestys>
  <ryhma lauseke="{jr.jrSukunimi}" uusisivu="kyllä">
    <otsikko korkeus="8"><teksti x="0" y="0" leveys="170" korkeus="6" lauseke="{jr.jrSukunimi} + ' ' + ToText(Count()) + ' kpl'"/></otsikko>
    <alatunniste korkeus="10" alaosaan="kyllä"><teksti x="0" y="0" leveys="170" korkeus="6" lauseke="'Yhteensä ' + Raha(Sum({jmhist.jmhjmHinta}))"/></alatunniste>
  </ryhma>
  <rivi korkeus="6"><teksti x="0" y="0" leveys="40" korkeus="5" lauseke="{jmhist.jmhjmLaskunumero}"/>
    <teksti x="100" y="0" leveys="30" korkeus="5" tasaus="oikea" muoto="raha" lauseke="{jmhist.jmhjmHinta}"/></rivi>
  <raporttialatunniste korkeus="8"><teksti x="0" y="0" leveys="170" korkeus="6" lauseke="'Kaikki yhteensä ' + Raha(Sum({jmhist.jmhjmHinta}))"/></raporttialatunniste>
  <sivualatunniste korkeus="6"><teksti x="0" y="0" leveys="170" korkeus="5" lauseke="'sivu ' + ToText(PageNumber) + ' / ' + ToText(TotalPages)"/></sivualatunniste>
</raportti>)xml");
        const Asiakirja doc = laadi(kanta, maaritys);
        // A footer kept at the foot of the page fills the page: the report's total comes after.
        QCOMPARE(int(doc.sivut.size()), 3);
        QCOMPARE(doc.tekstit(0), (QStringList{u"Aalto 2 kpl"_s, u"1002"_s, u"20,50"_s, u"1004"_s, u"15,00"_s,
                                              u"Yhteensä 35,50"_s, u"sivu 1 / 3"_s}));
        QCOMPARE(doc.tekstit(1), (QStringList{u"Björk 3 kpl"_s, u"1001"_s, u"10,00"_s, u"1003"_s, u"5,25"_s, u"1005"_s,
                                              u"0,05"_s, u"Yhteensä 15,30"_s, u"sivu 2 / 3"_s}));
        QCOMPARE(doc.tekstit(2), (QStringList{u"Kaikki yhteensä 50,80"_s, u"sivu 3 / 3"_s}));
    }

    void pitkaTekstiJatkuuSeuraavalleSivulle()
    {
        QStringList rivit;
        for (int i = 1; i <= 150; ++i)
            rivit << u"Rivi %1 rekisteritiedoista"_s.arg(i);
        d->execute(u"INSERT INTO Rekisteritiedot (jrID, Tiedot) VALUES (1, ?)"_s, {rivit.join(u'\n')});
        const QString maaritys = tiedosto(env->path(u"tiedot.rpt"_s), R"xml(<raportti>
  <lahde taulu="Rekisteritiedot"/>
  <rivi korkeus="10"><teksti x="0" y="2" leveys="100" korkeus="5" kasvaa="kyllä" lauseke="{Rekisteritiedot.Tiedot}"/></rivi>
</raportti>)xml");
        const Asiakirja doc = laadi(kanta, maaritys);
        QStringList luetut;
        for (int s = 0; s < int(doc.sivut.size()); ++s)
            luetut += doc.tekstit(s);
        QCOMPARE(luetut, rivit); // every line once, in order, none cut off
    }

    // One table twice under two names (the head of a family and its members), items and bands
    // shown only when their condition holds, and margins handed in at run time.
    void aliasNakyvyysJaMarginaalit()
    {
        TestiJasen paa = GeneroituJasen(0), puoliso = GeneroituJasen(1), lapsi = GeneroituJasen(2), yksin = GeneroituJasen(3);
        paa.sukunimi = u"Aalto"_s;
        paa.jasenmaksu = false;
        const qint64 ip = LisaaJasen(*d, paa), is = LisaaJasen(*d, puoliso), il = LisaaJasen(*d, lapsi);
        LisaaJasen(*d, yksin);
        d->execute(u"INSERT INTO jrPerhe (jrPMID, jrPSubID) VALUES (?, ?), (?, ?)"_s, {ip, is, ip, il});
        const QString maaritys = tiedosto(env->path(u"perheet.rpt"_s), R"xml(<raportti><sivu vasen="20" yla="20"/>
  <lahde taulu="jr"><liitos taulu="jrPerhe" ehto="{jrPerhe.jrPMID} = {jr.jrID}" tapa="sisa"/>
    <liitos taulu="jr" nimi="jasen" ehto="{jasen.jrID} = {jrPerhe.jrPSubID}"/></lahde>
  <jarjestys>+{jasen.jrID}</jarjestys>
  <ryhma lauseke="{jr.jrID}"><otsikko korkeus="6"><teksti x="0" y="0" leveys="80" korkeus="5" lauseke="{jr.jrSukunimi}"/>
    <teksti x="90" y="0" leveys="40" korkeus="5" nakyy="not {jr.jrJasenmaksu}">maksamatta</teksti></otsikko></ryhma>
  <rivi korkeus="5" nakyy="{jasen.jrID} &lt;&gt; 0"><teksti x="10" y="0" leveys="80" korkeus="5" lauseke="{jasen.jrEtunimi}"/></rivi>
</raportti>)xml");
        Raporttiajo r;
        r.ResetReportFormulas(kanta);
        r.ReportFileName = maaritys;
        QCOMPARE(r.Laadi().tekstit(0), (QStringList{u"Aalto"_s, u"maksamatta"_s, puoliso.etunimi, lapsi.etunimi}));
        // The settings' margins arrive multiplied by 48 (twips); 0 keeps the report's own.
        r.MarginLeft = 10 * 48;
        const Asiakirja doc = r.Laadi();
        QCOMPARE(doc.tekstikohteet(0)[0]->alue.topLeft().toPoint(), QPointF(480, mm(20)).toPoint());
    }

    // A report of the user's own in the program's folder wins over the built-in one of its name,
    // also named with a backslash; images from the program's folder, and barcode and QR items
    // keep their places and contents on the page and in the PDF.
    void omaRaporttiKuvatJaKoodit()
    {
        LisaaGeneroidut(*d, 1);
        QVERIFY(EtsiRaportti(u"jrluetlo"_s).startsWith(u':'));
        QDir().mkpath(env->programFolder());
        QImage logo(40, 20, QImage::Format_RGB32);
        logo.fill(Qt::darkBlue);
        QVERIFY(logo.save(env->programFolder() + u"/logo.png"_s));
        tiedosto(env->programFolder() + u"/jrluetlo.rpt"_s,
            "<raportti><sivu vasen=\"10\" yla=\"10\"/><lahde taulu=\"jr\"/><rivi korkeus=\"60\">"
            "<kuva x=\"0\" y=\"0\" leveys=\"20\" korkeus=\"10\" tiedosto=\"logo.png\"/>"
            "<viivakoodi x=\"5\" y=\"40\" leveys=\"60\" korkeus=\"10\" lauseke=\"'4' + {jr.jrJasennumero}\"/>"
            "<qr x=\"65\" y=\"40\" leveys=\"15\" korkeus=\"15\" lauseke=\"{jr.jrSukunimi}\"/></rivi></raportti>");
        QVERIFY(!EtsiRaportti(u"jrluetlo"_s).startsWith(u':'));
        const Asiakirja doc = laadi(kanta, env->programFolder() + u"\\jrluetlo.rpt"_s);
        const auto &k = doc.sivut.at(0).kohteet;
        QCOMPARE(int(k.size()), 3);
        QVERIFY(k[0].laji == KohdeLaji::Kuva && k[0].teksti.endsWith(u"/logo.png"_s));
        QCOMPARE(k[0].alue.toRect(), QRectF(mm(10), mm(10), mm(20), mm(10)).toRect());
        QVERIFY(k[1].laji == KohdeLaji::Viivakoodi && k[1].teksti == u"41"_s);
        QVERIFY(k[2].laji == KohdeLaji::QrKoodi && k[2].teksti == GeneroituJasen(0).sukunimi);
        KirjoitaPdf(doc, env->path(u"kortti.pdf"_s)); // codes and images reach the PDF without a fault
        // A logo the club may not have: without the file the page goes without it.
        QFile::remove(env->programFolder() + u"/logo.png"_s);
        tiedosto(env->programFolder() + u"/jrluetlo.rpt"_s,
            "<raportti><lahde taulu=\"jr\"/><rivi korkeus=\"20\"><kuva x=\"0\" y=\"0\" leveys=\"20\" korkeus=\"10\" "
            "tiedosto=\"logo.png\" valinnainen=\"kyllä\"/><teksti x=\"0\" y=\"12\" leveys=\"50\" korkeus=\"5\">Lasku</teksti>"
            "</rivi></raportti>");
        QCOMPARE(laadi(kanta, u"jrluetlo"_s).tekstit(0), QStringList{u"Lasku"_s});
        QCOMPARE(int(laadi(kanta, u"jrluetlo"_s).sivut.at(0).kohteet.size()), 1);
    }

    // A broken definition is told by file and item; a run with no rows or a missing report
    // prints nothing.
    void maaritysvirheetNimeavatTiedostonJaKohdan_data()
    {
        QTest::addColumn<QByteArray>("maaritys");
        QTest::addColumn<QString>("osa");
        const QByteArray loppu = "</rivi></raportti>";
        auto teksti = [&](const QByteArray &ominaisuudet) {
            return "<raportti><lahde taulu=\"jr\"/><rivi korkeus=\"5\"><teksti x=\"0\" y=\"0\" leveys=\"50\" " + ominaisuudet + "/>" + loppu;
        };
        QTest::newRow("tuntematon kenttä") << teksti("nimi=\"Nimi\" korkeus=\"5\" lauseke=\"{jr.jrSukunimmi}\"")
                                           << u"virhe.rpt, kohde \"Nimi\": kenttää {jr.jrSukunimmi} ei ole taulussa jr"_s;
        QTest::newRow("tuntematon taulu") << teksti("korkeus=\"5\" lauseke=\"{xx.jrSukunimi}\"")
                                          << u"virhe.rpt, <teksti> rivillä 1: taulu xx ei kuulu raportin tietoihin"_s;
        QTest::newRow("summa summassa") << teksti("korkeus=\"5\" lauseke=\"Sum(Sum({jr.jrID}))\"") << u"toisen summan sisällä"_s;
        QTest::newRow("kirjoitusvirhe ominaisuudessa") << teksti("korkus=\"5\"") << u"ei ole ominaisuutta \"korkus\""_s;
        QTest::newRow("rikki oleva XML") << QByteArray("<raportti><lahde taulu=\"jr\"></raportti>") << u"XML-virhe"_s;
        QTest::newRow("puuttuva kuva") << "<raportti><lahde taulu=\"jr\"/><rivi korkeus=\"5\"><kuva x=\"0\" y=\"0\" leveys=\"5\" "
                                          "korkeus=\"5\" tiedosto=\"logo.png\"/>" + loppu << u"kuvaa logo.png ei löydy"_s;
        QTest::newRow("sivu täynnä otsikkoa")
            << QByteArray("<raportti><sivu yla=\"100\" ala=\"100\"/><lahde taulu=\"jr\"/><sivuotsikko korkeus=\"95\"/>"
                          "<rivi korkeus=\"5\"/></raportti>") << u"ettei sivulle mahdu mitään"_s;
        QTest::newRow("liitos viittaa myöhempään")
            << QByteArray("<raportti><lahde taulu=\"jr\"><liitos taulu=\"pi\" ehto=\"{pi.piID} = {pt.ptpiID}\"/>"
                          "<liitos taulu=\"pt\" ehto=\"{pt.ptjrID} = {jr.jrID}\"/></lahde><rivi korkeus=\"5\">"
                          "<teksti x=\"0\" y=\"0\" leveys=\"50\" korkeus=\"5\" lauseke=\"{pi.piNimi}\"/>") + loppu
            << u"liitetään vasta myöhemmin"_s;
        QTest::newRow("ei rivejä") << QByteArray("jrluetlo.rpt") << QString();
        QTest::newRow("raporttia ei ole") << QByteArray("eiole.rpt") << u"Raporttia eiole.rpt ei löydy"_s;
    }

    void maaritysvirheetNimeavatTiedostonJaKohdan()
    {
        QFETCH(QByteArray, maaritys);
        QFETCH(QString, osa);
        LisaaGeneroidut(*d, 2);
        Raporttiajo r;
        r.ResetReportFormulas(kanta);
        r.ReportFileName = maaritys.startsWith('<') ? tiedosto(env->path(u"virhe.rpt"_s), maaritys) : QString::fromLatin1(maaritys);
        r.SelectionFormula = u"{jr.jrSukunimi} = 'Ei ketään'"_s;
        r.Destination = Raporttiajo::PdfTiedosto;
        r.PrintFileName = env->path(u"tyhja.pdf"_s);
        try {
            r.setAction(1);
            QFAIL("a broken definition was printed");
        } catch (const RaporttiVirhe &e) {
            QVERIFY2(e.viesti().contains(osa), qPrintable(e.viesti()));
        }
        QVERIFY(!QFile::exists(r.PrintFileName)); // nothing half-printed
    }

    // A turned text reads along its box's height: painted upwards it stands tall and narrow.
    void kaannettyTeksti()
    {
        LisaaGeneroidut(*d, 1);
        const QString maaritys = tiedosto(env->path(u"pysty.rpt"_s), R"xml(<raportti><lahde taulu="jr"/>
  <rivi korkeus="90"><teksti x="10" y="5" leveys="10" korkeus="80" koko="14" kierto="90">TILISIIRTO. GIRERING</teksti></rivi>
</raportti>)xml");
        const Asiakirja doc = laadi(kanta, maaritys);
        QCOMPARE(doc.tekstit(0), QStringList{u"TILISIIRTO. GIRERING"_s});
        QImage kuva(QSize(400, 800), QImage::Format_RGB32);
        kuva.fill(Qt::white);
        {
            QPainter p(&kuva);
            p.scale(100.0 / 1440, 100.0 / 1440);
            PiirraSivu(p, doc, 0);
        }
        QRect muste;
        for (int y = 0; y < kuva.height(); ++y)
            for (int x = 0; x < kuva.width(); ++x)
                if (qGray(kuva.pixel(x, y)) < 128)
                    muste |= QRect(x, y, 1, 1);
        QVERIFY2(muste.height() > 4 * muste.width(), qPrintable(u"%1 x %2"_s.arg(muste.width()).arg(muste.height())));
        // Within its box (the report's own margins 15 and 12 mm), at 100 dots per inch.
        const double piste = 100.0 / 1440;
        const QRectF laatikko(mm(15 + 10) * piste, mm(12 + 5) * piste, mm(10) * piste, mm(80) * piste);
        QVERIFY(laatikko.adjusted(-2, -2, 2, 2).contains(QRectF(muste)));
    }
};

QTEST_MAIN(TestAsettelu)
#include "tst_asettelu.moc"
