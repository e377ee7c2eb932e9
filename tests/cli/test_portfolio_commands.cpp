#include "sample_base.h"

#include <QFile>
#include <gtest/gtest.h>

namespace tesorel::testing
{
namespace
{

// The figures are the portfolio model's (Valoracion.*): here the options and the formats.
TEST(PortfolioCommand, GridTotalsSortCurrencyAndReport)
{
    CopiaDeMuestra c;
    const QString &base = c.base, html = c.dir.filePath("cartera-cli.htm");
    const SalidaCli euros = correrCli({"portfolio", base, "--user", "1", "--sort", "beneficio", "--asc",
                                       "--html", html, "--today", "2030-01-01"});
    ASSERT_EQ(euros.codigo, 0) << euros.err.toStdString();
    EXPECT_EQ(euros.out,
              "Fecha de Compra\tDias\tTítulos\tValor\t% Cartera\tPrecio de Compra\tÚltimo\t"
              "Coste Inversión\tValor  Actual\tBeneficio\t%\n"
              "07-04-2025\t1.730\t1.000\tTELEFONICA\t37,38 %\t11,68\t8,53\t11.699,35\t8.529,00\t"
              "-3.170,35\t-26,95 %\n"
              "16-09-2024\t1.933\t300\tIBERDROLA\t43,92 %\t40,46\t33,40\t12.164,08\t10.020,30\t"
              "-2.143,78\t-17,45 %\n"
              "13-01-2025\t1.814\t500\tSANTANDER\t4,21 %\t2,65\t1,92\t1.341,50\t961,00\t-380,50\t"
              "-27,44 %\n"
              "16-03-2026\t1.387\t100\tREPSOL\t12,28 %\t31,68\t28,02\t3.178,41\t2.801,70\t-376,71\t"
              "-11,57 %\n"
              "14-07-2025\t1.632\t150\tINDITEX\t2,21 %\t2,38\t3,36\t364,96\t504,60\t139,64\t41,29 %\n"
              "coste\t28.748,30\nvalor\t22.816,60\ndiferencia\t-5.931,70\nporcentaje\t-20,63 %\n"
              "anterior\t22.935,15\nactual\t22.816,60\ndif\t-118,55\ntanto\t-0,52\n");
    const QStringList pesetas = correrCli({"portfolio", base, "--user", "1", "--pesetas"}).lineas();
    EXPECT_TRUE(pesetas.contains("valor\t3.796.363")) << pesetas.join('\n').toStdString();

    QFile f(html);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray texto = f.readAll();
    EXPECT_TRUE(texto.contains("Cartera : demo a 01/01/2030&nbsp;"));
    EXPECT_TRUE(texto.endsWith("</TABLE></BODY></HTML>\r\n"));

    const SalidaCli mal = correrCli({"portfolio", base, "--user", "1", "--sort", "nada"});
    EXPECT_EQ(mal.codigo, 2);
    EXPECT_EQ(mal.out, "");
}

// How the series is built is tested on the model (Serie.*): here the modes reach it.
TEST(SeriesCommand, RebuildsTheSeriesAndModeOneAddsTheLastDayAgain)
{
    CopiaDeMuestra c;
    const QString &base = c.base;
    const QString filas = "select count(*) from bolsa where valor = 34001";
    ASSERT_EQ(correrCli({"series", base, "--user", "1"}).codigo, 0);
    const int hechas = c.valor(filas).toInt();
    EXPECT_GT(hechas, 100);
    EXPECT_EQ(correrCli({"series", base, "--user", "1", "--mode", "1"}).codigo, 0);
    EXPECT_EQ(c.valor(filas).toInt(), hechas + 1);
    EXPECT_EQ(correrCli({"series", base, "--user", "1", "--mode", "2"}).codigo, 2);
}

} // namespace
} // namespace tesorel::testing
