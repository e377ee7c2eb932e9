#include "windows/compraventa_comun.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "portfolio/comisiones.h"
#include "windows/enlace_widget.h"
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
                l->setStyleSheet("font-weight: bold; color: #16325c;");
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

} // namespace tesorel
