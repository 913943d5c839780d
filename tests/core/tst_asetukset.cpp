// Reading the settings: the workstation's INI file, the club's keys with the values older
// programs left in them, the counters written at once, and the move of older settings.
#include "core/AsetuksetIni.h"
#include "core/AsetustenSiirto.h"
#include "malliseura.h"
#include "ydinapu.h"

#include <limits>

using namespace MainModule;
using ydin::iniArvo;

namespace {

const QString Ei = u"<ei riviä>"_s;

// A club database holding the given VONARI keys; a value of `Ei` leaves the key out.
std::unique_ptr<db::Database> seura(TestEnv &env, const QList<QPair<QString, QString>> &avaimet = {})
{
    DatabasePath = env.path(u"seura.mdb"_s);
    auto d = malliseura::kopio(DatabasePath);
    for (const auto &[avain, arvo] : avaimet)
        if (arvo != Ei)
            d->execute(u"INSERT INTO Settings (setSection, setKey, setString) VALUES ('VONARI', ?, ?)"_s, {avain, arvo});
    return d;
}

void kirjoitaIni(TestEnv &env, const QByteArray &sisalto)
{
    QDir().mkpath(QFileInfo(env.iniPath()).absolutePath());
    testi::tiedosto(env.iniPath(), sisalto);
}

} // namespace

class TestAsetukset : public Testipohja {
    Q_OBJECT

private slots:
    // One slash before the file, and the path survives the file's round trip; the several clubs
    // mode takes any number but zero.
    void ohjelmakansioJaMoniseuratuki()
    {
        qputenv("XDG_DATA_HOME", env->path(u"Mäkelä, Matti ry/"_s).toUtf8());
        const QString odotettu = QDir::cleanPath(env->path(u"Mäkelä, Matti ry"_s)) + u"/Vonari/demo1.mdb"_s;
        LueIniAsetukset();
        QCOMPARE(DatabasePath, odotettu);
        releaseIniAsetukset();
        DatabasePath.clear();
        LueIniAsetukset();
        QCOMPARE(DatabasePath, odotettu);
        for (const auto &[arvo, odotus] : {std::pair{"0,0", false}, {"2", true}, {"kyllä", false}}) {
            kirjoitaIni(*env, QByteArray("[VONARI]\nMultiDb=") + arvo + '\n');
            releaseIniAsetukset();
            MultiDb = !odotus;
            LueIniAsetukset();
            QVERIFY2(MultiDb == odotus, arvo);
        }
    }

    // Told once, defaults used, and the file left as it was whatever is written later.
    void viallinenIni_data()
    {
        QTest::addColumn<QByteArray>("sisalto");
        QTest::newRow("line without =") << QByteArray("[VONARI]\nDatabase /x.mdb\nMultiDb=1\n");
        QTest::newRow("latin-1") << QByteArray("[VONARI]\nDatabase=/M\xe4kel\xe4.mdb\nMultiDb=1\n");
    }
    void viallinenIni()
    {
        QFETCH(QByteArray, sisalto);
        kirjoitaIni(*env, sisalto);
        LueIniAsetukset();
        QCOMPARE(dlg->messages().size(), 1);
        QVERIFY(dlg->messages().first().contains(env->iniPath()));
        QCOMPARE(DatabasePath, OletusTietokanta());
        QVERIFY(!MultiDb);
        QVERIFY(!IniAsetukset().writeString(u"Database"_s, u"/y.mdb"_s));
        IniAsetukset().writePlacement(u"frmMain10"_s, QRect(1, 2, 3, 4));
        QFile f(env->iniPath());
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), sisalto);
    }

    void kannanAvaimet_data()
    {
        QTest::addColumn<QString>("avain");
        QTest::addColumn<QString>("tallennettu");
        QTest::addColumn<QString>("odotettu");
        const auto rivi = [](const char *nimi, const QString &avain, const QString &arvo, const QString &odotettu) {
            QTest::newRow(nimi) << avain << arvo << odotettu;
        };
        rivi("EmailSystem 2 like 0", u"EmailSystem"_s, u"2"_s, u"false"_s);
        rivi("EmailPerMin text", u"EmailPerMin"_s, u"paljon"_s, u"0"_s);
        rivi("VarmuuskopioPv 12,5 half even", u"VarmuuskopioPv"_s, u"12,5"_s, u"12"_s);
        rivi("AutoJasennumero -0,4", u"AutoJasennumero"_s, u"-0,4"_s, u"true"_s);
        rivi("Fontti missing", u"Fontti"_s, Ei, u"Times New Roman"_s);
        rivi("Salasana blanks and ä", u"Salasana"_s, u"  Äijä öljyää ' \" "_s, u"  Äijä öljyää ' \" "_s);
        rivi("Laskunro text keeps former", u"Laskunro"_s, u"abc"_s, u"77"_s);
    }
    void kannanAvaimet()
    {
        QFETCH(QString, avain);
        QFETCH(QString, tallennettu);
        QFETCH(QString, odotettu);
        auto d = seura(*env, {{avain, tallennettu}});
        Laskunro = Jasennro = 77;
        LueAsetukset(*d);
        const QHash<QString, QVariant> g{{u"EmailSystem"_s, EmailSystem}, {u"EmailPerMin"_s, qlonglong(EmailPerMin)},
                                         {u"VarmuuskopioPv"_s, qlonglong(VarmuuskopioPv)}, {u"AutoJasennumero"_s, AutoJasennumero},
                                         {u"Fontti"_s, Fontti}, {u"Salasana"_s, Salasana}, {u"Laskunro"_s, qlonglong(Laskunro)}};
        QVERIFY(g.contains(avain));
        QCOMPARE(g.value(avain).toString(), odotettu);
    }

    // A missing or unreadable date becomes today's and is written; a readable one stays as it is.
    void varmuuskopioPaiva_data()
    {
        QTest::addColumn<QString>("tallennettu");
        QTest::addColumn<QDate>("odotettu");
        QTest::addColumn<QString>("kantaan");
        const QDate tanaan = kello::tanaan();
        QTest::newRow("missing") << Ei << tanaan << tanaan.toString(Qt::ISODate);
        QTest::newRow("no date") << u"31.2.2023"_s << tanaan << tanaan.toString(Qt::ISODate);
        QTest::newRow("finnish") << u"6.5.2023"_s << QDate(2023, 5, 6) << u"6.5.2023"_s;
    }
    void varmuuskopioPaiva()
    {
        QFETCH(QString, tallennettu);
        QFETCH(QDate, odotettu);
        QFETCH(QString, kantaan);
        auto d = seura(*env, {{u"BackupDate"_s, tallennettu}});
        LueAsetukset(*d);
        QCOMPARE(BackupDate, odotettu);
        QCOMPARE(ydin::kannanAsetus(DatabasePath, u"BackupDate"_s), kantaan);
        QCOMPARE(d->scalar(u"SELECT count(*) FROM Settings"_s).toInt(), 1);
    }

    // The margins go over in the order bottom, left, right, top; an overflow stops there, after
    // every key is in. A file opened read-only cannot take today's date, but every key is read.
    void marginaalitJaLukuVirheesta()
    {
        auto d = seura(*env, {{u"MargAla"_s, u"1"_s}, {u"MargVas"_s, u"682"_s}, {u"MargOik"_s, u"-682"_s}, {u"MargYla"_s, u"10"_s}});
        LueAsetukset(*d);
        QCOMPARE(RaporttiMarginaalit.bottom, 48);
        QCOMPARE(RaporttiMarginaalit.left, 32736);
        QCOMPARE(RaporttiMarginaalit.right, -32736);
        QCOMPARE(RaporttiMarginaalit.top, 480);
        d->execute(u"UPDATE Settings SET setString = '683' WHERE setKey = 'MargOik'"_s);
        d->execute(u"INSERT INTO Settings (setSection, setKey, setString) VALUES ('VONARI', 'RegName', 'Seura')"_s);
        RaporttiMarginaalit.right = RaporttiMarginaalit.top = 7;
        QVERIFY_THROWS_EXCEPTION(db::DbError, LueAsetukset(*d));
        QCOMPARE(RegName, u"Seura"_s);
        QCOMPARE(RaporttiMarginaalit.left, 32736);
        QCOMPARE(RaporttiMarginaalit.right, 7);
        QCOMPARE(RaporttiMarginaalit.top, 7);

        d.reset();
        QFile::remove(DatabasePath);
        resetGlobals();
        seura(*env, {{u"VarmuuskopioPv"_s, u"45"_s}, {u"MargAla"_s, u"2"_s}});
        auto luku = db::Database::open(DatabasePath, db::OpenMode::ReadOnly);
        QVERIFY_THROWS_EXCEPTION(db::DbError, LueAsetukset(*luku));
        QCOMPARE(BackupDate, kello::tanaan());
        QCOMPARE(VarmuuskopioPv, 45L);
        QCOMPARE(RaporttiMarginaalit.bottom, 96);
    }

    void kantaStoreKirjoittaa()
    {
        auto d = seura(*env);
        KantaStore store(*d);
        const QString salasana = u" sala  Sana ÅÄÖ åäö "_s;
        store.writeString(u"Salasana"_s, salasana);
        store.writeString(u"Salasana"_s, salasana);
        QCOMPARE(d->scalar(u"SELECT count(*) FROM Settings"_s).toInt(), 1);
        QCOMPARE(KantaStore(*d).readString(u"salasana"_s, u"x"_s), salasana);
        QCOMPARE(store.readString(u"Puuttuu"_s, u"oletus"_s), u"oletus"_s);
        // 255 characters fit whatever their UTF-16 length; one more is refused whole.
        const QString emojit = QString::fromUcs4(std::u32string(255, U'\U0001F600').c_str(), 255);
        store.writeString(u"RegName"_s, emojit);
        try {
            store.writeString(u"RegName"_s, QString(256, u'ä'));
            QFAIL("too long a value was stored");
        } catch (const db::DbError &e) {
            QCOMPARE(e.kind(), db::ErrorKind::TooLong);
            QVERIFY(e.message().contains(u"RegName"_s));
        }
        QCOMPARE(store.readString(u"RegName"_s), emojit);
    }

    void laskunumeroKirjoitetaanHeti()
    {
        auto d = seura(*env);
        Laskunro = 41;
        KasvataLaskunumero(*d);
        KasvataLaskunumero(*d);
        QCOMPARE(ydin::kannanAsetus(DatabasePath, u"Laskunro"_s), u"43"_s);
        VahennaLaskunumero(*d);
        QCOMPARE(Laskunro, 42L);
        QCOMPARE(ydin::kannanAsetus(DatabasePath, u"Laskunro"_s), u"42"_s);
        Laskunro = std::numeric_limits<qint32>::max();
        QVERIFY_THROWS_EXCEPTION(db::DbError, KasvataLaskunumero(*d));
        QCOMPARE(Laskunro, long(std::numeric_limits<qint32>::max()));
        Laskunro = std::numeric_limits<qint32>::min();
        QVERIFY_THROWS_EXCEPTION(db::DbError, VahennaLaskunumero(*d));
        QCOMPARE(ydin::kannanAsetus(DatabasePath, u"Laskunro"_s), u"42"_s);
    }

    void siirtoKysytaan_data()
    {
        QTest::addColumn<QString>("asKannassa");
        QTest::newRow("missing") << Ei;
        QTest::newRow("0") << u"0"_s;
    }
    void siirtoKysytaan()
    {
        QFETCH(QString, asKannassa);
        seura(*env, {{u"AsKannassa"_s, asKannassa}, {u"RegName"_s, u"Uusi"_s}});
        kirjoitaIni(*env, "[VONARI]\nDatabase=" + DatabasePath.toUtf8() + "\nRegName=Vanha seura\nVarmuuskopioPv=abc\nEmailSystem=1\n");
        QStringList tapahtumat;
        QVERIFY(TarkistaAsetustenSiirto([&] {
            tapahtumat << dlg->messages() << u"ikkunat"_s;
            QCOMPARE(RegName, u"Vanha seura"_s);
        }));
        tapahtumat << dlg->messages().mid(1);
        QCOMPARE(tapahtumat, QStringList({u"Tietokannasta ei löydy asetuksia.\n"
                                          "tämä ilmoitus toistu enää seuraavien käynnistyskertojen yhteydessä.\n"
                                          "Tarkista ja tallenna asetukset Asetukset- ja Lisäasetukset- ikkunoissa."_s,
                                          u"ikkunat"_s, u"Käynnistä Vonari nyt uudestaan."_s}));
        QCOMPARE(VarmuuskopioPv, 30L);
        QVERIFY(EmailSystem);
        QCOMPARE(iniArvo(*env, u"BackupDate"_s), kello::tanaan().toString(Qt::ISODate));
        QCOMPARE(iniArvo(*env, u"DatabaseBackup"_s), files::defaultBackupFolder());
    }

    // Moved settings stay, several clubs never move, and a database that cannot be read moves
    // at a later start.
    void eiSiirtoa()
    {
        for (int tapaus = 0; tapaus < 5; ++tapaus) {
            seura(*env, {{u"AsKannassa"_s, tapaus == 4 ? u"1"_s : Ei}});
            MultiDb = tapaus == 0;
            if (tapaus == 1)
                DatabasePath = env->path(u"poissa.mdb"_s);
            if (tapaus == 2)
                db::Database::create(DatabasePath = env->path(u"vanha%1.mdb"_s.arg(tapaus)));
            if (tapaus == 3)
                DatabasePath.clear();
            bool avattu = false;
            QVERIFY2(!TarkistaAsetustenSiirto([&] { avattu = true; }), qPrintable(QString::number(tapaus)));
            QVERIFY(!avattu && dlg->shown.isEmpty());
            QFile::remove(env->path(u"seura.mdb"_s));
        }
    }
};

QTEST_GUILESS_MAIN(TestAsetukset)
#include "tst_asetukset.moc"
