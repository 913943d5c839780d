// What the mail tests send through both routes: texts that break a careless transport (lines of
// dots, "From " at a line's start, trailing blanks, long lines, characters beyond Latin-1), and a
// message whose every header needs encoding.
#pragma once

#include "platform/mail.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace postiaineisto {

inline void tekstirivit()
{
    QTest::addColumn<QString>("teksti");
    QTest::newRow("pisterivit") << u"Alku\n.\n.piste alussa\n..kaksi\n.\nloppu"_s;
    QTest::newRow("pelkka piste") << u"."_s;
    QTest::newRow("From rivin alussa") << u"From here on\nFrom: ei otsake"_s;
    QTest::newRow("välilyönnit lopussa") << u"tyhjä perässä   \nsarkain\t\nväli ja piste .\n . "_s;
    QTest::newRow("pitkä rivi") << (u"äö€ "_s.repeated(400) + u"\n"_s + u"x"_s.repeated(2000));
    QTest::newRow("merkit") << u"Hinta 25 € – ÅÄÖ åäö 🙂 = 3D =?UTF-8?B?x?= \\ \"lainaus\""_s;
    QTest::newRow("rivinvaihdot sekaisin") << u"yksi\r\nkaksi\rkolme\nneljä\r\n\r\nviisi"_s;
    QTest::newRow("tyhjä") << QString();
}

// The text as a reader gets it: line ends as "\n", and the line end the message ends in.
inline QString luettuna(const QString &teksti)
{
    QString t = teksti;
    t.replace(u"\r\n"_s, u"\n"_s);
    t.replace(u'\r', u'\n');
    return t + u'\n';
}

inline mail::Message viesti(const QString &teksti, const QList<mail::Address> &vastaanottajat)
{
    mail::Message m;
    m.from = {u"Kerho Äänekoski ry – €"_s, u"kerho@example.fi"_s};
    m.to = vastaanottajat;
    m.subject = u"Jäsenmaksu 2026: 25,00 € – muistutus ÅÄÖ"_s;
    m.body = teksti;
    return m;
}

inline QJsonArray nimiJaOsoite(const QString &nimi, const QString &osoite) { return QJsonArray{nimi, osoite}; }

// The reader's view checked against the message: decoded headers, text, and a clean raw form.
inline void tarkistaLuettu(const QJsonObject &luettu, const mail::Message &m)
{
    QVERIFY2(!luettu.isEmpty(), "the message could not be read");
    QCOMPARE(luettu[u"subject"_s].toString(), m.subject);
    QCOMPARE(luettu[u"from"_s].toArray().at(0).toArray(), nimiJaOsoite(m.from.name, m.from.address));
    QCOMPARE(luettu[u"to"_s].toArray().size(), m.to.size());
    for (int i = 0; i < m.to.size(); ++i)
        QCOMPARE(luettu[u"to"_s].toArray().at(i).toArray(), nimiJaOsoite(m.to[i].name, m.to[i].address));
    QCOMPARE(luettu[u"body"_s].toString(), luettuna(m.body));
    QCOMPARE(luettu[u"mime_version"_s].toString(), u"1.0"_s);
    QVERIFY(!luettu[u"date"_s].toString().isEmpty());
    QVERIFY(luettu[u"message_id"_s].toString().endsWith(u"@example.fi>"_s));
    QCOMPARE(luettu[u"defects"_s].toInt(), 0);
    QCOMPARE(luettu[u"bare_lf"_s].toInt(), 0);
    QVERIFY2(luettu[u"max_line"_s].toInt() <= 998, qPrintable(QString::number(luettu[u"max_line"_s].toInt())));
}

} // namespace postiaineisto
