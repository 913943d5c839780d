// Marking the bank file's payments paid: a press of either button marks its rows as one, names the
// rows it could not mark, marks an invoice listed twice once; the larger payments among the wrong
// sums; the overpayment log's lines character by character and a log that cannot be opened; and
// the window on the demonstration club, with a family's membership fee paid through it.
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "esittely/Esittelyseura.h"
#include "malliseura.h"
#include "payments/Viitemaksut.h"
#include "payments/ui/frmMaksut.h"
#include "payments/ui/frmViitemaksut.h"
#include "scripteddialogs.h"
#include "testenv.h"
#include "testiapu.h"
#include "viitetiedostot.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

ViiteTapahtuma Maksu(const QString &viite, qint64 sentit)
{
    ViiteTapahtuma t;
    t.Viitenumero = viite.rightJustified(20, u'0');
    t.Rahamaara = u"%1"_s.arg(sentit, 10, 10, QLatin1Char('0'));
    t.Nimi = u"MAKSAJA"_s;
    return t;
}

} // namespace

class TestViitemaksut : public QObject {
    Q_OBJECT

    std::unique_ptr<TestEnv> env;
    std::unique_ptr<ScriptedDialogs> dlg;
    std::unique_ptr<db::Database> d;
    qint64 jasen = 0;

    qint64 lasku(const QString &viite, qint64 euroa, qint64 jrID = -1, bool jasmak = false)
    {
        d->execute(u"INSERT INTO jmhist (jmhjmID, jmhjmjrID, jmhjmViitenumero, jmhjmHinta, jmhjmMaksettu, jmhjmJasMak)"
                   " VALUES (?, ?, ?, ?, 0, ?)"_s,
                   {700000 + viite.toLongLong() % 100000, jrID < 0 ? jasen : jrID, viite, Currency::fromUnits(euroa).raw(), jasmak});
        return d->lastInsertId();
    }
    int maara(const QString &ehto, const db::Params &p = {}) { return testi::maara(*d, ehto, p); }

private slots:
    void init()
    {
        env = std::make_unique<TestEnv>();
        dlg = std::make_unique<ScriptedDialogs>();
        d = malliseura::kopio(env->path(u"seura.mdb"_s));
        d->execute(u"INSERT INTO jr (jrSukunimi, jrEtunimi, jrJasennumero, jrOsoite, jrPostinumero, jrPostitoimipaikka,"
                   " jrJasenmaksu) VALUES ('Mäkelä', 'Liisa', '17', 'Kuja 1', '00100', 'Helsinki', 0)"_s);
        jasen = d->lastInsertId();
    }
    void cleanup()
    {
        d.reset();
        dlg.reset();
        env.reset();
    }

    // Two rows of one invoice mark it once, even when the first deletes it; a row whose invoice is
    // gone, or that has none, is named and the others are done.
    void merkinta()
    {
        const qint64 a = lasku(u"1232"_s, 25, -1, true), b = lasku(u"1245"_s, 30);
        d->execute(u"DELETE FROM jmhist WHERE jmhID = ?"_s, {b});
        const qint64 c = lasku(u"1258"_s, 40);
        const QList<ViitemaksuRivi> rivit{{u"25.00 - 1232 - A"_s, a}, {u"25.00 - 1232 - A"_s, a},
                                          {u"30.00 - 1245 - B"_s, b}, {u"Viitettä ei löydy: 1.00 - 9 - C"_s, -1},
                                          {u"40.00 - 1258 - D"_s, c}};
        const ViitemaksujenMerkinta m = MerkitseMaksetuiksi(*d, rivit, true);
        QCOMPARE(m.merkitty, 2);
        QCOMPARE(m.merkitsematta, (QStringList{u"30.00 - 1245 - B (laskua ei löydy historiasta)"_s,
                                              u"Viitettä ei löydy: 1.00 - 9 - C (laskua ei löydy historiasta)"_s}));
        QCOMPARE(maara(u"jmhist"_s), 0);
        QCOMPARE(maara(u"jr WHERE jrJasenmaksu = 1"_s), 1);
        QVERIFY(MerkitsemattomatViesti(m).startsWith(u"Näitä maksuja ei merkitty maksetuiksi:\n30.00 - 1245 - B"_s));
        QCOMPARE(MerkitsemattomatViesti({}), QString());
    }

    // An invoice the database refuses to mark is named with the reason and left as it was, its
    // member's fee too; the others are marked.
    void kieltaytyvaRivi()
    {
        const qint64 a = lasku(u"1232"_s, 25, -1, true), b = lasku(u"1245"_s, 30);
        d->execute(u"CREATE TRIGGER kielto BEFORE UPDATE OF jmhjmMaksettu ON jmhist WHEN NEW.jmhID = %1"
                   " BEGIN SELECT RAISE(ABORT, 'levy täynnä'); END"_s.arg(a));
        const ViitemaksujenMerkinta m = MerkitseMaksetuiksi(*d, {{u"25.00 - 1232 - A"_s, a}, {u"30.00 - 1245 - B"_s, b}}, false);
        QCOMPARE(m.merkitty, 1);
        QCOMPARE(m.merkitsematta.size(), 1);
        QVERIFY2(m.merkitsematta[0].startsWith(u"25.00 - 1232 - A ("_s) && m.merkitsematta[0].contains(u"levy täynnä"_s),
                 qPrintable(m.merkitsematta[0]));
        QCOMPARE(maara(u"jmhist WHERE jmhjmMaksettu = 1"_s), 1);
        QCOMPARE(maara(u"jr WHERE jrJasenmaksu = 1"_s), 0);
    }

    // The overpayment log: one line per larger payment, the amounts in the Finnish form; a member
    // gone has its note; smaller and equal payments give none; only the given batch is read.
    void lokirivit()
    {
        const qint64 a = lasku(u"1232"_s, 20), b = lasku(u"1245"_s, 30, 999), c = lasku(u"1258"_s, 40);
        ViiteEra era;
        era.Tapahtumat = {Maksu(u"1232"_s, 2550), Maksu(u"1232"_s, 2000), Maksu(u"1232"_s, 2001), Maksu(u"1245"_s, 3100),
                          Maksu(u"1258"_s, 3999)};
        const QStringList odotettu{u"1232;20;25,5;17;Mäkelä;Liisa;Kuja 1;00100;Helsinki"_s,
                                   u"1232;20;20,01;17;Mäkelä;Liisa;Kuja 1;00100;Helsinki"_s,
                                   u"1245;30;31;Jäsentietoa ei löydy"_s};
        const QList<ViitemaksuRivi> rivit{{u"a"_s, a}, {u"b"_s, b}, {u"c"_s, c}};
        QCOMPARE(YlisuoritusRivit(*d, era, rivit), odotettu);
        QCOMPARE(SuuremmatSuoritukset(*d, era, rivit), (QList<bool>{true, true, false}));
        QCOMPARE(YlisuoritusRivit(*d, ViiteEra(), rivit), QStringList());
    }

    void loki_data()
    {
        QTest::addColumn<QString>("polku"); // under the test's folder
        QTest::addColumn<bool>("kylla");    // the answer to going on without the log
        QTest::addColumn<int>("merkitty");
        QTest::addColumn<QString>("viesti"); // the start of the question, empty for none
        QTest::newRow("log written") << u"loki.txt"_s << true << 1 << QString();
        QTest::newRow("no folder, go on") << u"ei/loki.txt"_s << true << 1
                                          << u"Tiedoston '%1/ei/loki.txt' avaamisessa tapahtui virhe: 76 / Polkua ei löydy"_s;
        QTest::newRow("no folder, stop") << u"ei/loki.txt"_s << false << 0
                                         << u"Tiedoston '%1/ei/loki.txt' avaamisessa tapahtui virhe: 76 / Polkua ei löydy"_s;
        QTest::newRow("read-only folder") << u"lukittu/loki.txt"_s << true << 1
                                          << u"Tiedoston '%1/lukittu/loki.txt' avaamisessa tapahtui virhe: 70 / Lupa evätty"_s;
        QTest::newRow("a file for a folder") << u"seura.mdb/loki.txt"_s << false << 0
                                             << u"Tiedoston '%1/seura.mdb/loki.txt' avaamisessa tapahtui virhe: 76"_s;
    }

    // The wrong sums' button with the log: written after the marks, or refused with a question whose
    // No marks nothing.
    void loki()
    {
        QFETCH(QString, polku);
        QFETCH(bool, kylla);
        QFETCH(int, merkitty);
        QFETCH(QString, viesti);
        MainModule::Suoritustiedosto = env->path(polku);
        if (polku.startsWith(u"lukittu/"_s)) {
            const QString kansio = env->path(u"lukittu"_s);
            QVERIFY(QDir().mkpath(kansio));
            QFile::setPermissions(kansio, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
            if (QFileInfo(kansio).isWritable() || QFile(kansio + u"/koe"_s).open(QIODevice::WriteOnly))
                QSKIP("this user writes into a read-only folder (root)");
        }
        const qint64 a = lasku(u"1232"_s, 20);
        ViiteEra era;
        era.Tapahtumat = {Maksu(u"1232"_s, 2550)};
        if (!viesti.isEmpty())
            dlg->answer(kylla ? dlg::Answer::Yes : dlg::Answer::No);
        const auto m = MerkitseYlisuoritukset(*d, era, {{u"Summa: 25.50 - 1232 - A"_s, a}}, false);
        QCOMPARE(m ? m->merkitty : 0, merkitty);
        QCOMPARE(maara(u"jmhist WHERE jmhjmMaksettu = 1"_s), merkitty);
        if (viesti.isEmpty()) {
            QFile f(MainModule::Suoritustiedosto);
            QVERIFY(f.open(QIODevice::ReadOnly));
            QCOMPARE(QString::fromUtf8(f.readAll()), u"1232;20;25,5;17;Mäkelä;Liisa;Kuja 1;00100;Helsinki\n"_s);
            QVERIFY(dlg->allTexts().isEmpty());
        } else {
            QCOMPARE(dlg->allTexts().size(), 1);
            QVERIFY2(dlg->allTexts()[0].startsWith(viesti.arg(env->root())), qPrintable(dlg->allTexts()[0]));
            QVERIFY(dlg->allTexts()[0].endsWith(
                u"\nHaluatko merkitä valitut laskut maksetuksi ilman että ne kirjautuvat tiedostoon?"_s));
        }
        QVERIFY(dlg->unexpected.isEmpty());
    }

    // The window on the demonstration club: a file paying a family's membership invoice and another
    // invoice, one to the cent and one too much; all received chosen and marked paid; the family's
    // fee is paid, the rows leave the list; the larger payment is chosen among the wrong sums.
    void ikkuna()
    {
        d.reset();
        MainModule::DatabasePath = env->path(u"demo1.mdb"_s);
        LuoDemoTietokanta(MainModule::DatabasePath);
        d = db::Database::open(MainModule::DatabasePath);
        LueAsetukset(*d);
        MainModule::SuuretSuorituksetMaksetuksi = true;
        const QString perhe = testi::rivi(*d, u"SELECT jmhjmViitenumero, jmhjmjrID, jmhjmHinta FROM jmhist WHERE jmhjmPerhe = 1"
                                            " AND jmhjmJasMak = 1 AND jmhjmMaksettu = 0 AND jmhjmjrID IN (SELECT jrPMID FROM jrPerhe)"
                                            " ORDER BY jmhID LIMIT 1"_s);
        const QString muu = testi::rivi(*d, u"SELECT jmhjmViitenumero, jmhjmjrID, jmhjmHinta FROM jmhist WHERE jmhjmPerhe = 0"
                                          " AND jmhjmMaksettu = 0 ORDER BY jmhID LIMIT 1"_s);
        QVERIFY2(perhe.count(u'|') == 2 && muu.count(u'|') == 2, "the demonstration club has unpaid invoices");
        const QStringList p = perhe.split(u'|'), m = muu.split(u'|');
        const qint64 maksaja = p[1].toLongLong();
        d->execute(u"UPDATE jr SET jrJasenmaksu = 0"_s);
        const QString tiedosto = testi::tiedosto(
            env->path(u"pankki.ktl"_s),
            viitetiedostot::Ktl({{u"A1"_s, p[0], u"PERHE"_s, p[2].toLongLong() / 100},
                                 {u"A2"_s, m[0], u"MUU"_s, m[2].toLongLong() / 100 + 500}}));

        frmViitemaksut w;
        w.setAttribute(Qt::WA_DeleteOnClose, false);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        dlg->choosePath(tiedosto);
        w.mAvaa_Click();
        QCOMPARE(w.lblTiedosto->text(), tiedosto);
        QCOMPARE(w.lstSaapuneet->count(), 1);
        QCOMPARE(w.lstVirheet->count(), 1);
        testi::paina(w.cValitseKaikki);
        testi::paina(w.cMaksetuksi);
        QCOMPARE(w.lstSaapuneet->count(), 0);
        const int perheessa = maara(u"jr WHERE jrID = ? OR jrID IN (SELECT jrPSubID FROM jrPerhe WHERE jrPMID = ?)"_s,
                                    {maksaja, maksaja});
        QVERIFY(perheessa >= 2);
        QCOMPARE(maara(u"jr WHERE jrJasenmaksu = 1"_s), perheessa);
        QCOMPARE(maara(u"jmhist WHERE jmhjmViitenumero = ? AND jmhjmMaksettu = 1"_s, {p[0]}), 1);

        w.TabStr1->setCurrentIndex(2);
        testi::paina(w.cValitseSuuremmatVirheelliset);
        QVERIFY(w.lstVirheet->item(0)->isSelected());
        testi::paina(w.cMaksetuksiLiikaaMaksetut);
        QCOMPARE(w.lstVirheet->count(), 0);
        QCOMPARE(maara(u"jmhist WHERE jmhjmViitenumero = ? AND jmhjmMaksettu = 1"_s, {m[0]}), 1);

        // Shown again, the rows come back while their invoices are in the history.
        w.NaytaEra(1);
        QCOMPARE(w.lstSaapuneet->count() + w.lstVirheet->count(), 2);
        QVERIFY(dlg->unexpected.isEmpty());
    }

    // Two batches: the second shown by its row, its larger payment chosen and marked paid; the log
    // follows the file's first batch, so a payment that stands only in the second writes no line.
    void kaksiEraa()
    {
        MainModule::DatabasePath = env->path(u"seura.mdb"_s);
        MainModule::SuuretSuorituksetMaksetuksi = true;
        MainModule::Suoritustiedosto = env->path(u"loki.txt"_s);
        lasku(u"1232"_s, 20);
        const qint64 b = lasku(u"1245"_s, 30);
        const QString tiedosto = testi::tiedosto(env->path(u"kaksi.ktl"_s),
                                                 viitetiedostot::Ktl({{u"E1"_s, u"1232"_s, u"EKA"_s, 2550}})
                                                     + viitetiedostot::Ktl({{u"T1"_s, u"1245"_s, u"TOKA"_s, 3100}}));
        frmViitemaksut w;
        w.setAttribute(Qt::WA_DeleteOnClose, false);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        dlg->choosePath(tiedosto);
        w.mAvaa_Click();
        QVERIFY(w.cmbErat->isEnabled());
        QCOMPARE(w.cmbErat->count(), 2);
        QCOMPARE(testi::rivit(w.lstVirheet), QStringList{u"Summa: 25.50 - 1232 - "_s + u"EKA"_s.leftJustified(12)});
        w.NaytaEra(2);
        QCOMPARE(w.cmbErat->currentIndex(), 1);
        QCOMPARE(testi::rivit(w.lstVirheet), QStringList{u"Summa: 31.00 - 1245 - "_s + u"TOKA"_s.leftJustified(12)});
        w.TabStr1->setCurrentIndex(2);
        testi::paina(w.cValitseSuuremmatVirheelliset);
        testi::paina(w.cMaksetuksiLiikaaMaksetut);
        QCOMPARE(maara(u"jmhist WHERE jmhjmMaksettu = 1"_s), 1);
        QCOMPARE(maara(u"jmhist WHERE jmhID = ? AND jmhjmMaksettu = 1"_s, {b}), 1);
        QFile loki(MainModule::Suoritustiedosto);
        QVERIFY(!loki.open(QIODevice::ReadOnly) || loki.readAll().isEmpty());
        QVERIFY(dlg->unexpected.isEmpty());
    }

    // The payment book's menu opens the window once: a second choice brings the same one forward.
    void valikosta()
    {
        MainModule::DatabasePath = env->path(u"seura.mdb"_s);
        frmMaksut kirja;
        kirja.setAttribute(Qt::WA_DeleteOnClose, false);
        auto *valikko = kirja.findChild<QAction *>(u"mLueViitemaksut"_s);
        QVERIFY(valikko && valikko->isEnabled());
        valikko->trigger();
        valikko->trigger();
        QList<frmViitemaksut *> auki;
        for (QWidget *w : QApplication::topLevelWidgets())
            if (auto *v = qobject_cast<frmViitemaksut *>(w); v && v->isVisible())
                auki << v;
        QCOMPARE(auki.size(), 1);
        QCOMPARE(auki[0]->windowTitle(), u"Vonari - Viitemaksut"_s);
        auki[0]->close();
        QVERIFY(dlg->allTexts().isEmpty());
    }

    // A file that is no payment file, and one with no payments, tell so and leave the lists empty.
    void huonoTiedosto()
    {
        MainModule::DatabasePath = env->path(u"seura.mdb"_s);
        frmViitemaksut w;
        w.setAttribute(Qt::WA_DeleteOnClose, false);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        dlg->choosePath(testi::tiedosto(env->path(u"roska.txt"_s), "ei viitemaksuja\n"));
        w.mAvaa_Click();
        QCOMPARE(dlg->messages().size(), 1);
        QVERIFY(dlg->messages()[0].startsWith(u"Avauksessa tapahtui virhe: "_s));
        QCOMPARE(w.lstSaapuneet->count() + w.lstTarkistettavat->count() + w.lstVirheet->count(), 0);
        testi::paina(w.cMaksetuksi); // nothing chosen: nothing happens
        QCOMPARE(dlg->messages().size(), 1);
    }
};

QTEST_MAIN(TestViitemaksut)
#include "tst_viitemaksut.moc"
