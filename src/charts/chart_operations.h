#pragma once
#include "charts/chart_overlays.h"

#include <QString>
#include <functional>
#include <map>
#include <optional>

namespace tesorel
{

class GraficaPrincipal;
class Recordset;
class Session;

// The user's purchases and sales of the value on show: the list of the
// "Operaciones" tab with its closing line, and the poles with their small
// labels standing on the price chart. Reads historico only.
class OperacionesGrafica
{
  public:
    OperacionesGrafica(Session &s, GraficaPrincipal &g);

    void VerOperaciones(double codigo);
    void VerOperacionesCartera();
    void VerOperacionesGrafica();
    void VerOperacionesGraficaCartera();
    void QuitarVerOperaciones();
    void MostrarOperaciones_Click();
    // A label can only rise above the others by being made anew.
    void Compra_Click(int i);
    void CompraVen_Click();

    // The tab's text and the two controls that appear with operations.
    QString Operaciones;
    bool CompraVenVisible = false;
    bool MostrarOperacionesVisible = false;
    int MostrarOperaciones = 0;

    // Loaded elements from 1; a map keeps the order labels were made in.
    std::map<int, LineaGrafica> PaloCompra;
    std::map<int, EtiquetaGrafica> Compra;
    int NumeroPalos = 0;

    // The click on the tab "Operaciones" (CompraVen acts as one).
    std::function<void(int)> pulsarPestana;

    static constexpr int kFondoVenta = 8421631; // salmon
    static constexpr double kPesetas = 166.386;

  private:
    void listar(std::optional<double> codigo, bool conMostrar);
    EtiquetaGrafica &cargarEtiqueta(int n);
    double altoEtiqueta() const;
    double anchoEtiqueta() const;
    bool esCartera() const;
    // Walks the user's purchases and sales that `condicion` adds to the
    // user's, making one pole and label for each; `colocar` places them.
    void ponerPalos(const QString &condicion,
                    const std::function<void(Recordset &, double tipo, double x, double cantidad,
                                             LineaGrafica &, EtiquetaGrafica &)> &colocar);

    Session &s_;
    GraficaPrincipal &g_;
    int cargas_ = 0;
};

} // namespace tesorel
