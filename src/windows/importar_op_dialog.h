#pragma once
#include <QDialog>
#include <functional>

#include "import/importar_op.h"

class QCheckBox;
class QComboBox;
class QEventLoop;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTableWidget;

namespace tesorel
{

class Session;

// The broker statements window over its model. The wait for "Confirmar"
// is a local event loop: the grid's cells, the combos and the ticks stay
// open to the person, and no processor time is spent while nothing happens.
class ImportarOpDialog : public QDialog
{
    Q_OBJECT
  public:
    ImportarOpDialog(Session &s, std::function<void()> addEmpresa = {}, QWidget *parent = nullptr);
    ImportarOp &modelo() { return modelo_; }

  protected:
    void reject() override;

  private:
    void mostrar();
    void mostrarRejilla();
    void terminarEspera();

    Session &s_;
    ImportarOp modelo_;
    std::function<void()> addEmpresa_;
    QLineEdit *Text1_;
    QPlainTextEdit *Text2_;
    QLabel *Valor_;
    QComboBox *Combo1_, *Combo2_;
    QCheckBox *ImportarOp_, *Guardar_;
    QPushButton *Command2_, *Command3_;
    QTableWidget *rejilla_;
    QEventLoop *espera_ = nullptr;
    bool mostrando_ = false;
};

} // namespace tesorel
