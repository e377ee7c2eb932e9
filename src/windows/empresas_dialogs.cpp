#include "windows/empresas_dialogs.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "windows/estilo.h"
#include "windows/formulario.h"
#include "windows/guarded.h"

namespace tesorel
{

namespace
{

// A field whose typing turns into capitals, keeping the cursor where it was.
QLineEdit *campo(const QString &nombre, const QString &texto, bool mayusculas, QWidget *padre)
{
    auto *e = new QLineEdit(texto, padre);
    e->setObjectName(nombre);
    if (mayusculas)
        QObject::connect(e, &QLineEdit::textEdited, e, [e](const QString &t) {
            const int cursor = e->cursorPosition();
            e->setText(AddEmpresa::EnMayusculas(t));
            e->setCursorPosition(cursor);
        });
    return e;
}
} // namespace

AddEmpresaDialog::AddEmpresaDialog(Session &s, const AltaDeEmpresa &entrada, QWidget *parent)
    : QDialog(parent), s_(s), modelo_(s)
{
    setObjectName("AddEmpresa");
    setWindowTitle(AddEmpresa::Caption);
    setModal(true);
    NOMBRE_ = campo("NOMBRE", entrada.NOMBRE, true, this);
    ABREVIATURA11_ = campo("ABREVIATURA11", entrada.ABREVIATURA11, true, this);
    ABREVIATURA3_ = campo("ABREVIATURA3", entrada.ABREVIATURA3, true, this);
    Invertia_ = campo("Invertia", QString(), false, this);
    auto *formulario = new QFormLayout;
    formulario->addRow(QStringLiteral("NOMBRE EMPRESA"), NOMBRE_);
    formulario->addRow(QStringLiteral(" EMPRESA (11)"), ABREVIATURA11_);
    formulario->addRow(QStringLiteral(" TICKER"), ABREVIATURA3_);
    formulario->addRow(QStringLiteral("  Enlace a Invertía"), Invertia_);
    auto *Aceptar = crearBoton("Aceptar", QStringLiteral("Aceptar"), this);
    auto *Cancelar = crearBoton("Cancelar", QStringLiteral("Cancelar"), this);
    auto *botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(Aceptar);
    botones->addWidget(Cancelar);
    auto *capa = new QVBoxLayout(this);
    capa->addLayout(formulario);
    capa->addLayout(botones);
    setMinimumWidth(460);
    Centrar(this);

    connect(Aceptar, &QPushButton::clicked, this, [this] {
        guarded(s_, [this] {
            copiar();
            modelo_.Aceptar_Click();
        });
        if (modelo_.Descargado)
            accept();
    });
    connect(Cancelar, &QPushButton::clicked, this, [this] {
        modelo_.Cancelar_Click();
        reject();
    });
}

void AddEmpresaDialog::copiar()
{
    modelo_.NOMBRE = NOMBRE_->text();
    modelo_.ABREVIATURA11 = ABREVIATURA11_->text();
    modelo_.ABREVIATURA3 = ABREVIATURA3_->text();
    modelo_.Invertia = Invertia_->text();
}

DepuraCotizaDialog::DepuraCotizaDialog(Session &s, QWidget *parent) : QDialog(parent), s_(s), modelo_(s)
{
    setObjectName("DepuraCotiza");
    setWindowTitle(QStringLiteral("Depurar tabla empresas"));
    setModal(true);
    auto *Depurar = crearBoton("Depurar", QStringLiteral("Depurar tabla empresas"), this);
    List1_ = new QListWidget(this);
    List1_->setObjectName("List1");
    List2_ = new QListWidget(this);
    List2_->setObjectName("List2");
    auto *listas = new QHBoxLayout;
    listas->addWidget(List1_, 3);
    listas->addWidget(List2_, 1);
    auto *capa = new QVBoxLayout(this);
    capa->addWidget(Depurar);
    capa->addLayout(listas);
    resize(560, 380);
    Centrar(this);

    modelo_.mostrar = [this] { mostrar(); };
    connect(Depurar, &QPushButton::clicked, this, [this] {
        guarded(s_, [this] { modelo_.Depurar_Click(); });
        mostrar();
    });
}

void DepuraCotizaDialog::mostrar()
{
    // Called once a row of the scan: only the lines added since are drawn.
    if (List1_->count() > modelo_.List1.size())
        List1_->clear();
    for (qsizetype k = List1_->count(); k < modelo_.List1.size(); ++k)
        List1_->addItem(modelo_.List1[k]);
    List1_->setCurrentRow(modelo_.List1_ListIndex);
    if (List2_->count() != modelo_.List2.size()) {
        List2_->clear();
        List2_->addItems(modelo_.List2);
    }
}

} // namespace tesorel
