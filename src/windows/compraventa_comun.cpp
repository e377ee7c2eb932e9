#include "windows/compraventa_comun.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "portfolio/comisiones.h"
#include "windows/enlace_widget.h"
#include "windows/estilo.h"
#include "windows/formulario.h"

namespace tesorel
{

RejillaComisiones::RejillaComisiones(QWidget *padre, QBoxLayout *capa)
{
    auto *rejilla = new QGridLayout;
    rejilla->setColumnMinimumWidth(0, 240);
    rejilla->setColumnStretch(0, 1);
    capa->addLayout(rejilla);
    static const char *nombres[] = {"Concepto", "porciento", "Min", "Importe", "totalcomision"};
    for (int i = 0; i <= LineasComision::kLineas; ++i)
        for (int c = 0; c < 5; ++c) {
            auto *l = crearEtiqueta(QStringLiteral("%1_%2").arg(nombres[c]).arg(i), {}, padre);
            if (i == 0)
                l->setStyleSheet(estiloRotulo());
            if (c > 0)
                l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            celdas_[size_t(i)][size_t(c)] = l;
            rejilla->addWidget(l, i, c);
        }
}

void RejillaComisiones::pintar(const LineasComision &l)
{
    for (size_t i = 0; i <= LineasComision::kLineas; ++i) {
        celdas_[i][0]->setText(l.Concepto[i]);
        celdas_[i][1]->setText(l.porciento[i]);
        celdas_[i][2]->setText(l.Min[i]);
        celdas_[i][3]->setText(l.Importe[i]);
        celdas_[i][4]->setText(l.totalcomision[i]);
    }
}

void ponerTexto(QLineEdit *campo, const QString &texto)
{
    if (campo->text() != texto)
        campo->setText(texto);
}

void llenarEnlace(EnlaceWidget *combo, QStringList lista)
{
    lista.sort(Qt::CaseInsensitive);
    combo->Clear();
    for (const QString &item : lista)
        combo->Additem(item);
}

CamposOperacion crearCamposOperacion(QWidget *padre, const QString &rotuloPrecio)
{
    CamposOperacion c;
    c.capa = new QGridLayout;
    c.Combo1 = new EnlaceWidget(padre);
    c.Combo1->setObjectName("Combo1");
    c.Combo2 = new EnlaceWidget(padre);
    c.Combo2->setObjectName("Combo2");
    c.Precio = crearCampo("Precio", padre);
    c.Cantidad = crearCampo("Cantidad", padre);
    c.Fecha = crearCampo("Fecha", padre);
    c.Precio_total = crearCampo("Precio_total", padre);
    c.Total = crearCampo("Total", padre);
    c.capa->addWidget(new QLabel(QStringLiteral("Valor :"), padre), 0, 0);
    c.capa->addWidget(c.Combo1, 0, 1, 1, 2);
    c.capa->addWidget(new QLabel(QStringLiteral("Operador :"), padre), 0, 3);
    c.capa->addWidget(c.Combo2, 0, 4);
    c.capa->addWidget(new QLabel(rotuloPrecio, padre), 1, 0);
    c.capa->addWidget(c.Precio, 1, 1);
    c.capa->addWidget(new QLabel(QStringLiteral("Cantidad"), padre), 1, 2);
    c.capa->addWidget(c.Cantidad, 1, 3);
    c.capa->addWidget(new QLabel(QStringLiteral("Fecha"), padre), 2, 0);
    c.capa->addWidget(c.Fecha, 2, 1);
    c.capa->addWidget(new QLabel(QStringLiteral("Total"), padre), 2, 2);
    c.capa->addWidget(c.Precio_total, 2, 3);
    c.filaTotal = new QHBoxLayout;
    c.filaTotal->addStretch();
    c.filaTotal->addWidget(new QLabel(QStringLiteral("Total :"), padre));
    c.filaTotal->addWidget(c.Total);
    return c;
}

} // namespace tesorel
