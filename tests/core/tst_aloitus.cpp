// The whole start as a user meets it, from the settings file to the shown main window: the
// demonstration club at the first start, the password, the backup reminder and the move of
// older settings.
#include "platform/kello.h"
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "app/Main.h"
#include "app/frmMain.h"
#include "platform/database.h"
#include "platform/files.h"
#include "reports/Tulostus.h"
#include "scripteddialogs.h"
#include "testenv.h"

#include <QApplication>
#include <QTimer>
#include <QSettings>
#include <QtTest>

using namespace MainModule;

class TestAloitus : public QObject {
    Q_OBJECT

private:
    static constexpr const char *kDemoSeura = "Vanhankylän Urheiluseura ry";

    // A first start on an empty settings file leaves the demonstration club in the program's
    // folder; `asetukset` then changes settings in it for the next start.
    static void ensimmainenKaynnistys(const std::function<void(KantaStore &)> &asetukset = {})
    {
        ScriptedDialogs d;
        std::unique_ptr<frmMain> w = Main({0, {}});
        QVERIFY(w);
        w.reset();
        if (asetukset) {
            auto kanta = db::Database::open(DatabasePath);
            KantaStore store(*kanta);
            asetukset(store);
        }
        resetGlobals();
    }

    static QString demoPolku() { return files::joinPath(files::programFolder(), QStringLiteral("demo1.mdb")); }

private slots:
    void firstStartShowsTheDemonstrationClub()
    {
        TestEnv env;
        ScriptedDialogs d;
        std::unique_ptr<frmMain> w = Main({0, {}});
        QVERIFY(w);
        QVERIFY(w->isVisible());
        QCOMPARE(w->windowTitle(), QStringLiteral("Vonari - ") + QString::fromUtf8(kDemoSeura));
        QCOMPARE(DatabasePath, demoPolku());
        QVERIFY(files::FileExists(demoPolku()));
        QVERIFY(w->mPerustaTietokanta->isVisible());
        QCOMPARE(Raportti().DataFiles[0], demoPolku()); // the report engine is ready for the club
        QCOMPARE(QSettings(env.iniPath(), QSettings::IniFormat).value(QStringLiteral("VONARI/Database")).toString(),
                 demoPolku());
        QVERIFY2(d.unexpected.isEmpty(), qPrintable(d.unexpected.join(QLatin1Char('\n'))));
        QVERIFY2(d.shown.isEmpty(), qPrintable(d.allTexts().join(QLatin1Char('\n'))));
    }

    // A wrong password ends the start before the main window.
    void wrongPasswordEndsTheStart()
    {
        TestEnv env;
        ensimmainenKaynnistys([](KantaStore &s) { s.writeString(QStringLiteral("Salasana"), QStringLiteral("Sähly 2024")); });
        ScriptedDialogs d;
        d.type(QStringLiteral("sähly 2024"));
        QVERIFY(!Main({0, {}}));
        QVERIFY(d.messages().contains(QStringLiteral("Annettu salasana on väärin, ohjelma lopetetaan.")));
        QVERIFY(d.unexpected.isEmpty());
    }

    void backupReminderAtStart()
    {
        TestEnv env;
        ensimmainenKaynnistys([](KantaStore &s) {
            s.writeString(QStringLiteral("MuistutaVarm"), QStringLiteral("1"));
            s.writeString(QStringLiteral("VarmuuskopioPv"), QStringLiteral("10"));
            s.writeString(QStringLiteral("BackupDate"), kello::tanaan().addDays(-11).toString(Qt::ISODate));
        });
        ScriptedDialogs d;
        d.no();
        std::unique_ptr<frmMain> w = Main({0, {}});
        QVERIFY(w);
        QCOMPARE(d.shown.size(), 1);
        auto kanta = db::Database::open(DatabasePath);
        QCOMPARE(KantaStore(*kanta).readString(QStringLiteral("BackupDate")),
                 kello::tanaan().addDays(-11).toString(Qt::ISODate));
    }

    void olderSettingsSendTheUserToTheSettingsWindows()
    {
        TestEnv env;
        ensimmainenKaynnistys([](KantaStore &s) { s.writeString(QStringLiteral("AsKannassa"), QString()); });
        ScriptedDialogs d;
        QStringList avatut;
        QTimer sulkija;
        connect(&sulkija, &QTimer::timeout, [&] {
            if (QWidget *ikkuna = QApplication::activeModalWidget()) {
                avatut << ikkuna->objectName();
                ikkuna->close();
            }
        });
        sulkija.start(20);
        std::unique_ptr<frmMain> w = Main({0, {}});
        QVERIFY(!w);
        QCOMPARE(avatut, (QStringList{QStringLiteral("frmAsetukset"), QStringLiteral("frmAsetuksetLisa")}));
        QCOMPARE(d.messages().last(), QStringLiteral("Käynnistä Vonari nyt uudestaan."));
    }
};

QTEST_MAIN(TestAloitus)
#include "tst_aloitus.moc"
