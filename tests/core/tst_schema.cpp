// The club's file structure: the template, the upgrade (also from a file left half-way), the
// values the file refuses and unique member numbers.
#include "core/Malli.h"
#include "core/Schema.h"
#include "core/UpdateDatabase.h"
#include "ydinapu.h"

#include <QProcess>
#include <QStandardPaths>

using db::Database;

namespace {

std::unique_ptr<Database> perusKanta(const QString &kansio)
{
    LuoMalliTietokanta(kansio + u"/kanta.mdb"_s);
    return Database::open(kansio + u"/kanta.mdb"_s);
}

std::unique_ptr<Database> paivitettyKanta(const QString &kansio)
{
    auto d = perusKanta(kansio);
    UpdateDatabase(*d);
    return d;
}

// The structure as declared, made in one go (`vainMalli`: only what the template holds), as rows
// "type name: sql" compared without layout: a column added by ALTER TABLE is spaced otherwise.
QStringList rakenne(Database &d);
QStringList maaritelty(const QString &kansio, bool vainMalli)
{
    auto d = Database::create(kansio + (vainMalli ? u"/malli-odotus.mdb"_s : u"/odotus.mdb"_s));
    for (const SchemaTable &t : Schema::taulut()) {
        if (vainMalli && !t.perustaulu)
            continue;
        QStringList sarakkeet;
        for (const SchemaField &f : t.kentat)
            if (!vainMalli || f.alkupera == Alkupera::Malli)
                sarakkeet << f.sarakeMaaritys();
        d->execute(u"CREATE TABLE %1 (%2)"_s.arg(t.nimi, sarakkeet.join(u", "_s)));
        for (const SchemaIndex &i : t.indeksit)
            if (!vainMalli || i.alkupera == Alkupera::Malli)
                d->execute(Schema::indeksiLause(t, i));
    }
    if (!vainMalli)
        d->execute(Schema::piirteetLause());
    return rakenne(*d);
}

QStringList rakenne(Database &d)
{
    QStringList rivit;
    db::Statement st(d, u"SELECT type, name, sql FROM sqlite_master WHERE name NOT LIKE 'sqlite%' ORDER BY type, name"_s);
    while (st.next()) {
        QString sql = st.value(2).toString().simplified();
        sql.replace(u"( "_s, u"("_s).replace(u" )"_s, u")"_s).replace(u" ,"_s, u","_s);
        rivit << st.value(0).toString() + u' ' + st.value(1).toString() + u": "_s + sql;
    }
    return rivit;
}

// "t" a table, "t.f" a field, "t#i" an index, "?v" a view.
bool onOlemassa(Database &d, const QString &mika)
{
    if (mika.startsWith(u'?'))
        return KyselyOnOlemassa(d, mika.mid(1));
    if (mika.contains(u'#'))
        return IndeksiOnOlemassa(d, mika.section(u'#', 0, 0), mika.section(u'#', 1));
    if (mika.contains(u'.'))
        return KenttaOnOlemassa(d, mika.section(u'.', 0, 0), mika.section(u'.', 1));
    return TauluOnOlemassa(d, mika);
}

void tarkistaOlemassa(Database &d, const QStringList &on, const QStringList &eiOle)
{
    for (const QString &t : on)
        QVERIFY2(onOlemassa(d, t), qPrintable(t + u" missing"_s));
    for (const QString &t : eiOle)
        QVERIFY2(!onOlemassa(d, t), qPrintable(t + u" made"_s));
}

} // namespace

class TestSchema : public QObject {
    Q_OBJECT

    // One upgraded file for the cases that only read it or add rows.
    QTemporaryDir m_yhteinen;
    std::unique_ptr<Database> m_kanta;
    std::unique_ptr<TestEnv> env;

private slots:
    void init() { env = std::make_unique<TestEnv>(); }
    void cleanup() { env.reset(); }

    // The template holds only the base tables; one run makes the declared structure and adds no
    // data; a second run changes nothing.
    void perustauluistaTaydeksiYhdellaAjolla()
    {
        auto d = perusKanta(env->root());
        QCOMPARE(rakenne(*d), maaritelty(env->root(), true));
        QCOMPARE(d->scalar(u"SELECT count(*) FROM lt WHERE ltNimi = ?"_s, {u"Jäsenmaksu"_s}).toInt(), 1);
        QVERIFY(!TietokantaOnAjantasalla(*d));
        d->execute(u"INSERT INTO jr (jrSukunimi, jrOsoite) VALUES ('Mäkelä', 'Kuusitie 4 B')"_s);
        UpdateDatabase(*d);
        QCOMPARE(rakenne(*d), maaritelty(env->root(), false));
        QVERIFY(TietokantaOnAjantasalla(*d));
        // From outside when the stock tool is there: the file must not depend on our collation.
        QString ehyys = d->scalar(u"PRAGMA integrity_check"_s).toString();
        if (const QString tyokalu = QStandardPaths::findExecutable(u"sqlite3"_s); !tyokalu.isEmpty()) {
            QProcess p;
            p.start(tyokalu, {d->path(), u"PRAGMA integrity_check"_s});
            p.waitForFinished();
            ehyys = QString::fromUtf8(p.readAllStandardOutput()).trimmed();
        }
        QCOMPARE(ehyys, u"ok"_s);
        QCOMPARE(d->scalar(u"SELECT count(*) FROM jr"_s).toInt(), 1);
        QVERIFY(!d->scalar(u"SELECT jrKatu FROM jr"_s).isValid());
        d->execute(u"INSERT INTO pi (piNimi) VALUES ('Kausikortti')"_s);
        d->execute(u"INSERT INTO pt (ptjrID, ptpiID, ptValLong) VALUES (1, 1, 3)"_s);
        QCOMPARE(d->scalar(u"SELECT piNimi || ptValLong FROM piirteet WHERE ptjrID = 1"_s).toString(), u"Kausikortti3"_s);

        const QString ennen = d->schemaDump();
        const QVariant muutokset = d->scalar(u"PRAGMA schema_version"_s);
        UpdateDatabase(*d);
        QCOMPARE(d->schemaDump(), ennen);
        QCOMPARE(d->scalar(u"PRAGMA schema_version"_s), muutokset);
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
        QTest::newRow("group undone whole") << "ALTER TABLE jmhist ADD COLUMN jmhjmmuistutuskorko DOUBLE"
                                            << "ALTER TABLE jmhist DROP COLUMN jmhjmmuistutuskorko" << QStringList{"Tarra"}
                                            << QStringList{"jmhist.jmhjmMuistutusOtsake", "jmhist.jmhjmAvoinSumma", "Rekisteritiedot"};
        QTest::newRow("index in other case")
            << Schema::taulu(u"Rekisteritiedot"_s)->luontiLause() + u";CREATE INDEX rekisteritiedot_JRIDIDX ON Rekisteritiedot (jrID)"_s
            << "DROP INDEX rekisteritiedot_JRIDIDX" << QStringList{"Tarra", "jmhist.jmhjmMuistutusKorkoSumma"}
            << QStringList{"Rekisteritiedot#jrIDidx"};
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
        tarkistaOlemassa(*d, tehty, tekematta);
        QVERIFY(!TietokantaOnAjantasalla(*d));
        d->executeScript(poisto);
        UpdateDatabase(*d);
        QCOMPARE(rakenne(*d), maaritelty(env->root(), false));
    }

    // The file itself refuses what its field cannot hold.
    void arvot_data()
    {
        QTest::addColumn<QString>("taulu");
        QTest::addColumn<QString>("kentta");
        QTest::addColumn<QVariant>("arvo");
        QTest::addColumn<int>("virhe"); // -1: accepted
        const int ok = -1, pitka = int(db::ErrorKind::TooLong), muu = int(db::ErrorKind::Other);
        QTest::newRow("jmRHinta refuses text") << "jmRivi" << "jmRHinta" << QVariant(u"12,50"_s) << muu;
        QTest::newRow("jmRHinta refuses a fraction") << "jmRivi" << "jmRHinta" << QVariant(12.5) << muu;
        QTest::newRow("surname at width") << "jr" << "jrSukunimi" << QVariant(QString(50, QChar(0xe4))) << ok;
        QTest::newRow("surname over width") << "jr" << "jrSukunimi" << QVariant(QString(51, QChar(0xe4))) << pitka;
        QTest::newRow("boolean 2") << "jr" << "jrJasenmaksu" << QVariant(2) << muu;
        QTest::newRow("leap day") << "jr" << "jrSyntyma" << QVariant(QDate(1980, 2, 29)) << ok;
        QTest::newRow("no such day") << "jr" << "jrSyntyma" << QVariant(u"2023-02-29"_s) << muu;
        QTest::newRow("long overflow") << "jm" << "jmLaskunumero" << QVariant(qint64(3000000000)) << muu;
        QTest::newRow("integer overflow") << "Laskupohjat" << "Laskutyyppi" << QVariant(40000) << muu;
    }
    void arvot()
    {
        QFETCH(QString, taulu);
        QFETCH(QString, kentta);
        QFETCH(QVariant, arvo);
        QFETCH(int, virhe);
        if (!m_kanta)
            m_kanta = paivitettyKanta(m_yhteinen.path());
        try {
            m_kanta->execute(u"INSERT INTO %1 (%2) VALUES (?)"_s.arg(taulu, kentta), {arvo});
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
        QTest::newRow("old club, doubled") << true << QVariantList{"12", "7", "12", "7", "12", "3", "", "", null, null}
                                           << QStringList{"7", "12"};
    }
    void jasennumeroYksilolliseksi()
    {
        QFETCH(bool, vanha);
        QFETCH(QVariantList, numerot);
        QFETCH(QStringList, kaksoset);
        auto d = paivitettyKanta(env->root());
        if (vanha)
            d->executeScript(u"DROP INDEX jr_jrJasennumeroidx; CREATE INDEX jr_jrJasennumeroidx ON jr (jrJasennumero)"_s);
        for (const QVariant &n : numerot)
            d->execute(u"INSERT INTO jr (jrSukunimi, jrJasennumero) VALUES ('Mäkelä', ?)"_s, {n});
        QCOMPARE(TietokantaOnAjantasalla(*d), !vanha || !kaksoset.isEmpty());
        UpdateDatabase(*d);
        QVERIFY(TietokantaOnAjantasalla(*d));
        QCOMPARE(KaksoisJasennumerot(*d), kaksoset);
        QCOMPARE(d->scalar(u"SELECT count(*) FROM jr"_s).toInt(), numerot.size());
        const bool yksilollinen = kaksoset.isEmpty();
        if (yksilollinen)
            QCOMPARE(d->scalar(u"SELECT count(*) FROM jr WHERE jrJasennumero = ''"_s).toInt(), 0);
        try {
            d->execute(u"INSERT INTO jr (jrSukunimi, jrJasennumero) VALUES ('Toinen', '1'), ('Kolmas', '1')"_s);
            QVERIFY(!yksilollinen);
        } catch (const db::DbError &e) {
            QVERIFY(yksilollinen);
            QCOMPARE(e.kind(), db::ErrorKind::UniqueViolation);
        }
        d->execute(u"INSERT INTO jr (jrSukunimi) VALUES ('Numeroton'), ('Numeroton')"_s); // no number is no double
    }
};

QTEST_GUILESS_MAIN(TestSchema)
#include "tst_schema.moc"
