// The dialogs of the command-line tool: no windows. Every message goes to standard error, one line
// each, in the program's own words; every question gets the answer the run has set (a careful
// user's: No unless the verb or an option says otherwise), printed beside the question.
#pragma once

#include "platform/dialogs.h"

#include <QStringList>

class Komentodialogit : public dlg::Dialogs {
public:
    dlg::Answer vastaus = dlg::Answer::No;
    QStringList syotteet; // the answers of the input boxes in turn; when they run out, a cancel

    void message(const QString &text, dlg::Icon icon, const QString &title) override;
    dlg::Answer question(const QString &text, const QString &title, bool withCancel, dlg::Icon icon) override;
    std::optional<QString> input(const QString &prompt, const QString &title, const QString &defaultText,
                                 bool password) override;
    QString openFile(const dlg::FileRequest &req) override;
    QString saveFile(const dlg::FileRequest &req) override;
    QString chooseFolder(const QString &title, const QString &start) override;
    QString choosePrinter(const QString &title, const QStringList &printers) override;
};

// One line of standard error (a message box's lines joined with spaces).
void KirjoitaVirheeseen(const QString &teksti);
