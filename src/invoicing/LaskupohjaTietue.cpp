#include "invoicing/LaskupohjaTietue.h"

#include "core/Ilmoitukset.h"
#include "platform/arvot.h"
#include "platform/database.h"

#include <QStringList>
#include <cmath>
#include <limits>

namespace laskupohja {

Kanta::Kanta(const QString &polku, db::Database *lainattu) : m_db(lainattu)
{
    if (!m_db) {
        m_oma = db::Database::open(polku);
        m_db = m_oma.get();
    }
}

Kanta::~Kanta() = default;

QString Katkaistu(const QString &teksti, int raja)
{
    if (raja <= 0 || teksti.size() <= raja)
        return teksti;
    int merkkeja = 0;
    for (int i = 0; i < teksti.size(); ++i) {
        if (merkkeja == raja)
            return teksti.left(i);
        if (teksti.at(i).isHighSurrogate() && i + 1 < teksti.size() && teksti.at(i + 1).isLowSurrogate())
            ++i;
        ++merkkeja;
    }
    return teksti;
}

} // namespace laskupohja

using laskupohja::Laji;

namespace {

QVariant tyhjaArvo(Laji laji)
{
    switch (laji) {
    case Laji::Teksti:
    case Laji::Muistio: return QString();
    case Laji::Totuus: return false;
    case Laji::Liukuluku: return 0.0;
    case Laji::Tunniste:
    case Laji::Long:
    case Laji::Integer:
    case Laji::Raha: return qlonglong(0);
    }
    return {};
}

qint64 rajattu(qint64 arvo, qint64 pienin, qint64 suurin) { return std::clamp(arvo, pienin, suurin); }

// The value in the form the object keeps it, inside the column's range.
QVariant muotoon(const laskupohja::Kentta &k, const QVariant &arvo)
{
    switch (k.laji) {
    case Laji::Teksti: return laskupohja::Katkaistu(arvo.toString(), k.raja);
    case Laji::Muistio: return arvo.toString();
    case Laji::Totuus: return arvo.toBool();
    case Laji::Liukuluku: {
        const double d = arvo.toDouble();
        return std::isfinite(d) ? d : 0.0;
    }
    case Laji::Integer: return qlonglong(rajattu(arvo.toLongLong(), -32768, 32767));
    case Laji::Long:
    case Laji::Tunniste:
        return qlonglong(rajattu(arvo.toLongLong(), std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()));
    case Laji::Raha: return arvo.toLongLong();
    }
    return arvo;
}

QVariant luettu(Laji laji, const QVariant &v)
{
    switch (laji) {
    case Laji::Teksti:
    case Laji::Muistio: return NullText(v);
    case Laji::Totuus: return NullBoolean(v);
    case Laji::Raha: return qlonglong(NullCurrency(v).raw());
    case Laji::Liukuluku: return v.isNull() || !v.isValid() ? 0.0 : v.toDouble();
    case Laji::Tunniste:
    case Laji::Long:
    case Laji::Integer: return qlonglong(NullLong(v));
    }
    return {};
}

} // namespace

cLaskupohjaTietue::cLaskupohjaTietue(const laskupohja::Taulu &taulu, QObject *parent) : QObject(parent), m_taulu(taulu)
{
    for (const auto &k : m_taulu.kentat)
        m_arvot << tyhjaArvo(k.laji);
    m_kopio = m_arvot;
}

cLaskupohjaTietue::~cLaskupohjaTietue() = default;

void cLaskupohjaTietue::aseta(int i, const QVariant &arvo)
{
    const QVariant uusi = muotoon(m_taulu.kentat.at(size_t(i)), arvo);
    if (m_arvot.at(i) == uusi)
        return;
    m_arvot[i] = uusi;
    asetaMuuttunut(true);
    emit FieldChanged(QString::fromLatin1(m_taulu.kentat.at(size_t(i)).nimi));
}

void cLaskupohjaTietue::alkuarvo(int i, const QVariant &arvo) { m_arvot[i] = muotoon(m_taulu.kentat.at(size_t(i)), arvo); }

void cLaskupohjaTietue::otaKopio()
{
    m_kopio = m_arvot;
    m_muuttunut = false;
}

void cLaskupohjaTietue::asetaMuuttunut(bool muuttunut)
{
    const bool alkoi = muuttunut && !m_muuttunut;
    m_muuttunut = muuttunut;
    if (alkoi)
        emit Changed();
}

void cLaskupohjaTietue::tyhjenna()
{
    for (size_t i = 0; i < m_taulu.kentat.size(); ++i)
        m_arvot[int(i)] = tyhjaArvo(m_taulu.kentat[i].laji);
    uudenArvot();
    m_kopio = m_arvot;
    m_muuttunut = false;
    m_tyhja = true;
}

void cLaskupohjaTietue::Uusi()
{
    const QVector<QVariant> vanhat = m_arvot;
    tyhjenna();
    for (int i = 0; i < m_arvot.size(); ++i)
        if (vanhat.at(i) != m_arvot.at(i))
            emit FieldChanged(QString::fromLatin1(m_taulu.kentat.at(size_t(i)).nimi));
}

void cLaskupohjaTietue::lueLauseesta(const db::Statement &st)
{
    for (size_t i = 0; i < m_taulu.kentat.size(); ++i) {
        const auto &k = m_taulu.kentat[i];
        m_arvot[int(i)] = muotoon(k, luettu(k.laji, st.value(QString::fromLatin1(k.nimi))));
    }
    m_kopio = m_arvot;
    m_muuttunut = false;
    m_tyhja = false;
}

bool cLaskupohjaTietue::lueEnsimmainen(const QString &sql, const QVector<QVariant> &arvot)
{
    luovu();
    auto d = kanta();
    db::Statement st(*d, sql, arvot);
    if (!st.next()) {
        tyhjenna();
        return false;
    }
    lueLauseesta(st);
    return true;
}

bool cLaskupohjaTietue::ReadById(qint64 id)
{
    return lueEnsimmainen(QStringLiteral("SELECT * FROM %1 WHERE %2 = ?").arg(QLatin1String(m_taulu.nimi),
                                                                             QLatin1String(m_taulu.kentat.front().nimi)),
                          {qlonglong(id)});
}

void cLaskupohjaTietue::luovu()
{
    if (m_muuttunut)
        Save();
}

QVariant cLaskupohjaTietue::tallennusarvo(int i) const
{
    const QVariant &v = m_arvot.at(i);
    switch (m_taulu.kentat.at(size_t(i)).laji) {
    case Laji::Teksti:
    case Laji::Muistio:
        // No zero-length texts in the table: an empty text is Null.
        return v.toString().isEmpty() ? QVariant() : v;
    default:
        return v;
    }
}

void cLaskupohjaTietue::kirjoita(db::Database &d)
{
    const QString taulu = QLatin1String(m_taulu.nimi);
    const QString avain = QLatin1String(m_taulu.kentat.front().nimi);
    QStringList sarakkeet, asetukset, paikat;
    db::Params arvot;
    for (size_t i = 1; i < m_taulu.kentat.size(); ++i) {
        const QString s = QLatin1String(m_taulu.kentat[i].nimi);
        sarakkeet << s;
        asetukset << s + QStringLiteral(" = ?");
        paikat << QStringLiteral("?");
        arvot << tallennusarvo(int(i));
    }
    qint64 id = ID();
    int muutettu = 0;
    if (id != 0)
        muutettu = d.execute(QStringLiteral("UPDATE %1 SET %2 WHERE %3 = ?").arg(taulu, asetukset.join(QStringLiteral(", ")), avain),
                             arvot + db::Params{qlonglong(id)});
    if (muutettu == 0) {
        // A new row takes the next number; a row deleted meanwhile comes back under its own.
        if (id == 0)
            id = d.reserveId(taulu);
        d.execute(QStringLiteral("INSERT INTO %1 (%2, %3) VALUES (?, %4)")
                      .arg(taulu, avain, sarakkeet.join(QStringLiteral(", ")), paikat.join(QStringLiteral(", "))),
                  db::Params{qlonglong(id)} + arvot);
        m_arvot[0] = qlonglong(id);
    }
}

void cLaskupohjaTietue::Save(bool pakota)
{
    if (!voiTallentaa() || (!pakota && !m_muuttunut))
        return;
    auto d = kanta();
    tallennaYhteydella(*d);
}

void cLaskupohjaTietue::tallennaYhteydella(db::Database &d)
{
    const Tila ennen = tila();
    try {
        db::Transaction t(d);
        kirjoita(d);
        tallennettu(d);
        t.commit();
    } catch (...) {
        palauta(ennen);
        throw;
    }
    m_kopio = m_arvot;
    m_muuttunut = false;
    m_tyhja = false;
}

void cLaskupohjaTietue::palauta(const Tila &t)
{
    m_arvot = t.arvot;
    m_kopio = t.kopio;
    m_muuttunut = t.muuttunut;
    m_tyhja = t.tyhja;
}

void cLaskupohjaTietue::Delete()
{
    if (ID() != 0) {
        auto d = kanta();
        d->execute(QStringLiteral("DELETE FROM %1 WHERE %2 = ?").arg(QLatin1String(m_taulu.nimi), QLatin1String(m_taulu.kentat.front().nimi)),
                   {qlonglong(ID())});
    }
    Uusi();
}

void cLaskupohjaTietue::Cancel()
{
    const QVector<QVariant> vanhat = m_arvot;
    m_arvot = m_kopio;
    m_muuttunut = false;
    for (int i = 0; i < m_arvot.size(); ++i)
        if (vanhat.at(i) != m_arvot.at(i))
            emit FieldChanged(QString::fromLatin1(m_taulu.kentat.at(size_t(i)).nimi));
}

void cLaskupohjaTietue::vapauta() noexcept
{
    if (!tallennettavaa())
        return;
    QString virhe;
    try {
        Save();
        return;
    } catch (const db::DbError &e) {
        virhe = e.message();
    } catch (const std::exception &e) {
        virhe = QString::fromUtf8(e.what());
    } catch (...) {
        virhe = QStringLiteral("Tuntematon virhe.");
    }
    try {
        IlmoitaVirhe(QStringLiteral("Laskupohjan muutoksia ei voitu tallentaa:\n") + virhe);
    } catch (...) {
    }
}
