// What every record window shares: the database check at opening, the one error handler around a
// command, the four moves with their keys, the rule that a window exists once, the keys that
// belong to the focused editor, and the closing of the windows when the program ends.
#pragma once

#include "platform/database.h"

#include <QKeySequence>
#include <QObject>
#include <QPair>
#include <QPointer>
#include <QStyle>
#include <QVariant>
#include <QVector>
#include <QWidget>
#include <array>
#include <exception>
#include <functional>
#include <memory>

class QAction;
class QHBoxLayout;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace db {
class Recordset;
}

namespace tietue {

// False, after "Tarkista tietokanta asetukset asetusikkunasta!", when no database is set: the
// window is then not opened.
bool TietokantaAsetettu();
// Opens the club's database for one operation.
std::unique_ptr<db::Database> AvaaKanta();

void NaytaVirhe(const QString &teksti);

// Runs one command: an error is shown and ends it. False when it failed.
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

// ---- Moves --------------------------------------------------------------------------------

enum class Siirto { Ensimmainen, Edellinen, Seuraava, Viimeinen };

// A move's command as every record window shows it: the names of its button and menu entry, its
// text, arrow, tip, key and icon.
struct SiirtoKomento {
    Siirto siirto;
    const char *painike;
    const char *valikko;
    QString teksti;
    QString nuoli;
    QString vihje;
    QKeySequence nappain;
    QStyle::StandardPixmap kuva;
};
// First, previous, next and last, in the order of the buttons.
const std::array<SiirtoKomento, 4> &SiirtoKomennot();

// A record window's command: an action on the window with its key and tip, kept in `komennot`,
// and the text button that shows it. `toiminto` runs inside the error handler.
QToolButton *KomentoPainike(QWidget *ikkuna, QList<QAction *> &komennot, const char *nimi, const QString &teksti,
                            const QString &vihje, const QKeySequence &nappain, std::function<void()> toiminto);
// The four moves as arrow buttons made by KomentoPainike, each running `siirry` with its move.
std::array<QToolButton *, 4> SiirtoPainikkeet(QWidget *ikkuna, QList<QAction *> &komennot,
                                              const std::function<void(Siirto)> &siirry);

// A record window's row of buttons: its commands, a gap, the four moves, and Sulje at the right.
QHBoxLayout *KomentoRivi(std::initializer_list<QToolButton *> komennot, std::initializer_list<QToolButton *> siirrot,
                         QToolButton *sulje);

// ---- The list of records beside the fields ---------------------------------------------------

// Fills a flat tree with one node a record: its text, and its key (an id, or a postal code) in
// Qt::UserRole. The tree's own signals are the caller's to silence.
void TaytaLuettelo(QTreeWidget *puu, const QVector<QPair<QVariant, QString>> &rivit, const QString &juuri = {});
// The node of a key; nullptr when the record is not listed.
QTreeWidgetItem *LuettelonSolmu(const QTreeWidget *puu, const QVariant &avain);
// Makes the record's node current and shows it; an unlisted or unsaved record (invalid key)
// leaves nothing selected.
void NaytaLuettelossa(QTreeWidget *puu, const QVariant &avain);

// One move on a recordset. Previous at the first row and next at the last stay there and beep,
// as previous and next in an empty set do; first and last in an empty set do nothing.
void Siirry(db::Recordset &rs, Siirto s);

// ---- Opening and closing ------------------------------------------------------------------

// A window exists once: an open one is brought forward. Otherwise `luo` makes and loads a new
// window and gives it, or nullptr when it could not be used (the reason has been shown); the
// new window is shown and deleted when closed.
void AvaaKerran(QPointer<QWidget> &auki, const std::function<QWidget *()> &luo);

// A settings window is a modal dialog that exists once: while it is open a second opening only
// brings it forward.
template <class Ikkuna>
void AvaaModaalisena(QWidget *parent)
{
    static QPointer<QWidget> auki;
    if (auki) {
        auki->raise();
        auki->activateWindow();
        return;
    }
    Ikkuna w(parent);
    auki = &w;
    w.exec();
}

// The close of a window that asks before it drops changes: without changes it closes; with them
// "Asetuksiin on tehty muutoksia, tallennetaanko muutokset?" — Yes runs `tallenna` (which closes
// the window when it succeeds), No closes without saving.
void SuljeKysyen(bool muuttunut, const std::function<void()> &tallenna, const std::function<void()> &sulje);

// Closes every other open window before the program ends, the modal ones first, each by its own
// close rules (a record window stores its pending row). False when one of them stays open.
bool SuljeMuut(QWidget *paaikkuna);

// ---- Keys ---------------------------------------------------------------------------------

// The editing keys of the focused text box (copy, paste, cut, undo, redo, select all) are the
// box's own, even where the window's commands use the same keys; a command key reaches the
// window only when no editor wants it. Installed once per window; it follows the editors the
// window makes later as well.
class EditorinNappaimet : public QObject {
public:
    explicit EditorinNappaimet(QWidget *ikkuna);
    bool eventFilter(QObject *kohde, QEvent *e) override;

private:
    QWidget *m_ikkuna;
};

} // namespace tietue
