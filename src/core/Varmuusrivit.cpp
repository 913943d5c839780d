#include "core/Varmuusrivit.h"

#include "core/MainModule.h"

#include <QStringList>

namespace {

// A blank marked row at the top of each of these keeps its AutoNumber counter up across a
// reorganisation, in this order.
const QStringList &merkittavatTaulut()
{
    static const QStringList taulut = {
        QStringLiteral("am"), QStringLiteral("amRivi"), QStringLiteral("jm"), QStringLiteral("jmhist"),
        QStringLiteral("jmRivi"), QStringLiteral("jr"), QStringLiteral("jrPerhe"), QStringLiteral("lt"),
        QStringLiteral("me"), QStringLiteral("ml"), QStringLiteral("pi"), QStringLiteral("pt"),
        QStringLiteral("Jasenlaji"), QStringLiteral("Jasenryhma")};
    return taulut;
}

// A file that an upgrade has not completed yet may lack a table or its mark column.
bool voiMerkita(db::Database &db, const QString &taulu)
{
    return db.columnNames(taulu).contains(QStringLiteral("BackupRow"));
}

} // namespace

void PoistaVarmuusrivit(db::Database &db)
{
    db::Transaction t(db);
    for (const QString &taulu : merkittavatTaulut())
        if (voiMerkita(db, taulu))
            db.execute(QStringLiteral("DELETE FROM \"%1\" WHERE BackupRow = 1").arg(taulu));
    t.commit();
}

void LisaaVarmuusrivit(db::Database &db)
{
    db::Transaction t(db);
    for (const QString &taulu : merkittavatTaulut())
        if (voiMerkita(db, taulu))
            db.execute(QStringLiteral("DELETE FROM \"%1\" WHERE BackupRow = 1").arg(taulu));
    for (const QString &taulu : merkittavatTaulut())
        if (voiMerkita(db, taulu))
            db.execute(QStringLiteral("INSERT INTO \"%1\" (BackupRow) VALUES (1)").arg(taulu));
    t.commit();
}

void PoistaVarmuusrivit()
{
    auto db = db::Database::open(MainModule::DatabasePath);
    PoistaVarmuusrivit(*db);
}

void LisaaVarmuusrivit()
{
    auto db = db::Database::open(MainModule::DatabasePath);
    LisaaVarmuusrivit(*db);
}
