#pragma once
#include <QDialog>
#include <array>

#include "portfolio/vender.h"
#include "windows/compraventa_comun.h"
#include "windows/formulario.h"

class QLabel;
class QLineEdit;
class QWidget;

namespace tesorel
{

class EnlaceWidget;
class RejillaComisiones;

// The sell window over its model, with the lots panel under it.
class VenderDialog : public QDialog
{
    Q_OBJECT
  public:
    VenderDialog(Session &s, EntornoCompraVenta entorno, QWidget *parent = nullptr);
    ~VenderDialog() override;
    Vender &modelo() { return modelo_; }

  private:
    void copiar();
    void mostrar();

    Session &s_;
    Vender modelo_;
    EventosDeFormulario eventos_;
    CamposOperacion campos_;
    std::unique_ptr<RejillaComisiones> lineas_;
    QWidget *panel_;
    std::array<std::array<QLabel *, 7>, PanelLotes::kLotes + 1> celdas_{};
};

} // namespace tesorel
