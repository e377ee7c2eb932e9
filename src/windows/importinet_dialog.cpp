#include "windows/importinet_dialog.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "windows/estilo.h"
#include "windows/formulario.h"
#include "windows/guarded.h"

namespace tesorel
{

namespace
{
QLabel *etiqueta(const QString &nombre, QWidget *padre)
{
    auto *l = new QLabel(padre);
    l->setObjectName(nombre);
    return l;
}
QListWidget *lista(const QString &nombre, QWidget *padre)
{
    auto *l = new QListWidget(padre);
    l->setObjectName(nombre);
    return l;
}
void ponerLista(QListWidget *w, const QStringList &textos)
{
    if (w->count() == textos.size())
        return; // the lists only grow during a run, or are rebuilt with another size
    w->clear();
    w->addItems(textos);
    w->scrollToBottom();
}
} // namespace

ImportinetDialog::ImportinetDialog(Session &s, FuentesCierres fuentes, Importinet::Acciones acciones,
                                   QWidget *parent)
    : QDialog(parent), s_(s)
{
    setObjectName("Importinet");
    setWindowTitle(QStringLiteral("Importación automática"));
    setModal(true);
    auto mostrarModelo = acciones.mostrar;
    acciones.mostrar = [this, mostrarModelo] {
        mostrar();
        if (mostrarModelo)
            mostrarModelo();
    };
    modelo_ = std::make_unique<Importinet>(s, std::move(fuentes), std::move(acciones));

    auto *Label2 = etiqueta("Label2", this);
    Label2->setText(Importinet::Label2);
    Label2->setStyleSheet(estiloRotulo());
    Label1_ = etiqueta("Label1", this);
    Label1_->setMinimumWidth(520);
    auto *barras = new QHBoxLayout;
    for (int i = 0; i < 3; ++i) {
        sape_[size_t(i)] = etiqueta(QStringLiteral("sape%1").arg(i + 1), this);
        sape_[size_t(i)]->setFixedHeight(8);
        barras->addWidget(sape_[size_t(i)]);
    }
    Shape1_ = new QProgressBar(this);
    Shape1_->setObjectName("Shape1");
    Shape1_->setRange(0, Importinet::Shape1_Width);
    Shape1_->setTextVisible(false);
    DIA_ = etiqueta("DIA", this);
    site_ = etiqueta("site", this);
    auto *dia = new QHBoxLayout;
    dia->addWidget(new QLabel(QStringLiteral("Día:"), this));
    dia->addWidget(DIA_);
    dia->addStretch();
    dia->addWidget(new QLabel(QStringLiteral("Fuente:"), this));
    dia->addWidget(site_);

    // The panel of the manual dates.
    Manual_ = new QGroupBox(this);
    Manual_->setObjectName("Manual");
    FechaIn_ = new QLineEdit(Manual_);
    FechaIn_->setObjectName("FechaIn");
    FechaFin_ = new QLineEdit(Manual_);
    FechaFin_->setObjectName("FechaFin");
    auto *Command2 = crearBoton("Command2", QStringLiteral("Importar fechas"), Manual_);
    auto *Label3 = etiqueta("Label3", Manual_);
    Label3->setText(QStringLiteral("Importación manual"));
    auto *manual = new QFormLayout(Manual_);
    manual->addRow(Label3);
    manual->addRow(QStringLiteral("Desde"), FechaIn_);
    manual->addRow(QStringLiteral("Hasta"), FechaFin_);
    manual->addRow(Command2);

    // The lists, uncovered by "Ver detalles".
    detalles_ = new QWidget(this);
    List1_ = lista("List1", detalles_);
    Ok_ = lista("Ok", detalles_);
    fallo_ = lista("fallo", detalles_);
    auto *listas = new QHBoxLayout(detalles_);
    listas->setContentsMargins(0, 0, 0, 0);
    for (auto [titulo, w] :
         {std::pair{"Días", List1_}, std::pair{"Importados", Ok_}, std::pair{"Sin datos", fallo_}}) {
        auto *columna = new QVBoxLayout;
        columna->addWidget(new QLabel(QString::fromUtf8(titulo), detalles_));
        columna->addWidget(w);
        listas->addLayout(columna);
    }

    auto *Label4 = crearBoton("Label4", QStringLiteral("Ver detalles"), this);
    Label4->setFlat(true);
    Label4->setCursor(Qt::PointingHandCursor);
    Importar_ = crearBoton("Importar", QStringLiteral("Importar ficheros..."), this);
    Command1_ = crearBoton("Command1", Importinet::Cancelar, this);
    auto *pie = new QHBoxLayout;
    pie->addWidget(Label4);
    pie->addStretch();
    pie->addWidget(Importar_);
    pie->addWidget(Command1_);

    auto *capa = new QVBoxLayout(this);
    capa->addWidget(Label2);
    capa->addLayout(barras);
    capa->addWidget(Label1_);
    capa->addWidget(Shape1_);
    capa->addLayout(dia);
    capa->addWidget(Manual_);
    capa->addLayout(pie);
    capa->addWidget(detalles_);
    capa->setSizeConstraint(QLayout::SetFixedSize);

    connect(Command1_, &QPushButton::clicked, this,
            [this] { alPulsar([this] { modelo_->Command1_Click(); }); });
    connect(Command2, &QPushButton::clicked, this, [this] { correr([this] { modelo_->Command2_Click(); }); });
    connect(Label4, &QPushButton::clicked, this, [this] { alPulsar([this] { modelo_->Label4_Click(); }); });
    connect(Importar_, &QPushButton::clicked, this,
            [this] { alPulsar([this] { modelo_->Importar_Click(); }); });
    mostrar();
}

ImportinetDialog::~ImportinetDialog() = default;

void ImportinetDialog::showEvent(QShowEvent *evento)
{
    QDialog::showEvent(evento);
    if (empezado_)
        return;
    empezado_ = true;
    Centrar(this);
    // The run starts once the window is painted.
    QTimer::singleShot(0, this, [this] { correr([this] { modelo_->Form_Load(); }); });
}

void ImportinetDialog::correr(const std::function<void()> &run)
{
    if (modelo_->enCurso())
        return;
    copiar();
    guarded(s_, run);
    mostrar();
}

void ImportinetDialog::copiar()
{
    modelo_->FechaIn = FechaIn_->text();
    modelo_->FechaFin = FechaFin_->text();
}

void ImportinetDialog::mostrar()
{
    mostrando_ = true;
    const Importinet &m = *modelo_;
    Label1_->setText(m.Label1);
    DIA_->setText(m.DIA);
    site_->setText(m.site);
    static const QString lleno = conPaleta(QStringLiteral("background: @lleno;")),
                         vacio = conPaleta(QStringLiteral("background: @vacio;"));
    const bool llenas[3] = {m.sape1, m.sape2, m.sape3};
    for (int i = 0; i < 3; ++i)
        sape_[size_t(i)]->setStyleSheet(llenas[i] ? lleno : vacio);
    Shape1_->setValue(m.Shape2_Width);
    QStringList dias;
    for (const auto &e : m.List1)
        dias << e.texto;
    ponerLista(List1_, dias);
    for (int i = 0; i < List1_->count() && i < int(m.List1.size()); ++i)
        List1_->item(i)->setData(Qt::UserRole, m.List1[size_t(i)].ItemData);
    ponerLista(Ok_, m.Ok);
    ponerLista(fallo_, m.fallo);
    Manual_->setVisible(m.Manual_Visible);
    detalles_->setVisible(m.Detalles);
    if (FechaIn_->text() != m.FechaIn)
        FechaIn_->setText(m.FechaIn);
    if (FechaFin_->text() != m.FechaFin)
        FechaFin_->setText(m.FechaFin);
    if (!m.Foco.isEmpty()) {
        (m.Foco == QLatin1String("FechaIn") ? FechaIn_ : FechaFin_)->setFocus();
        modelo_->Foco.clear();
    }
    Command1_->setText(m.Command1);
    Importar_->setEnabled(!m.enCurso());
    if (m.Reloj)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
    mostrando_ = false;
    // A window closed during a run closes when the run has stopped.
    if (m.Descargado && !m.enCurso())
        done(Accepted);
}

template <class Evento> void ImportinetDialog::alPulsar(Evento &&evento)
{
    if (mostrando_)
        return;
    guarded(s_, [&] {
        copiar();
        evento();
        mostrar();
    });
}

void ImportinetDialog::reject()
{
    alPulsar([this] { modelo_->Command1_Click(); });
}

} // namespace tesorel
