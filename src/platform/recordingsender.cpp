#include "platform/recordingsender.h"

namespace mail {

RecordingSender::RecordingSender(std::shared_ptr<Log> log) : m_log(std::move(log)) {}

SendReport RecordingSender::send(const Message &message)
{
    m_log->messages.append(message);
    SendReport report;
    report.error = m_log->failure;
    for (const Address &a : message.to) {
        RecipientResult r;
        r.address = a.address.trimmed();
        if (!m_log->failure.isEmpty())
            r.reason = m_log->failure;
        else if (const QString problem = addressProblem(r.address); !problem.isEmpty())
            r.reason = problem;
        else if (m_log->refused.contains(r.address.toLower()))
            r.reason = QStringLiteral("Palvelin ei hyväksynyt vastaanottajaa %1").arg(r.address);
        r.sent = r.reason.isEmpty();
        report.recipients.append(r);
    }
    return report;
}

RecordingInstall::RecordingInstall(std::shared_ptr<RecordingSender::Log> log) : m_log(std::move(log))
{
    setSenderMaker([l = m_log](const Settings &) { return std::make_unique<RecordingSender>(l); });
}

RecordingInstall::~RecordingInstall() { setSenderMaker({}); }

} // namespace mail
