#include "charts/chart_operations.h"

#include "charts/price_chart.h"
#include "charts/surface.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/scale.h"
#include "store/database.h"
#include "store/helpers.h"
#include "store/historico_lectura.h"
#include "store/recordset.h"
#include "store/session.h"
#include "store/valor.h"

#include <cmath>

namespace tesorel
{

OperacionesGrafica::OperacionesGrafica(Session &s, GraficaPrincipal &g) : s_(s), g_(g) {}

bool OperacionesGrafica::esCartera() const
{
    // Exact in case, unlike the code lookup.
    return g_.controles.Text1.left(7) == QStringLiteral("CARTERA");
}

void OperacionesGrafica::VerOperaciones(double codigo)
{
    if (esCartera()) {
        VerOperacionesCartera();
        return;
    }
    listar(codigo, true);
}

void OperacionesGrafica::VerOperacionesCartera()
{
    listar(std::nullopt, false);
}

void OperacionesGrafica::listar(std::optional<double> codigo, bool conMostrar)
{
    // The user's ledger (of one value, or all of it) by date, as the lots replay reads it.
    const std::vector<LineaHistorico> lineas = leerHistorico(*s_.Base_Datos, s_.Usuario_Numero, codigo);
    Operaciones.clear();
    const long cuenta = long(lineas.size());
    CompraVenVisible = cuenta >= 1;
    if (conMostrar)
        MostrarOperacionesVisible = CompraVenVisible;
    if (cuenta == 0)
        return;
    double q = 0, t = 0;
    for (const LineaHistorico &l : lineas) {
        Operaciones += l.operacion + QStringLiteral("\r\n");
        q += l.cantidad;
        t += l.total;
    }
    Operaciones += QStringLiteral("\r\n");
    // What was paid is negative on a sale: the negated sum is the profit.
    if (q <= 0)
        Operaciones += QStringLiteral("Beneficio : ") + Str(-t) + QStringLiteral("      ") +
                       Format(-t * kPesetas, QStringLiteral("########")) + QStringLiteral(" Ptas");
    else
        Operaciones += QStringLiteral("Quedan ") + Str(q) + QStringLiteral(" compradas por ") + Str(t);
}

double OperacionesGrafica::altoEtiqueta() const
{
    Surface *box = g_.GraficaPrecio.surfacePtr();
    return box ? std::fabs(double(box->textHeight(QStringLiteral("C")))) : 0;
}

double OperacionesGrafica::anchoEtiqueta() const
{
    // The template's width: the first label is measured before its caption is set.
    Surface *box = g_.GraficaPrecio.surfacePtr();
    return box ? double(box->textWidth(QStringLiteral(" C 0000 "))) : 0;
}

EtiquetaGrafica &OperacionesGrafica::cargarEtiqueta(int n)
{
    EtiquetaGrafica &e = Compra[n];
    e = EtiquetaGrafica{};
    e.width = anchoEtiqueta();
    e.height = altoEtiqueta();
    e.orden = ++cargas_;
    return e;
}

void OperacionesGrafica::VerOperacionesGrafica()
{
    if (MostrarOperaciones != 1)
        return;
    if (esCartera()) {
        VerOperacionesGraficaCartera();
        return;
    }
    ponerPalos(
        QStringLiteral(" and (valor = ") + CStr(g_.Codigo_Valor) + QStringLiteral(")"),
        [&](Recordset &rs, double tipo, double x, double cantidad, LineaGrafica &palo, EtiquetaGrafica &e) {
            const double precio =
                A_Escala(rs.field(QStringLiteral("precio_operacion")).toDouble(), s_.Logaritmica);
            const double h = e.height, w = e.width;
            palo.x1 = palo.x2 = x;
            if (tipo == 2) {
                // Stands upward from the price; a purchase off the window (x 0) hides its label.
                palo.y2 = precio;
                palo.y1 = palo.y2 + 3 * h;
                e.visible = palo.x1 > 0;
                e.caption = QStringLiteral(" C") + Str(cantidad) + QStringLiteral(" ");
                e.left = palo.x1 - w / 2;
                e.top = palo.y1 + h;
            } else {
                // Hangs downward from the price, its label at the pole's own end.
                e.fondo = kFondoVenta;
                palo.y1 = precio;
                palo.y2 = palo.y1 - 3 * h;
                e.visible = true;
                e.caption = QStringLiteral(" V") + Str(-cantidad) + QStringLiteral(" ");
                e.left = palo.x1 - w / 2;
                e.top = palo.y2;
            }
        });
}

void OperacionesGrafica::ponerPalos(const QString &condicion,
                                    const std::function<void(Recordset &, double, double, double,
                                                             LineaGrafica &, EtiquetaGrafica &)> &colocar)
{
    QuitarVerOperaciones();
    auto rs = s_.Base_Datos->openRecordset(QStringLiteral("select * from historico  where (usuario = ") +
                                           CStr(s_.Usuario_Numero) + QStringLiteral(")") + condicion);
    NumeroPalos = 0;
    for (; !rs->Eof(); rs->MoveNext()) {
        const double tipo = rs->field(QStringLiteral("operacionNum")).toDouble();
        if (tipo != 2 && tipo != 4)
            continue;
        const double x = g_.GraficaPrecio.QueNum(rs->field(QStringLiteral("Fecha_operacion")).toDate());
        const double cantidad = rs->field(QStringLiteral("Cantidad")).toDouble();
        const int n = ++NumeroPalos;
        LineaGrafica &palo = PaloCompra[n];
        EtiquetaGrafica &e = cargarEtiqueta(n);
        palo.visible = true;
        e.toolTip = Texto_Nulo(rs->field(QStringLiteral("Operacion")));
        colocar(*rs, tipo, x, cantidad, palo, e);
    }
}

void OperacionesGrafica::VerOperacionesGraficaCartera()
{
    ponerPalos(QString(), [&](Recordset &rs, double tipo, double x, double cantidad, LineaGrafica &palo,
                              EtiquetaGrafica &e) {
        const double valor = rs.field(QStringLiteral("VALOR")).toDouble();
        const double h = e.height, w = e.width;
        // The foot stands on the portfolio's own line, not at the price.
        const double y = g_.GraficaPrecio.QuePrecio(double(x));
        palo.x1 = palo.x2 = x;
        palo.y2 = y;
        palo.y1 = palo.y2 + 3 * h;
        e.visible = true;
        const QString abreviatura =
            valor::esCartera(valor) ? valor::NombreCartera : Abreviatura11_De(s_, valor);
        e.caption =
            (tipo == 2 ? QStringLiteral(" C") + Str(cantidad) : QStringLiteral(" V") + Str(-cantidad)) +
            QStringLiteral(" ") + abreviatura + QStringLiteral(" ");
        if (tipo == 4)
            e.fondo = kFondoVenta;
        e.left = palo.x1 - w / 2;
        e.top = palo.y1 + h;
    });
}

void OperacionesGrafica::QuitarVerOperaciones()
{
    // An element may already be gone (a label raised by a click): ignored.
    for (int i = 1; i <= NumeroPalos; ++i)
        PaloCompra.erase(i);
    for (int i = 1; i <= NumeroPalos; ++i)
        Compra.erase(i);
}

void OperacionesGrafica::MostrarOperaciones_Click()
{
    if (MostrarOperaciones == 0)
        QuitarVerOperaciones();
    else if (MostrarOperaciones == 1)
        VerOperacionesGrafica();
}

void OperacionesGrafica::Compra_Click(int i)
{
    auto it = Compra.find(i);
    if (it == Compra.end())
        return;
    const EtiquetaGrafica viejo = it->second;
    NumeroPalos = NumeroPalos + 1;
    EtiquetaGrafica &e = cargarEtiqueta(NumeroPalos);
    // No pole goes with the new number; the tooltip stays behind.
    e.caption = viejo.caption;
    e.top = viejo.top;
    e.left = viejo.left;
    e.fondo = viejo.fondo;
    e.visible = true;
    Compra.erase(i);
}

void OperacionesGrafica::CompraVen_Click()
{
    if (pulsarPestana)
        pulsarPestana(6);
}

} // namespace tesorel
