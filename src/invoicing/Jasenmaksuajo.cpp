#include "invoicing/Jasenmaksuajo.h"

#include "core/Asetukset.h"
#include "core/Laskuidt.h"
#include "core/MainModule.h"
#include "invoicing/Laskut.h"
#include "invoicing/Laskutettavat.h"

namespace {

struct Rivi {
    QString teksti;
    Currency hinta;
    qint64 mlID = 0;
};

std::optional<Laskutusvirhe> tarkistaRivit(const MaksujenLuontiLomake &l, QVector<Rivi> *rivit,
                                           const std::array<qint64, 4> *myyntilajit)
{
    for (int i = 0; i < int(l.rivit.size()); ++i) {
        const PerusLaskurivi &r = l.rivit[i];
        if (!r.chkRivi)
            continue;
        const QString numero = QString::number(i + 1);
        if (r.tRiviTeksti.isEmpty())
            return Laskutusvirhe{QStringLiteral("Laskurivillä: #%1 pitää olla aiheteksti.").arg(numero),
                                 QStringLiteral("tRiviTeksti%1").arg(i)};
        const auto hinta = Currency::parse(r.tRiviSumma);
        if (!hinta)
            return Laskutusvirhe{QStringLiteral("Laskurivillä: #%1 pitää olla hinta.").arg(numero),
                                 QStringLiteral("tRiviSumma%1").arg(i)};
        rivit->append({r.tRiviTeksti, *hinta, myyntilajit ? (*myyntilajit)[i] : 0});
    }
    if (rivit->isEmpty())
        return Laskutusvirhe{QStringLiteral("Laskua ei voida tehdä ilman laskurivitietoa."), {}};
    return std::nullopt;
}

} // namespace

QString RivienLoppusumma(const std::array<PerusLaskurivi, 4> &rivit)
{
    Currency summa;
    for (const PerusLaskurivi &r : rivit)
        if (r.chkRivi)
            if (const auto hinta = Currency::parse(r.tRiviSumma))
                summa += *hinta;
    return summa.toString(2) + QStringLiteral(" €");
}

UusiLasku YhteisetTiedot(const LaskunYlatiedot &y, const LaskunPaivat &paivat, qint64 meID)
{
    UusiLasku lasku;
    lasku.erapaiva = paivat.erapaiva;
    lasku.laskupaiva = paivat.laskupaiva;
    lasku.teksti = y.tAiheTeksti;
    lasku.otsake = y.cmbMaksunOtsake;
    lasku.meID = meID;
    lasku.eiViitetta = y.chkEiViitetta;
    lasku.jasenmaksu = y.chkJasenmaksu;
    lasku.eiLoppusummaa = y.chkEiLoppusummaa;
    lasku.kaytaPankkitili1 = y.chkVainValittuTilinumero;
    lasku.pankkitili1 = y.chkVainValittuTilinumero ? y.valittuTilinumero() : QString();
    return lasku;
}

QString EiLaskutettaviaViesti() { return QStringLiteral("Ei löydy jäseniä, joille voi tehdä laskun."); }

QString LisattyViesti(long laskuja)
{
    return laskuja == 1 ? QStringLiteral("Lisätty 1 lasku.") : QStringLiteral("Lisätty %1 laskua.").arg(laskuja);
}

namespace {

Laskutustulos lisaa(const Ajo &ajo, const MaksujenLuontiLomake &l, bool jasenikkunaAuki, const std::array<qint64, 4> *myyntilajit)
{
    db::Database &db = ajo.kanta;
    Laskutustulos tulos;
    LaskunPaivat paivat;
    QVector<Rivi> rivit;
    if ((tulos.virhe = TarkistaYlatiedot(db, l, jasenikkunaAuki, &paivat, myyntilajit ? Tarkistukset::Myyntilaji : Tarkistukset::Kaikki)))
        return tulos;
    if ((tulos.virhe = tarkistaRivit(l, &rivit, myyntilajit)))
        return tulos;
    if (myyntilajit && !l.saajat.valittu)
        tulos.virhe = Laskutusvirhe{QStringLiteral("Tarkista henkilö valinta."), QStringLiteral("cmbNimet")};
    else if (!myyntilajit)
        tulos.virhe = TarkistaSaajat(l.saajat);
    if (tulos.virhe)
        return tulos;
    // The total as the window shows it goes on every invoice; the user may have typed over it.
    const auto yhteensa = Currency::parse(l.tSumma);
    if (!yhteensa) {
        tulos.virhe = Laskutusvirhe{QStringLiteral("Syötetyn summan muoto ei ole kelvollinen."), QStringLiteral("tSumma")};
        return tulos;
    }

    db::Transaction tx(db);
    const qint64 meID = LisaaViesti(db, l.tLisatietoja);
    if (!myyntilajit)
        VarmistaLaskuIdt(db);
    const QVector<Laskutettava> henkilot = Laskutettavat(db, l.saajat);
    if (henkilot.isEmpty()) {
        tx.commit();
        tulos.viesti = EiLaskutettaviaViesti();
        return tulos;
    }

    UusiLasku lasku = YhteisetTiedot(l, paivat, meID);
    lasku.hinta = *yhteensa;

    // The counter moves once at the end, inside the same transaction: the numbers given are
    // those it would have given one by one, and a rollback takes them all back.
    const qint64 ensimmainen = MainModule::Laskunro;
    Laskukirjoitin kirjoitin(db);
    for (qsizetype i = 0; i < henkilot.size(); ++i) {
        const Laskutettava &h = henkilot[i];
        lasku.jrID = h.jrID;
        lasku.laskunumero = ensimmainen + i;
        lasku.viitenumero = LaskunViite(l.chkHenkKohtViite, h.jrViitenumero, lasku.laskunumero);
        const qint64 jmID = kirjoitin.lisaaLasku(lasku);
        for (const Rivi &r : rivit)
            kirjoitin.lisaaRivi(h.jrID, jmID, meID, paivat.laskupaiva, r.hinta, r.teksti, r.mlID);
        if (l.chkJasenmaksu)
            kirjoitin.merkitseMaksamatta(h.jrID);
        ajo.askel(i + 1, henkilot.size());
    }
    MuutaLaskunumeroa(db, henkilot.size());
    tulos.lisatty = LaskujenMaara(db);
    tx.commit();
    tulos.viesti = LisattyViesti(tulos.lisatty);
    return tulos;
}

} // namespace

Laskutustulos LisaaJasenmaksut(const Ajo &ajo, const MaksujenLuontiLomake &l, bool jasenikkunaAuki)
{
    return lisaa(ajo, l, jasenikkunaAuki, nullptr);
}

Laskutustulos LisaaMyyntilajeittain(const Ajo &ajo, const ProMaksujenLuontiLomake &l)
{
    return lisaa(ajo, l, false, &l.cmbMyyntiLaji);
}
