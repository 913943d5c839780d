// The invoice window on the demonstration club, driven as a user drives it: rows typed and
// checked, the name box, the headings, the run, the move to history and the delete.
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "invoicing/Laskupohja.h"
#include "invoicing/ui/frmMaksujenLuonti.h"
#include "members/ui/frmJasen.h"
#include "platform/kello.h"
#include "scripteddialogs.h"
#include "seurat.h"
#include "testenv.h"
#include "testiapu.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QToolButton>
#include <QtTest>

namespace {

struct Ikkuna {
    TestEnv env;
    ScriptedDialogs dlg;
    std::unique_ptr<db::Database> d;
    QPointer<frmMaksujenLuonti> w;

    Ikkuna()
    {
        MainModule::DatabasePath = env.path(QStringLiteral("demo1.mdb"));
        d = db::Database::open(seurat::Kopio(150, MainModule::DatabasePath));
        LueAsetukset(*d);
        kello::asetaTanaan(QDate(2027, 3, 1));
        w = new frmMaksujenLuonti;
        if (w->Lataa()) {
            w->show();
            w->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(w));
        }
    }
    ~Ikkuna() { delete w.data(); }

    int maara(const QString &ehto, const db::Params &p = {}) { return testi::maara(*d, ehto, p); }

    void rivi(int i, const QString &teksti, const QString &summa)
    {
        QTest::mouseClick(w->chkRivi[i], Qt::LeftButton, {}, QPoint(6, w->chkRivi[i]->height() / 2));
        testi::kirjoita(w->tRiviTeksti[i], teksti);
        testi::kirjoita(w->tRiviSumma[i], summa);
    }

    void valitse(const QString &nimi)
    {
        testi::korvaa(w->cmbNimet->lineEdit(), nimi);
        w->tLaskunErapaiva->setFocus(); // leaving the box selects the entry typed
    }

    QString viimeinen() const { return dlg.messages().value(dlg.messages().size() - 1); }
};

} // namespace

class TestFrmMaksujenLuonti : public QObject {
    Q_OBJECT

private slots:
    // The year's road on the demonstration club: everybody invoiced, moved to history; then the
    // holders of one attribute, and that batch deleted.
    void esittelyseuranLaskutus()
    {
        Ikkuna s;
        QCOMPARE(s.w->cmbNimet->itemText(0), QStringLiteral("Kaikki"));
        QVERIFY(s.w->cmbNimet->itemText(1).startsWith(QStringLiteral("Om - ")));
        QCOMPARE(s.w->tLaskunPaiva->text(), QStringLiteral("1.3.2027"));
        const long laskuri = MainModule::Laskunro;

        s.rivi(0, QStringLiteral("Jäsenmaksu 2027"), QStringLiteral("25,50"));
        s.rivi(2, QStringLiteral("Seuralehti"), QStringLiteral("1 000"));
        QCOMPARE(s.w->tSumma->text(), QStringLiteral("1025,50 €"));
        testi::kirjoita(s.w->tLaskunErapaiva, QStringLiteral("31.3.27"));
        s.w->tTilisiirronTeksti->setFocus();
        QCOMPARE(s.w->tLaskunErapaiva->text(), QStringLiteral("31.3.2027"));
        testi::kirjoita(s.w->cmbMaksunOtsake->lineEdit(), QStringLiteral("Jäsenmaksu"));
        s.w->chkJasenmaksu->setChecked(true);

        const int jasenia = s.maara(QStringLiteral("jr"));
        QTest::keyClick(s.w, Qt::Key_F2);
        QCOMPARE(s.viimeinen(), QStringLiteral("Lisätty %1 laskua.").arg(jasenia));
        QCOMPARE(s.maara(QStringLiteral("jm WHERE jmHinta = 10255000 AND jmOtsake = 'Jäsenmaksu'")), jasenia);
        QCOMPARE(s.maara(QStringLiteral("jmRivi JOIN jm ON jmID = jmRjmID")), 2 * jasenia);
        QCOMPARE(s.maara(QStringLiteral("jr WHERE jrJasenmaksu = 1")), 0);
        QCOMPARE(MainModule::Laskunro, laskuri + jasenia);
        QCOMPARE(s.maara(QStringLiteral("lt WHERE ltNimi = 'Jäsenmaksu'")), 1);

        // A second run while the batch is open is refused.
        QTest::keyClick(s.w, Qt::Key_F2);
        QCOMPARE(s.viimeinen(), QStringLiteral("Siirrä jo tehdyt laskut ensin historiaan tai poista maksut ennen lisäystä!"));

        const int historiassa = s.maara(QStringLiteral("jmhist"));
        QTest::keyClick(s.w, Qt::Key_F4);
        QCOMPARE(s.viimeinen(), QStringLiteral("Laskut siirretty historiaan."));
        QCOMPARE(s.maara(QStringLiteral("jm")), 0);
        QCOMPARE(s.maara(QStringLiteral("jmhist")), historiassa + jasenia);

        // The holders of an attribute, then the delete gives the fees and the counter back.
        const QString piirre = s.w->cmbNimet->itemText(1);
        const qint64 piID = -s.w->cmbNimet->itemData(1).toLongLong();
        s.valitse(piirre.toUpper());
        QCOMPARE(s.w->cmbNimet->currentIndex(), 1);
        s.d->execute(QStringLiteral("UPDATE jr SET jrJasenmaksu = 1"));
        QTest::keyClick(s.w, Qt::Key_F2);
        const int haltijat = s.maara(QStringLiteral("pt WHERE ptpiID = ?"), {piID});
        QVERIFY(haltijat > 0);
        QCOMPARE(s.maara(QStringLiteral("jm")), haltijat);
        s.dlg.yes();
        testi::paina(s.w->cPoista);
        QCOMPARE(s.viimeinen(), QStringLiteral("Kaikki lisätyt laskut poistettu."));
        QCOMPARE(s.maara(QStringLiteral("jm")), 0);
        QCOMPARE(s.maara(QStringLiteral("jr WHERE jrJasenmaksu = 0")), 0);
        QCOMPARE(MainModule::Laskunro, laskuri + jasenia);
        QVERIFY(s.dlg.unexpected.isEmpty());
    }

    // What the window checks itself: a typed name found nowhere, a refused field gets the focus,
    // date warnings, the member window open.
    void ikkunanTarkistukset()
    {
        Ikkuna s;
        s.rivi(0, QStringLiteral("Maksu"), QStringLiteral("10"));
        testi::kirjoita(s.w->tLaskunErapaiva, QStringLiteral("1.1.2027"));
        s.w->tTilisiirronTeksti->setFocus();
        QCOMPARE(s.dlg.messages(), (QStringList{"Laskun eräpäivä on menneisyydessä, tarkista päivämäärä.",
                                                "Laskun eräpäivä on ennen laskupäivää, tarkista päivämäärä."}));
        testi::korvaa(s.w->tLaskunPaiva, QStringLiteral("31.2.2027"));
        s.w->tTilisiirronTeksti->setFocus();
        QCOMPARE(s.viimeinen(), QStringLiteral("Syötetyn päivämäärän muoto ei ole kelvollinen."));
        QTest::keyClick(s.w, Qt::Key_F2);
        QCOMPARE(s.viimeinen(), QStringLiteral("Laskun päivämäärä on väärin kirjoitettu."));
        QCOMPARE(QApplication::focusWidget(), s.w->tLaskunPaiva);
        testi::korvaa(s.w->tLaskunPaiva, QStringLiteral("1.3.2027"));

        s.valitse(QStringLiteral("Ei ketään tällä nimellä"));
        QTest::keyClick(s.w, Qt::Key_F2);
        QCOMPARE(s.viimeinen(), QStringLiteral("Tarkista henkilö valinta."));

        s.valitse(QStringLiteral("kaikki"));
        frmJasen jasenet;
        jasenet.show();
        QTest::keyClick(s.w, Qt::Key_F2);
        QCOMPARE(s.viimeinen(), QStringLiteral("Jäsenrekisteri-ikkuna tulee sulkea ennen laskujen lisäystä, lisäys keskeytetty."));
        QCOMPARE(s.maara(QStringLiteral("jm")), 0);
        QVERIFY(s.dlg.unexpected.isEmpty());
    }

    // A heading typed is remembered when the box is left; Alt+D deletes the chosen one.
    void otsakkeet()
    {
        Ikkuna s;
        testi::kirjoita(s.w->cmbMaksunOtsake->lineEdit(), QStringLiteral("Kevät 'n' syys"));
        s.w->tTilisiirronTeksti->setFocus();
        QCOMPARE(s.maara(QStringLiteral("lt WHERE ltNimi = ?"), {QStringLiteral("Kevät 'n' syys")}), 1);
        QCOMPARE(s.w->cmbMaksunOtsake->findText(QStringLiteral("Kevät 'n' syys")) >= 0, true);

        s.w->cmbMaksunOtsake->setCurrentIndex(-1);
        s.w->cmbMaksunOtsake->setFocus();
        QTest::keyClick(s.w->cmbMaksunOtsake, Qt::Key_D, Qt::AltModifier);
        QCOMPARE(s.viimeinen(), QStringLiteral("Poistettavaa otsaketekstiä ei ole valittuna."));

        s.w->cmbMaksunOtsake->setCurrentIndex(s.w->cmbMaksunOtsake->findText(QStringLiteral("Kevät 'n' syys")));
        s.dlg.yes();
        QTest::keyClick(s.w->cmbMaksunOtsake, Qt::Key_D, Qt::AltModifier);
        QCOMPARE(s.dlg.shown.last().text, QStringLiteral("Haluatko poistaa 'Kevät 'n' syys' tietokannasta?"));
        QCOMPARE(s.maara(QStringLiteral("lt WHERE ltNimi = ?"), {QStringLiteral("Kevät 'n' syys")}), 0);
        QCOMPARE(s.w->cmbMaksunOtsake->findText(QStringLiteral("Kevät 'n' syys")), -1);
        QVERIFY(s.dlg.unexpected.isEmpty());
    }

    void eiTietokantaa()
    {
        TestEnv env;
        ScriptedDialogs dlg;
        MainModule::DatabasePath = QStringLiteral("unknown");
        frmMaksujenLuonti w;
        QVERIFY(!w.Lataa());
        QCOMPARE(dlg.messages(), QStringList{"Tarkista tietokanta asetukset asetusikkunasta!"});
    }

    // A template of the plain kind chosen from the window's menu fills the window, and the run
    // makes its invoices; a template of another kind is not offered.
    void laskupohjaValikosta()
    {
        TestEnv env;
        ScriptedDialogs dlg;
        MainModule::DatabasePath = env.path(QStringLiteral("demo1.mdb"));
        seurat::Kopio(150, MainModule::DatabasePath);
        {
            auto d = db::Database::open(MainModule::DatabasePath);
            LueAsetukset(*d);
        }
        kello::asetaTanaan(QDate(2027, 3, 1));
        const auto tee = [](const QString &nimi, int tyyppi) {
            cLaskupohja p;
            p.setTietokanta(MainModule::DatabasePath);
            p.setNimi(nimi);
            p.setLaskutyyppi(tyyppi);
            p.setLaskunOtsake(QStringLiteral("Kevätmaksu"));
            p.setLaskunPaivamaara(0);
            p.setLaskunErapaiva(14);
            p.setJasenmaksu(true);
            p.PerusLaskupohjarivi(1).setPaalla(true);
            p.PerusLaskupohjarivi(1).setAiheteksti(QStringLiteral("Kausimaksu"));
            p.PerusLaskupohjarivi(1).setHinta(Currency::fromRaw(125000));
            p.Save();
        };
        tee(QStringLiteral("Kevät"), laskupohja::Perus);
        tee(QStringLiteral("Perheet"), laskupohja::Perhe);

        frmMaksujenLuonti w;
        w.setAttribute(Qt::WA_DeleteOnClose, false);
        QVERIFY(w.Lataa());
        w.show();
        w.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&w));
        QAction *kevat = nullptr;
        QStringList nimet;
        for (QAction *a : w.mLaskupohjat->actions())
            if (a->objectName() == u"mLaskupohjaX") {
                nimet << a->text();
                if (a->text() == u"Kevät")
                    kevat = a;
            }
        // The demonstration club's own plain template beside it, by name.
        QCOMPARE(nimet, (QStringList{"Jäsenmaksu", "Kevät"}));
        kevat->trigger();
        QCOMPARE(w.cmbMaksunOtsake->currentText(), QStringLiteral("Kevätmaksu"));
        QCOMPARE(w.tLaskunErapaiva->text(), QStringLiteral("15.3.2027"));
        QVERIFY(w.chkRivi[1]->isChecked() && w.chkJasenmaksu->isChecked());
        QCOMPARE(w.tSumma->text(), QStringLiteral("12,50 €"));
        QTest::keyClick(&w, Qt::Key_F2);
        auto d = db::Database::open(MainModule::DatabasePath);
        QCOMPARE(testi::maara(*d, QStringLiteral("jm WHERE jmHinta = 125000 AND jmOtsake = 'Kevätmaksu' AND jmErapaiva = '2027-03-15'")),
                 testi::maara(*d, QStringLiteral("jr")));
        QVERIFY(dlg.unexpected.isEmpty());
    }
};

QTEST_MAIN(TestFrmMaksujenLuonti)
#include "tst_frmmaksujenluonti.moc"
