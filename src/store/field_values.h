#pragma once
#include <QVariant>

struct sqlite3_stmt;

namespace tesorel
{

// How a column's values come back, from its declared type.
enum class ColumnKind { Date, Whole, Real, Text, Undeclared };
ColumnKind columnKind(const char *declaredType);

// The value at `column` of the current row: null as an invalid QVariant,
// dates (ISO text) as QDate.
QVariant columnValue(sqlite3_stmt *stmt, int column, ColumnKind kind);

// Binds a field value; a QDate is stored as ISO text.
void bindValue(sqlite3_stmt *stmt, int parameter, const QVariant &value);

} // namespace tesorel
