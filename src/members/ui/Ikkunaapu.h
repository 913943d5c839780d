// What the attribute windows share: the database check of a window that needs the database,
// the one error handler of an event procedure, and the window's command keys.
#pragma once

#include "platform/database.h"

#include <QHash>
#include <QKeySequence>
#include <QObject>
#include <functional>
#include <memory>

class QAction;
class QComboBox;
class QDialog;
class QPushButton;
class QToolButton;
class QLineEdit;
class QWidget;

namespace ikkuna {

// False, after the message "Tarkista tietokanta asetukset asetusikkunasta!", when no database is
// set; the window is then not opened.
bool TietokantaAsetettu();
// Opens the club's database for one operation.
std::unique_ptr<db::Database> AvaaKanta();

void NaytaVirhe(const QString &teksti);

// Runs one event procedure: an error is shown and ends it. False when it failed.
template <class F>
bool Suojattu(F &&tehtava)
{
    try {
        tehtava();
        return true;
    } catch (const db::DbError &e) {
        NaytaVirhe(e.message());
    } catch (const std::exception &e) {
        NaytaVirhe(QString::fromUtf8(e.what()));
    }
    return false;
}

// The choice of an attribute in the removing and merging dialogs: a first row " - ", then the
// definitions by name, item data piID.
void TaytaOminaisuusValinta(QComboBox *c, db::Database &db);

// The layout of a dialog that picks two attributes and runs one command on them: two lists
// filled with the attributes, the command button and "Peru" (which closes the dialog).
struct KahdenOminaisuudenLomake {
    QComboBox *eka, *toka;
    QPushButton *toiminto, *peru;
};
struct Valinta {
    const char *nimi;
    QString otsikko;
};
KahdenOminaisuudenLomake RakennaKahdenOminaisuudenLomake(QDialog *d, const Valinta &eka, const Valinta &toka,
                                                         const Valinta &toiminto);

// The beep of refused input.
void Piippaa();

// The window's command keys win over the text boxes' own (Ctrl+A, Ctrl+Z, Ctrl+V …): each is
// taken from whatever box has the focus and given to its action, as the window's key preview
// does. Install after the window's widgets exist.
class KomentoNappaimet : public QObject {
public:
    KomentoNappaimet(QWidget *ikkuna, const QList<QAction *> &toiminnot);
    bool eventFilter(QObject *kohde, QEvent *e) override;

private:
    QHash<int, QAction *> m_toiminnot; // key combination -> its command
};

// A record window's command: an action on the window with its key and tip, kept in `komennot`,
// and the text button that shows it. `toiminto` runs as given; the caller wraps its own guard.
QToolButton *KomentoPainike(QWidget *ikkuna, QList<QAction *> &komennot, const char *nimi, const QString &teksti,
                            const QString &vihje, const QKeySequence &nappain, std::function<void()> toiminto);

} // namespace ikkuna
