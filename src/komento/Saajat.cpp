#include "komento/Saajat.h"

#include "platform/arvot.h"
#include "platform/database.h"

namespace komento {

std::optional<LaskunSaajat> LueSaajat(db::Database &db, const Valitsimet &v, QString *virhe, int *tila)
{
    LaskunSaajat s;
    s.valittu = true;
    s.chkEiPerheellisille = v.onko(QStringLiteral("--ei-perheellisille"));
    s.chkMuille = v.onko(QStringLiteral("--muille"));
    const QString kenelle = v.onko(QStringLiteral("--kenelle")) ? v.arvo(QStringLiteral("--kenelle")) : QStringLiteral("kaikki");
    if (kenelle == u"kaikki") {
        s.teksti = QStringLiteral("Kaikki");
    } else if (kenelle.startsWith(u"ominaisuus:")) {
        const QString nimi = kenelle.mid(11);
        const QVariant piID = db.scalar(QStringLiteral("SELECT piID FROM pi WHERE piNimi = ? ORDER BY piID LIMIT 1"), {nimi});
        if (!piID.isValid()) {
            *virhe = QStringLiteral("Ominaisuutta %1 ei löydy.").arg(nimi);
            *tila = Epaonnistui;
            return std::nullopt;
        }
        s.tunniste = -NullLong(piID);
        s.teksti = QStringLiteral("Om - ") + nimi;
    } else if (kenelle.startsWith(u"jasen:") && kenelle.mid(6).toLongLong() > 0) {
        s.tunniste = kenelle.mid(6).toLongLong();
        s.teksti = kenelle;
    } else {
        *virhe = QStringLiteral("--kenelle on kaikki, ominaisuus:NIMI tai jasen:JRID.");
        *tila = VaaraKaytto;
        return std::nullopt;
    }
    return s;
}

} // namespace komento
