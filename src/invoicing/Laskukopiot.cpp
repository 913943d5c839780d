#include "invoicing/Laskukopiot.h"

#include "core/Ilmoitukset.h"
#include "core/MainModule.h"
#include "platform/arvot.h"
#include "platform/database.h"
#include "platform/dialogs.h"

QString HistorianRaportti(const Laskumallivalinta &v)
{
    if (MainModule::LaskupohjaHKaytossa)
        return MainModule::LaskupohjaHTiedosto;
    const bool tilisiirto = v.malli == Laskumalli::Tilisiirto;
    if (v.kaksikielinen)
        return tilisiirto ? QStringLiteral("jrphti2e.rpt") : QStringLiteral("jrphmak2.rpt");
    return tilisiirto ? QStringLiteral("jrphtile.rpt") : QStringLiteral("jrphmak.rpt");
}

QString KopioKaava()
{
    return QStringLiteral("Kopio= 'KOPIO'");
}

namespace {

Tulostuspaikka paikka(const Tulostuskysymykset &k)
{
    return k.tulostusasetukset ? k.tulostusasetukset() : Tulostuspaikka::Asiakirja;
}

} // namespace

int TulostaLaskuUudestaan(const Ajo &, qint64 jmhID, const Tulostuskysymykset &k, const Laskujentulostajat &tulosta)
{
    if (jmhID <= 0) {
        Ilmoita(QStringLiteral("Hae tulostettava lasku viitenumerolla ennen tulostusta"));
        return 0;
    }
    Laskumallivalinta malli = MuistettuLaskumalli();
    if (!MainModule::LaskupohjaHKaytossa && k.laskumalli) {
        const auto valittu = k.laskumalli();
        if (!valittu)
            return 0;
        malli = *valittu;
    }
    if (paikka(k) == Tulostuspaikka::Peruttu)
        return 0;
    tulosta.henkilon(HistorianRaportti(malli), jmhID);
    return 1;
}

std::optional<Laskunumerovali> KysyMaksamattomienVali()
{
    if (!Kysy(QStringLiteral("Tulostetaanko kopiot maksamattomista laskuista?")))
        return std::nullopt;
    dlg::Dialogs &d = dlg::current();
    Laskunumerovali v;
    v.alku = d.input(QStringLiteral("Anna laskunumero, josta alkaen haluat laskukopiot tulostaa"), MainModule::AppName, QString(), false)
                 .value_or(QString());
    v.loppu = d.input(QStringLiteral("Anna laskunumero, johon haluat laskukopioden tulostuksen lopettaa"), MainModule::AppName,
                      QString(), false)
                  .value_or(QString());
    return v;
}

QVector<qint64> MaksamattomatValilta(db::Database &db, const Laskunumerovali &vali)
{
    QString sql = QStringLiteral("SELECT jmhID FROM jmhist WHERE jmhjmMaksettu = 0");
    db::Params arvot;
    for (const auto &[raja, ehto] : {std::pair{vali.alku, QStringLiteral(" AND jmhjmLaskunumero >= ?")},
                                     std::pair{vali.loppu, QStringLiteral(" AND jmhjmLaskunumero <= ?")}})
        if (!raja.isEmpty()) {
            sql += ehto;
            arvot << (OnNumeerinen(raja) ? QVariant(NumeroArvo(raja)) : QVariant(raja));
        }
    sql += QStringLiteral(" ORDER BY jmhjmLaskunumero, jmhID");
    QVector<qint64> laskut;
    db::Statement st(db, sql, arvot);
    while (st.next())
        laskut << NullLong(st.value(0));
    return laskut;
}

void TulostaHistoriasta(const Ajo &ajo, Tulostuspaikka minne, const QString &raportti, const QVector<qint64> &laskut,
                        const Laskujentulostajat &tulosta)
{
    if (minne == Tulostuspaikka::Asiakirja) {
        tulosta.eran(raportti, laskut);
        return;
    }
    int tauolta = 0;
    for (qsizetype i = 0; i < laskut.size(); ++i) {
        if (MainModule::TulostusEra >= 1 && tauolta >= MainModule::TulostusEra) {
            Ilmoita(QStringLiteral("Tulostusraja täynnä, klikkaa Ok, kun haluat jatkaa tulostusta."));
            tauolta = 0;
        }
        tulosta.henkilon(raportti, laskut[i]);
        ++tauolta;
        ajo.askel(i + 1, laskut.size());
    }
}

int TulostaLaskukopiot(const Ajo &ajo, const Tulostuskysymykset &k, const Laskujentulostajat &tulosta)
{
    const auto vali = KysyMaksamattomienVali();
    if (!vali)
        return 0;
    MuistettuLaskumalli() = Laskumallivalinta{Laskumalli::Tilisiirto, false};
    const Tulostuspaikka minne = paikka(k);
    if (minne == Tulostuspaikka::Peruttu)
        return 0;
    const QVector<qint64> laskut = MaksamattomatValilta(ajo.kanta, *vali);
    if (laskut.isEmpty()) {
        Ilmoita(QStringLiteral("Ei löydy maksamattomia laskuja väliltä: ") + vali->alku + QStringLiteral(" - ") + vali->loppu);
        return 0;
    }
    TulostaHistoriasta(ajo, minne, HistorianRaportti(MuistettuLaskumalli()), laskut, tulosta);
    return int(laskut.size());
}
