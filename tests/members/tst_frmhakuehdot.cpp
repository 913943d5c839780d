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

    // Nameless definitions are cleaned from the database; the rest in Finnish order, none chosen.
    void latausTyhjallaLohkolla()
    {
        seura(*env, {u"Ääni"_s, QVariant(), u"Zeta"_s, u"kuoro"_s, QVariant(), u"Aamu"_s});
        frmHakuehdot w;
        QVERIFY(w.Lataa());
        QCOMPARE(rivit(w.lstOminaisuudet), (QStringList{u"Aamu"_s, u"kuoro"_s, u"Zeta"_s, u"Ääni"_s}));
        QCOMPARE(w.lstOminaisuudet->item(3)->data(Qt::UserRole).toInt(), 1);
        QVERIFY(w.lstOminaisuudet->selectedItems().isEmpty());
        QCOMPARE(testi::maara(*db::Database::open(MainModule::DatabasePath), u"pi WHERE piNimi IS NULL"_s), 0);
    }

    // Refinements only for a single attribute that is held: two rows or EI close them and empty
    // the boxes.
    void tarkennustenKaytto()
    {
        seura(*env, numeroidut(4));
        const struct {
            int riveja;
            bool ei, kaytossa;
        } tapaukset[] = {{1, false, true}, {2, false, false}, {1, true, false}};
        for (const auto &t : tapaukset) {
            frmHakuehdot w;
            QVERIFY(w.Lataa());
            naytaAktiivisena(w);
            w.tDate->setText(u"1.1.2000"_s);
            w.tLong->setText(u"5"_s);
            w.tCurrency->setText(u"2,50"_s);
            for (int i = 0; i < t.riveja; ++i)
                klikkaaRivia(w.lstOminaisuudet, i);
            if (t.ei)
                testi::paina(w.chkPiirre);
            QCOMPARE(w.frameTarkennukset->isEnabled(), t.kaytossa);
            QCOMPARE(w.tDate->text().isEmpty() && w.tLong->text().isEmpty() && w.tCurrency->text().isEmpty(), !t.kaytossa);
        }
    }

    // Each checked box on leaving it: rewritten, or emptied with a beep. Enter goes to
    // "Seuraava >>" without leaving the box; the check still runs.
    void laatikonTarkistus()
    {
        seura(*env, numeroidut(2));
        frmHakuehdot w;
        QVERIFY(w.Lataa());
        naytaAktiivisena(w);
        const std::tuple<QLineEdit *, QString, QString> tapaukset[] = {{w.tDate, u"01.02.2003"_s, u"1.2.2003"_s},
                                                                      {w.tCurrency, u"2,50e"_s, QString()}};
        for (const auto &[t, syotto, tulos] : tapaukset) {
            t->setFocus();
            QTest::keyClicks(t, syotto);
            w.lstOminaisuudet->setFocus();
            QCOMPARE(t->text(), tulos);
        }
        QCOMPARE(dlg->beeps, 1);

        w.tSyntAika->setFocus();
        QTest::keyClicks(w.tSyntAika, u"ei pvm"_s);
        QTest::keyClick(w.tSyntAika, Qt::Key_Return);
        QCOMPARE(w.result(), int(QDialog::Accepted));
        QCOMPARE(dlg->beeps, 2);
        QCOMPARE(Haku.dateSynt, QString());
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
        for (QAbstractButton *b : std::initializer_list<QAbstractButton *>{w.optJA, w.optJasenmaksu[1], w.optKaikkiVaiPerhe[1],
                                                                           w.optSyntAika[0], w.optLiit[2]})
            testi::paina(b);
        w.tSyntAika->setText(u"1.1.1970"_s);
        w.tLiit->setText(u"2*"_s);
        w.tPostiNumeroLoppu->setText(u"00990"_s);
        testi::paina(w.cSeuraava);

        QCOMPARE(w.result(), int(QDialog::Accepted));
        for (int i = 0; i < 30; ++i)
            QCOMPARE(Haku.ValitutOminaisuudet[i], i + 1);
        QCOMPARE(Haku.ValitutOminaisuudet[30], 0);
        QVERIFY(Haku.bOminAnd && !Haku.bOminNot);
        QCOMPARE(QList<int>({Haku.lJasenmaksunTila, Haku.lKaikkiVaiPerheet, Haku.eqSynt, Haku.eqLiit}), QList<int>({1, 1, 0, 2}));
        QCOMPARE(QStringList({Haku.dateSynt, Haku.dateLiit, Haku.lPostinumeroAlku, Haku.lPostinumeroLoppu}),
                 QStringList({u"1.1.1970"_s, u"2*"_s, QString(), u"00990"_s}));
        QVERIFY(Haku.sheDate.isEmpty() && Haku.sheLong.isEmpty() && Haku.sheCurrency.isEmpty());
    }

    // The window opens on the last answers. Closing it by its frame leaves the block as it was;
    // "Seuraava >>" writes it and reports success.
    void aiemmatVastauksetJaSulkeminen()
    {
        seura(*env, numeroidut(3));
        Haku.ValitutOminaisuudet[0] = 2;
        Haku.sheLong = u"7"_s;
        Haku.iheLong = 2;
        for (bool seuraava : {false, true}) {
            testi::kunAuki<frmHakuehdot>([seuraava](frmHakuehdot *w) {
                QCOMPARE(w->lstOminaisuudet->selectedItems(), QList<QListWidgetItem *>{w->lstOminaisuudet->item(1)});
                QVERIFY(w->tLong->text() == u"7"_s && w->optLong[2]->isChecked());
                w->tPostiNumeroAlku->setText(u"99999"_s);
                if (seuraava)
                    testi::paina(w->cSeuraava);
                else
                    w->close();
            });
            QCOMPARE(NaytaHakuehdot(), seuraava);
            QCOMPARE(Haku.lPostinumeroAlku, seuraava ? u"99999"_s : QString());
        }
    }
};

QTEST_MAIN(TestFrmHakuehdot)
#include "tst_frmhakuehdot.moc"
