#pragma once
#include <memory>
#include <vector>

#include "portfolio/paquete.h"
#include "store/historico_lectura.h"

namespace tesorel
{

class Session;

// A cursor over the user's ledger that hands out one record at a time.
// Only the reading by value is kept: the class's other statements (the
// whole table, the sales or purchases of a value, an append) were never
// called and could not run as written.
class Operaciones_
{
  public:
    explicit Operaciones_(Session &s) : s_(s) {}
    // The user's records of one value by date of operation.
    void OperacionesDe(double valor);
    bool Eof() const { return siguiente_ >= lineas_.size(); }
    // The current record, and on to the next; null at the end. A field
    // past 16 bits raises RuntimeError(Overflow).
    std::unique_ptr<Paquete_> Leer();

  private:
    Session &s_;
    std::vector<LineaHistorico> lineas_;
    std::size_t siguiente_ = 0;
};

} // namespace tesorel
