// The progress on screen: the window's run buttons are off while a run is open, the bar follows the
// steps, and the user's "Keskeytä" stops the run, which says that nothing was saved.
#include "platform/ui/Edistymispalkki.h"
#include "scripteddialogs.h"

#include <QApplication>
#include <QDialog>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>
#include <QTimer>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

class tst_edistymispalkki : public QObject {
    Q_OBJECT

private slots:
    void ikkunanOmaPalkki()
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
    }

    // A run long enough to show its window is stopped from the window's button.
    void keskeytysIkkunasta()
    {
        ScriptedDialogs dialogit;
        int askelia = 0;
        QTimer::singleShot(700, [] {
            auto *ikkuna = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            QVERIFY(ikkuna);
            QCOMPARE(ikkuna->windowTitle(), u"Ominaisuutta lisätään"_s);
            auto *nappi = ikkuna->findChild<QPushButton *>();
            QVERIFY(nappi);
            QTest::mouseClick(nappi, Qt::LeftButton);
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

QTEST_MAIN(tst_edistymispalkki)
#include "tst_edistymispalkki.moc"
