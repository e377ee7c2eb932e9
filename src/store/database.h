#pragma once
#include <QHash>
#include <QSet>
#include <QString>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace tesorel
{

class Recordset;

// The one open base file. Statements come in the system's own dialect and
// are turned into SQLite SQL here; prepared statements are kept by text, as
// a booking or an import repeats the same few shapes.
class Database : public std::enable_shared_from_this<Database>
{
  public:
    // Opens an existing base file. A missing file throws
    // RuntimeError(err::DatabaseFileNotFound, "No se encuentra el archivo '<path>'.").
    // Never creates a file or a table.
    static std::shared_ptr<Database> open(const QString &path);
    // For the tools that build a base: creates an empty file (makebase only).
    // ":memory:" gives a private in-memory base.
    static std::shared_ptr<Database> create(const QString &path);
    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    // Runs one statement of the dialect that returns no rows. Throws
    // RuntimeError with the engine's message on failure. Returns the number
    // of rows changed.
    int execute(const QString &jetSql);
    // Runs SQLite SQL as it is (several statements allowed): loading a schema.
    void executeNative(const QString &sqliteSql);

    // A table name, a stored query name (a view; names with blanks allowed,
    // any case) or a SELECT of the dialect.
    std::unique_ptr<Recordset> openRecordset(const QString &source);

    // Grouping of writes (importers). Nested begins are counted; only the
    // outermost commit writes. A rollback undoes the whole group.
    void beginTransaction();
    void commit();
    void rollback();
    bool inTransaction() const;

    QString path() const;

    // Internal: a prepared statement for SQLite SQL, reset and with bindings
    // cleared, from the cache. The database keeps ownership.
    sqlite3_stmt *prepareCached(const QString &sqliteSql);
    // Internal, for Query: the cached statement when no other Query is
    // stepping it, else a new one that the caller finalizes (`owned`).
    sqlite3_stmt *acquireStatement(const QString &sqliteSql, bool &owned);
    void releaseStatement(sqlite3_stmt *stmt, bool owned);
    // Internal: throws the engine's last failure as RuntimeError.
    [[noreturn]] void raiseEngineError(const QString &context = QString()) const;

  private:
    // The engine's connection stays inside the store: its statements and
    // recordsets, and the builder of a new base, reach it through
    // store/conexion.h.
    friend sqlite3 *conexionDe(const Database &db);

    Database(sqlite3 *db, const QString &path);
    static std::shared_ptr<Database> openHandle(const QString &path, int flags);

    sqlite3 *db_ = nullptr;
    QString path_;
    int transactionDepth_ = 0;
    QHash<QString, sqlite3_stmt *> cache_;
    QSet<sqlite3_stmt *> inUse_; // cached statements a live Query holds
};

} // namespace tesorel
