// The demonstration club: whole and consistent, read by the program as it is, never filled twice,
// and made at the first start without replacing a user's own files.
#include "esittely/Esittelyseura.h"
#include "core/Malli.h"
#include "core/Ohjelmakansio.h"
#include "core/UpdateDatabase.h"
#include "invoicing/Viite.h"
#include "seurat.h"
#include "ydinapu.h"

using db::Database;
using testi::maara;

namespace {

qint64 luku(Database &d, const QString &sql, const db::Params &p = {}) { return d.scalar(sql, p).toLongLong(); }

QString asetus(Database &d, const char *avain)
{
    return d.scalar(u"SELECT setString FROM Settings WHERE setSection = 'VONARI' AND setKey = ?"_s, {QString::fromLatin1(avain)})
        .toString();
}

} // namespace

class TestEsittelyseura : public QObject {
    Q_OBJECT

private slots:
    void sizesAreExactAndFilesSound_data()
    {
        QTest::addColumn<int>("jasenia");
        QTest::newRow("empty club") << 0;
        QTest::newRow("thousand") << 1000;
    }
    void sizesAreExactAndFilesSound()
    {
        QFETCH(int, jasenia);
        TestEnv env;
        const QString polku = env.path(u"s.mdb"_s);
        seurat::Rakenna(polku, jasenia);
        auto d = Database::open(polku);
        QCOMPARE(maara(*d, u"jr"_s), jasenia);
        QCOMPARE(d->scalar(u"PRAGMA integrity_check"_s).toString(), u"ok"_s);
        QVERIFY(TietokantaOnAjantasalla(*d));
        QCOMPARE(asetus(*d, "AsKannassa"), u"1"_s);
        // The next invoice and member numbers lie above every one in use, even in an empty club.
        QVERIFY(asetus(*d, "Laskunro").toLongLong() > luku(*d, u"SELECT COALESCE(MAX(jmhjmLaskunumero), 0) FROM jmhist"_s));
        QCOMPARE(asetus(*d, "Jasennro").toLongLong(),
                 luku(*d, u"SELECT COALESCE(MAX(CAST(jrJasennumero AS INTEGER)), 0) + 1 FROM jr"_s));
    }

    // What holds together in a club of a thousand: "=n" exactly n rows, ">n" more than n.
    void rowsHoldTogether_data()
    {
        QTest::addColumn<QString>("rivit");
        QTest::addColumn<QString>("odotus");
        const auto r = [](const char *nimi, const QString &rivit, const char *odotus) { QTest::newRow(nimi) << rivit << QString::fromLatin1(odotus); };
        r("member numbers apart", u"(SELECT DISTINCT jrJasennumero FROM jr)"_s, "=1000");
        r("no blank names", u"jr WHERE jrJasennumero IS NULL OR jrSukunimi IS NULL OR jrEtunimi IS NULL OR jrOsoite IS NULL"_s, "=0");
        r("family head exists and is marked", u"jrPerhe p WHERE NOT EXISTS (SELECT 1 FROM jr WHERE jrID = p.jrPMID AND jrPerheenLaskutettava = 1)"_s, "=0");
        r("family member exists", u"jrPerhe p WHERE NOT EXISTS (SELECT 1 FROM jr WHERE jrID = p.jrPSubID)"_s, "=0");
        r("street starts the address", u"jr WHERE substr(jrOsoite, 1, length(jrKatu)) <> jrKatu"_s, "=0");
        r("attribute rows point home", u"pt WHERE ptjrID NOT IN (SELECT jrID FROM jr) OR ptpiID NOT IN (SELECT piID FROM pi)"_s, "=0");
        r("partly paid", u"jmhist WHERE jmhjmMaksettu = 0 AND jmhID IN (SELECT jmhID FROM Suoritukset)"_s, ">0");
        r("reminded unpaid", u"jmhist WHERE jmhjmMaksettu = 0 AND jmhjmMuistutusNumero > 0"_s, ">0");
        r("invoice's member exists", u"jmhist WHERE jmhjmjrID NOT IN (SELECT jrID FROM jr)"_s, "=0");
        r("total of the rows", u"jmhist WHERE jmhjmHinta IS NOT (SELECT SUM(jmRHinta) FROM jmRivi WHERE jmRjmID = jmhjmID)"_s, "=0");
        const QString maksettu = u"(SELECT SUM(Summa) FROM Suoritukset s WHERE s.jmhID = jmhist.jmhID)"_s;
        r("open balance from payments", u"jmhist WHERE jmhjmMaksettu = 0 AND jmhID IN (SELECT jmhID FROM Suoritukset) AND "
                                         "jmhjmAvoinSumma IS NOT jmhjmHinta - "_s + maksettu, "=0");
        r("partial payment short", u"jmhist WHERE jmhjmMaksettu = 0 AND %1 >= jmhjmHinta"_s.arg(maksettu), "=0");
        r("invoice references apart", u"(SELECT jmhjmViitenumero FROM jmhist GROUP BY 1 HAVING COUNT(*) > 1)"_s, "=0");
        // A reminder's total is its parts: the open amount, the fees and the interest.
        r("reminder total", u"jmhist WHERE jmhjmMuistutusNumero IS NOT NULL AND coalesce(jmhjmMuistutusYhteensa, 0) <> "
                            "coalesce(jmhjmAvoinSumma, 0) + coalesce(jmhjmMuistutusKulut, 0) + coalesce(jmhjmMuistutusKorkoSumma, 0)"_s, "=0");
        r("archive ids apart", u"Suoritukset WHERE Arkistointitunnus IS NULL OR Arkistointitunnus IN "
                               "(SELECT Arkistointitunnus FROM Suoritukset GROUP BY 1 HAVING COUNT(*) > 1)"_s, "=0");
        // This year's membership invoice sets the member's fee flag: on when paid, off when not.
        r("fee flag", u"jmhist WHERE jmhjmJasMak = 1 AND jmhjmLaskupaiva LIKE '2026%' "
                      "AND jmhjmMaksettu IS NOT (SELECT jrJasenmaksu FROM jr WHERE jrID = jmhjmjrID)"_s, "=0");
        for (const char *taulu : {"Jasenlaji", "Jasenryhma", "Maa", "Postinumero", "lt", "me", "ml"})
            QTest::addRow("rows in %s", taulu) << QString::fromLatin1(taulu) << u">2"_s;
    }
    void rowsHoldTogether()
    {
        QFETCH(QString, rivit);
        QFETCH(QString, odotus);
        auto d = Database::open(seurat::Valmis(1000), db::OpenMode::ReadOnly);
        const int n = maara(*d, rivit), raja = odotus.mid(1).toInt();
        QVERIFY2(odotus.startsWith(u'=') ? n == raja : n > raja, qPrintable(QString::number(n)));
    }

    // Every reference is valid, and an invoice's is its number with the check digit.
    void referencesAreValid()
    {
        auto d = Database::open(seurat::Valmis(1000), db::OpenMode::ReadOnly);
        int viitteita = 0;
        for (db::Statement st(*d, u"SELECT jrViitenumero, NULL FROM jr WHERE jrViitenumero IS NOT NULL "
                                  "UNION ALL SELECT jmhjmViitenumero, jmhjmLaskunumero FROM jmhist"_s);
             st.next(); ++viitteita) {
            const QString viite = st.value(0).toString(), numero = st.value(1).toString();
            QVERIFY2(ViiteOnKelvollinen(viite) && (numero.isEmpty() || viite == numero + LaskeViitetarkiste(numero).trimmed()),
                     qPrintable(viite));
        }
        QVERIFY(viitteita > 1000);
    }

    // The program reads the club as it is, with nothing to mend, and carries its numbers on;
    // a club with members is never filled again.
    void readAsItIsAndNotFilledAgain()
    {
        TestEnv env;
        auto d = Database::open(seurat::Kopio(150, env.path(u"a.mdb"_s)));
        const QString ennen = seurat::Sisalto(*d);
        LueAsetukset(*d);
        QCOMPARE(seurat::Sisalto(*d), ennen);
        QCOMPARE(qint64(MainModule::Laskunro), luku(*d, u"SELECT MAX(jmhjmLaskunumero) + 1 FROM jmhist"_s));
        QCOMPARE(qint64(MainModule::Jasennro), luku(*d, u"SELECT MAX(CAST(jrJasennumero AS INTEGER)) + 1 FROM jr"_s));
        QVERIFY_THROWS_EXCEPTION(db::DbError, TaytaSeura(*d, 10));
        QCOMPARE(seurat::Sisalto(*d), ennen);
    }

    // Made once: a user's own files under the same names (the templates too) are never replaced,
    // and a work file left by a start cut short is thrown away and the demonstration made whole.
    void programFolderIsMadeOnceAndKept()
    {
        TestEnv env;
        ScriptedDialogs dialogs;
        const QString kansio = files::programFolder();
        const QString demo = kansio + u"/demo1.mdb"_s;
        QDir().mkpath(kansio);
        testi::tiedosto(demo + u".kesken"_s, "puolikas");
        VarmistaOhjelmakansio();
        QVERIFY(QFileInfo::exists(MalliPolku()));
        QCOMPARE(QDir(kansio).entryList(QDir::Files), (QStringList{u"demo1.mdb"_s, u"karhu.txt"_s, u"lasku.txt"_s}));
        QVERIFY(QFileInfo(kansio + u"/lasku.txt"_s).isWritable());
        QCOMPARE(maara(*Database::open(demo), u"jr"_s), 150);

        testi::tiedosto(demo, "oma tiedosto");
        testi::tiedosto(kansio + u"/karhu.txt"_s, "oma pohja");
        { QFile f(MalliPolku()); QVERIFY(f.open(QIODevice::Append)); f.write("x"); }
        const qint64 mallinKoko = QFileInfo(MalliPolku()).size();
        VarmistaOhjelmakansio();
        QVERIFY_THROWS_EXCEPTION(db::DbError, LuoMalliTietokanta(MalliPolku()));
        QVERIFY(dialogs.shown.isEmpty() && !QFile::exists(MalliPolku() + u".uusi"_s));
        QFile f(demo);
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), QByteArray("oma tiedosto"));
        QFile karhu(kansio + u"/karhu.txt"_s);
        QVERIFY(karhu.open(QIODevice::ReadOnly));
        QCOMPARE(karhu.readAll(), QByteArray("oma pohja"));
        QCOMPARE(QFileInfo(MalliPolku()).size(), mallinKoko);
    }

    // Something in the way of the folder or of the demonstration is told, and the start goes on.
    void whatCannotBeMadeIsToldNotFatal_data()
    {
        QTest::addColumn<bool>("kansioEsteena");
        QTest::addColumn<QString>("viesti");
        QTest::newRow("file in place of the folder") << true << "Ohjelman kansiota ei voitu luoda";
        QTest::newRow("work file cannot be removed") << false << "Esittelytietokantaa ei voitu luoda:\n";
    }
    void whatCannotBeMadeIsToldNotFatal()
    {
        QFETCH(bool, kansioEsteena);
        QFETCH(QString, viesti);
        TestEnv env;
        ScriptedDialogs dialogs;
        const QString kansio = files::programFolder();
        QDir().mkpath(kansioEsteena ? QFileInfo(kansio).path() : kansio + u"/demo1.mdb.kesken/sisalla"_s);
        if (kansioEsteena)
            testi::tiedosto(kansio, {});
        VarmistaOhjelmakansio();
        QCOMPARE(dialogs.messages().size(), 1);
        QVERIFY(dialogs.messages().first().startsWith(viesti));
        QVERIFY(dialogs.unexpected.isEmpty());
        QCOMPARE(QFileInfo(kansio).isFile(), kansioEsteena);
        QVERIFY(!QFileInfo::exists(kansio + u"/demo1.mdb"_s));
        if (!kansioEsteena)
            QVERIFY(QFileInfo::exists(MalliPolku())); // the template does not depend on the demonstration
    }
};

QTEST_GUILESS_MAIN(TestEsittelyseura)
#include "tst_esittelyseura.moc"
