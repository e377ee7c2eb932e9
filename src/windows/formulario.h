#pragma once
// What every thin form shares: controls created under their names, and the
// one way an event runs — the widgets' edits copied into the model, the
// model's event under the guard, the model put back on the widgets.
#include <QString>
#include <functional>

class QAbstractButton;
class QDialog;
class QLabel;
class QLayout;
class QLineEdit;
class QObject;
class QPushButton;
class QWidget;

namespace tesorel
{

class Session;

QPushButton *crearBoton(const QString &nombre, const QString &texto, QWidget *padre);
QLineEdit *crearCampo(const QString &nombre, QWidget *padre, bool secreto = false);
QLabel *crearEtiqueta(const QString &nombre, const QString &texto, QWidget *padre);
// The form's fields above, "Aceptar" and "Cancelar" at the bottom right.
void formularioConBotones(QDialog *ventana, QLayout *formulario, QPushButton *aceptar, QPushButton *cancelar);

class EventosDeFormulario
{
  public:
    EventosDeFormulario(Session &s, std::function<void()> copiar, std::function<void()> mostrar)
        : s_(s), copiar_(std::move(copiar)), mostrar_(std::move(mostrar))
    {
    }

    // Runs one event. The signals that the widgets raise while the model is
    // put back on them are not events of the person, and are ignored.
    void operator()(const std::function<void()> &evento);
    // Puts the model on the widgets without running an event (after Load).
    void mostrar();
    bool mostrando() const { return mostrando_; }

    // A click of the button runs the event.
    void alPulsar(QAbstractButton *boton, const std::function<void()> &evento);

  private:
    Session &s_;
    std::function<void()> copiar_, mostrar_;
    bool mostrando_ = false;
};

} // namespace tesorel
