#include "komento/Komento.h"

namespace komento {

bool Valitsimet::lue(const QStringList &argumentit, QString *virhe)
{
    for (int i = 0; i < argumentit.size(); ++i) {
        const QString &a = argumentit[i];
        if (!a.startsWith(QLatin1String("--")) || a == QLatin1String("--")) {
            paikalliset << a;
        } else if (m_liput.contains(a)) {
            m_arvot[a] << QString();
        } else if (m_arvolliset.contains(a)) {
            if (i + 1 >= argumentit.size()) {
                *virhe = QStringLiteral("Valitsimelta %1 puuttuu arvo.").arg(a);
                return false;
            }
            m_arvot[a] << argumentit[++i];
        } else {
            *virhe = QStringLiteral("Tuntematon valitsin %1.").arg(a);
            return false;
        }
    }
    return true;
}

QDate LuePaiva(const QString &teksti)
{
    const QString t = teksti.trimmed();
    QDate p = QDate::fromString(t, Qt::ISODate);
    if (!p.isValid())
        p = QDate::fromString(t, QStringLiteral("d.M.yyyy"));
    return p;
}

int Virhe(const QString &teksti, int tila)
{
    KirjoitaVirheeseen(teksti);
    return tila;
}

} // namespace komento
