#include "invoicing/Laskut.h"

#include "core/Laskuidt.h"
#include "core/MainModule.h"
#include "invoicing/Viite.h"
#include "platform/arvot.h"

long LaskujenMaara(db::Database &db)
{
    return long(NullLong(db.scalar(QStringLiteral("SELECT COUNT(jmID) AS jCount FROM jm"))));
}

qint64 LisaaViesti(db::Database &db, const QString &teksti)
{
    if (teksti.isEmpty())
        return 0;
    db.execute(QStringLiteral("INSERT INTO me (meTeksti) VALUES (?)"), {teksti});
    return db.lastInsertId();
}

namespace {

const QString kJasenmaksu = QStringLiteral("SELECT jrJasenmaksu FROM jr WHERE jrID = ?");
const QString kLasku = QStringLiteral(
    "INSERT INTO jm (jmjrID, jmErapaiva, jmLaskupaiva, jmLaskunumero, jmViitenumero, jmHinta, jmTeksti,"
    " jmMaksettu, jmOtsake, jmmeID, jmPerhe, jmOmin, jmEmailed, jmJasMak, jmEiLoppusummaa,"
    " jmKaytaPankkitili1, jmPankkitili1, jmjrJasenmaksu)"
    " VALUES (?, ?, ?, ?, ?, ?, ?, 0, ?, ?, ?, ?, 0, ?, ?, ?, ?, ?)");
const QString kRivi = QStringLiteral("INSERT INTO jmRivi (jmRjmID, jmRjrID, jmRmeId, jmRPaiva, jmRHinta, jmRTeksti,"
                                     " jmRMaksettu, jmRmlID) VALUES (?, ?, ?, ?, ?, ?, 0, ?)");
const QString kMaksamatta = QStringLiteral("UPDATE jr SET jrJasenmaksu = 0 WHERE jrID = ?");

void aja(db::Statement &st, const db::Params &arvot)
{
    st.reset(arvot);
    st.next();
}

} // namespace

Laskukirjoitin::Laskukirjoitin(db::Database &db)
    : m_db(db), m_jasenmaksu(db, kJasenmaksu, db::Params(1)), m_lasku(db, kLasku, db::Params(16)),
      m_rivi(db, kRivi, db::Params(7)), m_maksamatta(db, kMaksamatta, db::Params(1))
{
}

qint64 Laskukirjoitin::lisaaLasku(const UusiLasku &l)
{
    // The fee state before this invoice, so that deleting the batch can give it back.
    QVariant jasenmaksuEnnen;
    if (l.jasenmaksu) {
        m_jasenmaksu.reset({l.jrID});
        if (m_jasenmaksu.next())
            jasenmaksuEnnen = NullBoolean(m_jasenmaksu.value(0));
    }
    aja(m_lasku, {l.jrID, DbPaiva(l.erapaiva), DbPaiva(l.laskupaiva), l.laskunumero,
                  l.eiViitetta ? QString(QLatin1String("")) : l.viitenumero, l.hinta.toVariant(), l.teksti, l.otsake,
                  l.meID, l.perhe, l.omin, l.jasenmaksu, l.eiLoppusummaa, l.kaytaPankkitili1,
                  l.kaytaPankkitili1 ? l.pankkitili1 : QString(QLatin1String("")), jasenmaksuEnnen});
    return m_db.lastInsertId();
}

void Laskukirjoitin::lisaaRivi(qint64 jrID, qint64 jmID, qint64 meID, const QDate &paiva, std::optional<Currency> hinta,
                               const QString &teksti, qint64 mlID)
{
    aja(m_rivi, {jmID, jrID, meID, DbPaiva(paiva), hinta ? hinta->toVariant() : QVariant(), teksti, mlID});
}

void Laskukirjoitin::merkitseMaksamatta(qint64 jrID) { aja(m_maksamatta, {jrID}); }

qint64 LisaaLasku(db::Database &db, const UusiLasku &l) { return Laskukirjoitin(db).lisaaLasku(l); }

void LisaaLaskurivi(db::Database &db, qint64 jrID, qint64 jmID, qint64 meID, const QDate &paiva,
                    std::optional<Currency> hinta, const QString &teksti, qint64 mlID)
{
    Laskukirjoitin(db).lisaaRivi(jrID, jmID, meID, paiva, hinta, teksti, mlID);
}

QString LaskunViite(bool henkilokohtainen, const QString &jrViitenumero, qint64 laskunumero)
{
    if (henkilokohtainen && !jrViitenumero.isEmpty())
        return jrViitenumero;
    return ViiteNumerosta(laskunumero);
}

std::optional<QString> LaskunumeroVirhe(db::Database &db)
{
    const long suurin = SuurinLaskunumero(db);
    if (MainModule::Laskunro > suurin)
        return std::nullopt;
    return QStringLiteral("Tietokannasta löytyy jo isompi laskunumero (%1) kuin numero jota ollaan lisäämässä (%2)\n"
                          "Muuta laskunumero Vonarin asetuksiin ennen laskujen lisäystä, ensimmäinen kelvollinen on %3")
        .arg(suurin)
        .arg(MainModule::Laskunro)
        .arg(qint64(suurin) + 1);
}
