#pragma once
#include "store/base_builder.h"
#include "store/database.h"

#include <QString>
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

} // namespace tesorel::testing
