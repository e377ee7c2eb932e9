#include "online/texto_1252.h"

namespace tesorel
{

QString Texto_De_1252(const QByteArray &bytes)
{
    // 0x80-0x9F are where the code page differs from Latin-1; the unused places stay as they are.
    static const char16_t alto[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                      0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    QString texto(bytes.size(), Qt::Uninitialized);
    QChar *d = texto.data();
    for (char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        *d++ = QChar(b >= 0x80 && b < 0xA0 ? alto[b - 0x80] : char16_t(b));
    }
    return texto;
}

} // namespace tesorel
