#pragma once
// A connection of the benchmark's own to a base file, for the raw SQLite
// references that the benchmarks measure the program against. It opens the
// file with the store's pragmas so both sides write the same way.
#include <QString>
#include <memory>
#include <sqlite3.h>
#include <stdexcept>

namespace tesorel::bench
{

struct FinalizeStmt {
    void operator()(sqlite3_stmt *st) const { sqlite3_finalize(st); }
};
using RawStmt = std::unique_ptr<sqlite3_stmt, FinalizeStmt>;

class RawSqlite
{
  public:
    RawSqlite() = default;
    explicit RawSqlite(const QString &path) { open(path); }
    ~RawSqlite() { sqlite3_close_v2(db_); }
    RawSqlite(const RawSqlite &) = delete;
    RawSqlite &operator=(const RawSqlite &) = delete;

    void open(const QString &path)
    {
        sqlite3_close_v2(db_);
        db_ = nullptr;
        if (sqlite3_open_v2(path.toUtf8().constData(), &db_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK)
            throw std::runtime_error("cannot open " + path.toStdString());
        exec("PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL; PRAGMA cache_size=-65536;");
    }
    sqlite3 *handle() const { return db_; }
    void exec(const char *sql) const
    {
        if (sqlite3_exec(db_, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(db_));
    }
    RawStmt prepare(const char *sql) const
    {
        sqlite3_stmt *st = nullptr;
        if (sqlite3_prepare_v2(db_, sql, -1, &st, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(db_));
        return RawStmt(st);
    }
    // The first column of the first row of a query (a count, a sum).
    sqlite3_int64 scalar(const char *sql) const
    {
        RawStmt st = prepare(sql);
        return sqlite3_step(st.get()) == SQLITE_ROW ? sqlite3_column_int64(st.get(), 0) : 0;
    }

  private:
    sqlite3 *db_ = nullptr;
};

} // namespace tesorel::bench
