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

    campos_ = crearCamposOperacion(this, QStringLiteral("P.Venta"));

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
        l->setStyleSheet(estiloRotulo());
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
    todo->addLayout(campos_.capa);
    lineas_ = std::make_unique<RejillaComisiones>(this, todo);
    todo->addLayout(campos_.filaTotal);
    todo->addLayout(botones);
    todo->addWidget(panel_);

    for (QPushButton *b : {Label3, Label11})
        eventos_.alPulsar(b, [this] { modelo_.Aceptar_Click(); });
    for (QPushButton *b : {Label4, Label10})
        eventos_.alPulsar(b, [this] { modelo_.Cancelar_Click(); });
    eventos_.alPulsar(Editar, [this] { modelo_.EditarOperadores_Click(); });
    eventos_.alPulsar(Mostrar, [this] { modelo_.Mostrar_Click(); });
    eventos_.alPulsar(Label18, [this] { modelo_.Label18_Click(); });
    conectarCampos(this, campos_, modelo_, eventos_);
    connect(campos_.Combo1, &EnlaceWidget::evento1, this,
            [this] { eventos_([this] { modelo_.Combo1_Evento(1); }); });

    guarded(s_, [this] { modelo_.Form_Load(); });
    cargarCampos(campos_, modelo_, eventos_);
}

VenderDialog::~VenderDialog() = default;

void VenderDialog::copiar()
{
    copiarCampos(campos_, modelo_);
}

void VenderDialog::mostrar()
{
    mostrarCampos(this, campos_, modelo_, *lineas_);
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
}

} // namespace tesorel
