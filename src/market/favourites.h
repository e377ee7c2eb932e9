#pragma once
#include <array>

namespace tesorel
{

class ListaValores;
class SeleccionValor;
class Session;

// The user's followed values and the button that adds or removes the value on show.
class Favoritos
{
  public:
    Favoritos(Session &session, ListaValores &lista, SeleccionValor &seleccion);

    // Visibility of the elements of the label array Boton_Favorito: element 0
    // adds ("Añadir a Seguimiento"), element 2 removes; one of them shows.
    std::array<bool, 3> Boton_Favorito{true, false, false};

    // No test for a duplicate: adding twice leaves two rows.
    void menu_add_faboritos();
    // Deletes every row of the value for the user.
    void menu_quitar_faboritos();
    void PonerQuitarF();
    void Boton_Favorito_Click();

  private:
    Session &s;
    ListaValores &lista_;
    SeleccionValor &seleccion_;
};

} // namespace tesorel
