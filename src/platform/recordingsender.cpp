#include "platform/recordingsender.h"

namespace mail {

RecordingSender::RecordingSender(std::shared_ptr<Log> log) : m_log(std::move(log)) {}

SendReport RecordingSender::send(const Message &message)
{
    m_log->messages.append(message);
    SendReport report;
    startReport(message, report);
    report.error = m_log->failure;
    for (RecipientResult &r : report.recipients) {
        if (!r.reason.isEmpty())
            continue;
        if (!m_log->failure.isEmpty())
            r.reason = m_log->failure;
        else if (m_log->refused.contains(r.address.toLower()))
            r.reason = QStringLiteral("Palvelin ei hyväksynyt vastaanottajaa %1").arg(r.address);
        r.sent = r.reason.isEmpty();
    }
    return report;
}

RecordingInstall::RecordingInstall(std::shared_ptr<RecordingSender::Log> log) : m_log(std::move(log))
{
    setSenderMaker([l = m_log](const Settings &) { return std::make_unique<RecordingSender>(l); });
}

RecordingInstall::~RecordingInstall() { setSenderMaker({}); }

} // namespace mail
