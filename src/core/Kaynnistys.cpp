#include "core/Kaynnistys.h"
#include "core/Avaus.h"

#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "core/Ohjelmakansio.h"
#include "platform/dialogs.h"
#include "platform/files.h"

#include <QLocale>

using namespace MainModule;

bool IsDemoDatabase(const QString &path)
{
    return path.size() > 9 && path.right(9).toUpper() == QLatin1String("DEMO1.MDB");
}

bool TarkistaSalasana()
{
    if (Salasana.isEmpty())
        return true;
    const auto vastaus = dlg::current().input(QStringLiteral("Anna salasana"), AppName, {}, true);
    if (vastaus.value_or(QString()) == Salasana)
        return true;
    Ilmoita(QStringLiteral("Annettu salasana on väärin, ohjelma lopetetaan."));
    return false;
}

bool VarmuuskopioErapaivana(const QDate &tanaan, const QDate &viimeisin, long paivia)
{
    if (!viimeisin.isValid())
        return true;
    return qAbs(viimeisin.daysTo(tanaan)) > paivia;
}

void MuistutaVarmuuskopiosta(const QDate &tanaan, const std::function<void()> &teeVarmuuskopio)
{
    if (!MuistutaVarm || !VarmuuskopioErapaivana(tanaan, BackupDate, VarmuuskopioPv))
        return;
    const QString kysymys = QStringLiteral("Varmuuskopion tekemisestä on yli ") + QString::number(VarmuuskopioPv)
        + QStringLiteral(" päivää.\nTehdäänkö varmuuskopio nyt?");
    if (dlg::current().question(kysymys, AppName, false, dlg::Icon::Question) == dlg::Answer::Yes)
        teeVarmuuskopio();
}

QString JarjestelmanValuuttatunnus() { return QLocale::system().currencySymbol(QLocale::CurrencySymbol); }

bool TarkistaValuuttatunnus(const QString &tunnus)
{
    // Zero as currency without decimals, then only the symbol remains once the zeros go.
    QString nolla = QLocale(QLocale::Finnish, QLocale::Finland).toCurrencyString(0.0, tunnus, 0);
    nolla.remove(QLatin1Char('0'));
    if (nolla.trimmed().toUpper() != QLatin1String("MK"))
        return false;
    Ilmoita(QStringLiteral("Tietokoneen valuuttatunnuksena on vielä 'mk'.\n"
                           "Muuta valuuttatunnus Ohjauspaneelista kohdasta Kansallisuusasetukset.\n"
                           "Lisätietoja saat osoitteesta tuki@vonari.fi."));
    return true;
}

QString SeuranValinnanAloitus(const QString &databasePath)
{
    return databasePath.right(4).contains(QLatin1String("mdb"), Qt::CaseInsensitive) ? databasePath
                                                                                    : files::programFolder();
}

void ValitseSeura()
{
    dlg::FileRequest pyynto;
    pyynto.title = QStringLiteral("Seuran valinta");
    pyynto.filter = QStringLiteral("Database (*.mdb)|*.mdb");
    pyynto.defaultExt = QStringLiteral("mdb");
    pyynto.startPath = SeuranValinnanAloitus(DatabasePath);
    const QString valittu = dlg::current().openFile(pyynto);
    if (!valittu.isEmpty())
        DatabasePath = valittu;
}

bool AvaaTietokantaJaLueSeura()
{
    // The demonstration club and the template must be there before the first opening.
    VarmistaOhjelmakansio();
    bool lopeta = false;
    try {
        std::unique_ptr<db::Database> kanta = AvaaTietokantaKaynnistyksessa(lopeta);
        if (kanta) {
            KantaStore asetukset(*kanta);
            RegName = asetukset.readString(QStringLiteral("RegName"));
            kanta->close();
        }
    } catch (const std::exception &) {
        // The opening tells its own failures; the start goes on without the club's name.
    }
    return !lopeta;
}
