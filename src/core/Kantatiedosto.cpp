#include "core/Kantatiedosto.h"

#include "platform/files.h"

#include <QFile>
#include <QFileInfo>

#include <optional>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kanta {

namespace {

QByteArray nimi(const QString &polku) { return QFile::encodeName(polku); }

const QString kKesken = QStringLiteral(".kesken");

// The rename of a file only lasts a power cut once its folder is flushed too.
void tallennaKansio(const QString &tiedosto)
{
    const int fd = ::open(nimi(QFileInfo(tiedosto).absolutePath()).constData(), O_RDONLY | O_DIRECTORY);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

bool tarkistaKopio(const QString &polku, const Rivimaarat &odotetut, bool taysi, Edistyminen *edistyminen, Virhe *virhe)
{
    const int vioittunut = db::errorNumber(db::ErrorKind::Corrupt);
    try {
        auto d = db::Database::open(polku, db::OpenMode::ReadOnly);
        // The values are the source's own: the check is of the file's structure and indexes, and
        // the field rules would only multiply its time.
        d->execute(QStringLiteral("PRAGMA ignore_check_constraints=ON"));
        d->execute(QStringLiteral("PRAGMA mmap_size=1073741824"));
        KantaVahti vahti(*d, edistyminen);
        QString raportti;
        if (!eheystarkistus(*d, taysi, &raportti)) {
            *virhe = {vioittunut, QStringLiteral("Kopio ei läpäissyt eheystarkistusta: %1").arg(raportti.left(300))};
            return false;
        }
        if (laskeRivit(*d) != odotetut) {
            *virhe = {vioittunut, QStringLiteral("Kopion rivimäärät eivät vastaa tietokantaa.")};
            return false;
        }
        return true;
    } catch (const db::DbError &e) {
        *virhe = virheKannasta(e);
        return false;
    }
}

// Takes the snapshot under the temporary name; the counts are of the very state copied.
bool otaTilannekuva(const QString &lahde, const QString &kesken, bool lukitse, Edistyminen *edistyminen,
                    Rivimaarat *ennen, Virhe *virhe)
{
    try {
        std::unique_ptr<db::Database> lukko;
        std::optional<db::Transaction> kirjoittajatOdottavat; // rolled back: it only holds the lock
        if (lukitse) {
            lukko = db::Database::open(lahde);
            kirjoittajatOdottavat.emplace(*lukko);
            *ennen = laskeRivit(*lukko);
        }
        {
            // A file in use is read through a writable connection: the engine copies from a
            // read-only one several times slower. A closed file is only read, never converted.
            auto lukija = db::Database::open(lahde, lukitse ? db::OpenMode::ReadWrite : db::OpenMode::ReadOnly);
            lukija->execute(QStringLiteral("PRAGMA mmap_size=1073741824"));
            if (!lukitse)
                *ennen = laskeRivit(*lukija);
            KantaVahti vahti(*lukija, edistyminen);
            lukija->execute(QStringLiteral("VACUUM INTO ?"), {kesken});
        }
        return true;
    } catch (const db::DbError &e) {
        *virhe = virheKannasta(e);
        return false;
    }
}

bool annaNimi(const QString &kesken, const QString &kohde, bool korvaa, Virhe *virhe)
{
    if (korvaa)
        return korvaaAtomisesti(kesken, kohde, virhe);
    // Without replacing: a link refuses an existing name in the same step as it takes it.
    if (::link(nimi(kesken).constData(), nimi(kohde).constData()) == 0) {
        ::unlink(nimi(kesken).constData());
        tallennaKansio(kohde);
        return true;
    }
    if (errno == EEXIST || QFileInfo::exists(kohde)) {
        *virhe = virheJarjestelmasta(EEXIST, kohde);
        return false;
    }
    return korvaaAtomisesti(kesken, kohde, virhe);
}

} // namespace

Virhe virheJarjestelmasta(int errnoArvo, const QString &polku)
{
    switch (errnoArvo) {
    case ENOENT:
    case ENOTDIR:
        return {76, QStringLiteral("Polkua ei löydy: %1").arg(polku)};
    case EACCES:
    case EPERM:
    case EROFS:
        return {70, QStringLiteral("Ei kirjoitusoikeutta: %1").arg(polku)};
    case ENOSPC:
    case EFBIG:
    case EDQUOT:
        return {61, QStringLiteral("Levy on täynnä: %1").arg(polku)};
    case EEXIST:
        return {58, QStringLiteral("Tiedosto on jo olemassa: %1").arg(polku)};
    case EISDIR:
    case ENOTEMPTY:
        return {75, QStringLiteral("Samanniminen kansio on tiedoston tiellä: %1").arg(polku)};
    case EBUSY:
    case ETXTBSY:
        return {75, QStringLiteral("Tiedosto on toisen ohjelman käytössä: %1").arg(polku)};
    case EIO:
        return {57, QStringLiteral("Laitteen luku- tai kirjoitusvirhe: %1").arg(polku)};
    default:
        return {75, QStringLiteral("Tiedostoa ei voi käsitellä (%1): %2")
                        .arg(QString::fromLocal8Bit(std::strerror(errnoArvo)), polku)};
    }
}

Virhe virheKannasta(const db::DbError &e)
{
    switch (e.sqliteCode() & 0xff) {
    case 13: // SQLITE_FULL
        return {61, QStringLiteral("Levy on täynnä (%1)").arg(e.message())};
    case 10: // SQLITE_IOERR: a write refused by the device or a size limit
        return {57, QStringLiteral("Levylle kirjoittaminen tai lukeminen ei onnistunut (%1)").arg(e.message())};
    default:
        return {e.number(), e.message()};
    }
}

bool eheystarkistus(db::Database &d, bool taysi, QString *raportti)
{
    if (!taysi)
        return d.quickCheck(raportti);
    QStringList rivit;
    db::Statement st(d, QStringLiteral("PRAGMA integrity_check"));
    while (st.next())
        rivit << st.value(0).toString();
    *raportti = rivit.join(QLatin1Char('\n'));
    return rivit == QStringList{QStringLiteral("ok")};
}

Rivimaarat laskeRivit(db::Database &d)
{
    Rivimaarat maarat;
    QStringList taulut = d.tableNames();
    if (d.scalar(QStringLiteral("SELECT 1 FROM sqlite_master WHERE name = 'sqlite_sequence'")).isValid())
        taulut << QStringLiteral("sqlite_sequence");
    for (const QString &taulu : taulut) {
        maarat.insert(taulu, d.scalar(QStringLiteral("SELECT count(*) FROM %1").arg(db::quoteIdent(taulu))).toLongLong());
    }
    return maarat;
}

bool kopioiTietokanta(const QString &lahde, const QString &kohde, const Kopiointi &tapa, Virhe *virhe,
                      Rivimaarat *maarat)
{
    const QString kansio = QFileInfo(kohde).absolutePath();
    if (!files::FolderExists(kansio)) {
        *virhe = virheJarjestelmasta(ENOENT, kansio);
        return false;
    }
    if (::access(nimi(kansio).constData(), W_OK) != 0) {
        *virhe = virheJarjestelmasta(errno, kansio);
        return false;
    }
    if (!tapa.korvaaKohde && QFileInfo::exists(kohde)) {
        *virhe = virheJarjestelmasta(EEXIST, kohde);
        return false;
    }
    const QString kesken = kohde + kKesken;
    if (!poistaTietokantatiedosto(kesken)) {
        *virhe = virheJarjestelmasta(errno, kesken);
        return false;
    }
    Rivimaarat ennen;
    try {
        if (!otaTilannekuva(lahde, kesken, tapa.lukitseLahde, tapa.edistyminen, &ennen, virhe)
            || !tallennaLevylle(kesken, virhe)
            || !tarkistaKopio(kesken, ennen, tapa.taysiTarkistus, tapa.edistyminen, virhe)
            || !annaNimi(kesken, kohde, tapa.korvaaKohde, virhe)) {
            poistaTietokantatiedosto(kesken);
            return false;
        }
    } catch (const Keskeytetty &) {
        poistaTietokantatiedosto(kesken);
        throw;
    }
    if (maarat)
        *maarat = ennen;
    return true;
}

bool muuKayttajaPaalla(const QString &polku) { return QFileInfo::exists(polku + QStringLiteral("-wal")); }

bool sailytaNimella(const QString &polku, const QString &toinenNimi, Virhe *virhe)
{
    const QString kesken = toinenNimi + kKesken;
    ::unlink(nimi(kesken).constData());
    if (::link(nimi(polku).constData(), nimi(kesken).constData()) != 0) {
        const int e = errno;
        const bool eiLinkkeja = e == EPERM || e == ENOTSUP || e == EOPNOTSUPP || e == EMLINK || e == EXDEV;
        if (!eiLinkkeja) {
            *virhe = virheJarjestelmasta(e, polku);
            return false;
        }
        QFile lahde(polku);
        if (!lahde.copy(kesken)) {
            *virhe = {75, QStringLiteral("Tiedostoa %1 ei voi kopioida: %2").arg(polku, lahde.errorString())};
            ::unlink(nimi(kesken).constData());
            return false;
        }
        if (!tallennaLevylle(kesken, virhe)) {
            ::unlink(nimi(kesken).constData());
            return false;
        }
    }
    if (!korvaaAtomisesti(kesken, toinenNimi, virhe)) {
        ::unlink(nimi(kesken).constData());
        return false;
    }
    // Two names of one file: rename leaves both, so the temporary one goes here.
    ::unlink(nimi(kesken).constData());
    return true;
}

bool korvaaAtomisesti(const QString &lahde, const QString &kohde, Virhe *virhe)
{
    if (std::rename(nimi(lahde).constData(), nimi(kohde).constData()) != 0) {
        *virhe = virheJarjestelmasta(errno, kohde);
        return false;
    }
    tallennaKansio(kohde);
    return true;
}

bool poistaTietokantatiedosto(const QString &polku)
{
    bool kaikki = true;
    int viimeisin = 0;
    for (const char *liite : {"", "-wal", "-shm", "-journal"}) {
        if (::unlink(nimi(polku + QLatin1String(liite)).constData()) != 0 && errno != ENOENT) {
            kaikki = false;
            viimeisin = errno;
        }
    }
    errno = viimeisin;
    return kaikki;
}

bool samaTiedosto(const QString &a, const QString &b)
{
    struct stat sa{}, sb{};
    if (::stat(nimi(a).constData(), &sa) != 0 || ::stat(nimi(b).constData(), &sb) != 0)
        return false;
    return sa.st_dev == sb.st_dev && sa.st_ino == sb.st_ino;
}

bool tallennaLevylle(const QString &polku, Virhe *virhe)
{
    const int fd = ::open(nimi(polku).constData(), O_RDONLY);
    if (fd < 0 || ::fsync(fd) != 0) {
        *virhe = virheJarjestelmasta(errno, polku);
        if (fd >= 0)
            ::close(fd);
        return false;
    }
    ::close(fd);
    return true;
}

} // namespace kanta
