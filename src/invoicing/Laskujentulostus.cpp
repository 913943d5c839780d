#include "invoicing/Laskujentulostus.h"

#include "core/Ilmoitukset.h"
#include "core/MainModule.h"
#include "platform/arvot.h"
#include "platform/database.h"
#include "platform/dialogs.h"

QString LaskunRaportti(const Laskumallivalinta &v)
{
    if (MainModule::LaskupohjaKaytossa)
        return MainModule::LaskupohjaTiedosto;
    const bool tilisiirto = v.malli == Laskumalli::Tilisiirto;
    if (v.kaksikielinen)
        return tilisiirto ? QStringLiteral("jrotile2.rpt") : QStringLiteral("jromak2.rpt");
    return tilisiirto ? QStringLiteral("jrotile.rpt") : QStringLiteral("jromak.rpt");
}

namespace {

QString jarjestysLause(Tulostusjarjestys j)
{
    switch (j) {
    case Tulostusjarjestys::Postinumero:
        return QStringLiteral(" ORDER BY jr.jrPostinumero COLLATE FI, jm.jmID");
    case Tulostusjarjestys::Syntymapaiva:
        return QStringLiteral(" ORDER BY jr.jrSyntyma, jm.jmID");
    case Tulostusjarjestys::Aakkostettu:
        break;
    }
    return QStringLiteral(" ORDER BY jr.jrSukunimi COLLATE FI, jr.jrEtunimi COLLATE FI, jm.jmID");
}

std::optional<QString> kysyAloitus()
{
    return dlg::current().input(QStringLiteral("Jos tulostus keskeytyi ja haluat jatkaa laskujen tulostusta,\n\n"
                                               "kirjoita viimeisen tulostuneen laskun laskunumero.\n\n"
                                               "Huom. Valitse sama tulostusjärjestys kuin edellisellä tulostuskerralla!\n\n"
                                               "Tulosta kaikki laskut jättämällä kenttä tyhjäksi."),
                                MainModule::AppName, QString(), false);
}

} // namespace

int TulostaLaskut(const Ajo &ajo, const Laskujentulostus &t, const Tulostuskysymykset &k, const LaskunTulostaja &tulosta)
{
    db::Database &db = ajo.kanta;
    if (NullLong(db.scalar(QStringLiteral("SELECT COUNT(jmID) FROM jm"))) == 0) {
        Ilmoita(QStringLiteral("Laskuja ei ole vielä lisätty. Klikkaa Lisää painiketta luodaksesi laskut ennen tulostusta."));
        return 0;
    }
    Laskumallivalinta malli;
    if (!MainModule::LaskupohjaKaytossa && k.laskumalli)
        malli = k.laskumalli();
    Tulostusjarjestys jarjestys = Tulostusjarjestys::Aakkostettu;
    if (t.henkilo <= 0 && k.jarjestys)
        jarjestys = k.jarjestys();
    const QString raportti = LaskunRaportti(malli);

    if (t.henkilo > 0) {
        if (k.tulostusasetukset && !k.tulostusasetukset())
            return 0;
        tulosta(raportti, t.henkilo);
        return 1;
    }

    if (k.tulostusasetukset && !k.tulostusasetukset())
        return 0;
    QString aloitus;
    if (t.jatkaNumerosta) {
        const auto vastaus = kysyAloitus();
        aloitus = vastaus.value_or(QString());
    }
    QString sql = QStringLiteral("SELECT jm.jmjrID, jm.jmLaskunumero FROM jm JOIN jr ON jm.jmjrID = jr.jrID");
    if (db.scalar(QStringLiteral("SELECT 1 FROM jm WHERE jmEmailed = 1 LIMIT 1")).isValid()
        && Kysy(QStringLiteral("Tulostetaanko vain ne laskut, joita ei lähetetty sähköpostitse?")))
        sql += QStringLiteral(" WHERE jm.jmEmailed = 0");
    sql += jarjestysLause(jarjestys);

    QVector<qint64> jasenet;
    {
        db::Statement st(db, sql);
        bool aloitettu = aloitus.isEmpty();
        while (st.next()) {
            if (aloitettu)
                jasenet << NullLong(st.value(0));
            else if (QString::number(NullLong(st.value(1))) == aloitus)
                aloitettu = true; // printing goes on from the invoice after the last one printed
        }
    }
    int tauolta = 0;
    for (qsizetype i = 0; i < jasenet.size(); ++i) {
        if (t.eraTauot && MainModule::TulostusEra >= 1 && tauolta >= MainModule::TulostusEra) {
            Ilmoita(QStringLiteral("Tulostusraja täynnä, klikkaa Ok, kun haluat jatkaa tulostusta."));
            tauolta = 0;
        }
        tulosta(raportti, jasenet[i]);
        ++tauolta;
        ajo.askel(i + 1, jasenet.size());
    }
    return int(jasenet.size());
}
