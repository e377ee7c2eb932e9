#pragma once
#include <QDialog>
#include <memory>

#include "import/importar.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;

namespace tesorel
{

class Comandos;
class Session;

// The quote-file window over its model; the other windows it opens are
// reached through the main window's commands.
class ImportarDialog : public QDialog
{
  public:
    ImportarDialog(Session &s, const Comandos &comandos, QWidget *parent = nullptr);
    ~ImportarDialog() override;
    Importar &modelo() { return *modelo_; }

  protected:
    void done(int resultado) override;
    bool eventFilter(QObject *objeto, QEvent *evento) override;

  private:
    void mostrar();
    void alPulsar(const std::function<void()> &evento);

    Session &s_;
    std::unique_ptr<Importar> modelo_;
    QLineEdit *Text1_;
    QLabel *Label2_;
    QCheckBox *Sobre_;
    QProgressBar *progreso_;
    bool trabajando_ = false;
    bool cerrado_ = false;
};

} // namespace tesorel
