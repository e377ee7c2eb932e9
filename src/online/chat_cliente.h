#pragma once
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

#include "online/ajustes_online.h"

class QTcpSocket;

namespace tesorel
{

class Session;

// The chat panel of the main window without its widgets: the login block,
// the transcript, the users present and the entry line, over one TCP
// connection to the club's chat server. No chat text is stored anywhere.
class ClienteChat
{
  public:
    static const QString Texto_Inicial;  // the transcript before any connection
    static const QString Label3_Caption; // the heading of the panel
    static const QString Falta_Nick, Sin_Internet, Nick_En_Uso, Desconectado;

    // `version` gives the caption of the main window's Version label, which
    // answers a "ver" frame.
    ClienteChat(Session &s, AjustesOnline ajustes, std::function<QString()> version);
    ~ClienteChat();
    ClienteChat(const ClienteChat &) = delete;
    ClienteChat &operator=(const ClienteChat &) = delete;

    // Controls, by name.
    QString Nickchat, EmailChat, PaswordChat; // the last two are not sent
    QString Chat = Texto_Inicial;             // the transcript
    QStringList UsuariosChat;
    QString Charla;          // the entry line
    int Charla_SelStart = 0; // its cursor
    bool EntradaChat_Visible = true;
    QString foco;        // the control that should take the focus, once
    QString ultimaLinea; // the one line the up arrow brings back

    // Told after a socket event changed the controls, so the form repaints.
    std::function<void()> alCambiar;

    // Events of the panel.
    void EntrarAlChat_Click();
    void Nickchat_Enter();
    void Charla_Enter();
    void Charla_Arriba();

    // One frame from the server without its separator.
    void procesarCHAT(const QString &mensaje);

    // Events of the socket (the connection calls them; public for tests).
    void Winsock1_Connect();
    void Winsock1_DataArrival(const QByteArray &buffer);
    void Winsock1_Close();

    bool conectado() const;

  private:
    void anadirLinea(const QString &texto);
    bool enviar(const QString &texto);
    void cerrarPorRechazo();
    void avisar();

    Session &s_;
    AjustesOnline ajustes_;
    std::function<QString()> version_;
    std::unique_ptr<QTcpSocket> Winsock1_;
    bool cerrandoAqui_ = false; // a close of our own: the socket's signal is not the server's
};

} // namespace tesorel
