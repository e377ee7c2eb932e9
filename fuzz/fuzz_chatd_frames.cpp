// The chat server's reading of a client: any bytes in any cuts give only
// frames it would accept, or a verdict of garbage.
#include "online/tramas_servidor.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 1)
        return 0;
    // The first byte sets the size of the reads.
    const qsizetype paso = 1 + data[0] % 64;
    const QByteArray bytes(reinterpret_cast<const char *>(data + 1), static_cast<qsizetype>(size - 1));
    tesorel::LectorTramas lector;
    for (qsizetype i = 0; i < bytes.size(); i += paso) {
        std::vector<QByteArray> tramas;
        const auto r = lector.leer(bytes.mid(i, paso), tramas);
        for (const QByteArray &t : tramas) {
            const QByteArray orden = t.left(3).toLower();
            if (t.size() < 3 || t.size() > tesorel::LectorTramas::kTramaMaxima || t.contains('\xA0') ||
                (orden != "nik" && orden != "say" && orden != "ver" && orden != "spl"))
                __builtin_trap();
        }
        if (r == tesorel::LectorTramas::Resultado::Basura)
            break;
    }
    return 0;
}
