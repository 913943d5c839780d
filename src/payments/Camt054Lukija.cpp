#include "payments/Camt054Lukija.h"

#include "invoicing/Maksuviite.h"
#include "payments/Camt054Jasennin.h"
#include "payments/ViiteKentat.h"

#include <QDate>
#include <QRegularExpression>

namespace camt054 {
namespace {

bool OnTosi(const QString &s)
{
    return s == QLatin1String("true") || s == QLatin1String("1");
}


// "25.00", "25", "25.5" → cents; more than two decimals only when they are zeros.
qint64 Sentit(const QString &summa, const QString &mika)
{
    static const QRegularExpression muoto(QStringLiteral("^(\\d{1,13})(?:\\.(\\d{1,5}))?$"));
    const QRegularExpressionMatch m = muoto.match(summa);
    const QString desimaalit = m.captured(2).leftJustified(5, u'0');
    if (!m.hasMatch() || desimaalit.mid(2) != QLatin1String("000"))
        Virhe(QStringLiteral("%1 \"%2\" ei ole rahamäärä.").arg(mika, summa));
    return m.captured(1).toLongLong() * 100 + desimaalit.left(2).toLongLong();
}

void TarkistaEuro(const QString &valuutta)
{
    if (!valuutta.isEmpty() && valuutta != QLatin1String("EUR"))
        Virhe(QStringLiteral("tiedostossa on suoritus valuutassa %1; vain euromääräiset suoritukset luetaan.")
                  .arg(valuutta));
}

// "2025-01-14" or "2025-01-14T07:04:01+02:00" → "250114"
QString Vvkkpp(const QString &aika, const QString &mika)
{
    const QDate p = QDate::fromString(aika.left(10), QStringLiteral("yyyy-MM-dd"));
    if (!p.isValid() || p.year() < 2000 || p.year() > 2099 || (aika.size() > 10 && aika.at(10) != u'T'))
        Virhe(QStringLiteral("%1 \"%2\" ei ole vuosien 2000–2099 päivämäärä.").arg(mika, aika));
    return p.toString(QStringLiteral("yyMMdd"));
}

// "2025-01-15T07:04:01" → "0704"
QString Ttmm(const QString &aika)
{
    static const QRegularExpression muoto(QStringLiteral("^T([01]\\d|2[0-3]):([0-5]\\d)"));
    const QRegularExpressionMatch m = muoto.match(aika.mid(10));
    if (!m.hasMatch())
        Virhe(QStringLiteral("ilmoituksen luontiaika \"%1\" ei ole kelvollinen.").arg(aika));
    return m.captured(1) + m.captured(2);
}

QString KirjauksenNimi(const Kirjaus &k, qsizetype jarjestys)
{
    if (!k.arkistointitunnus.isEmpty())
        return QStringLiteral("kirjaus %1").arg(k.arkistointitunnus);
    return QStringLiteral("%1. kirjaus").arg(jarjestys + 1);
}

enum class Laji { Maksu, Oikaisu, Pois };

Laji KirjauksenLaji(const Kirjaus &k)
{
    if (!k.tila.isEmpty() && k.tila != QLatin1String("BOOK"))
        return Laji::Pois;
    const bool peruutus = OnTosi(k.peruutus);
    if (k.suunta == QLatin1String("CRDT"))
        return peruutus ? Laji::Pois : Laji::Maksu;
    if (k.suunta == QLatin1String("DBIT"))
        return peruutus ? Laji::Oikaisu : Laji::Pois;
    Virhe(QStringLiteral("kirjauksen suunta \"%1\" ei ole CRDT eikä DBIT.").arg(k.suunta));
}

// The payments of one entry must add up to what the entry and its batches say: a bank that lists
// fewer transactions than it booked would otherwise have payments silently missing.
void TarkistaSummat(const Kirjaus &k, const QString &nimi, qint64 kirjauksenSumma)
{
    qint64 kaikki = 0;
    for (const Erittely &e : k.erittelyt) {
        qint64 summa = 0;
        for (const Maksu &m : e.maksut)
            summa += Sentit(m.summa, QStringLiteral("maksun summa"));
        kaikki += summa;
        if (!e.kpl.isEmpty() && e.kpl != QString::number(e.maksut.size()))
            Virhe(QStringLiteral("%1 ilmoittaa %2 maksua, mutta erittelyssä on %3.")
                      .arg(nimi, e.kpl)
                      .arg(e.maksut.size()));
        if (!e.kokonaissumma.isEmpty()) {
            TarkistaEuro(e.kokonaisValuutta);
            const qint64 ilmoitettu = Sentit(e.kokonaissumma, QStringLiteral("erän summa"));
            if (ilmoitettu != summa)
                Virhe(QStringLiteral("%1: erän summa on %2, mutta sen maksut ovat yhteensä %3.")
                          .arg(nimi, viitekentat::EuroinaViestiin(ilmoitettu), viitekentat::EuroinaViestiin(summa)));
        }
    }
    if (kaikki != kirjauksenSumma)
        Virhe(QStringLiteral("%1: kirjauksen summa on %2, mutta sen maksut ovat yhteensä %3.")
                  .arg(nimi, viitekentat::EuroinaViestiin(kirjauksenSumma), viitekentat::EuroinaViestiin(kaikki)));
}

QString Tilinumero(const Ilmoitus &i)
{
    if (i.iban.startsWith(QLatin1String("FI")) && i.iban.size() == 18)
        return i.iban.mid(4);
    return i.iban.isEmpty() ? i.muuTili : i.iban;
}

void LisaaKirjaus(ViiteEra &era, const Ilmoitus &i, const Kirjaus &k, qsizetype jarjestys)
{
    const Laji laji = KirjauksenLaji(k);
    if (laji == Laji::Pois)
        return;
    const QString nimi = KirjauksenNimi(k, jarjestys);
    if (k.summa.isEmpty())
        Virhe(QStringLiteral("%1: kirjauksen summa puuttuu.").arg(nimi));
    TarkistaEuro(k.valuutta);
    const qint64 kirjauksenSumma = Sentit(k.summa, QStringLiteral("kirjauksen summa"));

    QString kirjauspaiva = k.kirjauspaiva.isEmpty() ? k.arvopaiva : k.kirjauspaiva;
    if (kirjauspaiva.isEmpty())
        Virhe(QStringLiteral("%1: kirjauspäivä puuttuu.").arg(nimi));
    kirjauspaiva = Vvkkpp(kirjauspaiva, QStringLiteral("kirjauspäivä"));

    Kirjaus taydennetty = k;
    QList<Maksu *> maksut;
    for (Erittely &e : taydennetty.erittelyt)
        for (Maksu &m : e.maksut)
            maksut.append(&m);
    Maksu ilmanErittelya{k.arkistointitunnus, k.summa, k.valuutta, {}, {}, {}, {}};
    if (maksut.isEmpty()) {
        // One payment booked as an entry of its own, with no details: no reference to match, but
        // the user still sees that it came.
        maksut.append(&ilmanErittelya);
    } else {
        // The one transaction of an entry may leave its amount to the entry.
        if (maksut.size() == 1 && maksut[0]->summa.isEmpty()) {
            maksut[0]->summa = k.summa;
            maksut[0]->valuutta = k.valuutta;
        }
        for (const Maksu *m : maksut)
            if (m->summa.isEmpty())
                Virhe(QStringLiteral("%1: maksun summa puuttuu.").arg(nimi));
        TarkistaSummat(taydennetty, nimi, kirjauksenSumma);
    }

    for (const Maksu *mp : maksut) {
        const Maksu &m = *mp;
        TarkistaEuro(m.valuutta);
        ViiteTapahtuma t;
        t.Tunnus = QStringLiteral("3");
        t.Tilinumero = Tilinumero(i);
        t.Kirjauspaiva = kirjauspaiva;
        t.Maksupaiva = m.maksupaiva.isEmpty() ? kirjauspaiva : Vvkkpp(m.maksupaiva, QStringLiteral("maksupäivä"));
        t.Arkistointitunnus = !m.arkistointitunnus.isEmpty() || maksut.size() > 1 ? m.arkistointitunnus
                                                                                   : k.arkistointitunnus;
        t.Viitenumero = ViiteKoneelle(m.viite);
        t.Nimi = m.lopullinenMaksaja.isEmpty() ? m.maksaja : m.lopullinenMaksaja;
        t.Rahayksikko = QStringLiteral("1");
        t.Rahamaara = viitekentat::Nollilla(Sentit(m.summa, QStringLiteral("maksun summa")), 10);
        t.Oikaisutunnus = laji == Laji::Oikaisu ? QStringLiteral("1") : QStringLiteral("0");
        era.Tapahtumat.append(t);
    }
}

ViiteEra Era(const Ilmoitus &i)
{
    if (i.luontiaika.isEmpty())
        Virhe(QStringLiteral("ilmoituksen luontiaika (CreDtTm) puuttuu."));
    ViiteEra era;
    era.Tunnus = QStringLiteral("0");
    era.Paivamaara = Vvkkpp(i.luontiaika, QStringLiteral("ilmoituksen luontiaika"));
    era.Aika = Ttmm(i.luontiaika);
    era.Rahayksikko = QStringLiteral("1");
    for (qsizetype k = 0; k < i.kirjaukset.size(); ++k)
        LisaaKirjaus(era, i, i.kirjaukset[k], k);
    era.Summat = viitekentat::LaskeSummat(era.Tapahtumat);
    return era;
}

} // namespace

bool Tunnista(const QByteArray &tavut)
{
    QByteArrayView t(tavut);
    if (t.startsWith("\xEF\xBB\xBF"))
        t = t.sliced(3);
    for (char c : t) {
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n')
            continue;
        return c == '<';
    }
    return false;
}

QList<ViiteEra> Lue(const QByteArray &tavut)
{
    QList<ViiteEra> erat;
    for (const Ilmoitus &i : Jasenna(tavut)) {
        ViiteEra era = Era(i);
        if (!era.Tapahtumat.isEmpty())
            erat.append(era);
    }
    return erat;
}

QString ViiteKoneelle(const QString &viite)
{
    QString kansallinen = KansallinenViiteKoneelle(viite);
    if (viite.trimmed().startsWith(QLatin1String("RF"), Qt::CaseInsensitive)) {
        kansallinen = KansallinenViiteRfViitteesta(viite);
        if (kansallinen.isEmpty())
            return viite.trimmed();
    }
    static const QRegularExpression numerot(QStringLiteral("^\\d{1,20}$"));
    if (!numerot.match(kansallinen).hasMatch())
        return viite.trimmed();
    return kansallinen.rightJustified(20, u'0');
}

} // namespace camt054
