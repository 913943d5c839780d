// What the core tests share: the test base, the program's settings and files, the controls the
// window tests reach, and readers of the stored settings.
#pragma once

#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "platform/database.h"
#include "platform/files.h"
#include "platform/kello.h"
#include "scripteddialogs.h"
#include "testenv.h"
#include "testiapu.h"
#include "testipohja.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTimer>
#include <QtTest>

using namespace Qt::Literals::StringLiterals;

namespace ydin {

// The club key VONARI/`avain` stored in the database at `polku`; "" when there is none.
QString kannanAsetus(const QString &polku, const QString &avain);
// The workstation's key VONARI/`avain` in the INI file.
QString iniArvo(const TestEnv &env, const QString &avain);

// The control `nimi` of `w`; a missing one ends the run.
template <typename T = QLineEdit>
T *osa(QWidget &w, const QString &nimi)
{
    T *c = w.findChild<T *>(nimi);
    if (!c)
        qFatal("control %s missing", qPrintable(nimi));
    return c;
}

} // namespace ydin
