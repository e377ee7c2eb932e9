#pragma once
#include <array>
#include <cstdint>

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
    double Maxi(double valor, double periodo);
    // Unfilled ring places hold 0, so Min returns 0 until the ring is full.
    double Min(double valor, double periodo);
    double Mini(double valor, double periodo);

  private:
    double maximo_ = 0, edad_ = 0, segundoMaximo_ = 0, segundaEdad_ = 0;
    double minimo_ = 0, edadMin_ = 0, segundoMinimo_ = 0, segundaEdadMin_ = 0;
    std::array<double, 200> ringMax_{};
    std::int64_t posMax_ = 0; // ring places are whole numbers
    std::array<double, 200> ringMin_{};
    std::int64_t posMin_ = 0;
    double iniciado_ = 0;
};

} // namespace tesorel
