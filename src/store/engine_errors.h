#pragma once
#include "core/runtime_error.h"

#include <QString>

struct sqlite3;
struct sqlite3_stmt;

namespace tesorel
{

// Numbers of the engine's failures that the store raises itself.
namespace err
{
constexpr int NoSuchField = 3265;         // item not found in this collection
constexpr int TableNotFound = 3078;       // input table or query not found
constexpr int TooFewParameters = 3061;    // a name the engine does not know
constexpr int CannotExecuteSelect = 3065; // Execute given a SELECT
constexpr int NoTransaction = 3034;       // commit or rollback without begin
constexpr int NoEditInProgress = 3020;    // Update without AddNew or Edit
constexpr int ReadOnly = 3027;            // the set cannot be updated
constexpr int RecordDeleted = 3167;       // the current row was deleted
constexpr int DuplicateKey = 3022;        // a unique index refused the row
constexpr int InvalidArgument = 3001;
} // namespace err

// The engine's last failure on `db` as the RuntimeError that the rest of the
// system sees. `statement` is the text the caller wrote.
RuntimeError engineError(sqlite3 *db, const QString &statement);

// Prepares SQLite SQL or throws the engine's failure. A statement left with
// parameters (a name the dialect reads as one) is refused unless the store
// itself binds them.
sqlite3_stmt *prepareStatement(sqlite3 *db, const QString &sql, const QString &statement, unsigned flags = 0,
                               bool allowParameters = false);

} // namespace tesorel
