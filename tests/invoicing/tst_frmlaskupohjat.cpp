// The template window and the invoice windows' template menu, driven as a user drives them,
// offscreen with scripted dialogs; the database is checked after each flow.
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "invoicing/Laskupohja.h"
#include "invoicing/ui/LaskupohjaValikko.h"
#include "invoicing/ui/frmLaskupohjat.h"
#include "malliseura.h"
#include "seurat.h"
#include "testiapu.h"
#include "testipohja.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QStackedWidget>
#include <QToolButton>
#include <QTreeWidget>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using testi::kirjoita;
using testi::korvaa;
using testi::paina;

namespace {

QStringList puunNimet(const QTreeWidget *puu)
{
    QStringList s;
    for (int i = 0; i < puu->topLevelItemCount(); ++i)
        s << puu->topLevelItem(i)->text(0);
    return s;
}

QStringList pohjienNimet(const QMenu *m)
{
    QStringList s;
    for (const QAction *a : m->actions())
        if (a->objectName() == u"mLaskupohjaX" && a->isVisible())
            s << a->text();
    return s;
}

} // namespace

class tst_frmlaskupohjat : public Testipohja {
    Q_OBJECT
    std::unique_ptr<db::Database> d;

    qint64 pohja(const QString &nimi, int tyyppi = laskupohja::Perus)
    {
        cLaskupohja p;
        p.setTietokanta(MainModule::DatabasePath);
        p.setNimi(nimi);
        p.setLaskutyyppi(tyyppi);
        p.Save();
        return p.ID();
    }
    static bool avaa(frmLaskupohjat &w)
    {
        if (!w.lataa())
            return false;
        w.show();
        w.activateWindow();
        return QTest::qWaitForWindowActive(&w);
    }
    QString arvo(const QString &sql, const db::Params &p = {}) { return testi::rivi(*d, sql, p); }

private slots:
    void init()
    {
        Testipohja::init();
        MainModule::DatabasePath = env->path(u"kerho.mdb"_s);
        d = malliseura::kopio(MainModule::DatabasePath);
    }
    void cleanup()
    {
        d.reset();
        Testipohja::cleanup();
    }

    void ilmanTietokantaaEiAvata()
    {
        MainModule::DatabasePath = u"unknown"_s;
        AvaaLaskupohjat(nullptr);
        QCOMPARE(dlg->messages(), QStringList{u"Tarkista tietokanta asetukset asetusikkunasta!"_s});
    }

    // In the demonstration club a user makes a family template with the keyboard and the mouse,
    // saves it, cancels a slip of the keyboard, changes a row and closes without saving (which
    // keeps the row), and finds it all again in a new window.
    void esittelyseurassaTehtyPohjaSailyy()
    {
        d.reset();
        QFile::remove(MainModule::DatabasePath);
        d = db::Database::open(seurat::Kopio(150, MainModule::DatabasePath));
        LueAsetukset(*d);
        QVERIFY(!MainModule::RegPankkiyhteys1.isEmpty());
        {
            frmLaskupohjat w;
            QVERIFY(avaa(w));
            QTest::keyClick(&w, Qt::Key_F2);
            QCOMPARE(QApplication::focusWidget(), w.tNimi);
            kirjoita(w.tNimi, u"Kevään perhemaksu"_s);
            paina(w.optLaskutyyppi[1]);
            QCOMPARE(w.frameLaskutyypit->currentIndex(), 1);
            QVERIFY(w.chkPerhePaalla[1]->isVisible() && !w.chkPerusPaalla[0]->isVisible());
            kirjoita(w.tLaskunOtsake, u"Jäsenmaksu"_s);
            w.cmbPaivamaara->setFocus();
            QTest::keyClick(w.cmbPaivamaara, Qt::Key_Down);
            QCOMPARE(w.cmbPaivamaara->currentText(), u"Lisäyspäivä"_s);
            kirjoita(w.tErapaiva, u"14"_s);
            w.cmbTilinumerot->setFocus();
            QTest::keyClick(w.cmbTilinumerot, Qt::Key_Down);
            paina(w.chkJasenmaksu);
            paina(w.chkPerhePaalla[1]);
            kirjoita(w.tPerheAiheTeksti[1], u"Aikuisen jäsenmaksu"_s);
            QVERIFY(w.cTallenna->isEnabled());
            QTest::keyClick(&w, Qt::Key_F3);
            QVERIFY(!w.cTallenna->isEnabled());
            kirjoita(w.tNimi, u"x"_s);
            QCOMPARE(w.tvwLista->currentItem()->text(0), u"Kevään perhemaksux"_s);
            paina(w.cPeru);
            QCOMPARE(w.tNimi->text(), u"Kevään perhemaksu"_s);
            korvaa(w.tPerheAhinta[1], u"25,50"_s);
            // Among the club's own templates, by name.
            QCOMPARE(puunNimet(w.tvwLista),
                     (QStringList{u"Jäsenmaksu"_s, u"Kevään perhemaksu"_s, u"Perhemaksu"_s, u"Talkoohyvitys"_s}));
            QCOMPARE(w.tvwLista->currentItem()->text(0), u"Kevään perhemaksu"_s);
            paina(w.cSulje);
            QVERIFY(!w.isVisible());
        }
        QCOMPARE(arvo(u"SELECT Laskupohja_Nimi, Laskutyyppi, LaskunOtsake, LaskunPaivamaara, LaskunErapaiva, Jasenmaksu, "
                      "Pankkitili1 = ? FROM Laskupohjat WHERE Laskupohja_Nimi = 'Kevään perhemaksu'"_s,
                      {MainModule::RegPankkiyhteys1}),
                 u"Kevään perhemaksu|1|Jäsenmaksu|0|14|1|1"_s);
        const QString uusi = u"Laskupohja_ID = (SELECT MAX(Laskupohja_ID) FROM Laskupohjat)"_s;
        QCOMPARE(arvo(u"SELECT PerhePaalla, PerheAhinta, PerheAiheteksti FROM Laskupohjarivit WHERE Laskutyyppi = 1 AND Jarjestys = 1 AND "_s
                      + uusi),
                 u"1|255000|Aikuisen jäsenmaksu"_s);
        QCOMPARE(testi::maara(*d, u"Laskupohjarivit WHERE "_s + uusi), 19);

        frmLaskupohjat w;
        QVERIFY(avaa(w));
        QTest::keyClick(&w, Qt::Key_V, Qt::ControlModifier); // the newest
        QCOMPARE(w.tNimi->text(), u"Kevään perhemaksu"_s);
        QVERIFY(w.optLaskutyyppi[1]->isChecked());
        QCOMPARE(w.tPerheAhinta[1]->text(), u"25,50"_s);
        QCOMPARE(w.tErapaiva->text(), u"14"_s);
        QCOMPARE(w.cmbTilinumerot->currentIndex(), 1);
        QCOMPARE(dlg->messages(), QStringList());
    }

    // Deleting asks first; "no" keeps everything.
    void poisto()
    {
        pohja(u"Ensimmäinen"_s);
        const qint64 b = pohja(u"Toinen"_s);
        frmLaskupohjat w;
        QVERIFY(avaa(w));
        QTest::keyClick(&w, Qt::Key_V, Qt::ControlModifier);
        dlg->no();
        QTest::keyClick(&w, Qt::Key_F4);
        QCOMPARE(dlg->allTexts(), QStringList{u"Haluatko varmasti poistaa valitun laskupohjan?"_s});
        QCOMPARE(testi::maara(*d, u"Laskupohjat WHERE Laskupohja_ID = ?"_s, {b}), 1);
        QCOMPARE(w.tNimi->text(), u"Toinen"_s);
        dlg->yes();
        QTest::keyClick(&w, Qt::Key_F4);
        QCOMPARE(testi::maara(*d, u"Laskupohjat WHERE Laskupohja_ID = ?"_s, {b}), 0);
        QCOMPARE(puunNimet(w.tvwLista), QStringList{u"Ensimmäinen"_s});
        QCOMPARE(w.tNimi->text(), u"Ensimmäinen"_s);
    }

    void puunVirhe()
    {
        d->execute(u"DROP TABLE Laskupohjat"_s);
        frmLaskupohjat w;
        QVERIFY(!w.lataa());
        QCOMPARE(dlg->messages().value(0), u"Virhe luotaessa hakemistopuuta laskupohjista."_s);
        QCOMPARE(dlg->messages().size(), 2);
    }

    // The invoice windows' template menu.
    void valikko()
    {
        pohja(u"Syys"_s);
        pohja(u"Kevät"_s);
        pohja(u"Perhe"_s, laskupohja::Perhe);
        QMenuBar palkki;
        QList<int> valitut;
        QMenu *m = LaskupohjaValikko::rakenna(&palkki, laskupohja::Perus, [&](int i) { valitut << i; });
        QAction *muokkaa = m->actions().first(); // then a separator and the templates
        QCOMPARE(muokkaa->objectName(), u"mMuokkaaLaskupohjia"_s);
        QCOMPARE(pohjienNimet(m), (QStringList{u"Kevät"_s, u"Syys"_s}));
        m->actions().at(2)->trigger();
        m->actions().last()->trigger();
        QCOMPARE(valitut, (QList<int>{0, 1}));

        // The family window's menu; rebuilding replaces the entries, not the menu.
        QMenu *m2 = LaskupohjaValikko::rakenna(&palkki, laskupohja::Perhe, [&](int i) { valitut << 10 + i; });
        QCOMPARE(m2, m);
        QCOMPARE(pohjienNimet(m), QStringList{u"Perhe"_s});
        QCOMPARE(palkki.actions().size(), 1);

        // The window opens from the menu; what is made there is in the menu afterwards.
        testi::kunAuki<frmLaskupohjat>([](frmLaskupohjat *w) {
            QVERIFY(QTest::qWaitForWindowActive(w));
            QTest::keyClick(w, Qt::Key_F2);
            kirjoita(w->tNimi, u"Joulu"_s);
            paina(w->optLaskutyyppi[1]);
            paina(w->cSulje);
        });
        muokkaa->trigger();
        QCOMPARE(pohjienNimet(m), (QStringList{u"Joulu"_s, u"Perhe"_s}));

        // A kind without templates: the edit entry alone, its separator hidden.
        LaskupohjaValikko::rakenna(&palkki, laskupohja::Ominaisuus, [](int) { QFAIL("no entry to choose"); });
        QCOMPARE(pohjienNimet(m), QStringList());
        QCOMPARE(m->actions().size(), 2);
        QVERIFY(!m->actions().last()->isVisible());
    }
};

QTEST_MAIN(tst_frmlaskupohjat)
#include "tst_frmlaskupohjat.moc"
