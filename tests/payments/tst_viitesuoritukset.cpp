// Posting the bank's file into the payment ledger: a file posted twice posts nothing the second
// time; the same archive id on two dates is two payments; partial payments close an invoice with the
// date of the one that reached the total; what cannot be posted is named and the rest is posted;
// the message's two lines; and the window, opened from the payment book, on the demonstration club.
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "esittely/Esittelyseura.h"
#include "malliseura.h"
#include "payments/Viitesuoritukset.h"
#include "payments/ui/frmMaksut.h"
#include "payments/ui/frmViitesuoritukset.h"
#include "payments/Eratiedot.h"
#include "scripteddialogs.h"
#include "testenv.h"
#include "testiapu.h"
#include "viitetiedostot.h"

#include <QAction>
#include <QApplication>
#include <QTimer>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

ViiteTapahtuma Maksu(const QString &arkisto, const QString &viite, qint64 sentit, const QString &kirjauspaiva = u"261124"_s)
{
    ViiteTapahtuma t;
    t.Arkistointitunnus = arkisto;
    t.Viitenumero = viite.startsWith(u' ') ? viite : viite.rightJustified(20, u'0'); // blanks as the file has them
    t.Rahamaara = u"%1"_s.arg(sentit, 10, 10, QLatin1Char('0'));
    t.Kirjauspaiva = kirjauspaiva;
    t.Nimi = u"MAKSAJA"_s;
    return t;
}

QList<ViiteEra> Tiedosto(const QList<ViiteTapahtuma> &maksut)
{
    ViiteEra era;
    era.Tapahtumat = maksut;
    return {era};
}

} // namespace

class TestViitesuoritukset : public QObject {
    Q_OBJECT

    std::unique_ptr<TestEnv> env;
    std::unique_ptr<ScriptedDialogs> dlg;
    std::unique_ptr<db::Database> d;

    qint64 lasku(const QString &viite, const QVariant &euroa)
    {
        d->execute(u"INSERT INTO jmhist (jmhjmID, jmhjmjrID, jmhjmViitenumero, jmhjmHinta, jmhjmMaksettu) VALUES (1, 1, ?, ?, 0)"_s,
                   {viite, euroa.isNull() ? QVariant() : QVariant(Currency::fromUnits(euroa.toLongLong()).raw())});
        return d->lastInsertId();
    }
    QString tila(qint64 jmhID)
    {
        return testi::rivi(*d, u"SELECT jmhjmMaksettu, jmhMaksuPaiva FROM jmhist WHERE jmhID = ?"_s, {jmhID});
    }

private slots:
    void init()
    {
        env = std::make_unique<TestEnv>();
        dlg = std::make_unique<ScriptedDialogs>();
        d = malliseura::kopio(env->path(u"seura.mdb"_s));
    }
    void cleanup()
    {
        d.reset();
        dlg.reset();
        env.reset();
    }

    // Twice the same file: the second run posts nothing and says so; an archive id over 20
    // characters is found again as well.
    void kahdesti()
    {
        const qint64 a = lasku(u"1232"_s, 25);
        const QList<ViiteEra> erat = Tiedosto({Maksu(u"ARK1"_s, u"1232"_s, 2500), Maksu(u"ARK2"_s, u"1232"_s, 1000),
                                               Maksu(u"123456789012345678901234"_s, u"1232"_s, 50)});
        ViitesuoritustenKirjaus k = KirjaaSuoritukset(*d, erat);
        QCOMPARE(KirjausViesti(k), u"Kirjattu 3 / 3\n35,50\u00a0€ / 35,50\u00a0€"_s);
        k = KirjaaSuoritukset(*d, erat);
        QCOMPARE(KirjausViesti(k), u"Kirjattu 0 / 3\n0,00\u00a0€ / 35,50\u00a0€"_s);
        QVERIFY(k.ohitetut.isEmpty());
        QCOMPARE(testi::maara(*d, u"Suoritukset WHERE jmhID = ?"_s, {a}), 3);
        QCOMPARE(testi::rivi(*d, u"SELECT Arkistointitunnus FROM Suoritukset ORDER BY Suoritus_ID DESC"_s), u"12345678901234567890"_s);
    }

    void osasuoritukset_data()
    {
        QTest::addColumn<QList<qint64>>("sentit");  // payments in turn, one day apart from 20.11.
        QTest::addColumn<QVariant>("hinta");
        QTest::addColumn<QStringList>("tilat");     // the invoice after each payment, "paid|date"
        const QString auki = u"0|N"_s;
        QTest::newRow("two halves") << QList<qint64>{1250, 1250} << QVariant(25) << QStringList{auki, u"1|2026-11-21"_s};
        QTest::newRow("short by a cent") << QList<qint64>{1250, 1249} << QVariant(25) << QStringList{auki, auki};
        QTest::newRow("overpaid at once") << QList<qint64>{3000} << QVariant(25) << QStringList{u"1|2026-11-20"_s};
        QTest::newRow("paid after closing") << QList<qint64>{2500, 100} << QVariant(25)
                                            << QStringList{u"1|2026-11-20"_s, u"1|2026-11-21"_s};
        QTest::newRow("no total") << QList<qint64>{0} << QVariant() << QStringList{u"1|2026-11-20"_s};
        QTest::newRow("amount 0") << QList<qint64>{0} << QVariant(25) << QStringList{auki};
    }

    // Partial payments add up, each posting its own file; the invoice closes with the date of the
    // payment that reached its total.
    void osasuoritukset()
    {
        QFETCH(QList<qint64>, sentit);
        QFETCH(QVariant, hinta);
        QFETCH(QStringList, tilat);
        const qint64 a = lasku(u"1232"_s, hinta);
        for (int i = 0; i < sentit.size(); ++i) {
            KirjaaSuoritukset(*d, Tiedosto({Maksu(u"A%1"_s.arg(i), u"1232"_s, sentit[i], u"2611%1"_s.arg(20 + i))}));
            QCOMPARE(tila(a), tilat[i]);
        }
    }

    // The same archive id on two dates is two payments; an unknown reference, an all-zero one, an
    // RF reference of 25 characters and a date that is none are named and not posted; leading zeros and blanks do not hide an
    // invoice, and an apostrophe is a reference like any.
    void erikoiset()
    {
        const qint64 a = lasku(u"1232"_s, 100);
        const qint64 b = lasku(u"12'3"_s, 5);
        lasku(QString(), 5);
        const QList<ViiteEra> erat = Tiedosto({Maksu(u"ARK"_s, u"1232"_s, 100, u"261120"_s),
                                               Maksu(u"ARK"_s, u"  001232"_s, 100, u"261121"_s),
                                               Maksu(u"X1"_s, u"12344"_s, 700),
                                               Maksu(u"X2"_s, u"0"_s, 500),
                                               Maksu(u"X3"_s, u"1232"_s, 300, u"261341"_s),
                                               Maksu(u"X4"_s, u"12'3"_s, 500),
                                               Maksu(u"X5"_s, u"RF7112345678901234567890X"_s, 900)});
        const ViitesuoritustenKirjaus k = KirjaaSuoritukset(*d, erat);
        QCOMPARE(k.kirjattu, 3);
        QCOMPARE(k.nahty, 7);
        QCOMPARE(testi::maara(*d, u"Suoritukset WHERE jmhID = ?"_s, {a}), 2);
        QCOMPARE(tila(b), u"1|2026-11-24"_s);
        QCOMPARE(OhitettujenViesti(k), u"Näitä maksuja ei kirjattu:\n"
                                       "7.00 - 12344 - MAKSAJA (viitenumerolla ei löydy laskua)\n"
                                       "5.00 - 0 - MAKSAJA (viitenumerolla ei löydy laskua)\n"
                                       "3.00 - 1232 - MAKSAJA (kirjauspäivä 261341 ei ole päivämäärä)\n"
                                       "9.00 - 0 - MAKSAJA (viitenumerolla ei löydy laskua)"_s);
    }

    // A payment the database refuses is named and leaves nothing; the others are posted.
    void kieltaytyvaRivi()
    {
        const qint64 a = lasku(u"1232"_s, 10), b = lasku(u"1245"_s, 10);
        d->execute(u"CREATE TRIGGER kielto BEFORE INSERT ON Suoritukset WHEN NEW.Arkistointitunnus = 'HUONO'"
                   " BEGIN SELECT RAISE(ABORT, 'levy täynnä'); END"_s);
        const ViitesuoritustenKirjaus k = KirjaaSuoritukset(
            *d, Tiedosto({Maksu(u"HUONO"_s, u"1232"_s, 1000), Maksu(u"HYVA"_s, u"1245"_s, 1000)}));
        QCOMPARE(k.kirjattu, 1);
        QCOMPARE(k.ohitetut.size(), 1);
        QVERIFY2(k.ohitetut[0].startsWith(u"10.00 - 1232 - MAKSAJA ("_s) && k.ohitetut[0].contains(u"levy täynnä"_s),
                 qPrintable(k.ohitetut[0]));
        QCOMPARE(tila(a), u"0|N"_s);
        QCOMPARE(tila(b), u"1|2026-11-24"_s);
        QCOMPARE(testi::maara(*d, u"Suoritukset"_s), 1);
    }

    // A markka batch beside a euro batch: its payments are named and not posted, the euro one is.
    void markkaera()
    {
        const qint64 a = lasku(u"1232"_s, 10);
        QList<ViiteEra> erat = Tiedosto({Maksu(u"M1"_s, u"1232"_s, 5946)}) + Tiedosto({Maksu(u"E1"_s, u"1232"_s, 1000)});
        erat[0].Rahayksikko = u" "_s;
        erat[1].Rahayksikko = u"1"_s;
        const ViitesuoritustenKirjaus k = KirjaaSuoritukset(*d, erat);
        QCOMPARE(KirjausViesti(k), u"Kirjattu 1 / 2\n10,00\u00a0€ / 69,46\u00a0€"_s);
        QCOMPARE(OhitettujenViesti(k), u"Näitä maksuja ei kirjattu:\n59.46 - 1232 - MAKSAJA (erän rahayksikkö on markka)"_s);
        QCOMPARE(tila(a), u"1|2026-11-24"_s);
    }

    // The totals of every batch together, as the window's frame shows them.
    void kaikkienErienSummat()
    {
        ViiteEra a, b;
        a.Summat = {u"000002"_s, u"000000002500"_s, u"000001"_s, u"000000000005"_s, u"000000"_s, u"000000000000"_s};
        b.Summat = {u"000010"_s, u"000000100000"_s, u"000000"_s, u"000000000000"_s, u"000001"_s, u"000000000050"_s};
        QStringList rivit;
        for (const auto &[nimi, arvo] : KaikkienEriensaSummat({a, b}))
            rivit << nimi + u'=' + arvo;
        QCOMPARE(rivit, (QStringList{u"lblSummaTapKPL=12"_s, u"lblSummaTapSUM=1025.00"_s, u"lblSummaOikKPL=1"_s,
                                     u"lblSummaOikSUM=0.05"_s, u"lblSummaEpaKPL=1"_s, u"lblSummaEpaSUM=0.50"_s}));
        QCOMPARE(Rahayksikko(u" "_s), u"Markka"_s);
        QCOMPARE(Rahayksikko(u"1"_s), u"Euro"_s);
    }

    // The window from the payment book's menu on the demonstration club: "Kirjaa" before a file
    // asks for one; the example file posts its known payments, and again posts nothing.
    void ikkuna()
    {
        d.reset();
        MainModule::DatabasePath = env->path(u"demo1.mdb"_s);
        LuoDemoTietokanta(MainModule::DatabasePath);
        d = db::Database::open(MainModule::DatabasePath);
        LueAsetukset(*d);
        const QString tiedosto = QFINDTESTDATA(u"payments/data/esittely.ktl"_s);
        frmMaksut kirja;
        kirja.setAttribute(Qt::WA_DeleteOnClose, false);
        auto *valikko = kirja.findChild<QAction *>(u"mKirjaaViitesuoritukset"_s);
        QVERIFY(valikko && valikko->isEnabled());
        bool tehty = false;
        QTimer::singleShot(0, [&] {
            auto *w = qobject_cast<frmViitesuoritukset *>(QApplication::activeModalWidget());
            QVERIFY(w);
            QCOMPARE(w->windowTitle(), u"Vonari - Viitesuoritukset"_s);
            testi::paina(w->cKirjaaSuoritukset);
            QCOMPARE(dlg->messages().constLast(), u"Avaa ensin suoritustiedosto."_s);
            dlg->choosePath(tiedosto);
            testi::paina(w->cAvaa);
            QCOMPARE(w->lstMaksut->topLevelItemCount(), 8);
            QCOMPARE(w->summa(u"lblSummaTapKPL"_s)->text(), u"8"_s);
            testi::paina(w->cKirjaaSuoritukset);
            QVERIFY2(dlg->messages().constLast().startsWith(u"Kirjattu 7 / 8\n"_s), qPrintable(dlg->messages().constLast()));
            testi::paina(w->cKirjaaSuoritukset);
            QVERIFY(dlg->messages().constLast().startsWith(u"Kirjattu 0 / 8\n"_s));
            w->close();
            tehty = true;
        });
        valikko->trigger();
        QVERIFY(tehty);
        QCOMPARE(testi::maara(*d, u"Suoritukset WHERE Arkistointitunnus LIKE '261124593VON%'"_s), 7);
        QVERIFY(dlg->unexpected.isEmpty());
    }
};

QTEST_MAIN(TestViitesuoritukset)
#include "tst_viitesuoritukset.moc"
