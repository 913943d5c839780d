#include "core/Malli.h"

#include "core/Schema.h"
#include "platform/database.h"
#include "platform/files.h"

#include <QFile>

namespace {

// Headings offered for a new invoice.
const char *const Laskuotsakkeet[] = {"Jäsenmaksu", "Kannatusmaksu", "Lasku"};

} // namespace

void LuoMalliTietokanta(const QString &path)
{
    if (QFile::exists(path))
        throw db::DbError(db::ErrorKind::Other, QStringLiteral("Tiedosto on jo olemassa: %1").arg(path));

    // Built under a working name and renamed when complete, so that a failure never leaves a
    // half-made template behind to be copied for new clubs.
    const QString tyo = path + QStringLiteral(".uusi");
    for (const char *liite : {"", "-wal", "-shm"})
        QFile::remove(tyo + QLatin1String(liite));
    try {
        auto d = db::Database::create(tyo);
        db::Transaction tx(*d);
        for (const QString &sql : Schema::malliLauseet())
            d->execute(sql);
        for (const char *otsake : Laskuotsakkeet)
            d->execute(QStringLiteral("INSERT INTO lt (ltNimi) VALUES (?)"), {QString::fromUtf8(otsake)});
        tx.commit();
    } catch (...) {
        QFile::remove(tyo);
        throw;
    }
    if (!QFile::rename(tyo, path)) {
        QFile::remove(tyo);
        throw db::DbError(db::ErrorKind::CannotOpen, QStringLiteral("Tietokannan mallia ei voi tallentaa: %1").arg(path));
    }
}

QString MalliPolku() { return files::programFolder() + QStringLiteral("/mallit/malli.mdb"); }

void VarmistaMalli()
{
    const QString polku = MalliPolku();
    if (files::FileExists(polku))
        return;
    const QString kansio = files::programFolder() + QStringLiteral("/mallit");
    if (!files::ensureFolder(kansio))
        throw db::DbError(db::ErrorKind::BadPath, QStringLiteral("Kansiota %1 ei voi luoda.").arg(kansio));
    LuoMalliTietokanta(polku);
}
