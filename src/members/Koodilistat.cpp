#include "members/Koodilistat.h"

#include "platform/arvot.h"
#include "platform/database.h"

namespace {

std::unique_ptr<db::Database> avaa(const QString &polku) { return db::Database::open(polku); }

} // namespace

cKoodirivi::cKoodirivi(const Taulu &taulu, QObject *parent) : QObject(parent), m_taulu(taulu)
{
    for (int i = 0; i < m_taulu.kentat.size(); ++i) {
        m_arvot << QString();
        m_luetut << QString();
    }
}

cKoodirivi::~cKoodirivi() = default;

QVariant cKoodirivi::Avain() const
{
    if (tekstiavain())
        return m_luetut.value(0);
    return m_id;
}

QString cKoodirivi::Teksti() const { return (kentta(0) + QLatin1Char(' ') + kentta(1)).trimmed(); }

void cKoodirivi::asetaKentta(int i, const QString &arvo)
{
    if (i < 0 || i >= m_arvot.size() || m_arvot[i] == arvo)
        return;
    m_arvot[i] = arvo;
    if (!m_muuttunut) {
        m_muuttunut = true;
        emit Changed();
    }
    if (i == m_taulu.nimiKentta)
        emit NameChanged();
}

void cKoodirivi::Tyhjenna()
{
    const bool nimiMuuttuu = m_arvot.value(m_taulu.nimiKentta) != m_luetut.value(m_taulu.nimiKentta);
    m_arvot = m_luetut;
    m_muuttunut = false;
    if (nimiMuuttuu)
        emit NameChanged();
}

void cKoodirivi::Uusi()
{
    QVector<QVariant> tyhja(m_arvot.size() + 1);
    lueRivilta(tyhja);
}

void cKoodirivi::lueRivilta(const QVector<QVariant> &rivi)
{
    const QString vanhaNimi = m_arvot.value(m_taulu.nimiKentta);
    m_id = NullLong(rivi.value(0));
    for (int i = 0; i < m_arvot.size(); ++i)
        m_arvot[i] = NullText(rivi.value(i + 1));
    m_luetut = m_arvot;
    m_muuttunut = false;
    if (m_arvot.value(m_taulu.nimiKentta) != vanhaNimi)
        emit NameChanged();
}

bool cKoodirivi::lueEnsimmainen(const QString &ehto, const QVariant &arvo, const QString &jarjestys)
{
    auto db = avaa(m_polku);
    QString sql = QStringLiteral("SELECT %1, %2 FROM %3").arg(m_taulu.id, m_taulu.kentat.join(QStringLiteral(", ")), m_taulu.nimi);
    db::Params p;
    if (!ehto.isEmpty()) {
        sql += QStringLiteral(" WHERE ") + ehto;
        if (arvo.isValid())
            p << arvo;
    }
    sql += QStringLiteral(" ORDER BY ") + jarjestys + QStringLiteral(" LIMIT 1");
    db::Statement st(*db, sql, p);
    if (!st.next())
        return false;
    QVector<QVariant> rivi;
    for (int i = 0; i < st.columnCount(); ++i)
        rivi << st.value(i);
    lueRivilta(rivi);
    return true;
}

bool cKoodirivi::lue(const QVariant &avain)
{
    return lueEnsimmainen(m_taulu.avain + QStringLiteral(" = ?"), avain, m_taulu.id);
}

bool cKoodirivi::GetFirst() { return lueEnsimmainen({}, {}, m_taulu.avain + QStringLiteral(", ") + m_taulu.id); }

bool cKoodirivi::GetPrevious()
{
    return lueEnsimmainen(m_taulu.avain + QStringLiteral(" < ?"), Avain(), m_taulu.avain + QStringLiteral(" DESC, ") + m_taulu.id);
}

bool cKoodirivi::GetNext()
{
    return lueEnsimmainen(m_taulu.avain + QStringLiteral(" > ?"), Avain(), m_taulu.avain + QStringLiteral(", ") + m_taulu.id);
}

bool cKoodirivi::GetLast()
{
    if (tekstiavain())
        return lueEnsimmainen(m_taulu.avain + QStringLiteral(" IS NOT NULL"), {}, m_taulu.avain + QStringLiteral(" DESC, ") + m_taulu.id);
    return lueEnsimmainen(m_taulu.avain + QStringLiteral(" > 0"), {}, m_taulu.avain + QStringLiteral(" DESC"));
}

QVariant cKoodirivi::tallennusarvo(int i) const
{
    // An empty text is stored as Null, as the fields allow no zero-length text.
    return m_arvot[i].isEmpty() ? QVariant() : QVariant(m_arvot[i]);
}

void cKoodirivi::tarkistaTallennus(db::Database &) {}

void cKoodirivi::Save()
{
    if (m_id == 0 && m_arvot.join(QString()).isEmpty())
        return;
    auto db = avaa(m_polku);
    tarkistaTallennus(*db);
    db::Params p;
    for (int i = 0; i < m_arvot.size(); ++i)
        p << tallennusarvo(i);
    int muutettu = 0;
    if (m_id != 0) {
        QStringList asetukset;
        for (const QString &k : m_taulu.kentat)
            asetukset << k + QStringLiteral(" = ?");
        muutettu = db->execute(QStringLiteral("UPDATE %1 SET %2 WHERE %3 = ?").arg(m_taulu.nimi, asetukset.join(QStringLiteral(", ")), m_taulu.id),
                               p + db::Params{m_id});
    }
    if (muutettu == 0) {
        QStringList paikat;
        for (int i = 0; i < m_taulu.kentat.size(); ++i)
            paikat << QStringLiteral("?");
        db->execute(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                        .arg(m_taulu.nimi, m_taulu.kentat.join(QStringLiteral(", ")), paikat.join(QStringLiteral(", "))),
                    p);
        m_id = db->lastInsertId();
    }
    m_luetut = m_arvot;
    m_muuttunut = false;
}

void cKoodirivi::Delete()
{
    auto db = avaa(m_polku);
    db->execute(QStringLiteral("DELETE FROM %1 WHERE %2 = ?").arg(m_taulu.nimi, m_taulu.avain), {Avain()});
}

QVector<KoodilistanRivi> cKoodirivi::Luettelo() const
{
    auto db = avaa(m_polku);
    db::Statement st(*db, QStringLiteral("SELECT %1, %2, %3 FROM %4 ORDER BY %5")
                              .arg(m_taulu.avain, m_taulu.kentat[0], m_taulu.kentat[1], m_taulu.nimi, m_taulu.jarjestys));
    QVector<KoodilistanRivi> rivit;
    while (st.next())
        rivit.append({st.value(0), (NullText(st.value(1)) + QLatin1Char(' ') + NullText(st.value(2))).trimmed()});
    return rivit;
}

cKoodi::cKoodi(const QString &taulu, const QStringList &lisakentat, QObject *parent)
    : cKoodirivi(Taulu{taulu, taulu + QStringLiteral("_ID"), taulu + QStringLiteral("_ID"),
                       QStringList{taulu + QStringLiteral("_Koodi"), taulu + QStringLiteral("_Nimi")} + lisakentat, 1,
                       QStringLiteral("%1_Koodi COLLATE FI, %1_Nimi COLLATE FI, %1_ID").arg(taulu)},
                 parent)
{
}

cJasenlaji::cJasenlaji(QObject *parent) : cKoodi(QStringLiteral("Jasenlaji"), {}, parent) {}

cJasenryhma::cJasenryhma(QObject *parent) : cKoodi(QStringLiteral("Jasenryhma"), {}, parent) {}

cMaa::cMaa(QObject *parent) : cKoodi(QStringLiteral("Maa"), {QStringLiteral("TulosteTeksti")}, parent) {}

cMyyntilaji::cMyyntilaji(QObject *parent)
    : cKoodirivi(Taulu{QStringLiteral("ml"), QStringLiteral("mlID"), QStringLiteral("mlID"),
                       {QStringLiteral("mlNumero"), QStringLiteral("mlNimi")}, 1, QStringLiteral("mlNimi COLLATE FI, mlID")},
                 parent)
{
}

cPostinumero::cPostinumero(QObject *parent)
    : cKoodirivi(Taulu{QStringLiteral("Postinumero"), QStringLiteral("Postinumero_ID"), QStringLiteral("Postinumero"),
                       {QStringLiteral("Postinumero"), QStringLiteral("Postitoimipaikka")}, 1,
                       QStringLiteral("Postinumero, Postinumero_ID")},
                 parent)
{
}

void cPostinumero::tarkistaTallennus(db::Database &db)
{
    // The code is the key the list and the look-ups go by: it must be there and be the only one.
    if (Postinumero().isEmpty())
        throw KoodilistaVirhe(QStringLiteral("Kirjoita postinumero."));
    const QVariant toinen = db.scalar(QStringLiteral("SELECT Postinumero_ID FROM Postinumero WHERE Postinumero = ? AND Postinumero_ID <> ?"),
                                      {Postinumero(), Id()});
    if (toinen.isValid())
        throw KoodilistaVirhe(QStringLiteral("Postinumero %1 on jo luettelossa.").arg(Postinumero()));
}
