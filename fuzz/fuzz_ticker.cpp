// The ticker file: any bytes give pairs of fields, never a crash.
#include "import/archivos_cotizacion.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const auto registros = tesorel::leerTickers(bytes);
    // Two fields take at least a separator each: never more records than bytes.
    if (registros.size() > size)
        __builtin_trap();
    return 0;
}
