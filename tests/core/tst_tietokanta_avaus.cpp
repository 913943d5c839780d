#include "platform/kello.h"
#include "core/MainModule.h"
#include "core/Malli.h"
#include "core/Tietokantanimet.h"
#include "core/Avaus.h"
#include "core/Varmuusrivit.h"
#include "core/UpdateDatabase.h"
#include "kerhokanta.h"
#include "platform/files.h"
#include "testipohja.h"

#include <QDir>
#include <QtTest>

using namespace MainModule;

namespace {

const QString kEiLoydy = QStringLiteral("Tietokantaa ei löydy, korjaa asetuksista tietokannan nimi\nNykyinen nimi: ");
const QString kOletus = QStringLiteral("Yritetäänkö avata oletustietokanta?");
const QString kSuojattu = QStringLiteral("Tietokanta on kirjoitussuojatussa tilassa.\n"
                                         "Ennen avaamista Vonarissa sen tulee olla kirjoitettavassa tilassa.");
const QString kMuutetaanko = QStringLiteral("Haluatko, että Vonari muuttaa tietokannan kirjoitettavaan tilaan?");

QString kaytossa(const QString &polku)
{
    return QStringLiteral("Tietokantatiedosto: ") + polku + QStringLiteral(
               " on jo käytössä,\ntai\nTietokantahakemistoon tai tietokantatiedostoon ei ole kirjoitusoikeuksia.\n\n"
               "Jos käytät Vonaria tässä tietokoneessa ensimmäistä kertaa, kyse on todennäköisesti kirjoitusoikeuksien "
               "puuttumisesta. Näytä tämä ilmoitus tietokoneen pääkäyttäjälle.\n"
               "Lisätietoja Vonarin vaatimista käyttöoikeuksista saat Norvikista.\n\n"
               "Jos Vonari on toiminut tietokoneessa aiemmin, käynnistä tietokone uudestaan.\n"
               "Uudelleenkäynnistys saattaa korjata ongelman.");
}

void poistaKirjoitusoikeus(const QString &polku)
{
    QVERIFY(QFile::setPermissions(polku, QFileDevice::ReadOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther));
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

private slots:
    void init()
    {
        Testipohja::init();
        QDir(env->root()).mkpath(QStringLiteral("seura"));
        kanta = env->path(QStringLiteral("seura/kerho.mdb"));
        kerho::luo(kanta, 50);
        DatabasePath = kanta;
    }

    void eiLoydy_data()
    {
        QTest::addColumn<QString>("polku");
        QTest::newRow("tiedosto puuttuu") << "seura/muu.mdb";
        QTest::newRow("kansio puuttuu") << "ei/ole/kerho.mdb";
        QTest::newRow("kansio tiedoston paikalla") << "seura";
        QTest::newRow("tyhjä polku") << "";
    }
    void eiLoydy()
    {
        QFETCH(QString, polku);
        DatabasePath = polku.isEmpty() ? QString() : env->path(polku);
        dlg->no();
        QVERIFY(!avaa());
        QCOMPARE(dlg->allTexts(), (QStringList{kEiLoydy + DatabasePath, kOletus}));
        QVERIFY(!OletusKantaOtettu);
    }

    void oletustietokantaOtetaan()
    {
        const QString demo = env->programFolder() + QStringLiteral("/demo1.mdb");
        QDir().mkpath(env->programFolder());
        kerho::luo(demo, 5);
        DatabasePath = env->path(QStringLiteral("seura/poistettu.mdb"));
        dlg->yes();
        auto d = avaa();
        QVERIFY(d);
        QCOMPARE(d->path(), demo);
        QVERIFY(OletusKantaOtettu);
        QCOMPARE(IniAsetukset().readString(QStringLiteral("Database")), demo);
        QCOMPARE(RegName, QStringLiteral("Testiseura ry")); // the settings were read
    }

    // An upgrade can always be undone: the club's file as it was is copied beside it first.
    void paivitystaEdeltavaKopio()
    {
        QFile::remove(kanta);
        LuoMalliTietokanta(kanta);
        {
            auto d = db::Database::open(kanta);
            d->execute(QStringLiteral("INSERT INTO jr (jrSukunimi) VALUES ('Virtanen'), ('Mäkinen')"));
        }
        const QString kopio = PaivitystaEdeltavaKopio(kanta, kello::tanaan());
        auto d = avaa();
        QVERIFY(d);
        QVERIFY(TietokantaOnAjantasalla(*d));
        QCOMPARE(dlg->messages(), QStringList{QStringLiteral("Tietokanta päivitetään Vonarin uuteen versioon. Tietokanta "
                                                             "sellaisena kuin se oli ennen päivitystä on tallessa nimellä:\n") + kopio});
        auto vanha = db::Database::open(kopio, db::OpenMode::ReadOnly);
        QVERIFY(!TietokantaOnAjantasalla(*vanha));
        QCOMPARE(vanha->scalar(QStringLiteral("SELECT count(*) FROM jr")).toInt(), 2);
        d.reset();
        dlg->shown.clear();
        QVERIFY(avaa()); // current now: nothing more to copy
        QVERIFY(dlg->shown.isEmpty());
    }

    // A club from before the numbers were kept unique opens with every member, and the user hears
    // once which numbers are doubled; a number doubled since is told again.
    void kaksoisnumerotKerrotaanKerran()
    {
        {
            auto d = db::Database::open(kanta);
            d->executeScript(QStringLiteral("DROP INDEX jr_jrJasennumeroidx; CREATE INDEX jr_jrJasennumeroidx ON jr (jrJasennumero);"
                                            "UPDATE jr SET jrJasennumero = '7' WHERE jrID IN (8, 9);"
                                            "UPDATE jr SET jrJasennumero = '12' WHERE jrID = 40;"));
        }
        auto d = avaa();
        QVERIFY(d);
        QCOMPARE(d->scalar(QStringLiteral("SELECT count(*) FROM jr")).toInt(), 50);
        QCOMPARE(dlg->messages().size(), 1);
        QVERIFY2(dlg->messages().first().contains(QStringLiteral("Numerot:\n7, 12\n")), qPrintable(dlg->messages().first()));
        d.reset();

        dlg->shown.clear();
        QVERIFY(avaa());
        QVERIFY(dlg->shown.isEmpty());

        db::Database::open(kanta)->execute(QStringLiteral("UPDATE jr SET jrJasennumero = '20' WHERE jrID = 21"));
        QVERIFY(avaa());
        QCOMPARE(dlg->messages().size(), 1);
        QVERIFY(dlg->messages().first().contains(QStringLiteral("Numerot:\n7, 12, 20\n")));

        // Put right by the user: the next start makes the numbers unique for good.
        db::Database::open(kanta)->execute(QStringLiteral("UPDATE jr SET jrJasennumero = jrID"));
        dlg->shown.clear();
        d = avaa();
        QCOMPARE(dlg->messages().size(), 1); // the copy taken before the upgrade
        QVERIFY_THROWS_EXCEPTION(db::DbError, d->execute(QStringLiteral("UPDATE jr SET jrJasennumero = '7' WHERE jrID = 8")));
    }

    void kopioEiOnnistu_data()
    {
        QTest::addColumn<bool>("jatketaan");
        QTest::newRow("päivitetään silti") << true;
        QTest::newRow("lopetetaan") << false;
    }
    void kopioEiOnnistu()
    {
        QFETCH(bool, jatketaan);
        QFile::remove(kanta);
        LuoMalliTietokanta(kanta);
        {
            auto d = db::Database::open(kanta);
            d->execute(QStringLiteral("INSERT INTO jr (jrSukunimi) VALUES ('Virtanen')"));
        }
        // A folder stands where the copy would go.
        QDir().mkpath(PaivitystaEdeltavaKopio(kanta, kello::tanaan()));
        dlg->answer(jatketaan ? dlg::Answer::Yes : dlg::Answer::No);
        auto d = avaa(!jatketaan);
        QCOMPARE(bool(d), jatketaan);
        const QString kysymys = dlg->shown.first().text;
        QVERIFY2(kysymys.startsWith(QStringLiteral("Tietokannasta ei voitu ottaa varmuuskopiota ennen sen päivittämistä "
                                                   "Vonarin uuteen versioon.\n(58 / ")),
                 qPrintable(kysymys));
        QVERIFY(kysymys.endsWith(QStringLiteral("\nJatketaanko päivitystä ilman varmuuskopiota?")));
        if (!jatketaan)
            QCOMPARE(dlg->shown.last().text, QStringLiteral("Vonari suljetaan."));
        d.reset();
        QCOMPARE(TietokantaOnAjantasalla(*db::Database::open(kanta, db::OpenMode::ReadOnly)), jatketaan);
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
        const bool demo = tapaus == QLatin1String("demo");
        const bool muutetaan = tapaus == QLatin1String("muutetaan");
        if (demo) {
            kanta = env->path(QStringLiteral("seura/demo1.mdb"));
            kerho::luo(kanta, 5);
            DatabasePath = kanta;
        }
        if (tapaus != QLatin1String("lukittu")) {
            poistaKirjoitusoikeus(kanta);
            dlg->answer(muutetaan ? dlg::Answer::Yes : dlg::Answer::No);
        } else {
            toinen = db::Database::open(kanta);
            toinen->execute(QStringLiteral("PRAGMA locking_mode=EXCLUSIVE"));
            toinen->execute(QStringLiteral("BEGIN EXCLUSIVE"));
            toinen->execute(QStringLiteral("COMMIT"));
        }
        QCOMPARE(bool(avaa(!demo && !muutetaan)), muutetaan);
        QCOMPARE(files::isReadOnly(kanta), !muutetaan && !toinen);
        if (demo || muutetaan) {
            QCOMPARE(dlg->allTexts(), kysymykset);
            return;
        }
        QCOMPARE(dlg->allTexts(), kysymykset + QStringList({kaytossa(kanta), QStringLiteral("Vonari suljetaan.")}));
        QCOMPARE(dlg->shown.at(kysymykset.size()).icon, dlg::Icon::Stop);
    }

    void muuTiedostoJaaKoskematta_data() { kerho::vieraatTiedostot(); }
    void muuTiedostoJaaKoskematta()
    {
        QFETCH(QByteArray, tavut);
        QFETCH(QString, kerrotaan);
        QFile::remove(kanta);
        kerho::kirjoita(kanta, tavut);
        dlg->no();
        QVERIFY(!avaa());
        QCOMPARE(dlg->shown.size(), 2);
        QCOMPARE(dlg->shown.first().icon, dlg::Icon::Stop);
        QVERIFY2(dlg->shown.first().text.contains(kerrotaan), qPrintable(dlg->shown.first().text));
        QCOMPARE(dlg->shown.last().text, kOletus);
        QCOMPARE(kerho::sisalto(kanta), tavut);
        QCOMPARE(QDir(env->path(QStringLiteral("seura"))).entryList(QDir::Files), QStringList{QStringLiteral("kerho.mdb")});
    }

    // Damage found at the open, by a failed open or by the quick check, goes to the repair.
    void vioittunutKorjataan_data()
    {
        QTest::addColumn<bool>("katkaistu");
        QTest::newRow("avaus epäonnistuu") << true;
        QTest::newRow("pikatarkistus löytää") << false;
    }
    void vioittunutKorjataan()
    {
        QFETCH(bool, katkaistu);
        QFile::remove(kanta);
        kerho::luo(kanta, 2000);
        const qint64 koko = QFileInfo(kanta).size();
        if (katkaistu) {
            QVERIFY(QFile::resize(kanta, koko / 2));
        } else {
            qint64 sivu = 0;
            {
                auto d = db::Database::open(kanta, db::OpenMode::ReadOnly);
                sivu = d->scalar(QStringLiteral("SELECT pageno FROM dbstat WHERE name = 'jr_jrJasennumeroidx' AND pagetype = 'leaf'")).toLongLong();
            }
            kerho::turmele(kanta, (sivu - 1) * 4096, 4096);
        }
        QVERIFY(!avaa());
        const QStringList viestit = dlg->messages();
        QCOMPARE(viestit.size(), 3);
        QVERIFY2(viestit.at(0).startsWith(QStringLiteral("3343;")), qPrintable(viestit.at(0)));
        QVERIFY(kerho::ehja(kanta));
        QVERIFY(QFile::exists(KorjauksenJaannos(kanta)));
    }

    void keskeytyneenVarmuuskopionMerkinnatPoistetaan()
    {
        LisaaVarmuusrivit();
        QVERIFY(kerho::merkittyja(kanta) > 0);
        QVERIFY(avaa());
        QCOMPARE(kerho::merkittyja(kanta), qint64(0));
    }
};

QTEST_GUILESS_MAIN(TestAvaus)
#include "tst_tietokanta_avaus.moc"
