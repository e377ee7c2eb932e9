#include "windows/comprar_form.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "windows/compraventa_comun.h"
#include "windows/enlace_widget.h"
#include "windows/guarded.h"

namespace tesorel
{

ComprarDialog::ComprarDialog(Session &s, EntornoCompraVenta entorno, QWidget *parent)
    : QDialog(parent), s_(s), modelo_(s, std::move(entorno)),
      eventos_(
          s, [this] { copiar(); }, [this] { mostrar(); })
{
    setObjectName("Comprar");
    setWindowTitle(QStringLiteral("Comprar"));
    setModal(true);

    campos_ = crearCamposOperacion(this, QStringLiteral("P.Compra"));

    auto *Aceptar = crearBoton("Aceptar", QStringLiteral("Aceptar"), this);
    auto *Label11 = crearBoton("Label11", QStringLiteral("Aceptar"), this);
    auto *Label8 = crearBoton("Label8", QStringLiteral("Cancelar"), this);
    auto *Label9 = crearBoton("Label9", QStringLiteral("Cancelar"), this);
    auto *Editar = crearBoton("EditarOperadores", QStringLiteral("Editar Operadores"), this);
    Label11->setFlat(true);
    Label9->setFlat(true);
    auto *botones = new QHBoxLayout;
    botones->addWidget(Editar);
    botones->addStretch();
    botones->addWidget(Label11);
    botones->addWidget(Aceptar);
    botones->addWidget(Label9);
    botones->addWidget(Label8);
    auto *todo = new QVBoxLayout(this);
    todo->addLayout(campos_.capa);
    lineas_ = std::make_unique<RejillaComisiones>(this, todo);
    todo->addLayout(campos_.filaTotal);
    todo->addLayout(botones);

    eventos_.alPulsar(Aceptar, [this] { modelo_.Aceptar_Click(); });
    eventos_.alPulsar(Label11, [this] { modelo_.Label11_Click(); });
    eventos_.alPulsar(Label8, [this] { modelo_.Cancelar_Click(); });
    eventos_.alPulsar(Label9, [this] { modelo_.Cancelar_Click(); });
    eventos_.alPulsar(Editar, [this] { modelo_.EditarOperadores_Click(); });
    conectarCampos(this, campos_, modelo_, eventos_);
    // The quantity's text is selected whole when it gets the focus.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *ahora) {
        if (ahora == campos_.Cantidad)
            QTimer::singleShot(0, campos_.Cantidad, &QLineEdit::selectAll);
    });

    guarded(s_, [this] { modelo_.Form_Load(); });
    cargarCampos(campos_, modelo_, eventos_);
}

ComprarDialog::~ComprarDialog() = default;

void ComprarDialog::copiar()
{
    copiarCampos(campos_, modelo_);
}

void ComprarDialog::mostrar()
{
    mostrarCampos(this, campos_, modelo_, *lineas_);
}

} // namespace tesorel
