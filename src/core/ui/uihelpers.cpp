#include "core/ui/uihelpers.h"

#include "core/MainModule.h"

#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QTimer>

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
