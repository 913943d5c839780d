// Sending through the system's sendmail (msmtp here, with a configuration file of the test's own
// pointed at a loopback server): what arrives, and what a failing or missing program reports.
#include "platform/sendmailsender.h"
#include "postiaineisto.h"
#include "postipalvelin.h"

#include <QTemporaryDir>

using namespace postiaineisto;
using testi::Postipalvelin;

class TestSendmail : public QObject {
    Q_OBJECT
    QTemporaryDir tmp;

    // msmtp wants its configuration readable by the user alone.
    QString msmtpAsetus(int portti)
    {
        const QString polku = tmp.filePath(u"msmtprc-%1"_s.arg(portti));
        QFile f(polku);
        if (!f.open(QIODevice::WriteOnly))
            return {};
        f.write(QStringLiteral("defaults\nauth off\ntls off\n\naccount default\nhost 127.0.0.1\nport %1\n"
                               "from kerho@example.fi\n")
                    .arg(portti)
                    .toUtf8());
        f.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
        return polku;
    }

    mail::SystemSettings asetukset(int portti)
    {
        mail::SystemSettings s;
        s.program = u"/usr/sbin/sendmail"_s;
        s.arguments = {u"-C"_s, msmtpAsetus(portti)};
        return s;
    }

private slots:
    void initTestCase()
    {
        if (mail::findSendmail(u"/usr/sbin/sendmail"_s).isEmpty())
            QFAIL("/usr/sbin/sendmail is missing: install msmtp-mta (scripts/deps.sh)");
    }

    void tekstiSaapuuSellaisenaan_data() { tekstirivit(); }
    void tekstiSaapuuSellaisenaan()
    {
        QFETCH(QString, teksti);
        Postipalvelin p;
        QVERIFY2(p.kaynnissa(), qPrintable(p.virhe()));
        mail::SendmailSender s(asetukset(p.portti()));
        const mail::Message m = viesti(teksti, {{u"Virtanen, Matti"_s, u"matti@example.fi"_s},
                                                {u"Åsa Öhman"_s, u"asa@example.fi"_s}});
        const mail::SendReport r = s.send(m);
        QVERIFY2(r.allSent(), qPrintable(r.error));
        const auto saapuneet = p.viestit();
        QCOMPARE(saapuneet.size(), 1);
        tarkistaLuettu(saapuneet[0].luettu, m);
        // sendmail -t took both recipients from the To header, the quoted comma notwithstanding.
        QCOMPARE(saapuneet[0].kirjekuori[u"rcpt_tos"_s].toArray(),
                 (QJsonArray{u"matti@example.fi"_s, u"asa@example.fi"_s}));
        QCOMPARE(saapuneet[0].kirjekuori[u"mail_from"_s].toString(), u"kerho@example.fi"_s);
    }

    void liiteSaapuuTavulleen()
    {
        Postipalvelin p;
        QVERIFY2(p.kaynnissa(), qPrintable(p.virhe()));
        QByteArray tavut;
        for (int i = 0; i < 1000; ++i)
            tavut.append(char(i * 7 % 256));
        tavut += "\n.\n";
        const QString polku = tmp.filePath(u"kuitti ä.pdf"_s);
        QFile f(polku);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(tavut);
        f.close();
        mail::Message m = viesti(u".\nLiite\n"_s, {{QString(), u"matti@example.fi"_s}});
        m.attachments = {polku};
        QVERIFY(mail::SendmailSender(asetukset(p.portti())).send(m).allSent());
        const QJsonArray liitteet = p.viestit().value(0).luettu[u"attachments"_s].toArray();
        QCOMPARE(liitteet.size(), 1);
        QCOMPARE(liitteet[0][u"name"_s].toString(), u"kuitti ä.pdf"_s);
        QCOMPARE(QByteArray::fromBase64(liitteet[0][u"data"_s].toString().toLatin1()), tavut);
    }

    // A recipient without a usable address is left out of the message and reported; the others
    // get it.
    void kelvotonOsoiteJaaPois()
    {
        Postipalvelin p;
        QVERIFY2(p.kaynnissa(), qPrintable(p.virhe()));
        const mail::SendReport r = mail::SendmailSender(asetukset(p.portti()))
                                       .send(viesti(u"x"_s, {{u"Tyhjä"_s, QString()}, {u"Matti"_s, u"matti@example.fi"_s}}));
        QCOMPARE(r.recipients.size(), 2);
        QVERIFY(!r.recipients[0].sent);
        QCOMPARE(r.recipients[0].reason, u"Vastaanottajalla ei ole sähköpostiosoitetta."_s);
        QVERIFY(r.recipients[1].sent);
        QCOMPARE(p.viestit().value(0).kirjekuori[u"rcpt_tos"_s].toArray(), QJsonArray{u"matti@example.fi"_s});
    }

    // Hidden recipients are not in the To header, so they go to sendmail as arguments.
    void piilotetutVastaanottajat()
    {
        Postipalvelin p;
        QVERIFY2(p.kaynnissa(), qPrintable(p.virhe()));
        mail::Message m = viesti(u"Kaikille"_s, {{u"Matti"_s, u"matti@example.fi"_s}, {u"Åsa"_s, u"asa@example.fi"_s}});
        m.hideRecipients = true;
        QVERIFY(mail::SendmailSender(asetukset(p.portti())).send(m).allSent());
        const auto saapuneet = p.viestit();
        QCOMPARE(saapuneet.size(), 1);
        QCOMPARE(saapuneet[0].kirjekuori[u"rcpt_tos"_s].toArray(),
                 (QJsonArray{u"matti@example.fi"_s, u"asa@example.fi"_s}));
        QVERIFY(!saapuneet[0].raaka.contains("matti@"));
        QCOMPARE(saapuneet[0].luettu[u"body"_s].toString(), u"Kaikille\n"_s);
    }

    void epaonnistuminen_data()
    {
        QTest::addColumn<QString>("ohjelma");
        QTest::addColumn<QString>("syy");
        QTest::newRow("palvelin ei vastaa") << u"/usr/sbin/sendmail"_s << u"ei lähettänyt viestiä (paluuarvo"_s;
        QTest::newRow("ohjelma puuttuu") << u"/ei/ole/sendmail"_s
                                         << u"Järjestelmän postiohjelmaa (sendmail) ei löydy."_s;
    }
    void epaonnistuminen()
    {
        QFETCH(QString, ohjelma);
        QFETCH(QString, syy);
        mail::SystemSettings s = asetukset(testi::vapaaPortti());
        s.program = ohjelma;
        const mail::SendReport r = mail::SendmailSender(s).send(viesti(u"x"_s, {{u"M"_s, u"m@example.fi"_s}}));
        QCOMPARE(r.sentCount(), 0);
        QVERIFY2(r.error.contains(syy), qPrintable(r.error));
        QCOMPARE(r.recipients[0].reason, r.error);
    }
};

QTEST_GUILESS_MAIN(TestSendmail)
#include "tst_sendmail.moc"
