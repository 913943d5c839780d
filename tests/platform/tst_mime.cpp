// The message builder on its own: the encodings a mail reader must undo exactly, read back with
// Python's e-mail parser.
#include "platform/mime.h"
#include "postiaineisto.h"
#include "postipalvelin.h"

#include <QTemporaryDir>
#include <QTimeZone>

using namespace postiaineisto;

class TestMime : public QObject {
    Q_OBJECT
    QTemporaryDir tmp;
    int laskuri = 0;

    QJsonObject luettuna(const QByteArray &tavut)
    {
        const QString polku = tmp.filePath(u"%1.eml"_s.arg(++laskuri));
        QFile f(polku);
        if (!f.open(QIODevice::WriteOnly))
            return {};
        f.write(tavut);
        f.close();
        return testi::lueViesti(polku);
    }

    static int pisinOtsakerivi(const QByteArray &tavut)
    {
        const QByteArray otsakkeet = tavut.left(tavut.indexOf("\r\n\r\n"));
        int pisin = 0;
        for (const QByteArray &rivi : otsakkeet.split('\n'))
            pisin = qMax(pisin, int(rivi.size()));
        return pisin;
    }

private slots:
    void quotedPrintable_data()
    {
        QTest::addColumn<QString>("teksti");
        QTest::addColumn<QByteArray>("koodattu");
        QTest::newRow("yhtäsuuruus") << u"a=b"_s << QByteArray("a=3Db");
        QTest::newRow("ääkköset") << u"äö€"_s << QByteArray("=C3=A4=C3=B6=E2=82=AC");
        QTest::newRow("välilyönti lopussa") << u"loppu \nsarkain\t"_s << QByteArray("loppu=20\r\nsarkain=09");
        QTest::newRow("From alussa") << u"From me\nsanoi From x"_s << QByteArray("=46rom me\r\nsanoi From x");
        QTest::newRow("piste jää") << u".\n..x"_s << QByteArray(".\r\n..x");
        QTest::newRow("76 merkkiä mahtuu") << u"x"_s.repeated(76) << QByteArray(76, 'x');
        QTest::newRow("77 merkkiä jaetaan") << u"x"_s.repeated(77)
                                          << QByteArray(75, 'x') + "=\r\nxx";
        QTest::newRow("koodia ei katkaista") << (u"x"_s.repeated(73) + u"ä"_s)
                                            << QByteArray(73, 'x') + "=\r\n=C3=A4";
    }
    void quotedPrintable()
    {
        QFETCH(QString, teksti);
        QFETCH(QByteArray, koodattu);
        QCOMPARE(mail::quotedPrintable(teksti), koodattu);
    }

    void paivays_data()
    {
        QTest::addColumn<QDateTime>("aika");
        QTest::addColumn<QByteArray>("teksti");
        QTest::newRow("kesäaika") << QDateTime(QDate(2026, 6, 1), QTime(9, 5, 7), QTimeZone(3 * 3600))
                                  << QByteArray("Mon, 1 Jun 2026 09:05:07 +0300");
        QTest::newRow("talviaika") << QDateTime(QDate(2026, 11, 25), QTime(14, 7, 17), QTimeZone(2 * 3600))
                                   << QByteArray("Wed, 25 Nov 2026 14:07:17 +0200");
        QTest::newRow("länteen") << QDateTime(QDate(2026, 1, 31), QTime(23, 59, 0), QTimeZone(-(3 * 3600 + 1800)))
                                 << QByteArray("Sat, 31 Jan 2026 23:59:00 -0330");
    }
    void paivays()
    {
        QFETCH(QDateTime, aika);
        QFETCH(QByteArray, teksti);
        QCOMPARE(mail::rfc2822Date(aika), teksti);
    }

    void sisaltotyyppi_data()
    {
        QTest::addColumn<QString>("nimi");
        QTest::addColumn<QByteArray>("tyyppi");
        QTest::newRow("pdf") << u"lasku.pdf"_s << QByteArray("application/pdf");
        QTest::newRow("isot kirjaimet") << u"KUVA.JPG"_s << QByteArray("image/jpeg");
        QTest::newRow("taulukko") << u"jäsenet.xlsx"_s
                                  << QByteArray("application/vnd.openxmlformats-officedocument.spreadsheetml.sheet");
        QTest::newRow("teksti") << u"lue.txt"_s << QByteArray("text/plain");
        QTest::newRow("tuntematon pääte") << u"data.zzqx"_s << QByteArray("application/octet-stream");
        QTest::newRow("ei päätettä") << u"liite"_s << QByteArray("application/octet-stream");
    }
    void sisaltotyyppi()
    {
        QFETCH(QString, nimi);
        QFETCH(QByteArray, tyyppi);
        QCOMPARE(mail::contentTypeFor(nimi), tyyppi);
    }

    // Names and subjects come back to the reader as written, whatever they hold, and no header
    // line grows past what mail readers take.
    void otsakkeet_data()
    {
        QTest::addColumn<QString>("nimi");
        QTest::addColumn<QString>("aihe");
        QTest::newRow("tavallinen") << u"Matti Virtanen"_s << u"Lasku"_s;
        QTest::newRow("pilkku nimessä") << u"Virtanen, Matti"_s << u"Jäsenmaksu"_s;
        QTest::newRow("lainausmerkit") << u"Matti \"Masa\" O'Brien \\ Jr."_s << u"\"Lainattu\" aihe; (sulut)"_s;
        QTest::newRow("ääkköset") << u"Åsa Öhman-Äijälä"_s << u"Ääni, öljy & €"_s;
        QTest::newRow("pitkä") << u"Ä"_s.repeated(120) << (u"Muistutus jäsenmaksusta 25 € "_s.repeated(12)).trimmed();
        QTest::newRow("emoji") << u"Kerho 🙂"_s << u"🙂🙂🙂 ja teksti"_s.repeated(10);
        QTest::newRow("pitkä ascii") << u"x"_s.repeated(100) << u"Subject "_s.repeated(60).trimmed();
        QTest::newRow("koodatun näköinen") << u"=?UTF-8?B?SGVp?="_s << u"=?UTF-8?Q?x?= ei koodattu"_s;
        QTest::newRow("tyhjä") << QString() << QString();
    }
    void otsakkeet()
    {
        QFETCH(QString, nimi);
        QFETCH(QString, aihe);
        mail::Message m;
        m.from = {nimi, u"kerho@example.fi"_s};
        m.to = {{nimi, u"a@example.fi"_s}, {u"Toinen"_s, u"b@example.fi"_s}};
        m.subject = aihe;
        m.body = u"Teksti"_s;
        const mail::MimeResult r = mail::buildMime(m);
        QVERIFY(r.ok());
        const QJsonObject luettu = luettuna(r.bytes);
        QCOMPARE(luettu[u"subject"_s].toString(), aihe);
        QCOMPARE(luettu[u"from"_s].toArray().at(0).toArray(), nimiJaOsoite(nimi, u"kerho@example.fi"_s));
        QCOMPARE(luettu[u"to"_s].toArray().at(0).toArray(), nimiJaOsoite(nimi, u"a@example.fi"_s));
        QCOMPARE(luettu[u"to"_s].toArray().at(1).toArray(), nimiJaOsoite(u"Toinen"_s, u"b@example.fi"_s));
        QCOMPARE(luettu[u"defects"_s].toInt(), 0);
        QVERIFY2(pisinOtsakerivi(r.bytes) <= 998, qPrintable(QString::number(pisinOtsakerivi(r.bytes))));
        if (!aihe.startsWith(u"Subject"_s)) // an ASCII subject stays one plain line
            QVERIFY2(pisinOtsakerivi(r.bytes) <= 78, qPrintable(QString::number(pisinOtsakerivi(r.bytes))));
    }

    // A line break in a subject or name cannot start a header of its own.
    void rivinvaihtoOtsakkeessa()
    {
        mail::Message m;
        m.from = {u"Kerho\r\nBcc: urkkija@example.fi"_s, u"kerho@example.fi"_s};
        m.to = {{u"A"_s, u"a@example.fi"_s}};
        m.subject = u"Lasku\r\nBcc: urkkija@example.fi\nX-Roskaa: 1"_s;
        const mail::MimeResult r = mail::buildMime(m);
        QVERIFY(!r.bytes.contains("\r\nBcc:"));
        QVERIFY(!r.bytes.contains("\r\nX-Roskaa:"));
        const QJsonObject luettu = luettuna(r.bytes);
        QCOMPARE(luettu[u"to"_s].toArray().size(), 1);
        QCOMPARE(luettu[u"subject"_s].toString(), u"Lasku  Bcc: urkkija@example.fi X-Roskaa: 1"_s);
    }

    void viestinTunnisteOnYksilollinen()
    {
        mail::Message m = viesti(u"x"_s, {{u"A"_s, u"a@example.fi"_s}});
        const QString eka = luettuna(mail::buildMime(m).bytes)[u"message_id"_s].toString();
        const QString toka = luettuna(mail::buildMime(m).bytes)[u"message_id"_s].toString();
        QVERIFY(eka.endsWith(u"@example.fi>"_s));
        QVERIFY(eka != toka);
    }

    void osoitteet_data()
    {
        QTest::addColumn<QString>("osoite");
        QTest::addColumn<bool>("kelpaa");
        QTest::newRow("tavallinen") << u"matti.virtanen+seura@example.fi"_s << true;
        QTest::newRow("tyhjä") << QString() << false;
        QTest::newRow("ei ät-merkkiä") << u"matti.example.fi"_s << false;
        QTest::newRow("kaksi ät-merkkiä") << u"a@b@example.fi"_s << false;
        QTest::newRow("välilyönti") << u"matti virtanen@example.fi"_s << false;
        QTest::newRow("kulmasulku") << u"a>@example.fi"_s << false;
        QTest::newRow("rivinvaihto") << u"a@example.fi\r\nRCPT TO:<b@x.fi>"_s << false;
        QTest::newRow("ääkkönen") << u"äijä@example.fi"_s << false;
        QTest::newRow("loppuu ät-merkkiin") << u"matti@"_s << false;
    }
    void osoitteet()
    {
        QFETCH(QString, osoite);
        QFETCH(bool, kelpaa);
        QCOMPARE(mail::isValidAddress(osoite), kelpaa);
        QCOMPARE(mail::addressProblem(osoite).isEmpty(), kelpaa);
    }
};

QTEST_GUILESS_MAIN(TestMime)
#include "tst_mime.moc"
