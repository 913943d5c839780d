#include "core/MainModule.h"
#include "hakuseura.h"
#include "members/Jasenhaku.h"
#include "members/Koodilistat.h"
#include "members/ui/frmHaku.h"
#include "members/ui/frmJasenlajit.h"
#include "members/ui/frmJasenryhmat.h"
#include "members/ui/frmNimiHaku.h"
#include "members/ui/frmPostinumerot.h"
#include "scripteddialogs.h"
#include "testenv.h"
#include "testiapu.h"

#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using hakuseura::Jasen;

namespace {

struct Seura {
    TestEnv env;
    ScriptedDialogs dlg;
    std::unique_ptr<db::Database> db;
    qint64 virtanen = 0, virtala = 0, makinen = 0, naapuri = 0;

    Seura()
    {
        db = hakuseura::luo(env.path(u"seura.mdb"_s));
        MainModule::DatabasePath = db->path();
        virtanen = hakuseura::lisaa(*db, {u"Virtanen"_s, u"Matti"_s, u"Helsinki"_s, u"12"_s, u"Koulukatu 1"_s, u"09 111"_s, {},
                                          u"matti@virtanen.fi"_s});
        virtala = hakuseura::lisaa(*db, {u"Virtala"_s, u"Maija"_s, u"Turku"_s, u"120"_s, u"Koulukatu 1"_s, {}, u"040 222"_s});
        makinen = hakuseura::lisaa(*db, {u"Mäkinen"_s, u"Äijö"_s, u"Oulu"_s, u"7"_s, u"Rantatie 3"_s});
        naapuri = hakuseura::lisaa(*db, {u"O'Neil"_s, u"Pat"_s, {}, u"8"_s, u"Koulukatu 12"_s});
        hakuseura::muistio(*db, virtala, u"Hallituksen jäsen"_s);
        hakuseura::muistio(*db, makinen, u"Hallituksen varajäsen"_s);
        hakuseura::muistio(*db, naapuri, u"Halli-vuoro torstaisin"_s);
    }
};

// Works the search dialog once it is up; closes it if the work left it open.
template <class F>
void kunAuki(F f)
{
    testi::kunAuki<QDialog>(f);
}

using testi::kirjoita;

// Opens and closes the drop-down list, as a user looking at it does; the list is read then.
void avaaLista(QComboBox *c)
{
    c->showPopup();
    c->hidePopup();
}

int rivi(const QComboBox *c, qint64 id)
{
    for (int i = 0; i < c->count(); ++i)
        if (c->itemData(i).toLongLong() == id)
            return i;
    return -1;
}

QStringList puu(const QTreeWidget *t)
{
    QStringList s;
    for (int i = 0; i < t->topLevelItemCount(); ++i)
        s << t->topLevelItem(i)->text(0);
    return s;
}

} // namespace

class TestFrmHaku : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { frmHaku::pura(); }

    void basicSearchByMemberNumber_data()
    {
        QTest::addColumn<QString>("kirjoitettu");
        QTest::addColumn<bool>("listasta");
        QTest::addColumn<QString>("odotettu");
        QTest::addColumn<QStringList>("viestit");
        QTest::newRow("typed") << u"12"_s << false << u"virtanen"_s << QStringList();
        QTest::newRow("typed, compared as text") << u"012"_s << false << QString() << QStringList{u"Jäsennumerolla ei löydy jäsentä."_s};
        QTest::newRow("chosen from the list") << u"120"_s << true << u"virtala"_s << QStringList();
        QTest::newRow("apostrophe") << u"1'2"_s << false << QString() << QStringList{u"Jäsennumerolla ei löydy jäsentä."_s};
    }

    void basicSearchByMemberNumber()
    {
        QFETCH(QString, kirjoitettu);
        QFETCH(bool, listasta);
        QFETCH(QString, odotettu);
        QFETCH(QStringList, viestit);
        Seura s;
        bool aukiViestinJalkeen = false;
        kunAuki([&](QDialog *) {
            frmHaku *d = frmHaku::ladattu();
            if (listasta) {
                avaaLista(d->cmbJasenNro);
                d->cmbJasenNro->setCurrentIndex(d->cmbJasenNro->findText(kirjoitettu));
            } else {
                kirjoita(d->cmbJasenNro->lineEdit(), kirjoitettu);
                d->cmbJasenNro->completer()->popup()->hide();
            }
            d->cHae->click();
            aukiViestinJalkeen = d->isVisible();
        });
        const qint64 id = frmHaku::hae(nullptr);
        const qint64 oikea = odotettu == u"virtanen"_s ? s.virtanen : odotettu == u"virtala"_s ? s.virtala : 0;
        QCOMPARE(id, oikea);
        QCOMPARE(s.dlg.messages(), viestit);
        // Nothing found: the dialog stays open for another try.
        QCOMPARE(aukiViestinJalkeen, oikea == 0);
        QVERIFY(s.dlg.unexpected.isEmpty());
    }

    void sameAddressTypedFindsTheFirstChosenFindsTheChosen()
    {
        Seura s;
        kunAuki([&](QDialog *) {
            frmHaku *d = frmHaku::ladattu();
            avaaLista(d->cmbOsoite);
            d->cmbOsoite->setCurrentIndex(rivi(d->cmbOsoite, s.virtala));
            d->cYhteysHaku->click();
        });
        QCOMPARE(frmHaku::hae(nullptr), s.virtala);
        kunAuki([&](QDialog *) {
            frmHaku *d = frmHaku::ladattu();
            kirjoita(d->cmbOsoite->lineEdit(), u"koulukatu 1"_s);
            d->cmbOsoite->completer()->popup()->hide();
            d->cYhteysHaku->click();
        });
        QCOMPARE(frmHaku::hae(nullptr), s.virtanen);
        kunAuki([&](QDialog *) {
            frmHaku *d = frmHaku::ladattu();
            kirjoita(d->cmbMatkapuhelin->lineEdit(), u"040"_s); // not the whole number: exact, not LIKE
            d->cmbMatkapuhelin->completer()->popup()->hide();
            d->cYhteysHaku->click();
        });
        QCOMPARE(frmHaku::hae(nullptr), 0);
        QCOMPARE(s.dlg.messages(), QStringList{u"Ei löydy jäsentä."_s});
    }

    void typingInOneContactBoxEmptiesTheOthers()
    {
        Seura s;
        QString email, puhelin, osoite, kirjoitettu;
        int emailRiveja = 0;
        kunAuki([&](QDialog *) {
            frmHaku *d = frmHaku::ladattu();
            avaaLista(d->cmbOsoite);
            d->cmbOsoite->setCurrentIndex(rivi(d->cmbOsoite, s.naapuri));
            emit d->cmbOsoite->activated(d->cmbOsoite->currentIndex());
            kirjoita(d->cmbEmail->lineEdit(), u"matti@"_s);
            d->cmbEmail->completer()->popup()->hide();
            osoite = d->cmbOsoite->currentText();
            // The list is read at the first letter, and what was typed stays.
            kirjoitettu = d->cmbEmail->currentText();
            emailRiveja = d->cmbEmail->count();
            kirjoita(d->cmbPuhelin->lineEdit(), u"0"_s);
            d->cmbPuhelin->completer()->popup()->hide();
            email = d->cmbEmail->currentText();
            puhelin = d->cmbPuhelin->currentText();
            d->cPeruHaku[2]->click();
        });
        QCOMPARE(frmHaku::hae(nullptr), 0);
        QCOMPARE(osoite, QString());
        QCOMPARE(kirjoitettu, u"matti@"_s);
        QCOMPARE(emailRiveja, 1);
        QCOMPARE(email, QString());
        QCOMPARE(puhelin, u"0"_s);
        QVERIFY(s.dlg.messages().isEmpty());
    }

    void memoSearch()
    {
        Seura s;
        kunAuki([&](QDialog *) {
            frmHaku *d = frmHaku::ladattu();
            d->cMuistioHaku->click(); // neither box
            d->tMuistioHakuSana->setText(u"hallituksen"_s);
            d->cMuistioHaku->click();
        });
        // Says "the first", takes the last row of the result.
        QCOMPARE(frmHaku::hae(nullptr), s.makinen);
        QCOMPARE(s.dlg.messages(), (QStringList{u"Hakuehtoa ei ole valittu."_s,
                                                u"Löytyi useita mahdollisia (2). Siirrytään ensimmäiseen löydettyyn."_s}));

        s.dlg.shown.clear();
        QStringList alut;
        kunAuki([&](QDialog *) {
            frmHaku *d = frmHaku::ladattu();
            avaaLista(d->cmbMuistioAlut);
            for (int i = 0; i < d->cmbMuistioAlut->count(); ++i)
                alut << d->cmbMuistioAlut->itemText(i);
            d->cmbMuistioAlut->setCurrentIndex(2);
            d->cMuistioHaku->click();
        });
        QCOMPARE(frmHaku::hae(nullptr), s.naapuri);
        QCOMPARE(alut, (QStringList{u"Hallituksen jäsen"_s, u"Hallituksen varajäsen"_s, u"Halli-vuoro torstaisin"_s}));
        QVERIFY(s.dlg.messages().isEmpty());

        kunAuki([&](QDialog *) {
            frmHaku *d = frmHaku::ladattu();
            d->tMuistioHakuSana->setText(u"puheenjohtaja"_s);
            d->cMuistioHaku->click();
        });
        QCOMPARE(frmHaku::hae(nullptr), 0);
        QCOMPARE(s.dlg.messages(), QStringList{u"Muistiosta ei löydy annettua tietoa."_s});
    }

    void listsAreKeptAndBoxesEmptiedForTheNextUse()
    {
        Seura s;
        kunAuki([&](QDialog *) {
            frmHaku *d = frmHaku::ladattu();
            avaaLista(d->cmbJasenNro);
            d->cmbJasenNro->setCurrentIndex(d->cmbJasenNro->findText(u"7"_s));
            d->tMuistioHakuSana->setText(u"jotain"_s);
            d->cHae->click();
        });
        QCOMPARE(frmHaku::hae(nullptr), s.makinen);
        const qint64 uusi = hakuseura::lisaa(*s.db, {u"Uusi"_s, {}, {}, u"999"_s});
        int rivejaNyt = 0;
        QString numero, sana;
        kunAuki([&](QDialog *) {
            frmHaku *d = frmHaku::ladattu();
            rivejaNyt = d->cmbJasenNro->count();
            numero = d->cmbJasenNro->currentText();
            sana = d->tMuistioHakuSana->text();
            kirjoita(d->cmbJasenNro->lineEdit(), u"999"_s);
            d->cmbJasenNro->completer()->popup()->hide();
            d->cHae->click();
        });
        QCOMPARE(frmHaku::hae(nullptr), uusi); // a typed value finds him
        QCOMPARE(rivejaNyt, 4);                // though the list was read before he came
        QCOMPARE(numero, QString());
        QCOMPARE(sana, QString());
    }

    void cancelAndEscapeFindNothing()
    {
        Seura s;
        kunAuki([&](QDialog *) {
            frmHaku *d = frmHaku::ladattu();
            avaaLista(d->cmbJasenNro);
            d->cmbJasenNro->setCurrentIndex(0);
            d->cPeruHaku[0]->click();
        });
        QCOMPARE(frmHaku::hae(nullptr), 0);
        kunAuki([&](QDialog *d) { QTest::keyClick(d, Qt::Key_Escape); });
        QCOMPARE(frmHaku::hae(nullptr), 0);
        QVERIFY(s.dlg.shown.isEmpty());
    }

    void noDatabaseNoDialog()
    {
        TestEnv env;
        ScriptedDialogs dlg;
        MainModule::DatabasePath = u"unknown"_s;
        QCOMPARE(frmHaku::hae(nullptr), 0);
        QCOMPARE(frmNimiHaku::hae(nullptr), 0);
        QCOMPARE(dlg.messages(), QStringList(2, u"Tarkista tietokanta asetukset asetusikkunasta!"_s));
        QCOMPARE(frmHaku::ladattu(), nullptr);
    }

    void nameSearchFindsAndOpens()
    {
        Seura s;
        QString viesti, tyhja, eiLoydy;
        QStringList rivit;
        kunAuki([&](QDialog *dd) {
            auto *d = qobject_cast<frmNimiHaku *>(dd);
            QVERIFY(d);
            d->cSearch->click();
            tyhja = d->lblSearchMessage->text();
            kirjoita(d->tSukunimi, u"zz"_s);
            QTest::keyClick(d->tSukunimi, Qt::Key_Return);
            eiLoydy = d->lblSearchMessage->text();
            d->tSukunimi->clear();
            kirjoita(d->tSukunimi, u"IRTA"_s);
            QTest::keyClick(d->tSukunimi, Qt::Key_Return);
            viesti = d->lblSearchMessage->text();
            for (int i = 0; i < d->lstFoundJR->model()->rowCount(); ++i)
                rivit << d->lstFoundJR->model()->index(i, 0).data().toString();
            d->lstFoundJR->setCurrentIndex(d->lstFoundJR->model()->index(1, 0));
            QTest::keyClick(d->lstFoundJR, Qt::Key_Return);
        });
        QCOMPARE(frmNimiHaku::hae(nullptr), s.virtala);
        QCOMPARE(HaettuJasenID, s.virtala);
        QCOMPARE(s.dlg.messages(), QStringList{u"Kirjoita haettava nimi."_s});
        QCOMPARE(tyhja, QString());
        QCOMPARE(eiLoydy, u"Ei löytynyt."_s);
        QCOMPARE(viesti, u"Löytyi: 2"_s);
        QCOMPARE(rivit, (QStringList{u"Virtanen Matti - Helsinki"_s, u"Virtala Maija - Turku"_s}));
    }

    void nameSearchWithFinnishLettersAndApostrophe()
    {
        Seura s;
        kunAuki([&](QDialog *dd) {
            auto *d = qobject_cast<frmNimiHaku *>(dd);
            kirjoita(d->tEtunimi, u"äij"_s);
            d->cSearch->click();
            d->cOpen->click();
        });
        QCOMPARE(frmNimiHaku::hae(nullptr), s.makinen);
        kunAuki([&](QDialog *dd) {
            auto *d = qobject_cast<frmNimiHaku *>(dd);
            kirjoita(d->tSukunimi, u"o'n"_s);
            d->cSearch->click();
            const QPoint kohta = d->lstFoundJR->visualRect(d->lstFoundJR->model()->index(0, 0)).center();
            QTest::mouseClick(d->lstFoundJR->viewport(), Qt::LeftButton, {}, kohta);
            QTest::mouseDClick(d->lstFoundJR->viewport(), Qt::LeftButton, {}, kohta);
        });
        QCOMPARE(frmNimiHaku::hae(nullptr), s.naapuri);
    }

    void nameSearchUndoLeavesNothing()
    {
        Seura s;
        HaettuJasenID = s.virtanen; // left by an earlier search
        kunAuki([&](QDialog *dd) {
            auto *d = qobject_cast<frmNimiHaku *>(dd);
            kirjoita(d->tSukunimi, u"virta"_s);
            d->cSearch->click();
            d->cUndo->click();
        });
        QCOMPARE(frmNimiHaku::hae(nullptr), 0);
        QCOMPARE(HaettuJasenID, 0);
        QCOMPARE(s.db->scalar(u"SELECT count(*) FROM jr"_s).toInt(), 4);
    }

    // ---- code-list windows ----

    void memberKindsNewSaveNavigateDelete()
    {
        Seura s;
        frmJasenlajit w;
        QVERIFY(w.lataa());
        w.show();
        QCOMPARE(w.windowTitle(), u"Vonari - Jäsenlajit"_s);
        QCOMPARE(w.tvwLista->topLevelItemCount(), 0); // an empty list, an empty tree
        QVERIFY(!w.cPoista->isEnabled());
        QVERIFY(!w.cTallenna->isEnabled());

        auto lisaa = [&](const QString &koodi, const QString &nimi) {
            w.cUusi->click();
            kirjoita(w.tKoodi, koodi);
            kirjoita(w.tNimi, nimi);
            QVERIFY(w.cTallenna->isEnabled());
            w.cTallenna->click();
        };
        lisaa(u"V"_s, u"Varsinainen"_s);
        lisaa(u"K"_s, u"Kunnia'jäsen"_s);
        lisaa(u"N"_s, u"Nuori; alle 18"_s);
        QCOMPARE(puu(w.tvwLista), (QStringList{u"K Kunnia'jäsen"_s, u"N Nuori; alle 18"_s, u"V Varsinainen"_s}));
        QCOMPARE(s.db->scalar(u"SELECT Jasenlaji_Nimi FROM Jasenlaji WHERE Jasenlaji_Koodi = 'K'"_s).toString(), u"Kunnia'jäsen"_s);

        // Steps go by key: the first row has nothing before it, and the window stays.
        w.cEnsimmainen->click();
        QCOMPARE(w.tNimi->text(), u"Varsinainen"_s);
        w.cEdellinen->click();
        QCOMPARE(w.tNimi->text(), u"Varsinainen"_s);
        QCOMPARE(s.dlg.beeps, 1);
        w.cSeuraava->click();
        QCOMPARE(w.tNimi->text(), u"Kunnia'jäsen"_s);

        // The tree row follows the name as it is typed; Peru takes the stored row back.
        kirjoita(w.tNimi, u"x"_s);
        QCOMPARE(w.tvwLista->currentItem()->text(0), u"K Kunnia'jäsenx"_s);
        w.cPeru->click();
        QCOMPARE(w.tNimi->text(), u"Kunnia'jäsen"_s);
        QVERIFY(!w.cTallenna->isEnabled());

        // A click in the tree reads that row.
        w.tvwLista->setCurrentItem(w.tvwLista->topLevelItem(2));
        QTRY_COMPARE(w.tKoodi->text(), u"V"_s);

        // No keeps the row; Yes deletes it and shows the next one.
        w.cEnsimmainen->click();
        s.dlg.no();
        w.cPoista->click();
        QCOMPARE(s.db->scalar(u"SELECT count(*) FROM Jasenlaji"_s).toInt(), 3);
        s.dlg.yes();
        w.cPoista->click();
        QCOMPARE(s.dlg.shown.last().text, u"Haluatko varmasti poistaa valitun jäsenlajin?"_s);
        QCOMPARE(s.db->scalar(u"SELECT count(*) FROM Jasenlaji WHERE Jasenlaji_Koodi = 'V'"_s).toInt(), 0);
        QCOMPARE(puu(w.tvwLista), (QStringList{u"K Kunnia'jäsen"_s, u"N Nuori; alle 18"_s}));
        QCOMPARE(w.tKoodi->text(), u"K"_s);
        QVERIFY(s.dlg.unexpected.isEmpty());
    }

    void memberGroupsStorePendingEditOnClose()
    {
        Seura s;
        s.db->execute(u"INSERT INTO Jasenryhma (Jasenryhma_Koodi, Jasenryhma_Nimi) VALUES ('H', 'Hallitus')"_s);
        auto *w = new frmJasenryhmat;
        QVERIFY(w->lataa());
        w->show();
        QCOMPARE(w->tNimi->text(), u"Hallitus"_s);
        kirjoita(w->tNimi, u" 2024"_s);
        // The window's Ctrl+Z wins over the box's own undo.
        QVERIFY(QTest::qWaitForWindowActive(w));
        QTest::keyClick(w->tNimi, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(w->tNimi->text(), u"Hallitus"_s);
        kirjoita(w->tNimi, u" 2025"_s);
        s.dlg.yes();
        w->cPoista->click();
        QCOMPARE(s.dlg.shown.last().text, u"Haluatko varmasti poistaa valitun jäsenryhmän?"_s);
        QCOMPARE(w->tvwLista->topLevelItemCount(), 0);
        kirjoita(w->tKoodi, u"T"_s);
        kirjoita(w->tNimi, u"Toimikunta"_s);
        w->cSulje->click();
        QVERIFY(!w->isVisible());
        delete w;
        QCOMPARE(s.db->scalar(u"SELECT Jasenryhma_Nimi FROM Jasenryhma WHERE Jasenryhma_Koodi = 'T'"_s).toString(), u"Toimikunta"_s);
        QCOMPARE(s.db->scalar(u"SELECT count(*) FROM Jasenryhma"_s).toInt(), 1);
    }

    void postalCodesKeepTheLeadingZero()
    {
        Seura s;
        frmPostinumerot w;
        QVERIFY(w.lataa());
        w.show();
        QCOMPARE(w.windowTitle(), u"Vonari - Postinumerot"_s);
        QCOMPARE(w.cPoista->toolTip(), u"Poista näytössä oleva postinumero [F4]"_s);
        auto lisaa = [&](const QString &koodi, const QString &paikka) {
            w.cUusi->click();
            kirjoita(w.tPostinumero, koodi);
            kirjoita(w.tPostitoimipaikka, paikka);
            w.cTallenna->click();
        };
        lisaa(u"00100"_s, u"HELSINKI"_s);
        lisaa(u"100"_s, u"Sata"_s);
        QCOMPARE(puu(w.tvwLista), (QStringList{u"00100 HELSINKI"_s, u"100 Sata"_s}));
        QCOMPARE(w.tPostinumero->maxLength(), 5);

        // A taken code: the message, nothing written, and the typing kept.
        lisaa(u"00100"_s, u"Toinen"_s);
        QCOMPARE(s.dlg.messages(), QStringList{u"Postinumero 00100 on jo luettelossa."_s});
        QCOMPARE(w.tPostitoimipaikka->text(), u"Toinen"_s);
        QVERIFY(w.cTallenna->isEnabled());
        QCOMPARE(s.db->scalar(u"SELECT count(*) FROM Postinumero"_s).toInt(), 2);
        w.tPostinumero->setText(u"00200"_s);
        w.cTallenna->click();
        QCOMPARE(puu(w.tvwLista), (QStringList{u"00100 HELSINKI"_s, u"00200 Toinen"_s, u"100 Sata"_s}));

        w.cEnsimmainen->click();
        w.cSeuraava->click();
        QCOMPARE(w.tPostinumero->text(), u"00200"_s);
        w.cViimeinen->click();
        QCOMPARE(w.tPostinumero->text(), u"100"_s);
        s.dlg.yes();
        w.cPoista->click();
        QCOMPARE(s.dlg.shown.last().text, u"Haluatko varmasti poistaa valitun postinumeron?"_s);
        // Nothing after the last code: the window shows the one before.
        QCOMPARE(w.tPostinumero->text(), u"00200"_s);
        QCOMPARE(s.db->scalar(u"SELECT count(*) FROM Postinumero WHERE Postinumero = '00100'"_s).toInt(), 1);
        QCOMPARE(s.db->scalar(u"SELECT count(*) FROM Postinumero"_s).toInt(), 2);
    }
};

QTEST_MAIN(TestFrmHaku)
#include "tst_frmhaku.moc"
