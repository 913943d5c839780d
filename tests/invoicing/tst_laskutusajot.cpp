// The family, attribute and sales-type runs on a small club: who is invoiced, the amounts and
// rows each run works out, and what each leaves out of the plain run's checks.
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "invoicing/Ominaisuuslaskuajo.h"
#include "invoicing/Perhelaskuajo.h"
#include "laskuseura.h"
#include "scripteddialogs.h"
#include "testenv.h"

#include <QtTest>

using namespace laskuseura;

namespace {

QStringList rivit(db::Database &db, const QString &sql, const db::Params &p = {})
{
    QStringList tulos;
    db::Statement st(db, sql, p);
    while (st.next()) {
        QStringList r;
        for (int i = 0; i < st.columnCount(); ++i)
            r << (st.value(i).isValid() ? st.value(i).toString() : QStringLiteral("Null"));
        tulos << r.join(QLatin1Char('|'));
    }
    return tulos;
}

template <class L>
void otsake(L &l)
{
    const MaksujenLuontiLomake p = lomake();
    static_cast<LaskunYlatiedot &>(l) = p;
    l.saajat = p.saajat;
}

} // namespace

class TestLaskutusajot : public QObject {
    Q_OBJECT

    std::unique_ptr<TestEnv> m_env;
    std::unique_ptr<ScriptedDialogs> m_dlg;
    std::unique_ptr<db::Database> m_db;
    qint64 aalto = 0, bergman = 0, cederlof = 0, ahonen = 0, berg = 0, piKortti = 0;

    QStringList laskut()
    {
        return rivits(QStringLiteral("SELECT jrSukunimi, jmLaskunumero, jmHinta, jmPerhe, jmOmin FROM jm JOIN jr ON jrID = jmjrID"
                                     " ORDER BY jmLaskunumero"));
    }
    QStringList rivits(const QString &sql, const db::Params &p = {}) { return rivit(*m_db, sql, p); }
    QStringList laskunRivit(qint64 jrID)
    {
        return rivits(QStringLiteral("SELECT jmRTeksti, jmRHinta FROM jmRivi JOIN jm ON jmID = jmRjmID WHERE jmjrID = ? ORDER BY jmRID"),
                      {jrID});
    }

private slots:
    void init()
    {
        m_env = std::make_unique<TestEnv>();
        m_dlg = std::make_unique<ScriptedDialogs>();
        m_db = malliseura::kopio(m_env->path(QStringLiteral("seura.mdb")));
        MainModule::DatabasePath = m_db->path();
        aalto = jasen(*m_db, QStringLiteral("Aalto"), QStringLiteral("Aino"));
        bergman = jasen(*m_db, QStringLiteral("Bergman"), QStringLiteral("Bo"));
        cederlof = jasen(*m_db, QStringLiteral("Cederlöf"), QStringLiteral("Carita"));
        ahonen = jasen(*m_db, QStringLiteral("Ähönen"), QStringLiteral("Äke"));
        berg = jasen(*m_db, QStringLiteral("Berg"), QStringLiteral("Bea"));
        // Bergman pays for Aalto (adult) and Cederlöf (child and first sibling) and for a child
        // whose member row was deleted; Ähönen pays for nobody.
        m_db->execute(QStringLiteral("UPDATE jr SET jrPerheenLaskutettava = 1 WHERE jrID IN (?, ?)"), {bergman, ahonen});
        m_db->execute(QStringLiteral("INSERT INTO jrPerhe (jrPMID, jrPSubID, jrPAik) VALUES (?, ?, 1)"), {bergman, aalto});
        m_db->execute(QStringLiteral("INSERT INTO jrPerhe (jrPMID, jrPSubID, jrPLapsi, jrPSis1) VALUES (?, ?, 1, 1)"), {bergman, cederlof});
        m_db->execute(QStringLiteral("INSERT INTO jrPerhe (jrPMID, jrPSubID, jrPLapsi) VALUES (?, 999, 1)"), {bergman});
        piKortti = ominaisuus(*m_db, QStringLiteral("Kausikortti"));
        m_db->execute(QStringLiteral("INSERT INTO pt (ptjrID, ptpiID, ptValLong, ptValCurrency) VALUES (?, ?, 3, NULL), (?, ?, 2, NULL),"
                                     " (?, ?, 1, NULL), (?, ?, NULL, 125000)"),
                      {aalto, piKortti, cederlof, piKortti, cederlof, piKortti, bergman, piKortti});
        MainModule::Laskunro = 100;
    }
    void cleanup()
    {
        QVERIFY2(m_dlg->unexpected.isEmpty(), qPrintable(m_dlg->unexpected.join(u'\n')));
        m_db.reset();
        m_dlg.reset();
        m_env.reset();
    }

    // Counts by class, one price per family, names, zero rows and the fee for the whole family.
    void perhelaskut()
    {
        PerheLomake l;
        otsake(l);
        l.luokat[0] = {true, QStringLiteral("20"), QStringLiteral("Aikuinen"), true, false};
        l.luokat[2] = {true, QStringLiteral("10"), QStringLiteral("Lapsi"), false, false};
        l.luokat[3] = {true, QStringLiteral("5"), QStringLiteral("Sisarus 1"), true, true};
        l.luokat[4] = {true, QStringLiteral("7"), QStringLiteral("Sisarus 2"), false, false};
        l.luokat[8] = {true, QStringLiteral("30"), QStringLiteral("Perhe"), true, false};
        l.lisarivit[0] = {true, QStringLiteral("Lehti"), QStringLiteral("3,5")};
        l.chkJasenmaksu = true;
        const Laskutustulos t = LisaaPerhelaskut(Ajo(*m_db), l, false);
        QCOMPARE(t.viesti, QStringLiteral("Lisätty 2 laskua."));
        QCOMPARE(laskut(), (QStringList{"Bergman|100|785000|1|0", "Ähönen|101|335000|1|0"}));
        QCOMPARE(laskunRivit(bergman), (QStringList{"Perhe : Aalto Aino, Cederlöf Carita|300000", "Aikuinen : Aalto Aino|200000",
                                                    "Lapsi|200000", "Sisarus 1 : Cederlöf Carita|50000", "Lehti|35000"}));
        QCOMPARE(laskunRivit(ahonen), (QStringList{"Perhe : |300000", "Sisarus 1 : |0", "Lehti|35000"}));
        QCOMPARE(rivits(QStringLiteral("SELECT jrSukunimi FROM jr WHERE jrJasenmaksu = 0 ORDER BY jrID")),
                 (QStringList{"Aalto", "Bergman", "Cederlöf", "Ähönen"}));
        QCOMPARE(MainModule::Laskunro, 102L);
    }

    void perhelaskutKenelle_data()
    {
        QTest::addColumn<bool>("muille");
        QTest::addColumn<QStringList>("odotetut");
        QTest::newRow("holder twice, once") << false << QStringList{"Bergman|100|300000|1|0"};
        QTest::newRow("payers without it") << true << QStringList{"Ähönen|100|300000|1|0"};
    }

    void perhelaskutKenelle()
    {
        QFETCH(bool, muille);
        QFETCH(QStringList, odotetut);
        const qint64 piJasen = ominaisuus(*m_db, QStringLiteral("Jäsen"));
        liita(*m_db, bergman, piJasen);
        liita(*m_db, bergman, piJasen);
        liita(*m_db, aalto, piJasen);
        PerheLomake l;
        otsake(l);
        l.luokat[8] = {true, QStringLiteral("30"), QStringLiteral("Perhe"), false, false};
        l.saajat.tunniste = -piJasen;
        l.saajat.chkMuille = muille;
        LisaaPerhelaskut(Ajo(*m_db), l, false);
        QCOMPARE(laskut(), odotetut);
    }

    void perhelaskujenTarkistukset()
    {
        PerheLomake l;
        otsake(l);
        l.luokat[5] = {true, QStringLiteral("abc"), QStringLiteral("Sisarus 3"), false, false};
        QCOMPARE(LisaaPerhelaskut(Ajo(*m_db), l, false).virhe->viesti, QStringLiteral("Laskurivin summan pitää olla lukuarvo."));
        l.luokat[5].chkPerheLuokka = false;
        l.lisarivit[1] = {true, QStringLiteral("Lisä"), QString()};
        QCOMPARE(LisaaPerhelaskut(Ajo(*m_db), l, false).virhe->viesti, QStringLiteral("Lisärivillä: #2 pitää olla hinta."));
        // No row at all is no refusal: each payer gets an invoice of zero.
        l.lisarivit[1].chkRivi = false;
        QCOMPARE(LisaaPerhelaskut(Ajo(*m_db), l, false).lisatty, 2L);
        QCOMPARE(maara(*m_db, QStringLiteral("jmRivi")), 0);
    }

    // Quantity × price and price × quantity from the attribute's values, formed in double and then
    // made money; the minimum; the tokens; every value counting in the total, rows from the first.
    void ominaisuuslaskut()
    {
        OminaisuusAjo l;
        otsake(l);
        l.rivit[0] = {piKortti, true, false, false, QStringLiteral("0,33333"), QString(), QString(), QStringLiteral("Kortit <OM.LKM:0> kpl")};
        l.rivit[1] = {piKortti, false, true, false, QString(), QStringLiteral("2"), QStringLiteral("10"), QStringLiteral("Arvo <OM.ARVO:0>")};
        const Laskutustulos t = LisaaOminaisuuslaskut(Ajo(*m_db), l, false);
        QCOMPARE(t.viesti, QStringLiteral("Lisätty 3 laskua."));
        QCOMPARE(laskut(), (QStringList{"Aalto|100|110000|0|1", "Bergman|101|250000|0|1", "Cederlöf|102|210000|0|1"}));
        QCOMPARE(laskunRivit(aalto), (QStringList{"Kortit 3 kpl|10000", "Arvo |100000"}));
        QCOMPARE(laskunRivit(bergman), (QStringList{"Arvo 12,5|250000"}));
        QCOMPARE(laskunRivit(cederlof), (QStringList{"Kortit 2 kpl|6667", "Arvo |100000"}));
        QCOMPARE(MainModule::Laskunro, 103L);

        // Zero invoices asked for: those without values get one, with no rows.
        m_db->execute(QStringLiteral("DELETE FROM jm"));
        l.chkTulostaNollat = true;
        l.rivit[1].tMinimi.clear();
        LisaaOminaisuuslaskut(Ajo(*m_db), l, false);
        QCOMPARE(maara(*m_db, QStringLiteral("jm")), 5);
        QCOMPARE(laskunRivit(berg), QStringList{});
    }

    void ominaisuusrivinSumma_data()
    {
        QTest::addColumn<bool>("lkm");
        QTest::addColumn<bool>("hinta");
        QTest::addColumn<QString>("aHinta");
        QTest::addColumn<QString>("kpl");
        QTest::addColumn<QString>("minimi");
        QTest::addColumn<qint64>("summa"); // ten-thousandths; the member has 3 pieces and a value of 2,5
        QTest::newRow("both products add") << true << true << "4" << "2" << "" << qint64(170000);
        QTest::newRow("double, then money") << true << false << "0,33333" << "" << "" << qint64(10000);
        QTest::newRow("half-way to even") << true << false << "0,00005" << "" << "" << qint64(2);
        QTest::newRow("minimum over zero") << false << false << "" << "" << "10" << qint64(100000);
        QTest::newRow("empty price adds nothing") << true << false << "" << "" << "" << qint64(0);
        QTest::newRow("minimum below the amount") << true << false << "4" << "" << "5" << qint64(120000);
    }

    void ominaisuusrivinSumma()
    {
        QFETCH(bool, lkm);
        QFETCH(bool, hinta);
        QFETCH(QString, aHinta);
        QFETCH(QString, kpl);
        QFETCH(QString, minimi);
        QFETCH(qint64, summa);
        const OminaisuusLaskurivi r{piKortti, lkm, hinta, false, aHinta, kpl, minimi, QString()};
        QCOMPARE(OminaisuusrivinSumma(r, qlonglong(3), qlonglong(25000)).raw(), summa);
    }

    void ominaisuuslaskujenTarkistukset_data()
    {
        QTest::addColumn<int>("kentta");
        QTest::addColumn<QString>("viesti");
        QTest::newRow("unit price") << 0 << "á hinnan pitää olla lukuarvo.";
        QTest::newRow("quantity") << 1 << "Lukumäärän pitää olla lukuarvo.";
        QTest::newRow("minimum") << 2 << "Minimin pitää olla lukuarvo.";
    }

    void ominaisuuslaskujenTarkistukset()
    {
        QFETCH(int, kentta);
        QFETCH(QString, viesti);
        OminaisuusAjo l;
        otsake(l);
        l.rivit[2] = {piKortti, true, true, false, QStringLiteral("1"), QStringLiteral("1"), QString(), QStringLiteral("x")};
        (kentta == 0 ? l.rivit[2].tAHinta : kentta == 1 ? l.rivit[2].tLkm : l.rivit[2].tMinimi) = QStringLiteral("abc");
        QCOMPARE(LisaaOminaisuuslaskut(Ajo(*m_db), l, false).virhe->viesti, viesti);
        // A row without an attribute is not checked.
        l.rivit[2].cmbOminaisuus = 0;
        QVERIFY(!LisaaOminaisuuslaskut(Ajo(*m_db), l, false).virhe);
    }

    // The sales-type run: each row's sales type, and the checks it leaves out.
    void myyntilajeittain()
    {
        m_db->execute(QStringLiteral("INSERT INTO jmhist (jmhjmID, jmhjmLaskunumero) VALUES (1, 100)"));
        ProMaksujenLuontiLomake l;
        static_cast<MaksujenLuontiLomake &>(l) = lomake();
        l.rivit[1] = {true, QStringLiteral("Myynti"), QStringLiteral("5")};
        l.cmbMyyntiLaji = {7, 9, 0, 0};
        l.saajat.tunniste = aalto;
        l.saajat.teksti = QStringLiteral("typed over");
        const Laskutustulos t = LisaaMyyntilajeittain(Ajo(*m_db), l);
        QCOMPARE(t.viesti, QStringLiteral("Lisätty 1 lasku."));
        QCOMPARE(rivits(QStringLiteral("SELECT jmRTeksti, jmRmlID FROM jmRivi ORDER BY jmRID")), (QStringList{"Vuosimaksu|7", "Myynti|9"}));
    }
};

QTEST_GUILESS_MAIN(TestLaskutusajot)
#include "tst_laskutusajot.moc"
