// The desktop's keyring (Secret Service, KWallet) through QtKeychain, for secrets that must not go
// into the club's database. Each call waits for the keyring's answer in a local event loop.
#pragma once

#include <QString>

namespace keyring {

enum class Status {
    Ok,
    NotFound,
    NoBackend, // no keyring answers: no Secret Service running, no session bus (headless)
               // or the keyring failed without saying it refused
    Failed,    // a keyring answered but refused or failed
};

struct Answer {
    Status status = Status::Failed;
    QString secret;
    QString error; // the keyring's own words
};

Answer read(const QString &key);
Answer write(const QString &key, const QString &secret);
Answer remove(const QString &key);

// Makes every call answer NoBackend, as on a machine with no keyring; for tests that must not
// touch the desktop's real keyring.
void setDisabled(bool disabled);

} // namespace keyring
