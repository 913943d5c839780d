#include "scripteddialogs.h"

ScriptedDialogs::ScriptedDialogs() { dlg::install(this); }

ScriptedDialogs::~ScriptedDialogs() { dlg::install(nullptr); }

void ScriptedDialogs::message(const QString &text, dlg::Icon icon, const QString &title)
{
    shown.append({QStringLiteral("message"), text, title, icon});
}

dlg::Answer ScriptedDialogs::question(const QString &text, const QString &title, bool withCancel, dlg::Icon icon)
{
    shown.append({QStringLiteral("question"), text, title, icon});
    if (!m_replies.isEmpty() && std::holds_alternative<dlg::Answer>(m_replies.head()))
        return std::get<dlg::Answer>(m_replies.dequeue());
    unexpected << QStringLiteral("question: ") + text;
    return withCancel ? dlg::Answer::Cancel : dlg::Answer::No;
}

std::optional<QString> ScriptedDialogs::input(const QString &prompt, const QString &title, const QString &, bool)
{
    shown.append({QStringLiteral("input"), prompt, title, dlg::Icon::Question});
    if (!m_replies.isEmpty() && std::holds_alternative<std::optional<QString>>(m_replies.head()))
        return std::get<std::optional<QString>>(m_replies.dequeue());
    unexpected << QStringLiteral("input: ") + prompt;
    return std::nullopt;
}

QString ScriptedDialogs::takePath(const QString &kind, const QString &title)
{
    shown.append({kind, title, title, dlg::Icon::Question});
    if (!m_replies.isEmpty() && std::holds_alternative<QString>(m_replies.head()))
        return std::get<QString>(m_replies.dequeue());
    unexpected << kind + QStringLiteral(": ") + title;
    return {};
}

QString ScriptedDialogs::openFile(const dlg::FileRequest &req) { return takePath(QStringLiteral("open"), req.title); }
QString ScriptedDialogs::saveFile(const dlg::FileRequest &req) { return takePath(QStringLiteral("save"), req.title); }
QString ScriptedDialogs::chooseFolder(const QString &title, const QString &) { return takePath(QStringLiteral("folder"), title); }
QString ScriptedDialogs::choosePrinter(const QString &title, const QStringList &) { return takePath(QStringLiteral("printer"), title); }

QStringList ScriptedDialogs::messages() const
{
    QStringList out;
    for (const Shown &s : shown)
        if (s.kind == QLatin1String("message"))
            out << s.text;
    return out;
}

QStringList ScriptedDialogs::allTexts() const
{
    QStringList out;
    for (const Shown &s : shown)
        out << s.text;
    return out;
}
