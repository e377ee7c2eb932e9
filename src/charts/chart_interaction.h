#pragma once
#include "charts/chart_overlays.h"

#include <QString>
#include <array>
#include <functional>
#include <map>

namespace tesorel
{

class GraficaPrincipal;
class OperacionesGrafica;
class Session;

// What the user does to the price chart directly: measuring with the
// mouse, the two zoom buttons, the tab strip, dropping the last date on
// the waste bin, and the hidden export of a value's quotes.
class InteraccionGrafica
{
  public:
    InteraccionGrafica(Session &s, GraficaPrincipal &g, OperacionesGrafica &o);

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

    void Pestanas_Click(int i);
    void Pestanas_DblClick();
    // The one place that acts on a tab change: fired when Pesta's text changes.
    void Pesta_Change();
    void setPesta(const QString &texto);

    // A drop of `origen` on the waste bin: deletes the day in Fecha_Fin.
    void Image1_DragDrop(const QString &origen);

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

    // Tabs, as their index: captions, looks, the frame's page.
    static const std::array<QString, 9> kPestanas;
    struct Aspecto {
        int texto = 7697781, fondo = 16445946; // closed
    };
    std::array<Aspecto, 9> aspectoPestanas{};
    int paginaMarco = 0; // the page of Marco(1) that shows
    bool MarcoChatVisible = false;
    int pestanaAnterior = 0;
    QString Pesta;

    QString Tiker = QStringLiteral("TIKER");
    double TikerTag = 0;

    // What others own: news, the value's note, the history window.
    std::function<void()> noticias;
    std::function<void()> CargarComentario;
    std::function<void()> abrirHistorico;

  private:
    void exportar(const QString &ticker);
    QString ultimoCaptionInicio() const { return Inicio.caption; }

    Session &s_;
    GraficaPrincipal &g_;
    OperacionesGrafica &o_;
};

} // namespace tesorel
