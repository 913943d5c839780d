#include "platform/inistore.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStringDecoder>

namespace {

// QSettings reads a damaged file as far as it can and writes back only what it understood,
// so a file that is not plain INI text is detected here before anything is written.
bool isSoundIniFile(const QString &path)
{
    const QFileInfo fi(path);
    if (!fi.exists())
        return true;
    QFile f(path);
    if (fi.isDir() || !f.open(QIODevice::ReadOnly))
        return false;
    const QByteArray raw = f.readAll();
    if (raw.contains('\0'))
        return false;
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8.decode(raw);
    if (utf8.hasError())
        return false;
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        const QString t = line.trimmed();
        if (t.isEmpty() || t.startsWith(QLatin1Char(';')) || t.startsWith(QLatin1Char('#')))
            continue;
        if (t.startsWith(QLatin1Char('['))) {
            if (!t.endsWith(QLatin1Char(']')))
                return false;
        } else if (!t.contains(QLatin1Char('='))) {
            return false;
        }
    }
    return true;
}

} // namespace

IniStore::IniStore() = default;
IniStore::~IniStore() = default;

void IniStore::setFileName(const QString &path)
{
    m_path = path;
    m_settings.reset();
    m_malformed = !isSoundIniFile(path);
}

void IniStore::setSection(const QString &section) { m_section = section; }

QSettings &IniStore::settings()
{
    if (!m_settings)
        m_settings = std::make_unique<QSettings>(m_path, QSettings::IniFormat);
    return *m_settings;
}

QString IniStore::readString(const QString &key, const QString &defaultValue)
{
    const QVariant v = settings().value(m_section + QLatin1Char('/') + key);
    if (!v.isValid())
        return defaultValue;
    // A value with commas comes back as a list; join it as it was written.
    if (v.metaType().id() == QMetaType::QStringList)
        return v.toStringList().join(QLatin1Char(','));
    return v.toString();
}

bool IniStore::writeString(const QString &key, const QString &value)
{
    if (isMalformed())
        return false;
    QDir().mkpath(QFileInfo(m_path).absolutePath());
    settings().setValue(m_section + QLatin1Char('/') + key, value);
    settings().sync();
    return settings().status() == QSettings::NoError;
}

std::optional<QRect> IniStore::readPlacement(const QString &key)
{
    const QString text = settings().value(QStringLiteral("FORMS/") + key).toStringList().join(QLatin1Char(','));
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() != 4)
        return std::nullopt;
    int v[4];
    for (int i = 0; i < 4; ++i) {
        bool ok = false;
        v[i] = parts[i].trimmed().toInt(&ok);
        if (!ok)
            return std::nullopt;
    }
    if (v[2] <= 0 || v[3] <= 0)
        return std::nullopt;
    return QRect(v[0], v[1], v[2], v[3]);
}

bool IniStore::writePlacement(const QString &key, const QRect &r)
{
    if (isMalformed())
        return false;
    QDir().mkpath(QFileInfo(m_path).absolutePath());
    settings().setValue(QStringLiteral("FORMS/") + key,
                        QStringLiteral("%1,%2,%3,%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height()));
    settings().sync();
    return settings().status() == QSettings::NoError;
}

bool IniStore::isMalformed() const
{
    return m_malformed || (m_settings && m_settings->status() == QSettings::FormatError);
}
