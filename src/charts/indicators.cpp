#include "charts/indicators.h"

#include "charts/checked_math.h"
#include "charts/grafica.h"

namespace tesorel
{

using namespace chartmath;

void grafica_macd(grafica &chart, IndicatorState &state, double segundaMedia, double primeraMedia, double,
                  double p, double)
{
    chart.NumSets(2);
    state.macd = finite(segundaMedia - primeraMedia);
    chart.ThisPoint(p);
    chart.ThisSet(1);
    // Written back: on a logarithmic chart the signal averages the logarithm.
    chart.Graphdata(state.macd);
    if (p == 1)
        state.senalMacd = MMedia();
    double s = state.senalMacd.Siguiente(state.macd, 0, 7, 3);
    chart.ThisSet(2);
    chart.Graphdata(s);
    // The crossing notes of the signal were never shown to anyone; they
    // are not composed.
}

void grafica_rsi(grafica &chart, IndicatorState &state, double dif, double, double p)
{
    if (p == 1) {
        state.ganancias = MMedia();
        state.perdidas = MMedia();
    }
    chart.NumSets(3);
    double u = 0, d = 0;
    if (dif < 0) {
        u = state.ganancias.Siguiente(0, 0, 14, 3);
        d = state.perdidas.Siguiente(-dif, 0, 14, 3);
    } else {
        u = state.ganancias.Siguiente(dif, 0, 14, 3);
        d = state.perdidas.Siguiente(0, 0, 14, 3);
    }
    const double divisor = d == 0 ? 1 : d;
    double r = finite(100 - divide(100, finite(1 + divide(u, divisor))));
    chart.ThisPoint(p);
    chart.ThisSet(1);
    chart.Graphdata(r);
    chart.ThisSet(2);
    chart.Graphdata(30);
    chart.ThisSet(3);
    chart.Graphdata(70);
}

void grafica_momentum(grafica &chart, double cierre, double n, double p, HistoriaMomentum &historia)
{
    chart.NumSets(1);
    double antes = 0; // the close n places back, once the history has moved on
    if (n >= 1 && n <= 40 && n == int(n)) {
        // Read before the shift moves it to place n: reading it back just
        // after the block move stalls on the stores.
        antes = historia[std::size_t(n) - 1];
        for (int k = int(n); k >= 1; --k)
            historia[std::size_t(k)] = historia[std::size_t(k - 1)];
        historia[0] = cierre;
    } else {
        for (double i = n; i >= 1; --i)
            historia[index(i, 0, 40)] = historia[index(i - 1, 0, 40)];
        historia[0] = cierre;
        antes = historia[index(n, 0, 40)];
    }
    double v = finite(cierre - antes);
    chart.ThisPoint(p);
    chart.ThisSet(1);
    chart.Graphdata(v);
}

void grafica_stocastico(grafica &chart, IndicatorState &state, double cierre, double maximo, double minimo,
                        double, double p)
{
    chart.NumSets(4);
    state.posicionEstocastico = mod(state.posicionEstocastico, 3) + 1;
    const int pos = index(state.posicionEstocastico, 1, 3) - 1;
    state.numeradores[pos] = finite(cierre - minimo);
    state.denominadores[pos] = finite(maximo - minimo);
    const double num = state.numeradores[0] + state.numeradores[1] + state.numeradores[2];
    const double den = state.denominadores[0] + state.denominadores[1] + state.denominadores[2];
    double d = 0, k = 0;
    if (den != 0)
        d = finite(divide(num, den) * 100);
    if (maximo != minimo)
        k = finite(divide(state.numeradores[pos], state.denominadores[pos]) * 100);
    chart.ThisPoint(p);
    chart.ThisSet(1);
    chart.Graphdata(k);
    chart.ThisSet(2);
    chart.Graphdata(20);
    chart.ThisSet(3);
    chart.Graphdata(80);
    chart.ThisSet(4);
    chart.Graphdata(d);
}

} // namespace tesorel
