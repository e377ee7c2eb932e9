#include "charts/price_chart.h"

#include "core/paleta.h"

#include "charts/checked_math.h"
#include "charts/maximos.h"
#include "charts/mmedia.h"
#include "charts/quote_loader.h"
#include "charts/split.h"
#include "charts/surface.h"
#include "core/dates.h"
#include "core/format.h"
#include "core/numbers.h"
#include "core/scale.h"
#include "store/helpers.h"
#include "store/session.h"
#include "store/valor.h"

#include <QElapsedTimer>
#include <cmath>

namespace tesorel
{

using namespace chartmath;

double pasoLineasEscala(double r)
{
    if (r > 100)
        return 20;
    if (r > 60)
        return 10;
    if (r > 30)
        return 5;
    if (r > 20)
        return 4;
    if (r > 15)
        return 2.5;
    if (r > 10)
        return 2;
    if (r > 5)
        return 1;
    if (r > 2.5)
        return 0.5;
    if (r > 1.5)
        return 0.25;
    if (r > 1)
        return 0.2;
    if (r > 0.5)
        return 0.1;
    if (r > 0.25)
        return 0.05;
    if (r > 0.18)
        return 0.04;
    // The old ladder went on with tests that were always passed over; a
    // narrow range ends in the finest step, the narrowest in a coarser one.
    if (r >= 0.01)
        return 0.0025;
    return 0.01;
}

double ticksAutomaticos(double rango)
{
    // t = rango / (100 k) for k = 1, 2, ... until t < 20. Far ranges start
    // the count near its end: the values before it are all 20 or more.
    double k = std::max(1.0, std::floor(rango / 2000) - 2);
    double t = 0;
    do {
        t = finite(rango / (100 * k));
        k = k + 1;
    } while (!(t < 20));
    return std::floor(t);
}

GraficaPrincipal::GraficaPrincipal(Session &s)
    : GraficaPrecio(&s.Logaritmica), GraficaVolumen(&s.Logaritmica), GraficaIndicador(&s.Logaritmica), s_(s)
{
}

void GraficaPrincipal::DefinirGraficas(Surface *picture1, Surface *picture2, Surface *picture3)
{
    GraficaPrecio.tipo(2);
    GraficaVolumen.tipo(2);
    GraficaIndicador.tipo(2);
    GraficaPrecio.ColorCuadricula(paleta::CuadriculaPrecio);
    GraficaVolumen.ColorCuadricula(paleta::CuadriculaVolumen);

    const double gruesos[8] = {0, 0, 0, 1, 0, 0, 1, 1};
    for (int set = 1; set <= 8; ++set) {
        GraficaPrecio.ColorLinea(set, paleta::LineasPrecio[set - 1]);
        GraficaPrecio.GruesoLinea(set, gruesos[set - 1]);
    }
    GraficaVolumen.ColorLinea(1, paleta::BarrasVolumen);
    GraficaVolumen.ColorLinea(2, paleta::Negro);
    GraficaIndicador.ColorLinea(1, paleta::AzulOscuro);
    GraficaIndicador.ColorLinea(2, paleta::RojoOscuro);
    GraficaIndicador.ColorLinea(3, paleta::Negro);

    GraficaPrecio.Picture(picture1);
    GraficaVolumen.Picture(picture2);
    GraficaIndicador.Picture(picture3);
    GraficaPrecio.mascara(QStringLiteral("##0.##"));
    GraficaVolumen.mascara(QStringLiteral("#####0"));
}

void GraficaPrincipal::cabecera()
{
    // The last record of the whole series, whatever the window.
    RecordSeto &q = cursor_;
    q.MoveLast();
    const double dif = q.Dif();
    etiquetas.porciento.texto = (dif > 0 ? QStringLiteral("+") : QString()) +
                                Format(dif, QStringLiteral("#0.0")) + QStringLiteral(" %");
    if (dif > 0)
        etiquetas.porciento.color = paleta::AzulOscuro;
    else if (dif < 0)
        etiquetas.porciento.color = paleta::RojoOscuro;
    etiquetas.Ultimo_Cierre.texto = Format(q.Ultimo(), QStringLiteral("##0.00")) + QStringLiteral(" €");

    Etiqueta &p2 = etiquetas.Porciento_2;
    if (q.Volumen() <= 0) {
        p2 = Etiqueta{};
        return;
    }
    const double a = divide(q.Efect(), q.Volumen());
    if (q.AbsolutePosition() > 0)
        q.MovePrevious();
    // A series of one record reads here before its first: a run-time failure.
    if (q.Volumen() == 0 || q.Efect() == 0) {
        p2 = Etiqueta{};
        return;
    }
    const double b = divide(q.Efect(), q.Volumen());
    const double p = finite(divide(a, b) * 100 - 100);
    if (p > 0)
        p2.color = paleta::AzulOscuro;
    else if (p < 0)
        p2.color = paleta::RojoOscuro;
    p2.texto =
        (p > 0 ? QStringLiteral("+") : QString()) + Format(p, QStringLiteral("#0.00")) + QStringLiteral(" %");
}

void GraficaPrincipal::DibujarGrafica()
{
    // 1. A drawing can be asked for by events raised during a drawing.
    if (dibujando_)
        return;
    dibujando_ = true;
    QElapsedTimer reloj;
    reloj.start();
    etiquetas.Noticias.clear();
    if (PonerQuitarF)
        PonerQuitarF();
    etiquetas.relojDeArena = true;
    s_.Logaritmica = controles.Logaritmica == 1;

    // 2.
    Codigo_Valor = Codigo_De(s_, controles.Text1, BuscarPor::Nombre);
    RecordSeto &q = cursor_;
    cargarSerie(*s_.Base_Datos, Codigo_Valor, q);

    DetectorSplits splits;
    double primerCierre = 0, ultimoCierre = 0;
    QDate fechaInicio = grafica::fechaCero(), fechaFin = grafica::fechaCero();
    puntosEscritos_ = 0;

    if (q.recordcount() < 1) {
        // 3. The previous arrays are repainted without a range.
        double cero = 0;
        GraficaPrecio.YAxisMin(cero);
        GraficaPrecio.YAxisStyle(1);
    } else {
        // 4.
        q.MoveLast();
        fechaFin = q.Fecha();
        q.Movefirst();
        // 5.
        cabecera();
        // 6.
        ventanaDeFechas(fechaInicio, primerCierre);
        // 7.
        ultimoCierre = trazarRegistros(splits);
        // 8.
        fijarRango();
    }

    // 9. The finish, for an empty value too.
    terminar(fechaInicio, fechaFin, primerCierre, ultimoCierre, splits);
    etiquetas.Tiempot.texto = Format(double(reloj.nsecsElapsed()) / 1e9, QStringLiteral("#0.###"));
}

// The window of dates and the charts' shape; the cursor is left on the first record drawn.
void GraficaPrincipal::ventanaDeFechas(QDate &fechaInicio, double &primerCierre)
{
    const ControlesGrafica &c = controles;
    RecordSeto &q = cursor_;
    q.Movefirst();
    fechaInicio = q.Fecha();
    const double cuenta = q.recordcount();
    const double dias = s_.Maximo_Dias_Sesion;
    const double puntos = (dias > 0 && dias < cuenta) ? dias : cuenta;
    for (grafica *g : {&GraficaPrecio, &GraficaVolumen, &GraficaIndicador})
        g->NumPoints(puntos);
    GraficaPrecio.NumSets(8);
    GraficaVolumen.NumSets(1);
    GraficaPrecio.ThisPoint(1);
    GraficaPrecio.ThisSet(1);
    GraficaVolumen.ThisPoint(1);
    GraficaVolumen.ThisSet(1);
    GraficaPrecio.graphtitle(c.Text1);
    GraficaPrecio.graphtype(6 + c.Candle);
    GraficaPrecio.gridsTyLe(1);
    GraficaVolumen.graphtype(3);
    GraficaVolumen.graphSTyLe(2);
    GraficaVolumen.gridsTyLe(1);
    GraficaIndicador.graphtype(6);
    GraficaIndicador.AutoInc(0);
    GraficaIndicador.NumSets(3);
    maximoGrafica = 0;
    minimoGrafica = 1e16;
    if (dias != 0) {
        // Stops at position count - dias: one record more than is drawn.
        while (cuenta - double(q.AbsolutePosition()) > dias)
            q.Movenext();
        fechaInicio = q.Fecha();
        primerCierre = q.Ultimo();
    }
}

// 8. The range; only wide ranges get automatic divisions.
void GraficaPrincipal::fijarRango()
{
    if (minimoGrafica == 1e16)
        minimoGrafica = 0;
    GraficaPrecio.YAxisStyle(2);
    GraficaPrecio.YAxisTicks(0);
    GraficaPrecio.YAxisMax(double(maximoGrafica));
    GraficaPrecio.YAxisMin(double(minimoGrafica));
    GraficaPrecio.YAxisTicks(ticksAutomaticos(maximoGrafica - minimoGrafica));
}

void GraficaPrincipal::terminar(const QDate &fechaInicio, const QDate &fechaFin, double primerCierre,
                                double ultimoCierre, const DetectorSplits &splits)
{
    const ControlesGrafica &c = controles;
    GraficaPrecio.Split(splits.factorAcumulado());
    if (c.Splita != 0)
        GraficaPrecio.Anular_split(true);
    GraficaPrecio.DrawMode(2);
    if (c.Splita == 1) {
        maximoGrafica = divide(maximoGrafica, splits.factorActual());
        minimoGrafica = divide(minimoGrafica, splits.factorActual());
    }

    // The scale lines are the chart's real scale; on a logarithmic chart
    // their prices stand at uneven heights. At least one is drawn.
    {
        const double paso = pasoLineasEscala(maximoGrafica - minimoGrafica);
        double y = std::floor(minimoGrafica / paso) * paso + paso;
        // A corrupt price far off the others would ask for endless lines.
        for (int n = 0; n < 100000; ++n) {
            GraficaPrecio.LineaHorizontal(A_Escala(y, s_.Logaritmica));
            y = y + paso;
            if (y >= maximoGrafica)
                break;
        }
    }

    GraficaVolumen.DrawMode(2);
    if (GraficaIndicador.Visible())
        GraficaIndicador.DrawMode(2);

    etiquetas.Titulo.texto = c.Text1;
    etiquetas.relojDeArena = false;
    if (devolverFoco)
        devolverFoco();
    etiquetas.Fecha_Inicio.texto = Format(fechaInicio, QStringLiteral("dd/mm/yyyy"));
    etiquetas.Fecha_Fin.texto = Format(fechaFin, QStringLiteral("dd/mm/yyyy"));
    dibujando_ = false;

    if (c.Splita == 1) {
        primerCierre = primerCierre * splits.factorActual();
        ultimoCierre = ultimoCierre * splits.factorActual();
    }
    // With the whole series the first close is 0: the label then shows the
    // last close, a trait of the display kept as it is.
    if (primerCierre != 0)
        etiquetas.Etiqueta_Porcentaje_total.texto =
            Format(ultimoCierre * 100 / primerCierre - 100, QStringLiteral("###0.00"));
    else
        etiquetas.Etiqueta_Porcentaje_total.texto = Format(ultimoCierre, QStringLiteral("###0.00"));
    etiquetas.Etiqueta_Maximo.texto = Format(maximoGrafica, QStringLiteral("##0.00")) + QStringLiteral(" €");
    etiquetas.Etiqueta_Minimo.texto = Format(minimoGrafica, QStringLiteral("##0.00")) + QStringLiteral(" €");
    if (VerOperacionesGrafica)
        VerOperacionesGrafica();
}

} // namespace tesorel
