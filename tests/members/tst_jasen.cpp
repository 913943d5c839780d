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
        QCOMPARE(maara(*d, u"jr"_s), 2);
        QCOMPARE(JasennumeroVarattuViesti(u"a7"_s), u"Jäsennumero #a7 on varattu jo toiselle jäsenelle."_s);

        l.tYhteystiedot[iJasennumero] = u"9"_s;
        QCOMPARE(TallennaRivi(*d, *rs, l, JasenLomake()), Tallennus::Tallennettu);
        const qint64 uusi = rs->lastModified();
        QCOMPARE(kentta(*d, uusi, u"jrEtunimi"_s).toString(), u"Pat \"P\"; 100%"_s);
        QCOMPARE(kentta(*d, uusi, u"jrSukunimi"_s).toString(), u"O'Connor"_s);

        // A member keeps his own number, and members without a number do not clash.
        QVERIFY(!JasennumeroVarattu(*d, u"8"_s, oma));
        QVERIFY(JasennumeroVarattu(*d, u"8"_s, uusi));
        QVERIFY(!JasennumeroVarattu(*d, QString(), oma));
    }

    void kentatTallentuvatKuinKaavio_data()
    {
        QTest::addColumn<int>("indeksi");
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<QString>("postinumeroEnnen"); // what the row held
        QTest::addColumn<QString>("sarake");
        QTest::addColumn<QVariant>("odotettu");
        QTest::newRow("kirjaimet postinumerona") << int(iPostinumero) << u"ab"_s << QString() << u"jrPostinumeroNumero"_s << QVariant(0);
        QTest::newRow("numeerinen postinumero") << int(iPostinumero) << u"00100"_s << QString() << u"jrPostinumeroNumero"_s << QVariant(100);
        QTest::newRow("koskematon postinumero") << int(iPostinumero) << u"00100"_s << u"00100"_s << u"jrPostinumeroNumero"_s << QVariant();
        QTest::newRow("tyhjennetty päivä") << int(iSyntyma) << QString() << QString() << u"jrSyntyma"_s << QVariant();
        QTest::newRow("kelvoton päivä") << int(iLiittyma) << u"31.2.2020"_s << QString() << u"jrLiittyma"_s << QVariant();
        QTest::newRow("päivä") << int(iSyntyma) << u"1.2.1990"_s << QString() << u"jrSyntyma"_s << QVariant(u"1990-02-01"_s);
        QTest::newRow("tyhjä teksti on Null") << int(iOsoite) << QString() << QString() << u"jrOsoite"_s << QVariant();
        QTest::newRow("SQL muistiossa") << -1 << u"'; DROP TABLE jr; --"_s << QString() << u"jrMuistio"_s
                                        << QVariant(u"'; DROP TABLE jr; --"_s);
    }

    void kentatTallentuvatKuinKaavio()
    {
        QFETCH(int, indeksi);
        QFETCH(QString, teksti);
        QFETCH(QString, postinumeroEnnen);
        QFETCH(QString, sarake);
        QFETCH(QVariant, odotettu);
        const qint64 id = lisaa(*d, u"Aalto"_s);
        d->execute(u"UPDATE jr SET jrSyntyma = '1980-05-05', jrLiittyma = '2000-01-01', jrOsoite = 'Tie 1'"_s);
        auto rs = db::Recordset::openTable(*d, u"jr"_s);
        if (!postinumeroEnnen.isEmpty())
            d->execute(u"UPDATE jr SET jrPostinumero = ?"_s, {postinumeroEnnen});
        const JasenLomake naytetty = LueLomake(*rs);
        JasenLomake l = naytetty;
        QCOMPARE(l.tYhteystiedot[iSyntyma], u"5.5.1980"_s);
        if (indeksi < 0)
            l.tMuistio = teksti;
        else
            l.tYhteystiedot[indeksi] = teksti;
        rs->edit();
        QCOMPARE(TallennaRivi(*d, *rs, l, naytetty), Tallennus::Tallennettu);
        const QVariant arvo = kentta(*d, id, sarake);
        QCOMPARE(arvo.isValid(), odotettu.isValid());
        if (odotettu.isValid())
            QCOMPARE(arvo.toString(), odotettu.toString());
    }

    // A number given is used up at once: cancelling the new row does not give it back.
    void automaattinenNumeroKuluu()
    {
        MainModule::Jasennro = 41;
        auto rs = db::Recordset::openTable(*d, u"jr"_s);
        rs->addNew();
        QCOMPARE(AnnaJasennumero(*d), u"41"_s);
        rs->cancelUpdate();
        QCOMPARE(MainModule::Jasennro, 42L);
        QCOMPARE(d->scalar(u"SELECT setString FROM Settings WHERE setSection = 'VONARI' AND setKey = 'Jasennro'"_s).toString(),
                 u"42"_s);
        QCOMPARE(AnnaJasennumero(*d), u"42"_s);
        QCOMPARE(maara(*d, u"Settings WHERE setKey = 'Jasennro'"_s), 1);
        QCOMPARE(maara(*d, u"jr"_s), 0);
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
        QCOMPARE(maara(*d, u"jr WHERE jrID = ?"_s, {paa}), 0);
        QCOMPARE(maara(*d, u"pt WHERE ptjrID = ?"_s, {paa}), 0);
        QCOMPARE(maara(*d, u"jrPerhe"_s), 2);
        QCOMPARE(maara(*d, u"jmhist"_s), 1);
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
    void tyhjatRivitPoistetaanAvattaessa_data()
    {
        QTest::addColumn<QString>("tiedot"); // what the row holds besides Nulls
        QTest::addColumn<bool>("piirre");    // whether he holds an attribute
        QTest::addColumn<bool>("sailyy");
        QTest::newRow("nothing") << QString() << false << false;
        QTest::newRow("empty texts") << u"jrSukunimi = '', jrEtunimi = '', jrMuistio = '', jrJasenmaksu = 0"_s << false
                                     << false;
        QTest::newRow("member number only") << u"jrJasennumero = '8'"_s << false << true;
        QTest::newRow("memo only") << u"jrMuistio = 'Soitti'"_s << false << true;
        QTest::newRow("birth date only") << u"jrSyntyma = '1980-01-01'"_s << false << true;
        QTest::newRow("company only") << u"jrYritys = 'Oy Ab'"_s << false << true;
        QTest::newRow("fee ticked only") << u"jrJasenmaksu = 1"_s << false << true;
        QTest::newRow("attribute only") << QString() << true << true;
    }
    void tyhjatRivitPoistetaanAvattaessa()
    {
        QFETCH(QString, tiedot);
        QFETCH(bool, piirre);
        QFETCH(bool, sailyy);
        d->execute(u"INSERT INTO jr (jrSukunimi) VALUES (NULL)"_s);
        const qint64 id = d->lastInsertId();
        if (!tiedot.isEmpty())
            d->execute(u"UPDATE jr SET "_s + tiedot + u" WHERE jrID = ?"_s, {id});
        if (piirre)
            ::piirre(*d, u"Kuoro"_s, {id});
        lisaa(*d, u"Aalto"_s);

        // The member window's opening and the hand-picking list's alike.
        PoistaTyhjatRivit(*d);
        const QVector<ListaRivi> lista = JasenLista(*d);
        QCOMPARE(maara(*d, u"jr WHERE jrID = ?"_s, {id}), int(sailyy));
        QCOMPARE(lista.size(), sailyy ? 2 : 1);
        if (sailyy) {
            const Nimipuu puu = RakennaNimipuu(*d);
            QCOMPARE(puu.juuret[29].size(), 1);
            QCOMPARE(puu.nimet[puu.juuret[29][0]].jrId, id);
        }
    }

    void nimipuunJuuri_data()
    {
        QTest::addColumn<QVariant>("sukunimi");
        QTest::addColumn<QString>("avain");
        QTest::newRow("å") << QVariant(u"åberg"_s) << u"Å"_s;
        QTest::newRow("ä") << QVariant(u"Ärölä"_s) << u"Ä"_s;
        QTest::newRow("ö pienellä") << QVariant(u"öhman"_s) << u"Ö"_s;
        QTest::newRow("numero") << QVariant(u"9-Ysi"_s) << u"Muut"_s;
        QTest::newRow("ü") << QVariant(u"Über"_s) << u"Muut"_s;
        QTest::newRow("välilyönti") << QVariant(u" Aalto"_s) << u"Muut"_s;
        QTest::newRow("puuttuva") << QVariant() << u"Muut"_s;
    }

    void nimipuunJuuri()
    {
        QFETCH(QVariant, sukunimi);
        QFETCH(QString, avain);
        NimiRivi r;
        r.onSukunimi = sukunimi.isValid();
        r.sukunimi = sukunimi.toString();
        QCOMPARE(NimipuunAvain(NimipuunJuuri(r)), avain);
    }

    void nimipuuSuomalaisessaJarjestyksessa()
    {
        const qint64 ohman = lisaa(*d, u"öhman"_s, u"Olli"_s);
        const qint64 vaaka = lisaa(*d, u"Vaaka"_s, u"Ville"_s);
        lisaa(*d, u"Aalto"_s, u"Eero"_s);
        lisaa(*d, u"aalto"_s, u"Anna"_s);
        lisaa(*d, u"Zenit"_s, u"Zoe"_s);
        lisaa(*d, u"Åberg"_s, u"Åke"_s);
        lisaa(*d, u"Ärölä"_s, QVariant());
        lisaa(*d, u"1st"_s, u"Yksi"_s);

        const Nimipuu puu = RakennaNimipuu(*d);
        QCOMPARE(tekstit(puu.nimet), QStringList({u"1st Yksi"_s, u"aalto Anna"_s, u"Aalto Eero"_s, u"Vaaka Ville"_s,
                                                  u"Zenit Zoe"_s, u"Åberg Åke"_s, u"Ärölä "_s, u"öhman Olli"_s}));
        QCOMPARE(puu.juuret.size(), NimipuunJuuria);
        QCOMPARE(puu.juuret[0].size(), 2);
        QCOMPARE(NimipuunJuurenTeksti(0, 2), u" A   (2)"_s);
        QCOMPARE(NimipuunJuurenTeksti(28, 1), u" Ö   (1)"_s);
        QCOMPARE(NimipuunJuurenTeksti(29, 1), u"Muut (1)"_s);
        QCOMPARE(puu.juuret[29].size(), 1);

        // A member holding the attribute twice is listed once.
        const qint64 pi = piirre(*d, u"Kuoro"_s, {ohman, vaaka, ohman});
        QCOMPARE(tekstit(NimetJarjestyksessa(*d, pi)), QStringList({u"Vaaka Ville"_s, u"öhman Olli"_s}));
        QCOMPARE(JasenMaara(*d, pi), 2);
        QCOMPARE(JasenMaara(*d, 0), 8);
    }

    void perheenPaaLiittyyKerran()
    {
        const qint64 paa = lisaa(*d, u"Aalto"_s, u"Anna"_s);
        const qint64 lapsi = lisaa(*d, u"Aalto"_s, u"Eino"_s);
        LiitaPaaPerheeseen(*d, paa);
        LiitaPaaPerheeseen(*d, paa);
        QCOMPARE(maara(*d, u"jrPerhe WHERE jrPMID = ? AND jrPSubID = ?"_s, {paa, paa}), 1);

        const qint64 linkki = LisaaPerheeseen(*d, paa, lapsi);
        PerheLuokat luokat{};
        luokat[2] = luokat[3] = true;
        TallennaLuokat(*d, linkki, luokat);
        QCOMPARE(LueLuokat(*d, linkki), luokat);
        QCOMPARE(LueLuokat(*d, linkki + 100), PerheLuokat{});

        PerhePaneeli p = LataaPerhe(*d, paa, true);
        QCOMPARE(p.jasenet.size(), 2);
        QCOMPARE(p.jasenet[1].teksti, u"Aalto Eino"_s);
        QCOMPARE(LataaPerhe(*d, lapsi, false).perheenPaa, u"Anna Aalto"_s);

        // A deleted member drops out of the head's list but keeps his link.
        d->execute(u"DELETE FROM jr WHERE jrID = ?"_s, {lapsi});
        QCOMPARE(LataaPerhe(*d, paa, true).jasenet.size(), 1);
        QCOMPARE(maara(*d, u"jrPerhe"_s), 2);

        PuraPerhe(*d, paa);
        QCOMPARE(maara(*d, u"jrPerhe"_s), 0);
        QVERIFY(LataaPerhe(*d, paa, true).jasenet.isEmpty());
    }

    void perheenOsoiteMuuttuu()
    {
        const qint64 paa = lisaa(*d, u"Aalto"_s);
        const qint64 jasen = lisaa(*d, u"Aalto"_s, u"Eino"_s);
        const qint64 yksin = lisaa(*d, u"Berg"_s);
        d->execute(u"UPDATE jr SET jrPostinumeroNumero = 100, jrKotipaikka = 'Espoo'"_s);
        LiitaPaaPerheeseen(*d, paa);
        LisaaPerheeseen(*d, paa, jasen);

        const PerheenOsoite o{u"O'Reillyn tie 5"_s, u"00200"_s, u"Helsinki"_s, QString()};
        QCOMPARE(MuutaPerheenOsoitteet(*d, jasen, false, o), 2);
        QCOMPARE(testi::rivi(*d, u"SELECT jrOsoite, jrPostitoimipaikka, jrMaa, jrPostinumeroNumero, jrKotipaikka FROM jr "
                                 "WHERE jrID = ?"_s, {paa}),
                 u"O'Reillyn tie 5|Helsinki|N|100|Espoo"_s);

        QCOMPARE(MuutaPerheenOsoitteet(*d, yksin, false, o), 0);
        QCOMPARE(MuutaPerheenOsoitteet(*d, yksin, true, o), 0);
        QVERIFY(!kentta(*d, yksin, u"jrOsoite"_s).isValid());
    }

    void liimaus_data()
    {
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<QStringList>("osat");
        QTest::addColumn<bool>("jasenmaksu");
        QTest::addColumn<bool>("emailLasku");
        QTest::newRow("kaksi osaa") << u"17;Virtanen"_s << QStringList({u"17"_s, u"Virtanen"_s}) << false << false;
        QTest::newRow("ei puolipistettä") << u"Virtanen Ville"_s << QStringList() << false << false;
        QTest::newRow("rivinvaihto lopussa") << u"1;A\r\n"_s << QStringList({u"1"_s, u"A"_s}) << false << false;
        const QString taysi = u"1;S;E;O;00100;P;p;m;e;v;t;1.1.1990;2.2.2000;1;1;ylimääräinen"_s;
        QStringList alku = taysi.split(u';').mid(0, 13);
        QTest::newRow("kaikki osat") << taysi << alku << true << true;
        QTest::newRow("vain tasan 1 rastii") << u"1;S;E;O;00100;P;p;m;e;v;t;x;y; 1;true"_s
                                            << u"1;S;E;O;00100;P;p;m;e;v;t;x;y"_s.split(u';') << false << false;
    }

    void liimaus()
    {
        QFETCH(QString, teksti);
        QFETCH(QStringList, osat);
        QFETCH(bool, jasenmaksu);
        QFETCH(bool, emailLasku);
        const Liimaus l = LueLiimaus(teksti);
        QCOMPARE(l.osat, osat);
        QCOMPARE(l.jasenmaksu, jasenmaksu);
        QCOMPARE(l.emailLasku, emailLasku);
    }

    void postinumeroidenTarkistus()
    {
        const qint64 a = lisaa(*d, u"Aalto"_s, u"Anna"_s, u"3"_s);
        const qint64 b = lisaa(*d, u"Berg"_s, u"Bo"_s, u"4"_s);
        lisaa(*d, u"Cedar"_s);
        d->execute(u"UPDATE jr SET jrPostinumero = '00100' WHERE jrID = ?"_s, {a});
        d->execute(u"UPDATE jr SET jrPostinumero = 'FI-01' WHERE jrID = ?"_s, {b});
        const auto virheet = TarkistaPostinumerot(*d);
        QCOMPARE(virheet.size(), 1);
        QCOMPARE(PostinumerovirheViesti(virheet[0]), u"Tarkista jäsen: 4/Berg Bo"_s);
    }

    void viitetarkiste_data()
    {
        QTest::addColumn<QString>("viite");
        QTest::addColumn<QString>("tulos");
        QTest::addColumn<QString>("viesti");
        QTest::newRow("tyhjä") << QString() << QString()
                               << u"Viitetarkistetta ei voi lisätä 'tyhjään' - kirjoita ensin numero."_s;
        QTest::newRow("liian pitkä") << u"12345678901234567890"_s << QString()
                                     << u"Viitenumero voi olla korkeintaan 20 numeroa pitkä."_s;
        QTest::newRow("välilyönnit") << u" 1234 "_s << u"12344"_s << QString();
        QTest::newRow("toinen painallus") << u"12344"_s << u"123440"_s << QString();
        QTest::newRow("19 merkkiä") << u"1234567890123456789"_s << u"12345678901234567894"_s << QString();
    }

    void viitetarkiste()
    {
        QFETCH(QString, viite);
        QFETCH(QString, tulos);
        QFETCH(QString, viesti);
        const ViitetarkisteTulos t = LisaaViitetarkiste(viite);
        QCOMPARE(t.viite.value_or(QString()), tulos);
        QCOMPARE(t.viesti, viesti);
    }

    void paivat_data()
    {
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<int>("muutos");
        QTest::addColumn<QString>("tulos");
        QTest::newRow("plus karkauspäivään") << u"28.2.2024"_s << 1 << u"29.2.2024"_s;
        QTest::newRow("miinus vuoden yli") << u"1.1.2024"_s << -1 << u"31.12.2023"_s;
        QTest::newRow("tyhjä on tänään") << QString() << 1 << u"15.6.2025"_s;
        QTest::newRow("roska on tänään") << u"huomenna"_s << -1 << u"15.6.2025"_s;
    }

    void paivat()
    {
        QFETCH(QString, teksti);
        QFETCH(int, muutos);
        QFETCH(QString, tulos);
        QCOMPARE(SiirraPaivaa(teksti, muutos, QDate(2025, 6, 15)), tulos);
    }

    void paivanMuotoilu()
    {
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
        const qint64 muu = lisaa(*d, u"Berg"_s, {}, {}, 0);
        LiitaPaaPerheeseen(*d, paa);
        LisaaPerheeseen(*d, paa, jasen);
        LisaaPerheeseen(*d, paa, 9999); // a member who is gone
        d->execute(u"INSERT INTO jmhist (jmhjmID, jmhjmjrID, jmhjmHinta, jmhjmTeksti, jmhjmPerhe, jmhjmJasMak, jmhjmMaksettu, "
                   "jmhjmLaskupaiva, jmhjmViitenumero) VALUES (7, ?, 255000, 'Perhemaksu', 1, 1, 0, '2024-03-01', '74')"_s,
                   {paa});
        d->execute(u"INSERT INTO jmhist (jmhjmID, jmhjmjrID, jmhjmHinta, jmhjmTeksti, jmhjmLaskupaiva) "
                   "VALUES (8, ?, 100000, 'Kurssi', '2024-01-01')"_s,
                   {paa});
        d->execute(u"INSERT INTO jmRivi (jmRjmID, jmRMaksettu) VALUES (7, 0), (7, 0), (8, 0)"_s);

        const auto laskut = JasenenLaskut(*d, paa);
        QCOMPARE(laskut.size(), 2);
        QCOMPARE(laskut[0].teksti, u"10,00 - Kurssi"_s);
        QCOMPARE(laskut[1].teksti, u"25,50 - Perhemaksu"_s);
        QCOMPARE(LueLasku(*d, laskut[0].jmhID).perhemaksu, u"-"_s);
        QCOMPARE(LueLasku(*d, laskut[0].jmhID).maksettu, u"Ei"_s);

        const MaksetuksiTulos t = MerkitseLaskuMaksetuksi(*d, 7);
        QVERIFY(t.loytyi && t.jasenmaksu);
        QCOMPARE(maara(*d, u"jr WHERE jrJasenmaksu = 1"_s), 2);
        QCOMPARE(kentta(*d, muu, u"jrJasenmaksu"_s).toInt(), 0);
        QCOMPARE(maara(*d, u"jmRivi WHERE jmRMaksettu = 1"_s), 2);
        const LaskunTiedot perhe = LueLasku(*d, laskut[1].jmhID);
        QCOMPARE(perhe.maksettu, u"Kyllä"_s);
        QCOMPARE(perhe.perhemaksu, u"Kyllä"_s);
        QCOMPARE(perhe.laskupaiva, u"1.3.2024"_s);

        QVERIFY(!MerkitseLaskuMaksetuksi(*d, 99).loytyi);
        QCOMPARE(LaskuaEiLoydyViesti(u" 74 "_s), u"Laskua viitenumerolla: 74 ei löydy."_s);
    }
};

QTEST_GUILESS_MAIN(TestJasen)
#include "tst_jasen.moc"
