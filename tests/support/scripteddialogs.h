// Dialogs for tests: records every text shown and answers prompts from a queue. A prompt with
// no answer queued is recorded in `unexpected` and answered with cancel/No.
#pragma once

#include "platform/dialogs.h"

#include <QList>
#include <QQueue>
#include <QStringList>
#include <optional>
#include <variant>

class ScriptedDialogs : public dlg::Dialogs {
public:
    struct Shown {
        QString kind; // "message", "question", "input", "open", "save", "folder", "printer"
        QString text;
        QString title;
        dlg::Icon icon = dlg::Icon::Information;
    };

    ScriptedDialogs();
    ~ScriptedDialogs() override;

    void answer(dlg::Answer a) { m_replies.enqueue(a); }
    void yes() { answer(dlg::Answer::Yes); }
    void no() { answer(dlg::Answer::No); }
    void type(const QString &text) { m_replies.enqueue(std::optional<QString>(text)); }
    void cancelInput() { m_replies.enqueue(std::optional<QString>()); }
    void choosePath(const QString &path) { m_replies.enqueue(path); }

    void message(const QString &text, dlg::Icon icon, const QString &title) override;
    dlg::Answer question(const QString &text, const QString &title, bool withCancel, dlg::Icon icon) override;
    std::optional<QString> input(const QString &prompt, const QString &title, const QString &defaultText,
                                 bool password) override;
    QString openFile(const dlg::FileRequest &req) override;
    QString saveFile(const dlg::FileRequest &req) override;
    QString chooseFolder(const QString &title, const QString &start) override;
    QString choosePrinter(const QString &title, const QStringList &printers) override;
    void beep() override { ++beeps; }

    QStringList messages() const;       // texts of the message boxes, in order
    QStringList allTexts() const;       // texts of everything shown, in order
    QList<Shown> shown;
    QStringList unexpected;             // prompts nobody scripted
    int beeps = 0;
    int pendingReplies() const { return int(m_replies.size()); }

private:
    using Reply = std::variant<dlg::Answer, std::optional<QString>, QString>;
    QQueue<Reply> m_replies;
    QString takePath(const QString &kind, const QString &title);
};
