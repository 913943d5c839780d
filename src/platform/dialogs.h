// Every message box, question, input box and file, folder or printer dialog goes through this
// seam. The program installs the Qt implementation; tests install a scripted one.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace dlg {

enum class Icon { Information, Stop, Exclamation, Question };

enum class Answer { Yes, No, Cancel };

struct FileRequest {
    QString title;
    QString filter;      // "Database (*.mdb)|*.mdb" as the windows give it
    QString startPath;   // folder or file to start from
    QString defaultExt;  // without the dot
};

class Dialogs {
public:
    virtual ~Dialogs() = default;
    virtual void message(const QString &text, Icon icon, const QString &title) = 0;
    // Yes/No; with `withCancel` also Cancel.
    virtual Answer question(const QString &text, const QString &title, bool withCancel = false,
                            Icon icon = Icon::Question) = 0;
    // Input box: the text typed, or nothing when cancelled.
    virtual std::optional<QString> input(const QString &prompt, const QString &title,
                                         const QString &defaultText = {}, bool password = false) = 0;
    // File dialogs: empty text on cancel.
    virtual QString openFile(const FileRequest &req) = 0;
    virtual QString saveFile(const FileRequest &req) = 0;
    virtual QString chooseFolder(const QString &title, const QString &start) = 0;
    // Printer choice: the chosen printer's name, empty on cancel or when none exists.
    virtual QString choosePrinter(const QString &title, const QStringList &printers) = 0;
    // A short pause of the interface (the beep of refused input).
    virtual void beep() {}
};

// The dialogs in use. Never null after the program or a test has installed one.
Dialogs &current();
void install(Dialogs *d);

} // namespace dlg
