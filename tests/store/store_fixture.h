#pragma once
#include "../core/fallo.h"
#include "store/database.h"
#include "store/recordset.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tesorel::testing_store
{

// A small base of its own in a temporary folder: `quotes` holds `rows`
// days of one value, in an order that differs from the date order.
class SmallBase : public ::testing::Test
{
  protected:
    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        path = dir.filePath(QStringLiteral("base1.mdb"));
        base = tesorel::Database::create(path);
        base->executeNative(QStringLiteral(
            "CREATE TABLE quotes (VALOR INTEGER, FECHA DATE, ULTIMO DOUBLE, NOMBRE TEXT);"
            "CREATE INDEX quotes_FECHA ON quotes (FECHA);"
            "CREATE TABLE Usuario (clave INTEGER PRIMARY KEY, NOMBRE TEXT, Maximo_dias DOUBLE);"
            "CREATE VIEW \"Los que mas suben\" AS SELECT VALOR AS Valor, ULTIMO FROM quotes ORDER BY ULTIMO "
            "DESC;"));
    }

    // Days 1..n of March 2024, inserted newest first.
    void fill(int n)
    {
        for (int day = n; day >= 1; --day)
            base->execute(QStringLiteral("insert into quotes values (%1, #03/%2/24#, %3, 'Valor %1')")
                              .arg(day)
                              .arg(day, 2, 10, QLatin1Char('0'))
                              .arg(day * 1.5));
    }

    QTemporaryDir dir;
    QString path;
    std::shared_ptr<tesorel::Database> base;
};

} // namespace tesorel::testing_store
