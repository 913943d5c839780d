#include "members/ui/Ikkunaapu.h"

#include "core/MainModule.h"
#include "core/Misc.h"
#include "members/Piirteet.h"
#include "platform/dialogs.h"

#include <QAction>
#include <QComboBox>
#include <QKeyEvent>
#include <QWidget>

namespace ikkuna {

bool TietokantaAsetettu()
{
    const QString polku = MainModule::DatabasePath.trimmed();
    if (polku.isEmpty() || polku.compare(QLatin1String("unknown"), Qt::CaseInsensitive) == 0) {
        Ilmoita(QStringLiteral("Tarkista tietokanta asetukset asetusikkunasta!"));
        return false;
    }
    return true;
}

std::unique_ptr<db::Database> AvaaKanta() { return db::Database::open(MainModule::DatabasePath); }

void NaytaVirhe(const QString &teksti) { IlmoitaVirhe(teksti); }

void TaytaOminaisuusValinta(QComboBox *c, db::Database &db)
{
    c->clear();
    c->addItem(QStringLiteral(" - "), qlonglong(0));
    for (const ListaRivi &r : Maaritykset(db, false))
        c->addItem(r.teksti, r.id);
}

void Piippaa() { dlg::current().beep(); }

KomentoNappaimet::KomentoNappaimet(QWidget *ikkuna, const QList<QAction *> &toiminnot) : QObject(ikkuna)
{
    for (QAction *a : toiminnot)
        for (const QKeySequence &s : a->shortcuts())
            if (s.count() == 1)
                m_toiminnot.insert(s[0].toCombined(), a);
    const auto lapset = ikkuna->findChildren<QWidget *>();
    for (QWidget *w : lapset)
        if (w->focusPolicy() != Qt::NoFocus)
            w->installEventFilter(this);
}

bool KomentoNappaimet::eventFilter(QObject *kohde, QEvent *e)
{
    if (e->type() != QEvent::ShortcutOverride && e->type() != QEvent::KeyPress)
        return QObject::eventFilter(kohde, e);
    auto *k = static_cast<QKeyEvent *>(e);
    QAction *a = m_toiminnot.value(k->keyCombination().toCombined());
    if (!a || !a->isEnabled())
        return QObject::eventFilter(kohde, e);
    // Claim the key from the shortcut map as the box would, and run the command when it arrives.
    if (e->type() == QEvent::ShortcutOverride) {
        e->accept();
        return true;
    }
    a->trigger();
    return true;
}

} // namespace ikkuna
