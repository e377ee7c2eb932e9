#include "core/texto_1252.h"

#include <array>

namespace tesorel
{

namespace
{
// 0x80..0x9F; 0 where the code page has no character (kept as the byte).
constexpr std::array<char16_t, 32> kAltos{0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                          0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                          0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                          0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char codificar(char16_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return char(c);
    for (int i = 0; i < 32; ++i)
        if (kAltos[size_t(i)] == c || (kAltos[size_t(i)] == 0 && c == 0x80 + i))
            return char(0x80 + i);
    return '?';
}
} // namespace

QString desde1252(QByteArrayView bytes)
{
    QString out(bytes.size(), Qt::Uninitialized);
    char16_t *d = reinterpret_cast<char16_t *>(out.data());
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto b = static_cast<unsigned char>(bytes[i]);
        const char16_t alto = (b >= 0x80 && b < 0xA0) ? kAltos[b - 0x80u] : char16_t(0);
        d[i] = alto ? alto : char16_t(b);
    }
    return out;
}

QByteArray a1252(QStringView text)
{
    QByteArray out(text.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        out[i] = c < 0x80 ? char(c) : codificar(c);
    }
    return out;
}

QStringList lineasDeTexto(const QString &text)
{
    QStringList lineas;
    qsizetype inicio = 0;
    const qsizetype n = text.size();
    for (qsizetype i = 0; i < n; ++i) {
        if (text[i] != u'\r')
            continue;
        lineas << text.mid(inicio, i - inicio);
        if (i + 1 < n && text[i + 1] == u'\n')
            ++i;
        inicio = i + 1;
    }
    if (inicio < n)
        lineas << text.mid(inicio);
    return lineas;
}

} // namespace tesorel
