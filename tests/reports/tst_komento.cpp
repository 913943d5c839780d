// The command-line tool: a PDF for good input, a clear message and a non-zero status for bad.
#include "seurat.h"
#include "raporttiseura.h"
#include "testenv.h"

#include <QProcess>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

class TestKomento : public QObject {
    Q_OBJECT

    QString m_tyokalu, m_komento;

    struct Tulos {
        int koodi;
        QString virhe;
    };

    Tulos aja(const QStringList &argumentit, const QString &ohjelma = {})
    {
        QProcess p;
        p.start(ohjelma.isEmpty() ? m_tyokalu : ohjelma, argumentit);
        if (!p.waitForFinished(60000))
            return {-1, u"aikakatkaisu"_s};
        return {p.exitCode(), QString::fromUtf8(p.readAllStandardError())};
    }

private slots:
    void initTestCase()
    {
        // The tool is built beside the tests: build/tools/raportti.
        m_tyokalu = QCoreApplication::applicationDirPath() + u"/../tools/raportti"_s;
        if (!QFileInfo(m_tyokalu).isExecutable())
            QSKIP("the raportti tool is not built");
        m_komento = QCoreApplication::applicationDirPath() + u"/../src/vonari-komento"_s;
        QVERIFY2(QFileInfo(m_komento).isExecutable(), "vonari-komento is not built");
    }

    void virheet_data()
    {
        QTest::addColumn<QStringList>("lisaa");
        QTest::addColumn<int>("koodi");
        QTest::addColumn<QString>("viesti");
        QTest::newRow("liian vähän") << QStringList{u"--"_s} << 2 << u"Käyttö: raportti"_s;
        QTest::newRow("arvo puuttuu") << QStringList{u"--selection"_s} << 2 << u"Valitsimelta --selection puuttuu arvo."_s;
        QTest::newRow("tuntematon valitsin") << QStringList{u"--valinta"_s, u"x"_s} << 2 << u"Tuntematon valitsin --valinta."_s;
        QTest::newRow("kaava ei lue") << QStringList{u"--selection"_s, u"{jr.jrID} >"_s} << 1
                                      << u"Raportti jrluetlo.rpt, valintakaava: kaavaa \"{jr.jrID} >\" ei voi lukea"_s;
        QTest::newRow("lajittelu ei lue") << QStringList{u"--sort"_s, u"+jrSukunimi"_s} << 1 << u"lajitella voi vain kentän mukaan"_s;
        QTest::newRow("kaava ei ole kaava") << QStringList{u"--formula"_s, u"Otsake"_s} << 1 << u"ei ole muotoa Nimi= 'teksti'"_s;
        QTest::newRow("ei ketään") << QStringList{u"--selection"_s, u"{jr.jrID} < 0"_s} << 1
                                   << u"Raportille ei löytynyt yhtään tulostettavaa tietoa."_s;
    }

    void virheet()
    {
        QFETCH(QStringList, lisaa);
        QFETCH(int, koodi);
        QFETCH(QString, viesti);
        TestEnv env;
        const QString kanta = seurat::Kopio(150, env.path(u"demo.mdb"_s));
        const QString pdf = env.path(u"ulos.pdf"_s);
        QStringList arg{kanta, u"jrluetlo"_s, pdf};
        if (lisaa == QStringList{u"--"_s})
            arg = QStringList{kanta};
        else
            arg += lisaa;
        const Tulos t = aja(arg);
        QCOMPARE(t.koodi, koodi);
        QVERIFY2(t.virhe.contains(viesti), qPrintable(t.virhe));
        QVERIFY(!QFile::exists(pdf));
    }

    void puuttuvaTietokantaJaRaportti()
    {
        TestEnv env;
        Tulos t = aja({env.path(u"eiole.mdb"_s), u"jrluetlo"_s, env.path(u"x.pdf"_s)});
        QCOMPARE(t.koodi, 1);
        QVERIFY2(t.virhe.contains(u"Tietokantaa "_s) && t.virhe.contains(u"ei voi avata"_s), qPrintable(t.virhe));
        t = aja({seurat::Kopio(150, env.path(u"demo.mdb"_s)), u"eiole"_s, env.path(u"x.pdf"_s)});
        QCOMPARE(t.koodi, 1);
        QVERIFY(t.virhe.contains(u"Raporttia eiole.rpt ei löydy"_s));
    }

    void pdfValinnallaJaKaavoilla()
    {
        TestEnv env;
        const QString kanta = seurat::Kopio(150, env.path(u"demo.mdb"_s));
        const QString pdf = env.path(u"ulos.pdf"_s);
        const Tulos t = aja({kanta, u"jrluetlo.rpt"_s, pdf, u"--selection"_s, u"{jr.jrJasennumero} = '7'"_s, u"--formula"_s,
                             u"Seurannimi= 'Kyläyhdistys D'Artagnan ry'"_s, u"--sort"_s, u"-{jr.jrSukunimi}"_s});
        QCOMPARE(t.koodi, 0);
        const QString teksti = PdfTeksti(pdf, false);
        QVERIFY2(teksti.contains(u"Kyläyhdistys D'Artagnan ry"_s), qPrintable(teksti));
        QVERIFY(teksti.contains(u"Jäseniä yhteensä: 1"_s));
        QVERIFY(teksti.contains(u"sivu 1 / 1"_s));
    }

    // vonari-komento: the usage and the refusals come before the database is touched; a file that
    // is not a club is refused unchanged.
    void komennonVirheet_data()
    {
        QTest::addColumn<QStringList>("argumentit");
        QTest::addColumn<int>("koodi");
        QTest::addColumn<QString>("viesti");
        QTest::newRow("ei mitään") << QStringList{} << 2 << u"Käyttö: vonari-komento"_s;
        QTest::newRow("tuntematon komento") << QStringList{u"KANTA"_s, u"laskuta"_s} << 2 << u"Tuntematon komento laskuta."_s;
        QTest::newRow("huono päivä") << QStringList{u"KANTA"_s, u"raportti"_s, u"jrluetlo"_s, u"ULOS"_s, u"--tanaan"_s, u"31.2.2027"_s}
                                     << 2 << u"Päivämäärä 31.2.2027 ei kelpaa"_s;
        QTest::newRow("verbin valitsin") << QStringList{u"KANTA"_s, u"raportti"_s, u"jrluetlo"_s, u"ULOS"_s, u"--selection"_s, u"x"_s}
                                         << 2 << u"Tuntematon valitsin --selection."_s;
        QTest::newRow("ini puuttuu") << QStringList{u"KANTA"_s, u"raportti"_s, u"jrluetlo"_s, u"ULOS"_s, u"--ini"_s, u"/ei/ole.ini"_s}
                                     << 2 << u"Asetustiedostoa /ei/ole.ini ei löydy."_s;
        QTest::newRow("vieras tiedosto") << QStringList{u"VIERAS"_s, u"raportti"_s, u"jrluetlo"_s, u"ULOS"_s} << 1 << u"ei ole Vonarin tietokanta. Tiedostoa ei ole muutettu."_s;
        QTest::newRow("ei tietokantaa") << QStringList{u"EIOLE"_s, u"raportti"_s, u"jrluetlo"_s, u"ULOS"_s} << 1
                                        << u"Tietokantaa ei löydy"_s;
    }

    void komennonVirheet()
    {
        QFETCH(QStringList, argumentit);
        QFETCH(int, koodi);
        QFETCH(QString, viesti);
        TestEnv env;
        const QString kanta = seurat::Kopio(150, env.path(u"demo.mdb"_s));
        const QString vieras = env.path(u"vieras.mdb"_s);
        QFile f(vieras);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("Nimi;Osoite\nAalto;Kuja 1\n");
        f.close();
        const QString pdf = env.path(u"ulos.pdf"_s);
        argumentit.replaceInStrings(u"KANTA"_s, kanta).replaceInStrings(u"VIERAS"_s, vieras);
        argumentit.replaceInStrings(u"EIOLE"_s, env.path(u"eiole.mdb"_s)).replaceInStrings(u"ULOS"_s, pdf);
        const Tulos t = aja(argumentit, m_komento);
        QCOMPARE(t.koodi, koodi);
        QVERIFY2(t.virhe.contains(viesti), qPrintable(t.virhe));
        QVERIFY(!QFile::exists(pdf));
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), QByteArray("Nimi;Osoite\nAalto;Kuja 1\n"));
    }

    // The report verb with today set for the run, and its progress on standard error.
    void komennonRaporttiJaPaiva()
    {
        TestEnv env;
        const QString kanta = seurat::Kopio(150, env.path(u"demo.mdb"_s));
        const QString pdf = env.path(u"ulos.pdf"_s);
        const Tulos t = aja({kanta, u"raportti"_s, u"jrlaajlu"_s, pdf, u"--tanaan"_s, u"3.2.2027"_s, u"--edistyminen"_s,
                             u"--valinta"_s, u"{jr.jrJasennumero} < '20'"_s},
                            m_komento);
        QCOMPARE(t.koodi, 0);
        QVERIFY2(t.virhe.contains(u"raportti: 0/"_s), qPrintable(t.virhe));
        QVERIFY2(PdfTeksti(pdf, false).contains(u"Tulostettu 3.2.2027"_s), qPrintable(PdfTeksti(pdf, false)));
    }
};

QTEST_MAIN(TestKomento)
#include "tst_komento.moc"
