// A scratch home for one test: XDG folders and HOME in a temporary folder, globals reset.
#pragma once

#include <QString>
#include <QTemporaryDir>

class TestEnv {
public:
    TestEnv();
    ~TestEnv();
    QString root() const { return m_dir.path(); }
    QString path(const QString &name) const { return m_dir.path() + QLatin1Char('/') + name; }
    QString programFolder() const;
    QString iniPath() const;

private:
    QTemporaryDir m_dir;
    QByteArray m_old[4];
};
