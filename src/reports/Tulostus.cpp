#include "reports/Tulostus.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "platform/arvot.h"
#include "platform/files.h"

#include <cmath>
#include <limits>

using namespace MainModule;

Raporttiajo &Raportti()
{
    static Raporttiajo ajo;
    return ajo;
}

void ResetReportFormulas()
{
    Raporttiajo &r = Raportti();
    r.ResetReportFormulas(DatabasePath);
    r.MarginLeft = RaporttiMarginaalit.left;
    r.MarginRight = RaporttiMarginaalit.right;
    r.MarginTop = RaporttiMarginaalit.top;
    r.MarginBottom = RaporttiMarginaalit.bottom;
}

void ValmisteleRaporttikone(const QString &tiedosto)
{
    ResetReportFormulas();
    Raportti().ReportFileName = files::joinPath(files::programFolder(), tiedosto);
}

void AsetaOsioFontit(bool ryhmat, bool vainDetail)
{
    QString (&f)[9] = Raportti().SectionFont;
    const QString perus = Fontti + QLatin1Char(';') + QString::number(FonttiKoko) + QStringLiteral(";X;X;X;X");
    const QString otsikko = QStringLiteral("TITLE;") + Fontti + QStringLiteral(";12;X;X;X;X");
    for (QString &s : f)
        s.clear();
    if (ryhmat) {
        f[0] = QStringLiteral("DETAIL;") + perus;
        f[1] = otsikko;
        f[2] = QStringLiteral("HEADER;") + Fontti + QStringLiteral(";X;X;X;X;X");
        f[3] = QStringLiteral("GH1;") + perus;
        f[4] = QStringLiteral("GF1;") + perus;
        f[5] = QStringLiteral("GF2;") + perus;
    } else {
        f[0] = (vainDetail ? QStringLiteral("DETAIL;") : QStringLiteral("ALL;")) + perus;
        f[1] = otsikko;
    }
}

QString KaavaTeksti(const QString &nimi, const QString &arvo)
{
    return nimi + QStringLiteral("= '") + arvo + QLatin1Char('\'');
}

QStringList SeuranKaavat()
{
    return {KaavaTeksti(QStringLiteral("Seurannimi"), RegName),
            KaavaTeksti(QStringLiteral("Seuranosoite"), RegOsoite),
            KaavaTeksti(QStringLiteral("Seuranpostiosoite"), RegPostinumero + QLatin1Char(' ') + RegPostitoimipaikka),
            KaavaTeksti(QStringLiteral("Puhelin"), RegPuhelin),
            KaavaTeksti(QStringLiteral("Fax"), RegFax),
            KaavaTeksti(QStringLiteral("Pankkiyhteys1"), RegPankkiyhteys1),
            KaavaTeksti(QStringLiteral("Pankkiyhteys2"), RegPankkiyhteys2),
            KaavaTeksti(QStringLiteral("SeuranPuhelinJaFax"), QStringLiteral("Puh: ") + RegPuhelin + QStringLiteral("  Fax: ") + RegFax),
            KaavaTeksti(QStringLiteral("SeuranEmail"), QStringLiteral("Email: ") + RegSeuranEmail),
            KaavaTeksti(QStringLiteral("SeuranInternet"), QStringLiteral("Internet: ") + RegWWW),
            KaavaTeksti(QStringLiteral("YTunnus"), QStringLiteral("Y-tunnus:") + YTunnus)};
}

void AsetaSeuraKaavat()
{
    const QStringList kaavat = SeuranKaavat();
    for (qsizetype i = 0; i < kaavat.size(); ++i)
        Raportti().Formulas[i] = kaavat[i];
}

void AsetaMuistutusKaavat()
{
    AsetaSeuraKaavat();
    Raportti().Formulas[11] = KaavaTeksti(QStringLiteral("MuistutusAlku"), MuistutusAlku);
    Raportti().Formulas[12] = KaavaTeksti(QStringLiteral("MuistutusLoppu"), MuistutusLoppu);
}

bool SaaSeuranNimen(const QString &tiedosto)
{
    static const QStringList nimelliset = {
        QStringLiteral("mvluetl2.rpt"), QStringLiteral("jrluetlo.rpt"), QStringLiteral("mvluetle.rpt"),
        QStringLiteral("mvluetlo.rpt"), QStringLiteral("jmmkstut.rpt"), QStringLiteral("pilista.rpt"),
        QStringLiteral("jmlmksma.rpt"), QStringLiteral("jmlmkstu.rpt"), QStringLiteral("jmllista.rpt"),
        QStringLiteral("jmmksmat.rpt"), QStringLiteral("jrlomins.rpt")};
    return nimelliset.contains(files::fileNamePart(tiedosto), Qt::CaseInsensitive);
}

bool HyvaksyTulostusasetukset(int laite, const QString &kopioita)
{
    TulostusLaite = qint16(laite);
    TulostusPeruttu = false;
    const double n = NumeroArvo(kopioita);
    if (OnNumeerinen(kopioita) && std::fabs(n) <= std::numeric_limits<qint16>::max()) {
        Kopiot = qint16(std::nearbyint(n)); // the regional conversion rounds half to even
        return true;
    }
    if (laite == Raporttiajo::Tulostin
        && !Kysy(QStringLiteral("Antamasi kopiomäärä on virheellinen. Haluatko tulostaa yhden kopion?")))
        return false;
    Kopiot = 1;
    return true;
}

namespace {

// The engine made ready for a report of the program's folder, to the chosen destination.
Raporttiajo &valmisteleAjo(const QString &tiedosto)
{
    ResetReportFormulas();
    Raporttiajo &r = Raportti();
    r.Destination = TulostusLaite;
    r.CopiesToPrinter = Kopiot;
    r.ReportFileName = files::joinPath(files::programFolder(), tiedosto);
    AsetaOsioFontit(false, false);
    return r;
}

} // namespace

void AjaRaportti(const QString &tiedosto)
{
    Raporttiajo &r = valmisteleAjo(tiedosto);
    if (SaaSeuranNimen(tiedosto))
        r.Formulas[0] = KaavaTeksti(QStringLiteral("Seurannimi"), RegName);
    r.setAction(1);
}

void AjaListaraportti(const QString &tiedosto, const QString &otsikko, const QString &lajittelu)
{
    Raporttiajo &r = valmisteleAjo(tiedosto);
    r.Formulas[0] = KaavaTeksti(QStringLiteral("Seurannimi"), RegName);
    if (!otsikko.isEmpty())
        r.Formulas[1] = KaavaTeksti(QStringLiteral("Otsikko"), otsikko);
    r.SortFields[0] = lajittelu;
    r.setAction(1);
}
