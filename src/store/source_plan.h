#pragma once
#include <QString>

struct sqlite3;

namespace tesorel
{

// What a recordset runs, and whether it can write back. A source that reads
// one table with no grouping, joining or aggregate is updatable by rowid;
// without ORDER BY it is walked in rowid order, so that a criterion can go
// straight to the table's indexes.
struct SourcePlan {
    QString statement; // what the caller wrote, for messages
    QString sql;       // the SQLite SELECT of a read-only source
    QString table;     // base table of an updatable source, else empty
    QString columns;   // its select list
    QString where;     // its condition, may be empty
    QString orderBy;   // its order, empty for rowid order

    bool updatable() const { return !table.isEmpty(); }
    bool rowidOrder() const { return updatable() && orderBy.isEmpty(); }
    // The source with `criteria` (SQLite SQL) added to its condition.
    SourcePlan filtered(const QString &criteria) const;
    // "FROM t WHERE ..." of an updatable source, with an extra condition.
    QString fromWhere(const QString &extra = QString()) const;
    QString quotedTable() const;
};

// Reads a table name, a stored query name or a SELECT of the dialect.
// A name that is neither table nor query throws the engine's message.
SourcePlan planSource(sqlite3 *db, const QString &source);

} // namespace tesorel
