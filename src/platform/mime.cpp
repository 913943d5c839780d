#include "platform/mime.h"

#include "platform/kello.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QMimeDatabase>
#include <QUuid>

namespace mail {

namespace {

constexpr int kQpLine = 76;       // RFC 2045 line length of quoted-printable
constexpr int kWordLine = 76;     // RFC 2047: a line holding encoded words
constexpr int kWordOverhead = 12; // "=?UTF-8?B?" and "?="
const QByteArray kCrlf("\r\n");

// Header text on one line: a line break in a name or subject would start a new header.
QString oneLine(const QString &text)
{
    QString t = text;
    for (QChar &c : t)
        if (c == QLatin1Char('\r') || c == QLatin1Char('\n') || c == QLatin1Char('\t'))
            c = QLatin1Char(' ');
    return t;
}

bool plainAscii(const QString &text)
{
    for (QChar c : text)
        if (c.unicode() < 0x20 || c.unicode() > 0x7E)
            return false;
    return !text.contains(QLatin1String("=?"));
}

// Characters that a display name may not hold outside a quoted string (RFC 5322 specials).
bool hasSpecials(const QString &text)
{
    static const QString specials = QStringLiteral("()<>[]:;@\\,.\"");
    for (QChar c : text)
        if (specials.contains(c))
            return true;
    return false;
}

QByteArray hexByte(uchar b)
{
    static const char hex[] = "0123456789ABCDEF";
    QByteArray out("=");
    out.append(hex[b >> 4]);
    out.append(hex[b & 15]);
    return out;
}

// One line of text (no line break in it) as quoted-printable lines joined by soft breaks.
QByteArray qpLine(const QByteArray &line)
{
    QByteArray out;
    int used = 0;
    for (int i = 0; i < line.size(); ++i) {
        const uchar b = uchar(line[i]);
        const bool last = i == line.size() - 1;
        QByteArray token;
        const bool fromAtStart = i == 0 && b == 'F' && line.startsWith("From ");
        if ((b == ' ' || b == '\t') && last)
            token = hexByte(b); // trailing blanks are lost in transport otherwise
        else if ((b >= 33 && b <= 126 && b != '=' && !fromAtStart) || b == ' ' || b == '\t')
            token = QByteArray(1, char(b));
        else
            token = hexByte(b);
        // The soft break "=" needs a place on the line too, unless this is the line's last token.
        const int room = last ? kQpLine : kQpLine - 1;
        if (used + token.size() > room) {
            out += "=\r\n";
            used = 0;
        }
        out += token;
        used += token.size();
    }
    return out;
}

QStringList splitLines(const QString &text)
{
    QString t = text;
    t.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    t.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return t.split(QLatin1Char('\n'));
}

QByteArray addressList(const QList<Address> &list, int firstLineUsed)
{
    QByteArray out;
    for (int i = 0; i < list.size(); ++i) {
        if (i > 0)
            out += ",\r\n ";
        out += addressHeader(list[i], i == 0 ? firstLineUsed : 1);
    }
    return out;
}

QByteArray base64Lines(const QByteArray &data)
{
    const QByteArray b = data.toBase64();
    QByteArray out;
    out.reserve(b.size() + b.size() / 76 * 2 + 2);
    for (int i = 0; i < b.size(); i += 76)
        out += b.mid(i, 76) + kCrlf;
    return out;
}

bool plainFileName(const QString &name)
{
    return plainAscii(name) && !name.contains(QLatin1Char('"')) && !name.contains(QLatin1Char('\\'))
        && !name.contains(QLatin1Char(';'));
}

// RFC 2231: filename*=UTF-8''percent-encoded bytes.
QByteArray extendedParameter(const QString &value)
{
    return "UTF-8''" + value.toUtf8().toPercentEncoding("!#$&+-.^_`|~");
}

QByteArray attachmentPart(const QString &path, const QByteArray &data)
{
    const QString name = oneLine(QFileInfo(path).fileName());
    QByteArray part = "Content-Type: " + contentTypeFor(name);
    if (plainFileName(name)) {
        part += "; name=\"" + name.toLatin1() + "\"\r\n";
        part += "Content-Disposition: attachment; filename=\"" + name.toLatin1() + "\"\r\n";
    } else {
        // The encoded words in `name` are for readers that know no RFC 2231.
        part += ";\r\n name=\"" + encodedWords(name, 7) + "\"\r\n";
        part += "Content-Disposition: attachment;\r\n filename*=" + extendedParameter(name) + kCrlf;
    }
    part += "Content-Transfer-Encoding: base64\r\n\r\n";
    part += base64Lines(data);
    return part;
}

QByteArray domainOf(const QString &address)
{
    const int at = address.lastIndexOf(QLatin1Char('@'));
    const QString d = at >= 0 ? address.mid(at + 1) : QString();
    return isValidAddress(address) && plainAscii(d) && !d.isEmpty() ? d.toLatin1()
                                                                      : QByteArray("vonari.invalid");
}

QByteArray uniqueToken() { return QUuid::createUuid().toByteArray(QUuid::Id128); }

} // namespace

QByteArray quotedPrintable(const QString &text)
{
    const QStringList lines = splitLines(text);
    QByteArray out;
    for (int i = 0; i < lines.size(); ++i) {
        if (i > 0)
            out += kCrlf;
        out += qpLine(lines[i].toUtf8());
    }
    return out;
}

QByteArray encodedWords(const QString &text, int firstLineUsed)
{
    auto maxBytes = [](int used) { return (kWordLine - used - kWordOverhead) / 4 * 3; };
    QByteArray out;
    int limit = maxBytes(firstLineUsed);
    if (limit < 4) { // not even one character fits after the header's name
        out = "\r\n ";
        limit = maxBytes(1);
    }
    QList<QByteArray> chunks;
    QByteArray chunk;
    for (qsizetype i = 0; i < text.size(); ++i) {
        // One character: a surrogate pair stays together.
        const qsizetype n = text[i].isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
        const QByteArray bytes = text.mid(i, n).toUtf8();
        i += n - 1;
        // Whole characters only in one word: a decoder may decode each word alone.
        if (!chunk.isEmpty() && chunk.size() + bytes.size() > limit) {
            chunks.append(chunk);
            chunk.clear();
            limit = maxBytes(1);
        }
        chunk += bytes;
    }
    if (!chunk.isEmpty())
        chunks.append(chunk);
    for (int i = 0; i < chunks.size(); ++i) {
        if (i > 0)
            out += "\r\n ";
        out += "=?UTF-8?B?" + chunks[i].toBase64() + "?=";
    }
    return out;
}

QByteArray addressHeader(const Address &a, int firstLineUsed)
{
    // The senders refuse unusable addresses; whatever comes here stays on its header line.
    QByteArray addr = oneLine(a.address).trimmed().toLatin1();
    addr.replace('<', "").replace('>', "");
    const QString name = oneLine(a.name).trimmed();
    if (name.isEmpty())
        return "<" + addr + ">";
    if (!plainAscii(name))
        return encodedWords(name, firstLineUsed) + " <" + addr + ">";
    if (!hasSpecials(name))
        return name.toLatin1() + " <" + addr + ">";
    QByteArray quoted = name.toLatin1();
    quoted.replace("\\", "\\\\");
    quoted.replace("\"", "\\\"");
    return "\"" + quoted + "\" <" + addr + ">";
}

QByteArray rfc2822Date(const QDateTime &date)
{
    const QLocale c = QLocale::c();
    const int offset = date.offsetFromUtc() / 60;
    const int absolute = offset < 0 ? -offset : offset;
    return c.toString(date, QStringLiteral("ddd, d MMM yyyy HH:mm:ss ")).toLatin1()
        + (offset < 0 ? "-" : "+")
        + QByteArray::number(absolute / 60).rightJustified(2, '0')
        + QByteArray::number(absolute % 60).rightJustified(2, '0');
}

QByteArray contentTypeFor(const QString &fileName)
{
    static const QMimeDatabase db;
    const QMimeType t = db.mimeTypeForFile(fileName, QMimeDatabase::MatchExtension);
    return t.isValid() && !t.isDefault() ? t.name().toLatin1() : QByteArray("application/octet-stream");
}

MimeResult buildMime(const Message &message, const QDateTime &date)
{
    QList<QByteArray> attachments;
    for (const QString &path : message.attachments) {
        QFile f(path);
        if (!f.open(QIODevice::ReadOnly))
            return {{}, QStringLiteral("Liitetiedostoa %1 ei voi lukea.").arg(path)};
        attachments.append(f.readAll());
    }

    const QString subject = oneLine(message.subject);
    QByteArray head;
    head += "Date: " + rfc2822Date(date.isValid() ? date : kello::nyt()) + kCrlf;
    head += "From: " + addressHeader(message.from, 6) + kCrlf;
    head += "To: " + (message.hideRecipients ? QByteArray("undisclosed-recipients:;") : addressList(message.to, 4))
        + kCrlf;
    head += "Subject: " + (plainAscii(subject) && subject.size() < 900 ? subject.toLatin1() : encodedWords(subject, 9))
        + kCrlf;
    head += "Message-ID: <" + uniqueToken() + "@" + domainOf(message.from.address) + ">\r\n";
    head += "MIME-Version: 1.0\r\n";

    const QByteArray textHeaders = "Content-Type: text/plain; charset=UTF-8\r\n"
                                   "Content-Transfer-Encoding: quoted-printable\r\n";
    const QByteArray body = quotedPrintable(message.body) + kCrlf;
    if (attachments.isEmpty())
        return {head + textHeaders + kCrlf + body, {}};

    // "=_" never occurs in quoted-printable or base64, so the boundary cannot meet the content.
    const QByteArray boundary = "=_vonari_" + uniqueToken();
    QByteArray out = head + "Content-Type: multipart/mixed;\r\n boundary=\"" + boundary + "\"\r\n\r\n";
    out += "This is a multi-part message in MIME format.\r\n";
    // The line end before a boundary belongs to the boundary: the text's own last one comes first.
    out += "--" + boundary + kCrlf + textHeaders + kCrlf + body + kCrlf;
    for (int i = 0; i < attachments.size(); ++i)
        out += "--" + boundary + kCrlf + attachmentPart(message.attachments[i], attachments[i]);
    out += "--" + boundary + "--\r\n";
    return {out, {}};
}

} // namespace mail
