#include "hakuseura.h"
#include "members/Jasenhaku.h"
#include "members/Koodilistat.h"
#include "testipohja.h"

#include <QSignalSpy>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using hakuseura::Jasen;

namespace {

QStringList tekstit(const QVector<HakuRivi> &rivit)
{
    QStringList t;
    for (const HakuRivi &r : rivit)
        t << r.teksti;
    return t;
}

// Members whose names carry what users type: apostrophes, quotes, ; and %, Finnish letters.
void nimiseura(db::Database &db)
{
    const QList<Jasen> jasenet = {
        {u"Virtanen"_s, u"Matti"_s, u"Helsinki"_s},
        {u"Virtala"_s, u"Maija"_s, u"Turku"_s},
        {u"O'Connor"_s, u"Seán"_s, u"Cork"_s},
        {u"Mäkinen"_s, u"Äijö"_s, u"Oulu"_s},
        {u"100% Oy"_s, {}, {}},
        {u"1000 Oy"_s, {}, u"Espoo"_s},
        {u"A_b"_s, u"x"_s, {}},
        {u"Axb"_s, u"x"_s, {}},
        {u"Say \"Hi\"; DROP TABLE jr"_s, u"Bobby"_s, {}},
        {{}, u"Nimetön"_s, {}},
    };
    for (const Jasen &j : jasenet)
        hakuseura::lisaa(db, j);
}

} // namespace

class TestHaku : public Testipohja {
    Q_OBJECT
    std::unique_ptr<db::Database> db;

private slots:
    // An empty upgraded club for every case.
    void init()
    {
        Testipohja::init();
        db = malliseura::kopio(env->path(u"seura.mdb"_s));
    }
    void cleanup()
    {
        db.reset();
        Testipohja::cleanup();
    }

    // The name search finds inside the names as typed: any case, Finnish letters, apostrophes,
    // quotes and % as themselves, * and ? as wild cards; no names, no search.
    void nameSearchFindsInsideTheNamesAsTyped()
    {
        nimiseura(*db);
        const std::tuple<QString, QString, QStringList> haut[] = {
            {u"irta"_s, {}, {u"Virtanen Matti - Helsinki"_s, u"Virtala Maija - Turku"_s}},
            {u"MÄKI"_s, u"äijÖ"_s, {u"Mäkinen Äijö - Oulu"_s}},
            {u"o'con"_s, {}, {u"O'Connor Seán - Cork"_s}},
            {u"100%"_s, {}, {u"100% Oy - "_s}},
            {u"\"Hi\"; DROP"_s, {}, {u"Say \"Hi\"; DROP TABLE jr Bobby - "_s}},
            {u"Vir*la"_s, {}, {u"Virtala Maija - Turku"_s}},
            {u"A?b"_s, {}, {u"A_b x - "_s, u"Axb x - "_s}},
            {{}, {}, {}}};
        for (const auto &[sukunimi, etunimi, loydetyt] : haut) {
            const auto rivit = Jasenhaku::Nimella(*db, sukunimi, etunimi);
            QCOMPARE(tekstit(rivit), loydetyt);
            for (const HakuRivi &r : rivit) // each row leads to the member it shows
                QVERIFY(r.teksti.startsWith(db->scalar(u"SELECT jrSukunimi FROM jr WHERE jrID = ?"_s, {r.jrID}).toString()));
        }
    }

    void memberNumberIsComparedAsText()
    {
        const qint64 n12 = hakuseura::lisaa(*db, {u"A"_s, {}, {}, u"12"_s});
        const qint64 n012 = hakuseura::lisaa(*db, {u"B"_s, {}, {}, u"012"_s});
        const qint64 a7 = hakuseura::lisaa(*db, {u"C"_s, {}, {}, u"A7"_s});
        QCOMPARE(Jasenhaku::Jasennumerolla(*db, u"12"_s), n12);
        QCOMPARE(Jasenhaku::Jasennumerolla(*db, u"012"_s), n012);
        QCOMPARE(Jasenhaku::Jasennumerolla(*db, u"a7"_s), a7);
        for (const QString &eiOle : {u"12 "_s, u"1'2"_s, QString()})
            QCOMPARE(Jasenhaku::Jasennumerolla(*db, eiOle), 0);
    }

    void memoSearchCountsAndLandsOnTheLastRow()
    {
        const qint64 a = hakuseura::lisaa(*db, {u"Aalto"_s});
        const qint64 b = hakuseura::lisaa(*db, {u"Berg"_s});
        const qint64 c = hakuseura::lisaa(*db, {u"Cedar"_s});
        hakuseura::muistio(*db, b, u"Hallituksen jäsen 2019"_s);
        hakuseura::muistio(*db, a, u"hallituksen varajäsen"_s);
        hakuseura::muistio(*db, c, u"'; DELETE FROM jr; --"_s);
        hakuseura::muistio(*db, c, u"50% alennus"_s);
        hakuseura::muistio(*db, a, u"500 alennus"_s);
        hakuseura::muistio(*db, b, u"Ääkköset ensin ja sitten pitkä loppu, jota ei näytetä"_s);
        hakuseura::muistio(*db, 999, u"Hallituksen entinen jäsen"_s); // a member that is gone
        hakuseura::muistio(*db, c, {});

        // Any case, the last row of the result rather than the first; SQL and % are text.
        const std::tuple<QString, int, qint64> haut[] = {
            {u"HALLITUKSEN"_s, 2, a}, {u"'; DELETE"_s, 1, c}, {u"50%"_s, 1, c}, {u"puheenjohtaja"_s, 0, 0}};
        for (const auto &[sana, maara, id] : haut) {
            const auto t = Jasenhaku::MuistiostaHaku(*db, sana);
            QVERIFY2(t.maara == maara && t.jrID == id, qPrintable(sana));
        }
        QCOMPARE(db->scalar(u"SELECT count(*) FROM jr"_s).toInt(), 3);

        // The start is taken literally, and the first row that begins so wins.
        QCOMPARE(Jasenhaku::MuistionAlulla(*db, u"Hallituksen"_s), b);
        QCOMPARE(Jasenhaku::MuistionAlulla(*db, u"50%"_s), c);
        QCOMPARE(Jasenhaku::MuistionAlulla(*db, u"5*"_s), 0);

        const auto alut = Jasenhaku::MuistioAlut(*db);
        QCOMPARE(tekstit(alut), (QStringList{u"Hallituksen jäsen 2019"_s, u"hallituksen varajäsen"_s, u"'; DELETE FROM jr; --"_s,
                                             u"50% alennus"_s, u"500 alennus"_s, u"Ääkköset ensin ja sitten pitkä"_s}));
        QCOMPARE(alut[0].jrID, b);
        // A start is its first thirty characters, and finds its member again.
        QCOMPARE(Jasenhaku::MuistionAlulla(*db, alut[5].teksti), b);
    }

    void contactSearchIsExactAndTakesTheFirst()
    {
        const qint64 eka = hakuseura::lisaa(*db, {u"A"_s, {}, {}, {}, u"Koulukatu 1"_s, u"09 123"_s, {}, u"a@b.fi"_s});
        const qint64 toka = hakuseura::lisaa(*db, {u"B"_s, {}, {}, {}, u"Koulukatu 1"_s, {}, u"040 1"_s, {}});
        hakuseura::lisaa(*db, {u"C"_s, {}, {}, {}, u"Koulukatu 12"_s, {}, {}, u"O'Hara@x.fi"_s});
        using Y = Jasenhaku::Yhteystieto;
        QCOMPARE(Jasenhaku::Yhteystiedolla(*db, Y::Osoite, u"Koulukatu 1"_s), eka);
        QCOMPARE(Jasenhaku::Yhteystiedolla(*db, Y::Osoite, u"KOULUKATU 1"_s), eka);
        QCOMPARE(Jasenhaku::Yhteystiedolla(*db, Y::Osoite, u"Koulukatu"_s), 0);
        QCOMPARE(Jasenhaku::Yhteystiedolla(*db, Y::Osoite, u"Koulukatu 1*"_s), 0);
        QCOMPARE(Jasenhaku::Yhteystiedolla(*db, Y::Matkapuhelin, u"040 1"_s), toka);
        QCOMPARE(Jasenhaku::Yhteystiedolla(*db, Y::Puhelin, u"040 1"_s), 0);
        QVERIFY(Jasenhaku::Yhteystiedolla(*db, Y::Email, u"o'hara@X.FI"_s) != 0);
        QCOMPARE(Jasenhaku::Yhteystiedolla(*db, Y::Email, QString()), 0);
    }

    void dropDownListsInFinnishOrder()
    {
        const qint64 o = hakuseura::lisaa(*db, {u"A"_s, {}, {}, {}, u"Öljytie 2"_s});
        hakuseura::lisaa(*db, {u"B"_s});
        const qint64 a1 = hakuseura::lisaa(*db, {u"C"_s, {}, {}, {}, u"aittatie 5"_s});
        const qint64 z = hakuseura::lisaa(*db, {u"D"_s, {}, {}, {}, u"Zetakuja 1"_s});
        const qint64 a2 = hakuseura::lisaa(*db, {u"E"_s, {}, {}, {}, u"aittatie 5"_s});
        const QVector<HakuRivi> odotettu = {{a1, u"aittatie 5"_s}, {a2, u"aittatie 5"_s}, {z, u"Zetakuja 1"_s}, {o, u"Öljytie 2"_s}};
        QCOMPARE(Jasenhaku::Arvot(*db, u"jrOsoite"_s), odotettu);
        QVERIFY_THROWS_EXCEPTION(std::invalid_argument, Jasenhaku::Arvot(*db, u"jrID; DROP TABLE jr"_s));
    }

    // ---- code lists ----

    // A code-list row of each kind written, changed, read back, deleted and written anew.
    void codeListRowRoundTrip()
    {
        for (const QString &taulu : {u"Jasenlaji"_s, u"Jasenryhma"_s, u"Maa"_s}) {
            std::unique_ptr<cKoodi> r;
            if (taulu == u"Jasenlaji"_s)
                r = std::make_unique<cJasenlaji>();
            else if (taulu == u"Jasenryhma"_s)
                r = std::make_unique<cJasenryhma>();
            else
                r = std::make_unique<cMaa>();
            r->setTietokanta(db->path());
            QVERIFY(!r->GetFirst() && !r->GetLast() && r->Luettelo().isEmpty()); // an empty list steps nowhere
            QSignalSpy muuttui(r.get(), &cKoodirivi::Changed);

            r->setKoodi(u"J'1"_s);
            r->setNimi(u"Nuoret; \"alle 18\""_s);
            r->setNimi(u"Nuoret; \"alle 18\""_s);
            auto *maa = dynamic_cast<cMaa *>(r.get());
            if (maa) // a country has its print text too
                maa->setTulosteTeksti(u"SVERIGE"_s);
            QCOMPARE(muuttui.size(), 1); // when the mark goes on, not at every change
            QVERIFY(r->Muuttunut());
            r->Save();
            QVERIFY(!r->Muuttunut());
            const qint64 id = r->Id();
            QVERIFY(id > 0);

            r->setKoodi(QString());
            QCOMPARE(muuttui.size(), 2);
            r->Save();
            QCOMPARE(r->Id(), id);
            // An empty text goes in as Null.
            QVERIFY(!db->scalar(u"SELECT %1_Koodi IS NOT NULL FROM %1 WHERE %1_ID = ?"_s.arg(taulu), {id}).toBool());

            r->setNimi(u"muutettu"_s);
            r->Tyhjenna(); // back to the row as read
            QVERIFY(!r->Muuttunut() && r->Nimi() == u"Nuoret; \"alle 18\""_s);
            QVERIFY(r->ReadById(id));
            QCOMPARE(r->Koodi() + r->Nimi(), u"Nuoret; \"alle 18\""_s);
            if (maa)
                QCOMPARE(maa->TulosteTeksti(), u"SVERIGE"_s);
            QVERIFY(!r->ReadById(id + 1));
            QCOMPARE(r->Id(), id);

            r->Delete();
            QCOMPARE(db->scalar(u"SELECT count(*) FROM %1"_s.arg(taulu)).toInt(), 0);
            // Saved again after someone else deleted it: added anew, nothing lost.
            r->setKoodi(u"X"_s);
            r->Save();
            QCOMPARE(db->scalar(u"SELECT %1_Nimi FROM %1 WHERE %1_Koodi = 'X'"_s.arg(taulu)).toString(), u"Nuoret; \"alle 18\""_s);

            // A new row emptied again is not written.
            r->Delete();
            r->Uusi();
            r->setNimi(u"x"_s);
            r->setNimi(QString());
            r->Save();
            QCOMPARE(db->scalar(u"SELECT count(*) FROM %1"_s.arg(taulu)).toInt(), 0);
            QCOMPARE(r->Id(), 0);
        }
    }

    void postalCodeKeyIsText()
    {
        const QString polku = db->path();
        db->execute(u"INSERT INTO Postinumero (Postinumero, Postitoimipaikka) VALUES ('00100', 'HELSINKI'), ('100', 'Sata'), "
                    "('00200', 'Helsinki')"_s);
        cPostinumero p;
        p.setTietokanta(polku);
        QVERIFY(p.ReadById(u"100"_s));
        QCOMPARE(p.Postitoimipaikka(), u"Sata"_s);
        QVERIFY(!p.ReadById(u"0100"_s));
        QCOMPARE(p.Postinumero(), u"100"_s);

        // A code another row has, or none at all, is refused with a message and nothing written.
        cPostinumero kopio;
        kopio.setTietokanta(polku);
        kopio.setPostinumero(u"00100"_s);
        kopio.setPostitoimipaikka(u"Toinen"_s);
        try {
            kopio.Save();
            QFAIL("a taken code was saved");
        } catch (const KoodilistaVirhe &e) {
            QCOMPARE(e.viesti(), u"Postinumero 00100 on jo luettelossa."_s);
        }
        kopio.setPostinumero(QString());
        QVERIFY_THROWS_EXCEPTION(KoodilistaVirhe, kopio.Save());
        QCOMPARE(db->scalar(u"SELECT count(*) FROM Postinumero"_s).toInt(), 3);

        // Its own code saved again is no duplicate; a changed code moves the row.
        QVERIFY(p.ReadById(u"100"_s));
        p.setPostinumero(u"00300"_s);
        p.Save();
        QCOMPARE(db->scalar(u"SELECT Postitoimipaikka FROM Postinumero WHERE Postinumero = '00300'"_s).toString(), u"Sata"_s);
        QCOMPARE(db->scalar(u"SELECT count(*) FROM Postinumero WHERE Postinumero = '100'"_s).toInt(), 0);

        p.Delete();
        QCOMPARE(db->scalar(u"SELECT count(*) FROM Postinumero"_s).toInt(), 2);
    }
};

QTEST_GUILESS_MAIN(TestHaku)
#include "tst_haku.moc"
