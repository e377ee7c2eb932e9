#pragma once
#include <QDialog>

#include "portfolio/comprar.h"
#include "windows/compraventa_comun.h"
#include "windows/formulario.h"

class QLineEdit;

namespace tesorel
{

class EnlaceWidget;
class RejillaComisiones;

// The buy window over its model.
class ComprarDialog : public QDialog
{
    Q_OBJECT
  public:
    ComprarDialog(Session &s, EntornoCompraVenta entorno, QWidget *parent = nullptr);
    ~ComprarDialog() override;
    Comprar &modelo() { return modelo_; }

  private:
    void copiar();
    void mostrar();

    Session &s_;
    Comprar modelo_;
    EventosDeFormulario eventos_;
    CamposOperacion campos_;
    std::unique_ptr<RejillaComisiones> lineas_;
};

} // namespace tesorel
