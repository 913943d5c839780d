#include "members/Hakuehdot.h"

#include "platform/arvot.h"
#include "members/HakuApu.h"
#include "members/TyhjatRivit.h"
#include "platform/currency.h"

#include <QRegularExpression>
#include <cmath>
#include <limits>

using namespace Qt::Literals::StringLiterals;

int HakuParametrit::ValittujenMaara() const
{
    int n = 0;
    while (n < Paikkoja && ValitutOminaisuudet[n] != 0)
        ++n;
    return n;
}

HakuehtoVirhe::HakuehtoVirhe(const QString &viesti) : std::runtime_error(viesti.toStdString()), m_viesti(viesti) {}

QString HakuOperaattoriTeksti(int koodi)
{
    switch (koodi) {
    case HakuParametrit::Pienempi: return u"<"_s;
    case HakuParametrit::Yhtasuuri: return u"="_s;
    case HakuParametrit::Suurempi: return u">"_s;
    }
    throw HakuehtoVirhe(u"Hakuehdoissa on tuntematon vertailu (%1)."_s.arg(koodi));
}

std::optional<QString> TarkistaHakuPaiva(const QString &teksti)
{
    if (teksti.isEmpty() || haku::onTahti(teksti))
        return teksti;
    const QDate d = ParsePaiva(teksti);
    if (!d.isValid())
        return std::nullopt;
    return PaivaTekstina(d);
}

std::optional<QString> TarkistaHakuLuku(const QString &teksti)
{
    if (teksti.isEmpty())
        return teksti;
    if (!OnNumeerinen(teksti))
        return std::nullopt;
    // A whole number rounds half to even; the field holds a 32-bit number.
    const double pyoristetty = std::nearbyint(NumeroArvo(teksti));
    if (pyoristetty < std::numeric_limits<qint32>::min() || pyoristetty > std::numeric_limits<qint32>::max())
        return std::nullopt;
    return QString::number(qint64(pyoristetty));
}

std::optional<QString> TarkistaHakuArvo(const QString &teksti)
{
    if (teksti.isEmpty())
        return teksti;
    if (!OnNumeerinen(teksti) || !Currency::parse(teksti))
        return std::nullopt;
    return teksti;
}

QVector<HakuOminaisuus> HakuOminaisuudet(db::Database &db)
{
    PoistaTyhjatPiirteet(db);
    QVector<HakuOminaisuus> rivit;
    db::Statement s(db, u"SELECT piID, piNimi FROM pi ORDER BY piNimi COLLATE FI, piID"_s);
    while (s.next())
        rivit.append({qint32(s.value(0).toLongLong()), s.value(1).toString()});
    return rivit;
}

namespace haku {

namespace {

void tarkistaPaiva(const QString &arvo, const QString &mika)
{
    if (!arvo.isEmpty() && !onTahti(arvo) && !ParsePaiva(arvo).isValid())
        throw HakuehtoVirhe(u"Hakuehdon %1 \"%2\" ei ole päivämäärä."_s.arg(mika, arvo));
}

void tarkistaLuku(const QString &arvo, const QString &mika, bool raha)
{
    if (arvo.isEmpty())
        return;
    if (!OnNumeerinen(arvo) || (raha && !Currency::parse(arvo)))
        throw HakuehtoVirhe(u"Hakuehdon %1 \"%2\" ei ole numero."_s.arg(mika, arvo));
}

} // namespace

void tarkista(const HakuParametrit &p)
{
    for (int koodi : {p.iheDate, p.iheLong, p.iheCurrency, p.eqSynt, p.eqLiit})
        HakuOperaattoriTeksti(koodi);
    tarkistaPaiva(p.sheDate, u"päivämäärä"_s);
    tarkistaPaiva(p.dateSynt, u"syntymäpäivä"_s);
    tarkistaPaiva(p.dateLiit, u"liittymispäivä"_s);
    tarkistaLuku(p.sheLong, u"luku"_s, false);
    tarkistaLuku(p.sheCurrency, u"arvo"_s, true);
}

bool onTahti(const QString &arvo) { return arvo.contains(QLatin1Char('*')); }

QDate paiva(const QString &arvo) { return ParsePaiva(arvo); }

QVector<qint32> valitut(const HakuParametrit &p)
{
    QVector<qint32> ids;
    for (qint32 id : p.ValitutOminaisuudet)
        if (id != 0)
            ids.append(id);
    return ids;
}

QVariant sqlPaiva(const QString &arvo) { return DbPaiva(paiva(arvo)); }

QVariant sqlLuku(const QString &arvo)
{
    const double d = NumeroArvo(arvo);
    if (d == std::floor(d) && std::fabs(d) < 9e15)
        return QVariant(qlonglong(d));
    return QVariant(d);
}

QVariant sqlRaha(const QString &arvo) { return Currency::parse(arvo).value_or(Currency()).toVariant(); }

QString likeKuvio(const QString &arvo)
{
    QString k;
    for (QChar c : arvo) {
        if (c == QLatin1Char('*'))
            k += QLatin1Char('%');
        else if (c == QLatin1Char('?'))
            k += QLatin1Char('_');
        else if (c == QLatin1Char('%') || c == QLatin1Char('_') || c == QLatin1Char('\\'))
            k += QLatin1Char('\\') + c;
        else
            k += c;
    }
    return k;
}

QString kaavaPaiva(const QDate &d) { return u" Date(%1,%2,%3)"_s.arg(d.year()).arg(d.month()).arg(d.day()); }

QString kaavaLuku(const QString &arvo) { return LukuKoneenMuotoon(arvo); }

QString kaavaMerkkijono(const QString &arvo)
{
    QString t = arvo;
    t.replace(QLatin1Char('"'), u"\"\""_s);
    return QLatin1Char('"') + t + QLatin1Char('"');
}

QString kaavaPostinumero(const QString &arvo)
{
    static const QRegularExpression numerot(u"^[0-9]+$"_s);
    if (numerot.match(arvo).hasMatch())
        return arvo;
    // As the twin column is kept: a number as a whole number, anything else 0.
    const double d = OnNumeerinen(arvo) ? std::nearbyint(NumeroArvo(arvo)) : 0.0;
    if (d < std::numeric_limits<qint32>::min() || d > std::numeric_limits<qint32>::max())
        return u"0"_s;
    return QString::number(qint64(d));
}

} // namespace haku
