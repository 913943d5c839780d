// Attributes without windows: typed values, attaching and storing them, definitions and their
// clean-up, and the bulk runs, each checked in the database afterwards.
#include "platform/arvot.h"
#include "members/JasenenPiirteet.h"
#include "members/PiirreJoukko.h"
#include "platform/recordset.h"
#include "malliseura.h"
#include "testenv.h"
#include "testiapu.h"

#include <QtTest>

using db::Database;

namespace {

struct Tyypit {
    bool paiva = false, luku = false, raha = false, muistio = false;
};

qint64 uusiPiirre(Database &d, const QVariant &nimi, Tyypit k = {}, const QVariant &paiva = {}, const QVariant &luku = {},
                  const QVariant &raha = {}, const QVariant &muistio = {})
{
    d.execute(QStringLiteral("INSERT INTO pi (piNimi, piKuvaus, piEnbldDate, piEnbldLong, piEnbldCurrency, piEnbldMemo, "
                             "piDate, piLong, piCurrency, piMemo) VALUES (?, 'kuvaus', ?, ?, ?, ?, ?, ?, ?, ?)"),
              {nimi, k.paiva, k.luku, k.raha, k.muistio, paiva, luku, raha, muistio});
    return d.lastInsertId();
}

qint64 uusiJasen(Database &d, const QVariant &sukunimi, const QVariant &syntyma = {})
{
    d.execute(QStringLiteral("INSERT INTO jr (jrSukunimi, jrEtunimi, jrSyntyma) VALUES (?, 'Eeva', ?)"), {sukunimi, syntyma});
    return d.lastInsertId();
}

qint64 liitos(Database &d, qint64 jr, qint64 pi, const QVariant &muistio = {})
{
    d.execute(QStringLiteral("INSERT INTO pt (ptjrID, ptpiID, ptValMemo) VALUES (?, ?, ?)"), {jr, pi, muistio});
    return d.lastInsertId();
}

using testi::maara;

// date | long | currency | memo of one attachment, Null as "N".
QString arvot(Database &d, qint64 ptID)
{
    return testi::rivi(d, QStringLiteral("SELECT ptValDate, ptValLong, ptValCurrency, ptValMemo FROM pt WHERE ptID = ?"), {ptID});
}

// "jrID:piID" of every attachment, in key order.
QStringList liitokset(Database &d)
{
    QStringList s;
    db::Statement st(d, QStringLiteral("SELECT ptjrID, ptpiID FROM pt ORDER BY ptID"));
    while (st.next())
        s << st.value(0).toString() + QLatin1Char(':') + st.value(1).toString();
    return s;
}

ArvoSyote syote(Tyypit k, const QString &paiva = {}, const QString &luku = {}, const QString &raha = {},
                const QString &muistio = {})
{
    ArvoSyote s;
    s.kaytossa = {k.paiva, k.luku, k.raha, k.muistio};
    s.teksti = {paiva, luku, raha, muistio};
    return s;
}

const Tyypit kaikki{true, true, true, true};

} // namespace

class tst_piirre : public QObject {
    Q_OBJECT
    TestEnv env;
    int kerhoja = 0;
    std::unique_ptr<Database> d;

private slots:
    // A fresh copy of the upgraded template for every case.
    void init()
    {
        const QString polku = env.path(QStringLiteral("kerho%1.mdb").arg(++kerhoja));
        d = malliseura::kopio(polku);
    }
    void cleanup() { d.reset(); }

    void tekstiArvoksi_data()
    {
        QTest::addColumn<int>("tyyppi");
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<QVariant>("odotus");
        QTest::addColumn<bool>("kelpaa");
        const int P = int(ArvoTyyppi::Paiva), L = int(ArvoTyyppi::Luku), R = int(ArvoTyyppi::Raha), M = int(ArvoTyyppi::Muistio);
        QTest::newRow("päivä") << P << "1.2.2020" << QVariant("2020-02-01") << true;
        QTest::newRow("lyhyt vuosi") << P << "1.2.20" << QVariant("2020-02-01") << true;
        QTest::newRow("ei päivää") << P << "31.2.2020" << QVariant() << false;
        QTest::newRow("tyhjä päivä") << P << "" << QVariant() << true;
        QTest::newRow("kirjain luvussa") << L << "a" << QVariant() << false;
        QTest::newRow("luku") << L << "-42" << QVariant(qlonglong(-42)) << true;
        QTest::newRow("puolikas parilliseen") << L << "2,5" << QVariant(qlonglong(2)) << true;
        QTest::newRow("liian suuri luku") << L << "3000000000" << QVariant() << false;
        QTest::newRow("raha pilkulla") << R << "12,50" << QVariant(qlonglong(125000)) << true;
        QTest::newRow("raha pisteellä") << R << "12.5" << QVariant(qlonglong(125000)) << true;
        QTest::newRow("raha euroineen") << R << "1 234,56 €" << QVariant(qlonglong(12345600)) << true;
        QTest::newRow("raha kirjaimin") << R << "kymppi" << QVariant() << false;
        QTest::newRow("muistio") << M << "O'Connor; DROP TABLE pt" << QVariant("O'Connor; DROP TABLE pt") << true;
        QTest::newRow("tyhjä muistio") << M << "" << QVariant() << true;
    }
    void tekstiArvoksi()
    {
        QFETCH(int, tyyppi);
        QFETCH(QString, teksti);
        QFETCH(QVariant, odotus);
        QFETCH(bool, kelpaa);
        bool k = !kelpaa;
        const QVariant v = TekstiArvoksi(ArvoTyyppi(tyyppi), teksti, &k);
        QCOMPARE(k, kelpaa);
        QCOMPARE(v.isValid(), odotus.isValid());
        if (odotus.isValid())
            QCOMPARE(v.toString(), odotus.toString());
    }

    void lahtiessa_data()
    {
        QTest::addColumn<int>("tyyppi");
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<QString>("jalkeen");
        QTest::addColumn<bool>("piippaa");
        QTest::newRow("päivä lyhyeen muotoon") << int(ArvoTyyppi::Paiva) << "2020-02-01" << "1.2.2020" << false;
        QTest::newRow("huono päivä tyhjäksi") << int(ArvoTyyppi::Paiva) << "huomenna" << "" << true;
        QTest::newRow("kirjain luvussa") << int(ArvoTyyppi::Luku) << "a" << "" << true;
        QTest::newRow("raha jää") << int(ArvoTyyppi::Raha) << "12,5" << "12,5" << false;
        QTest::newRow("tyhjä ei piippaa") << int(ArvoTyyppi::Luku) << "" << "" << false;
    }
    void lahtiessa()
    {
        QFETCH(int, tyyppi);
        QFETCH(QString, teksti);
        QFETCH(QString, jalkeen);
        QFETCH(bool, piippaa);
        bool hylatty = !piippaa;
        QCOMPARE(TekstiLahtiessa(ArvoTyyppi(tyyppi), teksti, &hylatty), jalkeen);
        QCOMPARE(hylatty, piippaa);
    }

    void rahaNaytetaanHukkaamatta()
    {
        // A shown amount stored back must be the same amount.
        for (qlonglong raw : {125000LL, 12345LL, -5000LL, 0LL}) {
            const QString t = ArvoTekstiksi(ArvoTyyppi::Raha, raw);
            QCOMPARE(TekstiArvoksi(ArvoTyyppi::Raha, t).toLongLong(), raw);
        }
        QCOMPARE(ArvoTekstiksi(ArvoTyyppi::Raha, 125000LL), QStringLiteral("12,50"));
        QCOMPARE(ArvoTekstiksi(ArvoTyyppi::Raha, 12345LL), QStringLiteral("1,2345"));
        QCOMPARE(ArvoTekstiksi(ArvoTyyppi::Paiva, QStringLiteral("2024-03-05")), QStringLiteral("5.3.2024"));
    }

    void liitosOttaaKaytossaOlevatOletukset()
    {
        const qint64 jr = uusiJasen(*d, QStringLiteral("Virtanen"));
        // Date in use with a default, number in use without one, money not in use though it has
        // a default, memo in use with one.
        const qint64 pi = uusiPiirre(*d, QStringLiteral("Lisenssi"), {true, true, false, true}, QStringLiteral("2025-12-31"), {},
                                     qlonglong(450000), QStringLiteral("LIS"));
        const qint64 pt = LiitaPiirre(*d, jr, pi);
        QVERIFY(pt > 0);
        QCOMPARE(arvot(*d, pt), QStringLiteral("2025-12-31|N|N|LIS"));
        QCOMPARE(NullLong(d->scalar(QStringLiteral("SELECT ptjrID FROM pt WHERE ptID = ?"), {pt})), jr);
        QCOMPARE(LiitaPiirre(*d, jr, pi + 100), 0);
        QCOMPARE(maara(*d, QStringLiteral("pt")), 1);
    }

    void jasenenListaOhittaaOrvot()
    {
        const qint64 jr = uusiJasen(*d, QStringLiteral("Virtanen"));
        const qint64 toinen = uusiJasen(*d, QStringLiteral("Laine"));
        const qint64 b = uusiPiirre(*d, QStringLiteral("Bändi"));
        const qint64 a = uusiPiirre(*d, QStringLiteral("Aktiivi"));
        const qint64 pt1 = liitos(*d, jr, b);
        liitos(*d, jr, 999);
        const qint64 pt3 = liitos(*d, jr, a);
        liitos(*d, toinen, a);
        const auto lista = JasenenPiirteet(*d, jr);
        QCOMPARE(lista.size(), 2);
        QVERIFY(lista[0].id == pt1 && lista[1].id == pt3);
        QCOMPARE(lista[1].teksti, QStringLiteral("Aktiivi"));
        // The orphan is skipped, not removed.
        QCOMPARE(maara(*d, QStringLiteral("pt WHERE ptpiID = 999")), 1);
    }

    void arvonTallennus_data()
    {
        QTest::addColumn<QString>("kaytossa"); // types in use of the panel: d, l, r, m
        QTest::addColumn<QStringList>("tekstit");
        QTest::addColumn<QString>("odotus");
        QTest::addColumn<QString>("tyhjennettavat");
        const QStringList hyvat{QStringLiteral("24.12.2024"), QStringLiteral("7"), QStringLiteral("10,5"), QStringLiteral("uusi")};
        QTest::newRow("kaikki") << "dlrm" << hyvat << "2024-12-24|7|105000|uusi" << "";
        QTest::newRow("päivä pois käytöstä pitää arvonsa") << "lrm" << hyvat << "2000-01-01|7|105000|uusi" << "";
        QTest::newRow("huonot tyhjiksi") << "dlrm"
                                         << QStringList{QStringLiteral("ei"), QStringLiteral("a"), QStringLiteral("x"), QString()}
                                         << "N|N|N|N" << "dlr";
        QTest::newRow("heittomerkki muistiossa") << "m"
                                                 << QStringList{QString(), QString(), QString(), QStringLiteral("O'Connor's \"x\"; --")}
                                                 << "2000-01-01|1|10000|O'Connor's \"x\"; --" << "";
    }
    void arvonTallennus()
    {
        QFETCH(QString, kaytossa);
        QFETCH(QStringList, tekstit);
        QFETCH(QString, odotus);
        QFETCH(QString, tyhjennettavat);
        const qint64 jr = uusiJasen(*d, QStringLiteral("Virtanen"));
        const qint64 pi = uusiPiirre(*d, QStringLiteral("Kaikki"), kaikki);
        d->execute(QStringLiteral("INSERT INTO pt (ptjrID, ptpiID, ptValDate, ptValLong, ptValCurrency, ptValMemo) "
                                  "VALUES (?, ?, '2000-01-01', 1, 10000, 'vanha')"),
                   {jr, pi});
        const qint64 pt = d->lastInsertId();
        const Tyypit k{kaytossa.contains(QLatin1Char('d')), kaytossa.contains(QLatin1Char('l')),
                       kaytossa.contains(QLatin1Char('r')), kaytossa.contains(QLatin1Char('m'))};
        const auto t = TallennaPiirreArvo(*d, pt, syote(k, tekstit[0], tekstit[1], tekstit[2], tekstit[3]));
        QCOMPARE(arvot(*d, pt), odotus);
        QString tyhjat;
        const char kirjaimet[] = "dlrm";
        for (int i = 0; i < 4; ++i)
            if (t.tyhjenna[size_t(i)])
                tyhjat += QLatin1Char(kirjaimet[i]);
        QCOMPARE(tyhjat, tyhjennettavat);
    }

    void poistettuMaaritysEiNayArvoja()
    {
        const qint64 jr = uusiJasen(*d, QStringLiteral("Virtanen"));
        const qint64 pi = uusiPiirre(*d, QStringLiteral("Lisenssi"), {true, false, false, false}, QStringLiteral("2025-01-01"));
        const qint64 pt = LiitaPiirre(*d, jr, pi);
        PiirreNakyma n = LuePiirre(*d, pt);
        QVERIFY(n.loytyi && n.maaritys && !n.arvot.kaytossa[1]);
        QCOMPARE(n.arvot.teksti[0], QStringLiteral("1.1.2025"));
        d->execute(QStringLiteral("DELETE FROM pi"));
        n = LuePiirre(*d, pt);
        QVERIFY(n.loytyi && !n.maaritys && !n.arvot.kaytossa[0]);
        PoistaLiitos(*d, pt);
        QVERIFY(!LuePiirre(*d, pt).loytyi);
    }

    void maarityksenPoistoVieLiitoksetJaMt()
    {
        const qint64 jr = uusiJasen(*d, QStringLiteral("Virtanen"));
        const qint64 pois = uusiPiirre(*d, QStringLiteral("Pois"));
        const qint64 jaa = uusiPiirre(*d, QStringLiteral("Jää"));
        liitos(*d, jr, pois);
        liitos(*d, jr, pois);
        liitos(*d, jr, jaa);
        d->execute(QStringLiteral("INSERT INTO mt (mtpiID, mtjrID, mtTeksti) VALUES (?, ?, 'x'), (?, ?, 'y')"), {pois, jr, jaa, jr});
        PoistaPiirre(*d, pois);
        QCOMPARE(maara(*d, QStringLiteral("pi WHERE piID = ?"), {pois}), 0);
        QCOMPARE(liitokset(*d), QStringList{QStringLiteral("%1:%2").arg(jr).arg(jaa)});
        QCOMPARE(maara(*d, QStringLiteral("mt")), 1);
        QCOMPARE(maara(*d, QStringLiteral("mt WHERE mtpiID = ?"), {jaa}), 1);
    }

    void siivousPoistaaVainOrvot()
    {
        const qint64 jr = uusiJasen(*d, QStringLiteral("Virtanen"));
        const qint64 pi = uusiPiirre(*d, QStringLiteral("Jää"));
        liitos(*d, jr, pi);
        liitos(*d, jr, 555);
        liitos(*d, jr + 1, 556);
        d->execute(QStringLiteral("INSERT INTO pt (ptjrID, ptpiID) VALUES (?, NULL)"), {jr});
        QCOMPARE(SiivoaVanhatOminaisuudet(*d), 3);
        QCOMPARE(liitokset(*d), QStringList{QStringLiteral("%1:%2").arg(jr).arg(pi)});
        QCOMPARE(SiivoaVanhatOminaisuudet(*d), 0);
    }

    void puu()
    {
        for (const char *n : {"Öljy", "1. joukkue", "bändi", "Zeta", "Åland", "Aktiivi", "Ässät", "Äiti", "#tägi", "Über", " väli"})
            uusiPiirre(*d, QString::fromUtf8(n));
        QStringList kuva;
        for (const PuunKirjain &k : PiirrePuu(*d)) {
            QStringList nimet;
            for (const ListaRivi &r : k.rivit)
                nimet << r.teksti;
            kuva << k.kirjain + QLatin1Char('=') + nimet.join(QLatin1Char(','));
        }
        QCOMPARE(kuva, (QStringList{QStringLiteral("A=Aktiivi"), QStringLiteral("B=bändi"), QStringLiteral("Z=Zeta"),
                                    QStringLiteral("Å=Åland"), QStringLiteral("Ä=Äiti,Ässät"), QStringLiteral("Ö=Öljy")}));
        // Only names starting with a letter of the tree are shown; a nameless row sorts first and
        // ends the walk.
        uusiPiirre(*d, QVariant());
        QVERIFY(PiirrePuu(*d).isEmpty());
    }

    void maaritysRivinKirjoitusJaLuku()
    {
        auto rs = db::Recordset::openTable(*d, QStringLiteral("pi"));
        rs->addNew();
        KirjoitaMaaritysRivi(*rs, {QStringLiteral("O'Connorin \"kerho\"; --"), QString(), QStringLiteral("31.2.2024"),
                                   QStringLiteral("12,5"), QStringLiteral("abc"), QStringLiteral("muistio")});
        rs->update();
        QCOMPARE(testi::rivi(*d, QStringLiteral("SELECT piNimi, piKuvaus, piDate, piLong, piCurrency, piMemo, piEnbldDate FROM pi")),
                 QStringLiteral("O'Connorin \"kerho\"; --|N|N|12|N|muistio|N"));
        rs->moveFirst();
        const MaaritysNakyma n = LueMaaritysRivi(*rs);
        QCOMPARE(n.lomake.tLong, QStringLiteral("12"));
        QVERIFY(!n.kaytossa[0].has_value()); // a Null flag is no answer
    }

    // Opening a list drops the blank rows; a row without a name but with anything else stays
    // and sorts first.
    void tyhjatPoistetaanListanAlusta()
    {
        uusiPiirre(*d, QVariant()); // described
        d->execute(QStringLiteral("INSERT INTO pi (piNimi) VALUES ('')"));
        uusiPiirre(*d, QStringLiteral("Bee"));
        d->execute(QStringLiteral("INSERT INTO pi (piNimi) VALUES (NULL)"));
        liitos(*d, uusiJasen(*d, QStringLiteral("Berg")), d->lastInsertId()); // held by somebody
        QCOMPARE(Maaritykset(*d, false).size(), 4);
        const auto pit = Maaritykset(*d, true);
        QCOMPARE(pit.size(), 3);
        QCOMPARE(pit[0].teksti, QString());
        uusiJasen(*d, QVariant()); // has a first name
        d->execute(QStringLiteral("INSERT INTO jr (jrSukunimi) VALUES ('')"));
        uusiJasen(*d, QStringLiteral("Öhman"));
        uusiJasen(*d, QStringLiteral("Aalto"));
        const auto jasenet = JasenLista(*d);
        QCOMPARE(jasenet.size(), 4);
        QCOMPARE(jasenet[0].teksti, QStringLiteral(" Eeva"));
        QCOMPARE(jasenet[1].teksti, QStringLiteral("Aalto Eeva"));
        QCOMPARE(jasenet[3].teksti, QStringLiteral("Öhman Eeva"));
        QCOMPARE(maara(*d, QStringLiteral("jr")), 4);
    }

    // ---- Bulk runs -------------------------------------------------------------------------

    void moniliitos()
    {
        const qint64 a = uusiJasen(*d, QStringLiteral("A")), b = uusiJasen(*d, QStringLiteral("B")),
                     c = uusiJasen(*d, QStringLiteral("C"));
        const qint64 pi = uusiPiirre(*d, QStringLiteral("Kausi"), {false, true, false, false});
        liitos(*d, b, pi);
        const ArvoSyote s = syote({false, true, false, false}, {}, QStringLiteral("3"));

        QCOMPARE(Moniliitos(*d, pi, {}, s, false).lisatty, 0);
        QCOMPARE(maara(*d, QStringLiteral("pt")), 1);

        // The repeat guard skips the holder; the order of the list is the order written.
        QCOMPARE(Moniliitos(*d, pi, {c, b, a}, s, true).lisatty, 2);
        QCOMPARE(liitokset(*d).mid(1), (QStringList{QStringLiteral("%1:%2").arg(c).arg(pi), QStringLiteral("%1:%2").arg(a).arg(pi)}));
        QCOMPARE(maara(*d, QStringLiteral("pt WHERE ptValLong = 3")), 2);

        // Without it a holder gets a second row.
        QCOMPARE(Moniliitos(*d, pi, {b}, s, false).lisatty, 1);
        QCOMPARE(maara(*d, QStringLiteral("pt WHERE ptjrID = ?"), {b}), 2);
    }

    void huonoArvoJaaPoisKaikilta()
    {
        const qint64 a = uusiJasen(*d, QStringLiteral("A")), b = uusiJasen(*d, QStringLiteral("B"));
        const qint64 pi = uusiPiirre(*d, QStringLiteral("Kausi"), kaikki);
        const ArvoSyote s = syote(kaikki, QStringLiteral("ei"), QStringLiteral("4"), QStringLiteral("x"), QStringLiteral("m"));
        const LiitosTulos t = Moniliitos(*d, pi, {a, b}, s, false);
        QCOMPARE(t.lisatty, 2);
        QVERIFY(t.tyhjenna[0] && !t.tyhjenna[1] && t.tyhjenna[2] && !t.tyhjenna[3]);
        QCOMPARE(maara(*d, QStringLiteral("pt WHERE ptValDate IS NULL AND ptValCurrency IS NULL AND ptValLong = 4 AND ptValMemo = 'm'")), 2);
        // With nobody written no box has been emptied.
        QVERIFY(!Moniliitos(*d, pi, {a}, s, true).tyhjenna[0]);
    }

    void syntymapaiva_data()
    {
        QTest::addColumn<QString>("vanhin");
        QTest::addColumn<QString>("nuorin");
        QTest::addColumn<bool>("vainUusille");
        QTest::addColumn<QString>("saajat");
        // Members: a 1980-01-01, b 1985-06-15 (holds the attribute), c 1990-12-31, n no birth date.
        QTest::newRow("väli") << "1.1.1980" << "15.6.1985" << false << "ab";
        QTest::newRow("sama päivä molemmissa") << "15.6.1985" << "15.6.1985" << false << "b";
        QTest::newRow("vain vanhin") << "1.6.1985" << "" << false << "bc";
        QTest::newRow("vain nuorin") << "" << "31.12.1989" << false << "ab";
        QTest::newRow("vain uusille") << "1.1.1900" << "31.12.2100" << true << "ac";
        QTest::newRow("väli väärin päin") << "1.1.1990" << "1.1.1980" << false << "";
    }
    void syntymapaiva()
    {
        QFETCH(QString, vanhin);
        QFETCH(QString, nuorin);
        QFETCH(bool, vainUusille);
        QFETCH(QString, saajat);
        QMap<qint64, QChar> nimi;
        nimi.insert(uusiJasen(*d, QStringLiteral("a"), QStringLiteral("1980-01-01")), QLatin1Char('a'));
        const qint64 b = uusiJasen(*d, QStringLiteral("b"), QStringLiteral("1985-06-15"));
        nimi.insert(b, QLatin1Char('b'));
        nimi.insert(uusiJasen(*d, QStringLiteral("c"), QStringLiteral("1990-12-31 00:00:00")), QLatin1Char('c'));
        nimi.insert(uusiJasen(*d, QStringLiteral("n")), QLatin1Char('n'));
        const qint64 pi = uusiPiirre(*d, QStringLiteral("Juniori"), {false, false, true, false});
        const qint64 vanha = liitos(*d, b, pi);

        const LiitosTulos t = LisaaSyntymapaivanPerusteella(*d, pi, ParsePaiva(vanhin), ParsePaiva(nuorin),
                                                             syote({false, false, true, false}, {}, {}, QStringLiteral("15")),
                                                             vainUusille);
        QString saivat;
        db::Statement st(*d, QStringLiteral("SELECT ptjrID, ptValCurrency FROM pt WHERE ptID <> ? ORDER BY ptID"), {vanha});
        while (st.next()) {
            saivat += nimi.value(st.value(0).toLongLong());
            QCOMPARE(st.value(1).toLongLong(), 150000);
        }
        QCOMPARE(saivat, saajat);
        QCOMPARE(t.lisatty, saajat.size());
    }

    void poisto()
    {
        const qint64 a = uusiJasen(*d, QStringLiteral("A")), b = uusiJasen(*d, QStringLiteral("B")),
                     c = uusiJasen(*d, QStringLiteral("C"));
        const qint64 ehto = uusiPiirre(*d, QStringLiteral("Eronnut")), pois = uusiPiirre(*d, QStringLiteral("Hallitus"));
        liitos(*d, a, ehto);
        liitos(*d, a, ehto); // held twice: counted twice
        liitos(*d, a, pois);
        liitos(*d, b, ehto);  // holds nothing to remove: still counted
        liitos(*d, c, pois);  // not a holder of the condition: keeps it
        liitos(*d, 9999, ehto); // a deleted member's row is no holder
        QCOMPARE(PoistaOminaisuus(*d, pois, ehto), 3);
        QCOMPARE(maara(*d, QStringLiteral("pt WHERE ptpiID = ?"), {pois}), 1);
        QCOMPARE(maara(*d, QStringLiteral("pt WHERE ptpiID = ? AND ptjrID = ?"), {pois, c}), 1);
        QCOMPARE(maara(*d, QStringLiteral("pt WHERE ptpiID = ?"), {ehto}), 4);

        // The same attribute in both removes it from every holder.
        QCOMPARE(PoistaOminaisuus(*d, ehto, ehto), 3);
        QCOMPARE(maara(*d, QStringLiteral("pt WHERE ptpiID = ?"), {ehto}), 1); // the deleted member's row stays
        QCOMPARE(maara(*d, QStringLiteral("pi")), 2);
    }

    void keskeytynytAjoEiJataMitaan()
    {
        const qint64 a = uusiJasen(*d, QStringLiteral("A"), QStringLiteral("1980-01-01"));
        const qint64 b = uusiJasen(*d, QStringLiteral("B"), QStringLiteral("1981-01-01"));
        const qint64 pi = uusiPiirre(*d, QStringLiteral("Kausi"));
        d->execute(QStringLiteral("CREATE TRIGGER este BEFORE INSERT ON pt WHEN NEW.ptjrID = %1 "
                                  "BEGIN SELECT RAISE(ABORT, 'keskeytys'); END")
                       .arg(b));
        QVERIFY_THROWS_EXCEPTION(db::DbError, Moniliitos(*d, pi, {a, b}, {}, false));
        QVERIFY_THROWS_EXCEPTION(db::DbError, LisaaSyntymapaivanPerusteella(*d, pi, QDate(1970, 1, 1), {}, {}, false));
        QCOMPARE(maara(*d, QStringLiteral("pt")), 0);
    }
};

QTEST_GUILESS_MAIN(tst_piirre)
#include "tst_piirre.moc"
