#include "store/quote_cursor.h"

#include "core/numbers.h"
#include "core/runtime_error.h"
#include "store/helpers.h"
#include "store/recordset.h"

#include <cmath>

namespace tesorel
{

void RecordSeto::setRecordcount(double n)
{
    // A conversion to a whole number rounds half to even.
    const long rows = std::max(0L, static_cast<long>(std::nearbyint(n)));
    count_ = rows;
    const std::size_t size = static_cast<std::size_t>(rows);
    fecha_.assign(size, QDate());
    for (auto *column : {&dif_, &ultimo_, &volumen_, &efect_, &valor_, &anterior_, &maximo_, &minimo_})
        column->assign(size, 0.0);
}

std::size_t RecordSeto::index() const
{
    if (position_ < 1 || position_ > count_)
        throw RuntimeError(err::SubscriptOutOfRange, "El subíndice está fuera del intervalo");
    return static_cast<std::size_t>(position_ - 1);
}

QDate RecordSeto::Fecha() const
{
    return fecha_[index()];
}
void RecordSeto::setFecha(const QDate &d)
{
    fecha_[index()] = d;
}

namespace
{
int fieldIndex(const Recordset &rs, const QString &name)
{
    for (int i = 0; i < rs.fieldCount(); ++i)
        if (rs.fieldName(i).compare(name, Qt::CaseInsensitive) == 0)
            return i;
    rs.field(name); // raises the engine's failure for a missing field
    return -1;
}
} // namespace

void RecordSeto::fillFrom(Recordset &rs)
{
    long rows = 0;
    if (!rs.Eof()) {
        rs.MoveLast();
        rows = rs.RecordCount();
        rs.MoveFirst();
    }
    setRecordcount(rows);
    Movefirst();

    const int fFecha = fieldIndex(rs, "Fecha"), fDif = fieldIndex(rs, "Dif");
    const int fUltimo = fieldIndex(rs, "Ultimo"), fVolumen = fieldIndex(rs, "Volumen");
    const int fEfect = fieldIndex(rs, "Efect"), fValor = fieldIndex(rs, "Valor");
    const int fAnterior = fieldIndex(rs, "Anterior"), fMaximo = fieldIndex(rs, "Maximo");
    const int fMinimo = fieldIndex(rs, "minimo");

    // The locale reading of a field's text, and the point reading for
    // volumes, so that a volume is never read with the locale.
    auto locale = [&](int f) { return Lectura_Local(rs.field(f)); };
    auto point = [&](int f) { return Lectura_Punto(rs.field(f)); };

    while (!rs.Eof() && !Eof()) {
        const QVariant fecha = rs.field(fFecha);
        if (fecha.typeId() == QMetaType::QDate)
            setFecha(fecha.toDate());
        else if (!Texto_Nulo(fecha).isEmpty())
            setFecha(fecha.toDate());
        const QVariant dif = rs.field(fDif);
        setDif(dif.isNull() ? 0.0 : dif.toDouble());
        setUltimo(locale(fUltimo));
        setVolumen(point(fVolumen));
        setEfect(point(fEfect));
        setValor(locale(fValor));
        setAnterior(locale(fAnterior));
        setMaximo(locale(fMaximo));
        setminimo(locale(fMinimo));
        rs.MoveNext();
        Movenext();
    }
}

} // namespace tesorel
