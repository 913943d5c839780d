#include "platform/currency.h"
#include "platform/database.h"
#include "testenv.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using db::Database;

class TestDatabase : public QObject {
    Q_OBJECT
    std::unique_ptr<TestEnv> env;

    std::unique_ptr<Database> fresh()
    {
        auto d = Database::create(env->path(u"t.mdb"_s));
        d->executeScript(u"CREATE TABLE jr (jrID INTEGER PRIMARY KEY AUTOINCREMENT, "
                         "jrSukunimi VARCHAR(50) CHECK (length(jrSukunimi) <= 50), jrJasennumero VARCHAR(10));"
                         "CREATE UNIQUE INDEX jr__num ON jr(jrJasennumero);"_s);
        return d;
    }
    QStringList nimet(Database &d, const QString &jarjestys = u"jrID"_s)
    {
        QStringList n;
        for (db::Statement st(d, u"SELECT jrSukunimi FROM jr ORDER BY "_s + jarjestys); st.next();)
            n << st.value(0).toString();
        return n;
    }

private slots:
    void init() { env = std::make_unique<TestEnv>(); }
    void cleanup() { env.reset(); }

    // Refused writes and opens come with a kind the callers tell the user by.
    void errorsAreCategorised()
    {
        auto kind = [](auto &&f) {
            try {
                f();
            } catch (const db::DbError &e) {
                return std::pair{e.kind(), e.number()};
            }
            return std::pair{db::ErrorKind::Other, -1};
        };
        auto d = fresh();
        d->execute(u"INSERT INTO jr (jrJasennumero) VALUES ('1')"_s);
        QCOMPARE(kind([&] { d->execute(u"INSERT INTO jr (jrJasennumero) VALUES ('1')"_s); }),
                 std::pair(db::ErrorKind::UniqueViolation, 3022));
        QCOMPARE(kind([&] { d->execute(u"INSERT INTO jr (jrSukunimi) VALUES (?)"_s, {QString(51, u'x')}); }).first,
                 db::ErrorKind::TooLong);
        QCOMPARE(kind([&] { Database::open(env->path(u"nothere.mdb"_s)); }).first, db::ErrorKind::NotFound);
        QCOMPARE(kind([&] { Database::open(env->path(u"no/such/folder/x.mdb"_s)); }).first, db::ErrorKind::BadPath);
        QCOMPARE(kind([&] { Database::open(QString()); }).first, db::ErrorKind::BadPath);
    }

    // Prepared statements are kept for their next use: a kept one answers like a new one, two of the
    // same text can run at once, a kept one of a dropped table fails when run, one may outlive
    // its connection.
    void keptStatementsAnswerLikeNew()
    {
        auto d = fresh();
        d->executeScript(u"CREATE TABLE t (a INTEGER, b TEXT); INSERT INTO t VALUES (1, 'yksi'), (2, 'kaksi'), (3, 'kolme');"_s);
        const QString kysely = u"SELECT * FROM t WHERE a >= ? ORDER BY a"_s;
        QVERIFY(db::Statement(*d, kysely, {1}).next()); // left half-read
        {
            db::Statement s(*d, kysely, {2});
            QVERIFY(s.next());
            QCOMPARE(s.value(1).toString(), u"kaksi"_s);
            db::Statement sisempi(*d, kysely, {3}); // the same text nested: a statement of its own
            QVERIFY(sisempi.next());
            QCOMPARE(sisempi.value(0).toInt(), 3);
            QVERIFY(s.next());
            QCOMPARE(s.value(0).toInt(), 3);
        }
        d->execute(u"DROP TABLE t"_s);
        QVERIFY_THROWS_EXCEPTION(db::DbError, db::Statement(*d, kysely, {1}).next());
        // Wrong number of values: the error, and the next use is still sound.
        d->executeScript(u"CREATE TABLE u (a INTEGER); INSERT INTO u VALUES (7);"_s);
        QVERIFY_THROWS_EXCEPTION(db::DbError, db::Statement(*d, u"SELECT a FROM u WHERE a = ?"_s, {}));
        QCOMPARE(d->scalar(u"SELECT a FROM u WHERE a = ?"_s, {7}).toInt(), 7);
        // A statement outliving its connection among kept ones: the sanitizer build fails here on
        // a use after free.
        auto s = std::make_unique<db::Statement>(*d, u"SELECT a FROM u"_s);
        d.reset();
        s.reset();
    }

    void reservedIdsAreUsedUpAndSurviveDeletes()
    {
        auto d = fresh();
        const qint64 a = d->reserveId(u"jr"_s);
        const qint64 b = d->reserveId(u"jr"_s); // a cancelled add used `a`
        QCOMPARE(b, a + 1);
        d->execute(u"INSERT INTO jr (jrID) VALUES (?)"_s, {b});
        d->execute(u"DELETE FROM jr"_s);
        d->execute(u"VACUUM"_s);
        QCOMPARE(d->reserveId(u"jr"_s), b + 1);
        d->raiseSequence(u"jr"_s, 100);
        QCOMPARE(d->reserveId(u"jr"_s), qint64(101));
    }

    void transactionsNestAndRollBackTheirOwnPart()
    {
        auto d = fresh();
        // A copy in memory that each write registers its undo for: it must always match the rows.
        QStringList muisti;
        auto lisaa = [&](const QString &nimi) {
            d->execute(u"INSERT INTO jr (jrSukunimi) VALUES (?)"_s, {nimi});
            muisti << nimi;
            d->perumisella([&muisti] { muisti.removeLast(); });
        };
        {
            db::Transaction ulompi(*d);
            lisaa(u"a"_s);
            {
                db::Transaction sisempi(*d);
                lisaa(u"b"_s); // rolled back alone
            }
            lisaa(u"c"_s);
            ulompi.commit();
        }
        QCOMPARE(muisti, nimet(*d));
        try { // an exception through both levels leaves nothing of either, the committed inner part too
            db::Transaction ulompi(*d);
            lisaa(u"d"_s);
            db::Transaction sisempi(*d);
            lisaa(u"e"_s);
            sisempi.commit();
            throw std::runtime_error("kesken");
        } catch (const std::runtime_error &) {
        }
        QCOMPARE(muisti, nimet(*d));
        QCOMPARE(nimet(*d), (QStringList{u"a"_s, u"c"_s}));
        QVERIFY(!d->inTransaction());
    }

    // Values come back as typed, quotes and all; a Null string or an invalid date is stored as Null,
    // an empty string as empty. Text sorts and compares in Finnish.
    void valuesAndFinnishText()
    {
        auto d = fresh();
        const QString nasty = u"O'Connor \"x\"; DROP TABLE jr; -- 100%"_s;
        d->execute(u"CREATE TABLE v (t TEXT, p TEXT, a TEXT)"_s);
        d->execute(u"INSERT INTO v VALUES (?, ?, ?)"_s, {QString(), QDate(), QDateTime()});
        d->execute(u"INSERT INTO v VALUES (?, ?, ?)"_s, {u""_s, QDate(2026, 1, 2), QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5))});
        d->execute(u"INSERT INTO v (t) VALUES (?)"_s, {nasty});
        QCOMPARE(d->scalar(u"SELECT count(*) FROM v WHERE t IS NULL AND p IS NULL AND a IS NULL"_s).toInt(), 1);
        QCOMPARE(d->scalar(u"SELECT p || '/' || a FROM v WHERE t = ''"_s).toString(), u"2026-01-02/2026-01-02 03:04:05"_s);
        QCOMPARE(d->scalar(u"SELECT count(*) FROM v WHERE t = ?"_s, {nasty}).toInt(), 1);

        for (const QString &n : {u"Öhman"_s, u"aalto"_s, u"Zetterberg"_s, u"Åberg"_s, u"Äijälä"_s, u"Berg"_s})
            d->execute(u"INSERT INTO jr (jrSukunimi) VALUES (?)"_s, {n});
        QCOMPARE(nimet(*d, u"jrSukunimi COLLATE FI"_s).join(u','), u"aalto,Berg,Zetterberg,Åberg,Äijälä,Öhman"_s);
        QCOMPARE(d->scalar(u"SELECT upper('äö')"_s).toString(), u"ÄÖ"_s);
        // LIKE keeps its pattern for the statement: one statement run again with each pattern.
        d->executeScript(u"CREATE TABLE k (s TEXT); INSERT INTO k VALUES ('Mäkinen'), ('kiki'), ('5% ale'), ('55 ale'), (NULL), ('\u212Aalle');"_s);
        db::Statement st(*d, u"SELECT group_concat(s, '|') FROM k WHERE s LIKE ? ESCAPE '\\'"_s, {u"%zz%"_s});
        const std::pair<QString, QString> kuviot[] = {{u"%zz%"_s, {}}, {u"%KI%"_s, u"Mäkinen|kiki"_s}, {u"%5\\%%"_s, u"5% ale"_s},
                                                      {u"%k_k%"_s, u"kiki"_s}, {u"kalle"_s, u"\u212Aalle"_s}}; // the Kelvin sign is a k
        for (const auto &[kuvio, osuvat] : kuviot) {
            st.reset({kuvio});
            QVERIFY(st.next());
            QCOMPARE(st.value(0).toString(), osuvat);
        }
        QCOMPARE(d->scalar(u"SELECT count(*) FROM jr WHERE jrSukunimi LIKE 'ÄI%'"_s).toInt(), 1);
        QCOMPARE(d->scalar(u"SELECT year('1987-03-04')"_s).toInt(), 1987);
    }

    void currencyIsExact_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<qint64>("raw");
        QTest::addColumn<QString>("shown"); // empty: refused
        QTest::newRow("point") << "12.5" << qint64(125000) << "12,50";
        QTest::newRow("grouped") << u"1\u00a0234,56 €"_s << qint64(12345600) << "1234,56";
        QTest::newRow("negative") << "-0,01" << qint64(-100) << "-0,01";
        QTest::newRow("four decimals") << "0,0001" << qint64(1) << "0,00";
        QTest::newRow("half even") << "0,00005" << qint64(0) << "0,00";
        for (const char *bad : {"", "abc", "1,2,3", "12e3", "--1"})
            QTest::newRow(bad) << QString::fromLatin1(bad) << qint64(0) << QString();
    }
    void currencyIsExact()
    {
        QFETCH(QString, text);
        QFETCH(qint64, raw);
        QFETCH(QString, shown);
        const auto c = Currency::parse(text);
        QCOMPARE(c.has_value(), !shown.isEmpty());
        if (c) {
            QCOMPARE(c->raw(), raw);
            QCOMPARE(c->toString(), shown);
        }
    }
    void currencyRounds()
    {
        QCOMPARE(Currency::fromDouble(0.1 + 0.2).raw(), qint64(3000));
        QCOMPARE(Currency::fromRaw(125).roundedToCents().raw(), qint64(100)); // 0.0125 -> 0.01
        QCOMPARE(Currency::fromRaw(150).roundedToCents().raw(), qint64(200)); // 0.015 -> 0.02
    }
};

QTEST_GUILESS_MAIN(TestDatabase)
#include "tst_database.moc"
