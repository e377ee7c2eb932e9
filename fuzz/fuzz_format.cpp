// A number and a mask of any text through Format: no crash, no hang.
#include "core/format.h"

#include <QDate>
#include <cmath>
#include <cstdint>
#include <cstring>

using namespace tesorel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < sizeof(double) + sizeof(std::int32_t))
        return 0;
    double value;
    std::memcpy(&value, data, sizeof value);
    std::int32_t day;
    std::memcpy(&day, data + sizeof value, sizeof day);
    data += sizeof value + sizeof day;
    size -= sizeof value + sizeof day;
    // The system's masks are short; a long one only slows the search.
    if (size > 64)
        size = 64;
    const QString mask =
        QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));

    const QString text = Format(value, mask);
    if (std::isfinite(value) && std::fabs(value) < 1e15 && text.size() > 400 + 64 * 4)
        __builtin_trap(); // a text far longer than digits plus mask means a runaway

    const QDate date = QDate(1900, 1, 1).addDays(day % 80000);
    Format(date, mask);
    return 0;
}
