#include "core/Malli.h"
#include "core/Schema.h"
#include "core/UpdateDatabase.h"
#include "platform/database.h"
#include "testenv.h"

#include <QProcess>
#include <QStandardPaths>
#include <QtTest>

using db::Database;

namespace {

std::unique_ptr<Database> perusKanta(const QString &kansio)
{
    const QString polku = kansio + QStringLiteral("/kanta.mdb");
    LuoMalliTietokanta(polku);
    return Database::open(polku);
}

std::unique_ptr<Database> paivitettyKanta(const QString &kansio)
{
    auto d = perusKanta(kansio);
    UpdateDatabase(*d);
    return d;
}

// The structure as declared, made in one go: what any upgraded file must come out as.
// `vainMalli` keeps only what the template itself holds.
std::unique_ptr<Database> maaritelty(const QString &kansio, bool vainMalli)
{
    auto d = Database::create(kansio + (vainMalli ? QStringLiteral("/malli-odotus.mdb") : QStringLiteral("/odotus.mdb")));
    for (const SchemaTable &t : Schema::taulut()) {
        if (vainMalli && !t.perustaulu)
            continue;
        QStringList sarakkeet;
        for (const SchemaField &f : t.kentat)
            if (!vainMalli || f.alkupera == Alkupera::Malli)
                sarakkeet << f.sarakeMaaritys();
        d->execute(QStringLiteral("CREATE TABLE %1 (%2)").arg(t.nimi, sarakkeet.join(QStringLiteral(", "))));
        for (const SchemaIndex &i : t.indeksit)
            if (!vainMalli || i.alkupera == Alkupera::Malli)
                d->execute(Schema::indeksiLause(t, i));
    }
    if (!vainMalli)
        d->execute(Schema::piirteetLause());
    return d;
}

// Schema texts compared without the layout: a column added by ALTER TABLE is spaced otherwise
// than one made with its table.
QString normalisoi(QString sql)
{
    sql = sql.simplified();
    sql.replace(QStringLiteral("( "), QStringLiteral("("));
    sql.replace(QStringLiteral(" )"), QStringLiteral(")"));
    sql.replace(QStringLiteral(" ,"), QStringLiteral(","));
    return sql;
}

QStringList rakenne(Database &d)
{
    QStringList rivit;
    db::Statement st(d, QStringLiteral("SELECT type, name, sql FROM sqlite_master "
                                       "WHERE name NOT LIKE 'sqlite%' ORDER BY type, name"));
    while (st.next())
        rivit << st.value(0).toString() + QLatin1Char(' ') + st.value(1).toString() + QStringLiteral(": ")
                     + normalisoi(st.value(2).toString());
    return rivit;
}

// "t" a table, "t.f" a field, "t#i" an index, "?v" a view.
bool onOlemassa(Database &d, const QString &mika)
{
    if (mika.startsWith(QLatin1Char('?')))
        return KyselyOnOlemassa(d, mika.mid(1));
    if (mika.contains(QLatin1Char('#')))
        return IndeksiOnOlemassa(d, mika.section(QLatin1Char('#'), 0, 0), mika.section(QLatin1Char('#'), 1));
    if (mika.contains(QLatin1Char('.')))
        return KenttaOnOlemassa(d, mika.section(QLatin1Char('.'), 0, 0), mika.section(QLatin1Char('.'), 1));
    return TauluOnOlemassa(d, mika);
}

QString ehyys(Database &d)
{
    // From outside when the stock tool is there: the file must not depend on our collation.
    const QString tyokalu = QStandardPaths::findExecutable(QStringLiteral("sqlite3"));
    if (!tyokalu.isEmpty()) {
        QProcess p;
        p.start(tyokalu, {d.path(), QStringLiteral("PRAGMA integrity_check")});
        p.waitForFinished();
        return QString::fromUtf8(p.readAllStandardOutput()).trimmed();
    }
    return d.scalar(QStringLiteral("PRAGMA integrity_check")).toString();
}

} // namespace

class TestSchema : public QObject {
    Q_OBJECT

    // One upgraded file for the cases that only read it or add rows.
    QTemporaryDir m_yhteinen;
    std::unique_ptr<Database> m_kanta;
    Database &yhteinenKanta()
    {
        if (!m_kanta)
            m_kanta = paivitettyKanta(m_yhteinen.path());
        return *m_kanta;
    }
    std::unique_ptr<TestEnv> env;

private slots:
    void init() { env = std::make_unique<TestEnv>(); }
    void cleanup() { env.reset(); }

    void malliPitaaVainPerustaulut()
    {
        auto d = perusKanta(env->root());
        auto odotus = maaritelty(env->root(), true);
        if (rakenne(*d) != rakenne(*odotus))
            qWarning().noquote() << "The template should read:\n" << odotus->schemaDump();
        QCOMPARE(rakenne(*d), rakenne(*odotus));
        QVERIFY(d->scalar(QStringLiteral("SELECT count(*) FROM lt WHERE ltNimi = ?"), {QStringLiteral("Jäsenmaksu")}).toInt() == 1);
        QVERIFY(!TietokantaOnAjantasalla(*d));
    }

    void perustauluistaTaydeksiYhdellaAjolla()
    {
        auto d = perusKanta(env->root());
        d->execute(QStringLiteral("INSERT INTO jr (jrSukunimi, jrOsoite) VALUES ('Mäkelä', 'Kuusitie 4 B')"));
        UpdateDatabase(*d);

        auto odotus = maaritelty(env->root(), false);
        QCOMPARE(rakenne(*d), rakenne(*odotus));
        QVERIFY(TietokantaOnAjantasalla(*d));
        QCOMPARE(ehyys(*d), QStringLiteral("ok"));

        // No data statement: the member is as it was, its new fields Null.
        QCOMPARE(d->scalar(QStringLiteral("SELECT count(*) FROM jr")).toInt(), 1);
        QVERIFY(!d->scalar(QStringLiteral("SELECT jrKatu FROM jr")).isValid());
        QVERIFY(!d->scalar(QStringLiteral("SELECT BackupRow FROM jr")).isValid());

        d->execute(QStringLiteral("INSERT INTO pi (piNimi) VALUES ('Kausikortti')"));
        d->execute(QStringLiteral("INSERT INTO pt (ptjrID, ptpiID, ptValLong) VALUES (1, 1, 3)"));
        QCOMPARE(d->scalar(QStringLiteral("SELECT piNimi || ptValLong FROM piirteet WHERE ptjrID = 1")).toString(),
                 QStringLiteral("Kausikortti3"));
    }

    void toinenAjoEiMuutaMitaan()
    {
        auto d = paivitettyKanta(env->root());
        const QString ennen = d->schemaDump();
        const QVariant muutokset = d->scalar(QStringLiteral("PRAGMA schema_version"));
        UpdateDatabase(*d);
        QCOMPARE(d->schemaDump(), ennen);
        QCOMPARE(d->scalar(QStringLiteral("PRAGMA schema_version")), muutokset);
    }

    // A file left half-way (the series ended at a step that failed) is completed by the next
    // run once the obstacle is gone; a step that fails leaves nothing of itself behind.
    void keskenJaanytTaydentyy_data()
    {
        QTest::addColumn<QString>("este");
        QTest::addColumn<QString>("poisto");
        QTest::addColumn<QStringList>("tehty");
        QTest::addColumn<QStringList>("tekematta");

        QTest::newRow("first step") << "ALTER TABLE jr ADD COLUMN jrperheenlaskutettava BOOLEAN"
                                    << "ALTER TABLE jr DROP COLUMN jrperheenlaskutettava"
                                    << QStringList{} << QStringList{"jmRivi", "jr.jrPerheenLaskutettava"};
        QTest::newRow("field in other case") << "ALTER TABLE jr ADD COLUMN jrkatu TEXT"
                                             << "ALTER TABLE jr DROP COLUMN jrkatu"
                                             << QStringList{"jr.jrPostinumeroNumero", "jm.jmTulostusJarjestysID"}
                                             << QStringList{"jr.jrKatu", "Tarra"};
        QTest::newRow("table in other case") << "CREATE TABLE settings (x)" << "DROP TABLE settings"
                                             << QStringList{"jmRivi.jmRmeId", "jmRivi#jmRmeIdidx"}
                                             << QStringList{"Settings", "jr.jrViitenumero"};
        QTest::newRow("view in other case") << "CREATE VIEW Piirteet AS SELECT 1" << "DROP VIEW Piirteet"
                                            << QStringList{"rp", "pt.BackupRow"}
                                            << QStringList{"?piirteet", "jr.jrRekisteritiedot"};
        QTest::newRow("group undone whole") << "ALTER TABLE jmhist ADD COLUMN jmhjmmuistutuskorko DOUBLE"
                                            << "ALTER TABLE jmhist DROP COLUMN jmhjmmuistutuskorko"
                                            << QStringList{"Tarra"}
                                            << QStringList{"jmhist.jmhjmMuistutusOtsake", "jmhist.jmhjmMuistutusPaiva",
                                                           "jmhist.jmhjmAvoinSumma", "Rekisteritiedot"};
        QTest::newRow("index in other case")
            << Schema::taulu(QStringLiteral("Rekisteritiedot"))->luontiLause()
                   + QStringLiteral(";CREATE INDEX rekisteritiedot_JRIDIDX ON Rekisteritiedot (jrID)")
            << "DROP INDEX rekisteritiedot_JRIDIDX"
            << QStringList{"Tarra", "jmhist.jmhjmMuistutusKorkoSumma"} << QStringList{"Rekisteritiedot#jrIDidx"};
    }

    void keskenJaanytTaydentyy()
    {
        QFETCH(QString, este);
        QFETCH(QString, poisto);
        QFETCH(QStringList, tehty);
        QFETCH(QStringList, tekematta);
        auto d = perusKanta(env->root());
        d->executeScript(este);

        QVERIFY_THROWS_EXCEPTION(db::DbError, UpdateDatabase(*d));
        for (const QString &t : tehty)
            QVERIFY2(onOlemassa(*d, t), qPrintable(t + QStringLiteral(" missing")));
        for (const QString &t : tekematta)
            QVERIFY2(!onOlemassa(*d, t), qPrintable(t + QStringLiteral(" made")));
        QVERIFY(!TietokantaOnAjantasalla(*d));

        d->executeScript(poisto);
        UpdateDatabase(*d);
        auto odotus = maaritelty(env->root(), false);
        QCOMPARE(rakenne(*d), rakenne(*odotus));
    }

    // Where several fields stand behind one test, only the first one is looked at.
    void ryhmanEnsimmainenRatkaisee_data()
    {
        QTest::addColumn<QStringList>("pois");
        QTest::addColumn<QStringList>("palaa");
        QTest::addColumn<QStringList>("poissa");

        QTest::newRow("Pankkitili1 behind Laskutyyppi")
            << QStringList{"ALTER TABLE Laskupohjat DROP COLUMN Pankkitili1", "ALTER TABLE Laskupohjat DROP COLUMN KaytaPankkitili1"}
            << QStringList{"Laskupohjat.Pankkitili1", "Laskupohjat.KaytaPankkitili1"} << QStringList{};
        QTest::newRow("jrLisatieto2") << QStringList{"ALTER TABLE jr DROP COLUMN jrLisatieto2"}
                                      << QStringList{} << QStringList{"jr.jrLisatieto2"};
        QTest::newRow("jmhMaksuPaiva has its own test") << QStringList{"ALTER TABLE jmhist DROP COLUMN jmhMaksuPaiva"}
                                                        << QStringList{"jmhist.jmhMaksuPaiva"} << QStringList{};
        QTest::newRow("jmRmeIdidx rides on its field") << QStringList{"DROP INDEX jmRivi_jmRmeIdidx"}
                                                       << QStringList{} << QStringList{"jmRivi#jmRmeIdidx"};
        QTest::newRow("jrIDidx has its own step") << QStringList{"DROP INDEX Rekisteritiedot_jrIDidx"}
                                                  << QStringList{"Rekisteritiedot#jrIDidx"} << QStringList{};
        QTest::newRow("view") << QStringList{"DROP VIEW piirteet"} << QStringList{"?piirteet"} << QStringList{};
    }

    void ryhmanEnsimmainenRatkaisee()
    {
        QFETCH(QStringList, pois);
        QFETCH(QStringList, palaa);
        QFETCH(QStringList, poissa);
        auto d = paivitettyKanta(env->root());
        for (const QString &sql : pois)
            d->execute(sql);
        QCOMPARE(TietokantaOnAjantasalla(*d), palaa.isEmpty());
        UpdateDatabase(*d);
        for (const QString &t : palaa)
            QVERIFY2(onOlemassa(*d, t), qPrintable(t));
        for (const QString &t : poissa)
            QVERIFY2(!onOlemassa(*d, t), qPrintable(t));
        QVERIFY(TietokantaOnAjantasalla(*d));
    }

    void backupRowTauluissa()
    {
        const QStringList kanssa{"am", "amRivi", "jm", "jmhist", "jmRivi", "jr", "jrPerhe", "lt", "me", "ml",
                                 "pi", "pt", "Jasenlaji", "Jasenryhma", "Suoritukset", "Maa", "Tarra"};
        const QStringList ilman{"Postinumero", "Laskupohjat", "Laskupohjarivit", "Rekisteritiedot", "rp", "Settings", "mt"};
        QCOMPARE(kanssa.size() + ilman.size(), Schema::taulut().size());
        Database &d = yhteinenKanta();
        for (const QString &t : kanssa + ilman) {
            QVERIFY2(TauluOnOlemassa(d, t), qPrintable(t));
            QVERIFY2(KenttaOnOlemassa(d, t, QStringLiteral("BackupRow")) == kanssa.contains(t), qPrintable(t));
        }
    }

    // The file itself refuses what its field cannot hold.
    void arvot_data()
    {
        QTest::addColumn<QString>("taulu");
        QTest::addColumn<QString>("kentta");
        QTest::addColumn<QVariant>("arvo");
        QTest::addColumn<int>("virhe"); // -1: accepted

        const int ok = -1, pitka = int(db::ErrorKind::TooLong), muu = int(db::ErrorKind::Other);
        QTest::newRow("amRHinta takes text") << "amRivi" << "amRHinta" << QVariant(QStringLiteral("12,50")) << ok;
        QTest::newRow("jmRHinta refuses text") << "jmRivi" << "jmRHinta" << QVariant(QStringLiteral("12,50")) << muu;
        QTest::newRow("jmRHinta takes money") << "jmRivi" << "jmRHinta" << QVariant(qint64(125000)) << ok;
        QTest::newRow("jmRHinta refuses a fraction") << "jmRivi" << "jmRHinta" << QVariant(12.5) << muu;
        QTest::newRow("surname at width") << "jr" << "jrSukunimi" << QVariant(QString(50, QChar(0xe4))) << ok;
        QTest::newRow("surname over width") << "jr" << "jrSukunimi" << QVariant(QString(51, QChar(0xe4))) << pitka;
        QTest::newRow("invoice heading of a stored heading")
            << "jm" << "jmOtsake" << QVariant(QString(Schema::leveys("lt", "ltNimi"), QLatin1Char('x'))) << ok;
        QTest::newRow("invoice text of a row text")
            << "jm" << "jmTeksti" << QVariant(QString(Schema::leveys("Laskupohjarivit", "Aiheteksti"), QLatin1Char('x'))) << ok;
        QTest::newRow("memo is long") << "jr" << "jrMuistio" << QVariant(QString(20000, QLatin1Char('x'))) << ok;
        QTest::newRow("boolean 2") << "jr" << "jrJasenmaksu" << QVariant(2) << muu;
        QTest::newRow("leap day") << "jr" << "jrSyntyma" << QVariant(QDate(1980, 2, 29)) << ok;
        QTest::newRow("date with time") << "jmhist" << "jmhMaksuPaiva" << QVariant(QDateTime(QDate(2024, 3, 1), QTime(9, 30))) << ok;
        QTest::newRow("no such day") << "jr" << "jrSyntyma" << QVariant(QStringLiteral("2023-02-29")) << muu;
        QTest::newRow("Finnish date text") << "jr" << "jrSyntyma" << QVariant(QStringLiteral("1.2.1980")) << muu;
        QTest::newRow("interest rate as text") << "jmhist" << "jmhjmMuistutusKorko" << QVariant(QStringLiteral("7,5")) << muu;
        QTest::newRow("long overflow") << "jm" << "jmLaskunumero" << QVariant(qint64(3000000000)) << muu;
        QTest::newRow("integer overflow") << "Laskupohjat" << "Laskutyyppi" << QVariant(40000) << muu;
    }

    void arvot()
    {
        QFETCH(QString, taulu);
        QFETCH(QString, kentta);
        QFETCH(QVariant, arvo);
        QFETCH(int, virhe);
        const QString sql = QStringLiteral("INSERT INTO %1 (%2) VALUES (?)").arg(taulu, kentta);
        try {
            yhteinenKanta().execute(sql, {arvo});
            QCOMPARE(-1, virhe);
        } catch (const db::DbError &e) {
            QCOMPARE(int(e.kind()), virhe);
        }
    }

    // The member number is unique in a new club; an older club's index is made so when its
    // numbers allow it, and a club with doubled numbers keeps every member and its old index.
    void jasennumeroYksilolliseksi_data()
    {
        QTest::addColumn<bool>("vanha");
        QTest::addColumn<QVariantList>("numerot");
        QTest::addColumn<QStringList>("kaksoset");
        const QVariant null;
        QTest::newRow("new club") << false << QVariantList{"1", "2", null, null} << QStringList{};
        QTest::newRow("old club, numbers apart, blanks") << true << QVariantList{"1", "2", "", "", null, null} << QStringList{};
        QTest::newRow("old club, doubled")
            << true << QVariantList{"12", "7", "12", "7", "12", "3", "", "", null, null} << QStringList{"7", "12"};
    }

    void jasennumeroYksilolliseksi()
    {
        QFETCH(bool, vanha);
        QFETCH(QVariantList, numerot);
        QFETCH(QStringList, kaksoset);
        auto d = paivitettyKanta(env->root());
        if (vanha)
            d->executeScript(QStringLiteral("DROP INDEX jr_jrJasennumeroidx; CREATE INDEX jr_jrJasennumeroidx ON jr (jrJasennumero)"));
        for (const QVariant &n : numerot)
            d->execute(QStringLiteral("INSERT INTO jr (jrSukunimi, jrJasennumero) VALUES ('Mäkelä', ?)"), {n});
        QCOMPARE(TietokantaOnAjantasalla(*d), !vanha || !kaksoset.isEmpty());
        UpdateDatabase(*d);

        QVERIFY(TietokantaOnAjantasalla(*d));
        QCOMPARE(KaksoisJasennumerot(*d), kaksoset);
        QCOMPARE(d->scalar(QStringLiteral("SELECT count(*) FROM jr")).toInt(), numerot.size());
        const bool yksilollinen = kaksoset.isEmpty();
        if (yksilollinen)
            QCOMPARE(d->scalar(QStringLiteral("SELECT count(*) FROM jr WHERE jrJasennumero = ''")).toInt(), 0);
        try {
            d->execute(QStringLiteral("INSERT INTO jr (jrSukunimi, jrJasennumero) VALUES ('Toinen', '1')"));
            d->execute(QStringLiteral("INSERT INTO jr (jrSukunimi, jrJasennumero) VALUES ('Kolmas', '1')"));
            QVERIFY(!yksilollinen);
        } catch (const db::DbError &e) {
            QVERIFY(yksilollinen);
            QCOMPARE(e.kind(), db::ErrorKind::UniqueViolation);
        }
        d->execute(QStringLiteral("INSERT INTO jr (jrSukunimi) VALUES ('Numeroton'), ('Numeroton')"));

        // Once the user has put the numbers right, the next run makes the index unique.
        d->execute(QStringLiteral("UPDATE jr SET jrJasennumero = 'n' || jrID WHERE jrJasennumero IS NOT NULL"));
        UpdateDatabase(*d);
        QVERIFY_THROWS_EXCEPTION(db::DbError, d->execute(QStringLiteral("UPDATE jr SET jrJasennumero = 'n1'")));
    }

    void nimetTestataanTarkasti()
    {
        auto d = paivitettyKanta(env->root());
        d->execute(QStringLiteral("CREATE TABLE oma (x INTEGER PRIMARY KEY, y INTEGER)"));
        struct Tapaus {
            const char *mika;
            bool odotus;
        };
        const Tapaus tapaukset[] = {
            {"jr", true}, {"JR", false}, {"jmHist", false},
            {"jr.jrKatu", true}, {"jr.jrkatu", false}, {"JR.jrKatu", true}, // the table is found as SQL finds it
            {"jmRivi#jridx", true}, {"amRivi#jridx", true}, {"jm#jridx", false}, {"jmRivi#JRIDX", false},
            {"jr#PrimaryKey", true}, {"jr#primarykey", false}, {"oma#PrimaryKey", false},
            {"?piirteet", true}, {"?Piirteet", false}, {"?jr", false},
        };
        for (const Tapaus &t : tapaukset)
            QVERIFY2(onOlemassa(*d, QString::fromUtf8(t.mika)) == t.odotus, t.mika);
    }

    void leveydetIkkunoille()
    {
        struct Tapaus {
            const char *taulu, *kentta;
            int leveys;
        };
        const Tapaus tapaukset[] = {
            {"JR", "JRSUKUNIMI", 50},              // any case
            {"jmhist", "jmhjmMuistutusOtsake", 30}, // added field
            {"jm", "jmOtsake", 50},                 // the template's width
            {"jm", "jmHinta", 0},                   // money has none
            {"jr", "jrEiOle", 0}, {"eiole", "x", 0},
        };
        for (const Tapaus &t : tapaukset)
            QVERIFY2(Schema::leveys(QString::fromUtf8(t.taulu), QString::fromUtf8(t.kentta)) == t.leveys, t.kentta);
    }

    void malliLuodaanKerranEikaKorvata()
    {
        QVERIFY(MalliPolku().startsWith(env->programFolder() + QStringLiteral("/mallit/")));
        VarmistaMalli();
        QVERIFY(QFile::exists(MalliPolku()));
        {
            auto d = Database::open(MalliPolku());
            d->execute(QStringLiteral("INSERT INTO lt (ltNimi) VALUES ('Oma otsake')"));
        }
        VarmistaMalli();
        QVERIFY_THROWS_EXCEPTION(db::DbError, LuoMalliTietokanta(MalliPolku()));
        auto d = Database::open(MalliPolku());
        QCOMPARE(d->scalar(QStringLiteral("SELECT count(*) FROM lt WHERE ltNimi = 'Oma otsake'")).toInt(), 1);
        QVERIFY(!QFile::exists(MalliPolku() + QStringLiteral(".uusi")));
    }
};

QTEST_GUILESS_MAIN(TestSchema)
#include "tst_schema.moc"
