// raportti RAPORTTI ULOS.pdf [--valinta KAAVA] [--lajittelu KENTTÄ]... [--kaava 'Nimi= teksti']...
#include "komento/Komento.h"
#include "platform/database.h"
#include "reports/RaporttiVirhe.h"
#include "reports/Raporttiajo.h"

namespace komento {

int Raportti(Yhteys &y)
{
    Valitsimet v({QStringLiteral("--valinta"), QStringLiteral("--lajittelu"), QStringLiteral("--kaava")});
    QString virhe;
    if (!v.lue(y.argumentit, &virhe))
        return Virhe(virhe, VaaraKaytto);
    if (v.paikalliset.size() != 2)
        return Virhe(QStringLiteral("Anna raportti ja tulostiedosto."), VaaraKaytto);
    const QStringList lajittelut = v.arvot(QStringLiteral("--lajittelu"));
    const QStringList kaavat = v.arvot(QStringLiteral("--kaava"));
    if (lajittelut.size() > 6 || kaavat.size() > 21)
        return Virhe(QStringLiteral("Lajittelukenttiä voi olla enintään 6 ja kaavoja 21."), VaaraKaytto);

    Raporttiajo r;
    r.ResetReportFormulas(y.ajo.kanta.path());
    r.ajo = &y.ajo;
    r.ReportFileName = v.paikalliset[0];
    r.PrintFileName = v.paikalliset[1];
    r.Destination = Raporttiajo::PdfTiedosto;
    r.SelectionFormula = v.arvo(QStringLiteral("--valinta"));
    for (int i = 0; i < lajittelut.size(); ++i)
        r.SortFields[i] = lajittelut[i];
    for (int i = 0; i < kaavat.size(); ++i)
        r.Formulas[i] = kaavat[i];
    try {
        r.setAction(1);
    } catch (const RaporttiVirhe &e) {
        return Virhe(e.viesti(), Epaonnistui);
    }
    return Onnistui;
}

} // namespace komento
