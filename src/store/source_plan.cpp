#include "store/source_plan.h"

#include "store/engine_errors.h"
#include "store/jet_sql.h"

#include <QList>
#include <sqlite3.h>

namespace tesorel
{

using namespace Qt::StringLiterals;

namespace
{

struct Word {
    QString lower;
    qsizetype start;
    qsizetype end;
    bool quoted;
};

// The words and quoted names of SQLite SQL that stand outside parentheses
// and strings, with any call names inside them flagged in `aggregate`.
QList<Word> topLevelWords(const QString &sql, bool *aggregate)
{
    static const QStringList aggregates = {u"max"_s, u"min"_s,   u"sum"_s,         u"count"_s,
                                           u"avg"_s, u"total"_s, u"group_concat"_s};
    QList<Word> words;
    int depth = 0;
    for (qsizetype i = 0; i < sql.size();) {
        const QChar c = sql[i];
        if (c == u'\'' || c == u'"') {
            qsizetype j = i + 1;
            while (j < sql.size() && !(sql[j] == c && (j + 1 >= sql.size() || sql[j + 1] != c)))
                j += sql[j] == c ? 2 : 1;
            if (c == u'"' && depth == 0)
                words.append(
                    {sql.mid(i + 1, j - i - 1).replace(u"\"\""_s, u"\""_s).toLower(), i, j + 1, true});
            i = j + 1;
        } else if (c.isLetter() || c == u'_') {
            qsizetype j = i;
            while (j < sql.size() && (sql[j].isLetterOrNumber() || sql[j] == u'_'))
                ++j;
            const QString lower = sql.mid(i, j - i).toLower();
            if (depth == 0)
                words.append({lower, i, j, false});
            qsizetype k = j;
            while (k < sql.size() && sql[k].isSpace())
                ++k;
            if (k < sql.size() && sql[k] == u'(' && aggregates.contains(lower))
                *aggregate = true;
            i = j;
        } else {
            if (c == u'(')
                ++depth;
            else if (c == u')')
                --depth;
            else if (depth == 0 && (c == u',' || c == u'.'))
                words.append({QString(c), i, i + 1, false});
            ++i;
        }
    }
    return words;
}

QString objectType(sqlite3 *db, const QString &name, QString *exactName)
{
    sqlite3_stmt *stmt = nullptr;
    sqlite3_prepare_v2(db,
                       "SELECT name, type FROM sqlite_master WHERE type IN ('table','view') "
                       "AND name = ?1 COLLATE NOCASE",
                       -1, &stmt, nullptr);
    const QByteArray utf8 = name.toUtf8();
    sqlite3_bind_text(stmt, 1, utf8.constData(), int(utf8.size()), SQLITE_STATIC);
    QString type;
    if (sqlite3_step(stmt) == SQLITE_ROW) {
        *exactName = QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(stmt, 0)));
        type = QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(stmt, 1)));
    }
    sqlite3_finalize(stmt);
    return type;
}

QString quoteName(const QString &name)
{
    QString doubled = name;
    doubled.replace(u'"', u"\"\""_s);
    return u'"' + doubled + u'"';
}

// Fills the updatable parts when the SELECT reads one plain table.
void splitSingleTable(sqlite3 *db, const QString &sql, SourcePlan *plan)
{
    bool aggregate = false;
    const QList<Word> words = topLevelWords(sql, &aggregate);
    if (aggregate || words.size() < 3 || words[0].lower != u"select")
        return;
    qsizetype from = -1, where = -1, order = -1;
    for (qsizetype i = 1; i < words.size(); ++i) {
        const Word &w = words[i];
        if (w.quoted)
            continue;
        static const QStringList refused = {u"distinct"_s, u"group"_s,     u"having"_s,
                                            u"union"_s,    u"intersect"_s, u"except"_s,
                                            u"join"_s,     u"limit"_s,     u"window"_s};
        if (refused.contains(w.lower))
            return;
        if (w.lower == u"from" && from < 0)
            from = i;
        else if (w.lower == u"where" && from >= 0 && where < 0)
            where = i;
        else if (w.lower == u"order" && from >= 0 && order < 0)
            order = i;
    }
    if (from < 0 || from + 1 >= words.size())
        return;
    const qsizetype afterTable = from + 2;
    const qsizetype next = where >= 0 ? where : order;
    if ((next >= 0 && next != afterTable) || (next < 0 && afterTable != words.size()))
        return; // an alias, a list of tables or a qualified name
    if (order >= 0 && (order + 1 >= words.size() || words[order + 1].lower != u"by"))
        return;
    QString exact;
    if (objectType(db, words[from + 1].lower, &exact) != u"table")
        return;
    plan->table = exact;
    plan->columns = sql.mid(words[0].end, words[from].start - words[0].end).trimmed();
    const qsizetype whereEnd = order >= 0 ? words[order].start : sql.size();
    if (where >= 0)
        plan->where = sql.mid(words[where].end, whereEnd - words[where].end).trimmed();
    if (order >= 0)
        plan->orderBy = sql.mid(words[order + 1].end).trimmed();
}

} // namespace

QString SourcePlan::quotedTable() const
{
    return quoteName(table);
}

QString SourcePlan::fromWhere(const QString &extra) const
{
    QString condition = where;
    if (!extra.isEmpty())
        condition = condition.isEmpty() ? extra : u'(' + condition + QStringLiteral(") AND (") + extra + u')';
    return u" FROM "_s + quotedTable() + (condition.isEmpty() ? QString() : u" WHERE "_s + condition);
}

SourcePlan SourcePlan::filtered(const QString &criteria) const
{
    SourcePlan plan = *this;
    if (updatable()) {
        plan.where = where.isEmpty() ? criteria : u'(' + where + QStringLiteral(") AND (") + criteria + u')';
        plan.sql = u"SELECT "_s + columns + plan.fromWhere() +
                   (orderBy.isEmpty() ? QString() : u" ORDER BY "_s + orderBy);
    } else {
        plan.sql = u"SELECT * FROM ("_s + sql + u") WHERE "_s + criteria;
    }
    return plan;
}

SourcePlan planSource(sqlite3 *db, const QString &source)
{
    SourcePlan plan;
    plan.statement = source;
    const QString trimmed = source.trimmed();
    const QString first = trimmed.section(u' ', 0, 0).toLower();
    if (first == u"select" || trimmed.startsWith(u'(')) {
        plan.sql = jet::translate(trimmed);
        splitSingleTable(db, plan.sql, &plan);
        return plan;
    }
    QString name = trimmed;
    if (name.size() > 1 && name.startsWith(u'[') && name.endsWith(u']'))
        name = name.mid(1, name.size() - 2);
    QString exact;
    const QString type = objectType(db, name, &exact);
    if (type.isEmpty())
        throw RuntimeError(
            err::TableNotFound,
            QStringLiteral("El motor de base de datos no puede encontrar la tabla o consulta de "
                           "entrada '%1'.")
                .arg(name));
    plan.sql = u"SELECT * FROM "_s + quoteName(exact);
    if (type == u"table") {
        plan.table = exact;
        plan.columns = u"*"_s;
    }
    return plan;
}

} // namespace tesorel
