#include "charts/indicators.h"

#include "charts/checked_math.h"
#include "charts/grafica.h"
#include "core/runtime_error.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace tesorel
{

using namespace chartmath;

namespace
{
// Point 1 starts an average afresh. Out of line: it happens once a chart,
// and the copy of a whole average would weigh on every other point.
[[gnu::noinline]] void nuevaMedia(MMedia &media)
{
    media = MMedia();
}
} // namespace

void grafica_macd(grafica &chart, IndicatorState &state, double segundaMedia, double primeraMedia, double,
                  double p, double)
{
    chart.NumSets(2);
    state.macd = finite(segundaMedia - primeraMedia);
    if (p == 1)
        nuevaMedia(state.senalMacd);
    if (chart.Logaritmica()) {
        // The signal averages the logarithm that Graphdata writes back.
        chart.Fila(p, &state.macd, 1);
        const double s = state.senalMacd.Siguiente(state.macd, 0, 7, ClaseMedia::Exponencial);
        chart.ThisSet(2);
        chart.Graphdata(s);
        return;
    }
    // Both sets as one row; set 1 is still written when the signal fails.
    double fila[2] = {state.macd, 0};
    try {
        fila[1] = state.senalMacd.Siguiente(state.macd, 0, 7, ClaseMedia::Exponencial);
    } catch (const RuntimeError &) {
        chart.Fila(p, fila, 1);
        throw;
    }
    chart.Fila(p, fila, 2);
    // The crossing notes of the signal were never shown to anyone; they
    // are not composed.
}

void grafica_rsi(grafica &chart, IndicatorState &state, double dif, double, double p)
{
    if (p == 1) {
        nuevaMedia(state.ganancias);
        nuevaMedia(state.perdidas);
    }
    chart.NumSets(3);
    // Chosen on the bits, which compilers do not turn into a jump: a rise
    // or a fall is a coin toss. The 0 chosen is +0, as the plain choice's.
    const std::uint64_t baja = std::uint64_t(0) - std::uint64_t(dif < 0);
    const double ganancia = std::bit_cast<double>(std::bit_cast<std::uint64_t>(dif) & ~baja);
    const double perdida = std::bit_cast<double>(std::bit_cast<std::uint64_t>(-dif) & baja);
    const double u = state.ganancias.Siguiente(ganancia, 0, 14, ClaseMedia::Exponencial);
    const double d = state.perdidas.Siguiente(perdida, 0, 14, ClaseMedia::Exponencial);
    // Neither division can be by 0: the averages of gains and losses are
    // never negative, so the divisor is positive and 1 + u / divisor >= 1.
    // An overflow of u / divisor carries into the sum, which is checked;
    // 100 over a number of at least 1 cannot overflow.
    const double divisor = d == 0 ? 1 : d;
    double fila[3] = {100 - 100 / finite(1 + u / divisor), 30, 70};
    chart.Fila(p, fila, 3);
}

namespace
{
// Back to places in order, for a change of n or the checked way.
void enOrden(HistoriaMomentum &h)
{
    if (h.anillo == 0)
        return;
    const int m = h.anillo + 1;
    std::array<double, 41> copia;
    for (int k = 0; k < m; ++k)
        copia[std::size_t(k)] = h.lugares[std::size_t((h.inicio + k) % m)];
    std::copy(copia.begin(), copia.begin() + m, h.lugares.begin());
    h.anillo = 0;
    h.inicio = 0;
}

// Out of line, so that the call of every other day stays small: a history
// for a new n, and any n that is not a whole number from 1 to 40.
[[gnu::noinline]] void anilloPara(HistoriaMomentum &historia, int n)
{
    enOrden(historia);
    historia.anillo = n;
}

[[gnu::noinline]] double momentoGeneral(double cierre, double n, HistoriaMomentum &historia)
{
    enOrden(historia);
    std::array<double, 41> &lugares = historia.lugares;
    for (double i = n; i >= 1; --i)
        lugares[index(i, 0, 40)] = lugares[index(i - 1, 0, 40)];
    lugares[0] = cierre;
    return lugares[index(n, 0, 40)];
}
} // namespace

void grafica_momentum(grafica &chart, double cierre, double n, double p, HistoriaMomentum &historia)
{
    chart.NumSets(1);
    double antes = 0; // the close n places back, once the history has moved on
    const int lugar = n >= 1 && n <= 40 ? int(n) : 0;
    if (lugar != 0 && lugar == n) {
        if (historia.anillo != lugar)
            anilloPara(historia, lugar);
        // Place n - 1 before the turn is place n after it; place n falls
        // off the ring's end and its slot takes the close as place 0.
        const int m = lugar + 1, i = historia.inicio + lugar - 1;
        antes = historia.lugares[std::size_t(i >= m ? i - m : i)];
        historia.inicio = historia.inicio == 0 ? lugar : historia.inicio - 1;
        historia.lugares[std::size_t(historia.inicio)] = cierre;
    } else {
        antes = momentoGeneral(cierre, n, historia);
    }
    double v = finite(cierre - antes);
    chart.Fila(p, &v, 1);
}

void grafica_stocastico(grafica &chart, IndicatorState &state, double cierre, double maximo, double minimo,
                        double, double p)
{
    chart.NumSets(4);
    // The place after the last, 1 after 3; kept as an integer, as it
    // always is, so that the next day does not wait for conversions.
    const int pos = state.posicionEstocastico < 3 ? state.posicionEstocastico : 0; // from 0
    state.posicionEstocastico = pos + 1;
    const double numerador = finite(cierre - minimo), denominador = finite(maximo - minimo);
    state.numeradores[std::size_t(pos)] = numerador;
    state.denominadores[std::size_t(pos)] = denominador;
    const double num = state.numeradores[0] + state.numeradores[1] + state.numeradores[2];
    const double den = state.denominadores[0] + state.denominadores[1] + state.denominadores[2];
    double d = 0, k = 0;
    // Both divisors are known not to be 0 here (a difference of two
    // unequal finite numbers is not 0).
    if (den != 0)
        d = finite(num / den * 100); // an overflow of the ratio carries into the product
    if (maximo != minimo)            // the day's own ratio from registers, not read back
        k = finite(numerador / denominador * 100);
    double fila[4] = {k, 20, 80, d};
    chart.Fila(p, fila, 4);
}

Indicador indicadorDeAjuste(const QString &digito)
{
    if (digito.isEmpty())
        return Indicador::MaCD;
    if (digito.size() == 1 && digito[0] >= u'0' && digito[0] <= u'3')
        return Indicador(digito[0].unicode() - u'0');
    return Indicador::Ninguno;
}

Indicador indicadorDeNombre(const QString &nombre)
{
    static const QString nombres[4] = {QStringLiteral("MaCD"), QStringLiteral("Rsi"),
                                       QStringLiteral("Momentum"), QStringLiteral("Estocástico")};
    for (int i = 0; i < 4; ++i)
        if (nombre == nombres[i])
            return Indicador(i);
    return Indicador::Ninguno;
}

} // namespace tesorel
