// Sending by SMTP through libcurl: plain, STARTTLS or SMTPS, with login. One curl handle lives as
// long as the sender, so its connection carries every message of a run.
#pragma once

#include "platform/mail.h"

namespace mail {

class SmtpSender : public Sender {
public:
    explicit SmtpSender(SmtpSettings settings);
    ~SmtpSender() override;
    SmtpSender(const SmtpSender &) = delete;
    SmtpSender &operator=(const SmtpSender &) = delete;

    // Every recipient the server refuses is reported as not sent, with the server's answer; the
    // others get the message.
    SendReport send(const Message &message) override;

    // Connects and logs in, sending nothing. Empty when it went, otherwise why not, in Finnish.
    QString testConnection();

private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

} // namespace mail
