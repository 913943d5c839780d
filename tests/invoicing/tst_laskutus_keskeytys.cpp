// An invoice run, a move to history and a delete killed at any moment never leave half a batch,
// half a move or a counter that moved without its invoices.
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "invoicing/Jasenmaksuajo.h"
#include "invoicing/Laskuera.h"
#include "laskuseura.h"
#include "scripteddialogs.h"
#include "seurat.h"
#include "testenv.h"
#include "testiapu.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>
#include <QtTest>

namespace {

const char *const kLapsenKanta = "VONARI_LASKUTUS_KANTA";
const char *const kLapsenAlku = "VONARI_LASKUTUS_SIIRTO"; // 1: the first batch goes to history
constexpr int kJasenia = 5000;

MaksujenLuontiLomake neljaRivia()
{
    MaksujenLuontiLomake l = laskuseura::lomake();
    for (int i = 0; i < 4; ++i)
        l.rivit[i] = {true, QStringLiteral("Rivi %1").arg(i + 1), QStringLiteral("5")};
    l.tSumma = QStringLiteral("20");
    l.chkJasenmaksu = true;
    return l;
}

// The child runs, deletes, runs and moves to history over and over until it is killed.
int lapsi()
{
    MainModule::DatabasePath = qEnvironmentVariable(kLapsenKanta);
    auto d = db::Database::open(MainModule::DatabasePath);
    LueAsetukset(*d);
    ScriptedDialogs dialogit;
    for (bool siirra = qEnvironmentVariable(kLapsenAlku) == u"1";; siirra = !siirra) {
        LisaaJasenmaksut(Ajo(*d), neljaRivia(), false);
        QThread::msleep(50); // the open batch stands a while, as it does while the user prints
        if (siirra) {
            SiirraHistoriaan(Ajo(*d), Laskuikkuna::Perus);
        } else {
            dialogit.yes();
            PoistaLisatytLaskut(Ajo(*d), Laskuikkuna::Perus, false);
        }
        dialogit.shown.clear();
    }
}

struct Tila {
    qint64 avoimia, avoimienRiveja, historiassa, historianRiveja, laskuri, molemmissa;
};

Tila lue(const QString &polku, qint64 historiaEnnen)
{
    auto d = db::Database::open(polku);
    using laskuseura::maara;
    Tila t;
    t.avoimia = maara(*d, QStringLiteral("jm"));
    t.avoimienRiveja = maara(*d, QStringLiteral("jmRivi WHERE jmRjmID IN (SELECT jmID FROM jm)"));
    t.historiassa = maara(*d, QStringLiteral("jmhist WHERE jmhID > %1").arg(historiaEnnen));
    t.historianRiveja = maara(*d, QStringLiteral("jmRivi WHERE jmRjmID IN (SELECT jmhjmID FROM jmhist WHERE jmhID > %1)")
                                      .arg(historiaEnnen));
    t.laskuri = KantaStore(*d).readString(QStringLiteral("Laskunro")).toLongLong();
    t.molemmissa = maara(*d, QStringLiteral("jm JOIN jmhist ON jmhjmID = jmID"));
    return t;
}

} // namespace

class TestLaskutusKeskeytys : public QObject {
    Q_OBJECT

private slots:
    void tapettuAjoEiJataPuolikasta()
    {
        TestEnv env;
        const QString kanta = seurat::Kopio(kJasenia, env.path(QStringLiteral("seura.mdb")));
        qint64 historiaEnnen = 0, laskuriEnnen = 0, jasenia = 0;
        {
            auto d = db::Database::open(kanta);
            QCOMPARE(laskuseura::maara(*d, QStringLiteral("jm")), 0);
            historiaEnnen = laskuseura::maara(*d, QStringLiteral("jmhist")) > 0
                ? d->scalar(QStringLiteral("SELECT MAX(jmhID) FROM jmhist")).toLongLong()
                : 0;
            laskuriEnnen = KantaStore(*d).readString(QStringLiteral("Laskunro")).toLongLong();
            jasenia = laskuseura::maara(*d, QStringLiteral("jr"));
        }

        const quint32 siemen = testi::siemen();
        QRandomGenerator satunnainen(siemen);
        QProcessEnvironment ymparisto = QProcessEnvironment::systemEnvironment();
        ymparisto.insert(QString::fromLatin1(kLapsenKanta), kanta);

        int kerrat = 0, avoimena = 0, siirrettyja = 0;
        QElapsedTimer kello;
        kello.start();
        while (kello.elapsed() < 20000 && kerrat < 100) {
            QProcess prosessi;
            ymparisto.insert(QString::fromLatin1(kLapsenAlku), QString::number(kerrat % 2));
            prosessi.setProcessEnvironment(ymparisto);
            prosessi.start(QCoreApplication::applicationFilePath(), {});
            QVERIFY(prosessi.waitForStarted());
            QThread::usleep(satunnainen.bounded(30000u, 1000000u));
            prosessi.kill();
            QVERIFY(prosessi.waitForFinished());
            ++kerrat;

            const QString tiedot = QStringLiteral("VONARI_SIEMEN=%1, kerta %2").arg(siemen).arg(kerrat);
            {
                auto d = db::Database::open(kanta);
                QVERIFY2(d->scalar(QStringLiteral("PRAGMA integrity_check")).toString() == QLatin1String("ok"), qPrintable(tiedot));
            }
            const Tila t = lue(kanta, historiaEnnen);
            QVERIFY2(t.avoimia == 0 || t.avoimia == jasenia, qPrintable(tiedot));
            QVERIFY2(t.avoimienRiveja == 4 * t.avoimia, qPrintable(tiedot));
            QVERIFY2(t.historiassa % jasenia == 0, qPrintable(tiedot));
            QVERIFY2(t.historianRiveja == 4 * t.historiassa, qPrintable(tiedot));
            QVERIFY2(t.laskuri == laskuriEnnen + t.avoimia + t.historiassa, qPrintable(tiedot));
            QVERIFY2(t.molemmissa == 0, qPrintable(tiedot));
            avoimena += t.avoimia > 0;
            siirrettyja = int(t.historiassa / jasenia);
        }
        qInfo("%d killed runs: an open batch left %d times, %d batches moved to history; seed %u", kerrat, avoimena,
              siirrettyja, siemen);
        // The runs went on long enough to move batches; where each kill landed is random.
        QVERIFY(siirrettyja > 0);
    }
};

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (qEnvironmentVariableIsSet(kLapsenKanta))
        return lapsi();
    TestLaskutusKeskeytys testi;
    return QTest::qExec(&testi, argc, argv);
}

#include "tst_laskutus_keskeytys.moc"
