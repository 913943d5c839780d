#include "core/MainModule.h"
#include "core/Tietokantanimet.h"
#include "core/Korjaus.h"
#include "kerhokanta.h"
#include "testipohja.h"

#include <QDir>
#include <QtTest>

using namespace MainModule;

namespace {

const int kSivu = 4096;

QList<qint64> sivut(const QString &polku, const QString &nimi, const QString &tyyppi)
{
    QList<qint64> out;
    auto d = db::Database::open(polku, db::OpenMode::ReadOnly);
    db::Statement st(*d, QStringLiteral("SELECT pageno FROM dbstat WHERE name = ? AND pagetype = ? ORDER BY pageno"),
                     {nimi, tyyppi});
    while (st.next())
        out << st.value(0).toLongLong();
    return out;
}

qint64 arvo(const QString &polku, const QString &sql)
{
    auto d = db::Database::open(polku, db::OpenMode::ReadOnly);
    return d->scalar(sql).toLongLong();
}

} // namespace

class TestKorjaus : public Testipohja {
    Q_OBJECT

    QString kanta;

private slots:
    void init()
    {
        Testipohja::init();
        kanta = env->path(QStringLiteral("kerho.mdb"));
        DatabasePath = kanta;
    }

    // What can be read comes back; the damaged file is kept, byte for byte, as the remainder.
    void vioittunutKorjataan_data()
    {
        QTest::addColumn<QString>("vika");
        QTest::addColumn<bool>("asetuksista");
        QTest::addColumn<QStringList>("vajaat");
        QTest::newRow("katkaistu tiedosto") << "katkaistu" << false
                                            << QStringList{"jmRivi", "jmhist", "jr", "pt"};
        QTest::newRow("jäsenten keskimmäinen sivu") << "jr" << true << QStringList{"jr"};
        QTest::newRow("laskuhistorian juurisivu") << "jmhist" << false << QStringList{"jmhist"};
        QTest::newRow("vain hakemisto") << "hakemisto" << false << QStringList{};
    }
    void vioittunutKorjataan()
    {
        QFETCH(QString, vika);
        QFETCH(bool, asetuksista);
        QFETCH(QStringList, vajaat);
        kerho::luo(kanta, 3000);
        const kerho::Maarat ennen = kerho::rivit(kanta);
        const qint64 suurinJasen = arvo(kanta, QStringLiteral("SELECT MAX(jrID) FROM jr"));
        const qint64 koko = QFileInfo(kanta).size();
        if (vika == QLatin1String("katkaistu")) {
            QVERIFY(QFile::resize(kanta, koko * 6 / 10));
        } else if (vika == QLatin1String("jr")) {
            const auto lehdet = sivut(kanta, QStringLiteral("jr"), QStringLiteral("leaf"));
            kerho::turmele(kanta, (lehdet.at(lehdet.size() / 2) - 1) * kSivu, kSivu);
        } else if (vika == QLatin1String("jmhist")) {
            const auto juuri = sivut(kanta, QStringLiteral("jmhist"), QStringLiteral("internal"));
            kerho::turmele(kanta, (juuri.first() - 1) * kSivu, kSivu);
        } else {
            const auto hakemisto = sivut(kanta, QStringLiteral("jr_jrJasennumeroidx"), QStringLiteral("leaf"));
            kerho::turmele(kanta, (hakemisto.at(1) - 1) * kSivu, kSivu);
        }
        QVERIFY(!kerho::ehja(kanta));
        const QByteArray vioittunut = kerho::sisalto(kanta);

        QVERIFY(KorjaaTietokanta(asetuksista));
        const QStringList viestit = dlg->messages();
        QCOMPARE(viestit.size(), 2);
        QCOMPARE(viestit.first(), asetuksista
                     ? QStringLiteral("Tietokanta on vioittunut edellisen käyttökerran lopetuksen yhteydessä, yritän korjata tietokannan. Odota hetki.")
                     : QStringLiteral("Tietokanta on mahdollisesti vioittunut edellisen käyttökerran lopetuksen yhteydessä, yritän korjata tietokannan. Odota hetki."));
        QVERIFY(viestit.last().contains(QStringLiteral("Vioittunut tietokanta on tallessa nimellä: ") + KorjauksenJaannos(kanta)));
        const QString vajaaLuettelo = QStringLiteral("\nKaikkia rivejä ei saatu luettua tauluista: ");
        const int kohta = viestit.last().indexOf(vajaaLuettelo);
        QStringList kerrotut = kohta < 0 ? QStringList() : viestit.last().mid(kohta + vajaaLuettelo.size()).split(QStringLiteral(", "));
        kerrotut.sort();
        QCOMPARE(kerrotut, vajaat);

        QCOMPARE(kerho::sisalto(KorjauksenJaannos(kanta)), vioittunut);
        QVERIFY(!QFile::exists(KorjauksenTulos(kanta)));
        QVERIFY(kerho::ehja(kanta));
        const kerho::Maarat jalkeen = kerho::rivit(kanta);
        QCOMPARE(jalkeen.keys(), ennen.keys());
        for (auto it = ennen.cbegin(); it != ennen.cend(); ++it) {
            if (vajaat.contains(it.key()))
                QVERIFY2(jalkeen.value(it.key()) < it.value(), qPrintable(it.key()));
            else
                QCOMPARE(jalkeen.value(it.key()), it.value());
        }
        auto d = db::Database::open(kanta);
        if (vika == QLatin1String("jr")) {
            // Rows behind the damaged page were reached again.
            QCOMPARE(d->scalar(QStringLiteral("SELECT MAX(jrID) FROM jr")).toLongLong(), suurinJasen);
            QVERIFY(jalkeen.value(QStringLiteral("jr")) > ennen.value(QStringLiteral("jr")) - 100);
        }
        // Structure and counters came along: indexes, the view, identities never reused.
        QVERIFY(d->indexNames(QStringLiteral("jr")).contains(QStringLiteral("jr_jrJasennumeroidx")));
        QVERIFY(d->viewNames().contains(QStringLiteral("piirteet")));
        QVERIFY(d->reserveId(QStringLiteral("jr")) > suurinJasen);
    }

    // Rows committed to the log before the crash are part of the database and are salvaged; the
    // log goes along with the remainder instead of meeting the repaired file.
    void lokiinKirjoitettuPelastetaan()
    {
        kerho::luo(kanta, 1000);
        const auto lehdet = sivut(kanta, QStringLiteral("jr"), QStringLiteral("leaf"));
        const QString kuva = env->path(QStringLiteral("kaatuessa"));
        QDir().mkpath(kuva);
        {
            auto d = db::Database::open(kanta);
            d->execute(QStringLiteral("PRAGMA wal_autocheckpoint=0"));
            d->execute(QStringLiteral("INSERT INTO jr (jrSukunimi) VALUES ('Lokinen')"));
            QVERIFY(QFile::copy(kanta, kuva + QStringLiteral("/kerho.mdb")));
            QVERIFY(QFile::copy(kanta + QStringLiteral("-wal"), kuva + QStringLiteral("/kerho.mdb-wal")));
        }
        QFile::remove(kanta);
        QVERIFY(QFile::copy(kuva + QStringLiteral("/kerho.mdb"), kanta));
        QVERIFY(QFile::copy(kuva + QStringLiteral("/kerho.mdb-wal"), kanta + QStringLiteral("-wal")));
        kerho::turmele(kanta, (lehdet.first() - 1) * kSivu, kSivu);

        QVERIFY(KorjaaTietokanta(false));
        QVERIFY(!QFile::exists(kanta + QStringLiteral("-wal")));
        QVERIFY(QFile::exists(KorjauksenJaannos(kanta) + QStringLiteral("-wal")));
        QCOMPARE(arvo(kanta, QStringLiteral("SELECT count(*) FROM jr WHERE jrSukunimi = 'Lokinen'")), qint64(1));
        QVERIFY(kerho::ehja(kanta));
    }

    void pelastamatonJaaEnnalleen_data()
    {
        QTest::addColumn<qint64>("kohta");
        QTest::addColumn<int>("maara");
        QTest::newRow("otsakkeen sivukoko") << qint64(16) << 4;
        QTest::newRow("rakenteen sivu") << qint64(100) << kSivu - 100;
    }
    void pelastamatonJaaEnnalleen()
    {
        QFETCH(qint64, kohta);
        QFETCH(int, maara);
        kerho::luo(kanta, 200);
        kerho::turmele(kanta, kohta, maara);
        const QByteArray tavut = kerho::sisalto(kanta);
        QVERIFY(!KorjaaTietokanta(false));
        const QString viimeinen = dlg->messages().last();
        QVERIFY2(viimeinen.startsWith(QStringLiteral("Tietokannan korjaus ei onnistunut. Palauta tietokanta varmuuskopiolta "
                                                      "ennen kuin jatkat Vonarin käyttöä.\n(")),
                 qPrintable(viimeinen));
        QVERIFY(viimeinen.endsWith(QStringLiteral("Tietokantatiedostoa ei ole muutettu: ") + kanta));
        QCOMPARE(kerho::sisalto(kanta), tavut);
        QVERIFY(!QFile::exists(KorjauksenTulos(kanta)));
        QVERIFY(!QFile::exists(KorjauksenJaannos(kanta)));
    }

    void muuTiedostoEiKorjata_data() { kerho::vieraatTiedostot(); }
    void muuTiedostoEiKorjata()
    {
        QFETCH(QByteArray, tavut);
        QFETCH(QString, kerrotaan);
        kerho::kirjoita(kanta, tavut);
        QVERIFY(!KorjaaTietokanta(true));
        QCOMPARE(dlg->shown.size(), 1);
        QCOMPARE(dlg->shown.first().icon, dlg::Icon::Stop);
        QVERIFY2(dlg->shown.first().text.contains(kerrotaan), qPrintable(dlg->shown.first().text));
        QCOMPARE(kerho::sisalto(kanta), tavut);
        QCOMPARE(QDir(env->root()).entryList(QDir::Files), QStringList{QStringLiteral("kerho.mdb")});
    }

    void vioittunuttaEiVoiNimeta()
    {
        kerho::luo(kanta, 1000);
        QVERIFY(QFile::resize(kanta, QFileInfo(kanta).size() / 2));
        const QByteArray tavut = kerho::sisalto(kanta);
        QDir().mkpath(KorjauksenJaannos(kanta) + QStringLiteral("/tiella"));
        QVERIFY(!KorjaaTietokanta(false));
        QVERIFY(dlg->messages().last().startsWith(QStringLiteral("Vioittuneen tietokannan uudelleen nimeäminen ei onnistu.\n")));
        QVERIFY(dlg->messages().last().endsWith(QStringLiteral("Korjattu tietokanta on tallessa nimellä: ") + KorjauksenTulos(kanta)));
        QCOMPARE(kerho::sisalto(kanta), tavut);
        QVERIFY(kerho::ehja(KorjauksenTulos(kanta)));
    }
};

QTEST_GUILESS_MAIN(TestKorjaus)
#include "tst_tietokanta_korjaus.moc"
