#include "charts/mmedia.h"

#include "charts/checked_math.h"

namespace tesorel
{

using namespace chartmath;

double MMedia::SiguienteEnAnillo(double valor, double &periodo, ClaseMedia tipo)
{
    if (tipo == ClaseMedia::Simple)
        return Siguiente_simple(valor, periodo);
    if (tipo == ClaseMedia::Ponderada)
        return siguiente_ponderada(valor, periodo);
    return 0;
}

void MMedia::entraEnAnillo(double valor, double &periodo, double &cuenta)
{
    // During the warm-up the window is the values seen so far.
    cuenta = cuenta + 1;
    if (cuenta < periodo)
        periodo = cuenta;
    posicion_ = mod(posicion_, periodo) + 1;
    ring_[index(posicion_, 1, 200) - 1] = valor;
}

double MMedia::Siguiente_simple(double valor, double &periodo)
{
    entraEnAnillo(valor, periodo, cuentaSimple_);
    double total = 0, cuenta = 0;
    for (double k = 1; k <= periodo; ++k) {
        const double v = ring_[index(k, 1, 200) - 1];
        total = finite(total + v);
        // A zero shortens the window instead of pulling the mean down.
        if (v != 0)
            cuenta += 1;
    }
    return divide(total, cuenta);
}

double MMedia::siguiente_ponderada(double valor, double &periodo)
{
    entraEnAnillo(valor, periodo, cuentaPonderada_);
    // Forward from the newest, which wraps at once to the oldest: the
    // newest weighs n, the oldest n - 1, the one before the newest 1.
    double peso = periodo, acumulado = 0, pos = posicion_;
    do {
        acumulado = finite(acumulado + peso * ring_[index(pos, 1, 200) - 1]);
        peso = peso - 1;
        pos = mod(pos, periodo) + 1;
    } while (pos != posicion_);
    return divide(acumulado, sum(periodo));
}

} // namespace tesorel
