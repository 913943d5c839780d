// The attribute windows driven as a user drives them, offscreen with scripted dialogs: the
// definitions window, the member window's attribute tab and the four bulk dialogs. The
// database is checked after each flow.
#include "core/MainModule.h"
#include "members/ui/ArvoPaneeli.h"
#include "members/ui/LiitosPohja.h"
#include "members/ui/frmJasenOminaisuudet.h"
#include "members/ui/frmMoniliitos.h"
#include "members/ui/frmOminLisaysSP.h"
#include "members/ui/frmOminaisuudenPoisto.h"
#include "members/ui/frmOminaisuudenYhdistaminen.h"
#include "members/ui/frmPiirre.h"
#include "platform/database.h"
#include "malliseura.h"
#include "testiapu.h"
#include "testipohja.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolButton>
#include <QTreeWidget>
#include <QtTest>

using db::Database;

namespace {

using testi::kirjoita;
using testi::korvaa;
using testi::rivit;

QStringList puunNimet(QTreeWidget *puu)
{
    QStringList s;
    for (QTreeWidgetItemIterator it(puu); *it; ++it)
        s << (*it)->text(0);
    return s;
}

} // namespace

class tst_frmpiirre : public Testipohja {
    Q_OBJECT
    std::unique_ptr<Database> d;

    qint64 piirre(const QString &nimi, const QString &liput = {}, const QVariant &paiva = {}, const QVariant &luku = {},
                  const QVariant &raha = {}, const QVariant &muistio = {})
    {
        d->execute(QStringLiteral("INSERT INTO pi (piNimi, piKuvaus, piEnbldDate, piEnbldLong, piEnbldCurrency, piEnbldMemo, "
                                  "piDate, piLong, piCurrency, piMemo) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
                   {nimi, nimi + QStringLiteral(" kuvaus"), liput.contains(QLatin1Char('d')), liput.contains(QLatin1Char('l')),
                    liput.contains(QLatin1Char('r')), liput.contains(QLatin1Char('m')), paiva, luku, raha, muistio});
        return d->lastInsertId();
    }
    qint64 jasen(const QVariant &sukunimi, const QVariant &syntyma = {})
    {
        d->execute(QStringLiteral("INSERT INTO jr (jrSukunimi, jrEtunimi, jrSyntyma) VALUES (?, 'Aino', ?)"), {sukunimi, syntyma});
        return d->lastInsertId();
    }
    qint64 liitos(qint64 jr, qint64 pi, const QVariant &luku = {}, const QVariant &paiva = {})
    {
        d->execute(QStringLiteral("INSERT INTO pt (ptjrID, ptpiID, ptValLong, ptValDate) VALUES (?, ?, ?, ?)"), {jr, pi, luku, paiva});
        return d->lastInsertId();
    }
    int maara(const QString &ehto, const db::Params &p = {}) { return testi::maara(*d, ehto, p); }
    static bool nayta(frmPiirre &f)
    {
        if (!f.lataa())
            return false;
        f.show();
        return QTest::qWaitForWindowActive(&f);
    }
    QVariant arvo(const QString &sql, const db::Params &p = {}) { return d->scalar(sql, p); }

private slots:
    // A fresh copy of the upgraded template for every case.
    void init()
    {
        Testipohja::init();
        MainModule::DatabasePath = env->path(QStringLiteral("kerho.mdb"));
        d = malliseura::kopio(MainModule::DatabasePath);
    }
    void cleanup()
    {
        d.reset();
        Testipohja::cleanup();
    }

    // ---- frmPiirre ------------------------------------------------------------------------

    void ilmanTietokantaaIkkunaEiAukea()
    {
        MainModule::DatabasePath = QStringLiteral("unknown");
        AvaaOminaisuudet(nullptr);
        QCOMPARE(dlg->messages(), QStringList{QStringLiteral("Tarkista tietokanta asetukset asetusikkunasta!")});
        QVERIFY(!IsTopLevel());
    }

    void tyhjaanLuodaanEnsimmainen()
    {
        frmPiirre f;
        QVERIFY(f.lataa());
        QCOMPARE(dlg->messages(), QStringList{QStringLiteral("Ominaisuuksia ei vielä ole.\nLisää uusi ominaisuus klikkaamalla Uusi painiketta.")});
        QCOMPARE(f.windowTitle(), QStringLiteral("Vonari - Ominaisuudet - 0"));
        QVERIFY(!f.cTallenna->isEnabled() && !f.cPoista->isEnabled() && !f.tNimi->isEnabled() && !f.cSeuraava->isEnabled());
        f.show();
        QVERIFY(QTest::qWaitForWindowActive(&f));

        QTest::keyClick(&f, Qt::Key_F2);
        QVERIFY(f.tNimi->isEnabled());
        kirjoita(f.tNimi, QStringLiteral("O'Connorin kerhö"));
        QTest::mouseClick(f.chkDate, Qt::LeftButton);
        QVERIFY(f.tDate->isEnabled());
        kirjoita(f.tDate, QStringLiteral("2025-02-01"));
        QTest::keyClick(f.tDate, Qt::Key_Return);
        QCOMPARE(f.tDate->text(), QStringLiteral("1.2.2025"));
        QTest::mouseClick(f.chkCurrency, Qt::LeftButton);
        kirjoita(f.tCurrency, QStringLiteral("12,5"));
        kirjoita(f.tLong, QStringLiteral("7")); // disabled: takes nothing
        QTest::keyClick(f.tNimi, Qt::Key_F3);

        QCOMPARE(maara(QStringLiteral("pi")), 1);
        QCOMPARE(testi::rivi(*d, QStringLiteral("SELECT piNimi, piEnbldDate, piDate, piEnbldCurrency, piCurrency, piEnbldLong, "
                                                "piLong, piMemo FROM pi")),
                 QStringLiteral("O'Connorin kerhö|1|2025-02-01|1|125000|0|N|N"));
        QCOMPARE(f.windowTitle(), QStringLiteral("Vonari - Ominaisuudet - 1"));
        QCOMPARE(puunNimet(f.tvwPiirteet), (QStringList{QStringLiteral("Ominaisuudet"), QStringLiteral("O"), QStringLiteral("O'Connorin kerhö")}));
        QCOMPARE(f.tCurrency->text(), QStringLiteral("12,50"));
    }

    void nimenAlkuaVaroitetaanJokaNappaimella()
    {
        piirre(QStringLiteral("Alfa"));
        frmPiirre f;
        QVERIFY(f.lataa());
        f.cUusi->click();
        kirjoita(f.tNimi, QStringLiteral("1a"));
        QCOMPARE(dlg->messages(), QStringList(2, QStringLiteral("Ominaisuuden nimen tulee alkaa kirjaimella.")));
        QCOMPARE(f.tNimi->text(), QStringLiteral("1a"));
        f.cTallenna->click();
        QCOMPARE(maara(QStringLiteral("pi WHERE piNimi = '1a'")), 1);
        QVERIFY(!puunNimet(f.tvwPiirteet).contains(QStringLiteral("1a")));
        QVERIFY(puunNimet(f.tvwPiirteet).contains(QStringLiteral("Alfa")));
    }

    void siirtyminenTallentaa()
    {
        piirre(QStringLiteral("Alfa"), QStringLiteral("d"), QStringLiteral("2020-01-01"));
        const qint64 beeta = piirre(QStringLiteral("Beeta"));
        d->execute(QStringLiteral("UPDATE pi SET piEnbldDate = NULL WHERE piID = ?"), {beeta});
        frmPiirre f;
        QVERIFY(nayta(f));
        QCOMPARE(f.tNimi->text(), QStringLiteral("Alfa"));
        QCOMPARE(f.tDate->text(), QStringLiteral("1.1.2020"));
        korvaa(f.tNimi, QStringLiteral("Alfa 2"));
        // Ctrl+D in a text box moves on: no box edits with it.
        QTest::keyClick(f.tNimi, Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(arvo(QStringLiteral("SELECT piNimi FROM pi ORDER BY piID LIMIT 1")).toString(), QStringLiteral("Alfa 2"));
        QCOMPARE(f.tNimi->text(), QStringLiteral("Beeta"));
        // A Null flag leaves the check box and its box as they were.
        QVERIFY(f.chkDate->isChecked() && f.tDate->isEnabled());
        QTest::keyClick(f.tNimi, Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(dlg->beeps, 1);
        QCOMPARE(f.tNimi->text(), QStringLiteral("Beeta"));
        QCOMPARE(maara(QStringLiteral("pi")), 2);
    }

    // Peru brings back what was stored, a new one left untouched is dropped, and a tick taken
    // off empties its default.
    void peruJaRuksinPoisto()
    {
        piirre(QStringLiteral("Lisenssi"), QStringLiteral("dm"), QStringLiteral("2025-12-31"), {}, {}, QStringLiteral("LIS"));
        frmPiirre f;
        QVERIFY(nayta(f));
        QCOMPARE(f.tMemo->toPlainText(), QStringLiteral("LIS"));
        korvaa(f.tNimi, QStringLiteral("Muutettu"));
        QTest::mouseClick(f.cPeru, Qt::LeftButton);
        QCOMPARE(f.tNimi->text(), QStringLiteral("Lisenssi"));
        f.cUusi->click();
        QCOMPARE(f.tNimi->text(), QString());
        f.cPeru->click();
        QCOMPARE(f.tNimi->text(), QStringLiteral("Lisenssi"));
        f.cUusi->click();
        f.cSeuraava->click();
        QCOMPARE(maara(QStringLiteral("pi")), 1);

        QTest::mouseClick(f.chkDate, Qt::LeftButton);
        QVERIFY(!f.tDate->isEnabled() && f.tDate->text().isEmpty());
        f.cTallenna->click();
        QCOMPARE(testi::rivi(*d, QStringLiteral("SELECT piNimi, piEnbldDate, piDate, piMemo FROM pi")),
                 QStringLiteral("Lisenssi|0|N|LIS"));
    }

    void poistoKysyyJaSiivoaa()
    {
        const qint64 j = jasen(QStringLiteral("Virtanen"));
        const qint64 alfa = piirre(QStringLiteral("Alfa"));
        piirre(QStringLiteral("Beeta"));
        liitos(j, alfa);
        frmPiirre f;
        QVERIFY(nayta(f));
        dlg->no();
        QTest::keyClick(f.tNimi, Qt::Key_F4);
        QCOMPARE(maara(QStringLiteral("pi")), 2);
        QCOMPARE(maara(QStringLiteral("pt")), 1);
        dlg->yes();
        f.cPoista->click();
        QCOMPARE(dlg->shown.last().text, QStringLiteral("Poistetaanko näytössä oleva ominaisuus?"));
        QCOMPARE(maara(QStringLiteral("pi WHERE piID = ?"), {alfa}), 0);
        QCOMPARE(maara(QStringLiteral("pt")), 0);
        QVERIFY(!puunNimet(f.tvwPiirteet).contains(QStringLiteral("Alfa")));
        QCOMPARE(f.tNimi->text(), QStringLiteral("Beeta"));
        QCOMPARE(f.windowTitle(), QStringLiteral("Vonari - Ominaisuudet - 1"));
        dlg->yes();
        f.cPoista->click();
        QCOMPARE(maara(QStringLiteral("pi")), 0);
        QVERIFY(f.cUusi->isEnabled() && !f.tNimi->isEnabled() && !f.cPoista->isEnabled());
        QVERIFY(f.tNimi->text().isEmpty());
    }

    void puustaValintaJaSiivous()
    {
        const qint64 j = jasen(QStringLiteral("Virtanen"));
        piirre(QStringLiteral("Alfa"));
        piirre(QStringLiteral("Öljy"));
        liitos(j, 777);
        frmPiirre f;
        QVERIFY(nayta(f));
        korvaa(f.tKuvaus, QStringLiteral("uusi kuvaus"));
        const auto osumat = f.tvwPiirteet->findItems(QStringLiteral("Öljy"), Qt::MatchRecursive);
        QCOMPARE(osumat.size(), 1);
        f.tvwPiirteet->setCurrentItem(osumat.first());
        QCOMPARE(f.tNimi->text(), QStringLiteral("Öljy"));
        QCOMPARE(arvo(QStringLiteral("SELECT piKuvaus FROM pi WHERE piNimi = 'Alfa'")).toString(), QStringLiteral("uusi kuvaus"));
        f.mSiivoaVanhatOminaisuudet->trigger();
        QCOMPARE(maara(QStringLiteral("pt")), 0);
    }

    // ---- The member window's attribute tab -------------------------------------------------

    void valilehtiNayttaaJasenenPiirteet()
    {
        const qint64 j = jasen(QStringLiteral("Virtanen")), toinen = jasen(QStringLiteral("Laine"));
        const qint64 lis = piirre(QStringLiteral("Lisenssi"), QStringLiteral("lr"));
        const qint64 talk = piirre(QStringLiteral("Talkoot"), QStringLiteral("l"));
        liitos(j, lis, 3, QStringLiteral("2020-05-05"));
        liitos(j, 4242);
        liitos(j, talk, 8);
        liitos(toinen, talk, 1);
        frmJasenOminaisuudet s;
        s.naytaJasen(j);
        QCOMPARE(rivit(s.lstAllPt), (QStringList{QStringLiteral("Lisenssi"), QStringLiteral("Talkoot")}));
        QCOMPARE(s.lstAllPt->currentRow(), 0);
        QCOMPARE(s.arvot->lKuvaus->text(), QStringLiteral("Lisenssi kuvaus"));
        QCOMPARE(s.arvot->tLong->text(), QStringLiteral("3"));
        QVERIFY(s.arvot->lblCurrency->isEnabled() && s.arvot->tCurrency->text().isEmpty());
        // The date is not in use: hidden from the panel, kept in the table.
        QVERIFY(!s.arvot->lblDate->isEnabled() && s.arvot->tDate->text().isEmpty());
        s.lstAllPt->setCurrentRow(1);
        QCOMPARE(s.arvot->tLong->text(), QStringLiteral("8"));
        s.naytaJasen(toinen);
        QCOMPARE(rivit(s.lstAllPt), QStringList{QStringLiteral("Talkoot")});
        QCOMPARE(s.arvot->tLong->text(), QStringLiteral("1"));
    }

    void liittaminenOletuksineen()
    {
        const qint64 j = jasen(QStringLiteral("Virtanen"));
        d->execute(QStringLiteral("INSERT INTO pi (piNimi) VALUES (NULL)")); // abandoned: cleaned on opening
        piirre(QStringLiteral("Bändi"), QStringLiteral("m"));
        const qint64 kausi = piirre(QStringLiteral("Kausimaksu"), QStringLiteral("dr"), {}, {}, qlonglong(1800000));
        frmJasenOminaisuudet s;
        s.show();
        s.paivitaPiirteet();
        s.naytaJasen(j);
        QCOMPARE(rivit(s.lstAllPi), (QStringList{QStringLiteral("Bändi"), QStringLiteral("Kausimaksu")}));
        QCOMPARE(maara(QStringLiteral("pi")), 2);

        s.cLisaaPiirre->click();
        QVERIFY(!s.lstAllPi->isHidden() && s.lstAllPt->isHidden() && !s.cPoistaPiirre->isEnabled());
        s.lstAllPi->setCurrentRow(1);
        QCOMPARE(s.arvot->lKuvaus->text(), QStringLiteral("Kausimaksu kuvaus"));
        s.cLisaaPiirre->click();
        QVERIFY(s.lstAllPi->isHidden() && !s.lstAllPt->isHidden() && s.cPoistaPiirre->isEnabled());
        QCOMPARE(maara(QStringLiteral("pt WHERE ptjrID = ? AND ptpiID = ? AND ptValCurrency = 1800000 AND ptValDate IS NULL"), {j, kausi}), 1);
        QCOMPARE(s.arvot->tCurrency->text(), QStringLiteral("180,00"));
        QVERIFY(s.arvot->tDate->isEnabled() && s.arvot->tDate->text().isEmpty());

        // A double click attaches too.
        s.cLisaaPiirre->click();
        s.lstAllPi->setCurrentRow(0);
        QCoreApplication::processEvents();
        const QPoint kohta = s.lstAllPi->visualItemRect(s.lstAllPi->item(0)).center();
        QTest::mouseClick(s.lstAllPi->viewport(), Qt::LeftButton, {}, kohta);
        QTest::mouseDClick(s.lstAllPi->viewport(), Qt::LeftButton, {}, kohta);
        QCOMPARE(rivit(s.lstAllPt), (QStringList{QStringLiteral("Kausimaksu"), QStringLiteral("Bändi")}));
        QCOMPARE(s.lstAllPt->currentRow(), 1);
        QCOMPARE(maara(QStringLiteral("pt WHERE ptjrID = ?"), {j}), 2);
        QCOMPARE(maara(QStringLiteral("pt WHERE ptValMemo IS NOT NULL")), 0);
    }

    void arvonMuokkausJaTallennus()
    {
        const qint64 j = jasen(QStringLiteral("Virtanen"));
        const qint64 pi = piirre(QStringLiteral("Talkoot"), QStringLiteral("lm"));
        const qint64 eka = liitos(j, pi, 1);
        liitos(j, pi, 2);
        frmJasenOminaisuudet s;
        s.show();
        QSignalSpy muutettu(&s, &frmJasenOminaisuudet::muutettu);
        QSignalSpy perhe(&s, &frmJasenOminaisuudet::perheTallennettava);
        s.naytaJasen(j);
        QVERIFY(!s.piirreMuuttunut());

        korvaa(s.arvot->tLong, QStringLiteral("x"));
        QTest::keyClick(s.arvot->tLong, Qt::Key_Return);
        QCOMPARE(dlg->beeps, 1);
        QVERIFY(s.arvot->tLong->text().isEmpty());
        QVERIFY(s.piirreMuuttunut());
        QVERIFY(muutettu.count() > 0);
        kirjoita(s.arvot->tLong, QStringLiteral("12"));
        kirjoita(s.arvot->tMemo, QStringLiteral("O'Connor; --"));
        // Moving to another row stores the pending value first, then asks for the family store.
        s.lstAllPt->setCurrentRow(1);
        QVERIFY(!s.piirreMuuttunut());
        QCOMPARE(perhe.count(), 1);
        QCOMPARE(arvo(QStringLiteral("SELECT ptValLong FROM pt WHERE ptID = ?"), {eka}).toLongLong(), 12);
        QCOMPARE(arvo(QStringLiteral("SELECT ptValMemo FROM pt WHERE ptID = ?"), {eka}).toString(), QStringLiteral("O'Connor; --"));
        QCOMPARE(s.arvot->tLong->text(), QStringLiteral("2"));

        korvaa(s.arvot->tLong, QStringLiteral("5"));
        s.peruPiirre();
        QCOMPARE(s.arvot->tLong->text(), QStringLiteral("2"));
    }

    void liitoksenPoisto()
    {
        const qint64 j = jasen(QStringLiteral("Virtanen"));
        const qint64 a = piirre(QStringLiteral("Alfa"), QStringLiteral("l")), b = piirre(QStringLiteral("Beeta"), QStringLiteral("l"));
        liitos(j, a, 1);
        liitos(j, b, 2);
        frmJasenOminaisuudet s;
        s.show();
        s.naytaJasen(j);
        s.lstAllPt->setCurrentRow(1);
        dlg->no();
        s.cPoistaPiirre->click();
        QCOMPARE(dlg->shown.last().text, QStringLiteral("Poistetaanko valittu ominaisuus?"));
        QCOMPARE(maara(QStringLiteral("pt")), 2);
        QCOMPARE(s.lstAllPt->count(), 2);
        dlg->yes();
        s.cPoistaPiirre->click();
        QCOMPARE(maara(QStringLiteral("pt WHERE ptpiID = ?"), {b}), 0);
        QCOMPARE(rivit(s.lstAllPt), QStringList{QStringLiteral("Alfa")});
        QCOMPARE(s.lstAllPt->currentRow(), 0);
        QCOMPARE(s.arvot->tLong->text(), QStringLiteral("1"));
    }

    // ---- Bulk dialogs ----------------------------------------------------------------------

    void moniliitos()
    {
        d->execute(QStringLiteral("INSERT INTO jr (jrSukunimi) VALUES (NULL)")); // blank: cleaned on opening
        const qint64 a = jasen(QStringLiteral("Aalto")), b = jasen(QStringLiteral("Öhman"));
        const qint64 pi = piirre(QStringLiteral("Kausi"), QStringLiteral("l"), {}, qlonglong(5));
        frmMoniliitos f;
        QCOMPARE(f.lstJR->model()->rowCount(), 2);
        QCOMPARE(maara(QStringLiteral("jr")), 2);
        f.cLisaa->click();
        QCOMPARE(dlg->messages().last(), QStringLiteral("Valitse ominaisuus ennen lisäystä!"));

        f.pohja->lstAllPt->setCurrentRow(0);
        QCOMPARE(f.pohja->arvot->tLong->text(), QStringLiteral("5"));
        f.cLisaa->click();
        QCOMPARE(dlg->messages().last(), QStringLiteral("Ominaisuus lisätty!"));
        QCOMPARE(maara(QStringLiteral("pt")), 0);

        f.lstJR->selectionModel()->select(f.lstJR->model()->index(1, 0), QItemSelectionModel::Select);
        f.cLisaa->click();
        QCOMPARE(maara(QStringLiteral("pt WHERE ptjrID = ? AND ptValLong = 5"), {b}), 1);

        f.cValitseKaikki->click();
        f.pohja->chkEstaToistot->setChecked(true);
        f.cLisaa->click();
        QCOMPARE(maara(QStringLiteral("pt WHERE ptjrID = ?"), {a}), 1);
        QCOMPARE(maara(QStringLiteral("pt WHERE ptjrID = ?"), {b}), 1);
        f.cEiValintoja->click();
        QVERIFY(f.lstJR->selectionModel()->selectedIndexes().isEmpty());
        QCOMPARE(maara(QStringLiteral("pt WHERE ptpiID = ?"), {pi}), 2);
    }

    void lisaysSyntymapaivanPerusteella()
    {
        jasen(QStringLiteral("Aalto"), QStringLiteral("1980-01-01"));
        jasen(QStringLiteral("Berg"), QStringLiteral("1990-06-15"));
        jasen(QStringLiteral("Cedar"));
        const qint64 pi = piirre(QStringLiteral("Juniori"), QStringLiteral("l"));
        frmOminLisaysSP f;
        f.cLisaa->click();
        f.pohja->lstAllPt->setCurrentRow(0);
        f.cLisaa->click();
        kirjoita(f.tVanhin, QStringLiteral("2000-01-01"));
        QTest::keyClick(f.tVanhin, Qt::Key_Return);
        QCOMPARE(f.tVanhin->text(), QStringLiteral("1.1.2000"));
        f.cLisaa->click();
        korvaa(f.tVanhin, QStringLiteral("15.6.1990"));
        kirjoita(f.tNuorin, QStringLiteral("15.6.1990"));
        kirjoita(f.pohja->arvot->tLong, QStringLiteral("x"));
        f.cLisaa->click();
        QCOMPARE(f.pohja->arvot->tLong->text(), QString()); // refused at the write
        f.tVanhin->clear();
        f.pohja->chkEstaToistot->setChecked(true);
        f.cLisaa->click();
        QCOMPARE(dlg->messages(), (QStringList{QStringLiteral("Ominaisuutta ei ole valittuna luettelosta - ominaisuuksia ei lisätä."),
                                               QStringLiteral("Päivämäärärajoja ei ole asetettu - ominaisuuksia ei lisätä."),
                                               QStringLiteral("Ominaisuutta ei yhdellekään jäsenelle."),
                                               QStringLiteral("Ominaisuus lisättiin yhdelle jäsenelle."),
                                               QStringLiteral("Ominaisuus lisättiin yhdelle jäsenelle.")}));
        QCOMPARE(maara(QStringLiteral("pt WHERE ptpiID = ? AND ptValLong IS NULL"), {pi}), 2);
        f.pohja->chkEstaToistot->setChecked(false);
        f.cLisaa->click();
        QCOMPARE(dlg->messages().last(), QStringLiteral("Ominaisuus lisättiin 2 jäsenelle."));
    }

    void ominaisuudenPoisto()
    {
        const qint64 a = jasen(QStringLiteral("Aalto")), b = jasen(QStringLiteral("Berg"));
        const qint64 ehto = piirre(QStringLiteral("Eronnut")), pois = piirre(QStringLiteral("Hallitus"));
        liitos(a, ehto);
        liitos(a, pois);
        liitos(b, pois);
        frmOminaisuudenPoisto f;
        QCOMPARE(f.cmbPoistoEhto->count(), 3);
        f.cmbPoistettava->setCurrentIndex(2);
        f.cDelete->click();
        QCOMPARE(dlg->messages().last(), QStringLiteral("Valitse poistettava ominaisuus ja ehto poistolle. Toiminto keskeytetty."));
        QCOMPARE(maara(QStringLiteral("pt")), 3);
        f.cmbPoistoEhto->setCurrentIndex(1);
        f.cDelete->click();
        QCOMPARE(dlg->messages().last(), QStringLiteral("Valmis: poistettu 1 jäseneltä."));
        QCOMPARE(maara(QStringLiteral("pt WHERE ptpiID = ?"), {pois}), 1);
        QCOMPARE(maara(QStringLiteral("pt WHERE ptpiID = ? AND ptjrID = ?"), {pois, b}), 1);
    }

    void ominaisuudenYhdistaminen()
    {
        const qint64 a = jasen(QStringLiteral("Aalto"));
        const qint64 vanha = piirre(QStringLiteral("Juniorit")), uusi = piirre(QStringLiteral("Nuoret"));
        liitos(a, vanha, 12);
        liitos(a, uusi);
        frmOminaisuudenYhdistaminen f;
        f.cCombine->click();
        QCOMPARE(dlg->messages().last(),
                 QStringLiteral("Valitse yhdistettävä ominaisuus ja ominaisuus johon yhdistetään. Toiminto keskeytetty."));
        f.cmbYhdistettava->setCurrentIndex(1);
        f.cmbYhdistetaan->setCurrentIndex(2);
        f.cCombine->click();
        QCOMPARE(dlg->messages().last(), QStringLiteral("Valmis."));
        QCOMPARE(maara(QStringLiteral("pt WHERE ptpiID = ?"), {uusi}), 2);
        QCOMPARE(maara(QStringLiteral("pt WHERE ptpiID = ? AND ptValLong = 12"), {uusi}), 1);
        QCOMPARE(maara(QStringLiteral("pi")), 2);
    }

private:
    static bool IsTopLevel()
    {
        for (QWidget *w : QApplication::topLevelWidgets())
            if (w->objectName() == QLatin1String("frmPiirre"))
                return true;
        return false;
    }
};

QTEST_MAIN(tst_frmpiirre)
#include "tst_frmpiirre.moc"
