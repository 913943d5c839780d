// Closing the program while a member is half typed: the member window leaves its row as any
// command that leaves it does, and a row that cannot be written keeps the program open.
#include "app/frmMain.h"
#include "jasenikkuna.h"

#include <QAction>
#include <QApplication>
#include <QToolButton>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using EditMode = db::Recordset::EditMode;

namespace {

enum class Tapa { Valikko, Painike, Ruksi };

// Closes the main window as the user does: Tiedosto -> Sulje, the Sulje button, or the window's
// close box (which the desktop's logout uses too).
void sulje(frmMain &paa, Tapa tapa)
{
    switch (tapa) {
    case Tapa::Valikko: paa.mLopetus->trigger(); break;
    case Tapa::Painike: QTest::mouseClick(paa.cSulje, Qt::LeftButton); break;
    case Tapa::Ruksi: paa.close(); break;
    }
}

} // namespace

class TestOhjelmanLopetus : public QObject {
    Q_OBJECT

private slots:
    void puolivalmisJasenTallentuu_data()
    {
        QTest::addColumn<int>("tapa");
        QTest::addColumn<bool>("lisays");   // a new member, else an edit of the one in view
        QTest::addColumn<QString>("numero"); // the member number typed; "9" is taken
        const std::pair<const char *, Tapa> tavat[] = {{"valikko", Tapa::Valikko}, {"painike", Tapa::Painike}, {"ruksi", Tapa::Ruksi}};
        for (const auto &[nimi, tapa] : tavat) {
            QTest::addRow("%s, muokkaus tallentuu", nimi) << int(tapa) << false << u"5"_s;
            QTest::addRow("%s, uusi tallentuu", nimi) << int(tapa) << true << u"6"_s;
            QTest::addRow("%s, varattu numero pitää ohjelman auki", nimi) << int(tapa) << false << u"9"_s;
        }
        QTest::addRow("uusi, varattu numero pitää ohjelman auki") << int(Tapa::Ruksi) << true << u"9"_s;
    }

    void puolivalmisJasenTallentuu()
    {
        QFETCH(int, tapa);
        QFETCH(bool, lisays);
        QFETCH(QString, numero);
        JasenSeura s;
        const qint64 anna = s.jasen(u"Aalto"_s, u"Anna"_s, u"1"_s);
        s.jasen(u"Berg"_s, u"Bo"_s, u"9"_s);
        frmMain paa;
        paa.show();
        QVERIFY(QTest::qWaitForWindowActive(&paa));
        QTest::mouseClick(paa.cJasenrekisteri, Qt::LeftButton);
        s.w = paa.findChild<frmJasen *>();
        QVERIFY(s.w);
        QVERIFY(QTest::qWaitForWindowActive(s.w));
        if (lisays)
            paina(s.w->cUusi);
        testi::korvaa(s.w->tYhteystiedot[iJasennumero], numero);
        testi::korvaa(s.w->tYhteystiedot[iSukunimi], u"Kesken"_s);

        sulje(paa, Tapa(tapa));
        const int tallennettu = s.maara(u"jr WHERE jrSukunimi = 'Kesken' AND jrJasennumero = ?"_s, {numero});
        if (numero == u"9"_s) {
            QCOMPARE(s.dlg.messages(), QStringList{u"Jäsennumero #9 on varattu jo toiselle jäsenelle."_s});
            QVERIFY(paa.isVisible());
            QVERIFY(s.w && s.w->isVisible());
            QCOMPARE(s.w->Data1()->editMode(), lisays ? EditMode::AddNew : EditMode::Edit);
            QCOMPARE(s.teksti(iSukunimi), u"Kesken"_s);
            QCOMPARE(tallennettu, 0);
            QCOMPARE(s.arvo(anna, u"jrSukunimi"_s).toString(), u"Aalto"_s);
        } else {
            QVERIFY(s.dlg.shown.isEmpty());
            QVERIFY(!paa.isVisible());
            QTRY_VERIFY(!s.w);
            QCOMPARE(tallennettu, 1);
            QCOMPARE(s.maara(u"jr"_s), lisays ? 3 : 2);
        }
    }
};

QTEST_MAIN(TestOhjelmanLopetus)
#include "tst_ohjelmanlopetus.moc"
