#pragma once
#include <QString>
#include <QVariant>
#include <sqlite3.h>

namespace tesorel
{

// Plain SQLite for building a base, below the dialect: a statement run
// as it is, a prepared statement that finalizes itself, and a
// transaction that rolls back when its work fails. Failures are
// RuntimeError with the engine's message.

[[noreturn]] void engineFailure(sqlite3 *db, const QString &context = QString());
void runSql(sqlite3 *db, const QString &sql);

class Statement
{
  public:
    Statement(sqlite3 *db, const QString &sql);
    ~Statement() { sqlite3_finalize(stmt_); }
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    Statement &bind(int i, const QVariant &v);
    // Steps once; true while a row is there.
    bool step();
    void execute()
    {
        step();
        reset();
    }
    void reset()
    {
        sqlite3_reset(stmt_);
        sqlite3_clear_bindings(stmt_);
    }
    double number(int col) const { return sqlite3_column_double(stmt_, col); }
    long long whole(int col) const { return sqlite3_column_int64(stmt_, col); }
    QString text(int col) const
    {
        return QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(stmt_, col)));
    }
    bool isNull(int col) const { return sqlite3_column_type(stmt_, col) == SQLITE_NULL; }
    sqlite3_stmt *get() const { return stmt_; } // for binding by hand in a hot loop

  private:
    sqlite3 *db_;
    sqlite3_stmt *stmt_ = nullptr;
};

// Runs work() between BEGIN and COMMIT; a failure rolls back and goes on.
template <class F> auto inTransaction(sqlite3 *db, F &&work)
{
    runSql(db, QStringLiteral("BEGIN"));
    try {
        auto result = work();
        runSql(db, QStringLiteral("COMMIT"));
        return result;
    } catch (...) {
        sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

} // namespace tesorel
