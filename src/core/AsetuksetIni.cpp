// The workstation's INI file, and the older releases' INI that held the club's keys too.
#include "core/AsetuksetIni.h"

#include "core/AsetustenLuku.h"
#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "platform/arvot.h"
#include "platform/files.h"

namespace {

// A damaged file gives nothing but defaults: half a file could point at the wrong database.
AsetuksenLukija iniLukija(IniStore &ini)
{
    return [&ini](const QString &avain, const QString &oletus) {
        return ini.isMalformed() ? oletus : ini.readString(avain, oletus);
    };
}

QString kansioKauttaviivalla(const QString &kansio)
{
    return kansio.endsWith(QLatin1Char('/')) ? kansio : kansio + QLatin1Char('/');
}

// Database, DatabaseBackup and MultiDb: what must be known before a database is opened.
void lueTyoasemanAvaimet(IniStore &ini)
{
    using namespace MainModule;
    const AsetuksenLukija lue = iniLukija(ini);

    QString kanta = lue(QStringLiteral("Database"), {});
    if (kanta.trimmed().isEmpty()) {
        kanta = OletusTietokanta();
        ini.writeString(QStringLiteral("Database"), kanta);
    }
    DatabasePath = kanta;

    QString varmistus = lue(QStringLiteral("DatabaseBackup"), {});
    if (varmistus.trimmed().isEmpty()) {
        varmistus = files::defaultBackupFolder();
        ini.writeString(QStringLiteral("DatabaseBackup"), varmistus);
    }
    BackupPath = kansioKauttaviivalla(varmistus);

    MultiDb = NumeroArvo(lue(QStringLiteral("MultiDb"), QStringLiteral("0"))) != 0;
}

} // namespace

QString OletusTietokanta() { return OhjelmanTiedosto(QStringLiteral("demo1.mdb")); }

void LueIniAsetukset(const QString &tiedosto)
{
    IniStore &ini = MainModule::IniAsetukset();
    ini.setFileName(tiedosto.isEmpty() ? files::iniFilePath(MainModule::IniName) : tiedosto);
    ini.setSection(QStringLiteral("VONARI"));
    if (ini.isMalformed())
        Ilmoita(QStringLiteral("Asetustiedosto %1 on vioittunut tai sitä ei voi lukea. Vonari käynnistyy "
                               "oletusasetuksin eikä muuta tiedostoa. Korjaa tiedosto tai poista se, niin Vonari "
                               "tekee uuden.")
                    .arg(ini.fileName()));
    lueTyoasemanAvaimet(ini);
}

void LueVanhatAsetukset()
{
    IniStore &ini = MainModule::IniAsetukset();
    lueTyoasemanAvaimet(ini);
    if (const std::optional<QString> paiva = LueSeuranAsetukset(iniLukija(ini)))
        ini.writeString(QStringLiteral("BackupDate"), *paiva);
}
