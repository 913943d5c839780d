// File-level work on a club's database: verified copies and name swaps that never leave the
// working file missing or half-written, whatever moment the process is stopped at.
#pragma once

#include "platform/ajo.h"
#include "platform/database.h"

#include <QMap>
#include <QString>

namespace kanta {

// A failure as the messages show it: a number in the old runtime's style and a Finnish text.
struct Virhe {
    int numero = 0;
    QString kuvaus;
};

Virhe virheJarjestelmasta(int errnoArvo, const QString &polku);
Virhe virheKannasta(const db::DbError &e);

using Rivimaarat = QMap<QString, qint64>;
// Row counts of every table, sqlite_sequence included.
Rivimaarat laskeRivit(db::Database &d);

struct Kopiointi {
    // The source is a database in use: other writers are held off while the snapshot is taken.
    // Otherwise the source is only read (a backup being restored, the template).
    bool lukitseLahde = false;
    bool korvaaKohde = false;
    // A full integrity check of the copy, or the quick one where speed matters more.
    bool taysiTarkistus = true;
    // Shows the copy and the check working; a stop removes what was written and throws Keskeytetty.
    Edistyminen *edistyminen = nullptr;
};

// PRAGMA integrity_check, or quick_check when not `taysi`; the report of what was found.
bool eheystarkistus(db::Database &d, bool taysi, QString *raportti);

// A consistent snapshot of `lahde` at `kohde`. It is written under a temporary name, flushed to
// disk and checked (it opens, passes the check, has the source's row counts) before it takes the
// target's name, so a former file of that name stays until the new one is known to be good.
bool kopioiTietokanta(const QString &lahde, const QString &kohde, const Kopiointi &tapa, Virhe *virhe,
                      Rivimaarat *maarat = nullptr);

// Whether some other connection still has the file open: its write-ahead log stays beside it
// after our own connections have closed.
bool muuKayttajaPaalla(const QString &polku);

// Gives the file a second name (a hard link, or a copy where the file system has none). The
// first name keeps pointing at the file throughout.
bool sailytaNimella(const QString &polku, const QString &toinenNimi, Virhe *virhe);
// Puts `lahde` in place of `kohde` in one step: `kohde` is never missing.
bool korvaaAtomisesti(const QString &lahde, const QString &kohde, Virhe *virhe);
// Deletes a database file with its journal files; true when nothing of it is left.
bool poistaTietokantatiedosto(const QString &polku);
bool samaTiedosto(const QString &a, const QString &b);
// Flushes a written file to the disk.
bool tallennaLevylle(const QString &polku, Virhe *virhe);

} // namespace kanta
