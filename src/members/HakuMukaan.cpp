// The selection flags. The attribute stage and the filters that take members out again are one
// UPDATE over `jr`: a member stays in when the stage takes him and no filter removes him. So a
// JA of thirty attributes is one pass over the register rather than a chain of passes, and the
// flags end as the step-by-step chain would leave them, `jrMukaan2` included.
#include "core/Ilmoitukset.h"
#include "members/HakuApu.h"
#include "members/Hakuehdot.h"
#include "members/JasenMaksut.h"

#include <QSet>

using namespace Qt::Literals::StringLiterals;

namespace haku {

namespace {

struct Lauseke {
    QString sql;
    db::Params arvot;
};

// What the attribute stage writes: `jrMukaan`, and `jrMukaan2` where the stage touches it.
struct Vaihe {
    Lauseke alku; // a WITH clause the expressions lean on
    Lauseke mukaan;
    std::optional<Lauseke> mukaan2;
};

QString paikat(qsizetype n) { return QStringList(n, u"?"_s).join(u", "_s); }

db::Params tunnukset(const QVector<qint32> &ids)
{
    db::Params arvot;
    for (qint32 id : ids)
        arvot.append(id);
    return arvot;
}

// Members holding any of the attributes.
Lauseke jollakinNiista(const QVector<qint32> &ids)
{
    return {u"jrID IN (SELECT ptjrID FROM pt WHERE ptjrID IS NOT NULL AND ptpiID IN (%1))"_s.arg(paikat(ids.size())),
            tunnukset(ids)};
}

Vaihe kaikkiMukaan() { return {{}, {u"1"_s, {}}, std::nullopt}; }

// One attribute, with the refinements on its value.
Vaihe yksiOminaisuus(const HakuParametrit &p, qint32 id)
{
    QString ehto = u"ptpiID = ?"_s;
    db::Params arvot{id};
    if (!p.sheDate.isEmpty()) {
        if (onTahti(p.sheDate)) {
            Ilmoita(u"Päivämääräkentän '*' merkki ei ole käytettävissä - päivämäärärajoitusta ei huomioida."_s);
        } else {
            ehto += u" AND ptValDate "_s + HakuOperaattoriTeksti(p.iheDate) + u" ?"_s;
            arvot.append(sqlPaiva(p.sheDate));
        }
    }
    if (!p.sheLong.isEmpty()) {
        ehto += u" AND ptValLong "_s + HakuOperaattoriTeksti(p.iheLong) + u" ?"_s;
        arvot.append(sqlLuku(p.sheLong));
    }
    if (!p.sheCurrency.isEmpty()) {
        ehto += u" AND ptValCurrency "_s + HakuOperaattoriTeksti(p.iheCurrency) + u" ?"_s;
        arvot.append(sqlRaha(p.sheCurrency));
    }
    return {{}, {u"jrID IN (SELECT ptjrID FROM pt WHERE ptjrID IS NOT NULL AND %1)"_s.arg(ehto), arvot}, Lauseke{u"0"_s, {}}};
}

// TAI: any of the attributes. `jrMukaan2` is left alone.
Vaihe jokinOminaisuuksista(const QVector<qint32> &ids) { return {{}, jollakinNiista(ids), std::nullopt}; }

// JA: every one of the attributes, in both flags; the holders are found once for both.
Vaihe kaikkiOminaisuudet(const QVector<qint32> &ids)
{
    db::Params arvot = tunnukset(ids);
    arvot.append(qlonglong(QSet<qint32>(ids.begin(), ids.end()).size()));
    const Lauseke kaikilla{u"jrID IN kaikilla"_s, {}};
    return {{u"WITH kaikilla(id) AS MATERIALIZED (SELECT ptjrID FROM pt WHERE ptjrID IS NOT NULL AND ptpiID IN (%1) "
             "GROUP BY ptjrID HAVING COUNT(DISTINCT ptpiID) = ?) "_s.arg(paikat(ids.size())),
             arvot},
            kaikilla,
            kaikilla};
}

// EI: members holding any of the attributes are out, whether JA or TAI was chosen.
Vaihe eiOminaisuuksia(const QVector<qint32> &ids)
{
    if (ids.isEmpty())
        return kaikkiMukaan();
    Lauseke l = jollakinNiista(ids);
    l.sql = u"NOT "_s + l.sql;
    return {{}, l, std::nullopt};
}

Vaihe ominaisuusVaiheKirjoitettavaksi(const HakuParametrit &p, bool tarkennuksin)
{
    const QVector<qint32> ids = valitut(p);
    const int maara = p.ValittujenMaara();
    if (p.bOminNot)
        return eiOminaisuuksia(ids);
    if (maara < 1)
        return kaikkiMukaan();
    if (tarkennuksin && maara == 1)
        return yksiOminaisuus(p, p.ValitutOminaisuudet[0]);
    return p.bOminAnd ? kaikkiOminaisuudet(ids) : jokinOminaisuuksista(ids);
}

// A removal by date takes out those outside the condition, so its operator is the reverse of
// the user's. A Null date compares to nothing: its member is never removed.
void paivaSuodatin(QVector<Lauseke> &pysyvat, const QString &arvo, int koodi, const QString &kentta,
                   const QString &tahtiViesti)
{
    if (arvo.isEmpty())
        return;
    if (onTahti(arvo)) {
        Ilmoita(tahtiViesti);
        return;
    }
    static const QString kaannetty[] = {u">="_s, u"<>"_s, u"<="_s}; // the code was checked before the run
    pysyvat.append({u"(%1 %2 ?) IS NOT 1"_s.arg(kentta, kaannetty[koodi]), {sqlPaiva(arvo)}});
}

// The filters, each as the condition of staying in.
QVector<Lauseke> suodattimet(const HakuParametrit &p)
{
    QVector<Lauseke> pysyvat;
    if (p.lJasenmaksunTila == 0)
        pysyvat.append({JasenmaksuMaksettu, {}});
    else if (p.lJasenmaksunTila == 1)
        pysyvat.append({JasenmaksuMaksamatta, {}});
    if (p.lKaikkiVaiPerheet == 1)
        pysyvat.append({u"IFNULL(jrPerheenLaskutettava, 0) <> 0"_s, {}});
    paivaSuodatin(pysyvat, p.dateSynt, p.eqSynt, u"jrSyntyma"_s,
                  u"Syntymäaikakentän '*' merkki ei ole käytettävissä - syntymäaikarajoitusta ei huomioida."_s);
    paivaSuodatin(pysyvat, p.dateLiit, p.eqLiit, u"jrLiittyma"_s,
                  u"Liittymispäiväkentän '*' merkki ei ole käytettävissä - liittymispäivärajoitusta ei huomioida."_s);
    // Text comparison, both ends included. Postal codes are plain ASCII, which NOCASE orders as
    // the Finnish order does, at a fraction of the cost on the whole register.
    if (!p.lPostinumeroAlku.isEmpty())
        pysyvat.append({u"(jrPostinumero < ? COLLATE NOCASE) IS NOT 1"_s, {p.lPostinumeroAlku}});
    if (!p.lPostinumeroLoppu.isEmpty())
        pysyvat.append({u"(jrPostinumero > ? COLLATE NOCASE) IS NOT 1"_s, {p.lPostinumeroLoppu}});
    return pysyvat;
}

void kirjoita(db::Database &db, const Vaihe &v, const QVector<Lauseke> &pysyvat)
{
    // CASE, so that the filters are weighed only for the members the stage took.
    QString sql = v.alku.sql + u"UPDATE jr SET jrMukaan = CASE WHEN "_s + v.mukaan.sql + u" THEN "_s;
    db::Params arvot = v.alku.arvot + v.mukaan.arvot;
    QStringList ehdot{u"1"_s};
    for (const Lauseke &l : pysyvat) {
        ehdot << u"("_s + l.sql + u")"_s;
        arvot += l.arvot;
    }
    sql += ehdot.join(u" AND "_s) + u" ELSE 0 END"_s;
    if (v.mukaan2) {
        sql += u", jrMukaan2 = ("_s + v.mukaan2->sql + u")"_s;
        arvot += v.mukaan2->arvot;
    }
    db.execute(sql, arvot);
}

} // namespace

} // namespace haku

void AsetaMukaan(db::Database &db, const HakuParametrit &p)
{
    haku::tarkista(p);
    const haku::Vaihe vaihe = haku::ominaisuusVaiheKirjoitettavaksi(p, true);
    haku::kirjoita(db, vaihe, haku::suodattimet(p));
}

void AsetaMukaanOminaisuudet(db::Database &db, const HakuParametrit &p)
{
    haku::tarkista(p);
    haku::kirjoita(db, haku::ominaisuusVaiheKirjoitettavaksi(p, false), {});
}
