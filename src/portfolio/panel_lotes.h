#pragma once
#include <QDate>
#include <QString>
#include <array>
#include <vector>

namespace tesorel
{

class Session;

// The lots panel of the sell window: rows 0 to 4 are the lots still open
// (oldest first), row 5 their total, as the sale being typed would leave
// them. Nothing carries over from one calculation to the next.
struct PanelLotes {
    static constexpr int kLotes = 5;

    struct Fila {
        QDate fecha; // null on the total row
        double compradas = 0, precio = 0, totalCompra = 0, resultado = 0, vendidas = 0, tanto = 0;
    };
    // The cells as shown, rows 0 to 5.
    struct Celdas {
        QString FechaCompra, CantidadCompra, PrecioCompra, TotalCompra, Resultado, Vendidas, Tanto;
    };
    std::array<Celdas, kLotes + 1> celdas;
    std::vector<Fila> lotes; // what rows 0.. show, at most five
    Fila total;
    bool hayTotal = false;
};

// The texts of the sale being typed, as the panel reads them.
struct VentaEnCurso {
    QString fecha, cantidad, precio, total;
};

// Replays the user's ledger of `valor`, turns what remains of each
// purchase into a fresh lot, applies the sale when its total is not 0, and
// fills the panel. A ledger quantity past 16 bits, a sale past them or a
// 1001st lot raise RuntimeError: the panel then holds what was shown
// before the failure.
void Recalcular_Lotes(Session &s, double valor, const VentaEnCurso &venta, PanelLotes &panel);

} // namespace tesorel
