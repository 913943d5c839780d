#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "platform/files.h"
#include "scripteddialogs.h"
#include "testenv.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QtTest>
#include <limits>

using namespace MainModule;

namespace {

const QString Ei = QStringLiteral("<ei riviä>");

const QString SettingsTable = QStringLiteral(
    "CREATE TABLE Settings (setID INTEGER PRIMARY KEY AUTOINCREMENT, "
    "setSection VARCHAR(255) CHECK (length(setSection) <= 255), setKey VARCHAR(255) CHECK (length(setKey) <= 255), "
    "setString VARCHAR(255) CHECK (length(setString) <= 255))");

// A club database holding the given VONARI keys; a value of `Ei` leaves the key out.
std::unique_ptr<db::Database> seura(TestEnv &env, const QList<QPair<QString, QString>> &avaimet = {})
{
    DatabasePath = env.path(QStringLiteral("seura.mdb"));
    auto d = db::Database::create(DatabasePath);
    d->execute(SettingsTable);
    for (const auto &[avain, arvo] : avaimet)
        if (arvo != Ei)
            d->execute(QStringLiteral("INSERT INTO Settings (setSection, setKey, setString) VALUES ('VONARI', ?, ?)"),
                       {avain, arvo});
    return d;
}

QVariant kannasta(db::Database &d, const QString &avain)
{
    return d.scalar(QStringLiteral("SELECT setString FROM Settings WHERE setKey = ?"), {avain});
}

void kirjoitaIni(TestEnv &env, const QByteArray &sisalto)
{
    QDir().mkpath(QFileInfo(env.iniPath()).absolutePath());
    QFile f(env.iniPath());
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(sisalto);
}

QString inista(TestEnv &env, const QString &avain)
{
    return QSettings(env.iniPath(), QSettings::IniFormat).value(QStringLiteral("VONARI/") + avain).toString();
}

QString globaali(const QString &avain)
{
    const QHash<QString, QVariant> g{
        {QStringLiteral("EmailSystem"), EmailSystem},       {QStringLiteral("EmailPerMin"), qlonglong(EmailPerMin)},
        {QStringLiteral("VarmuuskopioPv"), qlonglong(VarmuuskopioPv)},
        {QStringLiteral("Muistutuskulut"), Muistutuskulut.toString(4)},
        {QStringLiteral("Viivastyskorko"), Viivastyskorko}, {QStringLiteral("AutoJasennumero"), AutoJasennumero},
        {QStringLiteral("MuistutaVarm"), MuistutaVarm},     {QStringLiteral("FonttiKoko"), FonttiKoko},
        {QStringLiteral("OsoiteMuoto"), OsoiteMuoto},       {QStringLiteral("TulostusEra"), TulostusEra},
        {QStringLiteral("Fontti"), Fontti},                 {QStringLiteral("EmailPohja"), EmailPohja},
        {QStringLiteral("EmailKarhupohja"), EmailKarhupohja}, {QStringLiteral("ViiteHakemisto"), ViiteHakemisto},
        {QStringLiteral("Salasana"), Salasana},             {QStringLiteral("Laskunro"), qlonglong(Laskunro)},
        {QStringLiteral("Jasennro"), qlonglong(Jasennro)}};
    Q_ASSERT(g.contains(avain));
    return g.value(avain).toString();
}

} // namespace

class TestAsetukset : public QObject {
    Q_OBJECT

private slots:
    void tyhjaIniSaaOletukset_data()
    {
        QTest::addColumn<QByteArray>("sisalto");
        QTest::addColumn<bool>("tiedostoOn");
        QTest::newRow("no file") << QByteArray() << false;
        QTest::newRow("empty file") << QByteArray() << true;
        QTest::newRow("empty keys") << QByteArray("[VONARI]\nDatabase=\nDatabaseBackup=\nMultiDb=\n") << true;
    }
    void tyhjaIniSaaOletukset()
    {
        QFETCH(QByteArray, sisalto);
        QFETCH(bool, tiedostoOn);
        TestEnv env;
        ScriptedDialogs dialogs;
        if (tiedostoOn)
            kirjoitaIni(env, sisalto);
        LueIniAsetukset();
        QCOMPARE(DatabasePath, env.programFolder() + QStringLiteral("/demo1.mdb"));
        QCOMPARE(BackupPath, files::defaultBackupFolder());
        QVERIFY(BackupPath.endsWith(QLatin1Char('/')));
        QVERIFY(!MultiDb);
        QCOMPARE(inista(env, QStringLiteral("Database")), DatabasePath);
        QCOMPARE(inista(env, QStringLiteral("DatabaseBackup")), BackupPath);
        QVERIFY(dialogs.shown.isEmpty());
    }

    // A folder given with a trailing slash, and one with blanks, a comma and Finnish letters,
    // still gives one slash before the file and survives the round trip through the file.
    void ohjelmakansionPolkuSailyy_data()
    {
        QTest::addColumn<QString>("kansio");
        QTest::newRow("trailing slash") << QStringLiteral("data/");
        QTest::newRow("blanks, comma, ä") << QStringLiteral("Mäkelä, Matti ry/");
    }
    void ohjelmakansionPolkuSailyy()
    {
        QFETCH(QString, kansio);
        TestEnv env;
        ScriptedDialogs dialogs;
        qputenv("XDG_DATA_HOME", env.path(kansio).toUtf8());
        const QString odotettu = QDir::cleanPath(env.path(kansio)) + QStringLiteral("/Vonari/demo1.mdb");
        QCOMPARE(OletusTietokanta(), odotettu);
        LueIniAsetukset();
        QCOMPARE(DatabasePath, odotettu);
        DatabasePath.clear();
        releaseIniAsetukset();
        LueIniAsetukset();
        QCOMPARE(DatabasePath, odotettu);
    }

    void olemassaOlevatAvaimetLuetaan()
    {
        TestEnv env;
        ScriptedDialogs dialogs;
        kirjoitaIni(env, "[VONARI]\nDatabase=/seurat/Kerho.mdb\nDatabaseBackup=/varmistus\n");
        LueIniAsetukset();
        QCOMPARE(DatabasePath, QStringLiteral("/seurat/Kerho.mdb"));
        QCOMPARE(BackupPath, QStringLiteral("/varmistus/"));
        QCOMPARE(inista(env, QStringLiteral("DatabaseBackup")), QStringLiteral("/varmistus"));
    }

    void moniseuratuki_data()
    {
        QTest::addColumn<QString>("arvo");
        QTest::addColumn<bool>("odotettu");
        QTest::newRow("0") << "0" << false;
        QTest::newRow("0,0") << "0,0" << false;
        QTest::newRow("0.0") << "0.0" << false;
        QTest::newRow("2") << "2" << true;
        QTest::newRow("-1") << "-1" << true;
        QTest::newRow("0,5") << "0,5" << true;
        QTest::newRow("text") << "kyllä" << false;
        QTest::newRow("missing") << Ei << false;
    }
    void moniseuratuki()
    {
        QFETCH(QString, arvo);
        QFETCH(bool, odotettu);
        TestEnv env;
        ScriptedDialogs dialogs;
        kirjoitaIni(env, arvo == Ei ? QByteArray("[VONARI]\n") : "[VONARI]\nMultiDb=" + arvo.toUtf8() + '\n');
        MultiDb = !odotettu;
        LueIniAsetukset();
        QCOMPARE(MultiDb, odotettu);
    }

    // The user is told once, the program goes on with defaults, and the file stays as it was,
    // whatever is written to the store later.
    void viallinenIni_data()
    {
        QTest::addColumn<QByteArray>("sisalto");
        QTest::newRow("open section") << QByteArray("[VONARI\nDatabase=/x.mdb\n");
        QTest::newRow("line without =") << QByteArray("[VONARI]\nDatabase /x.mdb\nMultiDb=1\n");
        QTest::newRow("binary") << QByteArray("\x00\x01\xff[VONARI]\nDatabase=/x.mdb\n", 28);
        QTest::newRow("latin-1") << QByteArray("[VONARI]\nDatabase=/M\xe4kel\xe4.mdb\nMultiDb=1\n");
    }
    void viallinenIni()
    {
        QFETCH(QByteArray, sisalto);
        TestEnv env;
        ScriptedDialogs dialogs;
        kirjoitaIni(env, sisalto);
        LueIniAsetukset();
        QCOMPARE(dialogs.messages().size(), 1);
        QVERIFY(dialogs.messages().first().contains(env.iniPath()));
        QCOMPARE(DatabasePath, OletusTietokanta());
        QVERIFY(!MultiDb);
        QVERIFY(!IniAsetukset().writeString(QStringLiteral("Database"), QStringLiteral("/y.mdb")));
        IniAsetukset().writePlacement(QStringLiteral("frmMain10"), QRect(1, 2, 3, 4));
        QFile f(env.iniPath());
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), sisalto);
    }

    void iniTiedostoOnKansio()
    {
        TestEnv env;
        ScriptedDialogs dialogs;
        QVERIFY(QDir().mkpath(env.iniPath()));
        LueIniAsetukset();
        QCOMPARE(dialogs.messages().size(), 1);
        QCOMPARE(DatabasePath, OletusTietokanta());
        QVERIFY(QFileInfo(env.iniPath()).isDir());
    }

    void kannanAvaimet_data()
    {
        QTest::addColumn<QString>("avain");
        QTest::addColumn<QString>("tallennettu");
        QTest::addColumn<QString>("odotettu");
        QTest::newRow("EmailSystem 1") << "EmailSystem" << "1" << "true";
        QTest::newRow("EmailSystem 1,0") << "EmailSystem" << "1,0" << "true";
        QTest::newRow("EmailSystem 2 like 0") << "EmailSystem" << "2" << "false";
        QTest::newRow("EmailSystem -1") << "EmailSystem" << "-1" << "false";
        QTest::newRow("EmailPerMin text") << "EmailPerMin" << "paljon" << "0";
        QTest::newRow("EmailPerMin 20") << "EmailPerMin" << "20" << "20";
        QTest::newRow("VarmuuskopioPv abc") << "VarmuuskopioPv" << "abc" << "30";
        QTest::newRow("VarmuuskopioPv empty") << "VarmuuskopioPv" << "" << "30";
        QTest::newRow("VarmuuskopioPv missing") << "VarmuuskopioPv" << Ei << "30";
        QTest::newRow("VarmuuskopioPv 12,5 half even") << "VarmuuskopioPv" << "12,5" << "12";
        QTest::newRow("VarmuuskopioPv 13,5 half even") << "VarmuuskopioPv" << "13,5" << "14";
        QTest::newRow("VarmuuskopioPv beyond 32 bits") << "VarmuuskopioPv" << "3000000000" << "30";
        QTest::newRow("Muistutuskulut abc") << "Muistutuskulut" << "abc" << "0,0000";
        QTest::newRow("Muistutuskulut 2,50") << "Muistutuskulut" << "2,50" << "2,5000";
        QTest::newRow("Muistutuskulut 2.5") << "Muistutuskulut" << "2.5" << "2,5000";
        QTest::newRow("Viivastyskorko 7,5") << "Viivastyskorko" << "7,5" << "7.5";
        QTest::newRow("Viivastyskorko text") << "Viivastyskorko" << "x" << "0";
        QTest::newRow("AutoJasennumero -1") << "AutoJasennumero" << "-1" << "true";
        QTest::newRow("AutoJasennumero 0,0") << "AutoJasennumero" << "0,0" << "false";
        QTest::newRow("AutoJasennumero 0,4") << "AutoJasennumero" << "0,4" << "true";
        QTest::newRow("MuistutaVarm text") << "MuistutaVarm" << "kyllä" << "false";
        QTest::newRow("FonttiKoko missing") << "FonttiKoko" << Ei << "10";
        QTest::newRow("FonttiKoko text") << "FonttiKoko" << "iso" << "10";
        QTest::newRow("FonttiKoko beyond 16 bits") << "FonttiKoko" << "40000" << "10";
        QTest::newRow("OsoiteMuoto text") << "OsoiteMuoto" << "x" << "0";
        QTest::newRow("TulostusEra 50") << "TulostusEra" << "50" << "50";
        QTest::newRow("Fontti missing") << "Fontti" << Ei << "Times New Roman";
        QTest::newRow("EmailPohja missing") << "EmailPohja" << Ei << "<kansio>/lasku.txt";
        QTest::newRow("EmailKarhupohja missing") << "EmailKarhupohja" << Ei << "<kansio>/karhu.txt";
        QTest::newRow("ViiteHakemisto missing") << "ViiteHakemisto" << Ei << "<kansio>";
        QTest::newRow("Salasana blanks and ä") << "Salasana" << "  Äijä öljyää ' \" " << "  Äijä öljyää ' \" ";
        QTest::newRow("Laskunro text keeps former") << "Laskunro" << "abc" << "77";
        QTest::newRow("Laskunro missing keeps former") << "Laskunro" << Ei << "77";
        QTest::newRow("Laskunro 12") << "Laskunro" << "12" << "12";
        QTest::newRow("Jasennro empty keeps former") << "Jasennro" << "" << "77";
        QTest::newRow("Jasennro 3000") << "Jasennro" << "3000" << "3000";
    }
    void kannanAvaimet()
    {
        QFETCH(QString, avain);
        QFETCH(QString, tallennettu);
        QFETCH(QString, odotettu);
        TestEnv env;
        auto d = seura(env, {{avain, tallennettu}});
        Laskunro = Jasennro = 77;
        LueAsetukset(*d);
        QCOMPARE(globaali(avain), QString(odotettu).replace(QStringLiteral("<kansio>"), env.programFolder()));
    }

    void varmuuskopioPaiva_data()
    {
        QTest::addColumn<QString>("tallennettu");
        QTest::addColumn<QDate>("odotettu");
        QTest::addColumn<QString>("kantaan");
        const QString tanaan = QDate::currentDate().toString(Qt::ISODate);
        QTest::newRow("empty") << "" << QDate::currentDate() << tanaan;
        QTest::newRow("missing") << Ei << QDate::currentDate() << tanaan;
        QTest::newRow("no date") << "31.2.2023" << QDate::currentDate() << tanaan;
        QTest::newRow("iso") << "2023-05-06" << QDate(2023, 5, 6) << "2023-05-06";
        QTest::newRow("finnish") << "6.5.2023" << QDate(2023, 5, 6) << "6.5.2023";
    }
    void varmuuskopioPaiva()
    {
        QFETCH(QString, tallennettu);
        QFETCH(QDate, odotettu);
        QFETCH(QString, kantaan);
        TestEnv env;
        auto d = seura(env, {{QStringLiteral("BackupDate"), tallennettu}});
        LueAsetukset(*d);
        QCOMPARE(BackupDate, odotettu);
        QCOMPARE(kannasta(*d, QStringLiteral("BackupDate")).toString(), kantaan);
        QCOMPARE(d->scalar(QStringLiteral("SELECT count(*) FROM Settings")).toInt(), 1);
    }

    void marginaalit()
    {
        TestEnv env;
        auto d = seura(env, {{QStringLiteral("MargAla"), QStringLiteral("1")}, {QStringLiteral("MargVas"), QStringLiteral("682")},
                             {QStringLiteral("MargOik"), QStringLiteral("-682")}, {QStringLiteral("MargYla"), QStringLiteral("10")}});
        LueAsetukset(*d);
        QCOMPARE(RaporttiMarginaalit.bottom, 48);
        QCOMPARE(RaporttiMarginaalit.left, 32736);
        QCOMPARE(RaporttiMarginaalit.right, -32736);
        QCOMPARE(RaporttiMarginaalit.top, 480);
    }

    // The overflow comes after every key is in; the margins handed before it stay.
    void marginaalinYlivuoto()
    {
        TestEnv env;
        auto d = seura(env, {{QStringLiteral("MargAla"), QStringLiteral("2")}, {QStringLiteral("MargVas"), QStringLiteral("683")},
                             {QStringLiteral("MargYla"), QStringLiteral("5")}, {QStringLiteral("RegName"), QStringLiteral("Seura")}});
        RaporttiMarginaalit = {7, 7, 7, 7};
        QVERIFY_THROWS_EXCEPTION(db::DbError, LueAsetukset(*d));
        QCOMPARE(RegName, QStringLiteral("Seura"));
        QCOMPARE(MargYla, 5);
        QCOMPARE(RaporttiMarginaalit.bottom, 96);
        QCOMPARE(RaporttiMarginaalit.left, 7);
        QCOMPARE(RaporttiMarginaalit.top, 7);
    }

    // A file opened read-only cannot take today's date, but every key is still read.
    void lukuJatkuuVaikkaPaivaaEiVoiKirjoittaa()
    {
        TestEnv env;
        seura(env, {{QStringLiteral("VarmuuskopioPv"), QStringLiteral("45")}, {QStringLiteral("MargAla"), QStringLiteral("1")}});
        auto d = db::Database::open(DatabasePath, db::OpenMode::ReadOnly);
        QVERIFY_THROWS_EXCEPTION(db::DbError, LueAsetukset(*d));
        QCOMPARE(BackupDate, QDate::currentDate());
        QCOMPARE(VarmuuskopioPv, 45L);
        QCOMPARE(RaporttiMarginaalit.bottom, 48);
    }

    void kantaIlmanAsetustauluaPitaaArvot()
    {
        TestEnv env;
        auto d = db::Database::create(env.path(QStringLiteral("tyhja.mdb")));
        RegName = QStringLiteral("Ennallaan");
        QVERIFY_THROWS_EXCEPTION(db::DbError, LueAsetukset(*d));
        QCOMPARE(RegName, QStringLiteral("Ennallaan"));
    }

    void kantaStoreKirjoittaa()
    {
        TestEnv env;
        auto d = seura(env);
        KantaStore store(*d);
        const QString salasana = QStringLiteral(" sala  Sana ÅÄÖ åäö ");
        store.writeString(QStringLiteral("Salasana"), salasana);
        store.writeString(QStringLiteral("Salasana"), salasana);
        QCOMPARE(d->scalar(QStringLiteral("SELECT count(*) FROM Settings")).toInt(), 1);
        QCOMPARE(KantaStore(*d).readString(QStringLiteral("salasana"), QStringLiteral("x")), salasana);
        QCOMPARE(store.readString(QStringLiteral("Puuttuu"), QStringLiteral("oletus")), QStringLiteral("oletus"));

        KantaStore muu(*d);
        muu.setSection(QStringLiteral("MUU"));
        muu.writeString(QStringLiteral("Salasana"), QStringLiteral("toinen"));
        QCOMPARE(store.readString(QStringLiteral("Salasana")), salasana);
        QCOMPARE(muu.readString(QStringLiteral("Salasana")), QStringLiteral("toinen"));

        // 255 characters fit whatever their UTF-16 length; one more is refused whole.
        const QString emojit = QString::fromUcs4(std::u32string(255, U'\U0001F600').c_str(), 255);
        store.writeString(QStringLiteral("RegName"), emojit);
        QCOMPARE(store.readString(QStringLiteral("RegName")), emojit);
        try {
            store.writeString(QStringLiteral("RegName"), QString(256, QChar(u'ä')));
            QFAIL("too long a value was stored");
        } catch (const db::DbError &e) {
            QCOMPARE(e.kind(), db::ErrorKind::TooLong);
            QVERIFY(e.message().contains(QStringLiteral("RegName")));
        }
        QCOMPARE(store.readString(QStringLiteral("RegName")), emojit);
    }

    void laskunumeroKirjoitetaanHeti()
    {
        TestEnv env;
        auto d = seura(env);
        Laskunro = 41;
        KasvataLaskunumero(*d);
        KasvataLaskunumero(*d);
        QCOMPARE(Laskunro, 43L);
        QCOMPARE(kannasta(*db::Database::open(DatabasePath), QStringLiteral("Laskunro")).toString(), QStringLiteral("43"));
        VahennaLaskunumero(*d);
        QCOMPARE(Laskunro, 42L);
        QCOMPARE(kannasta(*db::Database::open(DatabasePath), QStringLiteral("Laskunro")).toString(), QStringLiteral("42"));
    }

    void laskunumeronYlivuoto()
    {
        TestEnv env;
        auto d = seura(env);
        Laskunro = std::numeric_limits<qint32>::max();
        QVERIFY_THROWS_EXCEPTION(db::DbError, KasvataLaskunumero(*d));
        QCOMPARE(Laskunro, long(std::numeric_limits<qint32>::max()));
        Laskunro = std::numeric_limits<qint32>::min();
        QVERIFY_THROWS_EXCEPTION(db::DbError, VahennaLaskunumero(*d));
        QCOMPARE(Laskunro, long(std::numeric_limits<qint32>::min()));
        QVERIFY(!kannasta(*d, QStringLiteral("Laskunro")).isValid());
    }

    void siirtoKysytaan_data()
    {
        QTest::addColumn<QString>("asKannassa");
        QTest::addColumn<bool>("siirretaan");
        QTest::newRow("moved") << "1" << false;
        QTest::newRow("missing") << Ei << true;
        QTest::newRow("empty") << "" << true;
        QTest::newRow("0") << "0" << true;
        QTest::newRow("1 with blank") << " 1" << true;
    }
    void siirtoKysytaan()
    {
        QFETCH(QString, asKannassa);
        QFETCH(bool, siirretaan);
        TestEnv env;
        ScriptedDialogs dialogs;
        seura(env, {{QStringLiteral("AsKannassa"), asKannassa}, {QStringLiteral("RegName"), QStringLiteral("Uusi")}});
        kirjoitaIni(env, "[VONARI]\nDatabase=" + DatabasePath.toUtf8() +
                             "\nRegName=Vanha seura\nVarmuuskopioPv=abc\nEmailSystem=1\n");
        QStringList tapahtumat;
        const bool loppu = TarkistaAsetustenSiirto([&] {
            tapahtumat << dialogs.messages() << QStringLiteral("ikkunat");
            QCOMPARE(RegName, QStringLiteral("Vanha seura"));
        });
        QCOMPARE(loppu, siirretaan);
        if (!siirretaan) {
            QVERIFY(dialogs.shown.isEmpty());
            QVERIFY(tapahtumat.isEmpty());
            return;
        }
        tapahtumat << dialogs.messages().mid(1);
        QCOMPARE(tapahtumat, QStringList({QStringLiteral("Tietokannasta ei löydy asetuksia.\n"
                                                          "tämä ilmoitus toistu enää seuraavien käynnistyskertojen yhteydessä.\n"
                                                          "Tarkista ja tallenna asetukset Asetukset- ja Lisäasetukset- ikkunoissa."),
                                           QStringLiteral("ikkunat"), QStringLiteral("Käynnistä Vonari nyt uudestaan.")}));
        QCOMPARE(VarmuuskopioPv, 30L);
        QVERIFY(EmailSystem);
        QCOMPARE(inista(env, QStringLiteral("BackupDate")), QDate::currentDate().toString(Qt::ISODate));
        QCOMPARE(inista(env, QStringLiteral("DatabaseBackup")), files::defaultBackupFolder());
    }

    // Several clubs never move, and a database that cannot be read moves at a later start.
    void eiSiirtoa_data()
    {
        QTest::addColumn<int>("tapaus");
        QTest::newRow("several clubs") << 0;
        QTest::newRow("no database file") << 1;
        QTest::newRow("no settings table") << 2;
        QTest::newRow("empty path") << 3;
    }
    void eiSiirtoa()
    {
        QFETCH(int, tapaus);
        TestEnv env;
        ScriptedDialogs dialogs;
        seura(env);
        if (tapaus == 0)
            MultiDb = true;
        if (tapaus == 1)
            DatabasePath = env.path(QStringLiteral("poissa.mdb"));
        if (tapaus == 2) {
            DatabasePath = env.path(QStringLiteral("vanha.mdb"));
            db::Database::create(DatabasePath);
        }
        if (tapaus == 3)
            DatabasePath.clear();
        bool avattu = false;
        QVERIFY(!TarkistaAsetustenSiirto([&] { avattu = true; }));
        QVERIFY(!avattu);
        QVERIFY(dialogs.shown.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestAsetukset)
#include "tst_asetukset.moc"
