// tesorel-chatd: the chat server of a club of the program's users.
// Relays frames between the chat panels; keeps no chat text.
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QHostAddress>
#include <csignal>
#include <cstdio>

#include "online/servidor_chat.h"

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tesorel-chatd"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Servidor de charla de Tesorel"));
    parser.addHelpOption();
    const QCommandLineOption puerto(QStringLiteral("port"), QStringLiteral("Puerto TCP (6000)."),
                                    QStringLiteral("N"), QStringLiteral("6000"));
    const QCommandLineOption host(QStringLiteral("host"),
                                  QStringLiteral("Dirección en la que escucha (127.0.0.1)."),
                                  QStringLiteral("ADDR"), QStringLiteral("127.0.0.1"));
    parser.addOption(puerto);
    parser.addOption(host);
    if (!parser.parse(app.arguments()) || !parser.positionalArguments().isEmpty()) {
        std::fprintf(stderr, "%s\n%s", qPrintable(parser.errorText()), qPrintable(parser.helpText()));
        return 2;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        std::fputs(qPrintable(parser.helpText()), stdout);
        return 0;
    }
    bool ok = false;
    const uint numero = parser.value(puerto).toUInt(&ok);
    QHostAddress direccion;
    if (!ok || numero > 65535 || !direccion.setAddress(parser.value(host))) {
        std::fprintf(stderr, "tesorel-chatd: puerto o dirección no válidos\n%s",
                     qPrintable(parser.helpText()));
        return 2;
    }
    std::signal(SIGPIPE, SIG_IGN);
    tesorel::ServidorChat servidor;
    QString error;
    if (!servidor.escuchar(direccion, static_cast<quint16>(numero), &error)) {
        std::fprintf(stderr, "tesorel-chatd: %s\n", qPrintable(error));
        return 1;
    }
    return app.exec();
}
