#include <gtest/gtest.h>

#include <QStringList>

#include "users/configuracion.h"

using namespace tesorel;

namespace
{

TEST(Configuracion, LoadsEachPlaceAndSavesTheSameText)
{
    struct Caso {
        QString texto;
        std::array<int, 6> ticks; // Check2(1..5), first unused
        int valores;
        QString indicador;
        int candle, operaciones;
        QString guardado;
    } casos[] = {
        {"101103210", {0, 1, 0, 1, 1, 0}, 3, "2", 1, 0, "101103210"},
        {"111110001", {0, 1, 1, 1, 1, 1}, 0, "0", 0, 1, "111110001"},
        // A new user: nothing stored reads as 0 everywhere, list "Todos".
        {"", {0, 0, 0, 0, 0, 0}, 0, "0", 0, 0, "000000000"},
        // A short text leaves the later places at 0.
        {"11", {0, 1, 1, 0, 0, 0}, 0, "0", 0, 0, "110000000"},
        // A character that is no digit reads as 0.
        {"1x1a0b3c1", {0, 1, 0, 1, 0, 0}, 0, "3", 0, 1, "101000301"},
        // A tick past 2 and a list past the fourth are refused: the controls keep what they had.
        {"300004030", {0, 1, 0, 0, 0, 0}, 2, "0", 1, 0, "100002010"},
    };
    for (const Caso &c : casos) {
        SCOPED_TRACE(c.texto.toStdString());
        ConfiguracionVentana conf;
        conf.Check2.fill(1); // what the window showed before
        conf.Valores = 2;
        conf.Candle = 1;
        Cargar_configuracion(conf, c.texto);
        for (int i = 1; i <= 5; ++i)
            EXPECT_EQ(conf.Check2[i], c.ticks[i]) << i;
        EXPECT_EQ(conf.Check2[6], 1); // the day's average is not stored
        EXPECT_EQ(conf.Valores, c.valores);
        EXPECT_EQ(conf.Indicador_Actual, c.indicador);
        EXPECT_EQ(conf.Candle, c.candle);
        EXPECT_EQ(conf.MostrarOperaciones, c.operaciones);
        EXPECT_EQ(grabar_configuracion(conf), c.guardado);
    }
}

TEST(Configuracion, FillsTheListOnceAndRedrawsOnceAfterTheFlagIsDown)
{
    ConfiguracionVentana conf;
    QStringList sucesos;
    Cargar_configuracion(
        conf, "000001000", [&] { sucesos << QString("lista %1 %2").arg(conf.Valores).arg(conf.Cargando); },
        [&] { sucesos << QString("dibujo %1").arg(conf.Cargando); });
    EXPECT_EQ(sucesos, QStringList({"lista 1 1", "dibujo 0"}));
}

TEST(Configuracion, NoListChosenIsSavedAsTheFirst)
{
    ConfiguracionVentana conf; // the combo has no selection yet
    conf.Indicador_Actual = "3";
    EXPECT_EQ(grabar_configuracion(conf), "000000300");
}

} // namespace
