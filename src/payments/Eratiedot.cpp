#include "payments/Eratiedot.h"

#include "core/Ilmoitukset.h"
#include "payments/ViiteaineistoLukija.h"
#include "payments/Viitemaksulajittelu.h"

namespace {

// The numeric value of a count or a sum in cents: "000012" is 12, a field of no digits 0.
qint64 Luku(const QString &kentta)
{
    ViiteTapahtuma t;
    t.Rahamaara = kentta;
    return MaksunSentit(t);
}

QList<qint64> Summat(const ViiteSummat &s)
{
    return {Luku(s.TapahtumatKpl), Luku(s.TapahtumatSumma), Luku(s.OikaisutKpl),
            Luku(s.OikaisutSumma), Luku(s.EpaonnistuneetKpl), Luku(s.EpaonnistuneetSumma)};
}

QList<std::pair<QString, QString>> Nimin(const QString &alku, const QList<qint64> &arvot)
{
    static const char *const nimet[] = {"TapKPL", "TapSUM", "OikKPL", "OikSUM", "EpaKPL", "EpaSUM"};
    QList<std::pair<QString, QString>> tulos;
    for (int i = 0; i < 6; ++i)
        tulos.append({alku + QLatin1String(nimet[i]), i % 2 ? MuotoileSentit(arvot[i]) : QString::number(arvot[i])});
    return tulos;
}

} // namespace

QString Rahayksikko(const QString &koodi)
{
    return koodi == QLatin1String(" ") ? QStringLiteral("Markka") : QStringLiteral("Euro");
}

QList<std::pair<QString, QString>> EranTiedot(const ViiteEra &era)
{
    QList<std::pair<QString, QString>> tulos{{QStringLiteral("lblPvm"), era.Paivamaara},
                                             {QStringLiteral("lblAika"), era.Aika},
                                             {QStringLiteral("lblPankki"), era.Pankkiryhma},
                                             {QStringLiteral("lblLaskuttaja"), era.Laskuttaja},
                                             {QStringLiteral("lblRahayksikko"), Rahayksikko(era.Rahayksikko)}};
    return tulos + Nimin(QStringLiteral("lbl"), Summat(era.Summat));
}

QList<std::pair<QString, QString>> KaikkienEriensaSummat(const QList<ViiteEra> &erat)
{
    QList<qint64> yhteensa(6, 0);
    for (const ViiteEra &e : erat) {
        const QList<qint64> s = Summat(e.Summat);
        for (int i = 0; i < 6; ++i)
            yhteensa[i] += s[i];
    }
    return Nimin(QStringLiteral("lblSumma"), yhteensa);
}

std::optional<QList<ViiteEra>> LueViitetiedosto(const QString &polku)
{
    try {
        QList<ViiteEra> erat = ViiteaineistoLukija().LueTiedosto(polku);
        if (erat.isEmpty()) {
            Ilmoita(QStringLiteral("Tiedostosta ei löydy viitemaksutietueita."));
            return std::nullopt;
        }
        return erat;
    } catch (const ViiteaineistoVirhe &e) {
        Ilmoita(QStringLiteral("Avauksessa tapahtui virhe: %1 : ").arg(e.numero()) + e.viesti());
        return std::nullopt;
    }
}

