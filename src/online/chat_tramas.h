#pragma once
#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tesorel
{

// On the chat wire a character is one Latin-1 byte, and Chr(160), the
// no-break blank that ends every frame from the server, is the byte 0xA0.
inline constexpr char kSeparadorChat = '\xA0';
inline constexpr int kMaximoPiezasChat = 101;

// A read of the socket as the client takes it: the whole buffer split at
// the separator, the pieces in order up to 101 of them, stopping at the
// first empty piece. A frame cut in two by the transport comes out as two
// pieces; nothing is kept for the next read.
QStringList Partir_Buffer_Chat(const QByteArray &buffer);

// Text to the wire: Latin-1, a character outside it becomes "?".
QByteArray Texto_A_Chat(const QString &texto);

} // namespace tesorel
