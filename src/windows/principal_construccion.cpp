#include "windows/principal_window.h"
// The controls of the main window, built once: the head, the buttons, the
// value list, the chart frame and the settings panel.
#include "windows/chart_view.h"
#include "windows/chat_panel.h"
#include "windows/noticias_vista.h"
#include "windows/principal_charts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QStyle>
#include <QTabBar>
#include <QVBoxLayout>

#include "core/nombres_comandos.h"
#include "core/paleta.h"
#include "market/popup_menus.h"
#include "principal/comandos.h"
#include "store/session.h"
#include "windows/estilo.h"
#include "windows/formulario.h"
#include "windows/guarded.h"

namespace tesorel
{

namespace
{
QLineEdit *oculto(const QString &nombre, QWidget *padre)
{
    auto *e = new QLineEdit(padre);
    e->setObjectName(nombre);
    e->setVisible(false);
    return e;
}
} // namespace

QPushButton *PrincipalWindow::botonDeOrden(const QString &nombre, const QString &texto, QWidget *padre)
{
    auto *b = new QPushButton(texto, padre);
    b->setObjectName(nombre);
    b->setCursor(Qt::PointingHandCursor);
    b->setFocusPolicy(Qt::NoFocus);
    connect(b, &QPushButton::clicked, this, [this, nombre] { alPulsar([&] { modelo_.ejecutar(nombre); }); });
    return b;
}

void PrincipalWindow::construir()
{
    auto *capa = new QVBoxLayout(this);
    capa->setContentsMargins(0, 0, 0, 0);
    capa->setSpacing(0);
    capa->addWidget(construirCabecera());
    auto *superior = new QFrame(this);
    superior->setObjectName("BarraSuperior");
    auto *filaSuperior = new QHBoxLayout(superior);
    filaSuperior->setContentsMargins(0, 0, 0, 0);
    filaSuperior->setSpacing(0);
    auto *barra = new QMenuBar(superior);
    barra->setObjectName("BarraMenus");
    construirMenus(barra);
    filaSuperior->addWidget(barra, 1);
    filaSuperior->addWidget(construirEnlaces(superior));
    capa->addWidget(superior);
    capa->addWidget(construirBotonera());
    auto *cuerpo = new QHBoxLayout;
    cuerpo->setContentsMargins(0, 0, 0, 0);
    cuerpo->setSpacing(0);
    cuerpo->addWidget(construirPanelLista());
    cuerpo->addWidget(construirGraficas(), 1);
    capa->addLayout(cuerpo, 1);

    Text1_ = oculto("Text1", this);
    Configuracion_ = oculto("Configuracion", this);
    Pesta_ = oculto("Pesta", this);
}

QFrame *PrincipalWindow::construirCabecera()
{
    auto *cabecera = new QFrame(this);
    cabecera->setObjectName("Cabecera");
    cabecera->setFixedHeight(52);
    auto *fila = new QHBoxLayout(cabecera);
    fila->setContentsMargins(14, 4, 6, 4);
    fila->setSpacing(8);
    fila->addWidget(crearEtiqueta("Marca", QStringLiteral("Tesorel"), cabecera));
    Titulo_ = crearEtiqueta("Titulo", QString(), cabecera);
    // A long company name must not widen the window past the screen.
    Titulo_->setFixedWidth(210);
    Titulo_->installEventFilter(this);
    fila->addWidget(Titulo_);
    // Each figure is as wide as its longest text in the header's bold type.
    auto cifra = [&](const QString &nombre, const QString &muestra = QStringLiteral("-000,00 €")) {
        auto *l = crearEtiqueta(nombre, QString(), cabecera);
        l->setProperty("class", "cifra");
        QFont negrita = l->font();
        negrita.setBold(true);
        l->setMinimumWidth(QFontMetrics(negrita).horizontalAdvance(muestra) + 8);
        fila->addWidget(l);
        return l;
    };
    cifra("Fecha_Inicio", QStringLiteral("00/00/0000"));
    Fecha_Fin_ = cifra("Fecha_Fin", QStringLiteral("00/00/0000"));
    Fecha_Fin_->installEventFilter(this);
    // The waste bin: the last date of the chart dropped here deletes that day.
    Image1_ = crearEtiqueta("Image1", QString(), cabecera);
    Image1_->setPixmap(style()->standardIcon(QStyle::SP_TrashIcon).pixmap(18, 18));
    Image1_->setAcceptDrops(true);
    Image1_->setToolTip(QStringLiteral("Arrastre aquí la fecha final para borrar ese día"));
    Image1_->installEventFilter(this);
    fila->addWidget(Image1_);
    cifra("Etiqueta_Maximo");
    cifra("Etiqueta_Minimo");
    cifra("Etiqueta_Porcentaje_total");
    // The average price and volume labels are never written: they stay hidden.
    for (const QString &nombre :
         {QStringLiteral("Etiqueta_Media"), QStringLiteral("Etiqueta_Volumen_Medio")}) {
        auto *l = crearEtiqueta(nombre, QString(), cabecera);
        l->setVisible(false);
        fila->addWidget(l);
    }
    cifra("Tiempot");
    fila->addStretch(1);
    NombreUsuario_ = crearEtiqueta("NombreUsuario", QString(), cabecera);
    fila->addWidget(NombreUsuario_);
    IndicadorOnline_ = crearEtiqueta("IndicadorOnline", QString(), cabecera);
    IndicadorOnline_->setFixedSize(12, 12);
    fila->addWidget(IndicadorOnline_);
    LabelOnline_ = crearEtiqueta("LabelOnline", QString(), cabecera);
    fila->addWidget(LabelOnline_);
    auto *minimizar = new QPushButton(QStringLiteral("–"), cabecera);
    minimizar->setObjectName(control::minimizar);
    minimizar->setFocusPolicy(Qt::NoFocus);
    auto *cerrar = new QPushButton(QStringLiteral("✕"), cabecera);
    cerrar->setObjectName(control::cerrar);
    cerrar->setFocusPolicy(Qt::NoFocus);
    fila->addWidget(minimizar);
    fila->addWidget(cerrar);
    connect(minimizar, &QPushButton::clicked, this, &QWidget::showMinimized);
    connect(cerrar, &QPushButton::clicked, this, &QWidget::close);
    return cabecera;
}

// The value's name in the head, cut short with its whole text in the tooltip.
void PrincipalWindow::ponerTitulo()
{
    Titulo_->setText(Titulo_->fontMetrics().elidedText(modelo_.Titulo, Qt::ElideRight, Titulo_->width() - 4));
    Titulo_->setToolTip(modelo_.Titulo);
}

QFrame *PrincipalWindow::construirBotonera()
{
    auto *botonera = new QFrame(this);
    botonera->setObjectName("Botonera");
    auto *fila = new QHBoxLayout(botonera);
    fila->setContentsMargins(10, 5, 10, 5);
    fila->setSpacing(6);
    const std::pair<const char *, QString> botones[] = {
        {control::boton_Comprar, QStringLiteral("Comprar")},
        {control::boton_Vender, QStringLiteral("Vender")},
        {control::bCartera, QStringLiteral("Cartera")},
        {control::boton_cotizaciones, QStringLiteral("Cotizaciones")},
        {control::boton_Importar, QStringLiteral("Importar")},
        {control::Boton_Favorito, QStringLiteral("Añadir a Seguimiento")},
        {control::CorregirCotizaciones, QStringLiteral("Corregir Cotizaciones")},
        {control::acerca_de, QStringLiteral("Acerca de")},
    };
    for (const auto &[nombre, texto] : botones)
        fila->addWidget(botonDeOrden(nombre, texto, botonera));
    Boton_Favorito_ = botonera->findChild<QPushButton *>("Boton_Favorito");
    fila->addStretch(1);
    return botonera;
}

// The links of the value sit at the right of the menu bar.
QWidget *PrincipalWindow::construirEnlaces(QWidget *padre)
{
    auto *caja = new QWidget(padre);
    auto *fila = new QHBoxLayout(caja);
    fila->setContentsMargins(0, 0, 8, 0);
    fila->setSpacing(2);
    const std::pair<const char *, QString> enlaces[] = {
        {control::laWEB, QStringLiteral("(Visitar Web)")},
        {control::BolsaMadrid, QStringLiteral("La Bolsa")},
        {control::Invertia, QStringLiteral("Invertía")},
        {control::titular, QStringLiteral("Tesorel en la web")},
        {control::Sugiere, QStringLiteral("Enviar Sugerencia")},
    };
    for (const auto &[nombre, texto] : enlaces) {
        auto *b = botonDeOrden(nombre, texto, caja);
        b->setProperty("class", "enlace");
        fila->addWidget(b);
        visibles_.insert(nombre, b);
    }
    return caja;
}

QWidget *PrincipalWindow::construirPanelLista()
{
    auto *panel = new QFrame(this);
    panel->setObjectName("PanelLista");
    panel->setFixedWidth(250);
    auto *capa = new QVBoxLayout(panel);
    capa->setContentsMargins(10, 10, 10, 8);
    auto *cabeza = new QHBoxLayout;
    cabeza->addWidget(botonDeOrden(control::boton_anterior, QStringLiteral("◀"), panel));
    Titul_ = crearEtiqueta("Titul", QString(), panel);
    Titul_->setAlignment(Qt::AlignCenter);
    Titul_->installEventFilter(this);
    cabeza->addWidget(Titul_, 1);
    cabeza->addWidget(botonDeOrden(control::boton_siguiente, QStringLiteral("▶"), panel));
    capa->addLayout(cabeza);
    buscar_ = new QLineEdit(panel);
    buscar_->setObjectName("buscar");
    buscar_->setPlaceholderText(QStringLiteral("Buscar valor"));
    buscar_->setClearButtonEnabled(true);
    buscar_->installEventFilter(this);
    capa->addWidget(buscar_);
    connect(buscar_, &QLineEdit::textChanged, this, [this](const QString &texto) {
        if (texto != modelo_.mercado.busqueda.buscar())
            alPulsar([&] { modelo_.buscar_Change(texto); });
    });
    connect(buscar_, &QLineEdit::returnPressed, this,
            [this] { alPulsar([this] { modelo_.buscar_Return(); }); });
    List1_ = new QListWidget(panel);
    List1_->setObjectName("List1");
    // A long search result is elided, with its whole text as the tooltip.
    List1_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    List1_->setTextElideMode(Qt::ElideRight);
    List1_->installEventFilter(this);
    List1_->viewport()->installEventFilter(this);
    // The list combo of the configuration panel sits over the list it chooses.
    auto *seleccion = new QVBoxLayout;
    seleccion->setSpacing(2);
    seleccion->addWidget(new QLabel(QStringLiteral("Seleccionar Valores"), panel));
    Valores_ = new QComboBox(panel);
    Valores_->setObjectName("Valores");
    Valores_->addItems(Principal::Valores_Entradas);
    Valores_->setCurrentIndex(-1);
    connect(Valores_, &QComboBox::activated, this, [this] { alPulsar([this] { modelo_.Valores_Click(); }); });
    seleccion->addWidget(Valores_);
    capa->addLayout(seleccion);
    capa->addWidget(List1_, 1);
    connect(List1_, &QListWidget::itemClicked, this,
            [this] { alPulsar([this] { modelo_.List1_Click(List1_->currentRow()); }); });
    Version_ = crearEtiqueta("Version", QString(), panel);
    capa->addWidget(Version_);
    return panel;
}

QWidget *PrincipalWindow::construirGraficas()
{
    auto *lado = new QWidget(this);
    auto *capa = new QVBoxLayout(lado);
    capa->setContentsMargins(10, 10, 10, 0);
    capa->setSpacing(6);
    capa->addWidget(graficas_->vista(1, lado), 60);
    capa->addWidget(graficas_->vista(2, lado), 15);

    paginas_ = new QStackedWidget(lado);
    paginas_->setObjectName("Marco");
    // News: Yahoo and its tick and list with a connection; a note without one.
    auto *noticias = new QWidget(paginas_);
    noticias->setObjectName(QStringLiteral("pestaña_0"));
    auto *capaNoticias = new QVBoxLayout(noticias);
    capaNoticias->setContentsMargins(0, 0, 0, 0);
    auto *filaNoticias = new QHBoxLayout;
    auto *Yahoo = botonDeOrden(control::Yahoo, QStringLiteral("Yahoo! Noticias"), noticias);
    auto *Yahoono = new QCheckBox(QStringLiteral("Noticias"), noticias);
    Yahoono->setObjectName(control::Yahoono);
    connect(Yahoono, &QCheckBox::clicked, this,
            [this] { alPulsar([this] { modelo_.ejecutar(control::Yahoono); }); });
    auto *Noticias = crearEtiqueta("Noticias", QStringLiteral("Noticias"), noticias);
    auto *Incidecaption = crearEtiqueta("Incidecaption", QStringLiteral("Sin conexión a internet"), noticias);
    filaNoticias->addWidget(Yahoo);
    filaNoticias->addWidget(Yahoono);
    filaNoticias->addWidget(Noticias);
    filaNoticias->addWidget(Incidecaption);
    filaNoticias->addStretch();
    capaNoticias->addLayout(filaNoticias);
    auto *YahooNoticias = new QListWidget(noticias);
    YahooNoticias->setObjectName("YahooNoticias");
    conectarNoticias(s_, comandos_, AjustesOnline::delEntorno(), Yahoono, YahooNoticias);
    capaNoticias->addWidget(YahooNoticias, 1);
    for (QWidget *w : {static_cast<QWidget *>(Yahoo), static_cast<QWidget *>(Yahoono),
                       static_cast<QWidget *>(YahooNoticias), static_cast<QWidget *>(Noticias),
                       static_cast<QWidget *>(Incidecaption)})
        visibles_.insert(w->objectName(), w);
    paginas_->addWidget(noticias);
    auto pagina = [&](const QString &nombre) {
        auto *p = new QWidget(paginas_);
        p->setObjectName(nombre);
        paginas_->addWidget(p);
        return p;
    };
    auto *notas = pagina(QStringLiteral("pestaña_1"));
    auto *capaNotas = new QVBoxLayout(notas);
    capaNotas->setContentsMargins(0, 0, 0, 0);
    Comentario_ = new QPlainTextEdit(notas);
    Comentario_->setObjectName("Comentario");
    Comentario_->setPlaceholderText(QStringLiteral("Notas sobre el valor"));
    capaNotas->addWidget(Comentario_);
    auto *indicadores = pagina(QStringLiteral("pestaña_2"));
    auto *capaIndicador = new QVBoxLayout(indicadores);
    capaIndicador->setContentsMargins(0, 0, 0, 0);
    capaIndicador->addWidget(graficas_->vista(3, indicadores));
    auto *operaciones = pagina(QStringLiteral("pestaña_6"));
    auto *capaOperaciones = new QVBoxLayout(operaciones);
    capaOperaciones->setContentsMargins(0, 0, 0, 0);
    capaOperaciones->addWidget(graficas_->textoOperaciones(operaciones));
    pagina(QStringLiteral("pestaña_7"));
    auto *marcoChat = pagina("MarcoChat");
    (new QVBoxLayout(marcoChat))
        ->addWidget(new ChatPanel(
            s_, AjustesOnline::delEntorno(), [this] { return modelo_.Version; }, marcoChat));
    capa->addWidget(paginas_, 25);

    Pestanas_ = new QTabBar(lado);
    Pestanas_->setObjectName(QStringLiteral("Pestañas"));
    Pestanas_->setDrawBase(false);
    Pestanas_->setExpanding(false);
    for (const QString &caption : Principal::Pestanas_Caption)
        Pestanas_->addTab(caption);
    connect(Pestanas_, &QTabBar::currentChanged, this,
            [this](int indice) { alPulsar([&] { modelo_.Pestanas_Click(indice); }); });
    connect(Pestanas_, &QTabBar::tabBarDoubleClicked, this,
            [this] { alPulsar([this] { modelo_.Pestanas_DblClick(); }); });
    auto *filaPestanas = new QHBoxLayout;
    filaPestanas->setSpacing(4);
    filaPestanas->addWidget(Pestanas_);
    filaPestanas->addStretch(1);
    filaPestanas->addWidget(botonDeOrden(control::Lupa_menos, QStringLiteral("−"), lado));
    filaPestanas->addWidget(botonDeOrden(control::Lupa_Mas, QStringLiteral("+"), lado));
    capa->addLayout(filaPestanas);
    capa->addWidget(construirPanelConfiguracion());
    return lado;
}

QFrame *PrincipalWindow::construirPanelConfiguracion()
{
    auto *panel = new QFrame(this);
    panel->setObjectName("PanelConfiguracion");
    auto *fila = new QHBoxLayout(panel);
    fila->setContentsMargins(6, 4, 6, 4);
    fila->setSpacing(4);
    // The ticks wear their line's colour: the row is the chart's legend.
    const std::pair<QString, int> lineas[] = {{QString(), 0},
                                              {QStringLiteral("Máximo"), paleta::LineasPrecio[1]},
                                              {QStringLiteral("Mínimo"), paleta::LineasPrecio[2]},
                                              {QStringLiteral("Cierre"), paleta::LineasPrecio[0]},
                                              {QStringLiteral("30 días"), paleta::LineasPrecio[3]},
                                              {QStringLiteral("9 días"), paleta::LineasPrecio[6]},
                                              {QStringLiteral("Media dia"), paleta::LineasPrecio[7]}};
    for (int i = 1; i <= 6; ++i) {
        auto *c = new QCheckBox(lineas[i].first, panel);
        c->setObjectName(QString("Check2_%1").arg(i));
        c->setStyleSheet(QString("color: %1; font-weight: bold;").arg(ColorDe(lineas[i].second).name()));
        connect(c, &QCheckBox::clicked, this, [this, i] { alPulsar([&] { modelo_.Check2_Click(i); }); });
        Check2_[i] = c;
        fila->addWidget(c);
    }
    auto tick = [&](const QString &nombre, const QString &texto) {
        auto *c = new QCheckBox(texto, panel);
        c->setObjectName(nombre);
        fila->addWidget(c);
        return c;
    };
    Candle_ = tick("Candle", QStringLiteral("Velas"));
    MostrarOperaciones_ = tick("MostrarOperaciones", QStringLiteral("Operaciones"));
    // Shown once the "Operaciones" tab has found operations; it opens that tab.
    auto *compraVen = crearBoton("CompraVen", QStringLiteral("(Ver Operaciones)"), panel);
    compraVen->setFlat(true);
    compraVen->hide();
    fila->addWidget(compraVen);
    connect(compraVen, &QPushButton::clicked, this,
            [this] { alPulsar([this] { graficas_->operaciones.CompraVen_Click(); }); });
    graficas_->operaciones.pulsarPestana = [this](int pestana) { modelo_.Pestanas_Click(pestana); };
    graficas_->controlesOperaciones(compraVen, MostrarOperaciones_);
    Logaritmica_ = tick("Logaritmica", QStringLiteral("Logarítmica"));
    Splita_ = tick("Splita", QStringLiteral("Splits"));
    connect(Candle_, &QCheckBox::clicked, this, [this] { alPulsar([this] { modelo_.Candle_Click(); }); });
    connect(MostrarOperaciones_, &QCheckBox::clicked, this,
            [this] { alPulsar([this] { modelo_.MostrarOperaciones_Click(); }); });
    connect(Logaritmica_, &QCheckBox::clicked, this,
            [this] { alPulsar([this] { modelo_.Logaritmica_Click(); }); });
    for (int i = 1; i <= 2; ++i) {
        fila->addWidget(new QLabel(QString("Media %1 :").arg(i), panel));
        Mediat_[i] = new QLineEdit(panel);
        Mediat_[i]->setObjectName(QString("Mediat_%1").arg(i));
        fila->addWidget(Mediat_[i]);
    }
    fila->addStretch(1);
    return panel;
}

} // namespace tesorel
