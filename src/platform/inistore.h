// The workstation's INI file, IniAsetukset: what must be known before a database is opened.
#pragma once

#include <QRect>
#include <QString>
#include <memory>
#include <optional>

class QSettings;

class IniStore {
public:
    IniStore();
    ~IniStore();

    void setFileName(const QString &path);
    QString fileName() const { return m_path; }
    void setSection(const QString &section);

    QString readString(const QString &key, const QString &defaultValue = {});
    // False when the file could not be written.
    bool writeString(const QString &key, const QString &value);

    // Window placement in section FORMS under `key`; nothing when absent or malformed.
    std::optional<QRect> readPlacement(const QString &key);
    bool writePlacement(const QString &key, const QRect &rect);

    // Whether the file exists but could not be read as an INI file (not readable, not UTF-8
    // text, or lines that are neither sections nor keys). Such a file is never written: the
    // writes above return false and leave it as it is for the user to mend.
    bool isMalformed() const;

private:
    QSettings &settings();
    QString m_path;
    QString m_section = QStringLiteral("VONARI");
    std::unique_ptr<QSettings> m_settings;
    bool m_malformed = false;
};
