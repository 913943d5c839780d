#include "core/MainModule.h"

#include "platform/files.h"

#include <memory>

namespace MainModule {
namespace {
std::unique_ptr<IniStore> g_ini;
}

IniStore &IniAsetukset()
{
    if (!g_ini) {
        g_ini = std::make_unique<IniStore>();
        g_ini->setFileName(files::iniFilePath(IniName));
        g_ini->setSection(QStringLiteral("VONARI"));
    }
    return *g_ini;
}

void releaseIniAsetukset() { g_ini.reset(); }

void resetGlobals()
{
    AppName = QStringLiteral("Vonari");
    IniName = QStringLiteral("Vonari.ini");
    DatabasePath.clear();
    BackupPath.clear();
    MultiDb = false;
    OletusKantaOtettu = false;
    RegName.clear(); Henkilo.clear(); RegOsoite.clear(); RegPostinumero.clear();
    RegPostitoimipaikka.clear(); RegPuhelin.clear(); RegFax.clear(); Email.clear();
    RegSeuranEmail.clear(); RegWWW.clear(); SMTP.clear();
    EmailPerMin = 0;
    EmailSystem = false;
    SMTPPortti = 0;
    SMTPSuojaus = 0;
    SMTPKayttaja.clear();
    SMTPVarmenne.clear();
    RegPankkiyhteys1.clear(); RegPankkiyhteys2.clear(); YTunnus.clear();
    EmailPohja.clear(); EmailKarhupohja.clear(); Salasana.clear(); ViiteHakemisto.clear();
    Laskunro = 0;
    Jasennro = 0;
    BackupDate = QDate();
    VarmuuskopioPv = 30;
    AutoJasennumero = MuistutaVarm = LaskupohjaKaytossa = LaskupohjaHKaytossa = false;
    LaskupohjaTiedosto.clear(); LaskupohjaHTiedosto.clear();
    Muistutuskulut = Currency();
    Viivastyskorko = 0;
    MuistutusOtsake.clear(); MuistutusAlku.clear(); MuistutusLoppu.clear();
    TulostusEra = 0;
    Suoritustiedosto.clear(); OsoiteTiedosto.clear();
    OsoiteMuoto = 0;
    SuuretSuorituksetMaksetuksi = SuorituksellaMaksetuksiJosEiLoppusummaa = false;
    Fontti = QStringLiteral("Times New Roman");
    FonttiKoko = 10;
    MargOik = MargVas = MargYla = MargAla = 0;
    RaporttiMarginaalit = {};
    releaseIniAsetukset();
}

QString versionText()
{
    return QStringLiteral("%1.%2.%3").arg(VONARI_VERSION_MAJOR).arg(VONARI_VERSION_MINOR).arg(VONARI_VERSION_PATCH);
}
int versionMajor() { return VONARI_VERSION_MAJOR; }
int versionMinor() { return VONARI_VERSION_MINOR; }

} // namespace MainModule
