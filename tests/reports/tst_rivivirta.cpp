// Rows read one outermost group at a time: every group whole and once, in order, counted first
// and read again for a second pass; a report laid out from them is the report laid out from all
// rows fetched at once.
#include "raporttiseura.h"
#include "reports/Asettelu.h"
#include "reports/Raporttiajo.h"
#include "reports/Tietolahde.h"
#include "testiapu.h"
#include "testipohja.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

using testi::tiedosto;

namespace {

// Invoices of generated members: member i has 1 + i % 4 invoices.
void lisaaLaskut(db::Database &d, int jasenia)
{
    LisaaGeneroidut(d, jasenia);
    db::Transaction t(d);
    int numero = 1000;
    for (int j = 1; j <= jasenia; ++j)
        for (int i = 0; i <= j % 4; ++i)
            d.execute(u"INSERT INTO jmhist (jmhjmjrID, jmhjmLaskunumero, jmhjmHinta, jmhjmMaksettu) VALUES (?, ?, ?, 0)"_s,
                      {j, ++numero, 10000 * (1 + numero % 7)});
    t.commit();
}

// Per page, its texts joined.
QStringList sivut(const Asiakirja &d)
{
    QStringList s;
    for (int i = 0; i < int(d.sivut.size()); ++i)
        s << d.tekstit(i).join(u'|');
    return s;
}

} // namespace

class TestRivivirta : public Testipohja {
    Q_OBJECT
    QString kanta;
    std::unique_ptr<db::Database> d;

private slots:
    void init()
    {
        Testipohja::init();
        kanta = env->path(u"seura.mdb"_s);
        d = LuoTyhjaSeura(kanta);
        lisaaLaskut(*d, 30);
    }
    void cleanup()
    {
        d.reset();
        Testipohja::cleanup();
    }

    // The rows come group by group in the order of the sort, each group whole, and again the same
    // after a return to the start.
    void ryhmaKerrallaan()
    {
        Maaritys m = LueMaaritysTekstista(R"xml(<raportti><lahde taulu="jmhist"/>
  <ryhma lauseke="{jmhist.jmhjmjrID}"/>
  <rivi korkeus="5"><teksti x="0" y="0" leveys="40" korkeus="5" lauseke="{jmhist.jmhjmLaskunumero}"/></rivi></raportti>)xml",
                                           u"ryhmat.rpt"_s);
        Kaavat kaavat;
        Tietolahde lahde(*d, m, kaavat);
        lahde.sido(*m.ryhmat[0].lauseke, u"ryhmä"_s);
        lahde.sido(*m.rivi->kohteet[0].lauseke, u"rivi"_s);
        const SqlEhto jarjestys = KaannaJarjestykseksi(*m.ryhmat[0].lauseke, false, lahde, u"ryhmä"_s);
        const std::unique_ptr<Rivilahde> virta = lahde.virta({}, {jarjestys.sql}, jarjestys.arvot, *m.ryhmat[0].lauseke);
        const int kaikki = testi::maara(*d, u"jmhist"_s);
        QCOMPARE(virta->riveja(), kaikki);
        const int sarake = m.ryhmat[0].lauseke->sarake, numero = m.rivi->kohteet[0].lauseke->sarake;
        for (int kierros = 0; kierros < 2; ++kierros) {
            virta->alusta();
            QStringList luetut;
            int jasen = 0;
            while (const Rivisto *r = virta->seuraava()) {
                ++jasen;
                QCOMPARE(r->riveja, 1 + jasen % 4);
                for (int i = 0; i < r->riveja; ++i) {
                    QCOMPARE(ArvoTekstina(r->rivi(i)[sarake]), QString::number(jasen));
                    luetut << ArvoTekstina(r->rivi(i)[numero]);
                }
                QCOMPARE(virta->lopussa(), jasen == 30);
            }
            QCOMPARE(jasen, 30);
            QCOMPARE(luetut.size(), kaikki);
            QCOMPARE(luetut.first(), u"1001"_s);
            QCOMPARE(luetut.last(), QString::number(1000 + kaikki));
        }
    }

    void samatSivut_data()
    {
        QTest::addColumn<QByteArray>("ryhmat");
        QTest::newRow("lasku sivuillaan") << QByteArray(R"xml(
  <ryhma lauseke="{jr.jrID}" sivutus="oma">
    <otsikko korkeus="8"><teksti x="0" y="0" leveys="170" korkeus="6" lauseke="{jr.jrSukunimi} + ' ' + ToText(Count()) + ' kpl'"/></otsikko>
    <alatunniste korkeus="60" alaosaan="kyllä"><teksti x="0" y="0" leveys="170" korkeus="6" lauseke="'Yhteensä ' + Raha(Sum({jmhist.jmhjmHinta}))"/></alatunniste>
  </ryhma>)xml");
        QTest::newRow("kaksi tasoa") << QByteArray(R"xml(
  <ryhma lauseke="{jr.jrPostitoimipaikka}">
    <otsikko korkeus="8"><teksti x="0" y="0" leveys="170" korkeus="6" lauseke="{jr.jrPostitoimipaikka}"/></otsikko>
    <alatunniste korkeus="8"><teksti x="0" y="0" leveys="170" korkeus="6" lauseke="'Paikkakunnalla ' + ToText(Count())"/></alatunniste>
  </ryhma>
  <ryhma lauseke="{jr.jrID}">
    <otsikko korkeus="8"><teksti x="0" y="0" leveys="170" korkeus="6" lauseke="{jr.jrSukunimi} + ' ' + {jr.jrEtunimi}"/></otsikko>
    <alatunniste korkeus="8"><teksti x="0" y="0" leveys="170" korkeus="6" lauseke="'Yhteensä ' + Raha(Sum({jmhist.jmhjmHinta}))"/></alatunniste>
  </ryhma>)xml");
    }
    // A report read group by group gives the same pages as the one whose report header, by
    // counting every row, makes the engine fetch all rows at once.
    void samatSivut()
    {
        QFETCH(QByteArray, ryhmat);
        auto maaritys = [&](const QByteArray &otsikko) {
            return R"xml(<raportti><sivu koko="A4" vasen="20" oikea="20" yla="10" ala="10"/>
  <lahde taulu="jmhist"><liitos taulu="jr" ehto="{jr.jrID} = {jmhist.jmhjmjrID}" tapa="sisa"/></lahde>
  <jarjestys>+{jmhist.jmhjmLaskunumero}</jarjestys>)xml"
                   + otsikko + ryhmat + R"xml(
  <rivi korkeus="30"><teksti x="0" y="0" leveys="20" korkeus="5" lauseke="ToText(RecordNumber)"/>
    <teksti x="30" y="0" leveys="40" korkeus="5" lauseke="{jmhist.jmhjmLaskunumero}"/></rivi>
  <sivualatunniste korkeus="6"><teksti x="0" y="0" leveys="170" korkeus="5" lauseke="'Sivu ' + ToText(PageNumber) + '/' + ToText(TotalPages)"/></sivualatunniste>
</raportti>)xml";
        };
        auto laadi = [&](const QString &polku) {
            Raporttiajo r;
            r.ResetReportFormulas(kanta);
            r.ReportFileName = polku;
            return r.Laadi();
        };
        const Asiakirja virtana = laadi(tiedosto(env->path(u"virta.rpt"_s), maaritys({})));
        const Asiakirja kokonaan = laadi(tiedosto(env->path(u"koko.rpt"_s), maaritys(R"xml(
  <raporttiotsikko korkeus="0"><teksti x="0" y="0" leveys="20" korkeus="5" lauseke="IIf(Count() &lt; 0, 'x', '')"/></raporttiotsikko>)xml")));
        QCOMPARE(virtana.riveja, testi::maara(*d, u"jmhist"_s));
        QCOMPARE(virtana.riveja, kokonaan.riveja);
        QVERIFY(virtana.sivut.size() > 3);
        QCOMPARE(sivut(virtana), sivut(kokonaan));
        QCOMPARE(virtana.tekstit(int(virtana.sivut.size()) - 1).contains(QString::number(virtana.riveja)), true);
    }
};

QTEST_MAIN(TestRivivirta)
#include "tst_rivivirta.moc"
