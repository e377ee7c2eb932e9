// Opening a source and walking it: the keyset walk in rowid order and the
// sequential walk of a statement stepped on demand.
#include "store/recordset_impl.h"

#include "store/database.h"
#include "store/engine_errors.h"
#include "store/field_values.h"

#include <algorithm>
#include <sqlite3.h>

namespace tesorel
{

using namespace Qt::StringLiterals;

void noCurrentRecord()
{
    throw RuntimeError(err::NoCurrentRecord, u"No hay registro activo."_s);
}

// Prepares the statement and reads the fields; no row is read yet.
void Recordset::Impl::open()
{
    QString sql;
    if (plan.rowidOrder()) {
        sql = u"SELECT rowid, "_s + plan.columns + plan.fromWhere(u"rowid > ?1"_s) + u" ORDER BY rowid"_s;
    } else if (plan.updatable()) {
        sql = u"SELECT "_s + plan.quotedTable() + u".rowid, "_s + plan.columns + plan.fromWhere() +
              u" ORDER BY "_s + plan.orderBy;
    } else {
        sql = plan.sql;
    }
    offset = plan.updatable() ? 1 : 0;
    stmt = prepareStatement(h, sql, plan.statement, SQLITE_PREPARE_PERSISTENT, plan.rowidOrder());
    const int count = sqlite3_column_count(stmt);
    for (int c = offset; c < count; ++c) {
        const QString name = QString::fromUtf8(sqlite3_column_name(stmt, c));
        const char *origin = sqlite3_column_origin_name(stmt, c);
        names.append(name);
        origins.append(origin ? QString::fromUtf8(origin) : QString());
        kinds.push_back(columnKind(sqlite3_column_decltype(stmt, c)));
        if (!byName.contains(name.toLower()))
            byName.insert(name.toLower(), c - offset);
    }
}

// The first step: on the first row, or empty.
void Recordset::Impl::start()
{
    if (started)
        return;
    started = true;
    if (keyset()) {
        if (startKeyset(kNoRowid))
            land(0);
        else
            setEmpty();
    } else if (fetchUpTo(0)) {
        landSequential(0);
    } else {
        setEmpty();
    }
}

void Recordset::Impl::setEmpty()
{
    where = Where::BeforeFirst;
    bof = eof = true;
    current.clear();
}

void Recordset::Impl::step(sqlite3_stmt *s, int *rc) const
{
    *rc = sqlite3_step(s);
    if (*rc != SQLITE_ROW && *rc != SQLITE_DONE)
        throw engineError(h, plan.statement);
}

QVector<QVariant> Recordset::Impl::readFields(sqlite3_stmt *s, int first) const
{
    QVector<QVariant> values;
    values.reserve(names.size());
    for (int c = 0; c < names.size(); ++c)
        values.append(columnValue(s, c + first, kinds[size_t(c)]));
    return values;
}

// The fields of a row of the base table, read again by rowid.
QVector<QVariant> Recordset::Impl::readRow(qint64 id) const
{
    if (rowSql.isEmpty())
        rowSql = u"SELECT "_s + plan.columns + u" FROM "_s + plan.quotedTable() + u" WHERE rowid = ?1"_s;
    sqlite3_stmt *s = db->prepareCached(rowSql);
    sqlite3_bind_int64(s, 1, id);
    int rc;
    step(s, &rc);
    QVector<QVariant> values = rc == SQLITE_ROW ? readFields(s, 0) : QVector<QVariant>();
    sqlite3_reset(s);
    return values;
}

qint64 Recordset::Impl::singleRowid(const QString &sql, qint64 a, std::optional<qint64> b) const
{
    sqlite3_stmt *s = db->prepareCached(sql);
    sqlite3_bind_int64(s, 1, a);
    if (b)
        sqlite3_bind_int64(s, 2, *b);
    int rc;
    step(s, &rc);
    const qint64 id = rc == SQLITE_ROW ? sqlite3_column_int64(s, 0) : kNoRowid;
    sqlite3_reset(s);
    return id;
}

// --- keyset walk ---

bool Recordset::Impl::startKeyset(qint64 after)
{
    sqlite3_reset(stmt);
    sqlite3_bind_int64(stmt, 1, after);
    return stepKeyset();
}

bool Recordset::Impl::stepKeyset()
{
    int rc;
    step(stmt, &rc);
    stmtOnCurrent = rc == SQLITE_ROW;
    if (!stmtOnCurrent)
        return false;
    rowid = sqlite3_column_int64(stmt, 0);
    current = readFields(stmt, 1);
    return true;
}

void Recordset::Impl::land(std::optional<long> pos)
{
    where = Where::OnRow;
    bof = eof = false;
    position = pos;
    if (pos)
        reached = std::max(reached, *pos + 1);
}

void Recordset::Impl::landOnRowid(qint64 id, std::optional<long> pos)
{
    rowid = id;
    current = readRow(id);
    stmtOnCurrent = false;
    land(pos);
}

long Recordset::Impl::keysetPosition() const
{
    if (!position) {
        sqlite3_stmt *s = db->prepareCached(u"SELECT count(*)"_s + plan.fromWhere(u"rowid < ?1"_s));
        sqlite3_bind_int64(s, 1, rowid);
        int rc;
        step(s, &rc);
        position = long(sqlite3_column_int64(s, 0));
        sqlite3_reset(s);
    }
    return *position;
}

long Recordset::Impl::keysetCount() const
{
    sqlite3_stmt *s = db->prepareCached(u"SELECT count(*)"_s + plan.fromWhere());
    int rc;
    step(s, &rc);
    const long count = long(sqlite3_column_int64(s, 0));
    sqlite3_reset(s);
    return count;
}

// Moves `rows` away from the current row (or from where a deleted row
// stood) in rowid order.
void Recordset::Impl::keysetMove(long rows)
{
    const bool fromDeleted = where == Where::Deleted;
    std::optional<long> pos = position;
    if (rows > 0) {
        if (rows == 1 && stmtOnCurrent && !fromDeleted) {
            if (stepKeyset())
                return land(pos ? std::optional<long>(*pos + 1) : std::nullopt);
            return pastEnd();
        }
        const long skip = fromDeleted ? rows - 1 : rows;
        if (fromDeleted && rows == 1) {
            if (startKeyset(rowid))
                return land(pos);
            return pastEnd();
        }
        const qint64 id = singleRowid(u"SELECT rowid"_s + plan.fromWhere(u"rowid > ?1"_s) +
                                          u" ORDER BY rowid LIMIT 1 OFFSET ?2"_s,
                                      rowid, skip - 1);
        if (id == kNoRowid)
            return pastEnd();
        return landOnRowid(id, pos ? std::optional<long>(*pos + skip) : std::nullopt);
    }
    const qint64 id = singleRowid(u"SELECT rowid"_s + plan.fromWhere(u"rowid < ?1"_s) +
                                      u" ORDER BY rowid DESC LIMIT 1 OFFSET ?2"_s,
                                  rowid, -rows - 1);
    if (id == kNoRowid)
        return beforeStart();
    landOnRowid(id, pos ? std::optional<long>(*pos + rows) : std::nullopt);
}

// --- sequential walk ---

bool Recordset::Impl::fetchUpTo(long wanted)
{
    while (!exhausted && long(reachedRows()) <= wanted) {
        int rc;
        step(stmt, &rc);
        if (rc == SQLITE_DONE) {
            exhausted = true;
            headIndex = -1;
            for (qint64 id : std::as_const(added))
                rowids.push_back(id);
            added.clear();
            break;
        }
        if (plan.updatable()) {
            const qint64 id = sqlite3_column_int64(stmt, 0);
            if (added.remove(id))
                rowids.erase(std::remove(rowids.begin(), rowids.end(), id), rowids.end());
            rowids.push_back(id);
            remember(id);
        } else {
            rows.push_back(readFields(stmt, 0));
        }
        headIndex = long(reachedRows()) - 1;
    }
    return long(reachedRows()) > wanted;
}

void Recordset::Impl::landSequential(long at)
{
    index = at;
    if (!plan.updatable()) {
        current = rows[size_t(at)];
    } else if (at == headIndex) {
        rowid = rowids[size_t(at)];
        current = readFields(stmt, 1);
    } else {
        rowid = rowids[size_t(at)];
        current = remembered(rowid);
    }
    land(at);
}

// The values of rows the statement went past, kept while nothing in the
// base has changed since: walking back over a value's series after
// MoveLast then costs no query a row. Any change made on this connection
// (through this recordset or any other) drops them, and the rows are read
// again by rowid as before.
bool Recordset::Impl::rememberedValid()
{
    const sqlite3_int64 stamp = sqlite3_total_changes64(h);
    if (stamp != rememberedStamp) {
        rememberedRows.clear();
        rememberedStamp = stamp;
        return false;
    }
    return true;
}

void Recordset::Impl::remember(qint64 id)
{
    rememberedValid();
    if (rememberedRows.size() < kRememberedRows)
        rememberedRows.insert(id, readFields(stmt, 1));
}

QVector<QVariant> Recordset::Impl::remembered(qint64 id)
{
    if (rememberedValid()) {
        const auto it = rememberedRows.constFind(id);
        if (it != rememberedRows.constEnd())
            return *it;
    }
    return readRow(id);
}

void Recordset::Impl::sequentialGo(long at)
{
    if (at < 0)
        return beforeStart();
    if (!fetchUpTo(at))
        return pastEnd();
    landSequential(at);
}

void Recordset::Impl::pastEnd()
{
    where = Where::AfterLast;
    eof = true;
    bof = false;
    current.clear();
    if (keyset())
        lastReached = true;
    else
        index = long(reachedRows());
}

void Recordset::Impl::beforeStart()
{
    where = Where::BeforeFirst;
    bof = true;
    eof = false;
    current.clear();
    index = -1;
}

// --- shared ---

long Recordset::Impl::recordCount()
{
    if (keyset()) {
        if (lastReached)
            return keysetCount();
        long count = reached;
        if (where == Where::OnRow)
            count = std::max(count, keysetPosition() + 1);
        return count;
    }
    return long(reachedRows());
}

void Recordset::Impl::requireRow() const
{
    if (where == Where::Deleted)
        throw RuntimeError(err::RecordDeleted, u"El registro se ha eliminado."_s);
    if (where != Where::OnRow)
        noCurrentRecord();
}

int Recordset::Impl::fieldIndex(const QString &name) const
{
    auto found = byName.constFind(name.toLower());
    if (found == byName.constEnd()) {
        // "tabla.campo" names a field by its table too.
        const qsizetype dot = name.lastIndexOf(u'.');
        if (dot > 0)
            found = byName.constFind(name.mid(dot + 1).toLower());
        if (found == byName.constEnd())
            throw RuntimeError(err::NoSuchField, u"No se encontró el elemento en esta colección."_s);
    }
    return *found;
}

void Recordset::Impl::checkIndex(int i) const
{
    if (i < 0 || i >= names.size())
        throw RuntimeError(err::NoSuchField, u"No se encontró el elemento en esta colección."_s);
}

} // namespace tesorel
