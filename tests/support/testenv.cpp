#include "testenv.h"

#include "core/MainModule.h"
#include "platform/files.h"
#include "platform/kello.h"
#include "platform/keyring.h"

#include <QDir>

static const char *const kVars[4] = {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "HOME", "XDG_DOCUMENTS_DIR"};

TestEnv::TestEnv()
{
    for (int i = 0; i < 4; ++i)
        m_old[i] = qgetenv(kVars[i]);
    QDir(m_dir.path()).mkpath(QStringLiteral("data"));
    QDir(m_dir.path()).mkpath(QStringLiteral("config"));
    QDir(m_dir.path()).mkpath(QStringLiteral("home/Documents"));
    qputenv("XDG_DATA_HOME", path(QStringLiteral("data")).toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", path(QStringLiteral("config")).toLocal8Bit());
    qputenv("HOME", path(QStringLiteral("home")).toLocal8Bit());
    qputenv("XDG_DOCUMENTS_DIR", path(QStringLiteral("home/Documents")).toLocal8Bit());
    MainModule::resetGlobals();
    kello::asetaTanaan(QDate()); // every test starts and ends on the system's date
    // No test reads or writes the desktop's real keyring: passwords go where no keyring answers.
    keyring::setDisabled(true);
}

TestEnv::~TestEnv()
{
    MainModule::resetGlobals();
    kello::asetaTanaan(QDate());
    for (int i = 0; i < 4; ++i) {
        if (m_old[i].isNull())
            qunsetenv(kVars[i]);
        else
            qputenv(kVars[i], m_old[i]);
    }
}

QString TestEnv::programFolder() const { return files::programFolder(); }
QString TestEnv::iniPath() const { return files::iniFilePath(MainModule::IniName); }
