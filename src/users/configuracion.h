#pragma once
#include <QString>
#include <array>
#include <functional>

namespace tesorel
{

// The main window's choices that a user finds again at the next login,
// packed in the nine digits of Usuario.Configuracion.
struct ConfiguracionVentana {
    std::array<int, 7> Check2{}; // 1..6: the chart lines; 6 is not stored
    int Valores = -1;            // list index of the list combo, -1 none
    QString Indicador_Actual = "0";
    int Candle = 0;
    int MostrarOperaciones = 0;
    // True while the settings are put in place: the controls' handlers
    // must not redraw for each one.
    bool Cargando = false;
};

// Applies the packed text. `alCambiarValores` is the change of the list
// combo (it fills the list); `dibujar` redraws once at the end. A short
// text leaves the later places at 0 and a character that is no digit
// reads as 0.
void Cargar_configuracion(ConfiguracionVentana &c, const QString &texto,
                          const std::function<void()> &alCambiarValores = {},
                          const std::function<void()> &dibujar = {});

// The nine characters to store.
QString grabar_configuracion(const ConfiguracionVentana &c);

} // namespace tesorel
