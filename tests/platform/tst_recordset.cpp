#include "platform/database.h"
#include "platform/recordset.h"
#include "testenv.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

using db::Database;
using db::Recordset;

namespace {

std::unique_ptr<Recordset> nimijarjestyksessa(Database &d)
{
    return Recordset::openTable(d, u"jr"_s, {}, {}, u"jrSukunimi COLLATE FI"_s);
}

QString kentta(Recordset &rs, const QString &nimi = u"jrSukunimi"_s) { return rs.value(nimi).toString(); }

QStringList nimet(Recordset &rs, bool eteen = true)
{
    QStringList out;
    if (eteen)
        for (rs.moveFirst(); !rs.eof(); rs.moveNext())
            out << kentta(rs);
    else
        for (rs.moveLast(); !rs.bof(); rs.movePrevious())
            out << kentta(rs);
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
        d = Database::create(env->path(u"t.mdb"_s));
        d->executeScript(u"CREATE TABLE jr (jrID INTEGER PRIMARY KEY AUTOINCREMENT, "
                         "jrSukunimi VARCHAR(50) CHECK (length(jrSukunimi) <= 50), jrEtunimi VARCHAR(50));"
                         "CREATE TABLE pt (ptID INTEGER PRIMARY KEY AUTOINCREMENT, ptjrID INTEGER, ptArvo VARCHAR(50));"
                         "INSERT INTO jr (jrSukunimi, jrEtunimi) VALUES ('Öhman', 'Olli'), ('Aalto', 'Anna'), ('O''Brien', 'Pat'),"
                         " ('Nieminen', NULL), ('Ärölä', 'Eero');"
                         "INSERT INTO pt (ptjrID, ptArvo) VALUES (2, 'laulu'), (3, 'soitto'), (5, 'laulu');"_s);
    }
    void cleanup()
    {
        d.reset();
        env.reset();
    }

    // Both ways through the set, past its ends, by position and by bookmark; an empty set.
    void liikkuminen()
    {
        auto rs = nimijarjestyksessa(*d);
        QCOMPARE(rs->recordCount(), 5);
        QCOMPARE(rs->absolutePosition(), 0);
        QCOMPARE(nimet(*rs), Jarjestys);
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->moveNext());
        QCOMPARE(nimet(*rs, false), QStringList(Jarjestys.rbegin(), Jarjestys.rend()));
        QVERIFY(rs->bof() && !rs->eof());
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->movePrevious());
        rs->setAbsolutePosition(3);
        QCOMPARE(kentta(*rs, u"JRSUKUNIMI"_s), u"Ärölä"_s);
        const Recordset::Bookmark merkki = rs->bookmark();
        rs->moveFirst();
        rs->setBookmark(merkki);
        QCOMPARE(kentta(*rs), u"Ärölä"_s);
        QVERIFY(rs->findFirst(u"jrSukunimi = 'Nieminen'"_s) && !rs->value(u"jrEtunimi"_s).isValid()); // Null stays Null
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->value(u"eiKenttaa"_s));
        rs->setBookmark(merkki);
        rs->deleteRow();
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->setBookmark(merkki)); // its row is gone

        auto tyhja = Recordset::openTable(*d, u"jr"_s, u"jrID < 0"_s);
        QVERIFY(tyhja->bof() && tyhja->eof());
        QVERIFY_THROWS_EXCEPTION(db::DbError, tyhja->value(u"jrSukunimi"_s));
        tyhja->addNew();
        tyhja->setValue(u"jrSukunimi"_s, u"Ensimmäinen"_s);
        tyhja->update();
        QVERIFY(tyhja->eof()); // the set stood at its end before the add
        QCOMPARE(nimet(*tyhja), QStringList{u"Ensimmäinen"_s});
    }

    // The identity is taken at AddNew: a cancelled add uses it up, as the invoice guard expects.
    // An edit is written at Update; a refused write keeps it open; moving away drops it.
    void lisaysJaMuokkaus()
    {
        auto rs = nimijarjestyksessa(*d);
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->setValue(u"jrSukunimi"_s, u"x"_s)); // not editing
        rs->moveNext(); // Nieminen
        rs->addNew();
        QCOMPARE(rs->value(u"jrID"_s).toLongLong(), 6);
        rs->cancelUpdate();
        QCOMPARE(kentta(*rs), u"Nieminen"_s);
        rs->addNew();
        QCOMPARE(rs->value(u"jrID"_s).toLongLong(), 7);
        rs->setValue(u"jrSukunimi"_s, u"Aaltonen"_s);
        rs->update();
        QCOMPARE(kentta(*rs), u"Nieminen"_s);
        QCOMPARE(rs->lastModified(), 7);
        rs->moveLast(); // a new row goes to the end, whatever the order
        QCOMPARE(kentta(*rs), u"Aaltonen"_s);

        rs->moveFirst();
        rs->edit();
        rs->setValue(u"JRSUKUNIMI"_s, u"D'Aalto; --"_s);
        QCOMPARE(d->scalar(u"SELECT jrSukunimi FROM jr WHERE jrID = 2"_s).toString(), u"Aalto"_s);
        rs->update();
        QCOMPARE(d->scalar(u"SELECT jrSukunimi FROM jr WHERE jrID = 2"_s).toString(), u"D'Aalto; --"_s);
        rs->edit();
        rs->setValue(u"jrSukunimi"_s, QString(51, u'x'));
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->update()); // refused: the edit stays open to mend or cancel
        QCOMPARE(rs->editMode(), Recordset::EditMode::Edit);
        rs->cancelUpdate();
        QCOMPARE(kentta(*rs), u"D'Aalto; --"_s);
        rs->edit();
        rs->setValue(u"jrEtunimi"_s, u"Unohtuu"_s);
        rs->moveNext();
        rs->movePrevious();
        QCOMPARE(kentta(*rs, u"jrEtunimi"_s), u"Anna"_s);
    }

    // After a delete the set stands between rows; a row deleted by another statement (the
    // blank-row clean-up) is told, not shown stale.
    void poisto()
    {
        auto rs = nimijarjestyksessa(*d);
        rs->setAbsolutePosition(2); // O'Brien
        rs->deleteRow();
        QCOMPARE(rs->absolutePosition(), -1);
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->value(u"jrSukunimi"_s));
        rs->moveNext();
        QCOMPARE(kentta(*rs), u"Ärölä"_s);
        rs->moveLast();
        rs->deleteRow();
        rs->moveNext();
        QVERIFY(rs->eof());
        QCOMPARE(nimet(*rs), QStringList({u"Aalto"_s, u"Nieminen"_s, u"Ärölä"_s}));
        rs->moveFirst();
        d->execute(u"DELETE FROM jr WHERE jrSukunimi = 'Aalto'"_s);
        QVERIFY_THROWS_EXCEPTION(db::DbError, rs->value(u"jrSukunimi"_s));
        rs->requery();
        QCOMPARE(nimet(*rs), QStringList({u"Nieminen"_s, u"Ärölä"_s}));
        for (rs->moveFirst(); !rs->eof(); rs->moveNext())
            rs->deleteRow();
        QVERIFY(rs->bof() && rs->eof());
        QCOMPARE(d->scalar(u"SELECT count(*) FROM jr"_s).toInt(), 0);
    }

    // A search by a value with an apostrophe finds the first match in the set's order, and only
    // rows of the set; a search that fails stays put.
    void etsintaHeittomerkilla()
    {
        d->execute(u"INSERT INTO jr (jrSukunimi, jrEtunimi) VALUES ('O''Brien', 'Mary')"_s);
        auto rajattu = Recordset::openTable(*d, u"jr"_s, u"jrEtunimi <> 'Pat'"_s);
        QVERIFY(rajattu->findFirst(u"jrSukunimi = ?"_s, {u"O'Brien"_s}));
        QCOMPARE(kentta(*rajattu, u"jrEtunimi"_s), u"Mary"_s);
        QVERIFY(!rajattu->findFirst(u"jrSukunimi = ?"_s, {u"Virtanen"_s}) && rajattu->noMatch());
        QCOMPARE(kentta(*rajattu, u"jrEtunimi"_s), u"Mary"_s);
    }

};

QTEST_GUILESS_MAIN(TestRecordset)
#include "tst_recordset.moc"
