// Saving in the member window as a user meets it: a save that keeps what another path wrote to
// the same member while the window showed him, a write that fails under the window (the reason
// is shown, the command stops, and everything typed stays for another try), and closing the
// program with a member half typed.
#include "app/frmMain.h"
#include "jasenikkuna.h"
#include "members/Hakuehdot.h"
#include "members/JasenMaksut.h"
#include "members/Perhe.h"
#include "members/ui/ArvoPaneeli.h"
#include "members/ui/frmJasenOminaisuudet.h"

#include <QCheckBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QToolButton>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using EditMode = db::Recordset::EditMode;
using testi::korvaa;

namespace {

const QString levyTaynna = u"Levy on täynnä"_s;

// Anna Aalto heads a family with Eino, and sings in the choir (a memo attribute); the window is
// open on her.
struct Seura : JasenSeura {
    qint64 anna = 0, eino = 0, kuoro = 0;
    frmJasenOminaisuudet *sivu = nullptr;

    Seura()
    {
        anna = jasen(u"Aalto"_s, u"Anna"_s, u"1"_s);
        eino = jasen(u"Aalto"_s, u"Eino"_s, u"2"_s);
        d->execute(u"UPDATE jr SET jrPerheenLaskutettava = 1 WHERE jrID = ?"_s, {anna});
        d->execute(u"INSERT INTO jrPerhe (jrPMID, jrPSubID) VALUES (?, ?), (?, ?)"_s, {anna, anna, anna, eino});
        d->execute(u"INSERT INTO pi (piNimi, piEnbldDate, piEnbldLong, piEnbldCurrency, piEnbldMemo) "
                   u"VALUES ('Kuoro', 0, 0, 0, 1)"_s);
        kuoro = d->lastInsertId();
        d->execute(u"INSERT INTO pt (ptjrID, ptpiID) VALUES (?, ?)"_s, {anna, kuoro});
    }
    bool avaa()
    {
        return JasenSeura::avaa() && (sivu = w->findChild<frmJasenOminaisuudet *>());
    }
    // Every write to `taulu` fails from now on, as on a full disk.
    void estaKirjoitus(const QString &taulu)
    {
        d->execute(u"CREATE TRIGGER esto_%1 BEFORE UPDATE ON %1 BEGIN SELECT RAISE(ABORT, '%2'); END"_s.arg(taulu, levyTaynna));
    }
    void salliKirjoitus(const QString &taulu) { d->execute(u"DROP TRIGGER esto_%1"_s.arg(taulu)); }
    QVariant muistio() { return d->scalar(u"SELECT ptValMemo FROM pt WHERE ptjrID = ?"_s, {anna}); }
    int luokka() { return d->scalar(u"SELECT jrPLapsi FROM jrPerhe WHERE jrPSubID = ?"_s, {eino}).toInt(); }
};

enum class Kesken { Luokka, Arvo, Rivi };

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

class TestFrmJasenTallennus : public QObject {
    Q_OBJECT

private slots:
    // Another path writes to the member in view, before or after the user begins to type; the
    // user then changes his first name and saves. The other path's change stays.
    void toisenPolunMuutosSailyy_data()
    {
        QTest::addColumn<int>("polku");
        QTest::addColumn<bool>("kirjoitettuEnsin");
        QTest::addColumn<QString>("sarake");
        QTest::addColumn<QString>("odotettu");
        const char *nimet[] = {"family invoice paid", "family's new address", "search selection"};
        const char *sarakkeet[] = {"jrJasenmaksu", "jrOsoite", "jrMukaan"};
        const char *arvot[] = {"1", "Uusi tie 5", "1"};
        for (int polku = 0; polku < 3; ++polku)
            for (bool ensin : {false, true})
                QTest::newRow(qPrintable(QString::fromLatin1(nimet[polku]) + (ensin ? u", while typing"_s : u""_s)))
                    << polku << ensin << QString::fromLatin1(sarakkeet[polku]) << QString::fromUtf8(arvot[polku]);
    }
    void toisenPolunMuutosSailyy()
    {
        QFETCH(int, polku);
        QFETCH(bool, kirjoitettuEnsin);
        QFETCH(QString, sarake);
        QFETCH(QString, odotettu);
        Seura s;
        const qint64 paa = s.anna, lapsi = s.eino;
        s.d->execute(u"UPDATE jr SET jrOsoite = 'Vanha tie 1', jrMukaan = 0"_s);
        s.d->execute(u"INSERT INTO jmhist (jmhjmID, jmhjmjrID, jmhjmPerhe, jmhjmJasMak, jmhjmMaksettu) VALUES (7, ?, 1, 1, 0)"_s,
                     {paa});
        s.d->execute(u"INSERT INTO pt (ptjrID, ptpiID) VALUES (?, ?)"_s, {lapsi, s.kuoro});
        QVERIFY(s.avaa());
        paina(s.w->cSeuraava);
        QCOMPARE(s.w->NykyinenId(), lapsi);

        QLineEdit *etunimi = s.w->tYhteystiedot[iEtunimi];
        if (kirjoitettuEnsin) {
            korvaa(etunimi, u"Be"_s);
            QCOMPARE(s.w->Data1()->editMode(), EditMode::Edit);
        }
        switch (polku) {
        case 0:
            QVERIFY(MerkitseLaskuMaksetuksi(*s.d, 7).loytyi);
            break;
        case 1:
            QCOMPARE(MuutaPerheenOsoitteet(*s.d, paa, true, {u"Uusi tie 5"_s, u"00200"_s, u"Helsinki"_s, QString()}), 2);
            break;
        default: {
            HakuParametrit p;
            p.ValitutOminaisuudet[0] = qint32(s.kuoro);
            AsetaMukaan(*s.d, p);
        }
        }
        QCOMPARE(s.arvo(lapsi, sarake).toString(), odotettu);
        if (kirjoitettuEnsin) {
            QTest::keyClick(etunimi, Qt::Key_End);
            QTest::keyClicks(etunimi, u"a"_s);
        } else
            korvaa(etunimi, u"Bea"_s);
        QTest::keyClick(s.w, Qt::Key_F3);
        QCOMPARE(s.w->Data1()->editMode(), EditMode::None);
        QCOMPARE(s.arvo(lapsi, u"jrEtunimi"_s).toString(), u"Bea"_s);
        QCOMPARE(s.arvo(lapsi, sarake).toString(), odotettu);
        // The window shows the row as stored, the other path's change with it.
        if (polku == 1)
            QCOMPARE(s.teksti(iOsoite), u"Uusi tie 5"_s);
        QVERIFY(s.dlg.unexpected.isEmpty());
    }

    void kirjoitusVirheSailyttaaRivin_data()
    {
        QTest::addColumn<int>("kesken");   // what is pending: family classes, a value or the row
        QTest::addColumn<QString>("taulu"); // the table whose write fails
        QTest::addColumn<QString>("komento");
        const std::tuple<const char *, Kesken, const char *> tapaukset[] = {
            {"jrPerhe", Kesken::Luokka, "cSeuraava"}, {"jrPerhe", Kesken::Luokka, "cTallenna"}, {"pt", Kesken::Arvo, "cSeuraava"},
            {"pt", Kesken::Arvo, "cPoista"},          {"jr", Kesken::Rivi, "cPoista"},          {"jr", Kesken::Rivi, "cUusi"}};
        for (const auto &[taulu, kesken, komento] : tapaukset)
            QTest::addRow("%s %s", taulu, komento) << int(kesken) << QString::fromLatin1(taulu) << QString::fromLatin1(komento);
    }

    // The family classes, the attribute value or the row cannot be written when a command
    // leaves the row: the user is told why, no question follows, and the window stays on the
    // member with everything typed; once the write works again, Tallenna stores it all.
    void kirjoitusVirheSailyttaaRivin()
    {
        QFETCH(int, kesken);
        QFETCH(QString, taulu);
        QFETCH(QString, komento);
        Seura s;
        QVERIFY(s.avaa());
        // Each edit puts the row in edit mode; the first name is typed on its own tab.
        if (Kesken(kesken) == Kesken::Rivi) {
            testi::korvaa(s.w->tYhteystiedot[iEtunimi], u"Annukka"_s);
        } else if (Kesken(kesken) == Kesken::Luokka) {
            s.w->TabStr1->setCurrentIndex(2);
            s.w->lstFamily->setFocus();
            s.w->lstFamily->setCurrentRow(1);
            paina(s.w->chkPerheLuokka[2]);
        } else if (Kesken(kesken) == Kesken::Arvo) {
            s.w->TabStr1->setCurrentWidget(s.sivu);
            testi::kirjoita(s.sivu->arvot->tMemo, u"Altto"_s);
        }
        s.estaKirjoitus(taulu);

        paina(s.w->findChild<QToolButton *>(komento));
        QCOMPARE(s.dlg.allTexts().size(), 1);
        QVERIFY2(s.dlg.messages().value(0).contains(levyTaynna), qPrintable(s.dlg.allTexts().join(u'|')));
        QCOMPARE(s.w->NykyinenId(), s.anna);
        QCOMPARE(s.w->Data1()->editMode(), EditMode::Edit);
        QCOMPARE(s.maara(u"jr"_s), 2);
        if (Kesken(kesken) == Kesken::Rivi) {
            QCOMPARE(s.teksti(iEtunimi), u"Annukka"_s);
            QCOMPARE(s.arvo(s.anna, u"jrEtunimi"_s).toString(), u"Anna"_s);
        } else if (Kesken(kesken) == Kesken::Luokka) {
            QVERIFY(s.w->chkPerheLuokka[2]->isChecked() && s.w->bPerheLuokkaMuuttunut);
        } else if (Kesken(kesken) == Kesken::Arvo) {
            QCOMPARE(s.sivu->arvot->tMemo->toPlainText(), u"Altto"_s);
            QVERIFY(s.w->bPiirreMuuttunut());
        }

        s.salliKirjoitus(taulu);
        paina(s.w->cTallenna);
        if (Kesken(kesken) == Kesken::Rivi)
            QCOMPARE(s.arvo(s.anna, u"jrEtunimi"_s).toString(), u"Annukka"_s);
        else if (Kesken(kesken) == Kesken::Luokka)
            QCOMPARE(s.luokka(), 1);
        else if (Kesken(kesken) == Kesken::Arvo)
            QCOMPARE(s.muistio().toString(), u"Altto"_s);
        QCOMPARE(s.dlg.allTexts().size(), 1);
        QVERIFY(s.dlg.unexpected.isEmpty());
    }

    // A value that could not be stored stays under its own attachment when another is chosen,
    // so that typing on cannot move it to the other one.
    void arvoJaaOmalleLiitokselleen()
    {
        Seura s;
        s.d->execute(u"INSERT INTO pi (piNimi, piEnbldMemo) VALUES ('Orkesteri', 1)"_s);
        s.d->execute(u"INSERT INTO pt (ptjrID, ptpiID) VALUES (?, ?)"_s, {s.anna, s.d->lastInsertId()});
        QVERIFY(s.avaa());
        s.w->TabStr1->setCurrentWidget(s.sivu);
        QCOMPARE(s.sivu->lstAllPt->count(), 2);
        testi::kirjoita(s.sivu->arvot->tMemo, u"Altto"_s);
        s.estaKirjoitus(u"pt"_s);
        s.sivu->lstAllPt->setFocus();
        QTest::keyClick(s.sivu->lstAllPt, Qt::Key_Down);
        QCOMPARE(s.dlg.messages().size(), 1);
        QCOMPARE(s.sivu->lstAllPt->currentRow(), 0);
        QCOMPARE(s.sivu->arvot->tMemo->toPlainText(), u"Altto"_s);

        s.salliKirjoitus(u"pt"_s);
        s.sivu->arvot->tMemo->moveCursor(QTextCursor::End);
        testi::kirjoita(s.sivu->arvot->tMemo, u"!"_s);
        paina(s.w->cTallenna);
        QCOMPARE(s.muistio().toString(), u"Altto!"_s);
        QCOMPARE(s.d->scalar(u"SELECT count(*) FROM pt WHERE ptValMemo IS NOT NULL"_s).toInt(), 1);
    }

    // Closing the program leaves the member window's row as any command that leaves it does: by
    // the menu, the button or the close box, a half typed member is stored, and a taken number
    // keeps the program open with everything typed.
    void puolivalmisJasenTallentuu_data()
    {
        QTest::addColumn<int>("tapa");
        QTest::addColumn<bool>("lisays");   // a new member, else an edit of the one in view
        QTest::addColumn<QString>("numero"); // the member number typed; "9" is taken
        QTest::newRow("valikko, muokkaus tallentuu") << int(Tapa::Valikko) << false << u"5"_s;
        QTest::newRow("painike, uusi tallentuu") << int(Tapa::Painike) << true << u"6"_s;
        QTest::newRow("ruksi, uusi tallentuu") << int(Tapa::Ruksi) << true << u"6"_s;
        QTest::newRow("ruksi, varattu numero pitää ohjelman auki") << int(Tapa::Ruksi) << false << u"9"_s;
        QTest::newRow("valikko, uusi varattu numero pitää ohjelman auki") << int(Tapa::Valikko) << true << u"9"_s;
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
        QVERIFY(s.w && QTest::qWaitForWindowActive(s.w));
        QTest::mouseClick(paa.cJasenrekisteri, Qt::LeftButton); // the register opens once
        QCOMPARE(paa.findChildren<frmJasen *>().size(), 1);
        if (lisays)
            paina(s.w->cUusi);
        testi::korvaa(s.w->tYhteystiedot[iJasennumero], numero);
        testi::korvaa(s.w->tYhteystiedot[iSukunimi], u"Kesken"_s);

        sulje(paa, Tapa(tapa));
        const int tallennettu = s.maara(u"jr WHERE jrSukunimi = 'Kesken' AND jrJasennumero = ?"_s, {numero});
        if (numero == u"9"_s) {
            QCOMPARE(s.dlg.messages(), QStringList{u"Jäsennumero #9 on varattu jo toiselle jäsenelle."_s});
            QVERIFY(paa.isVisible() && s.w && s.w->isVisible());
            QCOMPARE(s.w->Data1()->editMode(), lisays ? EditMode::AddNew : EditMode::Edit);
            QCOMPARE(s.teksti(iSukunimi), u"Kesken"_s);
            QCOMPARE(tallennettu, 0);
            QCOMPARE(s.arvo(anna, u"jrSukunimi"_s).toString(), u"Aalto"_s);
        } else {
            QVERIFY(s.dlg.shown.isEmpty() && !paa.isVisible());
            QTRY_VERIFY(!s.w);
            QCOMPARE(tallennettu, 1);
            QCOMPARE(s.maara(u"jr"_s), lisays ? 3 : 2);
        }
    }
};

QTEST_MAIN(TestFrmJasenTallennus)
#include "tst_frmjasen_tallennus.moc"
