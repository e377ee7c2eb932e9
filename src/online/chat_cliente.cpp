#include "online/chat_cliente.h"

#include <QTcpSocket>

#include "online/chat_tramas.h"
#include "store/session.h"
#include "store/ui.h"

namespace tesorel
{

const QString ClienteChat::Texto_Inicial = QStringLiteral("Sin Conexión ...");
const QString ClienteChat::Label3_Caption = QStringLiteral("   Charla      [ v.0126 ]     ");
const QString ClienteChat::Falta_Nick = QStringLiteral("Debe especificar un Nick");
const QString ClienteChat::Sin_Internet =
    QStringLiteral("No se detecta conexión a internet, no es posible acceder a esta opción");
const QString ClienteChat::Nick_En_Uso = QStringLiteral("Conexión rechazada. Nombre de usuario en uso");
const QString ClienteChat::Desconectado = QStringLiteral("Desconectado");

namespace
{
const QString kCrLf = QStringLiteral("\r\n");
}

ClienteChat::ClienteChat(Session &s, AjustesOnline ajustes, std::function<QString()> version)
    : s_(s), ajustes_(std::move(ajustes)), version_(std::move(version)),
      Winsock1_(std::make_unique<QTcpSocket>())
{
    QTcpSocket *w = Winsock1_.get();
    // Events of the socket arrive on the interface thread; none may throw out of Qt.
    QObject::connect(w, &QTcpSocket::connected, w, [this] {
        s_.paso([&] { Winsock1_Connect(); });
        avisar();
    });
    QObject::connect(w, &QTcpSocket::readyRead, w, [this] {
        s_.paso([&] { Winsock1_DataArrival(Winsock1_->readAll()); });
        avisar();
    });
    QObject::connect(w, &QTcpSocket::disconnected, w, [this] {
        if (cerrandoAqui_)
            return;
        s_.paso([&] { Winsock1_Close(); });
        avisar();
    });
    // A failed connection gives no message, and errors of the socket have no handler.
}

ClienteChat::~ClienteChat()
{
    QObject::disconnect(Winsock1_.get(), nullptr, nullptr, nullptr);
    Winsock1_->abort();
}

bool ClienteChat::conectado() const
{
    return Winsock1_->state() == QAbstractSocket::ConnectedState;
}

void ClienteChat::avisar()
{
    if (alCambiar)
        alCambiar();
}

void ClienteChat::EntrarAlChat_Click()
{
    if (!s_.Hay_Conexion) {
        s_.ui.MsgBox(Sin_Internet, mb::Exclamation, QStringLiteral("Atención"));
        return;
    }
    if (Nickchat.trimmed().isEmpty()) {
        s_.ui.MsgBox(Falta_Nick, mb::Exclamation, QStringLiteral("Atención"));
        return;
    }
    // A connect on a socket that is not closed fails, and the handler ignores it.
    if (Winsock1_->state() != QAbstractSocket::UnconnectedState)
        return;
    Winsock1_->connectToHost(ajustes_.hostChat, ajustes_.puertoChat);
}

void ClienteChat::Nickchat_Enter()
{
    foco = QStringLiteral("EmailChat");
}

void ClienteChat::Winsock1_Connect()
{
    Winsock1_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    enviar(QStringLiteral("nik") + Nickchat);
    Chat.clear();
    EntradaChat_Visible = false;
    foco = QStringLiteral("Charla");
}

void ClienteChat::Winsock1_DataArrival(const QByteArray &buffer)
{
    for (const QString &pieza : Partir_Buffer_Chat(buffer))
        procesarCHAT(pieza);
}

void ClienteChat::Winsock1_Close()
{
    Chat += QStringLiteral("\r\r") + Desconectado;
    UsuariosChat.clear();
    EntradaChat_Visible = true;
}

void ClienteChat::procesarCHAT(const QString &mensaje)
{
    if (mensaje.size() < 3)
        return;
    const QString orden = mensaje.left(3).toLower();
    const QString carga = mensaje.mid(3);
    if (orden == QLatin1String("nok")) {
        s_.ui.DoEvents();
        anadirLinea(Nick_En_Uso);
        cerrarPorRechazo();
    } else if (orden == QLatin1String("ver")) {
        enviar(QStringLiteral("ver") + (version_ ? version_() : QString()));
    } else if (orden == QLatin1String("spl")) {
        enviar(QStringLiteral("spl") + QChar(0xA0));
    } else if (orden == QLatin1String("ni+")) {
        UsuariosChat << carga;
    } else if (orden == QLatin1String("ni-")) {
        if (carga.isEmpty())
            return;
        // Down the list by index, as it shrinks under the walk: an entry that
        // moves into a place already visited stays.
        const qsizetype cuantos = UsuariosChat.size();
        for (qsizetype i = 0; i < cuantos; ++i)
            if (i < UsuariosChat.size() && UsuariosChat.at(i) == carga)
                UsuariosChat.removeAt(i);
    } else if (orden == QLatin1String("say")) {
        s_.ui.DoEvents();
        anadirLinea(carga);
    }
    // "nik", "cls" and every other word: nothing.
}

void ClienteChat::cerrarPorRechazo()
{
    cerrandoAqui_ = true;
    Winsock1_->abort();
    cerrandoAqui_ = false;
    Winsock1_Close();
}

void ClienteChat::Charla_Enter()
{
    // A send on a closed socket fails: the handling ends and the text stays.
    if (!enviar(QStringLiteral("say<") + Nickchat + QStringLiteral("> ") + Charla))
        return;
    anadirLinea(QLatin1Char('<') + Nickchat + QStringLiteral("> ") + Charla);
    ultimaLinea = Charla;
    Charla.clear();
    Charla_SelStart = 0;
}

void ClienteChat::Charla_Arriba()
{
    if (!Charla.isEmpty())
        return;
    Charla = ultimaLinea;
    Charla_SelStart = static_cast<int>(Charla.size());
}

void ClienteChat::anadirLinea(const QString &texto)
{
    Chat += kCrLf + texto;
}

bool ClienteChat::enviar(const QString &texto)
{
    if (!conectado())
        return false;
    return Winsock1_->write(Texto_A_Chat(texto)) >= 0;
}

} // namespace tesorel
