#include "reports/Tekstinmitta.h"

QStringList Rivita(const QString &kappale, double leveys, Mittari &fm)
{
    QStringList rivit;
    QString rivi;
    double riviLeveys = 0;
    const double vali = fm.leveys(QStringLiteral(" "));
    for (const QString &sana : kappale.split(QLatin1Char(' '))) {
        const double sanaLeveys = fm.leveys(sana);
        const double koe = rivi.isEmpty() ? sanaLeveys : riviLeveys + vali + sanaLeveys;
        if (koe <= leveys) {
            if (!rivi.isEmpty())
                rivi += QLatin1Char(' ');
            rivi += sana;
            riviLeveys = koe;
            continue;
        }
        if (!rivi.isEmpty())
            rivit << rivi;
        rivi = sana;
        riviLeveys = sanaLeveys;
        if (sanaLeveys <= leveys)
            continue;
        // Cut the word: each line takes as many characters as fit, and at least one.
        qsizetype alku = 0;
        double w = 0;
        for (qsizetype i = 0; i < sana.size();) {
            const qsizetype n = sana[i].isHighSurrogate() && i + 1 < sana.size() ? 2 : 1;
            const double c = fm.leveys(sana.mid(i, n));
            if (w + c > leveys && i > alku) {
                rivit << sana.mid(alku, i - alku);
                alku = i;
                w = 0;
            }
            w += c;
            i += n;
        }
        rivi = sana.mid(alku);
        riviLeveys = w;
    }
    rivit << rivi;
    return rivit;
}
