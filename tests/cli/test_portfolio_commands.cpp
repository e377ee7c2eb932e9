#include "sample_base.h"

#include <QFile>
#include <gtest/gtest.h>

#include "core/numbers.h"

namespace tesorel::testing
{
namespace
{

QStringList cli(const QStringList &args, int *rc = nullptr)
{
    const SalidaCli o = correrCli(args);
    if (rc)
        *rc = o.codigo;
    if (o.codigo != 0 && o.codigo != 2)
        ADD_FAILURE() << o.err.right(2000).toStdString();
    return o.lineas();
}

// The column of the grid lines, read with the locale rule.
std::vector<double> columna(const QStringList &lineas, int indice)
{
    std::vector<double> r;
    for (const QString &l : lineas.mid(1)) {
        const QStringList c = l.split('\t');
        if (c.size() == 11)
            r.push_back(Numero_Cdbl(c[indice]));
    }
    return r;
}

QString total(const QStringList &lineas, const QString &nombre)
{
    for (const QString &l : lineas)
        if (l.startsWith(nombre + '\t'))
            return l.section('\t', 1);
    return "missing";
}

TEST(PortfolioCommand, GridTotalsSortCurrencyAndReport)
{
    CopiaDeMuestra c;
    const QString &base = c.base, html = c.dir.filePath("cartera-cli.htm");
    int rc = -1;
    const QStringList euros = cli({"portfolio", base, "--user", "1", "--sort", "beneficio", "--asc", "--html",
                                   html, "--today", "2030-01-01"},
                                  &rc);
    ASSERT_EQ(rc, 0);
    ASSERT_GE(euros.size(), 1 + 8);
    EXPECT_EQ(euros[0], "Fecha de Compra\tDias\tTítulos\tValor\t% Cartera\tPrecio de Compra\tÚltimo\tCoste "
                        "Inversión\tValor  Actual\tBeneficio\t%");
    const auto beneficio = columna(euros, 9);
    ASSERT_FALSE(beneficio.empty());
    EXPECT_TRUE(std::is_sorted(beneficio.begin(), beneficio.end()));
    double suma = 0;
    for (double v : columna(euros, 8))
        suma += v;
    EXPECT_NEAR(Numero_Cdbl(total(euros, "valor")), suma, 0.01 * beneficio.size());

    const QStringList pesetas = cli({"portfolio", base, "--user", "1", "--pesetas"});
    EXPECT_NEAR(Numero_Cdbl(total(pesetas, "valor")), Numero_Cdbl(total(euros, "valor")) * 166.386, 1);
    EXPECT_EQ(total(pesetas, "porcentaje"), total(euros, "porcentaje"));

    QFile f(html);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray texto = f.readAll();
    EXPECT_TRUE(texto.contains("Cartera : demo a 01/01/2030&nbsp;"));
    EXPECT_TRUE(texto.endsWith("</TABLE></BODY></HTML>\r\n"));

    EXPECT_EQ(cli({"portfolio", base, "--user", "1", "--sort", "nada"}, &rc), QStringList());
    EXPECT_EQ(rc, 2);
}

TEST(SeriesCommand, RebuildsTheSeriesAndModeOneAddsTheLastDayAgain)
{
    CopiaDeMuestra c;
    const QString &base = c.base;
    int rc = -1;
    cli({"series", base, "--user", "1"}, &rc);
    ASSERT_EQ(rc, 0);
    auto db = c.open();
    const int filas = scalar(*db, "select count(*) from bolsa where valor = 34001").toInt();
    EXPECT_GT(filas, 100);
    const double ultimo =
        scalar(*db, "select ULTIMO from bolsa where valor = 34001 order by fecha desc limit 1").toDouble();
    const QStringList cartera = cli({"portfolio", base, "--user", "1"});
    EXPECT_NEAR(ultimo * 1000, Numero_Cdbl(total(cartera, "valor")), 0.01);

    cli({"series", base, "--user", "1", "--mode", "1"}, &rc);
    EXPECT_EQ(rc, 0);
    EXPECT_EQ(scalar(*db, "select count(*) from bolsa where valor = 34001").toInt(), filas + 1);
    cli({"series", base, "--user", "1", "--mode", "2"}, &rc);
    EXPECT_EQ(rc, 2);
}

} // namespace
} // namespace tesorel::testing
