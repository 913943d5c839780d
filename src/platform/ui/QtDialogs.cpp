#include "platform/ui/QtDialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPrinterInfo>
#include <QPushButton>

namespace dlg {
namespace {

QWidget *parentWindow()
{
    if (QWidget *w = QApplication::activeModalWidget())
        return w;
    return QApplication::activeWindow();
}

QMessageBox::Icon qtIcon(Icon icon)
{
    switch (icon) {
    case Icon::Information: return QMessageBox::Information;
    case Icon::Stop: return QMessageBox::Critical;
    case Icon::Exclamation: return QMessageBox::Warning;
    case Icon::Question: return QMessageBox::Question;
    }
    return QMessageBox::NoIcon;
}

QString joinedPatterns(const QString &pattern)
{
    QStringList parts = pattern.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (QString &p : parts) {
        p = p.trimmed();
        if (p == QLatin1String("*.*"))
            p = QStringLiteral("*");
    }
    return parts.join(QLatin1Char(' '));
}

void finnishLabels(QFileDialog &d, bool saving)
{
    d.setLabelText(QFileDialog::LookIn, QStringLiteral("Kansio:"));
    d.setLabelText(QFileDialog::FileName, QStringLiteral("Tiedostonimi:"));
    d.setLabelText(QFileDialog::FileType, QStringLiteral("Tiedostotyyppi:"));
    d.setLabelText(QFileDialog::Accept, saving ? QStringLiteral("Tallenna") : QStringLiteral("Avaa"));
    d.setLabelText(QFileDialog::Reject, QStringLiteral("Peruuta"));
}

// A start path may be a folder, a file, or a file in a folder that exists.
void applyStart(QFileDialog &d, const QString &start)
{
    if (start.isEmpty())
        return;
    const QFileInfo fi(start);
    if (fi.isDir()) {
        d.setDirectory(start);
        return;
    }
    if (fi.absoluteDir().exists())
        d.setDirectory(fi.absolutePath());
    d.selectFile(fi.fileName());
}

QString runFileDialog(const FileRequest &req, bool saving)
{
    QFileDialog d(parentWindow(), req.title);
    d.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    d.setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    // The callers ask about an existing file themselves.
    d.setOption(QFileDialog::DontConfirmOverwrite);
    if (!req.filter.isEmpty())
        d.setNameFilter(qtFilter(req.filter));
    if (!req.defaultExt.isEmpty())
        d.setDefaultSuffix(req.defaultExt);
    finnishLabels(d, saving);
    applyStart(d, req.startPath);
    if (d.exec() != QDialog::Accepted || d.selectedFiles().isEmpty())
        return {};
    return d.selectedFiles().constFirst();
}

} // namespace

QString qtFilter(const QString &filter)
{
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString description = parts[i].trimmed();
        // Qt reads the patterns from the parentheses at the end of each entry, so patterns
        // shown in the description give way to the translated ones.
        if (description.endsWith(QLatin1Char(')')) && description.contains(QLatin1Char('(')))
            description = description.left(description.lastIndexOf(QLatin1Char('('))).trimmed();
        out << description + QStringLiteral(" (") + joinedPatterns(parts[i + 1]) + QLatin1Char(')');
    }
    if (out.isEmpty() && !filter.trimmed().isEmpty())
        out << filter.trimmed();
    return out.join(QStringLiteral(";;"));
}

void QtDialogs::message(const QString &text, Icon icon, const QString &title)
{
    QMessageBox box(qtIcon(icon), title, text, QMessageBox::NoButton, parentWindow());
    box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
    box.exec();
}

Answer QtDialogs::question(const QString &text, const QString &title, bool withCancel, Icon icon)
{
    QMessageBox box(qtIcon(icon), title, text, QMessageBox::NoButton, parentWindow());
    QPushButton *yes = box.addButton(QStringLiteral("Kyllä"), QMessageBox::YesRole);
    QPushButton *no = box.addButton(QStringLiteral("Ei"), QMessageBox::NoRole);
    QPushButton *cancel = withCancel ? box.addButton(QStringLiteral("Peruuta"), QMessageBox::RejectRole) : nullptr;
    box.setDefaultButton(yes);
    box.setEscapeButton(cancel ? cancel : no);
    box.exec();
    if (box.clickedButton() == yes)
        return Answer::Yes;
    if (cancel && box.clickedButton() == cancel)
        return Answer::Cancel;
    return Answer::No;
}

std::optional<QString> QtDialogs::input(const QString &prompt, const QString &title, const QString &defaultText,
                                        bool password)
{
    QInputDialog d(parentWindow());
    d.setWindowTitle(title);
    d.setLabelText(prompt);
    d.setTextValue(defaultText);
    d.setTextEchoMode(password ? QLineEdit::Password : QLineEdit::Normal);
    d.setOkButtonText(QStringLiteral("OK"));
    d.setCancelButtonText(QStringLiteral("Peruuta"));
    if (d.exec() != QDialog::Accepted)
        return std::nullopt;
    return d.textValue();
}

QString QtDialogs::openFile(const FileRequest &req) { return runFileDialog(req, false); }

QString QtDialogs::saveFile(const FileRequest &req) { return runFileDialog(req, true); }

QString QtDialogs::chooseFolder(const QString &title, const QString &start)
{
    QFileDialog d(parentWindow(), title);
    d.setFileMode(QFileDialog::Directory);
    d.setOption(QFileDialog::ShowDirsOnly);
    finnishLabels(d, false);
    d.setLabelText(QFileDialog::Accept, QStringLiteral("Valitse"));
    if (!start.isEmpty())
        d.setDirectory(start);
    if (d.exec() != QDialog::Accepted || d.selectedFiles().isEmpty())
        return {};
    return d.selectedFiles().constFirst();
}

QString QtDialogs::choosePrinter(const QString &title, const QStringList &printers)
{
    const QStringList names = printers.isEmpty() ? QPrinterInfo::availablePrinterNames() : printers;
    if (names.isEmpty()) {
        message(QStringLiteral("Tietokoneeseen ei ole asennettu yhtään tulostinta.\n"
                               "Asenna tulostin ja yritä sitten uudelleen."),
                Icon::Exclamation, title);
        return {};
    }
    QInputDialog d(parentWindow());
    d.setWindowTitle(title);
    d.setLabelText(QStringLiteral("Tulostin:"));
    d.setComboBoxItems(names);
    d.setComboBoxEditable(false);
    const QString oletus = QPrinterInfo::defaultPrinterName();
    if (names.contains(oletus))
        d.setTextValue(oletus);
    d.setOkButtonText(QStringLiteral("OK"));
    d.setCancelButtonText(QStringLiteral("Peruuta"));
    if (d.exec() != QDialog::Accepted)
        return {};
    return d.textValue();
}

void QtDialogs::beep() { QApplication::beep(); }

} // namespace dlg
