// Any text given to the translator either becomes SQL or fails with a
// RuntimeError: never a crash or a hang.
#include "core/runtime_error.h"
#include "store/jet_sql.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
    try {
        tesorel::jet::translate(text);
    } catch (const tesorel::RuntimeError &) {
    }
    try {
        tesorel::jet::translateCriteria(text);
    } catch (const tesorel::RuntimeError &) {
    }
    const qsizetype half = text.size() / 2;
    tesorel::jet::likeMatch(text.left(half), text.mid(half));
    return 0;
}
