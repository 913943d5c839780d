#include "invoicing/Pankkiviivakoodi.h"

#include "invoicing/Iban.h"
#include "invoicing/Maksuviite.h"
#include "invoicing/Mod97.h"

namespace {

PankkiviivakoodiTulos ei(const QString &syy) { return {QString(), QStringLiteral("Viivakoodia ei voi tehdä: ") + syy}; }

QString nollilla(const QString &teksti, int pituus) { return teksti.rightJustified(pituus, QLatin1Char('0')); }

bool vainNumeroita(QStringView s)
{
    for (const QChar c : s)
        if (c < u'0' || c > u'9')
            return false;
    return true;
}

} // namespace

PankkiviivakoodiTulos Pankkiviivakoodi(const QString &iban, Currency summa, const QString &viite, const QDate &erapaiva)
{
    const QString tili = IbanKoneelle(iban);
    if (tili.isEmpty())
        return ei(QStringLiteral("tilinumero puuttuu."));
    if (!IbanOnKelvollinen(tili))
        return ei(QStringLiteral("tilinumero %1 ei ole kelvollinen IBAN.").arg(IbanTulosteeseen(tili)));
    if (!tili.startsWith(QLatin1String("FI")))
        return ei(QStringLiteral("tilinumero %1 ei ole suomalainen.").arg(IbanTulosteeseen(tili)));

    const Currency sentit = summa.roundedToCents();
    if (sentit < Currency())
        return ei(QStringLiteral("summa on negatiivinen."));
    if (sentit > PankkiviivakoodinSuurinSumma)
        return ei(QStringLiteral("summa on yli 999 999,99 euroa."));

    const QString kone = IlmanValejaIsoin(viite);
    if (kone.isEmpty())
        return ei(QStringLiteral("viitenumero puuttuu."));
    QString versio, viiteosa;
    if (kone.startsWith(QLatin1String("RF"))) {
        if (!RfViiteOnKelvollinen(kone))
            return ei(QStringLiteral("RF-viite %1 ei ole kelvollinen.").arg(RfViiteTulosteeseen(kone)));
        if (!vainNumeroita(QStringView(kone).mid(4)))
            return ei(QStringLiteral("RF-viitteessä %1 on kirjaimia.").arg(RfViiteTulosteeseen(kone)));
        versio = QStringLiteral("5");
        viiteosa = kone.mid(2, 2) + nollilla(kone.mid(4), 21);
    } else {
        if (!KansallinenViiteOnKelvollinen(kone))
            return ei(QStringLiteral("viitenumero %1 ei ole kelvollinen.").arg(kone));
        versio = QStringLiteral("4");
        viiteosa = QStringLiteral("000") + nollilla(KansallinenViiteKoneelle(kone), 20);
    }

    const qint64 senttia = sentit.raw() / (Currency::Scale / 100);
    const QString euro = nollilla(QString::number(senttia / 100), 6) + nollilla(QString::number(senttia % 100), 2);
    const QString pvm = erapaiva.isValid() ? erapaiva.toString(QStringLiteral("yyMMdd")) : QStringLiteral("000000");
    return {versio + tili.mid(2) + euro + viiteosa + pvm, QString()};
}
