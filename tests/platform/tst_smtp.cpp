// Sending by SMTP through a real server on loopback: what arrives, refused recipients, logins,
// encryption, and a server that is not there.
#include "platform/smtpsender.h"
#include "postiaineisto.h"
#include "postipalvelin.h"

#include <QRegularExpression>
#include <QTcpServer>
#include <QTemporaryDir>

using namespace postiaineisto;
using testi::Postipalvelin;

namespace {

mail::SmtpSettings asetukset(const Postipalvelin &p, mail::Security suojaus = mail::Security::None)
{
    mail::SmtpSettings s;
    s.host = u"127.0.0.1"_s;
    s.port = p.portti();
    s.security = suojaus;
    s.connectTimeoutSeconds = 20;
    return s;
}

const QList<mail::Address> Kaksi{{u"Öljynen, Äijä"_s, u"aija@example.fi"_s}, {u"Matti \"Masa\" Meikäläinen"_s, u"masa@example.fi"_s}};

QByteArray kaikkiTavut()
{
    QByteArray b;
    for (int k = 0; k < 3; ++k)
        for (int i = 0; i < 256; ++i)
            b.append(char(i));
    return b + "\r\n.\r\n..\n.";
}

} // namespace

class TestSmtp : public QObject {
    Q_OBJECT
    QTemporaryDir tmp;

    static void kaynnissa(const Postipalvelin &p)
    {
        if (!p.kaynnissa())
            QFAIL(qPrintable(u"the SMTP server did not start: "_s + p.virhe()));
    }

private slots:
    void tekstiSaapuuSellaisenaan_data() { tekstirivit(); }
    void tekstiSaapuuSellaisenaan()
    {
        QFETCH(QString, teksti);
        Postipalvelin p;
        kaynnissa(p);
        mail::SmtpSender s(asetukset(p));
        const mail::Message m = viesti(teksti, Kaksi);
        const mail::SendReport r = s.send(m);
        QVERIFY2(r.allSent(), qPrintable(r.error));
        QCOMPARE(r.error, QString());
        const auto saapuneet = p.viestit();
        QCOMPARE(saapuneet.size(), 1);
        tarkistaLuettu(saapuneet[0].luettu, m);
        QCOMPARE(saapuneet[0].kirjekuori[u"mail_from"_s].toString(), u"kerho@example.fi"_s);
        QCOMPARE(saapuneet[0].kirjekuori[u"rcpt_tos"_s].toArray(),
                 (QJsonArray{u"aija@example.fi"_s, u"masa@example.fi"_s}));
    }

    void liitteetSaapuvatTavulleen()
    {
        Postipalvelin p;
        kaynnissa(p);
        const QByteArray binaari = kaikkiTavut();
        const QByteArray teksti = "Nimi;Summa\r\n.\r\nÄijä;25,00\r\n";
        const QString pdf = tmp.filePath(u"lasku 2026 ä€.pdf"_s);
        const QString csv = tmp.filePath(u"jäsenet.csv"_s);
        const QString tyhja = tmp.filePath(u"tyhja.bin"_s);
        for (const auto &[polku, tavut] : {std::pair{pdf, binaari}, std::pair{csv, teksti}, std::pair{tyhja, QByteArray()}}) {
            QFile f(polku);
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write(tavut);
        }
        mail::Message m = viesti(u"Liitteenä lasku.\n.\n"_s, Kaksi.mid(0, 1));
        m.attachments = {pdf, csv, tyhja};
        mail::SmtpSender s(asetukset(p));
        QVERIFY(s.send(m).allSent());

        const auto saapuneet = p.viestit();
        QCOMPARE(saapuneet.size(), 1);
        const QJsonObject luettu = saapuneet[0].luettu;
        tarkistaLuettu(luettu, m);
        const QJsonArray liitteet = luettu[u"attachments"_s].toArray();
        QCOMPARE(liitteet.size(), 3);
        QCOMPARE(liitteet[0][u"name"_s].toString(), u"lasku 2026 ä€.pdf"_s);
        QCOMPARE(liitteet[0][u"type"_s].toString(), u"application/pdf"_s);
        QCOMPARE(QByteArray::fromBase64(liitteet[0][u"data"_s].toString().toLatin1()), binaari);
        QCOMPARE(liitteet[1][u"name"_s].toString(), u"jäsenet.csv"_s);
        QCOMPARE(liitteet[1][u"type"_s].toString(), u"text/csv"_s);
        QCOMPARE(QByteArray::fromBase64(liitteet[1][u"data"_s].toString().toLatin1()), teksti);
        QCOMPARE(liitteet[2][u"name"_s].toString(), u"tyhja.bin"_s);
        QCOMPARE(QByteArray::fromBase64(liitteet[2][u"data"_s].toString().toLatin1()), QByteArray());
    }

    void puuttuvaLiiteEiLahde()
    {
        Postipalvelin p;
        kaynnissa(p);
        mail::Message m = viesti(u"x"_s, Kaksi);
        m.attachments = {tmp.filePath(u"ei-ole.pdf"_s)};
        mail::SmtpSender s(asetukset(p));
        const mail::SendReport r = s.send(m);
        QCOMPARE(r.sentCount(), 0);
        QVERIFY(r.error.contains(u"ei-ole.pdf"_s));
        QVERIFY(r.recipients[1].reason.startsWith(u"Liitetiedostoa"_s));
        QCOMPARE(p.viestit().size(), 0);
    }

    // One connection carries the run; a refused recipient fails alone and the run goes on.
    void hylattyVastaanottajaEiKatkaiseAjoa()
    {
        testi::PalvelimenAsetus a;
        a.hylattavat = {u"ei.ole@example.fi"_s};
        Postipalvelin p(a);
        kaynnissa(p);
        mail::SmtpSender s(asetukset(p));

        mail::Message yhteinen = viesti(u"Kaikille"_s, {Kaksi[0], {u"Ei Ole"_s, u"Ei.Ole@example.fi"_s}, Kaksi[1],
                                                         {u"Tyhjä"_s, QString()}, {u"Väärä"_s, u"ei osoite"_s}});
        const mail::SendReport r1 = s.send(yhteinen);
        QCOMPARE(r1.recipients.size(), 5);
        QVERIFY(r1.recipients[0].sent);
        QVERIFY(!r1.recipients[1].sent);
        QVERIFY2(r1.recipients[1].reason.contains(u"550"_s), qPrintable(r1.recipients[1].reason));
        QVERIFY(r1.recipients[2].sent);
        QCOMPARE(r1.recipients[3].reason, u"Vastaanottajalla ei ole sähköpostiosoitetta."_s);
        QVERIFY(r1.recipients[4].reason.contains(u"ei kelpaa"_s));
        QVERIFY(r1.sentTo(u"masa@example.fi"_s));
        QVERIFY(!r1.sentTo(u"ei.ole@example.fi"_s));
        QCOMPARE(r1.error, QString());

        const mail::SendReport r2 = s.send(viesti(u"Seuraava"_s, Kaksi.mid(1)));
        QVERIFY2(r2.allSent(), qPrintable(r2.error));

        const mail::SendReport r3 = s.send(viesti(u"Vain hylätylle"_s, {{u"Ei Ole"_s, u"ei.ole@example.fi"_s}}));
        QCOMPARE(r3.sentCount(), 0);
        QCOMPARE(r3.error, u"Palvelin ei hyväksynyt yhtään vastaanottajaa."_s);
        QVERIFY(r3.recipients[0].reason.contains(u"550"_s));

        const mail::SendReport r4 = s.send(viesti(u"Vielä"_s, Kaksi.mid(0, 1)));
        QVERIFY2(r4.allSent(), qPrintable(r4.error));

        const auto saapuneet = p.viestit();
        QCOMPARE(saapuneet.size(), 3);
        QCOMPARE(saapuneet[0].kirjekuori[u"rcpt_tos"_s].toArray(),
                 (QJsonArray{u"aija@example.fi"_s, u"masa@example.fi"_s}));
        // The To header holds the usable addresses only.
        QCOMPARE(saapuneet[0].luettu[u"to"_s].toArray().size(), 3);
        QCOMPARE(saapuneet[0].luettu[u"defects"_s].toInt(), 0);
        QCOMPARE(saapuneet[1].luettu[u"body"_s].toString(), u"Seuraava\n"_s);
        QCOMPARE(saapuneet[2].luettu[u"body"_s].toString(), u"Vielä\n"_s);
        // The same client port: the messages went through one connection.
        QCOMPARE(saapuneet[0].kirjekuori[u"peer"_s].toArray(), saapuneet[1].kirjekuori[u"peer"_s].toArray());
    }

    // A common message to many shows no member the others' addresses.
    void piilotetutVastaanottajat()
    {
        Postipalvelin p;
        kaynnissa(p);
        mail::Message m = viesti(u"Kaikille"_s, Kaksi);
        m.hideRecipients = true;
        QVERIFY(mail::SmtpSender(asetukset(p)).send(m).allSent());
        const auto saapuneet = p.viestit();
        QCOMPARE(saapuneet.size(), 1);
        QCOMPARE(saapuneet[0].kirjekuori[u"rcpt_tos"_s].toArray(), (QJsonArray{u"aija@example.fi"_s, u"masa@example.fi"_s}));
        QVERIFY(!saapuneet[0].raaka.contains("aija@"));
        QVERIFY(!saapuneet[0].raaka.contains("masa@"));
        QCOMPARE(saapuneet[0].luettu[u"defects"_s].toInt(), 0);
    }

    void kirjautuminen_data()
    {
        QTest::addColumn<QString>("kayttaja");
        QTest::addColumn<QString>("salasana");
        QTest::addColumn<bool>("menee");
        QTest::addColumn<QString>("syy");
        QTest::newRow("oikein") << u"seura"_s << u"sala ä€"_s << true << QString();
        QTest::newRow("väärä salasana") << u"seura"_s << u"väärä"_s << false
                                        << u"ei hyväksynyt käyttäjätunnusta tai salasanaa"_s;
        QTest::newRow("väärä käyttäjä") << u"joku"_s << u"sala ä€"_s << false
                                        << u"ei hyväksynyt käyttäjätunnusta tai salasanaa"_s;
        QTest::newRow("ei kirjautumista") << QString() << QString() << false << u"530"_s;
    }
    void kirjautuminen()
    {
        QFETCH(QString, kayttaja);
        QFETCH(QString, salasana);
        QFETCH(bool, menee);
        QFETCH(QString, syy);
        testi::PalvelimenAsetus a;
        a.kayttaja = u"seura"_s;
        a.salasana = u"sala ä€"_s;
        Postipalvelin p(a);
        kaynnissa(p);
        mail::SmtpSettings asetus = asetukset(p);
        asetus.user = kayttaja;
        asetus.password = salasana;

        QCOMPARE(mail::SmtpSender(asetus).testConnection().isEmpty(), menee || kayttaja.isEmpty());
        mail::SmtpSender s(asetus);
        const mail::SendReport r = s.send(viesti(u"Kirjautuen"_s, Kaksi));
        QCOMPARE(r.allSent(), menee);
        QVERIFY2(r.error.contains(syy), qPrintable(r.error));
        for (const mail::RecipientResult &v : r.recipients)
            QVERIFY2(v.reason.contains(syy), qPrintable(v.reason));
        QCOMPARE(p.viestit().size(), menee ? 1 : 0);
        if (menee)
            QCOMPARE(p.viestit()[0].kirjekuori[u"login"_s].toString(), u"seura"_s);
    }

    void palvelinPuuttuu_data()
    {
        QTest::addColumn<QString>("palvelin");
        QTest::addColumn<QString>("syy");
        QTest::newRow("suljettu portti") << u"127.0.0.1"_s << u"ei saatu yhteyttä porttiin"_s;
        QTest::newRow("tuntematon nimi") << u"ei-ole.invalid"_s << u"Sähköpostipalvelinta ei-ole.invalid ei löydy"_s;
        QTest::newRow("tyhjä") << QString() << u"SMTP-palvelinta ei ole annettu"_s;
    }
    void palvelinPuuttuu()
    {
        QFETCH(QString, palvelin);
        QFETCH(QString, syy);
        mail::SmtpSettings asetus;
        asetus.host = palvelin;
        asetus.port = testi::vapaaPortti();
        mail::SmtpSender s(asetus);
        const mail::SendReport r = s.send(viesti(u"x"_s, Kaksi));
        QCOMPARE(r.sentCount(), 0);
        QVERIFY2(r.error.contains(syy), qPrintable(r.error));
        QVERIFY2(r.recipients[0].reason.contains(syy), qPrintable(r.recipients[0].reason));
        QVERIFY2(s.testConnection().contains(syy), qPrintable(s.testConnection()));
    }

    // A server that takes the connection and never answers: the run is not held for long, and the
    // user is told the server did not answer.
    void palvelinEiVastaa()
    {
        QTcpServer hiljainen; // the kernel accepts; nobody ever writes a greeting
        QVERIFY(hiljainen.listen(QHostAddress::LocalHost, 0));
        mail::SmtpSettings asetus;
        asetus.host = u"127.0.0.1"_s;
        asetus.port = hiljainen.serverPort();
        asetus.connectTimeoutSeconds = 1;
        asetus.idleTimeoutSeconds = 1;
        mail::SmtpSender s(asetus);
        const mail::SendReport r = s.send(viesti(u"x"_s, Kaksi));
        QCOMPARE(r.sentCount(), 0);
        // The Finnish reason, then curl's own words.
        QVERIFY2(QRegularExpression(u"^Sähköpostipalvelin 127\\.0\\.0\\.1 ei vastannut ajoissa\\. \\(.+\\)$"_s).match(r.error).hasMatch(),
                 qPrintable(r.error));
    }

    void salaus_data()
    {
        QTest::addColumn<bool>("smtps");
        QTest::addColumn<int>("suojaus");
        QTest::addColumn<bool>("varmenteella");
        QTest::addColumn<QString>("syy");
        QTest::newRow("STARTTLS varmenteella") << false << int(mail::Security::StartTls) << true << QString();
        QTest::newRow("STARTTLS ilman varmennetta") << false << int(mail::Security::StartTls) << false
                                                    << u"Salattu yhteys palvelimeen 127.0.0.1 ei onnistunut"_s;
        QTest::newRow("salaamaton STARTTLS-palvelimelle") << false << int(mail::Security::None) << true << u"530"_s;
        QTest::newRow("SMTPS varmenteella") << true << int(mail::Security::Smtps) << true << QString();
        QTest::newRow("SMTPS ilman varmennetta") << true << int(mail::Security::Smtps) << false
                                                 << u"Salattu yhteys palvelimeen 127.0.0.1 ei onnistunut"_s;
    }
    void salaus()
    {
        QFETCH(bool, smtps);
        QFETCH(int, suojaus);
        QFETCH(bool, varmenteella);
        QFETCH(QString, syy);
        const testi::Varmenne v = testi::teeVarmenne(tmp.path());
        QVERIFY2(!v.varmenne.isEmpty(), "openssl made no certificate");
        testi::PalvelimenAsetus a;
        a.varmenne = v.varmenne;
        a.avain = v.avain;
        a.smtps = smtps;
        a.kayttaja = u"seura"_s;
        a.salasana = u"salainen"_s;
        Postipalvelin p(a);
        kaynnissa(p);
        mail::SmtpSettings asetus = asetukset(p, mail::Security(suojaus));
        asetus.user = u"seura"_s;
        asetus.password = u"salainen"_s;
        if (varmenteella)
            asetus.caFile = v.varmenne;
        mail::SmtpSender s(asetus);
        const mail::SendReport r = s.send(viesti(u"Salattuna"_s, Kaksi));
        QCOMPARE(r.allSent(), syy.isEmpty());
        QVERIFY2(r.error.contains(syy), qPrintable(r.error));
        QCOMPARE(p.viestit().size(), syy.isEmpty() ? 1 : 0);
        const QString testi = s.testConnection();
        QVERIFY2(syy.isEmpty() ? testi.isEmpty() : testi.contains(syy) || suojaus == 0, qPrintable(testi));
    }

    void puuttuvaVarmennetiedosto()
    {
        mail::SmtpSettings asetus;
        asetus.host = u"127.0.0.1"_s;
        asetus.security = mail::Security::Smtps;
        const testi::Varmenne v = testi::teeVarmenne(tmp.path());
        testi::PalvelimenAsetus a;
        a.varmenne = v.varmenne;
        a.avain = v.avain;
        a.smtps = true;
        Postipalvelin p(a);
        kaynnissa(p);
        asetus.port = p.portti();
        asetus.caFile = tmp.filePath(u"ei-ole.crt"_s);
        const QString syy = mail::SmtpSender(asetus).testConnection();
        QVERIFY2(syy.contains(u"Varmennetiedostoa"_s) && syy.contains(u"ei-ole.crt"_s), qPrintable(syy));
    }

    // The connection test logs in and sends nothing.
    void yhteydenTestiEiLahetaMitaan()
    {
        testi::PalvelimenAsetus a;
        a.kayttaja = u"seura"_s;
        a.salasana = u"x"_s;
        Postipalvelin p(a);
        kaynnissa(p);
        mail::SmtpSettings asetus = asetukset(p);
        asetus.user = u"seura"_s;
        asetus.password = u"x"_s;
        QCOMPARE(mail::SmtpSender(asetus).testConnection(), QString());
        QCOMPARE(p.viestit().size(), 0);
    }
};

QTEST_GUILESS_MAIN(TestSmtp)
#include "tst_smtp.moc"
