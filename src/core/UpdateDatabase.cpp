// The upgrade: a series of guarded steps, each adding what its exact-name test finds missing.
// The structure itself is the version, so the same series runs at every start.
#include "core/UpdateDatabase.h"

#include "core/Schema.h"

#include <QHash>
#include <QSet>

namespace {

// What the file holds, read at once: a current database passes through the whole series on
// two queries, however many members it has.
class Rakenne {
public:
    explicit Rakenne(db::Database &db) : m_db(db) { lue(); }

    void lue()
    {
        m_taulut.clear();
        m_nakymat.clear();
        m_kentat.clear();
        m_indeksit.clear();
        m_yksilolliset.clear();
        m_autoavain.clear();
        m_oikeatNimet.clear();
        QHash<QString, QString> luonnit;
        db::Statement master(m_db, QStringLiteral("SELECT type, name, tbl_name, sql FROM sqlite_master"));
        while (master.next()) {
            const QString tyyppi = master.value(0).toString();
            const QString nimi = master.value(1).toString();
            if (tyyppi == QLatin1String("table")) {
                m_taulut.insert(nimi);
                m_oikeatNimet.insert(nimi.toLower(), nimi);
                luonnit.insert(nimi.toLower(), master.value(3).toString());
            } else if (tyyppi == QLatin1String("view")) {
                m_nakymat.insert(nimi);
            } else if (tyyppi == QLatin1String("index")) {
                m_indeksit[master.value(2).toString().toLower()] << nimi;
                if (master.value(3).toString().startsWith(QLatin1String("CREATE UNIQUE"), Qt::CaseInsensitive))
                    m_yksilolliset.insert(nimi);
            }
        }
        db::Statement sarakkeet(m_db, QStringLiteral(
            "SELECT m.name, p.name, p.pk FROM sqlite_master AS m, pragma_table_info(m.name) AS p "
            "WHERE m.type = 'table'"));
        while (sarakkeet.next()) {
            const QString taulu = sarakkeet.value(0).toString().toLower();
            m_kentat[taulu] << sarakkeet.value(1).toString();
            // The AutoNumber key is what stands for the old engine's "PrimaryKey" index.
            if (sarakkeet.value(2).toInt() == 1
                && luonnit.value(taulu).contains(QLatin1String("AUTOINCREMENT"), Qt::CaseInsensitive))
                m_autoavain.insert(taulu);
        }
    }

    bool taulu(const QString &nimi) const { return m_taulut.contains(nimi); }
    bool kysely(const QString &nimi) const { return m_nakymat.contains(nimi); }

    // The table is found as SQL finds it; the field's name must match exactly.
    bool kentta(const QString &taulu, const QString &kentta) const
    {
        return m_kentat.value(taulu.toLower()).contains(kentta, Qt::CaseSensitive);
    }

    bool indeksi(const QString &taulu, const QString &indeksi) const
    {
        if (indeksi == QLatin1String("PrimaryKey"))
            return m_autoavain.contains(taulu.toLower());
        const QString avain = taulu.toLower();
        return m_indeksit.value(avain).contains(Schema::sqliteIndeksiNimi(m_oikeatNimet.value(avain), indeksi),
                                                Qt::CaseSensitive);
    }

    bool yksilollinen(const QString &taulu, const QString &indeksi) const
    {
        return m_yksilolliset.contains(Schema::sqliteIndeksiNimi(m_oikeatNimet.value(taulu.toLower()), indeksi));
    }

private:
    db::Database &m_db;
    QSet<QString> m_taulut;
    QSet<QString> m_nakymat;
    QHash<QString, QStringList> m_kentat;   // by lower-case table name
    QHash<QString, QStringList> m_indeksit; // by lower-case table name
    QSet<QString> m_autoavain;
    QSet<QString> m_yksilolliset; // unique indexes by their name in the file
    QHash<QString, QString> m_oikeatNimet; // lower-case -> as the file spells the table
};

struct Vaihe {
    enum Laji { Kentat, Taulu, Indeksi, Kysely, Yksilollinen };
    Laji laji;
    QString taulu;
    QStringList kentat; // added together; only the first is tested
    QString indeksi;    // with Kentat: added in the same step
};

Vaihe kentat(const char *taulu, std::initializer_list<const char *> nimet, const char *indeksi = "")
{
    QStringList l;
    for (const char *n : nimet)
        l << QString::fromUtf8(n);
    return {Vaihe::Kentat, QString::fromUtf8(taulu), l, QString::fromUtf8(indeksi)};
}
Vaihe taulu(const char *nimi) { return {Vaihe::Taulu, QString::fromUtf8(nimi), {}, {}}; }
Vaihe indeksi(const char *taulu, const char *nimi, Vaihe::Laji laji = Vaihe::Indeksi)
{
    return {laji, QString::fromUtf8(taulu), {}, QString::fromUtf8(nimi)};
}

// The order is the record of what came when; later steps rely on the tables of earlier ones.
const QVector<Vaihe> &vaiheet()
{
    static const QVector<Vaihe> v = [] {
        QVector<Vaihe> s;
        s << kentat("jr", {"jrPerheenLaskutettava"});
        s << taulu("jmRivi");
        s << taulu("jrPerhe");
        s << kentat("jm", {"jmPerhe"}) << kentat("jmhist", {"jmhjmPerhe"})
          << kentat("jm", {"jmOmin"}) << kentat("jm", {"jmEmailed"})
          << kentat("jmhist", {"jmhjmOmin"}) << kentat("jmhist", {"jmhjmEmailed"})
          << kentat("jm", {"jmJasMak"}) << kentat("jmhist", {"jmhjmJasMak"})
          << kentat("jm", {"jmEiLoppusummaa"})
          << kentat("jmhist", {"jmhjmEiLoppusummaa"}) << kentat("jmhist", {"jmhMaksuPaiva"});
        s << kentat("jmRivi", {"jmRmeId"}, "jmRmeIdidx");
        s << taulu("Settings");
        for (const char *k : {"jrViitenumero", "jrTitteli", "jrSyntyma", "jrLiittyma", "jrMukaan", "jrMukaan2", "jrEmailLasku"})
            s << kentat("jr", {k});
        s << kentat("jr", {"jrLisatieto1", "jrLisatieto2"});
        s << taulu("am") << taulu("amRivi") << taulu("ml");
        s << kentat("jmRivi", {"jmRmlID"}, "jmRmlIDidx");
        for (const char *t : {"am", "amRivi", "jm", "jmhist", "jmRivi", "jr", "jrPerhe", "lt", "me", "ml", "pi", "pt"})
            s << kentat(t, {"BackupRow"});
        s << kentat("jr", {"jrKotipaikka"});
        s << taulu("rp");
        s << Vaihe{Vaihe::Kysely, {}, {}, {}};
        for (const char *k : {"jrRekisteritiedot", "jrMuistio", "jrMaa", "jrYritys"})
            s << kentat("jr", {k});
        s << taulu("Jasenlaji") << taulu("Jasenryhma") << taulu("Suoritukset") << taulu("Maa");
        s << kentat("Maa", {"TulosteTeksti"});
        s << taulu("Postinumero") << taulu("Laskupohjat");
        s << kentat("Laskupohjat", {"Laskutyyppi"});
        s << taulu("Laskupohjarivit");
        s << kentat("jm", {"jmPankkitili1", "jmKaytaPankkitili1"})
          << kentat("jmhist", {"jmhjmPankkitili1", "jmhjmKaytaPankkitili1"})
          << kentat("Laskupohjat", {"Pankkitili1", "KaytaPankkitili1"});
        s << kentat("jr", {"jrPostinumeroNumero"});
        s << kentat("jm", {"jmjrJasenmaksu"}) << kentat("jm", {"jmTulostusJarjestysID"});
        s << kentat("jr", {"jrKatu"});
        s << taulu("Tarra");
        s << kentat("jmhist", {"jmhjmMuistutusOtsake", "jmhjmMuistutusPaiva", "jmhjmMuistutusNumero",
                               "jmhjmMuistutusKulut", "jmhjmMuistutusKorko", "jmhjmMuistutusYhteensa"})
          << kentat("jmhist", {"jmhjmAvoinSumma"}) << kentat("jmhist", {"jmhjmMuistutusKorkoSumma"});
        s << taulu("Rekisteritiedot");
        s << indeksi("Rekisteritiedot", "jrIDidx");
        // Made unique only when the numbers allow it; until then the club opens as it is.
        s << indeksi("jr", "jrJasennumeroidx", Vaihe::Yksilollinen);
        // Payments are matched by reference, and a posted file is looked up by archive id: a club made
        // from an old template gets the indexes here.
        s << indeksi("jmhist", "jmhjmViitenumeroidx");
        s << indeksi("Suoritukset", "Arkistointitunnusidx") << indeksi("Suoritukset", "jmhIDidx");
        return s;
    }();
    return v;
}

bool onTehty(const Rakenne &r, const Vaihe &v)
{
    switch (v.laji) {
    case Vaihe::Kentat: return r.kentta(v.taulu, v.kentat.first());
    case Vaihe::Taulu: return r.taulu(v.taulu);
    case Vaihe::Indeksi: return r.indeksi(v.taulu, v.indeksi);
    case Vaihe::Kysely: return r.kysely(QLatin1String(Schema::PiirteetNimi));
    case Vaihe::Yksilollinen: return r.yksilollinen(v.taulu, v.indeksi);
    }
    return true;
}

// A step that cannot be taken without losing data waits until the user has put it right.
bool odottaa(db::Database &db, const Vaihe &v)
{
    return v.laji == Vaihe::Yksilollinen && !KaksoisJasennumerot(db).isEmpty();
}

QString kuvaus(const Vaihe &v)
{
    switch (v.laji) {
    case Vaihe::Kentat: return QStringLiteral("kenttä %1.%2").arg(v.taulu, v.kentat.first());
    case Vaihe::Taulu: return QStringLiteral("taulu %1").arg(v.taulu);
    case Vaihe::Indeksi: return QStringLiteral("indeksi %1.%2").arg(v.taulu, v.indeksi);
    case Vaihe::Kysely: return QStringLiteral("kysely %1").arg(QLatin1String(Schema::PiirteetNimi));
    case Vaihe::Yksilollinen: return QStringLiteral("yksilöllinen indeksi %1.%2").arg(v.taulu, v.indeksi);
    }
    return {};
}

// The statements of one step, from the declaration.
QStringList lauseet(const Vaihe &v)
{
    QStringList out;
    if (v.laji == Vaihe::Kysely)
        return {Schema::piirteetLause()};
    const SchemaTable *t = Schema::taulu(v.taulu);
    if (!t)
        throw db::DbError(db::ErrorKind::Other, QStringLiteral("Taulua %1 ei ole määritelty.").arg(v.taulu));
    auto indeksiLause = [&](const QString &nimi) {
        const SchemaIndex *i = t->indeksi(nimi);
        if (!i)
            throw db::DbError(db::ErrorKind::Other, QStringLiteral("Indeksiä %1.%2 ei ole määritelty.").arg(v.taulu, nimi));
        return Schema::indeksiLause(*t, *i);
    };
    switch (v.laji) {
    case Vaihe::Kentat:
        for (const QString &k : v.kentat) {
            const SchemaField *f = t->kentta(k);
            if (!f || f->nimi != k)
                throw db::DbError(db::ErrorKind::Other, QStringLiteral("Kenttää %1.%2 ei ole määritelty.").arg(v.taulu, k));
            out << Schema::lisaysLause(*t, *f);
        }
        if (!v.indeksi.isEmpty())
            out << indeksiLause(v.indeksi);
        break;
    case Vaihe::Taulu:
        out << t->luontiLause();
        for (const SchemaIndex &i : t->indeksit)
            if (i.alkupera == Alkupera::Taulu)
                out << Schema::indeksiLause(*t, i);
        break;
    case Vaihe::Indeksi:
        out << indeksiLause(v.indeksi);
        break;
    case Vaihe::Yksilollinen:
        // An empty number is no number: the window stores none as Null, and only Nulls may repeat.
        out << QStringLiteral("UPDATE %1 SET %2 = NULL WHERE %2 = ''").arg(t->nimi, t->indeksi(v.indeksi)->kentta)
            << QStringLiteral("DROP INDEX IF EXISTS %1").arg(Schema::sqliteIndeksiNimi(t->nimi, v.indeksi))
            << indeksiLause(v.indeksi);
        break;
    case Vaihe::Kysely:
        break;
    }
    return out;
}

// A step is all or nothing: a failure leaves the file as the step found it.
void tee(db::Database &db, const Vaihe &v)
{
    try {
        db::Transaction tx(db);
        for (const QString &sql : lauseet(v))
            db.execute(sql);
        tx.commit();
    } catch (const db::DbError &e) {
        throw db::DbError(e.kind(),
                          QStringLiteral("Tietokannan rakenteen päivitys keskeytyi (%1): %2").arg(kuvaus(v), e.message()),
                          e.sqliteCode());
    }
}

} // namespace

void UpdateDatabase(db::Database &db)
{
    Rakenne r(db);
    for (const Vaihe &v : vaiheet()) {
        if (onTehty(r, v) || odottaa(db, v))
            continue;
        tee(db, v);
        r.lue();
    }
}

bool TauluOnOlemassa(db::Database &db, const QString &name) { return Rakenne(db).taulu(name); }

bool KenttaOnOlemassa(db::Database &db, const QString &table, const QString &field)
{
    return Rakenne(db).kentta(table, field);
}

bool IndeksiOnOlemassa(db::Database &db, const QString &table, const QString &index)
{
    return Rakenne(db).indeksi(table, index);
}

bool KyselyOnOlemassa(db::Database &db, const QString &name) { return Rakenne(db).kysely(name); }

bool TietokantaOnAjantasalla(db::Database &db)
{
    const Rakenne r(db);
    for (const Vaihe &v : vaiheet())
        if (!onTehty(r, v) && !odottaa(db, v))
            return false;
    return true;
}

QStringList KaksoisJasennumerot(db::Database &db)
{
    // A unique index holds none: the question costs nothing in a club made or put right since.
    const QString indeksi = db.scalar(QStringLiteral("SELECT sql FROM sqlite_master WHERE type = 'index' AND name = ?"),
                                      {Schema::sqliteIndeksiNimi(QStringLiteral("jr"), QStringLiteral("jrJasennumeroidx"))})
                                .toString();
    if (indeksi.startsWith(QLatin1String("CREATE UNIQUE"), Qt::CaseInsensitive))
        return {};
    QStringList numerot;
    db::Statement st(db, QStringLiteral("SELECT jrJasennumero FROM jr WHERE jrJasennumero <> '' "
                                        "GROUP BY jrJasennumero HAVING count(*) > 1 ORDER BY length(jrJasennumero), jrJasennumero"));
    while (st.next())
        numerot << st.value(0).toString();
    return numerot;
}
