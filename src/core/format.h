#pragma once
#include <QDate>
#include <QString>

namespace tesorel
{

// A number through a number mask, with Spanish output: in the mask ","
// is the thousands sign and "." the decimal point; the text has a point
// for thousands and a decimal comma. "#" is an optional digit, "0" a
// required one, "%" multiplies by 100 and shows the sign; other
// characters are copied. A mask that ends its decimals with "#" and
// gets none keeps the decimal comma ("12," for "##0.##" of 12).
// Rounding is half away from zero, as the masks have always rounded.
QString Format(double value, const QString &mask);

// A date through a date mask, with Spanish names: d dd ddd dddd,
// m mm mmm mmmm, yy yyyy; "/" and "-" are copied.
QString Format(const QDate &date, const QString &mask);

} // namespace tesorel
