#pragma once
#include "charts/grafica.h"
#include "charts/indicators.h"
#include "store/quote_cursor.h"

#include <QString>
#include <array>
#include <functional>

namespace tesorel
{

class DetectorSplits;
class Session;
class Surface;

// The main window's controls that a drawing reads. Check boxes hold 0 or
// 1; arrays are indexed as the controls are (Check2 1..6, Mediat 1..2).
struct ControlesGrafica {
    QString Text1; // the selected value's name
    std::array<int, 7> Check2{0, 1, 1, 1,
                              1, 1, 1}; // 1 Máximo, 2 Mínimo, 3 Cierre, 4 and 5 averages, 6 Media dia
    int Candle = 0;
    int Logaritmica = 0;
    int Splita = 0;
    std::array<QString, 3> Mediat{QString(), QStringLiteral("30"), QStringLiteral("9")};
    QString Indicador_Actual;
};

// A candle needs high, low, close and the day's average: ticking it ticks them.
inline constexpr std::array<int, 4> SeriesDeVela{1, 2, 3, 6};
inline bool velaCompleta(const std::array<int, 7> &check2)
{
    return check2[1] + check2[2] + check2[3] + check2[6] == 4;
}
inline void marcarSeriesDeVela(std::array<int, 7> &check2)
{
    for (int i : SeriesDeVela)
        check2[size_t(i)] = 1;
}

// A label of the head of the window: its caption and text colour.
struct Etiqueta {
    QString texto;
    int color = 0;
};

// What a drawing writes on the window besides the three pictures.
struct EtiquetasGrafica {
    Etiqueta porciento, Ultimo_Cierre, Porciento_2;
    Etiqueta Etiqueta_Maximo, Etiqueta_Minimo, Etiqueta_Porcentaje_total;
    Etiqueta Etiqueta_Media, Etiqueta_Volumen_Medio; // nothing writes them
    Etiqueta Tiempot, Fecha_Inicio, Fecha_Fin, Titulo;
    QString Noticias;          // the news tab's text: the split notes of the value
    bool relojDeArena = false; // the mouse pointer during a drawing
};

// The labels of the window's head that the drawing writes, by control name,
// with the caption that goes before each where the head is one picture.
struct EtiquetaDeCabecera {
    const char *control;
    const char *rotulo;
    Etiqueta EtiquetasGrafica::*etiqueta;
};
inline constexpr EtiquetaDeCabecera EtiquetasDeCabecera[] = {
    {"Ultimo_Cierre", "", &EtiquetasGrafica::Ultimo_Cierre},
    {"porciento", "", &EtiquetasGrafica::porciento},
    {"Porciento_2", "Media:", &EtiquetasGrafica::Porciento_2},
    {"Etiqueta_Maximo", "Máx:", &EtiquetasGrafica::Etiqueta_Maximo},
    {"Etiqueta_Minimo", "Mín:", &EtiquetasGrafica::Etiqueta_Minimo},
    {"Etiqueta_Porcentaje_total", "Total:", &EtiquetasGrafica::Etiqueta_Porcentaje_total},
    {"Fecha_Inicio", "Desde", &EtiquetasGrafica::Fecha_Inicio},
    {"Fecha_Fin", "hasta", &EtiquetasGrafica::Fecha_Fin},
    {"Tiempot", "t:", &EtiquetasGrafica::Tiempot},
};

// The price, volume and indicator charts of the main window and the
// routine that rebuilds them from the store for the value in Text1.
class GraficaPrincipal
{
  public:
    explicit GraficaPrincipal(Session &s);

    // Configures the three charts once, on their picture boxes.
    void DefinirGraficas(Surface *picture1, Surface *picture2, Surface *picture3);
    // Rebuilds everything shown for the value. A run-time failure leaves
    // the drawing unfinished and its guard set, as the window has always
    // behaved.
    void DibujarGrafica();

    ControlesGrafica controles;
    EtiquetasGrafica etiquetas;
    grafica GraficaPrecio, GraficaVolumen, GraficaIndicador;
    IndicatorState indicadores;
    double maximoGrafica = 0, minimoGrafica = 0; // the chart's high and low
    double Codigo_Valor = 0;

    // What others own: the favourite mark of the value, the operation
    // marks redrawn at the end, and the focus given back.
    std::function<void()> PonerQuitarF;
    std::function<void()> VerOperacionesGrafica;
    std::function<void()> devolverFoco;

    bool dibujando() const { return dibujando_; }
    // Points written by the last run, the one past the window included.
    int puntosEscritos() const { return puntosEscritos_; }

  private:
    struct Recorrido;
    void cabecera();
    // The steps of a drawing.
    void ventanaDeFechas(QDate &fechaInicio, double &primerCierre);
    double trazarRegistros(DetectorSplits &splits); // the last close drawn
    void trazarRegistro(Recorrido &r);
    void trazarIndicador(Recorrido &r, double cierre, double maximo, double minimo, double m1, double m2);
    void fijarRango();
    void terminar(const QDate &fechaInicio, const QDate &fechaFin, double primerCierre, double ultimoCierre,
                  const DetectorSplits &splits);

    Session &s_;
    RecordSeto cursor_;
    bool dibujando_ = false;
    int puntosEscritos_ = 0;
};

// The step of the scale lines for a range of prices.
double pasoLineasEscala(double rango);
// The automatic axis divisions for a range: none below a range of 100.
double ticksAutomaticos(double rango);

} // namespace tesorel
