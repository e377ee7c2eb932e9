#include "store/sqlite_steps.h"

#include "core/runtime_error.h"

#include <QDate>

namespace tesorel
{

void engineFailure(sqlite3 *db, const QString &context)
{
    QString text = QString::fromUtf8(sqlite3_errmsg(db));
    if (!context.isEmpty())
        text = context + ": " + text;
    throw RuntimeError(err::EngineError, text);
}

void runSql(sqlite3 *db, const QString &sql)
{
    char *message = nullptr;
    if (sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, &message) != SQLITE_OK) {
        const QString text = QString::fromUtf8(message ? message : sqlite3_errmsg(db));
        sqlite3_free(message);
        throw RuntimeError(err::EngineError, text);
    }
}

Statement::Statement(sqlite3 *db, const QString &sql) : db_(db)
{
    if (sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &stmt_, nullptr) != SQLITE_OK)
        engineFailure(db, sql);
}

Statement &Statement::bind(int i, const QVariant &v)
{
    if (v.isNull()) {
        sqlite3_bind_null(stmt_, i);
    } else if (v.typeId() == QMetaType::Int || v.typeId() == QMetaType::LongLong) {
        sqlite3_bind_int64(stmt_, i, v.toLongLong());
    } else if (v.typeId() == QMetaType::Double) {
        sqlite3_bind_double(stmt_, i, v.toDouble());
    } else {
        const QString text = v.typeId() == QMetaType::QDate ? v.toDate().toString(Qt::ISODate) : v.toString();
        const QByteArray utf8 = text.toUtf8();
        sqlite3_bind_text(stmt_, i, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
    }
    return *this;
}

bool Statement::step()
{
    const int rc = sqlite3_step(stmt_);
    if (rc == SQLITE_ROW)
        return true;
    if (rc != SQLITE_DONE)
        engineFailure(db_);
    return false;
}

} // namespace tesorel
