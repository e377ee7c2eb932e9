#pragma once

namespace tesorel
{

// A price to the vertical scale of a chart: the decimal logarithm when
// the chart is logarithmic and the number is above 0, else the number.
double A_Escala(double value, bool logaritmica);

// The inverse: 10 to the number on a logarithmic chart, else the number.
double De_Escala(double value, bool logaritmica);

} // namespace tesorel
