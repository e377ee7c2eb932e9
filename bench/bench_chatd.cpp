// The chat server relaying: 200 clients on loopback, 10,000 "say" lines in
// all (50 from each), each line delivered to the 199 others. Beside it, a
// raw fan-out of the same bytes: a loopback server that writes whatever it
// reads from one client to all the others, with no frames and no checks.
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <future>

#include "online/servidor_chat.h"
#include "support/run_benchmarks.h"

using namespace tesorel;

namespace
{

constexpr int kClientes = 200;
constexpr int kLineas = 10000;

// A server built, run and destroyed on a thread of its own, as the real
// one runs alone in its process.
class Hilo
{
  public:
    // `arrancar` builds the server on the thread, gives its port and what keeps it alive.
    using Arranque = std::function<std::shared_ptr<void>(quint16 &)>;
    explicit Hilo(Arranque arrancar)
    {
        std::promise<quint16> puerto;
        auto listo = puerto.get_future();
        hilo_.reset(QThread::create([this, arrancar, &puerto] {
            quint16 p = 0;
            std::shared_ptr<void> vivo = arrancar(p);
            QEventLoop bucle;
            bucle_ = &bucle;
            puerto.set_value(p);
            bucle.exec();
        }));
        hilo_->start();
        puerto_ = listo.get();
    }
    ~Hilo()
    {
        QMetaObject::invokeMethod(
            bucle_, [b = bucle_] { b->quit(); }, Qt::QueuedConnection);
        hilo_->wait();
    }
    quint16 puerto() const { return puerto_; }

  private:
    std::unique_ptr<QThread> hilo_;
    QEventLoop *bucle_ = nullptr;
    quint16 puerto_ = 0;
};

std::shared_ptr<void> chatd(quint16 &puerto)
{
    OpcionesServidorChat o; // the flood limit is not what is measured here
    o.rafaga = 1e9;
    o.tramasPorSegundo = 1e9;
    o.salidaMaxima = qint64(1) << 30;
    auto s = std::make_shared<ServidorChat>(o);
    s->registro = [](const QString &) {};
    s->escuchar(QHostAddress::LocalHost, 0);
    puerto = s->puerto();
    return s;
}

std::shared_ptr<void> abanicoCrudo(quint16 &puerto)
{
    auto s = std::make_shared<QTcpServer>();
    auto conectados = std::make_shared<std::vector<QTcpSocket *>>();
    QObject::connect(s.get(), &QTcpServer::newConnection, s.get(), [s = s.get(), conectados] {
        while (QTcpSocket *c = s->nextPendingConnection()) {
            c->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            conectados->push_back(c);
            QObject::connect(c, &QTcpSocket::readyRead, c, [c, conectados] {
                const QByteArray b = c->readAll();
                for (QTcpSocket *otro : *conectados)
                    if (otro != c)
                        otro->write(b);
            });
        }
    });
    s->listen(QHostAddress::LocalHost, 0);
    puerto = s->serverPort();
    return std::shared_ptr<void>(s, s.get());
}

// The 200 clients, on the benchmark's thread; they count frame ends.
struct Clientes {
    std::vector<std::unique_ptr<QTcpSocket>> sockets;
    qint64 recibidas = 0;

    explicit Clientes(quint16 puerto)
    {
        for (int i = 0; i < kClientes; ++i) {
            auto s = std::make_unique<QTcpSocket>();
            QTcpSocket *p = s.get();
            QObject::connect(p, &QTcpSocket::readyRead, p,
                             [this, p] { recibidas += p->readAll().count(char(0xA0)); });
            p->connectToHost(QHostAddress::LocalHost, puerto);
            p->waitForConnected(5000);
            p->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            p->write("nikc" + QByteArray::number(i) + '\xA0');
            sockets.push_back(std::move(s));
        }
        calmar();
    }
    // Until nothing has come for a while: the joins are over.
    void calmar()
    {
        qint64 antes = -1;
        while (antes != recibidas) {
            antes = recibidas;
            QElapsedTimer t;
            t.start();
            while (t.elapsed() < 200)
                QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        }
        recibidas = 0;
    }
    // Sends the 10,000 lines and waits for every delivery; seconds, or -1.
    double ronda()
    {
        const qint64 esperadas = qint64(kLineas) * (kClientes - 1);
        const auto t0 = std::chrono::steady_clock::now();
        for (int i = 0; i < kClientes; ++i) {
            QByteArray lote;
            for (int k = 0; k < kLineas / kClientes; ++k)
                lote += "say<c" + QByteArray::number(i) + "> linea " + QByteArray::number(k) + '\xA0';
            sockets[i]->write(lote);
        }
        while (recibidas < esperadas) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            if (std::chrono::steady_clock::now() - t0 > std::chrono::seconds(60))
                return -1;
        }
        const double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
        recibidas -= esperadas;
        return s;
    }
};

void BM_ChatdRelayVersusRawFanOut(benchmark::State &state)
{
    Hilo servidor(chatd), crudo(abanicoCrudo);
    Clientes aChatd(servidor.puerto()), aCrudo(crudo.puerto());
    std::vector<double> chat, raw;
    for (auto _ : state) {
        chat.push_back(aChatd.ronda());
        raw.push_back(aCrudo.ronda());
    }
    std::sort(chat.begin(), chat.end());
    std::sort(raw.begin(), raw.end());
    const double mChat = chat[chat.size() / 2], mRaw = raw[raw.size() / 2];
    state.counters["chatd_s"] = mChat;
    state.counters["raw_fanout_s"] = mRaw;
    state.counters["chatd_over_raw"] = mChat / mRaw;
    std::printf(
        "chatd: %d clients, %d lines, %lld deliveries: median %.3f s (worst %.3f s); raw fan-out of the "
        "same bytes: median %.3f s; ratio %.2f\n",
        kClientes, kLineas, (long long)kLineas * (kClientes - 1), mChat, chat.back(), mRaw, mChat / mRaw);
}
BENCHMARK(BM_ChatdRelayVersusRawFanOut)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    bench::correrBenchmarks(argc, argv);
    return 0;
}
