// The chat server: how it reads a client's bytes, and that a bad client
// is dropped alone.
#include <gtest/gtest.h>

#include <QTcpSocket>

#include "online/servidor_chat.h"
#include "online/tramas_servidor.h"
#include "support/esperar.h"

using namespace tesorel;
using namespace tesorel::testing;

namespace
{

TEST(LectorTramas, FramesOfBothKindsOfClient)
{
    struct Caso {
        const char *nombre;
        QList<QByteArray> lecturas;
        std::vector<QByteArray> tramas;
        LectorTramas::Resultado ultimo;
    };
    using R = LectorTramas::Resultado;
    const QByteArray largo = "say" + QByteArray(LectorTramas::kTramaMaxima, 'x');
    const Caso casos[] = {
        {"the program's client: a read is a frame",
         {"nikana", "say<ana> hola", "spl\xA0"},
         {"nikana", "say<ana> hola", "spl"},
         R::Bien},
        {"a framed client is joined across reads",
         {"nikbot\xA0say<bo", "t> hi\xA0"},
         {"nikbot", "say<bot> hi"},
         R::Bien},
        {"capitals and double separators", {"NIKx\xA0\xA0VeR1\xA0"}, {"NIKx", "VeR1"}, R::Bien},
        {"an unknown command", {"nikana", "hello"}, {"nikana"}, R::Basura},
        {"a control byte", {"say<a> \x01"}, {}, R::Basura},
        {"two characters", {"ni\xA0"}, {}, R::Basura},
        {"a frame too long", {largo}, {}, R::Basura},
        {"a framed piece that never ends", {"nikz\xA0", largo}, {"nikz"}, R::Basura},
        {"a framed piece that is no frame", {"nikz\xA0", "GET / HTTP"}, {"nikz"}, R::Basura},
        {"a framed piece of two letters waits", {"nikz\xA0sa"}, {"nikz"}, R::Bien},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.nombre);
        LectorTramas lector;
        std::vector<QByteArray> tramas;
        R r = R::Bien;
        for (const QByteArray &l : c.lecturas)
            if (r == R::Bien)
                r = lector.leer(l, tramas);
        EXPECT_EQ(tramas, c.tramas);
        EXPECT_EQ(r, c.ultimo);
    }
}

// A raw client of the test's own that sends framed lines.
struct Crudo {
    QTcpSocket s;
    QByteArray recibido;
    Crudo(quint16 puerto, const QByteArray &nick)
    {
        QObject::connect(&s, &QTcpSocket::readyRead, [this] { recibido += s.readAll(); });
        s.connectToHost(QHostAddress::LocalHost, puerto);
        s.waitForConnected(2000);
        s.write("nik" + nick + '\xA0');
    }
};

TEST(ServidorChat, DropsWhoFloodsOrSendsGarbageAndKeepsTheOthers)
{
    aplicacionDePrueba();
    OpcionesServidorChat o;
    o.rafaga = 50;
    ServidorChat servidor(o);
    QStringList log;
    servidor.registro = [&](const QString &l) { log << l; };
    ASSERT_TRUE(servidor.escuchar(QHostAddress::LocalHost, 0));
    Crudo a(servidor.puerto(), "a"), b(servidor.puerto(), "b"), basura(servidor.puerto(), "c"),
        riada(servidor.puerto(), "d");
    ASSERT_TRUE(esperarA([&] { return a.recibido.contains("ni+d\xA0"); }));

    basura.s.write("GET / HTTP/1.1\r\n\r\n");
    QByteArray mucho;
    for (int i = 0; i < 200; ++i)
        mucho += "say<d> " + QByteArray::number(i) + '\xA0';
    riada.s.write(mucho);
    const bool fuera =
        esperarA([&] { return a.recibido.contains("ni-c\xA0") && a.recibido.contains("ni-d\xA0"); });
    ASSERT_TRUE(fuera) << log.join('\n').toStdString() << a.recibido.toStdString();
    ASSERT_TRUE(esperarA([&] { return servidor.clientes() == 2; }));

    b.s.write("say<b> sigo aqu\xED\xA0");
    b.s.write("say<a> soy otro\xA0"); // under someone else's nick: dropped
    ASSERT_TRUE(esperarA([&] { return a.recibido.contains("say<b> sigo aqu\xED\xA0"); }));
    ASSERT_TRUE(esperarA([&] { return a.recibido.contains("ni-b\xA0"); }));
    EXPECT_FALSE(a.recibido.contains("soy otro"));
    EXPECT_FALSE(b.recibido.contains("sigo")); // nobody gets their own line back
    EXPECT_TRUE(a.recibido.startsWith("nik\xA0ni+a\xA0ver\xA0"));
    EXPECT_TRUE(b.recibido.startsWith("nik\xA0ni+a\xA0ni+b\xA0ver\xA0")); // those present, then itself
    EXPECT_FALSE(log.join('\n').contains("sigo")); // chat text is never kept, not even in the log
}

} // namespace
