#pragma once
#include <QDate>
#include <QString>

namespace tesorel
{

// Finds the splits of a value again on each drawing: an exchange that has
// split a share quotes the new, adjusted previous close, so the day's
// Anterior differs from the close stored for the day before by the factor.
// Fed record by record, oldest first, only while "Splits" is ticked.
class DetectorSplits
{
  public:
    struct Registro {
        QDate fecha;
        double ultimo = 0, anterior = 0, maximo = 0, minimo = 0, volumen = 0;
    };
    // What the chart plots for the record. `maximo` and `minimo` are the
    // caller's variables: a record without a previous close leaves them
    // as the record before left them.
    struct Ajustado {
        double cierre = 0, maximo = 0, minimo = 0, acciones = 0;
    };

    // Adjusts one record; a found split appends its note and a line break
    // to `noticias`.
    void ajustar(const Registro &r, Ajustado &a, QString &noticias);

    double factorActual() const { return actual_; }
    double factorAcumulado() const { return acumulado_; }
    double cierreAnterior() const { return cierreAnterior_; }
    const QString &nota() const { return nota_; }

    // The note of a split as the news tab lists it.
    static QString notaDe(const QDate &fecha, double factor);

  private:
    double cierreAnterior_ = 0;
    double actual_ = 1;
    double acumulado_ = 1;
    QString nota_;
};

// The factor of a pair of closes: 1 inside the band that corrected closes
// and dividends fall in (wider upward than downward), else their ratio.
double factorSplit(double cierreAnterior, double anterior);

} // namespace tesorel
