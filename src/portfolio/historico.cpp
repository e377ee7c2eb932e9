#include "portfolio/historico.h"

#include "core/format.h"
#include "core/numbers.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/query.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/ui.h"

#include <QHash>
#include <cmath>

namespace tesorel
{

const QString Historico::OrdenFecha = QStringLiteral("Fecha_operacion, valor");
const QString Historico::OrdenValor = QStringLiteral("valor, Fecha_operacion");
const QString Historico::FiltroRentaPrevio = QStringLiteral(" and  fecha_operacion < #01/01/2006#");

QStringList FilaHistorico::celdas() const
{
    return {Fecha, Operacion, Cantidad, Valor, Precio, Importe, Entidad};
}

Historico::Historico(Session &s, std::function<void()> editar) : s_(s), editar_(std::move(editar)) {}

QString Historico::sentencia(const QString &orden) const
{
    // The grid keeps every record of the user, a deleted broker's too: the
    // broker's name is looked up apart, and an unknown one shows empty.
    // The recordset stays updatable, so that a row can be deleted or edited.
    return QStringLiteral("select * from historico where usuario = ") + CStr(s_.Usuario_Numero) +
           QStringLiteral(" ") + filtro_ + QStringLiteral(" order by ") + orden;
}

void Historico::Form_Load()
{
    s_.paso([&] { llenarfiltro(); });
    s_.paso([&] { Llenar_tabla(QString(), OrdenFecha); });
}

void Historico::llenarfiltro()
{
    Filtro_Lista.clear();
    auto rs = s_.Base_Datos->openRecordset(sentencia(QStringLiteral("valor")));
    bool primero = true;
    double anterior = 0;
    for (; !rs->Eof(); rs->MoveNext()) {
        const double valor = rs->field(QStringLiteral("Valor")).toDouble();
        if (primero || valor != anterior)
            Filtro_Lista << Abreviatura11_De(s_, valor);
        primero = false;
        anterior = valor;
    }
}

void Historico::Llenar_tabla(const QString &filtro, const QString &orden)
{
    // Once set, a filter can be replaced but not taken away.
    if (!filtro.isEmpty())
        filtro_ = filtro;
    orden_ = orden;
    s_.Historico_rs = s_.Base_Datos->openRecordset(sentencia(orden));

    QHash<qint64, QString> operadores;
    Query q(*s_.Base_Datos, QStringLiteral("select codigo, nombre from operadores"));
    while (q.next())
        operadores.insert(q.whole(0), q.text(1));

    std::size_t n = 0;
    Recordset &rs = *s_.Historico_rs;
    for (; !rs.Eof(); rs.MoveNext()) {
        if (filas.size() <= n)
            filas.emplace_back();
        FilaHistorico &f = filas[n++];
        const double tipo = rs.field(QStringLiteral("operacionNum")).toDouble();
        const double total = rs.field(QStringLiteral("Total_operacion")).toDouble();
        f.Fecha = Texto_Nulo(rs.field(QStringLiteral("Fecha_operacion")));
        f.Operacion = tipo == 2 ? QStringLiteral("compré") : tipo == 4 ? QStringLiteral("vendí") : QString();
        f.Cantidad = CStr(std::fabs(rs.field(QStringLiteral("Cantidad")).toDouble()));
        f.Valor = Abreviatura11_De(s_, rs.field(QStringLiteral("Valor")).toDouble());
        f.Precio = Format(rs.field(QStringLiteral("precio_operacion")).toDouble(), QStringLiteral("#0.00"));
        f.Importe = Format(std::fabs(total), QStringLiteral("#0.00"));
        f.Importe_ForeColor = total > 0 ? ColorCompra : ColorVenta;
        const QVariant entidad = rs.field(QStringLiteral("Entidad"));
        f.Entidad = QStringLiteral("en ") +
                    (entidad.isValid() ? operadores.value(qint64(entidad.toDouble())) : QString());
    }
    filas.resize(n);
}

void Historico::Option1_Click(int indice)
{
    Option1[0] = indice == 0;
    Option1[1] = indice == 1;
    s_.paso([&] { Llenar_tabla(QString(), indice == 0 ? OrdenFecha : OrdenValor); });
}

void Historico::Filtro_Click()
{
    s_.paso([&] {
        const double codigo = Codigo_De(s_, Filtro, BuscarPor::Abreviatura11);
        Llenar_tabla(QStringLiteral(" and  valor = ") + CStr(codigo), QStringLiteral("Fecha_operacion"));
    });
}

void Historico::Command2_Click()
{
    s_.paso([&] { Llenar_tabla(FiltroRentaPrevio, QStringLiteral("Fecha_operacion")); });
}

void Historico::Command1_Click(int indice)
{
    switch (indice) {
    case 0:
        s_.ui.MsgBox(QStringLiteral("En construcción, disponible en futuras revisiones"), mb::Critical,
                     QStringLiteral("Atención"));
        break;
    case 1:
        s_.paso([&] { Generar_Serie_Cartera(s_, Int16(0), avisos); });
        break;
    case 2:
        informeHtml(s_.carpeta + QStringLiteral("/historico.htm"));
        break;
    case 3:
        exportarTxe();
        break;
    default:
        break;
    }
}

void Historico::Borrar_Click(int fila)
{
    if (!s_.Historico_rs)
        return;
    if (s_.ui.MsgBox(QStringLiteral("¿Borrar registro?"), mb::YesNo, QStringLiteral("Atención!")) != mb::Yes)
        return;
    s_.paso([&] { s_.Historico_rs->setAbsolutePosition(fila - 1); });
    s_.paso([&] { s_.Historico_rs->Delete(); });
    s_.paso([&] { Llenar_tabla(QString(), orden_); });
}

void Historico::BorrarTodo_Click()
{
    if (!s_.Historico_rs)
        return;
    if (s_.ui.MsgBox(QStringLiteral("¿Borrar todos los registro?"), mb::YesNo, QStringLiteral("Atención!")) !=
        mb::Yes)
        return;
    s_.paso([&] {
        // Only what the current filter shows.
        Recordset &rs = *s_.Historico_rs;
        if (rs.Eof() && rs.Bof())
            return;
        rs.MoveFirst();
        while (!rs.Eof()) {
            rs.Delete();
            rs.MoveNext();
        }
    });
    s_.paso([&] { Llenar_tabla(QString(), orden_); });
}

void Historico::Editar_Click(int fila)
{
    if (!s_.Historico_rs)
        return;
    s_.paso([&] { s_.Historico_rs->setAbsolutePosition(fila - 1); });
    if (s_.Historico_rs && !s_.Historico_rs->Eof() && !s_.Historico_rs->Bof() && editar_)
        editar_();
    s_.paso([&] { Llenar_tabla(QString(), orden_); });
}

} // namespace tesorel
