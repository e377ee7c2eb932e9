#pragma once
#include <QDate>
#include <vector>

namespace tesorel
{

class Recordset;

// The in-memory copy of one value's quote rows, walked like a recordset,
// so that a chart reads memory and not the engine. Positions count from 1
// and are not checked by the moves; a field read or write outside
// 1..count is a run-time failure (SubscriptOutOfRange).
class RecordSeto
{
  public:
    bool Eof() const { return position_ > count_; }
    void Movenext() { ++position_; }
    void MovePrevious() { --position_; }
    void Movefirst() { position_ = 1; }
    void MoveLast() { position_ = count_; }
    long AbsolutePosition() const { return position_; }

    double recordcount() const { return static_cast<double>(count_); }
    // Allocates every array afresh for rows 1..n; earlier contents are lost.
    void setRecordcount(double n);

    QDate Fecha() const;
    double Dif() const { return at(dif_); }
    double Ultimo() const { return at(ultimo_); }
    double Volumen() const { return at(volumen_); }
    double Efect() const { return at(efect_); }
    double Valor() const { return at(valor_); }
    double Anterior() const { return at(anterior_); }
    double Maximo() const { return at(maximo_); }
    double minimo() const { return at(minimo_); }

    void setFecha(const QDate &d);
    void setDif(double v) { at(dif_) = v; }
    void setUltimo(double v) { at(ultimo_) = v; }
    void setVolumen(double v) { at(volumen_) = v; }
    void setEfect(double v) { at(efect_) = v; }
    void setValor(double v) { at(valor_) = v; }
    void setAnterior(double v) { at(anterior_) = v; }
    void setMaximo(double v) { at(maximo_) = v; }
    void setminimo(double v) { at(minimo_) = v; }

    // Copies an open recordset of bolsa rows in the fixed order of the
    // chart: count after MoveLast and MoveFirst, then row by row. A null
    // date stays at its zero; Dif null is 0; Volumen and Efect are read
    // with the point rule, the others with the locale rule.
    void fillFrom(Recordset &rs);

  private:
    std::size_t index() const;
    double at(const std::vector<double> &column) const { return column[index()]; }
    double &at(std::vector<double> &column) { return column[index()]; }

    long count_ = 0;
    long position_ = 0;
    std::vector<QDate> fecha_;
    std::vector<double> dif_, ultimo_, volumen_, efect_, valor_, anterior_, maximo_, minimo_;
};

} // namespace tesorel
