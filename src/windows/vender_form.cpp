#include "windows/vender_form.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "windows/compraventa_comun.h"
#include "windows/enlace_widget.h"
#include "windows/estilo.h"
#include "windows/guarded.h"

namespace tesorel
{

namespace
{
const char *const kColumnasPanel[] = {"FechaCompra", "CantidadCompra", "PrecioCompra", "TotalCompra",
                                      "Resultado",   "Vendidas",       "Tanto"};
} // namespace

VenderDialog::VenderDialog(Session &s, EntornoCompraVenta entorno, QWidget *parent)
    : QDialog(parent), s_(s), modelo_(s, std::move(entorno)),
      eventos_(
          s, [this] { copiar(); }, [this] { mostrar(); })
{
    setObjectName("Vender");
    setWindowTitle(QStringLiteral("Vender"));
    setModal(true);

    const CamposOperacion campos = crearCamposOperacion(this, QStringLiteral("P.Venta"));
    Combo1_ = campos.Combo1;
    Combo2_ = campos.Combo2;
    Precio_ = campos.Precio;
    Cantidad_ = campos.Cantidad;
    Fecha_ = campos.Fecha;
    Precio_total_ = campos.Precio_total;
    Total_ = campos.Total;
    QGridLayout *capa = campos.capa;
    QHBoxLayout *filaTotal = campos.filaTotal;

    auto *Label3 = crearBoton("Label3", QStringLiteral("Aceptar"), this);
    auto *Label11 = crearBoton("Label11", QStringLiteral("Aceptar"), this);
    auto *Label4 = crearBoton("Label4", QStringLiteral("Cancelar"), this);
    auto *Label10 = crearBoton("Label10", QStringLiteral("Cancelar"), this);
    auto *Editar = crearBoton("EditarOperadores", QStringLiteral("Editar Operadores"), this);
    auto *Mostrar = crearBoton("Mostrar", QStringLiteral("Ver compras"), this);
    Label11->setFlat(true);
    Label10->setFlat(true);
    auto *botones = new QHBoxLayout;
    botones->addWidget(Editar);
    botones->addWidget(Mostrar);
    botones->addStretch();
    botones->addWidget(Label11);
    botones->addWidget(Label3);
    botones->addWidget(Label10);
    botones->addWidget(Label4);

    // The lots panel: rows 0 to 4 the lots, row 5 their total.
    panel_ = new QWidget(this);
    panel_->setObjectName("PanelLotes");
    auto *rejilla = new QGridLayout(panel_);
    const char *cabeceras[] = {"Fecha", "Cantidad", "P.Compra", "Total", "Resultado    %"};
    for (int c = 0; c < 5; ++c) {
        auto *l = new QLabel(QString::fromUtf8(cabeceras[c]), panel_);
        l->setStyleSheet(conPaleta("font-weight: bold; color: @marca;"));
        rejilla->addWidget(l, 0, c, 1, c == 4 ? 3 : 1);
    }
    for (int f = 0; f <= PanelLotes::kLotes; ++f)
        for (int c = 0; c < 7; ++c) {
            auto *l = crearEtiqueta(QStringLiteral("%1_%2").arg(kColumnasPanel[c]).arg(f), {}, panel_);
            if (c > 0)
                l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            if (f == PanelLotes::kLotes)
                l->setStyleSheet("font-weight: bold;");
            celdas_[size_t(f)][size_t(c)] = l;
            rejilla->addWidget(l, f + 1, c);
        }
    auto *Label18 = crearBoton("Label18", QStringLiteral("Nota"), panel_);
    Label18->setFlat(true);
    rejilla->addWidget(Label18, PanelLotes::kLotes + 2, 0);
    panel_->hide();

    auto *todo = new QVBoxLayout(this);
    todo->addLayout(capa);
    lineas_ = std::make_unique<RejillaComisiones>(this, todo);
    todo->addLayout(filaTotal);
    todo->addLayout(botones);
    todo->addWidget(panel_);

    for (QPushButton *b : {Label3, Label11})
        eventos_.alPulsar(b, [this] { modelo_.Aceptar_Click(); });
    for (QPushButton *b : {Label4, Label10})
        eventos_.alPulsar(b, [this] { modelo_.Cancelar_Click(); });
    eventos_.alPulsar(Editar, [this] { modelo_.EditarOperadores_Click(); });
    eventos_.alPulsar(Mostrar, [this] { modelo_.Mostrar_Click(); });
    eventos_.alPulsar(Label18, [this] { modelo_.Label18_Click(); });
    connect(Precio_, &QLineEdit::textEdited, this,
            [this](const QString &t) { eventos_([&] { modelo_.setPrecio(t); }); });
    connect(Cantidad_, &QLineEdit::textEdited, this,
            [this](const QString &t) { eventos_([&] { modelo_.setCantidad(t); }); });
    connect(Precio_total_, &QLineEdit::textEdited, this,
            [this](const QString &t) { eventos_([&] { modelo_.setPrecio_total(t); }); });
    connect(Total_, &QLineEdit::textEdited, this,
            [this](const QString &t) { eventos_([&] { modelo_.setTotal(t); }); });
    connect(Combo1_, &EnlaceWidget::evento1, this,
            [this] { eventos_([this] { modelo_.Combo1_Evento(1); }); });
    connect(Combo2_, &EnlaceWidget::evento2, this,
            [this] { eventos_([this] { modelo_.Combo2_Evento(2); }); });

    guarded(s_, [this] { modelo_.Form_Load(); });
    llenarEnlace(Combo1_, modelo_.Combo1_Lista);
    llenarEnlace(Combo2_, modelo_.Combo2_Lista);
    eventos_.mostrar();
}

VenderDialog::~VenderDialog() = default;

void VenderDialog::copiar()
{
    modelo_.Combo1 = Combo1_->Text();
    modelo_.Combo2 = Combo2_->Text();
    modelo_.Fecha = Fecha_->text();
}

void VenderDialog::mostrar()
{
    Combo1_->setText(modelo_.Combo1);
    Combo2_->setText(modelo_.Combo2);
    ponerTexto(Precio_, modelo_.Precio());
    ponerTexto(Cantidad_, modelo_.Cantidad());
    ponerTexto(Fecha_, modelo_.Fecha);
    ponerTexto(Precio_total_, modelo_.Precio_total());
    ponerTexto(Total_, modelo_.Total());
    lineas_->pintar(modelo_.lineas);
    for (size_t f = 0; f <= PanelLotes::kLotes; ++f) {
        const PanelLotes::Celdas &c = modelo_.panel.celdas[f];
        const QString textos[] = {c.FechaCompra, c.CantidadCompra, c.PrecioCompra, c.TotalCompra,
                                  c.Resultado,   c.Vendidas,       c.Tanto};
        for (size_t k = 0; k < 7; ++k)
            celdas_[f][k]->setText(textos[k]);
    }
    if (modelo_.PanelVisible && !panel_->isVisible()) {
        panel_->show();
        adjustSize();
    }
    if (modelo_.Cerrada)
        QTimer::singleShot(0, this, &QDialog::accept);
}

} // namespace tesorel
