#pragma once
#include <array>
#include <cstdint>
#include <functional>

namespace tesorel
{

// Moving maxima and minima of a series fed one value at a time. Max and
// Mini keep a candidate to follow the current extreme (approximate: the
// best seen since the last reset, not the true extreme of the window);
// Maxi and Min scan a ring. The pairs are deliberately not mirror images.
// Max/Maxi share the maximum, Mini/Min the minimum.
class Maximos
{
  public:
    double Max(double valor, double periodo);
    inline double Maxi(double valor, double periodo);
    // Unfilled ring places hold 0, so Min returns 0 until the ring is full.
    inline double Min(double valor, double periodo);
    double Mini(double valor, double periodo);

  private:
    // Every other case of Maxi and Min, out of line.
    double MaxiEnAnillo(double valor, double periodo);
    double MinEnAnillo(double valor, double periodo);
    double maximo_ = 0, edad_ = 0, segundoMaximo_ = 0, segundaEdad_ = 0;
    double minimo_ = 0, edadMin_ = 0, segundoMinimo_ = 0, segundaEdadMin_ = 0;
    std::array<double, 200> ringMax_{};
    std::int64_t posMax_ = 0; // ring places are whole numbers
    std::array<double, 200> ringMin_{};
    std::int64_t posMin_ = 0;
    double iniciado_ = 0;
};

namespace maximos_detalle
{
// A whole period from 1 to 200 and a place from 0: plain integers, the
// extreme kept in a register and chosen without a jump (on a price series
// the comparisons go either way at random), and the new value taken from
// its register, not read back from the place just written. False for any
// other case, with nothing changed.
template <class Mejor>
inline bool extremoRapido(std::array<double, 200> &anillo, std::int64_t &pos, double valor, double periodo,
                          double &extremo, double inicio, Mejor mejor)
{
    if (!(periodo >= 1 && periodo <= 200 && pos >= 0))
        return false;
    const int n = int(periodo);
    if (n != periodo)
        return false;
    const int nueva = int(pos < n ? pos : pos % n);
    pos = nueva + 1;
    double e = inicio;
    for (int i = 0; i < nueva; ++i)
        e = mejor(anillo[size_t(i)], e) ? anillo[size_t(i)] : e;
    e = mejor(valor, e) ? valor : e;
    for (int i = nueva + 1; i < n; ++i)
        e = mejor(anillo[size_t(i)], e) ? anillo[size_t(i)] : e;
    anillo[size_t(nueva)] = valor;
    extremo = e;
    return true;
}

} // namespace maximos_detalle

double Maximos::Maxi(double valor, double periodo)
{
    if (maximos_detalle::extremoRapido(ringMax_, posMax_, valor, periodo, maximo_, 0.0,
                                       std::greater<double>()))
        return maximo_;
    return MaxiEnAnillo(valor, periodo);
}

double Maximos::Min(double valor, double periodo)
{
    if (maximos_detalle::extremoRapido(ringMin_, posMin_, valor, periodo, minimo_, 1e21, std::less<double>()))
        return minimo_;
    return MinEnAnillo(valor, periodo);
}

} // namespace tesorel
