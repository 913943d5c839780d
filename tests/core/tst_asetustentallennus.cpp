// Saving the settings windows: every key stored and read back, numbers checked in the order of
// the save, a missing, foreign or damaged database, and the mail server query.
#include "core/AsetustenTallennus.h"
#include "platform/mxlookup.h"
#include "kerhokanta.h"
#include "malliseura.h"

namespace M = MainModule;
using ydin::iniArvo;

namespace {

// The club keys in the order the save writes them.
const QStringList kAvaimet = u"AsKannassa RegName Henkilo RegOsoite RegPostinumero RegPostitoimipaikka RegPuhelin RegFax "
                             "RegSeuranEmail RegWWW Email EmailSystem EmailPerMin SMTP SMTPPortti SMTPSuojaus SMTPKayttaja SMTPVarmenne "
                             "RegPankkiyhteys1 RegPankkiyhteys2 "
                             "YTunnus Salasana EmailPohja EmailKarhupohja MultiDb MargYla MargAla MargVas MargOik TulostusEra "
                             "Laskunro Jasennro VarmuuskopioPv Fontti FonttiKoko AutoJasennumero MuistutaVarm LaskupohjaKaytossa "
                             "LaskupohjaHKaytossa LaskupohjaTiedosto LaskupohjaHTiedosto Muistutuskulut Viivastyskorko "
                             "MuistutusAlku MuistutusLoppu MuistutusOtsake"_s.split(u' ');

// The checked number fields of the window by name.
QString AsetuksetSyote::*numerokentta(const QString &nimi)
{
    using S = AsetuksetSyote;
    static const QHash<QString, QString S::*> kentat = {
        {u"tEmailPerMin"_s, &S::tEmailPerMin}, {u"tMargYla"_s, &S::tMargYla}, {u"tMargAla"_s, &S::tMargAla},
        {u"tMargOik"_s, &S::tMargOik}, {u"tTulostusEra"_s, &S::tTulostusEra}, {u"tLaskunumero"_s, &S::tLaskunumero},
        {u"tJasennumero"_s, &S::tJasennumero}, {u"tVarmuuskopioPv"_s, &S::tVarmuuskopioPv},
        {u"tMuistutuskulut"_s, &S::tMuistutuskulut}, {u"tViivastysKorko"_s, &S::tViivastysKorko},
        {u"tSMTPPortti"_s, &S::tSMTPPortti}};
    return kentat.value(nimi);
}

QString teeKanta(const TestEnv &env)
{
    malliseura::kopio(env.path(u"seura.mdb"_s));
    return env.path(u"seura.mdb"_s);
}

QMap<QString, QString> kannanAsetukset(const QString &polku)
{
    QMap<QString, QString> out;
    auto d = db::Database::open(polku);
    db::Statement st(*d, u"SELECT setKey, setString FROM Settings WHERE setSection = 'VONARI'"_s);
    while (st.next())
        out.insert(st.value(0).toString(), st.value(1).toString());
    return out;
}

AsetuksetSyote hyvat(const QString &kanta, const QString &varmistus)
{
    AsetuksetSyote s;
    s.tNimi = u"Äänekosken Latu ry"_s, s.optEmailSystem = 1, s.tEmailPerMin = u"30"_s;
    s.tTietokanta = kanta, s.tVarmistus = varmistus, s.chkMoniseuratuki = true;
    s.tLaskunumero = u"1200"_s, s.tJasennumero = u"350"_s, s.chkJasennumero = true;
    s.tVarmuuskopioPv = u"14"_s, s.chkMuistutaVarmistuksesta = true, s.tSalasana = u"O'Brien; --"_s;
    s.tMuistutuskulut = u"5,00"_s, s.tViivastysKorko = u"7,5"_s, s.tMuistutusOtsake = u"MAKSUMUISTUTUS"_s;
    s.tMuistutusLopputeksti = u"Jos olet jo maksanut, tämä muistutus on aiheeton."_s;
    s.tTulostusEra = u"50"_s, s.cmbFonts = u"DejaVu Serif"_s, s.cmbFonttiKoko = u"11"_s;
    s.tMargVas = u"10"_s, s.tMargOik = u"11"_s, s.tMargYla = u"12"_s, s.tMargAla = u"13"_s;
    s.chkLaskupohjaKaytossa = true;
    s.tSMTP = u"posti.example.fi"_s, s.tSMTPPortti = u"2525"_s, s.cmbSMTPSuojaus = 1;
    s.tSMTPKayttaja = u" latu "_s, s.tSMTPVarmenne = u"/etc/vonari/palvelin.pem"_s;
    return s;
}

} // namespace

class TestAsetustenTallennus : public Testipohja {
    Q_OBJECT

private slots:
    // Every key of both windows is stored, the globals are set at once, and the next start reads
    // the same back.
    void kaikkiAsetuksetTallentuvat()
    {
        const QString kanta = teeKanta(*env);
        const AsetustenTallennusTulos tulos = TallennaAsetukset(hyvat(kanta, env->path(u"varmistus"_s)));
        QVERIFY(tulos.valmis && tulos.kohdistus.isEmpty());
        QCOMPARE(dlg->allTexts(), QStringList());
        LisaasetuksetSyote lisa;
        lisa.chkSuuretSuorituksetMaksetuksi = true;
        lisa.tSuoritustiedosto = u"/tiedostot/ylisuoritukset.txt"_s;
        lisa.tOsoitteidenVienti = u"/tiedostot/osoitteet.xlsx"_s;
        lisa.optOsoitemuoto = 2;
        QVERIFY(TallennaLisaasetukset(lisa));
        QVERIFY(M::SuuretSuorituksetMaksetuksi);

        const auto arvot = kannanAsetukset(kanta);
        const QStringList odotetut = {u"AsKannassa=1"_s, u"Salasana=O'Brien; --"_s, u"LaskupohjaHKaytossa=0"_s,
                                      u"Muistutuskulut=5,00"_s, u"Suoritustiedosto=/tiedostot/ylisuoritukset.txt"_s,
                                      u"OsoiteTiedosto=/tiedostot/osoitteet.xlsx"_s, u"OsoiteMuoto=2"_s,
                                      u"SuuretSuorituksetMaksetuksi=1"_s, u"SuorituksellaMaksetuksiJosEiLoppusummaa=0"_s,
                                      u"SMTP=posti.example.fi"_s, u"SMTPPortti=2525"_s, u"SMTPSuojaus=1"_s,
                                      u"SMTPKayttaja=latu"_s, u"SMTPVarmenne=/etc/vonari/palvelin.pem"_s};
        for (const QString &pari : odotetut)
            QCOMPARE(pari.section(u'=', 0, 0) + u'=' + arvot.value(pari.section(u'=', 0, 0)), pari);
        for (const QString &avain : kAvaimet)
            QVERIFY2(arvot.contains(avain), qPrintable(avain));
        QCOMPARE(iniArvo(*env, u"Database"_s), kanta);
        QCOMPARE(iniArvo(*env, u"MultiDb"_s), u"1"_s);

        const auto tila = [] {
            return QStringList{M::RegName, QString::number(M::EmailSystem), QString::number(M::EmailPerMin),
                               QString::number(M::Laskunro), QString::number(M::Jasennro), QString::number(M::VarmuuskopioPv),
                               QString::number(M::AutoJasennumero), QString::number(M::MuistutaVarm),
                               M::Muistutuskulut.toString(4), QString::number(M::Viivastyskorko), M::Fontti,
                               QString::number(M::FonttiKoko), QString::number(M::RaporttiMarginaalit.top),
                               QString::number(M::RaporttiMarginaalit.bottom), QString::number(M::RaporttiMarginaalit.left),
                               QString::number(M::LaskupohjaKaytossa), QString::number(M::LaskupohjaHKaytossa), M::MuistutusLoppu,
                               M::SMTP, QString::number(M::SMTPPortti), QString::number(M::SMTPSuojaus), M::SMTPKayttaja,
                               M::SMTPVarmenne};
        };
        const QStringList tallennettu = tila();
        QCOMPARE(tallennettu, (QStringList{u"Äänekosken Latu ry"_s, u"1"_s, u"30"_s, u"1200"_s, u"350"_s, u"14"_s, u"1"_s,
                                           u"1"_s, u"5,0000"_s, u"7.5"_s, u"DejaVu Serif"_s, u"11"_s, QString::number(12 * 48),
                                           QString::number(13 * 48), QString::number(10 * 48), u"1"_s, u"0"_s,
                                           u"Jos olet jo maksanut, tämä muistutus on aiheeton."_s, u"posti.example.fi"_s,
                                           u"2525"_s, u"1"_s, u"latu"_s, u"/etc/vonari/palvelin.pem"_s}));
        QCOMPARE(M::DatabasePath, kanta);
        M::resetGlobals();
        LueAsetukset(*db::Database::open(kanta));
        QCOMPARE(tila(), tallennettu);
    }

    // A bad number stops the save at its turn: the keys before it are stored, it and the keys
    // after it are not, the globals follow the store, and the focus goes to its field. Values at
    // the edge of a field pass.
    void numerotTarkistetaanVuorollaan_data()
    {
        QTest::addColumn<QString>("kentta");
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<QString>("avain");
        QTest::addColumn<QString>("odotus"); // the stored value, or the message of a refused one
        const QString marginaali = u"Syötä marginaaliksi ainoastaan numeroita."_s;
        QTest::newRow("viestejä/min") << "tEmailPerMin" << "12x" << "EmailPerMin"
                                      << "Syötä (sähköposti) viestejä / min arvoksi ainoastaan numeroita.";
        QTest::newRow("suurin marginaali") << "tMargYla" << "682" << "MargYla" << "682";
        QTest::newRow("marginaali ylivuotaa") << "tMargYla" << "683" << "MargYla" << marginaali;
        QTest::newRow("erä ylivuotaa") << "tTulostusEra" << "32768" << "TulostusEra" << "Syötä tulostuseräksi ainoastaan numeroita.";
        QTest::newRow("välilyönnit pois") << "tLaskunumero" << " 1 200 " << "Laskunro" << "1200";
        QTest::newRow("laskunumero yli 32 bitin") << "tLaskunumero" << "2147483648" << "Laskunro"
                                                  << "Syötä laskunumeroksi ainoastaan numeroita.";
        QTest::newRow("miinusmerkki") << "tVarmuuskopioPv" << "-3" << "VarmuuskopioPv" << "Syötä Varmuuskopiot -kenttään ainoastaan numeroita.";
        QTest::newRow("kulut pisteellä") << "tMuistutuskulut" << "2.5" << "Muistutuskulut" << "2.5";
        QTest::newRow("kulut negatiiviset") << "tMuistutuskulut" << "-1" << "Muistutuskulut" << "Syötä muistutuskuluksi ainoastaan numeroita.";
        QTest::newRow("portti tyhjä") << "tSMTPPortti" << "" << "SMTPPortti" << "0";
        QTest::newRow("portti 465") << "tSMTPPortti" << "465" << "SMTPPortti" << "465";
        QTest::newRow("portti liian suuri") << "tSMTPPortti" << "65536" << "SMTPPortti"
                                           << "Syötä SMTP-palvelimen portiksi ainoastaan numeroita (1–65535).";
        QTest::newRow("portti kirjaimin") << "tSMTPPortti" << "smtp" << "SMTPPortti"
                                         << "Syötä SMTP-palvelimen portiksi ainoastaan numeroita (1–65535).";
        QTest::newRow("korko pilkulla") << "tViivastysKorko" << " 8,25 " << "Viivastyskorko" << "8,25";
    }
    void numerotTarkistetaanVuorollaan()
    {
        QFETCH(QString, kentta);
        QFETCH(QString, teksti);
        QFETCH(QString, avain);
        QFETCH(QString, odotus);
        const bool hylatty = odotus.startsWith(u"Syötä"_s);
        const QString kanta = teeKanta(*env);
        AsetuksetSyote s = hyvat(kanta, env->path(u"varmistus/"_s));
        s.*numerokentta(kentta) = teksti;
        M::Laskunro = 77;

        const AsetustenTallennusTulos tulos = TallennaAsetukset(s);

        const auto arvot = kannanAsetukset(kanta);
        QCOMPARE(arvot.value(avain), hylatty ? QString() : odotus);
        QCOMPARE(M::RegName, s.tNimi);
        if (!hylatty) {
            QVERIFY(tulos.valmis && dlg->allTexts().isEmpty());
            if (avain == u"Muistutuskulut"_s)
                QCOMPARE(M::Muistutuskulut, Currency::fromRaw(25000));
            if (avain == u"Viivastyskorko"_s)
                QCOMPARE(M::Viivastyskorko, 8.25);
            return;
        }
        QVERIFY(!tulos.valmis);
        QCOMPARE(tulos.kohdistus, kentta);
        QCOMPARE(dlg->allTexts(), QStringList{odotus});
        const qsizetype vuoro = kAvaimet.indexOf(avain);
        QVERIFY(vuoro > 0);
        for (qsizetype i = 0; i < kAvaimet.size(); ++i)
            QVERIFY2(arvot.contains(kAvaimet[i]) == (i < vuoro), qPrintable(kAvaimet[i]));
        if (kAvaimet.indexOf(u"Laskunro"_s) >= vuoro)
            QCOMPARE(M::Laskunro, 77L);
    }

    // Without a database the save is told and goes on: the workstation's values (the backup
    // folder with its slash, or the default for none) and the globals are set, the window may close.
    void kantaaEiLoydy()
    {
        for (const QString &kanta : {env->path(u"seura.mdb"_s), QString()}) {
            dlg->shown.clear();
            const QString varmistus = kanta.isEmpty() ? QString() : env->path(u"v"_s);
            QVERIFY(TallennaAsetukset(hyvat(kanta, varmistus)).valmis);
            QCOMPARE(dlg->allTexts(), QStringList{u"Tietokantaa ei löydy, korjaa asetuksista tietokannan nimi"_s});
            QCOMPARE(iniArvo(*env, u"Database"_s), kanta);
            QCOMPARE(iniArvo(*env, u"DatabaseBackup"_s), kanta.isEmpty() ? files::defaultBackupFolder() : varmistus + u'/');
            QCOMPARE(M::BackupPath, iniArvo(*env, u"DatabaseBackup"_s));
            QCOMPARE(M::RegName, u"Äänekosken Latu ry"_s);
            QCOMPARE(M::Laskunro, 1200L);
            QVERIFY(!QFile::exists(kanta));
        }
    }

    void vierastaTiedostoaEiKorjata_data() { kerho::vieraatTiedostot(); }
    void vierastaTiedostoaEiKorjata()
    {
        QFETCH(QByteArray, tavut);
        QFETCH(QString, kerrotaan);
        const QString polku = env->path(u"vanha.mdb"_s);
        testi::tiedosto(polku, tavut);
        QVERIFY(TallennaAsetukset(hyvat(polku, env->path(u"v"_s))).valmis);
        QCOMPARE(dlg->shown.size(), 1);
        QCOMPARE(dlg->shown[0].icon, dlg::Icon::Stop);
        QVERIFY(dlg->shown[0].text.contains(polku) && dlg->shown[0].text.contains(kerrotaan));
        QVERIFY(dlg->shown[0].text.endsWith(u"Korjaa asetuksista tietokannan nimi."_s));
        QCOMPARE(kerho::sisalto(polku), tavut);
        QVERIFY(!QFile::exists(polku + u"OLD"_s) && !QFile::exists(polku + u"2"_s));
    }

    void vioittunutKantaKorjataan()
    {
        const QString kanta = teeKanta(*env);
        QVERIFY(QFile::resize(kanta, QFileInfo(kanta).size() / 2));
        QVERIFY(TallennaAsetukset(hyvat(kanta, env->path(u"v"_s))).valmis);
        QCOMPARE(dlg->messages().value(0), u"Tietokanta on vioittunut edellisen käyttökerran lopetuksen yhteydessä, "
                                            "yritän korjata tietokannan. Odota hetki."_s);
        QCOMPARE(iniArvo(*env, u"Database"_s), kanta);
    }

    void mxVastaus_data()
    {
        QTest::addColumn<QString>("vastaus");
        QTest::addColumn<QString>("nykyinen");
        QTest::addColumn<QString>("kayttaja"); // answer to the question, "" when none is expected
        QTest::addColumn<QString>("tulos");
        QTest::addColumn<QStringList>("tekstit");
        const QStringList kysymys{u"Kysely löysi palvelimen: mx.example.fi\nHaluatko korvata nykyisen palvelinasetuksen?"_s};
        QTest::newRow("ei löytynyt") << "" << "smtp.example.fi" << "" << "smtp.example.fi"
                                     << QStringList{u"Kysely ei löytänyt sähköpostipalvelinta."_s};
        QTest::newRow("kenttä tyhjä") << "mx.example.fi" << "" << "" << "mx.example.fi" << QStringList();
        QTest::newRow("sama") << "mx.example.fi" << "mx.example.fi" << "" << "mx.example.fi" << QStringList();
        QTest::newRow("eri, korvataan") << "mx.example.fi" << "smtp.example.fi" << "kyllä" << "mx.example.fi" << kysymys;
        QTest::newRow("eri, pidetään") << "mx.example.fi" << "smtp.example.fi" << "ei" << "smtp.example.fi" << kysymys;
    }
    void mxVastaus()
    {
        QFETCH(QString, vastaus);
        QFETCH(QString, nykyinen);
        QFETCH(QString, kayttaja);
        QFETCH(QString, tulos);
        QFETCH(QStringList, tekstit);
        if (!kayttaja.isEmpty())
            dlg->answer(kayttaja == u"kyllä"_s ? dlg::Answer::Yes : dlg::Answer::No);
        QCOMPARE(MxVastauksenKasittely(vastaus, nykyinen), tulos);
        QCOMPARE(dlg->allTexts(), tekstit);
    }

};

QTEST_MAIN(TestAsetustenTallennus)
#include "tst_asetustentallennus.moc"
