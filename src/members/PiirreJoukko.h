// Attributes for many members at once: attaching to hand-picked members or by birth date,
// removing one attribute from the holders of another, and merging two attributes. Each run
// commits as one: an interrupted or stopped run leaves the database as it was.
#pragma once

#include "members/Piirteet.h"
#include "platform/ajo.h"

#include <QDate>

// Every member for the hand-picked list, "surname first name" by name. The nameless rows at the
// head of that order are deleted first, as the windows that list members do on opening.
QVector<ListaRivi> JasenLista(db::Database &db);

// The result of an attaching run: how many attachments were made, and which boxes of the panel
// were refused at the first write and are to be emptied.
struct LiitosTulos {
    int lisatty = 0;
    std::array<bool, ArvoTyyppeja> tyhjenna{};
};

// Attaches the attribute to the members in the order given. With `vainUusille` a member who
// holds the attribute already is skipped; otherwise nothing stops a second attachment.
LiitosTulos Moniliitos(const Ajo &ajo, qint64 piID, const QVector<qint64> &jasenet, const ArvoSyote &arvot,
                       bool vainUusille);

// Attaches the attribute to the members born within the range, both ends included; an invalid
// date leaves that end open (at least one must be valid). A member without a birth date is
// never chosen.
LiitosTulos LisaaSyntymapaivanPerusteella(const Ajo &ajo, qint64 piID, const QDate &vanhin, const QDate &nuorin,
                                          const ArvoSyote &arvot, bool vainUusille);

// Removes attribute `poistettava` from every member who holds `ehto`. Returns the number of
// holdings of `ehto` by existing members, which is what the run counts, whether or not anything
// was removed from them.
int PoistaOminaisuus(const Ajo &ajo, qint64 poistettava, qint64 ehto);

// Moves every attachment of `yhdistettava` to `kohde` with its values. The source definition stays.
void YhdistaOminaisuus(const Ajo &ajo, qint64 yhdistettava, qint64 kohde);
