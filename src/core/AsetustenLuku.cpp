#include "core/AsetustenLuku.h"
#include "platform/kello.h"

#include "core/Asetusavaimet.h"
#include "platform/arvot.h"
#include "platform/files.h"

#include <cmath>
#include <limits>

namespace {

constexpr qint64 LongMin = std::numeric_limits<qint32>::min();
constexpr qint64 LongMax = std::numeric_limits<qint32>::max();
constexpr qint64 IntegerMin = std::numeric_limits<qint16>::min();
constexpr qint64 IntegerMax = std::numeric_limits<qint16>::max();

// Reads one store with the conversions of its keys' types.
class Lukija {
public:
    explicit Lukija(const AsetuksenLukija &lue) : m_lue(lue) {}

    QString teksti(const char *avain, const QString &oletus = {}) const
    {
        return m_lue(QLatin1String(avain), oletus);
    }

    long pitka(const char *avain, long oletus) const
    {
        return long(KokonaislukuArvo(teksti(avain, QString::number(oletus)), LongMin, LongMax).value_or(oletus));
    }

    // A counter that has no default keeps what it had when the stored text is no number.
    void pitkaTaiEntinen(const char *avain, long &arvo) const
    {
        if (const auto n = KokonaislukuArvo(teksti(avain), LongMin, LongMax))
            arvo = long(*n);
    }

    int kokonais(const char *avain, int oletus) const
    {
        return int(KokonaislukuArvo(teksti(avain, QString::number(oletus)), IntegerMin, IntegerMax).value_or(oletus));
    }

    bool totuus(const char *avain) const { return std::abs(NumeroArvo(teksti(avain, QStringLiteral("0")))) != 0; }

    Currency raha(const char *avain) const
    {
        const QString t = teksti(avain);
        return OnNumeerinen(t) ? Currency::parse(t).value_or(Currency()) : Currency();
    }

    double liukuluku(const char *avain) const
    {
        const QString t = teksti(avain);
        const double d = OnNumeerinen(t) ? NumeroArvo(t) : 0;
        return std::isfinite(d) ? d : 0;
    }

private:
    const AsetuksenLukija &m_lue;
};

} // namespace

std::optional<qint64> KokonaislukuArvo(const QString &teksti, qint64 min, qint64 max)
{
    if (!OnNumeerinen(teksti))
        return std::nullopt;
    const double d = std::nearbyint(NumeroArvo(teksti));
    if (!(d >= double(min) && d <= double(max)))
        return std::nullopt;
    return qint64(d);
}

QString OhjelmanTiedosto(const QString &nimi) { return files::joinPath(files::programFolder(), nimi); }

std::optional<QString> LueSeuranAsetukset(const AsetuksenLukija &lue)
{
    const Lukija l(lue);
    std::optional<QString> takaisin;
    for (const Asetusavain &a : Asetusavaimet()) {
        if (a.varasto != AsetusVarasto::Kanta)
            continue;
        const QString oletus = a.oletusTeksti();
        switch (a.laji) {
        case AsetusLaji::Teksti: *std::get<QString *>(a.globaali) = l.teksti(a.nimi, oletus); break;
        case AsetusLaji::Pitka: *std::get<long *>(a.globaali) = l.pitka(a.nimi, oletus.toLong()); break;
        case AsetusLaji::Kokonais: *std::get<int *>(a.globaali) = l.kokonais(a.nimi, oletus.toInt()); break;
        case AsetusLaji::Totuus: *std::get<bool *>(a.globaali) = l.totuus(a.nimi); break;
        case AsetusLaji::YksiOnTosi: *std::get<bool *>(a.globaali) = l.pitka(a.nimi, oletus.toLong()) == 1; break;
        case AsetusLaji::Laskuri: l.pitkaTaiEntinen(a.nimi, *std::get<long *>(a.globaali)); break;
        case AsetusLaji::Raha: *std::get<Currency *>(a.globaali) = l.raha(a.nimi); break;
        case AsetusLaji::Liukuluku: *std::get<double *>(a.globaali) = l.liukuluku(a.nimi); break;
        case AsetusLaji::Paiva: {
            QDate &paiva = *std::get<QDate *>(a.globaali);
            paiva = ParsePaiva(l.teksti(a.nimi));
            if (!paiva.isValid()) {
                // A fresh club counts as backed up today, so the reminder does not greet its first start.
                paiva = kello::tanaan();
                takaisin = paiva.toString(Qt::ISODate);
            }
            break;
        }
        }
    }
    return takaisin;
}
