#include "invoicing/Laskujentulostus.h"

#include "core/Ilmoitukset.h"
#include "core/MainModule.h"
#include "platform/arvot.h"
#include "platform/database.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "reports/Raporttiajo.h"
#include "reports/Tulostus.h"

#include <QFileInfo>

Laskumallivalinta &MuistettuLaskumalli()
{
    static Laskumallivalinta valinta;
    return valinta;
}

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

int TulostaLaskut(const Ajo &ajo, const Laskujentulostus &t, const Tulostuskysymykset &k, const Laskujentulostajat &tulosta)
{
    db::Database &db = ajo.kanta;
    if (NullLong(db.scalar(QStringLiteral("SELECT COUNT(jmID) FROM jm"))) == 0) {
        Ilmoita(QStringLiteral("Laskuja ei ole vielä lisätty. Klikkaa Lisää painiketta luodaksesi laskut ennen tulostusta."));
        return 0;
    }
    Laskumallivalinta malli;
    if (!MainModule::LaskupohjaKaytossa && k.laskumalli) {
        const auto valittu = k.laskumalli();
        if (!valittu)
            return 0;
        malli = *valittu;
    }
    Tulostusjarjestys jarjestys = Tulostusjarjestys::Aakkostettu;
    if (t.henkilo <= 0 && !t.myyntilajeittain && k.jarjestys)
        jarjestys = k.jarjestys();
    const QString raportti = LaskunRaportti(malli);
    const Tulostuspaikka paikka = k.tulostusasetukset ? k.tulostusasetukset() : Tulostuspaikka::Asiakirja;
    if (paikka == Tulostuspaikka::Peruttu)
        return 0;

    if (t.henkilo > 0) {
        tulosta.henkilon(raportti, t.henkilo);
        return 1;
    }

    QString aloitus;
    if (t.jatkaNumerosta && !t.myyntilajeittain)
        aloitus = kysyAloitus().value_or(QString());
    QString sql = t.myyntilajeittain ? QStringLiteral("SELECT jm.jmID, jm.jmjrID, jm.jmLaskunumero FROM jm")
                                     : QStringLiteral("SELECT jm.jmID, jm.jmjrID, jm.jmLaskunumero FROM jm JOIN jr ON jm.jmjrID = jr.jrID");
    if (db.scalar(QStringLiteral("SELECT 1 FROM jm WHERE jmEmailed = 1 LIMIT 1")).isValid()
        && Kysy(QStringLiteral("Tulostetaanko vain ne laskut, joita ei lähetetty sähköpostitse?")))
        sql += QStringLiteral(" WHERE jm.jmEmailed = 0");
    sql += t.myyntilajeittain ? QStringLiteral(" ORDER BY jm.jmID") : jarjestysLause(jarjestys);

    QVector<qint64> laskut, jasenet;
    {
        db::Statement st(db, sql);
        bool aloitettu = aloitus.isEmpty();
        while (st.next()) {
            if (aloitettu) {
                laskut << NullLong(st.value(0));
                jasenet << NullLong(st.value(1));
            } else if (QString::number(NullLong(st.value(2))) == aloitus) {
                aloitettu = true; // printing goes on from the invoice after the last one printed
            }
        }
    }
    if (laskut.isEmpty())
        return 0;
    if (paikka == Tulostuspaikka::Asiakirja) {
        tulosta.eran(raportti, laskut);
        return int(laskut.size());
    }
    int tauolta = 0;
    for (qsizetype i = 0; i < jasenet.size(); ++i) {
        if (!t.myyntilajeittain && MainModule::TulostusEra >= 1 && tauolta >= MainModule::TulostusEra) {
            Ilmoita(QStringLiteral("Tulostusraja täynnä, klikkaa Ok, kun haluat jatkaa tulostusta."));
            tauolta = 0;
        }
        tulosta.henkilon(raportti, jasenet[i]);
        ++tauolta;
        ajo.askel(i + 1, jasenet.size());
    }
    return int(jasenet.size());
}

void ValmisteleLaskuraportti(Raporttiajo &r, const Ajo &ajo, const QString &raportti)
{
    r.ResetReportFormulas(ajo.kanta.path());
    r.ajo = &ajo;
    r.ReportFileName = QFileInfo(raportti).isAbsolute() ? raportti : files::joinPath(files::programFolder(), raportti);
    const QStringList kaavat = SeuranKaavat();
    for (qsizetype i = 0; i < kaavat.size() && i < qsizetype(std::size(r.Formulas)); ++i)
        r.Formulas[i] = kaavat[i];
}

namespace {

// The engine leaves the run's connection when the report is done, however it ends.
struct AjonAikana {
    Raporttiajo &r;
    ~AjonAikana() { r.ajo = nullptr; }
};

} // namespace

Laskujentulostajat LaskuraportinTulostajat(Raporttiajo &r, const Ajo &ajo, const std::function<void(Raporttiajo &)> &kohde,
                                          const QString &yksi, const QString &era, const QStringList &kaavat)
{
    const auto valmistele = [&r, &ajo, kohde, kaavat](const QString &raportti) {
        ValmisteleLaskuraportti(r, ajo, raportti);
        for (qsizetype i = 0, paikka = 0; i < kaavat.size(); ++i) {
            while (paikka < qsizetype(std::size(r.Formulas)) && !r.Formulas[paikka].isEmpty())
                ++paikka;
            if (paikka < qsizetype(std::size(r.Formulas)))
                r.Formulas[paikka] = kaavat[i];
        }
        kohde(r);
    };
    Laskujentulostajat t;
    t.henkilon = [&r, valmistele, yksi](const QString &raportti, qint64 id) {
        AjonAikana vahti{r};
        valmistele(raportti);
        r.SelectionFormula = yksi + QLatin1Char('=') + QString::number(id);
        r.setAction(1);
    };
    t.eran = [&r, valmistele, era](const QString &raportti, const QVector<qint64> &idt) {
        AjonAikana vahti{r};
        valmistele(raportti);
        r.Rajauskentta = era;
        r.Rajausavaimet = idt;
        r.setAction(1);
    };
    return t;
}
