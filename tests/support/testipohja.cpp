#include "testipohja.h"

#include "testiapu.h"

#include <QtTest>

void Testipohja::init()
{
    env = std::make_unique<TestEnv>();
    dlg = std::make_unique<ScriptedDialogs>();
}

void Testipohja::cleanup()
{
    const QStringList odottamattomat = dlg->unexpected;
    const int vastaamatta = dlg->pendingReplies();
    const int ikkunoita = testi::avaamatta();
    dlg.reset();
    env.reset();
    QVERIFY2(odottamattomat.isEmpty(), qPrintable(odottamattomat.join(QLatin1Char('\n'))));
    QCOMPARE(vastaamatta, 0);
    QCOMPARE(ikkunoita, 0); // a window the test waited for never opened
}
