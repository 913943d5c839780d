// A test class whose every function gets a scratch home (`env`) and scripted dialogs (`dlg`); a
// prompt nobody scripted, or an answer nobody asked for, fails the function.
#pragma once

#include "scripteddialogs.h"
#include "testenv.h"

#include <QObject>
#include <memory>

class Testipohja : public QObject {
    Q_OBJECT

protected:
    std::unique_ptr<TestEnv> env;
    std::unique_ptr<ScriptedDialogs> dlg;

protected slots:
    void init();
    void cleanup();
};
