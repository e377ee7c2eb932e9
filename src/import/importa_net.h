#pragma once
#include <QDate>
#include <QString>

namespace tesorel
{

class Session;

// The date bookkeeping of the web import.
class ImportaNet
{
  public:
    explicit ImportaNet(Session &s) : s_(s) {}

    // The newest stored day; `porDefecto` on a base without quotes.
    QDate UltFecha(const QDate &porDefecto) const;
    bool HayFecha(const QDate &dia) const;
    // The day as a source writes it: 1 "YYMMDD", 2 "YYYYMMDD"; 4 works out
    // "DDMMYY" and, like any other kind, answers "".
    static QString Fecha(const QDate &dia, int tipo);
    // A date that nothing ever sets.
    QDate FechaIn() const { return fechaIn_; }

  private:
    Session &s_;
    QDate fechaIn_;
};

} // namespace tesorel
