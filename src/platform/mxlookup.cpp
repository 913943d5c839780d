#include "platform/mxlookup.h"

#include <QCoreApplication>
#include <QDnsLookup>
#include <QEventLoop>
#include <QTimer>

namespace mx {
namespace {
Resolver g_resolver;
}

QString preferredExchange(const QString &domain, int timeoutMs)
{
    if (domain.isEmpty() || !QCoreApplication::instance())
        return {};
    QDnsLookup lookup(QDnsLookup::MX, domain);
    QEventLoop loop;
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&lookup, &QDnsLookup::finished, &loop, &QEventLoop::quit);
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    lookup.lookup();
    timer.start(timeoutMs);
    if (!lookup.isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!lookup.isFinished()) {
        lookup.abort();
        return {};
    }
    if (lookup.error() != QDnsLookup::NoError)
        return {};

    QString best;
    quint16 bestPreference = 0;
    for (const QDnsMailExchangeRecord &r : lookup.mailExchangeRecords()) {
        QString host = r.exchange();
        while (host.endsWith(QLatin1Char('.')))
            host.chop(1);
        if (host.isEmpty())
            continue;
        if (best.isEmpty() || r.preference() < bestPreference) {
            best = host;
            bestPreference = r.preference();
        }
    }
    return best;
}

void setResolver(Resolver resolver) { g_resolver = std::move(resolver); }

QString mailServerFor(const QString &emailAddress)
{
    const QString address = emailAddress.trimmed();
    const int at = address.lastIndexOf(QLatin1Char('@'));
    const QString domain = at < 0 ? QString() : address.mid(at + 1).trimmed();
    if (domain.isEmpty())
        return {};
    return g_resolver ? g_resolver(domain) : preferredExchange(domain);
}

} // namespace mx
