#include "windows/login_dialogs.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "principal/principal.h"
#include "windows/estilo.h"
#include "windows/formulario.h"
#include "windows/guarded.h"

namespace tesorel
{

Form4Dialog::Form4Dialog(Session &s, std::function<void(const QString &)> ponerConfiguracion, QWidget *parent)
    : QDialog(parent), s_(s)
{
    setObjectName("form4");
    setWindowTitle(QStringLiteral("Tesorel"));
    setModal(true);
    modelo_ = std::make_unique<form4>(s, std::move(ponerConfiguracion), [this] {
        NewUserDialog nuevo(s_, this);
        nuevo.exec();
    });

    auto *marca = new QLabel(QStringLiteral("Tesorel"), this);
    marca->setStyleSheet(conPaleta("font-size: 18pt; font-weight: bold; color: @marca;"));
    List1_ = new QListWidget(this);
    List1_->setObjectName("List1");
    List1_->setMinimumHeight(150);
    Clave_ = crearCampo("Clave", this, true);
    Check1_ = new QCheckBox(QStringLiteral("Permitir conexión a internet"), this);
    Check1_->setObjectName("Check1");
    auto *Entrar = crearBoton("Entrar", QStringLiteral("Entrar"), this);
    Entrar->setStyleSheet(
        conPaleta("background: @marca; color: white; padding: 6px 18px; border-radius: 4px;"));
    auto *nuevo = crearBoton("nuevo_usuario", QStringLiteral("Añadir Usuario"), this);
    auto *Label1 = crearBoton("Label1", QStringLiteral("Predeterminar Clave"), this);
    auto *PredeUser = crearBoton("PredeUser", QStringLiteral("Predeterminar Usuario"), this);
    auto *Eliminar = crearBoton("Eliminar", QStringLiteral("Eliminar"), this); // never had an action
    auto *nota = new QLabel(QStringLiteral("Resolución Recomendada : 800x600 1024x768"), this);
    nota->setStyleSheet(conPaleta("color: @gris; font-size: 8pt;"));

    auto *capa = new QVBoxLayout(this);
    capa->addWidget(marca);
    capa->addWidget(new QLabel(QStringLiteral("Usuario"), this));
    capa->addWidget(List1_);
    capa->addWidget(new QLabel(QStringLiteral("Clave"), this));
    capa->addWidget(Clave_);
    capa->addWidget(Check1_);
    auto *fila = new QHBoxLayout;
    fila->addWidget(nuevo);
    fila->addWidget(Eliminar);
    fila->addStretch();
    fila->addWidget(Entrar);
    capa->addLayout(fila);
    auto *fila2 = new QHBoxLayout;
    fila2->addWidget(PredeUser);
    fila2->addWidget(Label1);
    fila2->addStretch();
    capa->addLayout(fila2);
    capa->addWidget(nota);
    resize(380, 420);

    Clave_->installEventFilter(this);
    eventos_.alPulsar(Entrar, [this] { modelo_->Entrar_Click(); });
    eventos_.alPulsar(nuevo, [this] { modelo_->nuevo_usuario_Click(); });
    eventos_.alPulsar(Label1, [this] { modelo_->Label1_Click(); });
    eventos_.alPulsar(PredeUser, [this] { modelo_->PredeUser_Click(); });
    eventos_.alPulsar(Check1_, [this] { modelo_->Check1_Click(); });
    connect(List1_, &QListWidget::itemClicked, this,
            [this] { eventos_([this] { modelo_->List1_Click(); }); });

    guarded(s_, [this] { modelo_->Form_Load(); });
    eventos_.mostrar();
    Clave_->setFocus();
    Centrar(this);
}

Form4Dialog::~Form4Dialog() = default;

void Form4Dialog::copiar()
{
    modelo_->List1_ListIndex = List1_->currentRow();
    modelo_->Clave = Clave_->text();
    modelo_->Check1 = Check1_->isChecked() ? 1 : 0;
}

void Form4Dialog::mostrar()
{
    if (List1_->count() != modelo_->List1.size() || [&] {
            for (int i = 0; i < List1_->count(); ++i)
                if (List1_->item(i)->text() != modelo_->List1.at(i))
                    return true;
            return false;
        }()) {
        List1_->clear();
        List1_->addItems(modelo_->List1);
    }
    List1_->setCurrentRow(modelo_->List1_ListIndex);
    if (Clave_->text() != modelo_->Clave)
        Clave_->setText(modelo_->Clave);
    Check1_->setChecked(modelo_->Check1 == 1);
    if (modelo_->ClaveConFoco) {
        Clave_->setFocus();
        modelo_->ClaveConFoco = false;
    }
    if (modelo_->Descargado)
        done(Accepted);
}

bool Form4Dialog::eventFilter(QObject *objeto, QEvent *evento)
{
    if (objeto == Clave_ && evento->type() == QEvent::KeyPress) {
        form4::Tecla tecla = form4::Tecla::Otra;
        switch (static_cast<QKeyEvent *>(evento)->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            tecla = form4::Tecla::Return;
            break;
        case Qt::Key_Escape:
            tecla = form4::Tecla::Escape;
            break;
        case Qt::Key_Up:
            tecla = form4::Tecla::Arriba;
            break;
        case Qt::Key_Down:
            tecla = form4::Tecla::Abajo;
            break;
        default:
            return false;
        }
        eventos_([&] { modelo_->Clave_KeyDown(tecla); });
        return true;
    }
    return QDialog::eventFilter(objeto, evento);
}

void Form4Dialog::reject()
{
    // Closing the window is the same as Escape: nobody logs in.
    modelo_->Descargado = true;
    QDialog::reject();
}

NewUserDialog::NewUserDialog(Session &s, QWidget *parent) : QDialog(parent), s_(s), modelo_(s)
{
    setObjectName("NewUser");
    setWindowTitle(QStringLiteral("Nuevo usuario"));
    NOMBRE_ = crearCampo("NOMBRE", this);
    Clave1_ = crearCampo("Clave1", this, true);
    Clave2_ = crearCampo("Clave2", this, true);
    auto *Aceptar = crearBoton("Aceptar", QStringLiteral("Aceptar"), this);
    auto *Cancelar = crearBoton("Cancelar", QStringLiteral("Cancelar"), this);
    auto *formulario = new QFormLayout;
    formulario->addRow(QStringLiteral("Nombre"), NOMBRE_);
    formulario->addRow(QStringLiteral("Clave"), Clave1_);
    formulario->addRow(QStringLiteral("Reentrar clave"), Clave2_);
    formularioConBotones(this, formulario, Aceptar, Cancelar);
    NOMBRE_->installEventFilter(this);
    Clave1_->installEventFilter(this);
    connect(Aceptar, &QPushButton::clicked, this, [this] {
        guarded(s_, [this] {
            modelo_.NOMBRE = NOMBRE_->text();
            modelo_.Clave1 = Clave1_->text();
            modelo_.Clave2 = Clave2_->text();
            modelo_.Aceptar_Click();
            if (modelo_.Descargado)
                accept();
        });
    });
    connect(Cancelar, &QPushButton::clicked, this, &QDialog::reject);
    Centrar(this);
}

bool NewUserDialog::eventFilter(QObject *objeto, QEvent *evento)
{
    if (evento->type() == QEvent::KeyPress) {
        const int tecla = static_cast<QKeyEvent *>(evento)->key();
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
            (objeto == NOMBRE_ ? Clave1_ : Clave2_)->setFocus();
            return true;
        }
    }
    return QDialog::eventFilter(objeto, evento);
}

DatosUsuarioDialog::DatosUsuarioDialog(Session &s, ProveedorCorreo proveedor, QWidget *parent)
    : QDialog(parent), s_(s), modelo_(s, std::move(proveedor))
{
    setObjectName("DatosUsuario");
    setWindowTitle(DatosUsuario::Caption);
    NOMBRE_ = crearCampo("NOMBRE", this);
    Direccion_ = crearCampo("Direccion", this);
    email_ = crearCampo("email", this);
    Poblacion_ = crearCampo("Poblacion", this);
    CodigoPost_ = crearCampo("CodigoPost", this);
    Combo1_ = new QComboBox(this);
    Combo1_->setObjectName("Combo1");
    auto *formulario = new QFormLayout;
    formulario->addRow(QStringLiteral("Nombre Usuario"), NOMBRE_);
    formulario->addRow(QStringLiteral("Servidor Pop"), Direccion_);
    formulario->addRow(QStringLiteral("E-mail"), email_);
    formulario->addRow(QStringLiteral("Servidor Smtp"), Poblacion_);
    formulario->addRow(QStringLiteral("Usuario"), CodigoPost_);
    formulario->addRow(QStringLiteral("Configuracion automatica para :"), Combo1_);
    auto *Aceptar = crearBoton("Aceptar", QStringLiteral("Aceptar"), this);
    auto *Cancelar = crearBoton("Cancelar", QStringLiteral("Cancelar"), this);
    formularioConBotones(this, formulario, Aceptar, Cancelar);

    Centrar(this);
    guarded(s_, [this] { modelo_.Form_Load(); });
    Combo1_->addItems(modelo_.Combo1);
    eventos_.mostrar();
    connect(Combo1_, &QComboBox::activated, this,
            [this](int indice) { eventos_([&] { modelo_.Combo1_Click(Combo1_->itemText(indice)); }); });
    eventos_.alPulsar(Aceptar, [this] {
        modelo_.Aceptar_Click();
        accept();
    });
    connect(Cancelar, &QPushButton::clicked, this, &QDialog::reject);
}

void DatosUsuarioDialog::copiar()
{
    modelo_.NOMBRE = NOMBRE_->text();
    modelo_.Direccion = Direccion_->text();
    modelo_.email = email_->text();
    modelo_.Poblacion = Poblacion_->text();
    modelo_.CodigoPost = CodigoPost_->text();
}

void DatosUsuarioDialog::mostrar()
{
    NOMBRE_->setText(modelo_.NOMBRE);
    Direccion_->setText(modelo_.Direccion);
    email_->setText(modelo_.email);
    Poblacion_->setText(modelo_.Poblacion);
    CodigoPost_->setText(modelo_.CodigoPost);
}

NoHayDialog::NoHayDialog(const QString &directorio, std::function<void()> aceptar, QWidget *parent)
    : QDialog(parent), aceptar_(std::move(aceptar))
{
    setObjectName("NoHay");
    setWindowTitle(Principal::NoHay_Caption);
    auto *mensaje = new QLabel(Principal::NoHay_Mensaje, this);
    mensaje->setObjectName("Label1");
    mensaje->setWordWrap(true);
    auto *etiqueta = new QLabel(Principal::NoHay_EtiquetaDirectorio, this);
    etiqueta->setObjectName("Label2");
    auto *Directorio = new QLabel(directorio, this);
    Directorio->setObjectName("Directorio");
    Directorio->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto *donde = new QLabel(Principal::NoHay_Donde, this);
    donde->setObjectName("Label3");
    donde->setWordWrap(true);
    auto *Command1 = crearBoton("Command1", QStringLiteral("Aceptar"), this);
    auto *fila = new QHBoxLayout;
    fila->addWidget(etiqueta);
    fila->addWidget(Directorio, 1);
    auto *capa = new QVBoxLayout(this);
    capa->addWidget(mensaje);
    capa->addLayout(fila);
    capa->addWidget(donde);
    capa->addWidget(Command1, 0, Qt::AlignRight);
    resize(520, 200);
    Centrar(this);
    connect(Command1, &QPushButton::clicked, this, [this] {
        accept();
        if (aceptar_)
            aceptar_();
    });
}

void NoHayDialog::reject()
{
    // Without the base there is nothing to go on with, however the window closes.
    QDialog::reject();
    if (aceptar_)
        aceptar_();
}

} // namespace tesorel
