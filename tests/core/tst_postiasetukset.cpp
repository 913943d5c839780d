// The mail settings around the seam: the password kept out of the club's database (in the
// keyring, or where none answers in the user's own INI file), the route and connection made from
// the settings, and the connection test a user runs from the settings window.
#include "core/AsetuksetIni.h"
#include "core/AsetustenTallennus.h"
#include "core/Postiasetukset.h"
#include "core/Postisalasana.h"
#include "core/ui/frmAsetukset.h"
#include "malliseura.h"
#include "platform/keyring.h"
#include "platform/sendmailsender.h"
#include "postipalvelin.h"
#include "ydinapu.h"

#include <QRadioButton>
#include <QTabWidget>

namespace M = MainModule;
using ydin::osa;

namespace {

const QString kEiAvainnippua = u"Tällä koneella ei ole käytettävissä avainnippua"_s;

QFile::Permissions oikeudet(const QString &polku) { return QFileInfo(polku).permissions(); }

bool vainOmistaja(const QString &polku)
{
    const QFile::Permissions p = oikeudet(polku);
    return (p & (QFile::ReadOwner | QFile::WriteOwner)) == (QFile::ReadOwner | QFile::WriteOwner)
        && !(p & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther));
}

QByteArray tiedostonTavut(const QString &polku)
{
    QFile f(polku);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace

class TestPostiasetukset : public Testipohja {
    Q_OBJECT

private slots:
    // With no keyring the password goes to the INI file, which only the user can read, and the
    // user is told once. Later writes of the file keep it private; an emptied password is gone.
    void salasanaIlmanAvainnippua()
    {
        LueIniAsetukset();
        const QString ini = env->iniPath();
        QVERIFY(TallennaPostisalasana(u"latu"_s, u"Posti.Example.fi"_s, u"sala ä€ = ;"_s));
        QCOMPARE(dlg->allTexts().size(), 1);
        QVERIFY(dlg->allTexts()[0].startsWith(kEiAvainnippua));
        QVERIFY(dlg->allTexts()[0].contains(ini));
        QVERIFY(vainOmistaja(ini));
        QVERIFY(!tiedostonTavut(ini).contains("sala"));
        QCOMPARE(LuePostisalasana(u"latu"_s, u"posti.example.fi"_s), u"sala ä€ = ;"_s);
        QCOMPARE(LuePostisalasana(u"toinen"_s, u"posti.example.fi"_s), QString());

        dlg->shown.clear();
        QVERIFY(TallennaPostisalasana(u"latu"_s, u"posti.example.fi"_s, u"uusi"_s));
        QVERIFY(dlg->allTexts().isEmpty()); // told once
        TallennaIniAsetukset(env->path(u"seura.mdb"_s), env->path(u"varmistus"_s), false);
        QVERIFY(vainOmistaja(ini));
        QCOMPARE(LuePostisalasana(u"latu"_s, u"posti.example.fi"_s), u"uusi"_s);

        QVERIFY(TallennaPostisalasana(u"latu"_s, u"posti.example.fi"_s, QString()));
        QCOMPARE(LuePostisalasana(u"latu"_s, u"posti.example.fi"_s), QString());
        QVERIFY(dlg->allTexts().isEmpty());
    }

    // A damaged INI file is never written: the password is stored nowhere, and the user is told.
    void salasanaEiVioittuneeseenTiedostoon()
    {
        const QString ini = env->iniPath();
        QDir().mkpath(QFileInfo(ini).path());
        testi::tiedosto(ini, QByteArray("\xff\xfe roskaa \x00\x01", 12));
        LueIniAsetukset();
        dlg->shown.clear();
        QVERIFY(!TallennaPostisalasana(u"latu"_s, u"posti.example.fi"_s, u"sala"_s));
        QCOMPARE(dlg->allTexts().size(), 1);
        QVERIFY(dlg->allTexts()[0].startsWith(u"Sähköpostipalvelimen salasanaa ei voitu tallentaa"_s));
        QCOMPARE(tiedostonTavut(ini), QByteArray("\xff\xfe roskaa \x00\x01", 12));
    }

    // The desktop's real keyring, where this machine has one: what goes in comes out and can be
    // removed. Where none answers, each call says so instead of failing otherwise or hanging.
    void todellinenAvainnippu()
    {
        keyring::setDisabled(false);
        const QString avain = u"vonari-testi-%1@127.0.0.1"_s.arg(QCoreApplication::applicationPid());
        const keyring::Answer kirjoitus = keyring::write(avain, u"sala ä€"_s);
        const keyring::Answer luku = keyring::read(avain);
        const keyring::Answer poisto = keyring::remove(avain);
        keyring::setDisabled(true);
        if (kirjoitus.status == keyring::Status::NoBackend) {
            QCOMPARE(int(luku.status), int(keyring::Status::NoBackend));
            QCOMPARE(int(poisto.status), int(keyring::Status::NoBackend));
            return;
        }
        QCOMPARE(int(kirjoitus.status), int(keyring::Status::Ok));
        QCOMPARE(luku.secret, u"sala ä€"_s);
        QCOMPARE(int(poisto.status), int(keyring::Status::Ok));
    }

    // The settings window's save keeps the password out of the club's database.
    void salasanaEiKantaan()
    {
        LueIniAsetukset();
        const QString kanta = env->path(u"seura.mdb"_s);
        malliseura::kopio(kanta);
        AsetuksetSyote s;
        s.tTietokanta = kanta, s.tVarmistus = env->path(u"v"_s), s.tEmailPerMin = u"0"_s;
        s.tLaskunumero = s.tJasennumero = s.tVarmuuskopioPv = s.tTulostusEra = u"1"_s;
        s.tMargVas = s.tMargOik = s.tMargYla = s.tMargAla = s.tMuistutuskulut = s.tViivastysKorko = u"0"_s;
        s.tSMTP = u"posti.example.fi"_s, s.tSMTPKayttaja = u"latu"_s, s.tSMTPSalasana = u"Xq7-salainen"_s;
        QVERIFY(TallennaAsetukset(s).valmis);
        QCOMPARE(dlg->allTexts().size(), 1);
        QVERIFY(dlg->allTexts()[0].startsWith(kEiAvainnippua));
        QVERIFY(!tiedostonTavut(kanta).contains("Xq7-salainen"));
        QVERIFY(!tiedostonTavut(kanta + u"-wal"_s).contains("Xq7-salainen"));
        QCOMPARE(LuePostisalasana(M::SMTPKayttaja, M::SMTP), u"Xq7-salainen"_s);
        QCOMPARE(Lahetysasetukset().smtp.password, QString()); // the route is the system's: no password read
        M::EmailSystem = true;
        QCOMPARE(Lahetysasetukset().smtp.password, u"Xq7-salainen"_s);

        // Another account: the former one's password is removed with the change.
        s.tSMTPKayttaja = u"toinen"_s, s.tSMTPSalasana = u"Yz8"_s;
        QVERIFY(TallennaAsetukset(s).valmis);
        QCOMPARE(LuePostisalasana(u"latu"_s, u"posti.example.fi"_s), QString());
        QCOMPARE(LuePostisalasana(u"toinen"_s, u"posti.example.fi"_s), u"Yz8"_s);
        QVERIFY(!tiedostonTavut(env->iniPath()).contains(QByteArray("Xq7-salainen").toBase64()));
    }

    void lahetysasetukset_data()
    {
        QTest::addColumn<bool>("smtp");
        QTest::addColumn<long>("portti");
        QTest::addColumn<int>("suojaus");
        QTest::addColumn<int>("kaytetty");
        QTest::newRow("järjestelmä") << false << 0L << 0 << 25;
        QTest::newRow("smtp oletusportti") << true << 0L << 0 << 25;
        QTest::newRow("starttls oletusportti") << true << 0L << 1 << 587;
        QTest::newRow("smtps oletusportti") << true << 0L << 2 << 465;
        QTest::newRow("oma portti") << true << 2525L << 2 << 2525;
        QTest::newRow("suojaus rajojen yli") << true << 0L << 7 << 465;
    }
    void lahetysasetukset()
    {
        QFETCH(bool, smtp);
        QFETCH(long, portti);
        QFETCH(int, suojaus);
        QFETCH(int, kaytetty);
        M::EmailSystem = smtp;
        M::SMTP = u" posti.example.fi "_s;
        M::SMTPPortti = portti;
        M::SMTPSuojaus = suojaus;
        M::SMTPVarmenne = u"/etc/vonari/ca.pem"_s;
        M::RegName = u"Äänekosken Latu ry"_s;
        M::Email = u"latu@example.fi "_s;
        const mail::Settings a = Lahetysasetukset();
        QCOMPARE(a.route, smtp ? mail::Route::Smtp : mail::Route::System);
        QCOMPARE(a.smtp.host, u"posti.example.fi"_s);
        QCOMPARE(a.smtp.effectivePort(), kaytetty);
        QCOMPARE(a.smtp.caFile, u"/etc/vonari/ca.pem"_s);
        QCOMPARE(a.smtp.user, QString());
        QCOMPARE(Lahettaja().name, u"Äänekosken Latu ry"_s);
        QCOMPARE(Lahettaja().address, u"latu@example.fi"_s);
    }

    // "Testaa yhteys" in the settings window: the fields as typed, a real server on loopback, and
    // the answer in Finnish. Nothing is sent.
    void yhteydenTesti_data()
    {
        QTest::addColumn<int>("tapa");
        QTest::addColumn<QString>("salasana");
        QTest::addColumn<bool>("onnistuu");
        QTest::addColumn<QString>("teksti");
        QTest::newRow("kirjautuminen onnistuu") << 1 << u"oikea"_s << true
                                                << u"onnistui ja palvelin hyväksyi kirjautumisen käyttäjätunnuksella latu."_s;
        QTest::newRow("väärä salasana") << 1 << u"väärä"_s << false
                                        << u"ei hyväksynyt käyttäjätunnusta tai salasanaa"_s;
        QTest::newRow("järjestelmän postiohjelma") << 0 << QString() << !mail::findSendmail().isEmpty()
                                                   << (mail::findSendmail().isEmpty() ? mail::sendmailMissingText()
                                                                                      : u"koneen postiohjelmalla"_s);
    }
    void yhteydenTesti()
    {
        QFETCH(int, tapa);
        QFETCH(QString, salasana);
        QFETCH(bool, onnistuu);
        QFETCH(QString, teksti);
        testi::PalvelimenAsetus a;
        a.kayttaja = u"latu"_s;
        a.salasana = u"oikea"_s;
        testi::Postipalvelin p(a);
        QVERIFY2(p.kaynnissa(), qPrintable(p.virhe()));
        frmAsetukset w;
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        auto *sivut = osa<QTabWidget>(w, u"TabStrip1"_s);
        sivut->setCurrentIndex(1);
        QVERIFY(sivut->currentWidget()->isAncestorOf(osa<QPushButton>(w, u"cTestaaYhteys"_s)));
        osa<QRadioButton>(w, u"optEmailSystem_%1"_s.arg(tapa))->setChecked(true);
        osa(w, u"tSMTP"_s)->setText(u"127.0.0.1"_s);
        testi::kirjoita(osa(w, u"tSMTPPortti"_s), QString::number(p.portti()));
        osa(w, u"tSMTPKayttaja"_s)->setText(u"latu"_s);
        osa(w, u"tSMTPSalasana"_s)->setText(salasana);
        dlg->shown.clear();
        testi::paina(osa<QPushButton>(w, u"cTestaaYhteys"_s));
        QCOMPARE(dlg->shown.size(), 1);
        QCOMPARE(dlg->shown[0].icon == dlg::Icon::Stop, !onnistuu);
        QVERIFY2(dlg->shown[0].text.contains(teksti), qPrintable(dlg->shown[0].text));
        if (!onnistuu && tapa == 1)
            QVERIFY(dlg->shown[0].text.startsWith(u"Yhteyden testaus epäonnistui."_s));
        QCOMPARE(p.viestit().size(), 0);
    }

    // The window shows the stored connection, the password from its store, and the port the
    // chosen security uses when none is given.
    void ikkunaNayttaaAsetukset()
    {
        LueIniAsetukset();
        M::SMTP = u"posti.example.fi"_s;
        M::SMTPSuojaus = 1;
        M::SMTPKayttaja = u"latu"_s;
        M::SMTPVarmenne = u"/etc/vonari/ca.pem"_s;
        QVERIFY(TallennaPostisalasana(M::SMTPKayttaja, M::SMTP, u"tallessa"_s));
        frmAsetukset w;
        QCOMPARE(osa<QComboBox>(w, u"cmbSMTPSuojaus"_s)->currentText(), u"STARTTLS"_s);
        QCOMPARE(osa(w, u"tSMTPPortti"_s)->text(), QString());
        QCOMPARE(osa(w, u"tSMTPPortti"_s)->placeholderText(), u"587"_s);
        QCOMPARE(osa(w, u"tSMTPKayttaja"_s)->text(), u"latu"_s);
        QCOMPARE(osa(w, u"tSMTPSalasana"_s)->text(), u"tallessa"_s);
        QCOMPARE(osa(w, u"tSMTPSalasana"_s)->echoMode(), QLineEdit::Password);
        QCOMPARE(osa(w, u"tSMTPVarmenne"_s)->text(), u"/etc/vonari/ca.pem"_s);
        osa<QComboBox>(w, u"cmbSMTPSuojaus"_s)->setCurrentIndex(2);
        QCOMPARE(osa(w, u"tSMTPPortti"_s)->placeholderText(), u"465"_s);
        QVERIFY(w.muuttunut());
    }
};

QTEST_MAIN(TestPostiasetukset)
#include "tst_postiasetukset.moc"
