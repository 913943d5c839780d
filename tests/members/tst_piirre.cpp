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

using namespace Qt::Literals::StringLiterals;

using db::Database;

namespace {

// A definition; `kaytossa` names the value types in use (d date, l number, r amount, m memo) and
// `oletukset` holds their defaults in that order.
qint64 uusiPiirre(Database &d, const QVariant &nimi, const QString &kaytossa = {}, const QVariantList &oletukset = {})
{
    d.execute(u"INSERT INTO pi (piNimi, piKuvaus, piEnbldDate, piEnbldLong, piEnbldCurrency, piEnbldMemo, piDate, piLong, "
              "piCurrency, piMemo) VALUES (?, 'kuvaus', ?, ?, ?, ?, ?, ?, ?, ?)"_s,
              {nimi, kaytossa.contains(u'd'), kaytossa.contains(u'l'), kaytossa.contains(u'r'), kaytossa.contains(u'm'),
               oletukset.value(0), oletukset.value(1), oletukset.value(2), oletukset.value(3)});
    return d.lastInsertId();
}

qint64 uusiJasen(Database &d, const QVariant &sukunimi, const QVariant &syntyma = {})
{
    d.execute(u"INSERT INTO jr (jrSukunimi, jrEtunimi, jrSyntyma) VALUES (?, 'Eeva', ?)"_s, {sukunimi, syntyma});
    return d.lastInsertId();
}

qint64 liitos(Database &d, qint64 jr, qint64 pi, const QVariant &muistio = {})
{
    d.execute(u"INSERT INTO pt (ptjrID, ptpiID, ptValMemo) VALUES (?, ?, ?)"_s, {jr, pi, muistio});
    return d.lastInsertId();
}

using testi::maara;

// date | long | currency | memo of one attachment, Null as "N".
QString arvot(Database &d, qint64 ptID)
{
    return testi::rivi(d, u"SELECT ptValDate, ptValLong, ptValCurrency, ptValMemo FROM pt WHERE ptID = ?"_s, {ptID});
}

// "jrID:piID" of every attachment, in key order.
QStringList liitokset(Database &d)
{
    QStringList s;
    db::Statement st(d, u"SELECT ptjrID, ptpiID FROM pt ORDER BY ptID"_s);
    while (st.next())
        s << st.value(0).toString() + QChar(':') + st.value(1).toString();
    return s;
}

// The panel's input: the types in use as above, the texts typed in the same order.
ArvoSyote syote(const QString &kaytossa, const QStringList &tekstit = {})
{
    ArvoSyote s;
    for (int i = 0; i < 4; ++i) {
        s.kaytossa[size_t(i)] = kaytossa.contains(u"dlrm"[i]);
        s.teksti[size_t(i)] = tekstit.value(i);
    }
    return s;
}

const QString kaikki = u"dlrm"_s;

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
        const QString polku = env.path(u"kerho%1.mdb"_s.arg(++kerhoja));
        d = malliseura::kopio(polku);
    }
    void cleanup() { d.reset(); }

    // A typed value as stored, whether it is refused, what the box shows on leaving, and the
    // stored amount shown and read back unchanged.
    void tekstitJaArvot()
    {
        const ArvoTyyppi P = ArvoTyyppi::Paiva, L = ArvoTyyppi::Luku, R = ArvoTyyppi::Raha, M = ArvoTyyppi::Muistio;
        const struct {
            ArvoTyyppi tyyppi;
            QString teksti;
            QVariant odotus;
            bool kelpaa;
        } syotteet[] = {{P, u"1.2.2020"_s, u"2020-02-01"_s, true}, {P, u"31.2.2020"_s, {}, false},
                        {P, u""_s, {}, true},                       {L, u"2,5"_s, qlonglong(2), true},
                        {L, u"3000000000"_s, {}, false},            {R, u"12.5"_s, qlonglong(125000), true},
                        {R, u"kymppi"_s, {}, false}, {M, u"O'Connor; DROP TABLE pt"_s, u"O'Connor; DROP TABLE pt"_s, true}};
        for (const auto &a : syotteet) {
            bool k = !a.kelpaa;
            const QVariant v = TekstiArvoksi(a.tyyppi, a.teksti, &k);
            QVERIFY2(k == a.kelpaa && v.isValid() == a.odotus.isValid() && v.toString() == a.odotus.toString(), qPrintable(a.teksti));
        }

        const struct {
            ArvoTyyppi tyyppi;
            QString teksti, jalkeen;
            bool piippaa;
        } lahdot[] = {{P, u"2020-02-01"_s, u"1.2.2020"_s, false}, {P, u"huomenna"_s, u""_s, true},
                      {L, u"a"_s, u""_s, true},                  {L, u""_s, u""_s, false}};
        for (const auto &l : lahdot) {
            bool hylatty = !l.piippaa;
            QCOMPARE(TekstiLahtiessa(l.tyyppi, l.teksti, &hylatty), l.jalkeen);
            QCOMPARE(hylatty, l.piippaa);
        }

        for (qlonglong raw : {125000LL, 12345LL, -5000LL, 0LL})
            QCOMPARE(TekstiArvoksi(R, ArvoTekstiksi(R, raw)).toLongLong(), raw);
        QCOMPARE(ArvoTekstiksi(R, 125000LL), u"12,50"_s);
        QCOMPARE(ArvoTekstiksi(R, 12345LL), u"1,2345"_s);
        QCOMPARE(ArvoTekstiksi(P, u"2024-03-05"_s), u"5.3.2024"_s);
    }

    // An attachment takes the defaults of the types in use.
    void liitosOttaaKaytossaOlevatOletukset()
    {
        const qint64 jr = uusiJasen(*d, u"Virtanen"_s);
        // Date in use with a default, number in use without one, money not in use though it has
        // a default, memo in use with one.
        const qint64 pi = uusiPiirre(*d, u"Lisenssi"_s, u"dlm"_s, {u"2025-12-31"_s, {}, qlonglong(450000), u"LIS"_s});
        const qint64 pt = LiitaPiirre(*d, jr, pi);
        QVERIFY(pt > 0);
        QCOMPARE(arvot(*d, pt), u"2025-12-31|N|N|LIS"_s);
        QCOMPARE(NullLong(d->scalar(u"SELECT ptjrID FROM pt WHERE ptID = ?"_s, {pt})), jr);
        QCOMPARE(LiitaPiirre(*d, jr, pi + 100), 0);
        QCOMPARE(maara(*d, u"pt"_s), 1);

        // The member's list in the order attached skips an attachment without a definition,
        // and leaves it in the table.
        const qint64 a = uusiPiirre(*d, u"Aktiivi"_s);
        liitos(*d, jr, 999);
        const qint64 pt3 = liitos(*d, jr, a);
        liitos(*d, uusiJasen(*d, u"Laine"_s), a);
        const auto lista = JasenenPiirteet(*d, jr);
        QCOMPARE(lista.size(), 2);
        QVERIFY(lista[0].id == pt && lista[1].id == pt3);
        QCOMPARE(lista[1].teksti, u"Aktiivi"_s);
        QCOMPARE(maara(*d, u"pt WHERE ptpiID = 999"_s), 1);

        // With its definition deleted the attachment shows no value boxes; then it goes too.
        PiirreNakyma n = LuePiirre(*d, pt);
        QVERIFY(n.loytyi && n.maaritys && !n.arvot.kaytossa[2]);
        QCOMPARE(n.arvot.teksti[0], u"31.12.2025"_s);
        d->execute(u"DELETE FROM pi"_s);
        n = LuePiirre(*d, pt);
        QVERIFY(n.loytyi && !n.maaritys && !n.arvot.kaytossa[0]);
        PoistaLiitos(*d, pt);
        QVERIFY(!LuePiirre(*d, pt).loytyi);
    }

    // A value stored from the panel: the types not in use keep their values, values that are no
    // values are stored empty and their boxes emptied, a memo is text.
    void arvonTallennus()
    {
        const qint64 jr = uusiJasen(*d, u"Virtanen"_s);
        const qint64 pi = uusiPiirre(*d, u"Kaikki"_s, kaikki);
        const QStringList hyvat{u"24.12.2024"_s, u"7"_s, u"10,5"_s, u"uusi"_s};
        const struct {
            QString kaytossa;
            QStringList tekstit;
            QString odotus, tyhjennettavat;
        } tapaukset[] = {{kaikki, hyvat, u"2024-12-24|7|105000|uusi"_s, u""_s},
                         {u"lrm"_s, hyvat, u"2000-01-01|7|105000|uusi"_s, u""_s},
                         {kaikki, {u"ei"_s, u"a"_s, u"x"_s, QString()}, u"N|N|N|N"_s, u"dlr"_s},
                         {u"m"_s, {{}, {}, {}, u"O'Connor's \"x\"; --"_s}, u"2000-01-01|1|10000|O'Connor's \"x\"; --"_s, u""_s}};
        for (const auto &t : tapaukset) {
            d->execute(u"INSERT INTO pt (ptjrID, ptpiID, ptValDate, ptValLong, ptValCurrency, ptValMemo) "
                       "VALUES (?, ?, '2000-01-01', 1, 10000, 'vanha')"_s,
                       {jr, pi});
            const qint64 pt = d->lastInsertId();
            const auto tulos = TallennaPiirreArvo(*d, pt, syote(t.kaytossa, t.tekstit));
            QCOMPARE(arvot(*d, pt), t.odotus);
            QString tyhjat;
            for (int i = 0; i < 4; ++i)
                if (tulos.tyhjenna[size_t(i)])
                    tyhjat += QChar("dlrm"[i]);
            QCOMPARE(tyhjat, t.tyhjennettavat);
        }
    }

    // Deleting a definition takes its attachments and its rows of mt.
    void maarityksenPoistoVieLiitoksetJaMt()
    {
        const qint64 jr = uusiJasen(*d, u"Virtanen"_s);
        const qint64 pois = uusiPiirre(*d, u"Pois"_s);
        const qint64 jaa = uusiPiirre(*d, u"Jää"_s);
        liitos(*d, jr, pois);
        liitos(*d, jr, pois);
        liitos(*d, jr, jaa);
        d->execute(u"INSERT INTO mt (mtpiID, mtjrID, mtTeksti) VALUES (?, ?, 'x'), (?, ?, 'y')"_s, {pois, jr, jaa, jr});
        PoistaPiirre(*d, pois);
        QCOMPARE(maara(*d, u"pi WHERE piID = ?"_s, {pois}), 0);
        QCOMPARE(liitokset(*d), QStringList{u"%1:%2"_s.arg(jr).arg(jaa)});
        QCOMPARE(maara(*d, u"mt WHERE mtpiID = ?"_s, {jaa}), 1);
        QCOMPARE(maara(*d, u"mt"_s), 1);

        // The clean-up takes only the rows whose definition is gone or was never given.
        liitos(*d, jr, 555);
        liitos(*d, jr + 1, 556);
        d->execute(u"INSERT INTO pt (ptjrID, ptpiID) VALUES (?, NULL)"_s, {jr});
        QCOMPARE(SiivoaVanhatOminaisuudet(*d), 3);
        QCOMPARE(liitokset(*d), QStringList{u"%1:%2"_s.arg(jr).arg(jaa)});
        QCOMPARE(SiivoaVanhatOminaisuudet(*d), 0);
    }

    // The definitions' tree: a branch per Finnish letter in Finnish order; names that start with
    // anything else are not shown, and a nameless row (which sorts first) ends the walk.
    void puu()
    {
        for (const char *n : {"Öljy", "1. joukkue", "bändi", "Zeta", "Åland", "Aktiivi", "Ässät", "Äiti", "Über", " väli"})
            uusiPiirre(*d, QString::fromUtf8(n));
        QStringList kuva;
        for (const PuunKirjain &k : PiirrePuu(*d)) {
            QStringList nimet;
            for (const ListaRivi &r : k.rivit)
                nimet << r.teksti;
            kuva << k.kirjain + QChar('=') + nimet.join(QChar(','));
        }
        QCOMPARE(kuva, (QStringList{u"A=Aktiivi"_s, u"B=bändi"_s, u"Z=Zeta"_s, u"Å=Åland"_s, u"Ä=Äiti,Ässät"_s, u"Ö=Öljy"_s}));
        uusiPiirre(*d, QVariant());
        QVERIFY(PiirrePuu(*d).isEmpty());
    }

    void maaritysRivinKirjoitusJaLuku()
    {
        auto rs = db::Recordset::openTable(*d, u"pi"_s);
        rs->addNew();
        KirjoitaMaaritysRivi(*rs, {u"O'Connorin \"kerho\"; --"_s, QString(), u"31.2.2024"_s,
                                   u"12,5"_s, u"abc"_s, u"muistio"_s});
        rs->update();
        QCOMPARE(testi::rivi(*d, u"SELECT piNimi, piKuvaus, piDate, piLong, piCurrency, piMemo, piEnbldDate FROM pi"_s),
                 u"O'Connorin \"kerho\"; --|N|N|12|N|muistio|N"_s);
        rs->moveFirst();
        const MaaritysNakyma n = LueMaaritysRivi(*rs);
        QCOMPARE(n.lomake.tLong, u"12"_s);
        QVERIFY(!n.kaytossa[0].has_value()); // a Null flag is no answer

        // Opening the list of definitions drops the blank rows; a row without a name but with
        // anything else stays and sorts first.
        uusiPiirre(*d, QVariant()); // described
        d->execute(u"INSERT INTO pi (piNimi) VALUES ('')"_s);
        uusiPiirre(*d, u"Bee"_s);
        d->execute(u"INSERT INTO pi (piNimi) VALUES (NULL)"_s);
        liitos(*d, uusiJasen(*d, u"Berg"_s), d->lastInsertId()); // held by somebody
        QCOMPARE(Maaritykset(*d, false).size(), 5);
        const auto pit = Maaritykset(*d, true);
        QCOMPARE(pit.size(), 4);
        QCOMPARE(pit[0].teksti, QString());
    }

    // ---- Bulk runs -------------------------------------------------------------------------

    void moniliitos()
    {
        const qint64 a = uusiJasen(*d, u"A"_s), b = uusiJasen(*d, u"B"_s),
                     c = uusiJasen(*d, u"C"_s);
        const qint64 pi = uusiPiirre(*d, u"Kausi"_s, u"l"_s);
        liitos(*d, b, pi);
        const ArvoSyote s = syote(u"l"_s, {{}, u"3"_s});

        QCOMPARE(Moniliitos(*d, pi, {}, s, false).lisatty, 0);
        QCOMPARE(maara(*d, u"pt"_s), 1);

        // The repeat guard skips the holder; the order of the list is the order written.
        QCOMPARE(Moniliitos(*d, pi, {c, b, a}, s, true).lisatty, 2);
        QCOMPARE(liitokset(*d).mid(1), (QStringList{u"%1:%2"_s.arg(c).arg(pi), u"%1:%2"_s.arg(a).arg(pi)}));
        QCOMPARE(maara(*d, u"pt WHERE ptValLong = 3"_s), 2);

        // Without it a holder gets a second row.
        QCOMPARE(Moniliitos(*d, pi, {b}, s, false).lisatty, 1);
        QCOMPARE(maara(*d, u"pt WHERE ptjrID = ?"_s, {b}), 2);

        // A value that is no value is left out for everybody, and its box is emptied; with
        // nobody written no box has been emptied.
        const qint64 kaikille = uusiPiirre(*d, u"Kaikki"_s, kaikki);
        const ArvoSyote huono = syote(kaikki, {u"ei"_s, u"4"_s, u"x"_s, u"m"_s});
        const LiitosTulos t = Moniliitos(*d, kaikille, {a, b}, huono, false);
        QCOMPARE(t.lisatty, 2);
        QVERIFY(t.tyhjenna[0] && !t.tyhjenna[1] && t.tyhjenna[2] && !t.tyhjenna[3]);
        QCOMPARE(maara(*d, u"pt WHERE ptValDate IS NULL AND ptValCurrency IS NULL AND ptValLong = 4 AND ptValMemo = 'm'"_s), 2);
        QVERIFY(!Moniliitos(*d, kaikille, {a}, huono, true).tyhjenna[0]);
    }

    // Attaching by birth date: the limits are inclusive, either may be left open, a range the
    // wrong way round gives nobody, and "only new" skips the holders; no birth date, no attachment.
    void syntymapaiva()
    {
        QMap<qint64, QChar> nimi;
        nimi.insert(uusiJasen(*d, u"a"_s, u"1980-01-01"_s), u'a');
        const qint64 b = uusiJasen(*d, u"b"_s, u"1985-06-15"_s);
        nimi.insert(b, u'b');
        nimi.insert(uusiJasen(*d, u"c"_s, u"1990-12-31 00:00:00"_s), u'c');
        nimi.insert(uusiJasen(*d, u"n"_s), u'n');
        const qint64 pi = uusiPiirre(*d, u"Juniori"_s, u"r"_s);
        const qint64 vanha = liitos(*d, b, pi);
        const struct {
            QString vanhin, nuorin;
            bool vainUusille;
            QString saajat;
        } tapaukset[] = {{u"1.1.1980"_s, u"15.6.1985"_s, false, u"ab"_s}, {u"15.6.1985"_s, u"15.6.1985"_s, false, u"b"_s},
                         {u"1.6.1985"_s, u""_s, false, u"bc"_s},          {u"1.1.1900"_s, u"31.12.2100"_s, true, u"ac"_s},
                         {u"1.1.1990"_s, u"1.1.1980"_s, false, u""_s}};
        for (const auto &t : tapaukset) {
            d->execute(u"DELETE FROM pt WHERE ptID <> ?"_s, {vanha});
            const LiitosTulos tulos = LisaaSyntymapaivanPerusteella(*d, pi, ParsePaiva(t.vanhin), ParsePaiva(t.nuorin),
                                                                    syote(u"r"_s, {{}, {}, u"15"_s}), t.vainUusille);
            QString saivat;
            db::Statement st(*d, u"SELECT ptjrID, ptValCurrency FROM pt WHERE ptID <> ? ORDER BY ptID"_s, {vanha});
            while (st.next()) {
                saivat += nimi.value(st.value(0).toLongLong());
                QCOMPARE(st.value(1).toLongLong(), 150000);
            }
            QCOMPARE(saivat, t.saajat);
            QCOMPARE(tulos.lisatty, t.saajat.size());
        }
    }

    void poisto()
    {
        const qint64 a = uusiJasen(*d, u"A"_s), b = uusiJasen(*d, u"B"_s),
                     c = uusiJasen(*d, u"C"_s);
        const qint64 ehto = uusiPiirre(*d, u"Eronnut"_s), pois = uusiPiirre(*d, u"Hallitus"_s);
        liitos(*d, a, ehto);
        liitos(*d, a, ehto); // held twice: counted twice
        liitos(*d, a, pois);
        liitos(*d, b, ehto);  // holds nothing to remove: still counted
        liitos(*d, c, pois);  // not a holder of the condition: keeps it
        liitos(*d, 9999, ehto); // a deleted member's row is no holder
        QCOMPARE(PoistaOminaisuus(*d, pois, ehto), 3);
        QCOMPARE(maara(*d, u"pt WHERE ptpiID = ?"_s, {pois}), 1);
        QCOMPARE(maara(*d, u"pt WHERE ptpiID = ? AND ptjrID = ?"_s, {pois, c}), 1);
        QCOMPARE(maara(*d, u"pt WHERE ptpiID = ?"_s, {ehto}), 4);

        // The same attribute in both removes it from every holder.
        QCOMPARE(PoistaOminaisuus(*d, ehto, ehto), 3);
        QCOMPARE(maara(*d, u"pt WHERE ptpiID = ?"_s, {ehto}), 1); // the deleted member's row stays
        QCOMPARE(maara(*d, u"pi"_s), 2);
    }

};

QTEST_GUILESS_MAIN(tst_piirre)
#include "tst_piirre.moc"
