// Restoring a backup and making a new club: the database in use replaced only on Yes and kept
// beside it, a bad source changing nothing, and the invoice numbers and identities kept.
#include "core/Palautus.h"
#include "core/Perustus.h"
#include "core/Laskuidt.h"
#include "kerhokanta.h"

using namespace MainModule;

namespace {

const QString kKayttoon = u"Otetaanko palautettu tietokanta käyttöön?"_s;
const QString kKorvataanko = u"Tiedosto on jo olemassa, korvataanko varmuuskopiolla?"_s;
const QString kPerustus = u"Tämä toiminto luo uuden tietokannan yhdistyksen jäsenrekisterin pohjaksi."_s;

QStringList tallessa(const QString &kansio) { return QDir(kansio).entryList({u"*-ennen-palautusta-*"_s}, QDir::Files); }

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
        QDir(env->root()).mkpath(u"varmuus"_s);
        kanta = DatabasePath = omat + u"/kerho.mdb"_s;
        kopio = env->path(u"varmuus/kerho.mdb"_s);
        kerho::luo(kanta, 40);
        kerho::luo(kopio, 25);
        BackupPath = env->path(u"varmuus/"_s);
        IniAsetukset().writeString(u"Database"_s, kanta);
    }

    // The copy lands in the chosen file; the database in use is replaced only on Yes, and what
    // it held is kept beside it; a backup chosen as its own target stays as it is. Cancelled at
    // either file, nothing is made.
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
        QTest::newRow("peruttu avattaessa") << "" << QList<bool>{} << false << false;
        QTest::newRow("peruttu tallennettaessa") << "peruttu" << QList<bool>{} << false << false;
    }
    void palautus()
    {
        QFETCH(QString, kohde);
        QFETCH(QList<bool>, vastaukset);
        QFETCH(bool, kayttoon);
        QFETCH(bool, korvattu);
        const QString polku = kohde == u"uusi"_s ? omat + u"/palautettu.mdb"_s : kohde == u"kaytossa"_s ? kanta : kopio;
        const kerho::Maarat vanhat = kerho::rivit(kanta), varmuus = kerho::rivit(kopio);
        dlg->choosePath(kohde.isEmpty() ? QString() : kopio);
        if (!kohde.isEmpty())
            dlg->choosePath(kohde == u"peruttu"_s ? QString() : polku);
        for (bool kylla : vastaukset)
            dlg->answer(kylla ? dlg::Answer::Yes : dlg::Answer::No);
        Palautus();
        QCOMPARE(DatabasePath, kayttoon ? polku : kanta);
        QCOMPARE(IniAsetukset().readString(u"Database"_s), kayttoon ? polku : kanta);
        if (kohde.isEmpty() || kohde == u"peruttu"_s) {
            QCOMPARE(QDir(omat).entryList({u"*.mdb"_s}, QDir::Files), QStringList{u"kerho.mdb"_s});
            return;
        }
        QCOMPARE(dlg->allTexts().last(), korvattu ? kKayttoon : kKorvataanko);
        QCOMPARE(dlg->allTexts().contains(kKorvataanko), kohde != u"uusi"_s);
        QCOMPARE(kerho::rivit(polku), korvattu ? varmuus : vanhat);
        const QStringList talteen = tallessa(omat);
        QCOMPARE(talteen.size(), kohde == u"kaytossa"_s && korvattu ? 1 : 0);
        if (!talteen.isEmpty()) {
            QCOMPARE(kerho::rivit(omat + u'/' + talteen.first()), vanhat);
            QVERIFY(dlg->messages().contains(u"Korvattu tiedosto on tallessa nimellä:\n"_s + omat + u'/' + talteen.first()));
        }
    }

    // A source that is no club, a damaged backup, or a target another program holds: told, and
    // the database in use stays as it was.
    void kelvotonLahdeEiMuutaMitaan_data()
    {
        QTest::addColumn<QString>("vika");
        QTest::addColumn<QString>("kerrotaan");
        QTest::newRow("ei tietokanta") << "teksti" << "ei ole Vonarin tietokanta";
        QTest::newRow("vioittunut varmuuskopio") << "katkaistu" << "Varmuuskopion palautus ei onnistunut\n";
        QTest::newRow("toisen käytössä") << "toinen" << "on toisen ohjelman käytössä";
    }
    void kelvotonLahdeEiMuutaMitaan()
    {
        QFETCH(QString, vika);
        QFETCH(QString, kerrotaan);
        std::unique_ptr<db::Database> toinen;
        if (vika == u"teksti"_s)
            testi::tiedosto(kopio, "Nimi;Osoite\n");
        else if (vika == u"katkaistu"_s)
            QVERIFY(QFile::resize(kopio, QFileInfo(kopio).size() / 2));
        else
            toinen = db::Database::open(kanta);
        const QByteArray tavut = kerho::sisalto(kanta);
        dlg->choosePath(kopio);
        dlg->choosePath(kanta);
        if (vika != u"teksti"_s)
            dlg->yes();
        Palautus();
        toinen.reset();
        QCOMPARE(dlg->shown.last().icon, dlg::Icon::Stop);
        QVERIFY2(dlg->shown.last().text.contains(kerrotaan), qPrintable(dlg->shown.last().text));
        QCOMPARE(kerho::sisalto(kanta), tavut);
        QCOMPARE(kerho::rivit(kanta).value(u"jr"_s), qint64(40));
        QVERIFY(tallessa(omat).isEmpty());
        QCOMPARE(DatabasePath, kanta);
    }

    void uusiTietokanta_data()
    {
        QTest::addColumn<std::optional<QString>>("vastaus");
        QTest::addColumn<QString>("tiedosto");
        QTest::addColumn<QString>("viesti");
        const QString valmis = u"Tyhjä tietokanta on kopioitu ja se tulee käyttöön, kun Vonari seuraavan "
                               "kerran käynnistetään.\nVonari suljetaan, koska tietokanta on vaihdettu."_s;
        const QString tyhja = u"Tietokannan nimi ei voi olla tyhjä. Toiminto keskeytetään."_s;
        QTest::newRow("nimi lyhennetään") << std::optional<QString>(u"yhdistys2007"_s) << "yhdistys.mdb" << valmis;
        QTest::newRow("ääkköset") << std::optional<QString>(u"Äänekoski"_s) << "Äänekosk.mdb" << valmis;
        QTest::newRow("tyhjä") << std::optional<QString>(u"  "_s) << "" << tyhja;
        QTest::newRow("peruttu") << std::optional<QString>() << "" << tyhja;
        QTest::newRow("jo käytössä") << std::optional<QString>(u"kerho"_s) << ""
                                     << "Nimi: kerho on jo käytössä. Toiminto keskeytetään.";
        QTest::newRow("kauttaviiva") << std::optional<QString>(u"../muu"_s) << ""
                                     << "Tietokannan nimessä ei voi olla merkkejä \\ / : * ? \" < > |. Toiminto keskeytetään.";
    }
    void uusiTietokanta()
    {
        QFETCH(std::optional<QString>, vastaus);
        QFETCH(QString, tiedosto);
        QFETCH(QString, viesti);
        vastaus ? dlg->type(*vastaus) : dlg->cancelInput();
        const QStringList ennen = QDir(omat).entryList(QDir::Files);
        QCOMPARE(PerustaTietokanta(kPerustus, u"malli.mdb"_s), !tiedosto.isEmpty());
        QCOMPARE(dlg->allTexts(), (QStringList{kPerustus, u"Anna uudelle tietokannalle nimi (max. 8 kirjainta)."_s, viesti}));
        if (tiedosto.isEmpty()) {
            QCOMPARE(QDir(omat).entryList(QDir::Files), ennen);
            QCOMPARE(IniAsetukset().readString(u"Database"_s), kanta);
            return;
        }
        const QString uusi = omat + u'/' + tiedosto;
        // The template is made on first need; the new club is its copy.
        QCOMPARE(kerho::rivit(uusi), kerho::rivit(MalliPolku()));
        QVERIFY(!TietokantaOnAjantasalla(*db::Database::open(uusi, db::OpenMode::ReadOnly)));
        QCOMPARE(IniAsetukset().readString(u"Database"_s), uusi);
        QCOMPARE(DatabasePath, kanta); // the change takes effect at the next start
    }

    void uusiTietokantaIlmanPohjaa()
    {
        dlg->type(u"uusi"_s);
        QVERIFY(!PerustaTietokanta(kPerustus, u"muu.mdb"_s));
        QVERIFY(dlg->shown.last().text.startsWith(u"Tietokantapohjaa ei voitu kopioida\n"_s));
        QVERIFY(!QFile::exists(omat + u"/uusi.mdb"_s));
        QCOMPARE(IniAsetukset().readString(u"Database"_s), kanta);
    }

    // The largest invoice number of history and open invoices; a new invoice never takes the
    // identity that rows of an old one still carry, also inside a run's transaction.
    void laskunumerotJaIdt()
    {
        const QList<std::tuple<QVariant, QVariant, long>> tapaukset = {
            {QVariant(), QVariant(), 0L}, {900, 120, 900L}, {900, 901, 901L}, {QVariant(), 7, 7L}};
        for (const auto &[historia, avoimet, suurin] : tapaukset) {
            {
                auto d = db::Database::open(kanta);
                d->executeScript(u"DELETE FROM jm; DELETE FROM jmhist"_s);
                if (historia.isValid())
                    d->execute(u"INSERT INTO jmhist (jmhjmLaskunumero) VALUES (?), (5)"_s, {historia});
                if (avoimet.isValid())
                    d->execute(u"INSERT INTO jm (jmLaskunumero) VALUES (?), (3)"_s, {avoimet});
            }
            QCOMPARE(SuurinLaskunumero(), suurin);
        }
        {
            auto d = db::Database::open(kanta);
            d->executeScript(u"DELETE FROM jm; DELETE FROM sqlite_sequence WHERE name = 'jm';"
                             "INSERT INTO jmRivi (jmRjmID) VALUES (500); INSERT INTO jmhist (jmhjmID) VALUES (700)"_s);
        }
        VarmistaLaskuIdt();
        auto d = db::Database::open(kanta);
        QVERIFY(d->reserveId(u"jm"_s) > 700);
        d->execute(u"INSERT INTO jmRivi (jmRjmID) VALUES (5000)"_s);
        db::Transaction ajo(*d);
        VarmistaLaskuIdt(*d);
        d->execute(u"INSERT INTO jm (jmLaskunumero) VALUES (1)"_s);
        QVERIFY(d->lastInsertId() > 5000);
        ajo.commit();
    }
};

QTEST_GUILESS_MAIN(TestPalautus)
#include "tst_tietokanta_palautus.moc"
