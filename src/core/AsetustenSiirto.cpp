// Older releases kept the club's settings in the INI file; this moves them into the database
// through the settings windows, whose save marks the move done.
#include "core/AsetustenSiirto.h"
#include "core/Asetukset.h"
#include "core/AsetuksetIni.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"

namespace {

// A database that cannot be opened or read here was already told about by the opening at
// start, and a move into it could not be saved: the check waits for the next start.
bool asetuksetSiirrettava()
{
    try {
        std::unique_ptr<db::Database> db = db::Database::open(MainModule::DatabasePath);
        return KantaStore(*db).readString(QStringLiteral("AsKannassa")) != QLatin1String("1");
    } catch (const db::DbError &) {
        return false;
    }
}

} // namespace

bool TarkistaAsetustenSiirto(const std::function<void()> &avaaAsetukset)
{
    // Several clubs share one workstation file, so its keys belong to no single club.
    if (MainModule::MultiDb || !asetuksetSiirrettava())
        return false;
    LueVanhatAsetukset();
    Ilmoita(QStringLiteral("Tietokannasta ei löydy asetuksia.\n"
                           "tämä ilmoitus toistu enää seuraavien käynnistyskertojen yhteydessä.\n"
                           "Tarkista ja tallenna asetukset Asetukset- ja Lisäasetukset- ikkunoissa."));
    avaaAsetukset();
    Ilmoita(QStringLiteral("Käynnistä Vonari nyt uudestaan."));
    return true;
}
