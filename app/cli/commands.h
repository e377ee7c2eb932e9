#pragma once
#include <QStringList>

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
};

int makebaseCommand(const QStringList &args);
int sqlCommand(const QStringList &args);
int chartCommand(const QStringList &args);

// Prints the usage text on stderr and returns kUsage.
int usage();

// "Error N: message" on stderr, and kFailed.
int reportFailure(int number, const QString &message);

} // namespace tesorel::cli
