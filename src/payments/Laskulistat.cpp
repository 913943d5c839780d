#include "payments/Laskulistat.h"

#include "core/MainModule.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "reports/Tulostus.h"

const std::vector<Laskulista> &Laskulistat()
{
    const QString ll = QStringLiteral("LASKUTUSLISTA"), vl = QStringLiteral("VIITELISTA");
    const QString jm = QStringLiteral("jmllista.rpt"), jv = QStringLiteral("jmvlista.rpt");
    static const std::vector<Laskulista> listat{
        {"mTulostallista", QStringLiteral("Laskutuslista"), ll, {}, jm},
        {"mRapMaksetut", QStringLiteral("Laskutuslista, maksetut"), ll, QStringLiteral("{jmhist.jmhjmMaksettu} = True"), jm},
        {"mRapMaksamattomat", QStringLiteral("Laskutuslista, maksamattomat"), ll, QStringLiteral("{jmhist.jmhjmMaksettu} = False"), jm},
        {"mMuistutetutMaksetutLL", QStringLiteral("Laskutuslista, muistutetut maksetut"), ll + QStringLiteral(" / MUISTUTETUT MAKSETUT"),
         QStringLiteral("{jmhist.jmhjmMaksettu} = True and {jmhist.jmhjmMuistutusNumero} > 0"), jm},
        {"mMuistutetutMaksamattomatLL", QStringLiteral("Laskutuslista, muistutetut maksamattomat"),
         ll + QStringLiteral(" / MUISTUTETUT MAKSAMATTOMAT"),
         QStringLiteral("{jmhist.jmhjmMaksettu} = False and {jmhist.jmhjmMuistutusNumero} > 0"), jm},
        {"mTulostaViiteLista", QStringLiteral("Viitelista"), vl, {}, jv},
        {"mTulostaViiteListaMaksetut", QStringLiteral("Viitelista, maksetut"), vl, QStringLiteral("{jmhist.jmhjmMaksettu} = True"), jv},
        {"mTulostaViiteListaMaksamattomat", QStringLiteral("Viitelista, maksamattomat"), vl,
         QStringLiteral("{jmhist.jmhjmMaksettu} = False"), jv},
        {"mMuistutetutMaksetutVL", QStringLiteral("Viitelista, muistutetut maksetut"), vl + QStringLiteral(" / MUISTUTETUT MAKSETUT"),
         QStringLiteral("{jmhist.jmhjmMaksettu} = true and {jmhist.jmhjmMuistutusNumero} > 0"), jv},
        {"mMuistutetutMaksamattomatVL", QStringLiteral("Viitelista, muistutetut maksamattomat"),
         vl + QStringLiteral(" / MUISTUTETUT MAKSAMATTOMAT"),
         QStringLiteral("{jmhist.jmhjmMaksettu} = false and {jmhist.jmhjmMuistutusNumero} > 0"), jv},
    };
    return listat;
}

LaskulistanAjo LaskulistanRajaus(const Laskulista &l, Laskurajaus rajaus, const QString &alku, const QString &loppu)
{
    LaskulistanAjo a;
    a.valinta = l.valinta;
    const auto lisaa = [&a](const QString &pala) {
        a.valinta += a.valinta.isEmpty() ? pala : QStringLiteral(" and ") + pala;
    };
    if (rajaus == Laskurajaus::Jasenlaskut)
        lisaa(QStringLiteral("{jmhist.jmhjmJasMak} = true"));
    else if (rajaus == Laskurajaus::Muut)
        lisaa(QStringLiteral("{jmhist.jmhjmJasMak} = false"));
    // The numbers go into the formula as typed; one that is no number makes the formula refused.
    if (!alku.isEmpty())
        lisaa(QStringLiteral("{jmhist.jmhjmLaskunumero} >= ") + alku);
    if (!loppu.isEmpty())
        lisaa(QStringLiteral("{jmhist.jmhjmLaskunumero} <= ") + loppu);
    if (!l.otsikko.isEmpty()) {
        if (!alku.isEmpty() && !loppu.isEmpty())
            a.otsikko = l.otsikko + QStringLiteral(": ") + alku + QStringLiteral(" - ") + loppu;
        else if (!loppu.isEmpty())
            a.otsikko = l.otsikko + QStringLiteral(": - ") + loppu;
        else if (!alku.isEmpty())
            a.otsikko = l.otsikko + QStringLiteral(": ") + alku + QStringLiteral(" -");
        else
            a.otsikko = l.otsikko;
    }
    return a;
}

void TulostaLaskulista(const Laskulista &l, const Laskulistakysymykset &k)
{
    dlg::Dialogs &d = dlg::current();
    const QString alku = d.input(QStringLiteral("Anna laskunumero, josta alkaen haluat listan tulostaa"), MainModule::AppName,
                                 QString(), false).value_or(QString());
    const QString loppu = d.input(QStringLiteral("Anna laskunumero, johon haluat listan tulostuksen lopettaa"),
                                  MainModule::AppName, QString(), false).value_or(QString());
    const Laskurajaus rajaus = k.rajaus ? k.rajaus() : Laskurajaus::Kaikki;
    if (k.tulostusasetukset && !k.tulostusasetukset())
        return;
    const LaskulistanAjo a = LaskulistanRajaus(l, rajaus, alku.trimmed(), loppu.trimmed());
    ResetReportFormulas();
    AsetaOsioFontit(false, false);
    Raporttiajo &r = Raportti();
    r.Destination = TulostusLaite;
    r.CopiesToPrinter = Kopiot;
    r.ReportFileName = files::joinPath(files::programFolder(), l.raportti);
    r.Formulas[0] = KaavaTeksti(QStringLiteral("Seurannimi"), MainModule::RegName);
    if (!a.otsikko.isEmpty())
        r.Formulas[1] = KaavaTeksti(QStringLiteral("Otsikko"), a.otsikko);
    r.SelectionFormula = a.valinta;
    r.SortFields[0] = QStringLiteral("+{jmhist.jmhjmLaskunumero}");
    r.setAction(1);
}
