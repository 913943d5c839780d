// The member window when a write fails under it: the reason is shown, the command stops, and
// everything the user typed stays on screen for another try.
#include "jasenikkuna.h"
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

} // namespace

class TestFrmJasenVirheet : public QObject {
    Q_OBJECT

private slots:
    void kirjoitusVirheSailyttaaRivin_data()
    {
        QTest::addColumn<int>("kesken");   // what is pending: family classes, a value or the row
        QTest::addColumn<QString>("taulu"); // the table whose write fails
        QTest::addColumn<QString>("komento");
        const std::tuple<const char *, Kesken, const char *> tapaukset[] = {
            {"jrPerhe", Kesken::Luokka, "cSeuraava"}, {"jrPerhe", Kesken::Luokka, "cPoista"},
            {"jrPerhe", Kesken::Luokka, "cTallenna"}, {"pt", Kesken::Arvo, "cSeuraava"},
            {"pt", Kesken::Arvo, "cPoista"},          {"jr", Kesken::Rivi, "cPoista"},
            {"jr", Kesken::Rivi, "cSeuraava"},        {"jr", Kesken::Rivi, "cUusi"},
        };
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
        QCOMPARE(s.w->NykyinenId(), s.anna);
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
            QVERIFY(s.w->chkPerheLuokka[2]->isChecked());
            QVERIFY(s.w->bPerheLuokkaMuuttunut);
            QCOMPARE(s.w->lstFamily->currentRow(), 1);
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
};

QTEST_MAIN(TestFrmJasenVirheet)
#include "tst_frmjasen_virheet.moc"
