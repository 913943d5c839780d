// The checks of the start that need no window: password, backup reminder and the choice of club.
#include "core/Kaynnistys.h"
#include "ydinapu.h"

using namespace MainModule;

class TestKaynnistys : public Testipohja {
    Q_OBJECT

private slots:
    void password_data()
    {
        QTest::addColumn<QString>("salasana");
        QTest::addColumn<std::optional<QString>>("vastaus"); // none: cancelled
        QTest::addColumn<bool>("jatkuu");
        QTest::newRow("ei salasanaa, ei kysytä") << "" << std::optional<QString>() << true;
        QTest::newRow("ääkköset oikein") << "Äänestys-Öljy" << std::optional<QString>(u"Äänestys-Öljy"_s) << true;
        QTest::newRow("kirjainkoko väärin") << "Kissa123" << std::optional<QString>(u"kissa123"_s) << false;
        QTest::newRow("loppuvälilyönti puuttuu") << "salasana " << std::optional<QString>(u"salasana"_s) << false;
        QTest::newRow("peruutettu") << "Kissa123" << std::optional<QString>() << false;
    }
    void password()
    {
        QFETCH(QString, salasana);
        QFETCH(std::optional<QString>, vastaus);
        QFETCH(bool, jatkuu);
        Salasana = salasana;
        if (!salasana.isEmpty())
            vastaus ? dlg->type(*vastaus) : dlg->cancelInput();
        QCOMPARE(TarkistaSalasana(), jatkuu);
        QCOMPARE(dlg->shown.isEmpty(), salasana.isEmpty());
        if (!salasana.isEmpty())
            QCOMPARE(dlg->shown.first().text, u"Anna salasana"_s);
        QCOMPARE(dlg->messages(), jatkuu ? QStringList() : QStringList{u"Annettu salasana on väärin, ohjelma lopetetaan."_s});
    }

    void backupReminder_data()
    {
        QTest::addColumn<bool>("muistuta");
        QTest::addColumn<int>("paivaaSitten");
        QTest::addColumn<bool>("kysytaan");
        QTest::addColumn<bool>("kylla");
        QTest::newRow("tasan väli") << true << 30 << false << false;
        QTest::newRow("päivä yli") << true << 31 << true << true;
        QTest::newRow("päivä yli, ei nyt") << true << 31 << true << false;
        QTest::newRow("tulevaisuudessa") << true << -31 << true << true;
        QTest::newRow("muistutus pois") << false << 400 << false << false;
    }
    // Yes makes the backup; No changes nothing, and the next start asks again.
    void backupReminder()
    {
        QFETCH(bool, muistuta);
        QFETCH(int, paivaaSitten);
        QFETCH(bool, kysytaan);
        QFETCH(bool, kylla);
        const QDate tanaan(2024, 3, 1);
        MuistutaVarm = muistuta;
        VarmuuskopioPv = 30;
        BackupDate = tanaan.addDays(-paivaaSitten);
        int varmistuksia = 0;
        for (int kerta = 0; kerta < (kysytaan && !kylla ? 2 : 1); ++kerta) {
            if (kysytaan)
                dlg->answer(kylla ? dlg::Answer::Yes : dlg::Answer::No);
            MuistutaVarmuuskopiosta(tanaan, [&] { ++varmistuksia; });
        }
        QCOMPARE(varmistuksia, kylla ? 1 : 0);
        QCOMPARE(BackupDate, tanaan.addDays(-paivaaSitten));
        QCOMPARE(dlg->shown.size(), !kysytaan ? 0 : kylla ? 1 : 2);
        for (const auto &n : dlg->shown)
            QCOMPARE(n.text, u"Varmuuskopion tekemisestä on yli 30 päivää.\nTehdäänkö varmuuskopio nyt?"_s);
    }

    void clubChoice()
    {
        DatabasePath = u"/data/seura.mdb"_s;
        dlg->choosePath(u"/data/toinen.mdb"_s);
        dlg->choosePath(QString()); // the second choice is cancelled: the path stays
        for (int kerta = 0; kerta < 2; ++kerta) {
            ValitseSeura();
            QCOMPARE(DatabasePath, u"/data/toinen.mdb"_s);
        }
        QVERIFY(!QFile::exists(env->iniPath())); // the choice is for this run only
    }
};

QTEST_MAIN(TestKaynnistys)
#include "tst_kaynnistys.moc"
