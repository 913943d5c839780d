// Opening the club's database at start: the read-only question, the error loop and what a
// clean open leads to.
#include "core/Avaus.h"
#include "core/Tietokantanimet.h"
#include "core/Korjaus.h"
#include "core/Varmuusrivit.h"
#include "platform/kello.h"

#include "core/Asetukset.h"
#include "core/AsetuksetIni.h"
#include "core/Kaksoisnumerot.h"
#include "core/Kantatiedosto.h"
#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "core/UpdateDatabase.h"
#include "platform/files.h"

#include <QFileInfo>

namespace {

const QString kRivi = QStringLiteral("\n");

bool onDemoTietokanta(const QString &polku)
{
    return polku.size() > 9 && polku.right(9).toUpper() == QLatin1String("DEMO1.MDB");
}

// A file without write permission counts as one that cannot be opened, as the read-only
// attribute does, and damage that the quick check finds counts as a failed open.
std::unique_ptr<db::Database> avaa(const QString &polku)
{
    if (QFileInfo(polku).isDir())
        throw db::DbError(db::ErrorKind::BadPath, QStringLiteral("%1 on hakemisto eikä tietokantatiedosto.").arg(polku));
    if (files::isReadOnly(polku))
        throw db::DbError(db::ErrorKind::CannotOpen, QStringLiteral("Tietokantatiedosto on kirjoitussuojattu: %1").arg(polku));
    auto d = db::Database::open(polku);
    // Damage is in the file's structure; the field rules are checked as values are written.
    d->execute(QStringLiteral("PRAGMA ignore_check_constraints=ON"));
    QString raportti;
    if (!d->quickCheck(&raportti))
        throw db::DbError(db::ErrorKind::Corrupt, QStringLiteral("Tietokanta on vioittunut (%1).").arg(raportti.left(300)));
    d->execute(QStringLiteral("PRAGMA ignore_check_constraints=OFF"));
    return d;
}

void kysyKirjoitussuojauksesta(const QString &polku)
{
    if (!files::isReadOnly(polku))
        return;
    Ilmoita(QStringLiteral("Tietokanta on kirjoitussuojatussa tilassa.") + kRivi
            + QStringLiteral("Ennen avaamista Vonarissa sen tulee olla kirjoitettavassa tilassa."));
    if (!Kysy(QStringLiteral("Haluatko, että Vonari muuttaa tietokannan kirjoitettavaan tilaan?")))
        return;
    if (!files::makeWritable(polku))
        Ilmoita(QStringLiteral("Kirjoitussuojauksen poistaminen ei jostain syystä onnistunut."));
}

QString kaytossaTeksti(const QString &polku)
{
    return QStringLiteral("Tietokantatiedosto: ") + polku + QStringLiteral(" on jo käytössä,") + kRivi
        + QStringLiteral("tai") + kRivi
        + QStringLiteral("Tietokantahakemistoon tai tietokantatiedostoon ei ole kirjoitusoikeuksia.") + kRivi
        + kRivi
        + QStringLiteral("Jos käytät Vonaria tässä tietokoneessa ensimmäistä kertaa, kyse on todennäköisesti "
                         "kirjoitusoikeuksien puuttumisesta. Näytä tämä ilmoitus tietokoneen pääkäyttäjälle.") + kRivi
        + QStringLiteral("Lisätietoja Vonarin vaatimista käyttöoikeuksista saat Norvikista.") + kRivi
        + kRivi
        + QStringLiteral("Jos Vonari on toiminut tietokoneessa aiemmin, käynnistä tietokone uudestaan.") + kRivi
        + QStringLiteral("Uudelleenkäynnistys saattaa korjata ongelman.");
}

bool tarjoaOletusta()
{
    if (!Kysy(QStringLiteral("Yritetäänkö avata oletustietokanta?")))
        return false;
    MainModule::DatabasePath = OletusTietokanta();
    MainModule::OletusKantaOtettu = true;
    return true;
}

enum class Jatko { Uudelleen, Loppu, Lopeta };

Jatko kasitteleVirhe(const db::DbError &e)
{
    const QString polku = MainModule::DatabasePath;
    switch (e.kind()) {
    case db::ErrorKind::NotFound:
    case db::ErrorKind::BadPath:
        Ilmoita(QStringLiteral("Tietokantaa ei löydy, korjaa asetuksista tietokannan nimi") + kRivi
                + QStringLiteral("Nykyinen nimi: ") + polku);
        return tarjoaOletusta() ? Jatko::Uudelleen : Jatko::Loppu;
    case db::ErrorKind::CannotOpen:
        if (onDemoTietokanta(polku))
            return Jatko::Loppu;
        IlmoitaVirhe(kaytossaTeksti(polku));
        Ilmoita(QStringLiteral("Vonari suljetaan."));
        return Jatko::Lopeta;
    default:
        break;
    }
    // A file of another kind is never repaired: the user is told what it is.
    if (e.kind() == db::ErrorKind::NotOurDatabase && db::probeFile(polku) != db::FileKind::SQLite) {
        IlmoitaVirhe(e.message());
        return tarjoaOletusta() ? Jatko::Uudelleen : Jatko::Loppu;
    }
    Ilmoita(QStringLiteral("%1;%2").arg(e.number()).arg(e.message()) + kRivi
            + QStringLiteral("Tietokantaa avattaessa tapahtui virhe:"));
    KorjaaTietokanta(false);
    return Jatko::Loppu;
}

bool onJasenia(db::Database &d)
{
    try {
        return d.scalar(QStringLiteral("SELECT EXISTS (SELECT 1 FROM jr)")).toBool();
    } catch (const db::DbError &) {
        return true;
    }
}

// An upgrade can always be undone: the file as it was is copied beside it first. The earliest
// copy of the day is kept, so a second attempt after a failed upgrade does not replace it.
bool otaPaivitystaEdeltavaKopio(const QString &kanta)
{
    const QString kopio = PaivitystaEdeltavaKopio(kanta, kello::tanaan());
    if (files::FileExists(kopio))
        return true;
    kanta::Kopiointi tapa;
    tapa.lukitseLahde = true;
    kanta::Virhe v;
    if (kanta::kopioiTietokanta(kanta, kopio, tapa, &v)) {
        Ilmoita(QStringLiteral("Tietokanta päivitetään Vonarin uuteen versioon. Tietokanta sellaisena kuin se oli "
                               "ennen päivitystä on tallessa nimellä:") + kRivi + kopio);
        return true;
    }
    if (Kysy(QStringLiteral("Tietokannasta ei voitu ottaa varmuuskopiota ennen sen päivittämistä Vonarin uuteen versioon.")
             + kRivi + QStringLiteral("(%1 / %2)").arg(v.numero).arg(v.kuvaus) + kRivi
             + QStringLiteral("Jatketaanko päivitystä ilman varmuuskopiota?")))
        return true;
    Ilmoita(QStringLiteral("Vonari suljetaan."));
    return false;
}

bool paivita(db::Database &d)
{
    bool ajantasalla = false;
    try {
        ajantasalla = TietokantaOnAjantasalla(d);
    } catch (const db::DbError &) {
    }
    if (!ajantasalla && onJasenia(d) && !otaPaivitystaEdeltavaKopio(d.path()))
        return false;
    try {
        UpdateDatabase(d);
    } catch (const db::DbError &) {
        // The first step that fails ends the upgrade for this start; the rest comes next time.
    }
    IlmoitaKaksoisnumeroista(d);
    return true;
}

// Marked rows are left only by a backup that was stopped half way.
void siivoaVarmuusrivit(db::Database &d)
{
    try {
        if (d.columnNames(QStringLiteral("jm")).contains(QStringLiteral("BackupRow"))
            && d.scalar(QStringLiteral("SELECT EXISTS (SELECT 1 FROM jm WHERE BackupRow = 1)")).toBool())
            PoistaVarmuusrivit(d);
    } catch (const db::DbError &) {
    }
}

} // namespace

std::unique_ptr<db::Database> AvaaTietokantaKaynnistyksessa(bool &lopeta)
{
    lopeta = false;
    kysyKirjoitussuojauksesta(MainModule::DatabasePath);
    for (;;) {
        std::unique_ptr<db::Database> d;
        try {
            d = avaa(MainModule::DatabasePath);
        } catch (const db::DbError &e) {
            const Jatko jatko = kasitteleVirhe(e);
            if (jatko == Jatko::Uudelleen)
                continue;
            lopeta = jatko == Jatko::Lopeta;
            return nullptr;
        }
        if (!paivita(*d)) {
            lopeta = true;
            return nullptr;
        }
        if (MainModule::OletusKantaOtettu)
            MainModule::IniAsetukset().writeString(QStringLiteral("Database"), MainModule::DatabasePath);
        siivoaVarmuusrivit(*d);
        try {
            LueAsetukset(*d);
        } catch (const db::DbError &) {
            // The globals keep their defaults.
        }
        return d;
    }
}

std::unique_ptr<db::Database> AvaaKomennolle(const QString &polku)
{
    MainModule::DatabasePath = polku;
    std::unique_ptr<db::Database> d;
    try {
        d = avaa(polku);
    } catch (const db::DbError &e) {
        switch (e.kind()) {
        case db::ErrorKind::NotFound:
        case db::ErrorKind::BadPath:
            IlmoitaVirhe(QStringLiteral("Tietokantaa ei löydy: ") + polku);
            break;
        case db::ErrorKind::Corrupt:
            IlmoitaVirhe(e.message() + kRivi + QStringLiteral("Korjaa tietokanta Vonarissa ennen komennon ajamista."));
            break;
        default:
            IlmoitaVirhe(e.message());
        }
        return nullptr;
    }
    if (!paivita(*d))
        return nullptr;
    siivoaVarmuusrivit(*d);
    LueAsetukset(*d);
    return d;
}

