#include "store/recordset.h"

#include "store/database.h"
#include "store/engine_errors.h"
#include "store/field_values.h"
#include "store/jet_sql.h"
#include "store/source_plan.h"

#include <QHash>
#include <QSet>
#include <limits>
#include <optional>
#include <sqlite3.h>
#include <vector>

namespace tesorel
{

using namespace Qt::StringLiterals;

namespace
{
constexpr qint64 kNoRowid = std::numeric_limits<qint64>::min();

[[noreturn]] void noCurrentRecord()
{
    throw RuntimeError(err::NoCurrentRecord, u"No hay registro activo."_s);
}
} // namespace

// Two ways of walking a source. An updatable source without ORDER BY is a
// keyset in rowid order: every move is one indexed query and the position
// is counted only when asked. Any other source steps its statement on
// demand and keeps what it has reached: rowids when it can write back
// (values are read again by rowid), the values themselves when it cannot.
struct Recordset::Impl {
    std::shared_ptr<Database> db;
    sqlite3 *h = nullptr;
    SourcePlan plan;
    sqlite3_stmt *stmt = nullptr; // forward statement; rowid first when updatable
    int offset = 0;               // columns before the fields (the rowid)
    QStringList names;
    QStringList origins; // the table column behind each field, empty if none
    std::vector<ColumnKind> kinds;
    QHash<QString, int> byName; // lower-case name -> first field with it

    enum class Where { OnRow, BeforeFirst, AfterLast, Deleted };
    Where where = Where::BeforeFirst;
    bool bof = true, eof = true;
    QVector<QVariant> current;
    qint64 rowid = kNoRowid;

    // Keyset walk.
    mutable std::optional<long> position;
    bool stmtOnCurrent = false;
    bool lastReached = false;
    long reached = 0;

    // Sequential walk.
    long index = -1;
    std::vector<qint64> rowids;
    std::vector<QVector<QVariant>> rows;
    bool exhausted = false;
    long headIndex = -1; // which reached row the statement is on
    QSet<qint64> added;  // rows added here before the statement ended

    enum class Editing { None, Adding, Changing };
    Editing editing = Editing::None;
    QHash<int, QVariant> buffer;
    bool noMatch = false;
    QString filter;
    mutable QString rowSql; // the statement that reads a row again by rowid

    bool keyset() const { return plan.rowidOrder(); }

    void open()
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

    void setEmpty()
    {
        where = Where::BeforeFirst;
        bof = eof = true;
        current.clear();
    }

    void step(sqlite3_stmt *s, int *rc) const
    {
        *rc = sqlite3_step(s);
        if (*rc != SQLITE_ROW && *rc != SQLITE_DONE)
            throw engineError(h, plan.statement);
    }

    QVector<QVariant> readFields(sqlite3_stmt *s, int first) const
    {
        QVector<QVariant> values;
        values.reserve(names.size());
        for (int c = 0; c < names.size(); ++c)
            values.append(columnValue(s, c + first, kinds[size_t(c)]));
        return values;
    }

    // The fields of a row of the base table, read again by rowid.
    QVector<QVariant> readRow(qint64 id) const
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

    qint64 singleRowid(const QString &sql, qint64 a, std::optional<qint64> b = std::nullopt) const
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

    bool startKeyset(qint64 after)
    {
        sqlite3_reset(stmt);
        sqlite3_bind_int64(stmt, 1, after);
        return stepKeyset();
    }

    bool stepKeyset()
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

    void land(std::optional<long> pos)
    {
        where = Where::OnRow;
        bof = eof = false;
        position = pos;
        if (pos)
            reached = std::max(reached, *pos + 1);
    }

    void landOnRowid(qint64 id, std::optional<long> pos)
    {
        rowid = id;
        current = readRow(id);
        stmtOnCurrent = false;
        land(pos);
    }

    long keysetPosition() const
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

    long keysetCount() const
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
    void keysetMove(long rows)
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

    bool fetchUpTo(long wanted)
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

    size_t reachedRows() const { return plan.updatable() ? rowids.size() : rows.size(); }

    void landSequential(long at)
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
    // MoveLast then costs no query a row. Any change made on this
    // connection (through this recordset or any other) drops them, and the
    // rows are read again by rowid as before.
    static constexpr int kRememberedRows = 100000;
    QHash<qint64, QVector<QVariant>> rememberedRows;
    sqlite3_int64 rememberedStamp = -1;

    bool rememberedValid()
    {
        const sqlite3_int64 stamp = sqlite3_total_changes64(h);
        if (stamp != rememberedStamp) {
            rememberedRows.clear();
            rememberedStamp = stamp;
            return false;
        }
        return true;
    }

    void remember(qint64 id)
    {
        rememberedValid();
        if (rememberedRows.size() < kRememberedRows)
            rememberedRows.insert(id, readFields(stmt, 1));
    }

    QVector<QVariant> remembered(qint64 id)
    {
        if (rememberedValid()) {
            const auto it = rememberedRows.constFind(id);
            if (it != rememberedRows.constEnd())
                return *it;
        }
        return readRow(id);
    }

    void sequentialGo(long at)
    {
        if (at < 0)
            return beforeStart();
        if (!fetchUpTo(at))
            return pastEnd();
        landSequential(at);
    }

    void pastEnd()
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

    void beforeStart()
    {
        where = Where::BeforeFirst;
        bof = true;
        eof = false;
        current.clear();
        index = -1;
    }

    // --- shared ---

    long recordCount()
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

    void requireRow() const
    {
        if (where == Where::Deleted)
            throw RuntimeError(err::RecordDeleted, u"El registro se ha eliminado."_s);
        if (where != Where::OnRow)
            noCurrentRecord();
    }

    void requireUpdatable() const
    {
        if (!plan.updatable())
            throw RuntimeError(err::ReadOnly,
                               u"No se puede actualizar. La base de datos u objeto es de sólo lectura."_s);
    }

    int fieldIndex(const QString &name) const
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

    void checkIndex(int i) const
    {
        if (i < 0 || i >= names.size())
            throw RuntimeError(err::NoSuchField, u"No se encontró el elemento en esta colección."_s);
    }

    // True when the row `id` (updatable) or the fields `values` meet the
    // criterion.
    bool matches(const QString &criteria, qint64 id, const QVector<QVariant> &values)
    {
        if (plan.updatable()) {
            sqlite3_stmt *s = db->prepareCached(u"SELECT 1 FROM "_s + plan.quotedTable() +
                                                u" WHERE rowid = ?1 AND ("_s + criteria + u')');
            sqlite3_bind_int64(s, 1, id);
            int rc;
            step(s, &rc);
            sqlite3_reset(s);
            return rc == SQLITE_ROW;
        }
        QStringList columns;
        QSet<QString> seen;
        QList<int> bound;
        for (int c = 0; c < names.size(); ++c) {
            const QString lower = names[c].toLower();
            if (seen.contains(lower))
                continue;
            seen.insert(lower);
            bound.append(c);
            QString quoted = names[c];
            quoted.replace(u'"', u"\"\""_s);
            columns.append(u'?' + QString::number(bound.size()) + u" AS \""_s + quoted + u'"');
        }
        sqlite3_stmt *s =
            db->prepareCached(u"SELECT 1 FROM (SELECT "_s + columns.join(u", "_s) + u") WHERE "_s + criteria);
        for (int p = 0; p < bound.size(); ++p)
            bindValue(s, p + 1, values[bound[p]]);
        int rc;
        step(s, &rc);
        sqlite3_reset(s);
        return rc == SQLITE_ROW;
    }

    // A search that fails leaves the match state of the search before, as
    // the callers that go on after a failure rely on.
    void find(const QString &criteria, bool forward, bool fromEnd)
    {
        const bool before = noMatch;
        try {
            findOrThrow(criteria, forward, fromEnd);
        } catch (...) {
            noMatch = before;
            throw;
        }
    }

    void findOrThrow(const QString &criteria, bool forward, bool fromEnd)
    {
        const QString c = jet::translateCriteria(criteria);
        noMatch = true;
        if (keyset()) {
            qint64 from;
            if (fromEnd)
                from = forward ? kNoRowid : std::numeric_limits<qint64>::max();
            else if (where == Where::OnRow || where == Where::Deleted)
                from = rowid;
            else if (where == Where::BeforeFirst && forward)
                from = kNoRowid;
            else if (where == Where::AfterLast && !forward)
                from = std::numeric_limits<qint64>::max();
            else
                return;
            const QString order = forward ? u" ORDER BY rowid LIMIT 1"_s : u" ORDER BY rowid DESC LIMIT 1"_s;
            const QString bound = forward ? (fromEnd ? u"rowid >= ?1"_s : u"rowid > ?1"_s)
                                          : (fromEnd ? u"rowid <= ?1"_s : u"rowid < ?1"_s);
            const qint64 id =
                singleRowid(u"SELECT rowid"_s + plan.fromWhere(u'(' + c + u") AND "_s + bound) + order, from);
            if (id == kNoRowid)
                return;
            noMatch = false;
            landOnRowid(id, std::nullopt);
            return;
        }
        long at;
        if (fromEnd) {
            if (forward) {
                at = 0;
            } else {
                fetchUpTo(std::numeric_limits<long>::max() - 1);
                at = long(reachedRows()) - 1;
            }
        } else {
            at = (where == Where::OnRow         ? index
                  : where == Where::Deleted     ? index - (forward ? 1 : 0)
                  : where == Where::BeforeFirst ? -1
                                                : long(reachedRows())) +
                 (forward ? 1 : -1);
        }
        for (; at >= 0; at += forward ? 1 : -1) {
            if (!fetchUpTo(at))
                return;
            const bool hit = plan.updatable() ? matches(c, rowids[size_t(at)], {})
                                              : matches(c, kNoRowid, rows[size_t(at)]);
            if (hit) {
                noMatch = false;
                landSequential(at);
                return;
            }
        }
    }

    void update()
    {
        if (editing == Editing::None)
            throw RuntimeError(err::NoEditInProgress,
                               u"Actualizar o CancelarActualización sin AgregarNuevo o Editar."_s);
        QStringList columns;
        QList<QVariant> values;
        for (auto it = buffer.cbegin(); it != buffer.cend(); ++it) {
            const QString &origin = origins[it.key()];
            if (origin.isEmpty())
                requireUpdatable();
            QString quoted = origin;
            quoted.replace(u'"', u"\"\""_s);
            columns.append(u'"' + quoted + u'"');
            values.append(it.value());
        }
        QString sql;
        if (editing == Editing::Adding) {
            QStringList marks;
            for (int i = 0; i < columns.size(); ++i)
                marks.append(u'?' + QString::number(i + 1));
            sql = columns.isEmpty()
                      ? u"INSERT INTO "_s + plan.quotedTable() + u" DEFAULT VALUES"_s
                      : u"INSERT INTO "_s + plan.quotedTable() + u" ("_s + columns.join(u", "_s) +
                            u") VALUES ("_s + marks.join(u", "_s) + u')';
        } else {
            QStringList sets;
            for (int i = 0; i < columns.size(); ++i)
                sets.append(columns[i] + u" = ?"_s + QString::number(i + 1));
            if (sets.isEmpty())
                return (void)(editing = Editing::None, buffer.clear());
            sql = u"UPDATE "_s + plan.quotedTable() + u" SET "_s + sets.join(u", "_s) +
                  u" WHERE rowid = ?"_s + QString::number(columns.size() + 1);
        }
        sqlite3_stmt *s = db->prepareCached(sql);
        for (int i = 0; i < values.size(); ++i)
            bindValue(s, i + 1, values[i]);
        if (editing == Editing::Changing)
            sqlite3_bind_int64(s, int(values.size()) + 1, rowid);
        const int rc = sqlite3_step(s);
        sqlite3_reset(s);
        if (rc != SQLITE_DONE)
            throw engineError(h, plan.statement);
        const Editing done = editing;
        editing = Editing::None;
        buffer.clear();
        if (done == Editing::Adding) {
            const qint64 id = sqlite3_last_insert_rowid(h);
            // A dynaset shows the rows added through it at its end.
            if (!keyset()) {
                if (exhausted)
                    rowids.push_back(id);
                else
                    added.insert(id);
            }
        } else {
            current = readRow(rowid);
            stmtOnCurrent = false;
        }
    }

    void remove()
    {
        requireUpdatable();
        requireRow();
        if (editing != Editing::None) {
            editing = Editing::None;
            buffer.clear();
        }
        sqlite3_stmt *s = db->prepareCached(u"DELETE FROM "_s + plan.quotedTable() + u" WHERE rowid = ?1"_s);
        sqlite3_bind_int64(s, 1, rowid);
        const int rc = sqlite3_step(s);
        sqlite3_reset(s);
        if (rc != SQLITE_DONE)
            throw engineError(h, plan.statement);
        where = Where::Deleted;
        current.clear();
        if (keyset()) {
            stmtOnCurrent = false;
            reached = std::max(0L, reached - 1);
        } else {
            rowids.erase(rowids.begin() + index);
            if (headIndex == index)
                headIndex = -1;
            else if (headIndex > index)
                --headIndex;
        }
    }
};

Recordset::Recordset(std::shared_ptr<Database> db, const QString &source) : d(new Impl), source_(source)
{
    d->db = std::move(db);
    d->h = d->db->handle();
    d->plan = planSource(d->h, source);
    d->open();
}

Recordset::Recordset(std::shared_ptr<Database> db, SourcePlan plan, const QString &source)
    : d(new Impl), source_(source)
{
    d->db = std::move(db);
    d->h = d->db->handle();
    d->plan = std::move(plan);
    d->open();
}

Recordset::~Recordset()
{
    if (d)
        sqlite3_finalize(d->stmt);
}

bool Recordset::Bof() const
{
    return d->bof;
}
bool Recordset::Eof() const
{
    return d->eof;
}
long Recordset::RecordCount()
{
    return d->recordCount();
}

long Recordset::AbsolutePosition() const
{
    if (d->where != Impl::Where::OnRow)
        return -1;
    return d->keyset() ? d->keysetPosition() : d->index;
}

void Recordset::setAbsolutePosition(long position)
{
    if (position < 0)
        throw RuntimeError(err::InvalidArgument, u"Argumento no válido."_s);
    if (d->keyset()) {
        const qint64 id = d->singleRowid(u"SELECT rowid"_s + d->plan.fromWhere(u"rowid > ?1"_s) +
                                             u" ORDER BY rowid LIMIT 1 OFFSET ?2"_s,
                                         kNoRowid, position);
        if (id == kNoRowid)
            throw RuntimeError(err::InvalidArgument, u"Argumento no válido."_s);
        return d->landOnRowid(id, position);
    }
    if (!d->fetchUpTo(position))
        throw RuntimeError(err::InvalidArgument, u"Argumento no válido."_s);
    d->landSequential(position);
}

void Recordset::MoveFirst()
{
    d->editing = Impl::Editing::None;
    if (d->keyset()) {
        if (!d->startKeyset(kNoRowid))
            return d->setEmpty(), noCurrentRecord();
        return d->land(0);
    }
    if (!d->fetchUpTo(0))
        return d->setEmpty(), noCurrentRecord();
    d->landSequential(0);
}

void Recordset::MoveLast()
{
    d->editing = Impl::Editing::None;
    if (d->keyset()) {
        const qint64 id = d->singleRowid(u"SELECT rowid"_s + d->plan.fromWhere(u"rowid > ?1"_s) +
                                             u" ORDER BY rowid DESC LIMIT 1"_s,
                                         kNoRowid);
        if (id == kNoRowid)
            return d->setEmpty(), noCurrentRecord();
        d->lastReached = true;
        return d->landOnRowid(id, std::nullopt);
    }
    d->fetchUpTo(std::numeric_limits<long>::max() - 1);
    if (d->reachedRows() == 0)
        return d->setEmpty(), noCurrentRecord();
    d->landSequential(long(d->reachedRows()) - 1);
}

void Recordset::MoveNext()
{
    if (d->eof)
        noCurrentRecord();
    Move(1);
}

void Recordset::MovePrevious()
{
    if (d->bof)
        noCurrentRecord();
    Move(-1);
}

void Recordset::Move(long rows)
{
    using W = Impl::Where;
    d->editing = Impl::Editing::None;
    if (d->where == W::BeforeFirst || d->where == W::AfterLast) {
        // Only the step back into the set from either end is allowed.
        if (d->bof && d->eof)
            noCurrentRecord();
        if (d->where == W::BeforeFirst && rows == 1)
            return MoveFirst();
        if (d->where == W::AfterLast && rows == -1)
            return MoveLast();
        noCurrentRecord();
    }
    if (rows == 0) {
        d->requireRow();
        return;
    }
    if (d->keyset())
        return d->keysetMove(rows);
    const long base = d->index;
    const bool fromDeleted = d->where == W::Deleted;
    d->sequentialGo(fromDeleted && rows > 0 ? base + rows - 1 : base + rows);
}

void Recordset::FindFirst(const QString &criteria)
{
    d->find(criteria, true, true);
}
void Recordset::FindNext(const QString &criteria)
{
    d->find(criteria, true, false);
}
void Recordset::FindLast(const QString &criteria)
{
    d->find(criteria, false, true);
}
void Recordset::FindPrevious(const QString &criteria)
{
    d->find(criteria, false, false);
}
bool Recordset::NoMatch() const
{
    return d->noMatch;
}

QString Recordset::Filter() const
{
    return d->filter;
}
void Recordset::setFilter(const QString &criteria)
{
    d->filter = criteria;
}

std::unique_ptr<Recordset> Recordset::OpenRecordset()
{
    if (d->filter.trimmed().isEmpty())
        return std::unique_ptr<Recordset>(new Recordset(d->db, d->plan, source_));
    const SourcePlan plan = d->plan.filtered(jet::translateCriteria(d->filter));
    return std::unique_ptr<Recordset>(new Recordset(d->db, plan, source_));
}

void Recordset::AddNew()
{
    d->requireUpdatable();
    d->editing = Impl::Editing::Adding;
    d->buffer.clear();
}

void Recordset::Edit()
{
    d->requireUpdatable();
    d->requireRow();
    d->editing = Impl::Editing::Changing;
    d->buffer.clear();
}

void Recordset::Update()
{
    d->update();
}

void Recordset::CancelUpdate()
{
    d->editing = Impl::Editing::None;
    d->buffer.clear();
}

void Recordset::Delete()
{
    d->remove();
}

int Recordset::fieldCount() const
{
    return int(d->names.size());
}

QString Recordset::fieldName(int index) const
{
    d->checkIndex(index);
    return d->names[index];
}

QVariant Recordset::field(const QString &name) const
{
    return field(d->fieldIndex(name));
}

QVariant Recordset::field(int index) const
{
    d->checkIndex(index);
    if (d->editing != Impl::Editing::None) {
        const auto found = d->buffer.constFind(index);
        if (found != d->buffer.constEnd())
            return *found;
        if (d->editing == Impl::Editing::Adding)
            return {};
    }
    d->requireRow();
    return d->current.value(index);
}

void Recordset::setField(const QString &name, const QVariant &value)
{
    setField(d->fieldIndex(name), value);
}

void Recordset::setField(int index, const QVariant &value)
{
    d->checkIndex(index);
    if (d->editing == Impl::Editing::None)
        throw RuntimeError(err::NoEditInProgress,
                           u"Actualizar o CancelarActualización sin AgregarNuevo o Editar."_s);
    d->buffer.insert(index, value.isNull() ? QVariant() : value);
}

} // namespace tesorel
