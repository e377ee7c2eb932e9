#pragma once
#include <QDialog>
#include <memory>

#include "import/importinet.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QWidget;

namespace tesorel
{

class Session;

// The web import window over its model. The run starts once the window is
// on screen, so that its progress can be watched; the window answers
// events between the days and while each download waits.
class ImportinetDialog : public QDialog
{
    Q_OBJECT
  public:
    ImportinetDialog(Session &s, FuentesCierres fuentes, Importinet::Acciones acciones,
                     QWidget *parent = nullptr);
    ~ImportinetDialog() override;
    Importinet &modelo() { return *modelo_; }

  protected:
    void showEvent(QShowEvent *evento) override;
    void reject() override;

  private:
    void copiar();
    void mostrar();
    template <class Evento> void alPulsar(Evento &&evento);
    void correr(const std::function<void()> &run);

    Session &s_;
    std::unique_ptr<Importinet> modelo_;
    QLabel *Label1_, *DIA_, *site_;
    std::array<QLabel *, 3> sape_;
    QProgressBar *Shape1_;
    QListWidget *List1_, *Ok_, *fallo_;
    QWidget *Manual_, *detalles_;
    QLineEdit *FechaIn_, *FechaFin_;
    QPushButton *Command1_, *Importar_;
    bool mostrando_ = false, empezado_ = false;
};

} // namespace tesorel
