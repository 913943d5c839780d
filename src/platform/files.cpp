#include "platform/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace files {

bool FileExists(const QString &path)
{
    const QFileInfo fi(path);
    return !path.isEmpty() && fi.exists() && fi.isFile();
}

bool FolderExists(const QString &path)
{
    const QFileInfo fi(path);
    return !path.isEmpty() && fi.exists() && fi.isDir();
}

bool ensureFolder(const QString &path)
{
    if (FolderExists(path))
        return true;
    return QDir().mkpath(path);
}

QString programFolder()
{
    QString base = QString::fromLocal8Bit(qgetenv("XDG_DATA_HOME"));
    if (base.isEmpty())
        base = QDir::homePath() + QStringLiteral("/.local/share");
    return QDir::cleanPath(base + QStringLiteral("/Vonari"));
}

QString iniFilePath(const QString &iniName)
{
    QString base = QString::fromLocal8Bit(qgetenv("XDG_CONFIG_HOME"));
    if (base.isEmpty())
        base = QDir::homePath() + QStringLiteral("/.config");
    return QDir::cleanPath(base + QStringLiteral("/Vonari/") + iniName);
}

QString documentsFolder()
{
    QString docs = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (docs.isEmpty())
        docs = QDir::homePath();
    return QDir::cleanPath(docs + QStringLiteral("/Vonari"));
}

QString defaultBackupFolder() { return documentsFolder() + QStringLiteral("/Varmuuskopiot/"); }

QString joinPath(const QString &folder, const QString &name)
{
    if (folder.isEmpty())
        return name;
    if (folder.endsWith(QLatin1Char('/')))
        return folder + name;
    return folder + QLatin1Char('/') + name;
}

QString fileNamePart(const QString &path)
{
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    return slash < 0 ? path : path.mid(slash + 1);
}

bool isReadOnly(const QString &path)
{
    const QFileInfo fi(path);
    return fi.exists() && !(fi.permissions() & QFileDevice::WriteOwner);
}

bool makeWritable(const QString &path)
{
    QFile f(path);
    return f.setPermissions(f.permissions() | QFileDevice::WriteOwner | QFileDevice::WriteUser);
}

} // namespace files
