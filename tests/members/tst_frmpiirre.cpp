// The attribute windows driven as a user drives them, offscreen with scripted dialogs: the
// definitions window, the member window's attribute tab and the four bulk dialogs. The
// database is checked after each flow.
#include "core/MainModule.h"
#include "members/ui/ArvoPaneeli.h"
#include "members/ui/LiitosPohja.h"
#include "members/ui/frmJasenOminaisuudet.h"
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

using namespace Qt::Literals::StringLiterals;

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
                   {nimi, nimi + u" kuvaus"_s, liput.contains(QChar('d')), liput.contains(QChar('l')),
                    liput.contains(QChar('r')), liput.contains(QChar('m')), paiva, luku, raha, muistio});
        return d->lastInsertId();
    }
    qint64 jasen(const QVariant &sukunimi, const QVariant &syntyma = {})
    {
        d->execute(u"INSERT INTO jr (jrSukunimi, jrEtunimi, jrSyntyma) VALUES (?, 'Aino', ?)"_s, {sukunimi, syntyma});
        return d->lastInsertId();
    }
    qint64 liitos(qint64 jr, qint64 pi, const QVariant &luku = {}, const QVariant &paiva = {})
    {
        d->execute(u"INSERT INTO pt (ptjrID, ptpiID, ptValLong, ptValDate) VALUES (?, ?, ?, ?)"_s, {jr, pi, luku, paiva});
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
        MainModule::DatabasePath = env->path(u"kerho.mdb"_s);
        d = malliseura::kopio(MainModule::DatabasePath);
    }
    void cleanup()
    {
        d.reset();
        Testipohja::cleanup();
    }

    // ---- frmPiirre ------------------------------------------------------------------------

    void tyhjaanLuodaanEnsimmainen()
    {
        frmPiirre f;
        QVERIFY(f.lataa());
        QCOMPARE(dlg->messages(), QStringList{u"Ominaisuuksia ei vielä ole.\nLisää uusi ominaisuus klikkaamalla Uusi painiketta."_s});
        f.show();
        QVERIFY(QTest::qWaitForWindowActive(&f));

        QTest::keyClick(&f, Qt::Key_F2);
        kirjoita(f.tNimi, u"O'Connorin kerhö"_s);
        QTest::mouseClick(f.chkDate, Qt::LeftButton);
        kirjoita(f.tDate, u"2025-02-01"_s);
        QTest::keyClick(f.tDate, Qt::Key_Return);
        QCOMPARE(f.tDate->text(), u"1.2.2025"_s);
        QTest::mouseClick(f.chkCurrency, Qt::LeftButton);
        kirjoita(f.tCurrency, u"12,5"_s);
        kirjoita(f.tLong, u"7"_s); // disabled: takes nothing
        QTest::keyClick(f.tNimi, Qt::Key_F3);

        QCOMPARE(maara(u"pi"_s), 1);
        QCOMPARE(testi::rivi(*d, QStringLiteral("SELECT piNimi, piEnbldDate, piDate, piEnbldCurrency, piCurrency, piEnbldLong, "
                                                "piLong, piMemo FROM pi")),
                 u"O'Connorin kerhö|1|2025-02-01|1|125000|0|N|N"_s);
        QCOMPARE(puunNimet(f.tvwPiirteet), (QStringList{u"Ominaisuudet"_s, u"O"_s, u"O'Connorin kerhö"_s}));

        // A name that does not start with a letter is warned of at every key, and stored, but
        // not shown in the tree.
        f.cUusi->click();
        kirjoita(f.tNimi, u"1a"_s);
        QCOMPARE(dlg->messages().mid(1), QStringList(2, u"Ominaisuuden nimen tulee alkaa kirjaimella."_s));
        f.cTallenna->click();
        QCOMPARE(maara(u"pi WHERE piNimi = '1a'"_s), 1);
        QCOMPARE(puunNimet(f.tvwPiirteet), (QStringList{u"Ominaisuudet"_s, u"O"_s, u"O'Connorin kerhö"_s}));
    }

    // Choosing in the tree stores the edit first; the clean-up drops attachments without a
    // definition; a delete asks, and takes the definition's attachments with it.
    void puuSiivousJaPoisto()
    {
        const qint64 j = jasen(u"Virtanen"_s);
        const qint64 alfa = piirre(u"Alfa"_s);
        piirre(u"Öljy"_s);
        liitos(j, alfa);
        liitos(j, 777);
        frmPiirre f;
        QVERIFY(nayta(f));
        korvaa(f.tKuvaus, u"uusi kuvaus"_s);
        f.tvwPiirteet->setCurrentItem(f.tvwPiirteet->findItems(u"Öljy"_s, Qt::MatchRecursive).value(0));
        QCOMPARE(f.tNimi->text(), u"Öljy"_s);
        QCOMPARE(arvo(u"SELECT piKuvaus FROM pi WHERE piNimi = 'Alfa'"_s).toString(), u"uusi kuvaus"_s);
        f.mSiivoaVanhatOminaisuudet->trigger();
        QCOMPARE(maara(u"pt"_s), 1);

        f.tvwPiirteet->setCurrentItem(f.tvwPiirteet->findItems(u"Alfa"_s, Qt::MatchRecursive).value(0));
        dlg->no();
        QTest::keyClick(f.tNimi, Qt::Key_F4);
        QCOMPARE(maara(u"pi"_s) + maara(u"pt"_s), 3);
        dlg->yes();
        f.cPoista->click();
        QCOMPARE(dlg->shown.last().text, u"Poistetaanko näytössä oleva ominaisuus?"_s);
        QCOMPARE(maara(u"pi WHERE piID = ?"_s, {alfa}) + maara(u"pt"_s), 0);
        QVERIFY(!puunNimet(f.tvwPiirteet).contains(u"Alfa"_s));
        QCOMPARE(f.tNimi->text(), u"Öljy"_s);
        dlg->yes();
        f.cPoista->click();
        QCOMPARE(maara(u"pi"_s), 0);
        QVERIFY(f.tNimi->text().isEmpty());
    }

    // ---- The member window's attribute tab -------------------------------------------------

    // The tab lists the member's attachments with their values. A value is checked on Enter and
    // stored when another row is chosen, which then asks for the family store. A delete asks first.
    void valilehti()
    {
        const qint64 j = jasen(u"Virtanen"_s), toinen = jasen(u"Laine"_s);
        const qint64 lis = piirre(u"Lisenssi"_s, u"lr"_s);
        const qint64 talk = piirre(u"Talkoot"_s, u"lm"_s);
        liitos(j, lis, 3, u"2020-05-05"_s);
        liitos(j, 4242);
        const qint64 talkoot = liitos(j, talk, 8);
        liitos(toinen, talk, 1);
        frmJasenOminaisuudet s;
        s.show();
        s.naytaJasen(j);
        QCOMPARE(rivit(s.lstAllPt), (QStringList{u"Lisenssi"_s, u"Talkoot"_s}));
        QCOMPARE(s.arvot->tLong->text(), u"3"_s);
        // The date is not in use: hidden from the panel, kept in the table.
        QVERIFY(!s.arvot->lblDate->isEnabled() && s.arvot->tDate->text().isEmpty());
        s.lstAllPt->setCurrentRow(1);
        QCOMPARE(s.arvot->tLong->text(), u"8"_s);

        QSignalSpy perhe(&s, &frmJasenOminaisuudet::perheTallennettava);
        korvaa(s.arvot->tLong, u"x"_s);
        QTest::keyClick(s.arvot->tLong, Qt::Key_Return);
        QCOMPARE(dlg->beeps, 1);
        QVERIFY(s.arvot->tLong->text().isEmpty() && s.piirreMuuttunut());
        kirjoita(s.arvot->tLong, u"12"_s);
        kirjoita(s.arvot->tMemo, u"O'Connor; --"_s);
        s.lstAllPt->setCurrentRow(0);
        QVERIFY(!s.piirreMuuttunut());
        QCOMPARE(perhe.count(), 1);
        QCOMPARE(testi::rivi(*d, u"SELECT ptValLong, ptValMemo FROM pt WHERE ptID = ?"_s, {talkoot}), u"12|O'Connor; --"_s);

        s.lstAllPt->setCurrentRow(1);
        dlg->no();
        s.cPoistaPiirre->click();
        QCOMPARE(dlg->shown.last().text, u"Poistetaanko valittu ominaisuus?"_s);
        QCOMPARE(maara(u"pt"_s), 4);
        dlg->yes();
        s.cPoistaPiirre->click();
        QCOMPARE(maara(u"pt WHERE ptjrID = ? AND ptpiID = ?"_s, {j, talk}), 0);
        QCOMPARE(rivit(s.lstAllPt), QStringList{u"Lisenssi"_s});
        QCOMPARE(s.arvot->tLong->text(), u"3"_s);
    }

    // ---- Bulk dialogs ----------------------------------------------------------------------

    void lisaysSyntymapaivanPerusteella()
    {
        jasen(u"Aalto"_s, u"1980-01-01"_s);
        jasen(u"Berg"_s, u"1990-06-15"_s);
        jasen(u"Cedar"_s);
        const qint64 pi = piirre(u"Juniori"_s, u"l"_s);
        frmOminLisaysSP f;
        f.cLisaa->click();
        f.pohja->lstAllPt->setCurrentRow(0);
        f.cLisaa->click();
        kirjoita(f.tVanhin, u"2000-01-01"_s);
        QTest::keyClick(f.tVanhin, Qt::Key_Return);
        QCOMPARE(f.tVanhin->text(), u"1.1.2000"_s);
        f.cLisaa->click();
        korvaa(f.tVanhin, u"15.6.1990"_s);
        kirjoita(f.tNuorin, u"15.6.1990"_s);
        kirjoita(f.pohja->arvot->tLong, u"x"_s);
        f.cLisaa->click();
        QCOMPARE(f.pohja->arvot->tLong->text(), QString()); // refused at the write
        f.tVanhin->clear();
        f.pohja->chkEstaToistot->setChecked(true);
        f.cLisaa->click();
        QCOMPARE(dlg->messages(), (QStringList{u"Ominaisuutta ei ole valittuna luettelosta - ominaisuuksia ei lisätä."_s,
                                               u"Päivämäärärajoja ei ole asetettu - ominaisuuksia ei lisätä."_s,
                                               u"Ominaisuutta ei yhdellekään jäsenelle."_s,
                                               u"Ominaisuus lisättiin yhdelle jäsenelle."_s,
                                               u"Ominaisuus lisättiin yhdelle jäsenelle."_s}));
        QCOMPARE(maara(u"pt WHERE ptpiID = ? AND ptValLong IS NULL"_s, {pi}), 2);
    }

    // The removal and merge dialogs: a missing choice is told and changes nothing; the removal
    // takes the attribute from the condition's holders, the merge moves the attachments with
    // their values.
    void poistoJaYhdistaminen()
    {
        const qint64 a = jasen(u"Aalto"_s), b = jasen(u"Berg"_s);
        const qint64 ehto = piirre(u"Eronnut"_s), pois = piirre(u"Hallitus"_s), uusi = piirre(u"Nuoret"_s);
        liitos(a, ehto, 12);
        liitos(a, pois);
        liitos(b, pois);
        liitos(a, uusi);
        frmOminaisuudenPoisto p;
        p.cmbPoistettava->setCurrentIndex(2);
        p.cDelete->click();
        QCOMPARE(dlg->messages().last(), u"Valitse poistettava ominaisuus ja ehto poistolle. Toiminto keskeytetty."_s);
        QCOMPARE(maara(u"pt"_s), 4);
        p.cmbPoistoEhto->setCurrentIndex(1);
        p.cDelete->click();
        QCOMPARE(dlg->messages().last(), u"Valmis: poistettu 1 jäseneltä."_s);
        QCOMPARE(maara(u"pt WHERE ptpiID = ? AND ptjrID = ?"_s, {pois, b}), 1);

        frmOminaisuudenYhdistaminen y;
        y.cCombine->click();
        QCOMPARE(dlg->messages().last(), u"Valitse yhdistettävä ominaisuus ja ominaisuus johon yhdistetään. Toiminto keskeytetty."_s);
        y.cmbYhdistettava->setCurrentIndex(1);
        y.cmbYhdistetaan->setCurrentIndex(3);
        y.cCombine->click();
        QCOMPARE(dlg->messages().last(), u"Valmis."_s);
        QCOMPARE(maara(u"pt WHERE ptpiID = ?"_s, {uusi}), 2);
        QCOMPARE(maara(u"pt WHERE ptpiID = ? AND ptValLong = 12"_s, {uusi}), 1);
        QCOMPARE(maara(u"pi"_s), 3); // both definitions stay
    }
};

QTEST_MAIN(tst_frmpiirre)
#include "tst_frmpiirre.moc"
