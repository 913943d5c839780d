#include "esittely/EsittelyLaskupohjat.h"

#include "platform/arvot.h"
#include "platform/currency.h"

namespace esittely {

namespace {

qint64 pohja(db::Database &db, const QString &nimi, int tyyppi, const QString &otsake, const QString &tilisiirto, bool jasenmaksu)
{
    db.execute(QStringLiteral("INSERT INTO Laskupohjat (Laskupohja_Nimi, LaskunOtsake, Laskutyyppi, LaskunPaivamaara, LaskunErapaiva,"
                              " TilisiirronTeksti, Jasenmaksu, HenkilokohtainenViite, IlmanViitetta, IlmanLoppusummaa, Lisatietoja,"
                              " Pankkitili1, KaytaPankkitili1) VALUES (?, ?, ?, 0, 14, ?, ?, 0, 0, 0, ?, '', 0)"),
               {nimi, otsake, tyyppi, tilisiirto, jasenmaksu,
                QStringLiteral("Kiitos, että olet mukana Vanhankylän Urheiluseurassa!")});
    return db.lastInsertId();
}

void rivi(db::Database &db, qint64 pohjaID, int tyyppi, int jarjestys, const QString &sarakkeet, const db::Params &arvot)
{
    db::Params p{pohjaID, tyyppi, jarjestys};
    p += arvot;
    QString paikat;
    for (qsizetype i = 0; i < arvot.size(); ++i)
        paikat += QStringLiteral(", ?");
    db.execute(QStringLiteral("INSERT INTO Laskupohjarivit (Laskupohja_ID, Laskutyyppi, Jarjestys, %1) VALUES (?, ?, ?%2)")
                   .arg(sarakkeet, paikat),
               p);
}

} // namespace

void KirjoitaLaskupohjat(db::Database &db)
{
    const qint64 perus = pohja(db, QStringLiteral("Jäsenmaksu"), 0, QStringLiteral("Jäsenmaksu"), QStringLiteral("Jäsenmaksu"), true);
    rivi(db, perus, 0, 0, QStringLiteral("Paalla, Aiheteksti, Hinta"),
         {true, QStringLiteral("Vuoden jäsenmaksu"), Currency::fromUnits(35).toVariant()});
    rivi(db, perus, 0, 1, QStringLiteral("Paalla, Aiheteksti, Hinta"),
         {false, QStringLiteral("Seuralehti"), Currency::fromUnits(10).toVariant()});

    const qint64 perhe = pohja(db, QStringLiteral("Perhemaksu"), 1, QStringLiteral("Perheen jäsenmaksu"),
                               QStringLiteral("Perheen jäsenmaksu"), true);
    const QString perheSarakkeet = QStringLiteral("PerhePaalla, PerheAhinta, PerheAiheteksti, PerheNimet, PerheNollat");
    rivi(db, perhe, 1, 0, perheSarakkeet, {true, Currency::fromUnits(60).toVariant(), QStringLiteral("Perheen jäsenmaksu"), true, false});
    rivi(db, perhe, 1, 3, perheSarakkeet, {true, Currency::fromUnits(10).toVariant(), QStringLiteral("Lasten junioritoiminta"), true, false});

    const QVariant talkoot = db.scalar(QStringLiteral("SELECT piID FROM pi WHERE piNimi = 'Talkoovuorot'"));
    const qint64 omin = pohja(db, QStringLiteral("Talkoohyvitys"), 2, QStringLiteral("Talkoovuorot"),
                              QStringLiteral("Talkoovuorot"), false);
    rivi(db, omin, 2, 0, QStringLiteral("OmPiId, OmLkm, OmAhinta, OmAiheteksti"),
         {NullLong(talkoot), true, Currency::fromUnits(15).toVariant(), QStringLiteral("Talkoovuorot <OM.LKM:0> kpl")});
}

} // namespace esittely
