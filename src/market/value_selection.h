#pragma once
#include <QDate>
#include <QString>
#include <functional>

#include "market/links.h"

namespace tesorel
{

class Busqueda;
class ListaValores;
class Notas;
class Session;

// The steps of a selection that belong to the chart, the tabs and the
// portfolio series. The main window fills them; an absent one does nothing.
struct Ganchos {
    std::function<void(double modo)> Generar_Serie_Cartera;
    std::function<void()> QuitarVerOperaciones;
    std::function<void()> DibujarGrafica;
    std::function<void()> Pesta; // refreshes the open tab
};

// The value on show. Writing a company's NOMBRE into Text1 selects it:
// the change runs the steps that bring the chart, links and tab to it.
class SeleccionValor
{
  public:
    SeleccionValor(Session &session, ListaValores &lista, Notas &notas);

    Ganchos ganchos;
    double Codigo_Valor = 0;
    EnlacesValor enlaces;

    const QString &Text1() const { return text1_; }
    // Like the text box: only a different text is a change.
    void setText1(const QString &text);

    // Saves the note of the value that goes, then selects the entry's value.
    void List1_Click();

    // Dropping the label `source` (the chart's last date when it is
    // "Fecha_Fin") on Image1 offers to delete that day's quotes.
    void Image1_DragDrop(const QString &source, const QDate &fecha);

    // The search box that a selection empties.
    void setBusqueda(Busqueda *busqueda) { busqueda_ = busqueda; }

  private:
    void Text1_Change();

    Session &s;
    ListaValores &lista_;
    Notas &notas_;
    Busqueda *busqueda_ = nullptr;
    QString text1_;
};

} // namespace tesorel
