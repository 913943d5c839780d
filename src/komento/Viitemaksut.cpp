// viitemaksut TIEDOSTO [--era N]
// merkitse-maksetuiksi TIEDOSTO [--era N] [--virheelliset] [--poista-maksettu]
// kirjaa TIEDOSTO
// The bank file's windows without windows: a batch sorted into the three lists, its received (or
// larger wrong-sum) payments marked paid, and the whole file posted into the payment ledger.
#include "core/Ilmoitukset.h"
#include "core/MainModule.h"
#include "komento/Komento.h"
#include "payments/Eratiedot.h"
#include "payments/Viitemaksut.h"
#include "payments/Viitesuoritukset.h"

#include <QTextStream>
#include <variant>

namespace komento {

namespace {

struct Era {
    QList<ViiteEra> erat;
    int numero = 1;
    const ViiteEra &era() const { return erat.at(numero - 1); }
};

// The file and the batch of the options; the status to return when they cannot be had.
std::variant<Era, int> Avaa(const Valitsimet &v)
{
    if (v.paikalliset.size() != 1)
        return Virhe(QStringLiteral("Anna viitemaksutiedosto."), VaaraKaytto);
    bool ok = true;
    const int numero = v.onko(QStringLiteral("--era")) ? v.arvo(QStringLiteral("--era")).toInt(&ok) : 1;
    if (!ok || numero < 1)
        return Virhe(QStringLiteral("Erän numero on 1 tai suurempi."), VaaraKaytto);
    auto erat = LueViitetiedosto(v.paikalliset[0]);
    if (!erat)
        return int(Epaonnistui);
    if (numero > erat->size())
        return Virhe(QStringLiteral("Tiedostossa on %1 erää.").arg(erat->size()), Epaonnistui);
    return Era{*erat, numero};
}

} // namespace

int Viitemaksut(Yhteys &y)
{
    Valitsimet v({QStringLiteral("--era")});
    QString virhe;
    if (!v.lue(y.argumentit, &virhe))
        return Virhe(virhe, VaaraKaytto);
    auto avattu = Avaa(v);
    if (const int *tila = std::get_if<int>(&avattu))
        return *tila;
    const Era &e = std::get<Era>(avattu);
    QTextStream out(stdout);
    out << QStringLiteral("erä %1/%2").arg(e.numero).arg(e.erat.size()) << Qt::endl;
    for (const auto &[nimi, arvo] : EranTiedot(e.era()))
        out << nimi << ": " << arvo << Qt::endl;
    const ViitemaksujenLajittelu l = LajitteleEra(y.ajo.kanta, e.era(), MainModule::SuorituksellaMaksetuksiJosEiLoppusummaa);
    const std::pair<const char *, const QList<ViitemaksuRivi> *> listat[] = {
        {"saapuneet", &l.Saapuneet}, {"tarkistettavat", &l.Tarkistettavat}, {"virheelliset", &l.Virheet}};
    for (const auto &[nimi, rivit] : listat)
        for (const ViitemaksuRivi &r : *rivit)
            out << nimi << '\t' << r.jmhID << '\t' << r.teksti << Qt::endl;
    return Onnistui;
}

int MerkitseMaksetuiksi(Yhteys &y)
{
    Valitsimet v({QStringLiteral("--era")}, {QStringLiteral("--virheelliset"), QStringLiteral("--poista-maksettu")});
    QString virhe;
    if (!v.lue(y.argumentit, &virhe))
        return Virhe(virhe, VaaraKaytto);
    auto avattu = Avaa(v);
    if (const int *tila = std::get_if<int>(&avattu))
        return *tila;
    const Era &e = std::get<Era>(avattu);
    db::Database &kanta = y.ajo.kanta;
    const ViitemaksujenLajittelu l = LajitteleEra(kanta, e.era(), MainModule::SuorituksellaMaksetuksiJosEiLoppusummaa);
    const bool poista = v.onko(QStringLiteral("--poista-maksettu"));
    ViitemaksujenMerkinta m;
    if (!v.onko(QStringLiteral("--virheelliset"))) {
        m = MerkitseMaksetuiksi(kanta, l.Saapuneet, poista);
    } else {
        QList<ViitemaksuRivi> valitut;
        const QList<bool> suuret = SuuremmatSuoritukset(kanta, e.era(), l.Virheet);
        for (int i = 0; i < l.Virheet.size(); ++i)
            if (suuret[i])
                valitut << l.Virheet[i];
        const auto tulos = MerkitseYlisuoritukset(kanta, e.erat.first(), valitut, poista);
        if (!tulos)
            return Epaonnistui;
        m = *tulos;
    }
    if (const QString viesti = MerkitsemattomatViesti(m); !viesti.isEmpty())
        Ilmoita(viesti);
    QTextStream(stdout) << m.merkitty << Qt::endl;
    return Onnistui;
}

int Kirjaa(Yhteys &y)
{
    Valitsimet v({});
    QString virhe;
    if (!v.lue(y.argumentit, &virhe))
        return Virhe(virhe, VaaraKaytto);
    if (v.paikalliset.size() != 1)
        return Virhe(QStringLiteral("Anna viitemaksutiedosto."), VaaraKaytto);
    const auto erat = LueViitetiedosto(v.paikalliset[0]);
    if (!erat)
        return Epaonnistui;
    const ViitesuoritustenKirjaus k = KirjaaSuoritukset(y.ajo.kanta, *erat);
    if (const QString viesti = OhitettujenViesti(k); !viesti.isEmpty())
        Ilmoita(viesti);
    QTextStream(stdout) << KirjausViesti(k) << Qt::endl;
    return Onnistui;
}

} // namespace komento
