#include "core/ui/uihelpers.h"

#include "core/MainModule.h"
#include "core/Misc.h"
#include "platform/files.h"

#include <QApplication>
#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QTimer>
#include <QUrl>

void MouseNormal(QWidget *form)
{
    if (form)
        form->unsetCursor();
}

void MouseWait(QWidget *form)
{
    if (form)
        form->setCursor(Qt::WaitCursor);
}

cMouseCursor::~cMouseCursor()
{
    if (!m_had || !m_form)
        return;
    if (m_hadOverride)
        m_form->setCursor(m_old);
    else
        m_form->unsetCursor();
}

void cMouseCursor::SetCursor(QWidget *form, Qt::CursorShape shape)
{
    if (!form)
        return;
    if (!m_had) {
        m_had = true;
        m_form = form;
        m_hadOverride = form->testAttribute(Qt::WA_SetCursor);
        m_old = form->cursor();
    }
    form->setCursor(shape);
}

static QString paikanAvain(const QWidget *form)
{
    return form->objectName() + QString::number(MainModule::versionMajor())
        + QString::number(MainModule::versionMinor());
}

// A placement counts only when enough of the window lands on some screen to be grabbed.
static bool nakyyJollainNaytolla(const QRect &paikka)
{
    const auto naytot = QGuiApplication::screens();
    for (const QScreen *naytto : naytot) {
        const QRect yhteinen = naytto->availableGeometry().intersected(paikka);
        if (yhteinen.width() >= 40 && yhteinen.height() >= 20)
            return true;
    }
    return false;
}

void LataaIkkunanPaikka(QWidget *form)
{
    if (!form || form->objectName().isEmpty())
        return;
    const std::optional<QRect> paikka = MainModule::IniAsetukset().readPlacement(paikanAvain(form));
    if (!paikka || !nakyyJollainNaytolla(*paikka))
        return;
    form->setGeometry(*paikka);
}

void TallennaIkkunanPaikka(QWidget *form)
{
    if (!form || form->objectName().isEmpty())
        return;
    // A placement that cannot be written is simply not remembered.
    MainModule::IniAsetukset().writePlacement(paikanAvain(form), form->geometry());
}

void MaalaaTeksti(QLineEdit *t)
{
    if (!t)
        return;
    t->selectAll();
    // A click that gave the focus would clear the selection right after; select once more then.
    QTimer::singleShot(0, t, [t] { t->selectAll(); });
}

bool IsFormLoaded(const QString &name)
{
    const auto ikkunat = QApplication::topLevelWidgets();
    for (const QWidget *w : ikkunat)
        if (w->objectName() == name)
            return true;
    return false;
}

void ComboAutoComplete(QComboBox *c, int keyCode)
{
    if (!c || !c->isEditable() || !c->lineEdit())
        return;
    switch (keyCode) {
    case Qt::Key_Backspace: case Qt::Key_Delete: case Qt::Key_Left: case Qt::Key_Right:
    case Qt::Key_Up: case Qt::Key_Down: case Qt::Key_Home: case Qt::Key_End:
    case Qt::Key_PageUp: case Qt::Key_PageDown: case Qt::Key_Shift: case Qt::Key_Control:
    case Qt::Key_Alt: case Qt::Key_Tab: case Qt::Key_Backtab: case Qt::Key_Return:
    case Qt::Key_Enter: case Qt::Key_Escape:
        return;
    default:
        break;
    }
    QLineEdit *e = c->lineEdit();
    const QString kirjoitettu = e->text().left(e->cursorPosition());
    if (kirjoitettu.isEmpty())
        return;
    for (int i = 0; i < c->count(); ++i) {
        const QString rivi = c->itemText(i);
        if (rivi.startsWith(kirjoitettu, Qt::CaseInsensitive)) {
            e->setText(kirjoitettu + rivi.mid(kirjoitettu.size()));
            e->setSelection(int(kirjoitettu.size()), int(rivi.size() - kirjoitettu.size()));
            return;
        }
    }
}

void ComboValitseItemData(QComboBox *c, qint64 id)
{
    if (!c)
        return;
    for (int i = 0; i < c->count(); ++i) {
        const QVariant data = c->itemData(i);
        if (data.isValid() && data.toLongLong() == id) {
            c->setCurrentIndex(i);
            return;
        }
    }
    c->setCurrentIndex(-1);
}

void ComboValitseTeksti(QComboBox *c, const QString &text, const QString &message, int fallback)
{
    if (!c)
        return;
    const int i = c->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (i >= 0) {
        c->setCurrentIndex(i);
        return;
    }
    c->setCurrentIndex(fallback >= 0 && fallback < c->count() ? fallback : -1);
    if (!message.isEmpty())
        Ilmoita(message);
}

void ComboTarkistaTeksti(QComboBox *c)
{
    if (!c)
        return;
    const int entinen = c->currentIndex();
    const QString kirjoitettu = c->currentText().toUpper();
    for (int i = 0; i < c->count(); ++i) {
        if (c->itemText(i).toUpper() == kirjoitettu) {
            c->setCurrentIndex(i);
            if (c->isEditable())
                c->setEditText(c->itemText(i));
            return;
        }
    }
    c->setCurrentIndex(entinen);
    if (c->isEditable())
        c->setEditText(entinen >= 0 ? c->itemText(entinen) : QString());
}

void ListPoistaItemData(QListWidget *l, qint64 id)
{
    if (!l)
        return;
    for (int i = 0; i < l->count(); ++i) {
        const QVariant data = l->item(i)->data(Qt::UserRole);
        if (data.isValid() && data.toLongLong() == id) {
            delete l->takeItem(i);
            return;
        }
    }
}

bool AvaaTiedosto(QWidget *, const QString &fileName)
{
    if (fileName.isEmpty())
        return false;
    // A relative name is taken from the program's own folder.
    const QString polku = QDir(files::programFolder()).absoluteFilePath(fileName);
    const QUrl osoite = fileName.contains(QLatin1String("://")) ? QUrl(fileName) : QUrl::fromLocalFile(polku);
    return QDesktopServices::openUrl(osoite);
}

// Takes characters off while the text is not acceptable: first the one just typed (before the
// caret), then from the end. The caret goes to the end when anything was taken.
static void poistaKunnesKelpaa(QLineEdit *t, bool (*kelpaa)(const QString &))
{
    if (!t || t->text().isEmpty())
        return;
    QString teksti = t->text();
    if (kelpaa(teksti))
        return;
    const int kursori = t->cursorPosition();
    if (kursori > 0 && kursori < teksti.size())
        teksti.remove(kursori - 1, 1);
    while (!teksti.isEmpty() && !kelpaa(teksti))
        teksti.chop(1);
    t->setText(teksti);
    t->setCursorPosition(int(teksti.size()));
}

static bool onNumero(const QString &teksti) { return OnNumeerinen(teksti); }

static bool onKokonaisluku(const QString &teksti)
{
    if (!OnNumeerinen(teksti))
        return false;
    for (const QChar ch : teksti)
        if (ch == QLatin1Char(',') || ch == QLatin1Char('.') || ch == QLatin1Char('e') || ch == QLatin1Char('E'))
            return false;
    return true;
}

void VainNumeroita(QLineEdit *t) { poistaKunnesKelpaa(t, onNumero); }

void VainKokonaisluku(QLineEdit *t) { poistaKunnesKelpaa(t, onKokonaisluku); }
