#pragma once
#include "market/favourites.h"
#include "market/links.h"
#include "market/notes.h"
#include "market/search.h"
#include "market/value_lists.h"
#include "market/value_selection.h"

namespace tesorel
{

class Session;

// The market browser of the main window wired together: the list, the
// value on show, the search box, the note, the favourite button and the
// links. The main window owns one and fills `seleccion.ganchos`.
class NavegadorValores
{
  public:
    explicit NavegadorValores(Session &session)
        : s(session), lista(session), notas(session), seleccion(session, lista, notas),
          busqueda(session, lista, seleccion), favoritos(session, lista, seleccion)
    {
    }
    NavegadorValores(const NavegadorValores &) = delete;
    NavegadorValores &operator=(const NavegadorValores &) = delete;

    Session &s;
    ListaValores lista;
    Notas notas;
    SeleccionValor seleccion;
    Busqueda busqueda;
    Favoritos favoritos;
    AjustesEnlaces ajustes;

    void CargarComentario() { notas.CargarComentario(seleccion.Codigo_Valor); }
    void GrabarComentario() { notas.GrabarComentario(seleccion.Codigo_Valor); }

    void laWEB_Click() { tesorel::laWEB_Click(s, seleccion.enlaces); }
    void BolsaMadrid_Click() { tesorel::BolsaMadrid_Click(s, seleccion.enlaces); }
    void Invertia_Click() { tesorel::Invertia_Click(s, ajustes); }
    void titular_Click() { tesorel::titular_Click(s, ajustes); }
    void Sugiere_Click() { tesorel::Sugiere_Click(s, ajustes); }
};

} // namespace tesorel
