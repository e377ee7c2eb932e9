#include "windows/importar_op_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEventLoop>
#include <QFileDialog>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "windows/estilo.h"
#include "windows/formulario.h"
#include "windows/guarded.h"

namespace tesorel
{

namespace
{
QComboBox *combo(const char *nombre, QWidget *padre)
{
    auto *c = new QComboBox(padre);
    c->setObjectName(QString::fromLatin1(nombre));
    c->setEditable(true);
    c->setInsertPolicy(QComboBox::NoInsert);
    return c;
}
QString FilaOp::*const kColumnas[] = {&FilaOp::Fecha,  &FilaOp::Operacion,    &FilaOp::Cantidad,
                                      &FilaOp::Precio, &FilaOp::Precio_total, &FilaOp::Total};
} // namespace

ImportarOpDialog::ImportarOpDialog(Session &s, std::function<void()> addEmpresa, QWidget *parent)
    : QDialog(parent), s_(s), modelo_(s), addEmpresa_(std::move(addEmpresa))
{
    setObjectName("ImportarOp");
    setWindowTitle(QStringLiteral("Importar operaciones de la caja"));
    setModal(true);
    Text1_ = new QLineEdit(this);
    Text1_->setObjectName("Text1");
    auto *Label2 = crearBoton("Label2", QStringLiteral("FICHEROS SCL Y PANTALLAZOS TXT"), this);
    Label2->setFlat(true);
    auto *Command1 = crearBoton("Command1", QStringLiteral("Examinar"), this);
    Command2_ = crearBoton("Command2", QStringLiteral("Proceder"), this);
    Command3_ = crearBoton("Command3", QStringLiteral("Confirmar"), this);
    ImportarOp_ = new QCheckBox(QStringLiteral("Importar operaciones"), this);
    ImportarOp_->setObjectName("ImportarOp");
    Guardar_ = new QCheckBox(QStringLiteral("Guardar código"), this);
    Guardar_->setObjectName("Guardar");
    Combo1_ = combo("Combo1", this);
    Combo2_ = combo("Combo2", this);
    auto *AddEmpresa = crearBoton("AddEmpresa", QStringLiteral("Añadir Empresa"), this);
    Valor_ = new QLabel(this);
    Valor_->setObjectName("Valor");
    Text2_ = new QPlainTextEdit(this);
    Text2_->setObjectName("Text2");
    Text2_->setReadOnly(true);
    auto *Salir = crearBoton("Salir", QStringLiteral("Salir"), this);
    rejilla_ = new QTableWidget(0, 6, this);
    rejilla_->setObjectName("rejilla");
    rejilla_->setHorizontalHeaderLabels({QStringLiteral("Fecha"), QStringLiteral("Operación"),
                                         QStringLiteral("Cantidad"), QStringLiteral("Precio"),
                                         QStringLiteral("Efectivo"), QStringLiteral("Total")});
    rejilla_->horizontalHeader()->setStretchLastSection(true);

    auto *capa = new QGridLayout(this);
    capa->addWidget(Label2, 0, 0, 1, 2);
    capa->addWidget(Text1_, 1, 0, 1, 3);
    capa->addWidget(Command1, 1, 3);
    capa->addWidget(Valor_, 2, 0, 1, 2);
    capa->addWidget(Combo1_, 2, 2);
    capa->addWidget(AddEmpresa, 2, 3);
    capa->addWidget(ImportarOp_, 3, 0);
    capa->addWidget(Guardar_, 3, 1);
    capa->addWidget(Combo2_, 3, 2);
    capa->addWidget(rejilla_, 4, 0, 1, 4);
    capa->addWidget(Text2_, 5, 0, 1, 4);
    capa->addWidget(Command2_, 6, 1);
    capa->addWidget(Command3_, 6, 2);
    capa->addWidget(Salir, 6, 3);
    resize(760, 560);

    connect(Text1_, &QLineEdit::textEdited, this, [this](const QString &t) { modelo_.Text1 = t; });
    connect(Combo1_, &QComboBox::currentTextChanged, this, [this](const QString &t) {
        if (!mostrando_)
            modelo_.Combo1 = t;
    });
    connect(Combo2_, &QComboBox::currentTextChanged, this, [this](const QString &t) {
        if (!mostrando_)
            modelo_.Combo2 = t;
    });
    connect(ImportarOp_, &QCheckBox::toggled, this, [this](bool b) {
        if (!mostrando_)
            modelo_.ImportarOp_ = b ? 1 : 0;
    });
    connect(Guardar_, &QCheckBox::toggled, this, [this](bool b) {
        if (!mostrando_)
            modelo_.Guardar = b ? 1 : 0;
    });
    connect(rejilla_, &QTableWidget::itemChanged, this, [this](QTableWidgetItem *item) {
        // What is booked is what the cells hold at "Confirmar".
        if (mostrando_ || item->row() >= int(modelo_.filas.size()))
            return;
        modelo_.filas[size_t(item->row())].*kColumnas[item->column()] = item->text();
    });
    connect(Label2, &QPushButton::clicked, this, [this] {
        modelo_.Label2_Click();
        mostrar();
    });
    connect(Command1, &QPushButton::clicked, this, [this] {
        const QString carpeta =
            QFileDialog::getExistingDirectory(this, QStringLiteral("Examinar"), modelo_.Text1);
        if (!carpeta.isEmpty())
            modelo_.Text1 = carpeta;
        mostrar();
    });
    connect(AddEmpresa, &QPushButton::clicked, this, [this] {
        if (addEmpresa_)
            addEmpresa_();
        const QString elegido = modelo_.Combo1;
        guarded(s_, [this] { modelo_.Form_Load(); });
        modelo_.Combo1 = elegido;
        mostrar();
    });
    connect(Command2_, &QPushButton::clicked, this, [this] {
        // A second run inside the wait is not offered: the button is off while a run lasts.
        Command2_->setEnabled(false);
        guarded(s_, [this] { modelo_.Command2_Click(); });
        if (!modelo_.Descargado)
            Command2_->setEnabled(true);
        mostrar();
    });
    connect(Command3_, &QPushButton::clicked, this, [this] {
        guarded(s_, [this] { modelo_.Command3_Click(); });
        terminarEspera();
        mostrar();
    });
    connect(Salir, &QPushButton::clicked, this, [this] { reject(); });

    modelo_.alCambiar = [this] { mostrar(); };
    modelo_.esperar = [this] {
        QEventLoop bucle;
        espera_ = &bucle;
        mostrar();
        bucle.exec();
        espera_ = nullptr;
    };
    guarded(s_, [this] { modelo_.Form_Load(); });
    modelo_.Combo1.clear();
    mostrar();
    Centrar(this);
}

void ImportarOpDialog::terminarEspera()
{
    if (espera_)
        espera_->quit();
}

void ImportarOpDialog::reject()
{
    modelo_.Salir_Click();
    terminarEspera();
    QDialog::reject();
}

void ImportarOpDialog::mostrar()
{
    if (mostrando_)
        return;
    mostrando_ = true;
    if (Text1_->text() != modelo_.Text1)
        Text1_->setText(modelo_.Text1);
    if (Text2_->toPlainText() != QString(modelo_.Text2).replace(QLatin1String("\r\n"), QLatin1String("\n"))) {
        Text2_->setPlainText(QString(modelo_.Text2).replace(QLatin1String("\r\n"), QLatin1String("\n")));
        Text2_->moveCursor(QTextCursor::End);
    }
    Valor_->setText(modelo_.Valor);
    if (Combo1_->count() != modelo_.Combo1_Lista.size()) {
        Combo1_->clear();
        Combo1_->addItems(modelo_.Combo1_Lista);
    }
    Combo1_->setEditText(modelo_.Combo1);
    if (Combo2_->count() != modelo_.Combo2_Lista.size()) {
        Combo2_->clear();
        Combo2_->addItems(modelo_.Combo2_Lista);
    }
    Combo2_->setEditText(modelo_.Combo2);
    ImportarOp_->setChecked(modelo_.ImportarOp_ == 1);
    Guardar_->setChecked(modelo_.Guardar == 1);
    Command3_->setEnabled(modelo_.esperando());
    mostrarRejilla();
    mostrando_ = false;
}

void ImportarOpDialog::mostrarRejilla()
{
    rejilla_->setRowCount(int(modelo_.filas.size()));
    for (int r = 0; r < rejilla_->rowCount(); ++r)
        for (int c = 0; c < 6; ++c) {
            const QString &texto = modelo_.filas[size_t(r)].*kColumnas[c];
            QTableWidgetItem *item = rejilla_->item(r, c);
            if (!item)
                rejilla_->setItem(r, c, new QTableWidgetItem(texto));
            else if (item->text() != texto)
                item->setText(texto);
        }
}

} // namespace tesorel
