// The print run of the main window: the copies rule of the print settings, section fonts and
// club formulas, the plain run to the preview and the printer, and the settings window.
#include "core/MainModule.h"
#include "reports/RaporttiVirhe.h"
#include "reports/Tulostus.h"
#include "reports/ui/Raporttitulostus.h"
#include "reports/ui/frmTulostus.h"
#include "seurat.h"
#include "testiapu.h"
#include "testipohja.h"

#include "tulostuskirjaus.h"
#include <QComboBox>
#include <QLineEdit>
#include <QPrinterInfo>
#include <QPushButton>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;
using namespace MainModule;

class TestTulostus : public Testipohja {
    Q_OBJECT

private slots:
    void cleanup()
    {
        PalautaTulostustila();
        Testipohja::cleanup();
    }

    void kopiomaara_data()
    {
        QTest::addColumn<int>("laite");
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<QString>("vastaus"); // "" no question expected, "K" yes, "E" no: refused
        QTest::addColumn<int>("kopiot");
        QTest::newRow("nolla on luku") << 1 << u"0"_s << QString() << 0;
        QTest::newRow("pilkku pyöristyy") << 0 << u"2,5"_s << QString() << 2;
        QTest::newRow("tyhjä tulostimelle, kyllä") << 1 << QString() << u"K"_s << 1;
        QTest::newRow("kirjaimia tulostimelle, ei") << 1 << u"abc"_s << u"E"_s << 7;
        QTest::newRow("liian suuri tulostimelle") << 1 << u"99999"_s << u"K"_s << 1;
        QTest::newRow("kirjaimia ikkunaan") << 0 << u"abc"_s << QString() << 1;
    }

    void kopiomaara()
    {
        QFETCH(int, laite);
        QFETCH(QString, teksti);
        QFETCH(QString, vastaus);
        QFETCH(int, kopiot);
        if (vastaus == u"K"_s)
            dlg->yes();
        else if (vastaus == u"E"_s)
            dlg->no();
        Kopiot = 7;
        TulostusPeruttu = true;
        QCOMPARE(HyvaksyTulostusasetukset(laite, teksti), vastaus != u"E"_s);
        QCOMPARE(int(Kopiot), kopiot);
        QCOMPARE(int(TulostusLaite), laite);
        QVERIFY(!TulostusPeruttu);
        QCOMPARE(dlg->allTexts(), vastaus.isEmpty() ? QStringList()
                                                   : QStringList{u"Antamasi kopiomäärä on virheellinen. Haluatko tulostaa yhden kopion?"_s});
    }

    void osiofontitJaSeuranKaavat()
    {
        Fontti = u"Liberation Serif"_s;
        FonttiKoko = 11;
        AsetaOsioFontit(false, false);
        QCOMPARE(Raportti().SectionFont[0], u"ALL;Liberation Serif;11;X;X;X;X"_s);
        RegPuhelin = u"09 123"_s;
        RegFax = u"09 456"_s;
        AsetaMuistutusKaavat();
        QCOMPARE(Raportti().Formulas[7], u"SeuranPuhelinJaFax= 'Puh: 09 123  Fax: 09 456'"_s);
    }

    void tavallinenAjo()
    {
        DatabasePath = seurat::Kopio(150, env->path(u"demo.mdb"_s));
        RegName = u"Pelimannit 'Viulu' ry"_s;
        Kirjaus kirjaus;
        AsetaTulostuskohde(&kirjaus);

        AjaRaportti(u"jrluetlo.rpt"_s);
        QCOMPARE(int(kirjaus.esikatsellut.size()), 1);
        QVERIFY(kirjaus.esikatsellut[0].tekstit(0).contains(u"Pelimannit 'Viulu' ry"_s)); // as typed

        // A later run starts from a reset engine: nothing of the earlier job survives, and a
        // report outside the club-name list gets no name.
        Raportti().Formulas[5] = u"Otsake= 'vanha'"_s;
        Raportti().SelectionFormula = u"{jr.jrID} < 0"_s;
        TulostusLaite = 1;
        Kopiot = 3;
        Raportti().PrinterName = u"Toimisto"_s;
        AjaRaportti(u"jrosoite.rpt"_s);
        QCOMPARE(kirjaus.tulostin, u"Toimisto"_s);
        QCOMPARE(kirjaus.kopioita, 3);
        QVERIFY(Raportti().Formulas[0].isEmpty() && Raportti().Formulas[5].isEmpty() && Raportti().SelectionFormula.isEmpty());
    }

    void ilmanTulostintaEsikatseluJaPdfToimivat()
    {
        if (!QPrinterInfo::availablePrinterNames().isEmpty())
            QSKIP("this machine has printers");
        DatabasePath = seurat::Kopio(150, env->path(u"demo.mdb"_s));
        AsennaTulostuskohde();
        TulostusLaite = 1;
        try {
            AjaRaportti(u"jrluetlo.rpt"_s);
            QFAIL("printed without a printer");
        } catch (const RaporttiVirhe &e) {
            QVERIFY2(e.viesti().startsWith(u"Tulostimia ei ole asennettu."_s), qPrintable(e.viesti()));
        }
        frmTulostus w;
        w.show();
        testi::paina(w.cTulostin);
        QCOMPARE(dlg->messages().value(0).left(29), u"Tulostimia ei ole asennettu. "_s);
    }

    void tulostusasetuksetIkkuna()
    {
        frmTulostus w;
        w.show();
        w.cmbTulostusLaite->setCurrentIndex(1);
        w.tKopioita->setText(u"kaksi"_s);
        dlg->no();
        testi::paina(w.cTulosta);
        QVERIFY(w.isVisible()); // stays open for a better number
        dlg->yes();
        testi::paina(w.cTulosta);
        QCOMPARE(w.result(), int(QDialog::Accepted));
        QCOMPARE(int(Kopiot), 1);
        QCOMPARE(int(TulostusLaite), 1);
    }
};

QTEST_MAIN(TestTulostus)
#include "tst_tulostus.moc"
