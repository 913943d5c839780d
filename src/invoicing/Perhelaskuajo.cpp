#include "invoicing/Perhelaskuajo.h"

#include "core/Asetukset.h"
#include "core/Laskuidt.h"
#include "core/MainModule.h"
#include "invoicing/Laskut.h"
#include "invoicing/Laskutettavat.h"
#include "platform/arvot.h"

#include <array>

namespace {

constexpr int kLuokkia = 8; // the classes; index 8 of the window is the family's own row
const std::array<const char *, kLuokkia> kLiput{"jrPAik", "jrPNuor", "jrPLapsi", "jrPSis1",
                                                "jrPSis2", "jrPSis3", "jrPSis4", "jrPSis5"};

std::optional<Laskutusvirhe> tarkistaRivit(const PerheLomake &l)
{
    for (int i = 0; i < int(l.luokat.size()); ++i)
        if (l.luokat[i].chkPerheLuokka && !Currency::parse(l.luokat[i].tSumma))
            return Laskutusvirhe{QStringLiteral("Laskurivin summan pitää olla lukuarvo."), QStringLiteral("tSumma%1").arg(i)};
    for (int i = 0; i < int(l.lisarivit.size()); ++i) {
        const PerusLaskurivi &r = l.lisarivit[i];
        if (!r.chkRivi)
            continue;
        if (r.tRiviTeksti.isEmpty())
            return Laskutusvirhe{QStringLiteral("Lisärivillä: #%1 pitää olla aiheteksti.").arg(i + 1),
                                 QStringLiteral("tRiviTeksti%1").arg(i)};
        if (!Currency::parse(r.tRiviSumma))
            return Laskutusvirhe{QStringLiteral("Lisärivillä: #%1 pitää olla hinta.").arg(i + 1), QStringLiteral("tRiviSumma%1").arg(i)};
    }
    return std::nullopt;
}

// The payers to invoice. A payer who holds the attribute twice is invoiced once.
QVector<Laskutettava> maksajat(db::Database &db, const LaskunSaajat &s)
{
    const QString jarjestys = QStringLiteral(" ORDER BY jr.jrSukunimi COLLATE FI, jr.jrEtunimi COLLATE FI, jr.jrID");
    QString sql;
    db::Params arvot;
    if (s.tunniste > 0) {
        sql = QStringLiteral("SELECT jrID, jrViitenumero FROM jr WHERE jrID = ?");
        arvot << s.tunniste;
    } else if (s.tunniste == 0) {
        sql = QStringLiteral("SELECT jr.jrID, jr.jrViitenumero FROM jr WHERE jr.jrPerheenLaskutettava = 1") + jarjestys;
    } else if (!s.chkMuille) {
        sql = QStringLiteral("SELECT jr.jrID, jr.jrViitenumero FROM jr JOIN pt ON jr.jrID = pt.ptjrID"
                             " WHERE jr.jrPerheenLaskutettava = 1 AND pt.ptpiID = ?") + jarjestys;
        arvot << -s.tunniste;
    } else {
        db.execute(QStringLiteral("UPDATE jr SET jrMukaan = 1"));
        db.execute(QStringLiteral("UPDATE jr SET jrMukaan = 0 WHERE jrPerheenLaskutettava = 1 AND jrID IN"
                                  " (SELECT ptjrID FROM pt WHERE ptpiID = ?)"), {-s.tunniste});
        sql = QStringLiteral("SELECT jr.jrID, jr.jrViitenumero FROM jr WHERE jr.jrPerheenLaskutettava = 1 AND jr.jrMukaan = 1")
            + jarjestys;
    }
    QVector<Laskutettava> tulos;
    db::Statement st(db, sql, arvot);
    while (st.next()) {
        const qint64 id = NullLong(st.value(0));
        if (tulos.isEmpty() || tulos.last().jrID != id)
            tulos.append({id, NullText(st.value(1))});
    }
    return tulos;
}

std::array<int, kLuokkia> luokkienKoot(db::Database &db, qint64 maksaja)
{
    std::array<int, kLuokkia> koot{};
    db::Statement st(db, QStringLiteral("SELECT jrPAik, jrPNuor, jrPLapsi, jrPSis1, jrPSis2, jrPSis3, jrPSis4, jrPSis5"
                                        " FROM jrPerhe WHERE jrPMID = ?"),
                     {maksaja});
    while (st.next())
        for (int i = 0; i < kLuokkia; ++i)
            koot[i] += NullBoolean(st.value(i)) ? 1 : 0;
    return koot;
}

QString nimella(const QString &teksti, bool nimet, const QString &nimilista)
{
    return nimet ? teksti + QStringLiteral(" : ") + nimilista : teksti;
}

} // namespace

QString PerheenNimet(db::Database &db, qint64 maksaja, int luokka)
{
    QString sql = QStringLiteral("SELECT jr.jrSukunimi, jr.jrEtunimi FROM jrPerhe JOIN jr ON jr.jrID = jrPerhe.jrPSubID"
                                 " WHERE jrPerhe.jrPMID = ?");
    if (luokka >= 0)
        sql += QStringLiteral(" AND jrPerhe.%1 = 1").arg(QLatin1String(kLiput.at(luokka)));
    sql += QStringLiteral(" ORDER BY jrPerhe.jrPID");
    QStringList nimet;
    db::Statement st(db, sql, {maksaja});
    while (st.next())
        nimet << NullText(st.value(0)) + QLatin1Char(' ') + NullText(st.value(1));
    return nimet.join(QStringLiteral(", "));
}

Laskutustulos LisaaPerhelaskut(const Ajo &ajo, const PerheLomake &l, bool jasenikkunaAuki)
{
    db::Database &db = ajo.kanta;
    Laskutustulos tulos;
    LaskunPaivat paivat;
    if ((tulos.virhe = TarkistaYlatiedot(db, l, jasenikkunaAuki, &paivat)) || (tulos.virhe = tarkistaRivit(l))
        || (tulos.virhe = TarkistaSaajat(l.saajat)))
        return tulos;
    const auto hinta = [](const QString &t) { return Currency::parse(t).value_or(Currency()); };

    db::Transaction tx(db);
    const qint64 meID = LisaaViesti(db, l.tLisatietoja);
    VarmistaLaskuIdt(db);
    const QVector<Laskutettava> henkilot = maksajat(db, l.saajat);
    if (henkilot.isEmpty()) {
        tx.commit();
        tulos.viesti = EiLaskutettaviaViesti();
        return tulos;
    }
    UusiLasku lasku = YhteisetTiedot(l, paivat, meID);
    lasku.perhe = true;

    const qint64 ensimmainen = MainModule::Laskunro;
    Laskukirjoitin kirjoitin(db);
    const PerheLuokkarivi &perherivi = l.luokat[8];
    for (qsizetype n = 0; n < henkilot.size(); ++n) {
        const qint64 jrID = henkilot[n].jrID;
        const std::array<int, kLuokkia> koot = luokkienKoot(db, jrID);
        Currency yhteensa;
        for (int i = 0; i < kLuokkia; ++i)
            if (l.luokat[i].chkPerheLuokka && koot[i] > 0)
                yhteensa += hinta(l.luokat[i].tSumma) * koot[i];
        if (perherivi.chkPerheLuokka)
            yhteensa += hinta(perherivi.tSumma);
        for (const PerusLaskurivi &r : l.lisarivit)
            if (r.chkRivi)
                yhteensa += hinta(r.tRiviSumma);

        lasku.jrID = jrID;
        lasku.laskunumero = ensimmainen + n;
        lasku.viitenumero = LaskunViite(l.chkHenkKohtViite, henkilot[n].jrViitenumero, lasku.laskunumero);
        lasku.hinta = yhteensa;
        const qint64 jmID = kirjoitin.lisaaLasku(lasku);
        const auto rivi = [&](const QString &teksti, Currency summa) {
            kirjoitin.lisaaRivi(jrID, jmID, meID, paivat.laskupaiva, summa, teksti);
        };
        if (perherivi.chkPerheLuokka)
            rivi(nimella(perherivi.tAiheTeksti, perherivi.chkNimet, PerheenNimet(db, jrID)), hinta(perherivi.tSumma));
        for (int i = 0; i < kLuokkia; ++i) {
            const PerheLuokkarivi &r = l.luokat[i];
            if (!r.chkPerheLuokka)
                continue;
            const Currency summa = hinta(r.tSumma) * koot[i];
            if (r.chkNollat || summa != Currency())
                rivi(nimella(r.tAiheTeksti, r.chkNimet, PerheenNimet(db, jrID, i)), summa);
        }
        for (const PerusLaskurivi &r : l.lisarivit)
            if (r.chkRivi)
                rivi(r.tRiviTeksti, hinta(r.tRiviSumma));
        if (l.chkJasenmaksu) {
            kirjoitin.merkitseMaksamatta(jrID);
            db.execute(QStringLiteral("UPDATE jr SET jrJasenmaksu = 0 WHERE jrID IN (SELECT jrPSubID FROM jrPerhe WHERE jrPMID = ?)"),
                       {jrID});
        }
        ajo.askel(n + 1, henkilot.size());
    }
    MuutaLaskunumeroa(db, henkilot.size());
    tulos.lisatty = LaskujenMaara(db);
    tx.commit();
    tulos.viesti = LisattyViesti(tulos.lisatty);
    return tulos;
}
