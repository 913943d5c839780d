// The run context: what a run carries from its window or the command-line tool down to every
// helper. One connection (and the one transaction the run opens on it), today's date, where
// progress goes and whether to stop, and the dialogs.
#pragma once

#include "platform/dialogs.h"
#include "platform/kello.h"

#include <QDate>
#include <QString>
#include <exception>

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

// Thrown when the user stopped a run; the run's transaction rolls back as it unwinds.
class Keskeytetty : public std::exception {
public:
    const char *what() const noexcept override { return "keskeytetty"; }
};

struct Ajo {
    db::Database &kanta;
    QDate tanaan = kello::tanaan();
    Edistyminen *edistyminen = nullptr; // none: the run reports to nobody and is never stopped
    dlg::Dialogs &dialogit = dlg::current();

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
