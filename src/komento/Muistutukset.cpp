// muistutukset ULOS.pdf [--alku LASKUNRO] [--loppu LASKUNRO]
// The reminders of the range computed and printed into one PDF, as the payment book's button does
// to the preview.
#include "invoicing/Laskukopiot.h"
#include "komento/Komento.h"
#include "payments/Muistutukset.h"
#include "reports/RaporttiVirhe.h"
#include "reports/Raporttiajo.h"

#include <QTextStream>

namespace komento {

int Muistutukset(Yhteys &y)
{
    Valitsimet v({QStringLiteral("--alku"), QStringLiteral("--loppu")});
    QString virhe;
    if (!v.lue(y.argumentit, &virhe))
        return Virhe(virhe, VaaraKaytto);
    if (v.paikalliset.size() != 1)
        return Virhe(QStringLiteral("Anna tulostiedosto."), VaaraKaytto);
    // The question is the verb's Yes; the range comes from the options.
    y.dialogit.vastaus = dlg::Answer::Yes;
    y.dialogit.syotteet = {v.arvo(QStringLiteral("--alku")), v.arvo(QStringLiteral("--loppu"))};
    const QString pdf = v.paikalliset[0];
    const auto kohde = [&pdf](Raporttiajo &r) {
        r.Destination = Raporttiajo::PdfTiedosto;
        r.PrintFileName = pdf;
    };
    Raporttiajo r;
    const QString avain = QStringLiteral("{jmhist.jmhID}");
    int tulostettu = 0;
    try {
        tulostettu = TulostaMuistutukset(y.ajo, Tulostuskysymykset{}, LaskuraportinTulostajat(r, y.ajo, kohde, avain, avain, MuistutusKaavat()));
    } catch (const RaporttiVirhe &e) {
        return Virhe(e.viesti(), Epaonnistui);
    }
    QTextStream(stdout) << tulostettu << Qt::endl;
    return Onnistui;
}

} // namespace komento
