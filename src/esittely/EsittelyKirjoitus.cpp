// Writes the demonstration club built in memory into an upgraded database: prepared statements
// with bound values, all inside the caller's transaction.
#include "esittely/EsittelyKirjoitus.h"

#include <optional>

namespace esittely {

namespace {

// One prepared INSERT, run again for every row.
class Lisays {
public:
    Lisays(db::Database &db, const QString &taulu, const QStringList &kentat) : m_db(db)
    {
        QStringList merkit;
        for (qsizetype i = 0; i < kentat.size(); ++i)
            merkit << QStringLiteral("?");
        m_sql = QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                    .arg(taulu, kentat.join(QStringLiteral(", ")), merkit.join(QStringLiteral(", ")));
    }

    qint64 lisaa(const db::Params &arvot)
    {
        if (m_st)
            m_st->reset(arvot);
        else
            m_st.emplace(m_db, m_sql, arvot);
        m_st->next();
        return m_db.lastInsertId();
    }

private:
    db::Database &m_db;
    QString m_sql;
    std::optional<db::Statement> m_st;
};

// A text field that does not take an empty string gets Null for nothing.
QVariant teksti(const QString &s) { return s.isEmpty() ? QVariant() : QVariant(s); }
QVariant pvm(const QDate &d) { return d.isValid() ? QVariant(d) : QVariant(); }
QVariant raha(Currency c) { return c.toVariant(); }

void koodilista(db::Database &db, const QString &taulu, const QList<QStringList> &rivit)
{
    const bool maa = taulu == QLatin1String("Maa");
    const QString sql = maa ? QStringLiteral("INSERT INTO Maa (Maa_Koodi, Maa_Nimi, TulosteTeksti) "
                                             "SELECT ?, ?, ? WHERE NOT EXISTS (SELECT 1 FROM Maa WHERE Maa_Koodi = ?)")
                            : QStringLiteral("INSERT INTO %1 (%1_Koodi, %1_Nimi) "
                                             "SELECT ?, ? WHERE NOT EXISTS (SELECT 1 FROM %1 WHERE %1_Koodi = ?)").arg(taulu);
    for (const QStringList &r : rivit) {
        db::Params p{r[0], r[1]};
        if (maa)
            p << r[2];
        p << r[0];
        db.execute(sql, p);
    }
}

void koodilistat(db::Database &db)
{
    koodilista(db, QStringLiteral("Jasenlaji"), {
        {QStringLiteral("V"), QStringLiteral("Varsinainen jäsen")}, {QStringLiteral("N"), QStringLiteral("Nuorisojäsen")},
        {QStringLiteral("P"), QStringLiteral("Perhejäsen")}, {QStringLiteral("K"), QStringLiteral("Kannatusjäsen")},
        {QStringLiteral("KJ"), QStringLiteral("Kunniajäsen")}, {QStringLiteral("A"), QStringLiteral("Ainaisjäsen")},
    });
    koodilista(db, QStringLiteral("Jasenryhma"), {
        {QStringLiteral("HAL"), QStringLiteral("Hallitus")}, {QStringLiteral("JUN"), QStringLiteral("Juniorit")},
        {QStringLiteral("AIK"), QStringLiteral("Aikuiset")}, {QStringLiteral("SEN"), QStringLiteral("Seniorit")},
        {QStringLiteral("VAL"), QStringLiteral("Valmentajat")}, {QStringLiteral("TAL"), QStringLiteral("Talkooväki")},
    });
    koodilista(db, QStringLiteral("Maa"), {
        {QStringLiteral("FI"), QStringLiteral("Suomi"), QStringLiteral("FINLAND")},
        {QStringLiteral("SE"), QStringLiteral("Ruotsi"), QStringLiteral("SVERIGE")},
        {QStringLiteral("EE"), QStringLiteral("Viro"), QStringLiteral("ESTONIA")},
        {QStringLiteral("NO"), QStringLiteral("Norja"), QStringLiteral("NORGE")},
        {QStringLiteral("DE"), QStringLiteral("Saksa"), QStringLiteral("DEUTSCHLAND")},
    });
    const QString sql = QStringLiteral("INSERT INTO Postinumero (Postinumero, Postitoimipaikka) SELECT ?, ? "
                                       "WHERE NOT EXISTS (SELECT 1 FROM Postinumero WHERE Postinumero = ?)");
    static const char *const postinumerot[][2] = {
        {"04400", "JÄRVENPÄÄ"}, {"04410", "JÄRVENPÄÄ"}, {"04420", "JÄRVENPÄÄ"}, {"04430", "JÄRVENPÄÄ"},
        {"04440", "JÄRVENPÄÄ"}, {"04480", "HAARAJOKI"}, {"04300", "TUUSULA"},   {"04330", "LAHELA"},
        {"04200", "KERAVA"},    {"04500", "KELLOKOSKI"}, {"04600", "MÄNTSÄLÄ"}, {"05800", "HYVINKÄÄ"},
    };
    for (const auto &r : postinumerot)
        db.execute(sql, {QString::fromUtf8(r[0]), QString::fromUtf8(r[1]), QString::fromUtf8(r[0])});
}

void jasenet(db::Database &db, Seura &s)
{
    Lisays jr(db, QStringLiteral("jr"), {
        QStringLiteral("jrSukunimi"), QStringLiteral("jrEtunimi"), QStringLiteral("jrOsoite"), QStringLiteral("jrPostinumero"),
        QStringLiteral("jrPostitoimipaikka"), QStringLiteral("jrPuhelin"), QStringLiteral("jrMatkapuhelin"), QStringLiteral("jrEmail"),
        QStringLiteral("jrJasennumero"), QStringLiteral("jrJasenmaksu"), QStringLiteral("jrPerheenLaskutettava"),
        QStringLiteral("jrViitenumero"), QStringLiteral("jrTitteli"), QStringLiteral("jrSyntyma"), QStringLiteral("jrLiittyma"),
        QStringLiteral("jrMukaan"), QStringLiteral("jrMukaan2"), QStringLiteral("jrEmailLasku"), QStringLiteral("jrLisatieto1"),
        QStringLiteral("jrLisatieto2"), QStringLiteral("jrKotipaikka"), QStringLiteral("jrMuistio"), QStringLiteral("jrMaa"),
        QStringLiteral("jrYritys"), QStringLiteral("jrPostinumeroNumero"), QStringLiteral("jrKatu")});
    for (Jasen &j : s.jasenet) {
        j.jrID = jr.lisaa({
            j.sukunimi, j.etunimi, j.osoite, j.postinumero, j.toimipaikka, teksti(j.puhelin), teksti(j.matkapuhelin),
            teksti(j.email), j.jasennumero, j.jasenmaksu, j.perheenLaskutettava, teksti(j.viitenumero), teksti(j.titteli),
            pvm(j.syntyma), pvm(j.liittyma), false, false, j.emailLasku, teksti(j.lisatieto1), teksti(j.lisatieto2),
            j.kotipaikka, teksti(j.muistio), teksti(j.maa), teksti(j.yritys), j.postinumero.toLongLong(), j.katu});
    }

    Lisays perhe(db, QStringLiteral("jrPerhe"), {
        QStringLiteral("jrPMID"), QStringLiteral("jrPSubID"), QStringLiteral("jrPAik"), QStringLiteral("jrPNuor"),
        QStringLiteral("jrPLapsi"), QStringLiteral("jrPSis1"), QStringLiteral("jrPSis2"), QStringLiteral("jrPSis3"),
        QStringLiteral("jrPSis4"), QStringLiteral("jrPSis5")});
    for (const Perhe &p : s.perheet) {
        const qint64 paa = s.jasenet[std::size_t(p.paa)].jrID;
        for (const PerheRivi &r : p.rivit) {
            db::Params arvot{paa, s.jasenet[std::size_t(r.jasen)].jrID};
            for (bool l : r.luokat)
                arvot << l;
            perhe.lisaa(arvot);
        }
    }
}

void piirteet(db::Database &db, Seura &s)
{
    Lisays pi(db, QStringLiteral("pi"), {
        QStringLiteral("piNimi"), QStringLiteral("piKuvaus"), QStringLiteral("piEnbldCurrency"), QStringLiteral("piEnbldDate"),
        QStringLiteral("piEnbldLong"), QStringLiteral("piEnbldMemo"), QStringLiteral("piCurrency"), QStringLiteral("piDate"),
        QStringLiteral("piLong"), QStringLiteral("piMemo")});
    for (Piirre &p : s.piirteet)
        p.piID = pi.lisaa({p.nimi, p.kuvaus, p.raha, p.pvm, p.luku, p.muistio, p.oletusRaha, p.oletusPvm,
                           p.oletusLuku, p.oletusMuistio});

    Lisays pt(db, QStringLiteral("pt"), {
        QStringLiteral("ptjrID"), QStringLiteral("ptpiID"), QStringLiteral("ptValCurrency"), QStringLiteral("ptValDate"),
        QStringLiteral("ptValLong"), QStringLiteral("ptValMemo")});
    for (const Kiinnitys &k : s.kiinnitykset)
        pt.lisaa({s.jasenet[std::size_t(k.jasen)].jrID, s.piirteet[std::size_t(k.piirre)].piID, k.raha, k.pvm, k.luku, k.muistio});
}

// The next invoice identity: above every id the open invoices, their rows and the history hold.
qint64 seuraavaLaskuId(db::Database &db)
{
    const qint64 jarjestys = db.scalar(QStringLiteral("SELECT COALESCE(MAX(seq), 0) FROM sqlite_sequence WHERE name = 'jm'")).toLongLong();
    const qint64 rivit = db.scalar(QStringLiteral("SELECT COALESCE(MAX(jmRjmID), 0) FROM jmRivi")).toLongLong();
    const qint64 historia = db.scalar(QStringLiteral("SELECT COALESCE(MAX(jmhjmID), 0) FROM jmhist")).toLongLong();
    const qint64 avoimet = db.scalar(QStringLiteral("SELECT COALESCE(MAX(jmID), 0) FROM jm")).toLongLong();
    return std::max({jarjestys, rivit, historia, avoimet}) + 1;
}

void laskut(db::Database &db, Seura &s)
{
    // The template brings a few headings of its own; the same heading is not offered twice.
    for (const QString &o : s.otsakkeet)
        db.execute(QStringLiteral("INSERT INTO lt (ltNimi) SELECT ? WHERE NOT EXISTS "
                                  "(SELECT 1 FROM lt WHERE upper(ltNimi) = upper(?))"), {o, o});
    Lisays me(db, QStringLiteral("me"), {QStringLiteral("meTeksti")});
    std::vector<qint64> meID;
    for (const QString &v : s.viestit)
        meID.push_back(me.lisaa({v}));
    Lisays ml(db, QStringLiteral("ml"), {QStringLiteral("mlNumero"), QStringLiteral("mlNimi")});
    for (Myyntilaji &m : s.myyntilajit)
        m.mlID = ml.lisaa({teksti(m.numero), m.nimi});

    Lisays hist(db, QStringLiteral("jmhist"), {
        QStringLiteral("jmhjmID"), QStringLiteral("jmhjmjrID"), QStringLiteral("jmhjmmeID"), QStringLiteral("jmhjmLaskunumero"),
        QStringLiteral("jmhjmLaskupaiva"), QStringLiteral("jmhjmErapaiva"), QStringLiteral("jmhjmViitenumero"),
        QStringLiteral("jmhjmHinta"), QStringLiteral("jmhjmTeksti"), QStringLiteral("jmhjmOtsake"), QStringLiteral("jmhjmMaksettu"),
        QStringLiteral("jmhjmPerhe"), QStringLiteral("jmhjmOmin"), QStringLiteral("jmhjmEmailed"), QStringLiteral("jmhjmJasMak"),
        QStringLiteral("jmhjmEiLoppusummaa"), QStringLiteral("jmhMaksuPaiva"), QStringLiteral("jmhjmPankkitili1"),
        QStringLiteral("jmhjmKaytaPankkitili1"), QStringLiteral("jmhjmMuistutusOtsake"), QStringLiteral("jmhjmMuistutusPaiva"),
        QStringLiteral("jmhjmMuistutusNumero"), QStringLiteral("jmhjmMuistutusKulut"), QStringLiteral("jmhjmMuistutusKorko"),
        QStringLiteral("jmhjmMuistutusYhteensa"), QStringLiteral("jmhjmAvoinSumma"), QStringLiteral("jmhjmMuistutusKorkoSumma")});
    Lisays rivi(db, QStringLiteral("jmRivi"), {
        QStringLiteral("jmRjmID"), QStringLiteral("jmRPaiva"), QStringLiteral("jmRHinta"), QStringLiteral("jmRTeksti"),
        QStringLiteral("jmRMaksettu"), QStringLiteral("jmRjrID"), QStringLiteral("jmRmeId"), QStringLiteral("jmRmlID")});
    Lisays suoritus(db, QStringLiteral("Suoritukset"), {
        QStringLiteral("Paiva"), QStringLiteral("jmhID"), QStringLiteral("Summa"), QStringLiteral("Arkistointitunnus")});

    const QString tili2 = SeuranTili(2);
    qint64 jmID = seuraavaLaskuId(db);
    for (const Lasku &l : s.laskut) {
        const Era &e = s.erat[std::size_t(l.era)];
        const qint64 jrID = s.jasenet[std::size_t(l.maksaja)].jrID;
        const qint64 viesti = e.viesti >= 0 ? meID[std::size_t(e.viesti)] : 0;
        const Muistutus *m = l.muistutus ? &*l.muistutus : nullptr;
        const qint64 jmhID = hist.lisaa({
            jmID, jrID, viesti, l.numero, e.laskupaiva, e.erapaiva, l.viite, raha(l.hinta), e.teksti, e.otsake,
            l.maksettu, l.perhe, e.omin, l.emailed, e.jasenmaksu, false, pvm(l.maksuPaiva),
            e.vainTili2 ? QVariant(tili2) : QVariant(), e.vainTili2,
            m ? QVariant(m->otsake) : QVariant(), m ? QVariant(m->paiva) : QVariant(),
            m ? QVariant(m->numero) : QVariant(), m ? raha(m->kulut) : QVariant(), m ? QVariant(m->korko) : QVariant(),
            m ? raha(m->yhteensa) : QVariant(), m ? raha(m->avoin) : QVariant(), m ? raha(m->korkoSumma) : QVariant()});
        for (const Laskurivi &r : l.rivit) {
            const qint64 mlID = r.myyntilaji >= 0 ? s.myyntilajit[std::size_t(r.myyntilaji)].mlID : 0;
            rivi.lisaa({jmID, e.laskupaiva, r.hinta ? raha(*r.hinta) : QVariant(), r.teksti, l.maksettu, jrID, viesti, mlID});
        }
        for (const Suoritus &x : l.suoritukset)
            suoritus.lisaa({x.paiva, jmhID, raha(x.summa), x.arkistointitunnus});
        ++jmID;
    }
    // No open invoice exists; the next one must still come above every id in the history.
    db.raiseSequence(QStringLiteral("jm"), jmID - 1);
}

} // namespace

void KirjoitaSeura(db::Database &db, Seura &s)
{
    koodilistat(db);
    jasenet(db, s);
    piirteet(db, s);
    laskut(db, s);
}

} // namespace esittely
