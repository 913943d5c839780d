// Every long run stopped half way leaves the club's file as it was, and the user's "Keskeytä"
// stops the run, which says that nothing was saved.
#include "core/Kantatiedosto.h"
#include "core/Pelastus.h"
#include "members/Jasen.h"
#include "members/PiirreJoukko.h"
#include "members/Rekisteritiedot.h"
#include "pysayttaja.h"
#include "platform/ui/Edistymispalkki.h"
#include "reports/Raporttiajo.h"
#include "seurat.h"
#include "ydinapu.h"

#include <QDialog>
#include <QProgressBar>
#include <QThread>

class tst_keskeytys : public QObject {
    Q_OBJECT

    std::unique_ptr<TestEnv> env;
    QString kanta;
    std::unique_ptr<db::Database> d;

    QVector<qint64> jasenet() const
    {
        QVector<qint64> idt;
        db::Statement rs(*d, u"SELECT jrID FROM jr ORDER BY jrID"_s);
        while (rs.next())
            idt << rs.value(0).toLongLong();
        return idt;
    }

private slots:
    void init()
    {
        env = std::make_unique<TestEnv>();
        kanta = seurat::Kopio(1000, env->path(u"seura.mdb"_s));
        d = db::Database::open(kanta);
    }
    void cleanup()
    {
        d.reset();
        env.reset();
    }

    // Stopped half way, each run rolls back what it wrote before the stop: the member loops at their
    // third member, the set-wise runs at the first report from inside their statement (every member
    // holds both attributes first, so the statement is long enough to report).
    void ajoPysahtyyJaPeruu_data()
    {
        QTest::addColumn<int>("ajo");
        QTest::addColumn<int>("kutsussa");
        QTest::newRow("rekisteritiedot") << 0 << 3;
        QTest::newRow("moniliitos") << 1 << 3;
        QTest::newRow("syntymäpäivän mukaan") << 2 << 1;
        QTest::newRow("ominaisuuden poisto") << 3 << 1;
        QTest::newRow("yhdistäminen") << 4 << 1;
    }
    void ajoPysahtyyJaPeruu()
    {
        QFETCH(int, ajo);
        QFETCH(int, kutsussa);
        const qint64 ensimmainen = d->scalar(u"SELECT MIN(piID) FROM pi"_s).toLongLong();
        const qint64 toinen = d->scalar(u"SELECT MAX(piID) FROM pi"_s).toLongLong();
        QVERIFY(ensimmainen != toinen);
        Moniliitos(Ajo(*d), ensimmainen, jasenet(), {}, true);
        Moniliitos(Ajo(*d), toinen, jasenet(), {}, true);
        const QString ennen = seurat::Sisalto(*d);
        Pysayttaja pysayta(kutsussa);
        const Ajo a(*d, &pysayta);
        const auto aja = [&] {
            switch (ajo) {
            case 0: TaytaRekisteritiedot(a, cRekisteritietovalinta{true, true, true, true}); break;
            case 1: Moniliitos(a, ensimmainen, jasenet(), {}, false); break;
            case 2: LisaaSyntymapaivanPerusteella(a, ensimmainen, QDate(1900, 1, 1), QDate(2030, 1, 1), {}, false); break;
            case 3: PoistaOminaisuus(a, ensimmainen, toinen); break;
            case 4: YhdistaOminaisuus(a, ensimmainen, toinen); break;
            }
        };
        QVERIFY_THROWS_EXCEPTION(Keskeytetty, aja());
        QCOMPARE(pysayta.vaiheet.size(), kutsussa);
        QCOMPARE(seurat::Sisalto(*d), ennen);
        QVERIFY(!d->inTransaction());
    }

    // The counters kept in the database and in memory go back with a run that rolls back, and
    // stay advanced with one that commits.
    void laskuritPalaavat()
    {
        MainModule::Laskunro = 41;
        MainModule::Jasennro = 7;
        KantaStore(*d).writeString(u"Laskunro"_s, u"41"_s);
        const auto tila = [&] {
            return u"%1 %2 %3 %4"_s.arg(MainModule::Laskunro).arg(MainModule::Jasennro)
                .arg(KantaStore(*d).readString(u"Laskunro"_s, {}), KantaStore(*d).readString(u"Jasennro"_s, {}));
        };
        const QString ennen = tila();
        {
            db::Transaction ajo(*d);
            KasvataLaskunumero(*d);
            KasvataLaskunumero(*d);
            QVERIFY(AnnaJasennumero(*d).toInt() >= 7); // the first free number from 7 on
            QCOMPARE(MainModule::Laskunro, 43);
        }
        QCOMPARE(tila(), ennen);
        {
            db::Transaction ajo(*d);
            KasvataLaskunumero(*d);
            ajo.commit();
        }
        QCOMPARE(tila(), u"42 7 42 "_s + KantaStore(*d).readString(u"Jasennro"_s, {}));
    }

    // The report's layout stops between members and writes no file; a copy and a salvage stopped
    // at their first report leave no target behind them.
    void tiedostojaEiJaa()
    {
        Pysayttaja pysayta(2);
        const Ajo a(*d, &pysayta);
        Raporttiajo r;
        r.ResetReportFormulas(kanta);
        r.ajo = &a;
        r.ReportFileName = u"jrluetlo"_s;
        r.PrintFileName = env->path(u"ulos.pdf"_s);
        r.Destination = Raporttiajo::PdfTiedosto;
        QVERIFY_THROWS_EXCEPTION(Keskeytetty, r.setAction(1));
        QVERIFY(!QFile::exists(r.PrintFileName));

        d.reset();
        const QString kohde = env->path(u"kopio.mdb"_s);
        Pysayttaja kopioinnissa(1), pelastuksessa(1);
        kanta::Kopiointi tapa;
        tapa.edistyminen = &kopioinnissa;
        kanta::Virhe v;
        QVERIFY_THROWS_EXCEPTION(Keskeytetty, kanta::kopioiTietokanta(kanta, kohde, tapa, &v));
        QVERIFY(!kopioinnissa.vaiheet.isEmpty());
        QVERIFY(!QFile::exists(kohde));
        kanta::Pelastus p;
        QVERIFY_THROWS_EXCEPTION(Keskeytetty, kanta::pelastaTietokanta(kanta, kohde, &p, &v, &pelastuksessa));
        QVERIFY(!pelastuksessa.vaiheet.isEmpty());
    }

    // A window's own bar turns its run buttons off for the run, and its "Keskeytä" stops the run;
    // a run long enough to show the progress window is stopped from that window's button.
    void keskeytysIkkunasta()
    {
        QWidget ikkuna;
        auto *palkki = new QProgressBar(&ikkuna);
        auto *keskeyta = new QPushButton(u"Keskeytä"_s, &ikkuna);
        auto *aja = new QPushButton(u"Lisää"_s, &ikkuna);
        ikkuna.show();
        {
            Edistymispalkki e(palkki, keskeyta, {aja});
            QVERIFY(!aja->isEnabled());
            QThread::msleep(50); // the bar answers at most every 40 ms
            e.vaihe(50, 100);
            QCOMPARE(palkki->value(), 500);
            QVERIFY(!e.keskeytetaanko());
            QTest::mouseClick(keskeyta, Qt::LeftButton);
            QVERIFY(e.keskeytetaanko());
        }
        QVERIFY(aja->isEnabled());

        ScriptedDialogs dialogit;
        int askelia = 0;
        QTimer::singleShot(700, [] {
            auto *ikkuna = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            QVERIFY(ikkuna);
            QCOMPARE(ikkuna->windowTitle(), u"Ominaisuutta lisätään"_s);
            QTest::mouseClick(ikkuna->findChild<QPushButton *>(), Qt::LeftButton);
        });
        const bool valmis = AjaEdistyen(nullptr, u"Ominaisuutta lisätään"_s, [&](Edistyminen *e) {
            for (askelia = 0; askelia < 1000; ++askelia) {
                e->vaihe(askelia, 1000);
                if (e->keskeytetaanko())
                    throw Keskeytetty();
                QThread::msleep(5);
            }
        });
        QVERIFY(!valmis);
        QVERIFY2(askelia < 1000, "the run was not stopped");
        QCOMPARE(dialogit.messages(), QStringList{u"Keskeytetty. Mitään ei tallennettu."_s});
        QVERIFY(!QApplication::activeModalWidget());
    }
};

QTEST_MAIN(tst_keskeytys)
#include "tst_keskeytys.moc"
