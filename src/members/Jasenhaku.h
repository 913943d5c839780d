// Finding a member: the look-ups behind the basic search (member number, attribute memo, an exact
// contact field) and the name search. Each answers which jrID is meant; none writes anything.
//
// Every value is bound. In the patterns a user types, * and ? are the wild cards (any run, one
// character); every other character, % and _ included, is found as typed.
#pragma once

#include "platform/database.h"

#include <QString>
#include <QVector>

// One row of a drop-down or result list: the text shown and the member it leads to.
struct HakuRivi {
    qint64 jrID = 0;
    QString teksti;
    bool operator==(const HakuRivi &o) const { return jrID == o.jrID && teksti == o.teksti; }
};

// The result of the name search, left for the member window; 0 when nothing was chosen.
inline qint64 HaettuJasenID = 0;

namespace Jasenhaku {

// The contact columns of the basic search, in the order the dialog looks at them.
enum class Yhteystieto { Osoite, Puhelin, Matkapuhelin, Email };
QString sarake(Yhteystieto y); // "jrOsoite" …

// The drop-down list of one column (jrJasennumero or a contact column): every non-Null value with
// its member, in Finnish order of the value. Rows with the same value stay in key order.
QVector<HakuRivi> Arvot(db::Database &db, const QString &sarake);
// The first 30 characters of every attribute memo of an existing member, in attribute-row order.
QVector<HakuRivi> MuistioAlut(db::Database &db);

// A typed member number, compared as text; 0 when no member has it.
qint64 Jasennumerolla(db::Database &db, const QString &numero);

// The full memo search: every attribute memo that holds the text. `jrID` is that of the last
// matching row, as the dialog moves to the end of the result to count it; 0 when none.
struct MuistioTulos {
    int maara = 0;
    qint64 jrID = 0;
};
MuistioTulos MuistiostaHaku(db::Database &db, const QString &sana);
// The first member whose memo begins with `alku` (taken literally); 0 when none.
qint64 MuistionAlulla(db::Database &db, const QString &alku);

// The first member (in key order) whose contact field equals the value, case aside; 0 when none.
qint64 Yhteystiedolla(db::Database &db, Yhteystieto y, const QString &arvo);

// Members whose surname holds `sukunimi` and whose first name holds `etunimi` (an empty text is
// no condition), in key order: "Sukunimi Etunimi - Postitoimipaikka".
QVector<HakuRivi> Nimella(db::Database &db, const QString &sukunimi, const QString &etunimi);

// A typed text as a LIKE pattern of the connection (escape '\'): * and ? as wild cards, the
// rest literal, with a * added at each end when `sisalla` (found anywhere inside the value).
QString likeKuvio(const QString &teksti, bool sisalla);
// The literal text as the head of a LIKE pattern, followed by "any run".
QString likeAlku(const QString &teksti);

} // namespace Jasenhaku
