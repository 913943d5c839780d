// The report commands as a user runs them: the menu command, every window of the chain answered
// in order, and what reaches the preview. A cancel anywhere prints nothing and changes nothing.
#include "core/MainModule.h"
#include "members/Hakuehdot.h"
#include "members/ui/frmHakuehdot.h"
#include "members/ui/frmJasen.h"
#include "reports/Tulostus.h"
#include "reports/jasen/ui/frmRekisteritiedot.h"
#include "reports/ui/frmTulostus.h"
#include "reports/jasen/ui/frmTulostusmuodonvalinta.h"
#include "scripteddialogs.h"
#include "seurat.h"
#include "testenv.h"
#include "testiapu.h"

#include "tulostuskirjaus.h"
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>
#include <optional>

using namespace Qt::Literals::StringLiterals;

class TestJasenRaportitIkkunasta : public QObject {
    Q_OBJECT
    TestEnv env;
    ScriptedDialogs dlg;
    Kirjaus kirjaus;
    std::unique_ptr<db::Database> d;
    QPointer<frmJasen> w;

    // Answers the windows of a report command in the order they come: the register information's
    // chain up to its sections, answered by `osiot`, or the search conditions answered by
    // `ehdot`; then the print window, printed or cancelled, when `tulosta` is given.
    void aja(const char *komento, std::function<void(frmRekisteritiedot *)> osiot, std::optional<bool> tulosta,
             std::function<void(frmHakuehdot *)> ehdot = [](frmHakuehdot *h) { testi::paina(h->cSeuraava); })
    {
        if (osiot)
            testi::kunAuki<frmTulostusmuodonvalinta>([](frmTulostusmuodonvalinta *m) {
                testi::paina(m->optPrintType[6]);
                testi::paina(m->cSeuraava);
            });
        testi::kunAuki<frmHakuehdot>(ehdot);
        if (osiot)
            testi::kunAuki<frmRekisteritiedot>(osiot);
        if (tulosta)
            testi::kunAuki<frmTulostus>([t = *tulosta](frmTulostus *p) { testi::paina(t ? p->cTulosta : p->cPeruTulostus); });
        w->findChild<QAction *>(QLatin1String(komento))->trigger();
        QCOMPARE(testi::avaamatta(), 0);
    }
    int maara(const QString &sql) { return d->scalar(sql).toInt(); }

private slots:
    void initTestCase()
    {
        MainModule::DatabasePath = env.path(u"seura.mdb"_s);
        seurat::Kopio(150, MainModule::DatabasePath);
        QFile(MainModule::DatabasePath).setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        MainModule::RegName = u"Kylän Kipinä ry"_s;
        d = db::Database::open(MainModule::DatabasePath);
        AsetaTulostuskohde(&kirjaus);
        Haku = HakuParametrit();
        w = new frmJasen;
        QVERIFY(w->Lataa());
        w->show();
        // The engine waits on the member window's own report from the moment it opens.
        QVERIFY(Raportti().ReportFileName.endsWith(u"jrjasmak.rpt"_s));
    }
    void init() { kirjaus.esikatsellut.clear(); }
    void cleanupTestCase()
    {
        delete w.data();
        AsetaTulostuskohde(nullptr);
    }

    // Register information: the sections are asked after the conditions. A cancel in the sections
    // or the print settings leaves the table as it was; else the table is filled for every member,
    // and every member gets an extract of the chosen sections.
    void rekisteritiedot()
    {
        d->execute(u"DELETE FROM Rekisteritiedot"_s);
        aja("mRapRajausOminaisuudella", [](frmRekisteritiedot *r) { testi::paina(r->cSeuraava); }, false);
        aja("mRapRajausOminaisuudella", [](frmRekisteritiedot *r) { r->reject(); }, {});
        QVERIFY(kirjaus.esikatsellut.empty());
        QCOMPARE(maara(u"SELECT count(*) FROM Rekisteritiedot"_s), 0);

        aja("mRapRajausOminaisuudella", [](frmRekisteritiedot *r) {
            r->chkMaksutiedot->setChecked(true);
            testi::paina(r->cSeuraava);
        }, true);
        QCOMPARE(Haku.iPrintType, 7);
        QCOMPARE(int(kirjaus.esikatsellut.size()), 1);
        const Asiakirja &a = kirjaus.esikatsellut[0];
        QCOMPARE(a.riveja, maara(u"SELECT count(*) FROM jr"_s));
        QCOMPARE(maara(u"SELECT count(*) FROM Rekisteritiedot WHERE Tiedot LIKE '%Maksutiedot:%' "
                       "AND Tiedot NOT LIKE '%Perhetiedot:%'"_s),
                 a.riveja);
        QVERIFY(dlg.messages().isEmpty());
    }

    // Family labels over the members who have paid, a sheet of labels for each: the sheet runs on
    // its own margins, and the next run has the settings' again.
    void perhetarrat()
    {
        aja("mRapPerhetarrat", {}, true, [](frmHakuehdot *h) {
            h->optJasenmaksu[0]->setChecked(true);
            testi::paina(h->cSeuraava);
        });
        QCOMPARE(int(kirjaus.esikatsellut.size()), 1);
        QCOMPARE(kirjaus.esikatsellut[0].riveja, maara(u"SELECT count(*) FROM Tarra"_s));
        QVERIFY(maara(u"SELECT count(*) FROM Tarra"_s) < maara(u"SELECT count(*) FROM jr WHERE jrJasenmaksu = 1"_s));
        QCOMPARE(Raportti().MarginLeft, MainModule::RaporttiMarginaalit.left);
    }
};

QTEST_MAIN(TestJasenRaportitIkkunasta)
#include "tst_frmjasen_raportit.moc"
