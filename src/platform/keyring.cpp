#include "platform/keyring.h"

#include <qt6keychain/keychain.h>

#include <QEventLoop>
#include <QTimer>
#include <atomic>

namespace keyring {

namespace {

const QString kService = QStringLiteral("Vonari");
std::atomic<bool> disabled{false};

Status statusOf(QKeychain::Error e)
{
    switch (e) {
    case QKeychain::NoError: return Status::Ok;
    case QKeychain::EntryNotFound: return Status::NotFound;
    // Without a session bus QtKeychain cannot even ask and says OtherError ("Cannot autolaunch
    // D-Bus"): no keyring answers, as much as with NoBackendAvailable.
    case QKeychain::NoBackendAvailable:
    case QKeychain::OtherError: return Status::NoBackend;
    default: return Status::Failed; // a keyring answered and refused
    }
}

// Runs the job to its end. A keyring may first ask the user to unlock it, so the wait is long; one
// that still does not answer has failed (it is there, so the password must not go elsewhere).
Answer run(QKeychain::Job &job)
{
    job.setAutoDelete(false);
    QEventLoop loop;
    QObject::connect(&job, &QKeychain::Job::finished, &loop, &QEventLoop::quit);
    QTimer timeout;
    timeout.setSingleShot(true);
    bool timedOut = false;
    QObject::connect(&timeout, &QTimer::timeout, &loop, [&] {
        timedOut = true;
        loop.quit();
    });
    timeout.start(120000);
    job.start();
    loop.exec();
    if (timedOut)
        return {Status::Failed, {}, QStringLiteral("keyring did not answer")};
    return {statusOf(job.error()), {}, job.errorString()};
}

Answer none() { return {Status::NoBackend, {}, QStringLiteral("keyring disabled")}; }

} // namespace

Answer read(const QString &key)
{
    if (disabled)
        return none();
    QKeychain::ReadPasswordJob job(kService);
    job.setKey(key);
    Answer a = run(job);
    if (a.status == Status::Ok)
        a.secret = job.textData();
    return a;
}

Answer write(const QString &key, const QString &secret)
{
    if (disabled)
        return none();
    QKeychain::WritePasswordJob job(kService);
    job.setKey(key);
    job.setTextData(secret);
    return run(job);
}

Answer remove(const QString &key)
{
    if (disabled)
        return none();
    QKeychain::DeletePasswordJob job(kService);
    job.setKey(key);
    return run(job);
}

void setDisabled(bool d) { disabled = d; }

} // namespace keyring
