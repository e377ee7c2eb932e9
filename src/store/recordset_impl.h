#pragma once
// The inside of a Recordset, shared by the files that implement it:
// recordset_walk.cpp (opening, stepping, moving), recordset_find.cpp
// (searching by criteria), recordset_edit.cpp (adding, changing, deleting)
// and recordset.cpp (the public calls).
#include "store/recordset.h"

#include "store/source_plan.h"

#include <QHash>
#include <QSet>
#include <limits>
#include <optional>
#include <vector>

struct sqlite3;

namespace tesorel
{

enum class ColumnKind;

constexpr qint64 kNoRowid = std::numeric_limits<qint64>::min();

[[noreturn]] void noCurrentRecord();

// Two ways of walking a source. An updatable source without ORDER BY is a
// keyset in rowid order: every move is one indexed query and the position
// is counted only when asked. Any other source steps its statement on
// demand and keeps what it has reached: rowids when it can write back
// (values are read again by rowid), the values themselves when it cannot.
//
// The first step waits for the first call that needs a row: a source that
// is opened only to be filtered and opened again never runs its statement.
struct Recordset::Impl {
    std::shared_ptr<Database> db;
    sqlite3 *h = nullptr;
    SourcePlan plan;
    sqlite3_stmt *stmt = nullptr; // forward statement; rowid first when updatable
    int offset = 0;               // columns before the fields (the rowid)
    QStringList names;
    QStringList origins; // the table column behind each field, empty if none
    std::vector<ColumnKind> kinds;
    QHash<QString, int> byName; // lower-case name -> first field with it
    bool started = false;       // the first step has been taken

    enum class Where { OnRow, BeforeFirst, AfterLast, Deleted };
    Where where = Where::BeforeFirst;
    bool bof = true, eof = true;
    QVector<QVariant> current;
    qint64 rowid = kNoRowid;

    // Keyset walk.
    mutable std::optional<long> position;
    bool stmtOnCurrent = false;
    bool lastReached = false;
    long reached = 0;

    // Sequential walk.
    long index = -1;
    std::vector<qint64> rowids;
    std::vector<QVector<QVariant>> rows;
    bool exhausted = false;
    long headIndex = -1; // which reached row the statement is on
    QSet<qint64> added;  // rows added here before the statement ended

    enum class Editing { None, Adding, Changing };
    Editing editing = Editing::None;
    QHash<int, QVariant> buffer;
    bool noMatch = false;
    QString filter;
    mutable QString rowSql; // the statement that reads a row again by rowid

    // The values of rows the sequential walk went past, while the base is
    // unchanged (see remember()).
    static constexpr int kRememberedRows = 100000;
    QHash<qint64, QVector<QVariant>> rememberedRows;
    qint64 rememberedStamp = -1;

    bool keyset() const { return plan.rowidOrder(); }

    // recordset_walk.cpp
    void open();
    void start();
    void setEmpty();
    void step(sqlite3_stmt *s, int *rc) const;
    QVector<QVariant> readFields(sqlite3_stmt *s, int first) const;
    QVector<QVariant> readRow(qint64 id) const;
    qint64 singleRowid(const QString &sql, qint64 a, std::optional<qint64> b = std::nullopt) const;
    bool startKeyset(qint64 after);
    bool stepKeyset();
    void land(std::optional<long> pos);
    void landOnRowid(qint64 id, std::optional<long> pos);
    long keysetPosition() const;
    long keysetCount() const;
    void keysetMove(long rows);
    bool fetchUpTo(long wanted);
    size_t reachedRows() const { return plan.updatable() ? rowids.size() : rows.size(); }
    void landSequential(long at);
    bool rememberedValid();
    void remember(qint64 id);
    QVector<QVariant> remembered(qint64 id);
    void sequentialGo(long at);
    void pastEnd();
    void beforeStart();
    long recordCount();
    void requireRow() const;
    int fieldIndex(const QString &name) const;
    void checkIndex(int i) const;

    // recordset_find.cpp
    bool matches(const QString &criteria, qint64 id, const QVector<QVariant> &values);
    void find(const QString &criteria, bool forward, bool fromEnd);
    void findOrThrow(const QString &criteria, bool forward, bool fromEnd);

    // recordset_edit.cpp
    void requireUpdatable() const;
    void update();
    void remove();
};

} // namespace tesorel
