#include "platform/mail.h"

#include "platform/sendmailsender.h"
#include "platform/smtpsender.h"

namespace mail {

namespace {
SenderMaker &maker()
{
    static SenderMaker m;
    return m;
}
} // namespace

int SendReport::sentCount() const
{
    int n = 0;
    for (const RecipientResult &r : recipients)
        n += r.sent ? 1 : 0;
    return n;
}

bool SendReport::sentTo(const QString &address) const
{
    for (const RecipientResult &r : recipients)
        if (r.sent && r.address.compare(address, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

int SmtpSettings::effectivePort() const
{
    if (port > 0)
        return port;
    switch (security) {
    case Security::StartTls: return 587;
    case Security::Smtps: return 465;
    case Security::None: break;
    }
    return 25;
}

std::unique_ptr<Sender> openSender(const Settings &settings)
{
    if (maker())
        return maker()(settings);
    if (settings.route == Route::Smtp)
        return std::make_unique<SmtpSender>(settings.smtp);
    return std::make_unique<SendmailSender>(settings.system);
}

void setSenderMaker(SenderMaker m) { maker() = std::move(m); }

bool isValidAddress(const QString &address)
{
    const int at = address.indexOf(QLatin1Char('@'));
    if (at <= 0 || at != address.lastIndexOf(QLatin1Char('@')) || at == address.size() - 1)
        return false;
    for (QChar c : address) {
        const char16_t u = c.unicode();
        if (u <= 0x20 || u >= 0x7F || u == '<' || u == '>' || u == '(' || u == ')' || u == ',' || u == ';'
            || u == '"' || u == '\\' || u == '[' || u == ']')
            return false;
    }
    return true;
}

QString addressProblem(const QString &address)
{
    const QString a = address.trimmed();
    if (a.isEmpty())
        return QStringLiteral("Vastaanottajalla ei ole sähköpostiosoitetta.");
    if (!isValidAddress(a))
        return QStringLiteral("Sähköpostiosoite \"%1\" ei kelpaa.").arg(a);
    return {};
}

Message startReport(const Message &message, SendReport &report)
{
    Message deliverable = message;
    deliverable.to.clear();
    report.recipients.clear();
    for (const Address &a : message.to) {
        RecipientResult r;
        r.address = a.address.trimmed();
        r.reason = addressProblem(r.address);
        if (r.reason.isEmpty())
            deliverable.to.append({a.name, r.address});
        report.recipients.append(r);
    }
    return deliverable;
}

} // namespace mail
