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

// The demonstration database's path in the program's folder.
QString OletusTietokanta();

void LueIniAsetukset(const QString &tiedosto = {}); // empty: the workstation's usual file
void LueAsetukset(db::Database &db);
void LueVanhatAsetukset();

// The start-up check that moves older settings from the file into the database. Returns true
// when the program must end (the user was sent to the settings windows).
// `avaaAsetukset` opens the two settings windows modally.
bool TarkistaAsetustenSiirto(const std::function<void()> &avaaAsetukset);

// Next/previous invoice number, written through at once.
void KasvataLaskunumero(db::Database &db);
void VahennaLaskunumero(db::Database &db);
