#include "core/Asetukset.h"
#include "jasenikkuna.h"
#include "members/ui/frmPerheenUusiOsoite.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QToolButton>
#include <QTreeView>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using EditMode = db::Recordset::EditMode;

namespace {

using Seura = JasenSeura;
using testi::kirjoita;

void jata(QWidget *kentta, QWidget *seuraava)
{
    kentta->setFocus();
    seuraava->setFocus(Qt::TabFocusReason);
}

} // namespace

class TestFrmJasen : public QObject {
    Q_OBJECT

private slots:
    // The row goes to edit mode at the first key; Ctrl+Z outside the text boxes drops the edit, a
    // move stores it.
    void muokkausAlkaaEnsimmaisestaNappaimesta()
    {
        Seura s;
        const qint64 a = s.jasen(u"Aalto"_s, u"Anna"_s, u"1"_s);
        const qint64 b = s.jasen(u"Berg"_s, u"Bo"_s, u"2"_s);
        QVERIFY(s.avaa());
        QCOMPARE(s.w->NykyinenId(), a);

        kirjoita(s.w->tYhteystiedot[iSukunimi], u"x"_s);
        QCOMPARE(s.w->Data1()->editMode(), EditMode::Edit);
        s.w->chkJasenmaksu->setFocus();
        QTest::keyClick(s.w->chkJasenmaksu, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(s.w->Data1()->editMode(), EditMode::None);
        QCOMPARE(s.teksti(iSukunimi), u"Aalto"_s);

        s.w->tYhteystiedot[iSukunimi]->selectAll();
        kirjoita(s.w->tYhteystiedot[iSukunimi], u"O'Connor; 100%"_s);
        QTest::keyClick(s.w->tYhteystiedot[iSukunimi], Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(s.arvo(a, u"jrSukunimi"_s).toString(), u"O'Connor; 100%"_s);
        QCOMPARE(s.w->NykyinenId(), b);
        QCOMPARE(s.w->Data1()->editMode(), EditMode::None);

        // A change of a tick counts as an edit as well.
        s.w->chkJasenmaksu->click();
        QCOMPARE(s.w->Data1()->editMode(), EditMode::Edit);
        paina(s.w->cTallenna);
        QCOMPARE(s.arvo(b, u"jrJasenmaksu"_s).toInt(), 1);
        QVERIFY(s.dlg.shown.isEmpty());
    }

    // Peru drops a new member and goes back to the member shown before; the number given stays
    // used. A row pasted from the clipboard is a new member with the pasted number.
    void uusiJasenPeruutetaanJaLiimataan()
    {
        Seura s;
        s.jasen(u"Aalto"_s, u"Anna"_s, u"1"_s);
        MainModule::AutoJasennumero = true;
        MainModule::Jasennro = 100;
        QVERIFY(s.avaa());
        QTest::keyClick(s.w, Qt::Key_F2);
        QVERIFY(s.w->tYhteystiedot[iSukunimi]->hasFocus());
        kirjoita(s.w->tYhteystiedot[iSukunimi], u"Öhman"_s);
        paina(s.w->cPeru);
        QCOMPARE(s.maara(u"jr"_s), 1);
        QCOMPARE(MainModule::Jasennro, 101L);
        QCOMPARE(s.teksti(iSukunimi), u"Aalto"_s);
        QCOMPARE(s.w->Data1()->editMode(), EditMode::None);

        QGuiApplication::clipboard()->setText(u"17;Virtanen"_s);
        s.w->mLiimaaLeikepoydalta->trigger();
        paina(s.w->cTallenna);
        QCOMPARE(s.maara(u"jr WHERE jrJasennumero = '17' AND jrSukunimi = 'Virtanen'"_s), 1);
        QGuiApplication::clipboard()->clear();
        s.w->mLiimaaLeikepoydalta->trigger();
        QCOMPARE(s.dlg.messages(), QStringList{u"Leikepöydällä ei ole tekstiä."_s});
        QCOMPARE(s.maara(u"jr"_s), 2);
    }

    // Choosing a name in the tree moves there; a name whose member was deleted behind the window
    // rebuilds the tree instead.
    void puunPoistunutNimiRakentaaPuun()
    {
        Seura s;
        s.jasen(u"Aalto"_s, u"A"_s);
        const qint64 b = s.jasen(u"Berg"_s, u"B"_s);
        const qint64 o = s.jasen(u"Öhman"_s, u"Ö"_s);
        QVERIFY(s.avaa());
        QAbstractItemModel *m = s.w->tvwNimet->model();
        s.w->tvwNimet->setCurrentIndex(m->index(0, 0, m->index(28, 0)));
        QCOMPARE(s.w->NykyinenId(), o);
        s.d->execute(u"DELETE FROM jr WHERE jrID = ?"_s, {b});
        s.w->tvwNimet->setCurrentIndex(m->index(0, 0, m->index(1, 0)));
        QCOMPARE(m->rowCount(m->index(1, 0)), 0);
        QCOMPARE(m->index(1, 0).data().toString(), u" B   (0)"_s);
        QVERIFY(s.dlg.unexpected.isEmpty());
    }

    // The head's tick makes a family; members join from the list of everybody; the tick taken
    // off dissolves the family after a question.
    void perheenPaaRastitaanJaPuretaan()
    {
        Seura s;
        const qint64 a = s.jasen(u"Aalto"_s, u"Anna"_s);
        const qint64 e = s.jasen(u"Aalto"_s, u"Eino"_s);
        QVERIFY(s.avaa());
        s.w->TabStr1->setCurrentIndex(2);

        s.w->chkPerhLaskutettava->click();
        QCOMPARE(s.maara(u"jrPerhe WHERE jrPMID = ? AND jrPSubID = ?"_s, {a, a}), 1);

        // Eino joins through the list of everybody.
        paina(s.w->cLisaaPerhJas);
        s.w->lstPersons->setCurrentIndex(s.w->lstPersons->model()->index(1, 0));
        QTest::keyClick(s.w->lstPersons, Qt::Key_Return);
        QCOMPARE(s.w->lstFamily->currentRow(), 1);
        s.w->chkPerheLuokka[2]->click();
        paina(s.w->cSeuraava);
        QCOMPARE(s.arvo(a, u"jrPerheenLaskutettava"_s).toInt(), 1);
        QCOMPARE(s.maara(u"jrPerhe WHERE jrPSubID = ? AND jrPLapsi = 1"_s, {e}), 1);
        QCOMPARE(s.w->tPerheenPaa->text(), u"Anna Aalto"_s);

        // The family's new address from a member's card: the head gets it, and the card shows it
        // for its own save.
        testi::kunAuki<frmPerheenUusiOsoite>([](frmPerheenUusiOsoite *d) {
            d->tOsoite->setText(u"Uusikatu 2"_s);
            d->tPostinumero->setText(u"00200"_s);
            QTest::mouseClick(d->findChild<QPushButton *>(u"cTallenna"_s), Qt::LeftButton);
        });
        paina(s.w->cMuutaPerheenOsoitteet);
        QCOMPARE(s.arvo(a, u"jrOsoite"_s).toString(), u"Uusikatu 2"_s);
        QCOMPARE(s.teksti(iOsoite), u"Uusikatu 2"_s);
        paina(s.w->cTallenna);
        QCOMPARE(s.arvo(e, u"jrPostinumeroNumero"_s).toInt(), 200);
        QVERIFY(!s.arvo(a, u"jrPostinumeroNumero"_s).isValid());

        // Taking the tick off asks first; No keeps the family.
        paina(s.w->cEdellinen);
        s.dlg.no();
        s.w->chkPerhLaskutettava->click();
        QVERIFY(s.w->chkPerhLaskutettava->isChecked());
        QCOMPARE(s.maara(u"jrPerhe"_s), 2);

        s.dlg.yes();
        s.w->chkPerhLaskutettava->click();
        QCOMPARE(s.maara(u"jrPerhe"_s), 0);
        paina(s.w->cTallenna);
        QCOMPARE(s.arvo(a, u"jrPerheenLaskutettava"_s).toInt(), 0);
        QCOMPARE(s.dlg.allTexts(), QStringList({u"Poistetaanko perheen tiedot?"_s, u"Poistetaanko perheen tiedot?"_s}));
        QVERIFY(s.dlg.unexpected.isEmpty());
    }

    // An empty register opens with a word on how to begin; deleting the last member leaves a
    // window that can start again.
    void tyhjaRekisteri()
    {
        Seura s;
        QVERIFY(s.avaa());
        QCOMPARE(s.dlg.messages(), QStringList{u"Jäsenrekisteri on vielä tyhjä.\nLisää uusi jäsen klikkaamalla Uusi painiketta."_s});
        paina(s.w->cUusi);
        kirjoita(s.w->tYhteystiedot[iSukunimi], u"Aalto"_s);
        paina(s.w->cTallenna);
        s.d->execute(u"INSERT INTO pt (ptjrID, ptpiID) SELECT jrID, 1 FROM jr"_s);
        s.dlg.shown.clear();
        s.dlg.yes();
        paina(s.w->cPoista);
        QCOMPARE(s.maara(u"jr"_s) + s.maara(u"pt"_s), 0);
        QCOMPARE(s.w->windowTitle(), u"Vonari - Jäsenrekisteri - 0"_s);
        paina(s.w->cSeuraava); // a key that reaches the command anyway does no harm

        paina(s.w->cUusi);
        kirjoita(s.w->tYhteystiedot[iSukunimi], u"Berg"_s);
        paina(s.w->cTallenna);
        QCOMPARE(s.maara(u"jr WHERE jrSukunimi = 'Berg'"_s), 1);
        QCOMPARE(s.dlg.allTexts(), QStringList{u"Poistetaanko näytössä oleva jäsen?"_s});
    }

    // Dates: + and - in the joining date, a bad date emptied with a beep, a cleared date Null; the
    // post office fills the empty home town.
    void paivatJaPostiosoite()
    {
        Seura s;
        const qint64 a = s.jasen(u"Aalto"_s, u"Anna"_s);
        s.d->execute(u"UPDATE jr SET jrSyntyma = '1970-01-01'"_s);
        QVERIFY(s.avaa());
        QLineEdit *liittyma = s.w->tYhteystiedot[iLiittyma];
        liittyma->setText(u"31.12.2023"_s);
        kirjoita(liittyma, u"+"_s);
        QCOMPARE(liittyma->text(), u"1.1.2024"_s);
        kirjoita(s.w->tYhteystiedot[iSyntyma], u"+"_s); // no keys of its own: typed as it is
        jata(s.w->tYhteystiedot[iSyntyma], s.w->tYhteystiedot[iLisatieto1]);
        QVERIFY(s.teksti(iSyntyma).isEmpty());
        QCOMPARE(s.dlg.beeps, 1);

        kirjoita(s.w->tYhteystiedot[iPostitoimipaikka], u"Turku"_s);
        jata(s.w->tYhteystiedot[iPostitoimipaikka], s.w->tYhteystiedot[iKotipaikka]);
        paina(s.w->cTallenna);
        QVERIFY(!s.arvo(a, u"jrSyntyma"_s).isValid());
        QCOMPARE(s.arvo(a, u"jrLiittyma"_s).toString(), u"2024-01-01"_s);
        QCOMPARE(s.arvo(a, u"jrKotipaikka"_s).toString(), u"Turku"_s);
        QVERIFY(s.dlg.messages().isEmpty());
    }

    // The tools of the menu and the invoice tab: the postal-code check tells only the codes that
    // are not all digits; an invoice marked paid ticks the fee for the card's save; the removal
    // of non-payers asks twice.
    void tyokalutJaMaksetuksi()
    {
        Seura s;
        const qint64 a = s.jasen(u"Aalto"_s, u"Anna"_s, u"1"_s);
        const qint64 b = s.jasen(u"Berg"_s, u"Bo"_s, u"2"_s);
        s.jasen(u"Cedar"_s, u"Cid"_s, u"3"_s);
        s.d->execute(u"UPDATE jr SET jrPostinumero = '00100' WHERE jrID = ?"_s, {a});
        s.d->execute(u"UPDATE jr SET jrJasenmaksu = 1, jrPostinumero = 'x1' WHERE jrID = ?"_s, {b});
        s.d->execute(u"INSERT INTO jmhist (jmhjmID, jmhjmjrID, jmhjmHinta, jmhjmTeksti, jmhjmJasMak, jmhjmMaksettu) "
                     "VALUES (5, ?, 200000, 'Jäsenmaksu', 1, 0)"_s,
                     {a});
        QVERIFY(s.avaa());
        s.w->mPostinumeroidenTarkistus->trigger();
        QCOMPARE(s.dlg.messages().mid(1), QStringList({u"Tarkista jäsen: 2/Berg Bo"_s, u"Tarkistus valmis."_s}));

        s.w->TabStr1->setCurrentIndex(3);
        paina(s.w->cMaksetuksi); // nothing chosen: nothing happens
        QCOMPARE(s.maara(u"jmhist WHERE jmhjmMaksettu = 1"_s), 0);
        s.w->lstMaksut->setCurrentRow(0);
        paina(s.w->cMaksetuksi);
        QCOMPARE(s.maara(u"jmhist WHERE jmhjmMaksettu = 1"_s), 1);
        paina(s.w->cTallenna);
        QCOMPARE(s.arvo(a, u"jrJasenmaksu"_s).toInt(), 1);

        s.dlg.yes();
        s.dlg.yes();
        s.w->mMaksamattomienPoisto->trigger();
        QCOMPARE(s.dlg.allTexts().mid(3), QStringList({u"Poistetaanko kaikki jäsenmaksua maksamattomat jäsenet tietokannasta?\n\n"
                                                        "Toimenpidettä ei voi perua!"_s,
                                                        u"Poistetaan 1 jäsentä. Haluatko poistaa?"_s}));
        QCOMPARE(s.maara(u"jr"_s), 2);
        QCOMPARE(s.w->NykyinenId(), a);
    }

    // The demonstration club from its first member to its last without a message or a write; then
    // it takes its first new member with the number it suggests.
    void esittelyseuraAlustaLoppuun()
    {
        Seura s(150);
        const QString ennen = seurat::Sisalto(*s.d);
        LueAsetukset(*s.d);
        QVERIFY(MainModule::AutoJasennumero);
        QVERIFY(s.avaa());
        int naytetty = 0;
        for (; s.dlg.beeps == 0; ++naytetty)
            paina(s.w->cSeuraava);
        QCOMPARE(naytetty, s.maara(u"jr"_s));
        QVERIFY(s.dlg.shown.isEmpty());
        QCOMPARE(seurat::Sisalto(*s.d), ennen);

        QTest::keyClick(s.w, Qt::Key_F2);
        const QString numero = s.teksti(iJasennumero);
        kirjoita(s.w->tYhteystiedot[iSukunimi], u"Uusikari"_s);
        QTest::keyClick(s.w, Qt::Key_F3);
        QCOMPARE(s.dlg.messages(), QStringList());
        QCOMPARE(s.maara(u"jr WHERE jrSukunimi = 'Uusikari' AND jrJasennumero = ?"_s, {numero}), 1);
        QCOMPARE(s.maara(u"jr"_s), 151);
    }
};

QTEST_MAIN(TestFrmJasen)
#include "tst_frmjasen.moc"
