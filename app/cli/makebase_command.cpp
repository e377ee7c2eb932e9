#include "commands.h"

#include "portfolio/libro_demo.h"
#include "store/base_builder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace tesorel::cli
{

namespace
{

// The data folder next to an installed program, or the source tree's when
// the build tells where it is.
QString defaultDataDir()
{
    const QDir bin(QCoreApplication::applicationDirPath());
    const QStringList candidates = {
        bin.filePath("data"),
        bin.filePath("../share/tesorel/data"),
#ifdef TESOREL_DATA_DIR
        QStringLiteral(TESOREL_DATA_DIR),
#endif
    };
    for (const QString &dir : candidates) {
        if (QFileInfo::exists(QDir(dir).filePath("schema.sql")))
            return QDir::cleanPath(dir);
    }
    return bin.filePath("data");
}

} // namespace

int makebaseCommand(const QStringList &args)
{
    QString out;
    BaseBuildOptions options;
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString &a = args[i];
        if (a == "--sample") {
            options.sample = true;
        } else if (a == "--data") {
            if (++i == args.size())
                return usage();
            options.dataDir = args[i];
        } else if (a.startsWith("--") || !out.isEmpty()) {
            return usage();
        } else {
            out = a;
        }
    }
    if (out.isEmpty())
        return usage();
    if (options.dataDir.isEmpty())
        options.dataDir = defaultDataDir();
    options.demoLedger = apuntarLibroDemo;
    buildBase(out, options);
    return kOk;
}

namespace
{
const CommandRegistration registro{
    {"makebase", "makebase OUT [--sample] [--data DIR]   build a new base from the data folder",
     makebaseCommand, false}};
} // namespace

} // namespace tesorel::cli
