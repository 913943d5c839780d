// What the engine does at the edges: a word longer than any line, a formula nested past reason,
// and a report file the user chose that is not there.
#include "raporttiseura.h"
#include "reports/Raporttiajo.h"
#include "reports/RaporttiVirhe.h"
#include "testiapu.h"
#include "testipohja.h"

#include <QFontMetricsF>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

using testi::tiedosto;

class TestRaporttirajat : public Testipohja {
    Q_OBJECT
    QString kanta;
    std::unique_ptr<db::Database> d;

    Raporttiajo ajo(const QString &raportti) const
    {
        Raporttiajo r;
        r.ResetReportFormulas(kanta);
        r.ReportFileName = raportti;
        return r;
    }

    // The message of the fault the run stops on; empty when it runs.
    static QString virhe(const Raporttiajo &r)
    {
        try {
            r.Laadi();
            return {};
        } catch (const RaporttiVirhe &e) {
            return e.viesti();
        }
    }

private slots:
    void init()
    {
        Testipohja::init();
        kanta = env->path(u"seura.mdb"_s);
        d = LuoTyhjaSeura(kanta);
        LisaaGeneroidut(*d, 3);
    }
    void cleanup()
    {
        d.reset();
        Testipohja::cleanup();
    }

    // A word of 10,000 characters wraps into lines that each fit the box, every character once
    // and in order, over as many pages as it takes.
    void pitkaSanaRivittyy()
    {
        QString sana;
        for (int i = 0; i < 10000; ++i)
            sana += QChar(u'a' + i % 26);
        d->execute(u"INSERT INTO Rekisteritiedot (jrID, Tiedot) VALUES (1, ?)"_s, {u"Alku "_s + sana + u" loppu"_s});
        const QString maaritys = tiedosto(env->path(u"sana.rpt"_s), R"xml(<raportti><lahde taulu="Rekisteritiedot"/>
  <rivi korkeus="10"><teksti x="0" y="0" leveys="40" korkeus="5" kasvaa="kyllä" lauseke="{Rekisteritiedot.Tiedot}"/></rivi>
</raportti>)xml");
        const Asiakirja doc = ajo(maaritys).Laadi();
        QStringList rivit;
        const double leveys = 40 * yksikko::TwipsiaMillilla;
        for (int s = 0; s < int(doc.sivut.size()); ++s)
            for (const Tulostekohde *k : doc.tekstikohteet(s)) {
                rivit << k->teksti;
                const double w = QFontMetricsF(doc.fontit[size_t(k->fontti)]).horizontalAdvance(k->teksti);
                QVERIFY2(w <= leveys + 1, qPrintable(u"%1: %2 > %3"_s.arg(k->teksti).arg(w).arg(leveys)));
            }
        QVERIFY(doc.sivut.size() > 1);
        QCOMPARE(rivit.first(), u"Alku"_s);
        QCOMPARE(rivit.join(QString()), u"Alku"_s + sana + u" loppu"_s);
    }

    void syvaKaava_data()
    {
        QTest::addColumn<QString>("kaava");
        QTest::addColumn<QString>("virhe"); // empty: the report runs
        auto sisakkain = [](int n, const QString &alku, const QString &sisus, const QString &loppu) {
            return alku.repeated(n) + sisus + loppu.repeated(n);
        };
        const QString ehto = u"{jr.jrJasennumero} = '1'"_s;
        QTest::newRow("150 sulkua") << sisakkain(150, u"("_s, ehto, u")"_s) << QString();
        QTest::newRow("500 sulkua") << sisakkain(500, u"("_s, ehto, u")"_s) << u"kaava on sisäkkäin yli 200 tasoa"_s;
        QTest::newRow("500 funktiota") << sisakkain(500, u"Trim("_s, u"{jr.jrJasennumero}"_s, u")"_s) + u" = '1'"_s
                                       << u"kaava on sisäkkäin yli 200 tasoa"_s;
        QTest::newRow("500 not") << u"not "_s.repeated(500) + ehto << u"kaava on sisäkkäin yli 200 tasoa"_s;
        QTest::newRow("500 etumerkkiä") << u"{jr.jrID} = "_s + u"-"_s.repeated(500) + u"1"_s << u"kaava on sisäkkäin yli 200 tasoa"_s;
        QTest::newRow("40 yhteenlaskua") << u"{jr.jrID} = 0"_s + u" + 0"_s.repeated(40) + u" + 1"_s << QString();
        QTest::newRow("5000 yhteenlaskua") << u"{jr.jrID} = 0"_s + u" + 0"_s.repeated(5000)
                                           << u"kaavassa on yli 1000 peräkkäistä laskutoimitusta"_s;
        QTest::newRow("5000 ehtoa") << (ehto + u" or "_s).repeated(5000) + ehto
                                    << u"kaavassa on yli 1000 peräkkäistä laskutoimitusta"_s;
    }
    // A formula nested deeper than the limit is refused with a message, not a crash; one within it
    // selects its row.
    void syvaKaava()
    {
        QFETCH(QString, kaava);
        QFETCH(QString, virhe);
        Raporttiajo r = ajo(u"jrluetlo"_s);
        r.SelectionFormula = kaava;
        const QString saatu = TestRaporttirajat::virhe(r);
        if (virhe.isEmpty()) {
            QVERIFY2(saatu.isEmpty(), qPrintable(saatu.left(300)));
            QCOMPARE(r.Laadi().riveja, 1);
        } else {
            QVERIFY2(saatu.contains(virhe) && saatu.startsWith(u"Raportti jrluetlo.rpt, valintakaava: kaavaa"_s),
                     qPrintable(saatu.left(300)));
        }
    }

    void puuttuvaTiedosto_data()
    {
        QTest::addColumn<QString>("raportti");
        QTest::addColumn<QString>("virhe"); // empty: the built-in report is found
        QTest::newRow("valittu tiedosto") << u"@omat/jrotile.rpt"_s << u"Raporttitiedostoa @omat/jrotile.rpt ei löydy."_s;
        QTest::newRow("vanha Windows-polku") << u"C:\\Laskut\\jrotile.rpt"_s << u"Raporttitiedostoa C:\\Laskut\\jrotile.rpt ei löydy."_s;
        QTest::newRow("ohjelman kansiossa") << u"#\\jrluetlo.rpt"_s << QString();
        QTest::newRow("pelkkä nimi") << u"jrluetlo"_s << QString();
    }
    // A file the user chose that is missing is named in the message; the program's own reports are
    // still found by name or by a path into the program's folder.
    void puuttuvaTiedosto()
    {
        QFETCH(QString, raportti);
        QFETCH(QString, virhe);
        raportti.replace(u'@', env->path(QString())).replace(u'#', env->programFolder());
        virhe.replace(u'@', env->path(QString()));
        const QString saatu = TestRaporttirajat::virhe(ajo(raportti));
        if (virhe.isEmpty())
            QVERIFY2(saatu.isEmpty(), qPrintable(saatu));
        else
            QVERIFY2(saatu.startsWith(virhe), qPrintable(saatu));
    }
};

QTEST_MAIN(TestRaporttirajat)
#include "tst_raporttirajat.moc"
