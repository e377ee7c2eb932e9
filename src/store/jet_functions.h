#pragma once

struct sqlite3;

namespace tesorel
{

// Registers on a connection the functions that translated statements call:
// like() with the dialect's wildcards and no regard to case, and the Jet
// functions UCase, LCase, Len, Left, Right, Mid, Year, Month, Day, Nz, Val.
void registerJetFunctions(sqlite3 *db);

} // namespace tesorel
