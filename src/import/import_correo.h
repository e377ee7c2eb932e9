#pragma once
#include <QString>
#include <functional>
#include <memory>

#include "import/cmessage.h"

namespace tesorel
{

class Session;
class Winsock;

// The mail window: a POP3 session that retrieves every message of the
// account (nothing is deleted on the server), then writes the attachments
// of the system's own mailing into the data folder's mail/.
class ImportCorreo
{
  public:
    enum Estado {
        Conectado = 0,
        UsuarioEnviado = 1,
        ClaveEnviada = 2,
        StatEnviado = 3,
        Recuperando = 4,
        QuitEnviado = 6
    };

    ImportCorreo(Session &s, std::unique_ptr<Winsock> socket);
    ~ImportCorreo();

    static inline const QString Caption = QStringLiteral("Pop Check.");
    static inline const QString AvisoEspere = QStringLiteral("Leyendo correo ...   Espere ....");

    // "host" or "host:port" (110 unless given).
    QString txtHost, txtUserName, txtPassword, txtBody;
    QString correo; // the subject of the message at hand
    bool espere = false;
    int MousePointer = 0; // 11 the hourglass
    bool Descargado = false;

    // Host and user from the user's record; the password is typed each time.
    void Form_Load();
    void cmdCheckMail_Click();
    // Enter (13) starts as the button does.
    void txtPassword_KeyPress(int KeyAscii);
    void cerrar_Click();

    void Winsock1_DataArrival(const QString &datos);
    void Winsock1_Error(int numero, const QString &descripcion);
    void Winsock1_Close();

    int estado() const { return estado_; }
    int cuenta() const { return cuenta_; }
    int actual() const { return actual_; }
    const CMessages &mensajes() const { return mensajes_; }
    // Nothing more will happen until the next start: the session failed or ended.
    bool detenido() const { return detenido_; }

    // Told after every event, so that a form can show the state.
    std::function<void()> alCambiar;

  private:
    void enviar(const QString &comando);
    void mensajeCompleto();
    void cambiado();

    Session &s_;
    std::unique_ptr<Winsock> Winsock1_;
    int estado_ = Conectado;
    int cuenta_ = 0;
    int actual_ = 0;
    QString texto_;
    std::shared_ptr<CMessage> mensaje_;
    CMessages mensajes_;
    bool detenido_ = false;
};

} // namespace tesorel
