// The member window with the windows it opens: the attribute tab, the name search and the bulk
// attach of the attribute menu; and the register's windows without a database.
#include "jasenikkuna.h"
#include "members/ui/ArvoPaneeli.h"
#include "members/ui/LiitosPohja.h"
#include "members/ui/frmHaku.h"
#include "members/ui/frmHakuehdot.h"
#include "members/ui/frmJasenOminaisuudet.h"
#include "members/ui/frmMoniliitos.h"
#include "members/ui/frmNimiHaku.h"
#include "members/ui/frmPiirre.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using EditMode = db::Recordset::EditMode;

namespace {

// Two members and the memo attribute "Kuoro", the member window open on the first.
struct Seura : JasenSeura {
    frmJasenOminaisuudet *sivu = nullptr;
    qint64 aalto = 0, berg = 0, kuoro = 0;

    Seura()
    {
        aalto = jasen(u"Aalto"_s, u"Anna"_s);
        berg = jasen(u"Berg"_s, u"Bo"_s);
        d->execute(u"INSERT INTO pi (piNimi, piKuvaus, piEnbldDate, piEnbldLong, piEnbldCurrency, piEnbldMemo) "
                   u"VALUES ('Kuoro', 'Laulaa kuorossa', 0, 0, 0, 1)"_s);
        kuoro = d->lastInsertId();
    }

    // On the attribute tab.
    bool avaa()
    {
        if (!JasenSeura::avaa() || !(sivu = w->findChild<frmJasenOminaisuudet *>()))
            return false;
        w->TabStr1->setCurrentWidget(sivu);
        return true;
    }

    QVariant muistio(qint64 jr)
    {
        return d->scalar(u"SELECT ptValMemo FROM pt WHERE ptjrID = ? AND ptpiID = ?"_s, {jr, kuoro});
    }
    void liitaKuoro(qint64 jr) { d->execute(u"INSERT INTO pt (ptjrID, ptpiID) VALUES (?, ?)"_s, {jr, kuoro}); }
};

using testi::kirjoita;
using testi::kunAuki;
using testi::rivit;

} // namespace

class TestFrmJasenKytkenta : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(testi::avaamatta(), 0); }

    // Lisää, Enter on the definition, a value typed and F3: the attachment and its value are
    // stored. A move stores the typed value together with an edit of the member; Peru drops it.
    void ominaisuusLiitetaanJaTallennetaan()
    {
        Seura s;
        s.liitaKuoro(s.berg);
        QVERIFY(s.avaa());
        testi::paina(s.sivu->cLisaaPiirre);
        s.sivu->lstAllPi->setCurrentRow(0);
        QTest::keyClick(s.sivu->lstAllPi, Qt::Key_Return);
        QCOMPARE(rivit(s.sivu->lstAllPt), QStringList{u"Kuoro"_s});
        QVERIFY(s.muistio(s.aalto).isNull());
        kirjoita(s.sivu->arvot->tMemo, u"Basso"_s);
        QCOMPARE(s.w->Data1()->editMode(), EditMode::Edit);
        QTest::keyClick(s.sivu->arvot->tMemo, Qt::Key_F3);
        QCOMPARE(s.muistio(s.aalto).toString(), u"Basso"_s);
        QCOMPARE(s.w->Data1()->editMode(), EditMode::None);

        s.sivu->arvot->tMemo->moveCursor(QTextCursor::End);
        kirjoita(s.sivu->arvot->tMemo, u" ja tenori"_s);
        s.w->tYhteystiedot[iEtunimi]->setText(u"Annukka"_s);
        QTest::keyClick(s.sivu->arvot->tMemo, Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(s.w->NykyinenId(), s.berg);
        QCOMPARE(s.muistio(s.aalto).toString(), u"Basso ja tenori"_s);
        QCOMPARE(s.arvo(s.aalto, u"jrEtunimi"_s).toString(), u"Annukka"_s);
        // The box in which Ctrl+D was typed was disabled by the move; the focus stayed on the page.
        QVERIFY(s.sivu->isAncestorOf(QApplication::focusWidget()));
        kirjoita(s.sivu->arvot->tMemo, u"Altto"_s);
        paina(s.w->cPeru);
        QVERIFY(!s.w->bPiirreMuuttunut());
        QCOMPARE(s.sivu->arvot->tMemo->toPlainText(), QString());
        QTest::keyClick(s.w->cPeru, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(s.w->NykyinenId(), s.aalto);
        QVERIFY(s.muistio(s.berg).isNull());
        QVERIFY(s.dlg.unexpected.isEmpty());
    }

    // A search stores the edit in progress and moves the window to the member chosen; a member
    // the window does not hold is told of and the window stays where it was. By name, and by
    // number from F6 and from the button.
    void hakuSiirtaaJaseneen()
    {
        for (bool nimella : {true, false}) {
            Seura s;
            s.liitaKuoro(s.berg);
            s.d->execute(u"UPDATE jr SET jrJasennumero = '7' WHERE jrID = ?"_s, {s.berg});
            QVERIFY(s.avaa());
            auto etsi = [&](const QString &nimi, const QString &numero) {
                if (nimella) {
                    kunAuki<frmNimiHaku>([nimi](frmNimiHaku *h) {
                        h->tSukunimi->setText(nimi);
                        testi::paina(h->cSearch);
                        h->lstFoundJR->setCurrentIndex(h->lstFoundJR->model()->index(0, 0));
                        testi::paina(h->cOpen);
                    });
                    return testi::paina(s.w->cNimiHaku);
                }
                kunAuki<frmHaku>([numero](frmHaku *h) {
                    h->cmbJasenNro->setCurrentIndex(-1);
                    h->cmbJasenNro->setEditText(numero);
                    testi::paina(h->cHae);
                });
                if (numero == u"7"_s)
                    QTest::keyClick(s.w, Qt::Key_F6);
                else
                    testi::paina(s.w->cHaku);
            };
            s.w->tYhteystiedot[iEtunimi]->setText(u"Annukka"_s);
            etsi(u"erg"_s, u"7"_s);
            QCOMPARE(s.w->NykyinenId(), s.berg);
            QCOMPARE(s.sivu->lstAllPt->count(), 1);
            QCOMPARE(s.arvo(s.aalto, u"jrEtunimi"_s).toString(), u"Annukka"_s);

            s.jasen(u"Myöhäinen"_s, u"Mikko"_s, u"9"_s);
            etsi(u"Myöh"_s, u"9"_s);
            QCOMPARE(s.dlg.messages(), QStringList{nimella ? u"Jäsentä ei löydy."_s : u"Jäsennumerolla ei löydy jäsentä."_s});
            QCOMPARE(s.w->NykyinenId(), s.berg);
            QCOMPARE(s.teksti(iSukunimi), u"Berg"_s);
            QVERIFY(s.dlg.unexpected.isEmpty());
            frmHaku::pura();
        }
    }

    // Moniliitos from the menu: nothing chosen is told; the tab and the list condition's count
    // show the new holders.
    void moniliitosNakyyValilehdella()
    {
        Seura s;
        QVERIFY(s.avaa());
        // The list condition takes effect when the focus leaves it.
        s.w->cmbListaEhto->setFocus();
        s.w->cmbListaEhto->setCurrentIndex(s.w->cmbListaEhto->findText(u"Kuoro"_s));
        s.sivu->lstAllPt->setFocus();

        kunAuki<frmMoniliitos>([&](frmMoniliitos *m) {
            testi::paina(m->cLisaa);
            m->pohja->lstAllPt->setCurrentRow(0);
            testi::paina(m->cValitseKaikki);
            testi::paina(m->cLisaa);
            testi::paina(m->cSulje);
        });
        s.w->findChild<QAction *>(u"mMoniliitos"_s)->trigger();
        QCOMPARE(s.dlg.messages(), QStringList({u"Valitse ominaisuus ennen lisäystä!"_s, u"Ominaisuus lisätty!"_s}));
        QCOMPARE(s.d->scalar(u"SELECT COUNT(*) FROM pt WHERE ptpiID = ?"_s, {s.kuoro}).toInt(), 2);
        QCOMPARE(rivit(s.sivu->lstAllPt), QStringList{u"Kuoro"_s});
        QVERIFY(s.w->windowTitle().endsWith(u" - 2"_s));
        QCOMPARE(s.w->cmbListaEhto->currentText(), u"Kuoro"_s);
        QVERIFY(s.dlg.unexpected.isEmpty());
    }

    // Without a usable database no window of the register opens; each says where to look, and a
    // file that is gone is named.
    void ilmanTietokantaaEiIkkunaa()
    {
        TestEnv env;
        ScriptedDialogs dlg;
        for (const QString &polku : {QString(), u"unknown"_s}) {
            MainModule::DatabasePath = polku;
            QPointer<frmJasen> w = new frmJasen;
            QVERIFY(!w->Lataa());
            delete w.data();
            QCOMPARE(frmHaku::hae(nullptr) + frmNimiHaku::hae(nullptr), 0);
            QVERIFY(!frmHaku::ladattu());
            AvaaOminaisuudet(nullptr);
            const auto ikkunat = QApplication::topLevelWidgets();
            QVERIFY(std::none_of(ikkunat.begin(), ikkunat.end(), [](QWidget *t) { return qobject_cast<frmPiirre *>(t) && t->isVisible(); }));
            QVERIFY(!NaytaHakuehdot());
        }
        QCOMPARE(dlg.messages(), QStringList(10, u"Tarkista tietokanta asetukset asetusikkunasta!"_s));
        MainModule::DatabasePath = env.path(u"poissa.mdb"_s);
        QVERIFY(!NaytaHakuehdot());
        QCOMPARE(dlg.messages().last(), u"Tietokantaa ei löydy: "_s + MainModule::DatabasePath);
        QVERIFY(!QApplication::activeModalWidget());
    }
};

QTEST_MAIN(TestFrmJasenKytkenta)
#include "tst_frmjasen_kytkenta.moc"
