#include "windows/import_correo_dialog.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

#include "import/import_correo.h"
#include "import/winsock.h"
#include "windows/estilo.h"
#include "windows/formulario.h"
#include "windows/guarded.h"

namespace tesorel
{

ImportCorreoDialog::ImportCorreoDialog(Session &s, QWidget *parent, std::unique_ptr<Winsock> socket)
    : QDialog(parent), s_(s)
{
    setObjectName("ImportCorreo");
    setWindowTitle(ImportCorreo::Caption);
    setModal(true);
    modelo_ = std::make_unique<ImportCorreo>(s, socket ? std::move(socket) : crearWinsockTcp());

    txtHost_ = crearCampo("txtHost", this);
    txtUserName_ = crearCampo("txtUserName", this);
    txtPassword_ = crearCampo("txtPassword", this);
    txtPassword_->setEchoMode(QLineEdit::Password);
    auto *cmdCheckMail = crearBoton("cmdCheckMail", QStringLiteral("Comprobar"), this);
    auto *cerrar = crearBoton("cerrar", QStringLiteral("Cerrar"), this);
    espere_ = new QLabel(ImportCorreo::AvisoEspere, this);
    espere_->setObjectName("espere");
    espere_->setStyleSheet(conPaleta("color: @aviso; font-weight: bold;"));
    correo_ = new QLabel(this);
    correo_->setObjectName("correo");
    txtBody_ = new QTextEdit(this);
    txtBody_->setObjectName("txtBody");

    auto *formulario = new QFormLayout;
    formulario->addRow(QStringLiteral("Servidor Pop :"), txtHost_);
    formulario->addRow(QStringLiteral("Usuario :"), txtUserName_);
    formulario->addRow(QStringLiteral("Password :"), txtPassword_);
    auto *botones = new QHBoxLayout;
    botones->addWidget(espere_);
    botones->addStretch();
    botones->addWidget(cmdCheckMail);
    botones->addWidget(cerrar);
    auto *capa = new QVBoxLayout(this);
    capa->addLayout(formulario);
    capa->addWidget(correo_);
    capa->addWidget(txtBody_);
    capa->addLayout(botones);
    resize(420, 300);

    ImportCorreo &m = *modelo_;
    connect(txtHost_, &QLineEdit::textEdited, this, [&m](const QString &t) { m.txtHost = t; });
    connect(txtUserName_, &QLineEdit::textEdited, this, [&m](const QString &t) { m.txtUserName = t; });
    connect(txtPassword_, &QLineEdit::textEdited, this, [&m](const QString &t) { m.txtPassword = t; });
    connect(txtBody_, &QTextEdit::textChanged, this, [this] { modelo_->txtBody = txtBody_->toPlainText(); });
    connect(cmdCheckMail, &QPushButton::clicked, this,
            [this] { guarded(s_, [this] { modelo_->cmdCheckMail_Click(); }); });
    connect(txtPassword_, &QLineEdit::returnPressed, this,
            [this] { guarded(s_, [this] { modelo_->txtPassword_KeyPress(13); }); });
    connect(cerrar, &QPushButton::clicked, this,
            [this] { guarded(s_, [this] { modelo_->cerrar_Click(); }); });

    m.alCambiar = [this] { mostrar(); };
    guarded(s_, [this] { modelo_->Form_Load(); });
    Centrar(this);
}

ImportCorreoDialog::~ImportCorreoDialog()
{
    modelo_->alCambiar = nullptr;
}

void ImportCorreoDialog::mostrar()
{
    if (txtHost_->text() != modelo_->txtHost)
        txtHost_->setText(modelo_->txtHost);
    if (txtUserName_->text() != modelo_->txtUserName)
        txtUserName_->setText(modelo_->txtUserName);
    espere_->setVisible(modelo_->espere);
    correo_->setText(modelo_->correo);
    if (modelo_->MousePointer == 11)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
    if (modelo_->Descargado && !cerrado_) {
        cerrado_ = true;
        done(Accepted);
    }
}

void ImportCorreoDialog::reject()
{
    // Closing the window is "cerrar": the socket goes with it.
    guarded(s_, [this] { modelo_->cerrar_Click(); });
    if (!cerrado_) {
        cerrado_ = true;
        QDialog::reject();
    }
}

} // namespace tesorel
