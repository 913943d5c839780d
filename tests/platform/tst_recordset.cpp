#include "platform/database.h"
#include "platform/recordset.h"
#include "testenv.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

using db::Database;
using db::Recordset;

namespace {

std::unique_ptr<Database> jasenet(const TestEnv &env)
{
    auto d = Database::create(env.path(u"t.mdb"_s));
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
    return Recordset::openTable(d, u"jr"_s, {}, {}, u"jrSukunimi COLLATE FI"_s);
}

QStringList nimet(Recordset &rs, bool eteen)
{
    QStringList out;
    if (eteen) {
        for (rs.moveFirst(); !rs.eof(); rs.moveNext())
            out << rs.value(u"jrSukunimi"_s).toString();
    } else {
        for (rs.moveLast(); !rs.bof(); rs.movePrevious())
            out << rs.value(u"jrSukunimi"_s).toString();
    }
    return out;
}

const QStringList Jarjestys{u"Aalto"_s, u"Nieminen"_s, u"O'Brien"_s, u"Ärölä"_s, u"Öhman"_s};

} // namespace

class TestRecordset : public QObject {
    Q_OBJECT
    std::unique_ptr<TestEnv> env;
    std::unique_ptr<Database> d;

private slots:
    // Five members and three attribute rows for every case.
    void init()
    {
        env = std::make_unique<TestEnv>();
        d = jasenet(*env);
    }
    void cleanup()
    {
        d.reset();
        env.reset();
    }

    void liikkuuMolempiinSuuntiin()
    {
        auto rs = nimijarjestyksessa(*d);
        QCOMPARE(rs->recordCount(), 5);
        QVERIFY(!rs->bof() && !rs->eof());
        QCOMPARE(rs->absolutePosition(), 0);
        QCOMPARE(nimet(*rs, true), Jarjestys);
        QCOMPARE(rs->absolutePosition(), -1);
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->moveNext());
        QStringList takaperin = Jarjestys;
        std::reverse(takaperin.begin(), takaperin.end());
        QCOMPARE(nimet(*rs, false), takaperin);
        QVERIFY(rs->bof() && !rs->eof());
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->movePrevious());
        rs->setAbsolutePosition(3);
        QCOMPARE(rs->value(u"JRSUKUNIMI"_s).toString(), u"Ärölä"_s);
        QVERIFY(rs->findFirst(u"jrSukunimi = 'Nieminen'"_s));
        QVERIFY(!rs->value(u"jrEtunimi"_s).isValid()); // Null stays Null
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->value(u"eiKenttaa"_s));

        auto rajattu = Recordset::openTable(*d, u"jr"_s, u"jrSukunimi <> ?"_s, {u"O'Brien"_s}, u"jrID DESC"_s);
        QCOMPARE(nimet(*rajattu, true), QStringList({u"Ärölä"_s, u"Nieminen"_s, u"Aalto"_s, u"Öhman"_s}));
    }

    void tyhjaJoukko()
    {
        auto rs = Recordset::openTable(*d, u"jr"_s, u"jrID < 0"_s);
        QVERIFY(rs->bof() && rs->eof());
        QCOMPARE(rs->recordCount(), 0);
        QCOMPARE(rs->absolutePosition(), -1);
        rs->moveFirst();
        rs->moveLast();
        QVERIFY(rs->bof() && rs->eof());
        QVERIFY(!rs->findFirst(u"jrID = 1"_s));
        QVERIFY(rs->noMatch());
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->value(u"jrSukunimi"_s));
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->bookmark());
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->deleteRow());
        QCOMPARE(rs->fieldNames(), QStringList({u"jrID"_s, u"jrSukunimi"_s, u"jrEtunimi"_s}));
        rs->addNew();
        rs->setValue(u"jrSukunimi"_s, u"Ensimmäinen"_s);
        rs->update();
        QCOMPARE(rs->recordCount(), 1);
        QVERIFY(rs->eof()); // the set stood at its end before the add
        rs->moveFirst();
        QCOMPARE(rs->value(u"jrSukunimi"_s).toString(), u"Ensimmäinen"_s);
    }

    // The identity is taken at AddNew: a cancelled add uses it up, as the invoice guard expects.
    void lisaysJaPeruutus()
    {
        auto rs = nimijarjestyksessa(*d);
        rs->moveNext(); // Nieminen
        rs->addNew();
        QCOMPARE(rs->editMode(), Recordset::EditMode::AddNew);
        QCOMPARE(rs->value(u"jrID"_s).toLongLong(), 6);
        rs->cancelUpdate();
        QCOMPARE(rs->value(u"jrSukunimi"_s).toString(), u"Nieminen"_s);
        rs->addNew();
        QCOMPARE(rs->value(u"jrID"_s).toLongLong(), 7);
        rs->setValue(u"jrSukunimi"_s, u"Aaltonen"_s);
        QVERIFY(!rs->value(u"jrEtunimi"_s).isValid());
        rs->update();
        QCOMPARE(rs->value(u"jrSukunimi"_s).toString(), u"Nieminen"_s);
        QCOMPARE(rs->lastModified(), 7);
        rs->moveLast(); // a new row goes to the end, whatever the order
        QCOMPARE(rs->value(u"jrSukunimi"_s).toString(), u"Aaltonen"_s);
        QCOMPARE(d->scalar(u"SELECT group_concat(jrID) FROM jr WHERE jrID > 5"_s).toString(), u"7"_s);
        auto uusi = nimijarjestyksessa(*d);
        uusi->addNew();
        QCOMPARE(uusi->value(u"jrID"_s).toLongLong(), 8);
    }

    void muokkausJaTallennus()
    {
        auto rs = nimijarjestyksessa(*d);
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->setValue(u"jrSukunimi"_s, u"x"_s));
        rs->edit();
        rs->setValue(u"JRSUKUNIMI"_s, u"D'Aalto; --"_s);
        QCOMPARE(rs->value(u"jrSukunimi"_s).toString(), u"D'Aalto; --"_s);
        QCOMPARE(d->scalar(u"SELECT jrSukunimi FROM jr WHERE jrID = 2"_s).toString(), u"Aalto"_s);
        rs->update();
        QCOMPARE(d->scalar(u"SELECT jrSukunimi FROM jr WHERE jrID = 2"_s).toString(), u"D'Aalto; --"_s);
        QCOMPARE(rs->value(u"jrSukunimi"_s).toString(), u"D'Aalto; --"_s);
        QCOMPARE(rs->lastModified(), 2);

        // A refused write keeps the edit open, so the user can mend it or cancel.
        rs->edit();
        rs->setValue(u"jrSukunimi"_s, QString(51, QLatin1Char('x')));
        try {
            rs->update();
            QFAIL("too long a name was stored");
        } catch (const db::DbError &e) {
            QCOMPARE(e.kind(), db::ErrorKind::TooLong);
        }
        QCOMPARE(rs->editMode(), Recordset::EditMode::Edit);
        rs->cancelUpdate();
        QCOMPARE(rs->value(u"jrSukunimi"_s).toString(), u"D'Aalto; --"_s);

        // Moving away drops an edit that was not written.
        rs->edit();
        rs->setValue(u"jrEtunimi"_s, u"Unohtuu"_s);
        rs->moveNext();
        rs->movePrevious();
        QCOMPARE(rs->value(u"jrEtunimi"_s).toString(), u"Anna"_s);
    }

    void poistoJaSiirto()
    {
        auto rs = nimijarjestyksessa(*d);
        rs->setAbsolutePosition(2); // O'Brien
        rs->deleteRow();
        QVERIFY(!rs->bof() && !rs->eof());
        QCOMPARE(rs->absolutePosition(), -1);
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->value(u"jrSukunimi"_s));
        QCOMPARE(rs->recordCount(), 4);
        rs->moveNext();
        QCOMPARE(rs->value(u"jrSukunimi"_s).toString(), u"Ärölä"_s);
        rs->deleteRow();
        rs->movePrevious();
        QCOMPARE(rs->value(u"jrSukunimi"_s).toString(), u"Nieminen"_s);
        rs->moveLast();
        rs->deleteRow();
        rs->moveNext();
        QVERIFY(rs->eof());
        QCOMPARE(nimet(*rs, true), QStringList({u"Aalto"_s, u"Nieminen"_s}));

        for (rs->moveFirst(); !rs->eof(); rs->moveNext())
            rs->deleteRow();
        QVERIFY(rs->bof() && rs->eof());
        QCOMPARE(d->scalar(u"SELECT count(*) FROM jr"_s).toInt(), 0);
    }

    // A row deleted by another statement (the blank-row clean-up) is told, not shown stale.
    void rivinPoistoMuualta()
    {
        auto rs = nimijarjestyksessa(*d);
        d->execute(u"DELETE FROM jr WHERE jrSukunimi = 'Aalto'"_s);
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->value(u"jrSukunimi"_s));
        rs->requery();
        QCOMPARE(rs->recordCount(), 4);
        QCOMPARE(rs->value(u"jrSukunimi"_s).toString(), u"Nieminen"_s);
    }

    void etsintaHeittomerkilla()
    {
        d->execute(u"INSERT INTO jr (jrSukunimi, jrEtunimi) VALUES ('O''Brien', 'Mary'), ('O''Brien', 'Sean')"_s);
        auto rs = nimijarjestyksessa(*d);
        const QString ehto = u"jrSukunimi = ?"_s;
        const db::Params obrien{u"O'Brien"_s};
        QVERIFY(rs->findLast(ehto, obrien));
        QCOMPARE(rs->value(u"jrEtunimi"_s).toString(), u"Sean"_s);
        QVERIFY(rs->findPrevious(ehto, obrien));
        QCOMPARE(rs->value(u"jrEtunimi"_s).toString(), u"Mary"_s);
        QVERIFY(rs->findFirst(ehto, obrien));
        QCOMPARE(rs->value(u"jrEtunimi"_s).toString(), u"Pat"_s);
        QVERIFY(!rs->findPrevious(ehto, obrien));
        QVERIFY(rs->noMatch());
        QCOMPARE(rs->value(u"jrEtunimi"_s).toString(), u"Pat"_s);
        QVERIFY(rs->findNext(ehto, obrien));
        QVERIFY(rs->findNext(ehto, obrien));
        QCOMPARE(rs->value(u"jrEtunimi"_s).toString(), u"Sean"_s);
        QVERIFY(!rs->findNext(ehto, obrien));

        // Rows outside the set are not found even when they match.
        auto rajattu = Recordset::openTable(*d, u"jr"_s, u"jrEtunimi <> 'Pat'"_s);
        QVERIFY(rajattu->findFirst(ehto, obrien));
        QCOMPARE(rajattu->value(u"jrEtunimi"_s).toString(), u"Mary"_s);
    }

    void kirjanmerkki()
    {
        auto rs = nimijarjestyksessa(*d);
        rs->setAbsolutePosition(3);
        const Recordset::Bookmark merkki = rs->bookmark();
        rs->moveFirst();
        rs->setBookmark(merkki);
        QCOMPARE(rs->value(u"jrSukunimi"_s).toString(), u"Ärölä"_s);
        rs->deleteRow();
        rs->moveFirst();
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->setBookmark(merkki));
        QCOMPARE(rs->absolutePosition(), 0);
    }

    void tilannekuva()
    {
        {
            auto rs = Recordset::openSnapshot(*d, QStringLiteral(
                "SELECT jr.* FROM jr LEFT JOIN pt ON jr.jrID = pt.ptjrID WHERE pt.ptArvo = ? ORDER BY jr.jrSukunimi COLLATE FI;"),
                {u"laulu"_s});
            QCOMPARE(nimet(*rs, true), QStringList({u"Aalto"_s, u"Ärölä"_s}));
            QVERIFY(rs->findFirst(u"jrID = ?"_s, {5}));
            QCOMPARE(rs->absolutePosition(), 1);
            QVERIFY_THROWS_EXCEPTION(db::DbError, rs->edit());
            QVERIFY_THROWS_EXCEPTION(db::DbError, rs->deleteRow());
            d->execute(u"UPDATE jr SET jrSukunimi = 'Muutettu' WHERE jrID = 5"_s);
            QCOMPARE(rs->value(u"jrSukunimi"_s).toString(), u"Ärölä"_s);
            rs->requery();
            QVERIFY(rs->findFirst(u"jrID = 5"_s));
            QCOMPARE(rs->value(u"jrSukunimi"_s).toString(), u"Muutettu"_s);
        }
        QCOMPARE(d->scalar(u"SELECT count(*) FROM sqlite_temp_master"_s).toInt(), 0);
    }
};

QTEST_GUILESS_MAIN(TestRecordset)
#include "tst_recordset.moc"
