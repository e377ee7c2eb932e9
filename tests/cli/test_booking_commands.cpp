#include "sample_base.h"

#include <gtest/gtest.h>

namespace tesorel::testing
{
namespace
{

TEST(BookingCommands, CommissionLinesOfBothWindows)
{
    const QString b = SampleBase::instance().path();
    struct Caso {
        QStringList args;
        QString salida;
    };
    const Caso casos[] = {
        {{"Bankinter", "1000"},
         "Corretaje hasta 3.000\t0,200 %\t6,000\t6,00\t6,00\nCanon Bolsa\t0,000 %\t2,500\t2,50\t8,50\n"
         "\t\t\t\t\n\t\t\t\t\ntotal\t8.5\n"},
        {{"Renta 4", "10000,5", "--sell"},
         "Corretaje\t0,1   %\t5\t10,00\t10,\nCanon de contratación hasta 35.000\t0   %\t4,65\t4,65\t14,65\n"
         "Liquidación Iberclear\t0,0024   %\t0,36\t0,36\t15,01\n\t\t\t\t\ntotal\t15.01\n"},
        {{"Nadie", "1000"}, "\t\t\t\t\n\t\t\t\t\n\t\t\t\t\n\t\t\t\t\ntotal\t0\n"},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.args.join(' ').toStdString());
        const SalidaCli o = correrCli(QStringList{"commission", b} + c.args);
        EXPECT_EQ(o.out, c.salida);
        EXPECT_EQ(o.codigo, 0);
    }
}

TEST(BookingCommands, BuySellAndTheLotsBetween)
{
    const CopiaDeMuestra copia;
    const QString &b = copia.base;
    const QStringList sesion{"--user", "1", "--today", "2026-11-23"};
    // Choosing the broker before any amount: the commission's conversions fail, as in the window.
    const SalidaCli compra = correrCli(QStringList{"buy", b, "--value", "TELEFONICA", "--broker", "Bankinter",
                                                   "--price", "4,5", "--qty", "100"} +
                                       sesion);
    EXPECT_EQ(compra.out, "error\t3075\tError de sintaxis en la expresión de consulta '(desde <= )'.\n"
                          "error\t13\tNo coinciden los tipos\n");
    EXPECT_EQ(compra.codigo, 0);
    EXPECT_EQ(copia.valor("select Operacion from historico where Fecha_operacion = '2026-11-23'").toString(),
              "23/11/26: Compra de 100 TELEFONICA por 408,5");

    const SalidaCli lotes = correrCli(
        QStringList{"lots", b, "--value", "TELEFONICA", "--sale", "23/11/26", "1050", "5", "5241,5"} +
        sesion);
    // The total "5241,5" reads as 5241 (point rule): 4.99142857 a share, spread first in first out.
    EXPECT_EQ(lotes.out, "fecha\tcompradas\tprecio\ttotalcompra\tresultado\tvendidas\ttanto\n"
                         "2025-04-07\t1000\t11.676\t11699.35\t-6707.92\t-1000\t-134.39\n"
                         "2026-11-23\t100\t4.5\t408.5\t45.32\t-50\t18.16\n"
                         "total\t1100\t11.02\t12107.85\t-6316.49\t-1050\t-120.52\n");

    const SalidaCli masDeLoQueHay = correrCli(QStringList{"sell", b, "--value", "TELEFONICA", "--broker",
                                                          "Bankinter", "--price", "5", "--qty", "2000"} +
                                              sesion);
    EXPECT_TRUE(
        masDeLoQueHay.out.endsWith("mensaje\tSólo constan 1100 acciones de TELEFONICA, apunte rechazado\n"));
    // Without --qty the whole position is sold and the row goes.
    correrCli(QStringList{"sell", b, "--value", "TELEFONICA", "--broker", "Bankinter", "--price", "5"} +
              sesion);
    EXPECT_EQ(copia.valor("select count(*) from cartera where valor = 108").toInt(), 0);
    EXPECT_EQ(copia.valor("select Cantidad from historico where operacionNum = 4 and valor = 108").toDouble(),
              -1100);
}

} // namespace
} // namespace tesorel::testing
