#include "invoicing/Laskutusehdot.h"

#include "invoicing/Laskut.h"
#include "platform/arvot.h"

std::optional<Laskutusvirhe> TarkistaYlatiedot(db::Database &db, const LaskunYlatiedot &y, bool jasenikkunaAuki,
                                                LaskunPaivat *paivat, Tarkistukset mitka)
{
    const bool kaikki = mitka == Tarkistukset::Kaikki;
    if (kaikki && jasenikkunaAuki)
        return Laskutusvirhe{QStringLiteral("Jäsenrekisteri-ikkuna tulee sulkea ennen laskujen lisäystä, lisäys keskeytetty."), {}};
    if (LaskujenMaara(db) != 0)
        return Laskutusvirhe{QStringLiteral("Siirrä jo tehdyt laskut ensin historiaan tai poista maksut ennen lisäystä!"), {}};
    if (auto virhe = kaikki ? LaskunumeroVirhe(db) : std::nullopt)
        return Laskutusvirhe{*virhe, {}};
    if (y.cmbMaksunOtsake.size() > 30)
        return Laskutusvirhe{QStringLiteral("Otsaketekstin tulee olla korkeintaan 30 merkkiä pitkä."),
                             QStringLiteral("cmbMaksunOtsake")};
    const QDate laskupaiva = ParsePaiva(y.tLaskunPaiva);
    if (!laskupaiva.isValid())
        return Laskutusvirhe{QStringLiteral("Laskun päivämäärä on väärin kirjoitettu."), QStringLiteral("tLaskunPaiva")};
    const QDate erapaiva = ParsePaiva(y.tLaskunErapaiva);
    if (!erapaiva.isValid())
        return Laskutusvirhe{QStringLiteral("Laskun eräpäivä on väärin kirjoitettu."), QStringLiteral("tLaskunErapaiva")};
    if (paivat)
        *paivat = {laskupaiva, erapaiva};
    return std::nullopt;
}

std::optional<Laskutusvirhe> TarkistaSaajat(const LaskunSaajat &s)
{
    if (!s.valittu)
        return Laskutusvirhe{QStringLiteral("Tarkista henkilö valinta."), QStringLiteral("cmbNimet")};
    if (s.tunniste == 0 && s.teksti != QLatin1String("Kaikki"))
        return Laskutusvirhe{QStringLiteral("Tarkista henkilö valinta, tee valinta listalta uudestaan."),
                             QStringLiteral("cmbNimet")};
    return std::nullopt;
}

QStringList PaivaVaroitukset(bool erapaivaKentta, const QDate &laskupaiva, const QDate &erapaiva, const QDate &tanaan)
{
    QStringList varoitukset;
    const QDate &jatetty = erapaivaKentta ? erapaiva : laskupaiva;
    if (jatetty.isValid() && jatetty < tanaan)
        varoitukset << (erapaivaKentta ? QStringLiteral("Laskun eräpäivä on menneisyydessä, tarkista päivämäärä.")
                                       : QStringLiteral("Laskun päivämäärä on menneisyydessä, tarkista päivämäärä."));
    if (laskupaiva.isValid() && erapaiva.isValid() && erapaiva < laskupaiva)
        varoitukset << QStringLiteral("Laskun eräpäivä on ennen laskupäivää, tarkista päivämäärä.");
    return varoitukset;
}
