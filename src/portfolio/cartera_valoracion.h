#pragma once
#include <QDate>
#include <QString>
#include <QStringList>
#include <array>
#include <functional>
#include <vector>

#include "core/currency.h"
#include "portfolio/serie_cartera.h"

namespace tesorel
{

class Session;

// One position valued on the session's date: a row of the work table
// cartera1, kept in memory and sorted there.
struct PosicionValorada {
    double Cantidad = 0;
    double Valor = 0; // the value's code
    double Valor_Actual = 0;
    double coste_total = 0;
    double Precio_Compra = 0;
    double Diferencial = 0;
    double Ultimo = 0;
    double Beneficio = 0;
    QDate Fecha;
    double porcentage = 0; // share of the running sum; never shown
};

// The cells of one row of the grid, by column name.
struct FilaCartera {
    QString FechaCompra, Dias, Titulos, Valor, TantoCartera, PrecioCompra, Ultimo, CosteInversion,
        ValorActual, Beneficio, TantoGanancia;
    double Valor_Tag = 0; // the code of the row's value
    int TantoGanancia_ForeColor = 0;

    // The eleven cells in the order of the headings.
    QStringList celdas() const;
};

// The portfolio window without its widgets: every position valued at the
// session's current date, sorted, in euros or pesetas, with the totals and
// the comparison with the previous session. Also the hub that opens buying,
// selling, the ledger and the position editor.
class cartera11
{
  public:
    // `abrir` shows another window modally, by its name; it returns when
    // that window has closed. `cerrar` closes this one.
    cartera11(Session &s, std::function<void(const QString &)> abrir, std::function<void()> cerrar = {});

    static constexpr double PesetasPorEuro = 166.386;
    static constexpr int FilasVisibles = 15;
    static const QStringList Encabezados;           // the headings of the eleven columns
    static const std::array<QString, 4> Sentencias; // SSOption1..4

    // Controls.
    QString Moneda = QStringLiteral("E"); // "E" or "P"
    QString desc = QStringLiteral(" desc");
    bool Euros = true, pesetas = false;
    std::array<bool, 7> SSOption{}; // 1..4 sort key, 5 descending, 6 ascending
    std::vector<FilaCartera> filas; // the rows created so far, from row 1
    QString Label1_1300, Label1_1400, Label1_800, Label1_700;
    QString Fecha;
    std::array<QString, 2> CarteraLabel;
    QString CarteraDif, CarteraTanto;
    int LabelDif_ForeColor = 0;
    bool VScroll1_Enabled = false;
    int VScroll1_Max = 0, VScroll1_Value = 0;

    // Members.
    QString sentencia;
    double filasContador = 1;
    double costeTotal = 0, valorTotal = 0;
    Currency valorAnterior;
    double diferencia = 0, tanto = 0;
    std::vector<PosicionValorada> cartera1;
    AvisosSerie avisos; // the hourglass of a series rebuilt from here

    // Events.
    void Form_Load();
    void rellenar2();
    void ver(const QString &sentencia);
    QString visualizar(double importe) const;
    void operaciones_dividendos() {}
    void SSOption_Click(int indice); // 1..6
    void Euros_Click();
    void pesetas_Click();
    void setMoneda(const QString &texto);
    void Command1_Click(int indice);
    void menu_comprar_Click() { Command1_Click(1); }
    void menu_vender_Click() { Command1_Click(2); }
    void menu_volver_Click();
    void menu_gerarar_valorCArtera_Click();
    void Valor_DblClick(int fila); // from 1
    void Importa_Click();
    void VScroll1_Change(int valor);
    // The portfolio report cartera.htm in the application folder, opened in the browser.
    void html_Click();
    // The report written from the cells of the grid to `ruta`; handed to the browser when asked.
    void informeHtml(const QString &ruta, bool abrir);

  private:
    void abrirYRellenar(const QString &ventana);

    Session &s_;
    std::function<void(const QString &)> abrir_;
    std::function<void()> cerrar_;
};

} // namespace tesorel
