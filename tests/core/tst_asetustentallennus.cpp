#include "core/AsetustenTallennus.h"
#include "core/Asetukset.h"
#include "core/Asetusavaimet.h"
#include "core/MainModule.h"
#include "platform/database.h"
#include "platform/files.h"
#include "platform/mxlookup.h"
#include "kerhokanta.h"
#include "malliseura.h"
#include "testipohja.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QtTest>

namespace M = MainModule;
using namespace Qt::StringLiterals;

namespace {

// The club keys in the order the save writes them.
const QStringList kAvaimet = {
    QStringLiteral("AsKannassa"), QStringLiteral("RegName"), QStringLiteral("Henkilo"), QStringLiteral("RegOsoite"),
    QStringLiteral("RegPostinumero"), QStringLiteral("RegPostitoimipaikka"), QStringLiteral("RegPuhelin"),
    QStringLiteral("RegFax"), QStringLiteral("RegSeuranEmail"), QStringLiteral("RegWWW"), QStringLiteral("Email"),
    QStringLiteral("EmailSystem"), QStringLiteral("EmailPerMin"), QStringLiteral("SMTP"),
    QStringLiteral("RegPankkiyhteys1"), QStringLiteral("RegPankkiyhteys2"), QStringLiteral("YTunnus"),
    QStringLiteral("Salasana"), QStringLiteral("EmailPohja"), QStringLiteral("EmailKarhupohja"),
    QStringLiteral("MultiDb"), QStringLiteral("MargYla"), QStringLiteral("MargAla"), QStringLiteral("MargVas"),
    QStringLiteral("MargOik"), QStringLiteral("TulostusEra"), QStringLiteral("Laskunro"), QStringLiteral("Jasennro"),
    QStringLiteral("VarmuuskopioPv"), QStringLiteral("Fontti"), QStringLiteral("FonttiKoko"),
    QStringLiteral("AutoJasennumero"), QStringLiteral("MuistutaVarm"), QStringLiteral("LaskupohjaKaytossa"),
    QStringLiteral("LaskupohjaHKaytossa"), QStringLiteral("LaskupohjaTiedosto"), QStringLiteral("LaskupohjaHTiedosto"),
    QStringLiteral("Muistutuskulut"), QStringLiteral("Viivastyskorko"), QStringLiteral("MuistutusAlku"),
    QStringLiteral("MuistutusLoppu"), QStringLiteral("MuistutusOtsake")};

// The checked number fields of the window by name.
QString AsetuksetSyote::*numerokentta(const QString &nimi)
{
    static const QHash<QString, QString AsetuksetSyote::*> kentat = {
        {QStringLiteral("tEmailPerMin"), &AsetuksetSyote::tEmailPerMin},
        {QStringLiteral("tMargYla"), &AsetuksetSyote::tMargYla},
        {QStringLiteral("tMargAla"), &AsetuksetSyote::tMargAla},
        {QStringLiteral("tMargVas"), &AsetuksetSyote::tMargVas},
        {QStringLiteral("tMargOik"), &AsetuksetSyote::tMargOik},
        {QStringLiteral("tTulostusEra"), &AsetuksetSyote::tTulostusEra},
        {QStringLiteral("tLaskunumero"), &AsetuksetSyote::tLaskunumero},
        {QStringLiteral("tJasennumero"), &AsetuksetSyote::tJasennumero},
        {QStringLiteral("tVarmuuskopioPv"), &AsetuksetSyote::tVarmuuskopioPv},
        {QStringLiteral("tMuistutuskulut"), &AsetuksetSyote::tMuistutuskulut},
        {QStringLiteral("tViivastysKorko"), &AsetuksetSyote::tViivastysKorko},
    };
    return kentat.value(nimi);
}

QString teeKanta(const TestEnv &env)
{
    const QString polku = env.path(QStringLiteral("seura.mdb"));
    malliseura::kopio(polku);
    return polku;
}

QMap<QString, QString> kannanAsetukset(const QString &polku)
{
    QMap<QString, QString> out;
    auto d = db::Database::open(polku);
    db::Statement st(*d, QStringLiteral("SELECT setKey, setString FROM Settings WHERE setSection = 'VONARI'"));
    while (st.next())
        out.insert(st.value(0).toString(), st.value(1).toString());
    return out;
}

QString iniArvo(const TestEnv &env, const QString &avain)
{
    QSettings ini(env.iniPath(), QSettings::IniFormat);
    return ini.value(QStringLiteral("VONARI/") + avain).toString();
}

AsetuksetSyote hyvat(const QString &kanta, const QString &varmistus)
{
    AsetuksetSyote s;
    s.tNimi = QStringLiteral("Äänekosken Latu ry");
    s.optEmailSystem = 1;
    s.tEmailPerMin = QStringLiteral("30");
    s.tTietokanta = kanta;
    s.tVarmistus = varmistus;
    s.chkMoniseuratuki = true;
    s.tLaskunumero = QStringLiteral("1200");
    s.tJasennumero = QStringLiteral("350");
    s.chkJasennumero = true;
    s.tVarmuuskopioPv = QStringLiteral("14");
    s.chkMuistutaVarmistuksesta = true;
    s.tSalasana = QStringLiteral("O'Brien; --");
    s.tMuistutuskulut = QStringLiteral("5,00");
    s.tViivastysKorko = QStringLiteral("7,5");
    s.tMuistutusOtsake = QStringLiteral("MAKSUMUISTUTUS");
    s.tMuistutusLopputeksti = QStringLiteral("Jos olet jo maksanut, tämä muistutus on aiheeton.");
    s.tTulostusEra = QStringLiteral("50");
    s.cmbFonts = QStringLiteral("DejaVu Serif");
    s.cmbFonttiKoko = QStringLiteral("11");
    s.tMargVas = QStringLiteral("10");
    s.tMargOik = QStringLiteral("11");
    s.tMargYla = QStringLiteral("12");
    s.tMargAla = QStringLiteral("13");
    s.chkLaskupohjaKaytossa = true;
    return s;
}

} // namespace

class TestAsetustenTallennus : public Testipohja {
    Q_OBJECT

private slots:
    void kaikkiAsetuksetTallentuvat()
    {
        const QString kanta = teeKanta(*env);
        const AsetustenTallennusTulos tulos = TallennaAsetukset(hyvat(kanta, env->path(QStringLiteral("varmistus"))));

        QVERIFY(tulos.valmis);
        QVERIFY(tulos.kohdistus.isEmpty());
        QCOMPARE(dlg->allTexts(), QStringList());

        const auto arvot = kannanAsetukset(kanta);
        QCOMPARE(arvot.value(QStringLiteral("AsKannassa")), QStringLiteral("1"));
        QCOMPARE(arvot.value(QStringLiteral("Salasana")), QStringLiteral("O'Brien; --"));
        QCOMPARE(arvot.value(QStringLiteral("LaskupohjaHKaytossa")), QStringLiteral("0"));
        QCOMPARE(arvot.value(QStringLiteral("Muistutuskulut")), QStringLiteral("5,00"));
        for (const QString &avain : kAvaimet)
            QVERIFY2(arvot.contains(avain), qPrintable(avain));
        QCOMPARE(iniArvo(*env, QStringLiteral("Database")), kanta);
        QCOMPARE(iniArvo(*env, QStringLiteral("MultiDb")), QStringLiteral("1"));

        // The save sets the globals at once, and the next start reads the same back.
        const auto tila = [] {
            return QStringList{M::RegName, QString::number(M::EmailSystem), QString::number(M::EmailPerMin),
                               QString::number(M::Laskunro), QString::number(M::Jasennro),
                               QString::number(M::VarmuuskopioPv), QString::number(M::AutoJasennumero),
                               QString::number(M::MuistutaVarm), M::Muistutuskulut.toString(4),
                               QString::number(M::Viivastyskorko), M::Fontti, QString::number(M::FonttiKoko),
                               QString::number(M::RaporttiMarginaalit.top), QString::number(M::RaporttiMarginaalit.bottom),
                               QString::number(M::RaporttiMarginaalit.left), QString::number(M::LaskupohjaKaytossa),
                               QString::number(M::LaskupohjaHKaytossa), M::MuistutusLoppu};
        };
        const QStringList tallennettu = tila();
        QCOMPARE(tallennettu,
                 (QStringList{u"Äänekosken Latu ry"_s, u"1"_s, u"30"_s, u"1200"_s, u"350"_s, u"14"_s, u"1"_s, u"1"_s,
                              u"5,0000"_s, u"7.5"_s, u"DejaVu Serif"_s, u"11"_s, QString::number(12 * 48),
                              QString::number(13 * 48), QString::number(10 * 48), u"1"_s, u"0"_s,
                              u"Jos olet jo maksanut, tämä muistutus on aiheeton."_s}));
        QCOMPARE(M::DatabasePath, kanta);
        M::resetGlobals();
        LueAsetukset(*db::Database::open(kanta));
        QCOMPARE(tila(), tallennettu);
    }

    // What the two settings windows write is what the start reads: every stored key stands in the
    // table of settings, and every club key of the table but those the windows do not own is written.
    void tallennetutAvaimetOvatLuettavia()
    {
        const QString kanta = teeKanta(*env);
        QVERIFY(TallennaAsetukset(hyvat(kanta, env->path(QStringLiteral("varmistus")))).valmis);
        LisaasetuksetSyote lisa;
        lisa.tSuoritustiedosto = QStringLiteral("/pankki/viitteet.txt");
        QVERIFY(TallennaLisaasetukset(lisa));

        QStringList taulussa;
        for (const Asetusavain &a : Asetusavaimet())
            taulussa << a.nimiTekstina();
        const QStringList tallennetut = kannanAsetukset(kanta).keys();
        for (const QString &avain : tallennetut) {
            if (avain == QLatin1String("AsKannassa")) // the mark of the move from the INI file
                continue;
            QVERIFY2(taulussa.contains(avain), qPrintable(avain));
        }
        const QStringList eiIkkunoilta = {QStringLiteral("BackupDate"), QStringLiteral("ViiteHakemisto")};
        for (const Asetusavain &a : Asetusavaimet())
            if (a.varasto == AsetusVarasto::Kanta && !eiIkkunoilta.contains(a.nimiTekstina()))
                QVERIFY2(tallennetut.contains(a.nimiTekstina()), a.nimi);
    }

    // The first bad number stops the save at its turn: the keys before it are stored, it and
    // the keys after it are not, and the focus goes to its field.
    void huonoNumeroPysayttaaVuorollaan_data()
    {
        QTest::addColumn<QString>("kentta");
        QTest::addColumn<QString>("avain");
        QTest::addColumn<QString>("viesti");
        const QString marginaali = QStringLiteral("Syötä marginaaliksi ainoastaan numeroita.");
        QTest::newRow("viestejä/min") << "tEmailPerMin" << "EmailPerMin"
                                      << "Syötä (sähköposti) viestejä / min arvoksi ainoastaan numeroita.";
        QTest::newRow("ylämarginaali") << "tMargYla" << "MargYla" << marginaali;
        QTest::newRow("oikea marginaali") << "tMargOik" << "MargOik" << marginaali;
        QTest::newRow("tulostuserä") << "tTulostusEra" << "TulostusEra" << "Syötä tulostuseräksi ainoastaan numeroita.";
        QTest::newRow("laskunumero") << "tLaskunumero" << "Laskunro" << "Syötä laskunumeroksi ainoastaan numeroita.";
        QTest::newRow("jäsennumero") << "tJasennumero" << "Jasennro" << "Syötä jäsennumeroksi ainoastaan numeroita.";
        QTest::newRow("varmuuskopiot") << "tVarmuuskopioPv" << "VarmuuskopioPv"
                                       << "Syötä Varmuuskopiot -kenttään ainoastaan numeroita.";
        QTest::newRow("muistutuskulut") << "tMuistutuskulut" << "Muistutuskulut"
                                        << "Syötä muistutuskuluksi ainoastaan numeroita.";
        QTest::newRow("viivästyskorko") << "tViivastysKorko" << "Viivastyskorko"
                                        << "Syötä viivästyskoroksi ainoastaan numeroita.";
    }

    void huonoNumeroPysayttaaVuorollaan()
    {
        QFETCH(QString, kentta);
        QFETCH(QString, avain);
        QFETCH(QString, viesti);
        const QString kanta = teeKanta(*env);
        AsetuksetSyote s = hyvat(kanta, env->path(QStringLiteral("varmistus/")));
        s.*numerokentta(kentta) = QStringLiteral("12x");
        M::Laskunro = 77;

        const AsetustenTallennusTulos tulos = TallennaAsetukset(s);

        QVERIFY(!tulos.valmis);
        QCOMPARE(tulos.kohdistus, kentta);
        QCOMPARE(dlg->allTexts(), QStringList{viesti});
        const auto arvot = kannanAsetukset(kanta);
        const qsizetype vuoro = kAvaimet.indexOf(avain);
        QVERIFY(vuoro > 0);
        for (qsizetype i = 0; i < kAvaimet.size(); ++i)
            QVERIFY2(arvot.contains(kAvaimet[i]) == (i < vuoro), qPrintable(kAvaimet[i]));
        // The globals follow the store: set up to the stop, untouched after it.
        QCOMPARE(M::RegName, s.tNimi);
        if (kAvaimet.indexOf(QStringLiteral("Laskunro")) >= vuoro)
            QCOMPARE(M::Laskunro, 77L);
    }

    void lukujenMuodot_data()
    {
        QTest::addColumn<QString>("kentta");
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<bool>("kelpaa");
        QTest::addColumn<QString>("avain");
        QTest::addColumn<QString>("tallennettu");
        QTest::newRow("välilyönnit pois") << "tLaskunumero" << " 1 200 " << true << "Laskunro" << "1200";
        QTest::newRow("suurin laskunumero") << "tLaskunumero" << "2147483647" << true << "Laskunro" << "2147483647";
        QTest::newRow("laskunumero yli 32 bitin") << "tLaskunumero" << "2147483648" << false << "Laskunro" << "";
        QTest::newRow("desimaalit numerossa") << "tJasennumero" << "12,5" << false << "Jasennro" << "";
        QTest::newRow("miinusmerkki") << "tVarmuuskopioPv" << "-3" << false << "VarmuuskopioPv" << "";
        QTest::newRow("tyhjä marginaali") << "tMargAla" << "" << false << "MargAla" << "";
        QTest::newRow("suurin marginaali") << "tMargYla" << "682" << true << "MargYla" << "682";
        QTest::newRow("marginaali ylivuotaa") << "tMargYla" << "683" << false << "MargYla" << "";
        QTest::newRow("erä ylivuotaa") << "tTulostusEra" << "32768" << false << "TulostusEra" << "";
        QTest::newRow("kulut pisteellä") << "tMuistutuskulut" << "2.5" << true << "Muistutuskulut" << "2.5";
        QTest::newRow("kulut negatiiviset") << "tMuistutuskulut" << "-1" << false << "Muistutuskulut" << "";
        QTest::newRow("korko pilkulla") << "tViivastysKorko" << " 8,25 " << true << "Viivastyskorko" << "8,25";
    }

    void lukujenMuodot()
    {
        QFETCH(QString, kentta);
        QFETCH(QString, teksti);
        QFETCH(bool, kelpaa);
        QFETCH(QString, avain);
        QFETCH(QString, tallennettu);
        const QString kanta = teeKanta(*env);
        AsetuksetSyote s = hyvat(kanta, env->path(QStringLiteral("varmistus/")));
        s.*numerokentta(kentta) = teksti;

        const AsetustenTallennusTulos tulos = TallennaAsetukset(s);

        QCOMPARE(tulos.valmis, kelpaa);
        QCOMPARE(dlg->messages().size(), kelpaa ? 0 : 1);
        QCOMPARE(kannanAsetukset(kanta).value(avain), tallennettu);
        if (avain == QLatin1String("Muistutuskulut") && kelpaa)
            QCOMPARE(M::Muistutuskulut, Currency::fromRaw(25000));
        if (avain == QLatin1String("Viivastyskorko") && kelpaa)
            QCOMPARE(M::Viivastyskorko, 8.25);
    }

    void varmistushakemistoPaattyyKauttaviivaan_data()
    {
        QTest::addColumn<QString>("kirjoitettu");
        QTest::addColumn<QString>("odotettu");
        QTest::newRow("ilman") << "/media/tikku/varmistus" << "/media/tikku/varmistus/";
        QTest::newRow("valmiiksi") << "/media/tikku/" << "/media/tikku/";
        QTest::newRow("tyhjä on oletus") << "" << "(oletus)";
    }

    void varmistushakemistoPaattyyKauttaviivaan()
    {
        QFETCH(QString, kirjoitettu);
        QFETCH(QString, odotettu);
        if (odotettu == QLatin1String("(oletus)"))
            odotettu = files::defaultBackupFolder();
        TallennaIniAsetukset(env->path(QStringLiteral("seura.mdb")), kirjoitettu, false);
        QCOMPARE(M::BackupPath, odotettu);
        QCOMPARE(iniArvo(*env, QStringLiteral("DatabaseBackup")), odotettu);
        QCOMPARE(iniArvo(*env, QStringLiteral("MultiDb")), QStringLiteral("0"));
        QCOMPARE(KauttaviivaLoppuun(QString()), QString());
    }

    // Without a database the save is told and goes on: the workstation's values and the globals
    // are set, the window may close.
    void kantaaEiLoydy_data()
    {
        QTest::addColumn<QString>("polku");
        QTest::newRow("tiedosto puuttuu") << "seura.mdb";
        QTest::newRow("tyhjä nimi") << "";
    }

    void kantaaEiLoydy()
    {
        QFETCH(QString, polku);
        const QString kanta = polku.isEmpty() ? QString() : env->path(polku);
        const AsetustenTallennusTulos tulos = TallennaAsetukset(hyvat(kanta, env->path(QStringLiteral("v"))));
        QVERIFY(tulos.valmis);
        QCOMPARE(dlg->allTexts(), QStringList{QStringLiteral("Tietokantaa ei löydy, korjaa asetuksista tietokannan nimi")});
        QCOMPARE(iniArvo(*env, QStringLiteral("Database")), kanta);
        QCOMPARE(M::RegName, QStringLiteral("Äänekosken Latu ry"));
        QCOMPARE(M::Laskunro, 1200L);
        QVERIFY(!QFile::exists(kanta));
    }

    void vierastaTiedostoaEiKorjata_data() { kerho::vieraatTiedostot(); }
    void vierastaTiedostoaEiKorjata()
    {
        QFETCH(QByteArray, tavut);
        QFETCH(QString, kerrotaan);
        const QString polku = env->path(QStringLiteral("vanha.mdb"));
        kerho::kirjoita(polku, tavut);

        const AsetustenTallennusTulos tulos = TallennaAsetukset(hyvat(polku, env->path(QStringLiteral("v"))));

        QVERIFY(tulos.valmis);
        QCOMPARE(dlg->shown.size(), 1);
        QCOMPARE(dlg->shown[0].icon, dlg::Icon::Stop);
        QVERIFY(dlg->shown[0].text.contains(polku) && dlg->shown[0].text.contains(kerrotaan));
        QVERIFY(dlg->shown[0].text.endsWith(QStringLiteral("Korjaa asetuksista tietokannan nimi.")));
        QCOMPARE(kerho::sisalto(polku), tavut);
        QVERIFY(!QFile::exists(polku + QStringLiteral("OLD")));
        QVERIFY(!QFile::exists(polku + QStringLiteral("2")));
    }

    void vioittunutKantaKorjataan()
    {
        const QString kanta = teeKanta(*env);
        QVERIFY(QFile::resize(kanta, QFileInfo(kanta).size() / 2));

        const AsetustenTallennusTulos tulos = TallennaAsetukset(hyvat(kanta, env->path(QStringLiteral("v"))));

        QVERIFY(tulos.valmis);
        const QStringList viestit = dlg->messages();
        QVERIFY(!viestit.isEmpty());
        QCOMPARE(viestit.first(), QStringLiteral("Tietokanta on vioittunut edellisen käyttökerran lopetuksen yhteydessä, "
                                                 "yritän korjata tietokannan. Odota hetki."));
        QCOMPARE(iniArvo(*env, QStringLiteral("Database")), kanta);
    }

    void lisaasetukset()
    {
        const QString kanta = teeKanta(*env);
        M::DatabasePath = kanta;
        LisaasetuksetSyote s;
        s.chkSuuretSuorituksetMaksetuksi = true;
        s.tSuoritustiedosto = QStringLiteral("/tiedostot/ylisuoritukset.txt");
        s.tOsoitteidenVienti = QStringLiteral("/tiedostot/osoitteet.xlsx");
        s.optOsoitemuoto = 2;

        QVERIFY(TallennaLisaasetukset(s));

        const auto arvot = kannanAsetukset(kanta);
        QCOMPARE(arvot.value(QStringLiteral("Suoritustiedosto")), s.tSuoritustiedosto);
        QCOMPARE(arvot.value(QStringLiteral("OsoiteTiedosto")), s.tOsoitteidenVienti);
        QCOMPARE(arvot.value(QStringLiteral("OsoiteMuoto")), QStringLiteral("2"));
        QCOMPARE(arvot.value(QStringLiteral("SuuretSuorituksetMaksetuksi")), QStringLiteral("1"));
        QCOMPARE(arvot.value(QStringLiteral("SuorituksellaMaksetuksiJosEiLoppusummaa")), QStringLiteral("0"));
        QVERIFY(M::SuuretSuorituksetMaksetuksi);
        QCOMPARE(dlg->allTexts(), QStringList());
    }

    void mxVastaus_data()
    {
        QTest::addColumn<QString>("vastaus");
        QTest::addColumn<QString>("nykyinen");
        QTest::addColumn<QString>("kayttaja"); // answer to the question, "" when none is expected
        QTest::addColumn<QString>("tulos");
        QTest::addColumn<QStringList>("tekstit");
        const QString kysymys = QStringLiteral("Kysely löysi palvelimen: mx.example.fi\n"
                                               "Haluatko korvata nykyisen palvelinasetuksen?");
        QTest::newRow("ei löytynyt") << "" << "smtp.example.fi" << "" << "smtp.example.fi"
                                     << QStringList{QStringLiteral("Kysely ei löytänyt sähköpostipalvelinta.")};
        QTest::newRow("kenttä tyhjä") << "mx.example.fi" << "" << "" << "mx.example.fi" << QStringList();
        QTest::newRow("sama") << "mx.example.fi" << "mx.example.fi" << "" << "mx.example.fi" << QStringList();
        QTest::newRow("eri, korvataan") << "mx.example.fi" << "smtp.example.fi" << "kyllä" << "mx.example.fi"
                                        << QStringList{kysymys};
        QTest::newRow("eri, pidetään") << "mx.example.fi" << "smtp.example.fi" << "ei" << "smtp.example.fi"
                                       << QStringList{kysymys};
    }

    void mxVastaus()
    {
        QFETCH(QString, vastaus);
        QFETCH(QString, nykyinen);
        QFETCH(QString, kayttaja);
        QFETCH(QString, tulos);
        QFETCH(QStringList, tekstit);
        if (kayttaja == QStringLiteral("kyllä"))
            dlg->yes();
        else if (kayttaja == QLatin1String("ei"))
            dlg->no();
        QCOMPARE(MxVastauksenKasittely(vastaus, nykyinen), tulos);
        QCOMPARE(dlg->allTexts(), tekstit);
    }

    void mxKysyySahkopostinVerkkotunnusta()
    {
        QStringList kysytyt;
        mx::setResolver([&](const QString &domain) {
            kysytyt << domain;
            return QStringLiteral("mx1.example.fi");
        });
        QCOMPARE(mx::mailServerFor(QStringLiteral(" sihteeri@Example.fi ")), QStringLiteral("mx1.example.fi"));
        QCOMPARE(mx::mailServerFor(QStringLiteral("ei-osoite")), QString());
        QCOMPARE(mx::mailServerFor(QStringLiteral("sihteeri@")), QString());
        QCOMPARE(kysytyt, QStringList{QStringLiteral("Example.fi")});
        mx::setResolver({});
        // A name that cannot exist gives nothing, whether or not there is a network.
        QCOMPARE(mx::preferredExchange(QStringLiteral("ei-ole.invalid"), 2000), QString());
        QCOMPARE(mx::preferredExchange(QString()), QString());
    }
};

QTEST_MAIN(TestAsetustenTallennus)
#include "tst_asetustentallennus.moc"
