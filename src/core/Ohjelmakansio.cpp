#include "core/Ohjelmakansio.h"

#include "esittely/Esittelyseura.h"
#include "core/Malli.h"
#include "core/Ilmoitukset.h"
#include "email/Sahkopostilaskut.h"
#include "platform/database.h"
#include "platform/files.h"

#include <QFile>
#include <QFileInfo>

namespace {

QString virheteksti(const std::exception &e)
{
    if (const auto *d = dynamic_cast<const db::DbError *>(&e))
        return d->message();
    return QString::fromLocal8Bit(e.what());
}

bool onOlemassa(const QString &polku)
{
    const QFileInfo fi(polku);
    return fi.exists() || fi.isSymLink();
}

void poistaTyotiedosto(const QString &polku)
{
    for (const char *liite : {"", "-wal", "-shm", "-journal"})
        QFile::remove(polku + QLatin1String(liite));
}

void varmistaDemo(const QString &kansio)
{
    const QString demo = files::joinPath(kansio, QStringLiteral("demo1.mdb"));
    if (onOlemassa(demo))
        return;
    const QString tyo = demo + QStringLiteral(".kesken");
    poistaTyotiedosto(tyo); // left by a start that was cut short
    try {
        LuoDemoTietokanta(tyo);
    } catch (const std::exception &e) {
        poistaTyotiedosto(tyo);
        Ilmoita(QStringLiteral("Esittelytietokantaa ei voitu luoda:\n%1\n\n%2").arg(demo, virheteksti(e)));
        return;
    }
    // rename() never replaces: a file made meanwhile by someone else stays as it is.
    if (!QFile::rename(tyo, demo)) {
        poistaTyotiedosto(tyo);
        if (!onOlemassa(demo))
            Ilmoita(QStringLiteral("Esittelytietokantaa ei voitu tallentaa nimelle:\n%1").arg(demo));
    }
}

} // namespace

void VarmistaOhjelmakansio()
{
    const QString kansio = files::programFolder();
    if (!files::ensureFolder(kansio)) {
        Ilmoita(QStringLiteral("Ohjelman kansiota ei voitu luoda:\n%1\n\nTarkista kansion käyttöoikeudet.").arg(kansio));
        return;
    }
    try {
        VarmistaMalli();
    } catch (const std::exception &e) {
        Ilmoita(QStringLiteral("Uuden seuran tietokantapohjaa ei voitu luoda:\n%1\n\n%2").arg(MalliPolku(), virheteksti(e)));
    }
    varmistaDemo(kansio);
    if (!VarmistaSahkopohjat(kansio))
        Ilmoita(QStringLiteral("Sähköpostilaskun pohjia ei voitu kopioida ohjelman kansioon:\n%1\n\nTarkista kansion käyttöoikeudet.").arg(kansio));
}
