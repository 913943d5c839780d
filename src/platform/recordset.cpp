#include "platform/recordset.h"

#include <QSet>

namespace db {

namespace {

QString quoted(const QString &name)
{
    QString q = name;
    q.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + q + QLatin1Char('"');
}

[[noreturn]] void refuse(const QString &text) { throw DbError(ErrorKind::Other, text); }

} // namespace

Recordset::Recordset(Database &db, const QString &source, bool readOnly)
    : m_db(db), m_source(source), m_readOnly(readOnly)
{
}

std::unique_ptr<Recordset> Recordset::openTable(Database &db, const QString &table, const QString &where,
                                                const Params &params, const QString &orderBy)
{
    std::unique_ptr<Recordset> rs(new Recordset(db, quoted(table), false));
    rs->m_table = table;
    rs->m_baseSql = (where.trimmed().isEmpty() ? QString() : QStringLiteral(" WHERE (") + where + QLatin1Char(')'))
        + QStringLiteral(" ORDER BY ") + (orderBy.trimmed().isEmpty() ? QStringLiteral("rowid") : orderBy);
    rs->m_baseParams = params;
    const QString sql = db.scalar(QStringLiteral("SELECT sql FROM sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE"),
                                  {table}).toString();
    if (sql.isEmpty())
        refuse(QStringLiteral("Taulua %1 ei ole tietokannassa.").arg(table));
    if (sql.contains(QLatin1String("AUTOINCREMENT"), Qt::CaseInsensitive))
        rs->m_primaryKey = db.primaryKeyColumn(table);
    rs->prepareFetch();
    rs->loadKeys();
    return rs;
}

std::unique_ptr<Recordset> Recordset::openSnapshot(Database &db, const QString &select, const Params &params)
{
    static int counter = 0;
    const QString name = QStringLiteral("vonari_snapshot_%1").arg(++counter);
    std::unique_ptr<Recordset> rs(new Recordset(db, QStringLiteral("temp.") + quoted(name), true));
    QString sql = select.trimmed();
    while (sql.endsWith(QLatin1Char(';')))
        sql.chop(1);
    rs->m_baseSql = sql;
    rs->m_baseParams = params;
    rs->requery();
    return rs;
}

Recordset::~Recordset() { drop(); }

void Recordset::drop()
{
    if (!m_readOnly)
        return;
    m_fetch.reset();
    try {
        m_db.execute(QStringLiteral("DROP TABLE IF EXISTS ") + m_source);
    } catch (const DbError &) {
        // The connection is going away; its temporary tables go with it.
    }
}

void Recordset::prepareFetch()
{
    m_fetch = std::make_unique<Statement>(m_db, QStringLiteral("SELECT * FROM ") + m_source + QStringLiteral(" WHERE rowid = ?"),
                                          Params{0});
    m_fieldNames.clear();
    m_fieldIndex.clear();
    for (int i = 0; i < m_fetch->columnCount(); ++i) {
        m_fieldNames << m_fetch->columnName(i);
        m_fieldIndex.insert(m_fieldNames.last().toLower(), i);
    }
}

void Recordset::loadKeys()
{
    m_keys.clear();
    const QString order = m_readOnly ? QStringLiteral(" ORDER BY rowid") : m_baseSql;
    Statement st(m_db, QStringLiteral("SELECT rowid FROM ") + m_source + order, m_readOnly ? Params() : m_baseParams);
    while (st.next())
        m_keys.append(st.value(0).toLongLong());
    m_pos = 0;
    m_onDeleted = false;
    m_noMatch = false;
    m_cachedKey.reset();
}

void Recordset::requery()
{
    leaveRow();
    if (m_readOnly) {
        drop();
        m_db.execute(QStringLiteral("CREATE TEMP TABLE ") + m_source + QStringLiteral(" AS ") + m_baseSql, m_baseParams);
        prepareFetch();
    }
    loadKeys();
}

// ---- Position ----------------------------------------------------------------------------

bool Recordset::bof() const { return !m_onDeleted && (m_pos < 0 || m_keys.isEmpty()); }

bool Recordset::eof() const { return !m_onDeleted && (m_pos >= m_keys.size() || m_keys.isEmpty()); }

int Recordset::absolutePosition() const
{
    return (m_onDeleted || m_pos < 0 || m_pos >= m_keys.size()) ? -1 : m_pos;
}

void Recordset::setAbsolutePosition(int position)
{
    if (position < 0 || position >= m_keys.size())
        refuse(QStringLiteral("Tietuetta %1 ei ole: tietueita on %2.").arg(position).arg(m_keys.size()));
    moveTo(position);
}

void Recordset::moveTo(int position)
{
    leaveRow();
    m_pos = position;
    m_onDeleted = false;
}

void Recordset::moveFirst() { moveTo(0); }

void Recordset::moveLast() { moveTo(m_keys.isEmpty() ? 0 : int(m_keys.size()) - 1); }

void Recordset::moveNext()
{
    if (eof())
        refuse(QStringLiteral("Tietuejoukon loppu on jo saavutettu."));
    // After a delete the following row has already slid into the deleted one's place.
    moveTo(m_onDeleted ? m_pos : m_pos + 1);
}

void Recordset::movePrevious()
{
    if (bof())
        refuse(QStringLiteral("Tietuejoukon alku on jo saavutettu."));
    moveTo(m_pos - 1);
}

Recordset::Bookmark Recordset::bookmark() const
{
    requireCurrent();
    return m_keys[m_pos];
}

void Recordset::setBookmark(Bookmark b)
{
    const qsizetype i = m_keys.indexOf(b);
    if (i < 0)
        refuse(QStringLiteral("Kirjanmerkki ei kelpaa: tietue on poistettu."));
    moveTo(int(i));
}

Recordset::Bookmark Recordset::lastModified() const
{
    if (!m_lastModified)
        refuse(QStringLiteral("Tietuejoukossa ei ole lisätty eikä muutettu tietuetta."));
    return *m_lastModified;
}

void Recordset::requireCurrent() const
{
    if (m_onDeleted)
        refuse(QStringLiteral("Tietue on poistettu."));
    if (m_pos < 0 || m_pos >= m_keys.size())
        refuse(QStringLiteral("Nykyistä tietuetta ei ole."));
}

// ---- Find --------------------------------------------------------------------------------

bool Recordset::find(const QString &criteria, const Params &params, int from, int step)
{
    QSet<qint64> hits;
    Statement st(m_db, QStringLiteral("SELECT rowid FROM ") + m_source + QStringLiteral(" WHERE (") + criteria + QLatin1Char(')'),
                 params);
    while (st.next())
        hits.insert(st.value(0).toLongLong());
    for (int i = from; !hits.isEmpty() && i >= 0 && i < m_keys.size(); i += step) {
        if (hits.contains(m_keys[i])) {
            moveTo(i);
            m_noMatch = false;
            return true;
        }
    }
    m_noMatch = true;
    return false;
}

bool Recordset::findFirst(const QString &criteria, const Params &params) { return find(criteria, params, 0, 1); }

bool Recordset::findNext(const QString &criteria, const Params &params)
{
    return find(criteria, params, m_onDeleted ? m_pos : m_pos + 1, 1);
}

bool Recordset::findPrevious(const QString &criteria, const Params &params) { return find(criteria, params, m_pos - 1, -1); }

bool Recordset::findLast(const QString &criteria, const Params &params)
{
    return find(criteria, params, int(m_keys.size()) - 1, -1);
}

// ---- Fields ------------------------------------------------------------------------------

bool Recordset::hasField(const QString &name) const { return m_fieldIndex.contains(name.toLower()); }

int Recordset::fieldIndex(const QString &name) const
{
    const auto it = m_fieldIndex.constFind(name.toLower());
    if (it == m_fieldIndex.constEnd())
        refuse(QStringLiteral("Kenttää %1 ei ole tietuejoukossa.").arg(name));
    return *it;
}

const QVector<QVariant> &Recordset::currentRow() const
{
    requireCurrent();
    const qint64 key = m_keys[m_pos];
    if (m_cachedKey == key)
        return m_cachedRow;
    m_fetch->reset({key});
    if (!m_fetch->next())
        refuse(QStringLiteral("Tietue on poistettu."));
    m_cachedRow.resize(m_fetch->columnCount());
    for (int i = 0; i < m_cachedRow.size(); ++i)
        m_cachedRow[i] = m_fetch->value(i);
    m_fetch->next(); // runs the statement to its end, so it holds no read lock
    m_cachedKey = key;
    return m_cachedRow;
}

QVariant Recordset::value(const QString &name) const
{
    const int i = fieldIndex(name);
    if (m_mode != EditMode::None)
        return m_buffer[i];
    return currentRow()[i];
}

// ---- Changes -----------------------------------------------------------------------------

void Recordset::requireWritable() const
{
    if (m_readOnly)
        refuse(QStringLiteral("Tietuejoukkoa ei voi muuttaa: se on vain luettavissa."));
}

void Recordset::leaveRow()
{
    m_mode = EditMode::None;
    m_buffer.clear();
    m_changed.clear();
}

void Recordset::addNew()
{
    requireWritable();
    leaveRow();
    m_buffer = QVector<QVariant>(m_fieldNames.size());
    m_changed = QVector<bool>(m_fieldNames.size(), false);
    if (!m_primaryKey.isEmpty()) {
        const int pk = fieldIndex(m_primaryKey);
        m_buffer[pk] = m_db.reserveId(m_table);
        m_changed[pk] = true;
    }
    m_mode = EditMode::AddNew;
}

void Recordset::edit()
{
    requireWritable();
    m_buffer = currentRow();
    m_changed = QVector<bool>(m_fieldNames.size(), false);
    m_mode = EditMode::Edit;
}

void Recordset::setValue(const QString &name, const QVariant &value)
{
    if (m_mode == EditMode::None)
        refuse(QStringLiteral("Kenttää %1 ei voi muuttaa: tietuetta ei ole avattu muokattavaksi.").arg(name));
    const int i = fieldIndex(name);
    m_buffer[i] = value;
    m_changed[i] = true;
}

void Recordset::update()
{
    if (m_mode == EditMode::None)
        refuse(QStringLiteral("Tallennettavaa tietuetta ei ole: muokkausta ei ole aloitettu."));
    QStringList columns;
    Params values;
    for (int i = 0; i < m_fieldNames.size(); ++i) {
        if (m_changed[i]) {
            columns << quoted(m_fieldNames[i]);
            values << m_buffer[i];
        }
    }
    if (m_mode == EditMode::AddNew) {
        if (columns.isEmpty())
            m_db.execute(QStringLiteral("INSERT INTO ") + m_source + QStringLiteral(" DEFAULT VALUES"));
        else
            m_db.execute(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                             .arg(m_source, columns.join(QLatin1Char(',')),
                                  QStringList(columns.size(), QStringLiteral("?")).join(QLatin1Char(','))),
                         values);
        // New rows go to the end; a set that stood at its end stays there.
        const bool atEnd = !m_onDeleted && m_pos >= m_keys.size();
        m_keys.append(m_db.lastInsertId());
        if (atEnd)
            m_pos = int(m_keys.size());
        m_lastModified = m_keys.last();
    } else if (!columns.isEmpty()) {
        values << m_keys[m_pos];
        const int changed = m_db.execute(QStringLiteral("UPDATE %1 SET %2 = ? WHERE rowid = ?")
                                             .arg(m_source, columns.join(QStringLiteral(" = ?, "))),
                                         values);
        if (changed == 0)
            refuse(QStringLiteral("Tietue on poistettu, muutoksia ei tallennettu."));
        // An AutoNumber key is the rowid itself.
        if (!m_primaryKey.isEmpty() && m_changed[fieldIndex(m_primaryKey)])
            m_keys[m_pos] = m_buffer[fieldIndex(m_primaryKey)].toLongLong();
        m_lastModified = m_keys[m_pos];
        m_cachedKey.reset();
    } else {
        m_lastModified = m_keys[m_pos];
    }
    leaveRow();
}

void Recordset::cancelUpdate() { leaveRow(); }

void Recordset::deleteRow()
{
    requireWritable();
    requireCurrent();
    leaveRow();
    m_db.execute(QStringLiteral("DELETE FROM ") + m_source + QStringLiteral(" WHERE rowid = ?"), {m_keys[m_pos]});
    m_keys.remove(m_pos);
    m_onDeleted = true;
    m_cachedKey.reset();
}

} // namespace db
