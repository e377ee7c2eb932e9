#pragma once
#include <QString>

namespace tesorel
{

class Session;

// The texts of a purchase or a sale as the booking reads them: the
// window's fields, or the cells of an imported statement's row.
struct TextosApunte {
    QString valor;      // ABREVIATURA11 of the value (Combo1)
    QString cantidad;   // shares
    QString precio;     // price of one share
    QString fecha;      // day of the operation, as typed
    QString total;      // net money of the operation
    double entidad = 0; // the broker's code
};

// How the booking reads those texts and words the ledger line. The
// windows read the quantity (and, in a merge, the total) by the point
// rule where they always have; imported statements read everything with
// the locale rule and write " x " before the total.
struct ReglasApunte {
    bool reglaPunto = true;      // the point rule where the windows use it
    QString verbo;               // ": Compra de " / ": Venta de "
    QString union_ = " por ";    // between the value and the total
    bool seguirTrasFallo = true; // report a failing step and go on; false: the failure ends the booking

    static ReglasApunte compraVentana();
    static ReglasApunte ventaVentana();
    // Imported rows: no point rule, " x ", failures not caught.
    static ReglasApunte compraImportada();
    static ReglasApunte ventaImportada();
};

// Books a purchase: the user's row of cartera (new, or merged at an
// averaged price), then the ledger line. No check of any kind.
void apuntarCompra(Session &s, const TextosApunte &t, const ReglasApunte &r);

enum class ResultadoVenta { Apuntada, ValorNoEncontrado, Insuficiente };

// Books a sale: the row shrinks pro rata or goes, then the ledger line.
// A value not held, or more shares than held, is refused with its
// message ("Atención", critical) and nothing is written.
ResultadoVenta apuntarVenta(Session &s, const TextosApunte &t, const ReglasApunte &r);

} // namespace tesorel
