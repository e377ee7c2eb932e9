#include "sample_base.h"

#include "store/recordset.h"

#include <QVariant>

namespace tesorel::testing
{

SampleBase &SampleBase::instance()
{
    static SampleBase base;
    return base;
}

SampleBase::SampleBase()
{
    path_ = dir_.filePath("base1.mdb");
    BaseBuildOptions options;
    options.dataDir = dataDir();
    options.sample = true;
    buildBase(path_, options);
}

QVariant scalar(Database &db, const QString &statement)
{
    const auto rs = db.openRecordset(statement);
    return rs->Eof() ? QVariant() : rs->field(0);
}

} // namespace tesorel::testing
