#include "online/chat_tramas.h"

namespace tesorel
{

QStringList Partir_Buffer_Chat(const QByteArray &buffer)
{
    QStringList piezas;
    qsizetype desde = 0;
    while (piezas.size() < kMaximoPiezasChat && desde <= buffer.size()) {
        qsizetype hasta = buffer.indexOf(kSeparadorChat, desde);
        if (hasta < 0)
            hasta = buffer.size();
        if (hasta == desde)
            break; // the first empty piece ends the read
        piezas << QString::fromLatin1(buffer.constData() + desde, hasta - desde);
        desde = hasta + 1;
    }
    return piezas;
}

QByteArray Texto_A_Chat(const QString &texto)
{
    QByteArray bytes;
    bytes.reserve(texto.size());
    for (QChar c : texto)
        bytes.append(c.unicode() < 256 ? static_cast<char>(c.unicode()) : '?');
    return bytes;
}

} // namespace tesorel
