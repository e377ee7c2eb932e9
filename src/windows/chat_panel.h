#pragma once
#include <QWidget>
#include <functional>

#include "online/chat_cliente.h"

class QFrame;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace tesorel
{

class Session;

// The chat panel of the main window (MarcoChat): a thin form over the
// ClienteChat model.
class ChatPanel : public QWidget
{
  public:
    // `version` gives the caption of the main window's Version label.
    ChatPanel(Session &s, const AjustesOnline &ajustes, std::function<QString()> version, QWidget *padre);

    ClienteChat &modelo() { return modelo_; }
    // Puts the model's state on the widgets.
    void pintar();

  protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;

  private:
    void alEvento(const std::function<void()> &evento);
    void pintarSalida(); // what the socket changes: transcript, users, login block, focus

    Session &s_;
    ClienteChat modelo_;
    QLabel *Label3_ = nullptr;
    QFrame *EntradaChat_ = nullptr;
    QLineEdit *Nickchat_ = nullptr, *EmailChat_ = nullptr, *PaswordChat_ = nullptr, *Charla_ = nullptr;
    QPushButton *EntrarAlChat_ = nullptr;
    QPlainTextEdit *Chat_ = nullptr;
    QListWidget *UsuariosChat_ = nullptr;
};

} // namespace tesorel
