#include "windows/historico_form.h"

#include <QApplication>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "store/session.h"
#include "windows/estilo.h"
#include "windows/guarded.h"

namespace tesorel
{

namespace
{

// The sentence of a row, cell by cell, with the fixed words between.
enum Columna {
    El,
    Fecha,
    Verbo,
    Cantidad,
    Acciones,
    Valor,
    Precio,
    Por,
    Importe,
    Entidad,
    Editar,
    Borrar,
    N
};

QComboBox *crearCombo(const QString &nombre, QWidget *padre)
{
    auto *c = new QComboBox(padre);
    c->setObjectName(nombre);
    c->setEditable(true);
    c->setInsertPolicy(QComboBox::NoInsert);
    return c;
}

void ponerLista(QComboBox *c, const QStringList &lista)
{
    const QString texto = c->currentText();
    c->clear();
    c->addItems(lista);
    c->setEditText(texto);
}

} // namespace

HistoricoDialog::HistoricoDialog(Session &s, QWidget *parent)
    : QDialog(parent), s_(s), modelo_(s,
                                      [this] {
                                          ModifHistoricoDialog editor(s_, this);
                                          editor.exec();
                                      }),
      eventos_(
          s, [this] { copiar(); }, [this] { mostrar(); })
{
    setObjectName(QStringLiteral("Historico"));
    setWindowTitle(QStringLiteral("Histórico de operaciones"));
    auto *capa = new QVBoxLayout(this);

    auto *arriba = new QHBoxLayout;
    arriba->addWidget(new QLabel(QStringLiteral("Filtro:"), this));
    Filtro_ = new QComboBox(this);
    Filtro_->setObjectName(QStringLiteral("Filtro"));
    arriba->addWidget(Filtro_, 1);
    Option1_[0] = new QRadioButton(QStringLiteral("Fecha Operación"), this);
    Option1_[1] = new QRadioButton(QStringLiteral("Valor"), this);
    for (int i = 0; i < 2; ++i) {
        Option1_[i]->setObjectName(QStringLiteral("Option1_%1").arg(i));
        arriba->addWidget(Option1_[i]);
        connect(Option1_[i], &QRadioButton::clicked, this,
                [this, i] { eventos_([&] { modelo_.Option1_Click(i); }); });
    }
    auto *renta = crearBoton(QStringLiteral("Command2"), QStringLiteral("Filtro renta previo"), this);
    arriba->addWidget(renta);
    eventos_.alPulsar(renta, [this] { modelo_.Command2_Click(); });
    auto *todo = crearBoton(QStringLiteral("BorrarTodo"), QStringLiteral("BORRAR TODO"), this);
    arriba->addWidget(todo);
    eventos_.alPulsar(todo, [this] { modelo_.BorrarTodo_Click(); });
    capa->addLayout(arriba);
    connect(Filtro_, &QComboBox::activated, this, [this] { eventos_([&] { modelo_.Filtro_Click(); }); });

    Rejilla_ = new QTableWidget(0, N, this);
    Rejilla_->setObjectName(QStringLiteral("Rejilla"));
    Rejilla_->horizontalHeader()->hide();
    Rejilla_->verticalHeader()->hide();
    Rejilla_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Rejilla_->setSelectionMode(QAbstractItemView::NoSelection);
    Rejilla_->setShowGrid(false);
    Rejilla_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    Rejilla_->horizontalHeader()->setSectionResizeMode(Entidad, QHeaderView::Stretch);
    capa->addWidget(Rejilla_, 1);

    auto *abajo = new QHBoxLayout;
    const QString botones[] = {QStringLiteral("Regenerar Cartera"), QStringLiteral("Generar Gráfica Cartera"),
                               QStringLiteral("Informe Html"), QStringLiteral("Renta 2007")};
    for (int i = 0; i < 4; ++i) {
        auto *b = crearBoton(QStringLiteral("Command1_%1").arg(i), botones[i], this);
        abajo->addWidget(b);
        eventos_.alPulsar(b, [this, i] { modelo_.Command1_Click(i); });
    }
    abajo->addStretch();
    abajo->addWidget(new QLabel(QStringLiteral("Unidad:"), this));
    letra_ = crearCampo(QStringLiteral("letra"), this);
    letra_->setMaximumWidth(120);
    abajo->addWidget(letra_);
    capa->addLayout(abajo);

    modelo_.avisos.relojDeArena = [](bool ocupado) {
        if (ocupado)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    };
    resize(980, 560);
    guarded(s_, [&] { modelo_.Form_Load(); });
    eventos_.mostrar();
}

void HistoricoDialog::copiar()
{
    modelo_.Filtro = Filtro_->currentText();
    modelo_.letra = letra_->text();
}

void HistoricoDialog::mostrar()
{
    if (Filtro_->count() != modelo_.Filtro_Lista.size()) {
        Filtro_->clear();
        Filtro_->addItems(modelo_.Filtro_Lista);
        Filtro_->setCurrentIndex(-1);
    }
    for (int i = 0; i < 2; ++i)
        Option1_[i]->setChecked(modelo_.Option1[i]);
    letra_->setText(modelo_.letra);
    const int n = int(modelo_.filas.size());
    Rejilla_->setRowCount(n);
    for (int r = 0; r < n; ++r) {
        const FilaHistorico &f = modelo_.filas[size_t(r)];
        const QString textos[] = {QStringLiteral("El "),
                                  f.Fecha,
                                  f.Operacion,
                                  f.Cantidad,
                                  QStringLiteral("acciones de"),
                                  f.Valor,
                                  f.Precio,
                                  QStringLiteral("por "),
                                  f.Importe,
                                  f.Entidad};
        for (int c = 0; c <= Entidad; ++c) {
            auto *item = new QTableWidgetItem(textos[c]);
            if (c == Cantidad || c == Precio || c == Importe)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            if (c == Importe)
                item->setForeground(ColorDe(f.Importe_ForeColor));
            Rejilla_->setItem(r, c, item);
        }
        if (Rejilla_->cellWidget(r, Editar))
            continue;
        // Buttons are made once a row: a click may be running on one.
        const int fila = r + 1;
        auto *editar = crearBoton(QStringLiteral("Editar_%1").arg(fila), QStringLiteral("Editar"), Rejilla_);
        auto *borrar = crearBoton(QStringLiteral("Borrar_%1").arg(fila), QStringLiteral("Borrar"), Rejilla_);
        eventos_.alPulsar(editar, [this, fila] { modelo_.Editar_Click(fila); });
        eventos_.alPulsar(borrar, [this, fila] { modelo_.Borrar_Click(fila); });
        Rejilla_->setCellWidget(r, Editar, editar);
        Rejilla_->setCellWidget(r, Borrar, borrar);
    }
}

ModifHistoricoDialog::ModifHistoricoDialog(Session &s, QWidget *parent)
    : QDialog(parent), modelo_(s), eventos_(
                                       s, [this] { copiar(); }, [this] { mostrar(); })
{
    setObjectName(QStringLiteral("ModifHistorico"));
    setWindowTitle(QStringLiteral("Modificar operación"));
    auto *campos = new QFormLayout;
    Fecha_ = crearCampo(QStringLiteral("Fecha"), this);
    Operacion_ = crearCombo(QStringLiteral("Operacion"), this);
    Cantidad_ = crearCampo(QStringLiteral("Cantidad"), this);
    Valor_ = crearCombo(QStringLiteral("Valor"), this);
    Precio_ = crearCampo(QStringLiteral("Precio"), this);
    Importe_ = crearCampo(QStringLiteral("Importe"), this);
    Entidad_ = crearCombo(QStringLiteral("Entidad"), this);
    Descripcion_ = crearCampo(QStringLiteral("Descripcion"), this);
    campos->addRow(QStringLiteral("Fecha"), Fecha_);
    campos->addRow(QStringLiteral("Operación"), Operacion_);
    campos->addRow(QStringLiteral("Cantidad"), Cantidad_);
    campos->addRow(QStringLiteral("Valor"), Valor_);
    campos->addRow(QStringLiteral("Precio"), Precio_);
    campos->addRow(QStringLiteral("Importe"), Importe_);
    campos->addRow(QStringLiteral("Entidad"), Entidad_);
    campos->addRow(QStringLiteral("Descripción"), Descripcion_);
    auto *aceptar = crearBoton(QStringLiteral("Aceptar"), QStringLiteral("Aceptar"), this);
    auto *cancelar = crearBoton(QStringLiteral("Cancelar"), QStringLiteral("Cancelar"), this);
    formularioConBotones(this, campos, aceptar, cancelar);
    connect(cancelar, &QPushButton::clicked, this, &QDialog::reject);
    eventos_.alPulsar(aceptar, [this] {
        if (modelo_.Aceptar_Click())
            accept();
    });
    // Each change of a field rewrites the description.
    auto cambio = [this] { eventos_([&] { modelo_.CambiarEtiqueta(); }); };
    for (QLineEdit *e : {Fecha_, Cantidad_, Precio_, Importe_})
        connect(e, &QLineEdit::textChanged, this, cambio);
    for (QComboBox *c : {Operacion_, Valor_, Entidad_})
        connect(c, &QComboBox::currentTextChanged, this, cambio);

    setMinimumWidth(460);
    guarded(s, [&] { modelo_.Form_Load(); });
    eventos_.mostrar();
    Centrar(this);
}

void ModifHistoricoDialog::copiar()
{
    modelo_.Fecha = Fecha_->text();
    modelo_.Operacion = Operacion_->currentText();
    modelo_.Cantidad = Cantidad_->text();
    modelo_.Valor = Valor_->currentText();
    modelo_.Precio = Precio_->text();
    modelo_.Importe = Importe_->text();
    modelo_.Entidad = Entidad_->currentText();
    modelo_.Descripcion = Descripcion_->text();
}

void ModifHistoricoDialog::mostrar()
{
    if (Operacion_->count() == 0) {
        ponerLista(Operacion_, modelo_.Operacion_Lista);
        ponerLista(Valor_, modelo_.Valor_Lista);
        ponerLista(Entidad_, modelo_.Entidad_Lista);
    }
    Fecha_->setText(modelo_.Fecha);
    Operacion_->setEditText(modelo_.Operacion);
    Cantidad_->setText(modelo_.Cantidad);
    Valor_->setEditText(modelo_.Valor);
    Precio_->setText(modelo_.Precio);
    Importe_->setText(modelo_.Importe);
    Entidad_->setEditText(modelo_.Entidad);
    Descripcion_->setText(modelo_.Descripcion);
    if (modelo_.foco == QLatin1String("Fecha")) {
        Fecha_->setFocus();
        modelo_.foco.clear();
    }
}

} // namespace tesorel
