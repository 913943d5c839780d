#include "members/ui/Tapahtumat.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"

namespace tapahtuma {

bool tietokantaAsetettu()
{
    const QString polku = MainModule::DatabasePath.trimmed();
    if (polku.isEmpty() || polku.compare(QLatin1String("unknown"), Qt::CaseInsensitive) == 0) {
        Ilmoita(QStringLiteral("Tarkista tietokanta asetukset asetusikkunasta!"));
        return false;
    }
    return true;
}

void naytaVirhe(const QString &teksti) { IlmoitaVirhe(teksti); }

} // namespace tapahtuma
