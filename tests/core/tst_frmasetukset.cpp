#include "core/MainModule.h"
#include "core/ui/frmAsetukset.h"
#include "core/ui/frmAsetuksetLisa.h"
#include "app/frmMain.h"
#include "platform/database.h"
#include "platform/mxlookup.h"
#include "malliseura.h"
#include "testiapu.h"
#include "testipohja.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <QtTest>

namespace M = MainModule;
using namespace Qt::StringLiterals;

namespace {

template <typename T>
T *osa(QWidget &w, const QString &nimi)
{
    T *c = w.findChild<T *>(nimi);
    if (!c)
        qFatal("control %s missing", qPrintable(nimi));
    return c;
}

using testi::kirjoita;

QString kannanArvo(const QString &polku, const QString &avain)
{
    auto d = db::Database::open(polku);
    return d->scalar(u"SELECT setString FROM Settings WHERE setSection = 'VONARI' AND setKey = ?"_s, {avain}).toString();
}

// A club whose settings have been read, with its database in place.
void seuranAsetukset(const TestEnv &env)
{
    M::DatabasePath = env.path(u"seura.mdb"_s);
    malliseura::kopio(M::DatabasePath);
    M::BackupPath = env.path(u"varmistus/"_s);
    M::RegName = u"Latu ry"_s;
    M::SMTP = u"smtp.example.fi"_s;
    M::EmailSystem = true;
    M::Laskunro = 1200;
    M::AutoJasennumero = true;
    M::Muistutuskulut = Currency::fromRaw(25000);
    M::Viivastyskorko = 7.5;
    M::Fontti = u"Kirjasin jota ei ole"_s;
    M::FonttiKoko = 13;
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
    void kentatTaytetaanGlobaaleista()
    {
        seuranAsetukset(*env);
        frmAsetukset w;
        QCOMPARE(osa<QLineEdit>(w, u"tNimi"_s)->text(), u"Latu ry"_s);
        QVERIFY(osa<QRadioButton>(w, u"optEmailSystem_1"_s)->isChecked());
        QCOMPARE(osa<QLineEdit>(w, u"tLaskunumero"_s)->text(), u"1200"_s);
        QVERIFY(osa<QCheckBox>(w, u"chkJasennumero"_s)->isChecked());
        QCOMPARE(osa<QLineEdit>(w, u"tMuistutuskulut"_s)->text(), u"2,50"_s);
        QCOMPARE(osa<QLineEdit>(w, u"tViivastysKorko"_s)->text(), u"7,5"_s);
        // A font this machine lacks is kept, not replaced by the first of the list.
        QCOMPARE(osa<QComboBox>(w, u"cmbFonts"_s)->currentText(), u"Kirjasin jota ei ole"_s);
        QCOMPARE(osa<QComboBox>(w, u"cmbFonttiKoko"_s)->currentText(), u"13"_s);
        QVERIFY(!w.muuttunut());
        QVERIFY(dlg->allTexts().isEmpty());
    }

    void numerokenttaTyhjeneeKirjaimesta_data()
    {
        QTest::addColumn<QString>("kentta");
        QTest::addColumn<QString>("viesti");
        QTest::newRow("viestejä/min") << "tEmailPerMin" << "Syötä viestiä / minuutti rajoitukseksi ainoastaan numeroita.";
        QTest::newRow("jäsennumero") << "tJasennumero" << "Syötä jäsennumeroksi ainoastaan numeroita.";
        QTest::newRow("laskunumero") << "tLaskunumero" << "Syötä laskunumeroksi ainoastaan numeroita.";
        QTest::newRow("ylämarginaali") << "tMargYla" << "Syötä marginaaliksi ainoastaan numeroita.";
        QTest::newRow("muistutuskulut") << "tMuistutuskulut" << "Syötä Muistutuskulut -kenttään ainoastaan numeroita.";
        QTest::newRow("tulostuserä") << "tTulostusEra" << "Syötä tulostuseräksi ainoastaan numeroita.";
        QTest::newRow("varmuuskopiot") << "tVarmuuskopioPv" << "Syötä Varmuuskopiot -kenttään ainoastaan numeroita.";
    }

    void numerokenttaTyhjeneeKirjaimesta()
    {
        QFETCH(QString, kentta);
        QFETCH(QString, viesti);
        frmAsetukset w;
        QLineEdit *t = osa<QLineEdit>(w, kentta);
        t->clear();
        QTest::keyClicks(t, u"12"_s);
        QCOMPARE(t->text(), u"12"_s);
        QVERIFY(dlg->allTexts().isEmpty());
        QTest::keyClicks(t, u"k"_s);
        QCOMPARE(dlg->allTexts(), QStringList{viesti});
        QCOMPARE(t->text(), QString());
        QVERIFY(w.muuttunut());
    }

    void kentastaPoistuttaessa()
    {
        frmAsetukset w;
        nayta(w);
        auto *perMin = osa<QLineEdit>(w, u"tEmailPerMin"_s);
        auto *varmistus = osa<QLineEdit>(w, u"tVarmistus"_s);
        auto *nimi = osa<QLineEdit>(w, u"tNimi"_s);
        perMin->setFocus();
        perMin->clear();
        nimi->setFocus();
        QCOMPARE(perMin->text(), u"0"_s);
        varmistus->setFocus();
        varmistus->setText(u"/media/tikku/varmistus"_s);
        nimi->setFocus();
        QCOMPARE(varmistus->text(), u"/media/tikku/varmistus/"_s);
        varmistus->setFocus();
        nimi->setFocus();
        QCOMPARE(varmistus->text(), u"/media/tikku/varmistus/"_s);
        QVERIFY(dlg->allTexts().isEmpty());
    }

    void muistutustekstiPysyyYhdellaRivilla_data()
    {
        QTest::addColumn<QString>("kentta");
        QTest::newRow("alkuteksti") << "tMuistutusAlkuteksti";
        QTest::newRow("lopputeksti") << "tMuistutusLopputeksti";
    }

    void muistutustekstiPysyyYhdellaRivilla()
    {
        QFETCH(QString, kentta);
        frmAsetukset w;
        auto *t = osa<QPlainTextEdit>(w, kentta);
        kirjoita(t, u"Hyvä"_s);
        QTest::keyClick(t, Qt::Key_Return);
        QTest::keyClick(t, Qt::Key_Enter);
        kirjoita(t, u" jäsen"_s);
        QCOMPARE(t->toPlainText(), u"Hyvä jäsen"_s);
        QCOMPARE(dlg->allTexts(),
                 QStringList(2, u"Muistutuksen teksteissä ei saa olla rivinvaihtoja."_s));
        // Pasted lines join into one.
        t->insertPlainText(u"\nmaksathan\r\npian"_s);
        QCOMPARE(t->toPlainText(), u"Hyvä jäsen maksathan pian"_s);
        t->setPlainText(QString(300, u'x'));
        QCOMPARE(t->toPlainText().size(), 255);
    }

    // Closing the window, the program closing (the main window's Sulje, or the desktop's logout)
    // and opening the additional settings ask first whether changes are saved; a save that stops
    // keeps the windows open.
    void muutoksistaKysytaan_data()
    {
        QTest::addColumn<QString>("tapa");
        QTest::addColumn<bool>("muuta");
        QTest::addColumn<bool>("huonoNumero"); // the top margin emptied, so the save stops
        QTest::addColumn<QString>("vastaus");
        QTest::addColumn<QString>("tallennettu");
        for (const char *tapa : {"sulje", "lisa", "ohjelma"}) {
            QTest::addRow("%s: kyllä tallentaa", tapa) << tapa << true << false << "kyllä" << "Uusi seura";
            QTest::addRow("%s: ei muutoksia, ei kysytä", tapa) << tapa << false << false << "" << "";
        }
        QTest::newRow("sulje: ei jättää tallentamatta") << "sulje" << true << false << "ei" << "";
        QTest::newRow("lisa: ei jättää tallentamatta") << "lisa" << true << false << "ei" << "";
        QTest::newRow("ohjelma: tallennus pysähtyy, ohjelma jää auki") << "ohjelma" << true << true << "kyllä" << "Uusi seura";
    }

    void muutoksistaKysytaan()
    {
        QFETCH(QString, tapa);
        QFETCH(bool, muuta);
        QFETCH(bool, huonoNumero);
        QFETCH(QString, vastaus);
        QFETCH(QString, tallennettu);
        seuranAsetukset(*env);
        std::unique_ptr<frmMain> paa;
        if (tapa == u"ohjelma"_s) {
            paa = std::make_unique<frmMain>();
            paa->show();
        }
        frmAsetukset w(paa.get());
        nayta(w);
        if (muuta)
            osa<QLineEdit>(w, u"tNimi"_s)->setText(u"Uusi seura"_s);
        if (huonoNumero)
            osa<QLineEdit>(w, u"tMargYla"_s)->clear();
        if (vastaus == u"kyllä"_s)
            dlg->yes();
        else if (vastaus == u"ei"_s)
            dlg->no();
        QString kysymys = u"Asetuksiin on tehty muutoksia, tallennetaanko muutokset?"_s;
        if (tapa == u"lisa"_s) {
            bool avattiin = false;
            QTimer::singleShot(0, this, [&] {
                auto *ikkuna = qobject_cast<frmAsetuksetLisa *>(QApplication::activeModalWidget());
                avattiin = ikkuna != nullptr;
                if (ikkuna)
                    ikkuna->findChild<QPushButton *>(u"cPeru"_s)->click();
            });
            w.findChild<QAction *>(u"mLisaasetukset"_s)->trigger();
            QVERIFY(avattiin);
            QVERIFY(w.isVisible());
            QCOMPARE(w.muuttunut(), vastaus == u"ei"_s);
            kysymys = u"Asetuksiin on tehty muutoksia ja ne pitää tallentaa ennen lisäasetusten "
                      "avaamista, tallennetaanko muutokset?"_s;
        } else {
            QTest::mouseClick(paa ? static_cast<QWidget *>(paa->cSulje) : osa<QPushButton>(w, u"cSulje"_s), Qt::LeftButton);
            QCOMPARE(w.isVisible(), huonoNumero);
            if (paa)
                QCOMPARE(paa->isVisible(), huonoNumero);
        }
        QStringList odotetut = muuta ? QStringList{kysymys} : QStringList();
        if (huonoNumero)
            odotetut << u"Syötä marginaaliksi ainoastaan numeroita."_s;
        QCOMPARE(dlg->allTexts(), odotetut);
        QCOMPARE(kannanArvo(M::DatabasePath, u"RegName"_s), tallennettu);
    }

    void tallennusPysahtyyHuonoonNumeroon()
    {
        seuranAsetukset(*env);
        frmAsetukset w;
        w.show();
        auto *marginaali = osa<QLineEdit>(w, u"tMargYla"_s);
        marginaali->clear();
        osa<QLineEdit>(w, u"tNimi"_s)->setText(u"Uusi seura"_s);
        QTest::mouseClick(osa<QPushButton>(w, u"cTallenna"_s), Qt::LeftButton);

        QVERIFY(w.isVisible());
        auto *tabs = osa<QTabWidget>(w, u"TabStrip1"_s);
        QVERIFY(tabs->currentWidget()->isAncestorOf(marginaali));
        QCOMPARE(w.focusWidget(), marginaali);
        QCOMPARE(kannanArvo(M::DatabasePath, u"MargYla"_s), QString());
    }

    void tallennusKirjoittaaKantaanJaPaaikkunaan()
    {
        seuranAsetukset(*env);
        QWidget paaikkuna;
        paaikkuna.setObjectName(u"frmMain"_s);
        paaikkuna.setWindowTitle(u"Vonari - Latu ry"_s);
        frmAsetukset w;
        nayta(w);
        auto *nimi = osa<QLineEdit>(w, u"tNimi"_s);
        nimi->clear();
        kirjoita(nimi, u"Äänekosken Latu"_s);
        osa<QLineEdit>(w, u"tVarmistus"_s)->setText(env->path(u"tikku"_s));
        QTest::mouseClick(osa<QPushButton>(w, u"cTallenna"_s), Qt::LeftButton);

        QVERIFY(dlg->allTexts().isEmpty());
        QVERIFY(!w.isVisible());
        QCOMPARE(w.result(), int(QDialog::Accepted));
        QCOMPARE(paaikkuna.windowTitle(), u"Vonari - Äänekosken Latu"_s);
        QCOMPARE(kannanArvo(M::DatabasePath, u"RegName"_s), u"Äänekosken Latu"_s);
        QCOMPARE(kannanArvo(M::DatabasePath, u"Muistutuskulut"_s), u"2,50"_s);
        QCOMPARE(kannanArvo(M::DatabasePath, u"Fontti"_s), u"Kirjasin jota ei ole"_s);
        QSettings ini(env->iniPath(), QSettings::IniFormat);
        QCOMPARE(ini.value(u"VONARI/DatabaseBackup"_s).toString(), env->path(u"tikku/"_s));
    }

    // Each choose button fills its own field; a cancelled choice keeps what was there.
    void tiedostonValinnat()
    {
        const QList<std::pair<QString, QString>> napit = {
            {u"cLaskupohjavalinta"_s, u"tEmailLaskupohja"_s},
            {u"cKarhupohjavalinta"_s, u"tEmailKarhupohja"_s},
            {u"cValitseLaskupohjatiedosto"_s, u"tLaskupohjaTiedosto"_s},
            {u"cValitseLaskupohjatiedostoH"_s, u"tLaskupohjaHTiedosto"_s}};
        frmAsetukset w;
        for (const auto &[nappi, kentta] : napit) {
            dlg->choosePath(u"/pohjat/"_s + kentta);
            dlg->choosePath(QString()); // cancelled
            osa<QPushButton>(w, nappi)->click();
            osa<QPushButton>(w, nappi)->click();
            QVERIFY2(osa<QLineEdit>(w, kentta)->text() == u"/pohjat/"_s + kentta, qPrintable(nappi));
        }
        QCOMPARE(dlg->fileRequests.size(), 8);
        QVERIFY(dlg->messages().isEmpty());
    }

    void tietokannanValintaTallentuuHeti()
    {
        seuranAsetukset(*env);
        const QString vanha = M::DatabasePath;
        const QString uusi = env->path(u"toinen.mdb"_s);
        frmAsetukset w;
        dlg->choosePath(vanha);
        osa<QPushButton>(w, u"cTietokantavalita"_s)->click();
        QVERIFY(dlg->messages().isEmpty());

        dlg->choosePath(uusi);
        osa<QPushButton>(w, u"cTietokantavalita"_s)->click();
        QCOMPARE(dlg->messages(), QStringList{u"Tietokantaa on vaihdettu. Vonari tulee käynnistää nyt uudestaan."_s});
        QCOMPARE(osa<QLineEdit>(w, u"tTietokanta"_s)->text(), uusi);
        QSettings ini(env->iniPath(), QSettings::IniFormat);
        QCOMPARE(ini.value(u"VONARI/Database"_s).toString(), uusi);
        QCOMPARE(M::DatabasePath, uusi);
    }

    void postipalvelimenKysely()
    {
        seuranAsetukset(*env);
        QString kysytty;
        mx::setResolver([&](const QString &domain) {
            kysytty = domain;
            return u"mx.latu.fi"_s;
        });
        frmAsetukset w;
        osa<QLineEdit>(w, u"tEmail"_s)->setText(u"rahastonhoitaja@latu.fi"_s);
        dlg->yes();
        osa<QPushButton>(w, u"cMXQuery"_s)->click();
        mx::setResolver({});
        QCOMPARE(kysytty, u"latu.fi"_s);
        QCOMPARE(osa<QLineEdit>(w, u"tSMTP"_s)->text(), u"mx.latu.fi"_s);
    }

    void uusiTietokantaMallista()
    {
        frmAsetukset w;
        w.show();
        dlg->cancelInput();
        w.findChild<QAction *>(u"mCreateNewDatabase"_s)->trigger();
        QVERIFY(w.isVisible());
        QCOMPARE(dlg->allTexts(), (QStringList{u"Tämä toiminto luo uuden tietokannan yhdistyksen jäsenrekisterin pohjaksi."_s,
                                               u"Anna uudelle tietokannalle nimi (max. 8 kirjainta)."_s,
                                               u"Tietokannan nimi ei voi olla tyhjä. Toiminto keskeytetään."_s}));
    }

    void lisaasetustenIkkuna()
    {
        seuranAsetukset(*env);
        M::OsoiteMuoto = 2;
        M::SuorituksellaMaksetuksiJosEiLoppusummaa = true;
        frmAsetuksetLisa w;
        w.show();
        QVERIFY(osa<QRadioButton>(w, u"optOsoitemuoto_2"_s)->isChecked());
        QVERIFY(osa<QCheckBox>(w, u"chkSuorituksellaMaksetuksiJosEiLoppusummaa"_s)->isChecked());
        QVERIFY(!w.muuttunut());

        osa<QRadioButton>(w, u"optOsoitemuoto_1"_s)->click();
        dlg->choosePath(u"/siirrot/osoitteet.txt"_s);
        osa<QPushButton>(w, u"cOsoitetiedostonValinta"_s)->click();
        QCOMPARE(osa<QLineEdit>(w, u"tOsoitteidenVienti"_s)->text(), u"/siirrot/osoitteet.txt"_s);
        QVERIFY(w.muuttunut());
        QTest::mouseClick(osa<QPushButton>(w, u"cTallenna"_s), Qt::LeftButton);

        QVERIFY(!w.isVisible());
        QVERIFY(dlg->messages().isEmpty());
        QCOMPARE(M::OsoiteMuoto, 1);
        QCOMPARE(M::OsoiteTiedosto, u"/siirrot/osoitteet.txt"_s);
        QCOMPARE(kannanArvo(M::DatabasePath, u"OsoiteMuoto"_s), u"1"_s);
        QCOMPARE(kannanArvo(M::DatabasePath, u"OsoiteTiedosto"_s), u"/siirrot/osoitteet.txt"_s);
    }
};

QTEST_MAIN(TestFrmAsetukset)
#include "tst_frmasetukset.moc"
