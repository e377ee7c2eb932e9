#include "portfolio/modif_historico.h"

#include "core/dates.h"
#include "core/numbers.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"

#include <cmath>

namespace tesorel
{

void ModifHistorico::LLenarCombos()
{
    Operacion_Lista = {QStringLiteral("Compra"), QStringLiteral("Venta")};
    Valor_Lista.clear();
    Entidad_Lista.clear();
    s_.paso([&] {
        auto rs = s_.Base_Datos->openRecordset(QStringLiteral("Select Abreviatura11 from codigo_empresas"));
        for (; !rs->Eof(); rs->MoveNext())
            Valor_Lista << Texto_Nulo(rs->field(0));
    });
    Valor_Lista << QStringLiteral(" ");
    s_.paso([&] {
        auto rs = s_.Base_Datos->openRecordset(QStringLiteral("select * from operadores order by nombre"));
        for (; !rs->Eof(); rs->MoveNext())
            Entidad_Lista << Texto_Nulo(rs->field(QStringLiteral("NOMBRE")));
    });
    Entidad_Lista << QStringLiteral(" ");
}

void ModifHistorico::Form_Load()
{
    LLenarCombos();
    Recordset *rs = s_.Historico_rs.get();
    if (!rs || rs->Eof() || rs->Bof())
        return;
    // The fields are shown as stored: the description is the one written
    // at booking until the person changes a field.
    s_.paso([&] { Fecha = Texto_Nulo(rs->field(QStringLiteral("Fecha_operacion"))); });
    s_.paso([&] {
        const double tipo = rs->field(QStringLiteral("operacionNum")).toDouble();
        if (tipo == 2)
            Operacion = QStringLiteral("Compra");
        else if (tipo == 4)
            Operacion = QStringLiteral("Venta");
    });
    s_.paso([&] { Cantidad = CStr(std::fabs(rs->field(QStringLiteral("Cantidad")).toDouble())); });
    s_.paso([&] { Valor = Abreviatura11_De(s_, rs->field(QStringLiteral("Valor")).toDouble()); });
    s_.paso([&] { Precio = Texto_Nulo(rs->field(QStringLiteral("precio_operacion"))); });
    s_.paso([&] { Importe = CStr(std::fabs(rs->field(QStringLiteral("Total_operacion")).toDouble())); });
    s_.paso([&] { Descripcion = Texto_Nulo(rs->field(QStringLiteral("Operacion"))); });
    s_.paso([&] {
        auto operadores = s_.Base_Datos->openRecordset(QStringLiteral("select * from operadores"));
        operadores->FindFirst(QStringLiteral("codigo = ") +
                              CStr(rs->field(QStringLiteral("Entidad")).toDouble()));
        Entidad = operadores->NoMatch() ? QStringLiteral(" ")
                                        : Texto_Nulo(operadores->field(QStringLiteral("NOMBRE")));
    });
}

void ModifHistorico::CambiarEtiqueta()
{
    QString verbo;
    if (Operacion == QStringLiteral("Compra"))
        verbo = QStringLiteral(": Compra de ");
    else if (Operacion == QStringLiteral("Venta"))
        verbo = QStringLiteral(": Venta de ");
    else
        return;
    Descripcion = Fecha + verbo + Cantidad + QStringLiteral(" ") + Valor + QStringLiteral(" por ") + Importe;
}

bool ModifHistorico::Aceptar_Click()
{
    Recordset *rs = s_.Historico_rs.get();
    if (!rs)
        return true;
    s_.paso([&] { rs->Edit(); });
    if (!IsDate(Fecha)) {
        s_.ui.MsgBox(QStringLiteral("Fecha no reconocida"));
        foco = QStringLiteral("Fecha");
        return false;
    }
    s_.paso([&] { rs->setField(QStringLiteral("Fecha_operacion"), CDate(Fecha)); });
    double signo = 0;
    if (Operacion == QStringLiteral("Compra")) {
        signo = 1;
        s_.paso([&] { rs->setField(QStringLiteral("operacionNum"), 2); });
    } else if (Operacion == QStringLiteral("Venta")) {
        signo = -1;
        s_.paso([&] { rs->setField(QStringLiteral("operacionNum"), 4); });
    } else {
        // The rest still runs: the amounts are written as 0.
        s_.ui.MsgBox(QStringLiteral("Operación no reconocida"));
    }
    s_.paso([&] { rs->setField(QStringLiteral("Cantidad"), Numero_Cdbl(Cantidad) * signo); });
    s_.paso([&] { rs->setField(QStringLiteral("Valor"), Codigo_De(s_, Valor, BuscarPor::Abreviatura11)); });
    s_.paso([&] { rs->setField(QStringLiteral("precio_operacion"), Numero_Cdbl(Precio)); });
    s_.paso([&] { rs->setField(QStringLiteral("Total_operacion"), Numero_Cdbl(Importe) * signo); });
    s_.paso([&] { rs->setField(QStringLiteral("Operacion"), Descripcion); });
    s_.paso([&] {
        // The name goes into the criterion as typed: an apostrophe fails it.
        auto operadores = s_.Base_Datos->openRecordset(QStringLiteral("select * from operadores"));
        operadores->FindFirst(QStringLiteral("nombre = '") + Entidad + QStringLiteral("'"));
        rs->setField(QStringLiteral("Entidad"),
                     operadores->NoMatch() ? 0.0 : operadores->field(QStringLiteral("codigo")).toDouble());
    });
    s_.paso([&] { rs->Update(); });
    return true;
}

} // namespace tesorel
