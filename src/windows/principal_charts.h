#pragma once
#include <QString>
#include <array>
#include <memory>

#include "charts/chart_interaction.h"
#include "charts/chart_operations.h"
#include "charts/painter_surface.h"
#include "charts/price_chart.h"

class QCheckBox;
class QPlainTextEdit;
class QPushButton;
class QWidget;

namespace tesorel
{

class ChartView;
class Comandos;
class Principal;
class Session;

// The three charts of the main window: their drawing surfaces, the price
// chart routine with its operation marks and mouse measuring, and the
// widgets that show them. It plugs into the main window through the
// command hub ("DibujarGrafica", "VerOperaciones", "QuitarVerOperaciones",
// the zoom buttons).
class GraficasVentana
{
  public:
    GraficasVentana(Session &s, Principal &modelo, QWidget *ventana);
    ~GraficasVentana();

    // The picture box i (1 price, 2 volume, 3 indicator), made once.
    ChartView *vista(int i, QWidget *padre);
    // The text box of the "Operaciones" tab, made once, and the two controls
    // that show whether the value has operations.
    QPlainTextEdit *textoOperaciones(QWidget *padre);
    void controlesOperaciones(QPushButton *compraVen, QCheckBox *mostrarOperaciones);
    void registrar(Comandos &comandos);
    // Copies the window's controls, draws, and puts the labels on the window.
    void dibujar();

    GraficaPrincipal grafica;
    OperacionesGrafica operaciones;
    InteraccionGrafica interaccion;

  private:
    void mostrarEtiquetas();
    void repintar();
    void mostrarOperaciones();

    Session &s_;
    Principal &modelo_;
    QWidget *ventana_;
    // Sized for a full-screen window; the views scale them to their boxes.
    std::array<std::unique_ptr<PainterSurface>, 3> superficies_;
    std::array<ChartView *, 3> vistas_{};
    QPlainTextEdit *texto_ = nullptr;
    QPushButton *compraVen_ = nullptr;
    QCheckBox *mostrar_ = nullptr;
};

} // namespace tesorel
