// A new club's database from the template, taken into use at the next start.
#include "core/Perustus.h"

#include "core/Kantatiedosto.h"
#include "core/MainModule.h"
#include "core/Malli.h"
#include "core/Ilmoitukset.h"
#include "platform/dialogs.h"
#include "platform/files.h"

#include <QFileInfo>

namespace {

const QString kRivi = QStringLiteral("\n");

// Characters that no file system of a memory stick or a network drive takes in a name.
bool sopivaNimi(const QString &nimi)
{
    for (const QChar c : nimi)
        if (c.unicode() < 32 || QStringLiteral("\\/:*?\"<>|").contains(c))
            return false;
    return true;
}

} // namespace

bool PerustaTietokanta(const QString &teksti, const QString &pohja)
{
    Ilmoita(teksti);
    const std::optional<QString> vastaus = dlg::current().input(
        QStringLiteral("Anna uudelle tietokannalle nimi (max. 8 kirjainta)."), MainModule::AppName);
    const QString nimi = vastaus.value_or(QString()).trimmed().left(8).trimmed();
    if (nimi.isEmpty()) {
        Ilmoita(QStringLiteral("Tietokannan nimi ei voi olla tyhjä. Toiminto keskeytetään."));
        return false;
    }
    if (!sopivaNimi(nimi)) {
        Ilmoita(QStringLiteral("Tietokannan nimessä ei voi olla merkkejä \\ / : * ? \" < > |. Toiminto keskeytetään."));
        return false;
    }

    const QString kansio = files::documentsFolder();
    if (!files::ensureFolder(kansio)) {
        IlmoitaVirhe(QStringLiteral("Kansiota ") + kansio + QStringLiteral(" ei voi luoda. Toiminto keskeytetään."));
        return false;
    }
    const QString kohde = kansio + QLatin1Char('/') + nimi + QStringLiteral(".mdb");
    if (QFileInfo::exists(kohde)) {
        Ilmoita(QStringLiteral("Nimi: ") + nimi + QStringLiteral(" on jo käytössä. Toiminto keskeytetään."));
        return false;
    }

    const QString malli = files::programFolder() + QStringLiteral("/mallit/") + pohja;
    if (malli == MalliPolku()) {
        try {
            VarmistaMalli();
        } catch (const db::DbError &) {
            // The copy below tells that the template is not there.
        }
    }
    kanta::Kopiointi tapa;
    kanta::Virhe v;
    if (!kanta::kopioiTietokanta(malli, kohde, tapa, &v)) {
        IlmoitaVirhe(QStringLiteral("Tietokantapohjaa ei voitu kopioida") + kRivi
                     + QStringLiteral("tiedostosta: ") + malli + kRivi
                     + QStringLiteral("tiedostoon: ") + kohde + kRivi
                     + QStringLiteral("(%1 / %2)").arg(v.numero).arg(v.kuvaus) + kRivi
                     + QStringLiteral("Toiminto keskeytetään."));
        return false;
    }
    if (!MainModule::IniAsetukset().writeString(QStringLiteral("Database"), kohde)) {
        IlmoitaVirhe(QStringLiteral("Asetustiedostoon ") + MainModule::IniAsetukset().fileName()
                     + QStringLiteral(" ei voitu kirjoittaa. Uusi tietokanta on tallessa: ") + kohde);
        return false;
    }
    Ilmoita(QStringLiteral("Tyhjä tietokanta on kopioitu ja se tulee käyttöön, kun Vonari seuraavan kerran käynnistetään.")
            + kRivi + QStringLiteral("Vonari suljetaan, koska tietokanta on vaihdettu."));
    return true;
}
