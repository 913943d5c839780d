// The settings windows as the user meets them: number fields that refuse letters, reminder texts
// on one line, the question about unsaved changes, the save and its stop, the choose buttons.
#include "core/ui/frmAsetukset.h"
#include "core/ui/frmAsetuksetLisa.h"
#include "app/frmMain.h"
#include "platform/mxlookup.h"
#include "malliseura.h"
#include "ydinapu.h"

#include <QPlainTextEdit>
#include <QTabWidget>
#include <QToolButton>

namespace M = MainModule;
using testi::kirjoita;
using ydin::osa;

namespace {

QString kannanArvo(const QString &avain) { return ydin::kannanAsetus(M::DatabasePath, avain); }

// A club whose settings have been read, with its database in place.
void seuranAsetukset(const TestEnv &env)
{
    M::DatabasePath = env.path(u"seura.mdb"_s);
    malliseura::kopio(M::DatabasePath);
    M::BackupPath = env.path(u"varmistus/"_s);
    M::RegName = u"Latu ry"_s;
    M::Muistutuskulut = Currency::fromRaw(25000);
    M::Viivastyskorko = 7.5;
    M::Fontti = u"Kirjasin jota ei ole"_s;
}

void nayta(QWidget &w)
{
    w.show();
    QApplication::setActiveWindow(&w);
    QVERIFY(QTest::qWaitForWindowActive(&w));
}

} // namespace

class TestFrmAsetukset : public Testipohja {
    Q_OBJECT

private slots:
    void numerokenttaTyhjeneeKirjaimesta_data()
    {
        QTest::addColumn<QString>("kentta");
        QTest::addColumn<QString>("viesti");
        QTest::newRow("viestejä/min") << "tEmailPerMin" << "Syötä viestiä / minuutti rajoitukseksi ainoastaan numeroita.";
        QTest::newRow("muistutuskulut") << "tMuistutuskulut" << "Syötä Muistutuskulut -kenttään ainoastaan numeroita.";
        QTest::newRow("varmuuskopiot") << "tVarmuuskopioPv" << "Syötä Varmuuskopiot -kenttään ainoastaan numeroita.";
    }
    void numerokenttaTyhjeneeKirjaimesta()
    {
        QFETCH(QString, kentta);
        QFETCH(QString, viesti);
        frmAsetukset w;
        QLineEdit *t = osa(w, kentta);
        t->clear();
        QTest::keyClicks(t, u"12"_s);
        QCOMPARE(t->text(), u"12"_s);
        QVERIFY(dlg->allTexts().isEmpty());
        QTest::keyClicks(t, u"k"_s);
        QCOMPARE(dlg->allTexts(), QStringList{viesti});
        QCOMPARE(t->text(), QString());
        QVERIFY(w.muuttunut());
    }

    // Typed or pasted line breaks never reach the reminder texts, and they keep their width.
    void muistutustekstiPysyyYhdellaRivilla()
    {
        frmAsetukset w;
        for (const QString &kentta : {u"tMuistutusAlkuteksti"_s, u"tMuistutusLopputeksti"_s}) {
            dlg->shown.clear();
            auto *t = osa<QPlainTextEdit>(w, kentta);
            kirjoita(t, u"Hyvä"_s);
            QTest::keyClick(t, Qt::Key_Return);
            QTest::keyClick(t, Qt::Key_Enter);
            kirjoita(t, u" jäsen"_s);
            t->insertPlainText(u"\nmaksathan\r\npian"_s);
            QCOMPARE(t->toPlainText(), u"Hyvä jäsen maksathan pian"_s);
            QCOMPARE(dlg->allTexts(), QStringList(2, u"Muistutuksen teksteissä ei saa olla rivinvaihtoja."_s));
            t->setPlainText(QString(300, u'x'));
            QCOMPARE(t->toPlainText().size(), 255);
        }
    }

    // Closing the window, the program closing (the main window's Sulje, or the desktop's logout)
    // and opening the additional settings ask first whether changes are saved; a save that stops
    // keeps the windows open.
    void muutoksistaKysytaan_data()
    {
        QTest::addColumn<QString>("tapa");
        QTest::addColumn<QString>("vastaus"); // empty: nothing changed, nothing asked
        QTest::addColumn<bool>("huonoNumero"); // the top margin emptied, so the save stops
        for (const char *tapa : {"sulje", "lisa", "ohjelma"})
            QTest::addRow("%s: kyllä tallentaa", tapa) << tapa << "kyllä" << false;
        QTest::newRow("sulje: ei muutoksia, ei kysytä") << "sulje" << "" << false;
        QTest::newRow("sulje: ei jättää tallentamatta") << "sulje" << "ei" << false;
        QTest::newRow("lisa: ei jättää tallentamatta") << "lisa" << "ei" << false;
        QTest::newRow("ohjelma: tallennus pysähtyy, ohjelma jää auki") << "ohjelma" << "kyllä" << true;
    }
    void muutoksistaKysytaan()
    {
        QFETCH(QString, tapa);
        QFETCH(QString, vastaus);
        QFETCH(bool, huonoNumero);
        const bool muuta = !vastaus.isEmpty();
        seuranAsetukset(*env);
        std::unique_ptr<frmMain> paa;
        if (tapa == u"ohjelma"_s) {
            paa = std::make_unique<frmMain>();
            paa->show();
        }
        frmAsetukset w(paa.get());
        nayta(w);
        if (muuta)
            osa(w, u"tNimi"_s)->setText(u"Uusi seura"_s);
        if (huonoNumero)
            osa(w, u"tMargYla"_s)->clear();
        if (!vastaus.isEmpty())
            dlg->answer(vastaus == u"kyllä"_s ? dlg::Answer::Yes : dlg::Answer::No);
        QString kysymys = u"Asetuksiin on tehty muutoksia, tallennetaanko muutokset?"_s;
        if (tapa == u"lisa"_s) {
            bool avattiin = false;
            QTimer::singleShot(0, this, [&] {
                auto *ikkuna = qobject_cast<frmAsetuksetLisa *>(QApplication::activeModalWidget());
                if ((avattiin = ikkuna != nullptr))
                    ikkuna->findChild<QPushButton *>(u"cPeru"_s)->click();
            });
            w.findChild<QAction *>(u"mLisaasetukset"_s)->trigger();
            QVERIFY(avattiin && w.isVisible());
            QCOMPARE(w.muuttunut(), vastaus == u"ei"_s);
            kysymys = u"Asetuksiin on tehty muutoksia ja ne pitää tallentaa ennen lisäasetusten "
                      "avaamista, tallennetaanko muutokset?"_s;
        } else {
            QTest::mouseClick(paa ? static_cast<QWidget *>(paa->cSulje) : osa<QPushButton>(w, u"cSulje"_s), Qt::LeftButton);
            QCOMPARE(w.isVisible(), huonoNumero);
            QCOMPARE(paa && paa->isVisible(), paa && huonoNumero);
        }
        QStringList odotetut = muuta ? QStringList{kysymys} : QStringList();
        if (huonoNumero)
            odotetut << u"Syötä marginaaliksi ainoastaan numeroita."_s;
        QCOMPARE(dlg->allTexts(), odotetut);
        QCOMPARE(kannanArvo(u"RegName"_s), vastaus == u"kyllä"_s ? u"Uusi seura"_s : QString()); // the name is stored before the margins
    }

    // A bad number keeps the window open with its field in view and focused, and stores
    // nothing of it; put right, the save stores the club's keys (those loaded from the globals as
    // they were, a font this machine lacks included), the backup folder and the main window's title.
    void tallennus()
    {
        seuranAsetukset(*env);
        QWidget paaikkuna;
        paaikkuna.setObjectName(u"frmMain"_s);
        paaikkuna.setWindowTitle(u"Vonari - Latu ry"_s);
        frmAsetukset w;
        nayta(w);
        auto *marginaali = osa(w, u"tMargYla"_s);
        marginaali->clear();
        osa(w, u"tNimi"_s)->clear();
        kirjoita(osa(w, u"tNimi"_s), u"Äänekosken Latu"_s);
        osa(w, u"tVarmistus"_s)->setText(env->path(u"tikku"_s));
        QTest::mouseClick(osa<QPushButton>(w, u"cTallenna"_s), Qt::LeftButton);
        QVERIFY(w.isVisible());
        QVERIFY(osa<QTabWidget>(w, u"TabStrip1"_s)->currentWidget()->isAncestorOf(marginaali));
        QCOMPARE(w.focusWidget(), marginaali);
        QCOMPARE(kannanArvo(u"MargYla"_s), QString());
        QCOMPARE(dlg->allTexts(), QStringList{u"Syötä marginaaliksi ainoastaan numeroita."_s});

        dlg->shown.clear();
        marginaali->setText(u"12"_s);
        QTest::mouseClick(osa<QPushButton>(w, u"cTallenna"_s), Qt::LeftButton);
        QVERIFY(dlg->allTexts().isEmpty());
        QVERIFY(!w.isVisible());
        QCOMPARE(w.result(), int(QDialog::Accepted));
        QCOMPARE(paaikkuna.windowTitle(), u"Vonari - Äänekosken Latu"_s);
        QCOMPARE(kannanArvo(u"RegName"_s), u"Äänekosken Latu"_s);
        QCOMPARE(kannanArvo(u"Muistutuskulut"_s), u"2,50"_s);
        QCOMPARE(kannanArvo(u"Fontti"_s), u"Kirjasin jota ei ole"_s);
        QCOMPARE(ydin::iniArvo(*env, u"DatabaseBackup"_s), env->path(u"tikku/"_s));
    }

    // Each choose button fills its own field; a cancelled choice keeps what was there. A new
    // database is stored at once, and the user told to start again. The mail server query asks
    // for the domain of the club's address and fills the empty server field.
    void valinnat()
    {
        seuranAsetukset(*env);
        frmAsetukset w;
        for (const QString &kentta : {u"EmailLaskupohja"_s, u"EmailKarhupohja"_s}) {
            dlg->choosePath(u"/pohjat/"_s + kentta);
            dlg->choosePath(QString()); // cancelled
            const QString nappi = kentta == u"EmailLaskupohja"_s ? u"cLaskupohjavalinta"_s : u"cKarhupohjavalinta"_s;
            osa<QPushButton>(w, nappi)->click();
            osa<QPushButton>(w, nappi)->click();
            QVERIFY2(osa(w, u't' + kentta)->text() == u"/pohjat/"_s + kentta, qPrintable(nappi));
        }
        const QString uusi = env->path(u"toinen.mdb"_s);
        dlg->choosePath(M::DatabasePath);
        osa<QPushButton>(w, u"cTietokantavalita"_s)->click();
        QVERIFY(dlg->messages().isEmpty());
        dlg->choosePath(uusi);
        osa<QPushButton>(w, u"cTietokantavalita"_s)->click();
        QCOMPARE(dlg->messages(), QStringList{u"Tietokantaa on vaihdettu. Vonari tulee käynnistää nyt uudestaan."_s});
        QCOMPARE(osa(w, u"tTietokanta"_s)->text(), uusi);
        QCOMPARE(ydin::iniArvo(*env, u"Database"_s), uusi);
        QCOMPARE(M::DatabasePath, uusi);

        QString kysytty;
        mx::setResolver([&](const QString &domain) {
            kysytty = domain;
            return u"mx.latu.fi"_s;
        });
        osa(w, u"tEmail"_s)->setText(u"rahastonhoitaja@latu.fi"_s);
        osa<QPushButton>(w, u"cMXQuery"_s)->click();
        mx::setResolver({});
        QCOMPARE(kysytty + u' ' + osa(w, u"tSMTP"_s)->text(), u"latu.fi mx.latu.fi"_s);
    }

};

QTEST_MAIN(TestFrmAsetukset)
#include "tst_frmasetukset.moc"
