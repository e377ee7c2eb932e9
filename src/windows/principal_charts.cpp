#include "windows/principal_charts.h"

#include <QCheckBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QWidget>
#include <algorithm>

#include "core/nombres_comandos.h"
#include "principal/comandos.h"
#include "principal/principal.h"
#include "store/session.h"
#include "windows/chart_view.h"
#include "windows/principal_window.h"

namespace tesorel
{

GraficasVentana::GraficasVentana(Session &s, Principal &modelo, QWidget *ventana)
    : grafica(s), operaciones(s, grafica), interaccion(s, grafica), s_(s), modelo_(modelo), ventana_(ventana)
{
    // The window always fills the screen: the pictures get the pixels that
    // their share of it will have, so that the text is drawn at its size.
    const QSize pantalla =
        QGuiApplication::primaryScreen() ? QGuiApplication::primaryScreen()->size() : QSize(1280, 800);
    const int ancho = std::max(400, pantalla.width() - 290);
    const int alto = std::max(300, pantalla.height() - 290);
    superficies_[0] = std::make_unique<PainterSurface>(ancho, alto * 60 / 100);
    superficies_[1] = std::make_unique<PainterSurface>(ancho, alto * 15 / 100);
    superficies_[2] = std::make_unique<PainterSurface>(ancho, alto * 25 / 100);
    grafica.DefinirGraficas(superficies_[0].get(), superficies_[1].get(), superficies_[2].get());
    grafica.VerOperacionesGrafica = [this] { operaciones.VerOperacionesGrafica(); };
}

GraficasVentana::~GraficasVentana() = default;

ChartView *GraficasVentana::vista(int i, QWidget *padre)
{
    auto *v = new ChartView(*superficies_[size_t(i - 1)], padre);
    v->setObjectName(QStringLiteral("Picture%1").arg(i));
    v->setMinimumHeight(40);
    if (i == 1)
        v->setModelos(&operaciones, &interaccion);
    v->setGuardia([this](const std::function<void()> &paso) { s_.paso(paso); });
    vistas_[size_t(i - 1)] = v;
    return v;
}

QPlainTextEdit *GraficasVentana::textoOperaciones(QWidget *padre)
{
    texto_ = new QPlainTextEdit(padre);
    texto_->setObjectName("Operaciones");
    texto_->setReadOnly(true);
    return texto_;
}

void GraficasVentana::controlesOperaciones(QPushButton *compraVen, QCheckBox *mostrarOperaciones)
{
    compraVen_ = compraVen;
    mostrar_ = mostrarOperaciones;
}

void GraficasVentana::registrar(Comandos &comandos)
{
    comandos.registrar(comando::DibujarGrafica, [this] { dibujar(); });
    // Opening the "Operaciones" tab lists the value's operations.
    comandos.registrar(comando::VerOperaciones, [this] {
        s_.paso([&] { operaciones.VerOperaciones(modelo_.Codigo_Valor()); });
        mostrarOperaciones();
    });
    comandos.registrar(comando::QuitarVerOperaciones, [this] {
        operaciones.QuitarVerOperaciones();
        repintar();
    });
    comandos.registrar(comando::Lupa_Mas, [this] {
        s_.paso([&] { interaccion.Lupa_Mas_Click(); });
        mostrarEtiquetas();
    });
    comandos.registrar(comando::Lupa_menos, [this] {
        s_.paso([&] { interaccion.Lupa_menos_Click(); });
        mostrarEtiquetas();
    });
}

void GraficasVentana::dibujar()
{
    ControlesGrafica &c = grafica.controles;
    c.Text1 = modelo_.Text1();
    for (int i = 1; i <= 6; ++i)
        c.Check2[size_t(i)] = modelo_.config.Check2[size_t(i)];
    c.Candle = modelo_.config.Candle;
    c.Logaritmica = modelo_.Logaritmica;
    c.Splita = modelo_.Splita;
    c.Mediat = modelo_.Mediat;
    c.Indicador_Actual = modelo_.config.Indicador_Actual;
    operaciones.MostrarOperaciones = modelo_.config.MostrarOperaciones;
    if (!c.Text1.isEmpty())
        s_.paso([&] { grafica.DibujarGrafica(); });
    mostrarEtiquetas();
}

void GraficasVentana::mostrarEtiquetas()
{
    const EtiquetasGrafica &e = grafica.etiquetas;
    // A new title takes the measuring marks away.
    if (e.Titulo.texto != modelo_.Titulo)
        interaccion.Titulo_Change();
    modelo_.Titulo = e.Titulo.texto;
    if (auto *w = qobject_cast<PrincipalWindow *>(ventana_))
        w->pintarTitulo();
    for (const EtiquetaDeCabecera &c : EtiquetasDeCabecera) {
        if (auto *l = ventana_->findChild<QLabel *>(QString::fromLatin1(c.control))) {
            const Etiqueta &etiqueta = e.*c.etiqueta;
            l->setText(etiqueta.texto);
            const QColor color = PainterSurface::toQColor(etiqueta.color);
            l->setStyleSheet(etiqueta.color ? QStringLiteral("color: %1;").arg(color.name()) : QString());
        }
    }
    repintar();
}

void GraficasVentana::mostrarOperaciones()
{
    if (texto_)
        texto_->setPlainText(operaciones.Operaciones);
    if (compraVen_)
        compraVen_->setVisible(operaciones.CompraVenVisible);
    if (mostrar_)
        mostrar_->setVisible(operaciones.MostrarOperacionesVisible);
}

void GraficasVentana::repintar()
{
    for (ChartView *v : vistas_)
        if (v)
            v->update();
}

} // namespace tesorel
