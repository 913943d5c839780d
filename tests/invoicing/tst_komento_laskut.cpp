// vonari-komento on the open batch: moved to history or deleted as the invoice window does it,
// the message on standard output, the batch and the counter in the file afterwards.
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "invoicing/Jasenmaksuajo.h"
#include "laskuseura.h"
#include "scripteddialogs.h"
#include "seurat.h"
#include "testenv.h"

#include <QProcess>
#include <QtTest>

class TestKomentoLaskut : public QObject {
    Q_OBJECT

    struct Tulos {
        int koodi;
        QString ulos, virhe;
    };

    Tulos aja(const QStringList &argumentit)
    {
        QProcess p;
        p.start(QCoreApplication::applicationDirPath() + QStringLiteral("/../src/vonari-komento"), argumentit);
        if (!p.waitForFinished(60000))
            return {-1, {}, QStringLiteral("aikakatkaisu")};
        return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()), QString::fromUtf8(p.readAllStandardError())};
    }

private slots:
    void historiaanJaPoisto()
    {
        TestEnv env;
        ScriptedDialogs dlg;
        const QString kanta = seurat::Kopio(150, env.path(QStringLiteral("demo1.mdb")));
        qint64 laskuri = 0, historiassa = 0;
        const auto laskuta = [&] {
            auto d = db::Database::open(kanta);
            LueAsetukset(*d);
            laskuri = MainModule::Laskunro;
            historiassa = laskuseura::maara(*d, QStringLiteral("jmhist"));
            QVERIFY(LisaaJasenmaksut(Ajo(*d), laskuseura::lomake(), false).lisatty > 0);
        };
        laskuta();

        Tulos t = aja({kanta, QStringLiteral("poista-laskut")});
        QCOMPARE(t.koodi, 0);
        QCOMPARE(t.ulos, QStringLiteral("Kaikki lisätyt laskut poistettu.\n"));
        QVERIFY(t.virhe.contains(QStringLiteral("Haluatko varmasti poistaa kaikki lisätyt laskut?")));
        {
            auto d = db::Database::open(kanta);
            QCOMPARE(laskuseura::maara(*d, QStringLiteral("jm")), 0);
            QCOMPARE(KantaStore(*d).readString(QStringLiteral("Laskunro")).toLongLong(), laskuri);
        }

        laskuta();
        const qint64 avoimia = laskuseura::maara(*db::Database::open(kanta), QStringLiteral("jm"));
        t = aja({kanta, QStringLiteral("historiaan")});
        QCOMPARE(t.koodi, 0);
        QCOMPARE(t.ulos, QStringLiteral("Laskut siirretty historiaan.\n"));
        auto d = db::Database::open(kanta);
        QCOMPARE(laskuseura::maara(*d, QStringLiteral("jm")), 0);
        QCOMPARE(laskuseura::maara(*d, QStringLiteral("jmhist")), historiassa + avoimia);

        t = aja({kanta, QStringLiteral("historiaan"), QStringLiteral("--kaikki")});
        QCOMPARE(t.koodi, 2);
        QVERIFY(t.virhe.contains(QStringLiteral("historiaan ei ota valitsimia.")));
    }
};

QTEST_GUILESS_MAIN(TestKomentoLaskut)
#include "tst_komento_laskut.moc"
