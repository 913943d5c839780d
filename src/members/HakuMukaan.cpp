// The selection flags. Each stage is one statement over the whole of `jr`, so a JA of thirty
// attributes is a handful of statements rather than a chain per attribute; the flags end as
// the step-by-step chain would leave them, `jrMukaan2` included.
#include "core/Misc.h"
#include "members/HakuApu.h"
#include "members/Hakuehdot.h"

using namespace Qt::Literals::StringLiterals;

namespace haku {

namespace {

QString paikat(qsizetype n) { return QStringList(n, u"?"_s).join(u", "_s); }

db::Params tunnukset(const QVector<qint32> &ids)
{
    db::Params arvot;
    for (qint32 id : ids)
        arvot.append(id);
    return arvot;
}

// Members holding any of the attributes.
QString jollakinNiista(qsizetype n)
{
    return u"SELECT ptjrID FROM pt WHERE ptjrID IS NOT NULL AND ptpiID IN (%1)"_s.arg(paikat(n));
}

void kaikkiMukaan(db::Database &db) { db.execute(u"UPDATE jr SET jrMukaan = 1"_s); }

// One attribute, with the refinements on its value.
void yksiOminaisuus(db::Database &db, const HakuParametrit &p, qint32 id)
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
    db.execute(u"UPDATE jr SET jrMukaan = jrID IN (SELECT ptjrID FROM pt WHERE ptjrID IS NOT NULL AND %1), "
               "jrMukaan2 = 0"_s.arg(ehto),
               arvot);
}

// TAI: any of the attributes. `jrMukaan2` is left alone.
void jokinOminaisuuksista(db::Database &db, const QVector<qint32> &ids)
{
    db.execute(u"UPDATE jr SET jrMukaan = jrID IN (%1)"_s.arg(jollakinNiista(ids.size())), tunnukset(ids));
}

// JA: every one of the attributes, in both flags.
void kaikkiOminaisuudet(db::Database &db, const QVector<qint32> &ids)
{
    const auto erilaiset = QSet<qint32>(ids.begin(), ids.end()).size();
    const QString kaikilla = u"SELECT ptjrID FROM pt WHERE ptjrID IS NOT NULL AND ptpiID IN (%1) "
                             "GROUP BY ptjrID HAVING COUNT(DISTINCT ptpiID) = ?"_s.arg(paikat(ids.size()));
    db::Params arvot = tunnukset(ids);
    arvot.append(qlonglong(erilaiset));
    db.execute(u"UPDATE jr SET jrMukaan = jrID IN (%1), jrMukaan2 = jrID IN (%1)"_s.arg(kaikilla), arvot + arvot);
}

// EI: members holding any of the attributes are out, whether JA or TAI was chosen.
void eiOminaisuuksia(db::Database &db, const QVector<qint32> &ids)
{
    if (ids.isEmpty()) {
        kaikkiMukaan(db);
        return;
    }
    db.execute(u"UPDATE jr SET jrMukaan = jrID NOT IN (%1)"_s.arg(jollakinNiista(ids.size())), tunnukset(ids));
}

// A removal by date: the operator is reversed, since those outside the condition are taken out.
// A Null date compares to nothing, so its member stays.
void paivaSuodatin(db::Database &db, const QString &arvo, int koodi, const QString &kentta, const QString &tahtiViesti)
{
    if (arvo.isEmpty())
        return;
    if (onTahti(arvo)) {
        Ilmoita(tahtiViesti);
        return;
    }
    static const QString kaannetty[] = {u">="_s, u"<>"_s, u"<="_s}; // the code was checked before the run
    db.execute(u"UPDATE jr SET jrMukaan = 0 WHERE jrMukaan = 1 AND %1 %2 ?"_s.arg(kentta, kaannetty[koodi]),
               {sqlPaiva(arvo)});
}

void suodattimet(db::Database &db, const HakuParametrit &p)
{
    if (p.lJasenmaksunTila == 0)
        db.execute(u"UPDATE jr SET jrMukaan = 0 WHERE jrMukaan = 1 AND IFNULL(jrJasenmaksu, 0) = 0"_s);
    else if (p.lJasenmaksunTila == 1)
        db.execute(u"UPDATE jr SET jrMukaan = 0 WHERE jrMukaan = 1 AND jrJasenmaksu = 1"_s);
    if (p.lKaikkiVaiPerheet == 1)
        db.execute(u"UPDATE jr SET jrMukaan = 0 WHERE jrMukaan = 1 AND IFNULL(jrPerheenLaskutettava, 0) = 0"_s);
    paivaSuodatin(db, p.dateSynt, p.eqSynt, u"jrSyntyma"_s,
                  u"Syntymäaikakentän '*' merkki ei ole käytettävissä - syntymäaikarajoitusta ei huomioida."_s);
    paivaSuodatin(db, p.dateLiit, p.eqLiit, u"jrLiittyma"_s,
                  u"Liittymispäiväkentän '*' merkki ei ole käytettävissä - liittymispäivärajoitusta ei huomioida."_s);
    // Text comparison, both ends included.
    if (!p.lPostinumeroAlku.isEmpty())
        db.execute(u"UPDATE jr SET jrMukaan = 0 WHERE jrMukaan = 1 AND jrPostinumero < ? COLLATE FI"_s,
                   {p.lPostinumeroAlku});
    if (!p.lPostinumeroLoppu.isEmpty())
        db.execute(u"UPDATE jr SET jrMukaan = 0 WHERE jrMukaan = 1 AND jrPostinumero > ? COLLATE FI"_s,
                   {p.lPostinumeroLoppu});
}

} // namespace

void ominaisuusVaihe(db::Database &db, const HakuParametrit &p, bool tarkennuksin)
{
    const QVector<qint32> ids = valitut(p);
    const int maara = p.ValittujenMaara();
    if (p.bOminNot)
        eiOminaisuuksia(db, ids);
    else if (maara < 1)
        kaikkiMukaan(db);
    else if (tarkennuksin && maara == 1)
        yksiOminaisuus(db, p, p.ValitutOminaisuudet[0]);
    else if (p.bOminAnd)
        kaikkiOminaisuudet(db, ids);
    else
        jokinOminaisuuksista(db, ids);
}

} // namespace haku

void AsetaMukaan(db::Database &db, const HakuParametrit &p)
{
    haku::tarkista(p);
    haku::Tallennuspiste piste(db);
    haku::ominaisuusVaihe(db, p, true);
    haku::suodattimet(db, p);
    piste.vahvista();
}

void AsetaMukaanOminaisuudet(db::Database &db, const HakuParametrit &p)
{
    haku::tarkista(p);
    haku::Tallennuspiste piste(db);
    haku::ominaisuusVaihe(db, p, false);
    piste.vahvista();
}
