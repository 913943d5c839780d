#include "platform/currency.h"
#include "platform/database.h"
#include "testenv.h"

#include <QFile>
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

    void valuesRoundTripAsTyped()
    {
        auto d = fresh();
        const QString nasty = QStringLiteral("O'Connor \"x\"; DROP TABLE jr; -- 100%");
        d->execute(QStringLiteral("INSERT INTO jr (jrSukunimi) VALUES (?)"), {nasty});
        QCOMPARE(d->scalar(QStringLiteral("SELECT jrSukunimi FROM jr")).toString(), nasty);
        QCOMPARE(d->scalar(QStringLiteral("SELECT count(*) FROM jr WHERE jrSukunimi = ?"), {nasty}).toInt(), 1);
        QVERIFY(!d->scalar(QStringLiteral("SELECT jrJasennumero FROM jr")).isValid()); // Null stays Null
    }

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

        const QString access = env->path(QStringLiteral("old.mdb"));
        QByteArray jet(2048, '\0');
        jet.replace(4, 15, "Standard Jet DB");
        { QFile f(access); QVERIFY(f.open(QIODevice::WriteOnly)); f.write(jet); }
        expectKind(access, db::ErrorKind::NotOurDatabase);
        QFile f(access);
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), jet); // never written

        const QString text = env->path(QStringLiteral("text.mdb"));
        { QFile t(text); QVERIFY(t.open(QIODevice::WriteOnly)); t.write("hello world, not a database at all"); }
        expectKind(text, db::ErrorKind::NotOurDatabase);
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

    void nullStringsAndInvalidDatesBindAsNull()
    {
        auto d = fresh();
        d->execute(QStringLiteral("CREATE TABLE v (t TEXT, p TEXT, a TEXT)"));
        d->execute(QStringLiteral("INSERT INTO v VALUES (?, ?, ?)"), {QString(), QDate(), QDateTime()});
        d->execute(QStringLiteral("INSERT INTO v VALUES (?, ?, ?)"),
                   {QStringLiteral(""), QDate(2026, 1, 2), QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5))});
        QCOMPARE(d->scalar(QStringLiteral("SELECT count(*) FROM v WHERE t IS NULL AND p IS NULL AND a IS NULL")).toInt(), 1);
        QCOMPARE(d->scalar(QStringLiteral("SELECT p || '/' || a FROM v WHERE t = ''")).toString(),
                 QStringLiteral("2026-01-02/2026-01-02 03:04:05"));
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
