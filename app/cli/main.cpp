#include "commands.h"

#include "core/runtime_error.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iterator>
#include <memory>

namespace tesorel::cli
{

namespace
{
std::vector<Command> &registro()
{
    static std::vector<Command> commands;
    return commands;
}
} // namespace

CommandRegistration::CommandRegistration(const Command &command)
{
    auto &commands = registro();
    auto at =
        std::lower_bound(commands.begin(), commands.end(), command,
                         [](const Command &a, const Command &b) { return std::strcmp(a.name, b.name) < 0; });
    commands.insert(at, command);
}

const std::vector<Command> &registeredCommands()
{
    return registro();
}

int usage()
{
    std::fputs("Uso: tesorel-cli COMANDO [ARGUMENTOS]\n\n", stderr);
    for (const Command &c : registeredCommands())
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
    bool dibuja = false;
    for (const Command &c : registeredCommands())
        dibuja = dibuja || (argc > 1 && c.drawsOrUsesNetwork && std::strcmp(argv[1], c.name) == 0);
    if (dibuja && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    std::unique_ptr<QCoreApplication> app(dibuja ? new QGuiApplication(argc, argv)
                                                 : new QCoreApplication(argc, argv));
    QStringList args = app->arguments();
    args.removeFirst();
    if (args.isEmpty())
        return usage();
    const QString name = args.takeFirst();
    for (const Command &c : registeredCommands()) {
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
