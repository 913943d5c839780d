// The database engine: one SQLite file per club. This header is the only way into SQLite.
//
// Values travel as QVariant: an invalid QVariant is Null. Dates are bound as ISO text, booleans
// as 0/1, money (Currency) as its raw ten-thousandths. Every value is bound, never spliced.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <array>
#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace db {

// Error categories as the program reports them. The numbers are the ones the program's own
// algorithms test (file not found 3024, bad path 3044, cannot open 3051, duplicate key 3022).
enum class ErrorKind {
    NotFound,        // 3024
    BadPath,         // 3044
    CannotOpen,      // 3051: locked by another writer, or no permission
    UniqueViolation, // 3022
    Corrupt,         // damaged file: the repair path
    NotOurDatabase,  // not a SQLite file at all (an Access file, anything else): message only
    TooLong,         // a text longer than its field
    Other
};

int errorNumber(ErrorKind kind);

class DbError : public std::runtime_error {
public:
    DbError(ErrorKind kind, const QString &message, int sqliteCode = 0);
    ErrorKind kind() const { return m_kind; }
    int number() const { return errorNumber(m_kind); }
    int sqliteCode() const { return m_sqliteCode; }
    QString message() const { return m_message; }

private:
    ErrorKind m_kind;
    QString m_message;
    int m_sqliteCode;
};

using Params = QVector<QVariant>;

class Database;

// A prepared statement with bound values; step through rows with next().
class Statement {
public:
    Statement(Database &db, const QString &sql, const Params &params = {});
    ~Statement();
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;
    Statement(Statement &&other) noexcept;

    bool next();                           // false at the end of the rows
    int columnCount() const;
    QString columnName(int i) const;
    int columnIndex(const QString &name) const; // case-insensitive; -1 when absent
    QVariant value(int i) const;
    QVariant value(const QString &name) const;   // throws when the column does not exist
    void reset(const Params &params);           // run again with other values

private:
    void bindAll(const Params &params);
    Database *m_db;
    std::weak_ptr<void> m_elossa; // expires with the connection: the statement is then only finalized
    sqlite3_stmt *m_stmt = nullptr;
    QString m_sql;
};

struct ColumnInfo {
    QString name;
    QString declaredType;
    bool notNull = false;
    bool primaryKey = false;
    QVariant defaultValue;
};

enum class OpenMode { ReadWrite, ReadOnly };

class Database {
public:
    // Opens an existing file. Never creates one; a missing file is NotFound.
    static std::unique_ptr<Database> open(const QString &path, OpenMode mode = OpenMode::ReadWrite);
    // Creates a new, empty database file (fails when the file exists).
    static std::unique_ptr<Database> create(const QString &path);

    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    QString path() const { return m_path; }
    sqlite3 *handle() const { return m_db; }
    bool isReadOnly() const;

    // Any statement; returns the number of rows changed.
    int execute(const QString &sql, const Params &params = {});
    // Several statements without values (schema scripts).
    void executeScript(const QString &sql);
    // First column of the first row, Null when there is no row.
    QVariant scalar(const QString &sql, const Params &params = {});
    qint64 lastInsertId() const;

    // Exact (case-sensitive) schema names, as the upgrade's existence tests need them.
    QStringList tableNames();
    QStringList viewNames();
    QVector<ColumnInfo> columns(const QString &table);
    QStringList columnNames(const QString &table);
    QStringList indexNames(const QString &table);
    QString primaryKeyColumn(const QString &table);
    // Every schema object's SQL, sorted: equal dumps mean equal schemas.
    QString schemaDump();

    // AutoNumber: reserves the next identity of the table through sqlite_sequence, so that a
    // cancelled add uses the number up exactly as an AutoNumber counter does.
    qint64 reserveId(const QString &table);
    // Sets the counter so that the next reserved identity is above `floor`.
    void raiseSequence(const QString &table, qint64 floor);

    // A full quick check of the file; false when damage was found.
    bool quickCheck(QString *report = nullptr);

    void close();

    // Translates the last SQLite failure into the program's error.
    [[noreturn]] void fail(int code, const QString &context = {});

    // Long statements (a copy, a check, a set-wise insert) ask `keskeyta` now and then; when it
    // answers true the statement stops and throws Keskeytetty. An empty function removes it.
    void setInterruptCheck(std::function<bool()> keskeyta);

    // True while a Transaction of this connection is open.
    bool inTransaction() const { return m_avoimia > 0; }
    // What to undo in memory should the open transaction roll back, for a value kept both in the
    // database and in memory (the counters). Runs when this transaction or one around it rolls
    // back; forgotten when the outermost commits. Without an open transaction the write is
    // already permanent and nothing is kept.
    void perumisella(std::function<void()> palauta);

private:
    friend class Statement;
    friend class Transaction;
    Database(sqlite3 *db, const QString &path);
    void configure();
    // Prepared statements are kept for their next use: a report or a bulk run asks the same
    // few questions for every member, and preparing them is most of the cost.
    sqlite3_stmt *otaValmis(const QString &sql);
    void palautaValmis(const QString &sql, sqlite3_stmt *stmt);
    void tyhjennaValmiit();
    sqlite3 *m_db = nullptr;
    QString m_path;
    QHash<QString, sqlite3_stmt *> m_valmiit;
    int m_avoimia = 0; // open Transaction objects on this connection
    std::vector<std::pair<int, std::function<void()>>> m_perumiset; // by the depth they belong to
    void peru(int taso);
    // The savepoint statements of nested transactions, kept prepared by depth: a unit of work
    // inside a run then costs two steps of the engine and nothing more.
    enum Tapahtumalause { Savepoint, Release, RollbackTo };
    void tapahtumalause(Tapahtumalause laji, int taso);
    std::array<std::array<sqlite3_stmt *, 3>, 8> m_tapahtumalauseet{};
    void siirraPerumiset(int taso);
    std::function<bool()> m_keskeyta;
    bool m_keskeytetty = false;
    static int kysyKeskeytysta(void *self);
    std::shared_ptr<void> m_elossa = std::make_shared<int>(0);
};

// Rolls back unless committed: a run whose writes belong together commits as one. Nests: the
// outermost is BEGIN IMMEDIATE, an inner one a SAVEPOINT that rolls back only its own part.
class Transaction {
public:
    explicit Transaction(Database &db);
    ~Transaction();
    void commit();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

private:
    Database &m_db;
    int m_taso;
    bool m_done = false;
};

// Tells what kind of file lies at a path without opening it as a database.
enum class FileKind { Missing, Empty, SQLite, AccessJet, Unknown, Unreadable };
FileKind probeFile(const QString &path);

// A table or column name as an SQL identifier: in double quotes, inner quotes doubled.
QString quoteIdent(const QString &name);

} // namespace db
