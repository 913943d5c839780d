#include "members/PiirreArvot.h"

#include "platform/arvot.h"
#include "platform/currency.h"

#include <cmath>
#include <limits>

namespace {

const char *const kaytossaNimet[] = {"piEnbldDate", "piEnbldLong", "piEnbldCurrency", "piEnbldMemo"};
const char *const oletusNimet[] = {"piDate", "piLong", "piCurrency", "piMemo"};
const char *const arvoNimet[] = {"ptValDate", "ptValLong", "ptValCurrency", "ptValMemo"};

QVariant lukuArvoksi(const QString &teksti)
{
    if (!OnNumeerinen(teksti))
        return {};
    // A whole number is a 32-bit Long in the register; a larger one is no whole number here.
    const double d = std::nearbyint(NumeroArvo(teksti));
    if (!std::isfinite(d) || d < double(std::numeric_limits<qint32>::min()) || d > double(std::numeric_limits<qint32>::max()))
        return {};
    return QVariant(qlonglong(d));
}

QVariant rahaArvoksi(const QString &teksti)
{
    if (const auto c = Currency::parse(teksti))
        return c->toVariant();
    // "1e3" and the like are numbers too, as the regional conversion reads them.
    if (!OnNumeerinen(teksti))
        return {};
    const double d = NumeroArvo(teksti);
    if (!std::isfinite(d) || std::fabs(d) >= 9.0e14)
        return {};
    return Currency::fromDouble(d).toVariant();
}

QString rahaTekstiksi(const QVariant &arvo)
{
    const Currency c = NullCurrency(arvo);
    // Never show fewer decimals than are stored, or a save would round the amount.
    QString s = c.toString(4);
    while (s.endsWith(QLatin1Char('0')) && s.size() - s.indexOf(QLatin1Char(',')) > 3)
        s.chop(1);
    return s;
}

} // namespace

QString KaytossaSarake(ArvoTyyppi t) { return QString::fromLatin1(kaytossaNimet[int(t)]); }
QString OletusSarake(ArvoTyyppi t) { return QString::fromLatin1(oletusNimet[int(t)]); }
QString ArvoSarake(ArvoTyyppi t) { return QString::fromLatin1(arvoNimet[int(t)]); }

QString ArvoTekstiksi(ArvoTyyppi t, const QVariant &arvo)
{
    if (!arvo.isValid() || arvo.isNull())
        return {};
    switch (t) {
    case ArvoTyyppi::Paiva: return PaivaTekstina(NullDate(arvo));
    case ArvoTyyppi::Luku: return QString::number(NullLong(arvo));
    case ArvoTyyppi::Raha: return rahaTekstiksi(arvo);
    case ArvoTyyppi::Muistio: return NullText(arvo);
    }
    return {};
}

QVariant TekstiArvoksi(ArvoTyyppi t, const QString &teksti, bool *kelpaa)
{
    QVariant v;
    switch (t) {
    case ArvoTyyppi::Paiva: v = DbPaiva(ParsePaiva(teksti)); break;
    case ArvoTyyppi::Luku: v = lukuArvoksi(teksti); break;
    case ArvoTyyppi::Raha: v = rahaArvoksi(teksti); break;
    // An empty memo is no memo: Null, as an empty bound box writes it.
    case ArvoTyyppi::Muistio: v = teksti.isEmpty() ? QVariant() : QVariant(teksti); break;
    }
    if (kelpaa)
        *kelpaa = v.isValid() || teksti.trimmed().isEmpty();
    return v;
}

QString TekstiLahtiessa(ArvoTyyppi t, const QString &teksti, bool *hylatty)
{
    *hylatty = false;
    if (t == ArvoTyyppi::Muistio || teksti.isEmpty())
        return teksti;
    bool kelpaa = false;
    const QVariant v = TekstiArvoksi(t, teksti, &kelpaa);
    if (!kelpaa) {
        *hylatty = true;
        return {};
    }
    if (t == ArvoTyyppi::Paiva)
        return ArvoTekstiksi(t, v);
    return teksti;
}

TallennettavatArvot Tallennettaviksi(const ArvoSyote &syote)
{
    TallennettavatArvot a;
    for (ArvoTyyppi t : KaikkiTyypit) {
        const auto i = size_t(t);
        a.kaytossa[i] = syote.kaytossa[i];
        if (!syote.kaytossa[i])
            continue;
        bool kelpaa = true;
        a.arvo[i] = TekstiArvoksi(t, syote.teksti[i], &kelpaa);
        a.tyhjenna[i] = !kelpaa;
    }
    return a;
}
