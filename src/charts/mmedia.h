#pragma once
#include "charts/checked_math.h"

#include <array>
#include <limits>

namespace tesorel
{

// The kind of an average. The kind travels as a number where the settings
// keep it; a number that names no kind gives an average of 0.
enum class ClaseMedia { Simple = 1, Ponderada = 2, Exponencial = 3 };

// Moving averages of a series fed one value at a time, oldest first. One
// instance serves one series and has no reset. A period of 0 in the ring
// averages is a DivisionByZero, a period above 200 a SubscriptOutOfRange.
class MMedia
{
  public:
    // Any kind but the three returns 0 and feeds nothing. The second number is not read.
    double Siguiente(double valor, double /*noLeido*/, double &periodo, ClaseMedia tipo)
    {
        // The exponential, the one the charts use at every point, inline.
        return tipo == ClaseMedia::Exponencial ? Siguiente_exponencial(valor, periodo)
                                               : SiguienteEnAnillo(valor, periodo, tipo);
    }
    double Siguiente(double valor, double noLeido, const double &periodo, ClaseMedia tipo)
    {
        double n = periodo;
        return Siguiente(valor, noLeido, n, tipo);
    }
    // Restarts from the value whenever the average is exactly 0.
    inline double Siguiente_exponencial(double valor, double periodo);
    // During the warm-up the period is shortened to the values seen, and
    // the caller's variable is left holding the shortened window.
    double siguiente_ponderada(double valor, double &periodo);
    double Siguiente_simple(double valor, double &periodo);
    static double sum(double n) { return (n + 1) * n / 2; }

  private:
    double SiguienteEnAnillo(double valor, double &periodo, ClaseMedia tipo);
    // Counts the value in `cuenta`, shortens the caller's period to it and
    // writes the value at the ring's next place.
    void entraEnAnillo(double valor, double &periodo, double &cuenta);
    std::array<double, 200> ring_{}; // positions 1..200
    double posicion_ = 0;
    double exponencial_ = 0;
    double pesoDe_ = std::numeric_limits<double>::quiet_NaN(), peso_ = 0; // 2 / (period + 1)
    double cuentaPonderada_ = 0;
    double cuentaSimple_ = 0;
};

double MMedia::Siguiente_exponencial(double valor, double periodo)
{
    if (exponencial_ == 0)
        exponencial_ = valor;
    else {
        // The weight of a period is worked out once, not at every value.
        if (periodo != pesoDe_) {
            peso_ = chartmath::divide(2, periodo + 1);
            pesoDe_ = periodo;
        }
        exponencial_ = chartmath::finite((valor - exponencial_) * peso_ + exponencial_);
    }
    return exponencial_;
}

} // namespace tesorel
