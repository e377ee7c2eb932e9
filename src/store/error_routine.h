#pragma once
#include <QDateTime>
#include <QString>

#include "core/runtime_error.h"

namespace tesorel
{

class Ui;

// The one routine every procedure calls on a failure. Silent while the
// place mark equals the remembered one (both start at 0, so an ordinary
// session never shows it); otherwise the "Atención" dialog with Abort,
// Retry and Ignore, and error.txt rewritten with the failure.
class ErrorRoutine
{
  public:
    // Returns false when the person chose Abort (the program must end).
    bool registrar(Ui &ui, const QString &carpeta, double ubicacion, const RuntimeError &error,
                   const QDateTime &when = QDateTime::currentDateTime());

    double marcaRecordada() const { return mark_; }
    // The record as it goes into error.txt.
    static QString registro(const QDateTime &when, const RuntimeError &error, double ubicacion);

  private:
    double mark_ = 0;
};

} // namespace tesorel
