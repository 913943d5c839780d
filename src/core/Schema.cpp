#include "core/Schema.h"

#include <QHash>
#include <initializer_list>

namespace {

using L = KenttaLaji;

// Flags of a declaration row.
enum : unsigned {
    M = 1,   // template field
    T = 2,   // born with the table the upgrade creates
    S = 4,   // added by a later step of its own
    AZL = 8, // zero-length text allowed
    DEF = 16, // default explicitly ""
    U = 32    // unique index
};

struct Rivi {
    const char *nimi;
    KenttaLaji laji;
    int leveys;
    unsigned liput;
};

struct IndeksiRivi {
    const char *nimi;
    const char *kentta;
    unsigned liput;
};

Alkupera alkuperaLipuista(unsigned liput)
{
    if (liput & S)
        return Alkupera::Lisays;
    return (liput & M) ? Alkupera::Malli : Alkupera::Taulu;
}

SchemaField kenttaRivista(const Rivi &r)
{
    SchemaField f;
    f.nimi = QString::fromUtf8(r.nimi);
    f.laji = r.laji;
    f.leveys = r.leveys;
    f.azl = r.liput & AZL;
    f.defTyhja = r.liput & DEF;
    f.alkupera = alkuperaLipuista(r.liput);
    return f;
}

SchemaTable taulu(const char *nimi, bool perustaulu, std::initializer_list<Rivi> kentat,
                  std::initializer_list<IndeksiRivi> indeksit = {})
{
    SchemaTable t;
    t.nimi = QString::fromUtf8(nimi);
    t.perustaulu = perustaulu;
    for (const Rivi &r : kentat)
        t.kentat << kenttaRivista(r);
    for (const IndeksiRivi &r : indeksit)
        t.indeksit << SchemaIndex{QString::fromUtf8(r.nimi), QString::fromUtf8(r.kentta), alkuperaLipuista(r.liput),
                                  bool(r.liput & U)};
    return t;
}

// Jasenlaji, Jasenryhma and Maa share one shape.
SchemaTable koodiTaulu(const char *nimi)
{
    const QByteArray n(nimi);
    const QByteArray id = n + "_ID", koodi = n + "_Koodi", teksti = n + "_Nimi";
    return taulu(nimi, false,
                 {{id.constData(), L::AutoNumber, 0, T},
                  {koodi.constData(), L::Text, 50, T | DEF},
                  {teksti.constData(), L::Text, 50, T | DEF},
                  {"BackupRow", L::Boolean, 0, T}});
}

QVector<SchemaTable> rakenna()
{
    QVector<SchemaTable> v;

    // ---- base tables of the template ----
    v << taulu("jr", true,
               {{"jrID", L::AutoNumber, 0, M},
                {"jrSukunimi", L::Text, 50, M},
                {"jrEtunimi", L::Text, 50, M},
                {"jrOsoite", L::Text, 50, M},
                {"jrPostinumero", L::Text, 5, M},
                {"jrPostitoimipaikka", L::Text, 50, M},
                {"jrPuhelin", L::Text, 30, M},
                {"jrMatkapuhelin", L::Text, 30, M},
                {"jrEmail", L::Text, 50, M},
                {"jrJasennumero", L::Text, 10, M},
                {"jrJasenmaksu", L::Boolean, 0, M},
                {"jrPerheenLaskutettava", L::Boolean, 0, S | DEF},
                {"jrViitenumero", L::Text, 30, S | DEF},
                {"jrTitteli", L::Text, 50, S | DEF},
                {"jrSyntyma", L::Date, 0, S},
                {"jrLiittyma", L::Date, 0, S},
                {"jrMukaan", L::Boolean, 0, S},
                {"jrMukaan2", L::Boolean, 0, S},
                {"jrEmailLasku", L::Boolean, 0, S},
                {"jrLisatieto1", L::Text, 50, S | DEF},
                {"jrLisatieto2", L::Text, 50, S | DEF},
                {"BackupRow", L::Boolean, 0, S},
                {"jrKotipaikka", L::Text, 100, S},
                {"jrRekisteritiedot", L::Memo, 0, S | DEF},
                {"jrMuistio", L::Memo, 0, S | DEF},
                {"jrMaa", L::Text, 50, S | DEF},
                {"jrYritys", L::Text, 100, S | DEF},
                {"jrPostinumeroNumero", L::Long, 0, S},
                {"jrKatu", L::Text, 50, S | AZL}},
               // The member number is the member's printed identity: no two members share one.
               {{"jrJasennumeroidx", "jrJasennumero", M | U}});

    // The template's widths: headings as wide as the stored headings, texts as wide as a row
    // text, references wide enough for the international form with its grouping spaces.
    v << taulu("jm", true,
               {{"jmID", L::AutoNumber, 0, M},
                {"jmjrID", L::Long, 0, M},
                {"jmmeID", L::Long, 0, M},
                {"jmLaskunumero", L::Long, 0, M},
                {"jmLaskupaiva", L::Date, 0, M},
                {"jmErapaiva", L::Date, 0, M},
                {"jmViitenumero", L::Text, 50, M},
                {"jmHinta", L::Currency, 0, M},
                {"jmTeksti", L::Text, 255, M},
                {"jmOtsake", L::Text, 50, M},
                {"jmMaksettu", L::Boolean, 0, M},
                {"jmPerhe", L::Boolean, 0, S},
                {"jmOmin", L::Boolean, 0, S},
                {"jmEmailed", L::Boolean, 0, S},
                {"jmJasMak", L::Boolean, 0, S},
                {"jmEiLoppusummaa", L::Boolean, 0, S},
                {"BackupRow", L::Boolean, 0, S},
                {"jmPankkitili1", L::Text, 50, S},
                {"jmKaytaPankkitili1", L::Boolean, 0, S},
                {"jmjrJasenmaksu", L::Boolean, 0, S},
                {"jmTulostusJarjestysID", L::Long, 0, S}},
               {{"jmjrIDidx", "jmjrID", M}});

    v << taulu("jmhist", true,
               {{"jmhID", L::AutoNumber, 0, M},
                {"jmhjmID", L::Long, 0, M},
                {"jmhjmjrID", L::Long, 0, M},
                {"jmhjmmeID", L::Long, 0, M},
                {"jmhjmLaskunumero", L::Long, 0, M},
                {"jmhjmLaskupaiva", L::Date, 0, M},
                {"jmhjmErapaiva", L::Date, 0, M},
                {"jmhjmViitenumero", L::Text, 50, M},
                {"jmhjmHinta", L::Currency, 0, M},
                {"jmhjmTeksti", L::Text, 255, M},
                {"jmhjmOtsake", L::Text, 50, M},
                {"jmhjmMaksettu", L::Boolean, 0, M},
                {"jmhjmPerhe", L::Boolean, 0, S},
                {"jmhjmOmin", L::Boolean, 0, S},
                {"jmhjmEmailed", L::Boolean, 0, S},
                {"jmhjmJasMak", L::Boolean, 0, S},
                {"jmhjmEiLoppusummaa", L::Boolean, 0, S},
                {"jmhMaksuPaiva", L::Date, 0, S},
                {"BackupRow", L::Boolean, 0, S},
                {"jmhjmPankkitili1", L::Text, 50, S},
                {"jmhjmKaytaPankkitili1", L::Boolean, 0, S},
                {"jmhjmMuistutusOtsake", L::Text, 30, S},
                {"jmhjmMuistutusPaiva", L::Date, 0, S},
                {"jmhjmMuistutusNumero", L::Long, 0, S},
                {"jmhjmMuistutusKulut", L::Currency, 0, S},
                {"jmhjmMuistutusKorko", L::Double, 0, S},
                {"jmhjmMuistutusYhteensa", L::Currency, 0, S},
                {"jmhjmAvoinSumma", L::Currency, 0, S},
                {"jmhjmMuistutusKorkoSumma", L::Currency, 0, S}},
               // Payments are matched by reference and by invoice number, members' histories by member.
               {{"jmhjmjrIDidx", "jmhjmjrID", M},
                {"jmhjmLaskunumeroidx", "jmhjmLaskunumero", M},
                {"jmhjmViitenumeroidx", "jmhjmViitenumero", M}});

    v << taulu("lt", true,
               {{"ltID", L::AutoNumber, 0, M}, {"ltNimi", L::Text, 50, M}, {"BackupRow", L::Boolean, 0, S}});

    v << taulu("me", true,
               {{"meID", L::AutoNumber, 0, M}, {"meTeksti", L::Memo, 0, M}, {"BackupRow", L::Boolean, 0, S}});

    v << taulu("pi", true,
               {{"piID", L::AutoNumber, 0, M},
                {"piNimi", L::Text, 50, M},
                {"piKuvaus", L::Text, 255, M},
                {"piEnbldCurrency", L::Boolean, 0, M},
                {"piEnbldDate", L::Boolean, 0, M},
                {"piEnbldLong", L::Boolean, 0, M},
                {"piEnbldMemo", L::Boolean, 0, M},
                {"piCurrency", L::Currency, 0, M},
                {"piDate", L::Date, 0, M},
                {"piLong", L::Long, 0, M},
                {"piMemo", L::Memo, 0, M},
                {"BackupRow", L::Boolean, 0, S}});

    v << taulu("pt", true,
               {{"ptID", L::AutoNumber, 0, M},
                {"ptjrID", L::Long, 0, M},
                {"ptpiID", L::Long, 0, M},
                {"ptValCurrency", L::Currency, 0, M},
                {"ptValDate", L::Date, 0, M},
                {"ptValLong", L::Long, 0, M},
                {"ptValMemo", L::Memo, 0, M},
                {"BackupRow", L::Boolean, 0, S}},
               {{"ptjrIDidx", "ptjrID", M}, {"ptpiIDidx", "ptpiID", M}});

    v << taulu("mt", true,
               {{"mtID", L::AutoNumber, 0, M},
                {"mtpiID", L::Long, 0, M},
                {"mtjrID", L::Long, 0, M},
                {"mtTeksti", L::Text, 255, M}});

    // ---- tables the upgrade creates, in the order it creates them ----
    v << taulu("jmRivi", false,
               {{"jmRID", L::AutoNumber, 0, T},
                {"jmRjmID", L::Long, 0, T},
                {"jmRPaiva", L::Date, 0, T},
                {"jmRHinta", L::Currency, 0, T},
                {"jmRTeksti", L::Text, 255, T},
                {"jmRMaksettu", L::Boolean, 0, T},
                {"jmRjrID", L::Long, 0, T},
                {"jmRmeId", L::Long, 0, S},
                {"jmRmlID", L::Long, 0, S},
                {"BackupRow", L::Boolean, 0, S}},
               {{"jmidx", "jmRjmID", T},
                {"jridx", "jmRjrID", T},
                {"jmRmeIdidx", "jmRmeId", S},
                {"jmRmlIDidx", "jmRmlID", S}});

    v << taulu("jrPerhe", false,
               {{"jrPID", L::AutoNumber, 0, T},
                {"jrPMID", L::Long, 0, T},
                {"jrPSubID", L::Long, 0, T},
                {"jrPAik", L::Boolean, 0, T},
                {"jrPNuor", L::Boolean, 0, T},
                {"jrPLapsi", L::Boolean, 0, T},
                {"jrPSis1", L::Boolean, 0, T},
                {"jrPSis2", L::Boolean, 0, T},
                {"jrPSis3", L::Boolean, 0, T},
                {"jrPSis4", L::Boolean, 0, T},
                {"jrPSis5", L::Boolean, 0, T},
                {"BackupRow", L::Boolean, 0, S}},
               {{"jrPMIDidx", "jrPMID", T}, {"jrPSubIDidx", "jrPSubID", T}});

    v << taulu("Settings", false,
               {{"setID", L::AutoNumber, 0, T},
                {"setSection", L::Text, 255, T},
                {"setKey", L::Text, 255, T},
                {"setString", L::Text, 255, T}});

    v << taulu("am", false,
               {{"amID", L::AutoNumber, 0, T},
                {"amjrID", L::Long, 0, T},
                {"amErapaiva", L::Date, 0, T},
                {"amLaskupaiva", L::Date, 0, T},
                {"amViitenumero", L::Text, 50, T},
                {"amTeksti", L::Text, 80, T},
                {"amMaksettuSumma", L::Currency, 0, T},
                {"ammeID", L::Long, 0, T},
                {"amOtsake", L::Text, 50, T},
                {"amPerhe", L::Boolean, 0, T},
                {"amEmailed", L::Boolean, 0, T},
                {"BackupRow", L::Boolean, 0, S}},
               {{"ammeID", "ammeID", T}});

    // amRHinta is text on purpose, unlike jmRHinta.
    v << taulu("amRivi", false,
               {{"amRID", L::AutoNumber, 0, T},
                {"amRamID", L::Long, 0, T},
                {"amRPaiva", L::Date, 0, T},
                {"amRTeksti", L::Text, 255, T},
                {"amRHinta", L::Text, 255, T},
                {"amRMaksettu", L::Boolean, 0, T},
                {"amRjrID", L::Long, 0, T},
                {"BackupRow", L::Boolean, 0, S}},
               {{"amidx", "amRamID", T}, {"jridx", "amRjrID", T}});

    v << taulu("ml", false,
               {{"mlID", L::AutoNumber, 0, T},
                {"mlNumero", L::Text, 10, T},
                {"mlNimi", L::Text, 50, T},
                {"BackupRow", L::Boolean, 0, S}});

    v << taulu("rp", false, {{"rpID", L::AutoNumber, 0, T}, {"rpDef", L::Memo, 0, T}});

    v << koodiTaulu("Jasenlaji");
    v << koodiTaulu("Jasenryhma");

    v << taulu("Suoritukset", false,
               {{"Suoritus_ID", L::AutoNumber, 0, T},
                {"Paiva", L::Date, 0, T},
                {"jmhID", L::Long, 0, T},
                {"Summa", L::Currency, 0, T},
                {"Arkistointitunnus", L::Text, 20, T},
                {"BackupRow", L::Boolean, 0, T}},
               // A bank file is posted by looking up each archive id, and an invoice's balance sums its payments.
               {{"Arkistointitunnusidx", "Arkistointitunnus", S}, {"jmhIDidx", "jmhID", S}});

    SchemaTable maa = koodiTaulu("Maa");
    maa.kentat << kenttaRivista({"TulosteTeksti", L::Text, 250, S | DEF});
    v << maa;

    v << taulu("Postinumero", false,
               {{"Postinumero_ID", L::AutoNumber, 0, T},
                {"Postinumero", L::Text, 5, T | AZL},
                {"Postitoimipaikka", L::Text, 100, T | AZL}});

    v << taulu("Laskupohjat", false,
               {{"Laskupohja_ID", L::AutoNumber, 0, T},
                {"Laskupohja_Nimi", L::Text, 50, T},
                {"LaskunOtsake", L::Text, 30, T},
                {"LaskunPaivamaara", L::Integer, 0, T},
                {"LaskunErapaiva", L::Integer, 0, T},
                {"TilisiirronTeksti", L::Text, 80, T},
                {"Jasenmaksu", L::Boolean, 0, T},
                {"HenkilokohtainenViite", L::Boolean, 0, T},
                {"IlmanViitetta", L::Boolean, 0, T},
                {"IlmanLoppusummaa", L::Boolean, 0, T},
                {"Lisatietoja", L::Memo, 0, T},
                {"Laskutyyppi", L::Integer, 0, S},
                {"Pankkitili1", L::Text, 50, S},
                {"KaytaPankkitili1", L::Boolean, 0, S}});

    v << taulu("Laskupohjarivit", false,
               {{"Laskupohjarivi_ID", L::AutoNumber, 0, T},
                {"Laskupohja_ID", L::Long, 0, T},
                {"Jarjestys", L::Integer, 0, T},
                {"Laskutyyppi", L::Integer, 0, T},
                {"Paalla", L::Boolean, 0, T},
                {"Aiheteksti", L::Text, 80, T},
                {"Hinta", L::Currency, 0, T},
                {"PerhePaalla", L::Boolean, 0, T},
                {"PerheAhinta", L::Currency, 0, T},
                {"PerheAiheteksti", L::Text, 80, T},
                {"PerheNimet", L::Boolean, 0, T},
                {"PerheNollat", L::Boolean, 0, T},
                {"OmPiId", L::Long, 0, T},
                {"OmLkm", L::Boolean, 0, T},
                {"OmAhinta", L::Currency, 0, T},
                {"OmHinta", L::Boolean, 0, T},
                {"OmLkmMaara", L::Double, 0, T},
                {"OmMinimi", L::Currency, 0, T},
                {"OmNollat", L::Boolean, 0, T},
                {"OmAiheteksti", L::Text, 80, T}});

    v << taulu("Tarra", false,
               {{"Tarra_ID", L::AutoNumber, 0, T},
                {"Rivi1", L::Text, 255, T | AZL | DEF},
                {"Rivi2", L::Text, 255, T | AZL | DEF},
                {"Rivi3", L::Text, 255, T | AZL | DEF},
                {"Rivi4", L::Text, 255, T | AZL | DEF},
                {"Rivi5", L::Text, 255, T | AZL | DEF},
                {"Rivi6", L::Text, 255, T | AZL | DEF},
                {"BackupRow", L::Boolean, 0, T}});

    // The index has a step of its own, so that a table made without it still gets it.
    v << taulu("Rekisteritiedot", false,
               {{"Rekisteritieto_ID", L::AutoNumber, 0, T},
                {"jrID", L::Long, 0, T},
                {"Tiedot", L::Memo, 0, T | DEF}},
               {{"jrIDidx", "jrID", S}});

    return v;
}

// The CHECK of each kind. "length" must stay in the text one: the database layer tells a
// too-long text by that word in the failed constraint.
QString tarkistus(const SchemaField &f)
{
    const QString &c = f.nimi;
    switch (f.laji) {
    case L::Text:
        return QStringLiteral("CHECK (length(%1) <= %2)").arg(c).arg(f.leveys);
    case L::Long:
        return QStringLiteral("CHECK (%1 IS NULL OR (typeof(%1) = 'integer' AND %1 BETWEEN -2147483648 AND 2147483647))").arg(c);
    case L::Integer:
        return QStringLiteral("CHECK (%1 IS NULL OR (typeof(%1) = 'integer' AND %1 BETWEEN -32768 AND 32767))").arg(c);
    case L::Currency:
        return QStringLiteral("CHECK (typeof(%1) IN ('integer', 'null'))").arg(c);
    case L::Double:
        return QStringLiteral("CHECK (typeof(%1) IN ('real', 'integer', 'null'))").arg(c);
    case L::Boolean:
        return QStringLiteral("CHECK (%1 IS NULL OR %1 IN (0, 1))").arg(c);
    case L::Date:
        // '+0 days' makes SQLite normalise, so 2023-02-30 does not come back equal; IS, not =,
        // because a text that is no date gives Null, and a Null CHECK would let it in.
        return QStringLiteral("CHECK (%1 IS NULL OR date(%1, '+0 days') IS %1 OR datetime(%1, '+0 days') IS %1)").arg(c);
    case L::Memo:
    case L::AutoNumber:
        break;
    }
    return {};
}

QString tyyppi(const SchemaField &f)
{
    switch (f.laji) {
    case L::AutoNumber: return QStringLiteral("INTEGER PRIMARY KEY AUTOINCREMENT");
    case L::Long: return QStringLiteral("INTEGER");
    case L::Integer: return QStringLiteral("SMALLINT");
    case L::Currency: return QStringLiteral("CURRENCY INTEGER");
    case L::Double: return QStringLiteral("DOUBLE");
    case L::Date: return QStringLiteral("DATE");
    case L::Boolean: return QStringLiteral("BOOLEAN");
    case L::Text: return QStringLiteral("VARCHAR(%1)").arg(f.leveys);
    case L::Memo: return QStringLiteral("TEXT");
    }
    return {};
}

struct Hakemisto {
    QVector<SchemaTable> taulut;
    QHash<QString, int> paikat; // lower-case name -> position
};

const Hakemisto &hakemisto()
{
    static const Hakemisto h = [] {
        Hakemisto x;
        x.taulut = rakenna();
        for (int i = 0; i < x.taulut.size(); ++i)
            x.paikat.insert(x.taulut[i].nimi.toLower(), i);
        return x;
    }();
    return h;
}

} // namespace

QString SchemaField::sarakeMaaritys() const
{
    const QString check = tarkistus(*this);
    QString s = nimi + QLatin1Char(' ') + tyyppi(*this);
    if (!check.isEmpty())
        s += QLatin1Char(' ') + check;
    return s;
}

const SchemaField *SchemaTable::kentta(const QString &name) const
{
    for (const SchemaField &f : kentat)
        if (f.nimi.compare(name, Qt::CaseInsensitive) == 0)
            return &f;
    return nullptr;
}

const SchemaIndex *SchemaTable::indeksi(const QString &name) const
{
    for (const SchemaIndex &i : indeksit)
        if (i.nimi == name)
            return &i;
    return nullptr;
}

QString SchemaTable::luontiLause() const
{
    QStringList sarakkeet;
    for (const SchemaField &f : kentat)
        if (f.alkupera != Alkupera::Lisays)
            sarakkeet << f.sarakeMaaritys();
    return QStringLiteral("CREATE TABLE %1 (%2)").arg(nimi, sarakkeet.join(QStringLiteral(", ")));
}

namespace Schema {

const QVector<SchemaTable> &taulut() { return hakemisto().taulut; }

const SchemaTable *taulu(const QString &table)
{
    const Hakemisto &h = hakemisto();
    const auto it = h.paikat.constFind(table.toLower());
    return it == h.paikat.constEnd() ? nullptr : &h.taulut[*it];
}

const SchemaField *kentta(const QString &table, const QString &field)
{
    const SchemaTable *t = taulu(table);
    return t ? t->kentta(field) : nullptr;
}

int leveys(const QString &table, const QString &field)
{
    const SchemaField *f = kentta(table, field);
    return f && f->laji == KenttaLaji::Text ? f->leveys : 0;
}

QString sqliteIndeksiNimi(const QString &table, const QString &index) { return table + QLatin1Char('_') + index; }

QString indeksiLause(const SchemaTable &table, const SchemaIndex &index)
{
    return QStringLiteral("CREATE %1INDEX %2 ON %3 (%4)")
        .arg(index.yksilollinen ? QStringLiteral("UNIQUE ") : QString(), sqliteIndeksiNimi(table.nimi, index.nimi),
             table.nimi, index.kentta);
}

QString lisaysLause(const SchemaTable &table, const SchemaField &field)
{
    return QStringLiteral("ALTER TABLE %1 ADD COLUMN %2").arg(table.nimi, field.sarakeMaaritys());
}

QStringList malliLauseet()
{
    QStringList out;
    for (const SchemaTable &t : taulut()) {
        if (!t.perustaulu)
            continue;
        out << t.luontiLause();
        for (const SchemaIndex &i : t.indeksit)
            if (i.alkupera == Alkupera::Malli)
                out << indeksiLause(t, i);
    }
    return out;
}

QString piirteetLause()
{
    return QStringLiteral("CREATE VIEW %1 AS SELECT * FROM pi, pt WHERE pi.piID = pt.ptpiID").arg(QLatin1String(PiirteetNimi));
}

} // namespace Schema
