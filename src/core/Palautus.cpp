// Restore of a backup into the user's data folder, and taking it into use from the next start.
#include "core/Palautus.h"
#include "platform/kello.h"

#include "core/Kantatiedosto.h"
#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "platform/dialogs.h"
#include "platform/files.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

namespace {

const QString kRivi = QStringLiteral("\n");
const QString kOtsikko = QStringLiteral("Tietokannan palautus");
const QString kSuodatin = QStringLiteral("Database (*.mdb)|*.mdb");

QString epaonnistui(const QString &lahde, const QString &kohde, const kanta::Virhe &v)
{
    return QStringLiteral("Varmuuskopion palautus ei onnistunut") + kRivi
        + QStringLiteral("tiedostosta: ") + lahde + kRivi
        + QStringLiteral("tiedostoon: ") + kohde + kRivi
        + QStringLiteral("(%1 / %2)").arg(v.numero).arg(v.kuvaus) + kRivi
        + QStringLiteral("Tiedostoja ei ole muutettu.");
}

// The replaced file is kept beside the restored one, so that nothing typed since the backup
// is lost by a wrong choice.
QString korvatunNimi(const QString &kohde)
{
    const QFileInfo tieto(kohde);
    const QString kansio = kohde.left(kohde.lastIndexOf(QLatin1Char('/')) + 1);
    const QString liite = tieto.suffix().isEmpty() ? QString() : QLatin1Char('.') + tieto.suffix();
    return kansio + tieto.completeBaseName() + QStringLiteral("-ennen-palautusta-")
        + kello::nyt().toString(QStringLiteral("yyyyMMdd-HHmmss")) + liite;
}

// A database still open elsewhere has its log beside it; one left by a crash goes at one open.
bool vapaana(const QString &kohde)
{
    if (!kanta::muuKayttajaPaalla(kohde))
        return true;
    try {
        db::Database::open(kohde);
    } catch (const db::DbError &) {
    }
    return !kanta::muuKayttajaPaalla(kohde);
}

bool korvaa(const QString &lahde, const QString &kohde)
{
    if (!vapaana(kohde)) {
        IlmoitaVirhe(QStringLiteral("Tiedosto ") + kohde
                     + QStringLiteral(" on toisen ohjelman käytössä, eikä sitä voi nyt korvata. Tiedostoja ei ole muutettu."));
        return false;
    }
    const QString talteen = korvatunNimi(kohde);
    kanta::Virhe v;
    if (!kanta::sailytaNimella(kohde, talteen, &v)) {
        IlmoitaVirhe(epaonnistui(lahde, kohde, v));
        return false;
    }
    kanta::Kopiointi tapa;
    tapa.korvaaKohde = true;
    if (!kanta::kopioiTietokanta(lahde, kohde, tapa, &v)) {
        QFile::remove(talteen);
        IlmoitaVirhe(epaonnistui(lahde, kohde, v));
        return false;
    }
    Ilmoita(QStringLiteral("Korvattu tiedosto on tallessa nimellä:") + kRivi + talteen);
    return true;
}

bool palauta(const QString &lahde, const QString &kohde)
{
    kanta::Kopiointi tapa;
    kanta::Virhe v;
    if (kanta::kopioiTietokanta(lahde, kohde, tapa, &v))
        return true;
    if (!QFileInfo::exists(kohde)) {
        IlmoitaVirhe(epaonnistui(lahde, kohde, v));
        return false;
    }
    if (!Kysy(QStringLiteral("Tiedosto on jo olemassa, korvataanko varmuuskopiolla?")))
        return false;
    // The backup chosen as its own target is already in place.
    return kanta::samaTiedosto(lahde, kohde) || korvaa(lahde, kohde);
}

} // namespace

void Palautus()
{
    dlg::FileRequest avaus;
    avaus.title = kOtsikko;
    avaus.filter = kSuodatin;
    avaus.startPath = MainModule::BackupPath.isEmpty() ? QDir::homePath() : MainModule::BackupPath;
    const QString lahde = dlg::current().openFile(avaus);
    if (lahde.isEmpty())
        return;

    const QString kansio = files::documentsFolder();
    files::ensureFolder(kansio);
    dlg::FileRequest tallennus;
    tallennus.title = kOtsikko;
    tallennus.filter = kSuodatin;
    tallennus.defaultExt = QStringLiteral("mdb");
    tallennus.startPath = files::joinPath(kansio, files::fileNamePart(lahde));
    const QString kohde = dlg::current().saveFile(tallennus);
    if (kohde.isEmpty())
        return;

    if (db::probeFile(lahde) != db::FileKind::SQLite) {
        try {
            db::Database::open(lahde, db::OpenMode::ReadOnly);
        } catch (const db::DbError &e) {
            IlmoitaVirhe(e.message());
        }
        return;
    }
    if (!palauta(lahde, kohde))
        return;

    if (Kysy(QStringLiteral("Otetaanko palautettu tietokanta käyttöön?"))) {
        if (!MainModule::IniAsetukset().writeString(QStringLiteral("Database"), kohde))
            IlmoitaVirhe(QStringLiteral("Asetustiedostoon ") + MainModule::IniAsetukset().fileName()
                         + QStringLiteral(" ei voitu kirjoittaa. Palautettu tietokanta on tallessa: ") + kohde);
        MainModule::DatabasePath = kohde;
    }
}
