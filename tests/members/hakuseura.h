// Members for the finding and code-list tests, in a copy of the upgraded template (malliseura).
// Header-only, shared by the tests of this folder.
#pragma once

#include "malliseura.h"

#include <QString>
#include <QVariant>
#include <memory>

namespace hakuseura {

struct Jasen {
    QVariant sukunimi = {}, etunimi = {}, postitoimipaikka = {}, jasennumero = {}, osoite = {}, puhelin = {}, matkapuhelin = {},
             email = {};
};

inline qint64 lisaa(db::Database &db, const Jasen &j)
{
    db.execute(QStringLiteral("INSERT INTO jr (jrSukunimi, jrEtunimi, jrPostitoimipaikka, jrJasennumero, jrOsoite, jrPuhelin, "
                              "jrMatkapuhelin, jrEmail) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"),
               {j.sukunimi, j.etunimi, j.postitoimipaikka, j.jasennumero, j.osoite, j.puhelin, j.matkapuhelin, j.email});
    return db.lastInsertId();
}

// An attribute with a memo, attached to the member.
inline qint64 muistio(db::Database &db, qint64 jrID, const QVariant &teksti)
{
    QVariant piID = db.scalar(QStringLiteral("SELECT piID FROM pi WHERE piNimi = 'Huomio'"));
    if (!piID.isValid()) {
        db.execute(QStringLiteral("INSERT INTO pi (piNimi, piEnbldMemo) VALUES ('Huomio', 1)"));
        piID = db.lastInsertId();
    }
    db.execute(QStringLiteral("INSERT INTO pt (ptjrID, ptpiID, ptValMemo) VALUES (?, ?, ?)"), {jrID, piID, teksti});
    return db.lastInsertId();
}

} // namespace hakuseura
