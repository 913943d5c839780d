#include "platform/database.h"

#include "platform/ajo.h"
#include "platform/sqlfunctions.h"

#include <QDate>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <sqlite3.h>

namespace db {

int errorNumber(ErrorKind kind)
{
    switch (kind) {
    case ErrorKind::NotFound: return 3024;
    case ErrorKind::BadPath: return 3044;
    case ErrorKind::CannotOpen: return 3051;
    case ErrorKind::UniqueViolation: return 3022;
    case ErrorKind::Corrupt: return 3343;
    case ErrorKind::NotOurDatabase: return 3049;
    case ErrorKind::TooLong: return 3163;
    case ErrorKind::Other: return 3000;
    }
    return 3000;
}

DbError::DbError(ErrorKind kind, const QString &message, int sqliteCode)
    : std::runtime_error(message.toStdString()), m_kind(kind), m_message(message), m_sqliteCode(sqliteCode)
{
}

namespace {

ErrorKind kindOf(int code, const char *msg)
{
    const int primary = code & 0xff;
    switch (primary) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PERM:
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
        return ErrorKind::CannotOpen;
    case SQLITE_CORRUPT:
        return ErrorKind::Corrupt;
    case SQLITE_NOTADB:
        return ErrorKind::NotOurDatabase;
    case SQLITE_CONSTRAINT:
        if (code == SQLITE_CONSTRAINT_UNIQUE || code == SQLITE_CONSTRAINT_PRIMARYKEY)
            return ErrorKind::UniqueViolation;
        if (code == SQLITE_CONSTRAINT_CHECK && msg && strstr(msg, "length"))
            return ErrorKind::TooLong;
        return ErrorKind::Other;
    default:
        return ErrorKind::Other;
    }
}

QString finnishText(ErrorKind kind, const QString &detail)
{
    switch (kind) {
    case ErrorKind::CannotOpen:
        return QStringLiteral("Tietokantaa ei voi avata: se on toisen käyttäjän lukitsema tai siihen ei ole kirjoitusoikeutta (%1).").arg(detail);
    case ErrorKind::Corrupt:
        return QStringLiteral("Tietokanta on vioittunut (%1).").arg(detail);
    case ErrorKind::NotOurDatabase:
        return QStringLiteral("Tiedosto ei ole Vonarin tietokanta (%1).").arg(detail);
    case ErrorKind::UniqueViolation:
        return QStringLiteral("Sama arvo on jo toisella rivillä (%1).").arg(detail);
    case ErrorKind::TooLong:
        return QStringLiteral("Teksti on liian pitkä kenttään (%1).").arg(detail);
    default:
        return QStringLiteral("Tietokantavirhe: %1").arg(detail);
    }
}

} // namespace

QString quoteIdent(const QString &name)
{
    QString q = name;
    q.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + q + QLatin1Char('"');
}

// ---- Statement ---------------------------------------------------------------------------

Statement::Statement(Database &db, const QString &sql, const Params &params)
    : m_db(&db), m_elossa(db.m_elossa), m_sql(sql)
{
    m_stmt = db.otaValmis(sql);
    if (!m_stmt) {
        const QByteArray utf8 = sql.toUtf8();
        const int rc = sqlite3_prepare_v2(db.handle(), utf8.constData(), int(utf8.size()), &m_stmt, nullptr);
        if (rc != SQLITE_OK)
            db.fail(rc, sql);
    }
    try {
        bindAll(params);
    } catch (...) {
        sqlite3_finalize(m_stmt);
        throw;
    }
}

Statement::Statement(Statement &&other) noexcept
    : m_db(other.m_db), m_elossa(std::move(other.m_elossa)), m_stmt(other.m_stmt), m_sql(other.m_sql)
{
    other.m_stmt = nullptr;
}

Statement::~Statement()
{
    if (!m_stmt)
        return;
    if (m_elossa.expired())
        sqlite3_finalize(m_stmt);
    else
        m_db->palautaValmis(m_sql, m_stmt);
}

// Qt 6 no longer calls a variant holding a null string or an invalid date null: both are Null
// to the database, never '' or a date text of nothing.
static bool onNull(const QVariant &v)
{
    if (!v.isValid() || v.isNull())
        return true;
    switch (v.metaType().id()) {
    case QMetaType::QString:
        return v.toString().isNull();
    case QMetaType::QDate:
        return !v.toDate().isValid();
    case QMetaType::QDateTime:
        return !v.toDateTime().isValid();
    default:
        return false;
    }
}

void Statement::bindAll(const Params &params)
{
    const int expected = sqlite3_bind_parameter_count(m_stmt);
    if (expected != params.size())
        throw DbError(ErrorKind::Other,
                      QStringLiteral("Väärä määrä arvoja (%1/%2): %3").arg(params.size()).arg(expected).arg(m_sql));
    for (int i = 0; i < params.size(); ++i) {
        const QVariant &v = params[i];
        const int idx = i + 1;
        int rc = SQLITE_OK;
        if (onNull(v)) {
            rc = sqlite3_bind_null(m_stmt, idx);
        } else {
            switch (v.metaType().id()) {
            case QMetaType::Bool:
                rc = sqlite3_bind_int(m_stmt, idx, v.toBool() ? 1 : 0);
                break;
            case QMetaType::Int:
            case QMetaType::UInt:
            case QMetaType::Long:
            case QMetaType::LongLong:
            case QMetaType::Short:
            case QMetaType::ULongLong:
            case QMetaType::ULong:
                rc = sqlite3_bind_int64(m_stmt, idx, v.toLongLong());
                break;
            case QMetaType::Double:
            case QMetaType::Float:
                rc = sqlite3_bind_double(m_stmt, idx, v.toDouble());
                break;
            case QMetaType::QDate: {
                const QByteArray t = v.toDate().toString(Qt::ISODate).toUtf8();
                rc = sqlite3_bind_text(m_stmt, idx, t.constData(), int(t.size()), SQLITE_TRANSIENT);
                break;
            }
            case QMetaType::QDateTime: {
                const QByteArray t = v.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toUtf8();
                rc = sqlite3_bind_text(m_stmt, idx, t.constData(), int(t.size()), SQLITE_TRANSIENT);
                break;
            }
            case QMetaType::QByteArray: {
                const QByteArray b = v.toByteArray();
                rc = sqlite3_bind_blob(m_stmt, idx, b.constData(), int(b.size()), SQLITE_TRANSIENT);
                break;
            }
            default: {
                const QByteArray t = v.toString().toUtf8();
                rc = sqlite3_bind_text(m_stmt, idx, t.constData(), int(t.size()), SQLITE_TRANSIENT);
                break;
            }
            }
        }
        if (rc != SQLITE_OK)
            m_db->fail(rc, m_sql);
    }
}

bool Statement::next()
{
    const int rc = sqlite3_step(m_stmt);
    if (rc == SQLITE_ROW)
        return true;
    if (rc == SQLITE_DONE)
        return false;
    sqlite3_reset(m_stmt);
    m_db->fail(rc, m_sql);
}

int Statement::columnCount() const { return sqlite3_column_count(m_stmt); }

QString Statement::columnName(int i) const { return QString::fromUtf8(sqlite3_column_name(m_stmt, i)); }

int Statement::columnIndex(const QString &name) const
{
    const int n = columnCount();
    for (int i = 0; i < n; ++i)
        if (columnName(i).compare(name, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

QVariant Statement::value(int i) const
{
    switch (sqlite3_column_type(m_stmt, i)) {
    case SQLITE_INTEGER:
        return QVariant(qlonglong(sqlite3_column_int64(m_stmt, i)));
    case SQLITE_FLOAT:
        return QVariant(sqlite3_column_double(m_stmt, i));
    case SQLITE_TEXT:
        return QVariant(QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(m_stmt, i)),
                                          sqlite3_column_bytes(m_stmt, i)));
    case SQLITE_BLOB:
        return QVariant(QByteArray(static_cast<const char *>(sqlite3_column_blob(m_stmt, i)),
                                   sqlite3_column_bytes(m_stmt, i)));
    default:
        return QVariant();
    }
}

QVariant Statement::value(const QString &name) const
{
    const int i = columnIndex(name);
    if (i < 0)
        throw DbError(ErrorKind::Other, QStringLiteral("Kenttää %1 ei ole kyselyssä").arg(name));
    return value(i);
}

void Statement::reset(const Params &params)
{
    sqlite3_reset(m_stmt);
    sqlite3_clear_bindings(m_stmt);
    bindAll(params);
}

// ---- Database ----------------------------------------------------------------------------

Database::Database(sqlite3 *db, const QString &path) : m_db(db), m_path(path) {}

Database::~Database() { close(); }

sqlite3_stmt *Database::otaValmis(const QString &sql) { return m_valmiit.take(sql); }

void Database::palautaValmis(const QString &sql, sqlite3_stmt *stmt)
{
    constexpr int Enintaan = 48;
    sqlite3_reset(stmt);
    sqlite3_clear_bindings(stmt);
    if (!m_db || m_valmiit.size() >= Enintaan || m_valmiit.contains(sql)) {
        sqlite3_finalize(stmt);
        return;
    }
    m_valmiit.insert(sql, stmt);
}

void Database::tyhjennaValmiit()
{
    for (sqlite3_stmt *s : std::as_const(m_valmiit))
        sqlite3_finalize(s);
    m_valmiit.clear();
    for (auto &taso : m_tapahtumalauseet)
        for (sqlite3_stmt *&s : taso) {
            sqlite3_finalize(s);
            s = nullptr;
        }
}

void Database::tapahtumalause(Tapahtumalause laji, int taso)
{
    static const char *const muodot[] = {"SAVEPOINT s%1", "RELEASE s%1", "ROLLBACK TO s%1"};
    auto teksti = [&] { return QString::fromLatin1(muodot[laji]).arg(taso); };
    if (taso >= int(m_tapahtumalauseet.size())) {
        execute(teksti());
        return;
    }
    sqlite3_stmt *&st = m_tapahtumalauseet[taso][laji];
    if (!st && sqlite3_prepare_v3(m_db, teksti().toUtf8().constData(), -1, SQLITE_PREPARE_PERSISTENT, &st, nullptr) != SQLITE_OK) {
        st = nullptr;
        fail(sqlite3_errcode(m_db), teksti());
    }
    const int rc = sqlite3_step(st);
    sqlite3_reset(st);
    if (rc != SQLITE_DONE)
        fail(rc, teksti());
}

void Database::close()
{
    tyhjennaValmiit();
    if (m_db) {
        sqlite3_close_v2(m_db);
        m_db = nullptr;
    }
}

int Database::kysyKeskeytysta(void *self)
{
    auto *d = static_cast<Database *>(self);
    if (d->m_keskeyta && d->m_keskeyta())
        d->m_keskeytetty = true;
    return d->m_keskeytetty ? 1 : 0;
}

void Database::setInterruptCheck(std::function<bool()> keskeyta)
{
    m_keskeyta = std::move(keskeyta);
    m_keskeytetty = false;
    // About every 10,000 virtual machine steps: a thousand times a second or more.
    sqlite3_progress_handler(m_db, m_keskeyta ? 10000 : 0, m_keskeyta ? &Database::kysyKeskeytysta : nullptr, this);
}

void Database::fail(int code, const QString &context)
{
    if ((code & 0xff) == SQLITE_INTERRUPT && m_keskeytetty) {
        m_keskeytetty = false;
        throw Keskeytetty();
    }
    const char *msg = m_db ? sqlite3_errmsg(m_db) : "";
    const int ext = m_db ? sqlite3_extended_errcode(m_db) : code;
    const ErrorKind kind = kindOf(ext ? ext : code, msg);
    QString detail = QString::fromUtf8(msg);
    if (!context.isEmpty() && kind == ErrorKind::Other)
        detail += QStringLiteral(" [") + context.left(200) + QLatin1Char(']');
    throw DbError(kind, finnishText(kind, detail), ext ? ext : code);
}

FileKind probeFile(const QString &path)
{
    QFileInfo fi(path);
    if (!fi.exists())
        return FileKind::Missing;
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return FileKind::Unreadable;
    const QByteArray head = f.read(32);
    if (head.isEmpty())
        return FileKind::Empty;
    if (head.startsWith(QByteArray("SQLite format 3\0", 16)))
        return FileKind::SQLite;
    if (head.mid(4, 15) == "Standard Jet DB" || head.mid(4, 15) == "Standard ACE DB")
        return FileKind::AccessJet;
    return FileKind::Unknown;
}

std::unique_ptr<Database> Database::open(const QString &path, OpenMode mode)
{
    if (path.trimmed().isEmpty())
        throw DbError(ErrorKind::BadPath, QStringLiteral("Tietokannan nimi puuttuu."));
    const QFileInfo fi(path);
    if (!fi.dir().exists())
        throw DbError(ErrorKind::BadPath, QStringLiteral("Tietokannan hakemistoa ei löydy: %1").arg(fi.absolutePath()));
    switch (probeFile(path)) {
    case FileKind::Missing:
        throw DbError(ErrorKind::NotFound, QStringLiteral("Tietokantaa ei löydy: %1").arg(path));
    case FileKind::Unreadable:
        throw DbError(ErrorKind::CannotOpen, QStringLiteral("Tietokantatiedostoa ei voi lukea: %1").arg(path));
    case FileKind::Empty:
        throw DbError(ErrorKind::NotOurDatabase, QStringLiteral("Tiedosto %1 on tyhjä, se ei ole tietokanta.").arg(path));
    case FileKind::AccessJet:
        throw DbError(ErrorKind::NotOurDatabase,
                      QStringLiteral("Tiedosto %1 on vanhemman ohjelman Access-tietokanta. Vonari ei voi käyttää sitä "
                                     "sellaisenaan, eikä tiedostoa ole muutettu.").arg(path));
    case FileKind::Unknown:
        throw DbError(ErrorKind::NotOurDatabase,
                      QStringLiteral("Tiedosto %1 ei ole Vonarin tietokanta. Tiedostoa ei ole muutettu.").arg(path));
    case FileKind::SQLite:
        break;
    }
    if (mode == OpenMode::ReadWrite && !fi.isWritable())
        throw DbError(ErrorKind::CannotOpen, QStringLiteral("Tietokantatiedostoon ei ole kirjoitusoikeutta: %1").arg(path));

    sqlite3 *h = nullptr;
    const int flags = (mode == OpenMode::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE);
    const int rc = sqlite3_open_v2(fi.absoluteFilePath().toUtf8().constData(), &h, flags, nullptr);
    std::unique_ptr<Database> d(new Database(h, fi.absoluteFilePath()));
    if (rc != SQLITE_OK)
        d->fail(rc, path);
    d->configure();
    return d;
}

std::unique_ptr<Database> Database::create(const QString &path)
{
    const QFileInfo fi(path);
    if (fi.exists())
        throw DbError(ErrorKind::Other, QStringLiteral("Tiedosto on jo olemassa: %1").arg(path));
    if (!fi.dir().exists())
        throw DbError(ErrorKind::BadPath, QStringLiteral("Hakemistoa ei löydy: %1").arg(fi.absolutePath()));
    sqlite3 *h = nullptr;
    const int rc = sqlite3_open_v2(fi.absoluteFilePath().toUtf8().constData(), &h,
                                   SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    std::unique_ptr<Database> d(new Database(h, fi.absoluteFilePath()));
    if (rc != SQLITE_OK)
        d->fail(rc, path);
    d->configure();
    return d;
}

void Database::configure()
{
    sqlite3_busy_timeout(m_db, 3000);
    sqlite3_extended_result_codes(m_db, 1);
    registerSqlFunctions(m_db);
    // Reading the schema is what tells a damaged or foreign file from a good one.
    scalar(QStringLiteral("SELECT count(*) FROM sqlite_master"));
    if (!isReadOnly()) {
        const QString mode = scalar(QStringLiteral("PRAGMA journal_mode")).toString();
        if (mode.compare(QLatin1String("wal"), Qt::CaseInsensitive) != 0)
            scalar(QStringLiteral("PRAGMA journal_mode=WAL"));
    }
    execute(QStringLiteral("PRAGMA synchronous=NORMAL"));
}

bool Database::isReadOnly() const { return sqlite3_db_readonly(m_db, "main") == 1; }

int Database::execute(const QString &sql, const Params &params)
{
    Statement st(*this, sql, params);
    while (st.next()) {
    }
    return sqlite3_changes(m_db);
}

void Database::executeScript(const QString &sql)
{
    char *err = nullptr;
    const int rc = sqlite3_exec(m_db, sql.toUtf8().constData(), nullptr, nullptr, &err);
    if (rc != SQLITE_OK) {
        sqlite3_free(err);
        fail(rc, sql.left(200));
    }
}

QVariant Database::scalar(const QString &sql, const Params &params)
{
    Statement st(*this, sql, params);
    if (st.next())
        return st.value(0);
    return QVariant();
}

qint64 Database::lastInsertId() const { return sqlite3_last_insert_rowid(m_db); }

QStringList Database::tableNames()
{
    QStringList out;
    Statement st(*this, QStringLiteral("SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY name"));
    while (st.next())
        out << st.value(0).toString();
    return out;
}

QStringList Database::viewNames()
{
    QStringList out;
    Statement st(*this, QStringLiteral("SELECT name FROM sqlite_master WHERE type='view' ORDER BY name"));
    while (st.next())
        out << st.value(0).toString();
    return out;
}

QVector<ColumnInfo> Database::columns(const QString &table)
{
    QVector<ColumnInfo> out;
    Statement st(*this, QStringLiteral("SELECT name, type, \"notnull\", dflt_value, pk FROM pragma_table_info(?)"), {table});
    while (st.next()) {
        ColumnInfo c;
        c.name = st.value(0).toString();
        c.declaredType = st.value(1).toString();
        c.notNull = st.value(2).toInt() != 0;
        c.defaultValue = st.value(3);
        c.primaryKey = st.value(4).toInt() != 0;
        out << c;
    }
    return out;
}

QStringList Database::columnNames(const QString &table)
{
    QStringList out;
    for (const ColumnInfo &c : columns(table))
        out << c.name;
    return out;
}

QStringList Database::indexNames(const QString &table)
{
    QStringList out;
    Statement st(*this, QStringLiteral("SELECT name FROM sqlite_master WHERE type='index' AND tbl_name=? AND sql IS NOT NULL ORDER BY name"), {table});
    while (st.next())
        out << st.value(0).toString();
    return out;
}

QString Database::primaryKeyColumn(const QString &table)
{
    for (const ColumnInfo &c : columns(table))
        if (c.primaryKey)
            return c.name;
    return {};
}

QString Database::schemaDump()
{
    QStringList parts;
    Statement st(*this, QStringLiteral("SELECT type, name, tbl_name, sql FROM sqlite_master WHERE name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY type, name"));
    while (st.next())
        parts << QStringLiteral("%1 %2 on %3: %4").arg(st.value(0).toString(), st.value(1).toString(),
                                                        st.value(2).toString(), st.value(3).toString());
    return parts.join(QLatin1Char('\n'));
}

qint64 Database::reserveId(const QString &table)
{
    const QString pk = primaryKeyColumn(table);
    if (pk.isEmpty())
        throw DbError(ErrorKind::Other, QStringLiteral("Taululla %1 ei ole perusavainta").arg(table));
    const QString maxSql = QStringLiteral("SELECT COALESCE(MAX(%1), 0) FROM %2").arg(quoteIdent(pk), quoteIdent(table));
    const qint64 maxId = scalar(maxSql).toLongLong();
    const QVariant seq = scalar(QStringLiteral("SELECT seq FROM sqlite_sequence WHERE name = ?"), {table});
    const qint64 next = std::max(seq.isValid() ? seq.toLongLong() : 0, maxId) + 1;
    if (seq.isValid())
        execute(QStringLiteral("UPDATE sqlite_sequence SET seq = ? WHERE name = ?"), {next, table});
    else
        execute(QStringLiteral("INSERT INTO sqlite_sequence(name, seq) VALUES (?, ?)"), {table, next});
    return next;
}

void Database::raiseSequence(const QString &table, qint64 floor)
{
    const QVariant seq = scalar(QStringLiteral("SELECT seq FROM sqlite_sequence WHERE name = ?"), {table});
    if (!seq.isValid())
        execute(QStringLiteral("INSERT INTO sqlite_sequence(name, seq) VALUES (?, ?)"), {table, floor});
    else if (seq.toLongLong() < floor)
        execute(QStringLiteral("UPDATE sqlite_sequence SET seq = ? WHERE name = ?"), {floor, table});
}

bool Database::quickCheck(QString *report)
{
    QStringList lines;
    Statement st(*this, QStringLiteral("PRAGMA quick_check"));
    while (st.next())
        lines << st.value(0).toString();
    if (report)
        *report = lines.join(QLatin1Char('\n'));
    return lines.size() == 1 && lines.first() == QLatin1String("ok");
}

// ---- Transaction -------------------------------------------------------------------------

// The outermost unit of a connection is a real transaction; one opened inside it is a savepoint,
// so a function that writes as one unit stays one unit inside a larger run.
Transaction::Transaction(Database &db) : m_db(db), m_taso(db.m_avoimia)
{
    if (m_taso == 0)
        m_db.execute(QStringLiteral("BEGIN IMMEDIATE"));
    else
        m_db.tapahtumalause(Database::Savepoint, m_taso);
    ++m_db.m_avoimia;
}

void Database::perumisella(std::function<void()> palauta)
{
    if (m_avoimia > 0)
        m_perumiset.emplace_back(m_avoimia, std::move(palauta));
}

// The part deeper than `taso` rolled back: its memory goes back too, latest first.
void Database::peru(int taso)
{
    while (!m_perumiset.empty() && m_perumiset.back().first > taso) {
        const auto palauta = std::move(m_perumiset.back().second);
        m_perumiset.pop_back();
        try {
            palauta();
        } catch (...) {
        }
    }
}

// The part deeper than `taso` committed into the one around it (or for good at the outermost).
void Database::siirraPerumiset(int taso)
{
    if (taso == 0)
        m_perumiset.clear();
    for (auto &p : m_perumiset)
        p.first = std::min(p.first, taso);
}

Transaction::~Transaction()
{
    if (m_done)
        return;
    --m_db.m_avoimia;
    m_db.peru(m_taso);
    try {
        if (m_taso == 0) {
            m_db.execute(QStringLiteral("ROLLBACK"));
        } else {
            m_db.tapahtumalause(Database::RollbackTo, m_taso);
            m_db.tapahtumalause(Database::Release, m_taso);
        }
    } catch (...) {
    }
}

void Transaction::commit()
{
    if (m_done)
        return;
    if (m_db.m_avoimia != m_taso + 1)
        throw DbError(ErrorKind::Other, QStringLiteral("Sisempi tapahtuma on vielä kesken."));
    if (m_taso == 0)
        m_db.execute(QStringLiteral("COMMIT"));
    else
        m_db.tapahtumalause(Database::Release, m_taso);
    --m_db.m_avoimia;
    m_db.siirraPerumiset(m_taso);
    m_done = true;
}

} // namespace db
