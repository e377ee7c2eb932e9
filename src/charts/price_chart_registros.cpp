#include "charts/price_chart.h"
// The walk over the records of a drawing: each day's close, high, low and
// averages into the price chart, its money into the volume bars, and the
// indicator below.
#include "charts/checked_math.h"
#include "charts/maximos.h"
#include "charts/mmedia.h"
#include "charts/split.h"
#include "core/dates.h"
#include "core/numbers.h"
#include "store/valor.h"

namespace tesorel
{

using namespace chartmath;

// What the walk carries from one record to the next.
struct GraficaPrincipal::Recorrido {
    Recorrido(const ControlesGrafica &c, bool conIndicador_, DetectorSplits &splits_)
        : cierreOn(c.Check2[3]), maximoOn(c.Check2[1]), minimoOn(c.Check2[2]), media1On(c.Check2[4]),
          media2On(c.Check2[5]), mediaDiaOn(c.Check2[6]), periodo1(Numero_Val(c.Mediat[1])),
          periodo2(Numero_Val(c.Mediat[2])), conIndicador(conIndicador_), conSplits(c.Splita != 0),
          indicador(indicadorDeAjuste(c.Indicador_Actual)), splits(splits_)
    {
    }
    // Ticks of the series: an unticked one is written as 0, below the range.
    const double cierreOn, maximoOn, minimoOn, media1On, media2On, mediaDiaOn;
    const double periodo1, periodo2;
    const bool conIndicador, conSplits;
    const Indicador indicador;
    DetectorSplits &splits;

    MMedia primeraMedia, segundaMedia;
    Maximos extremos;
    HistoriaMomentum historia{};
    double nMomentum = 0;
    DetectorSplits::Ajustado a; // high and low survive a record without adjustment
    bool saltado = false;
    double punto = 1, mesAnterior = 0;
    double ultimoCierre = 0;
};

double GraficaPrincipal::trazarRegistros(DetectorSplits &splits)
{
    // 7. The records.
    Recorrido r(controles, GraficaIndicador.Visible(), splits);
    RecordSeto &q = cursor_;
    while (!q.Eof()) {
        // a. Days without a close: a stock loses them all, a portfolio
        // series only the first.
        while (q.Ultimo() == 0) {
            if (q.Valor() >= valor::PrimeraCartera && r.saltado)
                break;
            r.saltado = true;
            for (grafica *g : {&GraficaPrecio, &GraficaVolumen, &GraficaIndicador})
                g->NumPoints(g->NumPoints() - 1);
            q.Movenext();
            if (q.Eof())
                return r.ultimoCierre;
        }
        trazarRegistro(r);
        q.Movenext();
    }
    return r.ultimoCierre;
}

void GraficaPrincipal::trazarRegistro(Recorrido &r)
{
    RecordSeto &q = cursor_;
    // b.
    const QDate leida = q.Fecha();
    const QDate fecha = leida.isValid() ? leida : grafica::fechaCero();
    const double dinero = finite(q.Efect() * 1000);
    double cierre = q.Ultimo();

    // c.
    DetectorSplits::Ajustado &a = r.a;
    if (r.conSplits) {
        DetectorSplits::Registro registro{fecha,      q.Ultimo(), q.Anterior(),
                                          q.Maximo(), q.minimo(), q.Volumen()};
        r.splits.ajustar(registro, a, etiquetas.Noticias);
        cierre = a.cierre;
    } else {
        a.maximo = q.Maximo();
        a.minimo = q.minimo();
        a.acciones = q.Volumen();
    }
    double &maximo = a.maximo, &minimo = a.minimo;

    // d.
    double media = 0;
    if (a.acciones == 0) {
        media = maximo = minimo = cierre;
    } else {
        media = divide(dinero, a.acciones);
        if (maximo == 0)
            maximo = cierre;
        if (minimo == 0)
            minimo = cierre;
    }

    // e. Every change of month but the first gets its vertical line.
    GraficaPrecio.ThisPoint(r.punto);
    if (fecha.month() != r.mesAnterior) {
        GraficaPrecio.LabelText(Nombre_Mes(fecha.month()) + u' ' +
                                QString::number(fecha.year() % 100).rightJustified(2, u'0'));
        if (r.mesAnterior != 0)
            GraficaPrecio.Vertical();
        r.mesAnterior = fecha.month();
    } else {
        GraficaPrecio.LabelText(QStringLiteral("    "));
    }

    // f. An unticked series is written as 0, below the range.
    GraficaPrecio.ThisSet(1);
    GraficaPrecio.Fecha(fecha);
    GraficaPrecio.Graphdata(cierre * r.cierreOn);
    GraficaPrecio.ThisSet(2);
    GraficaPrecio.Graphdata(maximo * r.maximoOn);
    GraficaPrecio.ThisSet(3);
    GraficaPrecio.Graphdata(minimo * r.minimoOn);

    // g. The averages always run: the indicators use them.
    GraficaPrecio.ThisSet(4);
    const double m1 = r.primeraMedia.Siguiente(cierre, 0, r.periodo1, ClaseMedia::Exponencial);
    GraficaPrecio.Graphdata(m1 * r.media1On);
    GraficaPrecio.ThisSet(8);
    GraficaPrecio.Graphdata(media * r.mediaDiaOn);
    GraficaPrecio.ThisSet(7);
    const double m2 = r.segundaMedia.Siguiente(cierre, 0, r.periodo2, ClaseMedia::Exponencial);
    GraficaPrecio.Graphdata(m2 * r.media2On);

    // h.
    if (r.conIndicador)
        trazarIndicador(r, cierre, maximo, minimo, m1, m2);

    // i. The bars show the money as stored, not the shares.
    GraficaVolumen.ThisPoint(r.punto);
    GraficaVolumen.Graphdata(dinero / 1000);
    GraficaVolumen.ThisPoint(r.punto);

    // j. The extremes follow the data, ticked or not.
    r.ultimoCierre = cierre;
    if (maximo > maximoGrafica)
        maximoGrafica = maximo;
    if (minimo < minimoGrafica)
        minimoGrafica = minimo;
    puntosEscritos_ = int(r.punto);
    r.punto = r.punto + 1;
}

void GraficaPrincipal::trazarIndicador(Recorrido &r, double cierre, double maximo, double minimo, double m1,
                                       double m2)
{
    switch (r.indicador) {
    case Indicador::MaCD:
        grafica_macd(GraficaIndicador, indicadores, m2, m1, 0, r.punto, cierre);
        break;
    case Indicador::Rsi:
        grafica_rsi(GraficaIndicador, indicadores, cursor_.Dif(), 0, r.punto);
        break;
    case Indicador::Momentum:
        grafica_momentum(GraficaIndicador, cierre, r.nMomentum, r.punto, r.historia);
        if (r.nMomentum < 14)
            r.nMomentum = r.nMomentum + 1;
        break;
    case Indicador::Estocastico:
        grafica_stocastico(GraficaIndicador, indicadores, cierre, r.extremos.Maxi(maximo, 5),
                           r.extremos.Min(minimo, 5), 5, r.punto);
        break;
    case Indicador::Ninguno:
        break;
    }
}

} // namespace tesorel
