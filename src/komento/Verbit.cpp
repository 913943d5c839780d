#include "komento/Komento.h"

namespace komento {

const std::vector<Verbi> &Verbit()
{
    static const std::vector<Verbi> verbit{
        {QStringLiteral("raportti"),
         QStringLiteral("raportti RAPORTTI ULOS.pdf [--valinta KAAVA] [--lajittelu KENTTÄ]... [--kaava 'Nimi= teksti']..."),
         Raportti},
        {QStringLiteral("historiaan"), QStringLiteral("historiaan"), Historiaan},
        {QStringLiteral("poista-laskut"), QStringLiteral("poista-laskut"), PoistaLaskut},
    };
    return verbit;
}

} // namespace komento
