// Which sender a run gets: the route of the settings, or the recording one a test installs, which
// keeps what it is given and refuses as a server would.
#include "platform/recordingsender.h"
#include "platform/sendmailsender.h"
#include "platform/smtpsender.h"

#include <QtTest>

using namespace Qt::Literals::StringLiterals;

class TestPostireitit : public QObject {
    Q_OBJECT

private slots:
    void reittiAsetuksista()
    {
        mail::Settings a;
        a.route = mail::Route::Smtp;
        QVERIFY(dynamic_cast<mail::SmtpSender *>(mail::openSender(a).get()));
        a.route = mail::Route::System;
        QVERIFY(dynamic_cast<mail::SendmailSender *>(mail::openSender(a).get()));
    }

    // A sender's address that is not one (an empty setting, a line break) stops the message before
    // anything is sent, on either route.
    void lahettajanOsoiteTarkistetaan_data()
    {
        QTest::addColumn<int>("reitti");
        QTest::addColumn<QString>("osoite");
        for (int reitti : {int(mail::Route::Smtp), int(mail::Route::System)}) {
            const QString nimi = reitti == int(mail::Route::Smtp) ? u"smtp "_s : u"sendmail "_s;
            QTest::addRow("%s", qPrintable(nimi + u"tyhjä"_s)) << reitti << QString();
            QTest::addRow("%s", qPrintable(nimi + u"rivinvaihto"_s)) << reitti << u"kerho@example.fi\r\nBcc: x@example.fi"_s;
            QTest::addRow("%s", qPrintable(nimi + u"ei osoite"_s)) << reitti << u"Latu ry"_s;
        }
    }
    void lahettajanOsoiteTarkistetaan()
    {
        QFETCH(int, reitti);
        QFETCH(QString, osoite);
        mail::Settings a;
        a.route = mail::Route(reitti);
        a.smtp.host = u"127.0.0.1"_s;
        a.smtp.port = 9; // nobody is asked: the message stops before
        a.system.program = u"/bin/false"_s;
        mail::Message m;
        m.from = {u"Latu"_s, osoite};
        m.to = {{u"A"_s, u"a@example.fi"_s}};
        const mail::SendReport r = mail::openSender(a)->send(m);
        QCOMPARE(r.sentCount(), 0);
        QVERIFY2(r.error.startsWith(u"Lähettäjän sähköpostiosoite"_s), qPrintable(r.error));
        QCOMPARE(r.recipients[0].reason, r.error);
    }

    void tallentavaLahettaja()
    {
        {
            mail::RecordingInstall asennus;
            mail::Settings a;
            a.route = mail::Route::Smtp;
            auto lahettaja = mail::openSender(a);
            auto *tallentava = dynamic_cast<mail::RecordingSender *>(lahettaja.get());
            QVERIFY(tallentava);
            tallentava->refuse(u" Ei.Ole@example.fi "_s);

            mail::Message m;
            m.from = {u"Kerho"_s, u"kerho@example.fi"_s};
            m.to = {{u"A"_s, u"a@example.fi"_s}, {u"Ei"_s, u"ei.ole@example.fi"_s}, {u"Tyhjä"_s, QString()}};
            m.subject = u"Aihe"_s;
            const mail::SendReport r = lahettaja->send(m);
            QCOMPARE(r.recipients.size(), 3);
            QVERIFY(r.recipients[0].sent);
            QVERIFY(!r.recipients[1].sent && !r.recipients[1].reason.isEmpty());
            QCOMPARE(r.recipients[2].reason, u"Vastaanottajalla ei ole sähköpostiosoitetta."_s);
            QCOMPARE(r.sentCount(), 1);
            QVERIFY(!r.allSent());

            // A second sender of the same run shares the log; a failure set on it fails everyone.
            asennus.log().failure = u"Palvelin ei vastaa."_s;
            const mail::SendReport r2 = mail::openSender(a)->send(m);
            QCOMPARE(r2.sentCount(), 0);
            QCOMPARE(r2.error, u"Palvelin ei vastaa."_s);
            QCOMPARE(asennus.log().messages.size(), 2);
            QCOMPARE(asennus.log().messages[1].subject, u"Aihe"_s);
        }
        // The guard gone, the real senders are back.
        mail::Settings a;
        a.route = mail::Route::Smtp;
        QVERIFY(dynamic_cast<mail::SmtpSender *>(mail::openSender(a).get()));
    }
};

QTEST_GUILESS_MAIN(TestPostireitit)
#include "tst_postireitit.moc"
