#include "core/Postisalasana.h"

#include "core/Ilmoitukset.h"
#include "core/MainModule.h"
#include "platform/keyring.h"

#include <QFile>

namespace M = MainModule;

namespace {

const QString kOsio = QStringLiteral("POSTI");
const QString kKerrottu = QStringLiteral("SalasanaTiedostossaKerrottu");

// Reads or writes in the INI file's section of its own, and puts the usual section back.
class PostiOsio {
public:
    PostiOsio() : ini(M::IniAsetukset()) { ini.setSection(kOsio); }
    ~PostiOsio() { ini.setSection(QStringLiteral("VONARI")); }
    IniStore &ini;
};

// Base64 only keeps the password from being read at a glance over the user's shoulder; the
// file's permissions are what protect it.
QString iniSalasana(const QString &tili)
{
    PostiOsio o;
    return QString::fromUtf8(QByteArray::fromBase64(o.ini.readString(tili).toLatin1()));
}

bool kirjoitaIniin(const QString &tili, const QString &salasana)
{
    PostiOsio o;
    if (o.ini.isMalformed())
        return false;
    if (!o.ini.writeString(tili, QString::fromLatin1(salasana.toUtf8().toBase64())))
        return false;
    return QFile::setPermissions(o.ini.fileName(), QFile::ReadOwner | QFile::WriteOwner);
}

void poistaIinista(const QString &tili)
{
    PostiOsio o;
    if (!o.ini.isMalformed() && !o.ini.readString(tili).isEmpty())
        o.ini.writeString(tili, QString());
}

void kerroKerran()
{
    PostiOsio o;
    if (o.ini.readString(kKerrottu) == QLatin1String("1"))
        return;
    Ilmoita(QStringLiteral("Tällä koneella ei ole käytettävissä avainnippua, johon sähköpostipalvelimen salasanan "
                           "voisi tallentaa. Salasana tallennettiin asetustiedostoon %1, jota voit lukea vain sinä "
                           "omalla käyttäjätunnuksellasi.")
                .arg(o.ini.fileName()));
    o.ini.writeString(kKerrottu, QStringLiteral("1"));
}

} // namespace

QString PostitilinTunnus(const QString &kayttaja, const QString &palvelin)
{
    return kayttaja.trimmed() + QLatin1Char('@') + palvelin.trimmed().toLower();
}

QString LuePostisalasana(const QString &kayttaja, const QString &palvelin)
{
    if (kayttaja.trimmed().isEmpty())
        return {};
    const QString tili = PostitilinTunnus(kayttaja, palvelin);
    const keyring::Answer a = keyring::read(tili);
    if (a.status == keyring::Status::Ok)
        return a.secret;
    // Not in the keyring: it may have been stored when no keyring answered.
    return iniSalasana(tili);
}

bool TallennaPostisalasana(const QString &kayttaja, const QString &palvelin, const QString &salasana)
{
    if (kayttaja.trimmed().isEmpty())
        return true;
    const QString tili = PostitilinTunnus(kayttaja, palvelin);
    if (salasana.isEmpty()) {
        keyring::remove(tili);
        poistaIinista(tili);
        return true;
    }
    const keyring::Answer a = keyring::write(tili, salasana);
    if (a.status == keyring::Status::Ok) {
        poistaIinista(tili); // an older copy from a session without a keyring
        return true;
    }
    if (a.status != keyring::Status::NoBackend) {
        IlmoitaVirhe(QStringLiteral("Sähköpostipalvelimen salasanaa ei voitu tallentaa avainnippuun:\n%1")
                         .arg(a.error));
        return false;
    }
    if (!kirjoitaIniin(tili, salasana)) {
        IlmoitaVirhe(QStringLiteral("Sähköpostipalvelimen salasanaa ei voitu tallentaa: avainnippua ei ole "
                                    "käytettävissä eikä asetustiedostoon %1 voitu kirjoittaa.")
                         .arg(M::IniAsetukset().fileName()));
        return false;
    }
    kerroKerran();
    return true;
}
