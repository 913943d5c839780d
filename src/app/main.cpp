// The composition root: Qt application, Finnish locale, real dialogs, then the start-up.
// The main window and the start-up sequence live beside it in app/ rather than in core/ui: they
// open the windows of every subsystem (members, reports, settings), and only the root may know
// them all. core/ui keeps core's own windows, so that no subsystem's windows depend on another's.
#include "app/Main.h"
#include "app/frmMain.h"
#include "platform/ui/Edistymispalkki.h"
#include "platform/ui/QtDialogs.h"
#include "reports/ui/Raporttitulostus.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Vonari"));
    QLocale::setDefault(QLocale(QLocale::Finnish, QLocale::Finland));

    // Qt's own texts (file dialog details, context menus) in Finnish where the translation exists.
    QTranslator qtSuomi;
    if (qtSuomi.load(QLocale(QLocale::Finnish, QLocale::Finland), QStringLiteral("qtbase"), QStringLiteral("_"),
                     QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&qtSuomi);

    dlg::QtDialogs dialogit;
    dlg::install(&dialogit);
    AsennaTulostuskohde();
    AsetaEdistymisenLuoja([](const QString &otsikko) -> std::unique_ptr<Edistyminen> {
        return std::make_unique<Edistymisikkuna>(QApplication::activeWindow(), otsikko);
    });

    const std::unique_ptr<frmMain> ikkuna = Main();
    const int tulos = ikkuna ? app.exec() : 0;
    AsetaEdistymisenLuoja({});
    dlg::install(nullptr);
    return tulos;
}
