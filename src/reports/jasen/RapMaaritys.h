// The user's own column reports: a named list of members with a heading, an orientation and any
// number of columns, each a field, a header and a width. A definition is kept in table `rp` as
// one text (`rpDef`), JSON with a version number, so that a later program can read an older
// definition and an older program refuses a newer one instead of misreading it.
#pragma once

#include <QString>
#include <QVector>

namespace db {
class Database;
}

// A field a column can show: the text the editor offers, the field and its table.
struct RaportinKentta {
    QString naytto;
    QString kentta;
    QString taulu;
};

// Every field a column can take, in the order the editor lists them.
const QVector<RaportinKentta> &RaportinKentat();
// The field of that name (in any case); nullptr when a column cannot show it.
const RaportinKentta *EtsiRaportinKentta(const QString &kentta);

struct RapSarake {
    QString fieldName; // a field of RaportinKentat(); empty: an empty column
    QString Header;
    double Width = 30; // millimetres; 0 or less takes the default width when printed

    bool operator==(const RapSarake &) const = default;
};

// The field of a column; nullptr for an empty column. Throws RaporttiVirhe for a field no
// column can show.
const RaportinKentta *SarakkeenKentta(const RapSarake &s);

class RepSettings {
public:
    enum Suunta { Pystyyn = 0, Vaakaan = 1 };

    QString Nimi;
    QString Otsikko;
    Suunta Orientation = Pystyyn;
    QVector<RapSarake> Sarakkeet; // in print order

    // The stored form.
    QString RapDef() const;
    // Reads a stored form. An empty text is a new definition. A text that is not a definition
    // of ours gives the initial object and, in `virhe`, a Finnish sentence saying why; a
    // readable one clears `virhe`.
    static RepSettings fromRapDef(const QString &teksti, QString *virhe = nullptr);

    // The printed heading: the heading, or the name when there is none.
    QString Otsikkoteksti() const;
    // The field list of the report's SELECT: the columns' fields joined by ", ", empty ones
    // skipped. Throws RaporttiVirhe for a field no column can show.
    QString Kenttalista() const;

    bool operator==(const RepSettings &) const = default;
};

// One stored definition: reads, saves and deletes its row of `rp` on the connection it is given.
class cRapMaaritys {
public:
    explicit cRapMaaritys(db::Database &db) : m_db(db) {}

    qint64 Id() const { return m_id; }
    RepSettings oRepSettings;
    // Why the stored text could not be read at the last ReadById; empty when it could.
    QString LukuVirhe() const { return m_lukuvirhe; }

    // Loads the row. A missing row returns the object to its initial state (false).
    bool ReadById(qint64 id);
    // A new definition gets its row and id; a stored one is updated, or stored again under a
    // new id when someone has deleted its row meanwhile. Throws db::DbError.
    void Save();
    // Deletes the row, then returns to the initial state.
    void Delete();

private:
    void Alusta();

    db::Database &m_db;
    qint64 m_id = 0;
    QString m_lukuvirhe;
};

// A row of the member window's report menu.
struct MuokattavaRaportti {
    qint64 rpID = 0;
    QString nimi; // the definition's name, or "Raportti N" by its place in the list
};

// Every stored definition in rpID order.
QVector<MuokattavaRaportti> MuokattavatRaportit(db::Database &db);
