// tulosta-laskut ULOS.pdf [--malli tilisiirto|yleislasku|jasenkortti] [--kaksikielinen]
//                [--jarjestys aakkos|postinumero|syntyma] [--vain-lahettamattomat]
// The open batch printed as the print button prints it to the preview: one PDF, the invoices in
// the chosen order.
#include "invoicing/Laskujentulostus.h"
#include "komento/Komento.h"
#include "reports/RaporttiVirhe.h"
#include "reports/Raporttiajo.h"

#include <QTextStream>

namespace komento {

int TulostaLaskuera(Yhteys &y)
{
    Valitsimet v({QStringLiteral("--malli"), QStringLiteral("--jarjestys")},
                 {QStringLiteral("--kaksikielinen"), QStringLiteral("--vain-lahettamattomat")});
    QString virhe;
    if (!v.lue(y.argumentit, &virhe))
        return Virhe(virhe, VaaraKaytto);
    if (v.paikalliset.size() != 1)
        return Virhe(QStringLiteral("Anna tulostiedosto."), VaaraKaytto);
    const QStringList mallit{QStringLiteral("tilisiirto"), QStringLiteral("yleislasku"), QStringLiteral("jasenkortti")};
    const QStringList jarjestykset{QStringLiteral("aakkos"), QStringLiteral("postinumero"), QStringLiteral("syntyma")};
    const qsizetype malli = v.onko(QStringLiteral("--malli")) ? mallit.indexOf(v.arvo(QStringLiteral("--malli"))) : 0;
    const qsizetype jarjestys = v.onko(QStringLiteral("--jarjestys")) ? jarjestykset.indexOf(v.arvo(QStringLiteral("--jarjestys"))) : 0;
    if (malli < 0)
        return Virhe(QStringLiteral("Laskumalli on tilisiirto, yleislasku tai jasenkortti."), VaaraKaytto);
    if (jarjestys < 0)
        return Virhe(QStringLiteral("Järjestys on aakkos, postinumero tai syntyma."), VaaraKaytto);

    Tulostuskysymykset k;
    k.laskumalli = [&] { return Laskumallivalinta{Laskumalli(malli), v.onko(QStringLiteral("--kaksikielinen"))}; };
    k.jarjestys = [&] { return Tulostusjarjestys(jarjestys); };
    // The question about the e-mailed ones is answered by the option.
    y.dialogit.vastaus = v.onko(QStringLiteral("--vain-lahettamattomat")) ? dlg::Answer::Yes : dlg::Answer::No;
    Raporttiajo r;
    const QString pdf = v.paikalliset[0];
    const auto kohde = [&pdf](Raporttiajo &ajo) {
        ajo.Destination = Raporttiajo::PdfTiedosto;
        ajo.PrintFileName = pdf;
    };
    int tulostettu = 0;
    try {
        tulostettu = ::TulostaLaskut(y.ajo, Laskujentulostus{}, k, LaskuraportinTulostajat(r, y.ajo, kohde));
    } catch (const RaporttiVirhe &e) {
        return Virhe(e.viesti(), Epaonnistui);
    }
    QTextStream(stdout) << tulostettu << Qt::endl;
    return Onnistui;
}

} // namespace komento
