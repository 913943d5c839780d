#include "reports/jasen/Jasenkortit.h"

#include "core/MainModule.h"
#include "platform/files.h"
#include "reports/Tulostus.h"

QVector<KorttiHenkilo> KorttiHenkilot(db::Database &d)
{
    QVector<KorttiHenkilo> rivit{{QStringLiteral("Kaikki"), 0}};
    {
        db::Statement s(d, QStringLiteral("SELECT piID, piNimi FROM pi ORDER BY piNimi COLLATE FI, piID"));
        while (s.next())
            rivit.push_back({QStringLiteral("Om - ") + s.value(1).toString(), -s.value(0).toLongLong()});
    }
    db::Statement s(d, QStringLiteral("SELECT jrID, jrSukunimi, jrEtunimi FROM jr "
                                      "ORDER BY jrSukunimi COLLATE FI, jrEtunimi COLLATE FI, jrID"));
    while (s.next()) {
        const QString nimi = (s.value(1).toString() + QStringLiteral(" ") + s.value(2).toString()).trimmed();
        rivit.push_back({nimi, s.value(0).toLongLong()});
    }
    return rivit;
}

QString KorttienValinta(db::Database &d, qint64 arvo, bool muille)
{
    if (arvo == 0)
        return QString();
    if (arvo > 0)
        return QStringLiteral("{jr.jrID} = ") + QString::number(arvo);
    const QString piID = QString::number(-arvo);
    if (!muille)
        return QStringLiteral("{pt.ptjrID} = {jr.jrID} and {pi.piID} = {pt.ptpiID} and {pt.ptpiID} = ") + piID;
    db::Transaction t(d);
    d.execute(QStringLiteral("UPDATE jr SET jrMukaan = 1"));
    d.execute(QStringLiteral("UPDATE jr SET jrMukaan = 0 WHERE jrID IN (SELECT ptjrID FROM pt WHERE ptpiID = ?)"), {-arvo});
    t.commit();
    return QStringLiteral("{jr.jrMukaan} = True");
}

void AjaJasenkortit(const QString &valinta, const KorttiTekstit &tekstit)
{
    using namespace MainModule;
    ResetReportFormulas();
    Raporttiajo &r = Raportti();
    r.ReportFileName = files::joinPath(files::programFolder(), QStringLiteral("jk1.rpt"));
    AsetaOsioFontit(false, true);
    r.Destination = TulostusLaite;
    r.CopiesToPrinter = Kopiot;
    r.Formulas[0] = KaavaTeksti(QStringLiteral("Seurannimi"), RegName);
    r.Formulas[1] = KaavaTeksti(QStringLiteral("Otsaketeksti"), tekstit.otsake);
    r.Formulas[2] = KaavaTeksti(QStringLiteral("Alateksti1"), tekstit.alateksti1);
    r.Formulas[3] = KaavaTeksti(QStringLiteral("Alateksti2"), tekstit.alateksti2);
    r.SelectionFormula = valinta;
    r.setAction(1);
}
