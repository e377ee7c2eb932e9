#pragma once
#include "store/base_builder.h"
#include "store/database.h"

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>
#include <ostream>

// Readable failures for Qt texts.
QT_BEGIN_NAMESPACE
inline void PrintTo(const QString &s, std::ostream *os)
{
    *os << '"' << s.toStdString() << '"';
}
QT_END_NAMESPACE

namespace tesorel::testing
{

// The sample base, built once for the whole test program from the source
// tree's data folder, in a temporary folder of its own.
class SampleBase
{
  public:
    static SampleBase &instance();
    const QString &path() const { return path_; }
    std::shared_ptr<Database> open() const { return Database::open(path_); }
    QString tempFile(const QString &name) const { return dir_.filePath(name); }
    static QString dataDir() { return QStringLiteral(TESOREL_SOURCE_DIR "/data"); }

  private:
    SampleBase();
    QTemporaryDir dir_;
    QString path_;
};

// One number or text from a query, read through the store.
QVariant scalar(Database &db, const QString &statement);

// The real tesorel-cli run to its end. `codigo` is -1 when it crashed or hung.
struct SalidaCli {
    int codigo = -1;
    QString out, err;
    QStringList lineas() const { return out.split('\n', Qt::SkipEmptyParts); }
};
SalidaCli correrCli(const QStringList &args, int limiteMs = 300000);
QString rutaCli();

// A writable copy of the sample base in a folder of its own, which the
// test may also fill with files.
struct CopiaDeMuestra {
    QTemporaryDir dir;
    QString base = dir.filePath("base1.mdb");
    CopiaDeMuestra();
    std::shared_ptr<Database> open() const { return Database::open(base); }
    QVariant valor(const QString &statement) const { return scalar(*open(), statement); }
};

// Writes `bytes` to `path`, making its folder.
void escribirArchivo(const QString &path, const QByteArray &bytes);

// python3's http.server serving `carpeta` on a loopback port of its choosing
// (empty `puerto` if it never said which). It ends when its standard input
// closes, so that no server outlives the test.
struct ServidorHttp {
    QProcess proceso;
    QString puerto;
    explicit ServidorHttp(const QString &carpeta);
    ~ServidorHttp();
    QString base() const { return "http://127.0.0.1:" + puerto; }
};

} // namespace tesorel::testing
