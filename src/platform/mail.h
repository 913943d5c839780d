// Sending e-mail: one message at a time, with a result for every recipient. A sender is a
// session: the SMTP one keeps its connection open from message to message for as long as it
// lives, so a run makes one sender and sends all its messages through it.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

namespace mail {

struct Address {
    QString name;    // shown to the reader; may be empty
    QString address; // user@domain
};

struct Message {
    Address from;
    QList<Address> to;
    QString subject;
    QString body;            // plain text; line ends of any kind
    QStringList attachments; // file paths
    // A common message to many: each gets it with "undisclosed-recipients" in its To header, so
    // no member sees the others' addresses.
    bool hideRecipients = false;
};

struct RecipientResult {
    QString address;
    bool sent = false;
    QString reason; // in Finnish, empty when sent
};

struct SendReport {
    QList<RecipientResult> recipients; // one per recipient of the message, in its order
    QString error;                     // why the message as a whole did not go; empty otherwise

    int sentCount() const;
    bool allSent() const { return !recipients.isEmpty() && sentCount() == recipients.size(); }
    // Whether the recipient with this address went out.
    bool sentTo(const QString &address) const;
};

class Sender {
public:
    virtual ~Sender() = default;
    virtual SendReport send(const Message &message) = 0;
};

enum class Route { System, Smtp };
enum class Security { None = 0, StartTls = 1, Smtps = 2 };

struct SmtpSettings {
    QString host;
    int port = 0; // 0: the usual port of the security (25, 587, 465)
    Security security = Security::None;
    QString user; // empty: no login
    QString password;
    QString caFile; // a certificate file to trust beside the system's (a self-signed server)
    int connectTimeoutSeconds = 20;
    // The longest silence of the server while a message is being sent.
    int idleTimeoutSeconds = 60;

    int effectivePort() const;
};

struct SystemSettings {
    QString program;         // empty: `sendmail` from PATH, /usr/sbin or /usr/lib
    QStringList arguments;   // put before -t -i (e.g. a configuration file of the transport)
    int timeoutSeconds = 300;
};

struct Settings {
    Route route = Route::System;
    SmtpSettings smtp;
    SystemSettings system;
};

// A sender for the route of the settings. Tests replace the maker to capture what a window sends.
using SenderMaker = std::function<std::unique_ptr<Sender>(const Settings &)>;
std::unique_ptr<Sender> openSender(const Settings &settings);
// An empty maker puts the real senders back.
void setSenderMaker(SenderMaker maker);

// Whether an address can go into a message as it is: one @, no blanks, brackets or line breaks.
bool isValidAddress(const QString &address);
// Why a recipient's address cannot be used, in Finnish; empty when it can.
QString addressProblem(const QString &address);

// The start of every sender's report: a result for each recipient, the unusable addresses refused
// with their reason. Returns the message as it can be delivered, with the usable recipients only.
Message startReport(const Message &message, SendReport &report);

} // namespace mail
