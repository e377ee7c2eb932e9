#pragma once
// Pieces the buy and the sell window share: the grid of commission lines
// and the fields of the operation.
#include <QDialog>
#include <QLineEdit>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <array>

#include "windows/enlace_widget.h"
#include "windows/formulario.h"

class QBoxLayout;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QWidget;

namespace tesorel
{

struct LineasComision;

// The commission lines as labels named Concepto_0..4, porciento_0..4 and
// so on; element 0 is the heading.
class RejillaComisiones
{
  public:
    // The lines go into a grid of their own, added to `capa`.
    RejillaComisiones(QWidget *padre, QBoxLayout *capa);
    void pintar(const LineasComision &l);

  private:
    std::array<std::array<QLabel *, 5>, 5> celdas_{};
};

// The fields of the operation, laid out alike in both windows: value and
// broker, price (captioned `rotuloPrecio`) and quantity, date and amount in
// `capa`, and the total on a row of its own.
struct CamposOperacion {
    EnlaceWidget *Combo1 = nullptr, *Combo2 = nullptr;
    QLineEdit *Precio = nullptr, *Cantidad = nullptr, *Fecha = nullptr, *Precio_total = nullptr,
              *Total = nullptr;
    QGridLayout *capa = nullptr;
    QHBoxLayout *filaTotal = nullptr;
};
CamposOperacion crearCamposOperacion(QWidget *padre, const QString &rotuloPrecio);

// Puts a text on a field only when it differs, so the cursor of the
// field being typed in stays where it is.
void ponerTexto(QLineEdit *campo, const QString &texto);

// Fills an incremental combo with a list in alphabetical order, as it expects.
void llenarEnlace(EnlaceWidget *combo, QStringList lista);

// The buy and the sell model read and show the same fields; these wire them
// to either. Typed prices and amounts go to the model's setters, the broker's
// combo raises its event 2.
template <class Modelo>
void conectarCampos(QDialog *ventana, const CamposOperacion &c, Modelo &m, EventosDeFormulario &eventos)
{
    const std::pair<QLineEdit *, void (Modelo::*)(const QString &)> campos[] = {
        {c.Precio, &Modelo::setPrecio},
        {c.Cantidad, &Modelo::setCantidad},
        {c.Precio_total, &Modelo::setPrecio_total},
        {c.Total, &Modelo::setTotal}};
    for (const auto &[campo, poner] : campos)
        QObject::connect(campo, &QLineEdit::textEdited, ventana,
                         [&m, &eventos, poner](const QString &t) { eventos([&] { (m.*poner)(t); }); });
    QObject::connect(c.Combo2, &EnlaceWidget::evento2, ventana,
                     [&m, &eventos] { eventos([&m] { m.Combo2_Evento(2); }); });
}

// After the window's Load: the combos' lists, then the model on screen.
template <class Modelo> void cargarCampos(const CamposOperacion &c, Modelo &m, EventosDeFormulario &eventos)
{
    llenarEnlace(c.Combo1, m.Combo1_Lista);
    llenarEnlace(c.Combo2, m.Combo2_Lista);
    eventos.mostrar();
}

template <class Modelo> void copiarCampos(const CamposOperacion &c, Modelo &m)
{
    m.Combo1 = c.Combo1->Text();
    m.Combo2 = c.Combo2->Text();
    m.Fecha = c.Fecha->text();
}

// The model's fields and commission lines on screen; a booked operation closes the window.
template <class Modelo>
void mostrarCampos(QDialog *ventana, const CamposOperacion &c, const Modelo &m, RejillaComisiones &lineas)
{
    c.Combo1->setText(m.Combo1);
    c.Combo2->setText(m.Combo2);
    ponerTexto(c.Precio, m.Precio());
    ponerTexto(c.Cantidad, m.Cantidad());
    ponerTexto(c.Fecha, m.Fecha);
    ponerTexto(c.Precio_total, m.Precio_total());
    ponerTexto(c.Total, m.Total());
    lineas.pintar(m.lineas);
    if (m.Cerrada)
        QTimer::singleShot(0, ventana, &QDialog::accept);
}

} // namespace tesorel
