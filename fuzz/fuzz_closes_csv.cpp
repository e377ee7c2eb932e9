// The closes file of the web sources: any bytes give the rows of the day
// up to the first bad line, never a crash or a hang.
#include "import/cierres_csv.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const tesorel::LecturaCierres r = tesorel::leerCierres(bytes, QDate(2024, 3, 5));
    // Each row is one line of the file: never more rows than line ends plus one.
    if (r.filas.size() > std::size_t(bytes.count('\r')) + 1)
        __builtin_trap();
    for (const auto &f : r.filas) {
        if (f.ticker != f.ticker.trimmed())
            __builtin_trap();
    }
    return 0;
}
