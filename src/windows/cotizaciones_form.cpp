#include "windows/cotizaciones_form.h"

#include <QAction>
#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QTabBar>
#include <QTimer>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <iterator>

#include "windows/estilo.h"
#include "windows/formulario.h"
#include "windows/guarded.h"

namespace tesorel
{

namespace
{
// The tabs in their order and the index of each in the model.
constexpr int kPestanas[] = {1, 2, 3, 4, Cotizaciones::PestanaValor};

// The cells of a row: name and share of the width.
struct Columna {
    const char *nombre;
    int ancho;
};
constexpr Columna kColumnas[] = {{"SubeBaja", 2}, {"Valor", 16}, {"Anterior", 8}, {"Ultimo", 8},   {"Dif", 7},
                                 {"Volumen", 10}, {"Maximo", 8}, {"minimo", 8},   {"Efectivo", 11}};

// The marks of the symbol font the table was written for.
QString marca(const QString &caracter)
{
    if (caracter == QLatin1String("5"))
        return QStringLiteral("▲");
    if (caracter == QLatin1String("6"))
        return QStringLiteral("▼");
    if (caracter == QLatin1String("0"))
        return QStringLiteral("■");
    return {};
}

QString hoja()
{
    return HojaDeEstilo() + conPaleta(QStringLiteral(R"(
QDialog#Cotizaciones { background: @fondo; }
QFrame#Mandos, QFrame#Amplitud { background: @panel; border-bottom: 1px solid @bordePanel; }
QFrame#Mandos QPushButton { background: @blanco; border: 1px solid @bordeBoton; border-radius: 4px;
    padding: 3px 10px; color: @marca; }
QFrame#Mandos QPushButton:hover { background: @resalte; border-color: @acento; }
QLabel#Dia { font-weight: bold; color: @marca; min-width: 90px; }
QLabel#Rango { color: @marca; text-decoration: underline; }
QFrame#Cabeceras { background: @marca; }
QFrame#Cabeceras QPushButton { background: transparent; border: none; color: @blanco; font-weight: bold;
    text-align: right; padding: 4px 6px; }
QFrame#Cabeceras QPushButton#Image0_1 { text-align: left; }
QFrame#Cabeceras QPushButton:hover { background: @marcaHover; }
QWidget#Contenedor { background: @blanco; }
QFrame.fila QLabel { padding: 0px 6px; font-family: "DejaVu Sans Mono"; font-size: 9pt; }
QFrame.par { background: @filaPar; }
QLabel.valor { color: @marca; }
QLabel.valor:hover { text-decoration: underline; }
QLabel#Suben { color: @sube; font-weight: bold; }
QLabel#Bajan { color: @baja; font-weight: bold; }
QLabel#Repiten { color: @repite; font-weight: bold; }
)"));
}

QHBoxLayout *filaSinMargen(QWidget *padre)
{
    auto *fila = new QHBoxLayout(padre);
    fila->setContentsMargins(6, 0, 6, 0);
    fila->setSpacing(0);
    return fila;
}
} // namespace

CotizacionesForm::CotizacionesForm(Session &s, const QString &valorPrincipal, QWidget *padre)
    : QDialog(padre, Qt::Window | Qt::FramelessWindowHint), s_(s), modelo_(s)
{
    setObjectName("Cotizaciones");
    setStyleSheet(hoja());
    auto *capa = new QVBoxLayout(this);
    capa->setContentsMargins(0, 0, 0, 0);
    capa->setSpacing(0);
    capa->addWidget(construirCabecera());
    auto *barra = new QMenuBar(this);
    construirMenus(barra);
    capa->addWidget(barra);
    capa->addWidget(construirMandos());
    capa->addWidget(construirTabla(), 1);

    // The whole screen from its top left corner.
    if (QScreen *pantalla = padre ? padre->screen() : screen())
        setGeometry(pantalla->geometry());
    guarded(s_, [&] { modelo_.Form_Load(valorPrincipal); });
    ajustarFilasPorPagina();

    // The pause of the day buttons: the table follows the day once it stands still.
    Timer1_ = new QTimer(this);
    Timer1_->setObjectName("Timer1");
    Timer1_->setInterval(50);
    connect(Timer1_, &QTimer::timeout, this, [this] {
        bool dibujado = false;
        guarded(s_, [&] { dibujado = modelo_.Timer1_Timer(); });
        if (dibujado)
            mostrar();
    });
    Timer1_->start();
    mostrar();
}

CotizacionesForm::~CotizacionesForm() = default;

void CotizacionesForm::evento(const std::function<void()> &cuerpo)
{
    if (mostrando_)
        return;
    guarded(s_, cuerpo);
    mostrar();
}

void CotizacionesForm::alPulsar(QPushButton *boton, const std::function<void()> &cuerpo)
{
    connect(boton, &QPushButton::clicked, this, [this, cuerpo] { evento(cuerpo); });
}

QWidget *CotizacionesForm::construirCabecera()
{
    auto *cabecera = new QFrame(this);
    cabecera->setObjectName("Cabecera");
    auto *fila = new QHBoxLayout(cabecera);
    fila->setContentsMargins(14, 6, 6, 6);
    Titulo_ = crearEtiqueta("Titulo", QString(), cabecera);
    fila->addWidget(Titulo_, 1);
    auto *minimizar = crearBoton("minimizar", QStringLiteral("–"), cabecera);
    auto *cerrar = crearBoton("cerrar", QStringLiteral("✕"), cabecera);
    fila->addWidget(minimizar);
    fila->addWidget(cerrar);
    connect(minimizar, &QPushButton::clicked, this, &QWidget::showMinimized);
    connect(cerrar, &QPushButton::clicked, this, &QDialog::reject);
    return cabecera;
}

void CotizacionesForm::construirMenus(QWidget *barra)
{
    auto *menus = static_cast<QMenuBar *>(barra);
    auto entrada = [&](QMenu *menu, const char *nombre, const QString &texto) {
        QAction *a = menu->addAction(texto);
        a->setObjectName(nombre);
        return a;
    };
    QMenu *archivo = menus->addMenu(QStringLiteral("&Archivo"));
    archivo->setObjectName("menu_archivo");
    entrada(archivo, "menu_imprimir", QStringLiteral("&Imprimir")); // does nothing
    connect(entrada(archivo, "menu_salir", QStringLiteral("&Salir")), &QAction::triggered, this,
            &QDialog::reject);
    QMenu *ver = menus->addMenu(QStringLiteral("&Ver"));
    ver->setObjectName("menu_ver");
    menu_ultimo_dia_ = entrada(ver, "menu_ultimo_dia", QStringLiteral("Último &día"));
    menu_intervalo_ = entrada(ver, "menu_intervalo", QStringLiteral("&Intervalo"));
    menu_ultimo_dia_->setCheckable(true);
    menu_intervalo_->setCheckable(true);
    QAction *seleccionar =
        entrada(ver, "menu_seleccionar_intervalo", QStringLiteral("&Seleccionar intervalo"));
    connect(menu_ultimo_dia_, &QAction::triggered, this,
            [this] { evento([this] { modelo_.menu_ultimo_dia_Click(); }); });
    connect(menu_intervalo_, &QAction::triggered, this,
            [this] { evento([this] { modelo_.menu_intervalo_Click(); }); });
    connect(seleccionar, &QAction::triggered, this,
            [this] { evento([this] { modelo_.menu_seleccionar_intervalo_Click(); }); });
}

// The tabs, the day buttons, the interval, the sort options and the breadth.
QWidget *CotizacionesForm::construirMandos()
{
    auto *caja = new QWidget(this);
    auto *capa = new QVBoxLayout(caja);
    capa->setContentsMargins(0, 6, 0, 0);
    capa->setSpacing(0);
    pestana_ = new QTabBar(caja);
    pestana_->setObjectName(QStringLiteral("pestaña"));
    pestana_->setDrawBase(false);
    pestana_->setExpanding(false);
    for (int indice : kPestanas)
        pestana_->addTab(modelo_.pestana_Caption[size_t(indice)]);
    connect(pestana_, &QTabBar::tabBarClicked, this, [this](int i) {
        if (i >= 0 && i < int(std::size(kPestanas)))
            evento([&] { modelo_.pestana_Click(kPestanas[i]); });
    });
    auto *filaPestanas = new QHBoxLayout;
    filaPestanas->setContentsMargins(10, 0, 10, 0);
    filaPestanas->addWidget(pestana_);
    filaPestanas->addStretch(1);
    capa->addLayout(filaPestanas);

    auto *mandos = new QFrame(caja);
    mandos->setObjectName("Mandos");
    auto *fila = new QHBoxLayout(mandos);
    fila->setContentsMargins(10, 6, 10, 6);
    fila->setSpacing(8);
    auto *Command1 = crearBoton("Command1", QStringLiteral("◀ Día anterior"), mandos);
    Dia_ = crearEtiqueta("Dia", QString(), mandos);
    Dia_->setAlignment(Qt::AlignCenter);
    auto *Command2 = crearBoton("Command2", QStringLiteral("Día siguiente ▶"), mandos);
    alPulsar(Command1, [this] { modelo_.Command1_Click(); });
    alPulsar(Command2, [this] { modelo_.Command2_Click(); });
    fila->addWidget(Command1);
    fila->addWidget(Dia_);
    fila->addWidget(Command2);
    fila->addSpacing(16);
    auto *Rango = crearEtiqueta("Rango", QStringLiteral("Rango :"), mandos);
    Rango->setCursor(Qt::PointingHandCursor);
    Rango->installEventFilter(this);
    FechaIn_ = crearEtiqueta("FechaIn", QString(), mandos);
    FechaFin_ = crearEtiqueta("FechaFin", QString(), mandos);
    fila->addWidget(Rango);
    fila->addWidget(FechaIn_);
    fila->addWidget(new QLabel(QStringLiteral("–"), mandos));
    fila->addWidget(FechaFin_);
    fila->addStretch(1);
    fila->addWidget(new QLabel(QStringLiteral("Ordenar por"), mandos));
    const std::pair<int, QString> opciones[] = {{1, QStringLiteral("Nombre")},
                                                {4, QStringLiteral("Diferencia")},
                                                {5, QStringLiteral("Volumen")},
                                                {8, QStringLiteral("Efectivo")}};
    for (const auto &[i, texto] : opciones) {
        auto *o = new QRadioButton(texto, mandos);
        o->setObjectName(QString("Option2_%1").arg(i));
        connect(o, &QRadioButton::clicked, this, [this, i] {
            evento([&] {
                modelo_.Option2 = i;
                modelo_.Option2_Click(i);
            });
        });
        Option2_[size_t(i)] = o;
        fila->addWidget(o);
    }
    Check1_ = new QCheckBox(QStringLiteral("Descendente"), mandos);
    Check1_->setObjectName("Check1");
    connect(Check1_, &QCheckBox::clicked, this, [this](bool marcado) {
        evento([&] {
            modelo_.Check1 = marcado ? 1 : 0;
            modelo_.Check1_Click();
        });
    });
    fila->addWidget(Check1_);
    fila->addSpacing(16);
    auto *AddVal = crearBoton("AddVal", QStringLiteral("Añadir"), mandos);
    alPulsar(AddVal, [this] { modelo_.AddVal_Click(); });
    fila->addWidget(AddVal);
    capa->addWidget(mandos);

    auto *amplitud = new QFrame(caja);
    amplitud->setObjectName("Amplitud");
    auto *filaAmplitud = new QHBoxLayout(amplitud);
    filaAmplitud->setContentsMargins(10, 4, 10, 4);
    filaAmplitud->setSpacing(6);
    auto cuenta = [&](const char *nombre, const QString &texto) {
        filaAmplitud->addWidget(new QLabel(texto, amplitud));
        auto *l = crearEtiqueta(nombre, QString(), amplitud);
        l->setMinimumWidth(l->fontMetrics().horizontalAdvance(QStringLiteral("00000")));
        filaAmplitud->addWidget(l);
        filaAmplitud->addSpacing(14);
        return l;
    };
    Suben_ = cuenta("Suben", QStringLiteral("Suben :"));
    Bajan_ = cuenta("Bajan", QStringLiteral("Bajan :"));
    Repiten_ = cuenta("Repiten", QStringLiteral("Repiten :"));
    filaAmplitud->addStretch(1);
    capa->addWidget(amplitud);
    return caja;
}

// The headings, and under them the panel of rows that the scroll bar moves.
QWidget *CotizacionesForm::construirTabla()
{
    auto *caja = new QWidget(this);
    auto *capa = new QGridLayout(caja);
    capa->setContentsMargins(10, 8, 10, 10);
    capa->setSpacing(0);
    auto *cabeceras = new QFrame(caja);
    cabeceras->setObjectName("Cabeceras");
    auto *fila = filaSinMargen(cabeceras);
    for (int i = 0; i <= 8; ++i) {
        auto *b = crearBoton(QString("Image0_%1").arg(i), Cotizaciones::Cabeceras.value(i), cabeceras);
        b->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        b->setFocusPolicy(Qt::NoFocus);
        if (i > 0)
            alPulsar(b, [this, i] { modelo_.Image0_Click(i); });
        Image0_[size_t(i)] = b;
        fila->addWidget(b, kColumnas[i].ancho);
    }
    capa->addWidget(cabeceras, 0, 0);

    ventanaTabla_ = new QWidget(caja);
    ventanaTabla_->setObjectName("VentanaTabla");
    ventanaTabla_->installEventFilter(this);
    Contenedor_ = new QWidget(ventanaTabla_);
    Contenedor_->setObjectName("Contenedor");
    Contenedor_->setAttribute(Qt::WA_StyledBackground);
    auto *filasCapa = new QVBoxLayout(Contenedor_);
    filasCapa->setContentsMargins(0, 0, 0, 0);
    filasCapa->setSpacing(0);
    filasCapa->setAlignment(Qt::AlignTop);
    capa->addWidget(ventanaTabla_, 1, 0);
    VScroll1_ = new QScrollBar(Qt::Vertical, caja);
    VScroll1_->setObjectName("VScroll1");
    VScroll1_->setRange(0, 1);
    connect(VScroll1_, &QScrollBar::valueChanged, this, [this] { colocarContenedor(); });
    capa->addWidget(VScroll1_, 1, 1);
    capa->setRowStretch(1, 1);
    return caja;
}

void CotizacionesForm::resizeEvent(QResizeEvent *evento)
{
    QDialog::resizeEvent(evento);
    ajustarFilasPorPagina();
    colocarContenedor();
}

void CotizacionesForm::ajustarFilasPorPagina()
{
    if (ventanaTabla_)
        modelo_.filasPorPagina = std::max(1, ventanaTabla_->height() / AltoFila);
}

void CotizacionesForm::colocarContenedor()
{
    if (!Contenedor_)
        return;
    Contenedor_->setGeometry(0, -VScroll1_->value() * AltoFila, ventanaTabla_->width(),
                             std::max(ventanaTabla_->height(), int(filas_.size()) * AltoFila));
}

bool CotizacionesForm::eventFilter(QObject *objeto, QEvent *suceso)
{
    if (objeto == ventanaTabla_ && suceso->type() == QEvent::Resize) {
        ajustarFilasPorPagina();
        colocarContenedor();
    } else if (objeto == ventanaTabla_ && suceso->type() == QEvent::Wheel) {
        const int pasos = static_cast<QWheelEvent *>(suceso)->angleDelta().y() / 40;
        VScroll1_->setValue(VScroll1_->value() - pasos);
        return true;
    } else if (suceso->type() == QEvent::MouseButtonPress &&
               static_cast<QMouseEvent *>(suceso)->button() == Qt::LeftButton) {
        if (objeto->objectName() == QLatin1String("Rango")) {
            evento([this] { modelo_.menu_seleccionar_intervalo_Click(); });
            return true;
        }
        const QVariant fila = objeto->property("fila");
        if (fila.isValid()) {
            evento([&] { modelo_.Valor_Click(fila.toInt()); });
            if (!modelo_.Visible)
                accept();
            return true;
        }
    }
    return QDialog::eventFilter(objeto, suceso);
}

void CotizacionesForm::mostrar()
{
    if (mostrando_)
        return;
    mostrando_ = true;
    setWindowTitle(modelo_.Caption);
    Titulo_->setText(modelo_.Caption);
    Dia_->setText(modelo_.Fecha);
    FechaIn_->setText(modelo_.FechaIn);
    FechaFin_->setText(modelo_.FechaFin);
    Suben_->setText(modelo_.Suben);
    Bajan_->setText(modelo_.Bajan);
    Repiten_->setText(modelo_.Repiten);
    pestana_->setTabText(4, modelo_.pestana_Caption[Cotizaciones::PestanaValor]);
    for (int i = 1; i <= 8; ++i) {
        const ImagenOrden imagen = modelo_.Image0[size_t(i)];
        const QString flecha = imagen == ImagenOrden::Descendente  ? QStringLiteral(" ▼")
                               : imagen == ImagenOrden::Ascendente ? QStringLiteral(" ▲")
                                                                   : QString();
        Image0_[size_t(i)]->setText(Cotizaciones::Cabeceras.at(i) + flecha);
        if (Option2_[size_t(i)])
            Option2_[size_t(i)]->setChecked(modelo_.Option2 == i);
    }
    Check1_->setChecked(modelo_.Check1 == 1);
    menu_ultimo_dia_->setChecked(modelo_.menu_ultimo_dia_Checked);
    menu_intervalo_->setChecked(modelo_.menu_intervalo_Checked);
    VScroll1_->setRange(0, modelo_.VScroll1_Max);
    mostrarFilas();
    mostrando_ = false;
}

void CotizacionesForm::mostrarFilas()
{
    auto *capa = static_cast<QVBoxLayout *>(Contenedor_->layout());
    while (int(filas_.size()) < modelo_.NumReg) {
        const int n = int(filas_.size()) + 1;
        Fila f;
        f.marco = new QFrame(Contenedor_);
        f.marco->setObjectName(QString("Fila_%1").arg(n));
        f.marco->setProperty("class", n % 2 == 0 ? "fila par" : "fila");
        f.marco->setFixedHeight(AltoFila);
        auto *fila = filaSinMargen(f.marco);
        for (int c = 0; c < 9; ++c) {
            auto *l = new QLabel(f.marco);
            l->setObjectName(QString("%1_%2").arg(kColumnas[c].nombre).arg(n));
            l->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
            l->setAlignment(c == 1 ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignRight | Qt::AlignVCenter);
            if (c == 1) {
                l->setProperty("class", "valor");
                l->setProperty("fila", n);
                l->setCursor(Qt::PointingHandCursor);
                l->installEventFilter(this);
            }
            f.celdas[size_t(c)] = l;
            fila->addWidget(l, kColumnas[c].ancho);
        }
        capa->addWidget(f.marco);
        filas_.push_back(f);
    }
    for (size_t i = 0; i < filas_.size(); ++i) {
        const FilaCotizacion &m = modelo_.filas[i];
        Fila &f = filas_[i];
        f.celdas[0]->setText(QStringLiteral("<span style=\"color:%1\">%2</span>")
                                 .arg(ColorDe(m.SubeBaja_ForeColor).name(), marca(m.SubeBaja)));
        const QString *textos[] = {&m.Valor,   &m.Anterior, &m.Ultimo, &m.Dif,
                                   &m.Volumen, &m.Maximo,   &m.minimo, &m.Efectivo};
        for (int c = 1; c < 9; ++c)
            f.celdas[size_t(c)]->setText(textos[c - 1]->trimmed());
        f.celdas[1]->setToolTip(m.Valor.trimmed());
        f.marco->setVisible(m.Visible);
    }
    colocarContenedor();
}

} // namespace tesorel
