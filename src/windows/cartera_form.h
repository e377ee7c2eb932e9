#pragma once
#include <QDialog>
#include <QHash>
#include <functional>
#include <memory>
#include <vector>

#include "portfolio/cartera_valoracion.h"
#include "portfolio/modif_cartera.h"

class QGridLayout;
class QLabel;
class QLineEdit;
class QRadioButton;
class QScrollArea;
class QScrollBar;

namespace tesorel
{

class Session;

// The portfolio window: the grid of positions over the cartera11 model. A
// cell is a label named after its column and row ("Valor_3").
class CarteraDialog : public QDialog
{
    Q_OBJECT
  public:
    // `abrir` opens another window by its name and returns when it closes.
    CarteraDialog(Session &s, std::function<void(const QString &)> abrir, QWidget *parent = nullptr);
    ~CarteraDialog() override;
    cartera11 &modelo() { return *modelo_; }

  protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;

  private:
    void alPulsar(const std::function<void()> &evento);
    void pintar();
    QLabel *celda(const QString &columna, int fila);

    Session &s_;
    std::unique_ptr<cartera11> modelo_;
    QWidget *Contenedor_ = nullptr;
    QGridLayout *rejilla_ = nullptr;
    QScrollArea *vista_ = nullptr;
    QScrollBar *VScroll1_ = nullptr;
    std::vector<std::vector<QLabel *>> filas_;
    QHash<QString, QLabel *> etiquetas_;
    std::array<QRadioButton *, 7> SSOption_{};
    QRadioButton *Euros_ = nullptr, *pesetas_ = nullptr;
    bool pintando_ = false;
};

// The editor of one position.
class ModifCarteraDialog : public QDialog
{
    Q_OBJECT
  public:
    ModifCarteraDialog(Session &s, QWidget *parent = nullptr);
    ~ModifCarteraDialog() override;

  private:
    void alPulsar(const std::function<void()> &evento);
    void pintar();

    Session &s_;
    std::unique_ptr<ModifCartera> modelo_;
    QLineEdit *FechaCompra_, *Cantidad_, *Valor_, *PrecioCompra_, *CosteInversion_;
};

} // namespace tesorel
