#include "market/current_table.h"

#include "core/runtime_error.h"
#include "store/recordset.h"
#include "store/session.h"

namespace tesorel
{

Recordset &tablaActual(Session &s)
{
    if (!s.Tabla_Actual)
        throw RuntimeError(err::ObjectNotSet,
                           QStringLiteral("Variable de objeto o bloque With no establecido."));
    return *s.Tabla_Actual;
}

} // namespace tesorel
