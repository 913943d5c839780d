// Pages as the engine hands them on: page numbers counted per group (an invoice's "Sivu 1/3" in
// a batch), the same pages whether collected or streamed through the preview's page file, and a
// stopped PDF that leaves nothing behind.
#include "raporttiseura.h"
#include "reports/Asettelu.h"
#include "reports/Piirto.h"
#include "reports/Raporttiajo.h"
#include "reports/RaporttiVirhe.h"
#include "reports/Sivusto.h"
#include "reports/ui/Sivunakyma.h"
#include "reports/ui/frmEsikatselu.h"
#include "testiapu.h"
#include "testipohja.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QScrollBar>
#include <QtTest>
#include <set>

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

// Says stop when asked for the `kerta`th time.
struct Pysayttaja : Edistyminen {
    int kerta;
    explicit Pysayttaja(int k) : kerta(k) {}
    void vaihe(qint64, qint64) override {}
    bool keskeytetaanko() override { return --kerta <= 0; }
};

// A report of any length made up as it is read: page i shows "Sivu i+1". Notes the pages read.
class Keksitty : public Sivusto {
public:
    explicit Keksitty(int sivuja) : m_sivuja(sivuja)
    {
        m_pohja.nimi = u"Pitkä erä"_s;
        m_pohja.koko = QPageSize(QPageSize::A4).sizePoints() * double(yksikko::TwipsiaPisteella);
        QFont f(u"DejaVu Sans"_s);
        f.setPixelSize(240);
        m_pohja.fontit.push_back(f);
        m_pohja.riveja = sivuja;
    }
    const Asiakirja &pohja() const override { return m_pohja; }
    int sivuja() const override { return m_sivuja; }
    Sivu sivu(int i) const override
    {
        luetut.insert(i);
        Sivu s;
        Tulostekohde k;
        k.alue = QRectF(1000, 1000, 5000, 300);
        k.teksti = u"Sivu %1"_s.arg(i + 1);
        k.fontti = 0;
        s.kohteet.push_back(k);
        return s;
    }
    mutable std::set<int> luetut;

private:
    Asiakirja m_pohja;
    int m_sivuja;
};

// Every page's texts, and where and in which font each is, as one text per page.
QStringList sivujenSisalto(const Sivusto &s)
{
    QStringList sivut;
    for (int i = 0; i < s.sivuja(); ++i) {
        QStringList kohteet;
        for (const Tulostekohde &k : s.sivu(i).kohteet) {
            const QRectF &a = k.alue;
            kohteet << u"%1@%2,%3,%4,%5/%6/%7"_s.arg(k.teksti).arg(a.x()).arg(a.y()).arg(a.width()).arg(a.height()).arg(k.fontti).arg(int(k.laji));
        }
        sivut << kohteet.join(u'|');
    }
    return sivut;
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

    // The pages the preview keeps in its temporary file read back the same as the document laid
    // out in memory, and the PDF written as the pages come has every page.
    void virtaVastaaKokonaista()
    {
        const QString maaritys = tiedosto(env->path(u"laskut.rpt"_s), laskupohja(R"(sivutus="oma")"));
        const Asiakirja koko = ajo(maaritys).Laadi();
        Sivutiedosto sivut;
        ajo(maaritys).Laadi(sivut);
        QCOMPARE(sivut.sivuja(), 5);
        QCOMPARE(sivut.pohja().riveja, koko.riveja);
        QCOMPARE(sivut.pohja().fontit, koko.fontit);
        QCOMPARE(sivujenSisalto(sivut), sivujenSisalto(Muistisivusto(koko)));
        QCOMPARE(sivut.sivu(5).kohteet.size(), size_t(0));

        Raporttiajo r = ajo(maaritys);
        r.Destination = Raporttiajo::PdfTiedosto;
        r.PrintFileName = env->path(u"laskut.pdf"_s);
        r.Aja();
        const QString teksti = PdfTeksti(r.PrintFileName);
        QCOMPARE(teksti.count(u'\f'), 5);
        QVERIFY2(teksti.contains(u"Sivu 3/3"_s) && teksti.contains(u"Castrén"_s), qPrintable(teksti));
        const QString toinen = env->path(u"esikatselusta.pdf"_s);
        KirjoitaPdf(sivut, toinen, nullptr);
        QCOMPARE(PdfTeksti(toinen), teksti);
    }

    void keskeytysEiJataPdf_data()
    {
        QTest::addColumn<bool>("esikatselusta");
        QTest::newRow("asettelun aikana") << false;
        QTest::newRow("esikatselun sivuista") << true;
    }
    // A run stopped half-way leaves the file that was at the target as it was, and no part of a
    // new one beside it.
    void keskeytysEiJataPdf()
    {
        QFETCH(bool, esikatselusta);
        const QString maaritys = tiedosto(env->path(u"laskut.rpt"_s), laskupohja(R"(sivutus="oma")"));
        const QString kansio = env->path(u"pdf"_s);
        QVERIFY(QDir().mkpath(kansio));
        const QString polku = tiedosto(kansio + u"/laskut.pdf"_s, "vanha tiedosto");
        Pysayttaja seis(4);
        try {
            if (esikatselusta) {
                Sivutiedosto sivut;
                ajo(maaritys).Laadi(sivut);
                KirjoitaPdf(sivut, polku, &seis);
            } else {
                Ajo a(*d, &seis);
                Raporttiajo r = ajo(maaritys);
                r.ajo = &a;
                r.Destination = Raporttiajo::PdfTiedosto;
                r.PrintFileName = polku;
                r.Aja();
            }
            QFAIL("ajo ei pysähtynyt");
        } catch (const Keskeytetty &) {
        }
        QCOMPARE(QDir(kansio).entryList(QDir::Files | QDir::Hidden), QStringList{u"laskut.pdf"_s});
        QFile f(polku);
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), QByteArray("vanha tiedosto"));
    }

    // The preview scrolls to the last page of a hundred thousand and reads only the pages it
    // shows.
    void esikatseluVierittaaLoppuun()
    {
        const Keksitty sivut(100000);
        frmEsikatselu w(sivut, true);
        w.cmbZoom->setCurrentIndex(w.cmbZoom->findData(100));
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QCOMPARE(w.lblSivut->text(), u"sivu 1 / 100000"_s);
        QScrollBar *palkki = w.nakyma()->verticalScrollBar();
        palkki->setValue(palkki->maximum());
        QCOMPARE(w.lblSivut->text(), u"sivu 100000 / 100000"_s);
        sivut.luetut.clear();
        w.nakyma()->viewport()->grab();
        QVERIFY(sivut.luetut.count(99999));
        QVERIFY2(sivut.luetut.size() <= 3, qPrintable(QString::number(sivut.luetut.size())));
        w.nakyma()->naytaSivu(49999);
        QCOMPARE(w.lblSivut->text(), u"sivu 50000 / 100000"_s);
        // Another zoom keeps the same page in view.
        w.cmbZoom->setCurrentIndex(w.cmbZoom->findData(50));
        QCOMPARE(w.nakyvaSivu(), 49999);
    }
};

QTEST_MAIN(TestSivuvirta)
#include "tst_sivuvirta.moc"
