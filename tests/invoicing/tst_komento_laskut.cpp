// vonari-komento on the open batch: moved to history or deleted as the invoice window does it,
// the message on standard output, the batch and the counter in the file afterwards.
#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "invoicing/Jasenmaksuajo.h"
#include "laskuseura.h"
#include "scripteddialogs.h"
#include "seurat.h"
#include "testenv.h"

#include <QDir>
#include <QProcess>
#include <QtTest>

class TestKomentoLaskut : public QObject {
    Q_OBJECT

    struct Tulos {
        int koodi;
        QString ulos, virhe;
    };

    Tulos aja(const QStringList &argumentit)
    {
        QProcess p;
        p.start(QCoreApplication::applicationDirPath() + QStringLiteral("/../src/vonari-komento"), argumentit);
        if (!p.waitForFinished(60000))
            return {-1, {}, QStringLiteral("aikakatkaisu")};
        return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()), QString::fromUtf8(p.readAllStandardError())};
    }

private slots:
    void historiaanJaPoisto()
    {
        TestEnv env;
        ScriptedDialogs dlg;
        const QString kanta = seurat::Kopio(150, env.path(QStringLiteral("demo1.mdb")));
        qint64 laskuri = 0, historiassa = 0;
        const auto laskuta = [&] {
            auto d = db::Database::open(kanta);
            LueAsetukset(*d);
            laskuri = MainModule::Laskunro;
            historiassa = laskuseura::maara(*d, QStringLiteral("jmhist"));
            QVERIFY(LisaaJasenmaksut(Ajo(*d), laskuseura::lomake(), false).lisatty > 0);
        };
        laskuta();

        Tulos t = aja({kanta, QStringLiteral("poista-laskut")});
        QCOMPARE(t.koodi, 0);
        QCOMPARE(t.ulos, QStringLiteral("Kaikki lisätyt laskut poistettu.\n"));
        QVERIFY(t.virhe.contains(QStringLiteral("Haluatko varmasti poistaa kaikki lisätyt laskut?")));
        {
            auto d = db::Database::open(kanta);
            QCOMPARE(laskuseura::maara(*d, QStringLiteral("jm")), 0);
            QCOMPARE(KantaStore(*d).readString(QStringLiteral("Laskunro")).toLongLong(), laskuri);
        }

        laskuta();
        const qint64 avoimia = laskuseura::maara(*db::Database::open(kanta), QStringLiteral("jm"));
        t = aja({kanta, QStringLiteral("historiaan")});
        QCOMPARE(t.koodi, 0);
        QCOMPARE(t.ulos, QStringLiteral("Laskut siirretty historiaan.\n"));
        auto d = db::Database::open(kanta);
        QCOMPARE(laskuseura::maara(*d, QStringLiteral("jm")), 0);
        QCOMPARE(laskuseura::maara(*d, QStringLiteral("jmhist")), historiassa + avoimia);

        t = aja({kanta, QStringLiteral("historiaan"), QStringLiteral("--kaikki")});
        QCOMPARE(t.koodi, 2);
        QVERIFY(t.virhe.contains(QStringLiteral("historiaan ei ota valitsimia.")));
    }

    // The batch printed to one PDF in postal-code order; a reference marked paid; the reminders of
    // the unpaid history in one PDF, whose bank barcode carries the stored total.
    void tulostusMaksuJaMuistutukset()
    {
        TestEnv env;
        const QString kanta = seurat::Kopio(150, env.path(QStringLiteral("demo1.mdb")));
        QCOMPARE(aja({kanta, QStringLiteral("laskutus"), QStringLiteral("--pohja"), QStringLiteral("Jäsenmaksu")}).koodi, 0);
        const QString pdf = env.path(QStringLiteral("laskut.pdf"));
        Tulos t = aja({kanta, QStringLiteral("tulosta-laskut"), pdf, QStringLiteral("--jarjestys"), QStringLiteral("postinumero")});
        QCOMPARE(t.koodi, 0);
        auto d = db::Database::open(kanta);
        const qint64 avoimia = laskuseura::maara(*d, QStringLiteral("jm"));
        QCOMPARE(t.ulos.trimmed().toLongLong(), avoimia);
        const auto teksti = [](const QString &tiedosto, int sivu) {
            QProcess p;
            p.start(QStringLiteral("pdftotext"), {QStringLiteral("-f"), QString::number(sivu), QStringLiteral("-l"), QString::number(sivu),
                                                  tiedosto, QStringLiteral("-")});
            p.waitForFinished();
            return QString::fromUtf8(p.readAllStandardOutput());
        };
        const QString ensin = d->scalar(QStringLiteral("SELECT jrSukunimi FROM jm JOIN jr ON jrID = jmjrID ORDER BY jrPostinumero, jmID LIMIT 1")).toString();
        QVERIFY2(teksti(pdf, 1).contains(ensin), qPrintable(ensin));
        QCOMPARE(aja({kanta, QStringLiteral("tulosta-laskut"), pdf, QStringLiteral("--malli"), QStringLiteral("sininen")}).koodi, 2);

        const QString viite = d->scalar(QStringLiteral("SELECT jmhjmViitenumero FROM jmhist WHERE jmhjmMaksettu = 0 ORDER BY jmhjmLaskunumero DESC LIMIT 1")).toString();
        t = aja({kanta, QStringLiteral("maksettu"), viite});
        QCOMPARE(t.koodi, 0);
        QVERIFY2(t.ulos.contains(QStringLiteral("lblMaksettu: Kyllä\n")), qPrintable(t.ulos));

        const QString muistutukset = env.path(QStringLiteral("muistutukset.pdf"));
        const qint64 maksamatta = laskuseura::maara(*d, QStringLiteral("jmhist WHERE jmhjmMaksettu = 0"));
        t = aja({kanta, QStringLiteral("muistutukset"), muistutukset, QStringLiteral("--tanaan"), QStringLiteral("2027-01-15")});
        QCOMPARE(t.koodi, 0);
        QCOMPARE(t.ulos.trimmed().toLongLong(), maksamatta);
        QProcess kuva;
        kuva.start(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QStringLiteral("300"), QStringLiteral("-f"), QStringLiteral("1"),
                                               QStringLiteral("-l"), QStringLiteral("1"), QStringLiteral("-png"), muistutukset, env.path(QStringLiteral("m"))});
        QVERIFY(kuva.waitForFinished(60000));
        QProcess zbar;
        zbar.start(QStringLiteral("zbarimg"), {QStringLiteral("-q"), QStringLiteral("--raw"), QStringLiteral("-Sdisable"), QStringLiteral("-Scode128.enable"),
                                               QDir(env.path({})).entryInfoList({QStringLiteral("m*.png")}).value(0).filePath()});
        QVERIFY(zbar.waitForFinished(60000));
        const QString koodi = QString::fromUtf8(zbar.readAllStandardOutput()).trimmed();
        QCOMPARE(koodi.size(), 54);
        // Version 4: the euros from position 18 (6 digits) and the cents (2), the total of the first reminder.
        const qint64 yhteensa = d->scalar(QStringLiteral("SELECT jmhjmMuistutusYhteensa FROM jmhist WHERE jmhjmMaksettu = 0"
                                                         " ORDER BY jmhjmLaskunumero, jmhID LIMIT 1")).toLongLong();
        QCOMPARE(koodi.mid(17, 8).toLongLong(), (yhteensa + 50) / 100);
    }

    // The demonstration club's templates run as their windows run them: each kind its own run,
    // the dates and the invoiced from the options.
    void laskutusPohjalla_data()
    {
        QTest::addColumn<QStringList>("valitsimet");
        QTest::addColumn<int>("koodi");
        QTest::addColumn<QString>("ehto"); // every open invoice meets it
        QTest::newRow("plain, everybody") << QStringList{"--pohja", "Jäsenmaksu", "--laskupaiva", "2027-03-01"} << 0
                                          << "jmHinta = 350000 AND jmErapaiva = '2027-03-15' AND jmPerhe = 0";
        QTest::newRow("family") << QStringList{"--pohja", "Perhemaksu", "--erapaiva", "31.3.2027"} << 0
                                << "jmPerhe = 1 AND jmErapaiva = '2027-03-31' AND jmjrID IN (SELECT jrID FROM jr WHERE jrPerheenLaskutettava = 1)";
        QTest::newRow("attribute") << QStringList{"--pohja", "Talkoohyvitys", "--kenelle", "ominaisuus:Talkoovuorot"} << 0
                                   << "jmOmin = 1 AND jmjrID IN (SELECT ptjrID FROM pt JOIN pi ON piID = ptpiID WHERE piNimi = 'Talkoovuorot')";
        QTest::newRow("one member") << QStringList{"--pohja", "Jäsenmaksu", "--kenelle", "jasen:1"} << 0 << "jmjrID = 1";
        QTest::newRow("no such template") << QStringList{"--pohja", "Syysmaksu"} << 1 << "0";
        QTest::newRow("no such attribute") << QStringList{"--pohja", "Jäsenmaksu", "--kenelle", "ominaisuus:Golf"} << 1 << "0";
        QTest::newRow("bad date") << QStringList{"--pohja", "Jäsenmaksu", "--laskupaiva", "31.2.2027"} << 2 << "0";
    }

    void laskutusPohjalla()
    {
        QFETCH(QStringList, valitsimet);
        QFETCH(int, koodi);
        QFETCH(QString, ehto);
        TestEnv env;
        const QString kanta = seurat::Kopio(150, env.path(QStringLiteral("demo1.mdb")));
        const Tulos t = aja(QStringList{kanta, QStringLiteral("laskutus")} + valitsimet);
        QCOMPARE(t.koodi, koodi);
        auto d = db::Database::open(kanta);
        const qint64 avoimia = laskuseura::maara(*d, QStringLiteral("jm"));
        QCOMPARE(avoimia > 0, koodi == 0);
        QCOMPARE(laskuseura::maara(*d, QStringLiteral("jm WHERE ") + ehto), avoimia);
        if (koodi == 0)
            QCOMPARE(t.ulos, avoimia == 1 ? QStringLiteral("Lisätty 1 lasku.\n") : QStringLiteral("Lisätty %1 laskua.\n").arg(avoimia));
    }
};

QTEST_GUILESS_MAIN(TestKomentoLaskut)
#include "tst_komento_laskut.moc"
