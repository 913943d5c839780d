// The structure of a club's database, declared once: every table with its fields and indexes, and
// the view `piirteet`. The upgrade, the template and the windows' field widths all read it here.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

// The field kinds of the register, as the old engine named them.
enum class KenttaLaji { Long, Integer, Currency, Double, Date, Boolean, Text, Memo, AutoNumber };

// Where a field comes from: with the template's base table, with the table that the upgrade
// creates, or added afterwards by an upgrade step of its own.
enum class Alkupera { Malli, Taulu, Lisays };

struct SchemaField {
    QString nimi;
    KenttaLaji laji = KenttaLaji::Long;
    int leveys = 0;        // characters of a Text field; 0 for the other kinds
    bool azl = false;      // a zero-length text is allowed (recorded, not enforced)
    bool defTyhja = false; // the default was explicitly set to "": no default expression
    Alkupera alkupera = Alkupera::Malli;

    // The column definition in SQLite: name, declared type and the CHECK that keeps wrong
    // values out of the file.
    QString sarakeMaaritys() const;
};

struct SchemaIndex {
    QString nimi;   // the name within its table ("jridx")
    QString kentta; // the one indexed field
    Alkupera alkupera = Alkupera::Taulu;
    bool yksilollinen = false; // no two rows share a value; Nulls may repeat
};

struct SchemaTable {
    QString nimi;
    bool perustaulu = false; // comes with the template; the upgrade only adds fields to it
    QVector<SchemaField> kentat;
    QVector<SchemaIndex> indeksit;

    const SchemaField *kentta(const QString &name) const; // case-insensitive
    const SchemaIndex *indeksi(const QString &name) const; // exact

    // CREATE TABLE with the fields the table is born with (the template's or the creating
    // step's); the fields of later steps are added by ALTER TABLE.
    QString luontiLause() const;
};

namespace Schema {

// Every table: the base tables first, then the upgrade's tables in the order they are created.
const QVector<SchemaTable> &taulut();
// Case-insensitive look-ups, as SQL names are; nullptr when unknown.
const SchemaTable *taulu(const QString &table);
const SchemaField *kentta(const QString &table, const QString &field);
// The width of a Text field (for a line edit's maxLength); 0 for other kinds and unknown fields.
int leveys(const QString &table, const QString &field);

// Index names are global in SQLite but belong to a table in the register ("jridx" stands on
// both jmRivi and amRivi), so the file holds them as "<table>_<name>".
QString sqliteIndeksiNimi(const QString &table, const QString &index);
QString indeksiLause(const SchemaTable &table, const SchemaIndex &index);
// ALTER TABLE … ADD COLUMN for one field of the table.
QString lisaysLause(const SchemaTable &table, const SchemaField &field);

// The statements that make the template of a new club: the base tables with their own fields
// and indexes. The upgrade brings the rest.
QStringList malliLauseet();

// The one stored query: each attribute value joined to its definition.
inline constexpr const char *PiirteetNimi = "piirteet";
QString piirteetLause();

} // namespace Schema
