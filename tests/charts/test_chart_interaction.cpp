#include "price_chart_fixture.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace tesorel::testing
{
namespace
{

TEST(ChartInteraction, LupaSteps)
{
    const struct {
        double ahora, mas, menos;
    } tabla[] = {{0, 0, 200}, {200, 0, 100}, {100, 200, 50}, {50, 100, 15},
                 {15, 50, 5}, {5, 15, 5},    {30, 0, 5}};
    for (const auto &t : tabla) {
        EXPECT_EQ(InteraccionGrafica::lupaMas(t.ahora), t.mas) << t.ahora;
        EXPECT_EQ(InteraccionGrafica::lupaMenos(t.ahora), t.menos) << t.ahora;
    }
    ChartFixture f;
    f.serie(7, 300);
    f.inter.Lupa_menos_Click();
    EXPECT_EQ(f.s.Maximo_Dias_Sesion, 200);
    EXPECT_EQ(f.g.GraficaPrecio.NumPoints(), 200);
}

TEST(ChartInteraction, MeasuringWithTheMouse)
{
    ChartFixture f;
    f.serie(7, 10);
    f.g.DibujarGrafica();
    const double h = std::fabs(f.p1.scaleHeight() / 20.0f);
    f.inter.Picture1_MouseDown(InteraccionGrafica::kIzquierdo, 0, 500, 12.5);
    EXPECT_EQ(f.inter.NumeroLineas, 1);
    EXPECT_EQ(f.inter.Inicio.caption, QStringLiteral("12,5"));
    EXPECT_DOUBLE_EQ(f.inter.Inicio.top, 12.5 + h);
    EXPECT_DOUBLE_EQ(f.inter.Inicio.left, 500 - 20);
    EXPECT_TRUE(f.inter.Circulo1.visible);
    f.inter.Picture1_MouseMove(InteraccionGrafica::kIzquierdo, 0, 600, 14.25);
    EXPECT_EQ(f.inter.Fin.caption, QStringLiteral("14,25"));
    // Inicio's caption measures Fin too.
    EXPECT_DOUBLE_EQ(f.inter.Fin.left, 600 - 20);
    const LineaGrafica l = f.inter.Linea.at(1);
    EXPECT_EQ(l.x1, 500);
    EXPECT_EQ(l.x2, 600);
    EXPECT_EQ(l.y2, 14.25);
    f.inter.Picture1_MouseDown(InteraccionGrafica::kDerecho, 0, 600, 14.25);
    EXPECT_EQ(f.inter.Linea.at(1).x1, 600);
    EXPECT_EQ(f.inter.Linea.at(1).x2, 500);
    f.inter.Picture1_MouseUp(InteraccionGrafica::kIzquierdo, 0, 600, 14.25);
    EXPECT_EQ(f.inter.NumeroLineas, 0);
    EXPECT_FALSE(f.inter.Linea.count(1));
    EXPECT_TRUE(f.inter.Fin.visible); // the labels stay behind
    f.inter.Titulo_Change();
    EXPECT_FALSE(f.inter.Fin.visible);
    EXPECT_FALSE(f.inter.Circulo1.visible);
    // A logarithmic chart reads true prices.
    f.s.Logaritmica = true;
    f.inter.Picture1_MouseDown(InteraccionGrafica::kIzquierdo, 0, 100, 2);
    EXPECT_EQ(f.inter.Inicio.caption, QStringLiteral("100,"));
}

TEST(ChartInteraction, TikerExport)
{
    ChartFixture f;
    f.insertar(7, Fila{QDate(2024, 1, 2), 9.5, 10.25, 2.5, 300, 11, 9, 3.075});
    QDir(f.base.folder()).mkpath(QStringLiteral("app"));
    Session s(f.ui, f.base.folder() + QStringLiteral("/app"));
    s.Base_Datos = f.base.db;
    GraficaPrincipal g(s);
    InteraccionGrafica i(s, g);
    i.TikerTag = 7;
    EXPECT_THROW(i.setTiker(QStringLiteral("ACM")), RuntimeError); // no folder
    i.Tiker = QStringLiteral("TIKER");
    QDir(f.base.folder()).mkpath(QStringLiteral("OpenTesorel/Cotiza"));
    i.setTiker(QStringLiteral("ACM"));
    EXPECT_EQ(i.Tiker, QStringLiteral("TIKER"));
    QFile out(f.base.folder() + QStringLiteral("/OpenTesorel/Cotiza/ACM.txt"));
    ASSERT_TRUE(out.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(out.readAll()),
              QStringLiteral("#2024-01-02#,9.5,10.25,2.5,0,11,9,300,3.075\r\n"));
    i.setTiker(QStringLiteral("XXXXX"));
    EXPECT_EQ(i.Tiker, QStringLiteral("TIKER"));
}

} // namespace
} // namespace tesorel::testing
