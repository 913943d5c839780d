// The report commands as a user runs them: the menu command, every window of the chain answered
// in order, and what reaches the preview. A cancel anywhere prints nothing and changes nothing.
#include "core/MainModule.h"
#include "members/Hakuehdot.h"
#include "members/ui/frmHakuehdot.h"
#include "members/ui/frmJasen.h"
#include "members/ui/frmPiirre.h"
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

Vastaaja::Askel tulostusmuoto(int nappi)
{
    return askel<frmTulostusmuodonvalinta>([nappi](frmTulostusmuodonvalinta *w) {
        testi::paina(w->optPrintType[nappi]);
        testi::paina(w->cSeuraava);
    });
}
Vastaaja::Askel kaikkiJasenet()
{
    return askel<frmHakuehdot>([](frmHakuehdot *w) { testi::paina(w->cSeuraava); });
}
Vastaaja::Askel esikatselu()
{
    return askel<frmTulostus>([](frmTulostus *w) { testi::paina(w->cTulosta); });
}
Vastaaja::Askel peru()
{
    return askel<frmTulostus>([](frmTulostus *w) { testi::paina(w->cPeruTulostus); });
}

} // namespace

class TestJasenRaportitIkkunasta : public QObject {
    Q_OBJECT
    TestEnv env;
    ScriptedDialogs dlg;
    Kirjaus kirjaus;
    std::unique_ptr<db::Database> d;
    QPointer<frmJasen> w;

    void aja(const char *komento, std::deque<Vastaaja::Askel> askeleet, QWidget *ikkuna = nullptr)
    {
        Vastaaja v(std::move(askeleet));
        (ikkuna ? ikkuna : w.data())->findChild<QAction *>(QLatin1String(komento))->trigger();
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

    // Register information: the sections are asked after the conditions, the table is filled for
    // every member, and every member gets an extract of the chosen sections.
    void rekisteritiedot()
    {
        aja("mRapRajausOminaisuudella", {tulostusmuoto(6), kaikkiJasenet(), askel<frmRekisteritiedot>([](frmRekisteritiedot *r) {
                                             r->chkMaksutiedot->setChecked(true);
                                             testi::paina(r->cSeuraava);
                                         }),
                                         esikatselu()});
        QCOMPARE(Haku.iPrintType, 7);
        QCOMPARE(int(kirjaus.esikatsellut.size()), 1);
        const Asiakirja &a = kirjaus.esikatsellut[0];
        QCOMPARE(a.riveja, maara(u"SELECT count(*) FROM jr"_s));
        QCOMPARE(maara(u"SELECT count(*) FROM Rekisteritiedot"_s), a.riveja);
        QCOMPARE(maara(u"SELECT count(*) FROM Rekisteritiedot WHERE Tiedot LIKE '%Maksutiedot:%' "
                       "AND Tiedot NOT LIKE '%Perhetiedot:%'"_s),
                 a.riveja);
        QVERIFY(dlg.messages().isEmpty());
    }

    // A cancel in the sections or the print settings leaves the table as it was.
    void rekisteritiedotPeruttu()
    {
        d->execute(u"DELETE FROM Rekisteritiedot"_s);
        aja("mRapRajausOminaisuudella", {tulostusmuoto(6), kaikkiJasenet(), askel<frmRekisteritiedot>([](frmRekisteritiedot *r) {
                                             testi::paina(r->cSeuraava);
                                         }),
                                         peru()});
        aja("mRapRajausOminaisuudella",
            {tulostusmuoto(6), kaikkiJasenet(), askel<frmRekisteritiedot>([](frmRekisteritiedot *r) { r->reject(); })});
        QVERIFY(kirjaus.esikatsellut.empty());
        QCOMPARE(maara(u"SELECT count(*) FROM Rekisteritiedot"_s), 0);
    }

    // Family labels over the members who have paid: one label a family whose head has paid, its
    // paid members' names on it, and labels of their own for the rest who have paid.
    void perhetarrat()
    {
        d->execute(u"INSERT INTO Tarra (Rivi1) VALUES ('vanha')"_s);
        aja("mRapPerhetarrat", {askel<frmHakuehdot>([](frmHakuehdot *h) {
                                    h->optJasenmaksu[0]->setChecked(true);
                                    testi::paina(h->cSeuraava);
                                }),
                                esikatselu()});
        const int perheet = maara(u"SELECT count(*) FROM jr WHERE jrJasenmaksu = 1 AND jrPerheenLaskutettava = 1"_s);
        const int muut = maara(u"SELECT count(*) FROM jr WHERE jrJasenmaksu = 1 AND coalesce(jrPerheenLaskutettava, 0) = 0 "
                               "AND jrID NOT IN (SELECT jrPSubID FROM jrPerhe JOIN jr h ON h.jrID = jrPMID "
                               "WHERE h.jrJasenmaksu = 1 AND h.jrPerheenLaskutettava = 1)"_s);
        QVERIFY(perheet > 0 && muut > 0);
        QCOMPARE(maara(u"SELECT count(*) FROM Tarra"_s), perheet + muut);
        QCOMPARE(maara(u"SELECT count(*) FROM Tarra WHERE Rivi1 = 'vanha'"_s), 0);
        QCOMPARE(int(kirjaus.esikatsellut.size()), 1);
        QCOMPARE(kirjaus.esikatsellut[0].riveja, perheet + muut);
        // The sheet ran on its own margins; the next run has the settings' again.
        QCOMPARE(Raportti().MarginLeft, MainModule::RaporttiMarginaalit.left);
    }

    // The attribute list of the attribute window, through the plain run.
    void ominaisuusluettelo()
    {
        frmPiirre p;
        QVERIFY(p.lataa());
        aja("mRapLuettelo", {esikatselu()}, &p);
        QCOMPARE(int(kirjaus.esikatsellut.size()), 1);
        const QStringList t = kirjaus.esikatsellut[0].tekstit(0);
        QCOMPARE(t.value(0), u"Kylän Kipinä ry"_s);
        QVERIFY(t.contains(d->scalar(u"SELECT piNimi FROM pi ORDER BY piNimi COLLATE FI LIMIT 1"_s).toString()));
    }
};

QTEST_MAIN(TestJasenRaportitIkkunasta)
#include "tst_frmjasen_raportit.moc"
