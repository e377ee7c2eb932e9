#pragma once
#include <QDialog>
#include <memory>

#include "import/winsock.h"

class QLabel;
class QLineEdit;
class QTextEdit;

namespace tesorel
{

class ImportCorreo;
class Session;

// The mail window over its model; the socket is the model's, its events
// come on this thread while the window is shown.
class ImportCorreoDialog : public QDialog
{
    Q_OBJECT
  public:
    ImportCorreoDialog(Session &s, QWidget *parent = nullptr, std::unique_ptr<Winsock> socket = {});
    ~ImportCorreoDialog() override;
    ImportCorreo &modelo() { return *modelo_; }

  protected:
    void reject() override;

  private:
    void mostrar();

    Session &s_;
    std::unique_ptr<ImportCorreo> modelo_;
    QLineEdit *txtHost_, *txtUserName_, *txtPassword_;
    QLabel *espere_, *correo_;
    QTextEdit *txtBody_;
    bool cerrado_ = false;
};

} // namespace tesorel
