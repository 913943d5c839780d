// Pages as the engine hands them on: page numbers counted per group (an invoice's "Sivu 1/3" in
// a batch), the same pages whether collected or streamed through the preview's page file, and a
// stopped PDF that leaves nothing behind.
#include "raporttiseura.h"
#include "reports/Asettelu.h"
#include "reports/Piirto.h"
#include "reports/Raporttiajo.h"
#include "reports/RaporttiVirhe.h"
#include "testiapu.h"
#include "testipohja.h"

#include <QDir>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

using testi::tiedosto;

// Invoices of three members, one to a row of the history; a row is 100 mm high, so two fit on
// a page. Aalto has one invoice, Björk five, Castrén one.
void lisaaLaskut(db::Database &d)
{
    const QStringList nimet = {u"Aalto"_s, u"Björk"_s, u"Castrén"_s};
    const int laskuja[] = {1, 5, 1};
    int numero = 1000;
    for (int j = 0; j < nimet.size(); ++j) {
        TestiJasen t = GeneroituJasen(j);
        t.sukunimi = nimet[j];
        const qint64 id = LisaaJasen(d, t);
        for (int i = 0; i < laskuja[j]; ++i)
            d.execute(u"INSERT INTO jmhist (jmhjmjrID, jmhjmLaskunumero, jmhjmHinta, jmhjmMaksettu) VALUES (?, ?, 100000, 0)"_s,
                      {id, ++numero});
    }
}

// A group per member with the given attributes; the page footer shows the page numbers.
QByteArray laskupohja(const QByteArray &ryhmanMaareet)
{
    return R"xml(<raportti>
  <sivu koko="A4" vasen="20" oikea="20" yla="10" ala="10"/>
  <lahde taulu="jmhist"><liitos taulu="jr" ehto="{jr.jrID} = {jmhist.jmhjmjrID}" tapa="sisa"/></lahde>
  <jarjestys>+{jmhist.jmhjmLaskunumero}</jarjestys>
  <ryhma lauseke="{jr.jrSukunimi}" )xml" + ryhmanMaareet + R"xml(>
    <otsikko korkeus="8"><teksti x="0" y="0" leveys="170" korkeus="6" lauseke="{jr.jrSukunimi}"/></otsikko>
  </ryhma>
  <rivi korkeus="100"><teksti x="0" y="0" leveys="40" korkeus="5" lauseke="{jmhist.jmhjmLaskunumero}"/></rivi>
  <sivualatunniste korkeus="10"><teksti x="0" y="0" leveys="170" korkeus="5" lauseke="'Sivu ' + ToText(PageNumber) + '/' + ToText(TotalPages)"/></sivualatunniste>
</raportti>)xml";
}

} // namespace

class TestSivuvirta : public Testipohja {
    Q_OBJECT
    QString kanta;
    std::unique_ptr<db::Database> d;

    Raporttiajo ajo(const QString &maaritys) const
    {
        Raporttiajo r;
        r.ResetReportFormulas(kanta);
        r.ReportFileName = maaritys;
        return r;
    }

private slots:
    void init()
    {
        Testipohja::init();
        kanta = env->path(u"seura.mdb"_s);
        d = LuoTyhjaSeura(kanta);
        lisaaLaskut(*d);
    }
    void cleanup()
    {
        d.reset();
        Testipohja::cleanup();
    }

    void sivunumerot_data()
    {
        QTest::addColumn<QByteArray>("maareet");
        QTest::addColumn<QStringList>("odotetut"); // per page: the member, then the footer
        QTest::newRow("oma sivutus") << QByteArray(R"(sivutus="oma")")
                                     << QStringList{u"Aalto Sivu 1/1"_s,  u"Björk Sivu 1/3"_s, u"Björk Sivu 2/3"_s,
                                                    u"Björk Sivu 3/3"_s, u"Castrén Sivu 1/1"_s};
        QTest::newRow("koko raportti") << QByteArray(R"(uusisivu="kyllä")")
                                       << QStringList{u"Aalto Sivu 1/5"_s,  u"Björk Sivu 2/5"_s, u"Björk Sivu 3/5"_s,
                                                      u"Björk Sivu 4/5"_s, u"Castrén Sivu 5/5"_s};
        QTest::newRow("koko raportti ilman sivunvaihtoa") << QByteArray()
                                                          << QStringList{u"Björk Sivu 1/4"_s, u"Björk Sivu 2/4"_s,
                                                                         u"Björk Sivu 3/4"_s, u"Castrén Sivu 4/4"_s};
    }
    // Each member's pages count on their own with sivutus="oma", the whole report's otherwise.
    void sivunumerot()
    {
        QFETCH(QByteArray, maareet);
        QFETCH(QStringList, odotetut);
        const Asiakirja doc = ajo(tiedosto(env->path(u"laskut.rpt"_s), laskupohja(maareet))).Laadi();
        QStringList sivut;
        for (int s = 0; s < int(doc.sivut.size()); ++s) {
            const QStringList t = doc.tekstit(s);
            // The member whose rows the page shows: a heading, or the last heading before it.
            static const QStringList nimet = {u"Aalto"_s, u"Björk"_s, u"Castrén"_s};
            QString kenen = sivut.isEmpty() ? QString() : sivut.last().section(u' ', 0, 0);
            for (const QString &x : t)
                if (nimet.contains(x))
                    kenen = x;
            sivut << kenen + u' ' + t.last();
        }
        QVERIFY2(sivut == odotetut, qPrintable(sivut.join(u'|')));
    }

    void tuntematonSivutus()
    {
        Raporttiajo r = ajo(tiedosto(env->path(u"laskut.rpt"_s), laskupohja(R"(sivutus="laskuittain")")));
        try {
            r.Laadi();
            QFAIL("tuntematon sivutus kelpasi");
        } catch (const RaporttiVirhe &e) {
            QVERIFY2(e.viesti().contains(u"ryhmän sivutus \"laskuittain\" on tuntematon"_s), qPrintable(e.viesti()));
        }
    }
};

QTEST_MAIN(TestSivuvirta)
#include "tst_sivuvirta.moc"
