#include "core/MainModule.h"
#include "malliseura.h"
#include "members/Jasen.h"
#include "members/JasenMaksut.h"
#include "members/Nimipuu.h"
#include "members/Perhe.h"
#include "members/PiirreJoukko.h"
#include "members/TyhjatRivit.h"
#include "testiapu.h"
#include "testipohja.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

qint64 lisaa(db::Database &d, const QVariant &suku, const QVariant &etu = {}, const QVariant &numero = {}, int maksu = 1)
{
    d.execute(u"INSERT INTO jr (jrSukunimi, jrEtunimi, jrJasennumero, jrJasenmaksu) VALUES (?, ?, ?, ?)"_s,
              {suku, etu, numero, maksu});
    return d.lastInsertId();
}

qint64 piirre(db::Database &d, const QString &nimi, const QVector<qint64> &haltijat)
{
    d.execute(u"INSERT INTO pi (piNimi) VALUES (?)"_s, {nimi});
    const qint64 id = d.lastInsertId();
    for (qint64 j : haltijat)
        d.execute(u"INSERT INTO pt (ptjrID, ptpiID) VALUES (?, ?)"_s, {j, id});
    return id;
}

QVariant kentta(db::Database &d, qint64 jrId, const QString &nimi)
{
    return d.scalar(u"SELECT "_s + nimi + u" FROM jr WHERE jrID = ?"_s, {jrId});
}

using testi::maara;

QStringList tekstit(const QVector<NimiRivi> &nimet)
{
    QStringList t;
    for (const NimiRivi &r : nimet)
        t << r.teksti();
    return t;
}

} // namespace

class TestJasen : public Testipohja {
    Q_OBJECT
    std::unique_ptr<db::Database> d;

private slots:
    // An empty upgraded club for every case.
    void init()
    {
        Testipohja::init();
        d = malliseura::kopio(env->path(u"seura.mdb"_s));
    }
    void cleanup()
    {
        d.reset();
        Testipohja::cleanup();
    }

    // A taken number refuses the save but loses nothing else; letters compare in any case.
    void jasennumeroOnYksilollinen()
    {
        lisaa(*d, u"Aalto"_s, u"Anna"_s, u"A7"_s);
        const qint64 oma = lisaa(*d, u"Berg"_s, u"Bo"_s, u"8"_s);
        auto rs = db::Recordset::openTable(*d, u"jr"_s);

        rs->addNew();
        JasenLomake l;
        l.tYhteystiedot[iJasennumero] = u"a7"_s;
        l.tYhteystiedot[iSukunimi] = u"O'Connor"_s;
        l.tYhteystiedot[iEtunimi] = u"Pat \"P\"; 100%"_s;
        QCOMPARE(TallennaRivi(*d, *rs, l, JasenLomake()), Tallennus::NumeroVarattu);
        QCOMPARE(rs->editMode(), db::Recordset::EditMode::AddNew);
        QVERIFY(!rs->value(u"jrJasennumero"_s).isValid());
        QCOMPARE(rs->value(u"jrSukunimi"_s).toString(), u"O'Connor"_s);
        QCOMPARE(JasennumeroVarattuViesti(u"a7"_s), u"Jäsennumero #a7 on varattu jo toiselle jäsenelle."_s);

        l.tYhteystiedot[iJasennumero] = u"9"_s;
        QCOMPARE(TallennaRivi(*d, *rs, l, JasenLomake()), Tallennus::Tallennettu);
        const qint64 uusi = rs->lastModified();
        QCOMPARE(testi::rivi(*d, u"SELECT jrSukunimi, jrEtunimi FROM jr WHERE jrID = ?"_s, {uusi}), u"O'Connor|Pat \"P\"; 100%"_s);

        // A member keeps his own number, and members without a number do not clash.
        QVERIFY(!JasennumeroVarattu(*d, u"8"_s, oma));
        QVERIFY(JasennumeroVarattu(*d, u"8"_s, uusi));
        QVERIFY(!JasennumeroVarattu(*d, QString(), oma));
    }

    // The card's texts as stored: letters as a postal code are 0, an untouched code stays as it was,
    // a bad date and an emptied text are Null, SQL in the memo is text.
    void kentatTallentuvatKuinKaavio()
    {
        const qint64 id = lisaa(*d, u"Aalto"_s);
        const struct {
            int indeksi;
            QString teksti, ennen, sarake;
            QVariant odotettu;
        } tapaukset[] = {{iPostinumero, u"ab"_s, {}, u"jrPostinumeroNumero"_s, 0},
                         {iPostinumero, u"00100"_s, u"00100"_s, u"jrPostinumeroNumero"_s, {}},
                         {iLiittyma, u"31.2.2020"_s, {}, u"jrLiittyma"_s, {}},
                         {iOsoite, {}, {}, u"jrOsoite"_s, {}},
                         {-1, u"'; DROP TABLE jr; --"_s, {}, u"jrMuistio"_s, u"'; DROP TABLE jr; --"_s}};
        for (const auto &t : tapaukset) {
            d->execute(u"UPDATE jr SET jrSyntyma = '1980-05-05', jrLiittyma = '2000-01-01', jrOsoite = 'Tie 1', "
                       "jrPostinumero = ?, jrPostinumeroNumero = NULL"_s,
                       {t.ennen.isEmpty() ? QVariant() : QVariant(t.ennen)});
            auto rs = db::Recordset::openTable(*d, u"jr"_s);
            const JasenLomake naytetty = LueLomake(*rs);
            QCOMPARE(naytetty.tYhteystiedot[iSyntyma], u"5.5.1980"_s);
            JasenLomake l = naytetty;
            (t.indeksi < 0 ? l.tMuistio : l.tYhteystiedot[t.indeksi]) = t.teksti;
            rs->edit();
            QCOMPARE(TallennaRivi(*d, *rs, l, naytetty), Tallennus::Tallennettu);
            const QVariant arvo = kentta(*d, id, t.sarake);
            QVERIFY2(arvo.isValid() == t.odotettu.isValid() && arvo.toString() == t.odotettu.toString(),
                     qPrintable(t.sarake + u' ' + t.teksti));
        }
    }

    // A number given is used up at once: cancelling the new row does not give it back.
    void automaattinenNumeroKuluu()
    {
        MainModule::Jasennro = 41;
        auto rs = db::Recordset::openTable(*d, u"jr"_s);
        rs->addNew();
        QCOMPARE(AnnaJasennumero(*d), u"41"_s);
        rs->cancelUpdate();
        QCOMPARE(AnnaJasennumero(*d), u"42"_s);
        QCOMPARE(maara(*d, u"Settings WHERE setKey = 'Jasennro' AND setString = '43'"_s), 1);

        // A counter behind the register's numbers (an import, numbers typed by hand) steps to the
        // first free number above it and moves on past it; "0047" is another number than 47.
        for (const char *n : {"43", "44", "46", "0047"})
            lisaa(*d, u"Aalto"_s, {}, QString::fromLatin1(n));
        QCOMPARE(AnnaJasennumero(*d), u"45"_s);
        QCOMPARE(AnnaJasennumero(*d), u"47"_s);
        QCOMPARE(maara(*d, u"Settings WHERE setKey = 'Jasennro' AND setString = '48'"_s), 1);
    }

    void kopioOttaaVainYhteystiedot()
    {
        const qint64 id = lisaa(*d, u"Aalto"_s, u"Anna"_s, u"5"_s);
        d->execute(u"UPDATE jr SET jrOsoite = 'Tie 1', jrEmail = 'a@b.fi', jrTitteli = 'FT', jrViitenumero = '12344', "
                   "jrPostinumero = '00100', jrPostitoimipaikka = 'Helsinki'"_s);
        const JasenLomake l = KopioitavatTiedot(*d, id);
        QCOMPARE(l.tYhteystiedot[iEmail], u"a@b.fi"_s);
        for (int i : {iJasennumero, iTitteli, iViitenumero})
            QVERIFY(l.tYhteystiedot[i].isEmpty());
        // Names, address and post office, as they go to the clipboard.
        QCOMPARE(YhteystiedotLeikepoydalle(l), u"Anna Aalto\nTie 1\n00100 Helsinki"_s);
    }

    // Deleting one member takes his attributes; invoices and family links stay behind.
    void poistotJattavatMitaKuuluu()
    {
        const qint64 paa = lisaa(*d, u"Aalto"_s);
        const qint64 lapsi = lisaa(*d, u"Aalto"_s, u"Eino"_s, {}, 0);
        const qint64 maksamaton = lisaa(*d, u"Berg"_s, {}, {}, 0);
        const qint64 tuntematon = lisaa(*d, u"Cedar"_s);
        d->execute(u"UPDATE jr SET jrJasenmaksu = NULL WHERE jrID = ?"_s, {tuntematon});
        piirre(*d, u"Kuoro"_s, {paa, lapsi, maksamaton});
        LiitaPaaPerheeseen(*d, paa);
        LisaaPerheeseen(*d, paa, lapsi);
        d->execute(u"INSERT INTO jmhist (jmhjmID, jmhjmjrID) VALUES (1, ?)"_s, {paa});

        PoistaJasen(*d, paa);
        QCOMPARE(maara(*d, u"jr WHERE jrID = ?"_s, {paa}) + maara(*d, u"pt WHERE ptjrID = ?"_s, {paa}), 0);
        QCOMPARE(maara(*d, u"jrPerhe"_s) + maara(*d, u"jmhist"_s), 3);
        // The member left without a head loses his link when he is viewed; the head's own waits.
        QVERIFY(LataaPerhe(*d, lapsi, false).perheenPaa.isEmpty());
        QCOMPARE(maara(*d, u"jrPerhe WHERE jrPSubID = ?"_s, {lapsi}), 0);
        QCOMPARE(maara(*d, u"jrPerhe"_s), 1);

        QCOMPARE(MaksamattomienMaara(*d), 3);
        QCOMPARE(PoistaMaksamattomat(*d), 3); // the member with no mark at all has not paid either
        QCOMPARE(maara(*d, u"jr"_s), 0);
        QCOMPARE(maara(*d, u"pt"_s), 2); // the bulk delete leaves attribute rows
    }

    // Opening a list removes only the rows nobody typed anything into. A member without a
    // surname but with anything else stays, and the name tree lists him under "Muut".
    void tyhjatRivitPoistetaanAvattaessa()
    {
        const QString tiedot[] = {u"jrEtunimi = NULL"_s, u"jrSukunimi = '', jrEtunimi = '', jrMuistio = '', jrJasenmaksu = 0"_s,
                                  u"jrMuistio = 'Soitti'"_s, u"jrJasenmaksu = 1"_s, u"jrEtunimi = NULL"_s};
        QVector<qint64> idt;
        for (const QString &t : tiedot) {
            d->execute(u"INSERT INTO jr (jrSukunimi) VALUES (NULL)"_s);
            idt << d->lastInsertId();
            d->execute(u"UPDATE jr SET "_s + t + u" WHERE jrID = ?"_s, {idt.last()});
        }
        piirre(*d, u"Kuoro"_s, {idt[4]}); // nothing but an attribute
        lisaa(*d, u"Aalto"_s);
        // The member window's opening and the hand-picking list's alike.
        PoistaTyhjatRivit(*d);
        for (int i = 0; i < 5; ++i)
            QVERIFY2(maara(*d, u"jr WHERE jrID = ?"_s, {idt[i]}) == (i >= 2), qPrintable(tiedot[i]));
        QCOMPARE(JasenLista(*d).size(), 4);
        QCOMPARE(RakennaNimipuu(*d).juuret[29].size(), 3);
    }

    // Each name under its first letter, Finnish letters their own; anything else under "Muut".
    void nimipuunJuuret()
    {
        const qint64 ohman = lisaa(*d, u"öhman"_s, u"Olli"_s);
        const qint64 aberg = lisaa(*d, u"Åberg"_s, u"Åke"_s);
        lisaa(*d, u"aalto"_s, u"Anna"_s);
        lisaa(*d, u"1st"_s, u"Yksi"_s);
        QStringList avaimet;
        for (const NimiRivi &r : RakennaNimipuu(*d).nimet)
            avaimet << NimipuunAvain(NimipuunJuuri(r)) + u':' + r.teksti();
        QCOMPARE(avaimet, QStringList({u"Muut:1st Yksi"_s, u"A:aalto Anna"_s, u"Å:Åberg Åke"_s, u"Ö:öhman Olli"_s}));
        // A member holding the attribute twice is listed once.
        const qint64 pi = piirre(*d, u"Kuoro"_s, {ohman, aberg, ohman});
        QCOMPARE(tekstit(NimetJarjestyksessa(*d, pi)), QStringList({u"Åberg Åke"_s, u"öhman Olli"_s}));
        QCOMPARE(JasenMaara(*d, pi), 2);
    }

    // The head joins his family once; the family's address goes to every member; a deleted member
    // drops out of the head's list but keeps his link.
    void perhe()
    {
        const qint64 paa = lisaa(*d, u"Aalto"_s, u"Anna"_s);
        const qint64 lapsi = lisaa(*d, u"Aalto"_s, u"Eino"_s);
        const qint64 yksin = lisaa(*d, u"Berg"_s);
        d->execute(u"UPDATE jr SET jrPostinumeroNumero = 100, jrKotipaikka = 'Espoo'"_s);
        LiitaPaaPerheeseen(*d, paa);
        LiitaPaaPerheeseen(*d, paa);
        QCOMPARE(maara(*d, u"jrPerhe WHERE jrPMID = ? AND jrPSubID = ?"_s, {paa, paa}), 1);

        const qint64 linkki = LisaaPerheeseen(*d, paa, lapsi);
        PerheLuokat luokat{};
        luokat[2] = luokat[3] = true;
        TallennaLuokat(*d, linkki, luokat);
        QCOMPARE(LueLuokat(*d, linkki), luokat);
        QCOMPARE(LueLuokat(*d, linkki + 100), PerheLuokat{});
        QCOMPARE(LataaPerhe(*d, paa, true).jasenet.value(1).teksti, u"Aalto Eino"_s);
        QCOMPARE(LataaPerhe(*d, lapsi, false).perheenPaa, u"Anna Aalto"_s);

        const PerheenOsoite o{u"O'Reillyn tie 5"_s, u"00200"_s, u"Helsinki"_s, QString()};
        QCOMPARE(MuutaPerheenOsoitteet(*d, lapsi, false, o), 2);
        QCOMPARE(testi::rivi(*d, u"SELECT jrOsoite, jrPostitoimipaikka, jrMaa, jrPostinumeroNumero, jrKotipaikka FROM jr "
                                 "WHERE jrID = ?"_s, {paa}),
                 u"O'Reillyn tie 5|Helsinki|N|100|Espoo"_s);
        QCOMPARE(MuutaPerheenOsoitteet(*d, yksin, false, o) + MuutaPerheenOsoitteet(*d, yksin, true, o), 0);
        QVERIFY(!kentta(*d, yksin, u"jrOsoite"_s).isValid());

        d->execute(u"DELETE FROM jr WHERE jrID = ?"_s, {lapsi});
        QCOMPARE(LataaPerhe(*d, paa, true).jasenet.size(), 1);
        QCOMPARE(maara(*d, u"jrPerhe"_s), 2);
        PuraPerhe(*d, paa);
        QCOMPARE(maara(*d, u"jrPerhe"_s), 0);
    }

    // The texts typed or pasted into the card: pasted rows, the reference check digit, the date keys.
    void tekstinMuunnokset()
    {
        const QString taysi = u"1;S;E;O;00100;P;p;m;e;v;t;1.1.1990;2.2.2000;1;1;ylimääräinen"_s;
        const struct {
            QString teksti;
            QStringList osat;
            bool maksu, email;
        } liimat[] = {{u"Virtanen Ville"_s, {}, false, false},
                      {u"1;A\r\n"_s, {u"1"_s, u"A"_s}, false, false},
                      {taysi, taysi.split(u';').mid(0, 13), true, true},
                      {u"1;S;E;O;00100;P;p;m;e;v;t;x;y; 1;true"_s, u"1;S;E;O;00100;P;p;m;e;v;t;x;y"_s.split(u';'), false, false}};
        for (const auto &r : liimat) {
            const Liimaus l = LueLiimaus(r.teksti);
            QVERIFY2(l.osat == r.osat && l.jasenmaksu == r.maksu && l.emailLasku == r.email, qPrintable(r.teksti));
        }

        const struct {
            QString viite, tulos, viesti;
        } viitteet[] = {{{}, {}, u"Viitetarkistetta ei voi lisätä 'tyhjään' - kirjoita ensin numero."_s},
                        {u"12345678901234567890"_s, {}, u"Viitenumero voi olla korkeintaan 20 numeroa pitkä."_s},
                        {u" 1234 "_s, u"12344"_s, {}},
                        {u"1234567890123456789"_s, u"12345678901234567894"_s, {}}};
        for (const auto &r : viitteet) {
            const ViitetarkisteTulos t = LisaaViitetarkiste(r.viite);
            QCOMPARE(t.viite.value_or(QString()), r.tulos);
            QCOMPARE(t.viesti, r.viesti);
        }

        const QDate tanaan(2025, 6, 15);
        QCOMPARE(SiirraPaivaa(u"28.2.2024"_s, 1, tanaan), u"29.2.2024"_s);
        QCOMPARE(SiirraPaivaa(u"1.1.2024"_s, -1, tanaan), u"31.12.2023"_s);
        QCOMPARE(SiirraPaivaa(u"huomenna"_s, -1, tanaan), u"15.6.2025"_s);
        QCOMPARE(MuotoilePaiva(u"01.02.1990"_s).teksti, u"1.2.1990"_s);
        QCOMPARE(MuotoilePaiva(u"1990-02-01"_s).teksti, u"1.2.1990"_s);
        const auto huono = MuotoilePaiva(u"32.1.1990"_s);
        QVERIFY(huono.hylatty && huono.teksti.isEmpty());
        QVERIFY(!MuotoilePaiva(QString()).hylatty);
    }

    // A family invoice pays the whole family; the invoice and its rows are marked paid.
    void maksetuksiMerkitseeLaskunJaPerheen()
    {
        const qint64 paa = lisaa(*d, u"Aalto"_s, {}, {}, 0);
        const qint64 jasen = lisaa(*d, u"Aalto"_s, u"Eino"_s, {}, 0);
        lisaa(*d, u"Berg"_s, {}, {}, 0); // outside the family: stays unpaid
        LiitaPaaPerheeseen(*d, paa);
        LisaaPerheeseen(*d, paa, jasen);
        LisaaPerheeseen(*d, paa, 9999); // a member who is gone
        d->execute(u"INSERT INTO jmhist (jmhjmID, jmhjmjrID, jmhjmHinta, jmhjmTeksti, jmhjmPerhe, jmhjmJasMak, jmhjmMaksettu, "
                   "jmhjmLaskupaiva, jmhjmViitenumero) VALUES (7, ?, 255000, 'Perhemaksu', 1, 1, 0, '2024-03-01', '74')"_s,
                   {paa});
        d->execute(u"INSERT INTO jmhist (jmhjmID, jmhjmjrID, jmhjmHinta, jmhjmTeksti) VALUES (8, ?, 100000, 'Kurssi')"_s, {paa});
        d->execute(u"INSERT INTO jmRivi (jmRjmID, jmRMaksettu) VALUES (7, 0), (7, 0), (8, 0)"_s);

        const auto laskut = JasenenLaskut(*d, paa);
        QCOMPARE(laskut.size(), 2);
        QCOMPARE(laskut[0].teksti, u"10,00 - Kurssi"_s);
        QCOMPARE(LueLasku(*d, laskut[0].jmhID).maksettu, u"Ei"_s);

        const MaksetuksiTulos t = MerkitseLaskuMaksetuksi(*d, 7);
        QVERIFY(t.loytyi && t.jasenmaksu);
        QCOMPARE(testi::rivi(*d, u"SELECT group_concat(jrJasenmaksu, '') FROM (SELECT jrJasenmaksu FROM jr ORDER BY jrID)"_s), u"110"_s);
        QCOMPARE(maara(*d, u"jmRivi WHERE jmRMaksettu = 1"_s), 2);
        const LaskunTiedot perhe = LueLasku(*d, laskut[1].jmhID);
        QCOMPARE(perhe.maksettu + perhe.perhemaksu + perhe.laskupaiva, u"KylläKyllä1.3.2024"_s);

        QVERIFY(!MerkitseLaskuMaksetuksi(*d, 99).loytyi);
        QCOMPARE(LaskuaEiLoydyViesti(u" 74 "_s), u"Laskua viitenumerolla: 74 ei löydy."_s);
    }
};

QTEST_GUILESS_MAIN(TestJasen)
#include "tst_jasen.moc"
