#include "payments/ViiteKentat.h"

#include <QLocale>

namespace viitekentat {

QString Nollilla(qint64 n, int leveys)
{
    return QStringLiteral("%1").arg(n, leveys, 10, QLatin1Char('0'));
}

bool OnOikaisu(const ViiteTapahtuma &t)
{
    return t.Oikaisutunnus == QLatin1String("1");
}

ViiteSummat LaskeSummat(const QList<ViiteTapahtuma> &tapahtumat)
{
    qint64 maksut = 0, maksujenSumma = 0, oikaisut = 0, oikaisujenSumma = 0;
    for (const ViiteTapahtuma &t : tapahtumat) {
        const qint64 sentit = t.Rahamaara.toLongLong();
        if (OnOikaisu(t)) {
            ++oikaisut;
            oikaisujenSumma += sentit;
        } else {
            ++maksut;
            maksujenSumma += sentit;
        }
    }
    return {Nollilla(maksut, 6),   Nollilla(maksujenSumma, 11), Nollilla(oikaisut, 6),
            Nollilla(oikaisujenSumma, 11), Nollilla(0, 6), Nollilla(0, 11)};
}

QString EuroinaViestiin(qint64 sentit)
{
    const QLocale suomi(QLocale::Finnish, QLocale::Finland);
    return suomi.toString(sentit / 100) + QLatin1Char(',') + Nollilla(sentit % 100, 2) + QStringLiteral(" €");
}

} // namespace viitekentat
