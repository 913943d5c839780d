#include "core/Asetukset.h"
#include "esittely/Esittelyseura.h"
#include "core/MainModule.h"
#include "core/Malli.h"
#include "platform/arvot.h"
#include "core/Ohjelmakansio.h"
#include "core/UpdateDatabase.h"
#include "invoicing/Viite.h"
#include "platform/currency.h"
#include "platform/files.h"
#include "scripteddialogs.h"
#include "seurat.h"
#include "testenv.h"
#include "testiapu.h"

#include <QFile>
#include <QRegularExpression>
#include <QtTest>

using db::Database;

namespace {

qint64 luku(Database &d, const QString &sql, const db::Params &p = {}) { return d.scalar(sql, p).toLongLong(); }
using testi::maara;

QString asetus(Database &d, const char *avain)
{
    return d.scalar(QStringLiteral("SELECT setString FROM Settings WHERE setSection = 'VONARI' AND setKey = ?"),
                    {QString::fromLatin1(avain)}).toString();
}

bool ibanKelpaa(QString iban)
{
    iban.remove(QLatin1Char(' '));
    if (!QRegularExpression(QStringLiteral("^FI\\d{16}$")).match(iban).hasMatch())
        return false;
    const QString siirretty = iban.mid(4) + QStringLiteral("1518") + iban.mid(2, 2);
    int jaannos = 0;
    for (QChar c : siirretty)
        jaannos = (jaannos * 10 + c.digitValue()) % 97;
    return jaannos == 1;
}

} // namespace

class TestEsittelyseura : public QObject {
    Q_OBJECT

private slots:
    void sameSeedGivesSameClub()
    {
        TestEnv env;
        seurat::Rakenna(env.path(QStringLiteral("a.mdb")), 300, 7);
        seurat::Rakenna(env.path(QStringLiteral("b.mdb")), 300, 7);
        seurat::Rakenna(env.path(QStringLiteral("c.mdb")), 300, 8);
        auto a = Database::open(env.path(QStringLiteral("a.mdb")));
        auto b = Database::open(env.path(QStringLiteral("b.mdb")));
        auto c = Database::open(env.path(QStringLiteral("c.mdb")));
        const QString sa = seurat::Sisalto(*a);
        QVERIFY(sa.size() > 10000);
        QCOMPARE(seurat::Sisalto(*b), sa);
        QVERIFY(seurat::Sisalto(*c) != sa);
    }

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
        const QString polku = env.path(QStringLiteral("s.mdb"));
        seurat::Rakenna(polku, jasenia);
        auto d = Database::open(polku);
        QCOMPARE(maara(*d, "jr"), jasenia);
        QCOMPARE(d->scalar(QStringLiteral("PRAGMA integrity_check")).toString(), QStringLiteral("ok"));
        QVERIFY(TietokantaOnAjantasalla(*d));
        QCOMPARE(asetus(*d, "AsKannassa"), QStringLiteral("1"));
        // The next invoice and member numbers lie above every one in use, even in an empty club.
        QVERIFY(asetus(*d, "Laskunro").toLongLong()
                > luku(*d, QStringLiteral("SELECT COALESCE(MAX(jmhjmLaskunumero), 0) FROM jmhist")));
        QCOMPARE(asetus(*d, "Jasennro").toLongLong(),
                 luku(*d, QStringLiteral("SELECT COALESCE(MAX(CAST(jrJasennumero AS INTEGER)), 0) + 1 FROM jr")));
    }

    void membersAndFamiliesHoldTogether()
    {
        auto d = Database::open(seurat::Valmis(1000), db::OpenMode::ReadOnly);
        QCOMPARE(luku(*d, QStringLiteral("SELECT COUNT(DISTINCT jrJasennumero) FROM jr")), qint64(1000));
        QCOMPARE(maara(*d, "jr WHERE jrJasennumero IS NULL OR jrSukunimi IS NULL OR jrEtunimi IS NULL OR jrOsoite IS NULL "
                           "OR jrKatu IS NULL"), 0);
        // Every family has a head that exists, is marked, and is a member of his own family.
        QCOMPARE(maara(*d, "jrPerhe p WHERE NOT EXISTS (SELECT 1 FROM jr WHERE jrID = p.jrPMID AND jrPerheenLaskutettava = 1)"), 0);
        QCOMPARE(maara(*d, "jrPerhe p WHERE NOT EXISTS (SELECT 1 FROM jr WHERE jrID = p.jrPSubID)"), 0);
        QCOMPARE(maara(*d, "jr WHERE jrPerheenLaskutettava = 1 AND NOT EXISTS (SELECT 1 FROM jrPerhe WHERE jrPMID = jrID AND jrPSubID = jrID)"), 0);
        QVERIFY(maara(*d, "jr WHERE jrPerheenLaskutettava = 1") > 50);
        for (const char *luokka : {"jrPAik", "jrPNuor", "jrPLapsi", "jrPSis1", "jrPSis2"})
            QVERIFY2(maara(*d, QStringLiteral("jrPerhe WHERE %1 = 1").arg(QLatin1String(luokka))) > 0, luokka);

        // What the register's users will look for: Finnish letters, apostrophes, derived columns.
        QVERIFY(maara(*d, "jr WHERE jrSukunimi LIKE '%ä%' OR jrSukunimi LIKE '%ö%'") > 50);
        QVERIFY(maara(*d, "jr WHERE jrEmailLasku = 1 AND jrEmail LIKE '%@%'") > 50);
        QCOMPARE(maara(*d, "jr WHERE jrEmailLasku = 1 AND jrEmail IS NULL"), 0);
        QCOMPARE(maara(*d, "jr WHERE jrPostinumeroNumero IS NOT CAST(jrPostinumero AS INTEGER)"), 0);
        QCOMPARE(maara(*d, "jr WHERE substr(jrOsoite, 1, length(jrKatu)) <> jrKatu"), 0);
        db::Statement st(*d, QStringLiteral("SELECT jrOsoite, jrKatu, jrViitenumero FROM jr"));
        int viitteita = 0;
        while (st.next()) {
            // The street is the address up to the first word after the first that holds a digit.
            const QString osoite = st.value(0).toString();
            const QString katu = st.value(1).toString();
            const QString loput = osoite.mid(katu.size()).trimmed();
            QVERIFY2(!katu.isEmpty() && !katu.contains(QRegularExpression(QStringLiteral("\\d")))
                         && loput.contains(QRegularExpression(QStringLiteral("^\\S*\\d"))),
                     qPrintable(osoite + QStringLiteral(" -> ") + katu));
            if (!st.value(2).isNull()) {
                QVERIFY(ViiteOnKelvollinen(st.value(2).toString()));
                ++viitteita;
            }
        }
        QVERIFY(viitteita > 0);
    }

    void attributesPointToMembersAndDefinitions()
    {
        auto d = Database::open(seurat::Valmis(1000), db::OpenMode::ReadOnly);
        QVERIFY(maara(*d, "pi") >= 8);
        QCOMPARE(maara(*d, "pt WHERE ptjrID NOT IN (SELECT jrID FROM jr) OR ptpiID NOT IN (SELECT piID FROM pi)"), 0);
        // Only the kinds an attribute carries hold values.
        QCOMPARE(maara(*d, "piirteet WHERE (ptValDate IS NOT NULL AND piEnbldDate = 0) OR (ptValLong IS NOT NULL AND piEnbldLong = 0) "
                           "OR (ptValMemo IS NOT NULL AND piEnbldMemo = 0) OR (ptValCurrency IS NOT NULL AND piEnbldCurrency = 0)"), 0);
        for (const char *laji : {"ptValDate", "ptValLong", "ptValMemo", "ptValCurrency"})
            QVERIFY2(maara(*d, QStringLiteral("pt WHERE %1 IS NOT NULL").arg(QLatin1String(laji))) > 0, laji);
        // Every attribute is in use, and somebody carries one attribute twice.
        QCOMPARE(maara(*d, "pi WHERE piID NOT IN (SELECT ptpiID FROM pt)"), 0);
        QVERIFY(maara(*d, "(SELECT 1 FROM pt GROUP BY ptjrID, ptpiID HAVING COUNT(*) > 1)") > 0);
        QCOMPARE(maara(*d, "pi WHERE piNimi = 'Hallituksen jäsen'"), 1);
    }

    void invoiceHistoryHasEveryKind()
    {
        auto d = Database::open(seurat::Valmis(1000), db::OpenMode::ReadOnly);
        const auto laskuja = [&](const char *ehto) { return maara(*d, QStringLiteral("jmhist WHERE ") + QString::fromUtf8(ehto)); };
        QVERIFY(laskuja("jmhjmMaksettu = 1") > 100);
        QVERIFY(laskuja("jmhjmMaksettu = 0") > 10);
        QVERIFY(laskuja("jmhjmMaksettu = 0 AND jmhID IN (SELECT jmhID FROM Suoritukset)") > 0);  // partly paid
        QVERIFY(laskuja("jmhjmMaksettu = 0 AND jmhjmMuistutusNumero > 0") > 0);                  // reminded unpaid
        QVERIFY(laskuja("jmhjmMaksettu = 1 AND jmhjmMuistutusNumero > 0") > 0);                  // reminded paid
        QVERIFY(laskuja("jmhjmPerhe = 1") > 0);
        QVERIFY(laskuja("jmhjmOmin = 1 AND jmhjmKaytaPankkitili1 = 1") > 0);
        QVERIFY(laskuja("jmhjmJasMak = 1") > 0);
        QCOMPARE(laskuja("jmhjmjrID NOT IN (SELECT jrID FROM jr)"), 0);
        QCOMPARE(maara(*d, "jm"), 0);

        // A total is the sum of its priced rows; a paid invoice's rows are paid.
        QCOMPARE(laskuja("jmhjmHinta IS NOT (SELECT SUM(jmRHinta) FROM jmRivi WHERE jmRjmID = jmhjmID)"), 0);
        QCOMPARE(laskuja("jmhjmMaksettu = 1 AND EXISTS (SELECT 1 FROM jmRivi WHERE jmRjmID = jmhjmID AND jmRMaksettu = 0)"), 0);
        QVERIFY(maara(*d, "jmRivi WHERE jmRHinta IS NULL") > 0);
        QVERIFY(maara(*d, "jmRivi WHERE jmRmlID IN (SELECT mlID FROM ml)") > 0);
        // A partial payment leaves an open balance that the reminder took from the payments.
        QCOMPARE(laskuja("jmhjmMaksettu = 0 AND jmhID IN (SELECT jmhID FROM Suoritukset) AND jmhjmAvoinSumma IS NOT "
                         "jmhjmHinta - (SELECT SUM(Summa) FROM Suoritukset s WHERE s.jmhID = jmhist.jmhID)"), 0);
        QCOMPARE(laskuja("jmhjmMaksettu = 0 AND (SELECT SUM(Summa) FROM Suoritukset s WHERE s.jmhID = jmhist.jmhID) >= jmhjmHinta"), 0);
        QCOMPARE(laskuja("jmhMaksuPaiva IS NOT NULL AND (SELECT SUM(Summa) FROM Suoritukset s WHERE s.jmhID = jmhist.jmhID) IS NOT jmhjmHinta"), 0);
        QCOMPARE(luku(*d, QStringLiteral("SELECT COUNT(*) - COUNT(DISTINCT Arkistointitunnus) FROM Suoritukset")), 0);

        // This year's membership invoice sets the member's fee flag: on when paid, off when not.
        QCOMPARE(laskuja("jmhjmJasMak = 1 AND jmhjmLaskupaiva LIKE '2026%' "
                         "AND jmhjmMaksettu IS NOT (SELECT jrJasenmaksu FROM jr WHERE jrID = jmhjmjrID)"), 0);
    }

    void referencesAndRemindersHoldTogether()
    {
        auto d = Database::open(seurat::Valmis(1000), db::OpenMode::ReadOnly);
        db::Statement st(*d, QStringLiteral(
            "SELECT jmhjmLaskunumero, jmhjmViitenumero, jmhjmErapaiva, jmhjmMuistutusPaiva, jmhjmMuistutusNumero, "
            "jmhjmMuistutusKulut, jmhjmMuistutusKorko, jmhjmAvoinSumma, jmhjmMuistutusKorkoSumma, jmhjmMuistutusYhteensa, "
            "jmhjmMuistutusOtsake FROM jmhist"));
        QSet<QString> viitteet;
        int muistutuksia = 0;
        while (st.next()) {
            const QString viite = st.value(1).toString();
            QVERIFY2(ViiteOnKelvollinen(viite), qPrintable(viite));
            QCOMPARE(viite, st.value(0).toString() + LaskeViitetarkiste(st.value(0).toString()).trimmed());
            QVERIFY2(!viitteet.contains(viite), qPrintable(viite));
            viitteet.insert(viite);
            if (st.value(4).isNull())
                continue;
            ++muistutuksia;
            // The reminder's total is its parts: the open amount, the fees and the interest.
            QCOMPARE(st.value(9).toLongLong(), st.value(7).toLongLong() + st.value(5).toLongLong() + st.value(8).toLongLong());
            QVERIFY(st.value(8).toLongLong() > 0 && st.value(6).toDouble() > 0);
            QCOMPARE(st.value(10).toString(), asetus(*d, "MuistutusOtsake"));
            QCOMPARE(Currency::fromRaw(st.value(5).toLongLong()).toString(), asetus(*d, "Muistutuskulut"));
        }
        QVERIFY(muistutuksia > 0);
        // The invoice-id guard: the next open invoice gets an id above every id in use.
        const qint64 seuraava = luku(*d, QStringLiteral("SELECT seq FROM sqlite_sequence WHERE name = 'jm'"));
        QVERIFY(seuraava >= luku(*d, QStringLiteral("SELECT MAX(jmhjmID) FROM jmhist")));
        QVERIFY(seuraava >= luku(*d, QStringLiteral("SELECT MAX(jmRjmID) FROM jmRivi")));
    }

    void settingsDescribeTheClub()
    {
        auto d = Database::open(seurat::Valmis(150), db::OpenMode::ReadOnly);
        QCOMPARE(luku(*d, QStringLiteral("SELECT COUNT(*) - COUNT(DISTINCT setKey) FROM Settings")), 0);
        for (const char *avain : {"RegName", "Henkilo", "RegOsoite", "RegPostinumero", "RegPostitoimipaikka", "RegPuhelin",
                                  "RegSeuranEmail", "MuistutusOtsake", "MuistutusAlku", "MuistutusLoppu", "Fontti"})
            QVERIFY2(!asetus(*d, avain).isEmpty(), avain);
        QVERIFY(asetus(*d, "RegName").endsWith(QStringLiteral(" ry")));
        QVERIFY(ibanKelpaa(asetus(*d, "RegPankkiyhteys1")));
        QVERIFY(ibanKelpaa(asetus(*d, "RegPankkiyhteys2")));
        QVERIFY(asetus(*d, "RegPankkiyhteys1") != asetus(*d, "RegPankkiyhteys2"));
        QVERIFY(ParsePaiva(asetus(*d, "BackupDate")).isValid());
        QVERIFY(Currency::parse(asetus(*d, "Muistutuskulut")).has_value());
        QVERIFY(asetus(*d, "Viivastyskorko").toDouble() > 0);
        QCOMPARE(luku(*d, QStringLiteral("SELECT COUNT(*) FROM jmhist WHERE jmhjmKaytaPankkitili1 = 1 AND jmhjmPankkitili1 IS NOT ?"),
                      {asetus(*d, "RegPankkiyhteys2")}), 0);
        for (const char *taulu : {"Jasenlaji", "Jasenryhma", "Maa", "Postinumero", "lt", "me", "ml"})
            QVERIFY2(luku(*d, QStringLiteral("SELECT COUNT(*) FROM %1").arg(QLatin1String(taulu))) > 2, taulu);
        QCOMPARE(maara(*d, "Maa WHERE TulosteTeksti IS NULL OR TulosteTeksti = ''"), 0);
        QCOMPARE(luku(*d, QStringLiteral("SELECT COUNT(*) - COUNT(DISTINCT upper(ltNimi)) FROM lt")), 0);
    }

    void settingsReadIntoTheProgram()
    {
        TestEnv env;
        auto d = Database::open(seurat::Kopio(150, env.path(QStringLiteral("a.mdb"))));
        const QString ennen = seurat::Sisalto(*d);
        LueAsetukset(*d);
        QCOMPARE(seurat::Sisalto(*d), ennen); // nothing needed mending
        using namespace MainModule;
        QCOMPARE(RegName, asetus(*d, "RegName"));
        QCOMPARE(qint64(Laskunro), luku(*d, QStringLiteral("SELECT MAX(jmhjmLaskunumero) + 1 FROM jmhist")));
        QCOMPARE(qint64(Jasennro), luku(*d, QStringLiteral("SELECT MAX(CAST(jrJasennumero AS INTEGER)) + 1 FROM jr")));
        QVERIFY(AutoJasennumero);
        QVERIFY(!MuistutaVarm);
        QCOMPARE(BackupDate, ParsePaiva(asetus(*d, "BackupDate")));
        QCOMPARE(Muistutuskulut, Currency::fromUnits(5));
    }

    void aClubWithMembersIsNotFilledAgain()
    {
        TestEnv env;
        const QString polku = seurat::Kopio(150, env.path(QStringLiteral("k.mdb")));
        auto d = Database::open(polku);
        const QString ennen = seurat::Sisalto(*d);
        QVERIFY_THROWS_EXCEPTION(db::DbError, TaytaSeura(*d, 10));
        QCOMPARE(seurat::Sisalto(*d), ennen);
    }

    void programFolderIsMadeOnceAndKept()
    {
        TestEnv env;
        ScriptedDialogs dialogs;
        const QString kansio = files::programFolder();
        const QString demo = kansio + QStringLiteral("/demo1.mdb");
        VarmistaOhjelmakansio();
        QVERIFY(dialogs.shown.isEmpty());
        QVERIFY(QFileInfo::exists(MalliPolku()));
        QCOMPARE(db::probeFile(demo), db::FileKind::SQLite);
        QCOMPARE(QDir(kansio).entryList(QDir::Files), QStringList{QStringLiteral("demo1.mdb")});

        // A user's own files under the same names are never replaced.
        QFile::remove(demo);
        { QFile f(demo); QVERIFY(f.open(QIODevice::WriteOnly)); f.write("oma tiedosto"); }
        { QFile f(MalliPolku()); QVERIFY(f.open(QIODevice::Append)); f.write("x"); }
        const qint64 mallinKoko = QFileInfo(MalliPolku()).size();
        VarmistaOhjelmakansio();
        QVERIFY(dialogs.shown.isEmpty());
        QFile f(demo);
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), QByteArray("oma tiedosto"));
        QCOMPARE(QFileInfo(MalliPolku()).size(), mallinKoko);
    }

    void programFolderFailureIsToldNotFatal()
    {
        TestEnv env;
        ScriptedDialogs dialogs;
        // The program's folder cannot be made where a plain file stands in its way.
        const QString kansio = files::programFolder();
        QDir().mkpath(QFileInfo(kansio).path());
        { QFile f(kansio); QVERIFY(f.open(QIODevice::WriteOnly)); }
        VarmistaOhjelmakansio();
        QCOMPARE(dialogs.messages().size(), 1);
        QVERIFY(dialogs.messages().first().startsWith(QStringLiteral("Ohjelman kansiota ei voitu luoda")));
        QVERIFY(QFileInfo(kansio).isFile());
    }

    void halfMadeDemoIsNeverLeftBehind()
    {
        TestEnv env;
        ScriptedDialogs dialogs;
        const QString kansio = files::programFolder();
        QDir().mkpath(kansio);
        // A start cut short left its work file: it is thrown away and the demonstration made whole.
        { QFile f(kansio + QStringLiteral("/demo1.mdb.kesken")); QVERIFY(f.open(QIODevice::WriteOnly)); f.write("puolikas"); }
        VarmistaOhjelmakansio();
        QVERIFY(dialogs.shown.isEmpty());
        QCOMPARE(QDir(kansio).entryList(QDir::Files), QStringList{QStringLiteral("demo1.mdb")});
        auto d = Database::open(kansio + QStringLiteral("/demo1.mdb"));
        QCOMPARE(maara(*d, "jr"), 150);
    }

    void demoThatCannotBeMadeIsToldNotFatal()
    {
        TestEnv env;
        ScriptedDialogs dialogs;
        const QString kansio = files::programFolder();
        // Something the program cannot remove stands where the work file would go.
        QDir().mkpath(kansio + QStringLiteral("/demo1.mdb.kesken/sisalla"));
        VarmistaOhjelmakansio();
        QCOMPARE(dialogs.messages().size(), 1);
        QVERIFY(dialogs.messages().first().startsWith(QStringLiteral("Esittelytietokantaa ei voitu luoda:\n")));
        QVERIFY(dialogs.unexpected.isEmpty());
        QVERIFY(!QFileInfo::exists(kansio + QStringLiteral("/demo1.mdb")));
        QVERIFY(QFileInfo::exists(MalliPolku())); // the template does not depend on the demonstration
    }
};

QTEST_GUILESS_MAIN(TestEsittelyseura)
#include "tst_esittelyseura.moc"
