#include "postipalvelin.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QTcpServer>

namespace testi {

namespace {
const QString kPython = QStringLiteral("/usr/bin/python3");

QByteArray lueKaikki(const QString &polku)
{
    QFile f(polku);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}
} // namespace

QString tukiskripti(const QString &nimi) { return QStringLiteral(VONARI_TEST_SUPPORT_DIR "/") + nimi; }

Varmenne teeVarmenne(const QString &kansio)
{
    Varmenne v{kansio + QStringLiteral("/palvelin.crt"), kansio + QStringLiteral("/palvelin.key")};
    QProcess p;
    p.start(QStringLiteral("openssl"),
            {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"), QStringLiteral("rsa:2048"),
             QStringLiteral("-nodes"), QStringLiteral("-days"), QStringLiteral("2"), QStringLiteral("-subj"),
             QStringLiteral("/CN=localhost"), QStringLiteral("-addext"),
             QStringLiteral("subjectAltName=IP:127.0.0.1,DNS:localhost"), QStringLiteral("-keyout"), v.avain,
             QStringLiteral("-out"), v.varmenne});
    if (!p.waitForFinished(60000) || p.exitCode() != 0)
        return {};
    return v;
}

Postipalvelin::Postipalvelin(const PalvelimenAsetus &asetus)
{
    QStringList args{tukiskripti(QStringLiteral("smtppalvelin.py")), QStringLiteral("--dir"), m_kansio.path()};
    for (const QString &h : asetus.hylattavat)
        args << QStringLiteral("--refuse") << h;
    if (!asetus.kayttaja.isEmpty())
        args << QStringLiteral("--user") << asetus.kayttaja << QStringLiteral("--password") << asetus.salasana;
    if (!asetus.varmenne.isEmpty())
        args << QStringLiteral("--tlscert") << asetus.varmenne << QStringLiteral("--tlskey") << asetus.avain;
    if (asetus.smtps)
        args << QStringLiteral("--smtps");
    // The server's own log stays in its folder, out of the test's output.
    m_prosessi.setStandardErrorFile(m_kansio.filePath(QStringLiteral("palvelin.log")));
    m_prosessi.start(kPython, args);
    if (!m_prosessi.waitForStarted(10000)) {
        m_virhe = m_prosessi.errorString();
        return;
    }
    // The first line is the port, written once the server listens.
    while (!m_prosessi.canReadLine()) {
        if (!m_prosessi.waitForReadyRead(30000)) {
            QFile loki(m_kansio.filePath(QStringLiteral("palvelin.log")));
            loki.open(QIODevice::ReadOnly);
            m_virhe = QStringLiteral("the SMTP server wrote no port: ") + QString::fromUtf8(loki.readAll());
            return;
        }
    }
    m_portti = m_prosessi.readLine().trimmed().toInt();
}

Postipalvelin::~Postipalvelin()
{
    if (m_prosessi.state() == QProcess::NotRunning)
        return;
    m_prosessi.closeWriteChannel(); // the server stops when its input closes
    if (!m_prosessi.waitForFinished(10000)) {
        m_prosessi.kill();
        m_prosessi.waitForFinished(5000);
    }
}

QList<Saapunut> Postipalvelin::viestit() const
{
    QList<Saapunut> out;
    const QStringList nimet = QDir(m_kansio.path()).entryList({QStringLiteral("*.eml")}, QDir::Files, QDir::Name);
    for (const QString &n : nimet) {
        const QString eml = m_kansio.filePath(n);
        QString json = eml;
        json.replace(QStringLiteral(".eml"), QStringLiteral(".json"));
        out.append({lueKaikki(eml), QJsonDocument::fromJson(lueKaikki(json)).object(), lueViesti(eml)});
    }
    return out;
}

int vapaaPortti()
{
    QTcpServer s;
    s.listen(QHostAddress::LocalHost, 0);
    return s.serverPort();
}

QJsonObject lueViesti(const QString &eml)
{
    QProcess p;
    p.start(kPython, {tukiskripti(QStringLiteral("postiluku.py")), eml});
    if (!p.waitForFinished(60000) || p.exitCode() != 0)
        return {};
    return QJsonDocument::fromJson(p.readAllStandardOutput()).object();
}

} // namespace testi
