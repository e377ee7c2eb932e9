#include "market/favourites.h"

#include "market/value_lists.h"
#include "market/value_selection.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"

namespace tesorel
{

Favoritos::Favoritos(Session &session, ListaValores &lista, SeleccionValor &seleccion)
    : s(session), lista_(lista), seleccion_(seleccion)
{
}

void Favoritos::menu_add_faboritos()
{
    s.paso([&] { s.Tabla_Actual = s.Base_Datos->openRecordset("Select * from faboritos "); });
    s.paso([&] {
        Recordset &rs = *s.Tabla_Actual;
        rs.AddNew();
        rs.setField("Usuario", s.Usuario_Numero);
        rs.setField("Valor", Codigo_De(s, seleccion_.Text1(), BuscarPor::Nombre));
        rs.Update();
    });
}

void Favoritos::menu_quitar_faboritos()
{
    s.paso([&] {
        const double code = Codigo_De(s, seleccion_.Text1(), BuscarPor::Nombre);
        s.Base_Datos->execute("delete * from faboritos where (valor = " + Numero_Sql(code) +
                              ") AND (usuario =" + Numero_Sql(s.Usuario_Numero) + ")");
    });
}

void Favoritos::PonerQuitarF()
{
    s.paso([&] {
        const bool sigue = Es_Favorito(s, Codigo_De(s, seleccion_.Text1(), BuscarPor::Nombre));
        Boton_Favorito[0] = !sigue;
        Boton_Favorito[2] = sigue;
    });
}

void Favoritos::Boton_Favorito_Click()
{
    if (Boton_Favorito[0])
        menu_add_faboritos();
    else if (Boton_Favorito[2])
        menu_quitar_faboritos();
    else
        s.ui.Beep();
    // The followed list is the only one rebuilt after a change of it.
    if (lista_.Titul == QLatin1String("En Seguimiento"))
        lista_.faboritos();
    PonerQuitarF();
}

} // namespace tesorel
