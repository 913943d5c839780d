// A message as MIME bytes: UTF-8 text in quoted-printable, names and subject as RFC 2047 encoded
// words, attachments in base64, CRLF line ends, no line over 998 bytes. The bytes are not
// dot-stuffed: the SMTP transport (libcurl) does that itself, and `sendmail -i` needs none.
#pragma once

#include "platform/mail.h"

#include <QByteArray>
#include <QDateTime>
#include <optional>

namespace mail {

struct MimeResult {
    QByteArray bytes;
    QString error; // in Finnish, when an attachment could not be read
    bool ok() const { return error.isEmpty(); }
};

// `date` invalid: now, by the program's clock.
MimeResult buildMime(const Message &message, const QDateTime &date = {});

// The pieces, for the tests and for whoever needs one alone.
QByteArray quotedPrintable(const QString &text);          // CRLF lines, soft breaks at 76
QByteArray encodedWords(const QString &text, int firstLineUsed); // =?UTF-8?B?…?= folded with CRLF SP
QByteArray addressHeader(const Address &a, int firstLineUsed);   // "Name" <a@b> or encoded name
QByteArray rfc2822Date(const QDateTime &date);
QByteArray contentTypeFor(const QString &fileName);

} // namespace mail
