#include "core/Pelastus.h"

#include <QFileInfo>
#include <QUrl>

#include <limits>

namespace kanta {

namespace {

// Read-only, so that not even the log's checkpoint writes into the damaged file.
QString lukuOsoite(const QString &polku)
{
    return QUrl::fromLocalFile(QFileInfo(polku).absoluteFilePath()).toString(QUrl::FullyEncoded)
        + QStringLiteral("?mode=ro");
}

struct Rakenneosa {
    QString tyyppi, nimi, sql;
};

QVector<Rakenneosa> lueRakenne(db::Database &d)
{
    QVector<Rakenneosa> osat;
    db::Statement st(d, QStringLiteral("SELECT type, name, sql FROM vanha.sqlite_master WHERE sql IS NOT NULL ORDER BY rowid"));
    while (st.next())
        osat.append({st.value(0).toString(), st.value(1).toString(), st.value(2).toString()});
    return osat;
}

// Copies the rows of one table, going round the pages that cannot be read.
class Rivikopio {
public:
    Rivikopio(db::Database &d, const QString &taulu)
        : m_d(d), m_taulu(db::quoteIdent(taulu)),
          m_lisays(d, QStringLiteral("INSERT INTO main.%1 SELECT * FROM vanha.%1 WHERE rowid = ?").arg(m_taulu), {0})
    {
    }

    // False when some rows were left behind.
    bool kopioi()
    {
        try {
            m_d.execute(QStringLiteral("INSERT INTO main.%1 SELECT * FROM vanha.%1").arg(m_taulu));
            return true;
        } catch (const db::DbError &) {
            // Row by row below.
        }
        qint64 jalkeen = std::numeric_limits<qint64>::min();
        while (lueJalkeen(&jalkeen)) {
            m_vajaa = true;
            if (!ohitaVika(&jalkeen))
                break;
        }
        return !m_vajaa;
    }

private:
    enum class Haku { Loytyi, Loppu, Vika };

    Haku hae(qint64 jalkeen)
    {
        try {
            db::Statement s(m_d, QStringLiteral("SELECT rowid FROM vanha.%1 WHERE rowid > ? ORDER BY rowid LIMIT 1").arg(m_taulu),
                            {jalkeen});
            return s.next() ? Haku::Loytyi : Haku::Loppu;
        } catch (const db::DbError &) {
            return Haku::Vika;
        }
    }

    // Walks the rows after `jalkeen`; true when it stopped at a damaged page.
    bool lueJalkeen(qint64 *jalkeen)
    {
        try {
            db::Statement s(m_d, QStringLiteral("SELECT rowid FROM vanha.%1 WHERE rowid > ? ORDER BY rowid").arg(m_taulu),
                            {*jalkeen});
            while (s.next()) {
                *jalkeen = s.value(0).toLongLong();
                kopioiRivi(*jalkeen);
            }
            return false;
        } catch (const db::DbError &) {
            return true;
        }
    }

    void kopioiRivi(qint64 rowid)
    {
        try {
            m_lisays.reset({rowid});
            m_lisays.next();
        } catch (const db::DbError &) {
            m_vajaa = true;
        }
    }

    // Finds the lowest point after the damaged part from which the rows can be reached again:
    // ever longer steps until a seek works, then halving back towards the damage.
    bool ohitaVika(qint64 *jalkeen)
    {
        const qint64 suurin = std::numeric_limits<qint64>::max();
        // Identities are positive: nothing is looked for below zero.
        qint64 huono = std::max<qint64>(*jalkeen, 0);
        qint64 askel = 1;
        qint64 hyva = 0;
        for (;;) {
            if (huono > suurin - askel)
                return false;
            const qint64 kokeilu = huono + askel;
            const Haku h = hae(kokeilu);
            if (h == Haku::Loppu)
                return false;
            if (h == Haku::Loytyi) {
                hyva = kokeilu;
                break;
            }
            huono = kokeilu;
            askel = askel > suurin / 2 ? suurin : askel * 2;
        }
        while (hyva - huono > 1) {
            const qint64 keski = huono + (hyva - huono) / 2;
            if (hae(keski) == Haku::Vika)
                huono = keski;
            else
                hyva = keski;
        }
        *jalkeen = hyva;
        return true;
    }

    db::Database &m_d;
    QString m_taulu;
    db::Statement m_lisays;
    bool m_vajaa = false;
};

void kopioiLaskurit(db::Database &d)
{
    try {
        db::Statement st(d, QStringLiteral("SELECT name, seq FROM vanha.sqlite_sequence"));
        while (st.next()) {
            const QVariant nimi = st.value(0);
            const QVariant arvo = st.value(1);
            if (d.execute(QStringLiteral("UPDATE main.sqlite_sequence SET seq = max(seq, ?) WHERE name = ?"), {arvo, nimi}) == 0)
                d.execute(QStringLiteral("INSERT INTO main.sqlite_sequence (name, seq) VALUES (?, ?)"), {nimi, arvo});
        }
    } catch (const db::DbError &) {
        // The counters then follow the largest identities present, as a new identity is
        // reserved above both.
    }
}

} // namespace

bool pelastaTietokanta(const QString &vioittunut, const QString &uusi, Pelastus *tulos, Virhe *virhe,
                       Edistyminen *edistyminen)
{
    try {
        auto d = db::Database::create(uusi);
        KantaVahti vahti(*d, edistyminen);
        // Flushed once at the end: a stopped salvage leaves only this output, which is redone.
        d->execute(QStringLiteral("PRAGMA synchronous=OFF"));
        // Lets a file shorter than its header says be read as far as it goes.
        d->execute(QStringLiteral("PRAGMA writable_schema=ON"));
        d->execute(QStringLiteral("ATTACH DATABASE ? AS vanha"), {lukuOsoite(vioittunut)});
        QVector<Rakenneosa> rakenne;
        try {
            rakenne = lueRakenne(*d);
        } catch (const db::DbError &e) {
            *virhe = {e.number(), QStringLiteral("Tietokannan rakennetta ei voi lukea (%1)").arg(e.message())};
            return false;
        }
        for (const Rakenneosa &osa : rakenne) {
            if (osa.tyyppi != QLatin1String("table") || osa.nimi.startsWith(QLatin1String("sqlite_")))
                continue;
            d->executeScript(osa.sql);
            if (!Rivikopio(*d, osa.nimi).kopioi())
                tulos->vajaatTaulut << osa.nimi;
        }
        kopioiLaskurit(*d);
        for (const Rakenneosa &osa : rakenne) {
            if (osa.tyyppi == QLatin1String("table"))
                continue;
            try {
                d->executeScript(osa.sql);
            } catch (const db::DbError &) {
                // An index that the salvaged rows break is left out; the data is what counts.
            }
        }
        d->execute(QStringLiteral("DETACH DATABASE vanha"));
        d->execute(QStringLiteral("PRAGMA writable_schema=OFF"));
        QString raportti;
        if (!eheystarkistus(*d, true, &raportti)) {
            *virhe = {db::errorNumber(db::ErrorKind::Corrupt),
                      QStringLiteral("Korjattu tietokanta ei läpäissyt eheystarkistusta: %1").arg(raportti.left(300))};
            return false;
        }
        d->execute(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
    } catch (const db::DbError &e) {
        *virhe = virheKannasta(e);
        return false;
    }
    return tallennaLevylle(uusi, virhe);
}

} // namespace kanta
