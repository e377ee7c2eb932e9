#pragma once
#include <QDialog>
#include <array>

#include "portfolio/operadores_form.h"
#include "windows/formulario.h"

class QLineEdit;
class QListWidget;
class QMenu;

namespace tesorel
{

// The brokers' editor over its model: the list, the grid of fifteen
// bands with a Borrar button a row, the box for a new broker.
class OperadoresDialog : public QDialog
{
    Q_OBJECT
  public:
    explicit OperadoresDialog(Session &s, QWidget *parent = nullptr);
    ~OperadoresDialog() override;
    operadoresform &modelo() { return modelo_; }

  private:
    void copiar();
    void mostrar();

    Session &s_;
    operadoresform modelo_;
    EventosDeFormulario eventos_;
    QListWidget *List1_;
    QLineEdit *Text1_;
    std::array<std::array<QLineEdit *, operadoresform::kColumnas>, operadoresform::kFilas + 1> celdas_{};
    QMenu *menu_operadores_, *menu_comisiones_;
};

} // namespace tesorel
