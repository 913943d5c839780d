#include "komento/Komento.h"

namespace komento {

const std::vector<Verbi> &Verbit()
{
    static const std::vector<Verbi> verbit{
        {QStringLiteral("raportti"),
         QStringLiteral("raportti RAPORTTI ULOS.pdf [--valinta KAAVA] [--lajittelu KENTTÄ]... [--kaava 'Nimi= teksti']..."),
         Raportti},
        {QStringLiteral("laskutus"),
         QStringLiteral("laskutus --pohja NIMI [--kenelle kaikki|ominaisuus:NIMI|jasen:JRID] [--ei-perheellisille] [--muille] "
                        "[--laskupaiva PVM] [--erapaiva PVM]"),
         Laskutus},
        {QStringLiteral("tulosta-laskut"),
         QStringLiteral("tulosta-laskut ULOS.pdf [--malli tilisiirto|yleislasku|jasenkortti] [--kaksikielinen] "
                        "[--jarjestys aakkos|postinumero|syntyma] [--vain-lahettamattomat]"),
         TulostaLaskuera},
        {QStringLiteral("historiaan"), QStringLiteral("historiaan"), Historiaan},
        {QStringLiteral("poista-laskut"), QStringLiteral("poista-laskut"), PoistaLaskut},
        {QStringLiteral("muistutukset"), QStringLiteral("muistutukset ULOS.pdf [--alku LASKUNRO] [--loppu LASKUNRO]"), Muistutukset},
        {QStringLiteral("sahkopostilaskut"), QStringLiteral("sahkopostilaskut [--esikatselu] [--kenelle kaikki|ominaisuus:NIMI|jasen:JRID] [--smtp PALVELIN[:PORTTI]] [--suojaus ei|starttls|smtps] [--kayttaja NIMI]"), Sahkopostilaskut},
        {QStringLiteral("maksettu"), QStringLiteral("maksettu VIITENUMERO [--poista-maksettu]"), Maksettu},
        {QStringLiteral("viitemaksut"), QStringLiteral("viitemaksut TIEDOSTO [--era N]"), Viitemaksut},
        {QStringLiteral("merkitse-maksetuiksi"),
         QStringLiteral("merkitse-maksetuiksi TIEDOSTO [--era N] [--virheelliset] [--poista-maksettu]"), MerkitseMaksetuiksi},
        {QStringLiteral("kirjaa"), QStringLiteral("kirjaa TIEDOSTO"), Kirjaa},
    };
    return verbit;
}

} // namespace komento
