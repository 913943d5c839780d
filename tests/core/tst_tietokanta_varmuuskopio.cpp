#include "platform/kello.h"
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "platform/arvot.h"
#include "core/Tietokantanimet.h"
#include "core/Varmuuskopio.h"
#include "kerhokanta.h"
#include "testipohja.h"

#include <QDir>
#include <QtTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace MainModule;

namespace {

const QString kAloitus = QStringLiteral("Aloitetaan tietokannan varmuuskopiointi ja uudelleenjärjestely.\n"
                                        "Varmista että kohde %1 on valmiina.\nKopiointi kestää hetken...");
const QString kValmis = QStringLiteral("Tietokannan varmuuskopiointi ja uudelleenjärjestely valmis.");

QString varmuuskopionPaiva(const QString &kanta)
{
    auto d = db::Database::open(kanta, db::OpenMode::ReadOnly);
    return KantaStore(*d).readString(QStringLiteral("BackupDate"));
}

QStringList keskeneraiset(const QString &kansio)
{
    return QDir(kansio).entryList({QStringLiteral("*.kesken*")}, QDir::Files);
}

// The file-size limit stands in for a full disk on machines where nothing can be mounted.
class KokoRaja {
public:
    explicit KokoRaja(rlim_t tavua)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_vanha);
        rlimit uusi = m_vanha;
        uusi.rlim_cur = tavua;
        ::setrlimit(RLIMIT_FSIZE, &uusi);
    }
    ~KokoRaja() { ::setrlimit(RLIMIT_FSIZE, &m_vanha); }

private:
    rlimit m_vanha{};
};

} // namespace

class TestVarmuuskopio : public Testipohja {
    Q_OBJECT

    QString kanta, kansio;

    // After a failure: the working file is whole, holds what it held and no marked row, and the
    // backup date is untouched.
    void tarkistaEnnallaan(const kerho::Maarat &ennen)
    {
        QVERIFY(kerho::ehja(kanta));
        QCOMPARE(kerho::rivit(kanta), ennen);
        QCOMPARE(kerho::merkittyja(kanta), qint64(0));
        QVERIFY(!QFile::exists(JarjestelynTulos(kanta)));
        QCOMPARE(varmuuskopionPaiva(kanta), QString());
    }

private slots:
    void init()
    {
        Testipohja::init();
        QDir(env->root()).mkpath(QStringLiteral("seura"));
        QDir(env->root()).mkpath(QStringLiteral("varmuus"));
        kanta = env->path(QStringLiteral("seura/kerho.mdb"));
        kansio = env->path(QStringLiteral("varmuus")) + QLatin1Char('/');
        kerho::luo(kanta, 300);
        DatabasePath = kanta;
        BackupPath = kansio;
    }

    void nimetJohdetaanPolusta_data()
    {
        QTest::addColumn<QString>("polku");
        QTest::addColumn<QStringList>("nimet"); // repair output, remainder, reorganisation output, remainder
        QTest::newRow("club.mdb") << "/x/club.mdb"
                                  << QStringList{"/x/club.mdb2", "/x/club.mdbOLD", "/x/club.md2", "/x/club.md3"};
        QTest::newRow("iso pääte") << "/a b/Kerho.MDB"
                                   << QStringList{"/a b/Kerho.MDB2", "/a b/Kerho.MDBOLD", "/a b/Kerho.MD2", "/a b/Kerho.MD3"};
    }
    void nimetJohdetaanPolusta()
    {
        QFETCH(QString, polku);
        QFETCH(QStringList, nimet);
        QCOMPARE((QStringList{KorjauksenTulos(polku), KorjauksenJaannos(polku), JarjestelynTulos(polku),
                              JarjestelynJaannos(polku)}),
                 nimet);
        QCOMPARE(VarmuuskopionNimi(QStringLiteral("/media/tikku/"), polku),
                 QStringLiteral("/media/tikku/") + polku.mid(polku.lastIndexOf(QLatin1Char('/')) + 1));
        QCOMPARE(PaivitystaEdeltavaKopio(QStringLiteral("/x/my.club.mdb"), QDate(2024, 1, 31)),
                 QStringLiteral("/x/my.club-ennen-paivitysta-20240131.mdb"));
    }

    void varmuuskopioJaUudelleenjarjestely()
    {
        kello::asetaTanaan(QDate(2031, 3, 4)); // the backup date follows the program's clock
        const QDate muistissa(2001, 2, 3);
        BackupDate = muistissa;
        KantaStore(*db::Database::open(kanta)).writeString(QStringLiteral("BackupDate"), QStringLiteral("2001-02-03"));
        const kerho::Maarat ennen = kerho::rivit(kanta);
        for (int kerta = 1; kerta <= 2; ++kerta) {
            dlg->shown.clear();
            QVERIFY(TeeVarmuuskopio());
            QCOMPARE(dlg->messages(), (QStringList{kAloitus.arg(kansio), kValmis}));
            // The copy opens, passes the check and holds what the database held.
            const QString kopio = kansio + QStringLiteral("kerho.mdb");
            QVERIFY(kerho::ehja(kopio));
            QCOMPARE(kerho::rivit(kopio), ennen);
            QCOMPARE(kerho::merkittyja(kopio), qint64(0));
            // The reorganised file took the name; the former one stays as the remainder.
            QVERIFY(kerho::ehja(kanta));
            QCOMPARE(kerho::rivit(kanta), ennen);
            QCOMPARE(kerho::merkittyja(kanta), qint64(0));
            QVERIFY(kerho::ehja(JarjestelynJaannos(kanta)));
            QVERIFY(!QFile::exists(JarjestelynTulos(kanta)));
            QVERIFY(keskeneraiset(kansio).isEmpty());
            QVERIFY(keskeneraiset(env->path(QStringLiteral("seura"))).isEmpty());
        }
        QCOMPARE(ParsePaiva(varmuuskopionPaiva(kanta)), QDate(2031, 3, 4));
        QCOMPARE(BackupDate, muistissa);
    }

    void poistettuTunnusEiPalaa_data()
    {
        QTest::addColumn<QString>("taulu");
        QTest::addColumn<QString>("avain");
        QTest::newRow("jäsen") << "jr" << "jrID";
        QTest::newRow("avoin lasku") << "jm" << "jmID";
        QTest::newRow("historian lasku") << "jmhist" << "jmhID";
        QTest::newRow("laskurivi") << "jmRivi" << "jmRID";
        QTest::newRow("ominaisuus") << "pt" << "ptID";
    }
    void poistettuTunnusEiPalaa()
    {
        QFETCH(QString, taulu);
        QFETCH(QString, avain);
        qint64 poistettu = 0;
        {
            auto d = db::Database::open(kanta);
            poistettu = d->scalar(QStringLiteral("SELECT MAX(%1) FROM %2").arg(avain, taulu)).toLongLong();
            d->execute(QStringLiteral("DELETE FROM %1 WHERE %2 = ?").arg(taulu, avain), {poistettu});
        }
        QVERIFY(TeeVarmuuskopio());
        for (const QString &tiedosto : {kanta, kansio + QStringLiteral("kerho.mdb")}) {
            auto d = db::Database::open(tiedosto);
            QVERIFY2(d->reserveId(taulu) > poistettu, qPrintable(tiedosto));
            d->execute(QStringLiteral("INSERT INTO %1 (BackupRow) VALUES (0)").arg(taulu));
            QVERIFY(d->lastInsertId() > poistettu);
        }
    }

    void kopiointiEpaonnistuu_data()
    {
        QTest::addColumn<QString>("tapaus");
        QTest::addColumn<QString>("syy"); // what the bracketed reason tells
        QTest::newRow("kansio puuttuu") << "puuttuu" << "(76 / ";
        QTest::newRow("ei kauttaviivaa") << "kauttaviiva" << "(76 / ";
        QTest::newRow("ei asetettu") << "tyhja" << "(76 / ";
        QTest::newRow("tiedosto kansion paikalla") << "tiedosto" << "(76 / ";
        QTest::newRow("sama kuin tietokannan kansio") << "sama" << "(75 / ";
        QTest::newRow("kirjoitussuojattu kansio") << "suojattu" << "(70 / ";
        QTest::newRow("levy täynnä, kokoraja") << "kokoraja" << "Levy";
        QTest::newRow("levy täynnä, pieni levy") << "pieni" << "(61 / Levy on täynnä";
    }
    void kopiointiEpaonnistuu()
    {
        QFETCH(QString, tapaus);
        QFETCH(QString, syy);
        const kerho::Maarat ennen = kerho::rivit(kanta);
        const QByteArray tavut = kerho::sisalto(kanta);
        std::unique_ptr<kerho::Liitos> liitos;
        std::unique_ptr<KokoRaja> raja;
        if (tapaus == QLatin1String("puuttuu"))
            BackupPath = env->path(QStringLiteral("ei/ole/"));
        else if (tapaus == QLatin1String("kauttaviiva"))
            BackupPath = env->path(QStringLiteral("varmuus"));
        else if (tapaus == QLatin1String("tyhja"))
            BackupPath.clear();
        else if (tapaus == QLatin1String("tiedosto")) {
            kerho::kirjoita(env->path(QStringLiteral("muistio.txt")), "x");
            BackupPath = env->path(QStringLiteral("muistio.txt/"));
        } else if (tapaus == QLatin1String("sama"))
            BackupPath = env->path(QStringLiteral("seura/"));
        else if (tapaus == QLatin1String("suojattu")) {
            if (kerho::root()) {
                liitos = std::make_unique<kerho::Liitos>(kansio, "size=1m", MS_RDONLY);
                if (!liitos->ok())
                    QSKIP("no read-only medium available to this user");
            } else {
                QVERIFY(QFile::setPermissions(kansio, QFileDevice::ReadOwner | QFileDevice::ExeOwner));
            }
        } else if (tapaus == QLatin1String("kokoraja")) {
            raja = std::make_unique<KokoRaja>(rlim_t(tavut.size() / 2));
        } else if (tapaus == QLatin1String("pieni")) {
            liitos = std::make_unique<kerho::Liitos>(kansio, "size=" + QByteArray::number(tavut.size() / 3));
            if (!liitos->ok())
                QSKIP("mounting a small disk is not allowed here");
        }

        QVERIFY(!TeeVarmuuskopio());
        raja.reset();
        QCOMPARE(dlg->shown.size(), 2);
        const auto &viesti = dlg->shown.at(1);
        QCOMPARE(viesti.icon, dlg::Icon::Stop);
        const QString alku = QStringLiteral("Tietokantaa ei voida kopioida \nhakemistosta: %1\nhakemistoon: %2\n")
                                 .arg(kanta, BackupPath + QStringLiteral("kerho.mdb"));
        QVERIFY2(viesti.text.startsWith(alku + QLatin1Char('(')) && viesti.text.contains(syy), qPrintable(viesti.text));
        QVERIFY(viesti.text.endsWith(QStringLiteral(")\nTarkista asetuksista tietokanta ja varmistushakemistot!\n"
                                                    "Yritä tämän jälkeen uudestaan.")));
        QCOMPARE(kerho::sisalto(kanta), tavut);
        tarkistaEnnallaan(ennen);
        QVERIFY(!QFile::exists(env->path(QStringLiteral("varmuuskerho.mdb"))));
        QVERIFY(!QFile::exists(kansio + QStringLiteral("kerho.mdb")));
        QVERIFY(keskeneraiset(kansio).isEmpty());
        QFile::setPermissions(kansio, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }

    void toisenKirjoittajanLukitsema()
    {
        const kerho::Maarat ennen = kerho::rivit(kanta);
        auto toinen = db::Database::open(kanta);
        db::Transaction kesken(*toinen);
        toinen->execute(QStringLiteral("INSERT INTO jr (jrSukunimi) VALUES ('Kirjoittaja')"));
        QVERIFY(!TeeVarmuuskopio());
        QVERIFY(dlg->messages().last().contains(QStringLiteral("(3051 / ")));
        kesken.commit();
        toinen.reset();
        auto d = db::Database::open(kanta);
        QCOMPARE(d->scalar(QStringLiteral("SELECT count(*) FROM jr WHERE jrSukunimi = 'Kirjoittaja'")).toInt(), 1);
        QCOMPARE(kerho::merkittyja(kanta), qint64(0));
        QCOMPARE(d->scalar(QStringLiteral("SELECT count(*) FROM jr")).toLongLong(), ennen.value(QStringLiteral("jr")) + 1);
    }

    void uudelleenjarjestelyEpaonnistuu_data()
    {
        QTest::addColumn<QString>("tapaus");
        QTest::addColumn<QString>("alku");
        QTest::addColumn<QString>("syy");
        const QString jarjestely = QStringLiteral("Tietokannan uudelleenjärjestely ei onnistunut. Palauta tietokanta "
                                                  "varmuuskopiolta ennen kuin jatkat Vonarin käyttöä.\n");
        QTest::newRow("toinen käyttäjä") << "toinen" << jarjestely << "toisen ohjelman tai työaseman käytössä";
        QTest::newRow("jäännöstä ei voi nimetä") << "nimeaminen"
                                                 << QStringLiteral("Tietokannan uudelleen nimeäminen ei onnistu.\n") << "";
        QTest::newRow("levy täynnä merkitessä") << "levy 120" << jarjestely << "Levy on täynnä";
        QTest::newRow("levy täynnä järjestellessä") << "levy 190" << jarjestely << "Levy on täynnä";
    }
    void uudelleenjarjestelyEpaonnistuu()
    {
        QFETCH(QString, tapaus);
        QFETCH(QString, alku);
        QFETCH(QString, syy);
        std::unique_ptr<db::Database> toinen;
        std::unique_ptr<kerho::Liitos> liitos;
        if (tapaus == QLatin1String("toinen")) {
            toinen = db::Database::open(kanta);
        } else if (tapaus == QLatin1String("nimeaminen")) {
            QDir(env->root()).mkpath(QStringLiteral("seura/kerho.md3/sisalla"));
        } else if (tapaus.startsWith(QLatin1String("levy"))) {
            // The database on a disk without room for a second copy of it (percent of its size).
            const QByteArray tavut = kerho::sisalto(kanta);
            QFile::remove(kanta);
            const qint64 koko = tavut.size() * tapaus.mid(5).toInt() / 100;
            liitos = std::make_unique<kerho::Liitos>(env->path(QStringLiteral("seura")), "size=" + QByteArray::number(koko));
            if (!liitos->ok())
                QSKIP("mounting a small disk is not allowed here");
            kerho::kirjoita(kanta, tavut);
        }
        const kerho::Maarat ennen = kerho::rivit(kanta);

        QVERIFY(!TeeVarmuuskopio());
        toinen.reset();
        const auto &viesti = dlg->shown.last();
        QCOMPARE(viesti.icon, dlg::Icon::Stop);
        QVERIFY2(viesti.text.startsWith(alku) && viesti.text.contains(syy), qPrintable(viesti.text));
        const QString kopio = kansio + QStringLiteral("kerho.mdb");
        QVERIFY(viesti.text.contains(QStringLiteral("Käytössä oleva tietokanta on ennallaan: ") + kanta));
        QVERIFY(viesti.text.endsWith(QStringLiteral("Varmuuskopio on tallessa: ") + kopio));
        // The copy was made and checked before the reorganisation began.
        QVERIFY(kerho::ehja(kopio));
        QCOMPARE(kerho::rivit(kopio), ennen);
        tarkistaEnnallaan(ennen);
    }

    void jaanteetEdellisiltaKerroilta()
    {
        // A stray reorganisation output, an unfinished copy and an old backup from earlier runs.
        kerho::kirjoita(JarjestelynTulos(kanta), "keskeytynyt");
        kerho::kirjoita(kansio + QStringLiteral("kerho.mdb.kesken"), "keskeytynyt");
        kerho::kirjoita(kansio + QStringLiteral("kerho.mdb"), "vanha varmuuskopio");
        kerho::kirjoita(JarjestelynJaannos(kanta), "vanha jäännös");
        const kerho::Maarat ennen = kerho::rivit(kanta);
        QVERIFY(TeeVarmuuskopio());
        QCOMPARE(kerho::rivit(kansio + QStringLiteral("kerho.mdb")), ennen);
        QVERIFY(kerho::ehja(JarjestelynJaannos(kanta)));
        QVERIFY(!QFile::exists(JarjestelynTulos(kanta)));
        QVERIFY(keskeneraiset(kansio).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestVarmuuskopio)
#include "tst_tietokanta_varmuuskopio.moc"
