// An upgraded empty club, made once per test program and copied for each case: building and
// upgrading the template every time would dominate the run. Header-only.
#pragma once

#include "core/Malli.h"
#include "core/UpdateDatabase.h"
#include "platform/database.h"

#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <memory>

namespace malliseura {

inline QString malli()
{
    static QTemporaryDir kansio;
    static const QString polku = [] {
        const QString p = kansio.filePath(QStringLiteral("malli.mdb"));
        LuoMalliTietokanta(p);
        UpdateDatabase(*db::Database::open(p));
        return p;
    }();
    return polku;
}

// A writable copy of the template at `polku`.
inline std::unique_ptr<db::Database> kopio(const QString &polku)
{
    QFile::copy(malli(), polku);
    QFile(polku).setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    return db::Database::open(polku);
}

} // namespace malliseura
