#include "windows/estilo.h"

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

QString HojaDeEstilo()
{
    return QStringLiteral(R"(
* { font-family: "DejaVu Sans"; font-size: 10pt; }
QWidget#Principal, QDialog { background: #eef2f7; color: #1d2733; }
QFrame#Cabecera { background: #16325c; }
QFrame#Cabecera QLabel { color: #e8eef8; }
QLabel#Marca { font-size: 15pt; font-weight: bold; color: #ffffff; }
QLabel#Titulo { font-size: 14pt; font-weight: bold; color: #ffd37a; }
QLabel#NombreUsuario { color: #bcd0ee; }
QLabel#Version { color: #6b7a8d; font-size: 8pt; }
QPushButton#cerrar, QPushButton#minimizar { background: transparent; color: #e8eef8; border: none;
    font-size: 13pt; min-width: 30px; }
QPushButton#cerrar:hover { background: #c0392b; }
QPushButton#minimizar:hover { background: #24477d; }
QFrame#BarraSuperior, QMenuBar { background: #1f3f70; color: #e8eef8; }
QMenuBar::item { padding: 4px 10px; background: transparent; }
QMenuBar::item:selected { background: #2d5699; }
QFrame#Botonera { background: #dde5f0; border-bottom: 1px solid #c3cfde; }
QFrame#Botonera QPushButton { background: #ffffff; border: 1px solid #b9c7da; border-radius: 4px;
    padding: 4px 12px; color: #16325c; }
QFrame#Botonera QPushButton:hover { background: #e6f0ff; border-color: #5b8bd6; }
QPushButton.enlace { background: transparent; border: none; color: #cfe0ff; text-decoration: underline;
    padding: 2px 6px; }
QPushButton.enlace:hover { color: #ffffff; }
QStackedWidget#Marco { background: #ffffff; border: 1px solid #c9d3e0; }
QFrame#PanelLista { background: #ffffff; border-right: 1px solid #c3cfde; }
QLabel#Titul { font-size: 12pt; font-weight: bold; color: #16325c; }
QListWidget#List1 { border: 1px solid #d3dce8; background: #ffffff; font-family: "DejaVu Sans Mono"; }
QListWidget#List1::item:selected { background: #16325c; color: #ffffff; }
QWidget.grafica { background: #ffffff; border: 1px solid #c9d3e0; }
QTabBar::tab { background: #e8ecf2; color: #757575; padding: 5px 14px; border: 1px solid #c9d3e0;
    border-bottom: none; margin-right: 2px; }
QTabBar::tab:selected { background: #ffffff; color: #16325c; font-weight: bold; }
QFrame#PanelConfiguracion { background: #ffffff; border-top: 1px solid #c9d3e0; }
QFrame#PanelConfiguracion * { font-size: 9pt; }
QFrame#PanelConfiguracion QLineEdit { max-width: 32px; }
QPushButton#Lupa_Mas, QPushButton#Lupa_menos { min-width: 26px; max-width: 26px; padding: 2px; }
QPushButton#boton_anterior, QPushButton#boton_siguiente { max-width: 28px; }
QLabel#LabelOnline { color: #bcd0ee; }
QFrame#Cabecera QLabel.cifra { color: #ffffff; font-weight: bold; }
)");
}

} // namespace tesorel
