// The selection formula of the fixed reports and the SELECT of the editable reports. Both say the
// same as the flags, except that they can use the year wild card, and that the postal range
// excludes its ends (numeric in the formula, textual in the SELECT).
#include "members/HakuApu.h"
#include "members/Hakuehdot.h"
#include "members/JasenMaksut.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace {

using namespace haku;

// A date condition in the formula: year pattern with like, or a comparison with a Date().
QString kaavanPaivaEhto(const QString &kentta, const QString &arvo, int koodi)
{
    if (onTahti(arvo))
        return u"ToText(Year({%1}),0) like "_s.arg(kentta) + kaavaMerkkijono(arvo);
    return u"{%1} "_s.arg(kentta) + HakuOperaattoriTeksti(koodi) + kaavaPaiva(paiva(arvo));
}

// A date condition in the SELECT: the year's text with LIKE, or a comparison of the ISO text.
void sqlPaivaEhto(ValintaSql &s, const QString &kentta, const QString &arvo, int koodi)
{
    if (onTahti(arvo)) {
        s.sql += u" AND YEAR(%1) LIKE ? ESCAPE '\\'"_s.arg(kentta);
        s.arvot.append(likeKuvio(arvo));
    } else {
        s.sql += u" AND %1 %2 ?"_s.arg(kentta, HakuOperaattoriTeksti(koodi));
        s.arvot.append(sqlPaiva(arvo));
    }
}

// The report's field list goes into the statement as names: each must be a plain field name.
void tarkistaKentat(const QString &sKentat)
{
    static const QRegularExpression nimi(u"^[A-Za-z_][A-Za-z0-9_]*(\\.[A-Za-z_][A-Za-z0-9_]*)?$"_s);
    for (const QString &k : sKentat.split(QLatin1Char(',')))
        if (!nimi.match(k.trimmed()).hasMatch())
            throw HakuehtoVirhe(u"Raportin kenttä \"%1\" ei kelpaa hakuun."_s.arg(k.trimmed()));
}

} // namespace

QString KoostaValintakaava(db::Database &db, const HakuParametrit &p)
{
    tarkista(p);
    const int maara = p.ValittujenMaara();
    QString f;
    if (maara < 1) {
        f = u"{jr.jrID} > 0"_s;
    } else {
        if (!p.bOminNot && maara < 2) {
            f = u"{pt.ptjrID} = {jr.jrID} and {pi.piID} = {pt.ptpiID} and {pt.ptpiID} = "_s
                + QString::number(p.ValitutOminaisuudet[0]);
        } else {
            AsetaMukaanOminaisuudet(db, p);
            f = u"{jr.jrMukaan} = True"_s;
        }
        if (!p.sheDate.isEmpty())
            f += u" and "_s + kaavanPaivaEhto(u"pt.ptValDate"_s, p.sheDate, p.iheDate);
        if (!p.sheLong.isEmpty())
            f += u" and {pt.ptValLong} "_s + HakuOperaattoriTeksti(p.iheLong) + u" "_s + kaavaLuku(p.sheLong);
        if (!p.sheCurrency.isEmpty())
            f += u" and {pt.ptValCurrency} "_s + HakuOperaattoriTeksti(p.iheCurrency) + u" "_s
                 + kaavaLuku(p.sheCurrency);
    }
    if (p.lJasenmaksunTila == 0)
        f += u" and {jr.jrJasenmaksu} = True"_s;
    else if (p.lJasenmaksunTila == 1)
        f += u" and {jr.jrJasenmaksu} = False"_s;
    if (p.lKaikkiVaiPerheet == 1)
        f += u" and {jr.jrPerheenLaskutettava} = True"_s;
    // Unlike the flags, the operator is the user's own: this form selects, it does not remove.
    if (!p.dateSynt.isEmpty())
        f += u" and "_s + kaavanPaivaEhto(u"jr.jrSyntyma"_s, p.dateSynt, p.eqSynt);
    if (!p.dateLiit.isEmpty())
        f += u" and "_s + kaavanPaivaEhto(u"jr.jrLiittyma"_s, p.dateLiit, p.eqLiit);
    if (!p.lPostinumeroAlku.isEmpty())
        f += u" and {jr.jrPostinumeroNumero} > "_s + kaavaPostinumero(p.lPostinumeroAlku);
    if (!p.lPostinumeroLoppu.isEmpty())
        f += u" and {jr.jrPostinumeroNumero} < "_s + kaavaPostinumero(p.lPostinumeroLoppu);
    return f;
}

ValintaSql KoostaValintaSql(db::Database &db, const QString &sKentat, const HakuParametrit &p)
{
    tarkista(p);
    if (!sKentat.isEmpty())
        tarkistaKentat(sKentat);
    const int maara = p.ValittujenMaara();
    ValintaSql s;
    if (maara < 1) {
        s.sql = u"SELECT * FROM jr WHERE jr.jrID > 0"_s;
    } else {
        const QString liitos = u" FROM jr LEFT JOIN piirteet ON jr.jrID = piirteet.ptjrID WHERE jr.jrID > 0"_s;
        // A memo cannot be compared for DISTINCT; the report then gets every field.
        if (sKentat.isEmpty() || sKentat.contains(u"ptValMemo"_s, Qt::CaseInsensitive))
            s.sql = u"SELECT *"_s + liitos;
        else
            s.sql = u"SELECT DISTINCT jrSukunimi, jrPostinumero, jrSyntyma, "_s + sKentat + liitos;

        if (!p.bOminNot && maara < 2) {
            s.sql += u" AND ptpiID = ?"_s;
            s.arvot.append(p.ValitutOminaisuudet[0]);
        } else {
            AsetaMukaanOminaisuudet(db, p);
            s.sql += u" AND jrMukaan = 1"_s;
        }
        if (!p.sheDate.isEmpty())
            sqlPaivaEhto(s, u"ptValDate"_s, p.sheDate, p.iheDate);
        if (!p.sheLong.isEmpty()) {
            s.sql += u" AND ptValLong %1 ?"_s.arg(HakuOperaattoriTeksti(p.iheLong));
            s.arvot.append(sqlLuku(p.sheLong));
        }
        if (!p.sheCurrency.isEmpty()) {
            s.sql += u" AND ptValCurrency %1 ?"_s.arg(HakuOperaattoriTeksti(p.iheCurrency));
            s.arvot.append(sqlRaha(p.sheCurrency));
        }
    }
    if (p.lJasenmaksunTila == 0)
        s.sql += u" AND "_s + JasenmaksuMaksettu;
    else if (p.lJasenmaksunTila == 1)
        s.sql += u" AND "_s + JasenmaksuMaksamatta;
    if (p.lKaikkiVaiPerheet == 1)
        s.sql += u" AND jrPerheenLaskutettava = 1"_s;
    if (!p.dateSynt.isEmpty())
        sqlPaivaEhto(s, u"jrSyntyma"_s, p.dateSynt, p.eqSynt);
    if (!p.dateLiit.isEmpty())
        sqlPaivaEhto(s, u"jrLiittyma"_s, p.dateLiit, p.eqLiit);
    // As the flags compare postal codes, but without the ends.
    if (!p.lPostinumeroAlku.isEmpty()) {
        s.sql += u" AND jrPostinumero > ? COLLATE NOCASE"_s;
        s.arvot.append(p.lPostinumeroAlku);
    }
    if (!p.lPostinumeroLoppu.isEmpty()) {
        s.sql += u" AND jrPostinumero < ? COLLATE NOCASE"_s;
        s.arvot.append(p.lPostinumeroLoppu);
    }
    static const QString jarjestys[] = {u" ORDER BY jrSukunimi COLLATE FI"_s, u" ORDER BY jrPostinumero COLLATE FI"_s,
                                        u" ORDER BY jrSyntyma"_s};
    if (p.iTulJarj >= 0 && p.iTulJarj <= 2)
        s.sql += jarjestys[p.iTulJarj];
    return s;
}
