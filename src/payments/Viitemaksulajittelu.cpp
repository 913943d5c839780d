#include "payments/Viitemaksulajittelu.h"

#include "platform/arvot.h"
#include "platform/database.h"

namespace {

// The numeric value of a field of digits, as the old runtime's Val read it: blanks ignored, the
// digits up to the first other character, 0 when there are none.
QString Numerot(const QString &kentta)
{
    QString numerot;
    for (QChar c : kentta) {
        if (c == u' ')
            continue;
        if (!c.isDigit() || c.unicode() > 127)
            break;
        numerot += c;
    }
    return numerot;
}

qint64 SentitKentasta(const QString &rahamaara)
{
    const QString n = Numerot(rahamaara).right(18);
    return n.isEmpty() ? 0 : n.toLongLong();
}

QString Rivi(const QString &alku, const ViiteTapahtuma &t)
{
    return alku + MuotoileSentit(SentitKentasta(t.Rahamaara)) + QStringLiteral(" - ")
           + ViitenumeroLukuna(t.Viitenumero) + QStringLiteral(" - ") + t.Nimi;
}

} // namespace

qint64 MaksunSentit(const ViiteTapahtuma &t) { return SentitKentasta(t.Rahamaara); }

QString MuotoileSentit(qint64 sentit)
{
    const QString n = QString::number(sentit);
    if (n.size() == 1)
        return QStringLiteral("0.0") + n;
    if (n.size() == 2)
        return QStringLiteral("0.") + n;
    return n.chopped(2) + QLatin1Char('.') + n.right(2);
}

QString PoistaEtunollat(const QString &viite)
{
    qsizetype i = 0;
    while (i < viite.size() && viite.at(i) == u'0')
        ++i;
    return viite.mid(i);
}

QString ViitenumeroLukuna(const QString &viite)
{
    const QString numerot = PoistaEtunollat(Numerot(viite));
    if (numerot.isEmpty())
        return QStringLiteral("0");
    if (numerot.size() <= 15)
        return numerot;
    // Fifteen significant digits, trailing zeros of the mantissa dropped: "1.2E+19".
    const QString e = QString::number(numerot.toDouble(), 'e', 14);
    const qsizetype eKohta = e.indexOf(u'e');
    QString mantissa = e.left(eKohta);
    while (mantissa.endsWith(u'0'))
        mantissa.chop(1);
    if (mantissa.endsWith(u'.'))
        mantissa.chop(1);
    return mantissa + QLatin1Char('E') + e.mid(eKohta + 1);
}

ViitemaksujenLajittelu LajitteleEra(db::Database &db, const ViiteEra &era, bool suorituksellaMaksetuksiJosEiLoppusummaa)
{
    ViitemaksujenLajittelu tulos;
    db::Statement lasku(db, QStringLiteral("SELECT jmhID, jmhjmjrID, jmhjmHinta, jmhjmEiLoppusummaa FROM jmhist "
                                           "WHERE jmhjmViitenumero = ? ORDER BY jmhID LIMIT 1"),
                        {QString()});
    db::Statement jasen(db, QStringLiteral("SELECT 1 FROM jr WHERE jrID = ?"), {0});
    for (const ViiteTapahtuma &t : era.Tapahtumat) {
        lasku.reset({PoistaEtunollat(t.Viitenumero.trimmed())});
        if (!lasku.next()) {
            tulos.Tarkistettavat.append({Rivi(QStringLiteral("Viitettä ei löydy: "), t), -1});
            continue;
        }
        const qint64 jmhID = NullLong(lasku.value(0));
        jasen.reset({lasku.value(1)});
        if (!jasen.next()) {
            tulos.Tarkistettavat.append({Rivi(QStringLiteral("Henkilö: "), t), jmhID});
            continue;
        }
        // Cents against the currency's ten-thousandths: equal to the cent, no tolerance. An
        // invoice without a price equals nothing.
        const QVariant hinta = lasku.value(2);
        const bool sama = !hinta.isNull() && SentitKentasta(t.Rahamaara) * (Currency::Scale / 100)
                                                 == NullCurrency(hinta).raw();
        if (sama || (suorituksellaMaksetuksiJosEiLoppusummaa && NullBoolean(lasku.value(3))))
            tulos.Saapuneet.append({Rivi(QString(), t), jmhID});
        else
            tulos.Virheet.append({Rivi(QStringLiteral("Summa: "), t), jmhID});
    }
    return tulos;
}
