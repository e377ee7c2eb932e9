#include "store/query.h"
#include "store/conexion.h"

#include "core/runtime_error.h"
#include "store/database.h"
#include "store/engine_errors.h"
#include "store/field_values.h"
#include "store/jet_sql.h"

#include <sqlite3.h>

namespace tesorel
{

Query::Query(Database &db, const QString &jetSql) : db_(db), jetSql_(jetSql)
{
    const QString sql = jet::translateWithParameters(jetSql);
    try {
        stmt_ = db.acquireStatement(sql, owned_);
    } catch (const RuntimeError &e) {
        // Report against what the caller wrote, not the translation.
        if (e.number() == err::SyntaxError)
            throw RuntimeError(err::SyntaxError, jet::syntaxMessage(jetSql));
        throw;
    }
}

Query::~Query()
{
    db_.releaseStatement(stmt_, owned_);
}

Query &Query::bind(int parameter, const QVariant &value)
{
    if (parameter < 1 || parameter > sqlite3_bind_parameter_count(stmt_))
        throw RuntimeError(err::TooFewParameters,
                           QStringLiteral("Pocos parámetros. Se esperaba %1.").arg(parameter));
    bindValue(stmt_, parameter, value);
    return *this;
}

Query &Query::bind(int parameter, double value)
{
    return bind(parameter, QVariant(value));
}
Query &Query::bind(int parameter, qint64 value)
{
    return bind(parameter, QVariant(value));
}
Query &Query::bind(int parameter, const QString &value)
{
    return bind(parameter, QVariant(value));
}
Query &Query::bind(int parameter, const QDate &value)
{
    return bind(parameter, value.isValid() ? QVariant(value) : QVariant());
}

bool Query::next()
{
    if (done_)
        return false;
    const int rc = sqlite3_step(stmt_);
    if (rc == SQLITE_ROW)
        return true;
    done_ = true;
    if (rc != SQLITE_DONE) {
        const RuntimeError failure = engineError(conexionDe(db_), jetSql_);
        sqlite3_reset(stmt_);
        throw failure;
    }
    return false;
}

int Query::exec()
{
    reset();
    while (next()) {
    }
    const int changed = sqlite3_changes(conexionDe(db_));
    reset();
    return changed;
}

void Query::reset()
{
    sqlite3_reset(stmt_);
    done_ = false;
}

int Query::columnCount() const
{
    return sqlite3_column_count(stmt_);
}
bool Query::isNull(int column) const
{
    return sqlite3_column_type(stmt_, column) == SQLITE_NULL;
}
double Query::number(int column) const
{
    return sqlite3_column_double(stmt_, column);
}
qint64 Query::whole(int column) const
{
    return sqlite3_column_int64(stmt_, column);
}
QString Query::text(int column) const
{
    const auto *bytes = reinterpret_cast<const char *>(sqlite3_column_text(stmt_, column));
    return bytes ? QString::fromUtf8(bytes, sqlite3_column_bytes(stmt_, column)) : QString();
}
namespace
{

// The day of a "yyyy-MM-dd" text's digits, or an invalid day; its Julian
// number is worked out here, since building it through the calendar costs
// as much as reading the row.
QDate diaDeDigitos(int y, int m, int d)
{
    static constexpr int dias[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool bisiesto = y % 4 == 0 && (y % 100 != 0 || y % 400 == 0);
    if (y < 1 || m < 1 || m > 12 || d < 1 || d > dias[m - 1] + (m == 2 && bisiesto))
        return QDate();
    const int a = (14 - m) / 12, yy = y + 4800 - a, mm = m + 12 * a - 3;
    return QDate::fromJulianDay(d + (153 * mm + 2) / 5 + 365 * yy + yy / 4 - yy / 100 + yy / 400 - 32045);
}

} // namespace

QDate Query::date(int column) const
{
    // The store writes days as "yyyy-MM-dd", maybe with a time after them: the
    // digits are read in place, since a ledger replay reads a date per line.
    // Anything else goes the long way. A null has no text.
    const auto *b = reinterpret_cast<const unsigned char *>(sqlite3_column_text(stmt_, column));
    if (!b)
        return QDate();
    const int n = sqlite3_column_bytes(stmt_, column);
    const auto d = [b](int i) { return unsigned(b[i]) - '0'; };
    if (n >= 10 && b[4] == '-' && b[7] == '-' && d(0) < 10 && d(1) < 10 && d(2) < 10 && d(3) < 10 &&
        d(5) < 10 && d(6) < 10 && d(8) < 10 && d(9) < 10)
        return diaDeDigitos(int(d(0) * 1000 + d(1) * 100 + d(2) * 10 + d(3)), int(d(5) * 10 + d(6)),
                            int(d(8) * 10 + d(9)));
    return QDate::fromString(text(column).left(10), Qt::ISODate);
}
QVariant Query::value(int column) const
{
    return columnValue(stmt_, column, columnKind(sqlite3_column_decltype(stmt_, column)));
}

qint64 Query::lastInsertId() const
{
    return sqlite3_last_insert_rowid(conexionDe(db_));
}

Transaction::Transaction(Database &db, OnLeave onLeave) : db_(db), onLeave_(onLeave)
{
    db_.beginTransaction();
}

Transaction::~Transaction()
{
    if (!open_)
        return;
    try {
        if (onLeave_ == OnLeave::KeepWritten)
            db_.commit();
        else
            db_.rollback();
    } catch (...) {
        // Leaving a scope must not throw; the engine undoes an unfinished group itself.
    }
}

void Transaction::commit()
{
    if (!open_)
        return;
    open_ = false;
    db_.commit();
}

} // namespace tesorel
