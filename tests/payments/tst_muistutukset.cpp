// Reminders: the penalty interest against figures worked out by hand, the 16-bit day count, the
// reminder stored on the history row (partial and over-payments, a second reminder the same day,
// an invoice without a due date or a hundred years old), and the print run's passes and messages.
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "payments/Muistutukset.h"
#include "email/Sahkopostilaskut.h"
#include "platform/arvot.h"
#include "platform/files.h"
#include "platform/recordingsender.h"
#include "scripteddialogs.h"
#include "seurat.h"
#include "testenv.h"
#include "testiapu.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

class TestMuistutukset : public QObject {
    Q_OBJECT
    std::unique_ptr<TestEnv> env;
    std::unique_ptr<ScriptedDialogs> dlg;
    std::unique_ptr<db::Database> d;
    const QDate tanaan{2026, 11, 25};

    qint64 lasku(int numero, const QString &hinta, const QDate &erapaiva)
    {
        d->execute(u"INSERT INTO jmhist (jmhjmjrID, jmhjmLaskunumero, jmhjmViitenumero, jmhjmHinta, jmhjmErapaiva, jmhjmMaksettu)"
                   " VALUES (5, ?, ?, ?, ?, 0)"_s,
                   {numero, QString::number(numero), Currency::parse(hinta)->raw(), DbPaiva(erapaiva)});
        return d->lastInsertId();
    }
    void maksu(qint64 jmhID, const QString &summa)
    {
        d->execute(u"INSERT INTO Suoritukset (Paiva, jmhID, Summa) VALUES ('2026-10-01', ?, ?)"_s, {jmhID, Currency::parse(summa)->raw()});
    }
    // Open|fee|rate|interest|total|number of the row.
    QString muistutus(qint64 jmhID)
    {
        return testi::rivi(*d, u"SELECT jmhjmAvoinSumma, jmhjmMuistutusKulut, jmhjmMuistutusKorko, jmhjmMuistutusKorkoSumma,"
                               " jmhjmMuistutusYhteensa, jmhjmMuistutusNumero FROM jmhist WHERE jmhID = ?"_s,
                           {jmhID});
    }

private slots:
    void init()
    {
        env = std::make_unique<TestEnv>();
        dlg = std::make_unique<ScriptedDialogs>();
        MainModule::DatabasePath = env->path(u"demo1.mdb"_s);
        d = db::Database::open(seurat::Kopio(150, MainModule::DatabasePath));
        LueAsetukset(*d);
        d->execute(u"UPDATE jmhist SET jmhjmMaksettu = 1"_s); // the club's own history stays out of the ranges
        MainModule::Muistutuskulut = Currency::fromUnits(5);
        MainModule::Viivastyskorko = 7.5;
        MainModule::MuistutusOtsake = u"MAKSUMUISTUTUS"_s;
        MainModule::TulostusEra = 0;
    }
    void cleanup()
    {
        d.reset();
        dlg.reset();
        env.reset();
    }

    // amount × days exact, × rate / 100 / 365 in floating point, to the even ten-thousandth.
    void viivastyskorko_data()
    {
        QTest::addColumn<QString>("avoin");
        QTest::addColumn<int>("paivat");
        QTest::addColumn<double>("korko");
        QTest::addColumn<QString>("odotettu");
        QTest::newRow("100 at 7.5 for 30 days: 225/365") << "100" << 30 << 7.5 << "0.6164";
        QTest::newRow("33.33 at 8 for 10 days: 26.664/365 = 0.073052") << "33,33" << 10 << 8.0 << "0.0731";
        QTest::newRow("no days") << "100" << 0 << 7.5 << "0";
        QTest::newRow("before the due date") << "100" << -10 << 7.5 << "-0.2055";
        QTest::newRow("rate 0") << "100" << 30 << 0.0 << "0";
        QTest::newRow("a tie goes down to even: 1.825/36500") << "0,365" << 1 << 5.0 << "0";
        QTest::newRow("a tie goes up to even: 5.475/36500") << "1,095" << 1 << 5.0 << "0.0002";
        QTest::newRow("the longest count") << "1000" << 32767 << 20.0 << "17954.5205";
    }
    void viivastyskorko()
    {
        QFETCH(QString, avoin);
        QFETCH(int, paivat);
        QFETCH(double, korko);
        QFETCH(QString, odotettu);
        QCOMPARE(Viivastyskorko(*Currency::parse(avoin), qint16(paivat), korko).raw(), qRound64(odotettu.toDouble() * 10000));
    }

    // The settings as a user typed them: a decimal comma reads, text reads as 0.
    void asetukset()
    {
        KantaStore k(*d);
        k.writeString(u"Viivastyskorko"_s, u"7,5"_s);
        k.writeString(u"Muistutuskulut"_s, u"abc"_s);
        LueAsetukset(*d);
        QCOMPARE(MainModule::Viivastyskorko, 7.5);
        QCOMPARE(MainModule::Muistutuskulut.raw(), 0);
        k.writeString(u"Viivastyskorko"_s, u"abc"_s);
        k.writeString(u"Muistutuskulut"_s, u"5,50"_s);
        LueAsetukset(*d);
        QCOMPARE(MainModule::Viivastyskorko, 0.0);
        QCOMPARE(MainModule::Muistutuskulut.raw(), 55000);
    }

    void paivat()
    {
        const QDate t(2026, 11, 25);
        QCOMPARE(Muistutuspaivat(t.addDays(-32767), t), std::optional<qint16>(32767));
        QCOMPARE(Muistutuspaivat(t.addDays(32768), t), std::optional<qint16>(-32768));
        QVERIFY(!Muistutuspaivat(t.addDays(-32768), t));
        QVERIFY(!Muistutuspaivat(QDate(), t));
    }

    // Stored on the row: the open amount from the ledger (negative when overpaid), the settings'
    // fee and rate, the number growing by one each time with the same figures the same day.
    void laskeMuistutus()
    {
        const qint64 osittain = lasku(90001, u"100"_s, tanaan.addDays(-30));
        maksu(osittain, u"20"_s);
        maksu(osittain, u"30"_s);
        const qint64 yli = lasku(90002, u"50"_s, tanaan.addDays(-30));
        maksu(yli, u"60"_s);
        Ajo ajo(*d);
        ajo.tanaan = tanaan;
        for (qint64 id : {osittain, yli})
            QCOMPARE(LaskeMuistutus(ajo, id), QString());
        // 50 × 30 × 7.5 / 100 / 365 = 0.3082; -10 × 30 × 7.5 / 36500 = -0.0616
        QCOMPARE(muistutus(osittain), u"500000|50000|7.5|3082|553082|1"_s);
        QCOMPARE(muistutus(yli), u"-100000|50000|7.5|-616|-50616|1"_s);
        QCOMPARE(LaskeMuistutus(ajo, osittain), QString());
        QCOMPARE(muistutus(osittain), u"500000|50000|7.5|3082|553082|2"_s);
        QCOMPARE(testi::rivi(*d, u"SELECT jmhjmMuistutusOtsake, jmhjmMuistutusPaiva FROM jmhist WHERE jmhID = ?"_s, {osittain}),
                 u"MAKSUMUISTUTUS|2026-11-25"_s);
        QCOMPARE(LaskeMuistutus(ajo, 999999), QString());
    }

    // The e-mail reminder: nothing fetched, a member who takes no e-mail invoices, then sent with
    // the invoice's own figures and nothing stored; an address the server refuses says why.
    void sahkopostimuistutus()
    {
        files::ensureFolder(files::programFolder());
        QVERIFY(VarmistaSahkopohjat(files::programFolder()));
        mail::RecordingInstall posti;
        const qint64 id = lasku(90030, u"42,50"_s, tanaan.addDays(-20));
        d->execute(u"UPDATE jmhist SET jmhjmOtsake = 'Jäsenmaksu 2026' WHERE jmhID = ?"_s, {id});
        d->execute(u"UPDATE jr SET jrEmailLasku = 0, jrEmail = 'maija@example.fi' WHERE jrID = 5"_s);
        QCOMPARE(LahetaMuistutus(*d, 0), u"Hae tulostettava lasku viitenumerolla ennen tulostusta"_s);
        QCOMPARE(LahetaMuistutus(*d, id), u"Jäsenelle ei ole sallittu sähköpostilaskutusta jäsenrekisterissä."_s);
        d->execute(u"UPDATE jr SET jrEmailLasku = 1 WHERE jrID = 5"_s);
        QCOMPARE(LahetaMuistutus(*d, id), u"Muistutus lähetetty."_s);
        QCOMPARE(posti.log().messages.size(), 1);
        const mail::Message &m = posti.log().messages.constFirst();
        QCOMPARE(m.to.value(0).address, u"maija@example.fi"_s);
        QCOMPARE(m.subject, u"Jäsenmaksu 2026"_s);
        QVERIFY2(m.body.contains(u"90030"_s) && m.body.contains(u"42,50"_s), qPrintable(m.body));
        QCOMPARE(muistutus(id), u"N|N|N|N|N|N"_s);
        posti.log().refused.insert(u"maija@example.fi"_s);
        QVERIFY(LahetaMuistutus(*d, id).startsWith(u"Muistutuksen lähetys epäonnistui.\n"_s));
    }

    // The run: No ends it; every invoice of the range is computed before printing, the ones that
    // cannot be are told and the rest go on; a printer pauses; one document otherwise.
    void tulostusajo()
    {
        const qint64 a = lasku(90010, u"10"_s, tanaan.addDays(-5));
        const qint64 vanha = lasku(90011, u"10"_s, tanaan.addYears(-100));
        const qint64 b = lasku(90012, u"10"_s, QDate());
        const qint64 c = lasku(90013, u"10"_s, tanaan);
        QVector<qint64> erassa;
        QStringList ajot;
        Laskujentulostajat t;
        t.henkilon = [&](const QString &r, qint64 id) { ajot << r + u':' + QString::number(id); };
        t.eran = [&](const QString &r, const QVector<qint64> &idt) { ajot << r; erassa = idt; };
        Tulostuskysymykset k;
        bool tulostimelle = false;
        k.tulostusasetukset = [&] { return tulostimelle ? Tulostuspaikka::Tulostin : Tulostuspaikka::Asiakirja; };
        Ajo ajo(*d);
        ajo.tanaan = tanaan;
        dlg->no();
        QCOMPARE(TulostaMuistutukset(ajo, k, t), 0);
        QCOMPARE(testi::maara(*d, u"jmhist WHERE jmhjmLaskunumero >= 90010 AND jmhjmMuistutusNumero > 0"_s), 0);

        dlg->yes();
        dlg->type(u"90010"_s);
        dlg->type(u""_s);
        QCOMPARE(TulostaMuistutukset(ajo, k, t), 4);
        QCOMPARE(erassa, (QVector<qint64>{a, vanha, b, c}));
        QCOMPARE(dlg->messages().constLast(), u"Laskun 90011 eräpäivästä on yli 32767 päivää: muistutusta ei laskettu.\n"
                                               "Laskulla 90012 ei ole eräpäivää: muistutusta ei laskettu."_s);
        QCOMPARE(testi::maara(*d, u"jmhist WHERE jmhjmLaskunumero >= 90010 AND jmhjmMuistutusNumero = 1"_s), 2);
        QCOMPARE(muistutus(c).section(u'|', 3, 4), u"0|150000"_s); // no days: open amount and fee

        tulostimelle = true;
        MainModule::TulostusEra = 1;
        dlg->yes();
        dlg->type(u"90012"_s);
        dlg->type(u"90013"_s);
        QCOMPARE(TulostaMuistutukset(ajo, k, t), 2);
        QCOMPARE(ajot.mid(1), (QStringList{u"jrphkarh.rpt:%1"_s.arg(b), u"jrphkarh.rpt:%1"_s.arg(c)}));
        QCOMPARE(dlg->messages().count(u"Tulostusraja täynnä, klikkaa Ok, kun haluat jatkaa tulostusta."_s), 1);

        dlg->yes();
        dlg->type(u"abc"_s);
        dlg->type(u""_s);
        QCOMPARE(TulostaMuistutukset(ajo, k, t), 0);
        QCOMPARE(dlg->messages().constLast(), u"Ei löydy maksamattomia laskuja väliltä: abc - "_s);
        QCOMPARE(dlg->pendingReplies(), 0);
    }
};

QTEST_MAIN(TestMuistutukset)
#include "tst_muistutukset.moc"
