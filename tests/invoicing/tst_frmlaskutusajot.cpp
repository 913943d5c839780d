// The family and attribute windows on the demonstration club: rows typed as a user types them,
// the run, and the move to history with each window's kind flags.
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "invoicing/ui/frmOminLasku.h"
#include "invoicing/ui/frmPROMaksujenLuonti.h"
#include "invoicing/ui/frmPerhelasku.h"
#include "members/ui/frmPROMyyntilajit.h"
#include "platform/kello.h"
#include "scripteddialogs.h"
#include "seurat.h"
#include "testenv.h"
#include "testiapu.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTreeWidget>
#include <QtTest>

namespace {

template <class W>
struct Ikkuna {
    TestEnv env;
    ScriptedDialogs dlg;
    std::unique_ptr<db::Database> d;
    W *w = nullptr;

    Ikkuna()
    {
        MainModule::DatabasePath = env.path(QStringLiteral("demo1.mdb"));
        d = db::Database::open(seurat::Kopio(150, MainModule::DatabasePath));
        LueAsetukset(*d);
        kello::asetaTanaan(QDate(2027, 3, 1));
        w = new W;
        w->setAttribute(Qt::WA_DeleteOnClose, false);
        if (w->Lataa()) {
            w->show();
            w->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(w));
        }
        testi::kirjoita(w->tLaskunErapaiva, QStringLiteral("31.3.2027"));
    }
    ~Ikkuna() { delete w; }

    int maara(const QString &ehto) { return testi::maara(*d, ehto); }
    static void rasti(QCheckBox *c) { QTest::mouseClick(c, Qt::LeftButton, {}, QPoint(6, c->height() / 2)); }
    QString viimeinen() const { return dlg.messages().value(dlg.messages().size() - 1); }
};

} // namespace

class TestFrmLaskutusajot : public QObject {
    Q_OBJECT

private slots:
    void perhelaskutEsittelyseuralle()
    {
        Ikkuna<frmPerhelasku> s;
        // The box lists the payers, not everybody.
        const int maksajia = s.maara(QStringLiteral("jr WHERE jrPerheenLaskutettava = 1"));
        int henkiloita = 0;
        for (int i = 0; i < s.w->cmbNimet->count(); ++i)
            henkiloita += s.w->cmbNimet->itemData(i).toLongLong() > 0;
        QCOMPARE(henkiloita, maksajia);

        s.rasti(s.w->chkPerheLuokka[8]);
        testi::kirjoita(s.w->tSumma[8], QStringLiteral("30"));
        testi::kirjoita(s.w->tAiheTeksti[8], QStringLiteral("Perhemaksu"));
        s.rasti(s.w->chkNimet[8]);
        s.rasti(s.w->chkPerheLuokka[2]);
        testi::kirjoita(s.w->tSumma[2], QStringLiteral("abc"));
        QTest::keyClick(s.w, Qt::Key_F2);
        QCOMPARE(s.viimeinen(), QStringLiteral("Laskurivin summan pitää olla lukuarvo."));
        QCOMPARE(QApplication::focusWidget(), s.w->tSumma[2]);
        testi::korvaa(s.w->tSumma[2], QStringLiteral("10"));
        testi::kirjoita(s.w->tAiheTeksti[2], QStringLiteral("Lapset"));

        QTest::keyClick(s.w, Qt::Key_F2);
        QCOMPARE(s.viimeinen(), QStringLiteral("Lisätty %1 laskua.").arg(maksajia));
        QCOMPARE(s.maara(QStringLiteral("jm WHERE jmPerhe = 1 AND jmHinta >= 300000")), maksajia);
        QCOMPARE(s.maara(QStringLiteral("jmRivi WHERE jmRTeksti LIKE 'Perhemaksu : %'")), maksajia);
        QTest::keyClick(s.w, Qt::Key_F4);
        QCOMPARE(s.viimeinen(), QStringLiteral("Laskut siirretty historiaan."));
        QCOMPARE(s.maara(QStringLiteral("jmhist WHERE jmhjmPerhe = 1 AND jmhjmOmin = 0 AND jmhjmLaskupaiva = '2027-03-01'")),
                 maksajia);
        QVERIFY(s.dlg.unexpected.isEmpty());
    }

    void ominaisuuslaskutEsittelyseuralle()
    {
        Ikkuna<frmOminLasku> s;
        const int talkoot = s.w->cmbOminaisuus[0]->findText(QStringLiteral("Talkoovuorot"));
        QVERIFY(talkoot > 0);
        s.w->cmbOminaisuus[0]->setCurrentIndex(talkoot);
        s.rasti(s.w->chkLkm[0]);
        testi::kirjoita(s.w->tAHinta[0], QStringLiteral("15"));
        testi::kirjoita(s.w->tAiheTeksti[0], QStringLiteral("Talkoovuorot <OM.LKM:0> kpl"));
        QTest::keyClick(s.w, Qt::Key_F2);
        const int haltijoita = s.maara(QStringLiteral("pt JOIN pi ON piID = ptpiID WHERE piNimi = 'Talkoovuorot' AND ptValLong > 0"));
        QCOMPARE(s.viimeinen(), QStringLiteral("Lisätty %1 laskua.").arg(haltijoita));
        QCOMPARE(s.maara(QStringLiteral("jmRivi WHERE jmRTeksti LIKE 'Talkoovuorot % kpl' AND jmRTeksti NOT LIKE '%<%'")), haltijoita);
        QTest::keyClick(s.w, Qt::Key_F4);
        QCOMPARE(s.maara(QStringLiteral("jmhist WHERE jmhjmOmin = 1 AND jmhjmPerhe = 0 AND jmhjmLaskupaiva = '2027-03-01'")), haltijoita);
        QVERIFY(s.dlg.unexpected.isEmpty());
    }

    void myyntilajeittainEsittelyseuralle()
    {
        Ikkuna<frmPROMaksujenLuonti> s;
        QVERIFY(!s.w->mLaskupohjat);
        const int lajeja = s.maara(QStringLiteral("ml"));
        QCOMPARE(s.w->cmbMyyntiLaji[1]->count(), lajeja + 1);
        QCOMPARE(s.w->cmbMyyntiLaji[1]->itemText(0), QStringLiteral("-Ei myyntilajia-"));
        s.rasti(s.w->chkRivi[1]);
        testi::kirjoita(s.w->tRiviTeksti[1], QStringLiteral("Seuratuote"));
        testi::kirjoita(s.w->tRiviSumma[1], QStringLiteral("12,50"));
        s.w->cmbMyyntiLaji[1]->setCurrentIndex(2);
        const qint64 mlID = s.w->cmbMyyntiLaji[1]->currentData().toLongLong();
        testi::korvaa(s.w->cmbNimet->lineEdit(), s.w->cmbNimet->itemText(s.w->cmbNimet->count() - 1));
        QTest::keyClick(s.w, Qt::Key_F2);
        QCOMPARE(s.viimeinen(), QStringLiteral("Lisätty 1 lasku."));
        QCOMPARE(s.maara(QStringLiteral("jmRivi JOIN jm ON jmID = jmRjmID WHERE jmRTeksti = 'Seuratuote' AND jmRmlID = %1").arg(mlID)), 1);
        QVERIFY(s.dlg.unexpected.isEmpty());

        // The sales types' own window: the rows under their root; the root itself shows nothing.
        frmPROMyyntilajit lajit;
        QVERIFY(lajit.lataa());
        QCOMPARE(lajit.tvwLista->topLevelItemCount(), 1);
        QTreeWidgetItem *juuri = lajit.tvwLista->topLevelItem(0);
        QCOMPARE(juuri->text(0), QStringLiteral(" - Myyntilajit - "));
        QCOMPARE(juuri->childCount(), lajeja);
        lajit.tvwLista->setCurrentItem(juuri->child(1));
        QTRY_VERIFY(juuri->child(1)->text(0).endsWith(lajit.tNimi->text()) && !lajit.tNimi->text().isEmpty());
        const QString nimi = lajit.tNimi->text();
        lajit.tvwLista->setCurrentItem(juuri);
        QTest::qWait(20);
        QCOMPARE(lajit.tNimi->text(), nimi);
    }
};

QTEST_MAIN(TestFrmLaskutusajot)
#include "tst_frmlaskutusajot.moc"
