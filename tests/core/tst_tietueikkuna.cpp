// The kit of the record windows on a bare window of its own: the moves at the ends of a set,
// the window that exists once and the keys that stay with the focused editor.
#include "core/ui/Tietueikkuna.h"
#include "platform/recordset.h"
#include "ydinapu.h"

#include <QPlainTextEdit>
#include <QVBoxLayout>

using tietue::Siirto;

class TestTietueikkuna : public Testipohja {
    Q_OBJECT

private slots:
    // A move past either end stays on the end row and beeps; the row in view is never lost.
    void siirrotJoukonPaissa()
    {
        struct Tapaus {
            const char *nimi;
            int rivit, alku; // alku: the row in view before the move, -1 none
            Siirto siirto;
            int loppu, piippaukset;
        };
        const Tapaus tapaukset[] = {{"edellinen ensimmäisestä", 3, 0, Siirto::Edellinen, 0, 1},
                                    {"seuraava viimeisestä", 3, 2, Siirto::Seuraava, 2, 1},
                                    {"viimeinen", 3, 0, Siirto::Viimeinen, 2, 0},
                                    {"tyhjä, seuraava", 0, -1, Siirto::Seuraava, -1, 1},
                                    {"tyhjä, ensimmäinen", 0, -1, Siirto::Ensimmainen, -1, 0}};
        auto d = db::Database::create(env->path(u"t.mdb"_s));
        d->execute(u"CREATE TABLE t (id INTEGER PRIMARY KEY)"_s);
        for (const Tapaus &t : tapaukset) {
            d->execute(u"DELETE FROM t"_s);
            for (int i = 0; i < t.rivit; ++i)
                d->execute(u"INSERT INTO t (id) VALUES (?)"_s, {i});
            auto rs = db::Recordset::openTable(*d, u"t"_s);
            if (t.alku >= 0)
                QVERIFY(rs->findFirst(u"id = ?"_s, {t.alku}));
            dlg->beeps = 0;
            tietue::Siirry(*rs, t.siirto);
            QVERIFY2(t.loppu < 0 ? rs->bof() || rs->eof() : rs->value(u"id"_s).toInt() == t.loppu, t.nimi);
            QVERIFY2(dlg->beeps == t.piippaukset, t.nimi);
        }
    }

    // The editing keys belong to a focused text box, even read-only; other keys, and every key
    // outside the boxes, run the window's command.
    void muokkausnappaimet()
    {
        QWidget w;
        auto *rivi = new QLineEdit(&w), *lukurivi = new QLineEdit(&w);
        auto *muistio = new QPlainTextEdit(&w);
        auto *ruksi = new QCheckBox(u"Ruksi"_s, &w);
        lukurivi->setReadOnly(true);
        auto *v = new QVBoxLayout(&w);
        QHash<int, int> ajot; // key -> runs of its command
        for (QWidget *o : std::initializer_list<QWidget *>{rivi, lukurivi, muistio, ruksi})
            v->addWidget(o);
        for (int k : {Qt::Key_A, Qt::Key_S, Qt::Key_D, Qt::Key_V, Qt::Key_Z, Qt::Key_X}) {
            auto *a = new QAction(&w);
            a->setShortcut(QKeySequence(Qt::CTRL | Qt::Key(k)));
            connect(a, &QAction::triggered, &w, [&ajot, k] { ++ajot[k]; });
            w.addAction(a);
        }
        new tietue::EditorinNappaimet(&w);
        w.show();
        QVERIFY(QTest::qWaitForWindowActive(&w));
        const auto paina = [&](QWidget *kohde, int k, bool komento) {
            ajot.clear();
            kohde->setFocus();
            QTest::keyClick(kohde, Qt::Key(k), Qt::ControlModifier);
            QVERIFY2(ajot.value(k) == (komento ? 1 : 0), qPrintable(kohde->metaObject()->className() + QString(QChar(k))));
        };
        for (QWidget *laatikko : std::initializer_list<QWidget *>{rivi, muistio}) {
            for (int k : {Qt::Key_A, Qt::Key_V, Qt::Key_Z, Qt::Key_X})
                paina(laatikko, k, false);
            for (int k : {Qt::Key_S, Qt::Key_D})
                paina(laatikko, k, true);
        }
        paina(ruksi, Qt::Key_S, true);
        paina(ruksi, Qt::Key_V, true);
        paina(lukurivi, Qt::Key_V, false);
    }

    // A window whose load failed is not shown and the next opening tries again; a second opening
    // brings the open window forward instead of making another.
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
        auki->showMinimized();
        tietue::AvaaKerran(auki, luo);
        QVERIFY(!auki->isMinimized());
        QCOMPARE(luotu, 2);
        delete auki.data();
    }
};

QTEST_MAIN(TestTietueikkuna)
#include "tst_tietueikkuna.moc"
