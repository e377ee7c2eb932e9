// The news page's repair and parser, and the scanner, on any bytes.
#include "online/noticias.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray pagina(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const QByteArray reparada = tesorel::Reparar_Fines_De_Linea(pagina);
    // After the repair every line ends in CR LF, and no CR or LF stands alone.
    for (qsizetype i = 0; i < reparada.size(); ++i) {
        const bool cr = reparada.at(i) == '\r', lf = reparada.at(i) == '\n';
        if ((cr && (i + 1 >= reparada.size() || reparada.at(i + 1) != '\n')) ||
            (lf && (i == 0 || reparada.at(i - 1) != '\r')))
            __builtin_trap();
    }
    QStringList titulares, enlaces;
    tesorel::obtenernoticias(tesorel::Lineas_Del_Archivo(reparada), titulares, enlaces);
    if (titulares.size() != enlaces.size())
        __builtin_trap();

    if (size >= 2) {
        const QString texto = QString::fromLatin1(pagina.mid(2));
        QString resto = QStringLiteral("=");
        const QString dentro = tesorel::obtener_desde_hasta(texto, QChar(data[0]), QChar(data[1]), resto);
        if (dentro.size() > texto.size() || (resto != QStringLiteral("=") && !texto.endsWith(resto)))
            __builtin_trap();
    }
    return 0;
}
