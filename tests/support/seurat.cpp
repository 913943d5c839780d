#include "seurat.h"

#include "esittely/Esittelyseura.h"
#include "core/Malli.h"
#include "core/UpdateDatabase.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <unistd.h>

namespace seurat {

namespace {

// A fingerprint of the generator and the schema as built now: the content of a small club.
QString sormenjalki()
{
    static const QString jalki = [] {
        QTemporaryDir dir;
        const QString polku = dir.filePath(QStringLiteral("pieni.mdb"));
        Rakenna(polku, 40, 1);
        auto db = db::Database::open(polku);
        const QByteArray sisalto = (db->schemaDump() + Sisalto(*db)).toUtf8();
        return QString::fromLatin1(QCryptographicHash::hash(sisalto, QCryptographicHash::Sha1).toHex().left(12));
    }();
    return jalki;
}

QString valimuisti()
{
    const QString juuri = QDir::tempPath() + QStringLiteral("/vonari-seurat-%1").arg(getuid());
    const QString oma = sormenjalki();
    // Clubs of earlier builds are large; those not touched for a day go. A younger one may
    // belong to another build in use right now.
    const QDateTime raja = QDateTime::currentDateTime().addDays(-1);
    for (const QFileInfo &fi : QDir(juuri).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot))
        if (fi.fileName() != oma && fi.lastModified() < raja)
            QDir(fi.absoluteFilePath()).removeRecursively();
    return juuri + QLatin1Char('/') + oma;
}

} // namespace

void Rakenna(const QString &polku, int jasenia, quint32 siemen)
{
    LuoMalliTietokanta(polku);
    auto db = db::Database::open(polku);
    UpdateDatabase(*db);
    TaytaSeura(*db, jasenia, siemen);
    db->execute(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
}

QString Valmis(int jasenia, quint32 siemen)
{
    const QString kansio = valimuisti();
    const QString polku = QStringLiteral("%1/seura-%2-%3.mdb").arg(kansio).arg(jasenia).arg(siemen);
    if (QFileInfo::exists(polku))
        return polku;
    QDir().mkpath(kansio);
    // Built under a name of its own and renamed whole, so parallel tests never see half a club.
    const QString tyo = polku + QStringLiteral(".%1.kesken").arg(getpid());
    for (const char *liite : {"", "-wal", "-shm"})
        QFile::remove(tyo + QLatin1String(liite));
    Rakenna(tyo, jasenia, siemen);
    if (!QFile::rename(tyo, polku))
        QFile::remove(tyo); // another process was quicker; its club is the same
    return polku;
}

QString Kopio(int jasenia, const QString &kohde, quint32 siemen)
{
    if (!QFile::copy(Valmis(jasenia, siemen), kohde))
        throw db::DbError(db::ErrorKind::Other, QStringLiteral("Kopiointi epäonnistui: %1").arg(kohde));
    QFile::setPermissions(kohde, QFile::permissions(kohde) | QFile::WriteOwner);
    return kohde;
}

QString Sisalto(db::Database &db)
{
    QString out;
    for (const QString &taulu : db.tableNames()) {
        const QString avain = db.primaryKeyColumn(taulu);
        db::Statement st(db, QStringLiteral("SELECT * FROM \"%1\" ORDER BY %2").arg(taulu, avain.isEmpty() ? QStringLiteral("rowid") : QStringLiteral("\"%1\"").arg(avain)));
        while (st.next()) {
            out += taulu;
            for (int i = 0; i < st.columnCount(); ++i) {
                const QVariant v = st.value(i);
                out += QLatin1Char('|') + (v.isValid() ? v.toString() : QStringLiteral("<Null>"));
            }
            out += QLatin1Char('\n');
        }
    }
    db::Statement jarjestys(db, QStringLiteral("SELECT name, seq FROM sqlite_sequence ORDER BY name"));
    while (jarjestys.next())
        out += QStringLiteral("sqlite_sequence|%1|%2\n").arg(jarjestys.value(0).toString(), jarjestys.value(1).toString());
    return out;
}

} // namespace seurat
