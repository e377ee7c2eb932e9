#include "import/import_correo.h"

#include "core/int16.h"
#include "core/numbers.h"
#include "import/mail_harvest.h"
#include "import/winsock.h"
#include "store/session.h"
#include "store/ui.h"
#include "store/usuario.h"

namespace tesorel
{

namespace
{
constexpr int kPuertoPop = 110;
constexpr int kRelojDeArena = 11;

RuntimeError llamadaNoValida()
{
    return RuntimeError(err::InvalidCall, QStringLiteral("Argumento o llamada a procedimiento no válida"));
}
} // namespace

ImportCorreo::ImportCorreo(Session &s, std::unique_ptr<Winsock> socket) : s_(s), Winsock1_(std::move(socket))
{
    Winsock1_->alLlegarDatos = [this](const QString &datos) { Winsock1_DataArrival(datos); };
    Winsock1_->alFallar = [this](int numero, const QString &descripcion) {
        Winsock1_Error(numero, descripcion);
    };
    Winsock1_->alCerrar = [this] { Winsock1_Close(); };
}

ImportCorreo::~ImportCorreo()
{
    Winsock1_->alLlegarDatos = nullptr;
    Winsock1_->alFallar = nullptr;
    Winsock1_->alCerrar = nullptr;
}

void ImportCorreo::Form_Load()
{
    s_.paso([&] {
        Usuario propio(s_);
        Usuario &u = s_.Usuario_Sesion ? *s_.Usuario_Sesion : propio;
        u.Update();
        txtHost = u.Pop();
        txtUserName = u.UsuarioPop();
    });
    cambiado();
}

void ImportCorreo::cmdCheckMail_Click()
{
    MousePointer = kRelojDeArena;
    espere = true;
    detenido_ = false;
    const std::pair<const char *, const QString *> cajas[] = {
        {"txtHost", &txtHost}, {"txtUserName", &txtUserName}, {"txtPassword", &txtPassword}};
    for (const auto &[nombre, texto] : cajas) {
        if (!texto->isEmpty())
            continue;
        s_.ui.MsgBox(QString::fromLatin1(nombre) + QStringLiteral(" No puede ser nulo"), mb::Critical);
        MousePointer = 0;
        espere = false;
        detenido_ = true;
        cambiado();
        return;
    }
    estado_ = Conectado;
    texto_.clear();
    if (Winsock1_->abierto())
        Winsock1_->Close();
    QString host;
    int puerto = kPuertoPop;
    separarHostPuerto(txtHost, host, puerto);
    Winsock1_->Connect(host, puerto);
    cambiado();
}

void ImportCorreo::txtPassword_KeyPress(int KeyAscii)
{
    if (KeyAscii == 13)
        cmdCheckMail_Click();
}

void ImportCorreo::cerrar_Click()
{
    Winsock1_->Close();
    Descargado = true;
    cambiado();
}

void ImportCorreo::enviar(const QString &comando)
{
    Winsock1_->SendData(comando + QStringLiteral("\r\n"));
}

void ImportCorreo::Winsock1_DataArrival(const QString &datos)
{
    if (estado_ != Recuperando && !datos.startsWith(u'+')) {
        Winsock1_->Close();
        detenido_ = true;
        s_.ui.MsgBox(QStringLiteral("POP3 Error: ") + datos, mb::Exclamation, QStringLiteral("POP3 Error"));
        cambiado();
        return;
    }
    switch (estado_) {
    case Conectado:
        cuenta_ = 0;
        estado_ = UsuarioEnviado;
        enviar(QStringLiteral("USER ") + txtUserName);
        break;
    case UsuarioEnviado:
        estado_ = ClaveEnviada;
        enviar(QStringLiteral("PASS ") + txtPassword);
        break;
    case ClaveEnviada:
        estado_ = StatEnviado;
        enviar(QStringLiteral("STAT"));
        break;
    case StatEnviado:
        s_.paso([&] {
            const qsizetype blanco = datos.indexOf(u' ', 4);
            if (blanco < 0)
                throw llamadaNoValida();
            cuenta_ = CLng(Numero_Val(datos.mid(4, blanco - 4)));
        });
        if (cuenta_ < 1) {
            estado_ = QuitEnviado;
            enviar(QStringLiteral("QUIT"));
            s_.ui.MsgBox(QStringLiteral("You have not mail."), mb::Information);
        } else {
            estado_ = Recuperando;
            actual_ = 1;
            enviar(QStringLiteral("RETR 1"));
        }
        break;
    case Recuperando:
        texto_ += datos;
        // A chunk may begin with anything; the message is whole at its terminator.
        if (texto_.contains(QLatin1String("\n.\r\n")))
            mensajeCompleto();
        break;
    case QuitEnviado:
        Winsock1_->Close();
        Cosechar(s_, mensajes_, [this](const QString &asunto) {
            correo = asunto;
            cambiado();
            s_.ui.DoEvents();
        });
        detenido_ = true;
        Descargado = true;
        break;
    default:
        break;
    }
    cambiado();
}

void ImportCorreo::mensajeCompleto()
{
    // Without the server's first line and the terminator's ". CR LF"; lines
    // that begin with a point keep the point the server doubled.
    texto_ = texto_.mid(texto_.indexOf(QLatin1String("\r\n")) + 2);
    s_.paso([&] {
        if (texto_.size() < 3)
            throw llamadaNoValida();
        texto_.chop(3);
    });
    mensaje_ = std::make_shared<CMessage>();
    s_.paso([&] { mensaje_->CreateFromText(texto_); });
    mensajes_.Add(mensaje_, mensaje_->MessageID);
    texto_.clear();
    if (actual_ == cuenta_) {
        estado_ = QuitEnviado;
        enviar(QStringLiteral("QUIT"));
    } else {
        ++actual_;
        enviar(QStringLiteral("RETR ") + QString::number(actual_));
    }
}

void ImportCorreo::Winsock1_Error(int numero, const QString &descripcion)
{
    detenido_ = true;
    s_.ui.MsgBox(QStringLiteral("Winsock Error: #") + QString::number(numero) + QStringLiteral("\r\n") +
                     descripcion,
                 mb::OkOnly, QString());
    cambiado();
}

void ImportCorreo::Winsock1_Close()
{
    // The server went away before the session was over: told as the socket
    // control tells an aborted connection, so the person is not left waiting.
    if (Descargado || detenido_)
        return;
    Winsock1_->Close();
    Winsock1_Error(10053, QStringLiteral("Connection is aborted due to timeout or other failure"));
}

void ImportCorreo::cambiado()
{
    if (alCambiar)
        alCambiar();
}

} // namespace tesorel
