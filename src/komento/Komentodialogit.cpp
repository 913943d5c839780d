#include "komento/Komentodialogit.h"

#include <QTextStream>

void KirjoitaVirheeseen(const QString &teksti)
{
    QString rivi = teksti.simplified();
    QTextStream virhe(stderr);
    virhe << rivi << Qt::endl;
}

void Komentodialogit::message(const QString &text, dlg::Icon, const QString &) { KirjoitaVirheeseen(text); }

dlg::Answer Komentodialogit::question(const QString &text, const QString &, bool, dlg::Icon)
{
    KirjoitaVirheeseen(text + (vastaus == dlg::Answer::Yes ? QStringLiteral(" [Kyllä]") : QStringLiteral(" [Ei]")));
    return vastaus;
}

std::optional<QString> Komentodialogit::input(const QString &prompt, const QString &, const QString &, bool)
{
    if (syotteet.isEmpty()) {
        KirjoitaVirheeseen(prompt + QStringLiteral(" [peruttu]"));
        return std::nullopt;
    }
    const QString vastaus = syotteet.takeFirst();
    KirjoitaVirheeseen(prompt + QStringLiteral(" [") + vastaus + QLatin1Char(']'));
    return vastaus;
}

QString Komentodialogit::openFile(const dlg::FileRequest &) { return {}; }
QString Komentodialogit::saveFile(const dlg::FileRequest &) { return {}; }
QString Komentodialogit::chooseFolder(const QString &, const QString &) { return {}; }
QString Komentodialogit::choosePrinter(const QString &, const QStringList &) { return {}; }
