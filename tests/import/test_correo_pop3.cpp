#include <gtest/gtest.h>

#include "import/import_correo.h"
#include "import/winsock.h"
#include "import_fixture.h"
#include "pop3_pares.h"

namespace tesorel::testing
{
namespace
{
using namespace correo;

class CorreoPop3 : public ImportFixture
{
  protected:
    CorreoPop3()
    {
        aplicacionDePrueba();
        QDir(carpeta()).mkpath("mail");
    }
    std::unique_ptr<ImportCorreo> ventana(const QString &host)
    {
        auto v = std::make_unique<ImportCorreo>(s, crearWinsockTcp());
        v->txtHost = host;
        v->txtUserName = "demo";
        v->txtPassword = "secreto";
        return v;
    }
    // Starts and waits until the session ends or fails.
    bool correr(ImportCorreo &v, int ms = 15000)
    {
        v.cmdCheckMail_Click();
        return esperarA([&] { return v.detenido(); }, ms);
    }
    QByteArray archivo(const QString &nombre) const { return leer(carpeta() + "/mail/" + nombre); }
};

TEST_F(CorreoPop3, RespuestaNegativaEnCadaEstado)
{
    struct Caso {
        const char *orden; // the command refused; "" the greeting
        int estado;
    };
    for (const Caso c : {Caso{"", 0}, {"USER", 1}, {"PASS", 2}, {"STAT", 3}, {"QUIT", 6}}) {
        ui.messages.clear();
        PeerPop3 peer({mensajeConAdjunto("\"Tesorel\"", "231124.txt", "x")});
        if (!*c.orden)
            peer.saludo = "-ERR busy\r\n";
        peer.responder = [&peer, c](const QByteArray &l) {
            if (*c.orden && l.startsWith(c.orden))
                return PeerPop3::Respuesta{{"-ERR nope\r\n"}};
            return peer.comoBuzon(l);
        };
        auto v = ventana(peer.host());
        ASSERT_TRUE(correr(*v)) << c.orden;
        EXPECT_EQ(v->estado(), c.estado) << c.orden;
        EXPECT_FALSE(v->Descargado) << c.orden;
        EXPECT_TRUE(v->espere) << c.orden;
        ASSERT_EQ(ui.messages.size(), 1u) << c.orden;
        EXPECT_EQ(ui.messages[0].prompt,
                  *c.orden ? "POP3 Error: -ERR nope\r\n" : "POP3 Error: -ERR busy\r\n");
        EXPECT_EQ(ui.messages[0].style, mb::Exclamation);
    }
    EXPECT_TRUE(enMail().isEmpty());

    ui.messages.clear(); // an empty mailbox is no error
    PeerPop3 vacio;
    auto v = ventana(vacio.host());
    ASSERT_TRUE(correr(*v));
    EXPECT_TRUE(v->Descargado);
    EXPECT_EQ(mensajes(), QStringList({"You have not mail."}));
    EXPECT_EQ(ui.messages[0].style, mb::Information);
}

TEST_F(CorreoPop3, MensajeEnPaquetesYLineaConGuion)
{
    const QByteArray dia = ".5 keeps the doubled point\r\n" + QByteArray("-5;1\r\n").repeated(200);
    const QByteArray m = mensajeConAdjunto("\"Tesorel\"", "231124.txt", dia);
    for (int trozo : {0, 1000, 97}) {
        PeerPop3 peer({m, "Subject: sin linea vacia", m});
        peer.trozo = trozo;
        errores.clear();
        auto v = ventana(peer.host());
        ASSERT_TRUE(correr(*v, 30000)) << trozo;
        EXPECT_TRUE(v->Descargado) << trozo;
        ASSERT_EQ(v->mensajes().Count(), 3) << trozo;
        EXPECT_EQ(v->mensajes().Item(1)->Size(), m.size() + 1) << trozo;    // the doubled point
        EXPECT_TRUE(v->mensajes().Item(2)->MessageText.isEmpty()) << trozo; // "Invalid message format"
        EXPECT_EQ(errores, QList<int>({CMessage::ErrorFormato})) << trozo;
        EXPECT_EQ(archivo("231124.txt"), "." + dia + "\r\n") << trozo;
        EXPECT_EQ(peer.recibidos, QList<QByteArray>({"USER demo", "PASS secreto", "STAT", "RETR 1", "RETR 2",
                                                     "RETR 3", "QUIT"}));
    }
    // A packet that begins with "-" while retrieving is message text.
    PeerPop3 peer;
    peer.responder = [&peer](const QByteArray &l) {
        if (l.startsWith("STAT"))
            return PeerPop3::Respuesta{{"+OK 1 40\r\n"}};
        if (l.startsWith("RETR"))
            return PeerPop3::Respuesta{{"+OK\r\nSubject: s\r\n\r\n", "-ERR looking line\r\n", ".\r\n"}};
        return peer.comoBuzon(l);
    };
    auto v = ventana(peer.host());
    ASSERT_TRUE(correr(*v));
    ASSERT_EQ(v->mensajes().Count(), 1);
    EXPECT_EQ(v->mensajes().Item(1)->MessageBody, "-ERR looking line\r\n");
    EXPECT_TRUE(mensajes().isEmpty());
}

TEST_F(CorreoPop3, SilenciosYCortes)
{
    // A reply that never comes, and a refused RETR that is taken as text: the
    // window waits, and "cerrar" closes it.
    struct Silencio {
        const char *orden;
        QByteArray respuesta;
        int estado;
    };
    for (const Silencio &c : {Silencio{"STAT", "", 3}, {"RETR", "-ERR no such message\r\n", 4}}) {
        PeerPop3 peer({mensajeConAdjunto("\"Tesorel\"", "231124.txt", "x")});
        peer.responder = [&peer, c](const QByteArray &l) {
            if (l.startsWith(c.orden))
                return c.respuesta.isEmpty() ? PeerPop3::Respuesta{} : PeerPop3::Respuesta{{c.respuesta}};
            return peer.comoBuzon(l);
        };
        auto v = ventana(peer.host());
        v->cmdCheckMail_Click();
        ASSERT_TRUE(esperarA(
            [&] { return peer.recibidos.contains(QByteArray(c.orden) + (c.estado == 4 ? " 1" : "")); }));
        dejarCorrer(200);
        EXPECT_EQ(v->estado(), c.estado) << c.orden;
        EXPECT_FALSE(v->detenido()) << c.orden;
        v->cerrar_Click();
        EXPECT_TRUE(v->Descargado);
        EXPECT_TRUE(mensajes().isEmpty()) << mensajes().join('|').toStdString();
    }

    // The server hangs up in the middle of a message.
    PeerPop3 peer;
    peer.responder = [&peer](const QByteArray &l) {
        if (l.startsWith("STAT"))
            return PeerPop3::Respuesta{{"+OK 1 400\r\n"}};
        if (l.startsWith("RETR"))
            return PeerPop3::Respuesta{{"+OK\r\nSubject: s\r\n\r\nhalf a mess"}, true};
        return peer.comoBuzon(l);
    };
    auto v = ventana(peer.host());
    ASSERT_TRUE(correr(*v));
    EXPECT_EQ(
        mensajes(),
        QStringList({"Winsock Error: #10053\r\nConnection is aborted due to timeout or other failure"}));
    EXPECT_FALSE(v->Descargado);

    // Nobody listens.
    ui.messages.clear();
    auto cerrado = ventana(QStringLiteral("127.0.0.1:%1").arg(puertoLibre()));
    ASSERT_TRUE(correr(*cerrado));
    EXPECT_EQ(mensajes(), QStringList({"Winsock Error: #10061\r\nConnection is forcefully rejected"}));
}

TEST_F(CorreoPop3, CamposNulosYDatosDelUsuario)
{
    Query(
        db(),
        "insert into Usuario (clave, NOMBRE, Direccion, CodigoPost) values (1, 'demo', 'pop.example', 'yo')")
        .exec();
    ImportCorreo v(s, crearWinsockTcp());
    v.Form_Load();
    EXPECT_EQ(v.txtHost, "pop.example");
    EXPECT_EQ(v.txtUserName, "yo");
    EXPECT_EQ(v.txtPassword, "");
    struct Caso {
        QString host, usuario, clave, mensaje;
    };
    const Caso casos[] = {{"", "u", "p", "txtHost No puede ser nulo"},
                          {"h", "", "", "txtUserName No puede ser nulo"},
                          {"h", "u", "", "txtPassword No puede ser nulo"}};
    for (const Caso &c : casos) {
        ui.messages.clear();
        v.txtHost = c.host;
        v.txtUserName = c.usuario;
        v.txtPassword = c.clave;
        v.txtPassword_KeyPress(13);
        ASSERT_EQ(mensajes(), QStringList({c.mensaje}));
        EXPECT_EQ(ui.messages[0].style, mb::Critical);
        EXPECT_FALSE(v.espere);
        EXPECT_EQ(v.MousePointer, 0);
    }
}

} // namespace
} // namespace tesorel::testing
