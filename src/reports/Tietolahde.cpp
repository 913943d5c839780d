#include "reports/Tietolahde.h"

#include "platform/database.h"
#include "reports/RaporttiVirhe.h"

Arvo KentanArvo(const QVariant &v, KenttaLaji laji)
{
    if (!v.isValid() || v.isNull())
        return {};
    switch (laji) {
    case KenttaLaji::Boolean:
        return v.toLongLong() != 0;
    case KenttaLaji::Currency:
        return Currency::fromRaw(v.toLongLong());
    case KenttaLaji::Date: {
        const QDate d = QDate::fromString(v.toString().left(10), Qt::ISODate);
        return d.isValid() ? Arvo(d) : Arvo();
    }
    case KenttaLaji::Double:
        return v.toDouble();
    case KenttaLaji::Text:
    case KenttaLaji::Memo:
        return v.toString();
    default:
        return qint64(v.toLongLong());
    }
}

KenttaLaji LajiTyypista(const QString &tyyppi)
{
    const QString t = tyyppi.toUpper();
    if (t.contains(QLatin1String("CURRENCY")))
        return KenttaLaji::Currency;
    if (t.contains(QLatin1String("BOOL")))
        return KenttaLaji::Boolean;
    if (t.contains(QLatin1String("DATE")))
        return KenttaLaji::Date;
    if (t.contains(QLatin1String("DOUB")) || t.contains(QLatin1String("REAL")) || t.contains(QLatin1String("FLOA")))
        return KenttaLaji::Double;
    if (t.contains(QLatin1String("INT")))
        return KenttaLaji::Long;
    return KenttaLaji::Text;
}

Tietolahde::Tietolahde(db::Database &db, const Maaritys &m, const Kaavat &kaavat)
    : m_db(db), m_m(m), m_kaavat(kaavat)
{
    m_taulut.insert(m.paatauluNimi.toLower(), m.paataulu);
    for (const Liitos &l : m.liitokset) {
        if (m_taulut.contains(l.nimi.toLower()))
            throw RaporttiVirhe(QStringLiteral("Raportin määrittely %1: taulun nimi %2 on käytössä kahdesti; anna liitokselle oma nimi.")
                                    .arg(m.tiedosto, l.nimi));
        m_taulut.insert(l.nimi.toLower(), l.taulu);
    }
}

const Tietolahde::TaulunTiedot &Tietolahde::tiedot(const QString &nimi, const QString &missa)
{
    const QString avain = nimi.toLower();
    const auto loytyi = m_tiedot.constFind(avain);
    if (loytyi != m_tiedot.constEnd())
        return *loytyi;
    const auto taulu = m_taulut.constFind(avain);
    if (taulu == m_taulut.constEnd())
        throw RaporttiVirhe(QStringLiteral("%1: taulu %2 ei kuulu raportin tietoihin (%3).")
                                .arg(missa, nimi, QStringList(m_taulut.keys()).join(QStringLiteral(", "))));
    TaulunTiedot t;
    for (const QString &oikea : m_db.tableNames() + m_db.viewNames())
        if (oikea.compare(*taulu, Qt::CaseInsensitive) == 0)
            t.taulu = oikea;
    if (t.taulu.isEmpty())
        throw RaporttiVirhe(QStringLiteral("%1: tietokannassa ei ole taulua %2.").arg(missa, *taulu));
    for (const db::ColumnInfo &c : m_db.columns(t.taulu)) {
        KenttaLaji laji = LajiTyypista(c.declaredType);
        if (const SchemaField *f = Schema::kentta(t.taulu, c.name); f && c.declaredType.isEmpty())
            laji = f->laji;
        t.kentat.insert(c.name.toLower(), {c.name, laji});
    }
    return *m_tiedot.insert(avain, t);
}

Tietolahde::Sarake Tietolahde::sarake(const Solmu &kentta, const QString &missa)
{
    const TaulunTiedot &t = tiedot(kentta.taulu, missa);
    const auto k = t.kentat.constFind(kentta.kentta.toLower());
    if (k == t.kentat.constEnd())
        throw RaporttiVirhe(QStringLiteral("%1: kenttää {%2.%3} ei ole taulussa %4.")
                                .arg(missa, kentta.taulu, kentta.kentta, t.taulu));
    m_kaytetyt.insert(kentta.taulu.toLower());
    // The name the formulas use is the SQL alias of the table.
    return {db::quoteIdent(kentta.taulu.toLower()) + QLatin1Char('.') + db::quoteIdent(k->first), k->second};
}

void Tietolahde::sido(Solmu &puu, const QString &missa)
{
    std::vector<Solmu *> kentat;
    QStringList kaavat;
    KeraaViittaukset(puu, kentat, kaavat);
    for (Solmu *k : kentat) {
        const QString avain = (k->taulu + QLatin1Char('.') + k->kentta).toLower();
        auto it = m_sarakkeet.constFind(avain);
        if (it == m_sarakkeet.constEnd()) {
            m_haettavat << sarake(*k, missa);
            it = m_sarakkeet.insert(avain, int(m_haettavat.size()) - 1);
        }
        k->sarake = *it;
    }
}

QString Tietolahde::kentanSql(const Solmu &kentta, KenttaLaji *laji)
{
    const Sarake s = sarake(kentta, m_missa.isEmpty() ? QStringLiteral("Raportin määrittely %1").arg(m_m.tiedosto) : m_missa);
    if (laji)
        *laji = s.laji;
    return s.sql;
}

const Solmu &Tietolahde::kaava(const QString &nimi)
{
    const auto it = m_kaavat.constFind(nimi.toLower());
    if (it == m_kaavat.constEnd())
        throw RaporttiVirhe(QStringLiteral("Kaavaa {@%1} ei ole raportissa %2.").arg(nimi, m_m.tiedosto));
    return **it;
}

QString Tietolahde::liitokset(db::Params &arvot)
{
    // A link is needed when something refers to it, or when a needed link's condition does.
    std::vector<SqlEhto> ehdot(m_m.liitokset.size());
    std::vector<bool> mukana(m_m.liitokset.size(), false);
    for (bool muuttui = true; muuttui;) {
        muuttui = false;
        for (size_t i = 0; i < m_m.liitokset.size(); ++i) {
            const Liitos &l = m_m.liitokset[i];
            if (mukana[i] || !m_kaytetyt.contains(l.nimi.toLower()))
                continue;
            mukana[i] = true;
            muuttui = true;
            if (l.ehto) {
                m_missa = QStringLiteral("Raportin määrittely %1, liitos %2").arg(m_m.tiedosto, l.nimi);
                ehdot[i] = KaannaEhdoksi(*l.ehto, *this, m_missa);
                m_missa.clear();
            }
        }
    }
    QString sql;
    QSet<QString> edella = {m_m.paatauluNimi.toLower()};
    for (size_t i = 0; i < m_m.liitokset.size(); ++i) {
        const Liitos &l = m_m.liitokset[i];
        if (!mukana[i])
            continue;
        edella.insert(l.nimi.toLower());
        if (l.ehto) {
            std::vector<Solmu *> kentat;
            QStringList kaavat;
            KeraaViittaukset(*l.ehto, kentat, kaavat);
            for (const Solmu *k : kentat)
                if (!edella.contains(k->taulu.toLower()))
                    throw RaporttiVirhe(QStringLiteral("Raportin määrittely %1, liitos %2: ehto viittaa tauluun %3, joka liitetään vasta myöhemmin.")
                                            .arg(m_m.tiedosto, l.nimi, k->taulu));
        }
        const QString taulu = m_tiedot.value(l.nimi.toLower()).taulu;
        sql += l.ehto ? (l.sisa ? QStringLiteral(" JOIN ") : QStringLiteral(" LEFT JOIN ")) : QStringLiteral(" CROSS JOIN ");
        sql += db::quoteIdent(taulu) + QStringLiteral(" AS ") + db::quoteIdent(l.nimi.toLower());
        if (l.ehto) {
            sql += QStringLiteral(" ON ") + ehdot[i].sql;
            arvot += ehdot[i].arvot;
        }
    }
    return sql;
}

void Tietolahde::rajaaAvaimiin(const QString &kentta, const QVector<qint64> &avaimet)
{
    const QString missa = QStringLiteral("Raportin %1 rajaus").arg(m_m.tiedosto);
    const SolmuPtr puu = JasennaKaava(kentta, missa);
    if (puu->laji != Solmu::Laji::Kentta)
        throw RaporttiVirhe(QStringLiteral("%1: %2 ei ole kenttä.").arg(missa, kentta));
    m_avainSql = sarake(*puu, missa).sql;
    try {
        m_db.execute(QStringLiteral("CREATE TEMP TABLE IF NOT EXISTS vonari_avaimet (nro INTEGER PRIMARY KEY, avain INTEGER NOT NULL)"));
        m_db.execute(QStringLiteral("DELETE FROM temp.vonari_avaimet"));
        db::Statement lisays(m_db, QStringLiteral("INSERT INTO temp.vonari_avaimet (nro, avain) VALUES (?, ?)"), {qint64(0), qint64(0)});
        for (qsizetype i = 0; i < avaimet.size(); ++i) {
            lisays.reset({qint64(i), avaimet[i]});
            lisays.next();
        }
    } catch (const db::DbError &e) {
        throw RaporttiVirhe(QStringLiteral("%1 epäonnistui: %2").arg(missa, e.message()));
    }
}

void Tietolahde::kokoa(const SqlEhto &valinta, const QStringList &jarjestys, const db::Params &jarjestysArvot, db::Params &arvot)
{
    const TaulunTiedot &paa = tiedot(m_m.paatauluNimi, QStringLiteral("Raportin määrittely %1").arg(m_m.tiedosto));
    QStringList sarakkeet;
    for (const Sarake &s : m_haettavat)
        sarakkeet << s.sql;
    if (sarakkeet.isEmpty())
        sarakkeet << QStringLiteral("1");
    // The tables of every field are known only now that all have been bound; the link
    // conditions may add more.
    QString liitos = liitokset(arvot);
    if (!m_avainSql.isEmpty())
        liitos += QStringLiteral(" JOIN temp.vonari_avaimet AS vonari_avaimet ON vonari_avaimet.avain = ") + m_avainSql;
    m_sql = QStringLiteral("SELECT ") + sarakkeet.join(QStringLiteral(", ")) + QStringLiteral(" FROM ") + db::quoteIdent(paa.taulu)
            + QStringLiteral(" AS ") + db::quoteIdent(m_m.paatauluNimi.toLower()) + liitos;
    if (!valinta.sql.isEmpty()) {
        m_sql += QStringLiteral(" WHERE ") + valinta.sql;
        arvot += valinta.arvot;
    }
    QStringList jarj = jarjestys;
    if (!m_avainSql.isEmpty())
        jarj.prepend(QStringLiteral("vonari_avaimet.nro"));
    // Equal keys keep the order of the main table's key, so a report comes out the same every time.
    const QString avain = m_db.primaryKeyColumn(paa.taulu);
    if (!avain.isEmpty())
        jarj << db::quoteIdent(m_m.paatauluNimi.toLower()) + QLatin1Char('.') + db::quoteIdent(avain);
    if (!jarj.isEmpty())
        m_sql += QStringLiteral(" ORDER BY ") + jarj.join(QStringLiteral(", "));
    arvot += jarjestysArvot;
}

Rivisto Tietolahde::hae(const SqlEhto &valinta, const QStringList &jarjestys, const db::Params &jarjestysArvot)
{
    db::Params arvot;
    kokoa(valinta, jarjestys, jarjestysArvot, arvot);
    Rivisto r;
    r.leveys = int(m_haettavat.size());
    try {
        db::Statement st(m_db, m_sql, arvot);
        while (st.next()) {
            for (int i = 0; i < r.leveys; ++i)
                r.solut.push_back(KentanArvo(st.value(i), m_haettavat[i].laji));
            ++r.riveja;
        }
    } catch (const db::DbError &e) {
        throw RaporttiVirhe(QStringLiteral("Raportin %1 tietojen haku epäonnistui: %2").arg(m_m.tiedosto, e.message()));
    }
    return r;
}

namespace {

class Rivivirta : public Rivilahde {
public:
    Rivivirta(db::Database &db, const QString &sql, const db::Params &arvot, std::vector<KenttaLaji> lajit, const Solmu &ryhma,
              const Kaavat &kaavat, const QString &tiedosto)
        : m_lajit(std::move(lajit)), m_ryhma(ryhma), m_tiedosto(tiedosto), m_arvot(arvot)
    {
        try {
            m_riveja = db.scalar(QStringLiteral("SELECT count(*) FROM (") + sql + QLatin1Char(')'), arvot).toInt();
            m_st.emplace(db, sql, arvot);
        } catch (const db::DbError &e) {
            virhe(e);
        }
        m_pala.leveys = int(m_lajit.size());
        m_arv.rivit = &m_pala;
        m_arv.kaavat = &kaavat;
    }

    int riveja() const override { return m_riveja; }
    bool lopussa() const override { return m_loppu; }

    void alusta() override
    {
        if (m_aloitettu) {
            try {
                m_st->reset(m_arvot);
            } catch (const db::DbError &e) {
                virhe(e);
            }
        }
        m_aloitettu = m_odottaa = m_loppu = false;
    }

    const Rivisto *seuraava() override
    {
        if (!m_aloitettu) {
            m_aloitettu = true;
            m_pala.solut.clear();
            m_pala.riveja = 0;
            m_odottaa = lue();
            if (m_odottaa)
                m_odottavanArvo = ryhmanArvo(0);
        }
        if (!m_odottaa) {
            m_loppu = true;
            return nullptr;
        }
        // The row read ahead begins the group; rows join it while the group's value stays.
        if (m_pala.riveja > 0) {
            m_pala.solut.erase(m_pala.solut.begin(), m_pala.solut.end() - m_pala.leveys);
            m_pala.riveja = 1;
        }
        const Arvo arvo = m_odottavanArvo;
        m_odottaa = false;
        while (lue()) {
            Arvo uusi = ryhmanArvo(m_pala.riveja - 1);
            const bool sama = onTyhja(uusi) ? onTyhja(arvo) : VertaaArvoja(uusi, arvo) == 0;
            if (!sama) {
                m_odottaa = true;
                m_odottavanArvo = std::move(uusi);
                --m_pala.riveja; // held back for the next group; its cells stay at the end
                break;
            }
        }
        m_loppu = !m_odottaa;
        return &m_pala;
    }

private:
    [[noreturn]] void virhe(const db::DbError &e) const
    {
        throw RaporttiVirhe(QStringLiteral("Raportin %1 tietojen haku epäonnistui: %2").arg(m_tiedosto, e.message()));
    }

    // Appends the next row of the statement to the rows at hand.
    bool lue()
    {
        try {
            if (!m_st->next())
                return false;
            for (int i = 0; i < m_pala.leveys; ++i)
                m_pala.solut.push_back(KentanArvo(m_st->value(i), m_lajit[size_t(i)]));
        } catch (const db::DbError &e) {
            virhe(e);
        }
        ++m_pala.riveja;
        return true;
    }

    Arvo ryhmanArvo(int rivi)
    {
        Arviointi a = m_arv;
        a.rivi = rivi;
        return Arvioi(m_ryhma, a);
    }

    std::vector<KenttaLaji> m_lajit;
    const Solmu &m_ryhma;
    QString m_tiedosto;
    db::Params m_arvot;
    std::optional<db::Statement> m_st;
    int m_riveja = 0;
    Rivisto m_pala;
    Arviointi m_arv;
    Arvo m_odottavanArvo;
    bool m_aloitettu = false, m_odottaa = false, m_loppu = false;
};

} // namespace

std::unique_ptr<Rivilahde> Tietolahde::virta(const SqlEhto &valinta, const QStringList &jarjestys, const db::Params &jarjestysArvot,
                                             const Solmu &ryhma)
{
    db::Params arvot;
    kokoa(valinta, jarjestys, jarjestysArvot, arvot);
    std::vector<KenttaLaji> lajit;
    for (const Sarake &s : m_haettavat)
        lajit.push_back(s.laji);
    return std::make_unique<Rivivirta>(m_db, m_sql, arvot, std::move(lajit), ryhma, m_kaavat, m_m.tiedosto);
}
