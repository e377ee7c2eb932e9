#pragma once
// Inside the store only: the engine's connection behind a Database, for the
// statements, the recordsets and the builder of a new base. Nothing outside
// src/store/ includes this header.
#include "store/database.h"

namespace tesorel
{

sqlite3 *conexionDe(const Database &db);

} // namespace tesorel
