// The member window's printouts on the demonstration club: which report and formulas each
// command gives, the street names of the list by street, and the laid-out documents: the right
// members in the right order, headings, page numbers and label sheets.
#include "esittely/Esittelyseura.h"
#include "core/MainModule.h"
#include "members/JasenRaportit.h"
#include "members/Perhetarrat.h"
#include "members/Rekisteritiedot.h"
#include "reports/Tulostus.h"
#include "raporttiseura.h"
#include "testenv.h"

#include <QDir>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

Q_DECLARE_METATYPE(JasenRaportti)

class TestJasenraportit : public QObject {
    Q_OBJECT
    std::unique_ptr<TestEnv> env;
    std::unique_ptr<db::Database> d;

    Asiakirja laadi(const JasenRaportti &r)
    {
        ValmisteleJasenRaportti(r);
        return Raportti().Laadi();
    }

private slots:
    void initTestCase()
    {
        env = std::make_unique<TestEnv>();
        MainModule::DatabasePath = env->path(u"demo.mdb"_s);
        LuoDemoTietokanta(MainModule::DatabasePath);
        d = db::Database::open(MainModule::DatabasePath);
        MainModule::RegName = u"Vanhankylän Urheiluseura ry"_s;
        MainModule::RegPuhelin = u"09 123 4567"_s;
    }

    // The list by street: street names are made first, every member stands under his street, a
    // street's heading never ends a page without a member under it, and its count of members
    // never starts a page without one above it.
    void kaduittain()
    {
        QCOMPARE(KadunNimi(u"2. linja 5"_s) + u'|' + KadunNimi(u"  Mäntypolku  7"_s) + KadunNimi(QString()), u"2. linja|Mäntypolku"_s);
        PaivitaKadut(*d);
        QMultiHash<QString, QString> katu; // member's name -> street; two members may share a name
        QSet<QString> kadut;
        for (db::Statement s(*d, u"SELECT trim(coalesce(jrSukunimi,'') || ' ' || coalesce(jrEtunimi,'')), jrKatu, jrOsoite FROM jr"_s);
             s.next();) {
            QCOMPARE(s.value(1).toString(), KadunNimi(s.value(2).toString()));
            katu.insert(s.value(0).toString(), s.value(1).toString());
            kadut << s.value(1).toString();
        }
        kadut.remove(QString());
        const Asiakirja a = laadi(ListaRaportti(8, 0, {}, u"Kaikki jäsenet"_s));
        QString nyt;
        int tarkistettu = 0;
        for (int i = 0; i < int(a.sivut.size()); ++i) {
            bool otsikkoYksin = false, jasenia = false;
            for (const QString &t : a.tekstit(i)) {
                if (kadut.contains(t)) {
                    nyt = t;
                    otsikkoYksin = true;
                } else if (!katu.value(t).isEmpty()) {
                    QVERIFY2(katu.values(t).contains(nyt), qPrintable(t));
                    ++tarkistettu;
                    otsikkoYksin = false;
                    jasenia = true;
                } else if (t.endsWith(u"jäsentä"_s) || t.endsWith(u"jäsen"_s)) {
                    QVERIFY2(jasenia, qPrintable(u"sivu %1: %2"_s.arg(i + 1).arg(t)));
                }
            }
            QVERIFY2(!otsikkoYksin, qPrintable(u"sivu %1: %2"_s.arg(i + 1).arg(nyt)));
        }
        QVERIFY(tarkistettu > 10);
    }

    // Printouts judged by their rows: each takes exactly the rows its query names, and those with
    // a heading show it under the club's name on the first page with page numbers on every page.
    void rivimaarat_data()
    {
        QTest::addColumn<JasenRaportti>("raportti");
        QTest::addColumn<QString>("sql"); // the count of rows the printout must have
        QTest::addColumn<QString>("otsikko"); // empty: labels, no heading
        const QString perheet = u"SELECT count(*) FROM jr WHERE coalesce(jrJasenmaksu, 0) = %1 AND coalesce(jrPerheenLaskutettava, 0) = 1"_s;
        const qint64 jr = d->scalar(u"SELECT jmhjmjrID FROM jmhist GROUP BY jmhjmjrID ORDER BY count(*) DESC LIMIT 1"_s).toLongLong();
        const qint64 pi = d->scalar(u"SELECT ptpiID FROM pt JOIN jmhist ON jmhjmjrID = ptjrID LIMIT 1"_s).toLongLong();
        QTest::newRow("nimijärjestys") << ListaRaportti(0, 0, {}, u"Kaikki jäsenet"_s) << u"SELECT count(*) FROM jr"_s
                                       << u"Jäsenluettelo"_s;
        QTest::newRow("syntymän mukaan, maksamatta") << ListaRaportti(6, 2, u"{jr.jrJasenmaksu} = False"_s, {})
                                                     << u"SELECT count(*) FROM jr WHERE coalesce(jrJasenmaksu, 0) = 0"_s << u"Jäsenluettelo"_s;
        QTest::newRow("maksamattomat perheet") << MaksamattomatPerheet(false) << perheet.arg(0) << u"Maksamattomat perheet"_s;
        QTest::newRow("maksamattomien perheiden tarrat") << MaksamattomatPerheet(true) << perheet.arg(0) << QString();
        QTest::newRow("maksaneet perheet") << MaksaneetPerheet(false) << perheet.arg(1) << u"Maksaneet perheet"_s;
        // Each member once per attribute.
        QTest::newRow("ominaisuuksineen") << ListaRaportti(1, 0, {}, u"Kaikki jäsenet"_s)
                                          << u"SELECT count(*) FROM jr LEFT JOIN pt ON ptjrID = jrID LEFT JOIN pi ON piID = ptpiID"_s
                                          << u"Jäsenluettelo ominaisuuksineen"_s;
        QTest::newRow("maksuhistoria jäsenelle") << MaksuhistoriaJasenelle(jr)
                                                 << u"SELECT count(*) FROM jmhist WHERE jmhjmjrID = %1"_s.arg(jr) << u"Maksuhistoria"_s;
        QTest::newRow("maksuhistoria ryhmälle") << MaksuhistoriaRyhmalle(pi)
                                                << u"SELECT count(*) FROM jmhist JOIN pt ON ptjrID = jmhjmjrID WHERE ptpiID = %1"_s.arg(pi)
                                                << u"Maksuhistoria"_s;
        // One row for each member of a family whose payer is the head.
        QTest::newRow("perheluettelo") << PerheLuettelo()
                                       << u"SELECT count(*) FROM jrPerhe JOIN jr h ON h.jrID = jrPMID JOIN jr j ON j.jrID = jrPSubID "
                                          "WHERE coalesce(h.jrPerheenLaskutettava, 0) = 1"_s
                                       << u"Perheet"_s;
    }
    void rivimaarat()
    {
        QFETCH(JasenRaportti, raportti);
        QFETCH(QString, sql);
        QFETCH(QString, otsikko);
        const int n = d->scalar(sql).toInt();
        QVERIFY(n > 0);
        const Asiakirja a = laadi(raportti);
        QCOMPARE(a.riveja, n);
        if (!otsikko.isEmpty()) {
            QCOMPARE(a.tekstit(0).value(0), MainModule::RegName);
            QCOMPARE(a.tekstit(0).value(1), otsikko);
            for (int i = 0, n = int(a.sivut.size()); i < n; ++i)
                QVERIFY2(a.tekstit(i).contains(u"sivu %1 / %2"_s.arg(i + 1).arg(n)), qPrintable(u"sivu %1"_s.arg(i + 1)));
        }
    }

    // Family labels: a selected head gets one label with the names of his selected family
    // members; the selected members of a family whose head is not selected get their own.
    void perhetarrat()
    {
        auto k = LuoTyhjaSeura(env->path(u"perheet.mdb"_s));
        // A member, in the family of `perhe` when given (0: the new member's own family).
        auto jasen = [&](const QString &etu, const QString &suku, const QString &osoite, bool paa, bool mukaan, qint64 perhe = -1) {
            const qint64 id = LisaaJasen(*k, {suku, etu, osoite, u"00100"_s, u"Helsinki"_s, {}, {}});
            k->execute(u"UPDATE jr SET jrPerheenLaskutettava = ?, jrMukaan = ? WHERE jrID = ?"_s, {paa, mukaan, id});
            if (perhe >= 0)
                k->execute(u"INSERT INTO jrPerhe (jrPMID, jrPSubID) VALUES (?, ?)"_s, {perhe ? perhe : id, id});
            return id;
        };
        const qint64 a = jasen(u"Aino"_s, u"Virtanen"_s, u"Koulukatu 1"_s, true, true, 0);
        jasen(u"Eero"_s, u"Virtanen"_s, u"Koulukatu 1"_s, false, true, a);
        jasen(u"Kaisa"_s, u"Virtanen"_s, u"Koulukatu 1"_s, false, false, a);
        jasen(u"Väinö Kristian"_s, u"Virtanen-Åberg"_s, u"Koulukatu 1"_s, false, true, a);
        const qint64 b = jasen(u"Juha"_s, u"O'Brien"_s, u"Rantatie 2"_s, true, false, 0);
        jasen(u"Maija"_s, u"O'Brien"_s, u"Rantatie 3"_s, false, true, b);
        jasen(u"Onni"_s, u"Laine"_s, u"Pajakuja 4"_s, false, true);
        // A head left out of his own family's links still gets a label with his name.
        jasen(u"Pirjo"_s, u"Ojala"_s, u"Harjutie 5"_s, true, true);
        k->execute(u"INSERT INTO Tarra (Rivi1) VALUES ('edellinen ajo')"_s);

        QCOMPARE(TeePerhetarrat(*k), 4);
        QStringList tarrat;
        db::Statement s(*k, u"SELECT Rivi1 || ' | ' || Rivi2 || ' | ' || Rivi3 FROM Tarra ORDER BY Tarra_ID"_s);
        while (s.next())
            tarrat << s.value(0).toString();
        QCOMPARE(tarrat, (QStringList{u"Aino Virtanen, Eero Virtanen, Väinö Kristian Virtanen-Åberg | Koulukatu 1 | 00100 Helsinki"_s,
                                      u"Pirjo Ojala | Harjutie 5 | 00100 Helsinki"_s,
                                      u"Maija O'Brien | Rantatie 3 | 00100 Helsinki"_s,
                                      u"Onni Laine | Pajakuja 4 | 00100 Helsinki"_s}));
        QCOMPARE(k->scalar(u"SELECT count(*) FROM jr WHERE jrMukaan = 1"_s).toInt(), 0); // the choice is used up

        // On the sheet the long name line wraps inside its label instead of losing names.
        const QString vanha = std::exchange(MainModule::DatabasePath, env->path(u"perheet.mdb"_s));
        const QString rivit = laadi(Perhetarrat()).tekstit(0).join(u' ');
        MainModule::DatabasePath = vanha;
        for (const QString &sana : tarrat[0].section(u" | "_s, 0, 0).split(u' '))
            QVERIFY2(rivit.split(u' ').contains(sana), qPrintable(sana));
        QVERIFY(!rivit.contains(u"…"_s));
    }

    // Every built-in definition reads and lays out on the demonstration club with the formulas
    // the program gives, and the lists with a selection of their own take only their rows.
    void kaikkiMaaritykset()
    {
        d->execute(u"UPDATE jr SET jrMukaan = 1"_s);
        TeePerhetarrat(*d);
        TaytaRekisteritiedot(*d, {});
        // The lists of an open batch need one: the demonstration club starts with none.
        d->execute(u"INSERT INTO jm (jmjrID, jmLaskunumero, jmViitenumero, jmHinta) "
                   "SELECT jmhjmjrID, jmhjmLaskunumero, jmhjmViitenumero, jmhjmHinta FROM jmhist LIMIT 3"_s);
        const QStringList tiedostot = QDir(u":/raportit"_s).entryList({u"*.rpt"_s});
        QVERIFY(tiedostot.size() >= 24);
        for (const QString &t : tiedostot) {
            const Asiakirja a = laadi({t, {}, {u"Seurannimi= 'Vanhankylän Urheiluseura ry'"_s}, {}});
            QVERIFY2(a.riveja > 0 && !a.sivut.empty(), qPrintable(t));
        }
        const int maksamatta = d->scalar(u"SELECT count(*) FROM jmhist WHERE jmhjmJasMak = 1 AND jmhjmMaksettu = 0"_s).toInt();
        QVERIFY(maksamatta > 0);
        QCOMPARE(laadi({u"jmlmksma.rpt"_s, {}, {}, {}}).riveja, maksamatta);
        // The program's selection narrows the report's own.
        QCOMPARE(laadi({u"jmlmksma.rpt"_s, u"{jmhist.jmhjmLaskunumero} < 0"_s, {}, {}}).riveja, 0);
        const Asiakirja lista = laadi({u"jmllista.rpt"_s, {}, {}, {u"+{jmhist.jmhjmLaskunumero}"_s}});
        QVERIFY(lista.tekstit(int(lista.sivut.size()) - 1).join(u'|').contains(
            u"Laskuja %1, yhteensä "_s.arg(d->scalar(u"SELECT count(*) FROM jmhist"_s).toInt())));
    }
};

QTEST_MAIN(TestJasenraportit)
#include "tst_jasenraportit.moc"
