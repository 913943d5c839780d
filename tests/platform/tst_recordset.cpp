#include "platform/database.h"
#include "platform/recordset.h"
#include "testenv.h"

#include <QtTest>

using db::Database;
using db::Recordset;

namespace {

std::unique_ptr<Database> jasenet(TestEnv &env)
{
    auto d = Database::create(env.path(QStringLiteral("t.mdb")));
    d->executeScript(QStringLiteral(
        "CREATE TABLE jr (jrID INTEGER PRIMARY KEY AUTOINCREMENT, "
        "jrSukunimi VARCHAR(50) CHECK (length(jrSukunimi) <= 50), jrEtunimi VARCHAR(50));"
        "CREATE TABLE pt (ptID INTEGER PRIMARY KEY AUTOINCREMENT, ptjrID INTEGER, ptArvo VARCHAR(50));"
        "INSERT INTO jr (jrSukunimi, jrEtunimi) VALUES ('Öhman', 'Olli'), ('Aalto', 'Anna'), ('O''Brien', 'Pat'),"
        " ('Nieminen', NULL), ('Ärölä', 'Eero');"
        "INSERT INTO pt (ptjrID, ptArvo) VALUES (2, 'laulu'), (3, 'soitto'), (5, 'laulu');"));
    return d;
}

std::unique_ptr<Recordset> nimijarjestyksessa(Database &d)
{
    return Recordset::openTable(d, QStringLiteral("jr"), {}, {}, QStringLiteral("jrSukunimi COLLATE FI"));
}

QStringList nimet(Recordset &rs, bool eteen)
{
    QStringList out;
    if (eteen) {
        for (rs.moveFirst(); !rs.eof(); rs.moveNext())
            out << rs.value(QStringLiteral("jrSukunimi")).toString();
    } else {
        for (rs.moveLast(); !rs.bof(); rs.movePrevious())
            out << rs.value(QStringLiteral("jrSukunimi")).toString();
    }
    return out;
}

const QStringList Jarjestys{QStringLiteral("Aalto"), QStringLiteral("Nieminen"), QStringLiteral("O'Brien"),
                            QStringLiteral("Ärölä"), QStringLiteral("Öhman")};

} // namespace

class TestRecordset : public QObject {
    Q_OBJECT

private slots:
    void liikkuuMolempiinSuuntiin()
    {
        TestEnv env;
        auto d = jasenet(env);
        auto rs = nimijarjestyksessa(*d);
        QCOMPARE(rs->recordCount(), 5);
        QVERIFY(!rs->bof() && !rs->eof());
        QCOMPARE(rs->absolutePosition(), 0);
        QCOMPARE(nimet(*rs, true), Jarjestys);
        QCOMPARE(rs->absolutePosition(), -1);
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->moveNext());
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->value(QStringLiteral("jrID")));
        QStringList takaperin = Jarjestys;
        std::reverse(takaperin.begin(), takaperin.end());
        QCOMPARE(nimet(*rs, false), takaperin);
        QVERIFY(rs->bof() && !rs->eof());
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->movePrevious());
        rs->setAbsolutePosition(3);
        QCOMPARE(rs->value(QStringLiteral("JRSUKUNIMI")).toString(), QStringLiteral("Ärölä"));
        rs->moveLast();
        QCOMPARE(rs->absolutePosition(), 4);
        QVERIFY(!rs->value(QStringLiteral("jrEtunimi")).isNull()); // Öhman has a first name
        rs->findFirst(QStringLiteral("jrSukunimi = 'Nieminen'"));
        QVERIFY(!rs->value(QStringLiteral("jrEtunimi")).isValid()); // Null stays Null
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->value(QStringLiteral("eiKenttaa")));

        auto rajattu = Recordset::openTable(*d, QStringLiteral("jr"), QStringLiteral("jrSukunimi <> ?"),
                                            {QStringLiteral("O'Brien")}, QStringLiteral("jrID DESC"));
        QCOMPARE(nimet(*rajattu, true), QStringList({QStringLiteral("Ärölä"), QStringLiteral("Nieminen"),
                                                      QStringLiteral("Aalto"), QStringLiteral("Öhman")}));
    }

    void tyhjaJoukko()
    {
        TestEnv env;
        auto d = jasenet(env);
        auto rs = Recordset::openTable(*d, QStringLiteral("jr"), QStringLiteral("jrID < 0"));
        QVERIFY(rs->bof() && rs->eof());
        QCOMPARE(rs->recordCount(), 0);
        QCOMPARE(rs->absolutePosition(), -1);
        rs->moveFirst();
        rs->moveLast();
        QVERIFY(rs->bof() && rs->eof());
        QVERIFY(!rs->findFirst(QStringLiteral("jrID = 1")));
        QVERIFY(rs->noMatch());
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->value(QStringLiteral("jrSukunimi")));
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->bookmark());
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->deleteRow());
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->edit());
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->moveNext());
        QCOMPARE(rs->fieldNames(), QStringList({QStringLiteral("jrID"), QStringLiteral("jrSukunimi"), QStringLiteral("jrEtunimi")}));
        rs->addNew();
        rs->setValue(QStringLiteral("jrSukunimi"), QStringLiteral("Ensimmäinen"));
        rs->update();
        QCOMPARE(rs->recordCount(), 1);
        QVERIFY(rs->eof()); // the set stood at its end before the add
        rs->moveFirst();
        QCOMPARE(rs->value(QStringLiteral("jrSukunimi")).toString(), QStringLiteral("Ensimmäinen"));
    }

    // The identity is taken at AddNew: a cancelled add uses it up, as the invoice guard expects.
    void lisaysJaPeruutus()
    {
        TestEnv env;
        auto d = jasenet(env);
        auto rs = nimijarjestyksessa(*d);
        rs->moveNext(); // Nieminen
        rs->addNew();
        QCOMPARE(rs->editMode(), Recordset::EditMode::AddNew);
        QCOMPARE(rs->value(QStringLiteral("jrID")).toLongLong(), 6);
        rs->cancelUpdate();
        QCOMPARE(rs->value(QStringLiteral("jrSukunimi")).toString(), QStringLiteral("Nieminen"));
        rs->addNew();
        QCOMPARE(rs->value(QStringLiteral("jrID")).toLongLong(), 7);
        rs->setValue(QStringLiteral("jrSukunimi"), QStringLiteral("Aaltonen"));
        QVERIFY(!rs->value(QStringLiteral("jrEtunimi")).isValid());
        rs->update();
        QCOMPARE(rs->value(QStringLiteral("jrSukunimi")).toString(), QStringLiteral("Nieminen"));
        QCOMPARE(rs->lastModified(), 7);
        QCOMPARE(rs->recordCount(), 6);
        rs->moveLast(); // a new row goes to the end, whatever the order
        QCOMPARE(rs->value(QStringLiteral("jrSukunimi")).toString(), QStringLiteral("Aaltonen"));
        QCOMPARE(d->scalar(QStringLiteral("SELECT group_concat(jrID) FROM jr WHERE jrID > 5")).toString(), QStringLiteral("7"));
        auto uusi = nimijarjestyksessa(*d);
        uusi->addNew();
        QCOMPARE(uusi->value(QStringLiteral("jrID")).toLongLong(), 8);
    }

    void muokkausJaTallennus()
    {
        TestEnv env;
        auto d = jasenet(env);
        auto rs = nimijarjestyksessa(*d);
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->setValue(QStringLiteral("jrSukunimi"), QStringLiteral("x")));
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->update());
        rs->edit();
        rs->setValue(QStringLiteral("JRSUKUNIMI"), QStringLiteral("D'Aalto; --"));
        QCOMPARE(rs->value(QStringLiteral("jrSukunimi")).toString(), QStringLiteral("D'Aalto; --"));
        QCOMPARE(d->scalar(QStringLiteral("SELECT jrSukunimi FROM jr WHERE jrID = 2")).toString(), QStringLiteral("Aalto"));
        rs->update();
        QCOMPARE(d->scalar(QStringLiteral("SELECT jrSukunimi FROM jr WHERE jrID = 2")).toString(), QStringLiteral("D'Aalto; --"));
        QCOMPARE(rs->value(QStringLiteral("jrSukunimi")).toString(), QStringLiteral("D'Aalto; --"));
        QCOMPARE(rs->lastModified(), 2);

        // A refused write keeps the edit open, so the user can mend it or cancel.
        rs->edit();
        rs->setValue(QStringLiteral("jrSukunimi"), QString(51, QLatin1Char('x')));
        try {
            rs->update();
            QFAIL("too long a name was stored");
        } catch (const db::DbError &e) {
            QCOMPARE(e.kind(), db::ErrorKind::TooLong);
        }
        QCOMPARE(rs->editMode(), Recordset::EditMode::Edit);
        rs->cancelUpdate();
        QCOMPARE(rs->value(QStringLiteral("jrSukunimi")).toString(), QStringLiteral("D'Aalto; --"));

        // Moving away drops an edit that was not written.
        rs->edit();
        rs->setValue(QStringLiteral("jrEtunimi"), QStringLiteral("Unohtuu"));
        rs->moveNext();
        rs->movePrevious();
        QCOMPARE(rs->value(QStringLiteral("jrEtunimi")).toString(), QStringLiteral("Anna"));
    }

    void poistoJaSiirto()
    {
        TestEnv env;
        auto d = jasenet(env);
        auto rs = nimijarjestyksessa(*d);
        rs->setAbsolutePosition(2); // O'Brien
        rs->deleteRow();
        QVERIFY(!rs->bof() && !rs->eof());
        QCOMPARE(rs->absolutePosition(), -1);
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->value(QStringLiteral("jrSukunimi")));
        QCOMPARE(rs->recordCount(), 4);
        rs->moveNext();
        QCOMPARE(rs->value(QStringLiteral("jrSukunimi")).toString(), QStringLiteral("Ärölä"));
        rs->deleteRow();
        rs->movePrevious();
        QCOMPARE(rs->value(QStringLiteral("jrSukunimi")).toString(), QStringLiteral("Nieminen"));
        rs->moveLast();
        rs->deleteRow();
        rs->moveNext();
        QVERIFY(rs->eof());
        QCOMPARE(nimet(*rs, true), QStringList({QStringLiteral("Aalto"), QStringLiteral("Nieminen")}));

        for (rs->moveFirst(); !rs->eof(); rs->moveNext())
            rs->deleteRow();
        QVERIFY(rs->bof() && rs->eof());
        QCOMPARE(d->scalar(QStringLiteral("SELECT count(*) FROM jr")).toInt(), 0);
    }

    void rivinPoistoMuualta()
    {
        TestEnv env;
        auto d = jasenet(env);
        auto rs = nimijarjestyksessa(*d);
        d->execute(QStringLiteral("DELETE FROM jr WHERE jrSukunimi = 'Aalto'"));
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->value(QStringLiteral("jrSukunimi")));
        rs->requery();
        QCOMPARE(rs->recordCount(), 4);
        QCOMPARE(rs->value(QStringLiteral("jrSukunimi")).toString(), QStringLiteral("Nieminen"));
    }

    void etsintaHeittomerkilla()
    {
        TestEnv env;
        auto d = jasenet(env);
        d->execute(QStringLiteral("INSERT INTO jr (jrSukunimi, jrEtunimi) VALUES ('O''Brien', 'Mary'), ('O''Brien', 'Sean')"));
        auto rs = nimijarjestyksessa(*d);
        const QString ehto = QStringLiteral("jrSukunimi = ?");
        const db::Params obrien{QStringLiteral("O'Brien")};
        QVERIFY(rs->findLast(ehto, obrien));
        QCOMPARE(rs->value(QStringLiteral("jrEtunimi")).toString(), QStringLiteral("Sean"));
        QVERIFY(rs->findPrevious(ehto, obrien));
        QCOMPARE(rs->value(QStringLiteral("jrEtunimi")).toString(), QStringLiteral("Mary"));
        QVERIFY(rs->findFirst(ehto, obrien));
        QCOMPARE(rs->value(QStringLiteral("jrEtunimi")).toString(), QStringLiteral("Pat"));
        QVERIFY(!rs->findPrevious(ehto, obrien));
        QVERIFY(rs->noMatch());
        QCOMPARE(rs->value(QStringLiteral("jrEtunimi")).toString(), QStringLiteral("Pat"));
        QVERIFY(rs->findNext(ehto, obrien));
        QVERIFY(rs->findNext(ehto, obrien));
        QCOMPARE(rs->value(QStringLiteral("jrEtunimi")).toString(), QStringLiteral("Sean"));
        QVERIFY(!rs->findNext(ehto, obrien));
        QVERIFY(!rs->findFirst(QStringLiteral("jrSukunimi = ?"), {QStringLiteral("O'Brien' OR 1=1 --")}));

        // Rows outside the set are not found even when they match.
        auto rajattu = Recordset::openTable(*d, QStringLiteral("jr"), QStringLiteral("jrEtunimi <> 'Pat'"));
        QVERIFY(rajattu->findFirst(ehto, obrien));
        QCOMPARE(rajattu->value(QStringLiteral("jrEtunimi")).toString(), QStringLiteral("Mary"));
    }

    void kirjanmerkki()
    {
        TestEnv env;
        auto d = jasenet(env);
        auto rs = nimijarjestyksessa(*d);
        rs->setAbsolutePosition(3);
        const Recordset::Bookmark merkki = rs->bookmark();
        rs->moveFirst();
        rs->setBookmark(merkki);
        QCOMPARE(rs->value(QStringLiteral("jrSukunimi")).toString(), QStringLiteral("Ärölä"));
        QCOMPARE(rs->absolutePosition(), 3);
        rs->deleteRow();
        rs->moveFirst();
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->setBookmark(merkki));
        QCOMPARE(rs->absolutePosition(), 0);
    }

    void tilannekuva()
    {
        TestEnv env;
        auto d = jasenet(env);
        {
            auto rs = Recordset::openSnapshot(*d, QStringLiteral(
                "SELECT jr.* FROM jr LEFT JOIN pt ON jr.jrID = pt.ptjrID WHERE pt.ptArvo = ? ORDER BY jr.jrSukunimi COLLATE FI;"),
                {QStringLiteral("laulu")});
            QCOMPARE(nimet(*rs, true), QStringList({QStringLiteral("Aalto"), QStringLiteral("Ärölä")}));
            QVERIFY(rs->findFirst(QStringLiteral("jrID = ?"), {5}));
            QCOMPARE(rs->absolutePosition(), 1);
            QVERIFY_THROWS_EXCEPTION(db::DbError, rs->edit());
            QVERIFY_THROWS_EXCEPTION(db::DbError, rs->addNew());
            QVERIFY_THROWS_EXCEPTION(db::DbError, rs->deleteRow());
            d->execute(QStringLiteral("UPDATE jr SET jrSukunimi = 'Muutettu' WHERE jrID = 5"));
            QCOMPARE(rs->value(QStringLiteral("jrSukunimi")).toString(), QStringLiteral("Ärölä"));
            rs->requery();
            QVERIFY(rs->findFirst(QStringLiteral("jrID = 5")));
            QCOMPARE(rs->value(QStringLiteral("jrSukunimi")).toString(), QStringLiteral("Muutettu"));
        }
        QCOMPARE(d->scalar(QStringLiteral("SELECT count(*) FROM sqlite_temp_master")).toInt(), 0);
    }
};

QTEST_GUILESS_MAIN(TestRecordset)
#include "tst_recordset.moc"
