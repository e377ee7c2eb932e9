#include "store/field_values.h"

#include <QDate>
#include <QDateTime>
#include <sqlite3.h>

namespace tesorel
{

ColumnKind columnKind(const char *declaredType)
{
    if (!declaredType)
        return ColumnKind::Undeclared;
    const QByteArray type = QByteArray(declaredType).toUpper();
    if (type.contains("DATE") || type.contains("TIME"))
        return ColumnKind::Date;
    if (type.contains("INT") || type == "COUNTER" || type == "LONG")
        return ColumnKind::Whole;
    if (type.contains("CHAR") || type.contains("TEXT") || type.contains("CLOB") || type.contains("MEMO"))
        return ColumnKind::Text;
    return ColumnKind::Real;
}

namespace
{

QString text(sqlite3_stmt *stmt, int column)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(stmt, column)),
                             sqlite3_column_bytes(stmt, column));
}

// An ISO day, as the store keeps dates: "2024-03-15" (a time part is
// dropped, as a Jet date without time would show it).
QDate isoDay(const QString &s)
{
    if (s.size() < 10 || s[4] != u'-' || s[7] != u'-')
        return {};
    // Read by hand: this runs for every date of every row walked.
    int parts[3] = {0, 0, 0};
    const int starts[3] = {0, 5, 8}, lengths[3] = {4, 2, 2};
    for (int p = 0; p < 3; ++p)
        for (int k = starts[p]; k < starts[p] + lengths[p]; ++k) {
            const char16_t c = s[k].unicode();
            if (c < u'0' || c > u'9')
                return {};
            parts[p] = parts[p] * 10 + (c - u'0');
        }
    return QDate(parts[0], parts[1], parts[2]);
}

} // namespace

QVariant columnValue(sqlite3_stmt *stmt, int column, ColumnKind kind)
{
    const int storage = sqlite3_column_type(stmt, column);
    if (storage == SQLITE_NULL)
        return {};
    switch (kind) {
    case ColumnKind::Date:
        if (storage == SQLITE_TEXT) {
            const QString s = text(stmt, column);
            const QDate day = isoDay(s);
            return day.isValid() ? QVariant(day) : QVariant(s);
        }
        break;
    case ColumnKind::Whole:
        if (storage == SQLITE_INTEGER)
            return QVariant(qlonglong(sqlite3_column_int64(stmt, column)));
        break;
    case ColumnKind::Real:
        if (storage == SQLITE_INTEGER || storage == SQLITE_FLOAT)
            return QVariant(sqlite3_column_double(stmt, column));
        break;
    case ColumnKind::Text:
        return QVariant(text(stmt, column));
    case ColumnKind::Undeclared:
        if (storage == SQLITE_TEXT) {
            // An expression over a date column (max(fecha)) carries no type.
            const QString s = text(stmt, column);
            const QDate day = s.size() == 10 ? isoDay(s) : QDate();
            return day.isValid() ? QVariant(day) : QVariant(s);
        }
        break;
    }
    switch (storage) {
    case SQLITE_INTEGER:
        return QVariant(qlonglong(sqlite3_column_int64(stmt, column)));
    case SQLITE_FLOAT:
        return QVariant(sqlite3_column_double(stmt, column));
    case SQLITE_BLOB:
        return QVariant(QByteArray(static_cast<const char *>(sqlite3_column_blob(stmt, column)),
                                   sqlite3_column_bytes(stmt, column)));
    default:
        return QVariant(text(stmt, column));
    }
}

void bindValue(sqlite3_stmt *stmt, int parameter, const QVariant &value)
{
    if (!value.isValid() || value.isNull())
        return (void)sqlite3_bind_null(stmt, parameter);
    switch (value.typeId()) {
    case QMetaType::QDate:
        return bindValue(stmt, parameter, value.toDate().toString(Qt::ISODate));
    case QMetaType::QDateTime:
        return bindValue(stmt, parameter, value.toDateTime().date().toString(Qt::ISODate));
    case QMetaType::Double:
    case QMetaType::Float:
        return (void)sqlite3_bind_double(stmt, parameter, value.toDouble());
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return (void)sqlite3_bind_int64(stmt, parameter, value.toLongLong());
    case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        return (void)sqlite3_bind_blob(stmt, parameter, bytes.constData(), int(bytes.size()),
                                       SQLITE_TRANSIENT);
    }
    default: {
        const QByteArray utf8 = value.toString().toUtf8();
        sqlite3_bind_text(stmt, parameter, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
    }
    }
}

} // namespace tesorel
