#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

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
        aplicacion();
        QDir(carpeta()).mkpath("mail");
        s.alRegistrarError = [this](const RuntimeError &e) { errores << e.number(); };
    }
    std::unique_ptr<ImportCorreo> ventana(const QString &host, const QString &clave = "secreto")
    {
        auto v = std::make_unique<ImportCorreo>(s, crearWinsockTcp());
        v->txtHost = host;
        v->txtUserName = "demo";
        v->txtPassword = clave;
        return v;
    }
    // Starts and waits until the session ends or fails.
    bool correr(ImportCorreo &v, int ms = 15000)
    {
        v.cmdCheckMail_Click();
        return esperarA([&] { return v.detenido(); }, ms);
    }
    QStringList enMail() const
    {
        QStringList l = QDir(carpeta() + "/mail").entryList(QDir::Files, QDir::Name);
        l.removeAll("provisio.tx1");
        return l;
    }
    QByteArray archivo(const QString &nombre) const
    {
        QFile f(carpeta() + "/mail/" + nombre);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<none>");
    }
    QStringList mensajes() const
    {
        QStringList l;
        for (const auto &m : ui.messages)
            l << m.prompt;
        return l;
    }
    QList<int> errores;
};

const QByteArray kDia = "TEF;10,5;10,7\r\n.5 keeps its doubled point\r\n-dash;1";

TEST_F(CorreoPop3, DovecotDejaLosAdjuntosDelEnvioPropio)
{
    DovecotPop3 dovecot;
    dovecot.poner(mensajeConAdjunto("\"Tesorel\" <c@t.example>", "231124.txt", kDia, "<1@t>"));
    dovecot.poner(mensajeConAdjunto("\"Otro\" <o@o.example>", "241124.txt", "OTRO;1", "<2@t>"));
    dovecot.poner(mensajeConAdjunto("\"Tesorel\" <c@t.example>", "251124.txt", "SAN;3", "<1@t>"));
    const QString fallo = dovecot.arrancar();
    ASSERT_TRUE(fallo.isEmpty()) << fallo.toStdString();

    for (int vuelta = 1; vuelta <= 2; ++vuelta) { // nothing is deleted: the second run sees the same
        auto v = ventana(dovecot.host());
        ASSERT_TRUE(correr(*v)) << "vuelta " << vuelta;
        EXPECT_TRUE(v->Descargado);
        EXPECT_EQ(v->mensajes().Count(), 3);
        EXPECT_EQ(v->mensajes().Item(3)->MessageID, "<1@t>");
        EXPECT_EQ(v->correo, "Cotizaciones 251124.txt");
        EXPECT_EQ(enMail(), QStringList({"231124.txt", "251124.txt"}));
        EXPECT_EQ(archivo("231124.txt"), "TEF;10,5;10,7\r\n..5 keeps its doubled point\r\n-dash;1\r\n\r\n");
        EXPECT_EQ(archivo("251124.txt"), "SAN;3\r\n\r\n");
    }
    EXPECT_TRUE(mensajes().isEmpty()) << mensajes().join('|').toStdString();
    EXPECT_TRUE(errores.isEmpty());
}

TEST_F(CorreoPop3, DovecotBuzonVacioYClaveMala)
{
    DovecotPop3 dovecot;
    const QString fallo = dovecot.arrancar();
    ASSERT_TRUE(fallo.isEmpty()) << fallo.toStdString();

    auto vacio = ventana(dovecot.host());
    ASSERT_TRUE(correr(*vacio));
    EXPECT_TRUE(vacio->Descargado);
    EXPECT_EQ(mensajes(), QStringList({"You have not mail."}));
    EXPECT_EQ(ui.messages[0].style, mb::Information);
    EXPECT_TRUE(enMail().isEmpty());

    auto mala = ventana(dovecot.host(), "otra");
    ASSERT_TRUE(correr(*mala));
    EXPECT_FALSE(mala->Descargado);
    ASSERT_EQ(ui.messages.size(), 2u);
    EXPECT_TRUE(ui.messages[1].prompt.startsWith("POP3 Error: -ERR")) << ui.messages[1].prompt.toStdString();
    EXPECT_EQ(ui.messages[1].title, "POP3 Error");
}

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
}

TEST_F(CorreoPop3, MensajeEnPaquetesYLineaConGuion)
{
    const QByteArray m = mensajeConAdjunto("\"Tesorel\"", "231124.txt", QByteArray("-5;1\r\n").repeated(200));
    for (int trozo : {0, 1000, 97}) {
        PeerPop3 peer({m, "Subject: sin linea vacia", m});
        peer.trozo = trozo;
        errores.clear();
        auto v = ventana(peer.host());
        ASSERT_TRUE(correr(*v, 30000)) << trozo;
        EXPECT_TRUE(v->Descargado) << trozo;
        ASSERT_EQ(v->mensajes().Count(), 3) << trozo;
        EXPECT_EQ(v->mensajes().Item(1)->Size(), m.size()) << trozo;
        EXPECT_TRUE(v->mensajes().Item(2)->MessageText.isEmpty()) << trozo; // "Invalid message format"
        EXPECT_EQ(errores, QList<int>({CMessage::ErrorFormato})) << trozo;
        EXPECT_EQ(archivo("231124.txt"), QByteArray("-5;1\r\n").repeated(200) + "\r\n") << trozo;
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
        esperarA([] { return false; }, 200);
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
    for (const Caso &c :
         {Caso{"", "u", "p", "txtHost No puede ser nulo"}, Caso{"h", "", "", "txtUserName No puede ser nulo"},
          Caso{"h", "u", "", "txtPassword No puede ser nulo"}}) {
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
    QString host;
    int puerto = 110;
    separarHostPuerto("127.0.0.1:1110", host, puerto);
    EXPECT_EQ(host + QString::number(puerto), "127.0.0.11110");
}

} // namespace
} // namespace tesorel::testing
