#include "invoicing/Ominaisuuslaskuajo.h"

#include "core/Asetukset.h"
#include "core/Laskuidt.h"
#include "core/MainModule.h"
#include "email/Tunnisteet.h"
#include "invoicing/Laskut.h"
#include "invoicing/Laskutettavat.h"
#include "platform/arvot.h"

namespace {

bool tyhjaTaiLuku(const QString &t) { return t.isEmpty() || OnNumeerinen(t); }

std::optional<Laskutusvirhe> tarkistaRivit(const OminaisuusLomake &l)
{
    for (int i = 0; i < int(l.rivit.size()); ++i) {
        const OminaisuusLaskurivi &r = l.rivit[i];
        if (r.cmbOminaisuus == 0)
            continue;
        if (r.chkLkm && !tyhjaTaiLuku(r.tAHinta))
            return Laskutusvirhe{QStringLiteral("á hinnan pitää olla lukuarvo."), QStringLiteral("tAHinta%1").arg(i)};
        if (r.chkHinta && !tyhjaTaiLuku(r.tLkm))
            return Laskutusvirhe{QStringLiteral("Lukumäärän pitää olla lukuarvo."), QStringLiteral("tLkm%1").arg(i)};
        if (!tyhjaTaiLuku(r.tMinimi))
            return Laskutusvirhe{QStringLiteral("Minimin pitää olla lukuarvo."), QStringLiteral("tMinimi%1").arg(i)};
    }
    return std::nullopt;
}

// A value as the row text shows it: a number without trailing zeros, Null as nothing.
QString tekstina(const QVariant &v, bool raha)
{
    if (!v.isValid() || v.isNull())
        return {};
    if (!raha)
        return QString::number(NullLong(v));
    QString t = NullCurrency(v).toString(4);
    while (t.endsWith(QLatin1Char('0')))
        t.chop(1);
    if (t.endsWith(QLatin1Char(',')))
        t.chop(1);
    return t;
}

struct Arvo {
    QVariant lkm, raha;
};

} // namespace

Currency OminaisuusrivinSumma(const OminaisuusLaskurivi &r, const QVariant &ptValLong, const QVariant &ptValCurrency)
{
    Currency summa;
    if (r.chkLkm && ptValLong.isValid() && !ptValLong.isNull() && OnNumeerinen(r.tAHinta))
        summa += Currency::fromDouble(double(NullLong(ptValLong)) * NumeroArvo(r.tAHinta));
    if (r.chkHinta && ptValCurrency.isValid() && !ptValCurrency.isNull() && OnNumeerinen(r.tLkm))
        summa += Currency::fromDouble(NullCurrency(ptValCurrency).toDouble() * NumeroArvo(r.tLkm));
    if (OnNumeerinen(r.tMinimi)) {
        const Currency minimi = Currency::parse(r.tMinimi).value_or(Currency());
        if (summa < minimi)
            summa = minimi;
    }
    return summa;
}

Laskutustulos LisaaOminaisuuslaskut(const Ajo &ajo, const OminaisuusAjo &l, bool jasenikkunaAuki)
{
    db::Database &db = ajo.kanta;
    Laskutustulos tulos;
    LaskunPaivat paivat;
    if ((tulos.virhe = TarkistaYlatiedot(db, l, jasenikkunaAuki, &paivat)) || (tulos.virhe = tarkistaRivit(l))
        || (tulos.virhe = TarkistaSaajat(l.saajat)))
        return tulos;

    db::Transaction tx(db);
    const qint64 meID = LisaaViesti(db, l.tLisatietoja);
    VarmistaLaskuIdt(db);
    LaskunSaajat saajat = l.saajat;
    saajat.chkEiPerheellisille = false; // this window has no family box
    const QVector<Laskutettava> henkilot = Laskutettavat(db, saajat);
    if (henkilot.isEmpty()) {
        tx.commit();
        tulos.viesti = EiLaskutettaviaViesti();
        return tulos;
    }
    UusiLasku lasku = YhteisetTiedot(l, paivat, meID);
    lasku.omin = true;

    Laskukirjoitin kirjoitin(db);
    db::Statement arvot(db, QStringLiteral("SELECT ptValLong, ptValCurrency FROM pt WHERE ptjrID = ? AND ptpiID = ? ORDER BY ptID"),
                        db::Params(2));
    qint64 laskuja = 0;
    for (qsizetype n = 0; n < henkilot.size(); ++n) {
        const qint64 jrID = henkilot[n].jrID;
        // Every value of a chosen attribute counts in the total; a row is made of the first.
        Currency yhteensa;
        std::array<std::optional<Arvo>, 4> ensimmaiset;
        for (int i = 0; i < 4; ++i) {
            if (l.rivit[i].cmbOminaisuus == 0)
                continue;
            arvot.reset({jrID, l.rivit[i].cmbOminaisuus});
            while (arvot.next()) {
                const Arvo a{arvot.value(0), arvot.value(1)};
                yhteensa += OminaisuusrivinSumma(l.rivit[i], a.lkm, a.raha);
                if (!ensimmaiset[i])
                    ensimmaiset[i] = a;
            }
        }
        ajo.askel(n + 1, henkilot.size());
        if (!(yhteensa > Currency() || l.chkTulostaNollat))
            continue;
        lasku.jrID = jrID;
        lasku.laskunumero = MainModule::Laskunro + laskuja;
        lasku.viitenumero = LaskunViite(l.chkHenkKohtViite, henkilot[n].jrViitenumero, lasku.laskunumero);
        lasku.hinta = yhteensa;
        const qint64 jmID = kirjoitin.lisaaLasku(lasku);
        ++laskuja;
        for (int i = 0; i < 4; ++i) {
            if (!ensimmaiset[i])
                continue;
            const OminaisuusLaskurivi &r = l.rivit[i];
            const Currency summa = OminaisuusrivinSumma(r, ensimmaiset[i]->lkm, ensimmaiset[i]->raha);
            if (!r.chkNollat && summa == Currency())
                continue;
            const QString teksti = KorvaaTunniste(KorvaaTunniste(r.tAiheTeksti, QStringLiteral("OM.LKM"), tekstina(ensimmaiset[i]->lkm, false)),
                                                  QStringLiteral("OM.ARVO"), tekstina(ensimmaiset[i]->raha, true));
            kirjoitin.lisaaRivi(jrID, jmID, meID, paivat.laskupaiva, summa, teksti);
        }
        if (l.chkJasenmaksu)
            kirjoitin.merkitseMaksamatta(jrID);
    }
    MuutaLaskunumeroa(db, laskuja);
    tulos.lisatty = LaskujenMaara(db);
    tx.commit();
    tulos.viesti = LisattyViesti(tulos.lisatty);
    return tulos;
}
