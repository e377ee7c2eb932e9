// A dBase table of any bytes (truncated headers, record lengths that disagree
// with the fields, huge field counts, names outside ASCII): opening it and
// reading every field of every row never crashes or hangs.
#include "core/runtime_error.h"
#include "import/archivos_cotizacion.h"

#include <QDir>
#include <QFile>
#include <cstddef>
#include <cstdint>
#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const QString ruta = QDir::tempPath() + QStringLiteral("/fuzz_dbf_%1.dbf").arg(getpid());
    {
        QFile f(ruta);
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return 0;
        f.write(reinterpret_cast<const char *>(data), static_cast<qint64>(size));
    }
    try {
        tesorel::TablaDbf tabla(ruta);
        for (int fila = 0; !tabla.Eof() && fila < 100000; tabla.MoveNext(), ++fila) {
            for (int k = 0; k < tabla.fieldCount(); ++k)
                (void)tabla.field(k);
            for (const char *nombre :
                 {"Valor", "Anterior", "Dif", "Volumen", "Maximo", "minimo", "Efect", "Fecha"}) {
                try {
                    (void)tabla.field(QString::fromLatin1(nombre));
                } catch (const tesorel::RuntimeError &) {
                }
            }
        }
    } catch (const tesorel::RuntimeError &) {
        // Not a table: the pass goes on with the table before.
    }
    return 0;
}
