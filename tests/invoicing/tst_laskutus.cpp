// The plain invoice run, the move to history and the delete, through the logic on a small club,
// checking the database after each.
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "invoicing/Jasenmaksuajo.h"
#include "invoicing/Laskuera.h"
#include "invoicing/Laskujentulostus.h"
#include "invoicing/Laskukopiot.h"
#include "invoicing/Laskurivit.h"
#include "invoicing/Laskut.h"
#include "invoicing/Laskutettavat.h"
#include "laskuseura.h"
#include "scripteddialogs.h"
#include "seurat.h"
#include "tulostuskirjaus.h"
#include "testenv.h"

#include <QtTest>

using namespace laskuseura;

namespace {

// Stops the run after `jalkeen` steps, as the window's "Keskeytä" does.
struct Pysayta : Edistyminen {
    qint64 jalkeen;
    qint64 nahty = 0;
    explicit Pysayta(qint64 j) : jalkeen(j) {}
    void vaihe(qint64 tehty, qint64) override { nahty = tehty; }
    bool keskeytetaanko() override { return nahty >= jalkeen; }
};

QStringList kentat(db::Database &db, const QString &sql)
{
    QStringList tulos;
    db::Statement st(db, sql);
    while (st.next()) {
        QStringList rivi;
        for (int i = 0; i < st.columnCount(); ++i)
            rivi << (st.value(i).isValid() ? st.value(i).toString() : QStringLiteral("Null"));
        tulos << rivi.join(QLatin1Char('|'));
    }
    return tulos;
}

} // namespace

class TestLaskutus : public QObject {
    Q_OBJECT

    std::unique_ptr<TestEnv> m_env;
    std::unique_ptr<ScriptedDialogs> m_dlg;
    std::unique_ptr<db::Database> m_db;
    qint64 aalto = 0, bergman = 0, cederlof = 0, ahonen = 0, jasenmaksuton = 0, piKuoro = 0;

    void valmista()
    {
        m_env = std::make_unique<TestEnv>();
        m_dlg = std::make_unique<ScriptedDialogs>();
        m_db = malliseura::kopio(m_env->path(QStringLiteral("seura.mdb")));
        MainModule::DatabasePath = m_db->path();
        // Inserted out of name order: the run goes by surname and first name, Finnish rules.
        cederlof = jasen(*m_db, QStringLiteral("Cederlöf"), QStringLiteral("Carita"), QStringLiteral("12345672"));
        aalto = jasen(*m_db, QStringLiteral("Aalto"), QStringLiteral("Aino"));
        bergman = jasen(*m_db, QStringLiteral("Bergman"), QStringLiteral("Bo"), QStringLiteral(""));
        ahonen = jasen(*m_db, QStringLiteral("Ähönen"), QStringLiteral("Äke"));
        jasenmaksuton = jasen(*m_db, QStringLiteral("Berg"), QStringLiteral("Bea"), {}, false);
        piKuoro = ominaisuus(*m_db, QStringLiteral("Kuoro"));
        liita(*m_db, aalto, piKuoro);
        liita(*m_db, cederlof, piKuoro);
        perhe(*m_db, bergman, aalto); // Bergman pays for Aalto
        KantaStore(*m_db).writeString(QStringLiteral("Laskunro"), QStringLiteral("100"));
        MainModule::Laskunro = 100;
    }

    Laskutustulos aja(const MaksujenLuontiLomake &l, Edistyminen *e = nullptr, bool jasenikkuna = false)
    {
        Ajo ajo(*m_db, e);
        return LisaaJasenmaksut(ajo, l, jasenikkuna);
    }

private slots:
    void init() { valmista(); }
    void cleanup()
    {
        QVERIFY2(m_dlg->unexpected.isEmpty(), qPrintable(m_dlg->unexpected.join(u'\n')));
        m_db.reset();
        m_dlg.reset();
        m_env.reset();
    }

    // Each check in its turn refuses the run, with its message and field, and nothing is written.
    void ehdotEstavat_data()
    {
        QTest::addColumn<QString>("muutos");
        QTest::addColumn<QString>("viesti");
        QTest::addColumn<QString>("kentta");
        QTest::newRow("member window open") << "jasenikkuna"
            << "Jäsenrekisteri-ikkuna tulee sulkea ennen laskujen lisäystä, lisäys keskeytetty." << "";
        QTest::newRow("open batch") << "avoin" << "Siirrä jo tehdyt laskut ensin historiaan tai poista maksut ennen lisäystä!" << "";
        QTest::newRow("history holds the counter's number")
            << "historia" << "Tietokannasta löytyy jo isompi laskunumero (100) kuin numero jota ollaan lisäämässä (100)\n"
                             "Muuta laskunumero Vonarin asetuksiin ennen laskujen lisäystä, ensimmäinen kelvollinen on 101" << "";
        QTest::newRow("counter 0 on an empty club")
            << "nolla" << "Tietokannasta löytyy jo isompi laskunumero (0) kuin numero jota ollaan lisäämässä (0)\n"
                          "Muuta laskunumero Vonarin asetuksiin ennen laskujen lisäystä, ensimmäinen kelvollinen on 1" << "";
        QTest::newRow("heading of 31") << "otsake" << "Otsaketekstin tulee olla korkeintaan 30 merkkiä pitkä." << "cmbMaksunOtsake";
        QTest::newRow("31.2.2027") << "laskupaiva" << "Laskun päivämäärä on väärin kirjoitettu." << "tLaskunPaiva";
        QTest::newRow("due date abc") << "erapaiva" << "Laskun eräpäivä on väärin kirjoitettu." << "tLaskunErapaiva";
        QTest::newRow("row without text") << "teksti" << "Laskurivillä: #2 pitää olla aiheteksti." << "tRiviTeksti1";
        QTest::newRow("row amount abc") << "hinta" << "Laskurivillä: #2 pitää olla hinta." << "tRiviSumma1";
        QTest::newRow("row amount empty") << "tyhjahinta" << "Laskurivillä: #2 pitää olla hinta." << "tRiviSumma1";
        QTest::newRow("no row") << "eirivia" << "Laskua ei voida tehdä ilman laskurivitietoa." << "";
        QTest::newRow("no selection") << "eivalintaa" << "Tarkista henkilö valinta." << "cmbNimet";
        QTest::newRow("typed over Kaikki") << "kirjoitettu" << "Tarkista henkilö valinta, tee valinta listalta uudestaan." << "cmbNimet";
        QTest::newRow("total typed over") << "summa" << "Syötetyn summan muoto ei ole kelvollinen." << "tSumma";
    }

    void ehdotEstavat()
    {
        QFETCH(QString, muutos);
        QFETCH(QString, viesti);
        QFETCH(QString, kentta);
        MaksujenLuontiLomake l = lomake();
        l.rivit[1] = {true, QStringLiteral("Lisämaksu"), QStringLiteral("5")};
        if (muutos == u"avoin") {
            QVERIFY(!aja(l).virhe);
        } else if (muutos == u"historia") {
            m_db->execute(QStringLiteral("INSERT INTO jmhist (jmhjmID, jmhjmLaskunumero) VALUES (1, 100)"));
        } else if (muutos == u"nolla") {
            MainModule::Laskunro = 0;
        }
        if (muutos == u"otsake") l.cmbMaksunOtsake = QString(31, u'x');
        if (muutos == u"laskupaiva") l.tLaskunPaiva = QStringLiteral("31.2.2027");
        if (muutos == u"erapaiva") l.tLaskunErapaiva = QStringLiteral("abc");
        if (muutos == u"teksti") l.rivit[1].tRiviTeksti.clear();
        if (muutos == u"hinta") l.rivit[1].tRiviSumma = QStringLiteral("abc");
        if (muutos == u"tyhjahinta") l.rivit[1].tRiviSumma.clear();
        if (muutos == u"eirivia") l.rivit[0].chkRivi = l.rivit[1].chkRivi = false;
        if (muutos == u"eivalintaa") l.saajat.valittu = false;
        if (muutos == u"kirjoitettu") l.saajat.teksti = QStringLiteral("kaikki");
        if (muutos == u"summa") l.tSumma = QStringLiteral("abc");
        const QString ennen = seurat::Sisalto(*m_db);
        const long laskuri = MainModule::Laskunro;

        const Laskutustulos t = aja(l, nullptr, muutos == u"jasenikkuna");
        QVERIFY(t.virhe);
        QCOMPARE(t.virhe->viesti, viesti);
        QCOMPARE(t.virhe->kentta, kentta);
        QCOMPARE(seurat::Sisalto(*m_db), ennen);
        QCOMPARE(MainModule::Laskunro, laskuri);
    }

    // Who gets an invoice, in name order, for every entry of the name box and the two boxes.
    void kenelle_data()
    {
        QTest::addColumn<int>("kuka"); // 0 everybody, -1 the attribute, 1 one person (Aalto)
        QTest::addColumn<bool>("eiPerheellisille");
        QTest::addColumn<bool>("muille");
        QTest::addColumn<QStringList>("odotetut");
        const QStringList kaikki{"Aalto", "Berg", "Bergman", "Cederlöf", "Ähönen"};
        QTest::newRow("everybody") << 0 << false << false << kaikki;
        QTest::newRow("everybody but families") << 0 << true << false << QStringList{"Berg", "Cederlöf", "Ähönen"};
        QTest::newRow("holders") << -1 << false << false << QStringList{"Aalto", "Cederlöf"};
        QTest::newRow("holders, not families") << -1 << true << false << QStringList{"Cederlöf"};
        QTest::newRow("all but holders") << -1 << false << true << QStringList{"Berg", "Bergman", "Ähönen"};
        QTest::newRow("all but holders and families") << -1 << true << true << QStringList{"Berg", "Ähönen"};
        QTest::newRow("one person ignores the boxes") << 1 << true << true << QStringList{"Aalto"};
    }

    void kenelle()
    {
        QFETCH(int, kuka);
        QFETCH(bool, eiPerheellisille);
        QFETCH(bool, muille);
        QFETCH(QStringList, odotetut);
        MaksujenLuontiLomake l = lomake();
        l.saajat.tunniste = kuka == 0 ? 0 : kuka < 0 ? -piKuoro : aalto;
        l.saajat.teksti = kuka == 0 ? QStringLiteral("Kaikki") : QStringLiteral("x");
        l.saajat.chkEiPerheellisille = eiPerheellisille;
        l.saajat.chkMuille = muille;
        const Laskutustulos t = aja(l);
        QVERIFY(!t.virhe);
        QCOMPARE(kentat(*m_db, QStringLiteral("SELECT jrSukunimi FROM jm JOIN jr ON jrID = jmjrID ORDER BY jmLaskunumero")),
                 odotetut);
        QCOMPARE(t.viesti, odotetut.size() == 1 ? QStringLiteral("Lisätty 1 lasku.")
                                                : QStringLiteral("Lisätty %1 laskua.").arg(odotetut.size()));
    }

    void kenelleEdgeCases()
    {
        // A holder through two rows gets two invoices; a person deleted since gets none.
        liita(*m_db, cederlof, piKuoro);
        MaksujenLuontiLomake l = lomake();
        l.saajat.tunniste = -piKuoro;
        QCOMPARE(aja(l).lisatty, 3L);
        m_db->execute(QStringLiteral("DELETE FROM jm"));
        MainModule::Laskunro = 200;
        l.saajat.tunniste = 9999;
        const Laskutustulos t = aja(l);
        QCOMPARE(t.viesti, QStringLiteral("Ei löydy jäseniä, joille voi tehdä laskun."));
        QCOMPARE(maara(*m_db, QStringLiteral("jm")), 0);
        QCOMPARE(MainModule::Laskunro, 200L);
    }

    // The fields of the invoices and their rows as the run writes them.
    void laskujenKentat()
    {
        MaksujenLuontiLomake l = lomake();
        l.cmbMaksunOtsake = QStringLiteral("Kevät 'n' \"syys\"; 100 % 🎉");
        l.tLisatietoja = QStringLiteral("Muista kevätkokous!");
        l.rivit[1] = {true, QStringLiteral("Lehti"), QStringLiteral("1 234,5")};
        l.rivit[2] = {false, QStringLiteral("Ei mukana"), QStringLiteral("9")};
        l.rivit[3] = {true, QStringLiteral("Ilmainen"), QStringLiteral("0")};
        l.tSumma = QStringLiteral("1 259,50 €");
        l.chkJasenmaksu = true;
        l.chkHenkKohtViite = true;
        l.chkVainValittuTilinumero = true;
        l.cmbTilinumerotValinta = 2;
        l.saajat.tunniste = -piKuoro; // Aalto (no personal reference) and Cederlöf (one)
        const Laskutustulos t = aja(l);
        QCOMPARE(t.viesti, QStringLiteral("Lisätty 2 laskua."));

        QCOMPARE(kentat(*m_db, QStringLiteral(
                                   "SELECT jmLaskunumero, jmViitenumero, jmHinta, jmLaskupaiva, jmErapaiva, jmOtsake, jmTeksti,"
                                   " jmMaksettu, jmEmailed, jmJasMak, jmjrJasenmaksu, jmKaytaPankkitili1, jmPankkitili1,"
                                   " jmmeID > 0 FROM jm ORDER BY jmLaskunumero")),
                 (QStringList{"100|1009|12595000|2027-03-01|2027-03-31|Kevät 'n' \"syys\"; 100 % 🎉|Jäsenmaksu|0|0|1|1|1|FI79 4006 1020 0001 12|1",
                              "101|12345672|12595000|2027-03-01|2027-03-31|Kevät 'n' \"syys\"; 100 % 🎉|Jäsenmaksu|0|0|1|1|1|FI79 4006 1020 0001 12|1"}));
        // Checked rows in order, each with the invoice's payer, message and date.
        QCOMPARE(kentat(*m_db, QStringLiteral("SELECT jmRTeksti, jmRHinta, jmRPaiva, jmRjrID = jmjrID, jmRmeId = jmmeID"
                                              " FROM jmRivi JOIN jm ON jmID = jmRjmID WHERE jmLaskunumero = 100 ORDER BY jmRID")),
                 (QStringList{"Vuosimaksu|250000|2027-03-01|1|1", "Lehti|12345000|2027-03-01|1|1", "Ilmainen|0|2027-03-01|1|1"}));
        // The fee is now unpaid; the counter moved past both and is stored.
        QCOMPARE(kentat(*m_db, QStringLiteral("SELECT jrJasenmaksu FROM jr WHERE jrID IN (%1, %2)").arg(aalto).arg(cederlof)),
                 (QStringList{"0", "0"}));
        QCOMPARE(MainModule::Laskunro, 102L);
        QCOMPARE(KantaStore(*m_db).readString(QStringLiteral("Laskunro")), QStringLiteral("102"));
        QCOMPARE(maara(*m_db, QStringLiteral("me")), 1);

        // The rows as an e-mail invoice takes them; a row without an amount shows none.
        const qint64 jmID = NullLong(m_db->scalar(QStringLiteral("SELECT jmID FROM jm WHERE jmLaskunumero = 100")));
        LisaaLaskurivi(*m_db, aalto, jmID, 0, QDate(2027, 3, 1), std::nullopt, QStringLiteral("Tervehdys"));
        QStringList sahkopostiin;
        for (const cInvoiceRow &r : LaskunRivit(*m_db, jmID))
            sahkopostiin << r.Paiva + u'|' + r.Teksti + u'|' + r.Summa;
        QCOMPARE(sahkopostiin, (QStringList{"1.3.2027|Vuosimaksu|25,00", "1.3.2027|Lehti|1234,50", "1.3.2027|Ilmainen|0,00",
                                            "1.3.2027|Tervehdys|"}));
    }

    void viitteet_data()
    {
        QTest::addColumn<bool>("henkKoht");
        QTest::addColumn<bool>("eiViitetta");
        QTest::addColumn<QStringList>("viitteet"); // Aalto (none), Bergman (empty), Cederlöf (own)
        QTest::newRow("from the number") << false << false << QStringList{"1009", "1012", "1025"};
        QTest::newRow("personal, falling back") << true << false << QStringList{"1009", "1012", "12345672"};
        QTest::newRow("none, numbers still used") << true << true << QStringList{"", "", ""};
    }

    void viitteet()
    {
        QFETCH(bool, henkKoht);
        QFETCH(bool, eiViitetta);
        QFETCH(QStringList, viitteet);
        m_db->execute(QStringLiteral("DELETE FROM jr WHERE jrID IN (?, ?)"), {ahonen, jasenmaksuton});
        MaksujenLuontiLomake l = lomake();
        l.chkHenkKohtViite = henkKoht;
        l.chkEiViitetta = eiViitetta;
        aja(l);
        QCOMPARE(kentat(*m_db, QStringLiteral("SELECT jmViitenumero FROM jm ORDER BY jmLaskunumero")), viitteet);
        QCOMPARE(MainModule::Laskunro, 103L);
    }

    // A stopped run, and one that fails on its last invoice, leave the club as it was.
    void keskeytysPerii()
    {
        const QString ennen = seurat::Sisalto(*m_db);
        Pysayta pysayta(3);
        MaksujenLuontiLomake l = lomake();
        l.chkJasenmaksu = true;
        QVERIFY_THROWS_EXCEPTION(Keskeytetty, aja(l, &pysayta));
        QCOMPARE(seurat::Sisalto(*m_db), ennen);
        QCOMPARE(MainModule::Laskunro, 100L);

        // The counter at the top of the long: the last number cannot be stored.
        MainModule::Laskunro = std::numeric_limits<qint32>::max() - 2;
        QVERIFY_THROWS_EXCEPTION(db::DbError, aja(l));
        QCOMPARE(seurat::Sisalto(*m_db), ennen);
        QCOMPARE(MainModule::Laskunro, long(std::numeric_limits<qint32>::max() - 2));
    }

    // A new invoice's id stays above every id that rows and the history still use.
    void idtHistorianYlapuolella()
    {
        m_db->execute(QStringLiteral("INSERT INTO jmhist (jmhjmID, jmhjmLaskunumero) VALUES (500, 50)"));
        m_db->execute(QStringLiteral("INSERT INTO jmRivi (jmRjmID) VALUES (700)"));
        aja(lomake());
        QCOMPARE(NullLong(m_db->scalar(QStringLiteral("SELECT MIN(jmID) FROM jm"))), 701);
    }

    // The history rows carry the open invoices' fields; the kind flags are the moving window's.
    void siirtoHistoriaan_data()
    {
        QTest::addColumn<int>("ikkuna");
        QTest::addColumn<QString>("liput"); // jmhjmPerhe|jmhjmOmin of the family-made invoice
        QTest::newRow("plain") << int(Laskuikkuna::Perus) << "0|0";
        QTest::newRow("family") << int(Laskuikkuna::Perhe) << "1|0";
        QTest::newRow("attribute") << int(Laskuikkuna::Ominaisuus) << "0|1";
        QTest::newRow("sales type") << int(Laskuikkuna::Myyntilaji) << "0|0";
    }

    void siirtoHistoriaan()
    {
        QFETCH(int, ikkuna);
        QFETCH(QString, liput);
        MaksujenLuontiLomake l = lomake();
        l.chkJasenmaksu = l.chkEiLoppusummaa = l.chkVainValittuTilinumero = true;
        l.cmbTilinumerotValinta = 1;
        l.saajat.tunniste = aalto;
        aja(l);
        m_db->execute(QStringLiteral("UPDATE jm SET jmPerhe = 1, jmEmailed = 1"));
        const QString sarakkeet = QStringLiteral("%1ID, %1jrID, %1Erapaiva, %1Laskupaiva, %1Laskunumero, %1Viitenumero, %1Hinta,"
                                                 " %1Teksti, %1Maksettu, %1meID, %1Otsake, %1Emailed, %1JasMak, %1EiLoppusummaa,"
                                                 " %1Pankkitili1, %1KaytaPankkitili1");
        const QStringList avoimet = kentat(*m_db, QStringLiteral("SELECT ") + sarakkeet.arg(u"jm") + QStringLiteral(" FROM jm"));
        const QStringList rivit = kentat(*m_db, QStringLiteral("SELECT * FROM jmRivi"));

        QCOMPARE(SiirraHistoriaan(Ajo(*m_db), Laskuikkuna(ikkuna)), QStringLiteral("Laskut siirretty historiaan."));
        QCOMPARE(kentat(*m_db, QStringLiteral("SELECT ") + sarakkeet.arg(u"jmhjm") + QStringLiteral(" FROM jmhist")), avoimet);
        QCOMPARE(kentat(*m_db, QStringLiteral("SELECT jmhjmPerhe, jmhjmOmin FROM jmhist")), QStringList{liput});
        QCOMPARE(maara(*m_db, QStringLiteral("jm")), 0);
        QCOMPARE(kentat(*m_db, QStringLiteral("SELECT * FROM jmRivi")), rivit);
        QCOMPARE(MainModule::Laskunro, 101L);
        // Nothing left: the same answer all the same.
        QCOMPARE(SiirraHistoriaan(Ajo(*m_db), Laskuikkuna(ikkuna)), QStringLiteral("Laskut siirretty historiaan."));
    }

    // The delete gives back the paid fee of a fee invoice only, takes the counter back and
    // leaves other invoices' rows and the messages alone.
    void poisto()
    {
        m_db->execute(QStringLiteral("INSERT INTO jmRivi (jmRjmID, jmRTeksti) VALUES (1, 'vanha')"));
        MaksujenLuontiLomake l = lomake();
        l.chkJasenmaksu = true;
        l.tLisatietoja = QStringLiteral("Tervetuloa");
        aja(l);
        m_db->execute(QStringLiteral("UPDATE jm SET jmJasMak = 0 WHERE jmjrID = ?"), {aalto});
        QCOMPARE(MainModule::Laskunro, 105L);

        QCOMPARE(PoistaLisatytLaskut(Ajo(*m_db), Laskuikkuna::Perus, true),
                 QStringLiteral("Jäsenrekisteri-ikkuna tulee sulkea ennen laskujen poistoa, poisto keskeytetty."));
        m_dlg->no();
        QCOMPARE(PoistaLisatytLaskut(Ajo(*m_db), Laskuikkuna::Perus, false), QString());
        QCOMPARE(maara(*m_db, QStringLiteral("jm")), 5);

        m_dlg->yes();
        QCOMPARE(PoistaLisatytLaskut(Ajo(*m_db), Laskuikkuna::Perus, false), QStringLiteral("Kaikki lisätyt laskut poistettu."));
        QCOMPARE(m_dlg->shown.last().text, QStringLiteral("Haluatko varmasti poistaa kaikki lisätyt laskut?"));
        QCOMPARE(maara(*m_db, QStringLiteral("jm")), 0);
        QCOMPARE(kentat(*m_db, QStringLiteral("SELECT jmRTeksti FROM jmRivi")), QStringList{"vanha"});
        QCOMPARE(maara(*m_db, QStringLiteral("me")), 1);
        QCOMPARE(MainModule::Laskunro, 100L);
        QCOMPARE(KantaStore(*m_db).readString(QStringLiteral("Laskunro")), QStringLiteral("100"));
        // Paid before: back to paid, unless the invoice was no fee invoice; unpaid stays unpaid.
        QCOMPARE(kentat(*m_db, QStringLiteral("SELECT jrSukunimi, jrJasenmaksu FROM jr ORDER BY jrSukunimi")),
                 (QStringList{"Aalto|0", "Berg|0", "Bergman|1", "Cederlöf|1", "Ähönen|1"}));
    }

    void poistoMyyntilajiEiPalauta()
    {
        MaksujenLuontiLomake l = lomake();
        l.chkJasenmaksu = true;
        l.saajat.tunniste = aalto;
        aja(l);
        m_dlg->yes();
        QCOMPARE(PoistaLisatytLaskut(Ajo(*m_db), Laskuikkuna::Myyntilaji, true), QStringLiteral("Kaikki lisätyt laskut poistettu."));
        QCOMPARE(NullLong(m_db->scalar(QStringLiteral("SELECT jrJasenmaksu FROM jr WHERE jrID = ?"), {aalto})), 0);
    }

    // Printing the batch: which invoices in what order, the questions and the tray pauses.
    void tulostus_data()
    {
        QTest::addColumn<int>("era");           // TulostusEra
        QTest::addColumn<QString>("jatka");     // the continuing answer; "-" not asked
        QTest::addColumn<bool>("lahetetty");    // Bergman's invoice went by e-mail; the question answered Yes
        QTest::addColumn<QStringList>("tulostetut");
        QTest::addColumn<int>("taukoja");
        QTest::addColumn<bool>("asiakirja");    // to the preview: one document, no pauses
        const QStringList kaikki{"Aalto", "Berg", "Bergman", "Cederlöf", "Ähönen"};
        QTest::newRow("all, no pause") << 0 << "-" << false << kaikki << 0 << false;
        QTest::newRow("pause before every second") << 2 << "-" << false << kaikki << 2 << false;
        QTest::newRow("pause before every one after the first") << 1 << "-" << false << kaikki << 4 << false;
        QTest::newRow("from after 101") << 0 << "101" << false << QStringList{"Bergman", "Cederlöf", "Ähönen"} << 0 << false;
        QTest::newRow("after the last: nothing") << 0 << "104" << false << QStringList{} << 0 << false;
        QTest::newRow("not a number: nothing") << 0 << "x" << false << QStringList{} << 0 << false;
        QTest::newRow("empty: all") << 0 << "" << false << kaikki << 0 << false;
        QTest::newRow("not the e-mailed") << 0 << "-" << true << QStringList{"Aalto", "Berg", "Cederlöf", "Ähönen"} << 0 << false;
        QTest::newRow("document: never a pause") << 1 << "-" << false << kaikki << 0 << true;
        QTest::newRow("document from after 101, not the e-mailed") << 1 << "101" << true << QStringList{"Cederlöf", "Ähönen"} << 0 << true;
        QTest::newRow("document of nothing") << 0 << "104" << false << QStringList{} << 0 << true;
    }

    void tulostus()
    {
        QFETCH(int, era);
        QFETCH(QString, jatka);
        QFETCH(bool, lahetetty);
        QFETCH(QStringList, tulostetut);
        QFETCH(int, taukoja);
        QFETCH(bool, asiakirja);
        Laskujentulostus t;
        Tulostuskysymykset k;
        QStringList tulostettu;
        int asiakirjoja = 0;
        Laskujentulostajat tulosta;
        tulosta.henkilon = [&](const QString &raportti, qint64 jrID) {
            QCOMPARE(raportti, QStringLiteral("jrotile2.rpt"));
            tulostettu << m_db->scalar(QStringLiteral("SELECT jrSukunimi FROM jr WHERE jrID = ?"), {jrID}).toString();
        };
        tulosta.eran = [&](const QString &raportti, const QVector<qint64> &jmIDt) {
            QCOMPARE(raportti, QStringLiteral("jrotile2.rpt"));
            ++asiakirjoja;
            for (qint64 jmID : jmIDt)
                tulostettu << m_db->scalar(QStringLiteral("SELECT jrSukunimi FROM jm JOIN jr ON jrID = jmjrID WHERE jmID = ?"), {jmID}).toString();
        };
        QCOMPARE(TulostaLaskut(Ajo(*m_db), t, k, tulosta), 0);
        QCOMPARE(m_dlg->messages(), QStringList{"Laskuja ei ole vielä lisätty. Klikkaa Lisää painiketta luodaksesi laskut ennen tulostusta."});
        m_dlg->shown.clear();

        aja(lomake());
        MainModule::TulostusEra = era;
        t.jatkaNumerosta = jatka != u"-";
        if (t.jatkaNumerosta)
            m_dlg->type(jatka);
        if (lahetetty) {
            m_db->execute(QStringLiteral("UPDATE jm SET jmEmailed = 1 WHERE jmjrID = ?"), {bergman});
            m_dlg->yes();
        }
        k.laskumalli = [] { return Laskumallivalinta{Laskumalli::Tilisiirto, true}; };
        k.jarjestys = [] { return Tulostusjarjestys::Aakkostettu; };
        k.tulostusasetukset = [asiakirja] { return asiakirja ? Tulostuspaikka::Asiakirja : Tulostuspaikka::Tulostin; };
        QCOMPARE(TulostaLaskut(Ajo(*m_db), t, k, tulosta), tulostetut.size());
        QCOMPARE(tulostettu, tulostetut);
        QCOMPARE(asiakirjoja, asiakirja && !tulostetut.isEmpty() ? 1 : 0);
        QCOMPARE(m_dlg->messages().count(QStringLiteral("Tulostusraja täynnä, klikkaa Ok, kun haluat jatkaa tulostusta.")), taukoja);
        QCOMPARE(m_dlg->pendingReplies(), 0);
    }

    void tulostusYhdelleJaMallit()
    {
        aja(lomake());
        Laskujentulostus t;
        t.henkilo = ahonen;
        Tulostuskysymykset k;
        bool jarjestysKysytty = false, peruttu = true;
        k.jarjestys = [&] { jarjestysKysytty = true; return Tulostusjarjestys::Postinumero; };
        k.tulostusasetukset = [&] { return peruttu ? Tulostuspaikka::Peruttu : Tulostuspaikka::Asiakirja; };
        QList<qint64> tulostettu;
        Laskujentulostajat tulosta;
        tulosta.henkilon = [&](const QString &, qint64 jrID) { tulostettu << jrID; };
        QCOMPARE(TulostaLaskut(Ajo(*m_db), t, k, tulosta), 0);
        peruttu = false;
        QCOMPARE(TulostaLaskut(Ajo(*m_db), t, k, tulosta), 1);
        QCOMPARE(tulostettu, QList<qint64>{ahonen});
        QVERIFY(!jarjestysKysytty);

        QCOMPARE(LaskunRaportti({Laskumalli::Tilisiirto, false}), QStringLiteral("jrotile.rpt"));
        QCOMPARE(LaskunRaportti({Laskumalli::Jasenkortti, false}), QStringLiteral("jromak.rpt"));
        QCOMPARE(LaskunRaportti({Laskumalli::Yleislasku, true}), QStringLiteral("jromak2.rpt"));
        MainModule::LaskupohjaKaytossa = true;
        MainModule::LaskupohjaTiedosto = QStringLiteral("/seura/oma.rpt");
        QCOMPARE(LaskunRaportti({Laskumalli::Tilisiirto, true}), QStringLiteral("/seura/oma.rpt"));
    }

    // Copies of the unpaid invoices of the history: the range as typed (either end empty, or no
    // number at all), the paid ones left out, the message naming the range, the pause to a printer
    // and one document otherwise; the model goes back to the Finnish giro form.
    void laskukopiot_data()
    {
        QTest::addColumn<QString>("alku");
        QTest::addColumn<QString>("loppu");
        QTest::addColumn<bool>("asiakirja");
        QTest::addColumn<QList<int>>("numerot");
        QTest::addColumn<int>("taukoja");
        QTest::newRow("all unpaid, printer") << "" << "" << false << QList<int>{100, 102, 103, 104} << 3;
        QTest::newRow("from 102, document") << "102" << "" << true << QList<int>{102, 103, 104} << 0;
        QTest::newRow("up to 102") << "" << "102" << false << QList<int>{100, 102} << 1;
        QTest::newRow("101 to 103") << "101" << "103" << true << QList<int>{102, 103} << 0;
        QTest::newRow("no number") << "abc" << "" << true << QList<int>{} << 0;
    }
    void laskukopiot()
    {
        QFETCH(QString, alku);
        QFETCH(QString, loppu);
        QFETCH(bool, asiakirja);
        QFETCH(QList<int>, numerot);
        QFETCH(int, taukoja);
        aja(lomake());
        QCOMPARE(SiirraHistoriaan(Ajo(*m_db), Laskuikkuna::Perus), QStringLiteral("Laskut siirretty historiaan."));
        m_db->execute(QStringLiteral("UPDATE jmhist SET jmhjmMaksettu = 1 WHERE jmhjmLaskunumero = 101"));
        MainModule::TulostusEra = 1;
        MuistettuLaskumalli() = {Laskumalli::Yleislasku, true};
        QList<int> tulostetut;
        QString raportti;
        Laskujentulostajat tulosta;
        const auto numero = [&](qint64 jmhID) {
            return int(NullLong(m_db->scalar(QStringLiteral("SELECT jmhjmLaskunumero FROM jmhist WHERE jmhID = ?"), {jmhID})));
        };
        tulosta.henkilon = [&](const QString &r, qint64 jmhID) { raportti = r; tulostetut << numero(jmhID); };
        tulosta.eran = [&](const QString &r, const QVector<qint64> &idt) {
            raportti = r;
            for (qint64 id : idt)
                tulostetut << numero(id);
        };
        Tulostuskysymykset k;
        k.tulostusasetukset = [&] { return asiakirja ? Tulostuspaikka::Asiakirja : Tulostuspaikka::Tulostin; };
        m_dlg->no();
        QCOMPARE(TulostaLaskukopiot(Ajo(*m_db), k, tulosta), 0);
        m_dlg->shown.clear();
        m_dlg->yes();
        m_dlg->type(alku);
        m_dlg->type(loppu);
        QCOMPARE(TulostaLaskukopiot(Ajo(*m_db), k, tulosta), numerot.size());
        QCOMPARE(tulostetut, numerot);
        if (numerot.isEmpty())
            QVERIFY(m_dlg->messages().contains(QStringLiteral("Ei löydy maksamattomia laskuja väliltä: ") + alku + QStringLiteral(" - ") + loppu));
        else
            QCOMPARE(raportti, QStringLiteral("jrphtile.rpt"));
        QCOMPARE(m_dlg->messages().count(QStringLiteral("Tulostusraja täynnä, klikkaa Ok, kun haluat jatkaa tulostusta.")), taukoja);
        QCOMPARE(m_dlg->pendingReplies(), 0);
    }

    // The reprint: nothing fetched is told; the history layout of the chosen model, or the club's own.
    void laskuUudestaan()
    {
        Laskujentulostajat tulosta;
        QStringList ajot;
        tulosta.henkilon = [&](const QString &r, qint64 jmhID) { ajot << r + QLatin1Char(':') + QString::number(jmhID); };
        Tulostuskysymykset k;
        k.laskumalli = [] { return Laskumallivalinta{Laskumalli::Jasenkortti, true}; };
        QCOMPARE(TulostaLaskuUudestaan(Ajo(*m_db), 0, k, tulosta), 0);
        QCOMPARE(m_dlg->messages(), QStringList{"Hae tulostettava lasku viitenumerolla ennen tulostusta"});
        QCOMPARE(TulostaLaskuUudestaan(Ajo(*m_db), 7, k, tulosta), 1);
        k.laskumalli = [] { return std::optional<Laskumallivalinta>(); }; // the model window closed
        QCOMPARE(TulostaLaskuUudestaan(Ajo(*m_db), 7, k, tulosta), 0);
        MainModule::LaskupohjaHKaytossa = true;
        MainModule::LaskupohjaHTiedosto = QStringLiteral("/seura/oma-h.rpt");
        QCOMPARE(TulostaLaskuUudestaan(Ajo(*m_db), 8, k, tulosta), 1);
        MainModule::LaskupohjaHKaytossa = false;
        QCOMPARE(ajot, (QStringList{"jrphmak2.rpt:7", "/seura/oma-h.rpt:8"}));
    }

    // The two lists of the open batch, by invoice number, under their titles.
    void lisattyjenLista()
    {
        MaksujenLuontiLomake l = lomake();
        l.saajat.tunniste = -piKuoro;
        aja(l);
        MainModule::RegName = QStringLiteral("Kuoro 'Laulu' ry");
        Kirjaus kirjaus;
        AsetaTulostuskohde(&kirjaus);
        AjaListaraportti(QStringLiteral("jmulista.rpt"), QStringLiteral("LISÄTYT LASKUT"), QStringLiteral("+{jm.jmLaskunumero}"));
        AjaListaraportti(QStringLiteral("jmuvlist.rpt"), QStringLiteral("LISÄTYT LASKUT VIITELISTA"),
                         QStringLiteral("+{jm.jmLaskunumero}"));
        PalautaTulostustila();
        QCOMPARE(int(kirjaus.esikatsellut.size()), 2);
        const QStringList lista = kirjaus.esikatsellut[0].tekstit(0);
        QVERIFY(lista.contains(QStringLiteral("Kuoro 'Laulu' ry")));
        QVERIFY(lista.contains(QStringLiteral("LISÄTYT LASKUT")));
        QVERIFY(lista.indexOf(QStringLiteral("Aalto Aino")) < lista.indexOf(QStringLiteral("Cederlöf Carita")));
        QVERIFY(lista.contains(QStringLiteral("Laskuja 2, yhteensä 50,00")));
        const QStringList viitteet = kirjaus.esikatsellut[1].tekstit(0);
        QVERIFY(viitteet.contains(QStringLiteral("LISÄTYT LASKUT VIITELISTA")));
        const qsizetype aalto = viitteet.indexOf(QStringLiteral("Aalto Aino"));
        QCOMPARE(viitteet.mid(aalto - 2, 4), (QStringList{"1009", "100", "Aalto Aino", "31.3.2027"}));
    }
};

QTEST_MAIN(TestLaskutus)
#include "tst_laskutus.moc"
