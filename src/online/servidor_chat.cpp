#include "online/servidor_chat.h"

#include <QDateTime>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <algorithm>
#include <cstdio>

#include "online/chat_tramas.h"

namespace tesorel
{

namespace
{
QByteArray trama(const QByteArray &orden, const QByteArray &carga = {})
{
    return orden + carga + kSeparadorChat;
}

// Nicks are one whatever their case: "Ana" is in use when "ANA" is.
QByteArray clave(const QByteArray &nick)
{
    return QString::fromLatin1(nick).toCaseFolded().toUtf8();
}
} // namespace

ServidorChat::ServidorChat(OpcionesServidorChat opciones)
    : opciones_(opciones), servidor_(std::make_unique<QTcpServer>()), latido_(std::make_unique<QTimer>())
{
    reloj_.start();
    QObject::connect(servidor_.get(), &QTcpServer::newConnection, servidor_.get(),
                     [this] { nuevaConexion(); });
    latido_->setInterval(opciones_.latidoMs);
    QObject::connect(latido_.get(), &QTimer::timeout, latido_.get(), [this] { latido(); });
}

ServidorChat::~ServidorChat()
{
    const auto todos = clientes_;
    for (const auto &c : todos) {
        QObject::disconnect(c->socket, nullptr, nullptr, nullptr);
        c->socket->abort();
        delete c->socket;
    }
}

bool ServidorChat::escuchar(const QHostAddress &host, quint16 puerto, QString *error)
{
    if (!servidor_->listen(host, puerto)) {
        if (error)
            *error = servidor_->errorString();
        return false;
    }
    latido_->start();
    log(QStringLiteral("escuchando en %1:%2").arg(host.toString()).arg(servidor_->serverPort()));
    return true;
}

quint16 ServidorChat::puerto() const
{
    return servidor_->serverPort();
}

void ServidorChat::log(const QString &linea) const
{
    const QString texto = QDateTime::currentDateTime().toString(Qt::ISODate) + u' ' + linea;
    if (registro)
        registro(texto);
    else
        std::fprintf(stderr, "%s\n", texto.toUtf8().constData());
}

void ServidorChat::nuevaConexion()
{
    while (QTcpSocket *socket = servidor_->nextPendingConnection()) {
        auto c = std::make_shared<Cliente>();
        c->socket = socket;
        c->direccion = socket->peerAddress().toString() + u':' + QString::number(socket->peerPort());
        c->fichas = opciones_.rafaga;
        c->reloj.start();
        c->ultimaActividad = reloj_.elapsed();
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        clientes_.insert(socket, c);
        QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
            if (auto it = clientes_.find(socket); it != clientes_.end())
                leer(**it);
            volcar();
        });
        QObject::connect(socket, &QTcpSocket::disconnected, socket, [this, socket] {
            alCerrar(socket);
            volcar();
        });
        log(QStringLiteral("conexión %1 (%2 clientes)").arg(c->direccion).arg(clientes_.size()));
    }
}

void ServidorChat::leer(Cliente &c)
{
    const std::shared_ptr<Cliente> vivo = clientes_.value(c.socket); // the client outlives its drop
    c.ultimaActividad = reloj_.elapsed();
    std::vector<QByteArray> tramas;
    if (c.lector.leer(c.socket->readAll(), tramas) == LectorTramas::Resultado::Basura) {
        expulsar(c, QStringLiteral("envía lo que no es una trama"));
        return;
    }
    // The bucket refills at the steady rate up to the burst.
    const double segundos = c.reloj.restart() / 1000.0;
    c.fichas = std::min(opciones_.rafaga, c.fichas + segundos * opciones_.tramasPorSegundo);
    for (const QByteArray &t : tramas) {
        if (c.fichas < 1) {
            expulsar(c, QStringLiteral("inunda"));
            return;
        }
        c.fichas -= 1;
        if (!atender(c, t)) {
            expulsar(c, QStringLiteral("trama fuera de lugar"));
            return;
        }
        if (c.socket->state() != QAbstractSocket::ConnectedState)
            return;
    }
}

bool ServidorChat::atender(Cliente &c, const QByteArray &t)
{
    const QByteArray orden = t.left(3).toLower();
    const QByteArray carga = t.mid(3);
    if (orden == "nik") {
        if (c.nick.isEmpty())
            aceptarNick(c, carga);
        return true;
    }
    if (orden == "say") {
        // A line goes out under the nick it was sent with: "<nick> text".
        if (c.nick.isEmpty() || !carga.startsWith('<' + c.nick + '>'))
            return false;
        const QByteArray relevo = trama("say", carga);
        for (const auto &otro : std::as_const(clientes_)) {
            if (otro.get() == &c || otro->nick.isEmpty())
                continue;
            if (otro->salida.isEmpty())
                pendientesDeVolcar_.push_back(otro->socket);
            otro->salida += relevo;
        }
        return true;
    }
    if (orden == "ver" && !c.nick.isEmpty())
        log(QStringLiteral("%1 usa %2")
                .arg(QString::fromLatin1(c.nick), QString::fromLatin1(carga).left(80)));
    return true; // "spl" answers the heartbeat: its arrival is enough
}

void ServidorChat::aceptarNick(Cliente &c, const QByteArray &nick)
{
    const QString texto = QString::fromLatin1(nick);
    const bool mala = texto.trimmed().isEmpty() || texto.size() > opciones_.nickMaximo ||
                      texto.contains(u'<') || texto.contains(u'>');
    if (mala || porNick_.contains(clave(nick))) {
        log(QStringLiteral("%1 rechazado: %2")
                .arg(c.direccion, mala ? QStringLiteral("nick no válido") : QStringLiteral("nick en uso")));
        c.socket->write(trama("nok"));
        c.socket->disconnectFromHost();
        return;
    }
    if (c.salida.isEmpty())
        pendientesDeVolcar_.push_back(c.socket);
    c.salida += trama("nik");
    // The users present, in the order they came, so every list reads the same.
    std::vector<const Cliente *> presentes;
    for (const auto &otro : std::as_const(clientes_))
        if (!otro->nick.isEmpty())
            presentes.push_back(otro.get());
    std::sort(presentes.begin(), presentes.end(), [](auto *a, auto *b) { return a->entrada < b->entrada; });
    for (const Cliente *otro : presentes)
        c.salida += trama("ni+", otro->nick);
    c.nick = nick;
    c.entrada = ++entradas_;
    porNick_.insert(clave(nick), c.socket);
    const QByteArray llega = trama("ni+", nick);
    for (const auto &otro : std::as_const(clientes_)) {
        if (otro->nick.isEmpty())
            continue;
        if (otro->salida.isEmpty())
            pendientesDeVolcar_.push_back(otro->socket);
        otro->salida += llega;
    }
    c.salida += trama("ver");
    log(QStringLiteral("entra %1 desde %2").arg(texto, c.direccion));
}

void ServidorChat::expulsar(Cliente &c, const QString &motivo)
{
    log(QStringLiteral("%1 expulsado: %2")
            .arg(c.nick.isEmpty() ? c.direccion : QString::fromLatin1(c.nick), motivo));
    c.socket->abort();                // its disconnection tells the others
    if (clientes_.contains(c.socket)) // not connected yet: no signal came
        alCerrar(c.socket);
}

void ServidorChat::alCerrar(QTcpSocket *socket)
{
    const std::shared_ptr<Cliente> c = clientes_.take(socket);
    if (!c)
        return;
    if (!c->nick.isEmpty()) {
        porNick_.remove(clave(c->nick));
        const QByteArray sale = trama("ni-", c->nick);
        for (const auto &otro : std::as_const(clientes_)) {
            if (otro->nick.isEmpty())
                continue;
            if (otro->salida.isEmpty())
                pendientesDeVolcar_.push_back(otro->socket);
            otro->salida += sale;
        }
        log(QStringLiteral("sale %1").arg(QString::fromLatin1(c->nick)));
    }
    log(QStringLiteral("cierre %1 (%2 clientes)").arg(c->direccion).arg(clientes_.size()));
    socket->deleteLater();
}

void ServidorChat::latido()
{
    const qint64 ahora = reloj_.elapsed();
    std::vector<std::shared_ptr<Cliente>> callados;
    for (const auto &c : std::as_const(clientes_)) {
        if (ahora - c->ultimaActividad > opciones_.silencioMs) {
            callados.push_back(c);
        } else if (!c->nick.isEmpty()) {
            if (c->salida.isEmpty())
                pendientesDeVolcar_.push_back(c->socket);
            c->salida += trama("spl");
        }
    }
    for (const auto &c : callados)
        expulsar(*c, QStringLiteral("sin respuesta"));
    volcar();
}

// Writes what each client was given during one event, once per client; a
// client whose unread bytes pass the limit is dropped.
void ServidorChat::volcar()
{
    while (!pendientesDeVolcar_.empty()) {
        std::vector<QTcpSocket *> lote;
        lote.swap(pendientesDeVolcar_);
        std::vector<std::shared_ptr<Cliente>> lentos;
        for (QTcpSocket *socket : lote) {
            const std::shared_ptr<Cliente> c = clientes_.value(socket);
            if (!c || c->salida.isEmpty())
                continue;
            socket->write(c->salida);
            c->salida.clear();
            if (socket->bytesToWrite() > opciones_.salidaMaxima)
                lentos.push_back(c);
        }
        for (const auto &c : lentos)
            if (clientes_.contains(c->socket))
                expulsar(*c, QStringLiteral("no lee"));
    }
}

} // namespace tesorel
