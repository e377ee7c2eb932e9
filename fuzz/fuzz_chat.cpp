// The chat client's reading of a socket buffer: any bytes, cut anywhere,
// give pieces and frames that never crash the panel's model.
#include "online/chat_cliente.h"
#include "online/chat_tramas.h"
#include "store/session.h"
#include "store/ui.h"

#include <QCoreApplication>
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static int argc = 1;
    static char nombre[] = "fuzz_chat";
    static char *argv[] = {nombre, nullptr};
    static QCoreApplication app(argc, argv);
    static tesorel::ScriptedUi ui;
    static tesorel::Session s(ui, QStringLiteral("."));
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));

    const QStringList piezas = tesorel::Partir_Buffer_Chat(bytes);
    if (piezas.size() > tesorel::kMaximoPiezasChat)
        __builtin_trap();
    for (const QString &p : piezas)
        if (p.isEmpty() || p.contains(QChar(0xA0)))
            __builtin_trap();

    // The first byte cuts the buffer in two reads, as the transport may.
    tesorel::ClienteChat chat(s, {}, [] { return QStringLiteral("v"); });
    chat.UsuariosChat = QStringList{"a", "a", "b"};
    const qsizetype corte = size ? qsizetype(data[0]) % (bytes.size() + 1) : 0;
    const qsizetype antes = chat.Chat.size();
    chat.Winsock1_DataArrival(bytes.left(corte));
    chat.Winsock1_DataArrival(bytes.mid(corte));
    // Two reads of at most 101 frames each: one user or one line per frame at most.
    if (chat.UsuariosChat.size() > 3 + 2 * tesorel::kMaximoPiezasChat)
        __builtin_trap();
    if (chat.Chat.size() < antes && !chat.Chat.isEmpty())
        __builtin_trap();
    return 0;
}
