#pragma once
#include <QString>
#include <QVariant>

namespace tesorel
{

class Session;

// A field value as text, "" for null. Numbers come out as the screen
// writes them (decimal comma), dates day first.
QString Texto_Nulo(const QVariant &value);

// Numero_Cdbl(Texto_Nulo(value)) and Numero_Val(Texto_Nulo(value)): a
// field read through the screen's text with the locale rule or with the
// point rule. They skip the text where it cannot change the number, since
// a chart reads thousands of fields each time it is drawn.
double Lectura_Local(const QVariant &value);
double Lectura_Punto(const QVariant &value);

// Replaces every occurrence in turn, starting anew from the beginning
// after each replacement; the result is also left in `text`. A new text
// that contains the searched one never ends, and callers never do that.
QString Reemplazar_Todo(QString &text, const QString &searched, const QString &replacement);
// Replaces the first occurrence only; the result is also left in `text`.
QString Reemplazar_Primero(QString &text, const QString &searched, const QString &replacement);

// Company lookups over the session's index of Codigo_Empresas.
void Abrir_Empresas(Session &s);
QString Abreviatura3_De(Session &s, double code);
QString Abreviatura11_De(Session &s, double code);
// An invalid QVariant is the empty code.
QString Nombre_De(Session &s, const QVariant &code);
// What a company is looked up by. The kind travels as a number in the
// dialect's code; a number that names no kind repeats the last outcome.
enum class BuscarPor { Nombre = 1, Abreviatura11 = 2, Ticker = 3 };
double Codigo_De(Session &s, const QString &name, BuscarPor kind);
double Alta_Empresa(Session &s, const QString &name);
bool Es_Favorito(Session &s, double code);
QString Web_Empresa(Session &s, double code);
// The value's address at the La Bolsa site; the host is a setting.
QString Url_La_Bolsa(Session &s, double code);

// The number in a statement's text: the conversion with a decimal point
// and a leading blank for a positive number.
QString Numero_Sql(double value);

} // namespace tesorel
