#include "core/MainModule.h"
#include "malliseura.h"
#include "members/Hakuehdot.h"
#include "members/ui/frmHakuehdot.h"
#include "testiapu.h"
#include "testipohja.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

// A club whose attribute definitions are the given names (a Null name is an abandoned add), with
// ids from 1 in the order given. DatabasePath points at it.
void seura(TestEnv &env, const QVariantList &nimet)
{
    MainModule::DatabasePath = env.path(u"seura.mdb"_s);
    auto d = malliseura::kopio(MainModule::DatabasePath);
    for (int i = 0; i < nimet.size(); ++i)
        d->execute(u"INSERT INTO pi (piID, piNimi) VALUES (?, ?)"_s, {i + 1, nimet[i]});
}

QVariantList numeroidut(int n)
{
    QVariantList v;
    for (int i = 1; i <= n; ++i)
        v << u"Ominaisuus %1"_s.arg(i, 2, 10, QLatin1Char('0'));
    return v;
}

void klikkaaRivia(QListWidget *l, int rivi)
{
    const QRect r = l->visualItemRect(l->item(rivi));
    QTest::mouseClick(l->viewport(), Qt::LeftButton, {}, r.center());
}

void naytaAktiivisena(QWidget &w)
{
    w.show();
    QApplication::setActiveWindow(&w);
    QVERIFY(QTest::qWaitForWindowActive(&w));
}

using testi::rivit;

} // namespace

class TestFrmHakuehdot : public Testipohja {
    Q_OBJECT

private slots:
    void init()
    {
        Testipohja::init();
        Haku = HakuParametrit();
    }

    void eiTietokantaa_data()
    {
        QTest::addColumn<QString>("polku");
        QTest::addColumn<QString>("viesti");
        QTest::newRow("empty") << u""_s << u"Tarkista tietokanta asetukset asetusikkunasta!"_s;
        QTest::newRow("unknown") << u"unknown"_s << u"Tarkista tietokanta asetukset asetusikkunasta!"_s;
        QTest::newRow("missing file") << u"<env>/poissa.mdb"_s << u"Tietokantaa ei löydy: <env>/poissa.mdb"_s;
    }
    void eiTietokantaa()
    {
        QFETCH(QString, polku);
        QFETCH(QString, viesti);
        MainModule::DatabasePath = polku.replace(u"<env>"_s, env->root());
        QVERIFY(!NaytaHakuehdot());
        QCOMPARE(dlg->messages(), QStringList{viesti.replace(u"<env>"_s, env->root())});
        QVERIFY(!QApplication::activeModalWidget());
    }

    // Nameless definitions are cleaned from the database; the rest in Finnish order, none chosen.
    void latausTyhjallaLohkolla()
    {
        seura(*env, {u"Ääni"_s, QVariant(), u"Zeta"_s, u"kuoro"_s, QVariant(), u"Aamu"_s});
        frmHakuehdot w;
        QVERIFY(w.Lataa());
        QCOMPARE(rivit(w.lstOminaisuudet), (QStringList{u"Aamu"_s, u"kuoro"_s, u"Zeta"_s, u"Ääni"_s}));
        QCOMPARE(w.lstOminaisuudet->item(3)->data(Qt::UserRole).toInt(), 1);
        QCOMPARE(w.lstOminaisuudet->currentRow(), 0);
        QVERIFY(w.lstOminaisuudet->selectedItems().isEmpty());
        auto d = db::Database::open(MainModule::DatabasePath);
        QCOMPARE(d->scalar(u"SELECT COUNT(*) FROM pi WHERE piNimi IS NULL"_s).toInt(), 0);
        QVERIFY(w.frameTarkennukset->isEnabled());
        QVERIFY(dlg->shown.isEmpty());
    }

    // Refinements only for a single attribute that is held: two rows or EI close them and empty
    // the boxes; they come back empty.
    void tarkennustenKaytto_data()
    {
        QTest::addColumn<int>("riveja");
        QTest::addColumn<bool>("ei");
        QTest::addColumn<bool>("kaytossa");
        QTest::newRow("none") << 0 << false << true;
        QTest::newRow("one") << 1 << false << true;
        QTest::newRow("two") << 2 << false << false;
        QTest::newRow("none, EI") << 0 << true << false;
        QTest::newRow("one, EI") << 1 << true << false;
    }
    void tarkennustenKaytto()
    {
        QFETCH(int, riveja);
        QFETCH(bool, ei);
        QFETCH(bool, kaytossa);
        seura(*env, numeroidut(4));
        frmHakuehdot w;
        QVERIFY(w.Lataa());
        naytaAktiivisena(w);
        w.tDate->setText(u"1.1.2000"_s);
        w.tLong->setText(u"5"_s);
        w.tCurrency->setText(u"2,50"_s);
        for (int i = 0; i < riveja; ++i)
            klikkaaRivia(w.lstOminaisuudet, i);
        if (ei)
            testi::paina(w.chkPiirre);
        QCOMPARE(w.frameTarkennukset->isEnabled(), kaytossa);
        QCOMPARE(w.tDate->isEnabled() && w.optCurrency[2]->isEnabled(), kaytossa);
        QCOMPARE(w.tDate->text().isEmpty() && w.tLong->text().isEmpty() && w.tCurrency->text().isEmpty(), !kaytossa);
        // Back to one row without EI: open again, the boxes as they were left.
        if (ei)
            testi::paina(w.chkPiirre);
        for (int i = 1; i < riveja; ++i)
            klikkaaRivia(w.lstOminaisuudet, i);
        QVERIFY(w.frameTarkennukset->isEnabled());
        QCOMPARE(w.tLong->text(), kaytossa ? u"5"_s : u""_s);
    }

    // Each checked box on leaving it: rewritten, kept, or emptied with a beep.
    void poistuttaessa_data()
    {
        QTest::addColumn<QString>("laatikko");
        QTest::addColumn<QString>("syotto");
        QTest::addColumn<QString>("tulos");
        QTest::addColumn<int>("piippaukset");
        QTest::newRow("date rewritten") << u"tDate"_s << u"01.02.2003"_s << u"1.2.2003"_s << 0;
        QTest::newRow("amount refused") << u"tCurrency"_s << u"2,50e"_s << u""_s << 1;
        QTest::newRow("postal code unchecked") << u"tPostiNumeroAlku"_s << u"x1"_s << u"x1"_s << 0;
    }
    void poistuttaessa()
    {
        QFETCH(QString, laatikko);
        QFETCH(QString, syotto);
        QFETCH(QString, tulos);
        QFETCH(int, piippaukset);
        seura(*env, numeroidut(2));
        frmHakuehdot w;
        QVERIFY(w.Lataa());
        naytaAktiivisena(w);
        auto *t = w.findChild<QLineEdit *>(laatikko);
        QVERIFY(t);
        t->setFocus();
        QTest::keyClicks(t, syotto);
        QCOMPARE(t->text(), syotto);
        w.lstOminaisuudet->setFocus();
        QCOMPARE(t->text(), tulos);
        QCOMPARE(dlg->beeps, piippaukset);
    }

    // Enter goes to "Seuraava >>" without leaving the box; the check still runs.
    void enterTarkistaaLaatikon()
    {
        seura(*env, numeroidut(2));
        frmHakuehdot w;
        QVERIFY(w.Lataa());
        naytaAktiivisena(w);
        w.tSyntAika->setFocus();
        QTest::keyClicks(w.tSyntAika, u"ei pvm"_s);
        QTest::keyClick(w.tSyntAika, Qt::Key_Return);
        QCOMPARE(w.result(), int(QDialog::Accepted));
        QCOMPARE(dlg->beeps, 1);
        QCOMPARE(Haku.dateSynt, u""_s);
    }

    // "Seuraava >>" writes every answer to the block; beyond thirty rows the rest are dropped.
    void seuraavaKirjoittaaLohkon()
    {
        seura(*env, numeroidut(35));
        frmHakuehdot w;
        QVERIFY(w.Lataa());
        naytaAktiivisena(w);
        for (int i = 34; i >= 0; --i)
            w.lstOminaisuudet->item(i)->setSelected(true);
        testi::paina(w.optJA);
        testi::paina(w.optJasenmaksu[1]);
        testi::paina(w.optKaikkiVaiPerhe[1]);
        testi::paina(w.optSyntAika[0]);
        testi::paina(w.optLiit[2]);
        w.tSyntAika->setText(u"1.1.1970"_s);
        w.tLiit->setText(u"2*"_s);
        w.tPostiNumeroAlku->setText(u"00100"_s);
        w.tPostiNumeroLoppu->setText(u"00990"_s);
        testi::paina(w.cSeuraava);

        QCOMPARE(w.result(), int(QDialog::Accepted));
        for (int i = 0; i < 30; ++i)
            QCOMPARE(Haku.ValitutOminaisuudet[i], i + 1);
        QCOMPARE(Haku.ValitutOminaisuudet[30], 0);
        QCOMPARE(Haku.ValittujenMaara(), 30);
        QVERIFY(Haku.bOminAnd && !Haku.bOminNot);
        QCOMPARE(Haku.lJasenmaksunTila, 1);
        QCOMPARE(Haku.lKaikkiVaiPerheet, 1);
        QCOMPARE(Haku.dateSynt, u"1.1.1970"_s);
        QCOMPARE(Haku.eqSynt, 0);
        QCOMPARE(Haku.dateLiit, u"2*"_s);
        QCOMPARE(Haku.eqLiit, 2);
        QCOMPARE(Haku.lPostinumeroAlku, u"00100"_s);
        QCOMPARE(Haku.lPostinumeroLoppu, u"00990"_s);
        QVERIFY(Haku.sheDate.isEmpty() && Haku.sheLong.isEmpty() && Haku.sheCurrency.isEmpty());
        QVERIFY(dlg->shown.isEmpty());
    }

    // The window opens on the last answers; a single attribute keeps its refinements.
    void aiemmatVastaukset()
    {
        seura(*env, numeroidut(3));
        Haku.ValitutOminaisuudet[0] = 2;
        Haku.sheLong = u"7"_s;
        Haku.iheLong = 2;
        Haku.lJasenmaksunTila = 0;
        Haku.dateLiit = u"1.2.2003"_s;
        Haku.eqLiit = 0;
        frmHakuehdot w;
        QVERIFY(w.Lataa());
        QCOMPARE(w.lstOminaisuudet->selectedItems().size(), 1);
        QVERIFY(w.lstOminaisuudet->item(1)->isSelected());
        QCOMPARE(w.tLong->text(), u"7"_s);
        QVERIFY(w.optLong[2]->isChecked() && w.optJasenmaksu[0]->isChecked() && w.optLiit[0]->isChecked());
        QCOMPARE(w.tLiit->text(), u"1.2.2003"_s);
        QVERIFY(w.frameTarkennukset->isEnabled());
    }

    // Closing the window by its frame leaves the block as it was; "Seuraava >>" reports success.
    void suljettuIlmanSeuraavaa()
    {
        seura(*env, numeroidut(2));
        Haku.lPostinumeroAlku = u"00100"_s;
        QTimer::singleShot(0, [] {
            auto *w = qobject_cast<frmHakuehdot *>(QApplication::activeModalWidget());
            QVERIFY(w);
            w->tPostiNumeroAlku->setText(u"99999"_s);
            w->close();
        });
        QVERIFY(!NaytaHakuehdot());
        QCOMPARE(Haku.lPostinumeroAlku, u"00100"_s);
        QTimer::singleShot(0, [] {
            auto *w = qobject_cast<frmHakuehdot *>(QApplication::activeModalWidget());
            QVERIFY(w);
            w->tPostiNumeroAlku->setText(u"99999"_s);
            testi::paina(w->cSeuraava);
        });
        QVERIFY(NaytaHakuehdot());
        QCOMPARE(Haku.lPostinumeroAlku, u"99999"_s);
    }
};

QTEST_MAIN(TestFrmHakuehdot)
#include "tst_frmhakuehdot.moc"
