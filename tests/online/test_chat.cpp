// The chat panel's model: against tesorel-chatd, and against a scripted
// peer that sends what a server might, cut where the transport may cut it.
#include <gtest/gtest.h>

#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <memory>

#include "online/chat_cliente.h"
#include "online/chat_tramas.h"
#include "support/esperar.h"
#include "support/test_base.h"

using namespace tesorel;
using namespace tesorel::testing;

namespace
{

struct Puesto : SesionDePrueba {
    std::unique_ptr<ClienteChat> chat;
    Puesto(quint16 puerto, const QString &nick)
    {
        aplicacionDePrueba();
        s.Hay_Conexion = true;
        AjustesOnline a;
        a.puertoChat = puerto;
        chat =
            std::make_unique<ClienteChat>(s, a, [] { return QStringLiteral("Tesorel 2.007 - Revisión 0"); });
        chat->Nickchat = nick;
    }
    void escribir(const QString &linea)
    {
        chat->Charla = linea;
        chat->Charla_Enter();
    }
};

TEST(ConChatd, TwoUsersTalkAndATakenNickIsRefused)
{
    aplicacionDePrueba();
    const quint16 puerto = puertoLibre();
    QProcess chatd; // stopped (killed) with the test if it fails half-way
    chatd.start(TESOREL_CHATD, {"--port", QString::number(puerto)});
    ASSERT_TRUE(chatd.waitForStarted());
    ASSERT_TRUE(esperarPuerto(puerto));
    Puesto ana(puerto, "ana"), bea(puerto, "bea"), otra(puerto, "ANA");
    ana.chat->EntrarAlChat_Click();
    ASSERT_TRUE(esperarA([&] { return ana.chat->UsuariosChat == QStringList{"ana"}; }));
    EXPECT_FALSE(ana.chat->EntradaChat_Visible);
    EXPECT_EQ(ana.chat->foco, "Charla");
    bea.chat->EntrarAlChat_Click();
    ASSERT_TRUE(esperarA([&] { return bea.chat->UsuariosChat == QStringList({"ana", "bea"}); }));
    ASSERT_TRUE(esperarA([&] { return ana.chat->UsuariosChat == QStringList({"ana", "bea"}); }));

    ana.escribir(QStringLiteral("¿qué tal? 5 €"));
    EXPECT_EQ(ana.chat->Chat, QStringLiteral("\r\n<ana> ¿qué tal? 5 €")); // the own echo
    EXPECT_EQ(ana.chat->ultimaLinea, QStringLiteral("¿qué tal? 5 €"));
    EXPECT_TRUE(ana.chat->Charla.isEmpty());
    // Latin-1 on the wire: the euro sign is not in it.
    ASSERT_TRUE(esperarA([&] { return bea.chat->Chat.endsWith(QStringLiteral("\r\n<ana> ¿qué tal? 5 ?")); }));

    otra.chat->EntrarAlChat_Click();
    ASSERT_TRUE(esperarA([&] { return otra.chat->Chat.contains(ClienteChat::Desconectado); }));
    EXPECT_EQ(otra.chat->Chat, "\r\n" + ClienteChat::Nick_En_Uso + "\r\rDesconectado");
    EXPECT_TRUE(otra.chat->EntradaChat_Visible);
    EXPECT_TRUE(otra.chat->UsuariosChat.isEmpty());

    bea.chat.reset(); // leaves
    ASSERT_TRUE(esperarA([&] { return ana.chat->UsuariosChat == QStringList{"ana"}; }));
    EXPECT_FALSE(ana.chat->Chat.contains("Desconectado"));
    chatd.terminate();
    chatd.waitForFinished(3000);
}

// A peer of the test's own: each entry of a script is one write, given
// time to arrive as a read of its own.
class ConPar : public ::testing::Test
{
  protected:
    void SetUp() override
    {
        aplicacionDePrueba();
        ASSERT_TRUE(servidor_.listen(QHostAddress::LocalHost, 0));
        puesto_ = std::make_unique<Puesto>(servidor_.serverPort(), "eva");
        puesto_->chat->EntrarAlChat_Click();
        ASSERT_TRUE(esperarA([&] { return servidor_.hasPendingConnections(); }));
        par_ = servidor_.nextPendingConnection();
        ASSERT_TRUE(esperarA([&] { return par_->bytesAvailable() >= 6; }));
        EXPECT_EQ(par_->readAll(), QByteArray("nikeva")); // no separator from the client
    }
    void enviar(const QList<QByteArray> &lecturas)
    {
        for (const QByteArray &b : lecturas) {
            par_->write(b);
            par_->flush();
            dejarCorrer(60);
        }
    }
    QTcpServer servidor_;
    std::unique_ptr<Puesto> puesto_;
    QTcpSocket *par_ = nullptr;
};

TEST_F(ConPar, ReadsAsTheyCome)
{
    struct Caso {
        const char *nombre;
        QList<QByteArray> lecturas;
        QStringList usuarios;
        QString charla; // the transcript after the connection
    };
    const Caso casos[] = {
        {"two ni+ in one read", {"ni+ana\xA0ni+bea\xA0"}, {"ana", "bea"}, ""},
        {"commands in capitals", {"NI+ana\xA0SaY<ana> hola\xA0"}, {"ana"}, "\r\n<ana> hola"},
        {"two characters are dropped", {"ni\xA0ni+bea\xA0"}, {"bea"}, ""},
        {"a frame cut in two is two frames", {"ni+ro", "sa\xA0"}, {"ro"}, ""},
        {"a say cut in two shows its halves", {"say<x> bue", "no\xA0"}, {}, "\r\n<x> bue"},
        {"the first empty piece ends the read", {"ni+a\xA0\xA0ni+b\xA0"}, {"a"}, ""},
        {"ni- walks down by index", {"ni+x\xA0ni+a\xA0ni+a\xA0ni+y\xA0", "ni-a\xA0"}, {"x", "a", "y"}, ""},
        {"ni- of nobody", {"ni+x\xA0ni-\xA0ni-z\xA0"}, {"x"}, ""},
        {"nik and cls do nothing", {"nik\xA0", "cls\xA0"}, {}, ""},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nombre);
        puesto_->chat->UsuariosChat.clear();
        puesto_->chat->Chat.clear();
        enviar(c.lecturas);
        EXPECT_EQ(puesto_->chat->UsuariosChat, c.usuarios);
        EXPECT_EQ(puesto_->chat->Chat, c.charla);
    }
}

TEST_F(ConPar, AnswersVerAndSpl)
{
    enviar({"ver\xA0spl\xA0"});
    ASSERT_TRUE(esperarA([&] { return par_->bytesAvailable() > 0; }));
    dejarCorrer(50);
    EXPECT_EQ(par_->readAll(), QByteArray("verTesorel 2.007 - Revisi\xF3n 0spl\xA0"));
}

TEST_F(ConPar, ACloseMidFrameShowsTheHalfAndDisconnects)
{
    enviar({"ni+ana\xA0say<ana> adi"});
    par_->disconnectFromHost();
    ASSERT_TRUE(esperarA([&] { return puesto_->chat->EntradaChat_Visible; }));
    EXPECT_EQ(puesto_->chat->Chat, "\r\n<ana> adi\r\rDesconectado");
    EXPECT_TRUE(puesto_->chat->UsuariosChat.isEmpty());
    puesto_->escribir("nadie escucha"); // a send on a closed socket is lost and the text stays
    EXPECT_EQ(puesto_->chat->Charla, "nadie escucha");
}

TEST(ChatSinRed, EnteringAndTyping)
{
    struct Caso {
        const char *nombre;
        bool hayConexion;
        QString nick;
        QString mensaje;
    };
    const Caso casos[] = {
        {"a nick of blanks", true, "   ", ClienteChat::Falta_Nick},
        {"no internet", false, "ana", ClienteChat::Sin_Internet},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nombre);
        Puesto p(puertoLibre(), c.nick);
        p.s.Hay_Conexion = c.hayConexion;
        p.chat->EntrarAlChat_Click();
        ASSERT_EQ(p.ui.messages.size(), 1u);
        EXPECT_EQ(p.ui.messages[0].prompt, c.mensaje);
        EXPECT_EQ(p.ui.messages[0].title, "Atención");
        EXPECT_EQ(p.ui.messages[0].style, mb::Exclamation);
        dejarCorrer(50);
        EXPECT_EQ(p.chat->Chat, ClienteChat::Texto_Inicial);
        EXPECT_TRUE(p.chat->EntradaChat_Visible);
    }
}

TEST(ChatSinRed, AReadGivesAtMost101Pieces)
{
    QByteArray lectura;
    for (int i = 0; i < 103; ++i)
        lectura += "ni+u" + QByteArray::number(i) + '\xA0';
    EXPECT_EQ(Partir_Buffer_Chat(lectura).size(), 101);
}

} // namespace
