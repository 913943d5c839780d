// Repair of a damaged database: the salvaged copy takes the file's name and the damaged file
// is kept beside it, untouched.
#include "core/Korjaus.h"
#include "core/Tietokantanimet.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "core/Pelastus.h"

#include <QFileInfo>

namespace {

const QString kRivi = QStringLiteral("\n");

// What lies at the path when it is not a SQLite file at all; empty when it is one.
QString muuTiedosto(const QString &polku)
{
    if (db::probeFile(polku) == db::FileKind::SQLite)
        return {};
    try {
        db::Database::open(polku, db::OpenMode::ReadOnly);
    } catch (const db::DbError &e) {
        return e.message();
    }
    return {};
}

// The damaged file's write-ahead log belongs to it: it goes along under the remainder's name
// rather than meet the repaired file.
bool siirraLoki(const QString &kanta, const QString &jaannos, kanta::Virhe *v)
{
    const QString loki = kanta + QStringLiteral("-wal");
    const QString jaannoksenLoki = jaannos + QStringLiteral("-wal");
    if (QFileInfo::exists(loki)) {
        if (!kanta::korvaaAtomisesti(loki, jaannoksenLoki, v))
            return false;
    } else {
        QFile::remove(jaannoksenLoki); // of an earlier remainder
    }
    QFile::remove(jaannos + QStringLiteral("-shm"));
    QFile::remove(kanta + QStringLiteral("-shm"));
    return true;
}

} // namespace

bool KorjaaTietokanta(bool asetuksista)
{
    const QString kanta = MainModule::DatabasePath;
    const QString mikaTiedosto = muuTiedosto(kanta);
    if (!mikaTiedosto.isEmpty()) {
        IlmoitaVirhe(mikaTiedosto);
        return false;
    }
    Ilmoita(asetuksista
                ? QStringLiteral("Tietokanta on vioittunut edellisen käyttökerran lopetuksen yhteydessä, yritän korjata tietokannan. Odota hetki.")
                : QStringLiteral("Tietokanta on mahdollisesti vioittunut edellisen käyttökerran lopetuksen yhteydessä, yritän korjata tietokannan. Odota hetki."));

    const QString tulos = KorjauksenTulos(kanta);
    const QString jaannos = KorjauksenJaannos(kanta);
    kanta::Virhe v;
    kanta::Pelastus pelastus;
    kanta::poistaTietokantatiedosto(tulos);
    bool pelastettu = false;
    try {
        const std::unique_ptr<Edistyminen> edistyminen = UusiEdistyminen(QStringLiteral("Tietokannan korjaus"));
        pelastettu = kanta::pelastaTietokanta(kanta, tulos, &pelastus, &v, edistyminen.get());
    } catch (const Keskeytetty &) {
        kanta::poistaTietokantatiedosto(tulos);
        Ilmoita(QStringLiteral("Tietokannan korjaus keskeytettiin.") + kRivi
                + QStringLiteral("Tietokantatiedostoa ei ole muutettu: ") + kanta);
        return false;
    }
    if (!pelastettu) {
        kanta::poistaTietokantatiedosto(tulos);
        Ilmoita(QStringLiteral("Tietokannan korjaus ei onnistunut. Palauta tietokanta varmuuskopiolta ennen kuin jatkat Vonarin käyttöä.")
                + kRivi + QStringLiteral("(%1 / %2)").arg(v.numero).arg(v.kuvaus) + kRivi
                + QStringLiteral("Tietokantatiedostoa ei ole muutettu: ") + kanta);
        return false;
    }
    if (!kanta::sailytaNimella(kanta, jaannos, &v) || !siirraLoki(kanta, jaannos, &v)) {
        Ilmoita(QStringLiteral("Vioittuneen tietokannan uudelleen nimeäminen ei onnistu.") + kRivi + v.kuvaus + kRivi
                + QStringLiteral("Korjattu tietokanta on tallessa nimellä: ") + tulos);
        return false;
    }
    if (!kanta::korvaaAtomisesti(tulos, kanta, &v)) {
        Ilmoita(QStringLiteral("Korjatun tietokannan uudelleen nimeäminen ei onnistu.") + kRivi + v.kuvaus + kRivi
                + QStringLiteral("Korjattu tietokanta on tallessa nimellä: ") + tulos);
        return false;
    }
    QString valmis = QStringLiteral("Tietokanta on korjattu, ja korjattu tietokanta on käytössä, kun Vonari seuraavan kerran käynnistetään.")
        + kRivi + QStringLiteral("Vioittunut tietokanta on tallessa nimellä: ") + jaannos;
    if (!pelastus.vajaatTaulut.isEmpty())
        valmis += kRivi + QStringLiteral("Kaikkia rivejä ei saatu luettua tauluista: ") + pelastus.vajaatTaulut.join(QStringLiteral(", "));
    Ilmoita(valmis);
    return true;
}
