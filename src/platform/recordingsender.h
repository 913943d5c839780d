// A sender that sends nothing: it keeps every message for a test to read, and refuses the
// addresses it is told to, as a server would.
#pragma once

#include "platform/mail.h"

#include <QSet>
#include <memory>

namespace mail {

class RecordingSender : public Sender {
public:
    struct Log {
        QList<Message> messages;       // as given
        QSet<QString> refused;         // lower-case addresses
        QString failure;               // when set, every message fails with this reason
    };

    // Senders made from one log share it, so a test keeps the log after a window drops its sender.
    explicit RecordingSender(std::shared_ptr<Log> log = std::make_shared<Log>());

    SendReport send(const Message &message) override;

    void refuse(const QString &address) { m_log->refused.insert(address.trimmed().toLower()); }
    const QList<Message> &messages() const { return m_log->messages; }
    std::shared_ptr<Log> log() const { return m_log; }

private:
    std::shared_ptr<Log> m_log;
};

// Makes every sender the program opens a recording one over `log`, until the returned guard goes.
class RecordingInstall {
public:
    explicit RecordingInstall(std::shared_ptr<RecordingSender::Log> log = std::make_shared<RecordingSender::Log>());
    ~RecordingInstall();
    RecordingInstall(const RecordingInstall &) = delete;
    RecordingInstall &operator=(const RecordingInstall &) = delete;
    RecordingSender::Log &log() { return *m_log; }

private:
    std::shared_ptr<RecordingSender::Log> m_log;
};

} // namespace mail
