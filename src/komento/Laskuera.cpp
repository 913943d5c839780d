// historiaan · poista-laskut: the open batch moved to history or deleted, as the invoice window does.
#include "invoicing/Laskuera.h"
#include "komento/Komento.h"

#include <QTextStream>

namespace komento {

namespace {

int tulosta(const QString &viesti, bool onnistui)
{
    if (!onnistui)
        return Virhe(viesti, Epaonnistui);
    QTextStream(stdout) << viesti << Qt::endl;
    return Onnistui;
}

} // namespace

int Historiaan(Yhteys &y)
{
    if (!y.argumentit.isEmpty())
        return Virhe(QStringLiteral("historiaan ei ota valitsimia."), VaaraKaytto);
    const QString viesti = SiirraHistoriaan(y.ajo, Laskuikkuna::Perus);
    return tulosta(viesti, viesti == QStringLiteral("Laskut siirretty historiaan."));
}

int PoistaLaskut(Yhteys &y)
{
    if (!y.argumentit.isEmpty())
        return Virhe(QStringLiteral("poista-laskut ei ota valitsimia."), VaaraKaytto);
    y.dialogit.vastaus = dlg::Answer::Yes; // the verb is the user's Yes to the delete's question
    const QString viesti = PoistaLisatytLaskut(y.ajo, Laskuikkuna::Perus, false);
    return tulosta(viesti, viesti == QStringLiteral("Kaikki lisätyt laskut poistettu."));
}

} // namespace komento
