#include "windows/principal_window.h"
#include "windows/chart_view.h"
#include "windows/chat_panel.h"
#include "windows/noticias_vista.h"
#include "windows/principal_charts.h"
#include "windows/ventanas.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDrag>
#include <QHBoxLayout>
#include <QHostAddress>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QMouseEvent>
#include <QNetworkInterface>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QStyle>
#include <QTabBar>
#include <QTimer>
#include <QVBoxLayout>

#include "market/popup_menus.h"
#include "principal/comandos.h"
#include "principal/nombres_comandos.h"
#include "store/session.h"
#include "windows/estilo.h"
#include "windows/guarded.h"
#include "windows/login_dialogs.h"

namespace tesorel
{

namespace
{
// The address the machine shows to the network, as the socket reported it.
QString direccionLocal()
{
    for (const QHostAddress &a : QNetworkInterface::allAddresses())
        if (a.protocol() == QAbstractSocket::IPv4Protocol && !a.isLoopback())
            return a.toString();
    return QStringLiteral("127.0.0.1");
}

QLabel *etiqueta(const QString &nombre, const QString &texto, QWidget *padre)
{
    auto *l = new QLabel(texto, padre);
    l->setObjectName(nombre);
    return l;
}

QLineEdit *oculto(const QString &nombre, QWidget *padre)
{
    auto *e = new QLineEdit(padre);
    e->setObjectName(nombre);
    e->setVisible(false);
    return e;
}

// Which page of the frame each tab brings up: the four indicators share one.
int paginaDe(int pestana)
{
    static const int paginas[] = {0, 1, 2, 2, 2, 2, 3, 4, 5};
    return pestana >= 0 && pestana < 9 ? paginas[pestana] : 4;
}
} // namespace

PrincipalWindow::PrincipalWindow(Session &s, Comandos &comandos, const QString &rutaBase)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint), s_(s), comandos_(comandos),
      modelo_(s, comandos, rutaBase)
{
    setObjectName("Principal");
    setWindowTitle(QStringLiteral("Tesorel"));
    setStyleSheet(HojaDeEstilo());
    graficas_ = std::make_unique<GraficasVentana>(s_, modelo_, this);
    construir();
    registrarVentanas();
    graficas_->registrar(comandos_);

    Timer1_ = new QTimer(this);
    Timer1_->setObjectName("Timer1");
    Timer1_->setInterval(1000);
    connect(Timer1_, &QTimer::timeout, this, [this] {
        guarded(s_, [this] {
            modelo_.Timer1_Timer(direccionLocal());
            pintar();
        });
    });
    Timer1_->start();

    guarded(s_, [this] { modelo_.Form_Load(); });
    if (!modelo_.Timer1_Enabled)
        Timer1_->stop();
    pintar();
}

PrincipalWindow::~PrincipalWindow() = default;

void PrincipalWindow::registrarVentanas()
{
    comandos_.registrar(comando::form4, [this] {
        ventanas_ << "form4";
        Form4Dialog login(
            s_, [this](const QString &texto) { modelo_.Configuracion = texto; }, this);
        login.exec();
        pintar();
    });
    comandos_.registrar(comando::NoHay, [this] {
        ventanas_ << "NoHay";
        NoHayDialog aviso(
            modelo_.carpetaNoHay(), [this] { modelo_.NoHay_Aceptar(); }, this);
        aviso.exec();
    });
    comandos_.registrar(comando::DatosUsuario, [this] {
        ventanas_ << "DatosUsuario";
        DatosUsuarioDialog datos(s_, ProveedorCorreo{}, this);
        datos.exec();
    });
    registrarVentanasCompraVenta(*this, s_, comandos_);
    registrarVentanasHistorico(*this, s_, comandos_);
    registrarVentanasCartera(*this, s_, comandos_);
    registrarVentanasImportacion(*this, s_, comandos_);
    registrarVentanasInternet(*this, s_, comandos_);
    registrarVentanasCorreo(*this, s_, comandos_);
    registrarVentanaCotizaciones(*this, s_, comandos_);
    registrarVentanaAcercade(*this, s_, comandos_);
}

void PrincipalWindow::mostrar()
{
    if (modelo_.Terminado)
        return;
    // The whole screen from its top left corner, with or without a window manager.
    if (QScreen *pantalla = screen())
        setGeometry(pantalla->geometry());
    showFullScreen();
    activar();
}

void PrincipalWindow::activar()
{
    guarded(s_, [this] {
        modelo_.Form_Activate();
        pintar();
    });
    if (modelo_.Terminado)
        hide();
}

bool PrincipalWindow::event(QEvent *evento)
{
    // A return from another window activates the form again.
    if (evento->type() == QEvent::WindowActivate && modelo_.Primera_Activacion_Hecha == 1)
        activar();
    return QWidget::event(evento);
}

void PrincipalWindow::closeEvent(QCloseEvent *evento)
{
    guarded(s_, [this] { modelo_.Form_QueryUnload(); });
    evento->accept();
}

void PrincipalWindow::alPulsar(const std::function<void()> &evento)
{
    if (pintando_)
        return;
    guarded(s_, [&] {
        copiarConfiguracion();
        evento();
        pintar();
    });
}

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
    fila->addWidget(etiqueta("Marca", QStringLiteral("Tesorel"), cabecera));
    Titulo_ = etiqueta("Titulo", QString(), cabecera);
    // A long company name must not widen the window past the screen.
    Titulo_->setFixedWidth(210);
    Titulo_->installEventFilter(this);
    fila->addWidget(Titulo_);
    // Each figure is as wide as its longest text in the header's bold type.
    auto cifra = [&](const QString &nombre, const QString &muestra = QStringLiteral("-000,00 €")) {
        auto *l = etiqueta(nombre, QString(), cabecera);
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
    Image1_ = etiqueta("Image1", QString(), cabecera);
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
        auto *l = etiqueta(nombre, QString(), cabecera);
        l->setVisible(false);
        fila->addWidget(l);
    }
    cifra("Tiempot");
    fila->addStretch(1);
    NombreUsuario_ = etiqueta("NombreUsuario", QString(), cabecera);
    fila->addWidget(NombreUsuario_);
    IndicadorOnline_ = etiqueta("IndicadorOnline", QString(), cabecera);
    IndicadorOnline_->setFixedSize(12, 12);
    fila->addWidget(IndicadorOnline_);
    LabelOnline_ = etiqueta("LabelOnline", QString(), cabecera);
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
    Titul_ = etiqueta("Titul", QString(), panel);
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
    Version_ = etiqueta("Version", QString(), panel);
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
    auto *Noticias = etiqueta("Noticias", QStringLiteral("Noticias"), noticias);
    auto *Incidecaption = etiqueta("Incidecaption", QStringLiteral("Sin conexión a internet"), noticias);
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
    pagina(QStringLiteral("pestaña_6"));
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
                                              {QStringLiteral("Máximo"), 1127423},
                                              {QStringLiteral("Mínimo"), 192},
                                              {QStringLiteral("Cierre"), 16719920},
                                              {QStringLiteral("30 días"), 6736930},
                                              {QStringLiteral("9 días"), 4504439},
                                              {QStringLiteral("Media dia"), 14729328}};
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

void PrincipalWindow::copiarConfiguracion()
{
    auto &c = modelo_.config;
    for (int i = 1; i <= 6; ++i)
        c.Check2[i] = Check2_[i]->isChecked() ? 1 : 0;
    c.Valores = Valores_->currentIndex();
    c.Candle = Candle_->isChecked() ? 1 : 0;
    c.MostrarOperaciones = MostrarOperaciones_->isChecked() ? 1 : 0;
    modelo_.Logaritmica = Logaritmica_->isChecked() ? 1 : 0;
    modelo_.Splita = Splita_->isChecked() ? 1 : 0;
    modelo_.Mediat[1] = Mediat_[1]->text();
    modelo_.Mediat[2] = Mediat_[2]->text();
    // The note box is read only when the model asks for it (a List1 click saves it).
    modelo_.mercado.notas.Comentario = Comentario_->toPlainText();
}

void PrincipalWindow::pintar()
{
    pintando_ = true;
    const auto &c = modelo_.config;
    Text1_->setText(modelo_.Text1());
    Configuracion_->setText(modelo_.Configuracion);
    Pesta_->setText(modelo_.Pesta);
    ponerTitulo();
    Version_->setText(modelo_.Version);
    LabelOnline_->setText(modelo_.LabelOnline);
    IndicadorOnline_->setStyleSheet(QString("background: %1; border-radius: 6px;")
                                        .arg(ColorDe(modelo_.IndicadorOnline_BackColor).name()));
    NombreUsuario_->setText(s_.Nombre_Usuario.isEmpty() ? QString()
                                                        : QStringLiteral("Usuario: ") + s_.Nombre_Usuario);
    const QHash<QString, bool> visibilidad{
        {"Yahoo", modelo_.Yahoo_Visible},
        {"Yahoono", modelo_.Yahoono_Visible},
        {"YahooNoticias", modelo_.YahooNoticias_Visible},
        {"Noticias", modelo_.Noticias_Visible},
        {"Incidecaption", modelo_.Incidecaption_Visible},
    };
    for (auto it = visibilidad.begin(); it != visibilidad.end(); ++it)
        if (QWidget *w = visibles_.value(it.key()))
            w->setVisible(it.value());
    for (int i = 1; i <= 6; ++i)
        Check2_[i]->setChecked(c.Check2[i] != 0);
    Valores_->setCurrentIndex(c.Valores);
    Candle_->setChecked(c.Candle != 0);
    MostrarOperaciones_->setChecked(c.MostrarOperaciones != 0);
    Logaritmica_->setChecked(modelo_.Logaritmica != 0);
    Splita_->setChecked(modelo_.Splita != 0);
    for (int i = 1; i <= 2; ++i)
        if (Mediat_[i]->text() != modelo_.Mediat[i])
            Mediat_[i]->setText(modelo_.Mediat[i]);
    pintarMercado();
    if (modelo_.pestanaAbierta >= 0) {
        Pestanas_->setCurrentIndex(modelo_.pestanaAbierta);
        paginas_->setCurrentIndex(paginaDe(modelo_.pestanaAbierta));
    }
    pintando_ = false;
}

// The left side: list, title, check marks, search box, note, favourite button and links.
void PrincipalWindow::pintarMercado()
{
    const NavegadorValores &m = modelo_.mercado;
    Titul_->setText(m.lista.Titul);
    const MarcasLista &marcas = m.lista.marcas;
    const QHash<QString, bool> marcado{{"menu_todos", marcas.menu_todos},
                                       {"menu_massuben", marcas.menu_massuben},
                                       {"menu_ibex", marcas.menu_ibex},
                                       {"menu_ENcartera", marcas.menu_ENcartera},
                                       {"menu_seguimiento", marcas.menu_seguimiento}};
    for (QAction *a : menuFiltro_->actions())
        if (a->isCheckable())
            a->setChecked(marcado.value(a->objectName()));

    // Rebuilt only when its entries changed, so that the timer's repaint keeps the scroll.
    QStringList textos;
    for (const auto &entrada : m.lista.List1.entradas)
        textos << entrada.texto;
    QStringList enPantalla;
    for (int i = 0; i < List1_->count(); ++i)
        enPantalla << List1_->item(i)->text();
    if (textos != enPantalla) {
        List1_->clear();
        List1_->addItems(textos);
        for (int i = 0; i < List1_->count(); ++i)
            List1_->item(i)->setToolTip(textos.at(i));
    }
    if (List1_->currentRow() != m.lista.List1.ListIndex)
        List1_->setCurrentRow(m.lista.List1.ListIndex);

    if (buscar_->text() != m.busqueda.buscar())
        buscar_->setText(m.busqueda.buscar());
    if (Comentario_->toPlainText() != m.notas.Comentario)
        Comentario_->setPlainText(m.notas.Comentario);

    const auto &favorito = m.favoritos.Boton_Favorito;
    Boton_Favorito_->setVisible(favorito[0] || favorito[2]);
    Boton_Favorito_->setText(favorito[0] ? QStringLiteral("Añadir a Seguimiento")
                                         : QStringLiteral("Quitar de Seguimiento"));

    const EnlacesValor &enlaces = m.seleccion.enlaces;
    const std::pair<const char *, bool> enlacesVisibles[] = {
        {"laWEB", enlaces.laWEB}, {"BolsaMadrid", enlaces.BolsaMadrid}, {"Invertia", enlaces.Invertia}};
    for (const auto &[nombre, visible] : enlacesVisibles)
        if (QWidget *w = visibles_.value(nombre))
            w->setVisible(visible);
}

void PrincipalWindow::mostrarMenuEmergente(const QString &control, const QPoint &donde)
{
    switch (MenuAlPulsar(control, 2)) {
    case MenuEmergente::menu_filtro:
        menuFiltro_->popup(donde);
        break;
    case MenuEmergente::menu_popup_Accion:
        menuPopupAccion_->popup(donde);
        break;
    case MenuEmergente::Ninguno:
        break;
    }
}

bool PrincipalWindow::eventFilter(QObject *objeto, QEvent *evento)
{
    if (objeto == Titulo_ && evento->type() == QEvent::MouseButtonDblClick) {
        alPulsar([this] { modelo_.Titulo_DblClick(); });
        return true;
    }
    if (objeto == buscar_ && evento->type() == QEvent::FocusIn) {
        alPulsar([this] { modelo_.buscar_GotFocus(); });
        // After the click that gave the focus, which would place the cursor.
        QTimer::singleShot(0, buscar_, [this] {
            const Busqueda &b = modelo_.mercado.busqueda;
            buscar_->setSelection(b.SelStart, b.SelLength);
        });
        return false;
    }
    if (objeto == Fecha_Fin_ && evento->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent *>(evento)->button() == Qt::LeftButton) {
        auto *arrastre = new QDrag(Fecha_Fin_);
        auto *datos = new QMimeData;
        datos->setText(Fecha_Fin_->objectName());
        arrastre->setMimeData(datos);
        arrastre->exec(Qt::MoveAction);
        return true;
    }
    if (objeto == Image1_ && evento->type() == QEvent::DragEnter) {
        static_cast<QDragEnterEvent *>(evento)->acceptProposedAction();
        return true;
    }
    if (objeto == Image1_ && evento->type() == QEvent::Drop) {
        auto *soltar = static_cast<QDropEvent *>(evento);
        const QString origen = soltar->mimeData()->text();
        const QDate fecha = QDate::fromString(Fecha_Fin_->text(), QStringLiteral("dd/MM/yyyy"));
        alPulsar([&] { modelo_.Image1_DragDrop(origen, fecha); });
        soltar->acceptProposedAction();
        return true;
    }
    if (evento->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent *>(evento)->button() == Qt::RightButton) {
        const QString control = objeto == List1_->viewport() ? List1_->objectName() : objeto->objectName();
        if (MenuAlPulsar(control, 2) != MenuEmergente::Ninguno) {
            mostrarMenuEmergente(control, static_cast<QMouseEvent *>(evento)->globalPosition().toPoint());
            return true;
        }
    }
    return QWidget::eventFilter(objeto, evento);
}

} // namespace tesorel
