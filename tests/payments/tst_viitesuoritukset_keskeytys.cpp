// Posting the bank's file killed at any moment leaves the ledger and the history as a whole number
// of files posted: never half a file's payments, never an invoice closed without its payment.
#include "payments/Viitesuoritukset.h"
#include "platform/arvot.h"
#include "platform/database.h"
#include "seurat.h"
#include "testenv.h"
#include "testiapu.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>
#include <QtTest>

namespace {

const char *const kLapsenKanta = "VONARI_KIRJAUS_KANTA";
constexpr int kMaksuja = 1500;
const QString kPaiva = QStringLiteral("2031-01-01"); // a booking date no invoice of the club was paid on

// Every payment pays the first invoice of its reference to the cent.
ViiteEra Tiedosto(db::Database &d, int kierros)
{
    ViiteEra era;
    db::Statement st(d, QStringLiteral("SELECT jmhjmViitenumero, jmhjmHinta FROM jmhist WHERE jmhID IN"
                                       " (SELECT MIN(jmhID) FROM jmhist WHERE jmhjmViitenumero <> '' AND jmhjmHinta > 0"
                                       " GROUP BY jmhjmViitenumero) ORDER BY jmhID LIMIT ?"),
                     {kMaksuja});
    while (st.next()) {
        ViiteTapahtuma t;
        t.Viitenumero = NullText(st.value(0)).rightJustified(20, u'0');
        t.Rahamaara = QString::number(NullCurrency(st.value(1)).raw() / 100);
        t.Kirjauspaiva = QStringLiteral("310101");
        t.Arkistointitunnus = QStringLiteral("K%1-%2").arg(kierros).arg(era.Tapahtumat.size());
        era.Tapahtumat << t;
    }
    return era;
}

// The child posts a new file over and over until it is killed.
int lapsi()
{
    auto d = db::Database::open(qEnvironmentVariable(kLapsenKanta));
    for (int kierros = 0;; ++kierros)
        KirjaaSuoritukset(*d, {Tiedosto(*d, kierros)});
}

} // namespace

class TestViitesuorituksetKeskeytys : public QObject {
    Q_OBJECT

private slots:
    void tapettuKirjausEiJataPuolikasta()
    {
        TestEnv env;
        const QString kanta = seurat::Kopio(1000, env.path(QStringLiteral("seura.mdb")));
        int maksuja = 0;
        {
            auto d = db::Database::open(kanta);
            maksuja = int(Tiedosto(*d, 0).Tapahtumat.size());
            QVERIFY(maksuja > 100);
            QCOMPARE(testi::maara(*d, QStringLiteral("jmhist WHERE jmhMaksuPaiva = ?"), {kPaiva}), 0);
        }
        const quint32 siemen = testi::siemen();
        QRandomGenerator satunnainen(siemen);
        QProcessEnvironment ymparisto = QProcessEnvironment::systemEnvironment();
        ymparisto.insert(QString::fromLatin1(kLapsenKanta), kanta);
        int kerrat = 0, tiedostoja = 0;
        QElapsedTimer kello;
        kello.start();
        while (kello.elapsed() < 15000 && kerrat < 30) {
            QProcess prosessi;
            prosessi.setProcessEnvironment(ymparisto);
            prosessi.start(QCoreApplication::applicationFilePath(), {});
            QVERIFY(prosessi.waitForStarted());
            QThread::usleep(satunnainen.bounded(20000u, 600000u));
            prosessi.kill();
            QVERIFY(prosessi.waitForFinished());
            ++kerrat;
            const QString tiedot = QStringLiteral("VONARI_SIEMEN=%1, kerta %2").arg(siemen).arg(kerrat);
            auto d = db::Database::open(kanta);
            QVERIFY2(d->scalar(QStringLiteral("PRAGMA integrity_check")).toString() == QLatin1String("ok"), qPrintable(tiedot));
            const int kirjattu = testi::maara(*d, QStringLiteral("Suoritukset WHERE Paiva = ?"), {kPaiva});
            const int suljettu = testi::maara(*d, QStringLiteral("jmhist WHERE jmhMaksuPaiva = ?"), {kPaiva});
            QVERIFY2(kirjattu % maksuja == 0, qPrintable(tiedot));
            QVERIFY2(suljettu == (kirjattu ? maksuja : 0), qPrintable(tiedot));
            tiedostoja = kirjattu / maksuja;
        }
        qInfo("%d killed runs, %d files of %d payments posted whole; seed %u", kerrat, tiedostoja, maksuja, siemen);
        QVERIFY(tiedostoja > 0);
    }
};

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (qEnvironmentVariableIsSet(kLapsenKanta))
        return lapsi();
    TestViitesuorituksetKeskeytys testi;
    return QTest::qExec(&testi, argc, argv);
}

#include "tst_viitesuoritukset_keskeytys.moc"
