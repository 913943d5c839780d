#include "core/MainModule.h"
#include "hakuseura.h"
#include "members/Jasenhaku.h"
#include "members/ui/frmHaku.h"
#include "members/ui/frmNimiHaku.h"
#include "members/ui/frmPostinumerot.h"
#include "scripteddialogs.h"
#include "testenv.h"
#include "testiapu.h"

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
        db = malliseura::kopio(env.path(u"seura.mdb"_s));
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
void haussa(F f)
{
    testi::kunAuki<QDialog>([f](QDialog *) { f(frmHaku::ladattu()); });
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
    void cleanup()
    {
        frmHaku::pura();
        QCOMPARE(testi::avaamatta(), 0);
    }

    // A chosen address finds the member chosen; typing in one contact box empties the others, and
    // a typed phone number is found only whole.
    void contactSearch()
    {
        Seura s;
        haussa([&](frmHaku *d) {
            avaaLista(d->cmbOsoite);
            d->cmbOsoite->setCurrentIndex(rivi(d->cmbOsoite, s.virtala));
            testi::paina(d->cYhteysHaku);
        });
        QCOMPARE(frmHaku::hae(nullptr), s.virtala);
        QString tekstit;
        haussa([&](frmHaku *d) {
            avaaLista(d->cmbOsoite);
            d->cmbOsoite->setCurrentIndex(rivi(d->cmbOsoite, s.naapuri));
            emit d->cmbOsoite->activated(d->cmbOsoite->currentIndex());
            kirjoita(d->cmbEmail->lineEdit(), u"matti@"_s);
            d->cmbEmail->completer()->popup()->hide();
            // The list is read at the first letter, and what was typed stays.
            tekstit = d->cmbOsoite->currentText() + u'|' + d->cmbEmail->currentText();
            kirjoita(d->cmbMatkapuhelin->lineEdit(), u"040"_s);
            d->cmbMatkapuhelin->completer()->popup()->hide();
            tekstit += u'|' + d->cmbEmail->currentText();
            testi::paina(d->cYhteysHaku);
        });
        QCOMPARE(frmHaku::hae(nullptr), 0);
        QCOMPARE(tekstit, u"|matti@|"_s);
        QCOMPARE(s.dlg.messages(), QStringList{u"Ei löydy jäsentä."_s});
    }

    void memoSearch()
    {
        Seura s;
        haussa([&](frmHaku *d) {
            testi::paina(d->cMuistioHaku); // neither box
            d->tMuistioHakuSana->setText(u"hallituksen"_s);
            testi::paina(d->cMuistioHaku);
        });
        // Says "the first", takes the last row of the result.
        QCOMPARE(frmHaku::hae(nullptr), s.makinen);
        QCOMPARE(s.dlg.messages(), (QStringList{u"Hakuehtoa ei ole valittu."_s,
                                                u"Löytyi useita mahdollisia (2). Siirrytään ensimmäiseen löydettyyn."_s}));

        // A word nobody's memo holds is told of.
        s.dlg.shown.clear();
        haussa([&](frmHaku *d) {
            d->tMuistioHakuSana->setText(u"puheenjohtaja"_s);
            testi::paina(d->cMuistioHaku);
        });
        QCOMPARE(frmHaku::hae(nullptr), 0);
        QCOMPARE(s.dlg.messages(), QStringList{u"Muistiosta ei löydy annettua tietoa."_s});
    }

    void cancelUndoAndEscapeFindNothing()
    {
        Seura s;
        haussa([&](frmHaku *d) {
            avaaLista(d->cmbJasenNro);
            d->cmbJasenNro->setCurrentIndex(0);
            testi::paina(d->cPeruHaku[0]);
        });
        QCOMPARE(frmHaku::hae(nullptr), 0);
        haussa([&](frmHaku *d) { QTest::keyClick(d, Qt::Key_Escape); });
        QCOMPARE(frmHaku::hae(nullptr), 0);
        HaettuJasenID = s.virtanen; // left by an earlier search
        testi::kunAuki<frmNimiHaku>([&](frmNimiHaku *d) {
            kirjoita(d->tSukunimi, u"virta"_s);
            testi::paina(d->cSearch);
            testi::paina(d->cUndo);
        });
        QCOMPARE(frmNimiHaku::hae(nullptr), 0);
        QCOMPARE(HaettuJasenID, 0);
        QVERIFY(s.dlg.shown.isEmpty());
    }

    // An empty name is asked for, the label tells what was found, and Enter on a row opens him.
    void nameSearchFindsAndOpens()
    {
        Seura s;
        QStringList viestit;
        testi::kunAuki<frmNimiHaku>([&](frmNimiHaku *d) {
            testi::paina(d->cSearch);
            for (const QString &nimi : {u"zz"_s, u"IRTA"_s}) {
                d->tSukunimi->clear();
                kirjoita(d->tSukunimi, nimi);
                QTest::keyClick(d->tSukunimi, Qt::Key_Return);
                viestit << d->lblSearchMessage->text();
            }
            d->lstFoundJR->setCurrentIndex(d->lstFoundJR->model()->index(1, 0));
            QTest::keyClick(d->lstFoundJR, Qt::Key_Return);
        });
        QCOMPARE(frmNimiHaku::hae(nullptr), s.virtala);
        QCOMPARE(HaettuJasenID, s.virtala);
        QCOMPARE(s.dlg.messages(), QStringList{u"Kirjoita haettava nimi."_s});
        QCOMPARE(viestit, (QStringList{u"Ei löytynyt."_s, u"Löytyi: 2"_s}));
    }

    // ---- code-list windows ----

    // The code-list windows share one kit, shown on the postal codes (a code that is its own key):
    // the list in code order, a taken code told, a click in the list, Ctrl+Z, a delete after its
    // question, and a row left unsaved stored when the window closes.
    void koodilistaIkkuna()
    {
        const QString sql = u"SELECT group_concat(n, '|') FROM (SELECT Postitoimipaikka n FROM Postinumero ORDER BY Postinumero)"_s;
        Seura s;
        auto *w = new frmPostinumerot;
        QVERIFY(w->lataa());
        w->show();
        QVERIFY(QTest::qWaitForWindowActive(w));
        const QList<QLineEdit *> laatikot = w->findChildren<QLineEdit *>();
        QLineEdit *koodi = laatikot.value(0), *nimi = laatikot.value(1);

        const QHash<QString, QString> nimet{{u"2"_s, u"Varsinainen"_s}, {u"01"_s, u"Kunnia'jäsen"_s}, {u"1"_s, u"Nuori; alle 18"_s}};
        for (const QString &k : {u"2"_s, u"01"_s, u"1"_s}) {
            testi::paina(w->cUusi);
            kirjoita(koodi, k);
            kirjoita(nimi, nimet[k]);
            testi::paina(w->cTallenna);
        }
        QCOMPARE(puu(w->tvwLista), (QStringList{u"01 Kunnia'jäsen"_s, u"1 Nuori; alle 18"_s, u"2 Varsinainen"_s}));
        QCOMPARE(s.db->scalar(sql).toString(), u"Kunnia'jäsen|Nuori; alle 18|Varsinainen"_s);
        // A code already in the list is told, and the typing stays.
        testi::paina(w->cUusi);
        kirjoita(koodi, u"01"_s);
        kirjoita(nimi, u"Toinen"_s);
        testi::paina(w->cTallenna);
        QCOMPARE(s.dlg.messages(), QStringList{u"Postinumero 01 on jo luettelossa."_s});
        QCOMPARE(nimi->text(), u"Toinen"_s);
        testi::paina(w->cPeru);
        QCOMPARE(s.db->scalar(sql).toString(), u"Kunnia'jäsen|Nuori; alle 18|Varsinainen"_s);

        // A click in the list shows its row; Ctrl+Z is the window's undo, not the box's own.
        w->tvwLista->setCurrentItem(w->tvwLista->topLevelItem(2));
        QTRY_COMPARE(koodi->text(), u"2"_s);
        kirjoita(nimi, u"x"_s);
        QTest::keyClick(nimi, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(nimi->text(), u"Varsinainen"_s);

        // No keeps the row; Yes deletes it and shows another.
        s.dlg.no();
        testi::paina(w->cPoista);
        QCOMPARE(s.dlg.shown.last().text, u"Haluatko varmasti poistaa valitun postinumeron?"_s);
        for (int i = 0; i < 2; ++i) {
            s.dlg.yes();
            testi::paina(w->cPoista);
        }
        QCOMPARE(puu(w->tvwLista), QStringList{koodi->text() + u' ' + nimi->text()}); // the row left is shown

        // With the last row gone the boxes take a new one, stored when the window closes.
        s.dlg.yes();
        testi::paina(w->cPoista);
        kirjoita(koodi, u"3"_s);
        kirjoita(nimi, u"Toimikunta"_s);
        testi::paina(w->cSulje);
        delete w;
        QCOMPARE(s.db->scalar(sql).toString(), u"Toimikunta"_s);
        QVERIFY(s.dlg.unexpected.isEmpty());
    }
};

QTEST_MAIN(TestFrmHaku)
#include "tst_frmhaku.moc"
