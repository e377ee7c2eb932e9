// import-ops on a folder of statements: the value and broker given, a
// refused sale in the middle, the code line kept; a second run skipped.
#include "sample_base.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tesorel::testing
{
namespace
{

QStringList correrOps(const QStringList &args)
{
    QProcess p;
    p.start(QStringLiteral(TESOREL_BINARY_DIR "/app/tesorel-cli"), QStringList{"import-ops"} + args);
    EXPECT_TRUE(p.waitForFinished(60000));
    EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
    return QString::fromUtf8(p.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
}

TEST(ImportOpsCommand, ValorCorredorYSegundaVueltaSaltada)
{
    QTemporaryDir trabajo;
    const QString base = trabajo.filePath("base1.mdb"), carpeta = trabajo.filePath("f");
    ASSERT_TRUE(QFile::copy(SampleBase::instance().path(), base));
    QDir().mkpath(carpeta);
    QFile f(carpeta + "/a.TXT");
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(
        "Fecha operaci\xf3n Tipo operaci\xf3n T\xedtulos Moneda Importe efectivo Gastos Importe l\xedquido "
        "Observaciones\r\n01/02/2024 VENTA 500 EUR 5000 5 4995\r\n02/02/2024 COMPRA 100 EUR 1000 5 1005\r\n");
    f.close();
    const QStringList args{base, carpeta, "--user", "1", "--value", "IBEX 35", "--broker", "Renta 4"};
    const QStringList salida = correrOps(args);
    ASSERT_EQ(salida.size(), 4);
    EXPECT_EQ(salida[0], "Iniciando Importación de " + carpeta);
    EXPECT_EQ(salida[1], "importando :a.TXT");
    EXPECT_TRUE(salida[2].startsWith("mensaje\t") && salida[2].endsWith("apunte rechazado"));
    EXPECT_EQ(salida[3], "Importación finalizada");
    auto db = Database::open(base);
    EXPECT_EQ(
        scalar(*db,
               "select count(*) from historico where Operacion = '02/02/2024: Compra 100 IBEX 35 x 1005'")
            .toInt(),
        1);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_TRUE(f.readAll().endsWith("1005\r\n\r\ncodigoTX IBEX_35\r\n"));
    f.close();

    EXPECT_EQ(correrOps(args + QStringList{"--skip"}).size(), 3);
    EXPECT_EQ(scalar(*db, "select count(*) from historico where Operacion like '*IBEX 35 x*'").toInt(), 1);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll().count("codigoTX"), 1);
}

} // namespace
} // namespace tesorel::testing
