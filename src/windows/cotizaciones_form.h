#pragma once
#include <QDialog>
#include <QString>
#include <array>
#include <functional>
#include <vector>

#include "market/cotizaciones.h"

class QAction;
class QCheckBox;
class QFrame;
class QLabel;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QTabBar;
class QTimer;

namespace tesorel
{

class Session;

// The quotes table ("Cotizaciones Mercado Continuo") over its model: the
// whole screen, modal over the main window. The rows are label rows
// created as the model needs them, in a panel that the scroll bar moves.
class CotizacionesForm : public QDialog
{
    Q_OBJECT
  public:
    // Runs Load; `valorPrincipal` is the value on show in the main window.
    CotizacionesForm(Session &s, const QString &valorPrincipal, QWidget *padre = nullptr);
    ~CotizacionesForm() override;
    Cotizaciones &modelo() { return modelo_; }
    static constexpr int AltoFila = 22; // pixels of a row

  protected:
    void resizeEvent(QResizeEvent *evento) override;
    bool eventFilter(QObject *objeto, QEvent *suceso) override;

  private:
    struct Fila {
        QFrame *marco;
        std::array<QLabel *, 9> celdas; // SubeBaja, Valor .. Efectivo
    };
    QWidget *construirCabecera();
    void construirMenus(QWidget *barra);
    QWidget *construirMandos();
    QWidget *construirTabla();
    // Runs one event of the person under the guard and shows the model after it.
    void evento(const std::function<void()> &cuerpo);
    void alPulsar(QPushButton *boton, const std::function<void()> &cuerpo);
    void mostrar();
    void mostrarFilas();
    void colocarContenedor();
    void ajustarFilasPorPagina();

    Session &s_;
    Cotizaciones modelo_;
    QLabel *Titulo_ = nullptr, *Dia_ = nullptr, *FechaIn_ = nullptr, *FechaFin_ = nullptr;
    QLabel *Suben_ = nullptr, *Bajan_ = nullptr, *Repiten_ = nullptr;
    QTabBar *pestana_ = nullptr;
    std::array<QPushButton *, 9> Image0_{};
    std::array<QRadioButton *, 9> Option2_{};
    QCheckBox *Check1_ = nullptr;
    QAction *menu_ultimo_dia_ = nullptr, *menu_intervalo_ = nullptr;
    QWidget *ventanaTabla_ = nullptr, *Contenedor_ = nullptr;
    QScrollBar *VScroll1_ = nullptr;
    QTimer *Timer1_ = nullptr;
    std::vector<Fila> filas_;
    bool mostrando_ = false; // the model is being put on the widgets
};

} // namespace tesorel
