#include "core/Kansiot.h"

#include <QDir>
#include <QStandardPaths>

QString ErikoisKansio(int shellKoodi)
{
    QStandardPaths::StandardLocation paikka;
    switch (shellKoodi) {
    case ShellKansiot::Desktop:
    case ShellKansiot::DesktopDirectory:
        paikka = QStandardPaths::DesktopLocation;
        break;
    case ShellKansiot::Personal:
        paikka = QStandardPaths::DocumentsLocation;
        break;
    case ShellKansiot::AppData:
    case ShellKansiot::LocalAppData:
        paikka = QStandardPaths::GenericDataLocation;
        break;
    default:
        return {};
    }
    const QString polku = QStandardPaths::writableLocation(paikka);
    return polku.isEmpty() ? QString() : QDir::cleanPath(polku);
}

QString TilapaisKansio()
{
    QString polku = QDir::tempPath();
    if (!polku.endsWith(QLatin1Char('/')))
        polku += QLatin1Char('/');
    return polku;
}

QString KansioKoodi(int koodi)
{
    switch (koodi) {
    case KansioKoodit::Tyopoyta:
        return ErikoisKansio(ShellKansiot::DesktopDirectory);
    case KansioKoodit::Sovellustiedot:
        return ErikoisKansio(ShellKansiot::AppData);
    case KansioKoodit::PaikallisetSovellustiedot:
        return ErikoisKansio(ShellKansiot::LocalAppData);
    case KansioKoodit::OmatTiedostot:
        return ErikoisKansio(ShellKansiot::Personal);
    case KansioKoodit::Tilapainen:
        return TilapaisKansio();
    default:
        return {};
    }
}
