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

    const CamposOperacion campos = crearCamposOperacion(this, QStringLiteral("P.Compra"));
    Combo1_ = campos.Combo1;
    Combo2_ = campos.Combo2;
    Precio_ = campos.Precio;
    Cantidad_ = campos.Cantidad;
    Fecha_ = campos.Fecha;
    Precio_total_ = campos.Precio_total;
    Total_ = campos.Total;
    QGridLayout *capa = campos.capa;
    QHBoxLayout *filaTotal = campos.filaTotal;

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
    todo->addLayout(capa);
    lineas_ = std::make_unique<RejillaComisiones>(this, todo);
    todo->addLayout(filaTotal);
    todo->addLayout(botones);

    eventos_.alPulsar(Aceptar, [this] { modelo_.Aceptar_Click(); });
    eventos_.alPulsar(Label11, [this] { modelo_.Label11_Click(); });
    eventos_.alPulsar(Label8, [this] { modelo_.Cancelar_Click(); });
    eventos_.alPulsar(Label9, [this] { modelo_.Cancelar_Click(); });
    eventos_.alPulsar(Editar, [this] { modelo_.EditarOperadores_Click(); });
    connect(Precio_, &QLineEdit::textEdited, this,
            [this](const QString &t) { eventos_([&] { modelo_.setPrecio(t); }); });
    connect(Cantidad_, &QLineEdit::textEdited, this,
            [this](const QString &t) { eventos_([&] { modelo_.setCantidad(t); }); });
    connect(Precio_total_, &QLineEdit::textEdited, this,
            [this](const QString &t) { eventos_([&] { modelo_.setPrecio_total(t); }); });
    connect(Total_, &QLineEdit::textEdited, this,
            [this](const QString &t) { eventos_([&] { modelo_.setTotal(t); }); });
    connect(Combo2_, &EnlaceWidget::evento2, this,
            [this] { eventos_([this] { modelo_.Combo2_Evento(2); }); });
    // The quantity's text is selected whole when it gets the focus.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *ahora) {
        if (ahora == Cantidad_)
            QTimer::singleShot(0, Cantidad_, &QLineEdit::selectAll);
    });

    guarded(s_, [this] { modelo_.Form_Load(); });
    llenarEnlace(Combo1_, modelo_.Combo1_Lista);
    llenarEnlace(Combo2_, modelo_.Combo2_Lista);
    eventos_.mostrar();
}

ComprarDialog::~ComprarDialog() = default;

void ComprarDialog::copiar()
{
    modelo_.Combo1 = Combo1_->Text();
    modelo_.Combo2 = Combo2_->Text();
    modelo_.Fecha = Fecha_->text();
}

void ComprarDialog::mostrar()
{
    Combo1_->setText(modelo_.Combo1);
    Combo2_->setText(modelo_.Combo2);
    ponerTexto(Precio_, modelo_.Precio());
    ponerTexto(Cantidad_, modelo_.Cantidad());
    ponerTexto(Fecha_, modelo_.Fecha);
    ponerTexto(Precio_total_, modelo_.Precio_total());
    ponerTexto(Total_, modelo_.Total());
    lineas_->pintar(modelo_.lineas);
    if (modelo_.Cerrada)
        QTimer::singleShot(0, this, &QDialog::accept);
}

} // namespace tesorel
