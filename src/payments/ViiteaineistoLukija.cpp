#include "payments/ViiteaineistoLukija.h"

#include "payments/Camt054Lukija.h"
#include "payments/KtlLukija.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>

namespace {

[[noreturn]] void Virhe(int numero, const QString &viesti)
{
    throw ViiteaineistoVirhe(numero, viesti);
}

QString Koko(qint64 tavua)
{
    return QLocale(QLocale::Finnish, QLocale::Finland).toString(double(tavua) / (1024.0 * 1024.0), 'f', 1)
           + QStringLiteral(" Mt");
}

// Control characters have no place in either format: such a file is some other kind of file. The
// end-of-file mark of old DOS programs, and tabs in XML, are the exceptions.
bool OnBinaarinen(const QByteArray &tavut, bool xml)
{
    for (char c : tavut) {
        const auto u = static_cast<unsigned char>(c);
        if (u >= 0x20 || u == '\r' || u == '\n' || (xml && u == '\t'))
            continue;
        return true;
    }
    return false;
}

QByteArray IlmanLoppumerkkia(QByteArray tavut)
{
    while (tavut.endsWith('\x1A'))
        tavut.chop(1);
    return tavut;
}

bool OnTyhja(const QByteArray &tavut)
{
    for (char c : tavut)
        if (c != ' ' && c != '\t' && c != '\r' && c != '\n' && c != '\x1A')
            return false;
    return true;
}

} // namespace

QList<ViiteEra> ViiteaineistoLukija::LueTiedosto(const QString &tiedostonimi) const
{
    const QFileInfo tieto(tiedostonimi);
    if (!tieto.exists())
        Virhe(ViiteaineistoVirhe::EiLoydy, QStringLiteral("Tiedostoa ei löydy: %1").arg(tiedostonimi));
    if (tieto.isDir())
        Virhe(ViiteaineistoVirhe::LukuVirhe, QStringLiteral("%1 on kansio, ei tiedosto.").arg(tiedostonimi));
    if (tieto.size() > SuurinKoko)
        Virhe(ViiteaineistoVirhe::VaaraMuoto,
              QStringLiteral("Tiedosto %1 on liian suuri viitesiirtoaineistoksi (%2; enintään %3).")
                  .arg(tiedostonimi, Koko(tieto.size()), Koko(SuurinKoko)));
    QFile f(tiedostonimi);
    if (!f.open(QIODevice::ReadOnly))
        Virhe(f.error() == QFileDevice::PermissionsError ? ViiteaineistoVirhe::EiOikeutta
                                                         : ViiteaineistoVirhe::LukuVirhe,
              f.error() == QFileDevice::PermissionsError
                  ? QStringLiteral("Tiedostoon %1 ei ole lukuoikeutta.").arg(tiedostonimi)
                  : QStringLiteral("Tiedostoa %1 ei voi lukea.").arg(tiedostonimi));
    // One byte over the limit is enough to know the file grew past it while we looked.
    const QByteArray tavut = f.read(SuurinKoko + 1);
    if (f.error() != QFileDevice::NoError)
        Virhe(ViiteaineistoVirhe::LukuVirhe, QStringLiteral("Tiedoston %1 lukeminen keskeytyi virheeseen.").arg(tiedostonimi));
    return LueTavut(tavut);
}

QList<ViiteEra> ViiteaineistoLukija::LueTavut(const QByteArray &tavut) const
{
    if (tavut.size() > SuurinKoko)
        Virhe(ViiteaineistoVirhe::VaaraMuoto,
              QStringLiteral("Tiedosto on liian suuri viitesiirtoaineistoksi (enintään %1).").arg(Koko(SuurinKoko)));
    if (OnTyhja(tavut))
        Virhe(ViiteaineistoVirhe::VaaraMuoto, QStringLiteral("Tiedosto on tyhjä."));

    const bool xml = camt054::Tunnista(tavut);
    const QByteArray sisalto = xml ? tavut : IlmanLoppumerkkia(tavut);
    if (OnBinaarinen(sisalto, xml) || (!xml && !ktl::Tunnista(sisalto)))
        Virhe(ViiteaineistoVirhe::VaaraMuoto,
              QStringLiteral("Tiedosto ei ole viitesiirtoaineisto eikä camt.054-viiteilmoitus."));
    return xml ? camt054::Lue(sisalto) : ktl::Lue(sisalto);
}
