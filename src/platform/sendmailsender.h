// Sending through the system's mail transport: the message goes to `sendmail -t -i` (msmtp, the
// system MTA or any other sendmail-compatible program), whose exit status tells whether it went.
#pragma once

#include "platform/mail.h"

namespace mail {

class SendmailSender : public Sender {
public:
    explicit SendmailSender(SystemSettings settings);
    // The program takes the recipients from the message's To header; a failure is the whole
    // message's, so every recipient gets the same result.
    SendReport send(const Message &message) override;

private:
    SystemSettings m_settings;
};

// The sendmail program that would be used: the given one, or `sendmail` on PATH, in /usr/sbin or
// /usr/lib. Empty when there is none.
QString findSendmail(const QString &program = {});

// What the user is told when there is no sendmail program.
QString sendmailMissingText();

} // namespace mail
