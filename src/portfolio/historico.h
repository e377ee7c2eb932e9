#pragma once
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

#include "core/paleta.h"
#include "portfolio/serie_cartera.h"

namespace tesorel
{

class Session;

// One line of the ledger window, which reads as a sentence: "El" day,
// verb, shares "acciones de" value, price, "por" total, "en" broker.
struct FilaHistorico {
    QString Fecha, Operacion, Cantidad, Valor, Precio, Importe, Entidad;
    int Importe_ForeColor = 0;

    // fecha, verbo, cantidad, valor, precio, importe, entidad.
    QStringList celdas() const;
};

// The ledger window without its widgets: the user's purchases and sales,
// filtered by value or before the tax year, sorted by date or value, with
// a line's editor, deletion, the ledger report and the tax export. Never
// touches cartera.
class Historico
{
  public:
    // `editar` shows the line editor modally on s.Historico_rs's current
    // record and returns when it closes.
    Historico(Session &s, std::function<void()> editar = {});

    static constexpr int ColorCompra = paleta::VerdeOscuro;
    static constexpr int ColorVenta = paleta::Granate;
    static const QString OrdenFecha, OrdenValor, FiltroRentaPrevio;

    // Controls.
    std::vector<FilaHistorico> filas; // NumReg = filas.size()
    QStringList Filtro_Lista;
    QString Filtro;
    bool Option1[2] = {true, false};
    QString letra = QStringLiteral("D:");
    AvisosSerie avisos;

    // Events.
    void Form_Load();
    void llenarfiltro();
    void Llenar_tabla(const QString &filtro, const QString &orden);
    void Option1_Click(int indice);
    void Filtro_Click();
    void Command2_Click();
    void Command1_Click(int indice);
    void Borrar_Click(int fila); // rows from 1
    void BorrarTodo_Click();
    void Editar_Click(int fila);

    // The ledger report of the rows shown, written to `ruta` (the
    // application folder's historico.htm from the button) and opened.
    void informeHtml(const QString &ruta, bool abrir = true);
    // The rows shown into the tax program's base under `letra`.
    void exportarTxe();

    const QString &filtroRecordado() const { return filtro_; }
    const QString &ordenActual() const { return orden_; }

  private:
    QString sentencia(const QString &orden) const;

    Session &s_;
    std::function<void()> editar_;
    QString filtro_;
    QString orden_ = OrdenFecha;
};

} // namespace tesorel
