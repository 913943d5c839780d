#include "invoicing/EpcQr.h"

#include "invoicing/Iban.h"
#include "invoicing/Maksuviite.h"
#include "invoicing/Mod97.h"

#include <QStringList>

namespace {

constexpr int SuurinKoko = 331;

EpcQrTulos ei(const QString &syy) { return {QByteArray(), QStringLiteral("QR-koodia ei voi tehdä: ") + syy}; }

// One line of the payload: no line breaks inside, blanks trimmed, at most pituus characters
// (a surrogate pair is never split).
QString kentta(const QString &teksti, int pituus)
{
    QString t = teksti;
    t.replace(QLatin1String("\r\n"), QLatin1String(" ")).replace(u'\r', u' ').replace(u'\n', u' ');
    t = t.trimmed();
    if (t.size() > pituus) {
        t.truncate(pituus);
        if (t.back().isHighSurrogate())
            t.chop(1);
        t = t.trimmed();
    }
    return t;
}

QString summaRiviksi(Currency summa)
{
    const qint64 senttia = summa.roundedToCents().raw() / (Currency::Scale / 100);
    if (senttia == 0)
        return {};
    return QStringLiteral("EUR%1.%2").arg(senttia / 100).arg(senttia % 100, 2, 10, QLatin1Char('0'));
}

bool onTarkoituskoodi(const QString &t)
{
    if (t.size() != 4)
        return false;
    for (const QChar c : t)
        if (c < u'A' || c > u'Z')
            return false;
    return true;
}

} // namespace

EpcQrTulos EpcQrSisalto(const EpcQrTiedot &tiedot)
{
    const QString saaja = kentta(tiedot.saaja, 70);
    if (saaja.isEmpty())
        return ei(QStringLiteral("saajan nimi puuttuu."));
    const QString iban = IbanKoneelle(tiedot.iban);
    if (const QString virhe = IbanVirhe(iban); !virhe.isEmpty())
        return ei(virhe);
    const QString bic = IlmanValejaIsoin(tiedot.bic);
    if (!bic.isEmpty() && !BicOnKelvollinen(bic))
        return ei(QStringLiteral("BIC-tunnus %1 ei ole kelvollinen.").arg(bic));
    const QString tarkoitus = IlmanValejaIsoin(tiedot.tarkoitus);
    if (!tarkoitus.isEmpty() && !onTarkoituskoodi(tarkoitus))
        return ei(QStringLiteral("maksun tarkoituskoodi %1 ei ole neljä kirjainta.").arg(tarkoitus));

    QString summa;
    if (tiedot.summa) {
        if (*tiedot.summa < Currency())
            return ei(QStringLiteral("summa on negatiivinen."));
        if (tiedot.summa->roundedToCents() > EpcQrSuurinSumma)
            return ei(QStringLiteral("summa on yli 999 999 999,99 euroa."));
        summa = summaRiviksi(*tiedot.summa);
    }

    QString viite, viesti;
    if (!IlmanValejaIsoin(tiedot.viite).isEmpty()) {
        const QString kone = IlmanValejaIsoin(tiedot.viite);
        viite = kone.startsWith(QLatin1String("RF")) ? (RfViiteOnKelvollinen(kone) ? kone : QString())
                                                     : RfViiteKansallisesta(kone);
        if (viite.isEmpty())
            return ei(QStringLiteral("viitenumero %1 ei ole kelvollinen.").arg(tiedot.viite.trimmed()));
    } else {
        viesti = kentta(tiedot.viesti, 140);
    }
    const QString erapaiva = tiedot.erapaiva.isValid()
        ? QStringLiteral("ReqdExctnDt/") + tiedot.erapaiva.toString(Qt::ISODate)
        : QString();

    QStringList rivit = {QStringLiteral("BCD"), bic.isEmpty() ? QStringLiteral("002") : QStringLiteral("001"),
                         QStringLiteral("1"), QStringLiteral("SCT"), bic, saaja, iban, summa, tarkoitus, viite,
                         viesti, erapaiva};
    while (rivit.back().isEmpty())
        rivit.removeLast();
    const QByteArray sisalto = rivit.join(u'\n').toUtf8();
    if (sisalto.size() > SuurinKoko)
        return ei(QStringLiteral("sisältö on %1 tavua, enintään %2 mahtuu.").arg(sisalto.size()).arg(SuurinKoko));
    return {sisalto, QString()};
}
