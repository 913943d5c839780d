// What the finding and code-list windows share around their event procedures: the database
// check of a window that needs the database, and the one error handler that shows the text and
// ends the procedure.
#pragma once

#include "members/Koodilistat.h"
#include "platform/database.h"

#include <exception>

namespace tapahtuma {

// False, after "Tarkista tietokanta asetukset asetusikkunasta!", when no database is set.
bool tietokantaAsetettu();

void naytaVirhe(const QString &teksti);

// Runs one event procedure; an error is shown and ends it. False when it failed.
template <class F>
bool suojattu(F &&tehtava)
{
    try {
        tehtava();
        return true;
    } catch (const KoodilistaVirhe &e) {
        naytaVirhe(e.viesti());
    } catch (const db::DbError &e) {
        naytaVirhe(e.message());
    } catch (const std::exception &e) {
        naytaVirhe(QString::fromUtf8(e.what()));
    }
    return false;
}

} // namespace tapahtuma
