#include "windows/chat_panel.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include "store/session.h"
#include "windows/formulario.h"
#include "windows/guarded.h"

namespace tesorel
{

namespace
{

// The transcript keeps the line ends the chat has always written; on the
// screen a carriage return alone also starts a line.
QString paraPantalla(QString texto)
{
    texto.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    texto.replace(u'\r', u'\n');
    return texto;
}
} // namespace

ChatPanel::ChatPanel(Session &s, const AjustesOnline &ajustes, std::function<QString()> version,
                     QWidget *padre)
    : QWidget(padre), s_(s), modelo_(s, ajustes, std::move(version))
{
    setObjectName("ChatPanel");
    auto *capa = new QVBoxLayout(this);
    capa->setContentsMargins(0, 0, 0, 0);
    capa->setSpacing(4);
    Label3_ = new QLabel(ClienteChat::Label3_Caption, this);
    Label3_->setObjectName("Label3");
    capa->addWidget(Label3_);

    EntradaChat_ = new QFrame(this);
    EntradaChat_->setObjectName("EntradaChat");
    auto *entrada = new QHBoxLayout(EntradaChat_);
    entrada->setContentsMargins(0, 0, 0, 0);
    Nickchat_ = crearCampo("Nickchat", EntradaChat_);
    EmailChat_ = crearCampo("EmailChat", EntradaChat_);
    PaswordChat_ = crearCampo("PaswordChat", EntradaChat_);
    PaswordChat_->setEchoMode(QLineEdit::Password);
    EntrarAlChat_ = new QPushButton(QStringLiteral("Entrar"), EntradaChat_);
    EntrarAlChat_->setObjectName("EntrarAlChat");
    entrada->addWidget(new QLabel(QStringLiteral("Nick"), EntradaChat_));
    entrada->addWidget(Nickchat_);
    entrada->addWidget(new QLabel(QStringLiteral("Email"), EntradaChat_));
    entrada->addWidget(EmailChat_);
    entrada->addWidget(new QLabel(QStringLiteral("Clave"), EntradaChat_));
    entrada->addWidget(PaswordChat_);
    entrada->addWidget(EntrarAlChat_);
    capa->addWidget(EntradaChat_);

    auto *centro = new QHBoxLayout;
    auto *izquierda = new QVBoxLayout;
    Chat_ = new QPlainTextEdit(this);
    Chat_->setObjectName("Chat");
    Chat_->setReadOnly(true);
    Charla_ = crearCampo("Charla", this);
    Charla_->installEventFilter(this);
    izquierda->addWidget(Chat_, 1);
    izquierda->addWidget(Charla_);
    UsuariosChat_ = new QListWidget(this);
    UsuariosChat_->setObjectName("UsuariosChat");
    UsuariosChat_->setMaximumWidth(160);
    centro->addLayout(izquierda, 1);
    centro->addWidget(UsuariosChat_);
    capa->addLayout(centro, 1);

    connect(EntrarAlChat_, &QPushButton::clicked, this,
            [this] { alEvento([this] { modelo_.EntrarAlChat_Click(); }); });
    connect(Nickchat_, &QLineEdit::returnPressed, this,
            [this] { alEvento([this] { modelo_.Nickchat_Enter(); }); });
    connect(Charla_, &QLineEdit::returnPressed, this,
            [this] { alEvento([this] { modelo_.Charla_Enter(); }); });
    modelo_.alCambiar = [this] { pintarSalida(); }; // the user may be typing meanwhile
    pintar();
}

void ChatPanel::alEvento(const std::function<void()> &evento)
{
    guarded(s_, [&] {
        modelo_.Nickchat = Nickchat_->text();
        modelo_.EmailChat = EmailChat_->text();
        modelo_.PaswordChat = PaswordChat_->text();
        modelo_.Charla = Charla_->text();
        modelo_.Charla_SelStart = Charla_->cursorPosition();
        evento();
    });
    pintar();
}

bool ChatPanel::eventFilter(QObject *objeto, QEvent *evento)
{
    if (objeto == Charla_ && evento->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(evento)->key() == Qt::Key_Up) {
        alEvento([this] { modelo_.Charla_Arriba(); });
        return true;
    }
    return QWidget::eventFilter(objeto, evento);
}

void ChatPanel::pintar()
{
    pintarSalida();
    if (Nickchat_->text() != modelo_.Nickchat)
        Nickchat_->setText(modelo_.Nickchat);
    if (Charla_->text() != modelo_.Charla)
        Charla_->setText(modelo_.Charla);
    Charla_->setCursorPosition(modelo_.Charla_SelStart);
}

void ChatPanel::pintarSalida()
{
    const QString transcripcion = paraPantalla(modelo_.Chat);
    if (Chat_->toPlainText() != transcripcion) {
        Chat_->setPlainText(transcripcion);
        Chat_->verticalScrollBar()->setValue(Chat_->verticalScrollBar()->maximum());
    }
    QStringList presentes;
    for (int i = 0; i < UsuariosChat_->count(); ++i)
        presentes << UsuariosChat_->item(i)->text();
    if (presentes != modelo_.UsuariosChat) {
        UsuariosChat_->clear();
        UsuariosChat_->addItems(modelo_.UsuariosChat);
    }
    EntradaChat_->setVisible(modelo_.EntradaChat_Visible);
    if (!modelo_.foco.isEmpty()) {
        if (QWidget *w = findChild<QWidget *>(modelo_.foco))
            w->setFocus();
        modelo_.foco.clear();
    }
}

} // namespace tesorel
