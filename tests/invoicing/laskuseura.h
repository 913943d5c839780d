// A small club for the invoicing tests: the upgraded template with members, a family and an
// attribute, and a filled plain invoice form. Header-only.
#pragma once

#include "core/MainModule.h"
#include "invoicing/Laskulomake.h"
#include "malliseura.h"
#include "platform/arvot.h"

#include <QString>
#include <memory>

namespace laskuseura {

inline qint64 jasen(db::Database &db, const QString &suku, const QString &etu, const QVariant &viite = {},
                    bool jasenmaksu = true)
{
    db.execute(QStringLiteral("INSERT INTO jr (jrSukunimi, jrEtunimi, jrViitenumero, jrJasenmaksu) VALUES (?, ?, ?, ?)"),
               {suku, etu, viite, jasenmaksu});
    return db.lastInsertId();
}

inline qint64 ominaisuus(db::Database &db, const QString &nimi)
{
    db.execute(QStringLiteral("INSERT INTO pi (piNimi) VALUES (?)"), {nimi});
    return db.lastInsertId();
}

inline void liita(db::Database &db, qint64 jrID, qint64 piID)
{
    db.execute(QStringLiteral("INSERT INTO pt (ptjrID, ptpiID) VALUES (?, ?)"), {jrID, piID});
}

// `maksaja` pays for `jasen`.
inline void perhe(db::Database &db, qint64 maksaja, qint64 jasen)
{
    db.execute(QStringLiteral("UPDATE jr SET jrPerheenLaskutettava = 1 WHERE jrID = ?"), {maksaja});
    db.execute(QStringLiteral("INSERT INTO jrPerhe (jrPMID, jrPSubID) VALUES (?, ?)"), {maksaja, jasen});
}

inline qint64 maara(db::Database &db, const QString &taulu)
{
    return NullLong(db.scalar(QStringLiteral("SELECT COUNT(*) FROM ") + taulu));
}

// Everybody, one row of 25,00, dated 1.3.2027 and due 31.3.2027.
inline MaksujenLuontiLomake lomake()
{
    MaksujenLuontiLomake l;
    l.cmbMaksunOtsake = QStringLiteral("Jäsenmaksu 2027");
    l.tLaskunPaiva = QStringLiteral("1.3.2027");
    l.tLaskunErapaiva = QStringLiteral("31.3.2027");
    l.tAiheTeksti = QStringLiteral("Jäsenmaksu");
    l.cmbTilinumerot = {QString(), QStringLiteral("FI21 1234 5600 0007 85"), QStringLiteral("FI79 4006 1020 0001 12")};
    l.rivit[0] = {true, QStringLiteral("Vuosimaksu"), QStringLiteral("25,00")};
    l.tSumma = QStringLiteral("25,00 €");
    l.saajat.valittu = true;
    l.saajat.teksti = QStringLiteral("Kaikki");
    return l;
}

} // namespace laskuseura
