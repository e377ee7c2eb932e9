// A quote text day file of any bytes goes through the whole import into a
// base in memory: never a crash or a hang, and every row it files is a row
// of the day its first line names.
#include "import/importar.h"
#include "store/database.h"
#include "store/query.h"
#include "store/session.h"
#include "store/ui.h"

#include <QDir>
#include <cstddef>
#include <cstdint>

using namespace tesorel;

namespace
{
struct Entorno {
    ScriptedUi ui;
    Session s{ui, QDir::tempPath()};
    Entorno()
    {
        s.Base_Datos = Database::create(":memory:");
        s.Base_Datos->executeNative(
            "CREATE TABLE Codigo_Empresas (Codigo INTEGER PRIMARY KEY, NOMBRE TEXT COLLATE NOCASE,"
            " ABREVIATURA3 TEXT COLLATE NOCASE, ABREVIATURA11 TEXT COLLATE NOCASE, Invertia TEXT COLLATE "
            "NOCASE);"
            "CREATE TABLE bolsa (VALOR INTEGER, FECHA DATE, ANTERIOR DOUBLE, ULTIMO DOUBLE, DIF DOUBLE,"
            " VOLUMEN DOUBLE, MAXIMO DOUBLE, MINIMO DOUBLE, EFECT DOUBLE);"
            "INSERT INTO Codigo_Empresas VALUES (1, 'TELEFONICA', 'TEF', 'TELEFONICA', NULL);");
        s.Usuario_Numero = 1;
    }
};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static Entorno e;
    e.s.Base_Datos->executeNative("DELETE FROM bolsa; DELETE FROM Codigo_Empresas WHERE Codigo > 1;");
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    Importar m(e.s);
    m.Sobre = size % 2;
    try {
        m.importarTexto(bytes);
    } catch (const std::exception &) {
        // A failure ends the file, as it does in a folder's pass.
    }
    Query dias(*e.s.Base_Datos, "select count(distinct FECHA) from bolsa");
    if (dias.next() && dias.number(0) > 1)
        __builtin_trap();
    return 0;
}
