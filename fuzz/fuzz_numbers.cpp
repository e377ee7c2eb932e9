// Both number readers on any text, and the written forms read back.
#include "core/numbers.h"
#include "core/runtime_error.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

using namespace tesorel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));

    const double val = Numero_Val(text);
    const double guarded = Numero_Cdbl(text);
    bool strictOk = true;
    double strict = 0;
    try {
        strict = CDbl(text);
    } catch (const RuntimeError &) {
        strictOk = false;
    }
    if (IsNumeric(text) != strictOk)
        std::abort();
    if (strictOk && guarded != strict && !(std::isnan(guarded) && std::isnan(strict)))
        std::abort();
    if (!strictOk && guarded != 0)
        std::abort();
    (void)val;

    // Any finite double: its texts read back as the same 15 significant digits.
    if (size >= sizeof(double)) {
        double x;
        std::memcpy(&x, data, sizeof x);
        // At the top of the range the 15 digits round past the largest double
        // and the text no longer reads back (an overflow, as it always was).
        if (std::isfinite(x) && std::fabs(x) < 1.7976931348623e308) {
            const QString s = Str(x);
            const QString c = CStr(x);
            const double viaVal = Numero_Val(s);
            const double viaCDbl = CDbl(c);
            if (viaVal != viaCDbl)
                std::abort();
            // at most a rounding of the 15th digit apart, or underflow at the bottom of the range
            if (std::fabs(x) > 1e-300 && std::fabs(viaCDbl - x) > std::fabs(x) * 1e-14)
                std::abort();
            if (std::fabs(x) > 1e-300 && (Str(viaVal) != s || CStr(viaCDbl) != c))
                std::abort();
        }
    }
    return 0;
}
