#include "windows/estilo.h"

#include <QRegularExpression>

#include "core/paleta.h"

#include "charts/painter_surface.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace tesorel
{

QColor ColorDe(int bgr)
{
    return PainterSurface::toQColor(bgr);
}

void Centrar(QWidget *ventana)
{
    QScreen *pantalla = ventana->screen() ? ventana->screen() : QGuiApplication::primaryScreen();
    if (!pantalla)
        return;
    ventana->adjustSize();
    const QRect zona = pantalla->availableGeometry();
    const QRect marco = ventana->frameGeometry();
    ventana->move(zona.left() + (zona.width() - marco.width()) / 2,
                  zona.top() + (zona.height() - marco.height()) / 2);
}

QString conPaleta(const QString &hoja)
{
    static const QRegularExpression nombre(QStringLiteral("@([A-Za-z]+)"));
    QString r;
    qsizetype desde = 0;
    for (auto it = nombre.globalMatch(hoja); it.hasNext();) {
        const auto m = it.next();
        r += hoja.mid(desde, m.capturedStart() - desde);
        desde = m.capturedEnd();
        QString color = m.captured(0);
        for (const auto &c : paleta::Formularios)
            if (m.captured(1) == QLatin1String(c.nombre))
                color = QColor::fromRgb(QRgb(c.rgb)).name();
        r += color;
    }
    return r + hoja.mid(desde);
}

const QString &estiloRotulo()
{
    static const QString hoja = conPaleta(QStringLiteral("font-weight: bold; color: @marca;"));
    return hoja;
}

QString HojaDeEstilo()
{
    return conPaleta(QStringLiteral(R"(
* { font-family: "DejaVu Sans"; font-size: 10pt; }
QWidget#Principal, QDialog { background: @fondo; color: @texto; }
QFrame#Cabecera { background: @marca; }
QFrame#Cabecera QLabel { color: @claroCabecera; }
QLabel#Marca { font-size: 15pt; font-weight: bold; color: @blanco; }
QLabel#Titulo { font-size: 14pt; font-weight: bold; color: @oro; }
QLabel#NombreUsuario { color: @tenue; }
QLabel#Version { color: @gris; font-size: 8pt; }
QPushButton#cerrar, QPushButton#minimizar { background: transparent; color: @claroCabecera; border: none;
    font-size: 13pt; min-width: 30px; }
QPushButton#cerrar:hover { background: @cerrar; }
QPushButton#minimizar:hover { background: @marcaHover; }
QFrame#BarraSuperior, QMenuBar { background: @barra; color: @claroCabecera; }
QMenuBar::item { padding: 4px 10px; background: transparent; }
QMenuBar::item:selected { background: @menuSel; }
QFrame#Botonera { background: @panel; border-bottom: 1px solid @bordePanel; }
QFrame#Botonera QPushButton { background: @blanco; border: 1px solid @bordeBoton; border-radius: 4px;
    padding: 4px 12px; color: @marca; }
QFrame#Botonera QPushButton:hover { background: @resalte; border-color: @acento; }
QPushButton.enlace { background: transparent; border: none; color: @enlace; text-decoration: underline;
    padding: 2px 6px; }
QPushButton.enlace:hover { color: @blanco; }
QStackedWidget#Marco { background: @blanco; border: 1px solid @borde; }
QFrame#PanelLista { background: @blanco; border-right: 1px solid @bordePanel; }
QLabel#Titul { font-size: 12pt; font-weight: bold; color: @marca; }
QListWidget#List1 { border: 1px solid @bordeLista; background: @blanco; font-family: "DejaVu Sans Mono"; }
QListWidget#List1::item:selected { background: @marca; color: @blanco; }
QWidget.grafica { background: @blanco; border: 1px solid @borde; }
QTabBar::tab { background: @pestana; color: @pestanaTexto; padding: 5px 14px; border: 1px solid @borde;
    border-bottom: none; margin-right: 2px; }
QTabBar::tab:selected { background: @blanco; color: @marca; font-weight: bold; }
QFrame#PanelConfiguracion { background: @blanco; border-top: 1px solid @borde; }
QFrame#PanelConfiguracion * { font-size: 9pt; }
QFrame#PanelConfiguracion QLineEdit { max-width: 32px; }
QPushButton#Lupa_Mas, QPushButton#Lupa_menos { min-width: 26px; max-width: 26px; padding: 2px; }
QPushButton#boton_anterior, QPushButton#boton_siguiente { max-width: 28px; }
QLabel#LabelOnline { color: @tenue; }
QFrame#Cabecera QLabel.cifra { color: @blanco; font-weight: bold; }
)"));
}

} // namespace tesorel
