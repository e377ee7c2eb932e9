#pragma once
#include <QDialog>
#include <functional>
#include <memory>

#include "users/login.h"
#include "windows/formulario.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QListWidget;

namespace tesorel
{

class Session;

// The login window over its model.
class Form4Dialog : public QDialog
{
    Q_OBJECT
  public:
    Form4Dialog(Session &s, std::function<void(const QString &)> ponerConfiguracion,
                QWidget *parent = nullptr);
    ~Form4Dialog() override;
    form4 &modelo() { return *modelo_; }

  protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;
    void reject() override;

  private:
    void copiar();
    void mostrar();

    Session &s_;
    std::unique_ptr<form4> modelo_;
    QListWidget *List1_;
    QLineEdit *Clave_;
    QCheckBox *Check1_;
    EventosDeFormulario eventos_{s_, [this] { copiar(); }, [this] { mostrar(); }};
};

class NewUserDialog : public QDialog
{
    Q_OBJECT
  public:
    explicit NewUserDialog(Session &s, QWidget *parent = nullptr);

  protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;

  private:
    Session &s_;
    NewUser modelo_;
    QLineEdit *NOMBRE_, *Clave1_, *Clave2_;
};

class DatosUsuarioDialog : public QDialog
{
    Q_OBJECT
  public:
    explicit DatosUsuarioDialog(Session &s, ProveedorCorreo proveedor = {}, QWidget *parent = nullptr);

  private:
    void copiar();
    void mostrar();

    Session &s_;
    DatosUsuario modelo_;
    QLineEdit *NOMBRE_, *Direccion_, *email_, *Poblacion_, *CodigoPost_;
    QComboBox *Combo1_;
    EventosDeFormulario eventos_{s_, [this] { copiar(); }, [this] { mostrar(); }};
};

// The base file is missing: tells where it was looked for; its button ends the program.
class NoHayDialog : public QDialog
{
    Q_OBJECT
  public:
    NoHayDialog(const QString &directorio, std::function<void()> aceptar, QWidget *parent = nullptr);

  protected:
    void reject() override;

  private:
    std::function<void()> aceptar_;
};

} // namespace tesorel
