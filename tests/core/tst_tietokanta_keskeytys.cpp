// A backup killed at any moment never leaves the working database damaged, missing or short of
// a row; the copy in the backup folder is either the former good one or a new good one.
#include "core/Varmuuskopio.h"
#include "kerhokanta.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

using namespace MainModule;

namespace {
const char *const kLapsenKanta = "VONARI_KESKEYTYS_KANTA";
const char *const kLapsenKansio = "VONARI_KESKEYTYS_KANSIO";
} // namespace

class TestKeskeytys : public QObject {
    Q_OBJECT

private slots:
    void tapettuVarmuuskopioEiVahingoita()
    {
        TestEnv env;
        ScriptedDialogs dlgs;
        QDir(env.root()).mkpath(QStringLiteral("seura"));
        QDir(env.root()).mkpath(QStringLiteral("varmuus"));
        const QString kanta = DatabasePath = env.path(QStringLiteral("seura/kerho.mdb"));
        const QString kansio = BackupPath = env.path(QStringLiteral("varmuus/"));
        const QString kopio = kansio + QStringLiteral("kerho.mdb");
        kerho::luo(kanta, 3000);

        QElapsedTimer kello;
        kello.start();
        QVERIFY(TeeVarmuuskopio());
        const qint64 kesto = std::max<qint64>(kello.elapsed(), 5);
        // The first backup writes its date after the copy is made; a second one leaves a copy that
        // already holds that row, as every later copy does.
        QVERIFY(TeeVarmuuskopio());
        const kerho::Maarat ennen = kerho::rivit(kanta); // with the backup date's row
        QCOMPARE(kerho::rivit(kopio), ennen);

        const quint32 siemen = testi::siemen();
        QRandomGenerator satunnainen(siemen);
        QProcessEnvironment ymparisto = QProcessEnvironment::systemEnvironment();
        ymparisto.insert(QString::fromLatin1(kLapsenKanta), kanta);
        ymparisto.insert(QString::fromLatin1(kLapsenKansio), kansio);
        int kerrat = 0;
        kello.restart();
        while (kello.elapsed() < 30000 && kerrat < 300) {
            QProcess prosessi;
            prosessi.setProcessEnvironment(ymparisto);
            prosessi.start(QCoreApplication::applicationFilePath(), {});
            QVERIFY(prosessi.waitForStarted());
            QThread::usleep(satunnainen.bounded(quint32(20000 + 3000 * kesto)));
            prosessi.kill();
            QVERIFY(prosessi.waitForFinished());
            const QByteArray tiedot = QStringLiteral("VONARI_SIEMEN=%1, kerta %2").arg(siemen).arg(++kerrat).toUtf8();
            // As the next start opens it: whole and holding every row, and the copy so if it is there.
            QVERIFY2(QFile::exists(kanta), tiedot);
            QVERIFY2(db::Database::open(kanta)->scalar(QStringLiteral("PRAGMA integrity_check")).toString() == u"ok", tiedot);
            QVERIFY2(kerho::rivit(kanta) == ennen, tiedot);
            QVERIFY2(!QFile::exists(kopio) || (kerho::ehja(kopio) && kerho::rivit(kopio) == ennen), tiedot);
        }
        qInfo("%d killed backups, one takes %lld ms; seed %u", kerrat, kesto, siemen);

        // Whatever was left, the next backup clears it.
        dlgs.shown.clear();
        QVERIFY(TeeVarmuuskopio());
        QCOMPARE(kerho::merkittyja(kanta), qint64(0));
        QCOMPARE(kerho::rivit(kanta), ennen);
        QCOMPARE(kerho::rivit(kopio), ennen);
        QVERIFY(!QFile::exists(JarjestelynTulos(kanta)));
        QVERIFY(!QFile::exists(kopio + QStringLiteral(".kesken")));
    }
};

// The child backs up over and over until it is killed.
int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (qEnvironmentVariableIsSet(kLapsenKanta)) {
        DatabasePath = qEnvironmentVariable(kLapsenKanta);
        BackupPath = qEnvironmentVariable(kLapsenKansio);
        ScriptedDialogs dialogit;
        for (;;) {
            TeeVarmuuskopio();
            dialogit.shown.clear();
        }
    }
    TestKeskeytys testi;
    return QTest::qExec(&testi, argc, argv);
}

#include "tst_tietokanta_keskeytys.moc"
