// The whole start as a user meets it, from the settings file to the shown main window: the
// demonstration club at the first start, the start's checks and the move of older settings.
#include "app/Main.h"
#include "app/frmMain.h"
#include "reports/Tulostus.h"
#include "ydinapu.h"

using namespace MainModule;

class TestAloitus : public QObject {
    Q_OBJECT

    // A first start on an empty settings file leaves the demonstration club in the program's
    // folder; `asetukset` are then stored in it for the next start.
    static void ensimmainenKaynnistys(const QList<std::pair<QString, QString>> &asetukset)
    {
        {
            ScriptedDialogs d;
            QVERIFY(Main({0, {}}));
        }
        auto kanta = db::Database::open(DatabasePath);
        for (const auto &[avain, arvo] : asetukset)
            KantaStore(*kanta).writeString(avain, arvo);
        resetGlobals();
    }

private slots:
    void firstStartShowsTheDemonstrationClub()
    {
        TestEnv env;
        ScriptedDialogs d;
        std::unique_ptr<frmMain> w = Main({0, {}});
        const QString demo = files::joinPath(files::programFolder(), u"demo1.mdb"_s);
        QVERIFY(w && w->isVisible());
        QCOMPARE(w->windowTitle(), u"Vonari - Vanhankylän Urheiluseura ry"_s);
        QCOMPARE(DatabasePath, demo);
        QVERIFY(w->mPerustaTietokanta->isVisible());
        QCOMPARE(Raportti().DataFiles[0], demo); // the report engine is ready for the club
        QCOMPARE(QSettings(env.iniPath(), QSettings::IniFormat).value(u"VONARI/Database"_s).toString(), demo);
        QVERIFY2(d.unexpected.isEmpty() && d.shown.isEmpty(), qPrintable(d.allTexts().join(u'\n')));
    }

    // The password comes before the backup reminder; a wrong one ends the start before the main
    // window, and a No to the reminder changes nothing.
    void passwordAndBackupReminder()
    {
        TestEnv env;
        const QString varmistettu = kello::tanaan().addDays(-11).toString(Qt::ISODate);
        ensimmainenKaynnistys({{u"Salasana"_s, u"Sähly 2024"_s}, {u"MuistutaVarm"_s, u"1"_s},
                               {u"VarmuuskopioPv"_s, u"10"_s}, {u"BackupDate"_s, varmistettu}});
        {
            ScriptedDialogs d;
            d.type(u"sähly 2024"_s);
            QVERIFY(!Main({0, {}}));
            QVERIFY(d.messages().contains(u"Annettu salasana on väärin, ohjelma lopetetaan."_s));
            QVERIFY(d.unexpected.isEmpty());
        }
        resetGlobals();
        ScriptedDialogs d;
        d.type(u"Sähly 2024"_s);
        d.no();
        QVERIFY(Main({0, {}}));
        QCOMPARE(d.shown.size(), 2);
        QVERIFY(d.shown.last().text.startsWith(u"Varmuuskopion tekemisestä on yli 10 päivää."_s));
        QCOMPARE(KantaStore(*db::Database::open(DatabasePath)).readString(u"BackupDate"_s), varmistettu);
    }

    void olderSettingsSendTheUserToTheSettingsWindows()
    {
        TestEnv env;
        ensimmainenKaynnistys({{u"AsKannassa"_s, QString()}});
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
        QVERIFY(!Main({0, {}}));
        QCOMPARE(avatut, (QStringList{u"frmAsetukset"_s, u"frmAsetuksetLisa"_s}));
        QCOMPARE(d.messages().last(), u"Käynnistä Vonari nyt uudestaan."_s);
    }
};

QTEST_MAIN(TestAloitus)
#include "tst_aloitus.moc"
