#include "invoicing/Laskuera.h"

#include "core/Asetukset.h"
#include "core/Ilmoitukset.h"
#include "invoicing/Laskut.h"
#include "platform/database.h"

QString SiirraHistoriaan(const Ajo &ajo, Laskuikkuna ikkuna)
{
    db::Database &db = ajo.kanta;
    const QString perhe = ikkuna == Laskuikkuna::Perhe ? QStringLiteral("IFNULL(jmPerhe, 0)") : QStringLiteral("0");
    const QString omin = ikkuna == Laskuikkuna::Ominaisuus ? QStringLiteral("1") : QStringLiteral("0");
    try {
        db::Transaction tx(db);
        KantaVahti vahti(db, ajo.edistyminen);
        db.execute(QStringLiteral(
                       "INSERT INTO jmhist (jmhjmID, jmhjmjrID, jmhjmErapaiva, jmhjmLaskupaiva, jmhjmLaskunumero,"
                       " jmhjmViitenumero, jmhjmHinta, jmhjmTeksti, jmhjmMaksettu, jmhjmmeID, jmhjmOtsake, jmhjmPerhe,"
                       " jmhjmOmin, jmhjmEmailed, jmhjmJasMak, jmhjmEiLoppusummaa, jmhjmPankkitili1, jmhjmKaytaPankkitili1)"
                       " SELECT jmID, jmjrID, jmErapaiva, jmLaskupaiva, jmLaskunumero, jmViitenumero, jmHinta, jmTeksti,"
                       " jmMaksettu, jmmeID, jmOtsake, %1, %2, jmEmailed, jmJasMak, IFNULL(jmEiLoppusummaa, 0),"
                       " IFNULL(jmPankkitili1, ''), IFNULL(jmKaytaPankkitili1, 0) FROM jm ORDER BY jmID")
                       .arg(perhe, omin));
        db.execute(QStringLiteral("DELETE FROM jm"));
        tx.commit();
    } catch (const db::DbError &e) {
        return QStringLiteral("Tietoja ei saada siirrettyä historiaan.\nVirhe numero: %1\nTeksti: %2")
            .arg(e.number())
            .arg(e.message());
    }
    return QStringLiteral("Laskut siirretty historiaan.");
}

QString PoistaLisatytLaskut(const Ajo &ajo, Laskuikkuna ikkuna, bool jasenikkunaAuki)
{
    const bool myyntilaji = ikkuna == Laskuikkuna::Myyntilaji;
    if (jasenikkunaAuki && !myyntilaji)
        return QStringLiteral("Jäsenrekisteri-ikkuna tulee sulkea ennen laskujen poistoa, poisto keskeytetty.");
    if (!Kysy(QStringLiteral("Haluatko varmasti poistaa kaikki lisätyt laskut?")))
        return {};
    db::Database &db = ajo.kanta;
    db::Transaction tx(db);
    KantaVahti vahti(db, ajo.edistyminen);
    if (!myyntilaji)
        db.execute(QStringLiteral("UPDATE jr SET jrJasenmaksu = 1 WHERE jrID IN"
                                  " (SELECT jmjrID FROM jm WHERE jmJasMak = 1 AND jmjrJasenmaksu = 1)"));
    db.execute(QStringLiteral("DELETE FROM jmRivi WHERE jmRjmID IN (SELECT jmID FROM jm)"));
    MuutaLaskunumeroa(db, -qint64(LaskujenMaara(db)));
    db.execute(QStringLiteral("DELETE FROM jm"));
    tx.commit();
    return QStringLiteral("Kaikki lisätyt laskut poistettu.");
}
