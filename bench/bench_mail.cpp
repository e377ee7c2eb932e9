// A mailbox of 500 messages of 20 KB retrieved and harvested from a
// loopback POP3 server, beside a raw socket read of the same bytes.
#include "import/import_correo.h"
#include "import/winsock.h"
#include "store/session.h"
#include "store/ui.h"
#include "support/medianas.h"
#include "support/run_benchmarks.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>

using namespace tesorel;

namespace
{
constexpr int kMensajes = 500;

QByteArray mensaje(int n)
{
    const QByteArray nombre = QByteArray::number(100000 + n).right(6) + ".txt";
    QByteArray m = "From: \"Tesorel\" <c@t.example>\r\nSubject: " + nombre + "\r\n\r\n--XX\r\n\tname=\"" +
                   nombre + "\"\r\na\r\nb\r\nc\r\n\r\n";
    while (m.size() < 20 * 1024 - 40)
        m += "TEF;10,50;10,70;10,40;10,60;123456\r\n";
    return m + "\r\n--XX--\r\n";
}

// Answers the session's commands from memory; RETR n sends the n-th message.
struct Servidor {
    QTcpServer tcp;
    QList<QByteArray> respuestas;
    QByteArray todo; // every RETR reply back to back, for the raw read
    bool crudo = false;
    Servidor()
    {
        for (int i = 1; i <= kMensajes; ++i) {
            respuestas << "+OK\r\n" + mensaje(i) + ".\r\n";
            todo += respuestas.back();
        }
        tcp.listen(QHostAddress::LocalHost, 0);
        QObject::connect(&tcp, &QTcpServer::newConnection, [this] {
            while (QTcpSocket *c = tcp.nextPendingConnection()) {
                QObject::connect(c, &QTcpSocket::disconnected, c, &QObject::deleteLater);
                if (crudo) {
                    c->write(todo);
                    c->disconnectFromHost();
                    continue;
                }
                c->write("+OK\r\n");
                QObject::connect(c, &QTcpSocket::readyRead, c, [this, c] {
                    while (c->canReadLine()) {
                        const QByteArray l = c->readLine().trimmed();
                        if (l.startsWith("STAT"))
                            c->write("+OK " + QByteArray::number(kMensajes) + " 1\r\n");
                        else if (l.startsWith("RETR "))
                            c->write(respuestas.value(l.mid(5).toInt() - 1));
                        else if (l.startsWith("QUIT")) {
                            c->write("+OK\r\n");
                            c->disconnectFromHost();
                        } else
                            c->write("+OK\r\n");
                    }
                });
            }
        });
    }
};

Servidor &servidor()
{
    static Servidor s;
    return s;
}

// One whole mail run: connect, retrieve every message, write the attachments.
// Returns the files written in the mail folder.
qsizetype recuperarYCosechar()
{
    QTemporaryDir dir;
    QDir(dir.path()).mkpath("mail");
    ScriptedUi ui;
    Session s(ui, dir.path());
    ImportCorreo v(s, crearWinsockTcp());
    v.txtHost = QStringLiteral("127.0.0.1:%1").arg(servidor().tcp.serverPort());
    v.txtUserName = "u";
    v.txtPassword = "p";
    QEventLoop bucle;
    v.alCambiar = [&] {
        if (v.detenido())
            bucle.quit();
    };
    v.cmdCheckMail_Click();
    bucle.exec();
    return QDir(dir.path() + "/mail").entryList(QDir::Files).size();
}

// The same bytes read straight from a socket. Returns the bytes read.
qsizetype lecturaCruda()
{
    servidor().crudo = true;
    QTcpSocket c;
    QByteArray leido;
    QEventLoop bucle;
    QObject::connect(&c, &QTcpSocket::readyRead, [&] { leido += c.readAll(); });
    QObject::connect(&c, &QTcpSocket::disconnected, &bucle, &QEventLoop::quit);
    c.connectToHost(QHostAddress::LocalHost, servidor().tcp.serverPort());
    bucle.exec();
    leido += c.readAll();
    servidor().crudo = false;
    return leido.size();
}

void BM_RecuperarYCosechar(benchmark::State &state)
{
    for (auto _ : state)
        if (recuperarYCosechar() != kMensajes + 1)
            state.SkipWithError("not every attachment was written");
}
BENCHMARK(BM_RecuperarYCosechar)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);

void BM_LecturaCruda(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(lecturaCruda());
}
BENCHMARK(BM_LecturaCruda)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (tesorel::bench::correrBenchmarks(argc, argv))
        return 0;
    // Medians of five whole runs each, and their ratio.
    const double correo = bench::medianaDe(5, recuperarYCosechar), crudo = bench::medianaDe(5, lecturaCruda);
    std::printf("median mail %.1f ms (limit 2000), raw read %.1f ms, ratio %.1f\n", correo, crudo,
                correo / crudo);
    return 0;
}
