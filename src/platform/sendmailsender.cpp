#include "platform/sendmailsender.h"

#include "platform/mime.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace mail {

QString findSendmail(const QString &program)
{
    if (!program.isEmpty()) {
        if (program.contains(QLatin1Char('/')))
            return QFileInfo(program).isExecutable() ? program : QString();
        return QStandardPaths::findExecutable(program);
    }
    QString found = QStandardPaths::findExecutable(QStringLiteral("sendmail"));
    if (found.isEmpty())
        found = QStandardPaths::findExecutable(QStringLiteral("sendmail"),
                                               {QStringLiteral("/usr/sbin"), QStringLiteral("/usr/lib")});
    return found;
}

QString sendmailMissingText()
{
    return QStringLiteral("Järjestelmän postiohjelmaa (sendmail) ei löydy. Asenna koneeseen sendmail-yhteensopiva "
                          "postiohjelma, esimerkiksi msmtp-mta, tai valitse asetuksista lähetystavaksi suora SMTP.");
}

SendmailSender::SendmailSender(SystemSettings settings) : m_settings(std::move(settings)) {}

SendReport SendmailSender::send(const Message &message)
{
    SendReport report;
    const Message m = startReport(message, report);
    auto failAll = [&](const QString &why) {
        report.error = why;
        for (RecipientResult &r : report.recipients)
            if (r.reason.isEmpty())
                r.reason = why;
        return report;
    };
    if (m.to.isEmpty()) {
        report.error = QStringLiteral("Viestillä ei ole yhtään kelvollista vastaanottajaa.");
        return report;
    }
    if (!isValidAddress(m.from.address.trimmed()))
        return failAll(QStringLiteral("Lähettäjän sähköpostiosoite \"%1\" ei kelpaa. Tarkista asetukset.")
                           .arg(m.from.address));
    const MimeResult mime = buildMime(m);
    if (!mime.ok())
        return failAll(mime.error);

    const QString program = findSendmail(m_settings.program);
    if (program.isEmpty())
        return failAll(sendmailMissingText());
    QStringList args = m_settings.arguments;
    // -i: a line of a single dot is text, not the end of the message.
    args << QStringLiteral("-i") << QStringLiteral("-f") << m.from.address.trimmed();
    // -t takes the recipients from the To header; hidden ones are not there and go as arguments.
    if (m.hideRecipients) {
        args << QStringLiteral("--");
        for (const Address &a : m.to)
            args << a.address;
    } else {
        args << QStringLiteral("-t");
    }

    QProcess p;
    p.setProcessChannelMode(QProcess::SeparateChannels);
    p.start(program, args);
    if (!p.waitForStarted(10000))
        return failAll(QStringLiteral("Postiohjelmaa %1 ei voitu käynnistää (%2).").arg(program, p.errorString()));
    p.write(mime.bytes);
    p.closeWriteChannel();
    if (!p.waitForFinished(m_settings.timeoutSeconds * 1000)) {
        p.kill();
        p.waitForFinished(5000);
        return failAll(QStringLiteral("Postiohjelma %1 ei saanut viestiä lähetettyä ajoissa.").arg(program));
    }
    if (p.exitStatus() != QProcess::NormalExit || p.exitCode() != 0) {
        const QString output = QString::fromLocal8Bit(p.readAllStandardError()).trimmed();
        return failAll(QStringLiteral("Postiohjelma %1 ei lähettänyt viestiä (paluuarvo %2)%3")
                           .arg(program)
                           .arg(p.exitCode())
                           .arg(output.isEmpty() ? QStringLiteral(".") : QStringLiteral(": ") + output));
    }
    for (RecipientResult &r : report.recipients)
        r.sent = r.reason.isEmpty();
    return report;
}

} // namespace mail
