#pragma once
#include <QString>

namespace tesorel
{

// The Val rule: optional blanks and sign, digits with a decimal point,
// an exponent; reading stops at the first character that cannot go on
// with a number. "" or no number at all reads as 0. Never fails.
double Numero_Val(const QString &text);

// The locale rule on Spanish settings: decimal comma, point for thousands,
// blanks around, a sign. Throws RuntimeError(TypeMismatch) on text that
// is no number (the strict conversion).
double CDbl(const QString &text);

// The guarded form of CDbl: 0 when the text is no number.
double Numero_Cdbl(const QString &text);

// True when CDbl would succeed.
bool IsNumeric(const QString &text);

// Number to text as statements and notes build it: decimal point,
// a leading blank for zero and positive numbers, "-" for negatives,
// up to 15 significant digits, no thousands sign ("Str").
QString Str(double value);

// Number to text in the locale form the screen shows: decimal comma,
// no leading blank ("CStr").
QString CStr(double value);

// Each "," becomes "."; used to write an amount into a statement.
QString Coma_A_Punto(const QString &text);

// Each "/" becomes "-"; the date text that goes to statements.
QString Barra_A_Guion(const QString &text);

} // namespace tesorel
