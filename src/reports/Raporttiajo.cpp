#include "reports/Raporttiajo.h"

#include "platform/database.h"
#include "platform/files.h"
#include "reports/Asettelu.h"
#include "reports/Piirto.h"
#include "reports/RaporttiVirhe.h"
#include "reports/Sivusto.h"
#include "reports/Tietolahde.h"

#include <QSet>
#include <optional>

namespace {

Tulostuskohde *g_kohde = nullptr;

// Every tree of the definition gets its columns; `kaavat` are bound once each.
void sidoKaikki(Maaritys &m, Tietolahde &lahde, const Kaavat &kaavat)
{
    const QString tiedosto = QStringLiteral("Raportin määrittely %1").arg(m.tiedosto);
    for (Osa *o : m.osat()) {
        if (o->nakyy)
            lahde.sido(*o->nakyy, tiedosto);
        for (Kohde &k : o->kohteet) {
            const QString missa = tiedosto + QStringLiteral(", ") + k.tunnus;
            if (k.lauseke)
                lahde.sido(*k.lauseke, missa);
            if (k.nakyy)
                lahde.sido(*k.nakyy, missa);
        }
    }
    for (Ryhma &r : m.ryhmat)
        lahde.sido(*r.lauseke, tiedosto + QStringLiteral(", ryhmä ") + r.lausekeTeksti);
    for (auto it = kaavat.constBegin(); it != kaavat.constEnd(); ++it)
        lahde.sido(**it, tiedosto + QStringLiteral(", kaava {@") + it.key() + QLatin1Char('}'));
}

// Whether an expression sums or counts rows, itself or through a formula.
bool koostaa(const Solmu &s, const Kaavat &kaavat, QSet<QString> &kaydyt)
{
    if (s.laji == Solmu::Laji::Funktio
        && (s.teksti.compare(QLatin1String("Sum"), Qt::CaseInsensitive) == 0 || s.teksti.compare(QLatin1String("Count"), Qt::CaseInsensitive) == 0))
        return true;
    if (s.laji == Solmu::Laji::Kaava) {
        const QString nimi = s.teksti.toLower();
        const auto it = kaavat.constFind(nimi);
        if (it != kaavat.constEnd() && !kaydyt.contains(nimi)) {
            kaydyt.insert(nimi);
            if (koostaa(**it, kaavat, kaydyt))
                return true;
        }
    }
    for (const auto &l : s.lapset)
        if (koostaa(*l, kaavat, kaydyt))
            return true;
    return false;
}

// Rows can be read one outermost group at a time when only the groups' bands and the detail
// sum or count: a report header or footer, or a page's, that sums over more rows needs them all.
bool voiLukeaRyhmittain(const Maaritys &m, const Kaavat &kaavat)
{
    if (m.ryhmat.empty())
        return false;
    for (const std::optional<Osa> *o : {&m.raporttiotsikko, &m.sivuotsikko, &m.sivualatunniste, &m.raporttialatunniste}) {
        if (!*o)
            continue;
        QSet<QString> kaydyt;
        if ((*o)->nakyy && koostaa(*(*o)->nakyy, kaavat, kaydyt))
            return false;
        for (const Kohde &k : (*o)->kohteet)
            for (const auto &puu : {k.lauseke, k.nakyy})
                if (puu && koostaa(*puu, kaavat, kaydyt))
                    return false;
    }
    return true;
}

// Refuses a report without rows before its first page goes anywhere.
class Tulostettava : public Sivuvirta {
public:
    explicit Tulostettava(Sivuvirta &ulos) : m_ulos(ulos) {}
    void alku(const Asiakirja &pohja) override
    {
        if (pohja.riveja == 0)
            throw RaporttiVirhe(QStringLiteral("Raportille ei löytynyt yhtään tulostettavaa tietoa."));
        m_ulos.alku(pohja);
    }
    void sivu(Sivu &&sivu) override { m_ulos.sivu(std::move(sivu)); }
    void loppu(int riveja) override { m_ulos.loppu(riveja); }

private:
    Sivuvirta &m_ulos;
};

} // namespace

void AsetaTulostuskohde(Tulostuskohde *kohde)
{
    g_kohde = kohde;
}

void Raporttiajo::ResetReportFormulas(const QString &tietokanta)
{
    WindowShowPrintBtn = true;
    WindowState = 2;
    ajo = nullptr;
    for (QString &d : DataFiles)
        d = tietokanta;
    SelectionFormula.clear();
    for (QString &f : Formulas)
        f.clear();
    for (QString &s : SortFields)
        s.clear();
    Rajauskentta.clear();
    Rajausavaimet.clear();
}

void Raporttiajo::setAction(int arvo)
{
    if (arvo == 1)
        Aja();
}

Asiakirja Raporttiajo::Laadi() const
{
    Keraaja k;
    Laadi(k);
    return std::move(k.d);
}

void Raporttiajo::Laadi(Sivuvirta &ulos) const
{
    const QString polku = EtsiRaportti(ReportFileName);
    Maaritys m = LueMaaritys(polku);
    const QString raportti = QStringLiteral("Raportti %1").arg(m.tiedosto);

    Asetteluvalinnat v;
    for (auto it = m.kaavat.constBegin(); it != m.kaavat.constEnd(); ++it)
        v.kaavat.insert(it.key(), it.value());
    for (const QString &f : Formulas) {
        if (f.trimmed().isEmpty())
            continue;
        const NimettyKaava k = JasennaNimettyKaava(f);
        v.kaavat.insert(k.nimi.toLower(), k.lauseke);
    }
    for (const QString &s : SectionFont)
        if (auto f = JasennaOsiofontti(s))
            v.osiofontit.push_back(*f);
    v.reunat = QMarginsF(MarginLeft, MarginTop, MarginRight, MarginBottom);
    v.ajo = ajo;
    std::unique_ptr<Edistyminen> omaEdistyminen;
    std::optional<Ajo> omaAjo;

    std::unique_ptr<db::Database> oma;
    if (!ajo) {
        if (DataFiles[0].trimmed().isEmpty())
            throw RaporttiVirhe(QStringLiteral("Raportille %1 ei ole annettu tietokantaa.").arg(m.tiedosto));
        try {
            oma = db::Database::open(DataFiles[0], db::OpenMode::ReadOnly);
        } catch (const db::DbError &e) {
            throw RaporttiVirhe(QStringLiteral("Tietokantaa %1 ei voi avata raporttia varten: %2").arg(DataFiles[0], e.message()));
        }
    }
    db::Database &tk = ajo ? ajo->kanta : *oma;
    if (!ajo) {
        omaEdistyminen = UusiEdistyminen(QStringLiteral("Raporttia laaditaan"));
        omaAjo.emplace(tk, omaEdistyminen.get());
        v.ajo = &*omaAjo;
    }

    Tietolahde lahde(tk, m, v.kaavat);
    sidoKaikki(m, lahde, v.kaavat);
    if (!Rajauskentta.isEmpty())
        lahde.rajaaAvaimiin(Rajauskentta, Rajausavaimet);

    // The report's own selection and the program's must both hold.
    QString kaava = SelectionFormula.trimmed();
    if (!m.valinta.isEmpty())
        kaava = kaava.isEmpty() ? m.valinta : QStringLiteral("(") + m.valinta + QStringLiteral(") and (") + kaava + QLatin1Char(')');
    SqlEhto valinta;
    if (!kaava.isEmpty()) {
        const QString missa = raportti + QStringLiteral(", valintakaava");
        const auto puu = JasennaKaava(kaava, missa);
        valinta = KaannaEhdoksi(*puu, lahde, missa);
    }

    QStringList jarjestys;
    db::Params jarjestysArvot;
    for (const Ryhma &r : m.ryhmat) {
        if (!r.lajittele)
            continue;
        const SqlEhto e = KaannaJarjestykseksi(*r.lauseke, r.laskeva, lahde, raportti + QStringLiteral(", ryhmä ") + r.lausekeTeksti);
        jarjestys << e.sql;
        jarjestysArvot += e.arvot;
    }
    QStringList lajittelut;
    for (const QString &s : SortFields)
        if (!s.trimmed().isEmpty())
            lajittelut << s;
    if (lajittelut.isEmpty())
        lajittelut = m.jarjestys;
    for (const QString &s : lajittelut) {
        const Lajittelu l = JasennaLajittelu(s);
        const SqlEhto e = KaannaJarjestykseksi(*l.kentta, l.laskeva, lahde, raportti + QStringLiteral(", lajittelu ") + s);
        jarjestys << e.sql;
        jarjestysArvot += e.arvot;
    }

    if (voiLukeaRyhmittain(m, v.kaavat)) {
        const std::unique_ptr<Rivilahde> rivit = [&] {
            KantaVahti vahti(tk, v.ajo ? v.ajo->edistyminen : nullptr);
            return lahde.virta(valinta, jarjestys, jarjestysArvot, *m.ryhmat.front().lauseke);
        }();
        m_sql = lahde.sql();
        Aseta(m, *rivit, v, ulos);
        return;
    }
    const Rivisto rivit = [&] {
        KantaVahti vahti(tk, v.ajo ? v.ajo->edistyminen : nullptr);
        return lahde.hae(valinta, jarjestys, jarjestysArvot);
    }();
    m_sql = lahde.sql();
    Aseta(m, rivit, v, ulos);
}

void Raporttiajo::Aja()
{
    try {
        if (Destination == PdfTiedosto) {
            PdfVirta pdf(PrintFileName);
            Tulostettava t(pdf);
            Laadi(t);
            return;
        }
        if (!g_kohde)
            throw RaporttiVirhe(QStringLiteral("Esikatselu ja tulostus eivät ole käytettävissä; tallenna raportti PDF-tiedostoksi."));
        if (Destination == Tulostin) {
            const std::unique_ptr<Sivuvirta> tulostus = g_kohde->tulostus(PrinterName, CopiesToPrinter);
            Tulostettava t(*tulostus);
            Laadi(t);
            return;
        }
        Sivutiedosto sivut;
        Tulostettava t(sivut);
        Laadi(t);
        g_kohde->esikatsele(sivut, WindowState == 2, WindowShowPrintBtn);
    } catch (const Keskeytetty &) {
        if (ajo)
            throw;
    }
}

void Raporttiajo::Toimita(const Asiakirja &d)
{
    if (d.riveja == 0)
        throw RaporttiVirhe(QStringLiteral("Raportille ei löytynyt yhtään tulostettavaa tietoa."));
    if (Destination == PdfTiedosto) {
        KirjoitaPdf(d, PrintFileName);
        return;
    }
    if (!g_kohde)
        throw RaporttiVirhe(QStringLiteral("Esikatselu ja tulostus eivät ole käytettävissä; tallenna raportti PDF-tiedostoksi."));
    if (Destination == Tulostin) {
        const std::unique_ptr<Sivuvirta> tulostus = g_kohde->tulostus(PrinterName, CopiesToPrinter);
        tulostus->alku(d);
        for (const Sivu &s : d.sivut)
            tulostus->sivu(Sivu(s));
        tulostus->loppu(d.riveja);
    } else {
        g_kohde->esikatsele(Muistisivusto(d), WindowState == 2, WindowShowPrintBtn);
    }
}
