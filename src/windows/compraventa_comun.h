#pragma once
// Pieces the buy and the sell window share: the grid of commission lines
// and the fields of the operation.
#include <QString>
#include <QStringList>
#include <array>

class QBoxLayout;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QWidget;

namespace tesorel
{

class EnlaceWidget;
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
    EnlaceWidget *Combo1, *Combo2;
    QLineEdit *Precio, *Cantidad, *Fecha, *Precio_total, *Total;
    QGridLayout *capa;
    QHBoxLayout *filaTotal;
};
CamposOperacion crearCamposOperacion(QWidget *padre, const QString &rotuloPrecio);

// Puts a text on a field only when it differs, so the cursor of the
// field being typed in stays where it is.
void ponerTexto(QLineEdit *campo, const QString &texto);

// Fills an incremental combo with a list in alphabetical order, as it expects.
void llenarEnlace(EnlaceWidget *combo, QStringList lista);

} // namespace tesorel
