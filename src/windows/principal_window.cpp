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

#include "core/nombres_comandos.h"
#include "market/popup_menus.h"
#include "principal/comandos.h"
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
