#pragma once
#include <QStringList>
#include <vector>

namespace tesorel::cli
{

// Exit codes of every command.
inline constexpr int kOk = 0;
inline constexpr int kFailed = 1;
inline constexpr int kUsage = 2;

// One command of tesorel-cli: its arguments after the command name.
using CommandFunction = int (*)(const QStringList &args);

struct Command {
    const char *name;
    const char *synopsis; // the line of the usage text
    CommandFunction run;
    bool drawsOrUsesNetwork = false; // needs a GUI application (fonts) rather than a core one
};

// A command is one file of its own that registers itself with one line:
//     const CommandRegistration registro{{"sql", "sql BASE STATEMENT   ...", sqlCommand}};
struct CommandRegistration {
    explicit CommandRegistration(const Command &command);
};
// Every registered command, by name.
const std::vector<Command> &registeredCommands();

// Prints the usage text on stderr and returns kUsage.
int usage();

// "Error N: message" on stderr, and kFailed.
int reportFailure(int number, const QString &message);

} // namespace tesorel::cli
