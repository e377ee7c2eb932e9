#include "market/value_selection.h"

#include "core/format.h"
#include "core/numbers.h"
#include "market/notes.h"
#include "market/search.h"
#include "market/value_lists.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/session.h"
#include "store/ui.h"

namespace tesorel
{

namespace
{
template <class F> void llamar(const F &gancho)
{
    if (gancho)
        gancho();
}
} // namespace

SeleccionValor::SeleccionValor(Session &session, ListaValores &lista, Notas &notas)
    : s(session), lista_(lista), notas_(notas)
{
}

void SeleccionValor::setText1(const QString &text)
{
    if (text == text1_)
        return;
    text1_ = text;
    Text1_Change();
}

void SeleccionValor::List1_Click()
{
    s.paso([&] { notas_.GrabarComentario(Codigo_Valor); });
    // With no entry selected the datum of -1 fails and nothing is selected.
    s.paso([&] { setText1(Nombre_De(s, lista_.List1.ItemData(lista_.List1.ListIndex))); });
}

void SeleccionValor::Text1_Change()
{
    const QString text = text1_;
    if (text.left(7) == QLatin1String("CARTERA"))
        s.paso([&] {
            if (ganchos.Generar_Serie_Cartera)
                ganchos.Generar_Serie_Cartera(1);
        });
    s.paso([&] { llamar(ganchos.QuitarVerOperaciones); });
    s.paso([&] {
        if (busqueda_)
            busqueda_->setBuscar(QString());
    });
    s.paso([&] { Codigo_Valor = Codigo_De(s, text, BuscarPor::Nombre); });
    enlaces = Calcular_Enlaces(s, Codigo_Valor);
    s.paso([&] { llamar(ganchos.DibujarGrafica); });
    s.paso([&] { llamar(ganchos.Pesta); });
}

void SeleccionValor::Image1_DragDrop(const QString &source, const QDate &fecha)
{
    if (source != QLatin1String("Fecha_Fin"))
        return;
    s.paso([&] {
        const int answer =
            s.ui.MsgBox("¿ Deseas borrar cotizaciones del día " + Format(fecha, "dd/mm/yyyy") + " ?",
                        mb::YesNo + mb::Question, "Atención");
        if (answer != mb::Yes)
            return;
        s.Base_Datos->execute("delete * from bolsa where [fecha] = #" +
                              Barra_A_Guion(Format(fecha, "mm/dd/yyyy")) + "#");
    });
}

} // namespace tesorel
