// Telling the user about member numbers that several members share in a club from before the
// numbers were kept unique. Told once: the numbers told are remembered in the club's settings.
#pragma once

#include "platform/database.h"

#include <QString>
#include <QStringList>

// The message that lists the doubled numbers.
QString KaksoisnumeroViesti(const QStringList &numerot);

// Shows the message when the club holds doubled numbers that the user has not yet been told of.
// Returns whether it was shown. Never throws: a club that cannot be read or written opens anyway.
bool IlmoitaKaksoisnumeroista(db::Database &db);
