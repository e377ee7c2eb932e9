#include <gtest/gtest.h>

#include "store/form_scaling.h"

using namespace tesorel;

namespace
{

TEST(EscalarFormulario, ScalesFromTheDesignSizeThenFromTheLastSize)
{
    TamanoEscalado par;
    std::vector<GeometriaControl> c(4);
    c[0] = {false, 0, true, 100, 200, 1000, 500, false}; // a list
    c[1] = {true, 0, true, 100, 200, 1000, 300, false};  // a plain label
    c[2] = {true, 1, true, 100, 200, 1000, 300, false};  // a framed label
    c[3] = {false, 0, false, 100, 200, 0, 0, false};     // a timer

    // The screen is twice the design width and one and a half its height.
    Escalar_Formulario(par, 24000, 14625, c, 0);
    EXPECT_DOUBLE_EQ(c[0].Left, 200);
    EXPECT_DOUBLE_EQ(c[0].Top, 300);
    EXPECT_DOUBLE_EQ(c[0].Width, 2000);
    EXPECT_DOUBLE_EQ(c[0].Height, 750);
    EXPECT_DOUBLE_EQ(c[1].Width, 2000);
    EXPECT_DOUBLE_EQ(c[1].Height, 300); // a plain label sizes itself
    EXPECT_TRUE(c[1].AutoSize);
    EXPECT_DOUBLE_EQ(c[2].Height, 450);
    EXPECT_FALSE(c[2].AutoSize);
    EXPECT_DOUBLE_EQ(c[3].Left, 100); // no geometry: left alone
    EXPECT_DOUBLE_EQ(par.ancho, 24000);

    // A second call starts from the size kept by the first.
    Escalar_Formulario(par, 12000, 14625, c, 1);
    EXPECT_DOUBLE_EQ(c[0].Left, 100);
    EXPECT_DOUBLE_EQ(c[0].Top, 300);

    // A zero size starts from the design size again.
    Escalar_Formulario(par, 12000, 9750, c, 0);
    EXPECT_DOUBLE_EQ(c[0].Left, 100);
}

TEST(CentrarFormulario, HalfTheSpaceLeftOnEachSide)
{
    const Posicion p = Centrar_Formulario(1280, 800, 400, 300);
    EXPECT_DOUBLE_EQ(p.Left, 440);
    EXPECT_DOUBLE_EQ(p.Top, 250);
    const Posicion grande = Centrar_Formulario(800, 600, 1000, 700); // larger than the screen
    EXPECT_DOUBLE_EQ(grande.Left, -100);
}

} // namespace
