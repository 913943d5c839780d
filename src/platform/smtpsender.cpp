#include "platform/smtpsender.h"

#include "platform/mime.h"

#include <curl/curl.h>

#include <cstring>
#include <mutex>

namespace mail {

namespace {

void initCurl()
{
    static std::once_flag once;
    std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
}

struct Upload {
    const QByteArray *data = nullptr;
    qsizetype offset = 0;
};

size_t readUpload(char *buffer, size_t size, size_t count, void *userdata)
{
    auto *u = static_cast<Upload *>(userdata);
    const qsizetype n = qMin(qsizetype(size * count), u->data->size() - u->offset);
    std::memcpy(buffer, u->data->constData() + u->offset, size_t(n));
    u->offset += n;
    return size_t(n);
}

size_t discard(char *, size_t size, size_t count, void *) { return size * count; }

bool isTlsError(CURLcode c)
{
    switch (c) {
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CERTPROBLEM:
    case CURLE_SSL_CIPHER:
    case CURLE_SSL_ISSUER_ERROR:
    case CURLE_SSL_PINNEDPUBKEYNOTMATCH:
    case CURLE_SSL_INVALIDCERTSTATUS:
        return true;
    default:
        return false;
    }
}

} // namespace

struct SmtpSender::Impl {
    SmtpSettings s;
    CURL *curl = nullptr;
    char errbuf[CURL_ERROR_SIZE] = {};

    // What the server answered, read from curl's protocol trace: the answer to each RCPT, and the
    // last answer of all (the reason of a refused login, for one).
    QString pendingRcpt;
    QHash<QString, QString> rcptReplies;
    QString lastReply;

    static int trace(CURL *, curl_infotype type, char *data, size_t size, void *userdata)
    {
        auto *d = static_cast<Impl *>(userdata);
        const QString text = QString::fromUtf8(data, qsizetype(size)).trimmed();
        if (type == CURLINFO_HEADER_OUT) {
            if (text.startsWith(QLatin1String("RCPT TO:<"), Qt::CaseInsensitive)) {
                const int end = text.indexOf(QLatin1Char('>'));
                d->pendingRcpt = text.mid(9, end - 9).toLower();
            } else {
                d->pendingRcpt.clear();
            }
        } else if (type == CURLINFO_HEADER_IN) {
            // A multi-line answer ends with the line whose code is followed by a blank.
            if (text.size() >= 3 && (text.size() == 3 || text.at(3) == QLatin1Char(' '))) {
                d->lastReply = text;
                if (!d->pendingRcpt.isEmpty()) {
                    d->rcptReplies.insert(d->pendingRcpt, text);
                    d->pendingRcpt.clear();
                }
            }
        }
        return 0;
    }

    void setCommon()
    {
        const QByteArray scheme = s.security == Security::Smtps ? "smtps://" : "smtp://";
        QByteArray host = s.host.trimmed().toUtf8();
        if (host.contains(':') && !host.startsWith('['))
            host = "[" + host + "]"; // an IPv6 address
        const QByteArray url = scheme + host + ":" + QByteArray::number(s.effectivePort());
        curl_easy_setopt(curl, CURLOPT_URL, url.constData());
        curl_easy_setopt(curl, CURLOPT_USE_SSL, long(s.security == Security::StartTls ? CURLUSESSL_ALL : CURLUSESSL_NONE));
        curl_easy_setopt(curl, CURLOPT_SSL_VERIFYPEER, 1L);
        curl_easy_setopt(curl, CURLOPT_SSL_VERIFYHOST, 2L);
        // The settings stay as they are for the sender's life, so what is left unset stays unset.
        // The certificate file is trusted beside the system's folder of certificates.
        if (!s.caFile.isEmpty())
            curl_easy_setopt(curl, CURLOPT_CAINFO, s.caFile.toLocal8Bit().constData());
        if (!s.user.isEmpty()) {
            curl_easy_setopt(curl, CURLOPT_USERNAME, s.user.toUtf8().constData());
            curl_easy_setopt(curl, CURLOPT_PASSWORD, s.password.toUtf8().constData());
        }
        curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT, long(s.connectTimeoutSeconds));
        curl_easy_setopt(curl, CURLOPT_SERVER_RESPONSE_TIMEOUT, long(s.idleTimeoutSeconds));
        curl_easy_setopt(curl, CURLOPT_LOW_SPEED_LIMIT, 1L);
        curl_easy_setopt(curl, CURLOPT_LOW_SPEED_TIME, long(s.idleTimeoutSeconds));
        curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
        curl_easy_setopt(curl, CURLOPT_ERRORBUFFER, errbuf);
        curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, discard);
        curl_easy_setopt(curl, CURLOPT_VERBOSE, 1L);
        curl_easy_setopt(curl, CURLOPT_DEBUGFUNCTION, &Impl::trace);
        curl_easy_setopt(curl, CURLOPT_DEBUGDATA, this);
        errbuf[0] = 0;
        rcptReplies.clear();
        pendingRcpt.clear();
        lastReply.clear();
    }

    CURLcode perform() { return curl_easy_perform(curl); }

    // Why a transfer failed, in Finnish, with curl's own words after it.
    QString describe(CURLcode code) const
    {
        const QString host = s.host.trimmed();
        const int port = s.effectivePort();
        QString why;
        if (code == CURLE_COULDNT_RESOLVE_HOST || code == CURLE_URL_MALFORMAT)
            why = QStringLiteral("Sähköpostipalvelinta %1 ei löydy. Tarkista palvelimen nimi.").arg(host);
        else if (code == CURLE_COULDNT_CONNECT)
            why = QStringLiteral("Sähköpostipalvelimeen %1 ei saatu yhteyttä porttiin %2.").arg(host).arg(port);
        else if (code == CURLE_LOGIN_DENIED)
            why = QStringLiteral("Sähköpostipalvelin ei hyväksynyt käyttäjätunnusta tai salasanaa.");
        else if (code == CURLE_OPERATION_TIMEDOUT)
            why = QStringLiteral("Sähköpostipalvelin %1 ei vastannut ajoissa.").arg(host);
        else if (code == CURLE_USE_SSL_FAILED)
            why = QStringLiteral("Sähköpostipalvelin %1 ei tarjoa STARTTLS-salausta.").arg(host);
        else if (code == CURLE_SSL_CACERT_BADFILE)
            why = QStringLiteral("Varmennetiedostoa %1 ei voi lukea.").arg(s.caFile);
        else if (isTlsError(code))
            why = QStringLiteral("Salattu yhteys palvelimeen %1 ei onnistunut: palvelimen varmennetta ei voitu "
                                 "todentaa tai salaus ei toiminut.")
                      .arg(host);
        else if (code == CURLE_GOT_NOTHING || code == CURLE_RECV_ERROR || code == CURLE_SEND_ERROR)
            why = QStringLiteral("Yhteys sähköpostipalvelimeen %1 katkesi tai palvelin hylkäsi viestin.").arg(host);
        else
            why = QStringLiteral("Sähköpostin lähetys palvelimen %1 kautta ei onnistunut.").arg(host);
        QString detail = QString::fromUtf8(errbuf).trimmed();
        if (detail.isEmpty())
            detail = QString::fromUtf8(curl_easy_strerror(code));
        if (!lastReply.isEmpty() && !lastReply.startsWith(QLatin1Char('2')) && !lastReply.startsWith(QLatin1Char('3'))
            && !detail.contains(lastReply))
            detail += QStringLiteral("; palvelin: ") + lastReply;
        return why + QStringLiteral(" (") + detail + QLatin1Char(')');
    }
};

SmtpSender::SmtpSender(SmtpSettings settings) : d(std::make_unique<Impl>())
{
    initCurl();
    d->s = std::move(settings);
    d->curl = curl_easy_init();
}

SmtpSender::~SmtpSender()
{
    if (d->curl)
        curl_easy_cleanup(d->curl);
}

SendReport SmtpSender::send(const Message &message)
{
    SendReport report;
    const Message deliverable = startReport(message, report);
    QList<int> valid; // indexes of the recipients handed to the server
    for (int i = 0; i < report.recipients.size(); ++i)
        if (report.recipients[i].reason.isEmpty())
            valid.append(i);
    auto failAll = [&](const QString &why) {
        report.error = why;
        for (int i : valid)
            report.recipients[i].reason = why;
        return report;
    };
    if (valid.isEmpty()) {
        report.error = QStringLiteral("Viestillä ei ole yhtään kelvollista vastaanottajaa.");
        return report;
    }
    if (!d->curl)
        return failAll(QStringLiteral("Sähköpostin lähetystä ei voitu aloittaa (libcurl)."));
    if (d->s.host.trimmed().isEmpty())
        return failAll(QStringLiteral("SMTP-palvelinta ei ole annettu asetuksissa."));
    if (!isValidAddress(message.from.address.trimmed()))
        return failAll(QStringLiteral("Lähettäjän sähköpostiosoite \"%1\" ei kelpaa. Tarkista asetukset.")
                           .arg(message.from.address));
    const MimeResult mime = buildMime(deliverable);
    if (!mime.ok())
        return failAll(mime.error);

    d->setCommon();
    const QByteArray from = "<" + message.from.address.trimmed().toLatin1() + ">";
    curl_slist *rcpt = nullptr;
    for (int i : valid)
        rcpt = curl_slist_append(rcpt, ("<" + report.recipients[i].address.toLatin1() + ">").constData());
    Upload upload{&mime.bytes, 0};
    curl_easy_setopt(d->curl, CURLOPT_CUSTOMREQUEST, nullptr);
    curl_easy_setopt(d->curl, CURLOPT_MAIL_FROM, from.constData());
    curl_easy_setopt(d->curl, CURLOPT_MAIL_RCPT, rcpt);
    // A refused recipient must not stop the others; the trace tells which ones were refused.
    curl_easy_setopt(d->curl, CURLOPT_MAIL_RCPT_ALLLOWFAILS, 1L);
    curl_easy_setopt(d->curl, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(d->curl, CURLOPT_READFUNCTION, readUpload);
    curl_easy_setopt(d->curl, CURLOPT_READDATA, &upload);
    curl_easy_setopt(d->curl, CURLOPT_INFILESIZE_LARGE, curl_off_t(mime.bytes.size()));
    const CURLcode code = d->perform();
    curl_easy_setopt(d->curl, CURLOPT_MAIL_RCPT, nullptr);
    curl_slist_free_all(rcpt);

    int refused = 0;
    for (int i : valid) {
        RecipientResult &r = report.recipients[i];
        const QString reply = d->rcptReplies.value(r.address.toLower());
        if (!reply.isEmpty() && !reply.startsWith(QLatin1Char('2'))) {
            r.reason = QStringLiteral("Palvelin ei hyväksynyt vastaanottajaa %1 (%2)").arg(r.address, reply);
            ++refused;
        }
    }
    if (code != CURLE_OK) {
        if (refused == valid.size()) {
            report.error = QStringLiteral("Palvelin ei hyväksynyt yhtään vastaanottajaa.");
            return report;
        }
        const QString why = d->describe(code);
        report.error = why;
        for (int i : valid)
            if (report.recipients[i].reason.isEmpty())
                report.recipients[i].reason = why;
        return report;
    }
    for (int i : valid)
        report.recipients[i].sent = report.recipients[i].reason.isEmpty();
    return report;
}

QString SmtpSender::testConnection()
{
    if (!d->curl)
        return QStringLiteral("Yhteyttä ei voitu aloittaa (libcurl).");
    if (d->s.host.trimmed().isEmpty())
        return QStringLiteral("SMTP-palvelinta ei ole annettu.");
    d->setCommon();
    // NOOP after the login: the server is reached, encryption and login are gone through, and
    // nothing is sent.
    curl_easy_setopt(d->curl, CURLOPT_UPLOAD, 0L);
    curl_easy_setopt(d->curl, CURLOPT_MAIL_RCPT, nullptr);
    curl_easy_setopt(d->curl, CURLOPT_CUSTOMREQUEST, "NOOP");
    const CURLcode code = d->perform();
    curl_easy_setopt(d->curl, CURLOPT_CUSTOMREQUEST, nullptr);
    return code == CURLE_OK ? QString() : d->describe(code);
}

} // namespace mail
