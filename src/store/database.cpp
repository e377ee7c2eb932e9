#include "store/database.h"
#include "store/conexion.h"

#include "core/runtime_error.h"
#include "store/engine_errors.h"
#include "store/jet_functions.h"
#include "store/jet_sql.h"
#include "store/recordset.h"

#include <QFileInfo>
#include <sqlite3.h>

namespace tesorel
{

namespace
{
// Prepared statements kept by text; past this many the cache starts over so
// that a run of one-off statements cannot grow it without end.
constexpr int kCacheLimit = 256;
} // namespace

Database::Database(sqlite3 *db, const QString &path) : db_(db), path_(path) {}

Database::~Database()
{
    for (sqlite3_stmt *stmt : std::as_const(cache_))
        sqlite3_finalize(stmt);
    sqlite3_close_v2(db_);
}

std::shared_ptr<Database> Database::openHandle(const QString &path, int flags)
{
    sqlite3 *db = nullptr;
    const QByteArray file = path.toUtf8();
    // The base is used from the interface thread only: no mutex on every call.
    flags |= SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(file.constData(), &db, flags, nullptr) != SQLITE_OK) {
        const QString message = QString::fromUtf8(db ? sqlite3_errmsg(db) : "out of memory");
        sqlite3_close_v2(db);
        throw RuntimeError(err::EngineError, message);
    }
    std::shared_ptr<Database> base(new Database(db, path));
    sqlite3_extended_result_codes(db, 1);
    sqlite3_busy_timeout(db, 2000);
    // A large page cache and no mapping of the file: a value's series is
    // read from its covering index (a few hundred pages), while the walk of
    // the days hops the date index across the whole file, and a mapped file
    // would make every page it touches resident, with its neighbours.
    base->executeNative(QStringLiteral("PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL; "
                                       "PRAGMA foreign_keys=OFF; PRAGMA mmap_size=0; "
                                       "PRAGMA cache_size=-65536;"));
    registerJetFunctions(db);
    return base;
}

std::shared_ptr<Database> Database::open(const QString &path)
{
    if (path != u":memory:" && !QFileInfo(path).isFile())
        throw RuntimeError(err::DatabaseFileNotFound,
                           QStringLiteral("No se encuentra el archivo '%1'.").arg(path));
    return openHandle(path, SQLITE_OPEN_READWRITE);
}

std::shared_ptr<Database> Database::create(const QString &path)
{
    return openHandle(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
}

sqlite3 *conexionDe(const Database &db)
{
    return db.db_;
}
QString Database::path() const
{
    return path_;
}

void Database::raiseEngineError(const QString &context) const
{
    throw engineError(db_, context);
}

sqlite3_stmt *Database::prepareCached(const QString &sqliteSql)
{
    auto found = cache_.constFind(sqliteSql);
    if (found != cache_.constEnd()) {
        sqlite3_reset(*found);
        sqlite3_clear_bindings(*found);
        return *found;
    }
    sqlite3_stmt *stmt = prepareStatement(db_, sqliteSql, sqliteSql, SQLITE_PREPARE_PERSISTENT, true);
    if (cache_.size() >= kCacheLimit && inUse_.isEmpty()) {
        for (sqlite3_stmt *old : std::as_const(cache_))
            sqlite3_finalize(old);
        cache_.clear();
    }
    cache_.insert(sqliteSql, stmt);
    return stmt;
}

sqlite3_stmt *Database::acquireStatement(const QString &sqliteSql, bool &owned)
{
    const auto found = cache_.constFind(sqliteSql);
    owned = found != cache_.constEnd() && inUse_.contains(*found);
    if (owned)
        return prepareStatement(db_, sqliteSql, sqliteSql, 0, true);
    sqlite3_stmt *stmt = prepareCached(sqliteSql);
    inUse_.insert(stmt);
    return stmt;
}

void Database::releaseStatement(sqlite3_stmt *stmt, bool owned)
{
    if (owned) {
        sqlite3_finalize(stmt);
        return;
    }
    sqlite3_reset(stmt);
    sqlite3_clear_bindings(stmt);
    inUse_.remove(stmt);
}

int Database::execute(const QString &jetSql)
{
    const QString sql = jet::translate(jetSql);
    sqlite3_stmt *stmt = nullptr;
    try {
        stmt = prepareCached(sql);
    } catch (const RuntimeError &e) {
        // Report against what the caller wrote, not the translation.
        if (e.number() == err::SyntaxError)
            throw RuntimeError(err::SyntaxError, jet::syntaxMessage(jetSql));
        throw;
    }
    if (const int parameters = sqlite3_bind_parameter_count(stmt))
        throw RuntimeError(err::TooFewParameters,
                           QStringLiteral("Pocos parámetros. Se esperaba %1.").arg(parameters));
    if (sqlite3_column_count(stmt) > 0)
        throw RuntimeError(err::CannotExecuteSelect,
                           QStringLiteral("No se puede ejecutar una consulta de selección."));
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
    }
    if (rc != SQLITE_DONE) {
        const RuntimeError failure = engineError(db_, jetSql);
        sqlite3_reset(stmt);
        throw failure;
    }
    sqlite3_reset(stmt);
    return sqlite3_changes(db_);
}

void Database::executeNative(const QString &sqliteSql)
{
    char *message = nullptr;
    if (sqlite3_exec(db_, sqliteSql.toUtf8().constData(), nullptr, nullptr, &message) != SQLITE_OK) {
        const QString text = QString::fromUtf8(message ? message : "");
        sqlite3_free(message);
        throw RuntimeError(err::EngineError, text);
    }
}

std::unique_ptr<Recordset> Database::openRecordset(const QString &source)
{
    return std::make_unique<Recordset>(shared_from_this(), source);
}

void Database::beginTransaction()
{
    if (transactionDepth_ == 0)
        executeNative(QStringLiteral("BEGIN"));
    ++transactionDepth_;
}

void Database::commit()
{
    if (transactionDepth_ == 0)
        throw RuntimeError(err::NoTransaction,
                           QStringLiteral("Ha intentado confirmar o deshacer una transacción "
                                          "sin haber iniciado antes una transacción."));
    if (--transactionDepth_ == 0)
        executeNative(QStringLiteral("COMMIT"));
}

void Database::rollback()
{
    if (transactionDepth_ == 0)
        throw RuntimeError(err::NoTransaction,
                           QStringLiteral("Ha intentado confirmar o deshacer una transacción "
                                          "sin haber iniciado antes una transacción."));
    transactionDepth_ = 0;
    if (!sqlite3_get_autocommit(db_))
        executeNative(QStringLiteral("ROLLBACK"));
}

bool Database::inTransaction() const
{
    return transactionDepth_ > 0;
}

} // namespace tesorel
