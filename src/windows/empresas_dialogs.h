#pragma once
#include <QDialog>

#include "import/empresas.h"

class QLineEdit;
class QListWidget;

namespace tesorel
{

class Session;

// "Añadir Empresa": one company typed in by hand.
class AddEmpresaDialog : public QDialog
{
  public:
    AddEmpresaDialog(Session &s, const AltaDeEmpresa &entrada, QWidget *parent = nullptr);
    const AddEmpresa &modelo() const { return modelo_; }

  private:
    void copiar();
    Session &s_;
    AddEmpresa modelo_;
    QLineEdit *NOMBRE_, *ABREVIATURA11_, *ABREVIATURA3_, *Invertia_;
};

// The cleaning of the company table.
class DepuraCotizaDialog : public QDialog
{
  public:
    DepuraCotizaDialog(Session &s, QWidget *parent = nullptr);

  private:
    void mostrar();
    Session &s_;
    DepuraCotiza modelo_;
    QListWidget *List1_, *List2_;
};

} // namespace tesorel
