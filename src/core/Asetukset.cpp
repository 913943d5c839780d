#include "core/Asetukset.h"

#include "core/AsetustenLuku.h"
#include "core/MainModule.h"

#include <exception>
#include <limits>

namespace {

constexpr int KentanPituus = 255;

void tarkistaPituus(const QString &avain, const QString &teksti, const char *mika)
{
    // The table's width counts characters, not UTF-16 units.
    const qsizetype merkkeja = teksti.toUcs4().size();
    if (merkkeja > KentanPituus)
        throw db::DbError(db::ErrorKind::TooLong,
                          QStringLiteral("Asetuksen %1 %2 on liian pitkä tallennettavaksi: %3 merkkiä, kun enintään %4 "
                                         "mahtuu. Asetusta ei tallennettu.")
                              .arg(avain.left(40), QLatin1String(mika))
                              .arg(merkkeja)
                              .arg(KentanPituus));
}

int raporttiMarginaali(int arvo, const char *avain)
{
    const qint64 tulo = qint64(arvo) * 48;
    if (tulo < std::numeric_limits<qint16>::min() || tulo > std::numeric_limits<qint16>::max())
        throw db::DbError(db::ErrorKind::Other,
                          QStringLiteral("Ylivuoto: tulostusmarginaali %1 = %2 on liian suuri.").arg(QLatin1String(avain)).arg(arvo));
    return int(tulo);
}

// The report engine takes the margins in its own units; the order is the one the report
// control was given them in, so an overflow leaves the later ones as they were.
void annaRaporttiMarginaalit()
{
    using namespace MainModule;
    RaporttiMarginaalit.bottom = raporttiMarginaali(MargAla, "MargAla");
    RaporttiMarginaalit.left = raporttiMarginaali(MargVas, "MargVas");
    RaporttiMarginaalit.right = raporttiMarginaali(MargOik, "MargOik");
    RaporttiMarginaalit.top = raporttiMarginaali(MargYla, "MargYla");
}

void muutaLaskunumeroa(db::Database &db, qint64 muutos)
{
    const qint64 uusi = qint64(MainModule::Laskunro) + muutos;
    if (uusi < std::numeric_limits<qint32>::min() || uusi > std::numeric_limits<qint32>::max())
        throw db::DbError(db::ErrorKind::Other,
                          QStringLiteral("Ylivuoto: laskunumero %1 on jo suurin tai pienin mahdollinen.").arg(MainModule::Laskunro));
    // The number in memory moves first: should the write fail, no number is given twice. A run
    // that rolls back takes its numbers back with it.
    const long vanha = MainModule::Laskunro;
    MainModule::Laskunro = long(uusi);
    db.perumisella([vanha] { MainModule::Laskunro = vanha; });
    KantaStore(db).writeString(QStringLiteral("Laskunro"), QString::number(uusi));
}

} // namespace

KantaStore::KantaStore(db::Database &d) : m_db(d) {}

void KantaStore::setSection(const QString &section) { m_section = section; }

QString KantaStore::readString(const QString &key, const QString &defaultValue)
{
    db::Statement st(m_db,
                     QStringLiteral("SELECT setString FROM Settings WHERE setSection = ? COLLATE NOCASE "
                                    "AND setKey = ? COLLATE NOCASE ORDER BY setID LIMIT 1"),
                     {m_section, key});
    if (!st.next())
        return defaultValue;
    const QVariant v = st.value(0);
    return v.isValid() ? v.toString() : defaultValue;
}

void KantaStore::writeString(const QString &key, const QString &value)
{
    tarkistaPituus(key, key, "nimi");
    tarkistaPituus(key, value, "arvo");
    const int muutettu = m_db.execute(QStringLiteral("UPDATE Settings SET setString = ? WHERE setSection = ? COLLATE NOCASE "
                                                     "AND setKey = ? COLLATE NOCASE"),
                                      {value, m_section, key});
    if (muutettu == 0)
        m_db.execute(QStringLiteral("INSERT INTO Settings (setSection, setKey, setString) VALUES (?, ?, ?)"),
                     {m_section, key, value});
}

void LueAsetukset(db::Database &db)
{
    KantaStore kanta(db);
    const std::optional<QString> paiva =
        LueSeuranAsetukset([&kanta](const QString &avain, const QString &oletus) { return kanta.readString(avain, oletus); });
    // A read-only file cannot take the date; the margins are still handed over first.
    std::exception_ptr kirjoitusVirhe;
    if (paiva) {
        try {
            kanta.writeString(QStringLiteral("BackupDate"), *paiva);
        } catch (const db::DbError &) {
            kirjoitusVirhe = std::current_exception();
        }
    }
    annaRaporttiMarginaalit();
    if (kirjoitusVirhe)
        std::rethrow_exception(kirjoitusVirhe);
}

void KasvataLaskunumero(db::Database &db) { muutaLaskunumeroa(db, +1); }

void VahennaLaskunumero(db::Database &db) { muutaLaskunumeroa(db, -1); }

void MuutaLaskunumeroa(db::Database &db, qint64 muutos) { muutaLaskunumeroa(db, muutos); }
