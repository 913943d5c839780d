// The user's column reports: the stored form of a definition and its rows in `rp`, and the
// printout of a definition on the demonstration club as laid out on the pages.
#include "core/Schema.h"
#include "members/Hakuehdot.h"
#include "raporttiseura.h"
#include "reports/RaporttiVirhe.h"
#include "reports/RapMaaritys.h"
#include "reports/Sarakeraportti.h"
#include "seurat.h"
#include "testenv.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

Q_DECLARE_METATYPE(RepSettings)

namespace {

constexpr double Mm = 1440 / 25.4;

RepSettings maaritys(const QString &nimi, const QString &otsikko, QVector<RapSarake> sarakkeet,
                     RepSettings::Suunta suunta = RepSettings::Pystyyn)
{
    RepSettings r;
    r.Nimi = nimi;
    r.Otsikko = otsikko;
    r.Orientation = suunta;
    r.Sarakkeet = std::move(sarakkeet);
    return r;
}

qint64 piirre(db::Database &d, const QString &nimi)
{
    return d.scalar(u"SELECT piID FROM pi WHERE piNimi = ?"_s, {nimi}).toLongLong();
}

// The printout for the search conditions `p`, as the member window asks for it.
Asiakirja tuloste(db::Database &d, const RepSettings &r, const HakuParametrit &p, const QString &seura = u"Kylän Kipinä ry"_s)
{
    SarakeraportinAjo ajo;
    ajo.seura = seura;
    ajo.rajaus = KoostaRajausteksti(d, p);
    const ValintaSql v = KoostaValintaSql(d, r.Kenttalista(), p);
    ajo.sql = v.sql;
    ajo.arvot = v.arvot;
    ajo.tanaan = QDate(2026, 3, 5);
    return LaadiSarakeraportti(d, r, ajo);
}

// The texts standing at the left margin below `ylaraja` (the page's headings): the first column
// of each row.
QStringList ensimmainenSarake(const Asiakirja &a, int sivu, double ylaraja)
{
    QStringList t;
    for (const Tulostekohde *k : a.tekstikohteet(sivu))
        if (qAbs(k->alue.left() - 15 * Mm) < 1 && k->alue.top() > ylaraja && !k->teksti.startsWith(u"Tulostettu"_s))
            t << k->teksti;
    return t;
}

} // namespace

class TestRapMaaritys : public QObject {
    Q_OBJECT
    std::unique_ptr<TestEnv> env;
    std::unique_ptr<db::Database> demo;

private slots:
    void initTestCase()
    {
        env = std::make_unique<TestEnv>();
        demo = db::Database::open(seurat::Kopio(150, env->path(u"demo.mdb"_s)));
    }

    void tallennettuMuoto_data()
    {
        QTest::addColumn<RepSettings>("r");
        QTest::newRow("uusi") << RepSettings();
        QTest::newRow("merkit") << maaritys(u"O'Brienin \"paras\" lista; 100%"_s, u"Jäsenet ÅÄÖ åäö – € \\n"_s,
                                            {{u"jrSukunimi"_s, u"Suku'nimi"_s, 35.5}, {u"piNimi"_s, u"<Om.> & \"arvo\""_s, 0}});
        QTest::newRow("vaaka ja tyhjä sarake") << maaritys(u"Leveä"_s, {}, {{{}, u"Tyhjä"_s, 12}, {u"ptValMemo"_s, {}, 120}},
                                                           RepSettings::Vaakaan);
        QTest::newRow("rivinvaihto") << maaritys(u"Kaksi\nriviä"_s, u"\t"_s, {{u"jrEmail"_s, u"Email"_s, 1e-3}});
    }
    void tallennettuMuoto()
    {
        QFETCH(RepSettings, r);
        QString virhe = u"ei tyhjennetty"_s;
        QCOMPARE(RepSettings::fromRapDef(r.RapDef(), &virhe), r);
        QVERIFY(virhe.isEmpty());
    }

    // Anything that is not a definition of ours reads as a new one, and says why.
    void lukukelvotonTeksti_data()
    {
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<QString>("syy"); // empty: read as new without a fault
        QTest::newRow("tyhjä") << QString() << QString();
        QTest::newRow("välilyöntejä") << u"  \n "_s << QString();
        QTest::newRow("roskaa") << u"Raportti 1;jrSukunimi;Sukunimi;30"_s << u"ei ole raporttipohja"_s;
        QTest::newRow("kesken") << u"{\"versio\":1,\"nimi\":\"Jäs"_s << u"ei ole raporttipohja"_s;
        QTest::newRow("taulukko") << u"[1,2]"_s << u"ei ole raporttipohja"_s;
        QTest::newRow("ei versiota") << u"{\"nimi\":\"A\"}"_s << u"ei ole raporttipohja"_s;
        QTest::newRow("versio tekstinä") << u"{\"versio\":\"1\"}"_s << u"ei ole raporttipohja"_s;
        QTest::newRow("uudempi") << u"{\"versio\":2,\"nimi\":\"A\"}"_s << u"uudemmalla versiolla"_s;
        QTest::newRow("nimi lukuna") << u"{\"versio\":1,\"nimi\":5}"_s << u"\"nimi\""_s;
        QTest::newRow("tuntematon suunta") << u"{\"versio\":1,\"suunta\":\"vino\"}"_s << u"vino"_s;
        QTest::newRow("sarakkeet oliona") << u"{\"versio\":1,\"sarakkeet\":{}}"_s << u"sarakkeet"_s;
        QTest::newRow("sarake lukuna") << u"{\"versio\":1,\"sarakkeet\":[3]}"_s << u"sarake"_s;
        QTest::newRow("leveys tekstinä") << u"{\"versio\":1,\"sarakkeet\":[{\"leveys\":\"leveä\"}]}"_s << u"leveys"_s;
        QTest::newRow("nollamerkki") << QString::fromLatin1("\0\xff\x01", 3) << u"ei ole raporttipohja"_s;
    }
    void lukukelvotonTeksti()
    {
        QFETCH(QString, teksti);
        QFETCH(QString, syy);
        QString virhe;
        QCOMPARE(RepSettings::fromRapDef(teksti, &virhe), RepSettings());
        if (syy.isEmpty())
            QVERIFY(virhe.isEmpty());
        else
            QVERIFY2(virhe.startsWith(u"Raporttipohjaa ei voi lukea: "_s) && virhe.contains(syy), qPrintable(virhe));
    }

    // Every field the editor offers is a field of the register, so a report never asks the
    // database for a column that is not there; the list of the SELECT skips empty columns.
    void kentat()
    {
        QCOMPARE(RaportinKentat().size(), 24);
        QCOMPARE(RaportinKentat().first().naytto, u"Sukunimi"_s);
        QCOMPARE(RaportinKentat().last().naytto, u"Om. muistio"_s);
        for (const RaportinKentta &k : RaportinKentat()) {
            QVERIFY2(Schema::kentta(k.taulu, k.kentta), qPrintable(k.kentta));
            QCOMPARE(EtsiRaportinKentta(k.kentta.toUpper()), &k);
        }
        const RepSettings r = maaritys({}, {}, {{u"jrsukunimi"_s, {}, 1}, {u" "_s, {}, 1}, {u"piNimi"_s, {}, 1}});
        QCOMPARE(r.Kenttalista(), u"jrSukunimi, piNimi"_s);
        const RepSettings vieras = maaritys({}, {}, {{u"jrSukunimi"_s, {}, 1}, {u"jrID; DROP TABLE jr"_s, {}, 1}});
        try {
            vieras.Kenttalista();
            QFAIL("a foreign field went to the SELECT");
        } catch (const RaporttiVirhe &e) {
            QCOMPARE(e.viesti(), u"Raportin sarakkeen kenttää \"jrID; DROP TABLE jr\" ei voi tulostaa."_s);
        }
    }

    void tallennusLukuJaPoisto()
    {
        TestEnv e;
        auto d = LuoTyhjaSeura(e.path(u"seura.mdb"_s));
        const RepSettings a = maaritys(u"Hallitus's"_s, u"\"Lista\""_s, {{u"jrSukunimi"_s, u"Nimi"_s, 40}});

        cRapMaaritys uusi(*d);
        uusi.oRepSettings = a;
        uusi.Save();
        const qint64 id = uusi.Id();
        QVERIFY(id > 0);

        cRapMaaritys luettu(*d);
        QVERIFY(luettu.ReadById(id));
        QCOMPARE(luettu.Id(), id);
        QCOMPARE(luettu.oRepSettings, a);

        luettu.oRepSettings.Sarakkeet.append({u"jrEtunimi"_s, u"Etunimi"_s, 30});
        luettu.Save(); // an update, under the same id
        QCOMPARE(d->scalar(u"SELECT COUNT(*) FROM rp"_s).toInt(), 1);
        cRapMaaritys toinen(*d);
        QVERIFY(toinen.ReadById(id));
        QCOMPARE(toinen.oRepSettings.Sarakkeet.size(), 2);

        // deleted by someone else meanwhile: stored again rather than lost
        d->execute(u"DELETE FROM rp"_s);
        toinen.Save();
        QVERIFY(toinen.Id() > id);
        QCOMPARE(d->scalar(u"SELECT COUNT(*) FROM rp"_s).toInt(), 1);

        toinen.Delete();
        QCOMPARE(toinen.Id(), 0);
        QCOMPARE(toinen.oRepSettings, RepSettings());
        QCOMPARE(d->scalar(u"SELECT COUNT(*) FROM rp"_s).toInt(), 0);

        // a missing row returns the object to its initial state
        QVERIFY(!luettu.ReadById(id));
        QCOMPARE(luettu.Id(), 0);
        QCOMPARE(luettu.oRepSettings, RepSettings());

        // a stored text that cannot be read is told, and Null is a new definition
        d->execute(u"INSERT INTO rp (rpID, rpDef) VALUES (40, 'sotkua'), (41, NULL)"_s);
        QVERIFY(luettu.ReadById(40));
        QVERIFY(luettu.LukuVirhe().contains(u"ei ole raporttipohja"_s));
        QVERIFY(luettu.ReadById(41));
        QVERIFY(luettu.LukuVirhe().isEmpty());
        QCOMPARE(luettu.oRepSettings, RepSettings());
    }

    // The menu's rows in rpID order; a definition without a name, or one that cannot be read,
    // is called by its place.
    void valikonRivit()
    {
        TestEnv e;
        auto d = LuoTyhjaSeura(e.path(u"seura.mdb"_s));
        QVERIFY(MuokattavatRaportit(*d).isEmpty());
        const auto lisaa = [&](qint64 id, const QVariant &def) { d->execute(u"INSERT INTO rp (rpID, rpDef) VALUES (?, ?)"_s, {id, def}); };
        lisaa(9, maaritys(u"Yhdeksäs"_s, {}, {}).RapDef());
        lisaa(2, maaritys(u"  "_s, u"Otsikko ei ole nimi"_s, {}).RapDef());
        lisaa(5, u"roskaa"_s);
        lisaa(7, maaritys(u"Hallitus & toimikunnat"_s, {}, {}).RapDef());
        const QVector<MuokattavaRaportti> rivit = MuokattavatRaportit(*d);
        QCOMPARE(rivit.size(), 4);
        const QList<std::pair<qint64, QString>> odotetut = {
            {2, u"Raportti 1"_s}, {5, u"Raportti 2"_s}, {7, u"Hallitus & toimikunnat"_s}, {9, u"Yhdeksäs"_s}};
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(rivit[i].rpID, odotetut[i].first);
            QCOMPARE(rivit[i].nimi, odotetut[i].second);
        }
    }

    // An attribute column on the demonstration club: one row per member with the attribute, in
    // surname order across the pages, the club, heading and conditions on the first page, the
    // column headers, date and page numbers on every page.
    void ominaisuussarake()
    {
        const QString kausi = u"Kausimaksu 2026"_s;
        HakuParametrit p;
        p.ValitutOminaisuudet[0] = qint32(piirre(*demo, kausi));
        QVERIFY(p.ValitutOminaisuudet[0] > 0);
        const RepSettings r = maaritys(u"Kausi"_s, u"Kausimaksut"_s,
                                       {{u"jrSukunimi"_s, u"Sukunimi"_s, 40}, {u"jrEtunimi"_s, u"Etunimi"_s, 30},
                                        {u"piNimi"_s, u"Ominaisuus"_s, 40}, {u"ptValCurrency"_s, u"Maksu"_s, 25}});
        const Asiakirja a = tuloste(*demo, r, p);

        QStringList sukunimet, maksut;
        {
            db::Statement s(*demo, u"SELECT jrSukunimi, ptValCurrency FROM jr JOIN pt ON ptjrID = jrID WHERE ptpiID = ? "
                                   "ORDER BY jrSukunimi COLLATE FI"_s,
                            {p.ValitutOminaisuudet[0]});
            while (s.next()) {
                sukunimet << s.value(0).toString();
                maksut << Currency::fromRaw(s.value(1).toLongLong()).toString();
            }
        }
        QVERIFY(sukunimet.size() > 20);
        QCOMPARE(a.riveja, sukunimet.size());
        QVERIFY(a.sivut.size() >= 2);

        const QStringList eka = a.tekstit(0);
        QCOMPARE(eka.mid(0, 7), (QStringList{u"Kylän Kipinä ry"_s, u"Kausimaksut"_s, kausi, u"Sukunimi"_s, u"Etunimi"_s,
                                             u"Ominaisuus"_s, u"Maksu"_s}));
        QStringList rivienSukunimet, tulostetutMaksut;
        int ominaisuuksia = 0;
        const int n = int(a.sivut.size());
        for (int i = 0; i < n; ++i) {
            const QStringList t = a.tekstit(i);
            QVERIFY(t.contains(u"Maksu"_s));
            QVERIFY(t.contains(u"Tulostettu 5.3.2026"_s));
            QVERIFY(t.contains(u"sivu %1 / %2"_s.arg(i + 1).arg(n)));
            ominaisuuksia += int(t.count(kausi));
            static const QRegularExpression raha(u"^\\d+,\\d\\d$"_s);
            for (const QString &s : t)
                if (raha.match(s).hasMatch())
                    tulostetutMaksut << s;
            rivienSukunimet += ensimmainenSarake(a, i, (i == 0 ? 33 : 17) * Mm);
        }
        QCOMPARE(ominaisuuksia, sukunimet.size() + 1); // and once in the conditions
        QCOMPARE(rivienSukunimet, sukunimet);
        std::sort(maksut.begin(), maksut.end());
        std::sort(tulostetutMaksut.begin(), tulostetutMaksut.end());
        QCOMPARE(tulostetutMaksut, maksut);
    }

    // With no attribute chosen every member is printed once and the attribute columns are empty.
    void kaikkiJasenet()
    {
        HakuParametrit p;
        p.lJasenmaksunTila = 1;
        const RepSettings r = maaritys(u"Maksamatta"_s, {}, {{u"jrSukunimi"_s, u"Sukunimi"_s, 40}, {u"piNimi"_s, u"Ominaisuus"_s, 40}});
        const Asiakirja a = tuloste(*demo, r, p, {});
        QCOMPARE(a.riveja, demo->scalar(u"SELECT COUNT(*) FROM jr WHERE coalesce(jrJasenmaksu, 0) = 0"_s).toInt());
        QCOMPARE(a.tekstit(0).mid(0, 3), (QStringList{u"Maksamatta"_s, u"Jäsenmaksu maksamatta"_s, u"Sukunimi"_s}));
        for (int i = 0; i < int(a.sivut.size()); ++i)
            for (const QString &t : a.tekstit(i))
                QVERIFY2(!t.startsWith(u"Kausimaksu"_s), qPrintable(t));
    }

    // Columns stand at their widths from the margin, narrowed in proportion when the paper is
    // too narrow for them; nothing on a page overlaps or crosses the margins.
    void sarakkeidenPaikat_data()
    {
        QTest::addColumn<int>("suunta");
        QTest::addColumn<QList<double>>("leveydet");
        QTest::addColumn<double>("vasen"); // margin from the settings, mm; 0 the report's own
        QTest::addColumn<QList<double>>("paikat");
        QTest::newRow("pysty") << 0 << QList<double>{40, 0, 50} << 0.0 << QList<double>{15, 55, 85};
        QTest::newRow("pysty kavennettu") << 0 << QList<double>{100, 100, 100, 60} << 0.0 << QList<double>{15, 65, 115, 165};
        QTest::newRow("vaaka") << 1 << QList<double>{60, 60, 60, 60} << 0.0 << QList<double>{15, 75, 135, 195};
        QTest::newRow("vaaka kavennettu") << 1 << QList<double>{100, 100, 100, 60} << 0.0
                                          << QList<double>{15, 89.1667, 163.333, 237.5};
        QTest::newRow("asetusten marginaali") << 0 << QList<double>{90, 90} << 25.4 << QList<double>{25.4, 110.2};
    }
    void sarakkeidenPaikat()
    {
        QFETCH(int, suunta);
        QFETCH(QList<double>, leveydet);
        QFETCH(double, vasen);
        QFETCH(QList<double>, paikat);
        static const QStringList kentat = {u"jrSukunimi"_s, u"jrEtunimi"_s, u"jrOsoite"_s, u"jrPuhelin"_s};
        RepSettings r = maaritys(u"Paikat"_s, {}, {}, RepSettings::Suunta(suunta));
        for (int i = 0; i < leveydet.size(); ++i)
            r.Sarakkeet.append({kentat[i], u"Otsake %1"_s.arg(i + 1), leveydet[i]});
        SarakeraportinAjo ajo;
        ajo.sql = u"SELECT * FROM jr ORDER BY jrID"_s;
        ajo.reunat = QMarginsF(vasen * Mm, 0, 0, 0);
        const Asiakirja a = LaadiSarakeraportti(*demo, r, ajo);
        QCOMPARE(a.suunta, suunta ? QPageLayout::Landscape : QPageLayout::Portrait);
        QCOMPARE(a.koko.width() > a.koko.height(), suunta == 1);

        const auto kohteet = a.tekstikohteet(0);
        for (int i = 0; i < paikat.size(); ++i) {
            const auto otsake = std::find_if(kohteet.begin(), kohteet.end(),
                                             [&](const Tulostekohde *k) { return k->teksti == u"Otsake %1"_s.arg(i + 1); });
            QVERIFY(otsake != kohteet.end());
            QVERIFY2(qAbs((*otsake)->alue.left() / Mm - paikat[i]) < 0.05, qPrintable(QString::number((*otsake)->alue.left() / Mm)));
        }
        for (const Tulostekohde *k : kohteet) {
            QVERIFY(k->alue.left() >= paikat[0] * Mm - 1 && k->alue.right() <= a.koko.width() - 15 * Mm + 1);
            for (const Tulostekohde *m : kohteet)
                if (k != m && k->alue.intersects(m->alue))
                    QFAIL(qPrintable(u"\"%1\" overlaps \"%2\""_s.arg(k->teksti, m->teksti)));
        }
    }

    // The user's texts print as typed: quotes, markup characters and a stray control character.
    void tekstitSellaisinaan()
    {
        HakuParametrit p;
        const RepSettings r = maaritys(u"Nimi"_s, u"\"Vuosi\" 2026 & <muut>\x01"_s, {{u"jrSukunimi"_s, u"<b>Suku'nimi</b>"_s, 50}});
        const Asiakirja a = tuloste(*demo, r, p, u"Kylän 'Kipinä' & Co"_s);
        QCOMPARE(a.tekstit(0).mid(0, 3), (QStringList{u"Kylän 'Kipinä' & Co"_s, u"\"Vuosi\" 2026 & <muut> "_s, u"<b>Suku'nimi</b>"_s}));
    }
};

QTEST_MAIN(TestRapMaaritys)
#include "tst_rapmaaritys.moc"
