// raportti: renders a report definition over a club's database to a PDF file.
//
//   raportti <database> <report file or name> <out.pdf> [--selection FORMULA] [--sort FIELD]...
//            [--formula 'Name= text']...
//
// A bare report name is looked up as the program does: the program's folder first, then the
// built-in definitions. Exit status 0 on success, 1 on any error of the report, 2 on bad usage.
#include "reports/Raporttiajo.h"
#include "reports/RaporttiVirhe.h"

#include <QGuiApplication>
#include <QTextStream>

namespace {

const char *const Kaytto =
    "Käyttö: raportti <tietokanta> <raportti> <tulos.pdf> [--selection KAAVA] [--sort KENTTÄ]... "
    "[--formula 'Nimi= teksti']...\n";

int virhe(const QString &teksti, int koodi)
{
    QTextStream(stderr) << teksti << Qt::endl;
    return koodi;
}

} // namespace

int main(int argc, char **argv)
{
    // Fonts need a GUI application, never a screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QStringList a = app.arguments().mid(1);

    QStringList paikalliset, kaavat, lajittelut;
    QString valinta;
    for (int i = 0; i < a.size(); ++i) {
        const QString &x = a[i];
        if (x == QLatin1String("--selection") || x == QLatin1String("--sort") || x == QLatin1String("--formula")) {
            if (i + 1 >= a.size())
                return virhe(QStringLiteral("Valitsimelta %1 puuttuu arvo.\n").arg(x) + QString::fromUtf8(Kaytto), 2);
            const QString arvo = a[++i];
            if (x == QLatin1String("--selection"))
                valinta = arvo;
            else if (x == QLatin1String("--sort"))
                lajittelut << arvo;
            else
                kaavat << arvo;
        } else if (x == QLatin1String("-h") || x == QLatin1String("--help")) {
            QTextStream(stdout) << QString::fromUtf8(Kaytto);
            return 0;
        } else if (x.startsWith(QLatin1String("--"))) {
            return virhe(QStringLiteral("Tuntematon valitsin %1.\n").arg(x) + QString::fromUtf8(Kaytto), 2);
        } else {
            paikalliset << x;
        }
    }
    if (paikalliset.size() != 3)
        return virhe(QString::fromUtf8(Kaytto), 2);
    if (lajittelut.size() > 6 || kaavat.size() > 21)
        return virhe(QStringLiteral("Lajittelukenttiä voi olla enintään 6 ja kaavoja 21."), 2);

    Raporttiajo ajo;
    ajo.ResetReportFormulas(paikalliset[0]);
    ajo.ReportFileName = paikalliset[1];
    ajo.PrintFileName = paikalliset[2];
    ajo.Destination = Raporttiajo::PdfTiedosto;
    ajo.SelectionFormula = valinta;
    for (int i = 0; i < lajittelut.size(); ++i)
        ajo.SortFields[i] = lajittelut[i];
    for (int i = 0; i < kaavat.size(); ++i)
        ajo.Formulas[i] = kaavat[i];
    try {
        ajo.setAction(1);
    } catch (const RaporttiVirhe &e) {
        return virhe(e.viesti(), 1);
    } catch (const std::exception &e) {
        return virhe(QStringLiteral("Raportin teko epäonnistui: ") + QString::fromUtf8(e.what()), 1);
    }
    return 0;
}
