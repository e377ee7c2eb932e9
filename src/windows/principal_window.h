#pragma once
#include <QHash>
#include <QStringList>
#include <QWidget>
#include <array>
#include <functional>
#include <memory>

#include "principal/principal.h"

class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QMenuBar;
class QPlainTextEdit;
class QPushButton;
class QStackedWidget;
class QTabBar;
class QTimer;

namespace tesorel
{

class Comandos;
class GraficasVentana;
class Session;

// The main window: a frameless, full-screen form over the Principal model.
// Positions come from Qt layouts; the old scaling of every control from its
// design size to the screen is not needed with them.
class PrincipalWindow : public QWidget
{
    Q_OBJECT
  public:
    // Runs Load: the base is opened here, and NoHay shows before anything else.
    PrincipalWindow(Session &s, Comandos &comandos, const QString &rutaBase = {});
    ~PrincipalWindow() override;

    Principal &modelo() { return modelo_; }
    GraficasVentana &graficas() { return *graficas_; }
    // Shows the window on the whole screen and runs its first activation (the login).
    void mostrar();
    // The Activate event of the form.
    void activar();
    // Puts the model's state on the widgets.
    void pintar();
    // Puts the value's name in the head.
    void pintarTitulo() { ponerTitulo(); }
    // The modal windows this window opened, in order (for the start-up checks).
    const QStringList &ventanasMostradas() const { return ventanas_; }

  protected:
    bool event(QEvent *evento) override;
    void closeEvent(QCloseEvent *evento) override;
    bool eventFilter(QObject *objeto, QEvent *evento) override;

  private:
    void construir();
    void ponerTitulo();
    QFrame *construirCabecera();
    QFrame *construirBotonera();
    QWidget *construirEnlaces(QWidget *padre);
    QWidget *construirPanelLista();
    QWidget *construirGraficas();
    QFrame *construirPanelConfiguracion();
    void construirMenus(QMenuBar *barra);
    void registrarVentanas();
    void copiarConfiguracion();
    void alPulsar(const std::function<void()> &evento);
    void pintarMercado();
    void mostrarMenuEmergente(const QString &control, const QPoint &donde);
    QPushButton *botonDeOrden(const QString &nombre, const QString &texto, QWidget *padre);

    Session &s_;
    Comandos &comandos_;
    Principal modelo_;
    std::unique_ptr<GraficasVentana> graficas_; // the three charts
    QStringList ventanas_;
    bool pintando_ = false;

    QLabel *Titulo_ = nullptr, *Titul_ = nullptr, *Version_ = nullptr, *LabelOnline_ = nullptr;
    QLabel *IndicadorOnline_ = nullptr, *NombreUsuario_ = nullptr;
    QListWidget *List1_ = nullptr;
    QLineEdit *Text1_ = nullptr, *Configuracion_ = nullptr, *Pesta_ = nullptr, *buscar_ = nullptr;
    std::array<QLineEdit *, 3> Mediat_{};
    std::array<QCheckBox *, 7> Check2_{};
    QCheckBox *Candle_ = nullptr, *MostrarOperaciones_ = nullptr, *Logaritmica_ = nullptr, *Splita_ = nullptr;
    QComboBox *Valores_ = nullptr;
    QTabBar *Pestanas_ = nullptr;
    QStackedWidget *paginas_ = nullptr;
    QTimer *Timer1_ = nullptr;
    QHash<QString, QWidget *> visibles_; // controls whose visibility the model decides
    QMenu *menuFiltro_ = nullptr, *menuPopupAccion_ = nullptr;
    QPushButton *Boton_Favorito_ = nullptr;
    QPlainTextEdit *Comentario_ = nullptr;
    QLabel *Fecha_Fin_ = nullptr, *Image1_ = nullptr;
};

} // namespace tesorel
