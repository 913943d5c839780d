// The kit of the record windows on a bare window of its own: the moves at the ends of a set,
// the window that exists once and the keys that stay with the focused editor.
#include "core/ui/Tietueikkuna.h"
#include "platform/recordset.h"
#include "testipohja.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using tietue::Siirto;

namespace {

// A window with a line box, a memo, a tick box and the commands of every record window's keys;
// each command counts its runs.
struct Ikkuna : QWidget {
    QLineEdit *rivi = new QLineEdit(this);
    QPlainTextEdit *muistio = new QPlainTextEdit(this);
    QCheckBox *ruksi = new QCheckBox(u"Ruksi"_s, this);
    QHash<int, int> ajot; // key -> runs of its command

    Ikkuna()
    {
        auto *v = new QVBoxLayout(this);
        for (QWidget *w : std::initializer_list<QWidget *>{rivi, muistio, ruksi})
            v->addWidget(w);
        for (int k : {Qt::Key_A, Qt::Key_S, Qt::Key_D, Qt::Key_V, Qt::Key_Z, Qt::Key_X}) {
            auto *a = new QAction(this);
            a->setShortcut(QKeySequence(Qt::CTRL | Qt::Key(k)));
            connect(a, &QAction::triggered, this, [this, k] { ++ajot[k]; });
            addAction(a);
        }
        new tietue::EditorinNappaimet(this);
    }
};

} // namespace

class TestTietueikkuna : public Testipohja {
    Q_OBJECT

private slots:
    void siirrotJoukonPaissa_data()
    {
        QTest::addColumn<int>("rivit");
        QTest::addColumn<int>("alku"); // the row in view before the move, from 0
        QTest::addColumn<int>("siirto");
        QTest::addColumn<int>("loppu"); // -1: no row
        QTest::addColumn<int>("piippaukset");
        QTest::newRow("edellinen ensimmäisestä") << 3 << 0 << int(Siirto::Edellinen) << 0 << 1;
        QTest::newRow("seuraava viimeisestä") << 3 << 2 << int(Siirto::Seuraava) << 2 << 1;
        QTest::newRow("seuraava keskeltä") << 3 << 1 << int(Siirto::Seuraava) << 2 << 0;
        QTest::newRow("ensimmäinen") << 3 << 2 << int(Siirto::Ensimmainen) << 0 << 0;
        QTest::newRow("viimeinen") << 3 << 0 << int(Siirto::Viimeinen) << 2 << 0;
        QTest::newRow("yksi rivi, seuraava") << 1 << 0 << int(Siirto::Seuraava) << 0 << 1;
        QTest::newRow("tyhjä, seuraava") << 0 << -1 << int(Siirto::Seuraava) << -1 << 1;
        QTest::newRow("tyhjä, ensimmäinen") << 0 << -1 << int(Siirto::Ensimmainen) << -1 << 0;
    }

    // A move past either end stays on the end row and beeps; the row in view is never lost.
    void siirrotJoukonPaissa()
    {
        QFETCH(int, rivit);
        QFETCH(int, alku);
        QFETCH(int, siirto);
        QFETCH(int, loppu);
        QFETCH(int, piippaukset);
        auto d = db::Database::create(env->path(u"t.mdb"_s));
        d->execute(u"CREATE TABLE t (id INTEGER PRIMARY KEY)"_s);
        for (int i = 0; i < rivit; ++i)
            d->execute(u"INSERT INTO t (id) VALUES (?)"_s, {i});
        auto rs = db::Recordset::openTable(*d, u"t"_s);
        if (alku >= 0)
            QVERIFY(rs->findFirst(u"id = ?"_s, {alku}));
        tietue::Siirry(*rs, Siirto(siirto));
        if (loppu < 0)
            QVERIFY(rs->bof() || rs->eof());
        else
            QCOMPARE(rs->value(u"id"_s).toInt(), loppu);
        QCOMPARE(dlg->beeps, piippaukset);
    }

    void muokkausnappaimet_data()
    {
        QTest::addColumn<QString>("kohde"); // the focused control
        QTest::addColumn<int>("nappain");   // pressed with Ctrl
        QTest::addColumn<bool>("komento");  // whether the window's command ran
        for (const char *kohde : {"rivi", "muistio"}) {
            for (int k : {Qt::Key_A, Qt::Key_V, Qt::Key_Z, Qt::Key_X})
                QTest::addRow("%s Ctrl+%c jää laatikolle", kohde, char(k)) << QString::fromLatin1(kohde) << k << false;
            for (int k : {Qt::Key_S, Qt::Key_D})
                QTest::addRow("%s Ctrl+%c ikkunalle", kohde, char(k)) << QString::fromLatin1(kohde) << k << true;
        }
        for (int k : {Qt::Key_S, Qt::Key_V})
            QTest::addRow("ruksi Ctrl+%c ikkunalle", char(k)) << u"ruksi"_s << k << true;
        QTest::addRow("vain luettava rivi Ctrl+V jää laatikolle") << u"lukurivi"_s << int(Qt::Key_V) << false;
    }

    // The editing keys belong to a focused text box, even read-only; other keys, and every key
    // outside the boxes, run the window's command.
    void muokkausnappaimet()
    {
        QFETCH(QString, kohde);
        QFETCH(int, nappain);
        QFETCH(bool, komento);
        Ikkuna w;
        w.show();
        QVERIFY(QTest::qWaitForWindowActive(&w));
        QWidget *k = kohde == u"muistio"_s ? static_cast<QWidget *>(w.muistio)
                   : kohde == u"ruksi"_s   ? static_cast<QWidget *>(w.ruksi)
                                           : static_cast<QWidget *>(w.rivi);
        w.rivi->setReadOnly(kohde == u"lukurivi"_s);
        k->setFocus();
        QTest::keyClick(k, Qt::Key(nappain), Qt::ControlModifier);
        QCOMPARE(w.ajot.value(nappain), komento ? 1 : 0);
    }

    // A second opening brings the open window forward; a window whose load failed is not shown
    // and the next opening tries again.
    void ikkunaAvataanKerran()
    {
        QPointer<QWidget> auki;
        int luotu = 0;
        bool latautuu = false;
        const auto luo = [&]() -> QWidget * {
            ++luotu;
            return latautuu ? new QWidget : nullptr;
        };
        tietue::AvaaKerran(auki, luo);
        QVERIFY(!auki);
        latautuu = true;
        tietue::AvaaKerran(auki, luo);
        QVERIFY(auki && auki->isVisible());
        QWidget *eka = auki;
        auki->showMinimized();
        tietue::AvaaKerran(auki, luo);
        QCOMPARE(auki.data(), eka);
        QVERIFY(!auki->isMinimized());
        QCOMPARE(luotu, 2);
        auki->close();
        QTRY_VERIFY(!auki);
    }
};

QTEST_MAIN(TestTietueikkuna)
#include "tst_tietueikkuna.moc"
