#include "core/MainModule.h"
#include "core/Malli.h"
#include "core/Palautus.h"
#include "core/Perustus.h"
#include "core/Laskuidt.h"
#include "core/UpdateDatabase.h"
#include "kerhokanta.h"
#include "platform/files.h"
#include "testipohja.h"

#include <QDir>
#include <QtTest>

using namespace MainModule;

namespace {

const QString kKayttoon = QStringLiteral("Otetaanko palautettu tietokanta käyttöön?");
const QString kKorvataanko = QStringLiteral("Tiedosto on jo olemassa, korvataanko varmuuskopiolla?");
const QString kPerustus = QStringLiteral("Tämä toiminto luo uuden tietokannan yhdistyksen jäsenrekisterin pohjaksi.");
const QString kNimi = QStringLiteral("Anna uudelle tietokannalle nimi (max. 8 kirjainta).");

QStringList tallessa(const QString &kansio)
{
    return QDir(kansio).entryList({QStringLiteral("*-ennen-palautusta-*")}, QDir::Files);
}

} // namespace

class TestPalautus : public Testipohja {
    Q_OBJECT

    QString kanta, kopio, omat;

private slots:
    void init()
    {
        Testipohja::init();
        omat = files::documentsFolder();
        QDir().mkpath(omat);
        QDir(env->root()).mkpath(QStringLiteral("varmuus"));
        kanta = omat + QStringLiteral("/kerho.mdb");
        kopio = env->path(QStringLiteral("varmuus/kerho.mdb"));
        kerho::luo(kanta, 40);
        kerho::luo(kopio, 25);
        DatabasePath = kanta;
        BackupPath = env->path(QStringLiteral("varmuus/"));
        IniAsetukset().writeString(QStringLiteral("Database"), kanta);
    }

    // The copy lands in the chosen file; the database in use is replaced only on Yes, and what
    // it held is kept beside it; a backup chosen as its own target stays as it is.
    void palautus_data()
    {
        QTest::addColumn<QString>("kohde");
        QTest::addColumn<QList<bool>>("vastaukset");
        QTest::addColumn<bool>("kayttoon");
        QTest::addColumn<bool>("korvattu");
        QTest::newRow("uusi tiedosto, käyttöön") << "uusi" << QList<bool>{true} << true << true;
        QTest::newRow("uusi tiedosto, ei käyttöön") << "uusi" << QList<bool>{false} << false << true;
        QTest::newRow("käytössä olevan päälle") << "kaytossa" << QList<bool>{true, true} << true << true;
        QTest::newRow("ei korvata") << "kaytossa" << QList<bool>{false} << false << false;
        QTest::newRow("sama tiedosto") << "sama" << QList<bool>{true, true} << true << true;
    }
    void palautus()
    {
        QFETCH(QString, kohde);
        QFETCH(QList<bool>, vastaukset);
        QFETCH(bool, kayttoon);
        QFETCH(bool, korvattu);
        const QString polku = kohde == QLatin1String("uusi") ? omat + QStringLiteral("/palautettu.mdb")
                              : kohde == QLatin1String("kaytossa") ? kanta : kopio;
        const kerho::Maarat vanhat = kerho::rivit(kanta);
        const kerho::Maarat varmuus = kerho::rivit(kopio);
        dlg->choosePath(kopio);
        dlg->choosePath(polku);
        for (bool kylla : vastaukset)
            dlg->answer(kylla ? dlg::Answer::Yes : dlg::Answer::No);
        Palautus();
        QCOMPARE(dlg->allTexts().last(), korvattu ? kKayttoon : kKorvataanko);
        QCOMPARE(dlg->allTexts().contains(kKorvataanko), kohde != QLatin1String("uusi"));
        QCOMPARE(kerho::rivit(polku), korvattu ? varmuus : vanhat);
        QCOMPARE(DatabasePath, kayttoon ? polku : kanta);
        QCOMPARE(IniAsetukset().readString(QStringLiteral("Database")), kayttoon ? polku : kanta);
        const QStringList talteen = tallessa(omat);
        QCOMPARE(talteen.size(), kohde == QLatin1String("kaytossa") && korvattu ? 1 : 0);
        if (!talteen.isEmpty()) {
            QCOMPARE(kerho::rivit(omat + QLatin1Char('/') + talteen.first()), vanhat);
            QVERIFY(dlg->messages().contains(QStringLiteral("Korvattu tiedosto on tallessa nimellä:\n") + omat
                                             + QLatin1Char('/') + talteen.first()));
        }
    }

    void peruutus_data()
    {
        QTest::addColumn<int>("vaihe");
        QTest::newRow("avattaessa") << 0;
        QTest::newRow("tallennettaessa") << 1;
    }
    void peruutus()
    {
        QFETCH(int, vaihe);
        dlg->choosePath(vaihe == 0 ? QString() : kopio);
        if (vaihe == 1)
            dlg->choosePath(QString());
        Palautus();
        QCOMPARE(QDir(omat).entryList(QDir::Files), QStringList{QStringLiteral("kerho.mdb")});
        QCOMPARE(DatabasePath, kanta);
    }

    void kelvotonLahdeEiMuutaMitaan_data()
    {
        QTest::addColumn<QString>("vika");
        QTest::addColumn<QString>("kerrotaan");
        QTest::newRow("ei tietokanta") << "teksti" << "ei ole Vonarin tietokanta";
        QTest::newRow("vioittunut varmuuskopio") << "katkaistu" << "Varmuuskopion palautus ei onnistunut\n";
    }
    void kelvotonLahdeEiMuutaMitaan()
    {
        QFETCH(QString, vika);
        QFETCH(QString, kerrotaan);
        if (vika == QLatin1String("teksti"))
            kerho::kirjoita(kopio, "Nimi;Osoite\n");
        else
            QVERIFY(QFile::resize(kopio, QFileInfo(kopio).size() / 2));
        const QByteArray tavut = kerho::sisalto(kanta);
        dlg->choosePath(kopio);
        dlg->choosePath(kanta);
        if (vika != QLatin1String("teksti"))
            dlg->yes();
        Palautus();
        QCOMPARE(dlg->shown.last().icon, dlg::Icon::Stop);
        QVERIFY2(dlg->shown.last().text.contains(kerrotaan), qPrintable(dlg->shown.last().text));
        QCOMPARE(kerho::sisalto(kanta), tavut);
        QVERIFY(tallessa(omat).isEmpty());
        QCOMPARE(DatabasePath, kanta);
    }

    void toisenKaytossaOlevaaEiKorvata()
    {
        auto toinen = db::Database::open(kanta);
        dlg->choosePath(kopio);
        dlg->choosePath(kanta);
        dlg->yes();
        Palautus();
        QVERIFY(dlg->shown.last().text.contains(QStringLiteral("on toisen ohjelman käytössä")));
        toinen.reset();
        QCOMPARE(kerho::rivit(kanta).value(QStringLiteral("jr")), qint64(40));
    }

    void uusiTietokanta_data()
    {
        QTest::addColumn<std::optional<QString>>("vastaus");
        QTest::addColumn<QString>("tiedosto");
        QTest::addColumn<QString>("viesti");
        const QString valmis = QStringLiteral("Tyhjä tietokanta on kopioitu ja se tulee käyttöön, kun Vonari seuraavan "
                                              "kerran käynnistetään.\nVonari suljetaan, koska tietokanta on vaihdettu.");
        QTest::newRow("nimi lyhennetään") << std::optional<QString>(QStringLiteral("yhdistys2007")) << "yhdistys.mdb" << valmis;
        QTest::newRow("ääkköset") << std::optional<QString>(QStringLiteral("Äänekoski")) << "Äänekosk.mdb" << valmis;
        QTest::newRow("tyhjä") << std::optional<QString>(QStringLiteral("  ")) << ""
                               << QStringLiteral("Tietokannan nimi ei voi olla tyhjä. Toiminto keskeytetään.");
        QTest::newRow("peruttu") << std::optional<QString>() << ""
                                 << QStringLiteral("Tietokannan nimi ei voi olla tyhjä. Toiminto keskeytetään.");
        QTest::newRow("jo käytössä") << std::optional<QString>(QStringLiteral("kerho")) << ""
                                     << QStringLiteral("Nimi: kerho on jo käytössä. Toiminto keskeytetään.");
        QTest::newRow("kauttaviiva") << std::optional<QString>(QStringLiteral("../muu")) << ""
                                     << QStringLiteral("Tietokannan nimessä ei voi olla merkkejä \\ / : * ? \" < > |. Toiminto keskeytetään.");
    }
    void uusiTietokanta()
    {
        QFETCH(std::optional<QString>, vastaus);
        QFETCH(QString, tiedosto);
        QFETCH(QString, viesti);
        if (vastaus)
            dlg->type(*vastaus);
        else
            dlg->cancelInput();
        const QStringList ennen = QDir(omat).entryList(QDir::Files);
        QCOMPARE(PerustaTietokanta(kPerustus, QStringLiteral("malli.mdb")), !tiedosto.isEmpty());
        QCOMPARE(dlg->allTexts(), (QStringList{kPerustus, kNimi, viesti}));
        if (tiedosto.isEmpty()) {
            QCOMPARE(QDir(omat).entryList(QDir::Files), ennen);
            QCOMPARE(IniAsetukset().readString(QStringLiteral("Database")), kanta);
            return;
        }
        const QString uusi = omat + QLatin1Char('/') + tiedosto;
        // The template is made on first need; the new club is its copy.
        QCOMPARE(kerho::rivit(uusi), kerho::rivit(MalliPolku()));
        QVERIFY(!TietokantaOnAjantasalla(*db::Database::open(uusi, db::OpenMode::ReadOnly)));
        QCOMPARE(IniAsetukset().readString(QStringLiteral("Database")), uusi);
        QCOMPARE(DatabasePath, kanta); // the change takes effect at the next start
    }

    void uusiTietokantaIlmanPohjaa()
    {
        dlg->type(QStringLiteral("uusi"));
        QVERIFY(!PerustaTietokanta(kPerustus, QStringLiteral("muu.mdb")));
        QVERIFY(dlg->shown.last().text.startsWith(QStringLiteral("Tietokantapohjaa ei voitu kopioida\n")));
        QVERIFY(!QFile::exists(omat + QStringLiteral("/uusi.mdb")));
        QCOMPARE(IniAsetukset().readString(QStringLiteral("Database")), kanta);
    }

    void suurinLaskunumero_data()
    {
        QTest::addColumn<QVariant>("historia");
        QTest::addColumn<QVariant>("avoimet");
        QTest::addColumn<long>("suurin");
        QTest::newRow("molemmat tyhjiä") << QVariant() << QVariant() << 0L;
        QTest::newRow("historiassa suurempi") << QVariant(900) << QVariant(120) << 900L;
        QTest::newRow("avoimissa suurempi") << QVariant(900) << QVariant(901) << 901L;
        QTest::newRow("vain avoimia") << QVariant() << QVariant(7) << 7L;
    }
    void suurinLaskunumero()
    {
        QFETCH(QVariant, historia);
        QFETCH(QVariant, avoimet);
        QFETCH(long, suurin);
        {
            auto d = db::Database::open(kanta);
            d->execute(QStringLiteral("DELETE FROM jm"));
            d->execute(QStringLiteral("DELETE FROM jmhist"));
            if (historia.isValid())
                d->execute(QStringLiteral("INSERT INTO jmhist (jmhjmLaskunumero) VALUES (?), (5)"), {historia});
            if (avoimet.isValid())
                d->execute(QStringLiteral("INSERT INTO jm (jmLaskunumero) VALUES (?), (3)"), {avoimet});
        }
        QCOMPARE(SuurinLaskunumero(), suurin);
    }

    // A new invoice never takes the identity that rows of an old one still carry.
    void laskuidtSuojataan()
    {
        {
            auto d = db::Database::open(kanta);
            d->execute(QStringLiteral("DELETE FROM jm"));
            d->execute(QStringLiteral("DELETE FROM sqlite_sequence WHERE name = 'jm'"));
            d->execute(QStringLiteral("INSERT INTO jmRivi (jmRjmID) VALUES (500)"));
            d->execute(QStringLiteral("INSERT INTO jmhist (jmhjmID) VALUES (700)"));
        }
        VarmistaLaskuIdt();
        auto d = db::Database::open(kanta);
        QVERIFY(d->reserveId(QStringLiteral("jm")) > 700);
        // Inside a run's transaction through the run's own connection.
        d->execute(QStringLiteral("INSERT INTO jmRivi (jmRjmID) VALUES (5000)"));
        db::Transaction ajo(*d);
        VarmistaLaskuIdt(*d);
        d->execute(QStringLiteral("INSERT INTO jm (jmLaskunumero) VALUES (1)"));
        QVERIFY(d->lastInsertId() > 5000);
        ajo.commit();
    }
};

QTEST_GUILESS_MAIN(TestPalautus)
#include "tst_tietokanta_palautus.moc"
