// sahkopostilaskut --esikatselu
// The e-mail of every open invoice as the preview shows them, one after another, each followed
// by a line holding only a form feed but the last. Sending stays with the window's mail.
#include "email/Sahkopostilaskut.h"
#include "komento/Komento.h"

#include <QTextStream>

namespace komento {

int Sahkopostilaskut(Yhteys &y)
{
    const QString esikatselu = QStringLiteral("--esikatselu");
    Valitsimet v({}, {esikatselu});
    QString virhe;
    if (!v.lue(y.argumentit, &virhe))
        return Virhe(virhe, VaaraKaytto);
    if (!v.onko(esikatselu) || !v.paikalliset.isEmpty())
        return Virhe(QStringLiteral("Käyttö: vonari-komento TIETOKANTA sahkopostilaskut --esikatselu"), VaaraKaytto);
    const Sahkopostiteksti pohja = LueLaskupohja();
    if (!pohja.onnistui())
        return Virhe(pohja.viesti, Epaonnistui);
    QTextStream ulos(stdout);
    bool ensimmainen = true;
    for (const qint64 jmID : AvoimetLaskut(y.ajo.kanta)) {
        QString teksti = AvoimenLaskunTeksti(y.ajo.kanta, pohja.teksti, jmID).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        if (!teksti.endsWith(QLatin1Char('\n')))
            teksti += QLatin1Char('\n');
        if (!ensimmainen)
            ulos << "\f\n";
        ulos << teksti;
        ensimmainen = false;
    }
    ulos.flush();
    return Onnistui;
}

} // namespace komento
