// A member's whole record as one text: contact lines, attributes, family and invoices, each
// section under its title between rules. The text is shown, copied, mailed, or stored in the
// table Rekisteritiedot for the register-information printout.
#pragma once

#include "platform/ajo.h"
#include "platform/database.h"

#include <QString>

// Which sections the text holds; the contact lines are always there.
struct cRekisteritietovalinta {
    bool Yhteystiedot = true;
    bool Ominaisuustiedot = false;
    bool Perhetiedot = false;
    bool Maksutiedot = false;
};

QString KoostaRekisteritiedot(db::Database &d, qint64 jrID, bool yhteystiedot, bool ominaisuudet, bool perhe,
                              bool maksut);
// The same on the database at the program's DatabasePath.
QString KoostaRekisteritiedot(qint64 jrID, bool yhteystiedot, bool ominaisuudet, bool perhe, bool maksut);

// Rebuilds the table Rekisteritiedot whole: one row for each member, whatever the selection.
// Stopping the run leaves the table as it was.
void TaytaRekisteritiedot(const Ajo &ajo, const cRekisteritietovalinta &valinta);
