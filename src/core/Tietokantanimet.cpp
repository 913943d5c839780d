#include "core/Tietokantanimet.h"

#include "platform/files.h"

#include <QFileInfo>

QString KorjauksenTulos(const QString &kanta) { return kanta + QLatin1Char('2'); }

QString KorjauksenJaannos(const QString &kanta) { return kanta + QStringLiteral("OLD"); }

QString JarjestelynTulos(const QString &kanta) { return kanta.chopped(kanta.isEmpty() ? 0 : 1) + QLatin1Char('2'); }

QString JarjestelynJaannos(const QString &kanta) { return kanta.chopped(kanta.isEmpty() ? 0 : 1) + QLatin1Char('3'); }

QString VarmuuskopionNimi(const QString &kansio, const QString &kanta) { return kansio + files::fileNamePart(kanta); }

QString PaivitystaEdeltavaKopio(const QString &kanta, const QDate &paiva)
{
    const QFileInfo tieto(kanta);
    const QString kansio = kanta.left(kanta.lastIndexOf(QLatin1Char('/')) + 1);
    const QString liite = tieto.suffix().isEmpty() ? QString() : QLatin1Char('.') + tieto.suffix();
    return kansio + tieto.completeBaseName() + QStringLiteral("-ennen-paivitysta-")
        + paiva.toString(QStringLiteral("yyyyMMdd")) + liite;
}
