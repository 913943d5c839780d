// A DAO-like recordset, for the algorithms that walk rows one by one.
//
// A table recordset holds only the keys (rowids) of its rows, in the order asked for, and reads
// the current row when a field is asked for, so it stays light on the largest registers. A
// snapshot runs any SELECT once into a temporary table of the connection and is read-only.
//
// As in DAO: a new row is added at the end of the set whatever its order; the row that was
// current before AddNew stays current after Update; after Delete there is no current row until
// the next move, and MoveNext goes to the row that followed the deleted one. Moving while a row
// is being edited drops the edit. Unlike DAO, RecordCount is exact at once, and a Find without
// a match leaves the current row where it was.
#pragma once

#include "platform/database.h"

#include <QHash>
#include <QString>
#include <QVariant>
#include <QVector>
#include <memory>
#include <optional>

namespace db {

class Recordset {
public:
    using Bookmark = qint64;

    // The rows of `table` that meet `where` (SQL with ? for `params`, may be empty), in the
    // order of `orderBy` (SQL, may be empty: then in key order). Updatable.
    static std::unique_ptr<Recordset> openTable(Database &db, const QString &table, const QString &where = {},
                                                const Params &params = {}, const QString &orderBy = {});
    // The rows of any SELECT, as they were when it ran. Read-only.
    static std::unique_ptr<Recordset> openSnapshot(Database &db, const QString &select, const Params &params = {});

    ~Recordset();
    Recordset(const Recordset &) = delete;
    Recordset &operator=(const Recordset &) = delete;

    bool bof() const;
    bool eof() const;
    int recordCount() const { return int(m_keys.size()); }
    // 0-based; -1 when there is no current row.
    int absolutePosition() const;
    void setAbsolutePosition(int position);

    void moveFirst();
    void moveLast();
    void moveNext();
    void movePrevious();

    Bookmark bookmark() const;
    void setBookmark(Bookmark b);
    // The row added or changed last by Update.
    Bookmark lastModified() const;

    // Criteria are SQL over the recordset's fields with ? for `params`. True when a row was
    // found and made current; noMatch() tells the same afterwards.
    bool findFirst(const QString &criteria, const Params &params = {});
    bool findNext(const QString &criteria, const Params &params = {});
    bool findPrevious(const QString &criteria, const Params &params = {});
    bool findLast(const QString &criteria, const Params &params = {});
    bool noMatch() const { return m_noMatch; }

    QStringList fieldNames() const { return m_fieldNames; }
    bool hasField(const QString &name) const;
    // The current row's value (during AddNew or Edit, the value being written); Null is an
    // invalid QVariant. Names are case-insensitive.
    QVariant value(const QString &name) const;
    QVariant operator[](const QString &name) const { return value(name); }

    enum class EditMode { None, Edit, AddNew };
    EditMode editMode() const { return m_mode; }
    // AddNew reserves the row's identity at once, so a cancelled add uses the number up.
    void addNew();
    void edit();
    void setValue(const QString &name, const QVariant &value);
    void update();
    void cancelUpdate();
    void deleteRow();
    // Runs the query again and makes the first row current.
    void requery();

private:
    Recordset(Database &db, const QString &source, bool readOnly);
    void loadKeys();
    void prepareFetch();
    void drop();
    void moveTo(int position);
    void leaveRow();
    void requireCurrent() const;
    void requireWritable() const;
    int fieldIndex(const QString &name) const;
    const QVector<QVariant> &currentRow() const;
    bool find(const QString &criteria, const Params &params, int from, int step);

    Database &m_db;
    QString m_source;        // quoted table name, or the snapshot's temporary table
    QString m_table;         // the table's own name; empty for a snapshot
    bool m_readOnly;
    QString m_baseSql;       // the snapshot's SELECT, or the table's WHERE/ORDER BY clauses
    Params m_baseParams;
    QString m_primaryKey;    // empty when the table has no AutoNumber key
    QStringList m_fieldNames;
    QHash<QString, int> m_fieldIndex;       // lower-case name -> column
    QVector<qint64> m_keys;
    int m_pos = 0;           // -1 before the first row, size() after the last
    bool m_onDeleted = false;
    bool m_noMatch = false;
    std::optional<qint64> m_lastModified;
    std::unique_ptr<Statement> m_fetch;
    mutable std::optional<qint64> m_cachedKey;
    mutable QVector<QVariant> m_cachedRow;
    EditMode m_mode = EditMode::None;
    QVector<QVariant> m_buffer;
    QVector<bool> m_changed;
};

} // namespace db
