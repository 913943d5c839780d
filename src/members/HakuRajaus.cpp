// The sentence that a report prints under its heading to say who is listed.
#include "platform/arvot.h"
#include "members/HakuApu.h"
#include "members/Hakuehdot.h"

using namespace Qt::Literals::StringLiterals;

namespace {

using namespace haku;

const QString Ja = u" JA "_s;

// Empty when the definition is gone.
QString ominaisuudenNimi(db::Database &db, qint32 id)
{
    return NullText(db.scalar(u"SELECT piNimi FROM pi WHERE piID = ?"_s, {id}));
}

QString ominaisuusOsa(db::Database &db, const HakuParametrit &p)
{
    if (!p.bOminNot && p.ValittujenMaara() < 2)
        return ominaisuudenNimi(db, p.ValitutOminaisuudet[0]);
    QStringList nimet;
    for (qint32 id : valitut(p)) {
        const QString n = ominaisuudenNimi(db, id);
        if (!n.isEmpty())
            nimet << n;
    }
    if (!p.bOminNot)
        return nimet.join(p.bOminAnd ? Ja : u" TAI "_s);
    // The selection takes out holders of any of them, yet the sentence says JA.
    return nimet.isEmpty() ? QString() : u"EI ("_s + nimet.join(Ja) + u")"_s;
}

QString paivaOsa(const QString &alku, const QString &arvo, int koodi)
{
    if (onTahti(arvo))
        return alku + u"~"_s + arvo;
    return alku + HakuOperaattoriTeksti(koodi) + PaivaTekstina(paiva(arvo));
}

QString tarkennukset(const HakuParametrit &p)
{
    QStringList osat;
    if (!p.sheDate.isEmpty())
        osat << paivaOsa(u"Pvm "_s, p.sheDate, p.iheDate);
    if (!p.sheLong.isEmpty())
        osat << u"Luku: "_s + HakuOperaattoriTeksti(p.iheLong) + p.sheLong;
    if (!p.sheCurrency.isEmpty())
        osat << u"Arvo: "_s + HakuOperaattoriTeksti(p.iheCurrency) + p.sheCurrency;
    return osat.join(Ja);
}

QString postinumeroOsa(const HakuParametrit &p)
{
    const QString &alku = p.lPostinumeroAlku;
    const QString &loppu = p.lPostinumeroLoppu;
    if (!alku.isEmpty() && !loppu.isEmpty())
        return u"Postinumero välillä: "_s + alku + u" - "_s + loppu;
    if (!alku.isEmpty())
        return u"Postinumero >"_s + alku;
    if (!loppu.isEmpty())
        return u"Postinumero <"_s + loppu;
    return {};
}

} // namespace

QString KoostaRajausteksti(db::Database &db, const HakuParametrit &p)
{
    tarkista(p);
    QStringList osat;
    // The refinements belong to an attribute: without one they select nothing and say nothing.
    if (p.ValittujenMaara() >= 1) {
        QString omin = ominaisuusOsa(db, p);
        const QString rajaukset = tarkennukset(p);
        if (!rajaukset.isEmpty())
            omin += u" rajauksin "_s + rajaukset;
        osat << omin;
    }
    if (p.lJasenmaksunTila == 0)
        osat << u"Jäsenmaksu maksettu"_s;
    else if (p.lJasenmaksunTila == 1)
        osat << u"Jäsenmaksu maksamatta"_s;
    if (!p.dateSynt.isEmpty())
        osat << paivaOsa(u"Syntymäaika: "_s, p.dateSynt, p.eqSynt);
    if (!p.dateLiit.isEmpty())
        osat << paivaOsa(u"Liittymisaika: "_s, p.dateLiit, p.eqLiit);
    osat << postinumeroOsa(p);
    osat.removeAll(QString());
    return osat.join(Ja);
}
