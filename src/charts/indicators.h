#pragma once
#include "charts/mmedia.h"

#include <QString>
#include <array>

namespace tesorel
{

class grafica;

// The indicator under the price chart. The user's settings keep it as its digit.
enum class Indicador { Ninguno = -1, MaCD = 0, Rsi = 1, Momentum = 2, Estocastico = 3 };
// The digit of the settings: empty is MaCD, anything but a digit 0 to 3 is none.
Indicador indicadorDeAjuste(const QString &digito);
// The caption of its tab ("MaCD", "Rsi", "Momentum", "Estocástico"); none for another text.
Indicador indicadorDeNombre(const QString &nombre);

// What the indicator routines keep between calls. The main window holds
// one for the whole session: the stochastic rings are never reset, so
// the first points of a chart still see the last points of the one
// before; the averages start afresh at point 1.
struct IndicatorState {
    MMedia senalMacd; // signal line, new at point 1
    double macd = 0;  // the current MACD value
    MMedia ganancias; // RSI, new at point 1
    MMedia perdidas;
    int posicionEstocastico = 0; // the last place written, 1 to 3
    std::array<double, 3> numeradores{};
    std::array<double, 3> denominadores{};
};

// The momentum's past closes, places 0 to 40, owned by the price chart
// routine for one drawing. Each call moves places 0 to n - 1 one place on
// and puts the close at 0; while n stays the same, places 0 to n turn as a
// ring instead of moving one by one.
struct HistoriaMomentum {
    std::array<double, 41> lugares{};
    int anillo = 0; // the n of the ring in use, 0 for none
    int inicio = 0; // where place 0 stands in the ring
};

// Each fills point p of the indicator chart and sets its NumSets; none
// draws. Arguments that the routines do not read are kept so that the
// calls read as the price chart makes them.

// Sets: 1 the MACD line (second average - first average), 2 its signal,
// the exponential average of period 7.
void grafica_macd(grafica &chart, IndicatorState &state, double segundaMedia, double primeraMedia,
                  double noLeido, double p, double cierre);

// Sets: 1 the RSI of the day's percent change (exponential averages of
// period 14), 2 the constant 30, 3 the constant 70.
void grafica_rsi(grafica &chart, IndicatorState &state, double dif, double noLeido, double p);

// Set 1: close minus the close n places back. The caller adds 1 to n
// after each call while n is below 14.
void grafica_momentum(grafica &chart, double cierre, double n, double p, HistoriaMomentum &historia);

// Sets: 1 %K, 2 the constant 20, 3 the constant 80, 4 %D, a ratio of sums
// over the last three days. High and low are the caller's Maxi/Min of 5.
void grafica_stocastico(grafica &chart, IndicatorState &state, double cierre, double maximo, double minimo,
                        double cinco, double p);

} // namespace tesorel
