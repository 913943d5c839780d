#include "invoicing/Maksuviite.h"

#include "invoicing/Mod97.h"
#include "invoicing/Viite.h"

namespace {

bool vainNumeroita(QStringView s)
{
    for (const QChar c : s)
        if (c < u'0' || c > u'9')
            return false;
    return true;
}

bool vainKirjaimiaJaNumeroita(QStringView s)
{
    for (const QChar c : s)
        if (!((c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z')))
            return false;
    return true;
}

QString ryhmittele(const QString &teksti, int koko, bool oikealta)
{
    QString tulos;
    const qsizetype n = teksti.size();
    for (qsizetype i = 0; i < n; ++i) {
        const qsizetype kohta = oikealta ? n - i : i;
        if (i > 0 && kohta % koko == 0)
            tulos += QLatin1Char(' ');
        tulos += teksti[i];
    }
    return tulos;
}

bool onRfMuotoinen(const QString &kone)
{
    return kone.startsWith(QLatin1String("RF"));
}

} // namespace

QString KansallinenViiteKoneelle(const QString &viite)
{
    QString t = IlmanValejaIsoin(viite);
    qsizetype nollia = 0;
    while (nollia < t.size() && t[nollia] == u'0')
        ++nollia;
    return t.mid(nollia);
}

bool KansallinenViiteOnKelvollinen(const QString &viite)
{
    const QString v = KansallinenViiteKoneelle(viite);
    return v.size() >= 4 && v.size() <= 20 && vainNumeroita(v) && ViiteOnKelvollinen(v);
}

QString KansallinenViiteTulosteeseen(const QString &viite)
{
    const QString v = KansallinenViiteKoneelle(viite);
    return vainNumeroita(v) ? ryhmittele(v, 5, true) : v;
}

QString RfViiteRungosta(const QString &runko)
{
    const QString r = IlmanValejaIsoin(runko);
    if (r.isEmpty() || r.size() > 21 || !vainKirjaimiaJaNumeroita(r))
        return {};
    const int tarkiste = 98 - Mod97(QString(r + QLatin1String("RF00")));
    return QStringLiteral("RF%1").arg(tarkiste, 2, 10, QLatin1Char('0')) + r;
}

QString RfViiteKansallisesta(const QString &viite)
{
    if (!KansallinenViiteOnKelvollinen(viite))
        return {};
    return RfViiteRungosta(KansallinenViiteKoneelle(viite));
}

QString RfViiteKoneelle(const QString &rf) { return IlmanValejaIsoin(rf); }

bool RfViiteOnKelvollinen(const QString &rf)
{
    const QString r = RfViiteKoneelle(rf);
    if (r.size() < 5 || r.size() > 25 || !onRfMuotoinen(r) || !vainNumeroita(QStringView(r).mid(2, 2)))
        return false;
    const QStringView runko = QStringView(r).mid(4);
    if (!vainKirjaimiaJaNumeroita(runko))
        return false;
    return Mod97(QString(runko.toString() + r.left(4))) == 1;
}

QString KansallinenViiteRfViitteesta(const QString &rf)
{
    if (!RfViiteOnKelvollinen(rf))
        return {};
    const QString runko = RfViiteKoneelle(rf).mid(4);
    return KansallinenViiteOnKelvollinen(runko) ? KansallinenViiteKoneelle(runko) : QString();
}

QString RfViiteTulosteeseen(const QString &rf) { return ryhmittele(RfViiteKoneelle(rf), 4, false); }

QString MaksuviiteTulosteeseen(const QString &viite)
{
    const QString kone = IlmanValejaIsoin(viite);
    return onRfMuotoinen(kone) ? RfViiteTulosteeseen(kone) : KansallinenViiteTulosteeseen(kone);
}

bool MaksuviiteOnKelvollinen(const QString &viite)
{
    return onRfMuotoinen(IlmanValejaIsoin(viite)) ? RfViiteOnKelvollinen(viite) : KansallinenViiteOnKelvollinen(viite);
}
