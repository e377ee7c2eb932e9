#include "windows/operadores_form.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "windows/compraventa_comun.h"
#include "windows/estilo.h"
#include "windows/guarded.h"

namespace tesorel
{

OperadoresDialog::OperadoresDialog(Session &s, QWidget *parent)
    : QDialog(parent), s_(s), modelo_(s), eventos_(
                                              s, [this] { copiar(); }, [this] { mostrar(); })
{
    setObjectName("operadoresform");
    setWindowTitle(QStringLiteral("Operadores y Comisiones"));
    setModal(true);

    List1_ = new QListWidget(this);
    List1_->setObjectName("List1");
    List1_->setMinimumWidth(220);
    List1_->setContextMenuPolicy(Qt::CustomContextMenu);
    Text1_ = crearCampo("Text1", this);
    Text1_->setPlaceholderText(QStringLiteral("Nuevo operador"));

    auto *rejilla = new QGridLayout;
    static const char *nombres[] = {"NOMBRE", "Tanto", "minimo", "desde", "Hasta"};
    for (int c = 0; c < operadoresform::kColumnas; ++c) {
        auto *cabecera =
            crearEtiqueta(QStringLiteral("%1_0").arg(nombres[c]), operadoresform::Cabeceras[size_t(c)], this);
        cabecera->setStyleSheet(estiloRotulo());
        rejilla->addWidget(cabecera, 0, c);
    }
    for (int f = 1; f <= operadoresform::kFilas; ++f) {
        for (int c = 0; c < operadoresform::kColumnas; ++c) {
            auto *e = crearCampo(QStringLiteral("%1_%2").arg(nombres[c]).arg(f), this);
            e->setMinimumWidth(c == operadoresform::NOMBRE ? 230 : c >= operadoresform::desde ? 135 : 90);
            celdas_[size_t(f)][size_t(c)] = e;
            rejilla->addWidget(e, f, c);
            connect(e, &QLineEdit::textEdited, this,
                    [this, c, f](const QString &t) { eventos_([&] { modelo_.Celda_Change(c, f, t); }); });
        }
        auto *Borrar = crearBoton(QStringLiteral("Borrar_%1").arg(f), QStringLiteral("Borrar"), this);
        rejilla->addWidget(Borrar, f, operadoresform::kColumnas);
        eventos_.alPulsar(Borrar, [this, f] { modelo_.Borrar_Click(f); });
    }
    rejilla->setColumnStretch(0, 3);

    auto *Label3 = crearBoton("Label3", QStringLiteral("Grabar"), this);
    auto *Volver = crearBoton("Volver", QStringLiteral("Volver"), this);
    auto *izquierda = new QVBoxLayout;
    izquierda->addWidget(new QLabel(QStringLiteral("Operadores"), this));
    izquierda->addWidget(List1_);
    izquierda->addWidget(Text1_);
    auto *derecha = new QVBoxLayout;
    derecha->addWidget(new QLabel(QStringLiteral("Comisiones"), this));
    derecha->addLayout(rejilla);
    auto *botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(Label3);
    botones->addWidget(Volver);
    derecha->addLayout(botones);
    auto *todo = new QHBoxLayout(this);
    todo->addLayout(izquierda);
    todo->addLayout(derecha, 1);

    // The popup menus: brokers on the list, bands on the window.
    menu_operadores_ = new QMenu(this);
    menu_operadores_->setObjectName("menu_operadores");
    auto *anadir = menu_operadores_->addAction(QStringLiteral("Añadir operador"));
    anadir->setObjectName("menu_anadir_operador");
    auto *borrar = menu_operadores_->addAction(QStringLiteral("Borrar operador"));
    borrar->setObjectName("menu_borrar_operador");
    menu_comisiones_ = new QMenu(this);
    menu_comisiones_->setObjectName("menu_comisiones");
    menu_comisiones_->addAction(QStringLiteral("Añadir gasto")); // rows are added by typing
    menu_comisiones_->addAction(QStringLiteral("Borrar Gasto")); // and removed with Borrar
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, this,
            [this](const QPoint &p) { menu_comisiones_->popup(mapToGlobal(p)); });
    connect(List1_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint &p) { menu_operadores_->popup(List1_->mapToGlobal(p)); });
    connect(anadir, &QAction::triggered, this, [this] {
        eventos_([this] { modelo_.menu_anadir_operador_Click(); });
        Text1_->setFocus();
    });
    connect(borrar, &QAction::triggered, this,
            [this] { eventos_([this] { modelo_.menu_borrar_operador_Click(); }); });

    eventos_.alPulsar(Label3, [this] { modelo_.Label3_Click(); });
    eventos_.alPulsar(Volver, [this] { modelo_.Volver_Click(); });
    connect(List1_, &QListWidget::itemClicked, this, [this](QListWidgetItem *item) {
        const int fila = List1_->row(item);
        eventos_([this, fila] { modelo_.List1_Click(fila); });
    });
    connect(Text1_, &QLineEdit::returnPressed, this,
            [this] { eventos_([this] { modelo_.Text1_KeyPress(13); }); });

    guarded(s_, [this] { modelo_.Form_Load(); });
    eventos_.mostrar();
}

OperadoresDialog::~OperadoresDialog() = default;

void OperadoresDialog::copiar()
{
    modelo_.Text1 = Text1_->text();
}

void OperadoresDialog::mostrar()
{
    if (List1_->count() != modelo_.List1.size() || [&] {
            for (int i = 0; i < List1_->count(); ++i)
                if (List1_->item(i)->text() != modelo_.List1[i])
                    return true;
            return false;
        }()) {
        List1_->clear();
        List1_->addItems(modelo_.List1);
    }
    List1_->setCurrentRow(modelo_.List1_ListIndex);
    for (size_t f = 1; f <= operadoresform::kFilas; ++f)
        for (size_t c = 0; c < operadoresform::kColumnas; ++c)
            ponerTexto(celdas_[f][c], modelo_.celdas[f][c]);
    ponerTexto(Text1_, modelo_.Text1);
    if (modelo_.Cerrada)
        QTimer::singleShot(0, this, &QDialog::reject);
}

} // namespace tesorel
