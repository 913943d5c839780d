// Opening the club at the start: a missing file, the copy before an upgrade, doubled member
// numbers, a file that cannot be written, a foreign or damaged file, an interrupted backup.
#include "core/Avaus.h"
#include "core/Varmuusrivit.h"
#include "kerhokanta.h"

using namespace MainModule;

namespace {

const QString kOletus = u"Yritetäänkö avata oletustietokanta?"_s;
const QString kSuojattu = u"Tietokanta on kirjoitussuojatussa tilassa.\n"
                          "Ennen avaamista Vonarissa sen tulee olla kirjoitettavassa tilassa."_s;
const QString kMuutetaanko = u"Haluatko, että Vonari muuttaa tietokannan kirjoitettavaan tilaan?"_s;

QString kaytossa(const QString &polku)
{
    return u"Tietokantatiedosto: "_s + polku
        + u" on jo käytössä,\ntai\nTietokantahakemistoon tai tietokantatiedostoon ei ole kirjoitusoikeuksia.\n\n"
          "Jos käytät Vonaria tässä tietokoneessa ensimmäistä kertaa, kyse on todennäköisesti kirjoitusoikeuksien "
          "puuttumisesta. Näytä tämä ilmoitus tietokoneen pääkäyttäjälle.\n"
          "Lisätietoja Vonarin vaatimista käyttöoikeuksista saat Norvikista.\n\n"
          "Jos Vonari on toiminut tietokoneessa aiemmin, käynnistä tietokone uudestaan.\n"
          "Uudelleenkäynnistys saattaa korjata ongelman."_s;
}

} // namespace

class TestAvaus : public Testipohja {
    Q_OBJECT

    QString kanta;

    std::unique_ptr<db::Database> avaa(bool odotettuLopetus = false)
    {
        bool lopeta = true;
        auto d = AvaaTietokantaKaynnistyksessa(lopeta);
        [&] { QCOMPARE(lopeta, odotettuLopetus); }();
        return d;
    }

    // The club as an older program left it: the template's tables with two members.
    void vanhaKanta()
    {
        QFile::remove(kanta);
        LuoMalliTietokanta(kanta);
        db::Database::open(kanta)->execute(u"INSERT INTO jr (jrSukunimi) VALUES ('Virtanen'), ('Mäkinen')"_s);
    }

private slots:
    void init()
    {
        Testipohja::init();
        QDir(env->root()).mkpath(u"seura"_s);
        kanta = DatabasePath = env->path(u"seura/kerho.mdb"_s);
        kerho::luo(kanta, 50);
    }

    // Not found: told with the name, and the default club offered; on Yes it opens and its
    // settings are read.
    void eiLoydy()
    {
        for (const QString &polku : {u"seura/muu.mdb"_s, u"seura"_s, QString()}) {
            DatabasePath = polku.isEmpty() ? QString() : env->path(polku);
            dlg->shown.clear();
            dlg->no();
            QVERIFY(!avaa());
            QCOMPARE(dlg->allTexts(), (QStringList{u"Tietokantaa ei löydy, korjaa asetuksista tietokannan nimi\nNykyinen nimi: "_s
                                                       + DatabasePath, kOletus}));
            QVERIFY(!OletusKantaOtettu);
        }
        const QString demo = env->programFolder() + u"/demo1.mdb"_s;
        QDir().mkpath(env->programFolder());
        kerho::luo(demo, 5);
        dlg->yes();
        auto d = avaa();
        QVERIFY(d && OletusKantaOtettu);
        QCOMPARE(d->path(), demo);
        QCOMPARE(IniAsetukset().readString(u"Database"_s), demo);
        QCOMPARE(RegName, u"Testiseura ry"_s);
    }

    // An upgrade can always be undone: the club's file as it was is copied beside it first.
    void paivitystaEdeltavaKopio()
    {
        vanhaKanta();
        const QString kopio = PaivitystaEdeltavaKopio(kanta, kello::tanaan());
        auto d = avaa();
        QVERIFY(d && TietokantaOnAjantasalla(*d));
        QCOMPARE(dlg->messages(), QStringList{u"Tietokanta päivitetään Vonarin uuteen versioon. Tietokanta "
                                              "sellaisena kuin se oli ennen päivitystä on tallessa nimellä:\n"_s + kopio});
        auto vanha = db::Database::open(kopio, db::OpenMode::ReadOnly);
        QVERIFY(!TietokantaOnAjantasalla(*vanha));
        QCOMPARE(vanha->scalar(u"SELECT count(*) FROM jr"_s).toInt(), 2);
        d.reset();
        dlg->shown.clear();
        QVERIFY(avaa()); // current now: nothing more to copy
        QVERIFY(dlg->shown.isEmpty());
    }

    // A club from before the numbers were kept unique opens with every member, and the user hears
    // once which numbers are doubled; a number doubled since is told again.
    void kaksoisnumerotKerrotaanKerran()
    {
        db::Database::open(kanta)->executeScript(u"DROP INDEX jr_jrJasennumeroidx; CREATE INDEX jr_jrJasennumeroidx ON jr (jrJasennumero);"
                                                 "UPDATE jr SET jrJasennumero = '7' WHERE jrID IN (8, 9);"
                                                 "UPDATE jr SET jrJasennumero = '12' WHERE jrID = 40;"_s);
        for (const QString &numerot : {u"7, 12"_s, QString(), u"7, 12, 20"_s}) {
            if (numerot.endsWith(u"20"_s))
                db::Database::open(kanta)->execute(u"UPDATE jr SET jrJasennumero = '20' WHERE jrID = 21"_s);
            dlg->shown.clear();
            auto d = avaa();
            QCOMPARE(d->scalar(u"SELECT count(*) FROM jr"_s).toInt(), 50);
            QCOMPARE(dlg->messages().size(), numerot.isEmpty() ? 0 : 1);
            if (!numerot.isEmpty())
                QVERIFY2(dlg->messages().first().contains(u"Numerot:\n"_s + numerot + u'\n'), qPrintable(dlg->messages().first()));
        }
        // Put right by the user: the next start makes the numbers unique for good.
        db::Database::open(kanta)->execute(u"UPDATE jr SET jrJasennumero = jrID"_s);
        dlg->shown.clear();
        auto d = avaa();
        QCOMPARE(dlg->messages().size(), 1); // the copy taken before the upgrade
        QVERIFY_THROWS_EXCEPTION(db::DbError, d->execute(u"UPDATE jr SET jrJasennumero = '7' WHERE jrID = 8"_s));
    }

    // No copy before the upgrade: asked, and the club is upgraded or the program ends untouched.
    void kopioEiOnnistu()
    {
        for (bool jatketaan : {false, true}) {
            vanhaKanta();
            QDir().mkpath(PaivitystaEdeltavaKopio(kanta, kello::tanaan())); // a folder stands where the copy would go
            dlg->shown.clear();
            dlg->answer(jatketaan ? dlg::Answer::Yes : dlg::Answer::No);
            QCOMPARE(bool(avaa(!jatketaan)), jatketaan);
            const QString kysymys = dlg->shown.first().text;
            QVERIFY2(kysymys.startsWith(u"Tietokannasta ei voitu ottaa varmuuskopiota ennen sen päivittämistä "
                                        "Vonarin uuteen versioon.\n(58 / "_s), qPrintable(kysymys));
            QVERIFY(kysymys.endsWith(u"\nJatketaanko päivitystä ilman varmuuskopiota?"_s));
            if (!jatketaan)
                QCOMPARE(dlg->shown.last().text, u"Vonari suljetaan."_s);
            QCOMPARE(TietokantaOnAjantasalla(*db::Database::open(kanta, db::OpenMode::ReadOnly)), jatketaan);
        }
    }

    // A file that cannot be written: made writable on Yes; otherwise the program stops with the
    // reason, except on the demonstration club, which is only left unopened.
    void kirjoitusEiOnnistu_data()
    {
        QTest::addColumn<QString>("tapaus");
        QTest::addColumn<QStringList>("kysymykset");
        QTest::newRow("kirjoitussuojattu, muutetaan") << "muutetaan" << QStringList{kSuojattu, kMuutetaanko};
        QTest::newRow("kirjoitussuojattu, ei muuteta") << "suojattu" << QStringList{kSuojattu, kMuutetaanko};
        QTest::newRow("toisen ohjelman lukitsema") << "lukittu" << QStringList{};
        QTest::newRow("esittelykanta: hiljaa, ei lopeteta") << "demo" << QStringList{kSuojattu, kMuutetaanko};
    }
    void kirjoitusEiOnnistu()
    {
        QFETCH(QString, tapaus);
        QFETCH(QStringList, kysymykset);
        std::unique_ptr<db::Database> toinen;
        const bool demo = tapaus == u"demo"_s, muutetaan = tapaus == u"muutetaan"_s;
        if (demo)
            kerho::luo(kanta = DatabasePath = env->path(u"seura/demo1.mdb"_s), 5);
        if (tapaus != u"lukittu"_s) {
            QVERIFY(QFile::setPermissions(kanta, QFileDevice::ReadOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther));
            dlg->answer(muutetaan ? dlg::Answer::Yes : dlg::Answer::No);
        } else {
            toinen = db::Database::open(kanta);
            toinen->executeScript(u"PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE; COMMIT"_s);
        }
        QCOMPARE(bool(avaa(!demo && !muutetaan)), muutetaan);
        QCOMPARE(files::isReadOnly(kanta), !muutetaan && !toinen);
        if (!demo && !muutetaan) {
            kysymykset << kaytossa(kanta) << u"Vonari suljetaan."_s;
            QCOMPARE(dlg->shown.at(kysymykset.size() - 2).icon, dlg::Icon::Stop);
        }
        QCOMPARE(dlg->allTexts(), kysymykset);
    }

    void muuTiedostoJaaKoskematta_data() { kerho::vieraatTiedostot(); }
    void muuTiedostoJaaKoskematta()
    {
        QFETCH(QByteArray, tavut);
        QFETCH(QString, kerrotaan);
        QFile::remove(kanta);
        testi::tiedosto(kanta, tavut);
        dlg->no();
        QVERIFY(!avaa());
        QCOMPARE(dlg->shown.size(), 2);
        QCOMPARE(dlg->shown.first().icon, dlg::Icon::Stop);
        QVERIFY2(dlg->shown.first().text.contains(kerrotaan), qPrintable(dlg->shown.first().text));
        QCOMPARE(dlg->shown.last().text, kOletus);
        QCOMPARE(kerho::sisalto(kanta), tavut);
        QCOMPARE(QDir(env->path(u"seura"_s)).entryList(QDir::Files), QStringList{u"kerho.mdb"_s});
    }

    // The marks of an interrupted backup are cleared at the open; damage the quick check finds
    // there goes to the repair (a file that cannot be opened at all is taken there by the save, see its tests).
    void merkinnatPoistetaanJaVioittunutKorjataan()
    {
        LisaaVarmuusrivit();
        QVERIFY(kerho::merkittyja(kanta) > 0);
        QVERIFY(avaa());
        QCOMPARE(kerho::merkittyja(kanta), qint64(0));
        QFile::remove(kanta);
        kerho::luo(kanta, 2000);
        const qint64 sivu = db::Database::open(kanta, db::OpenMode::ReadOnly)
            ->scalar(u"SELECT pageno FROM dbstat WHERE name = 'jr_jrJasennumeroidx' AND pagetype = 'leaf'"_s).toLongLong();
        kerho::turmele(kanta, (sivu - 1) * 4096, 4096);
        QVERIFY(!avaa());
        QCOMPARE(dlg->messages().size(), 3);
        QVERIFY2(dlg->messages().at(0).startsWith(u"3343;"_s), qPrintable(dlg->messages().at(0)));
        QVERIFY(kerho::ehja(kanta));
        QVERIFY(QFile::exists(KorjauksenJaannos(kanta)));
    }
};

QTEST_GUILESS_MAIN(TestAvaus)
#include "tst_tietokanta_avaus.moc"
