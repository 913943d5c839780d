#include "app/Main.h"

#include "core/AsetuksetIni.h"
#include "core/AsetustenSiirto.h"
#include "core/Kaynnistys.h"
#include "core/MainModule.h"
#include "core/ui/frmAsetukset.h"
#include "core/ui/frmAsetuksetLisa.h"
#include "app/frmMain.h"
#include "app/frmSplash.h"

using namespace MainModule;

namespace {

void avaaAsetusikkunat()
{
    {
        frmAsetukset asetukset;
        asetukset.exec();
    }
    frmAsetuksetLisa lisa;
    lisa.exec();
}

} // namespace

std::unique_ptr<frmMain> Main(const MainValinnat &valinnat)
{
    AppName = QStringLiteral("Vonari");
    IniName = QStringLiteral("Vonari.ini");
    LueIniAsetukset();

    {
        frmSplash splash(valinnat.splashMs);
        if (!splash.Form_Load())
            return nullptr;
    }

    if (!TarkistaSalasana())
        return nullptr;
    if (TarkistaAsetustenSiirto(valinnat.avaaAsetukset ? valinnat.avaaAsetukset : avaaAsetusikkunat))
        return nullptr;
    MuistutaVarmuuskopiosta();

    auto ikkuna = std::make_unique<frmMain>();
    ikkuna->setWindowTitle(AppName + QStringLiteral(" - ") + RegName);
    ikkuna->ResetReportFormulas();
    ikkuna->show();
    return ikkuna;
}
