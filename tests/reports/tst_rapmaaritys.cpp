// The user's column reports: the stored form of a definition and its row in `rp`, the printout
// on the demonstration club as laid out on the pages, and the rows of the member window's report
// menu with the windows a click goes through.
#include "core/MainModule.h"
#include "core/Schema.h"
#include "members/Hakuehdot.h"
#include "members/ui/frmHakuehdot.h"
#include "members/ui/frmJasen.h"
#include "raporttiseura.h"
#include "reports/RaporttiVirhe.h"
#include "reports/jasen/RapMaaritys.h"
#include "reports/jasen/Sarakeraportti.h"
#include "reports/jasen/ui/frmTulJarjValinta.h"
#include "reports/ui/frmTulostus.h"
#include "scripteddialogs.h"
#include "seurat.h"
#include "testenv.h"
#include "testiapu.h"

#include "tulostuskirjaus.h"
#include <QLineEdit>
#include <QAction>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

Q_DECLARE_METATYPE(RepSettings)

namespace {

constexpr double Mm = 1440 / 25.4;
const QString Virhe = u"Virhe tulostettaessa raporttia: "_s;

RepSettings maaritys(const QString &nimi, QVector<RapSarake> sarakkeet, RepSettings::Suunta suunta = RepSettings::Pystyyn)
{
    RepSettings r;
    r.Nimi = nimi;
    r.Orientation = suunta;
    r.Sarakkeet = std::move(sarakkeet);
    return r;
}

const QVector<RapSarake> KausiSarakkeet = {{u"jrSukunimi"_s, u"Sukunimi"_s, 40}, {u"jrEtunimi"_s, u"Etunimi"_s, 30},
                                           {u"piNimi"_s, u"Ominaisuus"_s, 200}, {u"ptValCurrency"_s, u"Maksu"_s, 25}}; // wider than the paper: narrowed



// The member window on a copy of the demonstration club.
struct Ikkuna {
    TestEnv env;
    ScriptedDialogs dlg;
    std::unique_ptr<db::Database> d;
    std::unique_ptr<frmJasen> w;

    explicit Ikkuna(const QList<std::pair<qint64, QVariant>> &raportit)
    {
        MainModule::DatabasePath = seurat::Kopio(150, env.path(u"seura.mdb"_s));
        d = db::Database::open(MainModule::DatabasePath);
        for (const auto &[id, def] : raportit)
            d->execute(u"INSERT INTO rp (rpID, rpDef) VALUES (?, ?)"_s, {id, def});
        w = std::make_unique<frmJasen>();
        QVERIFY(w->Lataa());
    }

    // The visible rows under "Muokkaa raportteja": caption and rpID.
    QStringList rivit() const
    {
        const QList<QAction *> v = w->mRaportit->actions();
        QStringList t;
        for (qsizetype i = v.indexOf(w->findChild<QAction *>(u"mMuokkaaRaportteja"_s)) + 1; i < v.size(); ++i)
            if (v[i]->isVisible())
                t << v[i]->text() + u" #"_s + v[i]->data().toString();
        return t;
    }
};

} // namespace

class TestRapMaaritys : public QObject {
    Q_OBJECT
    std::unique_ptr<TestEnv> env;
    std::unique_ptr<db::Database> demo;
    qint32 kausimaksu = 0;

private slots:
    void initTestCase()
    {
        env = std::make_unique<TestEnv>();
        demo = db::Database::open(seurat::Kopio(150, env->path(u"demo.mdb"_s)));
        kausimaksu = demo->scalar(u"SELECT piID FROM pi WHERE piNimi = 'Kausimaksu 2026'"_s).toInt();
        QVERIFY(kausimaksu > 0);
    }
    void cleanup()
    {
        PalautaTulostustila();
        Haku = HakuParametrit();
    }

    // Anything that is not a definition of ours reads as a new one, and says why.
    void lukukelvotonTeksti_data()
    {
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<QString>("syy"); // empty: a new definition without a fault
        QTest::newRow("tyhjä") << u"  \n "_s << QString();
        QTest::newRow("roskaa") << u"Raportti 1;jrSukunimi;30"_s << u"ei ole raporttipohja"_s;
        QTest::newRow("uudempi") << u"{\"versio\":2}"_s << u"uudemmalla versiolla"_s;
        QTest::newRow("leveys") << u"{\"versio\":1,\"sarakkeet\":[{\"leveys\":\"leveä\"}]}"_s << u"leveys"_s;
        QTest::newRow("nollamerkki") << QString::fromLatin1("\0\xff\x01", 3) << u"ei ole raporttipohja"_s;
    }
    void lukukelvotonTeksti()
    {
        QFETCH(QString, teksti);
        QFETCH(QString, syy);
        QString virhe;
        QCOMPARE(RepSettings::fromRapDef(teksti, &virhe), RepSettings());
        QVERIFY2(syy.isEmpty() ? virhe.isEmpty() : virhe.startsWith(u"Raporttipohjaa ei voi lukea: "_s) && virhe.contains(syy),
                 qPrintable(virhe));
    }

    // Every field offered is a field of the register; nothing else reaches the SELECT.
    void kentat()
    {
        QVERIFY(!RaportinKentat().isEmpty());
        for (const RaportinKentta &k : RaportinKentat())
            QVERIFY2(Schema::kentta(k.taulu, k.kentta), qPrintable(k.kentta));
        QCOMPARE(maaritys({}, {{u"jrsukunimi"_s, {}, 1}, {u" "_s, {}, 1}, {u"piNimi"_s, {}, 1}}).Kenttalista(), u"jrSukunimi, piNimi"_s);
        QVERIFY_THROWS_EXCEPTION(RaporttiVirhe, maaritys({}, {{u"jrID; DROP TABLE jr"_s, {}, 1}}).Kenttalista());
    }

    // A definition saved, updated under its id, read back whole, stored again when deleted
    // meanwhile, and deleted.
    void tallennusLukuJaPoisto()
    {
        auto d = LuoTyhjaSeura(env->path(u"seura.mdb"_s));
        cRapMaaritys a(*d), b(*d);
        // Every text and width comes back as written: quotes, markup, Finnish letters, a new line.
        a.oRepSettings = maaritys(u"O'Brienin \"paras\" lista; 100%"_s, {{u"jrSukunimi"_s, u"Suku'nimi"_s, 35.5},
                                 {u"piNimi"_s, u"<Om.> & \"arvo\""_s, 0}, {{}, u"Tyhjä"_s, 1e-3}}, RepSettings::Vaakaan);
        a.oRepSettings.Otsikko = u"Jäsenet ÅÄÖ åäö – € \\n\n"_s;
        a.Save();
        QVERIFY(a.Id() > 0);
        a.oRepSettings.Sarakkeet.append({u"jrEtunimi"_s, u"Etunimi"_s, 30});
        a.Save(); // updated under the same id
        QVERIFY(b.ReadById(a.Id()) && b.oRepSettings == a.oRepSettings);
        QCOMPARE(d->scalar(u"SELECT COUNT(*) FROM rp"_s).toInt(), 1);

        d->execute(u"DELETE FROM rp"_s); // deleted by someone meanwhile: stored again, not lost
        const qint64 vanha = b.Id();
        b.Save();
        QVERIFY(b.Id() > vanha);
        b.Delete();
        QCOMPARE(d->scalar(u"SELECT COUNT(*) FROM rp"_s).toInt(), 0);
        QVERIFY(!a.ReadById(vanha)); // a missing row: the initial state
        QVERIFY(a.Id() == 0 && a.oRepSettings == RepSettings());
    }

    // An attribute column on the demonstration club, landscape: one row per holder of the
    // attribute in surname order across the pages, the user's headings on the first page, column
    // headers, date and page numbers on every page; columns too wide for the paper narrowed.
    void ominaisuussarake()
    {
        HakuParametrit p;
        p.ValitutOminaisuudet[0] = kausimaksu;
        RepSettings r = maaritys(u"Kausi"_s, KausiSarakkeet, RepSettings::Vaakaan);
        r.Sarakkeet[2].Header = u"<b>Omi'naisuus</b>"_s;
        r.Otsikko = u"\"Kausi\" 2026 & <muut>\x01"_s;
        SarakeraportinAjo ajo;
        ajo.seura = u"Kylän 'Kipinä' & Co"_s;
        ajo.rajaus = KoostaRajausteksti(*demo, p);
        const ValintaSql v = KoostaValintaSql(*demo, r.Kenttalista(), p);
        ajo.sql = v.sql;
        ajo.arvot = v.arvot;
        ajo.tanaan = QDate(2026, 3, 5);
        const Asiakirja a = LaadiSarakeraportti(*demo, r, ajo);

        QStringList odotetut;
        db::Statement s(*demo, u"SELECT jrSukunimi, ptValCurrency FROM jr JOIN pt ON ptjrID = jrID WHERE ptpiID = ? "
                               "ORDER BY jrSukunimi COLLATE FI"_s, {kausimaksu});
        while (s.next())
            odotetut << s.value(0).toString() + u" Kausimaksu 2026 "_s + Currency::fromRaw(s.value(1).toLongLong()).toString();
        QVERIFY(odotetut.size() > 20);
        QCOMPARE(a.riveja, odotetut.size());
        // The user's texts print as typed: quotes, markup characters, a control character as a blank.
        QCOMPARE(a.tekstit(0).mid(0, 7), (QStringList{u"Kylän 'Kipinä' & Co"_s, u"\"Kausi\" 2026 & <muut> "_s, u"Kausimaksu 2026"_s,
                                                      u"Sukunimi"_s, u"Etunimi"_s, u"<b>Omi'naisuus</b>"_s, u"Maksu"_s}));
        QStringList rivit;
        const int n = int(a.sivut.size());
        for (int i = 0; i < n; ++i) {
            const QStringList t = a.tekstit(i);
            QVERIFY(t.contains(u"Maksu"_s) && t.contains(u"Tulostettu 5.3.2026"_s) && t.contains(u"sivu %1 / %2"_s.arg(i + 1).arg(n)));
            for (qsizetype j = t.indexOf(u"Maksu"_s) + 1; j + 3 < t.size(); j += 4) // surname, first name, attribute, amount
                rivit << t[j] + u' ' + t[j + 2] + u' ' + t[j + 3];
        }
        QCOMPARE(rivit, odotetut);
        QVERIFY(a.koko.width() > a.koko.height());
        const auto kohteet = a.tekstikohteet(0); // nothing overlaps, nothing crosses the margins
        for (const Tulostekohde *k : kohteet) {
            QVERIFY(k->alue.left() >= 15 * Mm - 1 && k->alue.right() <= a.koko.width() - 15 * Mm + 1);
            for (const Tulostekohde *m : kohteet)
                QVERIFY2(k == m || !k->alue.intersects(m->alue), qPrintable(k->teksti + u" / "_s + m->teksti));
        }
    }

    // A click saves the pending edit, then asks the conditions, order and print settings and
    // previews the printout; a definition that cannot print says so in Finnish and previews
    // nothing; one deleted since the menu was built is told, and its row goes.
    void rivinTulostus_data()
    {
        QTest::addColumn<QVariant>("rpDef");
        QTest::addColumn<bool>("poistettu");
        QTest::addColumn<QString>("viesti");
        QTest::addColumn<QString>("rivi"); // the row's caption in the menu
        const QVariant kausi = maaritys(u"Kausi & muut"_s, KausiSarakkeet).RapDef();
        QTest::newRow("esikatseluun") << kausi << false << QString() << u"Kausi && muut"_s;
        QTest::newRow("lukukelvoton") << QVariant(u"Kausi;jrSukunimi"_s) << false
                                      << Virhe + u"Raporttipohjaa ei voi lukea: teksti ei ole raporttipohja."_s << u"Raportti 1"_s;
        QTest::newRow("ei kenttiä") << QVariant(maaritys(u"Tyhjä"_s, {{{}, u"Otsake"_s, 30}}).RapDef()) << false
                                    << u"Raporttipohjassa ei ole yhtään kenttää tulostettavaksi."_s << u"Tyhjä"_s;
        QTest::newRow("poistettu") << kausi << true << u"Raporttipohjaa ei enää ole. Raporttien luettelo päivitetään."_s
                                   << u"Kausi && muut"_s;
    }
    void rivinTulostus()
    {
        QFETCH(QVariant, rpDef);
        QFETCH(bool, poistettu);
        QFETCH(QString, viesti);
        QFETCH(QString, rivi);
        Ikkuna i({{5, maaritys(u"Jää"_s, {}).RapDef()}, {3, rpDef}});
        QCOMPARE(i.rivit(), (QStringList{rivi + u" #3"_s, u"Jää #5"_s})); // in rpID order; an unreadable one by its place
        Kirjaus kirjaus;
        AsetaTulostuskohde(&kirjaus);
        const qint64 jasen = i.w->NykyinenId();
        i.w->tYhteystiedot[iTitteli]->setText(u"FM"_s);
        i.w->AloitaMuokkaus();
        if (poistettu)
            i.d->execute(u"DELETE FROM rp WHERE rpID = 3"_s);
        if (viesti.isEmpty()) // the conditions take the holders of "Kausimaksu 2026", the rest go on as they stand
            testi::kunAuki<frmHakuehdot>([](frmHakuehdot *h) {
                for (int r = 0; r < h->lstOminaisuudet->count(); ++r)
                    h->lstOminaisuudet->item(r)->setSelected(h->lstOminaisuudet->item(r)->text() == u"Kausimaksu 2026"_s);
                testi::kunAuki<frmTulJarjValinta>([](frmTulJarjValinta *j) {
                    testi::kunAuki<frmTulostus>([](frmTulostus *t) { testi::paina(t->cTulosta); });
                    testi::paina(j->cSeuraava);
                });
                testi::paina(h->cSeuraava);
            });
        i.w->mMuokattavaRaportti[0]->trigger();
        QCOMPARE(testi::avaamatta(), 0);

        QCOMPARE(i.d->scalar(u"SELECT jrTitteli FROM jr WHERE jrID = ?"_s, {jasen}).toString(), u"FM"_s);
        QCOMPARE(i.dlg.messages(), viesti.isEmpty() ? QStringList() : QStringList{viesti});
        QCOMPARE(kirjaus.esikatsellut.size(), size_t(viesti.isEmpty()));
        if (viesti.isEmpty())
            QCOMPARE(kirjaus.esikatsellut[0].riveja, i.d->scalar(u"SELECT COUNT(*) FROM pt WHERE ptpiID = ?"_s, {kausimaksu}).toInt());
        QCOMPARE(i.rivit(), poistettu ? QStringList{u"Jää #5"_s} : QStringList({rivi + u" #3"_s, u"Jää #5"_s}));
    }
};

QTEST_MAIN(TestRapMaaritys)
#include "tst_rapmaaritys.moc"
