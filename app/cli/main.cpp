#include "commands.h"

#include "core/runtime_error.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iterator>
#include <memory>

namespace tesorel::cli
{

namespace
{

// A new command is one more line here and one file of its own.
const Command kCommands[] = {
    {"makebase", "makebase OUT [--sample] [--data DIR]   build a new base from the data folder",
     makebaseCommand},
    {"sql", "sql BASE STATEMENT                       run one statement, print its rows", sqlCommand},
    {"chart",
     "chart BASE NAME --png OUT [--csv OUT] [--user N] [--days N] [--candle] [--log] [--splits] [--indicator "
     "0-3] "
     "[--mediat A,B] [--operations]   draw a value's charts",
     chartCommand},
};

} // namespace

int usage()
{
    std::fputs("Uso: tesorel-cli COMANDO [ARGUMENTOS]\n\n", stderr);
    for (const Command &c : kCommands)
        std::fprintf(stderr, "  tesorel-cli %s\n", c.synopsis);
    return kUsage;
}

int reportFailure(int number, const QString &message)
{
    std::fprintf(stderr, "Error %d: %s\n", number, message.toUtf8().constData());
    return kFailed;
}

} // namespace tesorel::cli

int main(int argc, char *argv[])
{
    using namespace tesorel::cli;
    // Drawing needs fonts, and so a GUI application, offscreen.
    const bool dibuja = argc > 1 && std::strcmp(argv[1], "chart") == 0;
    if (dibuja && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    std::unique_ptr<QCoreApplication> app(dibuja ? new QGuiApplication(argc, argv)
                                                 : new QCoreApplication(argc, argv));
    QStringList args = app->arguments();
    args.removeFirst();
    if (args.isEmpty())
        return usage();
    const QString name = args.takeFirst();
    for (const Command &c : kCommands) {
        if (name != QLatin1String(c.name))
            continue;
        try {
            return c.run(args);
        } catch (const tesorel::RuntimeError &e) {
            return reportFailure(e.number(), e.description());
        } catch (const std::exception &e) {
            return reportFailure(tesorel::err::EngineError, QString::fromUtf8(e.what()));
        }
    }
    return usage();
}
