#include "members/JasenRaportit.h"

#include "core/MainModule.h"
#include "platform/files.h"
#include "reports/Tulostus.h"

#include <QRegularExpression>

using namespace MainModule;

namespace {

QString Seurannimi() { return KaavaTeksti(QStringLiteral("Seurannimi"), RegName); }

QString Otsake(const QString &teksti) { return KaavaTeksti(QStringLiteral("Otsake"), teksti); }

// The heading sentence goes in double quotes to the lists that have always taken it so.
QString Otsake2(const QString &rajaus, bool lainausmerkit)
{
    if (lainausmerkit)
        return QStringLiteral("Otsake2= \"") + rajaus + QLatin1Char('"');
    return KaavaTeksti(QStringLiteral("Otsake2"), rajaus);
}

QStringList SeuranYhteystiedot()
{
    return {Seurannimi(), KaavaTeksti(QStringLiteral("Seuranosoite"), RegOsoite),
            KaavaTeksti(QStringLiteral("Seuranpostiosoite"), RegPostinumero + QLatin1Char(' ') + RegPostitoimipaikka),
            KaavaTeksti(QStringLiteral("Puhelin"), RegPuhelin)};
}

const QString Jasenluettelo = QStringLiteral("Jäsenluettelo");
const QString PerheenLaskutettava = QStringLiteral(" AND {jr.jrPerheenLaskutettava} = True");

} // namespace

JasenRaportti ListaRaportti(int iPrintType, int iTulJarj, const QString &valinta, const QString &rajaus)
{
    JasenRaportti r;
    r.valinta = valinta;
    switch (iTulJarj) {
    case 1: r.lajittelu = {QStringLiteral("+{jr.jrPostinumero}")}; break;
    case 2: r.lajittelu = {QStringLiteral("+{jr.jrSyntyma}")}; break;
    default: r.lajittelu = {QStringLiteral("+{jr.jrSukunimi}"), QStringLiteral("+{jr.jrEtunimi}")}; break;
    }
    switch (iPrintType) {
    case 0:
        r.tiedosto = QStringLiteral("jrluetlo.rpt");
        r.kaavat = {Otsake(Jasenluettelo), Seurannimi(), Otsake2(rajaus, true)};
        break;
    case 1:
        r.tiedosto = QStringLiteral("jrlomins.rpt");
        r.kaavat = {Seurannimi(), Otsake2(rajaus, false)};
        break;
    case 2:
    case 6:
        r.tiedosto = iPrintType == 2 ? QStringLiteral("jrlaajlu.rpt") : QStringLiteral("jrluetvi.rpt");
        r.kaavat = {Otsake(Jasenluettelo), Seurannimi(), Otsake2(rajaus, false)};
        break;
    case 3:
        r.tiedosto = RegName == QLatin1String("Norvik") ? QStringLiteral("norvikjros.rpt") : QStringLiteral("jrosoite.rpt");
        break;
    case 4: r.tiedosto = QStringLiteral("jrosoitt.rpt"); break;
    case 5:
        r.tiedosto = QStringLiteral("jroosa4.rpt");
        r.kaavat = SeuranYhteystiedot();
        break;
    case 7:
        r.tiedosto = QStringLiteral("jrrekot2.rpt");
        r.kaavat = SeuranYhteystiedot();
        r.kaavat << KaavaTeksti(QStringLiteral("Fax"), RegFax) << KaavaTeksti(QStringLiteral("Pankkiyhteys1"), RegPankkiyhteys1)
                 << KaavaTeksti(QStringLiteral("Pankkiyhteys2"), RegPankkiyhteys2)
                 << KaavaTeksti(QStringLiteral("SeuranPuhelinJaFax"), QStringLiteral("Puh: ") + RegPuhelin + QStringLiteral("  Fax: ") + RegFax)
                 << KaavaTeksti(QStringLiteral("SeuranEmail"), QStringLiteral("Email: ") + RegSeuranEmail)
                 << KaavaTeksti(QStringLiteral("SeuranInternet"), QStringLiteral("Internet: ") + RegWWW)
                 << KaavaTeksti(QStringLiteral("YTunnus"), QStringLiteral("Y-tunnus:") + YTunnus);
        break;
    case 8:
        r.tiedosto = QStringLiteral("jrkaluet.rpt");
        r.kaavat = {Otsake(QStringLiteral("Jäsenluettelo kaduittain")), Seurannimi(), Otsake2(rajaus, true)};
        break;
    default: r.tiedosto.clear(); break;
    }
    return r;
}

JasenRaportti MaksuhistoriaJasenelle(qint64 jrId)
{
    return {QStringLiteral("jmmakhis.rpt"), QStringLiteral("{jr.jrID} = ") + QString::number(jrId), {Seurannimi()}, {}};
}

JasenRaportti MaksuhistoriaRyhmalle(qint64 piId)
{
    return {QStringLiteral("jmmakhis.rpt"), piId ? QStringLiteral("{pi.piID} = ") + QString::number(piId) : QString(),
            {Seurannimi()}, {}};
}

JasenRaportti PerheLuettelo()
{
    return {QStringLiteral("jrperhe.rpt"), QStringLiteral("{jr.jrID} = {jrPerhe.jrPMID}") + PerheenLaskutettava, {Seurannimi()}, {}};
}

JasenRaportti MaksamattomatPerheet(bool tarrat)
{
    const QString valinta = QStringLiteral("{jr.jrJasenmaksu} = False") + PerheenLaskutettava;
    if (tarrat)
        return {QStringLiteral("jrosoite.rpt"), valinta, {}, {}};
    return {QStringLiteral("jmmksmat.rpt"), valinta, {Seurannimi()}, {}};
}

JasenRaportti MaksaneetPerheet(bool tarrat)
{
    const QString valinta = QStringLiteral("{jr.jrJasenmaksu} = True") + PerheenLaskutettava;
    if (tarrat)
        return {QStringLiteral("jrosoite.rpt"), valinta, {}, {}};
    return {QStringLiteral("jmmkstut.rpt"), valinta, {Seurannimi()}, {}};
}

JasenRaportti Perhetarrat() { return {QStringLiteral("tarrat.rpt"), QString(), {}, {QStringLiteral("+{Tarra.Tarra_ID}")}}; }

QString KadunNimi(const QString &osoite)
{
    static const QRegularExpression numero(QStringLiteral("[0-9]"));
    const QStringList sanat = osoite.split(QLatin1Char(' '));
    QString katu;
    for (int i = 0; i < sanat.size(); ++i) {
        if (i > 0 && sanat[i].contains(numero))
            break;
        katu += sanat[i] + QLatin1Char(' ');
    }
    return katu.trimmed();
}

void PaivitaKadut(db::Database &db)
{
    db::Transaction t(db);
    QVector<std::pair<qint64, QString>> kadut;
    {
        db::Statement s(db, QStringLiteral("SELECT jrID, jrOsoite FROM jr"));
        while (s.next())
            kadut.append({s.value(0).toLongLong(), KadunNimi(s.value(1).toString())});
    }
    for (const auto &[id, katu] : kadut)
        db.execute(QStringLiteral("UPDATE jr SET jrKatu = ? WHERE jrID = ?"), {katu, id});
    t.commit();
}

void ValmisteleJasenRaportti(const JasenRaportti &r)
{
    ResetReportFormulas();
    Raporttiajo &ajo = Raportti();
    ajo.ReportFileName = files::joinPath(files::programFolder(), r.tiedosto);
    AsetaOsioFontit(false, false);
    ajo.Destination = TulostusLaite;
    ajo.CopiesToPrinter = Kopiot;
    for (int i = 0; i < r.kaavat.size() && i < 21; ++i)
        ajo.Formulas[i] = r.kaavat[i];
    ajo.SelectionFormula = r.valinta;
    for (int i = 0; i < r.lajittelu.size() && i < 6; ++i)
        ajo.SortFields[i] = r.lajittelu[i];
}
