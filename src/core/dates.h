#pragma once
#include <QDate>
#include <QString>

namespace tesorel
{

// The month's name in Spanish ("Enero".."Diciembre"), "" outside 1..12.
QString Nombre_Mes(double month);

// The weekday's name in Spanish, lower case as the locale writes it
// ("lunes".."domingo"), Monday = 1.
QString Nombre_Dia(int weekday);

// Date test and conversion on Spanish settings: day first, "/" "-" or
// "." as separator, two-digit years read 00..29 as 20xx and 30..99 as
// 19xx; a text whose first part cannot be a day but whose second can is
// read month first, as the locale conversion has always done.
bool IsDate(const QString &text);
QDate CDate(const QString &text); // throws RuntimeError(TypeMismatch)

// The reading of a date literal between # marks in a statement: month
// first, with "/" or "-" and two- or four-digit years.
QDate DateFromJetLiteral(const QString &text); // invalid QDate on failure

} // namespace tesorel
