#pragma once
#include <QString>

namespace tesorel
{

class ListaValores;
class SeleccionValor;
class Session;

// The main window's search box `buscar`: a ticker, or part of a name.
class Busqueda
{
  public:
    Busqueda(Session &session, ListaValores &lista, SeleccionValor &seleccion);
    ~Busqueda();
    Busqueda(const Busqueda &) = delete;
    Busqueda &operator=(const Busqueda &) = delete;

    const QString &buscar() const { return text_; }
    // Like the text box: only a different text is a change; an emptied box
    // brings back the list that a result replaced.
    void setBuscar(const QString &text);

    // The selection of the box's text.
    int SelStart = 0;
    int SelLength = 0;

    // Return in the box: the ticker first, then the names that contain the text.
    void buscar_Return();
    void buscar_GotFocus();

  private:
    Session &s;
    ListaValores &lista_;
    SeleccionValor &seleccion_;
    QString text_;
};

} // namespace tesorel
