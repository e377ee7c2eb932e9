#include "windows/cartera_form.h"

#include <QApplication>
#include <QButtonGroup>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include "windows/estilo.h"
#include "windows/formulario.h"
#include "windows/guarded.h"

namespace tesorel
{

namespace
{
const QStringList kColumnas{"FechaCompra",  "Dias",         "Titulos",      "Valor",
                            "TantoCartera", "PrecioCompra", "Ultimo",       "CosteInversion",
                            "ValorActual",  "Beneficio",    "TantoGanancia"};
constexpr int kAltoFila = 22;
// Headings and cells share one width a column, so that they line up.
constexpr int kAnchos[] = {120, 45, 65, 110, 80, 130, 65, 125, 100, 90, 80};

QLabel *etiqueta(const QString &nombre, QWidget *padre,
                 Qt::Alignment alineado = Qt::AlignRight | Qt::AlignVCenter)
{
    auto *l = new QLabel(padre);
    l->setObjectName(nombre);
    l->setAlignment(alineado);
    return l;
}
} // namespace

CarteraDialog::CarteraDialog(Session &s, std::function<void(const QString &)> abrir, QWidget *parent)
    : QDialog(parent), s_(s)
{
    setObjectName("cartera11");
    setWindowTitle(QStringLiteral("Cartera"));
    setModal(true);
    modelo_ = std::make_unique<cartera11>(s, std::move(abrir), [this] { close(); });
    modelo_->avisos.relojDeArena = [](bool ocupado) {
        if (ocupado)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    };

    auto *barra = new QMenuBar(this);
    auto *menu = barra->addMenu(QStringLiteral("&Cartera"));
    auto accion = [&](QMenu *m, const char *nombre, const QString &texto, std::function<void()> evento) {
        QAction *a = m->addAction(texto);
        a->setObjectName(nombre);
        connect(a, &QAction::triggered, this, [this, evento] { alPulsar(evento); });
    };
    accion(menu, "menu_comprar", QStringLiteral("&Comprar"), [this] { modelo_->menu_comprar_Click(); });
    accion(menu, "menu_vender", QStringLiteral("&Vender"), [this] { modelo_->menu_vender_Click(); });
    accion(menu, "menu_volver", QStringLiteral("V&olver"), [this] { modelo_->menu_volver_Click(); });
    QMenu *valor = barra->addMenu(QStringLiteral("Valor Cartera"));
    valor->setObjectName("menu_valor_cartera");
    accion(valor, "menu_gerarar_valorCArtera", QStringLiteral("Generar"),
           [this] { modelo_->menu_gerarar_valorCArtera_Click(); });

    // The grid: headings over a panel of rows that scrolls by whole rows.
    auto *cabecera = new QGridLayout;
    for (int c = 0; c < kColumnas.size(); ++c) {
        auto *h = new QLabel(cartera11::Encabezados[c].trimmed(), this);
        h->setObjectName(kColumnas[c] + "_0");
        h->setAlignment(Qt::AlignCenter);
        h->setFixedWidth(kAnchos[c]);
        h->setStyleSheet(conPaleta("background: @marca; color: white; font-weight: bold; padding: 2px 0px;"));
        cabecera->addWidget(h, 0, c);
    }
    cabecera->setHorizontalSpacing(0);
    cabecera->setContentsMargins(1, 0, 0, 0);
    cabecera->setColumnStretch(kColumnas.size(), 1);
    Contenedor_ = new QWidget;
    Contenedor_->setObjectName("Contenedor");
    rejilla_ = new QGridLayout(Contenedor_);
    rejilla_->setSpacing(0);
    rejilla_->setContentsMargins(0, 0, 0, 0);
    rejilla_->setAlignment(Qt::AlignTop);
    rejilla_->setColumnStretch(kColumnas.size(), 1);
    vista_ = new QScrollArea(this);
    vista_->setWidget(Contenedor_);
    vista_->setWidgetResizable(true);
    vista_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    vista_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    vista_->setFixedHeight(cartera11::FilasVisibles * kAltoFila + 2);
    VScroll1_ = new QScrollBar(Qt::Vertical, this);
    VScroll1_->setObjectName("VScroll1");
    connect(VScroll1_, &QScrollBar::valueChanged, this, [this](int v) {
        if (!pintando_)
            alPulsar([this, v] { modelo_->VScroll1_Change(v); });
    });
    auto *panel = new QHBoxLayout;
    panel->addWidget(vista_, 1);
    panel->addWidget(VScroll1_);

    // Totals and the box "Valor Cartera".
    auto *totales = new QGridLayout;
    const std::pair<const char *, const char *> rotulosTotales[] = {{"Label1_1300", "Coste Inversión"},
                                                                    {"Label1_1400", "Valor Actual"},
                                                                    {"Label1_800", "Diferencia"},
                                                                    {"Label1_700", "%"}};
    for (int k = 0; k < 4; ++k) {
        const auto &[n, rotulo] = rotulosTotales[k];
        etiquetas_[n] = etiqueta(n, this);
        totales->addWidget(new QLabel(QString::fromUtf8(rotulo), this), 0, k, Qt::AlignRight);
        totales->addWidget(etiquetas_[n], 1, k);
    }
    totales->setRowStretch(2, 1);
    auto *caja = new QGroupBox(QStringLiteral("Valor Cartera"), this);
    auto *cajaForm = new QFormLayout(caja);
    for (const auto &[n, rotulo] :
         std::initializer_list<std::pair<const char *, const char *>>{{"Fecha", "Fecha"},
                                                                      {"CarteraLabel_0", "Anterior"},
                                                                      {"CarteraLabel_1", "Actual"},
                                                                      {"CarteraDif", "Dif"},
                                                                      {"CarteraTanto", "%"}}) {
        etiquetas_[n] = etiqueta(n, caja);
        cajaForm->addRow(QString::fromUtf8(rotulo), etiquetas_[n]);
    }
    etiquetas_["LabelDif"] = etiqueta("LabelDif", caja);
    cajaForm->addRow(QString(), etiquetas_["LabelDif"]);

    // Sort and currency.
    auto *orden = new QGroupBox(QStringLiteral("Ordenar por"), this);
    auto *ordenCapa = new QVBoxLayout(orden);
    const QStringList rotulos{QString(),         "Porcentaje",  "Valor actual", "Beneficio",
                              "Fecha de compra", "Descendente", "Ascendente"};
    auto *claves = new QButtonGroup(this), *sentido = new QButtonGroup(this);
    for (int i = 1; i <= 6; ++i) {
        SSOption_[size_t(i)] = new QRadioButton(rotulos[i], orden);
        SSOption_[size_t(i)]->setObjectName(QString("SSOption%1").arg(i));
        (i <= 4 ? claves : sentido)->addButton(SSOption_[size_t(i)]);
        ordenCapa->addWidget(SSOption_[size_t(i)]);
        connect(SSOption_[size_t(i)], &QRadioButton::clicked, this,
                [this, i] { alPulsar([this, i] { modelo_->SSOption_Click(i); }); });
    }
    Euros_ = new QRadioButton(QStringLiteral("Euros"), this);
    Euros_->setObjectName("Euros");
    pesetas_ = new QRadioButton(QStringLiteral("Pesetas"), this);
    pesetas_->setObjectName("pesetas");
    connect(Euros_, &QRadioButton::clicked, this, [this] { alPulsar([this] { modelo_->Euros_Click(); }); });
    connect(pesetas_, &QRadioButton::clicked, this,
            [this] { alPulsar([this] { modelo_->pesetas_Click(); }); });
    ordenCapa->addWidget(Euros_);
    ordenCapa->addWidget(pesetas_);

    auto *botones = new QHBoxLayout;
    const QStringList leyendas{" Modificar Cartera ",        " Comprar  ", " Vender ",
                               " Histórico de operaciones ", "Dividendos", "Importar Op."};
    for (int i = 0; i < leyendas.size(); ++i) {
        auto *b = crearBoton(QString("Command1_%1").arg(i), leyendas[i], this);
        connect(b, &QPushButton::clicked, this,
                [this, i] { alPulsar([this, i] { modelo_->Command1_Click(i); }); });
        botones->addWidget(b);
    }
    auto *Importa = crearBoton("Importa", QStringLiteral("Importar OP"), this);
    connect(Importa, &QPushButton::clicked, this, [this] { alPulsar([this] { modelo_->Importa_Click(); }); });
    botones->addWidget(Importa);
    auto *html = crearBoton("html", QStringLiteral("Informe HTML"), this);
    html->setFlat(true);
    connect(html, &QPushButton::clicked, this, [this] { alPulsar([this] { modelo_->html_Click(); }); });
    botones->addWidget(html);

    auto *abajo = new QHBoxLayout;
    abajo->addLayout(totales, 3);
    abajo->addWidget(caja, 1);
    abajo->addWidget(orden);
    auto *capa = new QVBoxLayout(this);
    capa->setMenuBar(barra);
    capa->addLayout(cabecera);
    capa->addLayout(panel);
    capa->addLayout(abajo);
    capa->addLayout(botones);
    resize(1180, 640);

    guarded(s_, [this] { modelo_->Form_Load(); });
    pintar();
    Centrar(this);
}

CarteraDialog::~CarteraDialog() = default;

void CarteraDialog::alPulsar(const std::function<void()> &evento)
{
    guarded(s_, evento);
    pintar();
}

QLabel *CarteraDialog::celda(const QString &columna, int fila)
{
    const int c = int(kColumnas.indexOf(columna));
    while (int(filas_.size()) < fila) {
        const int n = int(filas_.size()) + 1;
        std::vector<QLabel *> labels;
        for (int k = 0; k < kColumnas.size(); ++k) {
            QLabel *l =
                etiqueta(QString("%1_%2").arg(kColumnas[k]).arg(n), Contenedor_,
                         k == 3 ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignRight | Qt::AlignVCenter);
            l->setFixedHeight(kAltoFila);
            l->setFixedWidth(kAnchos[k]);
            l->setAutoFillBackground(true);
            l->setStyleSheet(n % 2 ? conPaleta("background: @blanco;") : conPaleta("background: @fondo;"));
            if (k == 3)
                l->installEventFilter(this);
            rejilla_->addWidget(l, n - 1, k);
            labels.push_back(l);
        }
        filas_.push_back(labels);
    }
    return filas_[size_t(fila) - 1][size_t(c)];
}

bool CarteraDialog::eventFilter(QObject *objeto, QEvent *evento)
{
    if (evento->type() == QEvent::MouseButtonDblClick && objeto->objectName().startsWith("Valor_")) {
        const int fila = objeto->objectName().mid(6).toInt();
        alPulsar([this, fila] { modelo_->Valor_DblClick(fila); });
        return true;
    }
    return QDialog::eventFilter(objeto, evento);
}

void CarteraDialog::pintar()
{
    pintando_ = true;
    const cartera11 &m = *modelo_;
    for (size_t i = 0; i < m.filas.size(); ++i) {
        const QStringList textos = m.filas[i].celdas();
        for (int k = 0; k < kColumnas.size(); ++k)
            celda(kColumnas[k], int(i) + 1)->setText(textos[k]);
        QLabel *tanto = celda("TantoGanancia", int(i) + 1);
        QPalette p = tanto->palette();
        p.setColor(QPalette::WindowText, ColorDe(m.filas[i].TantoGanancia_ForeColor));
        tanto->setPalette(p);
        tanto->setStyleSheet(tanto->styleSheet().section(';', 0, 0) +
                             "; color: " + ColorDe(m.filas[i].TantoGanancia_ForeColor).name() + ";");
    }
    etiquetas_["Label1_1300"]->setText(m.Label1_1300);
    etiquetas_["Label1_1400"]->setText(m.Label1_1400);
    etiquetas_["Label1_800"]->setText(m.Label1_800);
    etiquetas_["Label1_700"]->setText(m.Label1_700);
    etiquetas_["Fecha"]->setText(m.Fecha);
    etiquetas_["CarteraLabel_0"]->setText(m.CarteraLabel[0]);
    etiquetas_["CarteraLabel_1"]->setText(m.CarteraLabel[1]);
    etiquetas_["CarteraDif"]->setText(m.CarteraDif);
    etiquetas_["CarteraTanto"]->setText(m.CarteraTanto);
    const QString color = "color: " + ColorDe(m.LabelDif_ForeColor).name() + ";";
    etiquetas_["CarteraTanto"]->setStyleSheet(color);
    etiquetas_["LabelDif"]->setStyleSheet(color);
    for (int i = 1; i <= 6; ++i)
        SSOption_[size_t(i)]->setChecked(m.SSOption[size_t(i)]);
    Euros_->setChecked(m.Euros);
    pesetas_->setChecked(m.pesetas);
    VScroll1_->setEnabled(m.VScroll1_Enabled);
    VScroll1_->setRange(0, m.VScroll1_Max);
    VScroll1_->setValue(m.VScroll1_Value);
    // The panel moves by whole rows.
    vista_->verticalScrollBar()->setValue(m.VScroll1_Value * kAltoFila);
    pintando_ = false;
}

ModifCarteraDialog::ModifCarteraDialog(Session &s, QWidget *parent) : QDialog(parent), s_(s)
{
    setObjectName("ModifCartera");
    setWindowTitle(QStringLiteral("Modificar Cartera"));
    setModal(true);
    modelo_ = std::make_unique<ModifCartera>(s, [this] { close(); });
    auto campo = [this](const char *nombre) {
        auto *e = new QLineEdit(this);
        e->setObjectName(nombre);
        return e;
    };
    FechaCompra_ = campo("FechaCompra");
    Cantidad_ = campo("Cantidad");
    Valor_ = campo("Valor");
    Valor_->setReadOnly(true);
    PrecioCompra_ = campo("PrecioCompra");
    CosteInversion_ = campo("CosteInversion");
    auto *form = new QFormLayout;
    form->addRow(QStringLiteral("Fecha de compra"), FechaCompra_);
    form->addRow(QStringLiteral("Valor"), Valor_);
    form->addRow(QStringLiteral("Títulos"), Cantidad_);
    form->addRow(QStringLiteral("Precio de compra"), PrecioCompra_);
    form->addRow(QStringLiteral("Coste inversión"), CosteInversion_);
    auto *fila = new QHBoxLayout;
    const std::pair<const char *, QString> botones[] = {{"Label5", "<<"},
                                                        {"Label4", ">>"},
                                                        {"Eliminar", QStringLiteral("Eliminar")},
                                                        {"Aceptar", QStringLiteral("Aceptar")},
                                                        {"Cancelar", QStringLiteral("Cancelar")}};
    for (const auto &[nombre, texto] : botones) {
        auto *b = crearBoton(nombre, texto, this);
        fila->addWidget(b);
        const QString n = nombre;
        connect(b, &QPushButton::clicked, this, [this, n] {
            alPulsar([this, n] {
                if (n == "Label5")
                    modelo_->Label5_Click();
                else if (n == "Label4")
                    modelo_->Label4_Click();
                else if (n == "Eliminar")
                    modelo_->Eliminar_Click();
                else if (n == "Aceptar")
                    modelo_->Aceptar_Click();
                else
                    modelo_->Cancelar_Click();
            });
        });
    }
    auto *capa = new QVBoxLayout(this);
    capa->addLayout(form);
    capa->addLayout(fila);
    guarded(s_, [this] { modelo_->Form_Load(); });
    pintar();
    Centrar(this);
}

ModifCarteraDialog::~ModifCarteraDialog() = default;

void ModifCarteraDialog::alPulsar(const std::function<void()> &evento)
{
    modelo_->FechaCompra = FechaCompra_->text();
    modelo_->Cantidad = Cantidad_->text();
    modelo_->PrecioCompra = PrecioCompra_->text();
    modelo_->CosteInversion = CosteInversion_->text();
    guarded(s_, evento);
    pintar();
}

void ModifCarteraDialog::pintar()
{
    FechaCompra_->setText(modelo_->FechaCompra);
    Cantidad_->setText(modelo_->Cantidad);
    Valor_->setText(modelo_->Valor);
    PrecioCompra_->setText(modelo_->PrecioCompra);
    CosteInversion_->setText(modelo_->CosteInversion);
}

} // namespace tesorel
