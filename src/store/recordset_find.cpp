// Searching a recordset by a criterion of the dialect (FindFirst and the
// others): an indexed query in a keyset, a row-by-row test in a sequential
// walk.
#include "store/recordset_impl.h"

#include "store/database.h"
#include "store/engine_errors.h"
#include "store/field_values.h"
#include "store/jet_sql.h"

#include <sqlite3.h>

namespace tesorel
{

using namespace Qt::StringLiterals;

// True when the row `id` (updatable) or the fields `values` meet the
// criterion.
bool Recordset::Impl::matches(const QString &criteria, qint64 id, const QVector<QVariant> &values)
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

// A search that fails leaves the match state of the search before, as the
// callers that go on after a failure rely on.
void Recordset::Impl::find(const QString &criteria, bool forward, bool fromEnd)
{
    const bool before = noMatch;
    try {
        findOrThrow(criteria, forward, fromEnd);
    } catch (...) {
        noMatch = before;
        throw;
    }
}

void Recordset::Impl::findOrThrow(const QString &criteria, bool forward, bool fromEnd)
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
        const bool hit =
            plan.updatable() ? matches(c, rowids[size_t(at)], {}) : matches(c, kNoRowid, rows[size_t(at)]);
        if (hit) {
            noMatch = false;
            landSequential(at);
            return;
        }
    }
}

} // namespace tesorel
