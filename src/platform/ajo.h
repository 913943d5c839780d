// The run context: what a run carries from its window or the command-line tool down to every
// helper. One connection (and the one transaction the run opens on it), today's date, where
// progress goes and whether to stop, and the dialogs.
#pragma once

#include "platform/dialogs.h"
#include "platform/kello.h"

#include <QDate>
#include <QString>
#include <exception>
#include <functional>
#include <memory>

namespace db {
class Database;
}

// Where a run reports how far it is. The window shows a progress bar with "Keskeytä" and keeps
// its event loop turning; the command-line tool prints or stays quiet; tests record the calls.
class Edistyminen {
public:
    virtual ~Edistyminen() = default;
    virtual void vaihe(qint64 tehty, qint64 yhteensa) = 0;
    // Asked between steps: true stops the run, which then rolls back everything it wrote.
    virtual bool keskeytetaanko() { return false; }
};

// Where a long run shows its progress when no window hands it a sink: the window layer installs
// a small window with "Keskeytä", the command-line tool a printer. Without one the run is quiet
// and UusiEdistyminen gives nothing.
using EdistymisenLuoja = std::function<std::unique_ptr<Edistyminen>(const QString &otsikko)>;
void AsetaEdistymisenLuoja(EdistymisenLuoja luoja);
std::unique_ptr<Edistyminen> UusiEdistyminen(const QString &otsikko);

// Thrown when the user stopped a run; the run's transaction rolls back as it unwinds.
class Keskeytetty : public std::exception {
public:
    const char *what() const noexcept override { return "keskeytetty"; }
};

struct Ajo {
    // A plain connection is a run of its own: no progress, never stopped, today from the clock.
    Ajo(db::Database &k, Edistyminen *e = nullptr) : kanta(k), edistyminen(e) {}

    db::Database &kanta;
    Edistyminen *edistyminen = nullptr; // none: the run reports to nobody and is never stopped
    QDate tanaan = kello::tanaan();

    // The run's questions and messages go where the program installed its dialogs; asked only
    // when a run has something to say, so a quiet run needs none.
    dlg::Dialogs &dialogit() const { return dlg::current(); }

    // Reports the step and throws Keskeytetty when the user has asked to stop.
    void askel(qint64 tehty, qint64 yhteensa) const
    {
        if (!edistyminen)
            return;
        edistyminen->vaihe(tehty, yhteensa);
        if (edistyminen->keskeytetaanko())
            throw Keskeytetty();
    }
};

// For one long statement of a run (a copy, a check, a set-wise insert): the run's progress shows
// it working, and a stop ends the statement with Keskeytetty.
class KantaVahti {
public:
    KantaVahti(db::Database &kanta, Edistyminen *edistyminen);
    ~KantaVahti();
    KantaVahti(const KantaVahti &) = delete;
    KantaVahti &operator=(const KantaVahti &) = delete;

private:
    db::Database &m_kanta;
};
