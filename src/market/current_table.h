#pragma once

namespace tesorel
{

class Recordset;
class Session;

// The session's work recordset; one that was never opened is a run-time
// failure (91), as using an unset object always was.
Recordset &tablaActual(Session &s);

} // namespace tesorel
