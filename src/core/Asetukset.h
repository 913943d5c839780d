// Reading and writing the settings of the two stores into the globals of MainModule.
#pragma once

#include "platform/database.h"

#include <QString>
#include <functional>

// The settings table of the club's database, KantaAsetukset.
class KantaStore {
public:
    explicit KantaStore(db::Database &db);
    void setSection(const QString &section);
    QString readString(const QString &key, const QString &defaultValue = {});
    void writeString(const QString &key, const QString &value);

private:
    db::Database &m_db;
    QString m_section = QStringLiteral("VONARI");
};

void LueAsetukset(db::Database &db);


// Next/previous invoice number, written through at once.
void KasvataLaskunumero(db::Database &db);
void VahennaLaskunumero(db::Database &db);
// Moves the invoice number by `muutos` at once: a run that numbers a whole batch writes it once.
// In memory first, undone with the run's transaction; an overflow of the long is refused.
void MuutaLaskunumeroa(db::Database &db, qint64 muutos);
