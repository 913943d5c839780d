// maksettu VIITENUMERO [--poista-maksettu]
// The payment book's fetch and mark paid: the invoice of the reference marked paid as the button
// marks it, then the labels of the fetch that follows.
#include "komento/Komento.h"
#include "payments/Maksukirja.h"

#include <QTextStream>

namespace komento {

int Maksettu(Yhteys &y)
{
    Valitsimet v({}, {QStringLiteral("--poista-maksettu")});
    QString virhe;
    if (!v.lue(y.argumentit, &virhe))
        return Virhe(virhe, VaaraKaytto);
    if (v.paikalliset.size() != 1)
        return Virhe(QStringLiteral("Anna viitenumero."), VaaraKaytto);
    const auto lasku = HaeLasku(y.ajo.kanta, v.paikalliset[0]);
    if (!lasku)
        return Epaonnistui; // the fetch told why
    const bool poista = v.onko(QStringLiteral("--poista-maksettu"));
    MerkitseMaksetuksi(y.ajo.kanta, lasku->jmhID, poista);
    HistorianLasku l;
    if (!poista) {
        const auto jalkeen = HaeLasku(y.ajo.kanta, v.paikalliset[0]);
        if (!jalkeen)
            return Epaonnistui;
        l = *jalkeen;
    }
    QTextStream out(stdout);
    const std::pair<const char *, QString> rivit[] = {
        {"lblNimi", l.nimi}, {"lblOtsake", l.otsake}, {"lblErapaiva", l.erapaiva}, {"lblLaskupaiva", l.laskupaiva},
        {"lblLaskunumero", l.laskunumero}, {"lblViitenumero", l.viitenumero}, {"lblHinta", l.hinta}, {"lblTeksti", l.teksti},
        {"lblMaksettu", l.maksettu}, {"lblPerhemaksu", l.perhemaksu}, {"lblOminaisuusmaksu", l.ominaisuusmaksu},
        {"lblJasenmaksu", l.jasenmaksu}};
    for (const auto &[nimi, arvo] : rivit)
        out << nimi << ": " << arvo << Qt::endl;
    return Onnistui;
}

} // namespace komento
