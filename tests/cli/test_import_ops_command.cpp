// import-ops on a folder of statements: the value and broker given, a
// refused sale in the middle; a second run skipped. The code line written back is the model's.
#include "sample_base.h"

#include <gtest/gtest.h>

namespace tesorel::testing
{
namespace
{

TEST(ImportOpsCommand, ValorCorredorYSegundaVueltaSaltada)
{
    CopiaDeMuestra c;
    const QString carpeta = c.dir.filePath("f");
    escribirArchivo(
        carpeta + "/a.TXT",
        "Fecha operaci\xf3n Tipo operaci\xf3n T\xedtulos Moneda Importe efectivo Gastos Importe l\xedquido "
        "Observaciones\r\n01/02/2024 VENTA 500 EUR 5000 5 4995\r\n02/02/2024 COMPRA 100 EUR 1000 5 1005\r\n");
    const QStringList args{"import-ops", c.base,    carpeta,    "--user", "1",
                           "--value",    "IBEX 35", "--broker", "Renta 4"};
    const QStringList salida = correrCli(args).lineas();
    ASSERT_EQ(salida.size(), 4);
    EXPECT_EQ(salida[0], "Iniciando Importación de " + carpeta);
    EXPECT_EQ(salida[1], "importando :a.TXT");
    EXPECT_TRUE(salida[2].startsWith("mensaje\t") && salida[2].endsWith("apunte rechazado"));
    EXPECT_EQ(salida[3], "Importación finalizada");
    EXPECT_EQ(
        c.valor("select count(*) from historico where Operacion = '02/02/2024: Compra 100 IBEX 35 x 1005'")
            .toInt(),
        1);

    EXPECT_EQ(correrCli(args + QStringList{"--skip"}).lineas().size(), 3);
    EXPECT_EQ(c.valor("select count(*) from historico where Operacion like '*IBEX 35 x*'").toInt(), 1);
}

} // namespace
} // namespace tesorel::testing
