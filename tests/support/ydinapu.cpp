#include "ydinapu.h"

namespace ydin {

QString kannanAsetus(const QString &polku, const QString &avain)
{
    return db::Database::open(polku, db::OpenMode::ReadOnly)
        ->scalar(u"SELECT setString FROM Settings WHERE setSection = 'VONARI' AND setKey = ?"_s, {avain})
        .toString();
}

QString iniArvo(const TestEnv &env, const QString &avain)
{
    return QSettings(env.iniPath(), QSettings::IniFormat).value(u"VONARI/"_s + avain).toString();
}

} // namespace ydin
