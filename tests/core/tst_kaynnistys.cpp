// The checks of the start that need no window: password, backup reminder, currency symbol and
// the choice of club.
#include "core/Kaynnistys.h"
#include "core/MainModule.h"
#include "platform/files.h"
#include "testipohja.h"

#include <QtTest>

using namespace MainModule;

class TestKaynnistys : public Testipohja {
    Q_OBJECT

private slots:
    void password_data()
    {
        QTest::addColumn<QString>("salasana");
        QTest::addColumn<bool>("peruuta");
        QTest::addColumn<QString>("vastaus");
        QTest::addColumn<bool>("jatkuu");
        QTest::newRow("oikein") << "Kissa123" << false << "Kissa123" << true;
        QTest::newRow("kirjainkoko väärin") << "Kissa123" << false << "kissa123" << false;
        QTest::newRow("peruutettu") << "Kissa123" << true << "" << false;
        QTest::newRow("välilyönnit oikein") << "  " << false << "  " << true;
        QTest::newRow("loppuvälilyönti puuttuu") << "salasana " << false << "salasana" << false;
        QTest::newRow("ääkköset oikein") << "Äänestys-Öljy" << false << "Äänestys-Öljy" << true;
    }

    void password()
    {
        QFETCH(QString, salasana);
        QFETCH(bool, peruuta);
        QFETCH(QString, vastaus);
        QFETCH(bool, jatkuu);
        Salasana = salasana;
        peruuta ? dlg->cancelInput() : dlg->type(vastaus);

        QCOMPARE(TarkistaSalasana(), jatkuu);
        QCOMPARE(dlg->shown.first().text, QStringLiteral("Anna salasana"));
        const QStringList odotettu = jatkuu ? QStringList() : QStringList{QStringLiteral("Annettu salasana on väärin, ohjelma lopetetaan.")};
        QCOMPARE(dlg->messages(), odotettu);
    }

    void noPasswordNoPrompt()
    {
        QVERIFY(TarkistaSalasana());
        QVERIFY(dlg->shown.isEmpty());
    }

    void backupReminder_data()
    {
        QTest::addColumn<bool>("muistuta");
        QTest::addColumn<int>("paivaaSitten");
        QTest::addColumn<int>("vali");
        QTest::addColumn<bool>("kysytaan");
        QTest::addColumn<bool>("kylla");
        QTest::newRow("tasan väli") << true << 30 << 30 << false << false;
        QTest::newRow("päivä yli") << true << 31 << 30 << true << true;
        QTest::newRow("päivä yli, ei nyt") << true << 31 << 30 << true << false;
        QTest::newRow("tänään") << true << 0 << 0 << false << false;
        QTest::newRow("tulevaisuudessa") << true << -31 << 30 << true << true;
        QTest::newRow("muistutus pois") << false << 400 << 30 << false << false;
    }

    // Yes makes the backup; No changes nothing, and the next start asks again.
    void backupReminder()
    {
        QFETCH(bool, muistuta);
        QFETCH(int, paivaaSitten);
        QFETCH(int, vali);
        QFETCH(bool, kysytaan);
        QFETCH(bool, kylla);
        const QDate tanaan(2024, 3, 1);
        MuistutaVarm = muistuta;
        VarmuuskopioPv = vali;
        BackupDate = tanaan.addDays(-paivaaSitten);
        int varmistuksia = 0;
        if (kysytaan)
            dlg->answer(kylla ? dlg::Answer::Yes : dlg::Answer::No);

        MuistutaVarmuuskopiosta(tanaan, [&] { ++varmistuksia; });

        QCOMPARE(varmistuksia, kylla ? 1 : 0);
        QCOMPARE(BackupDate, tanaan.addDays(-paivaaSitten));
        if (!kysytaan) {
            QVERIFY(dlg->shown.isEmpty());
            return;
        }
        QCOMPARE(dlg->shown.size(), 1);
        QCOMPARE(dlg->shown.first().text, QStringLiteral("Varmuuskopion tekemisestä on yli %1 päivää.\n"
                                                         "Tehdäänkö varmuuskopio nyt?").arg(vali));
        if (!kylla) {
            dlg->no();
            MuistutaVarmuuskopiosta(tanaan, [&] { ++varmistuksia; });
            QCOMPARE(dlg->shown.size(), 2);
        }
    }

    void currencySymbol_data()
    {
        QTest::addColumn<QString>("tunnus");
        QTest::addColumn<bool>("ilmoitetaan");
        QTest::newRow("mk") << "mk" << true;
        QTest::newRow("isot ja välit") << " MK " << true;
        QTest::newRow("euro") << "€" << false;
        QTest::newRow("mkk") << "mkk" << false;
        QTest::newRow("tyhjä") << "" << false;
    }

    void currencySymbol()
    {
        QFETCH(QString, tunnus);
        QFETCH(bool, ilmoitetaan);
        QCOMPARE(TarkistaValuuttatunnus(tunnus), ilmoitetaan);
        if (!ilmoitetaan) {
            QVERIFY(dlg->shown.isEmpty());
            return;
        }
        const QStringList rivit = dlg->messages().value(0).split(QLatin1Char('\n'));
        QCOMPARE(rivit.size(), 3);
        QCOMPARE(rivit[0], QStringLiteral("Tietokoneen valuuttatunnuksena on vielä 'mk'."));
        QCOMPARE(rivit[1], QStringLiteral("Muuta valuuttatunnus Ohjauspaneelista kohdasta Kansallisuusasetukset."));
        QVERIFY(rivit[2].contains(QLatin1Char('@')));
    }

    void clubChoice()
    {
        QCOMPARE(SeuranValinnanAloitus(QStringLiteral("/data/SEURA.MDB")), QStringLiteral("/data/SEURA.MDB"));
        QCOMPARE(SeuranValinnanAloitus(QStringLiteral("/data/seura.db")), files::programFolder());
        QCOMPARE(SeuranValinnanAloitus(QString()), files::programFolder());

        DatabasePath = QStringLiteral("/data/seura.mdb");
        dlg->choosePath(QStringLiteral("/data/toinen.mdb"));
        ValitseSeura();
        QCOMPARE(DatabasePath, QStringLiteral("/data/toinen.mdb"));
        dlg->choosePath(QString()); // cancelled: the path stays
        ValitseSeura();
        QCOMPARE(DatabasePath, QStringLiteral("/data/toinen.mdb"));
        QVERIFY(!QFile::exists(env->iniPath())); // the choice is for this run only
    }
};

QTEST_MAIN(TestKaynnistys)
#include "tst_kaynnistys.moc"
