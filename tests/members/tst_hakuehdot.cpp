// Search conditions: the four readings of a block of conditions (the flags, the SELECT, the report
// formula and the heading) on one small club, and the window that writes the block.
#include "core/MainModule.h"
#include "malliseura.h"
#include "members/Hakuehdot.h"
#include "members/Jasen.h"
#include "members/ui/frmHakuehdot.h"
#include "platform/arvot.h"
#include "reports/Raporttiajo.h"
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
#include <functional>

using namespace Qt::Literals::StringLiterals;

Q_DECLARE_METATYPE(HakuParametrit)

namespace {

void jasen(db::Database &d, int id, const QString &nimi, const QVariant &postinumero, const QVariant &numero,
           const QVariant &synt, const QVariant &liit, bool maksettu, bool laskutettava)
{
    d.execute(u"INSERT INTO jr (jrID, jrSukunimi, jrEtunimi, jrPostinumero, jrPostinumeroNumero, jrSyntyma, "
              "jrLiittyma, jrJasenmaksu, jrPerheenLaskutettava, jrMukaan, jrMukaan2) "
              "VALUES (?, ?, 'Testi', ?, ?, ?, ?, ?, ?, 0, 0)"_s,
              {id, nimi, postinumero, numero, synt, liit, int(maksettu), int(laskutettava)});
}

void piirre(db::Database &d, int jr, int pi, const QVariant &pvm = {}, const QVariant &luku = {},
            const QVariant &arvo = {})
{
    d.execute(u"INSERT INTO pt (ptjrID, ptpiID, ptValDate, ptValLong, ptValCurrency) VALUES (?, ?, ?, ?, ?)"_s,
              {jr, pi, pvm, luku, arvo});
}

// Six members who between them meet every edge of the conditions: a four-digit code that sorts
// before a three-digit one, a member with no dates, one with no postal code and one whose fee was
// never marked, an attribute held twice.
std::unique_ptr<db::Database> kerho(TestEnv &env)
{
    auto d = malliseura::kopio(env.path(u"seura.mdb"_s));
    const QVariant Null;
    jasen(*d, 1, u"Aalto"_s, u"00100"_s, 100, u"1960-05-01"_s, u"2000-01-01"_s, true, true);
    jasen(*d, 2, u"Berg"_s, u"00200"_s, 200, u"1975-03-03"_s, u"2010-01-01"_s, false, true);
    jasen(*d, 3, u"Cederberg"_s, u"1000"_s, 1000, u"1980-12-12"_s, u"2015-06-01"_s, true, false);
    jasen(*d, 4, u"Dahl"_s, u"200"_s, 200, Null, Null, true, true);
    jasen(*d, 5, u"Eklund"_s, u"33100"_s, 33100, u"1990-07-07"_s, u"2020-02-02"_s, false, false);
    jasen(*d, 6, u"Forsman"_s, Null, Null, u"1955-01-01"_s, u"1990-09-09"_s, true, true);
    d->execute(u"UPDATE jr SET jrJasenmaksu = NULL WHERE jrID = 2"_s); // never marked: not paid
    for (const auto &[id, nimi] : {std::pair{1, "Kuoro"}, {2, "Soitto"}, {3, "Hallitus"}, {4, "Talkoot"}})
        d->execute(u"INSERT INTO pi (piID, piNimi) VALUES (?, ?)"_s, {id, QString::fromUtf8(nimi)});
    piirre(*d, 1, 1, u"2010-06-01"_s, 5, Currency::fromUnits(12).raw() + 5000);
    piirre(*d, 1, 2);
    piirre(*d, 2, 1, u"2015-01-01"_s, 10, Currency::fromUnits(20).raw());
    piirre(*d, 3, 2);
    piirre(*d, 3, 3);
    piirre(*d, 5, 1, u"2018-03-03"_s, 3);
    piirre(*d, 5, 1, u"2019-04-04"_s, 30);
    piirre(*d, 5, 3);
    piirre(*d, 6, 3);
    return d;
}

HakuParametrit lohko(std::initializer_list<qint32> ids = {}, const std::function<void(HakuParametrit &)> &muuta = {})
{
    HakuParametrit p;
    std::copy(ids.begin(), ids.end(), p.ValitutOminaisuudet.begin());
    if (muuta)
        muuta(p);
    return p;
}

// Surnames in the order read, each once.
QStringList nimet(db::Statement &s)
{
    QStringList n;
    while (s.next())
        n << s.value(u"jrSukunimi"_s).toString();
    n.removeDuplicates();
    return n;
}

QStringList mukana(db::Database &d)
{
    db::Statement s(d, u"SELECT jrSukunimi FROM jr WHERE jrMukaan = 1 ORDER BY jrSukunimi"_s);
    return nimet(s);
}

// The rows the report engine prints for the formula, over members linked with their attributes
// as the member lists link them.
QStringList kaavanValitsemat(const QString &tietokanta, const QString &kaava)
{
    const QString maaritys = QFileInfo(tietokanta).dir().filePath(u"valinta.rpt"_s);
    QFile f(maaritys);
    if (!f.exists() && f.open(QIODevice::WriteOnly))
        f.write(R"(<raportti><lahde taulu="jr"><liitos taulu="pt" ehto="{pt.ptjrID} = {jr.jrID}"/>
                   <liitos taulu="pi" ehto="{pi.piID} = {pt.ptpiID}"/></lahde>
                   <rivi korkeus="6"><teksti x="0" y="0" leveys="150" korkeus="6" lauseke="{jr.jrSukunimi}"/></rivi>
                   </raportti>)");
    f.close();
    Raporttiajo ajo;
    ajo.ResetReportFormulas(tietokanta);
    ajo.ReportFileName = maaritys;
    ajo.SelectionFormula = kaava;
    QStringList n;
    const Asiakirja a = ajo.Laadi();
    for (int i = 0; i < int(a.sivut.size()); ++i)
        n += a.tekstit(i);
    n.removeDuplicates();
    n.sort();
    return n;
}

QStringList sqlnValitsemat(db::Database &d, const ValintaSql &v)
{
    db::Statement s(d, v.sql, v.arvot);
    return nimet(s);
}

QStringList lista(const char *nimet) { return QString::fromUtf8(nimet).split(u' ', Qt::SkipEmptyParts); }

const QString TahtiPvm = u"Päivämääräkentän '*' merkki ei ole käytettävissä - päivämäärärajoitusta ei huomioida."_s;
const QString TahtiSynt = u"Syntymäaikakentän '*' merkki ei ole käytettävissä - syntymäaikarajoitusta ei huomioida."_s;
const QString TahtiLiit =
    u"Liittymispäiväkentän '*' merkki ei ole käytettävissä - liittymispäivärajoitusta ei huomioida."_s;

// Flags of every member, for comparing two ways of writing them.
QString liput(db::Database &d)
{
    QString t;
    db::Statement s(d, u"SELECT jrID, jrMukaan, jrMukaan2 FROM jr ORDER BY jrID"_s);
    while (s.next())
        t += u"%1:%2%3 "_s.arg(s.value(0).toInt()).arg(NullText(s.value(1), u"-"_s), NullText(s.value(2), u"-"_s));
    return t;
}


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

void naytaAktiivisena(QWidget &w)
{
    w.show();
    QApplication::setActiveWindow(&w);
    QVERIFY(QTest::qWaitForWindowActive(&w));
}

using testi::rivit;

} // namespace

class TestHakuehdot : public Testipohja {
    Q_OBJECT

private slots:
    void init()
    {
        Testipohja::init();
        Haku = HakuParametrit();
    }

    // Each form of every kind of condition on one small club: the texts as the reports print and
    // run them, and whom each form selects, asymmetries included.
    void muodot_data()
    {
        QTest::addColumn<HakuParametrit>("p");
        QTest::addColumn<QString>("otsake");
        QTest::addColumn<QStringList>("mukaan");   // flagged by AsetaMukaan
        QTest::addColumn<QStringList>("kaavalla"); // printed by the report with the selection formula
        QTest::addColumn<QStringList>("sqlla");    // read by the SELECT
        QTest::addColumn<QStringList>("viestit");
        // The SELECT selects as the formula unless the row says otherwise.
        auto rivi = [](const char *nimi, const HakuParametrit &p, const QString &otsake, const char *mukaan,
                       const char *kaavalla, const QStringList &viestit = {}, const char *sqlla = nullptr) {
            QTest::newRow(nimi) << p << otsake << lista(mukaan) << lista(kaavalla) << lista(sqlla ? sqlla : kaavalla)
                                << viestit;
        };
        const char *kaikki = "Aalto Berg Cederberg Dahl Eklund Forsman";

        rivi("no conditions", lohko(), u""_s, kaikki, kaikki);
        rivi("date and number refinements",
             lohko({1}, [](auto &p) { p.sheDate = u"1.1.2012"_s, p.iheDate = 2, p.sheLong = u"20"_s, p.iheLong = 0; }),
             u"Kuoro rajauksin Pvm >1.1.2012 JA Luku: <20"_s, "Berg Eklund", "Berg Eklund");
        rivi("year pattern on the attribute date", lohko({1}, [](auto &p) { p.sheDate = u"*5"_s; }),
             u"Kuoro rajauksin Pvm ~*5"_s, "Aalto Berg Eklund", "Berg", {TahtiPvm});
        rivi("amount with a decimal comma", lohko({1}, [](auto &p) { p.sheCurrency = u"12,50"_s; }),
             u"Kuoro rajauksin Arvo: =12,50"_s, "Aalto", "Aalto");
        rivi("a gap ends the count", lohko({1, 0, 3}), u"Kuoro"_s, "Aalto Berg Eklund", "Aalto Berg Eklund");
        rivi("TAI", lohko({1, 3}),
             u"Kuoro TAI Hallitus"_s, "Aalto Berg Cederberg Eklund Forsman", "Aalto Berg Cederberg Eklund Forsman");
        rivi("JA", lohko({1, 3}, [](auto &p) { p.bOminAnd = true; }), u"Kuoro JA Hallitus"_s, "Eklund", "Eklund");
        rivi("EI with JA selects as TAI", lohko({1, 2}, [](auto &p) { p.bOminNot = p.bOminAnd = true; }),
             u"EI (Kuoro JA Soitto)"_s, "Dahl Forsman", "Dahl Forsman");
        rivi("deleted attribute in JA", lohko({99, 1}, [](auto &p) { p.bOminAnd = true; }), u"Kuoro"_s, "", "");
        rivi("paid, by postal code as text", lohko({}, [](auto &p) { p.lJasenmaksunTila = 0, p.iTulJarj = 1; }),
             u"Jäsenmaksu maksettu"_s, "Aalto Cederberg Dahl Forsman", "Aalto Cederberg Dahl Forsman", {},
             "Forsman Aalto Cederberg Dahl");
        rivi("unpaid, a fee never marked among them", lohko({}, [](auto &p) { p.lJasenmaksunTila = 1; }),
             u"Jäsenmaksu maksamatta"_s, "Berg Eklund", "Berg Eklund");
        rivi("family payers", lohko({}, [](auto &p) { p.lKaikkiVaiPerheet = 1; }), u""_s, "Aalto Berg Dahl Forsman",
             "Aalto Berg Dahl Forsman");
        rivi("born before: no date stays in the flags",
             lohko({}, [](auto &p) { p.dateSynt = u"1.1.1970"_s, p.eqSynt = 0; }),
             u"Syntymäaika: <1.1.1970"_s, "Aalto Dahl Forsman", "Aalto Forsman");
        rivi("joining year pattern", lohko({}, [](auto &p) { p.dateLiit = u"20*0"_s; }),
             u"Liittymisaika: ~20*0"_s, kaikki, "Aalto Berg Eklund", {TahtiLiit});
        rivi("postal start: text against number", lohko({}, [](auto &p) { p.lPostinumeroAlku = u"1000"_s; }),
             u"Postinumero >1000"_s, "Cederberg Dahl Eklund Forsman", "Eklund", {}, "Dahl Eklund");
        rivi("everything at once",
             lohko({1}, [](auto &p) { p.lJasenmaksunTila = 0, p.dateSynt = u"1.1.1970"_s, p.eqSynt = 0, p.lPostinumeroAlku = u"00100"_s; }),
             u"Kuoro JA Jäsenmaksu maksettu JA Syntymäaika: <1.1.1970 JA Postinumero >00100"_s, "Aalto", "");
        rivi("quote and apostrophe stay values",
             lohko({}, [](auto &p) { p.dateSynt = u"19\"*"_s, p.lPostinumeroLoppu = u"9'9"_s; }),
             u"Syntymäaika: ~19\"* JA Postinumero <9'9"_s, kaikki, "", {TahtiSynt});
    }
    void muodot()
    {
        QFETCH(HakuParametrit, p);
        QFETCH(QString, otsake);
        QFETCH(QStringList, mukaan);
        QFETCH(QStringList, kaavalla);
        QFETCH(QStringList, sqlla);
        QFETCH(QStringList, viestit);
        auto d = kerho(*env);
        // Flags left by an earlier run count for nothing.
        d->execute(u"UPDATE jr SET jrMukaan = jrID % 2, jrMukaan2 = CASE WHEN jrID % 3 = 0 THEN NULL ELSE 1 END"_s);

        AsetaMukaan(*d, p);
        QCOMPARE(mukana(*d), mukaan);
        QCOMPARE(dlg->messages(), viestit);

        QCOMPARE(kaavanValitsemat(env->path(u"seura.mdb"_s), KoostaValintakaava(*d, p)), kaavalla);
        QCOMPARE(sqlnValitsemat(*d, KoostaValintaSql(*d, QString(), p)), sqlla);
        QCOMPARE(KoostaRajausteksti(*d, p), otsake);
        QCOMPARE(dlg->messages(), viestit); // the other forms can use a star, and say nothing
    }

    // A block the window would never write, or a field list that is no list of fields: a Finnish
    // message naming the value, and the flags as they were.
    void kelvotonLohko_data()
    {
        QTest::addColumn<HakuParametrit>("p");
        QTest::addColumn<QString>("kentat");
        QTest::addColumn<QString>("viesti");
        QTest::newRow("date") << lohko({1}, [](auto &p) { p.sheDate = u"huomenna"_s; }) << u""_s
                              << u"Hakuehdon päivämäärä \"huomenna\" ei ole päivämäärä."_s;
        QTest::newRow("birth date") << lohko({}, [](auto &p) { p.dateSynt = u"31.2.1970"_s; }) << u""_s
                                    << u"Hakuehdon syntymäpäivä \"31.2.1970\" ei ole päivämäärä."_s;
        QTest::newRow("number") << lohko({1}, [](auto &p) { p.sheLong = u"5*"_s; }) << u""_s
                                << u"Hakuehdon luku \"5*\" ei ole numero."_s;
        QTest::newRow("amount") << lohko({1}, [](auto &p) { p.sheCurrency = u"1e400"_s; }) << u""_s
                                << u"Hakuehdon arvo \"1e400\" ei ole numero."_s;
        QTest::newRow("operator") << lohko({}, [](auto &p) { p.eqLiit = 3; }) << u""_s
                                  << u"Hakuehdoissa on tuntematon vertailu (3)."_s;
        QTest::newRow("field list") << lohko({1}) << u"jrEtunimi, jrID; DROP TABLE jr"_s
                                    << u"Raportin kenttä \"jrID; DROP TABLE jr\" ei kelpaa hakuun."_s;
    }
    void kelvotonLohko()
    {
        QFETCH(HakuParametrit, p);
        QFETCH(QString, kentat);
        QFETCH(QString, viesti);
        auto d = kerho(*env);
        d->execute(u"UPDATE jr SET jrMukaan = jrID % 2, jrMukaan2 = 1"_s);
        const QString ennen = liput(*d);
        const std::function<void()> kutsut[] = {
            [&] { KoostaValintaSql(*d, kentat, p); }, [&] { KoostaValintakaava(*d, p); },
            [&] { KoostaRajausteksti(*d, p); },       [&] { AsetaMukaan(*d, p); },
            [&] { AsetaMukaanOminaisuudet(*d, p); }};
        // A field list concerns the SELECT alone.
        for (int i = 0; i < (kentat.isEmpty() ? 5 : 1); ++i) {
            try {
                kutsut[i]();
                QFAIL("accepted");
            } catch (const HakuehtoVirhe &e) {
                QCOMPARE(e.viesti(), viesti);
            }
            QCOMPARE(liput(*d), ennen);
        }
        QVERIFY(dlg->shown.isEmpty());
    }

    // The flags belong to the caller's run when one is open, and leave with its rollback.
    void kutsujanTapahtumassa()
    {
        auto d = kerho(*env);
        const QString ennen = liput(*d);
        {
            db::Transaction t(*d);
            AsetaMukaan(*d, lohko({1, 3}, [](auto &p) { p.bOminAnd = true; }));
            QCOMPARE(mukana(*d), QStringList{u"Eklund"_s});
        }
        QCOMPARE(liput(*d), ennen);
    }

    // The checks of the window's boxes on leaving them: kind 0 a date, 1 a number, 2 an amount.
    void syotonTarkistus()
    {
        const struct {
            int laji;
            QString syotto;
            std::optional<QString> tulos;
        } tapaukset[] = {{0, u"01.02.2000"_s, u"1.2.2000"_s}, {0, u"19*"_s, u"19*"_s},    {0, u""_s, u""_s},
                         {0, u"30.2.2000"_s, {}},             {1, u"13,5"_s, u"14"_s},   {1, u"3000000000"_s, {}},
                         {2, u"12,50"_s, u"12,50"_s},         {2, u"paljon"_s, {}}};
        for (const auto &t : tapaukset) {
            const auto saatu = t.laji == 0 ? TarkistaHakuPaiva(t.syotto) : t.laji == 1 ? TarkistaHakuLuku(t.syotto)
                                                                                      : TarkistaHakuArvo(t.syotto);
            QVERIFY2(saatu == t.tulos, qPrintable(t.syotto + u" -> "_s + saatu.value_or(u"(hylätty)"_s)));
        }
    }

    // ---- The window ----

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

    // Each checked box on leaving it: rewritten, or emptied with a beep. Enter goes to "Seuraava >>"
    // without leaving the box, the check still runs, and every answer is written to the block;
    // beyond thirty rows the rest are dropped.
    void seuraavaKirjoittaaLohkon()
    {
        seura(*env, numeroidut(35));
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

        for (int i = 34; i >= 0; --i)
            w.lstOminaisuudet->item(i)->setSelected(true);
        for (QAbstractButton *b : std::initializer_list<QAbstractButton *>{w.optJA, w.optJasenmaksu[1], w.optKaikkiVaiPerhe[1],
                                                                           w.optSyntAika[0], w.optLiit[2]})
            testi::paina(b);
        w.tLiit->setText(u"2*"_s);
        w.tPostiNumeroLoppu->setText(u"00990"_s);
        w.tSyntAika->setFocus();
        QTest::keyClicks(w.tSyntAika, u"ei pvm"_s);
        QTest::keyClick(w.tSyntAika, Qt::Key_Return);

        QCOMPARE(w.result(), int(QDialog::Accepted));
        QCOMPARE(dlg->beeps, 2);
        for (int i = 0; i < 30; ++i)
            QCOMPARE(Haku.ValitutOminaisuudet[i], i + 1);
        QCOMPARE(Haku.ValitutOminaisuudet[30], 0);
        QVERIFY(Haku.bOminAnd && !Haku.bOminNot);
        QCOMPARE(QList<int>({Haku.lJasenmaksunTila, Haku.lKaikkiVaiPerheet, Haku.eqSynt, Haku.eqLiit}), QList<int>({1, 1, 0, 2}));
        QCOMPARE(QStringList({Haku.dateSynt, Haku.dateLiit, Haku.lPostinumeroAlku, Haku.lPostinumeroLoppu}),
                 QStringList({QString(), u"2*"_s, QString(), u"00990"_s}));
        QVERIFY(Haku.sheDate.isEmpty() && Haku.sheLong.isEmpty() && Haku.sheCurrency.isEmpty()); // refinements need one attribute
    }

    // The window opens on the last answers; closing it by its frame leaves the block as it was.
    void aiemmatVastauksetJaSulkeminen()
    {
        seura(*env, numeroidut(3));
        Haku.ValitutOminaisuudet[0] = 2;
        Haku.sheLong = u"7"_s;
        Haku.iheLong = 2;
        testi::kunAuki<frmHakuehdot>([](frmHakuehdot *w) {
            QCOMPARE(w->lstOminaisuudet->selectedItems(), QList<QListWidgetItem *>{w->lstOminaisuudet->item(1)});
            QVERIFY(w->tLong->text() == u"7"_s && w->optLong[2]->isChecked());
            w->tPostiNumeroAlku->setText(u"99999"_s);
            w->close();
        });
        QVERIFY(!NaytaHakuehdot());
        QCOMPARE(Haku.lPostinumeroAlku, QString());
    }
};

QTEST_MAIN(TestHakuehdot)
#include "tst_hakuehdot.moc"
