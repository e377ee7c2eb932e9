#pragma once
#include <QString>

namespace tesorel::valor
{

// Codes below this one are real values; 34000 + a user's number is that
// user's portfolio series in bolsa, listed under the name "CARTERA".
inline constexpr double PrimeraCartera = 34000;
inline const QString NombreCartera = QStringLiteral("CARTERA");

inline double codigoCartera(double usuario)
{
    return PrimeraCartera + usuario;
}
// Lists of real values keep what lies below the first portfolio code.
inline bool esEmpresa(double codigo)
{
    return codigo < PrimeraCartera;
}
// Names and labels treat a code above it as a portfolio series.
inline bool esCartera(double codigo)
{
    return codigo > PrimeraCartera;
}
// A value whose name starts with "CARTERA", in any case, is the portfolio.
inline bool nombreDeCartera(const QString &nombre)
{
    return nombre.left(7).toUpper() == NombreCartera;
}

} // namespace tesorel::valor
