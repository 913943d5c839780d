// The payment book on the demonstration club: fetching by reference, marking paid with the family,
// the ledger's payments and open balance, the deletions' ranges and refusals, the lists' titles,
// and the window driven as a user drives it.
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "payments/Laskulistat.h"
#include "payments/Maksukirja.h"
#include "payments/ui/frmMaksut.h"
#include "platform/arvot.h"
#include "scripteddialogs.h"
#include "seurat.h"
#include "testenv.h"
#include "testiapu.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QTreeWidget>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

class TestMaksukirja : public QObject {
    Q_OBJECT
    std::unique_ptr<TestEnv> env;
    std::unique_ptr<ScriptedDialogs> dlg;
    std::unique_ptr<db::Database> d;
    qint64 maksaja = 2; // the demonstration club's family of five

    qint64 lasku(int numero, bool jasmak, bool perhe, qint64 jrID, const QString &viite)
    {
        d->execute(u"INSERT INTO jmhist (jmhjmID, jmhjmjrID, jmhjmLaskunumero, jmhjmViitenumero, jmhjmHinta, jmhjmMaksettu,"
                   " jmhjmJasMak, jmhjmPerhe) VALUES (?, ?, ?, ?, ?, 0, ?, ?)"_s,
                   {900000 + numero, jrID, numero, viite, Currency::fromRaw(1000000).raw(), jasmak, perhe});
        const qint64 id = d->lastInsertId();
        d->execute(u"INSERT INTO jmRivi (jmRjmID, jmRjrID, jmRHinta, jmRTeksti, jmRMaksettu) VALUES (?, ?, 1000000, 'Rivi', 0)"_s,
                   {900000 + numero, jrID});
        return id;
    }
    int maara(const QString &ehto, const db::Params &p = {}) { return testi::maara(*d, ehto, p); }

private slots:
    void init()
    {
        env = std::make_unique<TestEnv>();
        dlg = std::make_unique<ScriptedDialogs>();
        MainModule::DatabasePath = env->path(u"demo1.mdb"_s);
        d = db::Database::open(seurat::Kopio(150, MainModule::DatabasePath));
        LueAsetukset(*d);
    }
    void cleanup()
    {
        d.reset();
        dlg.reset();
        env.reset();
    }

    // A family membership invoice pays the fee of the payer and of every member still there; a
    // link to a deleted member is passed over; another kind of invoice touches no member; with
    // "Poista maksettu" the invoice and its rows are gone.
    void merkitseMaksetuksi()
    {
        d->execute(u"INSERT INTO jrPerhe (jrPMID, jrPSubID) VALUES (?, 999999)"_s, {maksaja});
        d->execute(u"UPDATE jr SET jrJasenmaksu = 0"_s);
        const qint64 perhe = lasku(90001, true, true, maksaja, u"900013"_s);
        const qint64 muu = lasku(90002, false, false, 5, u"900026"_s);
        MerkitseMaksetuksi(*d, muu, false);
        QCOMPARE(maara(u"jr WHERE jrJasenmaksu = 1"_s), 0);
        QCOMPARE(maara(u"jmhist WHERE jmhID = ? AND jmhjmMaksettu = 1"_s, {muu}), 1);
        MerkitseMaksetuksi(*d, perhe, false);
        const int perheessa = maara(u"jr WHERE jrID = ? OR jrID IN (SELECT jrPSubID FROM jrPerhe WHERE jrPMID = ?)"_s, {maksaja, maksaja});
        QVERIFY(perheessa >= 3);
        QCOMPARE(maara(u"jr WHERE jrJasenmaksu = 1"_s), perheessa);
        QCOMPARE(maara(u"jmRivi WHERE jmRjmID = 990001 AND jmRMaksettu = 1"_s), 1);
        MerkitseMaksetuksi(*d, perhe, true);
        QCOMPARE(maara(u"jmhist WHERE jmhID = ?"_s, {perhe}) + maara(u"jmRivi WHERE jmRjmID = 990001"_s), 0);
        QVERIFY(!HaeLasku(*d, u"900013"_s));
        QCOMPARE(dlg->messages().constLast(), u"Laskua viitenumerolla: 900013 ei löydy."_s);
    }

    // The key is trimmed; a member gone is told; Null flags read "-"; the ledger's rows sum up,
    // and what is open may go below zero.
    void haeJaSuoritukset()
    {
        const qint64 id = lasku(90003, false, false, 5, u"900039"_s);
        d->execute(u"UPDATE jmhist SET jmhjmOmin = NULL WHERE jmhID = ?"_s, {id});
        const auto l = HaeLasku(*d, u"  900039 "_s);
        QVERIFY(l);
        QCOMPARE(l->hinta, u"100,00"_s);
        QCOMPARE(l->maksettu + l->jasenmaksu + l->ominaisuusmaksu, u"EiEi-"_s);
        for (const auto &[paiva, summa] : {std::pair{u"2026-10-01"_s, 400000}, std::pair{u"2026-09-01"_s, 250000}})
            d->execute(u"INSERT INTO Suoritukset (Paiva, jmhID, Summa, Arkistointitunnus) VALUES (?, ?, ?, 'A')"_s, {paiva, id, summa});
        LaskunSuoritukset s = HaeSuoritukset(*d, id);
        QCOMPARE(s.rivit.size(), 2);
        QCOMPARE(s.rivit[0].paiva, QDate(2026, 9, 1));
        QCOMPARE(RahaKenttaan(s.avoinna), u"35,00"_s);
        d->execute(u"INSERT INTO Suoritukset (Paiva, jmhID, Summa) VALUES ('2026-10-02', ?, 500000)"_s, {id});
        QCOMPARE(RahaKenttaan(HaeSuoritukset(*d, id).avoinna), u"-15,00"_s);
        d->execute(u"DELETE FROM jr WHERE jrID = 5"_s);
        QVERIFY(!HaeLasku(*d, u"900039"_s));
        QCOMPARE(dlg->messages().constLast(), u"Henkilöä annetulle viitenumerolle 900039 ei enää löydy."_s);
        QCOMPARE(TaydennaViitteeksi(u"1234"_s), u"12344"_s);
        QCOMPARE(TaydennaViitteeksi(u" 55"_s), u"550"_s);
    }

    // The deletions: only Yes goes on, a range needs numbers, a single number must be one.
    void poistot()
    {
        for (int n : {90010, 90011, 90012, 90013})
            lasku(n, false, false, 5, QString::number(n));
        const int alussa = maara(u"jmhist"_s);
        dlg->yes();
        dlg->type(u"90011"_s);
        dlg->type(u"x"_s);
        QCOMPARE(PoistaHistoriastaLaskunumerolla(*d), alussa - maara(u"jmhist WHERE jmhjmLaskunumero < 90011"_s));
        QCOMPARE(maara(u"jmhist WHERE jmhjmLaskunumero >= 90011"_s), 0);
        dlg->yes();
        dlg->type(u"abc"_s);
        dlg->type(u""_s);
        QCOMPARE(PoistaHistoriastaLaskunumerolla(*d), 0);
        dlg->type(u"9001O"_s);
        QCOMPARE(PoistaYksittainenHistoriasta(*d), 0);
        QCOMPARE(dlg->messages().constLast(), u"Laskunumeroksi tulee syöttää vain numeroita."_s);
        dlg->type(u""_s);
        QCOMPARE(PoistaYksittainenHistoriasta(*d), 0);
        dlg->type(u"90010"_s);
        dlg->yes();
        QCOMPARE(PoistaYksittainenHistoriasta(*d), 1);
        QCOMPARE(dlg->messages().constLast(), u"Lasku poistettu."_s);
        dlg->no();
        QCOMPARE(PoistaKaikkiHistoriasta(*d), 0);
        const int maksettuja = maara(u"jmhist WHERE jmhjmMaksettu = 1"_s);
        dlg->yes();
        QCOMPARE(PoistaMaksetutHistoriasta(*d), maksettuja);
        QCOMPARE(dlg->pendingReplies(), 0);
        QVERIFY(dlg->unexpected.isEmpty());
    }

    // The lists' selection grows piece by piece and the title names the range as given.
    void laskulistanRajaus_data()
    {
        QTest::addColumn<int>("lista");
        QTest::addColumn<int>("rajaus");
        QTest::addColumn<QString>("alku");
        QTest::addColumn<QString>("loppu");
        QTest::addColumn<QString>("valinta");
        QTest::addColumn<QString>("otsikko");
        QTest::newRow("all") << 0 << 0 << "" << "" << "" << "LASKUTUSLISTA";
        QTest::newRow("members, from") << 0 << 1 << "10" << "" << "{jmhist.jmhjmJasMak} = true and {jmhist.jmhjmLaskunumero} >= 10"
                                       << "LASKUTUSLISTA: 10 -";
        QTest::newRow("paid others, to") << 6 << 2 << "" << "20"
                                         << "{jmhist.jmhjmMaksettu} = True and {jmhist.jmhjmJasMak} = false and {jmhist.jmhjmLaskunumero} <= 20"
                                         << "VIITELISTA: - 20";
        QTest::newRow("reminded, both") << 4 << 0 << "1" << "2"
                                        << "{jmhist.jmhjmMaksettu} = False and {jmhist.jmhjmMuistutusNumero} > 0 and "
                                           "{jmhist.jmhjmLaskunumero} >= 1 and {jmhist.jmhjmLaskunumero} <= 2"
                                        << "LASKUTUSLISTA / MUISTUTETUT MAKSAMATTOMAT: 1 - 2";
    }
    void laskulistanRajaus()
    {
        QFETCH(int, lista);
        QFETCH(int, rajaus);
        QFETCH(QString, alku);
        QFETCH(QString, loppu);
        const LaskulistanAjo a = LaskulistanRajaus(Laskulistat()[size_t(lista)], Laskurajaus(rajaus), alku, loppu);
        QTEST(a.valinta, "valinta");
        QTEST(a.otsikko, "otsikko");
    }

    // The window: a reference typed with blanks and Enter fetches; the ledger shows under it;
    // marked paid with "Poista maksettu" the invoice leaves the window and the history.
    void ikkuna()
    {
        const qint64 id = lasku(90020, true, false, 5, u"900204"_s);
        d->execute(u"INSERT INTO Suoritukset (Paiva, jmhID, Summa, Arkistointitunnus) VALUES ('2026-11-02', ?, 300000, 'ARK1')"_s, {id});
        frmMaksut w;
        w.setAttribute(Qt::WA_DeleteOnClose, false);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        w.tViitenumero->setFocus();
        QTest::keyClicks(w.tViitenumero, u" 900204 "_s);
        QTest::keyClick(w.tViitenumero, Qt::Key_Return);
        QCOMPARE(w.lblLaskunumero->text(), u"90020"_s);
        QCOMPARE(w.lblJasenmaksu->text(), u"Kyllä"_s);
        QCOMPARE(w.cntPaymentRow->topLevelItemCount(), 1);
        QCOMPARE(w.cntPaymentRow->topLevelItem(0)->text(2), u"ARK1"_s);
        QCOMPARE(w.lblAvoinna->text(), u"70,00"_s);
        QTest::mouseClick(w.chkPoistamaksettu, Qt::LeftButton, {}, QPoint(6, w.chkPoistamaksettu->height() / 2));
        d->execute(u"UPDATE jr SET jrJasenmaksu = 0 WHERE jrID = 5"_s);
        QTest::mouseClick(w.cMaksetuksi, Qt::LeftButton);
        QVERIFY(w.lblNimi->text().isEmpty() && w.tViitenumero->text().isEmpty());
        QCOMPARE(maara(u"jmhist WHERE jmhID = ?"_s, {id}), 0);
        QCOMPARE(maara(u"jr WHERE jrID = 5 AND jrJasenmaksu = 1"_s), 1);
        QTest::mouseClick(w.cTulosta, Qt::LeftButton);
        QCOMPARE(dlg->messages().constLast(), u"Hae tulostettava lasku viitenumerolla ennen tulostusta"_s);
    }
};

QTEST_MAIN(TestMaksukirja)
#include "tst_maksukirja.moc"
