// Any text as a message, and its body through the attachment reading: a
// failure is "Invalid message format" and nothing else; a name that would
// leave mail/ is never taken as safe.
#include "core/texto_1252.h"
#include "import/cmessage.h"
#include "import/mail_harvest.h"

#include <cstdint>
#include <cstdlib>

using namespace tesorel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString texto = desde1252(QByteArrayView(reinterpret_cast<const char *>(data), qsizetype(size)));
    CMessage m;
    try {
        m.CreateFromText(texto);
    } catch (const ErrorDeObjeto &e) {
        if (e.number() != CMessage::ErrorFormato)
            std::abort();
        return 0;
    }
    if (m.Headers.size() + m.MessageBody.size() + 4 != m.MessageText.size())
        std::abort();
    const Adjunto a = leerAdjunto(lineasDeTexto(m.MessageBody));
    if (nombreSeguro(a.nombre) && (a.nombre.contains(u'/') || a.nombre.contains(u'\\') || a.nombre == ".."))
        std::abort();
    if (a1252(desde1252(QByteArrayView(reinterpret_cast<const char *>(data), qsizetype(size)))) !=
        QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)))
        std::abort();
    return 0;
}
