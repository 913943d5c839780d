// Repairing a damaged club: what can be read comes back, the damaged file is kept byte for byte,
// and a file that cannot be repaired, renamed or is not ours stays exactly as it was.
#include "core/Korjaus.h"
#include "kerhokanta.h"

using namespace MainModule;

namespace {

const int kSivu = 4096;

// The pages of a table or index, first to last.
QList<qint64> sivut(const QString &polku, const QString &nimi, const QString &tyyppi)
{
    QList<qint64> out;
    auto d = db::Database::open(polku, db::OpenMode::ReadOnly);
    db::Statement st(*d, u"SELECT pageno FROM dbstat WHERE name = ? AND pagetype = ? ORDER BY pageno"_s, {nimi, tyyppi});
    while (st.next())
        out << st.value(0).toLongLong();
    return out;
}

qint64 arvo(const QString &polku, const QString &sql)
{
    return db::Database::open(polku, db::OpenMode::ReadOnly)->scalar(sql).toLongLong();
}

} // namespace

class TestKorjaus : public Testipohja {
    Q_OBJECT

    QString kanta;

private slots:
    void init()
    {
        Testipohja::init();
        kanta = DatabasePath = env->path(u"kerho.mdb"_s);
    }

    // What can be read comes back; the damaged file is kept, byte for byte, as the remainder.
    void vioittunutKorjataan_data()
    {
        QTest::addColumn<QString>("vika");
        QTest::addColumn<bool>("asetuksista");
        QTest::addColumn<QStringList>("vajaat");
        QTest::newRow("katkaistu tiedosto") << "katkaistu" << false << QStringList{"jmRivi", "jmhist", "jr", "pt"};
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
        const qint64 suurinJasen = arvo(kanta, u"SELECT MAX(jrID) FROM jr"_s);
        if (vika == u"katkaistu"_s) {
            QVERIFY(QFile::resize(kanta, QFileInfo(kanta).size() * 6 / 10));
        } else {
            const QList<qint64> s = vika == u"jr"_s       ? sivut(kanta, u"jr"_s, u"leaf"_s)
                                    : vika == u"jmhist"_s ? sivut(kanta, u"jmhist"_s, u"internal"_s).mid(0, 1)
                                                          : sivut(kanta, u"jr_jrJasennumeroidx"_s, u"leaf"_s).mid(1, 1);
            kerho::turmele(kanta, (s.at(s.size() / 2) - 1) * kSivu, kSivu);
        }
        QVERIFY(!kerho::ehja(kanta));
        const QByteArray vioittunut = kerho::sisalto(kanta);

        QVERIFY(KorjaaTietokanta(asetuksista));
        const QStringList viestit = dlg->messages();
        QCOMPARE(viestit.size(), 2);
        QCOMPARE(viestit.first(), u"Tietokanta on %1vioittunut edellisen käyttökerran lopetuksen yhteydessä, yritän korjata "
                                  "tietokannan. Odota hetki."_s.arg(asetuksista ? QString() : u"mahdollisesti "_s));
        QVERIFY(viestit.last().contains(u"Vioittunut tietokanta on tallessa nimellä: "_s + KorjauksenJaannos(kanta)));
        const QString vajaaLuettelo = u"\nKaikkia rivejä ei saatu luettua tauluista: "_s;
        const int kohta = viestit.last().indexOf(vajaaLuettelo);
        QStringList kerrotut = kohta < 0 ? QStringList() : viestit.last().mid(kohta + vajaaLuettelo.size()).split(u", "_s);
        kerrotut.sort();
        QCOMPARE(kerrotut, vajaat);

        QCOMPARE(kerho::sisalto(KorjauksenJaannos(kanta)), vioittunut);
        QVERIFY(!QFile::exists(KorjauksenTulos(kanta)));
        QVERIFY(kerho::ehja(kanta));
        const kerho::Maarat jalkeen = kerho::rivit(kanta);
        QCOMPARE(jalkeen.keys(), ennen.keys());
        for (auto it = ennen.cbegin(); it != ennen.cend(); ++it)
            QVERIFY2(vajaat.contains(it.key()) ? jalkeen.value(it.key()) < it.value() : jalkeen.value(it.key()) == it.value(),
                     qPrintable(it.key()));
        auto d = db::Database::open(kanta);
        if (vika == u"jr"_s) { // rows behind the damaged page were reached again
            QCOMPARE(d->scalar(u"SELECT MAX(jrID) FROM jr"_s).toLongLong(), suurinJasen);
            QVERIFY(jalkeen.value(u"jr"_s) > ennen.value(u"jr"_s) - 100);
        }
        // Structure and counters came along: indexes, the view, identities never reused.
        QVERIFY(d->indexNames(u"jr"_s).contains(u"jr_jrJasennumeroidx"_s));
        QVERIFY(d->viewNames().contains(u"piirteet"_s));
        QVERIFY(d->reserveId(u"jr"_s) > suurinJasen);
    }

    // Rows committed to the log before the crash are part of the database and are salvaged; the
    // log goes along with the remainder instead of meeting the repaired file.
    void lokiinKirjoitettuPelastetaan()
    {
        kerho::luo(kanta, 1000);
        const auto lehdet = sivut(kanta, u"jr"_s, u"leaf"_s);
        const QString kuva = env->path(u"kaatuessa"_s);
        QDir().mkpath(kuva);
        {
            auto d = db::Database::open(kanta);
            d->execute(u"PRAGMA wal_autocheckpoint=0"_s);
            d->execute(u"INSERT INTO jr (jrSukunimi) VALUES ('Lokinen')"_s);
            QVERIFY(QFile::copy(kanta, kuva + u"/kerho.mdb"_s) && QFile::copy(kanta + u"-wal"_s, kuva + u"/kerho.mdb-wal"_s));
        }
        QFile::remove(kanta);
        QVERIFY(QFile::copy(kuva + u"/kerho.mdb"_s, kanta) && QFile::copy(kuva + u"/kerho.mdb-wal"_s, kanta + u"-wal"_s));
        kerho::turmele(kanta, (lehdet.first() - 1) * kSivu, kSivu);

        QVERIFY(KorjaaTietokanta(false));
        QVERIFY(!QFile::exists(kanta + u"-wal"_s));
        QVERIFY(QFile::exists(KorjauksenJaannos(kanta) + u"-wal"_s));
        QCOMPARE(arvo(kanta, u"SELECT count(*) FROM jr WHERE jrSukunimi = 'Lokinen'"_s), qint64(1));
        QVERIFY(kerho::ehja(kanta));
    }

    // Past repair (the header's page size, the structure's page), or the remainder's name taken:
    // told, and the club's file left as it was.
    void eiKorjattavissa_data()
    {
        QTest::addColumn<qint64>("kohta"); // -1: the file cut in half, its remainder's name taken
        QTest::addColumn<int>("maara");
        QTest::newRow("otsakkeen sivukoko") << qint64(16) << 4;
        QTest::newRow("rakenteen sivu") << qint64(100) << kSivu - 100;
        QTest::newRow("jäännöksen nimi varattu") << qint64(-1) << 0;
    }
    void eiKorjattavissa()
    {
        QFETCH(qint64, kohta);
        QFETCH(int, maara);
        kerho::luo(kanta, kohta < 0 ? 1000 : 200);
        if (kohta < 0) {
            QVERIFY(QFile::resize(kanta, QFileInfo(kanta).size() / 2));
            QDir().mkpath(KorjauksenJaannos(kanta) + u"/tiella"_s);
        } else {
            kerho::turmele(kanta, kohta, maara);
        }
        const QByteArray tavut = kerho::sisalto(kanta);
        QVERIFY(!KorjaaTietokanta(false));
        const QString viimeinen = dlg->messages().last();
        QCOMPARE(kerho::sisalto(kanta), tavut);
        if (kohta < 0) {
            QVERIFY(viimeinen.startsWith(u"Vioittuneen tietokannan uudelleen nimeäminen ei onnistu.\n"_s));
            QVERIFY(viimeinen.endsWith(u"Korjattu tietokanta on tallessa nimellä: "_s + KorjauksenTulos(kanta)));
            QVERIFY(kerho::ehja(KorjauksenTulos(kanta)));
            return;
        }
        QVERIFY2(viimeinen.startsWith(u"Tietokannan korjaus ei onnistunut. Palauta tietokanta varmuuskopiolta "
                                      "ennen kuin jatkat Vonarin käyttöä.\n("_s), qPrintable(viimeinen));
        QVERIFY(viimeinen.endsWith(u"Tietokantatiedostoa ei ole muutettu: "_s + kanta));
        QVERIFY(!QFile::exists(KorjauksenTulos(kanta)) && !QFile::exists(KorjauksenJaannos(kanta)));
    }

    void muuTiedostoEiKorjata_data() { kerho::vieraatTiedostot(); }
    void muuTiedostoEiKorjata()
    {
        QFETCH(QByteArray, tavut);
        QFETCH(QString, kerrotaan);
        testi::tiedosto(kanta, tavut);
        QVERIFY(!KorjaaTietokanta(true));
        QCOMPARE(dlg->shown.size(), 1);
        QCOMPARE(dlg->shown.first().icon, dlg::Icon::Stop);
        QVERIFY2(dlg->shown.first().text.contains(kerrotaan), qPrintable(dlg->shown.first().text));
        QCOMPARE(kerho::sisalto(kanta), tavut);
        QCOMPARE(QDir(env->root()).entryList(QDir::Files), QStringList{u"kerho.mdb"_s});
    }
};

QTEST_GUILESS_MAIN(TestKorjaus)
#include "tst_tietokanta_korjaus.moc"
