#pragma once
#include <QString>
#include <functional>

#include "market/list_box.h"

namespace tesorel
{

class Session;

// The check marks of the "Ver Valores" menu that tell which list is on show.
struct MarcasLista {
    bool menu_todos = false;
    bool menu_massuben = false;
    bool menu_ibex = false;
    bool menu_ENcartera = false;
    bool menu_seguimiento = false;
};

// The left side of the main window: the list of values, its title, the
// check marks and the statement that filled it. The list procedures keep
// the statements exactly as the base expects them.
class ListaValores
{
  public:
    explicit ListaValores(Session &session);

    ListBox List1;
    QString Titul;
    MarcasLista marcas;
    QString Sql_Lista;
    int Valores = -1; // index of the combo: 0 Todos, 1 Ibex, 2 En Cartera, 3 En Seguimiento

    // Random numbers in [0, 1) for qualquier_valor; tests put a fixed source here.
    std::function<double()> aleatorio;

    void Llenar_lista(const QString &statement, const QString &tag);
    void borrar_lista();

    void todos();
    void ibex();
    void faboritos();
    void Cartera();
    void LosqueSuben();

    // A new index in the combo fires the list it stands for.
    void setValores(int index);
    void Valores_Click();

    void SiguienteCategoria();
    void AnteriorCategoria();
    void MismaCategoria();

    void menu_categorias_Globales_Click();
    void menu_categorias_personales_Click();
    void Categorias(double usuario);

    // A code of the current date at random; on failure `valor` keeps what it had.
    void qualquier_valor(double &valor);

  private:
    enum class Lista { Ninguna, Todos, MasSuben, Ibex, EnCartera, Seguimiento };
    void marcar(Lista lista, const QString &title);
    void abrir(Lista lista);
    Lista marcada() const;

    Session &s;
};

} // namespace tesorel
