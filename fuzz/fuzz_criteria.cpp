// Random criteria against recordsets of a small in-memory base: a bad
// criterion must end in a RuntimeError, never in a crash.
#include "core/runtime_error.h"
#include "store/database.h"
#include "store/recordset.h"

#include <cstddef>
#include <cstdint>

namespace
{

std::shared_ptr<tesorel::Database> smallBase()
{
    auto db = tesorel::Database::create(QStringLiteral(":memory:"));
    db->executeNative(QStringLiteral(
        "CREATE TABLE bolsa (VALOR INTEGER, FECHA DATE, ULTIMO DOUBLE, NOMBRE TEXT);"
        "CREATE INDEX bolsa_FECHA ON bolsa (FECHA);"
        "CREATE VIEW \"Los que mas suben\" AS SELECT VALOR, ULTIMO FROM bolsa ORDER BY ULTIMO DESC;"
        "INSERT INTO bolsa VALUES (1, '2024-03-01', 1.5, 'Uno'), (2, '2024-03-04', 2.5, 'Dos'),"
        " (3, '2024-03-05', NULL, NULL), (34001, '2024-03-05', 9, 'CARTERA');"));
    return db;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const auto db = smallBase();
    const QString criteria = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
    for (const char *source :
         {"select * from bolsa", "select * from bolsa order by fecha", "Los que mas suben"}) {
        try {
            auto rs = db->openRecordset(QString::fromUtf8(source));
            rs->FindFirst(criteria);
            if (!rs->NoMatch())
                rs->field(0);
            rs->FindNext(criteria);
            rs->setFilter(criteria);
            auto filtered = rs->OpenRecordset();
            while (!filtered->Eof())
                filtered->MoveNext();
        } catch (const tesorel::RuntimeError &) {
        }
    }
    return 0;
}
