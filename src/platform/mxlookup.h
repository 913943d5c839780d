// The mail-server query: the preferred mail exchanger (MX) of an e-mail address's domain.
#pragma once

#include <QString>
#include <functional>

namespace mx {

// Answers a domain with its preferred mail server, empty when there is none.
using Resolver = std::function<QString(const QString &domain)>;

// A DNS look-up of the domain's MX records, waiting at most `timeoutMs` in a local event loop.
// The host of the lowest preference, or empty on any failure.
QString preferredExchange(const QString &domain, int timeoutMs = 5000);

// Replaces the DNS look-up (tests have no network); an empty resolver puts the DNS one back.
void setResolver(Resolver resolver);

// The mail server of the address's domain through the resolver in use; empty when the address
// has no domain.
QString mailServerFor(const QString &emailAddress);

} // namespace mx
