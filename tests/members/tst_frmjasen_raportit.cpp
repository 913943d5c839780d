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
#include <QTimer>
#include <QtTest>
#include <deque>

using namespace Qt::Literals::StringLiterals;

namespace {

// Answers the modal windows of one flow in the order given; a step takes only a window of its type.
class Vastaaja {
public:
    using Askel = std::function<bool(QWidget *)>;
    explicit Vastaaja(std::deque<Askel> askeleet) : m_askeleet(std::move(askeleet))
    {
        QObject::connect(&m_ajastin, &QTimer::timeout, [this] {
            QWidget *w = QApplication::activeModalWidget();
            if (w && !m_askeleet.empty() && m_askeleet.front()(w))
                m_askeleet.pop_front();
        });
        m_ajastin.start(10);
    }
    bool valmis() const { return m_askeleet.empty(); }

private:
    std::deque<Askel> m_askeleet;
    QTimer m_ajastin;
};

template <class T>
Vastaaja::Askel askel(std::function<void(T *)> tee)
{
    return [tee](QWidget *w) {
        auto *t = qobject_cast<T *>(w);
        if (!t || !t->isVisible())
            return false;
        tee(t);
        return true;
    };
}

// The register information's chain up to its sections, which `osiot` answers.
std::deque<Vastaaja::Askel> rekisteritietoihin(std::function<void(frmRekisteritiedot *)> osiot)
{
    return {askel<frmTulostusmuodonvalinta>([](frmTulostusmuodonvalinta *w) {
                testi::paina(w->optPrintType[6]);
                testi::paina(w->cSeuraava);
            }),
            askel<frmHakuehdot>([](frmHakuehdot *w) { testi::paina(w->cSeuraava); }), askel<frmRekisteritiedot>(osiot)};
}
Vastaaja::Askel tulostusikkuna(bool tulosta)
{
    return askel<frmTulostus>([tulosta](frmTulostus *w) { testi::paina(tulosta ? w->cTulosta : w->cPeruTulostus); });
}

} // namespace

class TestJasenRaportitIkkunasta : public QObject {
    Q_OBJECT
    TestEnv env;
    ScriptedDialogs dlg;
    Kirjaus kirjaus;
    std::unique_ptr<db::Database> d;
    QPointer<frmJasen> w;

    void aja(const char *komento, std::deque<Vastaaja::Askel> askeleet)
    {
        Vastaaja v(std::move(askeleet));
        w->findChild<QAction *>(QLatin1String(komento))->trigger();
        QTRY_VERIFY(v.valmis());
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
        auto askeleet = rekisteritietoihin([](frmRekisteritiedot *r) { testi::paina(r->cSeuraava); });
        askeleet.push_back(tulostusikkuna(false));
        aja("mRapRajausOminaisuudella", askeleet);
        aja("mRapRajausOminaisuudella", rekisteritietoihin([](frmRekisteritiedot *r) { r->reject(); }));
        QVERIFY(kirjaus.esikatsellut.empty());
        QCOMPARE(maara(u"SELECT count(*) FROM Rekisteritiedot"_s), 0);

        askeleet = rekisteritietoihin([](frmRekisteritiedot *r) {
            r->chkMaksutiedot->setChecked(true);
            testi::paina(r->cSeuraava);
        });
        askeleet.push_back(tulostusikkuna(true));
        aja("mRapRajausOminaisuudella", askeleet);
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
        aja("mRapPerhetarrat", {askel<frmHakuehdot>([](frmHakuehdot *h) {
                                    h->optJasenmaksu[0]->setChecked(true);
                                    testi::paina(h->cSeuraava);
                                }),
                                tulostusikkuna(true)});
        QCOMPARE(int(kirjaus.esikatsellut.size()), 1);
        QCOMPARE(kirjaus.esikatsellut[0].riveja, maara(u"SELECT count(*) FROM Tarra"_s));
        QVERIFY(maara(u"SELECT count(*) FROM Tarra"_s) < maara(u"SELECT count(*) FROM jr WHERE jrJasenmaksu = 1"_s));
        QCOMPARE(Raportti().MarginLeft, MainModule::RaporttiMarginaalit.left);
    }
};

QTEST_MAIN(TestJasenRaportitIkkunasta)
#include "tst_frmjasen_raportit.moc"
