#include "payments/Muistutukset.h"

#include "core/Ilmoitukset.h"
#include "core/MainModule.h"
#include "platform/arvot.h"
#include "platform/database.h"
#include "core/Postiasetukset.h"
#include "email/Sahkopostilaskut.h"
#include "invoicing/Laskukopiot.h"
#include "reports/Tulostus.h"

#include <limits>

Currency Viivastyskorko(Currency avoin, qint16 paivat, double korko)
{
    const Currency tulo = avoin * qint64(paivat);
    return Currency::fromDouble(tulo.toDouble() * korko / 100 / 365);
}

std::optional<qint16> Muistutuspaivat(const QDate &erapaiva, const QDate &tanaan)
{
    if (!erapaiva.isValid() || !tanaan.isValid())
        return std::nullopt;
    const qint64 paivia = erapaiva.daysTo(tanaan);
    if (paivia < std::numeric_limits<qint16>::min() || paivia > std::numeric_limits<qint16>::max())
        return std::nullopt;
    return qint16(paivia);
}

QString LaskeMuistutus(const Ajo &ajo, qint64 jmhID)
{
    db::Database &db = ajo.kanta;
    const Currency maksettu = NullCurrency(db.scalar(QStringLiteral("SELECT SUM(Summa) FROM Suoritukset WHERE jmhID = ?"), {jmhID}));
    db::Statement st(db, QStringLiteral("SELECT jmhjmHinta, jmhjmMuistutusNumero, jmhjmErapaiva, jmhjmLaskunumero FROM jmhist WHERE jmhID = ?"),
                     {jmhID});
    if (!st.next())
        return {};
    const Currency avoin = NullCurrency(st.value(0)) - maksettu;
    const QDate tanaan = ajo.tanaan;
    const auto paivat = Muistutuspaivat(NullDate(st.value(2)), tanaan);
    if (!paivat)
        return st.value(2).isNull() ? QStringLiteral("Laskulla %1 ei ole eräpäivää: muistutusta ei laskettu.").arg(NullLong(st.value(3)))
                                    : QStringLiteral("Laskun %1 eräpäivästä on yli 32767 päivää: muistutusta ei laskettu.")
                                          .arg(NullLong(st.value(3)));
    const Currency kulut = MainModule::Muistutuskulut;
    const Currency korko = Viivastyskorko(avoin, *paivat, MainModule::Viivastyskorko);
    db.execute(QStringLiteral("UPDATE jmhist SET jmhjmAvoinSumma = ?, jmhjmMuistutusKulut = ?, jmhjmMuistutusKorko = ?,"
                              " jmhjmMuistutusOtsake = ?, jmhjmMuistutusPaiva = ?, jmhjmMuistutusNumero = ?,"
                              " jmhjmMuistutusKorkoSumma = ?, jmhjmMuistutusYhteensa = ? WHERE jmhID = ?"),
               {avoin.raw(), kulut.raw(), MainModule::Viivastyskorko, MainModule::MuistutusOtsake, DbPaiva(tanaan),
                NullLong(st.value(1)) + 1, korko.raw(), (avoin + kulut + korko).raw(), jmhID});
    return {};
}

QStringList MuistutusKaavat()
{
    return {KaavaTeksti(QStringLiteral("MuistutusAlku"), MainModule::MuistutusAlku),
            KaavaTeksti(QStringLiteral("MuistutusLoppu"), MainModule::MuistutusLoppu)};
}

int TulostaMuistutukset(const Ajo &ajo, const Tulostuskysymykset &k, const Laskujentulostajat &tulosta)
{
    const auto vali = KysyMaksamattomienVali();
    if (!vali)
        return 0;
    MuistettuLaskumalli() = Laskumallivalinta{Laskumalli::Tilisiirto, false};
    const Tulostuspaikka minne = k.tulostusasetukset ? k.tulostusasetukset() : Tulostuspaikka::Asiakirja;
    if (minne == Tulostuspaikka::Peruttu)
        return 0;
    // Every reminder of the range is computed before the first is printed: a failed print still
    // counts as a reminder.
    QVector<qint64> laskut = MaksamattomatValilta(ajo.kanta, *vali);
    QStringList eiLaskettu;
    {
        db::Transaction tx(ajo.kanta);
        for (qsizetype i = 0; i < laskut.size(); ++i) {
            const QString viesti = LaskeMuistutus(ajo, laskut[i]);
            if (!viesti.isEmpty())
                eiLaskettu << viesti;
            ajo.askel(i + 1, laskut.size());
        }
        tx.commit();
    }
    if (!eiLaskettu.isEmpty())
        Ilmoita(eiLaskettu.join(QLatin1Char('\n')));
    laskut = MaksamattomatValilta(ajo.kanta, *vali);
    if (laskut.isEmpty()) {
        Ilmoita(QStringLiteral("Ei löydy maksamattomia laskuja väliltä: ") + vali->alku + QStringLiteral(" - ") + vali->loppu);
        return 0;
    }
    TulostaHistoriasta(ajo, minne, QStringLiteral("jrphkarh.rpt"), laskut, tulosta);
    return int(laskut.size());
}

QString LahetaMuistutus(db::Database &db, qint64 jmhID)
{
    if (jmhID <= 0)
        return QStringLiteral("Hae tulostettava lasku viitenumerolla ennen tulostusta");
    const Sahkopostiteksti t = MuistutuksenTeksti(db, jmhID, false);
    if (!t.onnistui())
        return t.viesti;
    mail::Message m;
    m.from = Lahettaja();
    m.to = {mail::Address{t.nimi, t.email}};
    m.subject = t.otsake;
    m.body = t.teksti;
    const mail::SendReport r = mail::openSender(Lahetysasetukset())->send(m);
    if (r.allSent())
        return QStringLiteral("Muistutus lähetetty.");
    QString syy = r.error;
    for (const mail::RecipientResult &v : r.recipients)
        if (!v.sent && !v.reason.isEmpty())
            syy = v.reason;
    return QStringLiteral("Muistutuksen lähetys epäonnistui.") + (syy.isEmpty() ? QString() : QLatin1Char('\n') + syy);
}
