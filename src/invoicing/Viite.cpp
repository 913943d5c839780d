#include "invoicing/Viite.h"

QString LaskeViitetarkiste(const QString &numero)
{
    static const int painot[3] = {7, 3, 1};
    int summa = 0;
    int paikka = 0;
    for (qsizetype i = numero.size() - 1; i >= 0; --i, ++paikka) {
        const QChar c = numero.at(i);
        const int arvo = (c >= QLatin1Char('0') && c <= QLatin1Char('9')) ? c.unicode() - '0' : 0;
        summa += arvo * painot[paikka % 3];
    }
    const int viimeinen = summa % 10;
    if (viimeinen == 0)
        return QStringLiteral("0");
    return QLatin1Char(' ') + QString::number(10 - viimeinen);
}

QString ViiteNumerosta(const QString &perusnumero)
{
    return perusnumero.trimmed() + LaskeViitetarkiste(perusnumero).trimmed();
}

QString ViiteNumerosta(qint64 perusnumero) { return ViiteNumerosta(QString::number(perusnumero)); }

bool ViiteOnKelvollinen(const QString &viite)
{
    if (viite.size() < 2)
        return false;
    for (const QChar c : viite)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    const QString perus = viite.left(viite.size() - 1);
    return LaskeViitetarkiste(perus).trimmed() == viite.right(1);
}
