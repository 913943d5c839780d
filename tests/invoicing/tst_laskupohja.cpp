// Invoice templates without windows: what a template keeps and when, browsing, its rows, and
// what applying it puts into the fields of the three invoice windows. Checked in the database.
#include "core/MainModule.h"
#include "invoicing/Laskupohja.h"
#include "invoicing/LaskupohjaKaytto.h"
#include "invoicing/LaskupohjaSyote.h"
#include "malliseura.h"
#include "platform/arvot.h"
#include "platform/kello.h"
#include "testiapu.h"
#include "testipohja.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

class tst_laskupohja : public Testipohja {
    Q_OBJECT
    std::unique_ptr<db::Database> d;
    QString polku;

    // A template saved through the class, as the window makes one.
    qint64 pohja(const QString &nimi, int tyyppi = laskupohja::Perus)
    {
        cLaskupohja p;
        p.setTietokanta(polku);
        p.setNimi(nimi);
        p.setLaskutyyppi(tyyppi);
        p.Save();
        return p.ID();
    }
    QString sarake(const QString &sarake, qint64 id)
    {
        return testi::rivi(*d, u"SELECT "_s + sarake + u" FROM Laskupohjat WHERE Laskupohja_ID = ?"_s, {id});
    }
    int rivit(const QString &ehto = u"1 = 1"_s, const db::Params &p = {})
    {
        return testi::maara(*d, u"Laskupohjarivit WHERE "_s + ehto, p);
    }

private slots:
    void init()
    {
        Testipohja::init();
        polku = env->path(u"kerho.mdb"_s);
        d = malliseura::kopio(polku);
    }
    void cleanup()
    {
        d.reset();
        Testipohja::cleanup();
    }

    // Too long texts are cut to their limits without a word; what fits is stored as typed. A new
    // template leaves the due date alone and the invoice date empty.
    void tekstitRajataan_data()
    {
        QTest::addColumn<QString>("sarake");
        QTest::addColumn<QString>("annettu");
        QTest::addColumn<QString>("tallennettu");
        const QString a51 = QString(51, u'a');
        QTest::newRow("name 51") << u"Laskupohja_Nimi"_s << a51 << a51.left(50);
        QTest::newRow("51st emoji cut whole") << u"Laskupohja_Nimi"_s << u"🎉"_s.repeated(51) << u"🎉"_s.repeated(50);
        QTest::newRow("empty name is one blank") << u"Laskupohja_Nimi"_s << QString() << u" "_s;
        QTest::newRow("quotes") << u"Laskupohja_Nimi"_s << u"O'Brien \"ja\"; --"_s << u"O'Brien \"ja\"; --"_s;
        QTest::newRow("memo unlimited") << u"Lisatietoja"_s << QString(5000, u'm') << QString(5000, u'm');
    }
    void tekstitRajataan()
    {
        QFETCH(QString, sarake);
        QFETCH(QString, annettu);
        QFETCH(QString, tallennettu);
        qint64 id = 0;
        {
            cLaskupohja p;
            p.setTietokanta(polku);
            if (sarake == u"Laskupohja_Nimi")
                p.setNimi(annettu);
            else
                p.setLisatietoja(annettu);
            QVERIFY(p.Tyhja());
            p.Save(true); // an unchanged new template is written only when forced
            QVERIFY(!p.Tyhja());
            id = p.ID();
        }
        QCOMPARE(d->scalar(u"SELECT "_s + sarake + u" FROM Laskupohjat WHERE Laskupohja_ID = ?"_s, {id}).toString(), tallennettu);
        QCOMPARE(this->sarake(u"LaskunPaivamaara, LaskunErapaiva"_s, id), u"-1|-1"_s);
        QCOMPARE(dlg->messages(), QStringList());
    }

    // Only cancel drops changes: a template that goes away with changes, of its own or of a row,
    // keeps them.
    void vapautusTallentaa_data()
    {
        QTest::addColumn<bool>("uusi");
        QTest::addColumn<bool>("otsake"); // besides a row
        QTest::addColumn<bool>("peru");
        QTest::newRow("heading and row") << false << true << false;
        QTest::newRow("new template, row only") << true << false << false;
        QTest::newRow("cancelled") << false << true << true;
        QTest::newRow("new template cancelled") << true << true << true;
    }
    void vapautusTallentaa()
    {
        QFETCH(bool, uusi);
        QFETCH(bool, otsake);
        QFETCH(bool, peru);
        const qint64 vanha = uusi ? 0 : pohja(u"Kevät"_s);
        {
            cLaskupohja p;
            p.setTietokanta(polku);
            if (!uusi)
                QVERIFY(p.ReadById(vanha));
            if (otsake)
                p.setLaskunOtsake(u"Jäsenmaksu"_s);
            p.PerusLaskupohjarivi(2).setHinta(Currency::fromRaw(125000));
            p.PerusLaskupohjarivi(2).setAiheteksti(u"Kausimaksu"_s);
            QVERIFY(p.Muuttunut() || p.RivejaMuuttunut());
            if (peru) {
                p.Cancel();
                QVERIFY(!p.RivejaMuuttunut());
                QCOMPARE(p.LaskunOtsake(), QString());
                QCOMPARE(p.PerusLaskupohjarivi(2).Aiheteksti(), QString());
            }
        }
        QCOMPARE(dlg->messages(), QStringList());
        const int pohjia = testi::maara(*d, u"Laskupohjat"_s);
        QCOMPARE(pohjia, uusi && peru ? 0 : 1);
        if (pohjia == 0) {
            QCOMPARE(rivit(), 0);
            return;
        }
        const qint64 id = d->scalar(u"SELECT Laskupohja_ID FROM Laskupohjat"_s).toLongLong();
        QCOMPARE(sarake(u"LaskunOtsake"_s, id), otsake && !peru ? u"Jäsenmaksu"_s : u"N"_s);
        const QString riviNyt =
            testi::rivi(*d, u"SELECT Hinta, Aiheteksti FROM Laskupohjarivit WHERE Laskupohja_ID = ? AND Laskutyyppi = 0 AND Jarjestys = 2"_s, {id});
        QCOMPARE(riviNyt, peru ? u"0|N"_s : u"125000|Kausimaksu"_s);
        // No row is ever left without its template.
        QCOMPARE(rivit(u"Laskupohja_ID = 0"_s), 0);
    }

    // A save that fails when the template goes away is shown, and nothing is thrown.
    void vapautuksenVirheNaytetaan()
    {
        {
            cLaskupohja p;
            p.setTietokanta(env->path(u"ei/ole.mdb"_s));
            p.setNimi(u"Kadonnut"_s);
        }
        QCOMPARE(dlg->messages().size(), 1);
        QVERIFY(dlg->messages().first().startsWith(u"Laskupohjan muutoksia ei voitu tallentaa:\n"_s));
    }

    // A save that fails halfway (the header written, a row refused) leaves the template and its
    // rows as they were, changes and all, and the next save writes everything.
    void epaonnistunutTallennusSailyttaa()
    {
        cLaskupohja p; // a new one: it must not keep an ID the database never gave it
        p.setTietokanta(polku);
        p.setLaskunOtsake(u"Otsake"_s);
        p.PerusLaskupohjarivi(0).setAiheteksti(u"Eka"_s);
        p.PerusLaskupohjarivi(1).setAiheteksti(u"Rivi"_s);
        // The first row goes through, the second is refused.
        for (const char *tapahtuma : {"INSERT", "UPDATE"})
            d->execute(u"CREATE TRIGGER esto_%1 BEFORE %1 ON Laskupohjarivit WHEN NEW.Jarjestys = 1 "
                       "BEGIN SELECT RAISE(ABORT, 'estetty'); END"_s.arg(QLatin1String(tapahtuma)));
        const qint64 id = p.ID();
        QVERIFY_THROWS_EXCEPTION(db::DbError, p.Save());
        QCOMPARE(p.ID(), id);
        QVERIFY(p.Muuttunut() && p.PerusLaskupohjarivi(0).Muuttunut() && p.PerusLaskupohjarivi(1).Muuttunut());
        QCOMPARE(testi::maara(*d, u"Laskupohjat WHERE LaskunOtsake IS NOT NULL"_s), 0);
        d->execute(u"DROP TRIGGER esto_INSERT"_s);
        d->execute(u"DROP TRIGGER esto_UPDATE"_s);
        p.Save();
        QCOMPARE(testi::rivi(*d, u"SELECT LaskunOtsake, group_concat(Aiheteksti) FROM Laskupohjat JOIN Laskupohjarivit "
                                 "USING (Laskupohja_ID) WHERE Jarjestys < 2 ORDER BY Jarjestys"_s),
                 u"Otsake|Eka,Rivi"_s);
        QCOMPARE(rivit(u"Laskupohja_ID <> ?"_s, {p.ID()}), 0);
    }

    // Browsing goes by the order of making, the list by name; past the end the object is empty.
    void selausJaLuettelo()
    {
        const qint64 c = pohja(u"Öljy"_s), a = pohja(u"aamu"_s), b = pohja(u"Buu"_s);
        cLaskupohjat kaikki;
        kaikki.Lataa(polku, -1);
        QCOMPARE(kaikki.Item(0).Nimi() + kaikki.Item(1).Nimi() + kaikki.Item(2).Nimi(), u"aamuBuuÖljy"_s);
        cLaskupohja p;
        p.setTietokanta(polku);
        QList<qint64> kaydyt;
        for (bool ok = p.GetFirst(); ok; ok = p.GetNext())
            kaydyt << p.ID();
        QCOMPARE(kaydyt, (QList<qint64>{c, a, b}));
        QVERIFY(p.Tyhja() && p.ID() == 0 && p.Nimi().isEmpty() && p.LaskunErapaiva() == -1);
        QVERIFY(p.GetLast() && p.GetPrevious() && p.ID() == a);
    }

    // A row is made and saved the first time it is asked for, once.
    void rivitTehdaanKysyttaessa()
    {
        const qint64 id = pohja(u"Perhe"_s, laskupohja::Perhe);
        cLaskupohja p;
        p.setTietokanta(polku);
        p.ReadById(id);
        QCOMPARE(p.PerheLaskupohjarivi(10).Jarjestys(), 10);
        QCOMPARE(testi::rivi(*d, u"SELECT Laskupohja_ID, Laskutyyppi, Jarjestys FROM Laskupohjarivit"_s), QString::number(id) + u"|1|10"_s);
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, p.PerheLaskupohjarivi(11));
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, p.PerusLaskupohjarivi(4));
        (void)p.PerheLaskupohjarivi(10);
        QCOMPARE(rivit(), 1);
        QVERIFY(!p.RivejaMuuttunut());
    }

    void paivamaarat_data()
    {
        QTest::addColumn<int>("laji");
        QTest::addColumn<int>("paivia");
        QTest::addColumn<QString>("paivaEnnen");
        QTest::addColumn<QString>("paiva");
        QTest::addColumn<QString>("erapaiva");
        QTest::newRow("empty date, 14 days: both empty") << -1 << 14 << u"1.2.2025"_s << QString() << QString();
        QTest::newRow("today, 14 days") << 0 << 14 << QString() << u"10.3.2026"_s << u"24.3.2026"_s;
        QTest::newRow("today, due left alone") << 0 << -1 << QString() << u"10.3.2026"_s << u"vanha"_s;
        QTest::newRow("other kind keeps the typed date") << 3 << 30 << u"31.1.2026"_s << u"31.1.2026"_s << u"2.3.2026"_s;
        QTest::newRow("other kind, no date to count from") << 3 << 30 << u"huomenna"_s << u"huomenna"_s << QString();
    }
    void paivamaarat()
    {
        QFETCH(int, laji);
        QFETCH(int, paivia);
        QFETCH(QString, paivaEnnen);
        kello::asetaTanaan(QDate(2026, 3, 10));
        cLaskupohja p;
        p.setLaskunPaivamaara(laji);
        p.setLaskunErapaiva(paivia);
        MaksujenLuontiLomake l;
        l.tLaskunPaiva = paivaEnnen;
        l.tLaskunErapaiva = u"vanha"_s;
        p.setTietokanta(polku);
        KaytaLaskupohjaa(p, l);
        QTEST(l.tLaskunPaiva, "paiva");
        QTEST(l.tLaskunErapaiva, "erapaiva");
    }

    // An account that the settings no longer have falls back to the first entry with a word;
    // everything else of the template, the plain rows among it, is applied all the same.
    void tilinumero_data()
    {
        QTest::addColumn<QString>("tili");
        QTest::addColumn<int>("valinta");
        QTest::addColumn<QStringList>("viestit");
        const QStringList tiliEiLoydy{u"Laskupohjaan määriteltyä tilinumeroa ei löydy. Tarkista tilinumero."_s};
        QTest::newRow("second account") << u"FI21 1234 5600 0007 85"_s << 2 << QStringList();
        QTest::newRow("account changed") << u"FI00 0000 0000 0000 00"_s << 0 << tiliEiLoydy;
        QTest::newRow("only the exact text") << u"FI21 1234 5600 0007 8"_s << 0 << tiliEiLoydy;
    }
    void tilinumero()
    {
        QFETCH(QString, tili);
        QFETCH(int, valinta);
        cLaskupohja p;
        p.setTietokanta(polku);
        p.setPankkitili1(tili);
        p.setKaytaPankkitili1(true);
        p.setLaskunOtsake(u"Jäsenmaksu 2026"_s);
        p.setTilisiirronTeksti(u"Vuoden jäsenmaksu"_s);
        p.setLisatietoja(u"Kiitos!"_s);
        p.setJasenmaksu(true);
        p.setIlmanLoppusummaa(true);
        p.PerusLaskupohjarivi(0).setPaalla(true);
        p.PerusLaskupohjarivi(3).setAiheteksti(u"Rivi 3"_s);
        p.PerusLaskupohjarivi(3).setHinta(Currency::fromRaw(35000));
        MaksujenLuontiLomake l;
        l.cmbTilinumerot = QStringList{QString(), u"FI49 5000 9420 0287 30"_s, u"FI21 1234 5600 0007 85"_s};
        l.cmbTilinumerotValinta = 1;
        l.chkEiViitetta = true;
        KaytaLaskupohjaa(p, l);
        QCOMPARE(l.cmbTilinumerotValinta, valinta);
        QTEST(dlg->messages(), "viestit");
        QCOMPARE(QStringList({l.cmbMaksunOtsake, l.tAiheTeksti, l.tLisatietoja}), QStringList({u"Jäsenmaksu 2026"_s, u"Vuoden jäsenmaksu"_s, u"Kiitos!"_s}));
        QVERIFY(l.chkJasenmaksu && !l.chkHenkKohtViite && !l.chkEiViitetta && l.chkEiLoppusummaa && l.chkVainValittuTilinumero);
        QVERIFY(l.rivit[0].chkRivi && !l.rivit[3].chkRivi);
        QCOMPARE(l.rivit[3].tRiviTeksti + u'/' + l.rivit[3].tRiviSumma, u"Rivi 3/3,50"_s);
    }

    // The family row is last in the window, the classes before it, and the two free rows go to
    // the window's own rows.
    void perherivit()
    {
        cLaskupohja p;
        p.setTietokanta(polku);
        p.setLaskutyyppi(laskupohja::Perhe);
        for (int j = 0; j < 11; ++j) {
            cLaskupohjaRivi &r = p.PerheLaskupohjarivi(j);
            r.setPerhePaalla(true);
            r.setPerheAhinta(Currency::fromUnits(j + 1));
            r.setPerheAiheteksti(u"P"_s + QString::number(j));
            r.setPerheNimet(j == 2);
            r.setPerheNollat(j == 0);
        }
        p.Save();
        cLaskupohjat c;
        c.Lataa(polku, laskupohja::Perhe);
        PerheLomake l;
        KaytaLaskupohjaa(c.Item(0), l);
        QCOMPARE(l.luokat[8].tAiheTeksti, u"P0"_s);
        QCOMPARE(l.luokat[8].tSumma, u"1,00"_s);
        QVERIFY(l.luokat[8].chkNollat && l.luokat[8].chkPerheLuokka);
        QCOMPARE(QStringList({l.luokat[0].tAiheTeksti, l.luokat[7].tAiheTeksti, l.luokat[7].tSumma}), QStringList({u"P1"_s, u"P8"_s, u"9,00"_s}));
        QVERIFY(l.luokat[1].chkNimet && !l.luokat[0].chkNimet);
        QCOMPARE(QStringList({l.lisarivit[0].tRiviTeksti, l.lisarivit[1].tRiviTeksti, l.lisarivit[1].tRiviSumma}),
                 QStringList({u"P9"_s, u"P10"_s, u"11,00"_s}));
        QVERIFY(l.lisarivit[0].chkRivi);
    }

    // A row whose attribute is gone shows "---".
    void ominaisuusrivit_data()
    {
        QTest::addColumn<qint64>("piId");
        QTest::addColumn<qint64>("naytetaan");
        QTest::newRow("listed") << qint64(7) << qint64(7);
        QTest::newRow("deleted") << qint64(9) << qint64(0);
    }
    void ominaisuusrivit()
    {
        QFETCH(qint64, piId);
        cLaskupohja p;
        p.setTietokanta(polku);
        p.setLaskutyyppi(laskupohja::Ominaisuus);
        cLaskupohjaRivi &r = p.OminaisuusLaskupohjarivi(3);
        r.setOmPiId(piId);
        r.setOmLkm(true);
        r.setOmHinta(true);
        r.setOmNollat(true);
        r.setOmAhinta(Currency::fromRaw(12345));
        r.setOmLkmMaara(1.5);
        r.setOmMinimi(Currency::fromUnits(5));
        r.setOmAiheteksti(u"Venepaikka"_s);
        p.Save();
        OminaisuusLomake l;
        l.rivit[3].cmbOminaisuus = 99;
        QVERIFY(KaytaValittuaLaskupohjaa(polku, 0, l, {3, 7}));
        const OminaisuusLaskurivi &k = l.rivit[3];
        QTEST(k.cmbOminaisuus, "naytetaan");
        QVERIFY(k.chkLkm && k.chkHinta && k.chkNollat);
        QCOMPARE(QStringList({k.tAHinta, k.tLkm, k.tMinimi, k.tAiheTeksti}), QStringList({u"1,2345"_s, u"1,5"_s, u"5,00"_s, u"Venepaikka"_s}));
        QCOMPARE(l.rivit[0].tAiheTeksti, QString());
    }

    // The menu's index goes by name within the kind; one past the end was deleted meanwhile.
    void valikonIndeksi()
    {
        pohja(u"Syys"_s);
        pohja(u"Kevät"_s);
        pohja(u"Perhe"_s, laskupohja::Perhe);
        MaksujenLuontiLomake l;
        QVERIFY(KaytaValittuaLaskupohjaa(polku, 1, l));
        QVERIFY(!KaytaValittuaLaskupohjaa(polku, 2, l));
        QCOMPARE(dlg->messages(), QStringList{u"Laskupohjaa ei löydy."_s});
        PerheLomake pl;
        QVERIFY(KaytaValittuaLaskupohjaa(polku, 0, pl));
        QVERIFY(!KaytaValittuaLaskupohjaa(polku, 1, pl));
    }

    // A run lends its connection: the rows made while applying are part of its transaction.
    void lainattuYhteys()
    {
        pohja(u"Kevät"_s);
        {
            db::Transaction t(*d);
            cLaskupohjat c;
            c.Lataa(*d, laskupohja::Perus);
            MaksujenLuontiLomake l;
            KaytaLaskupohjaa(c.Item(0), l);
            QCOMPARE(rivit(), 4);
        }
        QCOMPARE(rivit(), 0);
    }

    // The template window's number boxes: a number goes in as it is, anything else as 0 (the
    // due days as -1, which leaves the due date alone).
    void lukusyotteet_data()
    {
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<qint64>("raha");
        QTest::addColumn<double>("luku");
        QTest::addColumn<int>("paivia");
        QTest::newRow("comma") << u"12,5"_s << qint64(125000) << 12.5 << 12;
        QTest::newRow("exponent") << u"1e3"_s << qint64(10000000) << 1000.0 << 1000;
        QTest::newRow("word") << u"viikko"_s << qint64(0) << 0.0 << -1;
        QTest::newRow("beyond the days' range") << u"99999"_s << qint64(999990000) << 99999.0 << -1;
    }
    void lukusyotteet()
    {
        QFETCH(QString, teksti);
        QFETCH(qint64, raha);
        QCOMPARE(RahaSyotteesta(teksti).raw(), raha);
        QTEST(LukuSyotteesta(teksti), "luku");
        QTEST(ErapaivaSyotteesta(teksti), "paivia");
    }
};

QTEST_GUILESS_MAIN(tst_laskupohja)
#include "tst_laskupohja.moc"
