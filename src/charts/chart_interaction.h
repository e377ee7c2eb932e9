#pragma once
#include "charts/chart_overlays.h"

#include <QString>
#include <array>
#include <functional>
#include <map>

namespace tesorel
{

class GraficaPrincipal;
class Session;

// What the user does to the price chart directly: measuring with the
// mouse, the two zoom buttons, and the hidden export of a value's quotes.
// The tabs and the waste bin are the main window's (principal/, market/).
class InteraccionGrafica
{
  public:
    InteraccionGrafica(Session &s, GraficaPrincipal &g);

    // Buttons as the mouse events give them: 1 left, 2 right, 4 middle.
    static constexpr int kIzquierdo = 1, kDerecho = 2;
    void Picture1_MouseDown(int boton, int shift, double x, double y);
    void Picture1_MouseMove(int boton, int shift, double x, double y);
    void Picture1_MouseUp(int boton, int shift, double x, double y);
    void Titulo_Change();

    // The date window's steps: Lupa_Mas widens, Lupa_menos narrows.
    static double lupaMas(double dias);
    static double lupaMenos(double dias);
    void Lupa_Mas_Click();
    void Lupa_menos_Click();

    // The hidden export: a change of Tiker's text (its tag is the code).
    void setTiker(const QString &texto);
    // Selects each of `entradas` entries of the list in turn and waits
    // for the export to hand Tiker back.
    void Command1_Click(int entradas, const std::function<void(int)> &seleccionar);

    // The measuring controls on Picture1.
    std::map<int, LineaGrafica> Linea; // element 0 is the template
    int NumeroLineas = 0;
    EtiquetaGrafica Inicio, Fin;
    CirculoGrafica Circulo1, Circulo2;

    QString Tiker = QStringLiteral("TIKER");
    double TikerTag = 0;

  private:
    void exportar(const QString &ticker);
    QString ultimoCaptionInicio() const { return Inicio.caption; }

    Session &s_;
    GraficaPrincipal &g_;
};

} // namespace tesorel
