#include "core/Kaksoisnumerot.h"

#include "core/Asetukset.h"
#include "core/Ilmoitukset.h"
#include "core/UpdateDatabase.h"

#include <QCryptographicHash>

namespace {

const QString Avain = QStringLiteral("KaksoisnumerotIlmoitettu");
constexpr int NaytettaviaEnintaan = 30;
constexpr int ArvonPituus = 255;

// The numbers told, as they fit the settings table; a list too long for it is remembered by
// its fingerprint, and then only a changed list is told again.
QString muistettava(const QStringList &numerot)
{
    const QString lista = numerot.join(QLatin1Char(';'));
    if (lista.size() < ArvonPituus && !lista.startsWith(QLatin1Char('#')))
        return lista;
    return QLatin1Char('#')
           + QString::fromLatin1(QCryptographicHash::hash(lista.toUtf8(), QCryptographicHash::Sha1).toHex());
}

bool onJoKerrottu(const QString &muisti, const QStringList &numerot)
{
    if (muisti.isEmpty())
        return false;
    if (muisti.startsWith(QLatin1Char('#')))
        return muisti == muistettava(numerot);
    const QStringList kerrotut = muisti.split(QLatin1Char(';'));
    for (const QString &n : numerot)
        if (!kerrotut.contains(n))
            return false;
    return true;
}

} // namespace

QString KaksoisnumeroViesti(const QStringList &numerot)
{
    QString lista = numerot.mid(0, NaytettaviaEnintaan).join(QStringLiteral(", "));
    if (numerot.size() > NaytettaviaEnintaan)
        lista += QStringLiteral(" … (yhteensä %1 numeroa)").arg(numerot.size());
    return QStringLiteral("Samaa jäsennumeroa käyttää tietokannassa useampi kuin yksi jäsen. Numerot:\n")
           + lista
           + QStringLiteral("\n\nKaikki jäsenet ovat tallessa. Anna näille jäsenille eri numerot jäsenikkunassa. "
                            "Kun jokaisella numerolla on vain yksi jäsen, Vonari pitää numerot jatkossa "
                            "yksilöllisinä.");
}

bool IlmoitaKaksoisnumeroista(db::Database &db)
{
    QStringList numerot;
    QString muisti;
    try {
        numerot = KaksoisJasennumerot(db);
        if (numerot.isEmpty())
            return false;
        muisti = KantaStore(db).readString(Avain);
    } catch (const db::DbError &) {
        return false;
    }
    if (onJoKerrottu(muisti, numerot))
        return false;
    Ilmoita(KaksoisnumeroViesti(numerot));
    try {
        KantaStore(db).writeString(Avain, muistettava(numerot));
    } catch (const db::DbError &) {
        // A read-only club is told again at its next opening.
    }
    return true;
}
