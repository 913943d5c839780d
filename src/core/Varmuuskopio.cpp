// Backup and reorganisation: a verified copy in the backup folder, then a compacted file that
// takes the database's name in one step, with the former file kept as the remainder.
#include "core/Varmuuskopio.h"
#include "core/Tietokantanimet.h"
#include "core/Varmuusrivit.h"
#include "platform/kello.h"

#include "core/Asetukset.h"
#include "core/Kantatiedosto.h"
#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "platform/files.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

using kanta::Virhe;

const QString kRivi = QStringLiteral("\n");

QString kopiointiVirhe(const QString &lahde, const QString &kohde, const Virhe &v)
{
    return QStringLiteral("Tietokantaa ei voida kopioida ") + kRivi
        + QStringLiteral("hakemistosta: ") + lahde + kRivi
        + QStringLiteral("hakemistoon: ") + kohde + kRivi
        + QStringLiteral("(%1 / %2)").arg(v.numero).arg(v.kuvaus) + kRivi
        + QStringLiteral("Tarkista asetuksista tietokanta ja varmistushakemistot!") + kRivi
        + QStringLiteral("Yritä tämän jälkeen uudestaan.");
}

// Where the user's files are after a reorganisation that stopped half way.
QString tilanne(const QString &kanta, const QString &kopio)
{
    return kRivi + QStringLiteral("Käytössä oleva tietokanta on ennallaan: ") + kanta + kRivi
        + QStringLiteral("Varmuuskopio on tallessa: ") + kopio;
}

bool kopioiVarmuuskopioksi(const QString &kanta, const QString &kopio, Edistyminen *edistyminen, Virhe *v)
{
    const QString kansio = MainModule::BackupPath;
    if (kansio.isEmpty() || !kansio.endsWith(QLatin1Char('/'))) {
        *v = {76, QStringLiteral("Varmuuskopiohakemiston nimen pitää päättyä merkkiin /: %1").arg(kansio)};
        return false;
    }
    // The program's own default folder is made when missing; a folder of the user's (a memory
    // stick, a network drive) must be there already.
    if (kansio == files::defaultBackupFolder())
        files::ensureFolder(kansio);
    if (!files::FileExists(kanta)) {
        *v = {53, QStringLiteral("Tietokantaa ei löydy: %1").arg(kanta)};
        return false;
    }
    if (QFileInfo(kopio).absoluteFilePath() == QFileInfo(kanta).absoluteFilePath() || kanta::samaTiedosto(kopio, kanta)) {
        *v = {75, QStringLiteral("Varmuuskopiohakemisto on sama kuin tietokannan hakemisto.")};
        return false;
    }
    kanta::Kopiointi tapa;
    tapa.lukitseLahde = true;
    tapa.korvaaKohde = true;
    tapa.edistyminen = edistyminen;
    return kanta::kopioiTietokanta(kanta, kopio, tapa, v);
}

void poistaMerkinnat(const QString &kanta)
{
    try {
        auto db = db::Database::open(kanta);
        PoistaVarmuusrivit(*db);
    } catch (const db::DbError &) {
        // Left for the next backup or start, which remove them first.
    }
}

// Steps of the compaction: the output is a checked snapshot with the marked rows, made while
// nobody else has the file open.
bool tiivista(const QString &kanta, const QString &tulos, Edistyminen *edistyminen, Virhe *v)
{
    if (!kanta::poistaTietokantatiedosto(tulos)) {
        *v = kanta::virheJarjestelmasta(errno, tulos);
        return false;
    }
    kanta::Kopiointi tapa;
    tapa.lukitseLahde = true;
    tapa.korvaaKohde = true;
    tapa.taysiTarkistus = false;
    tapa.edistyminen = edistyminen;
    if (!kanta::kopioiTietokanta(kanta, tulos, tapa, v))
        return false;
    if (kanta::muuKayttajaPaalla(kanta)) {
        *v = {db::errorNumber(db::ErrorKind::CannotOpen),
              QStringLiteral("Tietokanta on toisen ohjelman tai työaseman käytössä. Sulje muut Vonarit ja yritä uudestaan.")};
        return false;
    }
    return true;
}

bool jarjestaUudelleen(const QString &kanta, const QString &kopio, Edistyminen *edistyminen)
{
    try {
        auto db = db::Database::open(kanta);
        LisaaVarmuusrivit(*db);
    } catch (const db::DbError &e) {
        IlmoitaVirhe(QStringLiteral("Tietokannan uudelleenjärjestely ei onnistunut. Palauta tietokanta varmuuskopiolta ennen kuin jatkat Vonarin käyttöä.")
                     + kRivi + kanta::virheKannasta(e).kuvaus + tilanne(kanta, kopio));
        return false;
    }

    const QString tulos = JarjestelynTulos(kanta);
    Virhe v;
    bool tiivistetty = false;
    try {
        tiivistetty = tiivista(kanta, tulos, edistyminen, &v);
    } catch (const Keskeytetty &) {
        // Stopped before the swap: the database is as it was, without the marks.
        kanta::poistaTietokantatiedosto(tulos);
        poistaMerkinnat(kanta);
        throw;
    }
    if (QCoreApplication::instance())
        QCoreApplication::processEvents();
    if (!tiivistetty) {
        kanta::poistaTietokantatiedosto(tulos);
        poistaMerkinnat(kanta);
        IlmoitaVirhe(QStringLiteral("Tietokannan uudelleenjärjestely ei onnistunut. Palauta tietokanta varmuuskopiolta ennen kuin jatkat Vonarin käyttöä.")
                     + kRivi + v.kuvaus + tilanne(kanta, kopio));
        return false;
    }

    const QString jaannos = JarjestelynJaannos(kanta);
    if (!kanta::sailytaNimella(kanta, jaannos, &v)) {
        kanta::poistaTietokantatiedosto(jaannos);
        if (!kanta::sailytaNimella(kanta, jaannos, &v)) {
            kanta::poistaTietokantatiedosto(tulos);
            poistaMerkinnat(kanta);
            IlmoitaVirhe(QStringLiteral("Tietokannan uudelleen nimeäminen ei onnistu.") + kRivi + v.kuvaus
                         + tilanne(kanta, kopio));
            return false;
        }
    }
    if (!kanta::korvaaAtomisesti(tulos, kanta, &v)) {
        poistaMerkinnat(kanta);
        IlmoitaVirhe(QStringLiteral("Korjatun tietokannan uudelleen nimeäminen ei onnistu.") + kRivi + v.kuvaus
                     + tilanne(kanta, kopio) + kRivi + QStringLiteral("Uudelleenjärjestetty tietokanta: ") + tulos);
        return false;
    }

    try {
        auto db = db::Database::open(kanta);
        PoistaVarmuusrivit(*db);
    } catch (const db::DbError &e) {
        IlmoitaVirhe(QStringLiteral("Varmuuskopioinnin merkintärivien poisto ei onnistunut: ") + e.message()
                     + kRivi + QStringLiteral("Ne poistetaan seuraavalla käynnistyskerralla.")
                     + kRivi + QStringLiteral("Varmuuskopio on tallessa: ") + kopio);
        return false;
    }
    return true;
}

void kirjaaVarmuuskopionPaiva(const QString &kanta)
{
    try {
        auto db = db::Database::open(kanta);
        KantaStore asetukset(*db);
        asetukset.writeString(QStringLiteral("BackupDate"), kello::tanaan().toString(Qt::ISODate));
    } catch (const db::DbError &) {
        // The backup itself is done; the reminder only comes back sooner.
    }
}

} // namespace

bool TeeVarmuuskopio()
{
    using MainModule::BackupPath;
    const QString kanta = MainModule::DatabasePath;
    Ilmoita(QStringLiteral("Aloitetaan tietokannan varmuuskopiointi ja uudelleenjärjestely.") + kRivi
            + QStringLiteral("Varmista että kohde ") + BackupPath + QStringLiteral(" on valmiina.") + kRivi
            + QStringLiteral("Kopiointi kestää hetken..."));

    const QString kopio = VarmuuskopionNimi(BackupPath, kanta);
    Virhe v;
    try {
        const std::unique_ptr<Edistyminen> edistyminen = UusiEdistyminen(QStringLiteral("Varmuuskopiointi ja uudelleenjärjestely"));
        if (!kopioiVarmuuskopioksi(kanta, kopio, edistyminen.get(), &v)) {
            IlmoitaVirhe(kopiointiVirhe(kanta, kopio, v));
            return false;
        }
        if (!jarjestaUudelleen(kanta, kopio, edistyminen.get()))
            return false;
    } catch (const Keskeytetty &) {
        Ilmoita(QStringLiteral("Varmuuskopiointi ja uudelleenjärjestely keskeytettiin. Tietokanta on ennallaan."));
        return false;
    }
    Ilmoita(QStringLiteral("Tietokannan varmuuskopiointi ja uudelleenjärjestely valmis."));
    kirjaaVarmuuskopionPaiva(kanta);
    return true;
}
