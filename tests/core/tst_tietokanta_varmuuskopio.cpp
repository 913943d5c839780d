// The backup with its reorganisation: a whole copy, identities never reused, and every failure
// leaving the working file whole and as it was.
#include "platform/arvot.h"
#include "core/Varmuuskopio.h"
#include "kerhokanta.h"

#include <csignal>
#include <sys/resource.h>

using namespace MainModule;

namespace {

QString varmuuskopionPaiva(const QString &kanta)
{
    return KantaStore(*db::Database::open(kanta, db::OpenMode::ReadOnly)).readString(u"BackupDate"_s);
}

QStringList keskeneraiset(const QString &kansio) { return QDir(kansio).entryList({u"*.kesken*"_s}, QDir::Files); }

// The file-size limit stands in for a full disk on machines where nothing can be mounted.
struct KokoRaja {
    explicit KokoRaja(rlim_t tavua)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &vanha);
        rlimit uusi = vanha;
        uusi.rlim_cur = tavua;
        ::setrlimit(RLIMIT_FSIZE, &uusi);
    }
    ~KokoRaja() { ::setrlimit(RLIMIT_FSIZE, &vanha); }
    rlimit vanha{};
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
        QDir(env->root()).mkpath(u"seura"_s);
        QDir(env->root()).mkpath(u"varmuus"_s);
        kanta = DatabasePath = env->path(u"seura/kerho.mdb"_s);
        kansio = BackupPath = env->path(u"varmuus/"_s);
        kerho::luo(kanta, 300);
    }

    // Twice over: the copy and the reorganised file hold what the club held, the former file
    // stays as the remainder, nothing is left unfinished; the date follows the program's clock
    // into the file but not into this run's memory. Leftovers of earlier runs are cleared.
    void varmuuskopioJaUudelleenjarjestely()
    {
        kello::asetaTanaan(QDate(2031, 3, 4));
        BackupDate = QDate(2001, 2, 3);
        KantaStore(*db::Database::open(kanta)).writeString(u"BackupDate"_s, u"2001-02-03"_s);
        const kerho::Maarat ennen = kerho::rivit(kanta);
        const QString kopio = kansio + u"kerho.mdb"_s;
        for (int kerta = 1; kerta <= 2; ++kerta) {
            if (kerta == 2) { // a stray reorganisation output, an unfinished copy, an old backup and remainder
                for (const QString &jaanne : {JarjestelynTulos(kanta), kopio + u".kesken"_s, kopio, JarjestelynJaannos(kanta)})
                    testi::tiedosto(jaanne, "keskeytynyt");
            }
            dlg->shown.clear();
            QVERIFY(TeeVarmuuskopio());
            QCOMPARE(dlg->messages(), (QStringList{u"Aloitetaan tietokannan varmuuskopiointi ja uudelleenjärjestely.\n"
                                                   "Varmista että kohde %1 on valmiina.\nKopiointi kestää hetken..."_s.arg(kansio),
                                                   u"Tietokannan varmuuskopiointi ja uudelleenjärjestely valmis."_s}));
            for (const QString &tiedosto : {kopio, kanta}) {
                QVERIFY(kerho::ehja(tiedosto));
                QCOMPARE(kerho::rivit(tiedosto), ennen);
                QCOMPARE(kerho::merkittyja(tiedosto), qint64(0));
            }
            QVERIFY(kerho::ehja(JarjestelynJaannos(kanta)));
            QVERIFY(!QFile::exists(JarjestelynTulos(kanta)));
            QVERIFY(keskeneraiset(kansio).isEmpty() && keskeneraiset(env->path(u"seura"_s)).isEmpty());
        }
        QCOMPARE(ParsePaiva(varmuuskopionPaiva(kanta)), QDate(2031, 3, 4));
        QCOMPARE(BackupDate, QDate(2001, 2, 3));
    }

    void poistettuTunnusEiPalaa()
    {
        QList<std::pair<QString, qint64>> poistetut;
        {
            auto d = db::Database::open(kanta);
            for (const auto &[taulu, avain] : {std::pair{"jr", "jrID"}, {"jm", "jmID"}, {"jmRivi", "jmRID"}}) {
                const QString t = QString::fromLatin1(taulu), a = QString::fromLatin1(avain);
                poistetut << std::pair{t, d->scalar(u"SELECT MAX(%1) FROM %2"_s.arg(a, t)).toLongLong()};
                d->execute(u"DELETE FROM %1 WHERE %2 = ?"_s.arg(t, a), {poistetut.last().second});
            }
        }
        QVERIFY(TeeVarmuuskopio());
        for (const QString &tiedosto : {kanta, kansio + u"kerho.mdb"_s}) {
            auto d = db::Database::open(tiedosto);
            for (const auto &[taulu, poistettu] : poistetut) {
                d->execute(u"INSERT INTO %1 (BackupRow) VALUES (0)"_s.arg(taulu));
                QVERIFY2(d->lastInsertId() > poistettu, qPrintable(tiedosto + u' ' + taulu));
            }
        }
    }

    // A failing copy leaves no copy; a failing reorganisation keeps the copy made and checked
    // before it. Either way the user gets the reason, and the working file is whole and as it was.
    void epaonnistuu_data()
    {
        QTest::addColumn<QString>("tapaus");
        QTest::addColumn<QString>("alku"); // empty: the copy failed
        QTest::addColumn<QString>("syy");
        const QString jarjestely = u"Tietokannan uudelleenjärjestely ei onnistunut. Palauta tietokanta "
                                   "varmuuskopiolta ennen kuin jatkat Vonarin käyttöä.\n"_s;
        QTest::newRow("kansio puuttuu") << "puuttuu" << "" << "(76 / ";
        QTest::newRow("ei kauttaviivaa") << "kauttaviiva" << "" << "(76 / ";
        QTest::newRow("sama kuin tietokannan kansio") << "sama" << "" << "(75 / ";
        QTest::newRow("kirjoitussuojattu kansio") << "suojattu" << "" << "(70 / ";
        QTest::newRow("levy täynnä, kokoraja") << "kokoraja" << "" << "Levy";
        QTest::newRow("toinen käyttäjä") << "toinen" << jarjestely << "toisen ohjelman tai työaseman käytössä";
        QTest::newRow("jäännöstä ei voi nimetä") << "nimeaminen" << u"Tietokannan uudelleen nimeäminen ei onnistu.\n"_s << "";
        QTest::newRow("levy täynnä merkitessä") << "levy 120" << jarjestely << "Levy on täynnä";
        QTest::newRow("levy täynnä järjestellessä") << "levy 190" << jarjestely << "Levy on täynnä";
    }
    void epaonnistuu()
    {
        QFETCH(QString, tapaus);
        QFETCH(QString, alku);
        QFETCH(QString, syy);
        std::unique_ptr<kerho::Liitos> liitos;
        std::unique_ptr<KokoRaja> raja;
        std::unique_ptr<db::Database> toinen;
        const QByteArray tavut = kerho::sisalto(kanta);
        const QHash<QString, QString> kansiot = {{u"puuttuu"_s, env->path(u"ei/ole/"_s)}, {u"sama"_s, env->path(u"seura/"_s)},
                                                 {u"kauttaviiva"_s, env->path(u"varmuus"_s)}};
        BackupPath = kansiot.value(tapaus, kansio);
        if (tapaus == u"suojattu"_s && ::geteuid() == 0) {
            liitos = std::make_unique<kerho::Liitos>(kansio, "size=1m", MS_RDONLY);
        } else if (tapaus == u"suojattu"_s) {
            QVERIFY(QFile::setPermissions(kansio, QFileDevice::ReadOwner | QFileDevice::ExeOwner));
        } else if (tapaus == u"kokoraja"_s) {
            raja = std::make_unique<KokoRaja>(rlim_t(tavut.size() / 2));
        } else if (tapaus == u"toinen"_s) {
            toinen = db::Database::open(kanta);
        } else if (tapaus == u"nimeaminen"_s) {
            QDir(env->root()).mkpath(u"seura/kerho.md3/sisalla"_s);
        } else if (tapaus.startsWith(u"levy"_s)) { // no room on the club's disk for a second copy (percent of its size)
            QFile::remove(kanta);
            const qint64 koko = tavut.size() * tapaus.mid(5).toInt() / 100;
            liitos = std::make_unique<kerho::Liitos>(env->path(u"seura"_s), "size=" + QByteArray::number(koko));
            testi::tiedosto(kanta, tavut);
        }
        if (liitos && !liitos->ok)
            QSKIP("mounting a small or read-only disk is not allowed here");
        const kerho::Maarat ennen = kerho::rivit(kanta);

        QVERIFY(!TeeVarmuuskopio());
        raja.reset();
        toinen.reset();
        const auto &viesti = dlg->shown.last();
        const QString kopio = BackupPath + u"kerho.mdb"_s;
        QCOMPARE(viesti.icon, dlg::Icon::Stop);
        QVERIFY2(viesti.text.contains(syy), qPrintable(viesti.text));
        if (alku.isEmpty()) {
            QCOMPARE(dlg->shown.size(), 2);
            QVERIFY2(viesti.text.startsWith(u"Tietokantaa ei voida kopioida \nhakemistosta: %1\nhakemistoon: %2\n("_s.arg(kanta, kopio)),
                     qPrintable(viesti.text));
            QVERIFY(viesti.text.endsWith(u")\nTarkista asetuksista tietokanta ja varmistushakemistot!\nYritä tämän jälkeen uudestaan."_s));
            QCOMPARE(kerho::sisalto(kanta), tavut);
            QVERIFY(!QFile::exists(env->path(u"varmuuskerho.mdb"_s)) && !QFile::exists(kansio + u"kerho.mdb"_s));
            QVERIFY(keskeneraiset(kansio).isEmpty());
            QFile::setPermissions(kansio, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        } else {
            QVERIFY2(viesti.text.startsWith(alku), qPrintable(viesti.text));
            QVERIFY(viesti.text.contains(u"Käytössä oleva tietokanta on ennallaan: "_s + kanta));
            QVERIFY(viesti.text.endsWith(u"Varmuuskopio on tallessa: "_s + kopio));
            QVERIFY(kerho::ehja(kopio));
            QCOMPARE(kerho::rivit(kopio), ennen);
        }
        tarkistaEnnallaan(ennen);
    }

    // Another writer's open transaction: the copy is refused, and the writer's row survives.
    void toisenKirjoittajanLukitsema()
    {
        const kerho::Maarat ennen = kerho::rivit(kanta);
        auto toinen = db::Database::open(kanta);
        db::Transaction kesken(*toinen);
        toinen->execute(u"INSERT INTO jr (jrSukunimi) VALUES ('Kirjoittaja')"_s);
        QVERIFY(!TeeVarmuuskopio());
        QVERIFY(dlg->messages().last().contains(u"(3051 / "_s));
        kesken.commit();
        toinen.reset();
        QCOMPARE(kerho::merkittyja(kanta), qint64(0));
        QCOMPARE(kerho::rivit(kanta).value(u"jr"_s), ennen.value(u"jr"_s) + 1);
    }
};

QTEST_GUILESS_MAIN(TestVarmuuskopio)
#include "tst_tietokanta_varmuuskopio.moc"
