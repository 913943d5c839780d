#include "invoicing/LaskupohjaSyote.h"

#include "platform/arvot.h"

#include <cmath>

Currency RahaSyotteesta(const QString &teksti)
{
    if (const auto summa = Currency::parse(teksti))
        return *summa;
    // "1e3" is a number too; an amount beyond the money type is none.
    const double d = NumeroArvo(teksti);
    return std::isfinite(d) && std::fabs(d) < 9e14 ? Currency::fromDouble(d) : Currency();
}

double LukuSyotteesta(const QString &teksti)
{
    if (!OnNumeerinen(teksti))
        return 0;
    const double d = NumeroArvo(teksti);
    return std::isfinite(d) ? d : 0;
}

int ErapaivaSyotteesta(const QString &teksti)
{
    if (!OnNumeerinen(teksti))
        return -1;
    const double d = std::nearbyint(NumeroArvo(teksti)); // half to even, as a whole-number conversion rounds
    if (!std::isfinite(d) || d < -32768 || d > 32767)
        return -1;
    return int(d);
}

QString ErapaivaTekstina(int paivia) { return paivia == -1 ? QString() : QString::number(paivia); }
