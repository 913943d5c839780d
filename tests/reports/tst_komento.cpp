// The command-line tools: a PDF for good input, a clear message and a non-zero status for bad.
#include "seurat.h"
#include "raporttiseura.h"
#include "testenv.h"
#include "testiapu.h"

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

    static Tulos aja(const QString &ohjelma, const QStringList &argumentit)
    {
        QProcess p;
        p.start(ohjelma, argumentit);
        if (!p.waitForFinished(60000))
            return {-1, u"aikakatkaisu"_s};
        return {p.exitCode(), QString::fromUtf8(p.readAllStandardError())};
    }

private slots:
    void initTestCase()
    {
        // The tools are built beside the tests: build/tools/raportti, build/src/vonari-komento.
        m_tyokalu = QCoreApplication::applicationDirPath() + u"/../tools/raportti"_s;
        m_komento = QCoreApplication::applicationDirPath() + u"/../src/vonari-komento"_s;
        QVERIFY2(QFileInfo(m_tyokalu).isExecutable() && QFileInfo(m_komento).isExecutable(), "the tools are not built");
    }

    // The usage and the refusals of both tools; vonari-komento refuses a file that is not a club
    // and leaves it unchanged. KANTA is the club, VIERAS the other file, EIOLE a missing one,
    // ULOS the PDF that must not appear.
    void virheet_data()
    {
        QTest::addColumn<bool>("komento"); // vonari-komento, else the raportti tool
        QTest::addColumn<QStringList>("argumentit");
        QTest::addColumn<int>("koodi");
        QTest::addColumn<QString>("viesti");
        const QStringList r{u"KANTA"_s, u"jrluetlo"_s, u"ULOS"_s};
        const QStringList k{u"KANTA"_s, u"raportti"_s, u"jrluetlo"_s, u"ULOS"_s};
        QTest::newRow("liian vähän") << false << QStringList{u"KANTA"_s} << 2 << u"Käyttö: raportti"_s;
        QTest::newRow("arvo puuttuu") << false << r + QStringList{u"--selection"_s} << 2 << u"Valitsimelta --selection puuttuu arvo."_s;
        QTest::newRow("tuntematon valitsin") << false << r + QStringList{u"--valinta"_s, u"x"_s} << 2 << u"Tuntematon valitsin --valinta."_s;
        QTest::newRow("kaava ei lue") << false << r + QStringList{u"--selection"_s, u"{jr.jrID} >"_s} << 1
                                      << u"Raportti jrluetlo.rpt, valintakaava: kaavaa \"{jr.jrID} >\" ei voi lukea"_s;
        QTest::newRow("ei tietokantaa") << false << QStringList{u"EIOLE"_s, u"jrluetlo"_s, u"ULOS"_s} << 1 << u"ei voi avata"_s;
        QTest::newRow("ei raporttia") << false << QStringList{u"KANTA"_s, u"eiole"_s, u"ULOS"_s} << 1 << u"Raporttia eiole.rpt ei löydy"_s;
        QTest::newRow("komento: ei mitään") << true << QStringList{} << 2 << u"Käyttö: vonari-komento"_s;
        QTest::newRow("komento: tuntematon") << true << QStringList{u"KANTA"_s, u"laskuta"_s} << 2 << u"Tuntematon komento laskuta."_s;
        QTest::newRow("komento: huono päivä") << true << k + QStringList{u"--tanaan"_s, u"31.2.2027"_s} << 2
                                              << u"Päivämäärä 31.2.2027 ei kelpaa"_s;
        QTest::newRow("komento: ini puuttuu") << true << k + QStringList{u"--ini"_s, u"/ei/ole.ini"_s} << 2
                                              << u"Asetustiedostoa /ei/ole.ini ei löydy."_s;
        QTest::newRow("komento: vieras tiedosto") << true << QStringList{u"VIERAS"_s, u"raportti"_s, u"jrluetlo"_s, u"ULOS"_s} << 1
                                                  << u"ei ole Vonarin tietokanta. Tiedostoa ei ole muutettu."_s;
        QTest::newRow("komento: ei tietokantaa") << true << QStringList{u"EIOLE"_s, u"raportti"_s, u"jrluetlo"_s, u"ULOS"_s} << 1
                                                 << u"Tietokantaa ei löydy"_s;
    }

    void virheet()
    {
        QFETCH(bool, komento);
        QFETCH(QStringList, argumentit);
        QFETCH(int, koodi);
        QFETCH(QString, viesti);
        TestEnv env;
        const QByteArray vieras = "Nimi;Osoite\nAalto;Kuja 1\n";
        const QString pdf = env.path(u"ulos.pdf"_s);
        argumentit.replaceInStrings(u"KANTA"_s, seurat::Kopio(150, env.path(u"demo.mdb"_s)))
            .replaceInStrings(u"VIERAS"_s, testi::tiedosto(env.path(u"vieras.mdb"_s), vieras))
            .replaceInStrings(u"EIOLE"_s, env.path(u"eiole.mdb"_s))
            .replaceInStrings(u"ULOS"_s, pdf);
        const Tulos t = aja(komento ? m_komento : m_tyokalu, argumentit);
        QCOMPARE(t.koodi, koodi);
        QVERIFY2(t.virhe.contains(viesti), qPrintable(t.virhe));
        QVERIFY(!QFile::exists(pdf));
        QFile f(env.path(u"vieras.mdb"_s));
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), vieras);
    }

    // The tool with a selection, a formula with an apostrophe and a sort field; the command's
    // report verb with today set for the run and its progress on standard error.
    void pdf()
    {
        TestEnv env;
        const QString kanta = seurat::Kopio(150, env.path(u"demo.mdb"_s));
        const QString pdf = env.path(u"ulos.pdf"_s);
        Tulos t = aja(m_tyokalu, {kanta, u"jrluetlo.rpt"_s, pdf, u"--selection"_s, u"{jr.jrJasennumero} = '7'"_s, u"--formula"_s,
                                  u"Seurannimi= 'Kyläyhdistys D'Artagnan ry'"_s, u"--sort"_s, u"-{jr.jrSukunimi}"_s});
        QCOMPARE(t.koodi, 0);
        QString teksti = PdfTeksti(pdf);
        QVERIFY2(teksti.contains(u"Kyläyhdistys D'Artagnan ry"_s) && teksti.contains(u"Jäseniä yhteensä: 1"_s), qPrintable(teksti));

        t = aja(m_komento, {kanta, u"raportti"_s, u"jrlaajlu"_s, pdf, u"--tanaan"_s, u"3.2.2027"_s, u"--edistyminen"_s,
                            u"--valinta"_s, u"{jr.jrJasennumero} < '20'"_s});
        QCOMPARE(t.koodi, 0);
        QVERIFY2(t.virhe.contains(u"raportti: 0/"_s), qPrintable(t.virhe));
        teksti = PdfTeksti(pdf);
        QVERIFY2(teksti.contains(u"Tulostettu 3.2.2027"_s), qPrintable(teksti));
    }
};

QTEST_MAIN(TestKomento)
#include "tst_komento.moc"
