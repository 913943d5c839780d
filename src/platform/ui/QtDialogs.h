// The dialogs seam on Qt widgets: message boxes with Finnish buttons, input boxes, file,
// folder and printer choices.
#pragma once

#include "platform/dialogs.h"

namespace dlg {

// "Database (*.mdb)|*.mdb|Kaikki (*.*)|*.*" as Qt's filter list "Database (*.mdb);;Kaikki (*)".
QString qtFilter(const QString &filter);

class QtDialogs : public Dialogs {
public:
    void message(const QString &text, Icon icon, const QString &title) override;
    Answer question(const QString &text, const QString &title, bool withCancel, Icon icon) override;
    std::optional<QString> input(const QString &prompt, const QString &title, const QString &defaultText,
                                 bool password) override;
    QString openFile(const FileRequest &req) override;
    QString saveFile(const FileRequest &req) override;
    QString chooseFolder(const QString &title, const QString &start) override;
    // Printers from the caller, or the system's when the caller gives none.
    QString choosePrinter(const QString &title, const QStringList &printers) override;
    void beep() override;
};

} // namespace dlg
