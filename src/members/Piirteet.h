// Attribute definitions (table pi): the lists and the tree that show them, their removal with
// everything attached, and the clean-up of attachments whose definition is gone.
#pragma once

#include "core/ListaRivi.h"
#include "members/PiirreArvot.h"
#include "platform/database.h"

#include <QString>
#include <QVector>
#include <optional>

namespace db {
class Recordset;
}


// The definitions by name, as "SELECT * FROM pi ORDER BY piNimi" lists them. With
// `poistaTyhjat` the blank definitions are deleted first, as the windows that list
// definitions for choosing do on opening.
QVector<ListaRivi> Maaritykset(db::Database &db, bool poistaTyhjat);
int PiirteidenMaara(db::Database &db);

// The tree of the definitions window: a letter node for each initial A–Z, Å, Ä, Ö that occurs,
// in that order, holding its rows by name. Names that begin with anything else are left out,
// and a nameless row ends the walk (it sorts first, so the tree is then empty).
struct PuunKirjain {
    QString kirjain;
    QVector<ListaRivi> rivit;
};
QVector<PuunKirjain> PiirrePuu(db::Database &db);

// Whether a name passes the check typed names get: an empty one or one whose upper-cased first
// character is a letter or beyond ("1. joukkue" is warned about, and may still be saved).
bool NimiKelpaaPuuhun(const QString &nimi);

// Deletes the definition with its attachments (pt) and its rows of mt, as one.
void PoistaPiirre(db::Database &db, qint64 piID);

// Deletes the attachments whose definition no longer exists. Returns how many.
int SiivoaVanhatOminaisuudet(db::Database &db);

// A definition as its value panels need it.
struct PiirreMaaritys {
    qint64 piID = 0;
    QString nimi;
    QString kuvaus;
    std::array<bool, ArvoTyyppeja> kaytossa{};
    std::array<QVariant, ArvoTyyppeja> oletus;
};
std::optional<PiirreMaaritys> LueMaaritys(db::Database &db, qint64 piID);

// The definitions window's boxes, read and written on its recordset of pi.
struct MaaritysLomake {
    QString tNimi, tKuvaus, tDate, tLong, tCurrency, tMemo;
};
// The row as the boxes show it. A Null "in use" flag is no answer: the window then leaves its
// check box as it was.
struct MaaritysNakyma {
    MaaritysLomake lomake;
    std::array<std::optional<bool>, ArvoTyyppeja> kaytossa;
};
MaaritysNakyma LueMaaritysRivi(const db::Recordset &rs);
// Writes the boxes into the row being edited or added. A default that does not parse becomes
// Null, as does an empty text.
void KirjoitaMaaritysRivi(db::Recordset &rs, const MaaritysLomake &l);
