#include "platform/currency.h"
#include "platform/database.h"
#include "testenv.h"

#include <QtTest>

using db::Database;

class TestDatabase : public QObject {
    Q_OBJECT
    std::unique_ptr<TestEnv> env;

    std::unique_ptr<Database> fresh()
    {
        auto d = Database::create(env->path(QStringLiteral("t.mdb")));
        d->executeScript(QStringLiteral(
            "CREATE TABLE jr (jrID INTEGER PRIMARY KEY AUTOINCREMENT, "
            "jrSukunimi VARCHAR(50) CHECK (length(jrSukunimi) <= 50), jrJasennumero VARCHAR(10));"
            "CREATE UNIQUE INDEX jr__num ON jr(jrJasennumero);"));
        return d;
    }

private slots:
    void init() { env = std::make_unique<TestEnv>(); }
    void cleanup() { env.reset(); }

    void errorsAreCategorised()
    {
        auto d = fresh();
        d->execute(QStringLiteral("INSERT INTO jr (jrJasennumero) VALUES ('1')"));
        try {
            d->execute(QStringLiteral("INSERT INTO jr (jrJasennumero) VALUES ('1')"));
            QFAIL("duplicate accepted");
        } catch (const db::DbError &e) {
            QCOMPARE(e.kind(), db::ErrorKind::UniqueViolation);
            QCOMPARE(e.number(), 3022);
        }
        try {
            d->execute(QStringLiteral("INSERT INTO jr (jrSukunimi) VALUES (?)"), {QString(51, QLatin1Char('x'))});
            QFAIL("too long accepted");
        } catch (const db::DbError &e) {
            QCOMPARE(e.kind(), db::ErrorKind::TooLong);
        }
    }

    void openFailuresAreTold()
    {
        auto expectKind = [](const QString &path, db::ErrorKind kind) {
            try {
                Database::open(path);
                QFAIL(qPrintable(QStringLiteral("opened ") + path));
            } catch (const db::DbError &e) {
                QCOMPARE(int(e.kind()), int(kind));
            }
        };
        expectKind(env->path(QStringLiteral("nothere.mdb")), db::ErrorKind::NotFound);
        expectKind(env->path(QStringLiteral("no/such/folder/x.mdb")), db::ErrorKind::BadPath);
        expectKind(QString(), db::ErrorKind::BadPath);
    }

    // Prepared statements are kept for their next use: a kept one answers like a new one, two of the
    // same text can run at once, the schema may change under a kept one.
    void keptStatementsAnswerLikeNew()
    {
        auto d = fresh();
        d->executeScript(QStringLiteral("CREATE TABLE t (a INTEGER, b TEXT);"
                                        "INSERT INTO t VALUES (1, 'yksi'), (2, 'kaksi'), (3, 'kolme');"));
        const QString kysely = QStringLiteral("SELECT * FROM t WHERE a >= ? ORDER BY a");

        // A statement left half-read goes back clean: the next one starts from the first row
        // with its own values.
        {
            db::Statement s(*d, kysely, {1});
            QVERIFY(s.next());
        }
        {
            db::Statement s(*d, kysely, {2});
            QVERIFY(s.next());
            QCOMPARE(s.value(1).toString(), QStringLiteral("kaksi"));
            // The same text nested: a second statement of its own, not the one in use.
            db::Statement sisempi(*d, kysely, {3});
            QVERIFY(sisempi.next());
            QCOMPARE(sisempi.value(0).toInt(), 3);
            QVERIFY(s.next());
            QCOMPARE(s.value(0).toInt(), 3);
        }

        // A kept "SELECT *" sees a column added after it was prepared, and writes are not held
        // up by a kept statement.
        d->execute(QStringLiteral("ALTER TABLE t ADD COLUMN c TEXT DEFAULT 'uusi'"));
        {
            db::Statement s(*d, kysely, {1});
            QVERIFY(s.next());
            QCOMPARE(s.columnCount(), 3);
            QCOMPARE(s.value(QStringLiteral("c")).toString(), QStringLiteral("uusi"));
        }
        // A kept statement of a table dropped since fails at the latest when it is run.
        d->execute(QStringLiteral("DROP TABLE t"));
        QVERIFY_THROWS_EXCEPTION(db::DbError, db::Statement(*d, kysely, {1}).next());

        // Wrong number of values: the error, and the next use is still sound.
        d->executeScript(QStringLiteral("CREATE TABLE u (a INTEGER); INSERT INTO u VALUES (7);"));
        const QString u = QStringLiteral("SELECT a FROM u WHERE a = ?");
        QVERIFY_THROWS_EXCEPTION(db::DbError, db::Statement(*d, u, {}));
        QCOMPARE(d->scalar(u, {7}).toInt(), 7);
    }

    // Nothing to compare: the sanitizer build fails this case on a use after free.
    void statementOutlivesItsConnection()
    {
        auto d = fresh();
        d->execute(QStringLiteral("CREATE TABLE t (a INTEGER)"));
        d->scalar(QStringLiteral("SELECT count(*) FROM t")); // one kept statement
        auto s = std::make_unique<db::Statement>(*d, QStringLiteral("SELECT a FROM t"));
        d.reset();
        s.reset(); // finalized, never handed back to a connection that is gone
    }
    void reservedIdsAreUsedUpAndSurviveDeletes()
    {
        auto d = fresh();
        const qint64 a = d->reserveId(QStringLiteral("jr"));
        const qint64 b = d->reserveId(QStringLiteral("jr")); // a cancelled add used `a`
        QCOMPARE(b, a + 1);
        d->execute(QStringLiteral("INSERT INTO jr (jrID) VALUES (?)"), {b});
        d->execute(QStringLiteral("DELETE FROM jr"));
        d->execute(QStringLiteral("VACUUM"));
        QCOMPARE(d->reserveId(QStringLiteral("jr")), b + 1);
        d->raiseSequence(QStringLiteral("jr"), 100);
        QCOMPARE(d->reserveId(QStringLiteral("jr")), qint64(101));
    }

    void transactionsNestAndRollBackTheirOwnPart()
    {
        auto d = fresh();
        // A copy in memory that each write registers its undo for: it must always match the rows.
        QStringList muisti;
        auto lisaa = [&](const char *nimi) {
            d->execute(QStringLiteral("INSERT INTO jr (jrSukunimi) VALUES (?)"), {QString::fromUtf8(nimi)});
            muisti << QString::fromUtf8(nimi);
            d->perumisella([&muisti] { muisti.removeLast(); });
        };
        auto nimet = [&] {
            QStringList n;
            db::Statement st(*d, QStringLiteral("SELECT jrSukunimi FROM jr ORDER BY jrID"));
            while (st.next())
                n << st.value(0).toString();
            return n.join(QLatin1Char(','));
        };
        {
            db::Transaction t(*d);
            lisaa("a");
        }
        QCOMPARE(nimet(), QString());
        {
            db::Transaction ulompi(*d);
            lisaa("a");
            {
                db::Transaction sisempi(*d);
                lisaa("b"); // rolled back alone
            }
            {
                db::Transaction sisempi(*d);
                lisaa("c");
                sisempi.commit();
            }
            QVERIFY(d->inTransaction());
            ulompi.commit();
        }
        QCOMPARE(nimet(), QStringLiteral("a,c"));
        QCOMPARE(muisti.join(QLatin1Char(',')), nimet());
        QVERIFY(!d->inTransaction());
        // An exception through both levels leaves nothing of either.
        try {
            db::Transaction ulompi(*d);
            lisaa("d");
            db::Transaction sisempi(*d);
            lisaa("e");
            sisempi.commit();
            throw std::runtime_error("kesken");
        } catch (const std::runtime_error &) {
        }
        QCOMPARE(nimet(), QStringLiteral("a,c"));
        QCOMPARE(muisti.join(QLatin1Char(',')), nimet());
        // A committed inner unit is still undone by its outer run's rollback.
        {
            db::Transaction ulompi(*d);
            db::Transaction sisempi(*d);
            lisaa("f");
            sisempi.commit();
        }
        QCOMPARE(nimet(), QStringLiteral("a,c"));
        // After all that the connection opens a real transaction again.
        db::Transaction t(*d);
        lisaa("g");
        t.commit();
        QCOMPARE(nimet(), QStringLiteral("a,c,g"));
    }

    // Values come back as typed, quotes and all; a Null string or an invalid date is stored as Null,
    // an empty string as empty.
    void valuesBindAsTyped()
    {
        auto d = fresh();
        const QString nasty = QStringLiteral("O'Connor \"x\"; DROP TABLE jr; -- 100%");
        d->execute(QStringLiteral("CREATE TABLE v (t TEXT, p TEXT, a TEXT)"));
        d->execute(QStringLiteral("INSERT INTO v VALUES (?, ?, ?)"), {QString(), QDate(), QDateTime()});
        d->execute(QStringLiteral("INSERT INTO v VALUES (?, ?, ?)"),
                   {QStringLiteral(""), QDate(2026, 1, 2), QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5))});
        d->execute(QStringLiteral("INSERT INTO v (t) VALUES (?)"), {nasty});
        QCOMPARE(d->scalar(QStringLiteral("SELECT count(*) FROM v WHERE t IS NULL AND p IS NULL AND a IS NULL")).toInt(), 1);
        QCOMPARE(d->scalar(QStringLiteral("SELECT p || '/' || a FROM v WHERE t = ''")).toString(),
                 QStringLiteral("2026-01-02/2026-01-02 03:04:05"));
        QCOMPARE(d->scalar(QStringLiteral("SELECT t FROM v WHERE rowid = 3")).toString(), nasty);
        QCOMPARE(d->scalar(QStringLiteral("SELECT count(*) FROM v WHERE t = ?"), {nasty}).toInt(), 1);
        QVERIFY(!d->scalar(QStringLiteral("SELECT t FROM v WHERE rowid = 1")).isValid()); // Null reads as Null
    }

    void finnishOrderAndFunctions()
    {
        auto d = fresh();
        for (const char *n : {"Öhman", "aalto", "Zetterberg", "Åberg", "Äijälä", "Berg"})
            d->execute(QStringLiteral("INSERT INTO jr (jrSukunimi) VALUES (?)"), {QString::fromUtf8(n)});
        QStringList order;
        db::Statement st(*d, QStringLiteral("SELECT jrSukunimi FROM jr ORDER BY jrSukunimi COLLATE FI"));
        while (st.next())
            order << st.value(0).toString();
        QCOMPARE(order.join(QLatin1Char(',')), QString::fromUtf8("aalto,Berg,Zetterberg,Åberg,Äijälä,Öhman"));
        QCOMPARE(d->scalar(QStringLiteral("SELECT upper('äö')")).toString(), QString::fromUtf8("ÄÖ"));
        QCOMPARE(d->scalar(QStringLiteral("SELECT count(*) FROM jr WHERE jrSukunimi LIKE 'ÄI%'")).toInt(), 1);
        QCOMPARE(d->scalar(QStringLiteral("SELECT year('1987-03-04')")).toInt(), 1987);
    }

    void currencyIsExact_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<qint64>("raw");
        QTest::addColumn<QString>("shown");
        QTest::newRow("comma") << "12,50" << qint64(125000) << "12,50";
        QTest::newRow("point") << "12.5" << qint64(125000) << "12,50";
        QTest::newRow("grouped") << QString::fromUtf8("1\u00a0234,56 €") << qint64(12345600) << "1234,56";
        QTest::newRow("negative") << "-0,01" << qint64(-100) << "-0,01";
        QTest::newRow("four decimals") << "0,0001" << qint64(1) << "0,00";
        QTest::newRow("half even") << "0,00005" << qint64(0) << "0,00";
    }
    void currencyIsExact()
    {
        QFETCH(QString, text);
        QFETCH(qint64, raw);
        QFETCH(QString, shown);
        const auto c = Currency::parse(text);
        QVERIFY(c.has_value());
        QCOMPARE(c->raw(), raw);
        QCOMPARE(c->toString(), shown);
    }

    void currencyRefusesText()
    {
        for (const char *bad : {"", "abc", "1,2,3", "12e3", "--1"})
            QVERIFY2(!Currency::parse(QString::fromUtf8(bad)).has_value(), bad);
        QCOMPARE(Currency::fromDouble(0.1 + 0.2).raw(), qint64(3000));
        QCOMPARE(Currency::fromRaw(125).roundedToCents().raw(), qint64(100));   // 0.0125 -> 0.01
        QCOMPARE(Currency::fromRaw(150).roundedToCents().raw(), qint64(200));   // 0.015 -> 0.02
    }
};

QTEST_GUILESS_MAIN(TestDatabase)
#include "tst_database.moc"
