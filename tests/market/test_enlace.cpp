#include <gtest/gtest.h>

#include "market/enlace.h"

using namespace tesorel;

namespace
{

class EnlaceTest : public ::testing::Test
{
  protected:
    Enlace e;
    std::vector<int> eventos;

    void SetUp() override
    {
        for (const char *item : {"BBVA", "IBERDROLA", "REPSOL", "SANTANDER", "TELEFONICA"})
            e.Additem(item);
        e.alEvento = [this](int ev) { eventos.push_back(ev); };
    }
    void teclear(const QString &text)
    {
        for (QChar c : text)
            e.Text1_KeyPress(c);
    }
};

TEST_F(EnlaceTest, TheLinearSearchStopsAtTheFirstEntryNotBelowTheText)
{
    const struct {
        const char *text;
        int index;
        bool found;
    } cases[] = {
        {"AAA", 0, false},       // below all
        {"ZZZ", 4, false},       // above all: the last
        {"REPSOL", 2, true},     // exact
        {"repsol", 2, true},     // in either case
        {"REP", 2, false},       // a beginning is not the entry
        {"TELEFONICA", 4, true}, // the last entry, exact
    };
    for (const auto &c : cases) {
        e.setText(c.text);
        EXPECT_EQ(e.buscar(), c.found) << c.text;
        EXPECT_EQ(e.Listindex(), c.index) << c.text;
    }
    EXPECT_TRUE(eventos.empty()); // a search chooses nothing
    e.Clear();
    e.setText("X");
    EXPECT_FALSE(e.buscar());
    EXPECT_EQ(e.Listindex(), -1); // an empty list finds nothing
}

TEST_F(EnlaceTest, WithTheListClosedKeysAreThrownAway)
{
    e.setText("BBVA");
    EXPECT_FALSE(e.Text1_KeyPress('S'));
    EXPECT_FALSE(e.Text1_KeyPress('\b'));
    EXPECT_FALSE(e.Text1_KeyDown(Enlace::Tecla::Abajo));
    EXPECT_FALSE(e.Text1_KeyDown(Enlace::Tecla::Return));
    EXPECT_EQ(e.Text(), "BBVA");
    EXPECT_EQ(e.Listindex(), -1);
    EXPECT_TRUE(eventos.empty());
}

TEST_F(EnlaceTest, TheArrowOpensTheListOnTheTextAndEachKeySearches)
{
    e.setText("REPSOL");
    e.Flecha_Click();
    EXPECT_TRUE(e.ListaVisible());
    EXPECT_TRUE(e.ListaConFoco());
    EXPECT_TRUE(e.AbiertaConFlecha());
    EXPECT_EQ(e.Listindex(), 2);
    EXPECT_EQ(eventos, std::vector<int>{Enlace::ListaAbierta});

    e.setText("");
    const struct {
        QChar key;
        int index;
    } steps[] = {{'s', 3}, {'a', 3}, {'\b', 3}, {'\b', 0}, {'t', 4}, {'i', 4}};
    for (const auto &st : steps) {
        EXPECT_TRUE(e.Text1_KeyPress(st.key));
        EXPECT_EQ(e.Listindex(), st.index) << e.Text().toStdString();
    }
    EXPECT_EQ(e.Text(), "ti");
}

TEST_F(EnlaceTest, UpDownAndReturnGoOnToTheList)
{
    e.Flecha_Click();
    eventos.clear();
    EXPECT_TRUE(e.Text1_KeyDown(Enlace::Tecla::Arriba));
    EXPECT_EQ(e.Listindex(), 0); // already at the top
    e.Text1_KeyDown(Enlace::Tecla::Abajo);
    e.Text1_KeyDown(Enlace::Tecla::Abajo);
    EXPECT_EQ(e.Listindex(), 2);
    e.Text1_KeyDown(Enlace::Tecla::Return);
    EXPECT_EQ(e.Text(), "REPSOL");
    EXPECT_FALSE(e.ListaVisible());
    EXPECT_EQ(eventos, std::vector<int>{Enlace::Elegido});
}

TEST_F(EnlaceTest, AClickOrReturnInTheListChoosesOnce)
{
    e.Text1_GotFocus();
    e.Flecha_Click();
    teclear("ib");
    eventos.clear();
    e.List1_Click();
    EXPECT_EQ(e.Text(), "IBERDROLA");
    EXPECT_EQ(eventos, std::vector<int>{Enlace::Elegido});
    e.cerrar(); // the copy is no further change to tell
    EXPECT_EQ(eventos.size(), 1u);

    e.Flecha_Click();
    e.setListindex(5); // one past the last entry: none
    EXPECT_EQ(e.Listindex(), -1);
    e.setListindex(3);
    eventos.clear();
    e.List1_KeyPress('\r');
    EXPECT_EQ(e.Text(), "SANTANDER");
    EXPECT_EQ(eventos, std::vector<int>{Enlace::Elegido});
}

TEST_F(EnlaceTest, CerrarTellsAChoiceOnlyWhenTheTextChanged)
{
    e.Text1_GotFocus();
    e.Flecha_Click();
    eventos.clear();
    e.cerrar(); // untouched
    EXPECT_FALSE(e.ListaVisible());
    EXPECT_TRUE(eventos.empty());
    e.Flecha_Click();
    teclear("x");
    eventos.clear();
    e.cerrar();
    EXPECT_EQ(eventos, std::vector<int>{Enlace::Elegido});
}

TEST_F(EnlaceTest, TheFocusClearsTheChangeAndLosingItHidesTheList)
{
    e.setText("algo");
    EXPECT_TRUE(e.Cambiado());
    e.Text1_GotFocus();
    EXPECT_FALSE(e.Cambiado());

    e.Flecha_Click();
    eventos.clear();
    e.LostFocus();
    EXPECT_FALSE(e.ListaVisible());
    EXPECT_EQ(eventos, std::vector<int>{Enlace::ListaOculta});
    e.LostFocus(); // already hidden: nothing to tell
    EXPECT_EQ(eventos.size(), 1u);
}

} // namespace
